// The ingredient types and sub types edited in their tree and saved at once.
#include "GuiTest.h"
#include "TestStore.h"
#include "reference/IngredientTypes.h"
#include "reference/frmIngTypes.h"
#include "store/DrinkStore.h"

#include <QTreeWidget>

using namespace IngredientTypes;

namespace {
// Rum (1) has the sub types Dark (1) and White (2); Juice (2) has Citrus (3); Undefined is 0.
const QString Rows = QStringLiteral(
    "INSERT INTO IngTypes (IngTypeID, IngType) VALUES (0, 'Undefined'), (1, 'Rum'), (2, 'Juice');"
    "INSERT INTO IngSubTypes (IngSubTypeID, IngTypeID, Name) VALUES (1, 1, 'Dark'), (2, 1, 'White'), (3, 2, 'Citrus');"
    "INSERT INTO Ingredients (id, Ingredient, Type, SubType) VALUES (1, 'Gold rum', 1, 1), (2, 'Lime', 2, 3);");

QString types(DrinkStore &store)
{
    return store.scalar(QStringLiteral("SELECT group_concat(T, '|') FROM (SELECT IngTypeID || '=' || IngType AS T FROM "
                                       "IngTypes ORDER BY IngTypeID)"))
        .toString();
}
QString subTypes(DrinkStore &store)
{
    return store.scalar(QStringLiteral("SELECT group_concat(T, '|') FROM (SELECT IngTypeID || ':' || Name AS T FROM "
                                       "IngSubTypes ORDER BY IngSubTypeID)"))
        .toString();
}
QString ingredients(DrinkStore &store)
{
    return store.scalar(QStringLiteral("SELECT group_concat(T, '|') FROM (SELECT Type || '/' || SubType AS T FROM "
                                       "Ingredients ORDER BY id)"))
        .toString();
}

// Where CORVANE_SHOTS names a folder, a picture of the dialog goes there.
void shoot(QWidget *w, const char *name)
{
    if (qEnvironmentVariableIsSet("CORVANE_SHOTS"))
        w->grab().save(qEnvironmentVariable("CORVANE_SHOTS") + u'/' + QLatin1String(name) + ".png");
}
} // namespace

class tst_IngredientTypes : public QObject {
    Q_OBJECT

private slots:
    void save_data();
    void save();
    void editInTheTree();
};

void tst_IngredientTypes::save_data()
{
    QTest::addColumn<QString>("deletions");
    QTest::addColumn<QString>("types");
    QTest::addColumn<QString>("subTypes");
    QTest::addColumn<QString>("ingredients");

    QTest::newRow("nothing deleted") << "" << "0=Undefined|1=Rum|2=Juice" << "1:Dark|1:White|2:Citrus" << "1/1|2/3";
    QTest::newRow("a sub type: its type stays") << "S1" << "0=Undefined|1=Rum|2=Juice" << "1:White|2:Citrus"
                                                << "1/0|2/3";
    QTest::newRow("a type with its sub types") << "C1" << "0=Undefined|2=Juice" << "2:Citrus" << "0/0|2/3";
    QTest::newRow("type 0 and new nodes are skipped") << "C0|C-1|S-1" << "0=Undefined|1=Rum|2=Juice"
                                                      << "1:Dark|1:White|2:Citrus" << "1/1|2/3";
}

void tst_IngredientTypes::save()
{
    QFETCH(QString, deletions);
    QFETCH(QString, types);
    QFETCH(QString, subTypes);
    QFETCH(QString, ingredients);
    TestStore ts(Rows);
    SaveTypeTree(ts.store(), LoadTypeTree(ts.store()), deletions.split(u'|', Qt::SkipEmptyParts));
    QCOMPARE(::types(ts.store()), types);
    QCOMPARE(::subTypes(ts.store()), subTypes);
    QCOMPARE(::ingredients(ts.store()), ingredients);
}

void tst_IngredientTypes::editInTheTree()
{
    TestStore ts(Rows);
    frmIngTypes form(ts.store());
    form.show();
    auto *tree = child<QTreeWidget>(&form, "tvIngTypes");
    QCOMPARE(tree->topLevelItemCount(), 3);
    QTreeWidgetItem *juice = tree->topLevelItem(0);
    QCOMPARE(juice->text(0), QStringLiteral("Juice"));

    // "Undefined" stays; a sibling's name is refused, another type's sub type name is not.
    QString seen;
    tree->setCurrentItem(tree->findItems(QStringLiteral("Undefined"), Qt::MatchExactly).value(0));
    answerNextMessage(&form, &seen);
    child<QPushButton>(&form, "cmdDelete")->click();
    QVERIFY(seen.endsWith(QStringLiteral("|The 'Undefined' entry cannot be deleted.")));
    answerNextMessage(&form, &seen);
    juice->setText(0, QStringLiteral("Rum"));
    QVERIFY(seen.endsWith(QStringLiteral("|The Ingredient Type 'Rum' already exists.  Please enter a new name.")));
    QCOMPARE(juice->text(0), QStringLiteral("Juice"));
    juice->setText(0, QStringLiteral("Juice «fresh»"));
    juice->child(0)->setText(0, QStringLiteral("White"));
    QCOMPARE(juice->child(0)->text(0), QStringLiteral("White"));

    // A new type, and a sub type added then deleted, which leaves nothing behind.
    child<QPushButton>(&form, "cmdAddType")->click();
    tree->currentItem()->setText(0, QStringLiteral("Bitters"));
    tree->setCurrentItem(juice);
    child<QPushButton>(&form, "cmdAddSubType")->click();
    QCOMPARE(tree->currentItem()->parent(), juice);
    answerNextMessage(&form, &seen, QMessageBox::Yes);
    child<QPushButton>(&form, "cmdDelete")->click();
    QVERIFY(seen.startsWith(QStringLiteral("Delete Ingredient Sub Type|")));
    // The rum and its sub types go; its ingredient becomes Undefined.
    tree->setCurrentItem(tree->findItems(QStringLiteral("Rum"), Qt::MatchExactly).value(0));
    answerNextMessage(&form, &seen, QMessageBox::Yes);
    child<QPushButton>(&form, "cmdDelete")->click();
    QVERIFY(seen.contains(QStringLiteral("Ingredient Type and it's Sub Types?")));

    shoot(&form, "types");
    child<QPushButton>(&form, "cmdSave")->click();
    QVERIFY(!form.isVisible());
    QCOMPARE(types(ts.store()), QStringLiteral("0=Undefined|2=Juice «fresh»|3=Bitters"));
    QCOMPARE(subTypes(ts.store()), QStringLiteral("2:White"));
    QCOMPARE(ingredients(ts.store()), QStringLiteral("0/0|2/3"));
}

QTEST_MAIN(tst_IngredientTypes)
#include "tst_ingredienttypes.moc"
