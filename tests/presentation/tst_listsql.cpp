// The main list's statements as designed (one row for each form they take), and the drinks
// they bring back, view by view.
#include "TestStore.h"
#include "presentation/DrinkListModel.h"
#include "presentation/ListSql.h"
#include "store/DrinkStore.h"
#include "store/StoreError.h"

#include <QAbstractItemModelTester>
#include <QSqlQuery>
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
    const auto row = [](const char *name, int view, int selection, bool inSearch, bool marked, const char *sql) {
        QTest::newRow(name) << view << selection << inSearch << marked << QString::fromLatin1(sql);
    };
    row("0 tab 0", 0, 0, false, false, "SELECT ID, Name FROM Drinks WHERE Name < 'A' ORDER BY Name");
    row("0 tab 25", 0, 25, false, false, "SELECT ID, Name FROM Drinks WHERE Name >= 'Y' AND Name < 'Z' ORDER BY Name");
    row("0 tab 26", 0, 26, false, false, "SELECT ID, Name FROM Drinks WHERE Name >= 'Z' ORDER BY Name");
    row("1", 1, 17, false, false,
        "SELECT D.ID, D.Name FROM Drinks D, DrinkRel R WHERE R.IngID = 17 AND R.DrinkID = D.ID ORDER BY D.Name");
    row("2", 2, 4, false, false, "SELECT ID, Name FROM Drinks WHERE GlassType = 4 ORDER BY Name");
    row("3", 3, 0, false, false,
        "SELECT D.ID, D.Name FROM Drinks D, DrinkTypeRel R WHERE R.DrinkID = D.ID AND R.DrinkTypeID = 0 ORDER BY D.Name");
    row("4 tab 3 marked", 4, 3, false, true,
        "SELECT ID, Name FROM Drinks WHERE Name >= 'C' AND Name < 'D' AND Marked = True ORDER BY Name");
    row("4 tab 26 unmarked reads below Z", 4, 26, false, false,
        "SELECT ID, Name FROM Drinks WHERE Name < 'Z' AND Marked = False ORDER BY Name");
    row("5 tab 13", 5, 13, false, false,
        "SELECT ID, Name FROM Drinks WHERE Name >= 'M' AND Name < 'N' AND LiqCab = 1 ORDER BY Name");
    row("6", 6, 5, false, true, "SELECT ID, Name FROM Drinks ORDER BY Name");
    row("7 none", 7, 0, false, false, "");
    row("s0 tab 2", 0, 2, true, false,
        "SELECT ID, Name FROM SearchResults WHERE Name >= 'B' AND Name < 'C' ORDER BY Name");
    row("s1", 1, 3, true, false,
        "SELECT D.ID, D.Name FROM SearchResults D, DrinkRel R WHERE R.IngID = 3 AND R.DrinkID = D.ID ORDER BY D.Name");
    row("s2", 2, 9, true, false,
        "SELECT D.ID, D.Name FROM SearchResults S, Drinks D WHERE S.ID = D.ID AND D.GlassType = 9 ORDER BY D.Name");
    row("s3", 3, 2, true, false,
        "SELECT D.ID, D.Name FROM SearchResults D, DrinkTypeRel R WHERE R.DrinkID = D.ID AND R.DrinkTypeID = 2 "
        "ORDER BY D.Name");
    row("s4 tab 26 unmarked", 4, 26, true, false,
        "SELECT D.ID, D.Name FROM SearchResults S, Drinks D WHERE S.ID = D.ID AND D.Name < 'Z' AND D.Marked = False "
        "ORDER BY D.Name");
    row("s5 tab 1", 5, 1, true, false,
        "SELECT D.ID, D.Name FROM SearchResults S, Drinks D WHERE S.ID = D.ID AND D.Name >= 'A' AND D.Name < 'B' AND "
        "D.LiqCab = 1 ORDER BY D.Name");
    row("s6", 6, 0, true, false, "SELECT ID, Name FROM SearchResults ORDER BY Name");
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
INSERT INTO Ingredients (id, Ingredient) VALUES (10, 'Rum'), (11, 'Prosecco'), (12, 'absinthe');
INSERT INTO Glassware (GlassID, Name) VALUES (1, 'Rocks'), (2, 'Coupe');
INSERT INTO DrinkTypes (TypeID, Type) VALUES (1, 'Sours'), (2, 'Classics');
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
    QTest::newRow("unmarked below A") << 4 << 0 << false << false << QList<int>{8, 1};
    QTest::newRow("marked B") << 4 << 2 << false << true << QList<int>{4};
    QTest::newRow("unmarked Z tab lists up to Y") << 4 << 26 << false << false << QList<int>{8, 1, 3, 6};
    QTest::newRow("cabinet") << 5 << 2 << false << false << QList<int>{3};
    QTest::newRow("all, marked or not") << 6 << 5 << false << true << QList<int>{8, 1, 2, 3, 4, 6, 7, 5};
    QTest::newRow("search Z tab") << 0 << 26 << true << false << QList<int>{7, 5};
    QTest::newRow("search by liquor") << 1 << 12 << true << false << QList<int>{7, 5};
    QTest::newRow("search by glass") << 2 << 1 << true << false << QList<int>{6, 7};
    QTest::newRow("search by category") << 3 << 1 << true << false << QList<int>{2, 5};
    QTest::newRow("search marked Z") << 4 << 26 << true << true << QList<int>{7};
    QTest::newRow("search unmarked Z tab lists up to Y") << 4 << 26 << true << false << QList<int>{3, 6};
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
    TestStore ts(QString::fromLatin1(kBook));
    const auto rows = [&](const QString &sql) {
        QStringList out;
        for (QSqlQuery q = ts.store().select(sql); q.next();)
            out << q.value("ID").toString() + u'=' + q.value("Name").toString();
        return out;
    };
    QCOMPARE(rows(SelectorSQL(1)), (QStringList{"12=absinthe", "11=Prosecco", "10=Rum"}));
    QCOMPARE(rows(SelectorSQL(2)), (QStringList{"2=Coupe", "1=Rocks"}));
    QCOMPARE(rows(SelectorSQL(3)), (QStringList{"2=Classics", "1=Sours"}));
    QVERIFY(SelectorSQL(0).isEmpty());
    QVERIFY(BuildListSQL(7, 0, false, false).isEmpty());

    // The quick search: the first letters of a name, an apostrophe as typed, nothing for all.
    QCOMPARE(rows(QuickSearchSQL(QStringLiteral("z"), false)), (QStringList{"7=Zaza", "5=Zombie"}));
    QCOMPARE(rows(QuickSearchSQL(QStringLiteral("'t"), false)), QStringList{"8='Ti Punch"});
    QCOMPARE(rows(QuickSearchSQL(QString(), false)).size(), 8);
    QCOMPARE(rows(QuickSearchSQL(QStringLiteral("B"), true)), QStringList{"3=bellini"});
    QCOMPARE(rows(QuickSearchSQL(QString(), true)).size(), 5);
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
