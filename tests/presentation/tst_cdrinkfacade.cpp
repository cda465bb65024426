// The current drink and its plain text.
#include "TestFiles.h"
#include "TestStore.h"
#include "presentation/CDrinkFacade.h"
#include "store/DrinkStore.h"

#include <QtTest>

namespace {
const char *kRows = R"SQL(
INSERT INTO Glassware VALUES (1, 'Coupe', ''), (2, NULL, '');
INSERT INTO Garnish (id, Name) VALUES (1, 'Lime Wheel');
INSERT INTO Build (id, Name) VALUES (1, 'Shaken');
INSERT INTO Ratings (RatingID, Name) VALUES (1, 'Excellent');
INSERT INTO DrinkTypes VALUES (0, 'Unknown / Other'), (1, 'Sours'), (2, 'Classic Cocktails');
INSERT INTO Ingredients (id, Ingredient) VALUES (1, 'Light Rum'), (2, 'Lime Juice'), (3, 'Simple Syrup');
INSERT INTO Drinks (id, Name, GlassType, Description, Price, Cost, BuildID, GarnishID, RatingID, Marked) VALUES
  (5, 'Daiquiri', 1, 'Shake and strain.', 4.25, 1.0213, 1, 1, 1, 0),
  (9, '  Bare  ', NULL, NULL, 3, NULL, NULL, NULL, NULL, 1),
  (12, 'Lost', 77, 'x', NULL, NULL, 99, 98, NULL, 0),
  (14, 'Neg', 2, '', -1.5, 1234.5, NULL, NULL, NULL, 0);
INSERT INTO DrinkRel VALUES (5, 2, 2, '1 oz', '3.0 cl', 1), (5, 1, 1, '2 oz', '6.0 cl', 2),
  (5, 3, 3, '0.75 oz', '2.3 cl', 0.75), (12, 42, 1, 'orphan', '', 1);
INSERT INTO DrinkTypeRel VALUES (5, 1), (5, 2), (12, 7);
)SQL";
} // namespace

class tst_CDrinkFacade : public QObject {
    Q_OBJECT
private slots:
    void init()
    {
        m_ts = std::make_unique<TestStore>(QString::fromLatin1(kRows));
        m_facade = std::make_unique<CDrinkFacade>(m_ts->store(), m_ts->appDir());
    }

    void cleanup()
    {
        m_facade.reset();
        m_ts.reset();
    }

    void plainText_data()
    {
        QTest::addColumn<int>("id");
        QTest::addColumn<QString>("text");
        QTest::newRow("full drink, lines in order")
            << 5
            << "Daiquiri\r\n\r\n2 oz Light Rum\r\n1 oz Lime Juice\r\n0.75 oz Simple Syrup\r\n\r\nShake and "
               "strain.\r\n\r\n"
               "Coupe\r\n\r\nSours\r\nClassic Cocktails\r\n\r\nPrice: $4.25, Cost: $1.02\r\n\r\nBuild: Shaken\r\n\r\n"
               "Garnish: Lime Wheel\r\n\r\n";
        QTest::newRow("bare drink: blank sections, no price without cost")
            << 9 << "  Bare  \r\n\r\n\r\n\r\n\r\nUnknown Glass Type\r\n\r\n\r\n";
        QTest::newRow("dangling references") << 12 << "Lost\r\n\r\n\r\nx\r\n\r\nUnknown Glass Type\r\n\r\n\r\n"
                                                      "Build: &nbsp\r\n\r\nGarnish: &nbsp\r\n\r\n";
        QTest::newRow("glass without a name, negative price")
            << 14 << "Neg\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\nPrice: ($1.50), Cost: $1,234.50\r\n\r\n";
    }

    void plainText()
    {
        QFETCH(int, id);
        QFETCH(QString, text);
        QCOMPARE(m_facade->drinkAsPlainText(id), text);
        QCOMPARE(m_facade->currentDrinkID(), id);
    }

    void outputsOfNoDrink_data()
    {
        QTest::addColumn<int>("id");
        QTest::addColumn<bool>("cursorKept");
        QTest::newRow("zero") << 0 << false;
        QTest::newRow("unknown") << 404 << false;
        QTest::newRow("negative leaves the cursor") << -3 << true;
    }

    void outputsOfNoDrink()
    {
        QFETCH(int, id);
        QFETCH(bool, cursorKept);
        m_facade->setCurrentDrinkID(9);
        QCOMPARE(m_facade->drinkAsPlainText(id), QString());
        QCOMPARE(m_facade->onRecord(), cursorKept);
        QCOMPARE(m_facade->currentDrinkName(), cursorKept ? QStringLiteral("Bare") : QString());
        QCOMPARE(m_facade->currentDrinkMark(), cursorKept);
    }

    void unknownIdMovesToFirst()
    {
        m_facade->setCurrentDrinkID(12);
        m_facade->setCurrentDrinkID(13);
        QCOMPARE(m_facade->currentDrinkID(), 5);
        m_facade->setCurrentDrinkID(14);
        QCOMPARE(m_facade->currentDrinkID(), 14);
    }

    // The build and garnish names drop the "&nbsp" that the text and the page show for nothing.
    void accessors()
    {
        m_facade->setCurrentDrinkID(5);
        QCOMPARE(m_facade->currentDrinkBuildName(), QStringLiteral("Shaken"));
        QCOMPARE(m_facade->currentDrinkGarnishName(), QStringLiteral("Lime Wheel"));
        m_facade->setCurrentDrinkID(12);
        QCOMPARE(m_facade->currentDrinkGlassName(), QStringLiteral("Unknown Glass Type"));
        QCOMPARE(m_facade->currentDrinkBuildName(), QString());
        QCOMPARE(m_facade->currentDrinkGarnishName(), QString());
        QCOMPARE(m_facade->GetRatingName(), QStringLiteral("&nbsp"));
        m_facade->setCurrentDrinkID(9);
        QCOMPARE(m_facade->currentDrinkGlassID(), 0);
    }

    void marking()
    {
        auto marked = [&](int id) {
            return m_ts->store().scalar(QStringLiteral("SELECT Marked FROM Drinks WHERE id = %1").arg(id)).toInt();
        };
        m_facade->SetDrinkMark(true, 5);
        QCOMPARE(marked(5), 1);
        QVERIFY(m_facade->currentDrinkMark());
        m_facade->setCurrentDrinkID(9);
        m_facade->SetDrinkMark(false, 0); // 0: the current drink
        QCOMPARE(marked(9), 0);
        m_facade->SetDrinkMark(true, 404); // no such drink: nothing changes, no current record
        QVERIFY(!m_facade->onRecord());
        QCOMPARE(m_ts->store().scalar(QStringLiteral("SELECT SUM(Marked) FROM Drinks")).toInt(), 1);
    }

    void templates()
    {
        const QString path = m_ts->appDir() + QStringLiteral("/page.cvt");
        QVERIFY(writeFile(path, "<p>Caf\xe9 \x80 [DrinkName]</p>\r\n"));
        m_facade->setCurrentHTMLTemplatePath(path);
        QCOMPARE(m_facade->templateText(), QString::fromUtf8("<p>Café € [DrinkName]</p>\r\n"));
        m_facade->setCurrentHTMLTemplatePath(m_ts->appDir() + QStringLiteral("/missing.cvt"));
        QCOMPARE(m_facade->templateText(), QString());
        QCOMPARE(m_facade->currentHTMLTemplatePath(), m_ts->appDir() + QStringLiteral("/missing.cvt"));
    }

private:
    std::unique_ptr<TestStore> m_ts;
    std::unique_ptr<CDrinkFacade> m_facade;
};

QTEST_GUILESS_MAIN(tst_CDrinkFacade)
#include "tst_cdrinkfacade.moc"
