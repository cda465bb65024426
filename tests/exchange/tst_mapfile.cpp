// Links from outside keys to drinks.
#include "TestFiles.h"
#include "base/Cp1252.h"
#include "exchange/MapFile.h"

#include <QTemporaryDir>
#include <QtTest>

class tst_MapFile : public QObject {
    Q_OBJECT
private slots:
    void lookup_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<int>("result");
        QTest::addColumn<int>("id");
        QTest::newRow("plain") << "MOJ" << int(MapLookup::Found) << 12;
        QTest::newRow("first match wins") << "DUP" << int(MapLookup::Found) << 3;
        QTest::newRow("case matters") << "moj" << int(MapLookup::NotFound) << 0;
        QTest::newRow("comment line skipped") << "OLD" << int(MapLookup::NotFound) << 0;
        QTest::newRow("only one semicolon gives 0") << "ONE" << int(MapLookup::Found) << 0;
        QTest::newRow("id read as a number, rounded") << "RND" << int(MapLookup::Found) << 8;
        QTest::newRow("id with text after it") << "TXT" << int(MapLookup::Found) << 15;
        QTest::newRow("key after last semicolon only") << "Daiquiri;5;DAI" << int(MapLookup::NotFound) << 0;
        QTest::newRow("semicolon last never matches") << "" << int(MapLookup::NotFound) << 0;
        QTest::newRow("line without semicolon") << "NOSEMI" << int(MapLookup::NotFound) << 0;
        QTest::newRow("8-bit key") << QString::fromUtf8("CAFÉ") << int(MapLookup::Found) << 21;
    }

    void lookup()
    {
        QFETCH(QString, key);
        QFETCH(int, result);
        QFETCH(int, id);
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("Corvane.map"));
        const QString links = QString::fromUtf8("; The bar's links\r\n"
                                                ";Old;99;OLD\r\n"
                                                "Mojito;12;MOJ\r\n"
                                                "First;3;DUP\r\n"
                                                "Second;4;DUP\r\n"
                                                "7;ONE\r\n"
                                                "Round;7.6;RND\r\n"
                                                "Text;15abc;TXT\r\n"
                                                "Daiquiri;5;DAI\r\n"
                                                "Empty;6;\r\n"
                                                "NOSEMI\r\n"
                                                "Café;21;CAFÉ\n");
        QVERIFY(writeFile(path, Cp1252::encode(links)));
        const MapLookup found = lookupMapId(path, key);
        QCOMPARE(int(found.result), result);
        QCOMPARE(found.drinkId, id);
    }

    void missingFile()
    {
        QCOMPARE(int(lookupMapId(QStringLiteral("/nonexistent/Corvane.map"), QStringLiteral("X")).result),
                 int(MapLookup::FileError));
        QCOMPARE(mapIdNotFoundMessage(QStringLiteral("BAR-9")),
                 QStringLiteral("Unable to find BAR-9 in the map file."));
    }
};

QTEST_GUILESS_MAIN(tst_MapFile)
#include "tst_mapfile.moc"
