// The command-line program, run as a user's script runs it, on small known books.
#include "TestFiles.h"
#include "TestStore.h"
#include "exchange/DrinkExport.h"
#include "exchange/ExportFile.h"
#include "presentation/CDrinkFacade.h"
#include "pricing/PriceBatch.h"
#include "shopping/ShopListFile.h"
#include "store/DrinkStore.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

namespace {

// Names that sort by their folded letters, a quote and an accent among them. Gin costs 0.80
// an ounce and lime 0.50; Zombie's stored cost is stale and Cosmo's price is locked.
const QString kRows = QStringLiteral(
    "INSERT INTO Glassware (GlassID, Name) VALUES (1, 'Cocktail'), (2, 'Highball');"
    "INSERT INTO DrinkTypes (TypeID, Type) VALUES (1, 'Classic'), (2, 'Tiki');"
    "INSERT INTO Ingredients (id, Ingredient, ozperunit, unitprice, UnitType) VALUES"
    " (1, 'Gin', 25, 20, 'Fifth'), (2, 'Lime', 1, 0.5, NULL), (3, 'Rum', 25, 15, 'Fifth');"
    "INSERT INTO Drinks (id, Name, GlassType, Description, Price, Cost, Marked, LiqCab, LockPrice) VALUES"
    " (1, 'Éclair', 2, 'Shake hard.', 4, 2.1, 1, 0, 0), (2, 'apple \"Jack\"', 1, 'Stir.', 0, 0, 0, 0, 0),"
    " (3, 'Zombie', 1, 'Blend.', 6, 9, 0, 1, 0), (4, '7 and 7', 2, 'Build.', 5, 0, 0, 0, 0),"
    " (5, 'Cosmo', 1, 'Shake.', 7, 0.8, 1, 0, -1);"
    "INSERT INTO DrinkRel (DrinkID, IngID, seq, measure) VALUES"
    " (1, 1, 1, 2), (1, 2, 2, 1), (2, 3, 1, 1), (3, 3, 1, 2), (3, 2, 2, 1), (5, 1, 1, 1);"
    "INSERT INTO DrinkTypeRel (DrinkID, DrinkTypeID) VALUES (1, 1), (3, 2), (5, 1), (5, 2);"
    "INSERT INTO SearchResults (ID, Name) VALUES (3, 'Zombie');");

struct Run {
    int code = -1;
    QString out, err;
};

Run cli(const QStringList &args, const QString &appDir = {}, const QString &home = {})
{
    QProcess p;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.remove(QStringLiteral("CORVANE_HOME"));
    if (!home.isEmpty())
        env.insert(QStringLiteral("CORVANE_HOME"), home);
    p.setProcessEnvironment(env);
    p.start(QStringLiteral(CORVANE_CLI), appDir.isEmpty() ? args : QStringList{QStringLiteral("--appdir"), appDir} + args);
    p.waitForFinished(60000);
    return {p.exitCode(), QString::fromUtf8(p.readAllStandardOutput()), QString::fromUtf8(p.readAllStandardError())};
}

QStringList words(const char *text) { return QString::fromUtf8(text).split(u'|', Qt::SkipEmptyParts); }

QString prices(DrinkStore &store, const char *field = "Price")
{
    QStringList out;
    QSqlQuery q = store.select(QStringLiteral("SELECT %1 FROM Drinks ORDER BY id").arg(QLatin1String(field)));
    while (q.next())
        out << Currency::fromVariant(q.value(0)).toSqlText();
    return out.join(u' ');
}

} // namespace

class tst_Cli : public QObject {
    Q_OBJECT

private slots:
    void commands_data();
    void commands();
    void showIsWhatTheWindowWrites();
    void priceList_data();
    void priceList();
    void repriceDryRunIsTheWorksheetsBatch();
    void exchangeRoundTrip();
    void backupWhileAnotherCopyWrites();
    void cabinetTicksThenAnswers();
    void printsCardsToPdf();
    void shoppingListSavedForTheWindow();
    void checkNamesEachProblem();
    void freshDirectoryIsFilledLikeTheWindows();
};

void tst_Cli::commands_data()
{
    QTest::addColumn<QStringList>("args");
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("out"); // exact standard output
    QTest::addColumn<QString>("err"); // a piece of standard error

    const auto row = [](const char *name, const char *args, int code, const char *out, const char *err = "") {
        QTest::newRow(name) << words(args) << code << QString::fromUtf8(out) << QString::fromUtf8(err);
    };
    row("all, folded name order", "list", 0, "4\t7 and 7\n2\tapple \"Jack\"\n5\tCosmo\n1\tÉclair\n3\tZombie\n");
    row("name, tab 0-9 when no key", "list|--view|name", 0, "4\t7 and 7\n");
    row("name, accent under its letter", "list|--view|name|--key|e", 0, "1\tÉclair\n");
    row("unmarked Z tab lists the names before Z", "list|--view|marked|--unmarked|--key|Z", 0,
        "4\t7 and 7\n2\tapple \"Jack\"\n");
    row("glass by id", "list|--view|glass|--key|2", 0, "4\t7 and 7\n1\tÉclair\n");
    row("category, first entry", "list|--view|category", 0, "5\tCosmo\n1\tÉclair\n");
    row("quick search with a quote", "list|--quick|apple \"", 0, "2\tapple \"Jack\"\n");
    row("json", "list|--view|glass|--key|Highball|--json", 0,
        "[\n    {\n        \"id\": 4,\n        \"name\": \"7 and 7\"\n    },\n"
        "    {\n        \"id\": 1,\n        \"name\": \"Éclair\"\n    }\n]\n");
    row("unknown ingredient", "list|--view|liquor|--key|Vodka", 1, "", "There is no ingredient \"Vodka\".");
    row("unknown view", "list|--view|shelf", 2, "", "unknown view \"shelf\"");
    row("unknown option", "list|--shelf", 2, "", "see corvane-cli list --help");
    row("search anywhere in the name", "search|name|ck", 0, "2\tapple \"Jack\"\n");
    row("search first letters", "search|name|co|--first", 0, "5\tCosmo\n");
    row("search ingredient, one row a drink", "search|ingredient|i", 0, "5\tCosmo\n1\tÉclair\n3\tZombie\n");
    row("search glass by name", "search|glass|cocktail", 0, "2\tapple \"Jack\"\n5\tCosmo\n3\tZombie\n");
    row("search blanks", "search|name|  ", 1, "", "nothing to search for");
    row("show missing drink", "show|99", 1, "", "There is no drink with the id 99.");
    row("export two selections", "export|--format|cvx|--all|--marked|f.cvx", 2, "", "one of --all, --marked or --ids");
    row("export missing drink", "export|--format|xml|--ids|1,99|f.xml", 1, "", "There is no drink with the id 99.");
    // The cabinet holds nothing: every bottle is still to buy.
    row("cabinet one bottle short", "cabinet|near", 0, "2\tapple \"Jack\"\tRum\n5\tCosmo\tGin\n");
    row("cabinet two bottles short", "cabinet|near|--missing|2", 0, "1\tÉclair\tGin, Lime\n3\tZombie\tLime, Rum\n");
    row("cabinet next, ties by name", "cabinet|next", 0, "1\tGin\t1\t1\t20\n3\tRum\t1\t1\t15\n2\tLime\t0\t2\t0.5\n");
    row("cabinet tick unknown", "cabinet|tick|Gin|Sloe \"Gin\"", 1, "", "No ingredient is named \"Sloe \"Gin\"\"; nothing was changed.");
    row("cabinet missing 3", "cabinet|near|--missing|3", 2, "", "--missing takes 1 or 2");
    row("shopping, no number", "shopping|--ids|1|--drinks|none", 1, "", "Please enter a number greater than or equal to 1");
    row("unknown command", "brew", 2, "", "unknown command \"brew\"");
}

void tst_Cli::commands()
{
    QFETCH(QStringList, args);
    QFETCH(int, code);
    QFETCH(QString, out);
    QFETCH(QString, err);
    TestStore ts(kRows);
    const QByteArray book = readFile(ts.storePath());
    const Run r = cli(args, ts.appDir());
    QCOMPARE(r.out, out);
    QVERIFY2(r.err.contains(err), qPrintable(r.err));
    QCOMPARE(r.code, code);
    // A failure says so on one line.
    QCOMPARE(r.err.count(u'\n'), code == 0 ? 0 : 1);
    // Answers and refusals alike leave the book as it was, the window's search results too.
    QCOMPARE(readFile(ts.storePath()), book);
}

void tst_Cli::showIsWhatTheWindowWrites()
{
    TestStore ts({}, true);
    const Run r = cli(words("show|3|--format|html"), ts.appDir());
    QCOMPARE(r.code, 0);
    // The page the window shows with its standard template, read on a terminal.
    CDrinkFacade facade(ts.store(), ts.appDir());
    facade.setCurrentHTMLTemplatePath(ts.appDir() + QStringLiteral("/Templates/Standard.cvt"));
    facade.setCurrentHTMLTemplateRoot(ts.appDir() + QStringLiteral("/Templates/"));
    QString expected = facade.drinkAsHTML(3).replace(QLatin1String("\r\n"), QLatin1String("\n"));
    QVERIFY(expected.contains(QStringLiteral("Perfect Manhattan")));
    if (!expected.endsWith(u'\n'))
        expected += u'\n';
    QCOMPARE(r.out, expected);
}

void tst_Cli::priceList_data()
{
    QTest::addColumn<QByteArray>("csv");
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("out");    // the status column of each row, or the error
    QTest::addColumn<QString>("stored"); // id, name and price of every ingredient afterwards

    const QString before = QStringLiteral("1 Gin 20|2 Lime 0.5|3 Rum 15");
    QTest::newRow("dry run writes nothing")
        << QByteArray("Name,Price\nGin,21.5\nLime,0.5\n") << QStringList() << 0 << "update same" << before;
    QTest::newRow("apply") << QByteArray("Name,Price,Unit,Oz\r\nGin,21.5,Liter,33.8\r\n") << words("--apply") << 0
                           << "update" << "1 Gin 21.5 Liter 33.8|2 Lime 0.5|3 Rum 15";
    QTest::newRow("semicolons, decimal comma, quoted, blank line, name folded")
        << QByteArray("Name;Price\n\n\"gin; London\";1\nRUM;\"16,25\"\n") << words("--apply") << 0 << "unknown update"
        << "1 Gin 20|2 Lime 0.5|3 Rum 16.25";
    QTest::newRow("unknown name created on demand") << QByteArray("Name,Price\nTonic,2\nTonic,3\n")
                                                    << words("--apply|--create") << 0 << "new new"
                                                    << "1 Gin 20|2 Lime 0.5|3 Rum 15|4 Tonic 3";
    QTest::newRow("missing price") << QByteArray("Name,Price\nGin,1\nRum,\n") << words("--apply") << 1
                                   << "list.csv:3: no price for \"Rum\"" << before;
    QTest::newRow("price not a number") << QByteArray("Name,Price\nGin,$1\n") << words("--apply") << 1
                                        << "list.csv:2: the price \"$1\" is not a number" << before;
    QTest::newRow("open quote") << QByteArray("Name,Price\n\"Gin,1\n") << words("--apply") << 1
                                << "list.csv:2: a quoted field does not end" << before;
    QTest::newRow("bad ounces") << QByteArray("Name,Price,Unit,Oz\nGin,1,Fifth,0\n") << words("--apply") << 1
                                << "list.csv:2: the ounces per unit \"0\"" << before;
}

void tst_Cli::priceList()
{
    QFETCH(QByteArray, csv);
    QFETCH(QStringList, options);
    QFETCH(int, code);
    QFETCH(QString, out);
    QFETCH(QString, stored);
    TestStore ts(kRows);
    const QString file = ts.appDir() + QStringLiteral("/list.csv");
    QVERIFY(writeFile(file, csv));
    const Run r = cli(QStringList{QStringLiteral("prices"), QStringLiteral("import"), file} + options, ts.appDir());
    QCOMPARE(r.code, code);
    if (code == 0) {
        QStringList statuses;
        for (const QString &line : r.out.split(u'\n', Qt::SkipEmptyParts))
            statuses << line.section(u'\t', 1, 1);
        QCOMPARE(statuses.join(u' '), out);
    } else {
        QVERIFY2(r.err.contains(out), qPrintable(r.err));
    }
    QStringList rows;
    QSqlQuery q = ts.store().select(QStringLiteral("SELECT id, Ingredient, unitprice, UnitType, ozperunit FROM Ingredients ORDER BY id"));
    while (q.next()) {
        QString row = QStringLiteral("%1 %2 %3").arg(q.value(0).toInt()).arg(q.value(1).toString(),
                                                                          Currency::fromVariant(q.value(2)).toSqlText());
        if (q.value(3).toString() == u"Liter")
            row += u' ' + q.value(3).toString() + u' ' + q.value(4).toString();
        rows << row;
    }
    QCOMPARE(rows.join(u'|'), stored);
}

// Beverage cost method with a minimum, over a stale cost and a locked price.
void tst_Cli::repriceDryRunIsTheWorksheetsBatch()
{
    const QStringList options = words("--method|bcm|--percent|20|--round|5|--minimum|5");
    TestStore ts(kRows);
    const QByteArray untouched = readFile(ts.storePath());
    const Run r = cli(QStringList{QStringLiteral("reprice"), QStringLiteral("--json")} + options, ts.appDir());
    QCOMPARE(r.code, 0);
    QVERIFY(r.err.contains(QStringLiteral("would get a new price")));
    QCOMPARE(readFile(ts.storePath()), untouched);

    // The worksheet's own run on the same book.
    const QString pricesBefore = prices(ts.store());
    PriceForm form;
    form.method = QStringLiteral("BCM");
    form.markupPct = form.increasePct = form.bcmPct = QStringLiteral("20");
    form.roundTo = 5;
    form.forceMinimum = true;
    form.minPrice = QStringLiteral("5");
    RecalculateDrinkCosts(ts.store());
    QVERIFY(RepriceDrinks(ts.store(), DrinksToReprice(ts.store(), false), BatchPriceSettings(form), {}));

    // Every drink the dry run names moved to its price and cost; every other one kept its price.
    QStringList expected = pricesBefore.split(u' ');
    const QStringList costs = prices(ts.store(), "Cost").split(u' ');
    const QJsonArray rows = QJsonDocument::fromJson(r.out.toUtf8()).array();
    QVERIFY(!rows.isEmpty());
    for (const QJsonValue &v : rows) {
        const QJsonObject o = v.toObject();
        const int i = o.value(QStringLiteral("id")).toInt() - 1;
        QCOMPARE(Currency::fromDouble(o.value(QStringLiteral("old_price")).toDouble()).toSqlText(), expected[i]);
        expected[i] = Currency::fromDouble(o.value(QStringLiteral("new_price")).toDouble()).toSqlText();
        QCOMPARE(Currency::fromDouble(o.value(QStringLiteral("new_cost")).toDouble()).toSqlText(), costs[i]);
    }
    QCOMPARE(prices(ts.store()), expected.join(u' '));

    // Applied, the command leaves the book as the worksheet did.
    TestStore again(kRows);
    QCOMPARE(cli(QStringList{QStringLiteral("reprice"), QStringLiteral("--apply")} + options, again.appDir()).code, 0);
    QCOMPARE(prices(again.store()), prices(ts.store()));
    QCOMPARE(prices(again.store(), "Cost"), prices(ts.store(), "Cost"));
}

void tst_Cli::exchangeRoundTrip()
{
    TestStore source({}, true);
    const QString file = source.appDir() + QStringLiteral("/all.cvx");
    Run r = cli(words("export|--format|cvx|--all|") << file, source.appDir());
    QCOMPARE(r.code, 0);
    const int drinks = source.store().scalar(QStringLiteral("SELECT count(*) FROM Drinks")).toInt();
    QCOMPARE(r.out, QStringLiteral("%1\t%2\n").arg(drinks).arg(file));
    // The command writes what the window's export writes, so the window reads it back.
    CDrinkFacade facade(source.store(), source.appDir());
    DrinkExporter exporter(source.store(), facade, DrinkExporter::Exchange);
    std::vector<qint32> ids;
    QStringList names;
    source.store().selectIdNames(QStringLiteral("SELECT ID, Name FROM Drinks ORDER BY Name"), ids, names);
    for (qint32 id : ids)
        exporter.exportDrink(id);
    const QString window = source.appDir() + QStringLiteral("/window.cvx");
    QCOMPARE(writeExportFile(window, exporter.fileText()), QString());
    QCOMPARE(readFile(file), readFile(window));

    // Into an empty book every drink is new; back into the first one every drink is there already.
    TestStore target(QStringLiteral("INSERT INTO Glassware (GlassID, Name) VALUES (1, 'Cocktail');"));
    for (const auto &[book, added] : {std::pair{target.appDir(), drinks}, std::pair{source.appDir(), 0}}) {
        r = cli(words("import|--json|") << file, book);
        QCOMPARE(r.code, 0);
        const QJsonObject counts = QJsonDocument::fromJson(r.out.toUtf8()).array().at(0).toObject();
        QCOMPARE(counts.value(QStringLiteral("added")).toInt(), added);
        QCOMPARE(counts.value(QStringLiteral("ignored")).toInt(), drinks - added);
    }

    // A file that is none is refused with the window's words.
    QVERIFY(writeFile(file, "Name,Price\n"));
    r = cli(words("import|") << file, source.appDir());
    QCOMPARE(r.code, 1);
    QCOMPARE(r.err, QStringLiteral("corvane-cli: This file is not a valid Corvane Drink Exchange file.\n"));
}

void tst_Cli::backupWhileAnotherCopyWrites()
{
    TestStore ts(kRows);
    // Another copy holds the book in the middle of a save.
    DrinkStore window(ts.storePath());
    window.beginTransaction();
    window.execute(QStringLiteral("UPDATE Drinks SET Name = 'Half-saved' WHERE id = 1"));

    const QString copy = ts.appDir() + QStringLiteral("/copy.db");
    Run r = cli({QStringLiteral("backup"), copy}, ts.appDir());
    QCOMPARE(r.code, 0);
    {
        DrinkStore saved(copy);
        QCOMPARE(saved.scalar(QStringLiteral("SELECT Name FROM Drinks WHERE id = 1")).toString(), QStringLiteral("Éclair"));
        QCOMPARE(saved.scalar(QStringLiteral("SELECT count(*) FROM Drinks")).toInt(), 5);
    }
    // Reading goes on; writing waits, then gives up with the store's words and changes nothing.
    QCOMPARE(cli(words("list|--view|cabinet|--key|Z"), ts.appDir()).out, QStringLiteral("3\tZombie\n"));
    r = cli(words("reprice|--method|cost|--percent|100|--apply"), ts.appDir());
    QCOMPARE(r.code, 1);
    QVERIFY2(r.err.contains(QStringLiteral("busy")), qPrintable(r.err));
    window.rollback();
    QCOMPARE(prices(ts.store()), QStringLiteral("4 0 6 5 7"));
}

void tst_Cli::cabinetTicksThenAnswers()
{
    TestStore ts(kRows);
    QCOMPARE(cli(words("cabinet|tick|gin|LIME"), ts.appDir()).code, 0);
    QCOMPARE(cli(words("cabinet|can-make"), ts.appDir()).out, QStringLiteral("1\tÉclair\n5\tCosmo\n"));
    // The window's cabinet view shows what the ticks make.
    QCOMPARE(ts.store().scalar(QStringLiteral("SELECT group_concat(id) FROM (SELECT id FROM Drinks WHERE LiqCab <> 0 ORDER BY id)")).toString(), QStringLiteral("1,5"));
    QCOMPARE(cli(words("cabinet|untick|Lime"), ts.appDir()).code, 0);
    QCOMPARE(cli(words("cabinet|can-make"), ts.appDir()).out, QStringLiteral("5\tCosmo\n"));
}

void tst_Cli::printsCardsToPdf()
{
    TestStore ts(kRows);
    const QString pdf = ts.appDir() + QStringLiteral("/cards.pdf");
    const Run r = cli(words("print|--ids|5,1|--pdf|") << pdf, ts.appDir());
    QCOMPARE(r.err, QString());
    QCOMPARE(r.out, QStringLiteral("2 cards on 2 pages\n"));
    QProcess text;
    text.start(QStringLiteral("pdftotext"), {pdf, QStringLiteral("-")});
    QVERIFY(text.waitForFinished(30000));
    const QString cards = QString::fromUtf8(text.readAllStandardOutput());
    QVERIFY2(cards.contains(QStringLiteral("Cosmo")) && cards.contains(QStringLiteral("Éclair")) && cards.contains(QStringLiteral("Lime")), qPrintable(cards));

    const Run unknown = cli(words("print|--ids|1|--layout|Menu \"A\"|--pdf|") << pdf, ts.appDir());
    QCOMPARE(unknown.code, 1);
    QVERIFY2(unknown.err.contains(QStringLiteral("There is no print layout \"Menu \"A\"\"")), qPrintable(unknown.err));
}

void tst_Cli::shoppingListSavedForTheWindow()
{
    TestStore ts(kRows);
    const QString lst = ts.appDir() + QStringLiteral("/tonight.LST");
    const Run r = cli(words("shopping|--ids|1,3|--drinks|8|--family|bar|--out|") << lst, ts.appDir());
    QCOMPARE(r.err, QString());
    // Eight of each: 16 ounces of every bottle, which the bar family buys as 17 Ounces.
    QCOMPARE(r.out, QStringLiteral("Gin\t17 Ounces\nLime\t17 Ounces\nRum\t17 Ounces\n"));
    const ShopListFile::Content saved = ShopListFile::Read(lst);
    QCOMPARE(int(saved.status), int(ShopListFile::Status::Read));
    QCOMPARE(saved.drinkNames, QStringList({QStringLiteral("Éclair"), QStringLiteral("Zombie")}));
    QCOMPARE(saved.numDrinks, QStringLiteral("8"));
}

void tst_Cli::checkNamesEachProblem()
{
    TestStore ts(kRows + QStringLiteral("INSERT INTO DrinkRel (DrinkID, IngID, seq, measure) VALUES (4, 9, 1, 1);"
                                        "INSERT INTO DrinkTypeRel (DrinkID, DrinkTypeID) VALUES (2, 7);"));
    Run r = cli({QStringLiteral("check")}, ts.appDir());
    QCOMPARE(r.code, 1);
    QCOMPARE(r.out, QStringLiteral("drink 4 (7 and 7): line 1 names ingredient 9, which does not exist\n"
                                   "drink 2 (apple \"Jack\"): category 7 does not exist\n"
                                   "drink 2 (apple \"Jack\"): cost 0 where its lines give 0.6\n"
                                   "drink 3 (Zombie): cost 9 where its lines give 1.7\n"));
    QCOMPARE(r.err, QStringLiteral("corvane-cli: 4 problem(s) found.\n"));

    // Once the worksheet has set the costs and the links are mended, nothing is left to say.
    RecalculateDrinkCosts(ts.store());
    ts.store().execute(QStringLiteral("DELETE FROM DrinkRel WHERE IngID = 9"));
    ts.store().execute(QStringLiteral("DELETE FROM DrinkTypeRel WHERE DrinkTypeID = 7"));
    r = cli({QStringLiteral("check")}, ts.appDir());
    QCOMPARE(r.out + r.err, QString());
    QCOMPARE(r.code, 0);
}

void tst_Cli::freshDirectoryIsFilledLikeTheWindows()
{
    QTemporaryDir home;
    const QString dir = home.filePath(QStringLiteral("new book"));
    // CORVANE_HOME chooses the directory when --appdir does not.
    const Run r = cli({QStringLiteral("list")}, {}, dir);
    QCOMPARE(r.code, 0);
    for (const char *name : {"drinks.db", "Corvane.cvi", "corvane.glw", "Templates"})
        QVERIFY2(QFileInfo::exists(dir + u'/' + QLatin1String(name)), name);
    // A directory that is a file cannot be one.
    QVERIFY(writeFile(home.filePath(QStringLiteral("plain")), "x"));
    const Run bad = cli({QStringLiteral("list")}, home.filePath(QStringLiteral("plain")));
    QCOMPARE(bad.code, 1);
    QVERIFY(bad.err.contains(QStringLiteral("is a file, not a directory")));
}

QTEST_GUILESS_MAIN(tst_Cli)
#include "tst_cli.moc"
