// The simple searches' statements and the criterion fragments as designed, the drinks the
// simple searches bring back, and typed text in every search that takes it.
#include "SearchBook.h"
#include "TestStore.h"
#include "presentation/ListSql.h"
#include "search/SearchSql.h"

#include <QtTest>

class tst_SearchSql : public QObject {
    Q_OBJECT
  private slots:
    void statements_data();
    void statements();
    void results_data();
    void results();
    void typedText_data();
    void typedText();
};

// A row with a field is a criterion's fragment; one with a kind, a simple search's statement.
void tst_SearchSql::statements_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("comparison");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("sql");
    const QString insert = QStringLiteral("INSERT INTO SearchResults ( ID, Name ) ");
    QTest::newRow("301") << 301 << "" << "all" << "gin"
                         << insert + "SELECT Drinks.ID, Drinks.Name FROM Drinks WHERE Drinks.Name Like \"*gin*\"";
    QTest::newRow("302") << 302 << "" << "" << "lime"
                         << insert + "SELECT DISTINCT D.ID, D.Name FROM Drinks D, DrinkRel R, Ingredients I WHERE "
                                     "D.ID = R.DrinkID AND R.IngID = I.ID AND I.Ingredient LIKE \"lime*\"";
    QTest::newRow("303, quote doubled, wildcards as typed")
        << 303 << "" << "" << "a\"?#[x]"
        << insert + "SELECT Drinks.ID, Drinks.Name FROM Drinks WHERE Drinks.Description LIKE \"a\"\"?#[x]*\"";
    QTest::newRow("304") << 304 << "" << "" << "3"
                         << insert + "SELECT Drinks.ID, Drinks.Name FROM Drinks WHERE Drinks.GlassType = 3";
    QTest::newRow("305") << 305 << "" << "" << "0"
                         << insert + "SELECT DISTINCT D.ID, D.Name FROM Drinks D, DrinkTypeRel T WHERE D.ID = "
                                     "T.DrinkID AND T.DrinkTypeID = 0";
    QTest::newRow("Name =, quote doubled") << 0 << "Name" << kEq << "O\"Neil" << "(C.Name = \"O\"\"Neil\")";
    QTest::newRow("Name ends") << 0 << "Name" << kEnds << "v" << "(C.Name LIKE \"*v\")";
    QTest::newRow("Recipe contains") << 0 << "Recipe" << kContains << "v" << "(C.Description LIKE \"*v*\")";
    QTest::newRow("Category") << 0 << "Category" << kEq << "4" << "(C.DrinkType = 4)";
    QTest::newRow("Unmarked") << 0 << "Marked" << kEq << "False" << "(C.Marked = False)";
    QTest::newRow("Price not a number") << 0 << "Price" << kGt << "1 OR 1=1" << "(C.Price > Null)";
    QTest::newRow("Ingredient has no column") << 0 << "Ingredient" << kContains << "gin" << "";
}

void tst_SearchSql::statements()
{
    QFETCH(int, kind);
    QFETCH(QString, field);
    QFETCH(QString, comparison);
    QFETCH(QString, value);
    QFETCH(QString, sql);
    if (field.isEmpty()) {
        const bool text = kind <= SearchKind::ByRecipe;
        QCOMPARE(SimpleSearchSQL(kind, text ? SimpleSearchPattern(value, comparison == u"all") : value), sql);
    } else {
        QCOMPARE(GetSQLForField(field, ComparisonOperator(comparison), value, comparison), sql);
    }
}

void tst_SearchSql::results_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("value");
    QTest::addColumn<bool>("matchAll");
    QTest::addColumn<QList<int>>("ids");
    // The search dialogs' own test runs a search by name for "tonic" and by glassware.
    QTest::newRow("start of the field, not of a word") << 301 << "Tonic" << false << QList<int>{};
    QTest::newRow("leading blank searched too") << 301 << " Gin" << false << QList<int>{};
    QTest::newRow("user's ? is a wildcard") << 301 << "g?m" << true << QList<int>{2};
    QTest::newRow("ingredient, one row per drink") << 302 << "juice" << true << QList<int>{2, 3, 4, 6, 8, 9};
    QTest::newRow("recipe, from its start") << 303 << "shake" << false << QList<int>{2, 4};
    QTest::newRow("category through DrinkTypeRel") << 305 << "1" << false << QList<int>{1, 3, 5};
}

void tst_SearchSql::results()
{
    QFETCH(int, kind);
    QFETCH(QString, value);
    QFETCH(bool, matchAll);
    QFETCH(QList<int>, ids);
    TestStore book(QString::fromLatin1(kSearchBook));
    const bool text = kind <= SearchKind::ByRecipe;
    book.store().execute(SimpleSearchSQL(kind, text ? SimpleSearchPattern(value, matchAll) : value));
    QCOMPARE(searchResults(book.store()), ids);
}

// Whatever is typed is searched for as it stands, by every search that takes text: the simple
// search by name (anywhere, first letters), the advanced "Contains the word(s)" and the quick
// search. The old pattern characters keep their meaning; nothing else does.
void tst_SearchSql::typedText_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QList<int>>("anywhere");
    QTest::addColumn<QList<int>>("fromStart");
    QTest::newRow("double quote") << "\"" << QList<int>{1} << QList<int>{};
    QTest::newRow("double quotes in words") << "The \"Big\"" << QList<int>{1} << QList<int>{1};
    QTest::newRow("apostrophe") << "Planter's" << QList<int>{2} << QList<int>{2};
    QTest::newRow("percent") << "0%" << QList<int>{3} << QList<int>{};
    QTest::newRow("underscore") << "a_b" << QList<int>{4} << QList<int>{4};
    QTest::newRow("emoji") << "🍹" << QList<int>{5} << QList<int>{};
    QTest::newRow("accent and case fold") << "CREME" << QList<int>{6} << QList<int>{6};
    QTest::newRow("unclosed bracket") << "[Bracket" << QList<int>{7} << QList<int>{7};
    QTest::newRow("set keeps its meaning") << "[bB]ig" << QList<int>{1, 8} << QList<int>{8};
}

void tst_SearchSql::typedText()
{
    QFETCH(QString, typed);
    QFETCH(QList<int>, anywhere);
    QFETCH(QList<int>, fromStart);
    TestStore book(QStringLiteral("INSERT INTO Drinks (id, Name) VALUES (1, 'The \"Big\" Easy'), "
                                  "(2, 'Planter''s Punch'), (3, '100% Agave'), (4, 'a_b Sour'), (5, 'Tiki 🍹 Bowl'), "
                                  "(6, 'Crème de Menthe'), (7, '[Bracket] Fizz'), (8, 'Bigger'), (9, 'axb Sour');"));
    DrinkStore &db = book.store();
    const auto run = [&](const QString &sql) {
        db.execute(kDeleteSearchResults);
        db.execute(sql);
        return searchResults(db);
    };
    QCOMPARE(run(SimpleSearchSQL(SearchKind::ByName, SimpleSearchPattern(typed, true))), anywhere);
    QCOMPARE(run(SimpleSearchSQL(SearchKind::ByName, SimpleSearchPattern(typed, false))), fromStart);
    QCOMPARE(run(ComposeAdvancedSearch(criteria({{"Name", kContains, typed, ""}})).sql), anywhere);
    QList<int> quick;
    for (QSqlQuery q = db.select(QuickSearchSQL(typed, false)); q.next();)
        quick << q.value(0).toInt();
    std::sort(quick.begin(), quick.end());
    QCOMPARE(quick, fromStart);
}

QTEST_GUILESS_MAIN(tst_SearchSql)
#include "tst_searchsql.moc"
