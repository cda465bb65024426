// Loading, checking and saving a drink the way the editor does, on a small store.
#include "TestStore.h"
#include "editing/DrinkEditorStore.h"
#include "editing/EditorLines.h"
#include "store/DrinkStore.h"
#include "store/StoreError.h"

#include <QSqlQuery>
#include <QSqlRecord>
#include <QTemporaryFile>
#include <QTest>

namespace {

const char *kRows = R"(
INSERT INTO Glassware (GlassID, Name, Notes) VALUES (3, 'Cocktail', 'Stemmed');
INSERT INTO Ingredients (id, Ingredient, UnitType, ozperunit, unitprice, Type, SubType) VALUES
  (1, 'Gin', 'Fifth', 25.4, 15.99, 1, 0), (2, 'Dry Vermouth', 'Fifth', 25.4, 8.99, 1, 0),
  (7, 'Olive', 'Jar', 40, 3.99, 4, 0);
INSERT INTO Garnish (id, Name) VALUES (1, 'Olive'), (2, 'Lemon Twist');
INSERT INTO Build (id, Name) VALUES (1, 'Stirred');
INSERT INTO Ratings (RatingID, Name) VALUES (1, 'Good');
INSERT INTO DrinkTypes (TypeID, Type) VALUES (0, 'Unknown / Other'), (4, 'Classic'), (9, 'Strong');
INSERT INTO Drinks (id, Name, GlassType, Description, Price, Cost, BuildID, GarnishID, RatingID, Marked, ImageFilePath)
  VALUES (10, 'Martini', 3, 'Stir with ice.', 7.5, 1.61, 1, 1, 1, 1, '000123');
INSERT INTO DrinkRel (DrinkID, IngID, seq, amount, MetricAmount, measure) VALUES
  (10, 1, 1, '2 oz', '6.0 cl ', 2), (10, 2, 2, '0.5 oz', '1.5 cl ', 0.5), (10, 7, 3, '1 piece', '1 ml piece', 1);
INSERT INTO DrinkTypeRel (DrinkID, DrinkTypeID) VALUES (10, 4);
INSERT INTO SearchResults (ID, Name) VALUES (10, 'Martini');
)";

// Every row of the tables a save touches, as text: two dumps are equal when nothing changed.
QString dump(DrinkStore &store)
{
    QString out;
    for (const char *table : {"Drinks", "DrinkRel", "DrinkTypeRel", "Ingredients", "Garnish", "Build", "Ratings",
                              "SearchResults"}) {
        QSqlQuery q = store.select(QStringLiteral("SELECT * FROM %1 ORDER BY 1, 2").arg(QLatin1String(table)));
        while (q.next()) {
            for (int c = 0; c < q.record().count(); ++c)
                out += q.value(c).toString() + u'|';
            out += u'\n';
        }
    }
    return out;
}

// The editor's state after it loaded a stored drink of these rows, with its lists as the dialog
// fills them.
DrinkDraft draftOf(DrinkStore &store, qint32 id)
{
    const StoredDrink s = LoadStoredDrink(store, id);
    return {.drinkId = id, .name = s.name, .recipe = s.recipe, .comments = s.comments, .glassId = s.glassId,
            .priceText = s.priceText, .costText = s.costText,
            .garnish = {{}, {{QStringLiteral("Lemon Twist"), 2}, {QStringLiteral("Olive"), 1}},
                        s.garnishId == 1 ? 1 : -1},
            .build = {{}, {{QStringLiteral("Stirred"), 1}}, s.buildId == 1 ? 0 : -1},
            .rating = {{}, {{QStringLiteral("Good"), 1}}, -1},
            .lockPrice = s.lockPrice,
            .imagePathText = s.imagePath.size() == 6 ? InternalImageText : s.imagePath,
            .loadedImagePath = s.imagePath,
            .lines = s.lines,
            .categoryIds = s.categoryIds};
}

QVariant value(DrinkStore &store, const QString &sql) { return store.scalar(sql); }

} // namespace

class tst_DrinkSave : public QObject {
    Q_OBJECT

private slots:
    void validationOrder_data();
    void validationOrder();
    void loadsStoredDrink();
    void addsDrinkWithNewIngredientAndTypedTexts();
    void editKeepsIdAndDropsRatingAndMarkThenCopy();
    void sideTextReusesEqualEntryOnly_data();
    void sideTextReusesEqualEntryOnly();
    void failedSaveLeavesStoreAsItWas();
};

void tst_DrinkSave::validationOrder_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("lines");
    QTest::addColumn<QString>("picture");
    QTest::addColumn<QString>("loadedName");
    QTest::addColumn<bool>("copy");
    QTest::addColumn<int>("failedCheck"); // 0: passes
    QTest::addColumn<QString>("message");

    const QString missing = QStringLiteral("/no/such/picture.jpg");
    QTest::newRow("empty name before all") << "" << 0 << missing << "" << false << 1
                                           << "Please enter the drink name.";
    QTest::newRow("no lines before the picture") << "Gimlet" << 0 << missing << "" << false << 2
                                                 << "There must be at least one ingredient selected.";
    QTest::newRow("missing picture before the name") << "Martini" << 1 << missing << "" << false << 3
                                                     << "The drink image specified does not exist.";
    QTest::newRow("internal picture is no file") << "Gimlet" << 1 << InternalImageText << "" << false << 0 << "";
    QTest::newRow("name taken") << "Martini" << 1 << "" << "" << false << 4
                                << "Another drink with the name \"Martini\" already exists.  Please choose a "
                                   "different name.";
    QTest::newRow("taken in another case") << "MARTINI" << 1 << "" << "Martini" << false << 4
                                           << "Another drink with the name \"MARTINI\" already exists.  Please "
                                              "choose a different name.";
    QTest::newRow("own name on edit") << "Martini" << 1 << "" << "Martini" << false << 0 << "";
    QTest::newRow("copy not renamed") << "Martini" << 1 << "" << "Martini" << true << 5
                                      << "This drink is a copy of \"Martini\".  The name must be changed before it "
                                         "can be saved.";
    QTest::newRow("copy renamed") << "Dirty Martini" << 1 << "" << "Martini" << true << 0 << "";
}

void tst_DrinkSave::validationOrder()
{
    QFETCH(QString, name);
    QFETCH(int, lines);
    QFETCH(QString, picture);
    QFETCH(QString, loadedName);
    QFETCH(bool, copy);
    QFETCH(int, failedCheck);
    QFETCH(QString, message);
    TestStore t(QString::fromUtf8(kRows));
    const auto failure = ValidateDrink(t.store(), name, lines, picture, loadedName, copy);
    QCOMPARE(failure ? failure->check : 0, failedCheck);
    QCOMPARE(failure ? failure->message : QString(), message);
}

void tst_DrinkSave::loadsStoredDrink()
{
    TestStore t(QString::fromUtf8(kRows));
    const StoredDrink s = LoadStoredDrink(t.store(), 10);
    QVERIFY(s.found);
    QCOMPARE(s.name, QStringLiteral("Martini"));
    QCOMPARE(s.glassId, 3);
    QCOMPARE(s.priceText, Currency::fromTenThousandths(75000).format());
    QCOMPARE(s.imagePath, QStringLiteral("000123"));
    QCOMPARE(int(s.lines.size()), 3);
    const QStringList expected{"7", "1 piece", "1 ml piece", "Olive", "", "3.99", "40", "Jar", "1"};
    QCOMPARE(s.lines[2], expected);
    QCOMPARE(s.lines[1][IngCol::Measure], QStringLiteral("0.5"));
    QCOMPARE(s.categoryIds, QList<qint32>{4});
    QVERIFY(!LoadStoredDrink(t.store(), 99).found);
}

// The editor window's test saves a typed name, price, garnish and new ingredient and reads them
// back in their order; here what it does not reach.
void tst_DrinkSave::addsDrinkWithNewIngredientAndTypedTexts()
{
    TestStore t(QString::fromUtf8(kRows));
    DrinkStore &s = t.store();
    const QString newIng = QStringLiteral("Grand Marnier's \"Cuvée\"");
    DrinkDraft d;
    d.name = QStringLiteral("Crème \"Brûlée\" O'Neil 🍸");
    d.recipe = QStringLiteral("Shake; strain — serve.");
    d.priceText = QStringLiteral("$6.25");
    d.costText = QStringLiteral("not money");
    d.rating.entries = {{QStringLiteral("Good"), 1}};
    d.rating.selected = 0;
    d.lines = {StoredIngredientLine(*FindIngredientById(s, 1), QStringLiteral("1.5"), QStringLiteral("Ounce (Shot)")),
               NewIngredientLine(newIng, QStringLiteral("1"), QStringLiteral("Ounce (Shot)")),
               NewIngredientLine(newIng, QStringLiteral("0.5"), QStringLiteral("Ounce (Shot)")),
               NewIngredientLine(QStringLiteral("Soda"), QString(), QStringLiteral("Top With"))};
    d.categoryIds = {4, 9};
    const int ingredientsBefore = value(s, "SELECT COUNT(*) FROM Ingredients").toInt();

    const SaveOutcome out = SaveDrink(s, d);
    QCOMPARE(out.drinkId, 11);
    QVERIFY(!out.inSearchResults);
    QVERIFY(value(s, "SELECT GlassType FROM Drinks WHERE id = 11").isNull());
    // A cost that is not money never reaches the store.
    QVERIFY(value(s, "SELECT Cost FROM Drinks WHERE id = 11").isNull());
    QCOMPARE(value(s, "SELECT RatingID FROM Drinks WHERE id = 11").toInt(), 1);
    // Two lines of the same new name make two ingredients: each line is its own.
    QCOMPARE(value(s, "SELECT COUNT(*) FROM Ingredients").toInt(), ingredientsBefore + 3);
    QCOMPARE(value(s, "SELECT COUNT(*) FROM Ingredients WHERE Ingredient = \"Grand Marnier's \"\"Cuvée\"\"\"").toInt(), 2);

    const StoredDrink back = LoadStoredDrink(s, 11);
    QCOMPARE(back.recipe, d.recipe);
    QCOMPARE(int(back.lines.size()), 4);
    QCOMPARE(back.lines[3][IngCol::Amount], QStringLiteral("Top With"));
    QCOMPARE(back.lines[3][IngCol::Measure], QStringLiteral("0"));
    QCOMPARE(value(s, "SELECT group_concat(seq) FROM (SELECT seq FROM DrinkRel WHERE DrinkID = 11 ORDER BY seq)")
                 .toString(),
             QStringLiteral("1,2,3,4"));
    QCOMPARE(back.categoryIds, (QList<qint32>{4, 9}));
}

void tst_DrinkSave::editKeepsIdAndDropsRatingAndMarkThenCopy()
{
    TestStore t(QString::fromUtf8(kRows));
    DrinkStore &s = t.store();
    DrinkDraft d = draftOf(s, 10);
    d.name = QStringLiteral("Dry Martini");
    std::swap(d.lines[0], d.lines[1]);
    const SaveOutcome out = SaveDrink(s, d);
    QCOMPARE(out.drinkId, 10);
    QVERIFY(out.inSearchResults);
    QCOMPARE(value(s, "SELECT RatingID FROM Drinks WHERE id = 10").toInt(), 0);
    QCOMPARE(value(s, "SELECT Marked FROM Drinks WHERE id = 10").toInt(), 0);
    QCOMPARE(value(s, "SELECT GarnishID FROM Drinks WHERE id = 10").toInt(), 1);
    // The internal picture keeps its number.
    QCOMPARE(value(s, "SELECT ImageFilePath FROM Drinks WHERE id = 10").toString(), QStringLiteral("000123"));
    // Still among the search results, under its new name, once.
    QCOMPARE(value(s, "SELECT group_concat(Name) FROM SearchResults WHERE ID = 10").toString(),
             QStringLiteral("Dry Martini"));
    QCOMPARE(value(s, "SELECT IngID FROM DrinkRel WHERE DrinkID = 10 AND seq = 1").toInt(), 2);
    QCOMPARE(value(s, "SELECT COUNT(*) FROM Drinks").toInt(), 1);

    // A copy of the edited drink gets a new id and leaves its source as it is.
    const QString before = dump(s);
    d = draftOf(s, 10);
    d.drinkId = -1;
    d.name = QStringLiteral("Martini Copy");
    const SaveOutcome copy = SaveDrink(s, d);
    QCOMPARE(copy.drinkId, 11);
    QVERIFY(!copy.inSearchResults);
    QCOMPARE(value(s, "SELECT COUNT(*) FROM DrinkRel WHERE DrinkID = 11").toInt(), 3);
    QCOMPARE(value(s, "SELECT COUNT(*) FROM DrinkTypeRel WHERE DrinkID = 11").toInt(), 1);
    // Remove the copy's rows: what is left is the store exactly as before.
    for (const QString &sql : drinkRemovalStatements(11))
        s.execute(sql);
    QCOMPARE(dump(s), before);
}

void tst_DrinkSave::sideTextReusesEqualEntryOnly_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("selected");
    QTest::addColumn<int>("expectedId"); // -1: a new row
    QTest::newRow("equal text reuses the entry") << "Lemon Twist" << 0 << 2;
    QTest::newRow("text wins over the selection") << "Olive" << 0 << 1;
    QTest::newRow("another case adds a row") << "lemon twist" << -1 << -1;
    QTest::newRow("no text: the selection") << "" << 1 << 1;
    QTest::newRow("no text, no selection: 0") << "" << -1 << 0;
}

void tst_DrinkSave::sideTextReusesEqualEntryOnly()
{
    QFETCH(QString, typed);
    QFETCH(int, selected);
    QFETCH(int, expectedId);
    TestStore t(QString::fromUtf8(kRows));
    SideChoice c{typed, {{QStringLiteral("Lemon Twist"), 2}, {QStringLiteral("Olive"), 1}}, selected};
    const int rowsBefore = value(t.store(), "SELECT COUNT(*) FROM Garnish").toInt();
    const qint32 id = GetSideID(t.store(), c, QStringLiteral("Garnish"));
    const int rowsAfter = value(t.store(), "SELECT COUNT(*) FROM Garnish").toInt();
    if (expectedId < 0) {
        QCOMPARE(rowsAfter, rowsBefore + 1);
        QCOMPARE(value(t.store(), QStringLiteral("SELECT Name FROM Garnish WHERE id = %1").arg(id)).toString(), typed);
    } else {
        QCOMPARE(id, expectedId);
        QCOMPARE(rowsAfter, rowsBefore);
    }
}

void tst_DrinkSave::failedSaveLeavesStoreAsItWas()
{
    TestStore t(QString::fromUtf8(kRows));
    DrinkStore &s = t.store();
    DrinkDraft d = draftOf(s, 10);
    d.garnish.newText = QStringLiteral("Cocktail Onion");
    d.lines.push_back(NewIngredientLine(QStringLiteral("Brine"), QStringLiteral("1"), QStringLiteral("Dash")));
    const QString before = dump(s);
    // The disk fails once the old rows are gone and the new drink row is written: at the
    // third line.
    s.execute(QStringLiteral("CREATE TRIGGER failing BEFORE INSERT ON DrinkRel WHEN NEW.seq = 3 "
                             "BEGIN SELECT RAISE(ABORT, 'disk I/O error'); END"));
    QVERIFY_THROWS_EXCEPTION(StoreError, SaveDrink(s, d));
    QCOMPARE(dump(s), before);
    // The store is usable afterwards: the same save goes through once the fault is gone.
    s.execute(QStringLiteral("DROP TRIGGER failing"));
    QCOMPARE(SaveDrink(s, d).drinkId, 10);
    QCOMPARE(value(s, "SELECT COUNT(*) FROM DrinkRel WHERE DrinkID = 10").toInt(), 4);
}

QTEST_GUILESS_MAIN(tst_DrinkSave)
#include "tst_drinksave.moc"
