#include "StoreGenerator.h"

#include "editing/StarterBookWriter.h"
#include "store/DrinkStore.h"

#include <QFile>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QTemporaryDir>
#include <QTest>

namespace {

constexpr int Drinks = 300;

QString storeOf(const QTemporaryDir &dir)
{
    return dir.filePath(QStringLiteral("drinks.db"));
}

// Every row of every table, in key order, as text.
QStringList dump(const QString &path)
{
    DrinkStore store(path);
    QStringList rows;
    QSqlQuery tables = store.select(QStringLiteral("SELECT name FROM sqlite_master WHERE type = 'table' "
                                                   "AND name NOT LIKE 'sqlite%' ORDER BY name"));
    QStringList names;
    while (tables.next())
        names << tables.value(0).toString();
    for (const QString &table : names) {
        QSqlQuery q = store.select(QStringLiteral("SELECT * FROM ") + table + QStringLiteral(" ORDER BY rowid"));
        while (q.next()) {
            QStringList values{table};
            for (int i = 0; i < q.record().count(); ++i)
                values << q.value(i).toString();
            rows << values.join(u'|');
        }
    }
    return rows;
}

} // namespace

class tst_StoreGenerator : public QObject {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY(m_dir.isValid());
        StoreGenerator::generate(m_dir.path(), {Drinks, 7});
    }

    void sameSeedGivesTheSameRows()
    {
        QTemporaryDir again, other;
        StoreGenerator::generate(again.path(), {Drinks, 7});
        StoreGenerator::generate(other.path(), {Drinks, 8});
        const QStringList rows = dump(storeOf(m_dir));
        QCOMPARE(dump(storeOf(again)), rows);
        QVERIFY(dump(storeOf(other)) != rows);
    }

    // Each query counts the rows that break a rule of a well-formed store, or gives 1 where a
    // kind of row the program's lists need is missing; all must be 0.
    void rulesHold_data()
    {
        QTest::addColumn<QString>("violations");
        auto rule = [](const char *name, const char *count) { QTest::newRow(name) << QString::fromLatin1(count); };
        rule("drink count", "SELECT COUNT(*) - 300 FROM Drinks");
        rule("2 to 9 lines",
             "SELECT COUNT(*) FROM (SELECT D.id, COUNT(R.DrinkID) AS n FROM Drinks D LEFT JOIN DrinkRel R ON "
             "R.DrinkID = D.id GROUP BY D.id) WHERE n < 2 OR n > 9");
        rule("lines numbered from 1",
             "SELECT COUNT(*) FROM (SELECT DrinkID, MIN(seq) AS lo, MAX(seq) AS hi, COUNT(*) AS n FROM DrinkRel "
             "GROUP BY DrinkID) WHERE lo <> 1 OR hi <> n");
        rule("an ingredient once per drink",
             "SELECT COUNT(*) FROM (SELECT DrinkID, IngID FROM DrinkRel GROUP BY DrinkID, IngID "
             "HAVING COUNT(*) > 1)");
        rule("1 to 3 categories",
             "SELECT COUNT(*) FROM (SELECT D.id, COUNT(R.DrinkID) AS n FROM Drinks D LEFT JOIN DrinkTypeRel R ON "
             "R.DrinkID = D.id GROUP BY D.id) WHERE n < 1 OR n > 3");
        rule("categories exist",
             "SELECT COUNT(*) FROM DrinkTypeRel R LEFT JOIN DrinkTypes T ON T.TypeID = R.DrinkTypeID "
             "WHERE T.TypeID IS NULL");
        rule("glass 1 to 24",
             "SELECT COUNT(*) FROM Drinks D LEFT JOIN Glassware G ON G.GlassID = D.GlassType "
             "WHERE D.GlassType NOT BETWEEN 1 AND 24 OR D.GlassType IS NULL OR G.GlassID IS NULL");
        rule("names unique", "SELECT COUNT(*) - COUNT(DISTINCT Name) FROM Drinks");
        rule("ingredients of lines exist",
             "SELECT COUNT(*) FROM DrinkRel R LEFT JOIN Ingredients I ON I.id = R.IngID WHERE I.id IS NULL");
        rule("2,000 ingredients", "SELECT COUNT(*) - 2000 FROM Ingredients");
        rule("ingredient types exist",
             "SELECT COUNT(*) FROM Ingredients I LEFT JOIN IngTypes T ON T.IngTypeID = I.Type "
             "WHERE T.IngTypeID IS NULL");
        rule("sub types belong to the type",
             "SELECT COUNT(*) FROM Ingredients I LEFT JOIN IngSubTypes S ON S.IngSubTypeID = I.SubType WHERE "
             "I.SubType <> 0 AND (S.IngSubTypeID IS NULL OR S.IngTypeID <> I.Type)");
        rule("Unknown / Other", "SELECT 1 - COUNT(*) FROM DrinkTypes WHERE TypeID = 0 AND Type = 'Unknown / Other'");
        rule("Undefined", "SELECT 1 - COUNT(*) FROM IngTypes WHERE IngTypeID = 0 AND IngType = 'Undefined'");
        rule("scheme 64", "SELECT 1 - COUNT(*) FROM ColorSchemes WHERE id = 64");
        rule("price settings",
             "SELECT 5 - COUNT(*) FROM Constants WHERE Var IN ('MarkupOpt', 'MarkupPct', 'ApplyZero', 'RoundTo', "
             "'MinPrice')");
        rule("builds, garnishes, ratings exist",
             "SELECT COUNT(*) FROM Drinks D LEFT JOIN Build B ON B.id = D.BuildID LEFT JOIN Garnish G "
             "ON G.id = D.GarnishID LEFT JOIN Ratings R ON R.RatingID = D.RatingID "
             "WHERE B.id IS NULL OR R.RatingID IS NULL OR (D.GarnishID IS NOT NULL AND G.id IS NULL)");
        // As the cabinet scan leaves it: 1 exactly where every line's ingredient is owned.
        rule("LiqCab from Selected",
             "SELECT COUNT(*) FROM Drinks D WHERE D.LiqCab <> (NOT EXISTS (SELECT 1 FROM DrinkRel R JOIN "
             "Ingredients I ON I.id = R.IngID WHERE R.DrinkID = D.id AND I.Selected = 0))");
        rule("search results name their drinks",
             "SELECT COUNT(*) FROM SearchResults S LEFT JOIN Drinks D ON D.id = S.ID WHERE D.Name IS NOT S.Name");
        // Without these the views of marks, the cabinet and search mode would list nothing.
        auto some = [](const char *name, const char *rows) {
            QTest::newRow(name) << QStringLiteral("SELECT NOT EXISTS (%1)").arg(QString::fromLatin1(rows));
        };
        some("some marked", "SELECT 1 FROM Drinks WHERE Marked = 1");
        some("some in the cabinet", "SELECT 1 FROM Drinks WHERE LiqCab = 1");
        some("some search results", "SELECT 1 FROM SearchResults");
        some("names sharing a prefix",
             "SELECT 1 FROM Drinks A, Drinks B WHERE substr(B.Name, 1, length(A.Name) + 1) = A.Name || ' '");
        some("lines costing nothing", "SELECT 1 FROM DrinkRel WHERE measure = 0");
        some("unpriced drinks", "SELECT 1 FROM GetZeroPriceDrinks");
        some("locked prices", "SELECT 1 FROM Drinks WHERE LockPrice = 1");
    }

    void rulesHold()
    {
        QFETCH(QString, violations);
        DrinkStore store(storeOf(m_dir));
        QCOMPARE(store.scalar(violations).toInt(), 0);
    }

    void costIsWhatTheDrinkCostQueryGives()
    {
        QCOMPARE(StarterBookWriter::compareWithDrinkCostQuery(storeOf(m_dir)), QStringList());
    }

    void aStoreIsReusedOnlyForTheSameOptions()
    {
        QTemporaryDir dir;
        QVERIFY(StoreGenerator::ensure(dir.path(), {50, 1}));
        QVERIFY(!StoreGenerator::ensure(dir.path(), {50, 1}));
        QVERIFY(StoreGenerator::ensure(dir.path(), {50, 2}));
        QVERIFY(StoreGenerator::ensure(dir.path(), {60, 2}));
        QCOMPARE(DrinkStore(storeOf(dir)).scalar(QStringLiteral("SELECT COUNT(*) FROM Drinks")).toInt(), 60);
        QVERIFY(QFile::remove(storeOf(dir)));
        QVERIFY(!StoreGenerator::isCurrent(dir.path(), {60, 2}));
        QVERIFY(StoreGenerator::ensure(dir.path(), {60, 2}));
    }

private:
    QTemporaryDir m_dir;
};

QTEST_GUILESS_MAIN(tst_StoreGenerator)
#include "tst_storegenerator.moc"
