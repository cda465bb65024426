// The export texts (XML, point-of-sale file), the export run with its 64K limit, the map file.
#include "TestFiles.h"
#include "TestStore.h"
#include "exchange/DrinkExport.h"
#include "exchange/DrinkExportText.h"
#include "exchange/MapFile.h"
#include "presentation/CDrinkFacade.h"
#include "store/DrinkStore.h"

#include <QtTest>

namespace {
const QString kRows = QStringLiteral(
    "INSERT INTO Glassware (GlassID, Name) VALUES (2, 'Highball');"
    "INSERT INTO Garnish (id, Name) VALUES (1, 'Lime wheel');"
    "INSERT INTO Build (id, Name) VALUES (1, 'Built');"
    "INSERT INTO Ratings (RatingID, Name) VALUES (3, 'Good');"
    "INSERT INTO DrinkTypes (TypeID, Type) VALUES (1, 'Tiki');"
    "INSERT INTO Ingredients (id, Ingredient) VALUES (1, 'Dark Rum'), (2, 'Cola');"
    "INSERT INTO Drinks (id, Name, GlassType, Description, Comments, Price, Cost, BuildID, GarnishID, RatingID)"
    " VALUES (5, 'Rum & \"Coke\"', 2, 'Pour it/stir.' || char(13, 10) || 'It''s done', 'Café', 4.5, 1.25, 1, 1, 3);"
    "INSERT INTO DrinkTypeRel VALUES (5, 1);"
    "INSERT INTO DrinkRel (DrinkID, IngID, seq, amount, MetricAmount, measure) VALUES"
    " (5, 1, 1, '2 oz', '6 cl', 2), (5, 2, 2, '', '', 4);");
}

class tst_DrinkExport : public QObject {
    Q_OBJECT
private slots:
    void knownDrink()
    {
        TestStore ts(kRows);
        CDrinkFacade facade(ts.store(), ts.appDir());
        QCOMPARE(drinkAsXML(facade, ts.store(), 5),
                 QStringLiteral("<Drink ID=\"5\" Name=\"Rum &#0038; &#0034;Coke&#0034;\" Glass=\"2\" "
                                "Recipe=\"Pour it&#0047;stir.&#0013;&#0010;It's done\" Price=\"4.5\" Cost=\"1.25\" "
                                "Garnish=\"1\" Build=\"1\" Comment=\"Caf&#0233;\" Rating=\"3\">\r\n"
                                "<Categories>\r\n<Category Name=\"Tiki\" />\r\n</Categories>\r\n<Ingredients>\r\n"
                                "<Ingredient Name=\"Dark Rum\" MAmount=\"6 cl\" Amount=\"2 oz\" Measure=\"2\" />\r\n"
                                "<Ingredient Name=\"Cola\" MAmount=\"\" Amount=\"\" Measure=\"4\" />\r\n"
                                "</Ingredients>\r\n</Drink>\r\n"));
        const QString item = QStringLiteral("[0012]\r\nDESCRIPTION=Rum & \"Coke\"\r\nLine1=Highball") + QString(29, u' ') +
                             QStringLiteral("Built\r\nLine2=\r\nLine3=2 oz Dark Rum\r\nLine4=Cola\r\nLine5=\r\n");
        QCOMPARE(drinkAsMaitreD(facade, ts.store(), 5, 12, false), item);
        QCOMPARE(drinkAsMaitreD(facade, ts.store(), 5, 12, true),
                 item + QStringLiteral("Line6=Pour it/stir.  It's done\r\nLine7=Lime wheel\r\n"));
        QCOMPARE(drinkAsXML(facade, ts.store(), 99), QString());
        QCOMPARE(drinkAsMaitreD(facade, ts.store(), -1, 1, true), QString());
    }

    void maitreDLines_data()
    {
        QTest::addColumn<QString>("glass");
        QTest::addColumn<QString>("build");
        QTest::addColumn<int>("ingredients");
        QTest::addColumn<QString>("line1");
        QTest::addColumn<int>("lastLine");
        QTest::newRow("20 and 21 fill the line") << QString(20, u'G') << QString(21, u'B') << 1
            << QString(20, u'G') + u' ' + QString(21, u'B') << 6;
        QTest::newRow("a sum of 42 drops the build") << QString(21, u'G') << QString(21, u'B') << 1 << QString(21, u'G') << 6;
        QTest::newRow("26 lines fill the item, no recipe or garnish") << "G" << "B" << 26
            << QStringLiteral("G") + QString(40, u' ') + u'B' << 28;
        QTest::newRow("25 lines leave room for nothing but the blank") << "G" << "B" << 25
            << QStringLiteral("G") + QString(40, u' ') + u'B' << 28;
    }
    void maitreDLines()
    {
        QFETCH(QString, glass);
        QFETCH(QString, build);
        QFETCH(int, ingredients);
        QFETCH(QString, line1);
        QFETCH(int, lastLine);
        QString rows = QStringLiteral("INSERT INTO Glassware VALUES (1, '%1', '');INSERT INTO Build VALUES (1, '%2');"
                                      "INSERT INTO Garnish VALUES (1, 'Olive');INSERT INTO Ingredients (id, Ingredient) VALUES (1, 'Gin');"
                                      "INSERT INTO Drinks (id, Name, GlassType, BuildID, GarnishID, Description)"
                                      " VALUES (1, 'X', 1, 1, 1, 'Stir well');").arg(glass, build);
        for (int i = 1; i <= ingredients; ++i)
            rows += QStringLiteral("INSERT INTO DrinkRel (DrinkID, IngID, seq, amount) VALUES (1, 1, %1, '1 oz');").arg(i);
        TestStore ts(rows);
        CDrinkFacade facade(ts.store(), ts.appDir());
        const QStringList lines = drinkAsMaitreD(facade, ts.store(), 1, 1, true).split(QStringLiteral("\r\n"), Qt::SkipEmptyParts);
        QCOMPARE(lines.value(2), QStringLiteral("Line1=") + line1);
        QVERIFY2(lines.last().startsWith(QStringLiteral("Line%1=").arg(lastLine)), qPrintable(lines.last()));
        QCOMPARE(lines.contains(QStringLiteral("Line%1=Olive").arg(lastLine)), lastLine < 28);
    }

    void wrap_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QStringList>("chunks");
        QTest::newRow("short") << "Stir well" << QStringList{"Stir well"};
        QTest::newRow("broken after the blank")
            << QString(40, u'a') + QStringLiteral(" bbbb cccc") << QStringList{QString(40, u'a') + u' ', "bbbb cccc"};
        QTest::newRow("a word longer than the line") << QString(50, u'x')
            << QStringList{"x", "x", "x"};
    }
    void wrap()
    {
        QFETCH(QString, text);
        QFETCH(QStringList, chunks);
        QStringList got;
        // A word longer than the line moves the position back to it for ever; the item's
        // line count is what ends that, so three rounds are enough to see it.
        for (qsizetype p = 1; p < text.size() && got.size() < 3; p += 42)
            got << wrapChunk(p, 42, text);
        QCOMPARE(got, chunks);
    }

    void escape_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("escaped");
        QTest::newRow("apostrophe stays") << "It's" << "It's";
        QTest::newRow("marks") << "<a/b>\\&\"" << "&#0060;a&#0047;b&#0062;&#0092;&#0038;&#0034;";
        QTest::newRow("Windows-1252 codes") << QString::fromUtf8("€é\t") << "&#0128;&#0233;&#0009;";
        QTest::newRow("beyond Windows-1252") << QString::fromUtf8("Ω🍋") << "&#0937;&#127819;";
    }
    void escape()
    {
        QFETCH(QString, text);
        QFETCH(QString, escaped);
        QCOMPARE(xmlEscape(text), escaped);
    }

    // With the limit on, a drink that would make exactly 65535 is left out and the run goes on;
    // the next one that does not fit ends it.
    void sizeLimit()
    {
        TestStore ts(QStringLiteral("INSERT INTO Glassware VALUES (1, 'Rocks', '');"
                                    "INSERT INTO Drinks (id, Name, GlassType) VALUES (1, 'A', 1), (2, 'B', 1), (3, 'C', 1), (4, 'D', 1);"));
        CDrinkFacade facade(ts.store(), ts.appDir());
        const int first = int(drinkAsMaitreD(facade, ts.store(), 1, 1, false).size());
        const int second = int(drinkAsMaitreD(facade, ts.store(), 2, 2, false).size());
        ts.store().execute(QStringLiteral("UPDATE Drinks SET Name = 'B%1' WHERE ID = 2")
                               .arg(QString(DrinkExporter::kLimit - first - second, u'x')));
        DrinkExporter run(ts.store(), facade, DrinkExporter::MaitreD, true, false);
        QVERIFY(run.exportDrink(1));
        QVERIFY(run.exportDrink(2));
        QVERIFY(!run.exportDrink(3));
        QCOMPARE(run.drinksExported(), 3);
        QCOMPARE(run.fileText(), drinkAsMaitreD(facade, ts.store(), 1, 1, false));
        QCOMPARE(run.limitMessage(), QStringLiteral("The 64K file size limit has been reached.  2 drinks have been exported."));

        DrinkExporter unlimited(ts.store(), facade, DrinkExporter::MaitreD, false, false);
        for (qint32 id : {1, 2, 3, 4})
            QVERIFY(unlimited.exportDrink(id));
        QVERIFY(unlimited.fileText().contains(QStringLiteral("[0004]\r\nDESCRIPTION=D")));
    }

    void selections()
    {
        TestStore ts(kRows + QStringLiteral("INSERT INTO Drinks (id, Name, GlassType, Marked) VALUES (6, 'Alpha', 2, 1), (7, 'Beta', 2, 0);"
                                            "UPDATE Drinks SET Marked = 1 WHERE id = 5;INSERT INTO DrinkTypeRel VALUES (7, 1);"));
        QCOMPARE(DrinkExporter::markedDrinks(ts.store()), (std::vector<qint32>{6, 5}));
        QCOMPARE(DrinkExporter::categoryDrinks(ts.store(), 1), (std::vector<qint32>{7, 5}));
        CDrinkFacade facade(ts.store(), ts.appDir());
        DrinkExporter xml(ts.store(), facade, DrinkExporter::Xml);
        QVERIFY(xml.fileText().startsWith(QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\r\n<!--")));
        QVERIFY(xml.fileText().endsWith(QStringLiteral("-->\r\n<Drinks>\r\n</Drinks>\r\n")));
        xml.exportDrink(7);
        QVERIFY(xml.fileText().endsWith(QStringLiteral("</Drink>\r\n\r\n</Drinks>\r\n")));
    }

    void mapFile()
    {
        TestStore ts(QStringLiteral("INSERT INTO Drinks (id, Name) VALUES (1, 'Zed  '), (2, 'A;B'), (3, 'Mojito');"));
        const QString path = ts.appDir() + QStringLiteral("/Corvane.map");
        QVERIFY(writeFile(path, "old;1;KEY\r\n"));
        QCOMPARE(writeMapFile(ts.store(), path), QString());
        QCOMPARE(readFile(path), QByteArray("A;B;2;\r\nMojito;3;\r\nZed;1;\r\n"));
        QCOMPARE(int(lookupMapId(path, QString()).result), int(MapLookup::NotFound));
        QCOMPARE(int(lookupMapId(path, QStringLiteral("KEY")).result), int(MapLookup::NotFound));
    }
};

QTEST_GUILESS_MAIN(tst_DrinkExport)
#include "tst_drinkexport.moc"
