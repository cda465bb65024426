// The advanced search: both ways of composing its statement, VerifyDrink, and the drinks
// each composition brings back, quirks included.
#include "SearchBook.h"
#include "TestStore.h"

#include <QtTest>

namespace {
const QString kCandidates = QStringLiteral("SELECT C.ID, C.Name FROM Ingredients A, DrinkRel B, Drinks C WHERE (");
const QString kJoin = QStringLiteral(") AND (A.ID = B.IngID) AND (C.ID = B.DrinkID) ");
const QString kGroup = QStringLiteral(" GROUP BY C.ID, C.Name HAVING COUNT(C.Name) >= ");
} // namespace

class tst_AdvancedSearch : public QObject {
    Q_OBJECT
  private slots:
    void statements_data();
    void statements();
    void verifyDrink_data();
    void verifyDrink();
    void results_data();
    void results();
};

void tst_AdvancedSearch::statements_data()
{
    QTest::addColumn<CriterionRows>("rows");
    QTest::addColumn<QString>("sql");
    QTest::addColumn<int>("count");          // ingredient path only
    QTest::addColumn<QStringList>("lstIng"); // ingredient path only
    // Plain rows and a single ingredient are shown by the drinks they find, in the results here
    // and in the dialogs' test.
    QTest::newRow("starts with, equal: two counted")
        << criteria({{"Ingredient", kStarts, "Lime", "And"}, {"Ingredient", kEq, "Gin", "And"}})
        << kCandidates + "(A.Ingredient LIKE \"Lime*\") OR (A.Ingredient = \"Gin\")" + kJoin + kGroup + "2" << 2
        << QStringList{"! Lime", "= Gin"};
    QTest::newRow("ends with, value as typed")
        << criteria({{"Ingredient", kEnds, " Juice ", "And"}})
        << kCandidates + "(A.Ingredient LIKE \"* Juice \")" + kJoin + kGroup + "1" << 1 << QStringList{"!  Juice "};
    QTest::newRow("Or between ingredients lowers the count")
        << criteria(
               {{"Ingredient", kContains, "gin", "Or"}, {"Ingredient", kGt, "M", "And"}, {"Ingredient", kLt, "B", ""}})
        << kCandidates + "(A.Ingredient LIKE \"*gin*\") OR (A.Ingredient > \"M\") OR (A.Ingredient < \"B\")" + kJoin +
               kGroup + "2"
        << 2 << QStringList{"! gin", "> M", "< B"};
    QTest::newRow("plain row 1, ingredient after Or: count 0, still AND")
        << criteria({{"Name", kContains, "x", "Or"}, {"Ingredient", kContains, "gin", "And"}})
        << kCandidates + "(A.Ingredient LIKE \"*gin*\")" + kJoin + " AND (C.Name LIKE \"*x*\")" + kGroup + "0" << 0
        << QStringList{"! gin"};
    QTest::newRow("plain row after Or escapes the join")
        << criteria({{"Ingredient", kContains, "gin", "Or"}, {"Price", kLt, "4", "And"}, {"Marked", kEq, "True", ""}})
        << kCandidates + "(A.Ingredient LIKE \"*gin*\")" + kJoin + " OR (C.Price < 4) AND (C.Marked = True)" + kGroup +
               "1"
        << 1 << QStringList{"! gin"};
}

void tst_AdvancedSearch::statements()
{
    QFETCH(CriterionRows, rows);
    QFETCH(QString, sql);
    QFETCH(int, count);
    QFETCH(QStringList, lstIng);
    const AdvancedQuery q = ComposeAdvancedSearch(rows);
    QCOMPARE(q.ingredientPath, sql.startsWith(kCandidates));
    QCOMPARE(q.sql, sql);
    QCOMPARE(q.requiredCount, count);
    QCOMPARE(q.lstIng, lstIng);
}

void tst_AdvancedSearch::verifyDrink_data()
{
    QTest::addColumn<QStringList>("lstIng");
    QTest::addColumn<QStringList>("ingredients");
    QTest::addColumn<bool>("kept");
    const QStringList gt{"Gin", "Tonic Water"};
    QTest::newRow("contains, any case, any place") << QStringList{"! GIN"} << QStringList{"Sloe Gin"} << true;
    QTest::newRow("equal is case-sensitive") << QStringList{"= gin"} << QStringList{"Gin"} << false;
    QTest::newRow("greater: value above an ingredient") << QStringList{"> Orange Juice"} << gt << true;
    QTest::newRow("greater: nothing below the value") << QStringList{"> Orange Juice"} << QStringList{"Vodka"} << false;
    QTest::newRow("less: nothing above the value") << QStringList{"< Orange Juice"} << QStringList{"Gin"} << false;
    QTest::newRow("binary order: capitals first") << QStringList{"> a"} << QStringList{"B"} << true;
    QTest::newRow("value trimmed") << QStringList{"=   Gin  "} << gt << true;
    QTest::newRow("every entry must hold") << QStringList{"! gin", "! lime"} << gt << false;
    QTest::newRow("one ingredient may satisfy two")
        << QStringList{"! gin", "! sloe"} << QStringList{"Sloe Gin"} << true;
    QTest::newRow("no ingredients") << QStringList{"! "} << QStringList{} << false;
}

void tst_AdvancedSearch::verifyDrink()
{
    QFETCH(QStringList, lstIng);
    QFETCH(QStringList, ingredients);
    QFETCH(bool, kept);
    QCOMPARE(VerifyDrink(lstIng, ingredients), kept);
}

void tst_AdvancedSearch::results_data()
{
    QTest::addColumn<CriterionRows>("rows");
    QTest::addColumn<QList<int>>("ids");
    QTest::newRow("category through DrinkTypeRel")
        << criteria({{"Category", kEq, "1", "And"}, {"Ingredient", kContains, "tonic", ""}}) << QList<int>{1, 5};
    QTest::newRow("no text finds every name")
        << criteria({{"Name", kContains, "", ""}}) << QList<int>{1, 2, 3, 4, 5, 6, 7, 8, 9};
    QTest::newRow("five rows, an unselected connector is Or")
        << criteria({{"Rating", kEq, "2", ""}, {"Build", kEq, "1", "Or"}, {"Garnish", kEq, "2", "Or"},
                     {"Category", kEq, "2", "Or"}, {"Comment", kContains, "dry", ""}})
        << QList<int>{2, 3, 4, 5, 6, 7};
    QTest::newRow("name starts, or the whole recipe")
        << criteria({{"Name", kStarts, "g", "Or"}, {"Recipe", kEq, "Build.", ""}}) << QList<int>{1, 2, 9};
    QTest::newRow("name less, case-blind") << criteria({{"Name", kLt, "gin", ""}}) << QList<int>{2};
    QTest::newRow("name ends") << criteria({{"Name", kEnds, "tonic", ""}}) << QList<int>{1, 5};
    QTest::newRow("recipe contains") << criteria({{"Recipe", kContains, "lime", ""}}) << QList<int>{2, 4, 6};
    QTest::newRow("price equal") << criteria({{"Price", kEq, "3.50", ""}}) << QList<int>{3};
    QTest::newRow("cost and comment")
        << criteria({{"Cost", kLt, "1", "And"}, {"Comment", kEq, "Dry", ""}}) << QList<int>{3};
    QTest::newRow("price with an exponent") << criteria({{"Price", kGt, "4.5e0", ""}}) << QList<int>{2, 4, 9};
    QTest::newRow("name greater, case-blind")
        << criteria({{"Glassware", kEq, "1", "And"}, {"Name", kGt, "sloe", ""}}) << QList<int>{5, 8};
    QTest::newRow("greater needs one ingredient above and one below")
        << criteria({{"Glassware", kEq, "1", "And"}, {"Ingredient", kGt, "Orange Juice", ""}}) << QList<int>{1};
    QTest::newRow("less: Gimlet has one below, none above")
        << criteria({{"Glassware", kEq, "2", "And"}, {"Ingredient", kLt, "Lime Juice", ""}}) << QList<int>{6};
    QTest::newRow("starts with is exact only in the query")
        << criteria({{"Ingredient", kStarts, "Gin", "Or"}, {"Ingredient", kContains, "Juice", ""}})
        << QList<int>{2, 6, 8, 9};
    QTest::newRow("ingredient and plain row")
        << criteria({{"Ingredient", kContains, "vodka", "And"}, {"Price", kLt, "4", ""}}) << QList<int>{3, 5};
}

void tst_AdvancedSearch::results()
{
    QFETCH(CriterionRows, rows);
    QFETCH(QList<int>, ids);
    TestStore book(QString::fromLatin1(kSearchBook));
    const AdvancedQuery q = ComposeAdvancedSearch(rows);
    if (q.ingredientPath)
        AppendSearchResults(book.store(), FindIngredientMatches(book.store(), q));
    else
        book.store().execute(q.sql);
    QCOMPARE(searchResults(book.store()), ids);
}

QTEST_GUILESS_MAIN(tst_AdvancedSearch)
#include "tst_advancedsearch.moc"
