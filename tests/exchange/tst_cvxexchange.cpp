// Exchange files: reading records, importing them by name, and the round trip.
#include "TestFiles.h"
#include "TestStore.h"
#include "exchange/CvxImport.h"
#include "exchange/CvxWriter.h"
#include "exchange/ExportFile.h"
#include "presentation/CDrinkFacade.h"
#include "store/DrinkStore.h"

#include "base/Cp1252.h"

#include <QTemporaryDir>
#include <QtTest>

namespace {
const QString kHead = QStringLiteral("Corvane Drink Exchange File\r\nVersion:  1.1\r\n");

QString record(const QString &name, const QString &extra = QStringLiteral("Category: Shots\r\n"),
               const QString &recipe = QStringLiteral("Shake."))
{
    return QStringLiteral("----------\r\nName:     %1\r\nGlass:    3\r\n%2Recipe:   %3\r\n\r\n").arg(name, extra, recipe);
}

const QString kIng = QStringLiteral("Ing:      Rum\r\nMAmount:  3 cl\r\nAmount:   1 oz\r\nMeasure:  1\r\n");

struct ReadOutcome {
    QStringList names;
    QStringList recipes;
    int stopLine = 0;
    int errorLine = 0;
};

ReadOutcome readAll(const QString &text)
{
    ReadOutcome out;
    CvxReader reader(text);
    if (reader.readHead() != CvxReader::HeadOk)
        return out;
    CvxRecord r;
    try {
        while (reader.next(r)) {
            out.names << r.name;
            out.recipes << r.recipe;
        }
    } catch (const CvxError &e) {
        out.errorLine = e.line();
    }
    out.stopLine = reader.stopLine();
    return out;
}

QStringList column(DrinkStore &store, const QString &sql)
{
    QStringList out;
    QSqlQuery q = store.prepare(sql);
    store.exec(q);
    while (q.next()) {
        QStringList row;
        for (int i = 0; i < q.record().count(); ++i)
            row << q.value(i).toString();
        out << row.join(u'|');
    }
    return out;
}
}

class tst_CvxExchange : public QObject {
    Q_OBJECT
private slots:
    void head_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("head");
        QTest::newRow("1.1") << kHead << int(CvxReader::HeadOk);
        QTest::newRow("1.0") << "Corvane Drink Exchange File\r\nVersion:  1.0\r\n" << int(CvxReader::HeadOk);
        QTest::newRow("1.2 refused") << "Corvane Drink Exchange File\r\nVersion:  1.2\r\n" << int(CvxReader::UnknownVersion);
        QTest::newRow("no version line") << "Corvane Drink Exchange File\r\n" << int(CvxReader::UnknownVersion);
        QTest::newRow("title in other case") << "corvane drink exchange file\r\nVersion:  1.1\r\n" << int(CvxReader::NotExchangeFile);
        QTest::newRow("empty file") << "" << int(CvxReader::NotExchangeFile);
        QTest::newRow("binary") << QString::fromLatin1("\x89PNG\r\n\x1a\n\0\0", 10) << int(CvxReader::NotExchangeFile);
    }
    void head()
    {
        QFETCH(QString, text);
        QFETCH(int, head);
        QCOMPARE(int(CvxReader(text).readHead()), head);
    }

    void read_data()
    {
        QTest::addColumn<QString>("body");
        QTest::addColumn<QStringList>("names");
        QTest::addColumn<QStringList>("recipes");
        QTest::addColumn<int>("stopLine");
        QTest::addColumn<int>("errorLine");
        const QStringList none;
        QTest::newRow("only the head") << "" << none << none << 0 << 0;
        QTest::newRow("no separator first") << "Name:     A\r\n" << none << none << 3 << 0;
        QTest::newRow("two records, extra line end on all but the last")
            << record("A", "Category: X\r\n" + kIng, "one\r\ntwo") + record("B", "Category: X\r\n", "x\r\ny")
            << QStringList{"A", "B"} << QStringList{"one\r\ntwo\r\n", "x\r\ny"} << 0 << 0;
        QTest::newRow("no trailing blank line loses the last recipe line")
            << record("A", "Category: X\r\n", "one\r\ntwo").chopped(2) << QStringList{"A"} << QStringList{"one"} << 0 << 0;
        QTest::newRow("separator inside a recipe starts a record")
            << record("A", "Category: X\r\n", "one\r\n----------\r\nName:     B\r\nGlass:    1\r\nCategory: Y\r\nRecipe:   b")
            << QStringList{"A", "B"} << QStringList{"one", "b"} << 0 << 0;
        QTest::newRow("names trimmed, recipe not") << record("  A  ", "Category: X\r\n", "  r ")
            << QStringList{"A"} << QStringList{"  r "} << 0 << 0;
        QTest::newRow("no category stops there") << record("A", "Category: X\r\n") + record("B", "") + record("C")
            << QStringList{"A"} << QStringList{"Shake.\r\n"} << 12 << 0;
        QTest::newRow("label in other case") << record("A").replace("Name:", "name:") << none << none << 4 << 0;
        QTest::newRow("glass 0") << record("A").replace("Glass:    3", "Glass:    ") << none << none << 5 << 0;
        QTest::newRow("glass 25") << record("A").replace("Glass:    3", "Glass:    25") << none << none << 5 << 0;
        QTest::newRow("glass 24") << record("A").replace("Glass:    3", "Glass:    24") << QStringList{"A"}
            << QStringList{"Shake."} << 0 << 0;
        QTest::newRow("stray line among ingredients") << record("A", "Category: X\r\nGarnish:  lime\r\n") << none << none << 7 << 0;
        QTest::newRow("ingredient parts out of order")
            << record("A", "Category: X\r\nIng:      Rum\r\nAmount:   1 oz\r\n") << none << none << 8 << 0;
        QTest::newRow("measure not a number") << record("A", "Category: X\r\n" + QString(kIng).replace("Measure:  1", "Measure:  lots"))
            << none << none << 0 << 10;
        QTest::newRow("empty measure") << record("A", "Category: X\r\n" + QString(kIng).replace("Measure:  1", "Measure:  "))
            << none << none << 0 << 10;
        QTest::newRow("truncated inside an ingredient")
            << QStringLiteral("----------\r\nName:     A\r\nGlass:    1\r\nCategory: X\r\nIng:      Rum\r\nMAmount:  1")
            << none << none << 8 << 0;
        QTest::newRow("truncated after the name") << "----------\r\nName:     A\r\n" << none << none << 4 << 0;
        QTest::newRow("version 1.0 reads alike, lone LF line ends") << record("A").replace("\r\n", "\n")
            << QStringList{"A"} << QStringList{"Shake."} << 0 << 0;
    }
    void read()
    {
        QFETCH(QString, body);
        QFETCH(QStringList, names);
        QFETCH(QStringList, recipes);
        QFETCH(int, stopLine);
        QFETCH(int, errorLine);
        const ReadOutcome got = readAll(kHead + body);
        QCOMPARE(got.names, names);
        QCOMPARE(got.recipes, recipes);
        QCOMPARE(got.stopLine, stopLine);
        QCOMPARE(got.errorLine, errorLine);
    }

    void measureTexts_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<float>("measure");
        QTest::newRow("whole") << "2" << 2.0f;
        QTest::newRow("fraction") << "0.3333333" << float(1.0 / 3);
        QTest::newRow("older writer without leading zero") << ".5" << 0.5f;
        QTest::newRow("exponent") << "1e+07" << 1e7f;
    }
    void measureTexts()
    {
        QFETCH(QString, text);
        QFETCH(float, measure);
        CvxReader reader(kHead + record("A", "Category: X\r\n" + QString(kIng).replace("Measure:  1", "Measure:  " + text)));
        reader.readHead();
        CvxRecord r;
        QVERIFY(reader.next(r));
        QCOMPARE(r.lines.value(0).measure, measure);
        QCOMPARE(cvxMeasureText(measure).toFloat(), measure);
    }

    // Import by name: existing drinks ignored, categories and ingredients found or created.
    void importRules()
    {
        TestStore ts(QStringLiteral(
            "INSERT INTO Drinks (id, Name, Description, GlassType) VALUES (7, 'Café Royal', 'x', 2);"
            "INSERT INTO DrinkTypes (TypeID, Type) VALUES (4, 'Shots');"
            "INSERT INTO Ingredients (id, Ingredient, Type) VALUES (9, 'Dark Rum', 3);"));
        const QString path = ts.appDir() + QStringLiteral("/in.cvx");
        const QString ing = QStringLiteral("Ing:      dark rum\r\nMAmount:  3 cl\r\nAmount:   1 oz\r\nMeasure:  1\r\n"
                                           "Ing:      Limé 🍋\r\nMAmount:  1 cl\r\nAmount:   1/3 oz\r\nMeasure:  0.3333333\r\n");
        const QString body = record(QString::fromUtf8("CAFÉ ROYAL")) // the store's name order counts it as the same
            + record(QStringLiteral("Zombie \"Deluxe\""), "Category: Tiki\r\nCategory: shots\r\nCategory: Tiki\r\n" + ing + ing)
            + record(QStringLiteral("Plain"), QStringLiteral("Category: Tiki\r\n"));
        QVERIFY(writeFile(path, (kHead + body).toUtf8()));
        int added = 0, ignored = 0;
        const auto count = [&](CvxImporter::Outcome o) { ++(o == CvxImporter::Added ? added : ignored); };
        QCOMPARE(int(importCvxFile(ts.store(), path, count).status), int(CvxImportResult::Done));
        QCOMPARE(added, 2);
        QCOMPARE(ignored, 1);
        DrinkStore &s = ts.store();
        QCOMPARE(column(s, "SELECT id, Name, GlassType, Description FROM Drinks ORDER BY id"),
                 (QStringList{"7|Café Royal|2|x", "8|Zombie \"Deluxe\"|3|Shake.\r\n", "9|Plain|3|Shake."}));
        QCOMPARE(column(s, "SELECT TypeID, Type FROM DrinkTypes ORDER BY TypeID"), (QStringList{"4|Shots", "5|Tiki"}));
        QCOMPARE(column(s, "SELECT DrinkID, DrinkTypeID FROM DrinkTypeRel ORDER BY rowid"), (QStringList{"8|5", "8|4", "9|5"}));
        QCOMPARE(column(s, "SELECT id, Ingredient, Type, UnitType IS NULL FROM Ingredients ORDER BY id"),
                 (QStringList{"9|Dark Rum|3|1", QString::fromUtf8("10|Limé 🍋|0|1")}));
        QCOMPARE(column(s, "SELECT IngID, seq, amount, MetricAmount, measure FROM DrinkRel WHERE DrinkID = 8 ORDER BY seq"),
                 (QStringList{"9|1|1 oz|3 cl|1", "10|2|1/3 oz|1 cl|0.3333333134651184", "9|3|1 oz|3 cl|1",
                              "10|4|1/3 oz|1 cl|0.3333333134651184"}));

        // The same file again adds nothing.
        added = ignored = 0;
        importCvxFile(ts.store(), path, count);
        QCOMPARE(added, 0);
        QCOMPARE(ignored, 3);
    }

    void importStops_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<int>("status");
        QTest::addColumn<QString>("message");
        QTest::addColumn<int>("drinks");
        QTest::newRow("not an exchange file") << QByteArray("hello\r\n") << int(CvxImportResult::NotExchangeFile)
            << cvxNotExchangeFileMessage() << 0;
        QTest::newRow("unknown version") << QByteArray("Corvane Drink Exchange File\r\nVersion:  2\r\n")
            << int(CvxImportResult::UnknownVersion) << cvxUnknownVersionMessage() << 0;
        QTest::newRow("bad measure keeps what came before")
            << (kHead + record("A") + record("B", "Category: X\r\n" + QString(kIng).replace("Measure:  1", "Measure:  x"))).toLatin1()
            << int(CvxImportResult::StoppedAtBadRecord) << "line 16: The measure \"x\" is not a number." << 1;
        QTest::newRow("garbage after a good record")
            << (kHead + record("A") + "----------\r\n").toLatin1() + QByteArray(100000, '\x01') + "\r\n" << int(CvxImportResult::StoppedAtBadRecord)
            << "line 10: \"Name:\" expected." << 1;
        QTest::newRow("Windows-1252 name") << (kHead + record("Caf\xe9")).toLatin1() << int(CvxImportResult::Done) << QString() << 1;
    }
    void importStops()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(int, status);
        QFETCH(QString, message);
        QFETCH(int, drinks);
        TestStore ts;
        const QString path = ts.appDir() + QStringLiteral("/bad.cvx");
        QVERIFY(writeFile(path, bytes));
        const CvxImportResult result = importCvxFile(ts.store(), path, [](CvxImporter::Outcome) {});
        QCOMPARE(int(result.status), status);
        QVERIFY2(result.message.endsWith(message), qPrintable(result.message));
        if (status == int(CvxImportResult::StoppedAtBadRecord))
            QVERIFY(result.message.contains(QDir::toNativeSeparators(path)));
        QCOMPARE(ts.store().scalar(QStringLiteral("SELECT Count(*) FROM Drinks")).toInt(), drinks);
        if (bytes.contains("Caf\xe9"))
            QCOMPARE(ts.store().scalar(QStringLiteral("SELECT Name FROM Drinks")).toString(), QString::fromUtf8("Café"));
    }

    // Every starter drink goes out and comes back into an empty store unchanged.
    void roundTrip()
    {
        TestStore starter(QString(), true);
        CDrinkFacade facade(starter.store(), starter.appDir());
        QString text = cvxFileHead();
        std::vector<qint32> ids;
        QStringList names;
        starter.store().selectIdNames(QStringLiteral("SELECT ID, Name FROM Drinks ORDER BY Name"), ids, names);
        QVERIFY(ids.size() > 100);
        for (qint32 id : ids)
            text += drinkAsCVX(facade, starter.store(), id) + QStringLiteral("\r\n");
        TestStore empty;
        const QString path = empty.appDir() + QStringLiteral("/all.cvx");
        QCOMPARE(writeExportFile(path, text), QString());
        int added = 0;
        const CvxImportResult result = importCvxFile(empty.store(), path, [&](CvxImporter::Outcome) { ++added; });
        QCOMPARE(result.message, QString());
        QCOMPARE(added, int(ids.size()));

        const char *drinks = "SELECT Name, GlassType, Description FROM Drinks ORDER BY Name";
        const char *categories = "SELECT D.Name, T.Type FROM Drinks D JOIN DrinkTypeRel R ON R.DrinkID = D.id "
                                 "JOIN DrinkTypes T ON T.TypeID = R.DrinkTypeID ORDER BY D.Name, T.Type";
        // Values travel without their surrounding blanks.
        const char *lines = "SELECT D.Name, R.seq, trim(I.Ingredient), trim(R.amount), trim(R.MetricAmount), R.measure FROM Drinks D "
                            "JOIN DrinkRel R ON R.DrinkID = D.id JOIN Ingredients I ON I.id = R.IngID ORDER BY D.Name, R.seq";
        QStringList before = column(starter.store(), drinks);
        // Each recipe but the file's last comes back with one more line end.
        for (int i = 0; i < before.size() - 1; ++i)
            before[i] += QStringLiteral("\r\n");
        QCOMPARE(column(empty.store(), drinks), before);
        QCOMPARE(column(empty.store(), categories), column(starter.store(), categories));
        QCOMPARE(column(empty.store(), lines), column(starter.store(), lines));
    }

    // A drink Windows-1252 cannot carry makes the whole file UTF-8, and it reads back as typed.
    void exportEncoding_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("utf8");
        QTest::newRow("Windows-1252") << QString::fromUtf8("Café “Noir” €") << false;
        QTest::newRow("emoji") << QString::fromUtf8("Piña 🍍") << true;
        QTest::newRow("Greek") << QString::fromUtf8("Ούζο") << true;
    }
    void exportEncoding()
    {
        QFETCH(QString, name);
        QFETCH(bool, utf8);
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("x.cvx"));
        const QString text = kHead + record(name);
        QCOMPARE(writeExportFile(path, text), QString());
        const QByteArray bytes = readFile(path);
        QCOMPARE(bytes == text.toUtf8(), utf8);
        QCOMPARE(readAll(Cp1252::decodeFile(bytes)).names, QStringList{name});
        QCOMPARE(writeExportFile(dir.filePath(QStringLiteral("missing/x.cvx")), text).isEmpty(), false);
    }
};

QTEST_GUILESS_MAIN(tst_CvxExchange)
#include "tst_cvxexchange.moc"
