// The ingredient grid's rows, checks and writes, and the add dialog's checks.
#include "TestStore.h"
#include "reference/IngredientMaint.h"
#include "store/DrinkStore.h"

#include <QTest>

using namespace IngredientMaint;

namespace {
const char *kRows = R"(
INSERT INTO IngTypes (IngTypeID, IngType) VALUES (0, 'Undefined'), (1, 'Spirits'), (2, 'Mixers'), (3, 'Bar "Stock"');
INSERT INTO IngSubTypes (IngSubTypeID, IngTypeID, Name) VALUES (1, 1, 'Gin'), (2, 1, 'Rum'), (3, 2, 'Soda');
INSERT INTO Ingredients (id, Ingredient, UnitType, ozperunit, unitprice, Type, SubType, Notes) VALUES
  (1, 'Gin', 'Fifth', 25.4, 15.99, 1, 1, 'house'), (2, 'Tonic', '1 L', 33.8, 1.49, 2, 3, NULL),
  (5, 'Rum', 'Fifth', 25.4, 12.5, 1, 2, NULL);
INSERT INTO DrinkRel (DrinkID, IngID, seq, amount, MetricAmount, measure) VALUES (1, 1, 1, '2 oz', '', 2),
  (1, 2, 2, '4 oz', '', 4);
)";

QString cellOf(DrinkStore &s, const QString &sql) { return s.scalar(sql).toString(); }
} // namespace

class tst_IngredientMaint : public QObject {
    Q_OBJECT
private slots:
    void gridRowsAndLists();
    void saveWritesChangedRowsOnly_data();
    void saveWritesChangedRowsOnly();
    void leaveCellChecks();
    void addDialogChecks_data();
    void addDialogChecks();
    void addAndRemove();
};

void tst_IngredientMaint::gridRowsAndLists()
{
    TestStore t(QString::fromUtf8(kRows));
    const auto rows = LoadRows(t.store());
    QCOMPARE(int(rows.size()), 3);
    const QStringList gin{"1", "Gin", "Fifth", "25.4", "$15.99", "Spirits", "Gin", "house"};
    QCOMPARE(rows[0], gin);
    QCOMPARE(IngTypeNames(t.store()), (QStringList{"Bar \"Stock\"", "Mixers", "Spirits", "Undefined"}));
    QCOMPARE(SubTypeNames(t.store(), QStringLiteral("spirits")), (QStringList{"Gin", "Rum"}));
    QCOMPARE(SubTypeNames(t.store(), QStringLiteral("Bar \"Stock\"")), QStringList());
    // An unknown unit proposes nothing (the grid window shows a fifth filling itself).
    QVERIFY(!ProposeOunces(t.store(), QStringLiteral("Magnum")));
}

void tst_IngredientMaint::saveWritesChangedRowsOnly_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("check"); // a statement reading the result for Gin
    QTest::addColumn<QString>("expected");
    // A typed name and a price in the currency format are saved by the grid window's own test.
    QTest::newRow("plain price") << int(Price) << "9.5" << "SELECT unitprice FROM Ingredients WHERE id = 1" << "9.5";
    QTest::newRow("emptied unit is cleared") << int(UnitType) << ""
                                             << "SELECT COALESCE(UnitType, 'null') FROM Ingredients WHERE id = 1"
                                             << "null";
    QTest::newRow("sub type of another type gives 0") << int(SubType) << "Soda"
                                                      << "SELECT SubType FROM Ingredients WHERE id = 1" << "0";
    QTest::newRow("new type, its sub type not found") << int(Type) << "Mixers"
                                                      << "SELECT Type || '/' || SubType FROM Ingredients WHERE id = 1"
                                                      << "2/0";
}

void tst_IngredientMaint::saveWritesChangedRowsOnly()
{
    QFETCH(int, column);
    QFETCH(QString, text);
    QFETCH(QString, check);
    QFETCH(QString, expected);
    TestStore t(QString::fromUtf8(kRows));
    DrinkStore &s = t.store();
    const auto loaded = LoadRows(s);
    auto edited = loaded;
    edited[0][column] = text;
    // A row left as it was is not written, even where the store holds something else now.
    s.execute(QStringLiteral("UPDATE Ingredients SET Notes = 'changed elsewhere' WHERE id = 5"));
    QVERIFY(!SaveRows(s, loaded, edited));
    QCOMPARE(cellOf(s, check), expected);
    QCOMPARE(cellOf(s, QStringLiteral("SELECT Notes FROM Ingredients WHERE id = 5")), QStringLiteral("changed elsewhere"));
}

void tst_IngredientMaint::leaveCellChecks()
{
    QCOMPARE(LeaveCellProblem(Ounces, QStringLiteral("a fifth")),
             QStringLiteral("Please enter a number that represents the number of ounces or peices per purchased unit."));
    QVERIFY(!LeaveCellProblem(Ounces, QStringLiteral(" 25.4 ")));
    QVERIFY(!LeaveCellProblem(Notes, QString()));

    // A price that is not money stops the whole save before anything is written.
    TestStore t(QString::fromUtf8(kRows));
    const auto loaded = LoadRows(t.store());
    auto edited = loaded;
    edited[0][Name] = QStringLiteral("Renamed");
    edited[2][Price] = QStringLiteral("cheap");
    QCOMPARE(SaveRows(t.store(), loaded, edited), 2);
    QCOMPARE(cellOf(t.store(), QStringLiteral("SELECT Ingredient FROM Ingredients WHERE id = 1")), QStringLiteral("Gin"));
}

void tst_IngredientMaint::addDialogChecks_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("subType");
    QTest::addColumn<QString>("ounces");
    QTest::addColumn<QString>("message");
    QTest::newRow("name first") << "" << -1 << -1 << "x" << "Please enter the ingredient name.";
    QTest::newRow("then the type") << "Vodka" << -1 << -1 << "x" << "Please select the ingredient type.";
    QTest::newRow("then the sub type") << "Vodka" << 1 << -1 << "x" << "Please select the ingredient sub type.";
    QTest::newRow("then the ounces") << "Vodka" << 1 << 1 << "x"
                                     << "Please enter only numbers for the Ounces or Pieces per unit.";
    QTest::newRow("then the name in use, any case") << "TONIC" << 2 << 3 << ""
                                                    << "The ingredient name you have entered, \"TONIC\" is already in "
                                                       "the list.  Please enter a different name.";
    QTest::newRow("passes") << "Vodka \"Ø\"" << 1 << 1 << "25.4" << "";
}

void tst_IngredientMaint::addDialogChecks()
{
    QFETCH(QString, name);
    QFETCH(int, type);
    QFETCH(int, subType);
    QFETCH(QString, ounces);
    QFETCH(QString, message);
    TestStore t(QString::fromUtf8(kRows));
    NewIngredient n{name, QString(), ounces, QString(), type, subType, false};
    QCOMPARE(CheckNewIngredient(t.store(), n).value_or(QString()), message);
}

void tst_IngredientMaint::addAndRemove()
{
    TestStore t(QString::fromUtf8(kRows));
    DrinkStore &s = t.store();
    const qint32 id = AddIngredient(s, {QStringLiteral("Vodka \"Ø\""), QString(), QStringLiteral("33.8"),
                                        QStringLiteral("$19.99"), 1, 2, true});
    QCOMPARE(id, 6);
    QCOMPARE(cellOf(s, "SELECT Ingredient || '|' || COALESCE(UnitType, 'null') || '|' || ozperunit || '|' || unitprice "
                       "|| '|' || Selected FROM Ingredients WHERE id = 6"),
             QStringLiteral("Vodka \"Ø\"|null|33.8|19.99|1"));
    RemoveIngredient(s, 1);
    QCOMPARE(cellOf(s, "SELECT COUNT(*) FROM Ingredients WHERE id = 1"), QStringLiteral("0"));
    QCOMPARE(cellOf(s, "SELECT group_concat(IngID) FROM DrinkRel"), QStringLiteral("2"));
}

QTEST_GUILESS_MAIN(tst_IngredientMaint)
#include "tst_ingredientmaint.moc"
