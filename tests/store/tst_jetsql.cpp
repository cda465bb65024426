// The old dialect's statements and LIKE patterns, as the engine must take them.
#include "TestStore.h"
#include "store/DrinkStore.h"
#include "store/JetDialect.h"
#include "store/JetLike.h"
#include "store/StoreError.h"

#include <QSqlQuery>
#include <QtTest>

class tst_JetSql : public QObject {
    Q_OBJECT
private slots:
    void dialect_data();
    void dialect();
    void like_data();
    void like();
    void statementsRun_data();
    void statementsRun();
    void nameOrder();
    void prefixReadsAnIndexRange_data();
    void prefixReadsAnIndexRange();
};

// Rewrites that a store already runs are not repeated here: statementsRun below, the list's
// marked and letter views, the searches' quoted texts, categories and name prefixes.
void tst_JetSql::dialect_data()
{
    QTest::addColumn<QString>("jet");
    QTest::addColumn<QString>("sqlite");
    QTest::newRow("update two qualified") << "UPDATE Drinks SET Drinks.LiqCab = 0, Drinks.Marked = True"
                                          << "UPDATE Drinks SET LiqCab = 0, Marked = 1";
    QTest::newRow("update value keeps qualifier") << "UPDATE Drinks SET Drinks.Cost = Drinks.Price WHERE ID = 3"
                                                  << "UPDATE Drinks SET Cost = Drinks.Price WHERE ID = 3";
    QTest::newRow("words in lower case") << "select id from drinks where marked = false and LockPrice = no"
                                         << "select id from drinks where marked = 0 and LockPrice = 0";
    QTest::newRow("single-quoted kept") << "WHERE Name < 'A' AND Name >= 'B'" << "WHERE Name < 'A' AND Name >= 'B'";
    QTest::newRow("words in literals untouched")
        << "WHERE Description LIKE \"*Yes, True or No*\" AND Marked = Yes"
        << "WHERE Description LIKE '*Yes, True or No*' AND Marked = 1";
    QTest::newRow("pattern untouched") << "WHERE Name LIKE \"[!a-c]#?*\"" << "WHERE Name LIKE '[!a-c]#?*'";
    QTest::newRow("bracket name") << "SELECT [ID] FROM Drinks" << "SELECT [ID] FROM Drinks";
    QTest::newRow("word containing no") << "SELECT Notes, NoteNo FROM Ingredients"
                                        << "SELECT Notes, NoteNo FROM Ingredients";
    QTest::newRow("unclosed literal left for the engine") << "WHERE Name = \"abc" << "WHERE Name = \"abc";
    QTest::newRow("marker characters in a literal") << QStringLiteral(u"WHERE Name = 'x' OR Name = \"\uE0000\uE000\"")
                                                    << QStringLiteral(u"WHERE Name = 'x' OR Name = '\uE0000\uE000'");
    QTest::newRow("not like: no bounds") << "WHERE Name NOT LIKE \"G*\"" << "WHERE Name NOT LIKE 'G*'";
}

void tst_JetSql::dialect()
{
    QFETCH(QString, jet);
    QFETCH(QString, sqlite);
    QCOMPARE(jetToSqlite(jet), sqlite);
}

void tst_JetSql::like_data()
{
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("match");
    // Plain stars and prefixes, emoji, folded accents and a literal underscore are what the
    // searches' suites find on a store already.
    QTest::newRow("star case-blind") << "*MARTINI*" << "dry martini" << true;
    QTest::newRow("prefix miss") << "Ma*" << "Daiquiri" << false;
    QTest::newRow("star only") << "*" << "" << true;
    QTest::newRow("empty pattern") << "" << "" << true;
    QTest::newRow("empty pattern text") << "" << "x" << false;
    QTest::newRow("question one") << "R?b Roy" << "Rob Roy" << true;
    QTest::newRow("question needs one") << "Rob Roy?" << "Rob Roy" << false;
    QTest::newRow("hash digit") << "#*" << "57 Chevy" << true;
    QTest::newRow("hash not letter") << "#*" << "Mojito" << false;
    QTest::newRow("range") << "[a-c]*" << "Bellini" << true;
    QTest::newRow("range case") << "[A-C]*" << "bellini" << true;
    QTest::newRow("range miss") << "[a-c]*" << "Daiquiri" << false;
    QTest::newRow("negated") << "[!a]*" << "Bellini" << true;
    QTest::newRow("negated miss") << "[!a]*" << "Americano" << false;
    QTest::newRow("list") << "[xyz]ombie" << "Zombie" << true;
    QTest::newRow("literal star in set") << "a[*]b" << "a*b" << true;
    QTest::newRow("literal star set miss") << "a[*]b" << "axb" << false;
    QTest::newRow("backtrack") << "*a*b" << "aaab" << true;
    QTest::newRow("backtrack miss") << "*a*b" << "aaabc" << false;
    QTest::newRow("accented case") << "*é*" << "CAFÉ ROYALE" << true;
    QTest::newRow("accent apart from its letter") << "*cafe*" << "Cafe\u0301 Royale" << true;
    QTest::newRow("unclosed bracket is a letter") << "*[a*" << "Punch [a la carte]" << true;
    QTest::newRow("unclosed bracket miss") << "[a*" << "a" << false;
    QTest::newRow("quote and percent") << "*\"50%\"*" << "The \"50%\" Sour" << true;
    QTest::newRow("percent is literal") << "100%" << "100%" << true;
}

void tst_JetSql::like()
{
    QFETCH(QString, pattern);
    QFETCH(QString, text);
    QFETCH(bool, match);
    QCOMPARE(jetLike(pattern, text), match);

    // The same through the engine's LIKE on a real connection.
    TestStore ts;
    QSqlQuery q(ts.store().database());
    q.prepare(QStringLiteral("SELECT ? LIKE ?"));
    q.addBindValue(text);
    q.addBindValue(pattern);
    QVERIFY(q.exec() && q.next());
    QCOMPARE(q.value(0).toInt() == 1, match);
}

void tst_JetSql::statementsRun_data()
{
    QTest::addColumn<QString>("statement");
    QTest::addColumn<QString>("check");
    QTest::addColumn<int>("expected");
    QTest::newRow("delete star") << "DELETE * FROM tmp_ShopList" << "SELECT COUNT(*) FROM tmp_ShopList" << 0;
    QTest::newRow("unselect all")
        << "UPDATE DISTINCTROW Ingredients SET Ingredients.Selected = No WHERE Ingredients.Selected=Yes"
        << "SELECT COUNT(*) FROM Ingredients WHERE Selected = 1" << 0;
    QTest::newRow("mark by literal") << "UPDATE Drinks SET Marked = True WHERE Name = \"Planter's Punch\""
                                     << "SELECT COUNT(*) FROM Drinks WHERE Marked = True" << 2;
    QTest::newRow("uncategorise marked")
        << "DELETE DrinkTypeRel.* FROM DrinkTypeRel, Drinks WHERE DrinkTypeRel.DrinkID = Drinks.ID "
           "AND Drinks.Marked = True AND DrinkTypeRel.DrinkTypeID = 1"
        << "SELECT COUNT(*) FROM DrinkTypeRel" << 2;
    QTest::newRow("like pattern") << "DELETE FROM SearchResults"
                                  << "SELECT COUNT(*) FROM Drinks WHERE Name LIKE \"[!p]*\"" << 2;
    QTest::newRow("max distinctrow") << "DELETE FROM SearchResults"
                                     << "SELECT DISTINCTROW Max([ID]) AS MaxID FROM Drinks" << 3;
}

void tst_JetSql::statementsRun()
{
    QFETCH(QString, statement);
    QFETCH(QString, check);
    QFETCH(int, expected);
    TestStore ts(QStringLiteral(
        "INSERT INTO Drinks (id, Name, Marked) VALUES (1, 'Planter''s Punch', 0), (2, 'Mojito', 1), (3, 'Gimlet', 0);"
        "INSERT INTO Ingredients (id, Ingredient, Selected) VALUES (1, 'Gin', 1), (2, 'Rum', 1);"
        "INSERT INTO DrinkTypeRel VALUES (1, 1), (2, 1), (3, 1);"
        "INSERT INTO tmp_ShopList VALUES (1), (2);"));
    ts.store().execute(statement);
    QCOMPARE(ts.store().scalar(check).toInt(), expected);
}

void tst_JetSql::nameOrder()
{
    TestStore ts(QStringLiteral("INSERT INTO Drinks (id, Name) VALUES (1, 'Pisco Sour'), (2, 'Piña Colada'), "
                                "(3, 'Jungle Bird'), (4, 'Jägerbomb'), (5, 'Éclair Fizz'), (6, 'Zombie'), "
                                "(7, 'Creme Soda'), (8, 'CRÈME Brûlée'), (9, 'crème de cassis'), (10, 'eclair');"
                                "INSERT INTO Ingredients (id, Ingredient) VALUES (1, 'Zubrówka'), (2, 'Ängelica'), "
                                "(3, 'Amaretto');"));
    DrinkStore &db = ts.store();
    const auto names = [&](const QString &sql) {
        QStringList out;
        QSqlQuery q = db.select(sql);
        while (q.next())
            out << q.value(0).toString();
        return out;
    };
    // Accents and case fold; between names that fold alike the plain letter comes first. The
    // letter tabs and the quick search on such names are the name lists window's test.
    QCOMPARE(names(QStringLiteral("SELECT Name FROM Drinks ORDER BY Name")),
             (QStringList{"CRÈME Brûlée", "crème de cassis", "Creme Soda", "eclair", "Éclair Fizz", "Jägerbomb",
                          "Jungle Bird", "Piña Colada", "Pisco Sour", "Zombie"}));
    QCOMPARE(names(QStringLiteral("SELECT Ingredient FROM Ingredients ORDER BY Ingredient")),
             (QStringList{"Amaretto", "Ängelica", "Zubrówka"}));
    QCOMPARE(names(QStringLiteral("SELECT Name FROM Drinks WHERE Name = \"crème brûlée\"")),
             QStringList{"CRÈME Brûlée"});
}

void tst_JetSql::prefixReadsAnIndexRange_data()
{
    QTest::addColumn<QString>("jet");
    QTest::addColumn<QString>("plan");
    QTest::newRow("drinks") << "SELECT ID, Name FROM Drinks WHERE Name LIKE \"Blue L*\" ORDER BY Name"
                            << "SEARCH Drinks USING COVERING INDEX Name (Name>? AND Name<?)";
    QTest::newRow("search results") << "SELECT ID, Name FROM SearchResults WHERE Name LIKE \"S*\" ORDER BY Name"
                                    << "SEARCH SearchResults USING INDEX SearchResultsName (Name>? AND Name<?)";
    QTest::newRow("search by name") << "SELECT Drinks.ID FROM Drinks WHERE Drinks.Name Like \"gin*\""
                                    << "SEARCH Drinks USING COVERING INDEX Name (Name>? AND Name<?)";
}

void tst_JetSql::prefixReadsAnIndexRange()
{
    QFETCH(QString, jet);
    QFETCH(QString, plan);
    TestStore ts;
    QSqlQuery q = ts.store().select(QStringLiteral("EXPLAIN QUERY PLAN ") + jet);
    QStringList steps;
    while (q.next())
        steps << q.value(3).toString();
    QCOMPARE(steps, QStringList{plan});
}

QTEST_GUILESS_MAIN(tst_JetSql)
#include "tst_jetsql.moc"
