// Opening the store, new keys, and removing a drink.
#include "TestFiles.h"
#include "TestStore.h"
#include "store/DrinkStore.h"
#include "store/KeyAllocation.h"
#include "store/StoreBuilder.h"
#include "store/StoreError.h"

#include <QDir>
#include <QFile>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QtTest>

class tst_DrinkStore : public QObject {
    Q_OBJECT
private slots:
    void openRefusesWithoutWriting_data();
    void openRefusesWithoutWriting();
    void keys_data();
    void keys();
    void categoryKeyFromList();
    void removalOrderAndEffect();
    void transactionRollsBackUnlessCommitted();
    void olderStoreMovesToNameOrder();
};

void tst_DrinkStore::openRefusesWithoutWriting_data()
{
    QTest::addColumn<QByteArray>("content"); // null: no file at all; "/": a folder
    QTest::addColumn<QString>("message");
    QTest::newRow("missing") << QByteArray() << "does not exist";
    QTest::newRow("damaged") << QByteArray(4096, 'x') << "not a database";
    // A zero-length file is an empty database to the engine, but holds no recipe book.
    QTest::newRow("not a drink store") << QByteArray("") << "not a drink store";
    QTest::newRow("folder") << QByteArray("/") << "This is a folder, not a recipe book file";
}

void tst_DrinkStore::openRefusesWithoutWriting()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, message);
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("drinks.db"));
    if (content == "/")
        QVERIFY(QDir().mkdir(path));
    else if (!content.isNull())
        QVERIFY(writeFile(path, content));
    const QByteArray before = readFile(path);
    try {
        DrinkStore store(path);
        QFAIL("the store opened");
    } catch (const StoreError &e) {
        QVERIFY2(e.engineText().contains(message), qPrintable(e.engineText()));
        QCOMPARE(e.statement(), path);
    }
    QCOMPARE(QFile::exists(path), !content.isNull());
    QCOMPARE(readFile(path), before);
    QVERIFY(!QFile::exists(path + QStringLiteral("-wal")));
    if (content == "/")
        QVERIFY(QDir(path).isEmpty());
}

void tst_DrinkStore::keys_data()
{
    QTest::addColumn<int>("rule");
    QTest::addColumn<int>("expected");
    QTest::addColumn<int>("onEmpty"); // the key in a store without rows
    QTest::newRow("drink, editor") << 0 << 41 << 1;
    QTest::newRow("drink, import") << 1 << 41 << 1;
    QTest::newRow("ingredient, editor") << 2 << 8 << 1;
    QTest::newRow("ingredient, add dialog") << 3 << 8 << 1;
    QTest::newRow("ingredient, import") << 4 << 8 << 1;
    QTest::newRow("category, import") << 5 << 13 << 1;
    QTest::newRow("saved search: last row, not largest") << 6 << 3 << 1;
    QTest::newRow("ingredient type: count plus one") << 7 << 4 << 1;
    QTest::newRow("second new ingredient type") << 8 << 5 << 2;
}

void tst_DrinkStore::keys()
{
    QFETCH(int, rule);
    QFETCH(int, expected);
    QFETCH(int, onEmpty);
    // Keys with gaps, so that a rule counting rows is told apart from one taking the largest.
    TestStore empty, ts(QStringLiteral("INSERT INTO Drinks (id, Name) VALUES (3, 'a'), (40, 'b');"
                                "INSERT INTO Ingredients (id, Ingredient) VALUES (7, 'x'), (2, 'y');"
                                "INSERT INTO DrinkTypes VALUES (0, 'Unknown / Other'), (12, 'Tiki');"
                                "INSERT INTO SavedSearch VALUES (9, 'first'), (2, 'second');"
                                "INSERT INTO IngTypes VALUES (0, 'Undefined'), (1, 'Spirits'), (7, 'Other');"));
    const auto key = [rule](DrinkStore &s) {
        return rule == 0   ? KeyAllocation::nextDrinkIdForEditor(s)
               : rule == 1 ? KeyAllocation::nextDrinkIdForImport(s)
               : rule == 2 ? KeyAllocation::nextIngredientIdForEditor(s)
               : rule == 3 ? KeyAllocation::nextIngredientIdForAddDialog(s)
               : rule == 4 ? KeyAllocation::nextIngredientIdForImport(s)
               : rule == 5 ? KeyAllocation::nextDrinkTypeIdForImport(s)
               : rule == 6 ? KeyAllocation::nextSavedSearchId(s)
               : rule == 7 ? KeyAllocation::nextIngTypeId(s, 0)
                           : KeyAllocation::nextIngTypeId(s, 1);
    };
    QCOMPARE(key(ts.store()), expected);
    QCOMPARE(key(empty.store()), onEmpty);
}

void tst_DrinkStore::categoryKeyFromList()
{
    QCOMPARE(KeyAllocation::nextDrinkTypeIdFromList({0, 4, 2}), 5);
    QCOMPARE(KeyAllocation::nextDrinkTypeIdFromList({0}), 1);
}

void tst_DrinkStore::removalOrderAndEffect()
{
    QCOMPARE(drinkRemovalStatements(7),
             QStringList({"DELETE FROM DrinkTypeRel WHERE DrinkID = 7", "DELETE FROM DrinkRel WHERE DrinkID = 7",
                          "DELETE FROM Drinks WHERE ID = 7", "DELETE FROM SearchResults WHERE ID = 7"}));
    TestStore ts(QStringLiteral("INSERT INTO Drinks (id, Name) VALUES (7, 'Gone'), (8, 'Kept');"
                                "INSERT INTO DrinkRel (DrinkID, IngID) VALUES (7, 1), (7, 2), (8, 1);"
                                "INSERT INTO DrinkTypeRel VALUES (7, 1), (8, 1);"
                                "INSERT INTO SearchResults VALUES (7, 'Gone'), (8, 'Kept');"));
    removeDrink(ts.store(), 7);
    for (const char *table : {"Drinks WHERE id", "DrinkRel WHERE DrinkID", "DrinkTypeRel WHERE DrinkID", "SearchResults WHERE ID"}) {
        const QString t = QString::fromLatin1(table);
        QCOMPARE(ts.store().scalar("SELECT COUNT(*) FROM " + t + " = 7").toInt(), 0);
        QCOMPARE(ts.store().scalar("SELECT COUNT(*) FROM " + t + " = 8").toInt(), 1);
    }
}

void tst_DrinkStore::transactionRollsBackUnlessCommitted()
{
    TestStore ts(QStringLiteral("INSERT INTO Drinks (id, Name) VALUES (1, 'Gimlet');"));
    try {
        ScopedTransaction tx(ts.store());
        ts.store().execute(QStringLiteral("DELETE FROM Drinks WHERE ID = 1"));
        ts.store().execute(QStringLiteral("UPDATE NoSuchTable SET x = 1"));
        tx.commit();
        QFAIL("the broken statement ran");
    } catch (const StoreError &e) {
        QVERIFY(e.engineText().contains(QStringLiteral("NoSuchTable")));
    }
    QCOMPARE(ts.store().scalar(QStringLiteral("SELECT COUNT(*) FROM Drinks")).toInt(), 1);
}

void tst_DrinkStore::olderStoreMovesToNameOrder()
{
    // A store as the earlier version made it: names compared by NOCASE, version 1.
    QString schema = QString::fromUtf8(readFile(TestStore::schemaFile()));
    QVERIFY(schema.contains(QLatin1String("NAMEFOLD")));
    schema.replace(QLatin1String("COLLATE NAMEFOLD"), QLatin1String("COLLATE NOCASE"));
    schema.replace(QLatin1String("user_version = 2"), QLatin1String("user_version = 1"));
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("drinks.db"));
    StoreBuilder::createFromScripts(path, {});
    StoreBuilder::runScriptText(path, schema + QStringLiteral(
        "INSERT INTO Drinks (id, Name) VALUES (1, 'Zombie'), (2, 'Éclair Fizz'), (3, 'eclair');"
        "INSERT INTO Ingredients (id, Ingredient) VALUES (1, 'Rum');"
        "INSERT INTO DrinkRel (DrinkID, IngID, seq) VALUES (1, 1, 1);"));

    for (int open = 0; open < 2; ++open) {
        DrinkStore store(path);
        QCOMPARE(store.scalar(QStringLiteral("PRAGMA user_version")).toInt(), 2);
        QCOMPARE(store.scalar(QStringLiteral("SELECT COUNT(*) FROM sqlite_master WHERE sql LIKE \"*NAMEFOLD*\"")).toInt(), 6);
        QSqlQuery tab = store.select(QStringLiteral("SELECT ID FROM Drinks WHERE Name >= 'E' AND Name < 'F' ORDER BY Name"));
        QList<int> ids;
        while (tab.next())
            ids << tab.value(0).toInt();
        QCOMPARE(ids, (QList<int>{3, 2}));
        // The saved queries read the tables made anew, and their indexes are back.
        QCOMPARE(store.scalar(QStringLiteral("SELECT Ingredient FROM DrinkIngredients WHERE DrinkID = 1")).toString(),
                 QStringLiteral("Rum"));
        QCOMPARE(store.scalar(QStringLiteral("SELECT COUNT(*) FROM sqlite_master WHERE type = 'index' AND "
                                             "tbl_name = 'Drinks'")).toInt(), 4);
    }
}

QTEST_GUILESS_MAIN(tst_DrinkStore)
#include "tst_drinkstore.moc"
