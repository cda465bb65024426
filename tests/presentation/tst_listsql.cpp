// The main list's statements, word for word, and the drinks they bring back.
#include "TestStore.h"
#include "presentation/DrinkListModel.h"
#include "presentation/ListSql.h"
#include "store/DrinkStore.h"
#include "store/StoreError.h"

#include <QAbstractItemModelTester>
#include <QtTest>

class tst_ListSql : public QObject {
    Q_OBJECT
private slots:
    void statements_data();
    void statements();
    void results_data();
    void results();
    void selectorsAndQuickSearch();
    void failedReloadKeepsRows();
};

void tst_ListSql::statements_data()
{
    QTest::addColumn<int>("view");
    QTest::addColumn<int>("selection");
    QTest::addColumn<bool>("inSearch");
    QTest::addColumn<bool>("marked");
    QTest::addColumn<QString>("sql");
    QTest::newRow("0 tab 0") << 0 << 0 << false << false << "SELECT ID, Name FROM Drinks WHERE Name < 'A' ORDER BY Name";
    QTest::newRow("0 tab 1") << 0 << 1 << false << false
                             << "SELECT ID, Name FROM Drinks WHERE Name >= 'A' AND Name < 'B' ORDER BY Name";
    QTest::newRow("0 tab 25") << 0 << 25 << false << false
                              << "SELECT ID, Name FROM Drinks WHERE Name >= 'Y' AND Name < 'Z' ORDER BY Name";
    QTest::newRow("0 tab 26") << 0 << 26 << false << false << "SELECT ID, Name FROM Drinks WHERE Name >= 'Z' ORDER BY Name";
    QTest::newRow("1") << 1 << 17 << false << false
                       << "SELECT D.ID, D.Name FROM Drinks D, DrinkRel R WHERE R.IngID = 17 AND R.DrinkID = D.ID ORDER BY D.Name";
    QTest::newRow("2") << 2 << 4 << false << false << "SELECT ID, Name FROM Drinks WHERE GlassType = 4 ORDER BY Name";
    QTest::newRow("3") << 3 << 0 << false << false
                       << "SELECT D.ID, D.Name FROM Drinks D, DrinkTypeRel R WHERE R.DrinkID = D.ID AND R.DrinkTypeID = 0 ORDER BY D.Name";
    QTest::newRow("4 tab 0 marked") << 4 << 0 << false << true
                                    << "SELECT ID, Name FROM Drinks WHERE Name < 'A' AND Marked = True ORDER BY Name";
    QTest::newRow("4 tab 0 unmarked") << 4 << 0 << false << false
                                      << "SELECT ID, Name FROM Drinks WHERE Name < 'A' AND Marked = False ORDER BY Name";
    QTest::newRow("4 tab 3 marked") << 4 << 3 << false << true
                                    << "SELECT ID, Name FROM Drinks WHERE Name >= 'C' AND Name < 'D' AND Marked = True ORDER BY Name";
    QTest::newRow("4 tab 26 marked") << 4 << 26 << false << true
                                     << "SELECT ID, Name FROM Drinks WHERE Name >= 'Z' AND Marked = True ORDER BY Name";
    QTest::newRow("4 tab 26 unmarked reads below Z")
        << 4 << 26 << false << false << "SELECT ID, Name FROM Drinks WHERE Name < 'Z' AND Marked = False ORDER BY Name";
    QTest::newRow("5 tab 0") << 5 << 0 << false << false
                             << "SELECT ID, Name FROM Drinks WHERE Name < 'A' AND LiqCab = 1 ORDER BY Name";
    QTest::newRow("5 tab 13") << 5 << 13 << false << false
                              << "SELECT ID, Name FROM Drinks WHERE Name >= 'M' AND Name < 'N' AND LiqCab = 1 ORDER BY Name";
    QTest::newRow("5 tab 26") << 5 << 26 << false << false
                              << "SELECT ID, Name FROM Drinks WHERE Name >= 'Z' AND LiqCab = 1 ORDER BY Name";
    QTest::newRow("6") << 6 << 5 << false << true << "SELECT ID, Name FROM Drinks ORDER BY Name";
    QTest::newRow("7 none") << 7 << 0 << false << false << "";

    QTest::newRow("s0 tab 0") << 0 << 0 << true << false << "SELECT ID, Name FROM SearchResults WHERE Name < 'A' ORDER BY Name";
    QTest::newRow("s0 tab 2") << 0 << 2 << true << false
                              << "SELECT ID, Name FROM SearchResults WHERE Name >= 'B' AND Name < 'C' ORDER BY Name";
    QTest::newRow("s0 tab 26") << 0 << 26 << true << false << "SELECT ID, Name FROM SearchResults WHERE Name >= 'Z' ORDER BY Name";
    QTest::newRow("s1") << 1 << 3 << true << false
                        << "SELECT D.ID, D.Name FROM SearchResults D, DrinkRel R WHERE R.IngID = 3 AND R.DrinkID = D.ID ORDER BY D.Name";
    QTest::newRow("s2") << 2 << 9 << true << false
                        << "SELECT D.ID, D.Name FROM SearchResults S, Drinks D WHERE S.ID = D.ID AND D.GlassType = 9 ORDER BY D.Name";
    QTest::newRow("s3") << 3 << 2 << true << false
                        << "SELECT D.ID, D.Name FROM SearchResults D, DrinkTypeRel R WHERE R.DrinkID = D.ID AND R.DrinkTypeID = 2 ORDER BY D.Name";
    QTest::newRow("s4 tab 0 marked")
        << 4 << 0 << true << true
        << "SELECT D.ID, D.Name FROM SearchResults S, Drinks D WHERE S.ID = D.ID AND D.Name < 'A' AND D.Marked = True ORDER BY D.Name";
    QTest::newRow("s4 tab 0 unmarked")
        << 4 << 0 << true << false
        << "SELECT D.ID, D.Name FROM SearchResults S, Drinks D WHERE S.ID = D.ID AND D.Name < 'A' AND D.Marked = False ORDER BY D.Name";
    QTest::newRow("s4 tab 4 unmarked")
        << 4 << 4 << true << false
        << "SELECT D.ID, D.Name FROM SearchResults S, Drinks D WHERE S.ID = D.ID AND D.Name >= 'D' AND D.Name < 'E' AND D.Marked = False ORDER BY D.Name";
    QTest::newRow("s4 tab 26 marked")
        << 4 << 26 << true << true
        << "SELECT D.ID, D.Name FROM SearchResults S, Drinks D WHERE S.ID = D.ID AND D.Name >= 'Z' AND D.Marked = True ORDER BY D.Name";
    QTest::newRow("s4 tab 26 unmarked")
        << 4 << 26 << true << false
        << "SELECT D.ID, D.Name FROM SearchResults S, Drinks D WHERE S.ID = D.ID AND D.Name < 'Z' AND D.Marked = False ORDER BY D.Name";
    QTest::newRow("s5 tab 0")
        << 5 << 0 << true << false
        << "SELECT D.ID, D.Name FROM SearchResults S, Drinks D WHERE S.ID = D.ID AND D.Name < 'A' AND D.LiqCab = 1 ORDER BY D.Name";
    QTest::newRow("s5 tab 1")
        << 5 << 1 << true << false
        << "SELECT D.ID, D.Name FROM SearchResults S, Drinks D WHERE S.ID = D.ID AND D.Name >= 'A' AND D.Name < 'B' AND D.LiqCab = 1 ORDER BY D.Name";
    QTest::newRow("s5 tab 26")
        << 5 << 26 << true << false
        << "SELECT D.ID, D.Name FROM SearchResults S, Drinks D WHERE S.ID = D.ID AND D.Name >= 'Z' AND D.LiqCab = 1 ORDER BY D.Name";
    QTest::newRow("s6") << 6 << 0 << true << false << "SELECT ID, Name FROM SearchResults ORDER BY Name";
}

void tst_ListSql::statements()
{
    QFETCH(int, view);
    QFETCH(int, selection);
    QFETCH(bool, inSearch);
    QFETCH(bool, marked);
    QFETCH(QString, sql);
    QCOMPARE(BuildListSQL(view, selection, inSearch, marked), sql);
}

namespace {
const char *kBook = R"SQL(
INSERT INTO Drinks (id, Name, GlassType, Marked, LiqCab) VALUES
  (1, '57 Chevy', 3, 0, 0), (2, 'Americano', 3, 1, 1), (3, 'bellini', 6, 0, 1), (4, 'Between the Sheets', 1, 1, 0),
  (5, 'Zombie', 9, 0, 1), (6, 'Yellow Bird', 1, 0, 0), (7, 'Zaza', 1, 1, 0), (8, '''Ti Punch', 2, 0, 0);
INSERT INTO DrinkRel (DrinkID, IngID) VALUES (2, 10), (3, 11), (5, 10), (5, 12), (7, 12);
INSERT INTO DrinkTypeRel VALUES (1, 0), (2, 1), (5, 1), (5, 2);
INSERT INTO SearchResults VALUES (2, 'Americano'), (3, 'bellini'), (5, 'Zombie'), (6, 'Yellow Bird'), (7, 'Zaza');
)SQL";
}

void tst_ListSql::results_data()
{
    QTest::addColumn<int>("view");
    QTest::addColumn<int>("selection");
    QTest::addColumn<bool>("inSearch");
    QTest::addColumn<bool>("marked");
    QTest::addColumn<QList<int>>("ids");
    QTest::newRow("digits and punctuation below A") << 0 << 0 << false << false << QList<int>{8, 1};
    QTest::newRow("B tab without case") << 0 << 2 << false << false << QList<int>{3, 4};
    QTest::newRow("Z tab") << 0 << 26 << false << false << QList<int>{7, 5};
    QTest::newRow("by liquor") << 1 << 10 << false << false << QList<int>{2, 5};
    QTest::newRow("by glass") << 2 << 1 << false << false << QList<int>{4, 6, 7};
    QTest::newRow("by category 0") << 3 << 0 << false << false << QList<int>{1};
    QTest::newRow("marked B") << 4 << 2 << false << true << QList<int>{4};
    QTest::newRow("unmarked Z tab lists up to Y") << 4 << 26 << false << false << QList<int>{8, 1, 3, 6};
    QTest::newRow("cabinet") << 5 << 2 << false << false << QList<int>{3};
    QTest::newRow("all") << 6 << 0 << false << false << QList<int>{8, 1, 2, 3, 4, 6, 7, 5};
    QTest::newRow("search Z tab") << 0 << 26 << true << false << QList<int>{7, 5};
    QTest::newRow("search by liquor") << 1 << 12 << true << false << QList<int>{7, 5};
    QTest::newRow("search by glass") << 2 << 1 << true << false << QList<int>{6, 7};
    QTest::newRow("search by category") << 3 << 1 << true << false << QList<int>{2, 5};
    QTest::newRow("search marked Z") << 4 << 26 << true << true << QList<int>{7};
    QTest::newRow("search cabinet A") << 5 << 1 << true << false << QList<int>{2};
    QTest::newRow("search all") << 6 << 0 << true << false << QList<int>{2, 3, 6, 7, 5};
}

void tst_ListSql::results()
{
    QFETCH(int, view);
    QFETCH(int, selection);
    QFETCH(bool, inSearch);
    QFETCH(bool, marked);
    QFETCH(QList<int>, ids);
    TestStore ts(QString::fromLatin1(kBook));
    DrinkListModel model;
    QAbstractItemModelTester tester(&model);
    model.load(ts.store(), BuildListSQL(view, selection, inSearch, marked));
    QList<int> got;
    for (qint32 id : model.ids())
        got << id;
    QCOMPARE(got, ids);
}

void tst_ListSql::selectorsAndQuickSearch()
{
    QCOMPARE(SelectorSQL(1), QStringLiteral("SELECT ID, Ingredient as Name FROM Ingredients ORDER BY Ingredient"));
    QCOMPARE(SelectorSQL(2), QStringLiteral("SELECT GlassID as ID, Name FROM Glassware ORDER BY Name"));
    QCOMPARE(SelectorSQL(3), QStringLiteral("SELECT TypeID as ID, Type AS Name FROM DrinkTypes ORDER BY Type"));
    QCOMPARE(SelectorSQL(0), QString());
    QCOMPARE(QuickSearchSQL(QStringLiteral("ma"), false),
             QStringLiteral("SELECT ID, Name FROM Drinks WHERE Name LIKE \"ma*\" ORDER BY Name"));
    QCOMPARE(QuickSearchSQL(QString(), false), QStringLiteral("SELECT ID, Name FROM Drinks ORDER BY Name"));
    QCOMPARE(QuickSearchSQL(QStringLiteral("ze"), true),
             QStringLiteral("SELECT ID, Name FROM SearchResults WHERE Name LIKE \"ze*\" ORDER BY Name"));
    QCOMPARE(QuickSearchSQL(QString(), true), QStringLiteral("SELECT ID, Name FROM SearchResults ORDER BY Name"));

    TestStore ts(QString::fromLatin1(kBook));
    DrinkListModel model;
    model.load(ts.store(), QuickSearchSQL(QStringLiteral("z"), false));
    QCOMPARE(model.rowCount(), 2);
    model.load(ts.store(), QuickSearchSQL(QStringLiteral("'t"), false)); // an apostrophe is fine
    QCOMPARE(model.rowCount(), 1);
}

void tst_ListSql::failedReloadKeepsRows()
{
    TestStore ts(QString::fromLatin1(kBook));
    DrinkListModel model;
    model.load(ts.store(), BuildListSQL(6, 0, false, false));
    const QString before = model.statement();
    QVERIFY_THROWS_EXCEPTION(StoreError, model.load(ts.store(), QStringLiteral("SELECT ID, Name FROM Nowhere")));
    QCOMPARE(model.rowCount(), 8);
    QCOMPARE(model.statement(), before);
}

QTEST_GUILESS_MAIN(tst_ListSql)
#include "tst_listsql.moc"
