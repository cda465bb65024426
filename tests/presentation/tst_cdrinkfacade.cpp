// The current drink and its plain text.
#include "TestFiles.h"
#include "ShownDrinks.h"
#include "TestStore.h"
#include "presentation/CDrinkFacade.h"
#include "store/DrinkStore.h"

#include <QtTest>

class tst_CDrinkFacade : public QObject {
    Q_OBJECT
private slots:
    void init()
    {
        m_ts = std::make_unique<TestStore>(shownDrinksRows());
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
            << "Daiquiri\r\n\r\n2 oz Light Rum\r\n1 oz Lime Juice\r\n\r\nShake & strain.\r\n\r\nCoupe\r\n\r\n"
               "Sours\r\nClassic Cocktails\r\n\r\nPrice: $4.25, Cost: $1.02\r\n\r\nBuild: Shaken\r\n\r\n"
               "Garnish: Lime Wheel\r\n\r\n";
        QTest::newRow("bare drink: blank sections, no price without cost")
            << 20 << "  Bare  \r\n\r\n\r\n\r\n\r\nUnknown Glass Type\r\n\r\n\r\n";
        QTest::newRow("dangling references") << 21 << "Lost\r\n\r\n\r\nx\r\n\r\nUnknown Glass Type\r\n\r\n\r\n"
                                                      "Build: &nbsp\r\n\r\nGarnish: &nbsp\r\n\r\n";
        QTest::newRow("glass without a name, negative price")
            << 22 << "Neg\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\nPrice: ($1.50), Cost: $1,234.50\r\n\r\n";
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
        m_facade->setCurrentDrinkID(20);
        QCOMPARE(m_facade->drinkAsPlainText(id), QString());
        QCOMPARE(m_facade->onRecord(), cursorKept);
        QCOMPARE(m_facade->currentDrinkName(), cursorKept ? QStringLiteral("Bare") : QString());
        QCOMPARE(m_facade->currentDrinkMark(), cursorKept);
    }

    void unknownIdMovesToFirst()
    {
        m_facade->setCurrentDrinkID(21);
        m_facade->setCurrentDrinkID(13);
        QCOMPARE(m_facade->currentDrinkID(), 5);
        m_facade->setCurrentDrinkID(22);
        QCOMPARE(m_facade->currentDrinkID(), 22);
    }

    // The build and garnish names drop the "&nbsp" that the text and the page show for nothing.
    void accessors()
    {
        m_facade->setCurrentDrinkID(5);
        QCOMPARE(m_facade->currentDrinkBuildName(), QStringLiteral("Shaken"));
        QCOMPARE(m_facade->currentDrinkGarnishName(), QStringLiteral("Lime Wheel"));
        m_facade->setCurrentDrinkID(21);
        QCOMPARE(m_facade->currentDrinkGlassName(), QStringLiteral("Unknown Glass Type"));
        QCOMPARE(m_facade->currentDrinkBuildName(), QString());
        QCOMPARE(m_facade->currentDrinkGarnishName(), QString());
        QCOMPARE(m_facade->GetRatingName(), QStringLiteral("&nbsp"));
        m_facade->setCurrentDrinkID(20);
        QCOMPARE(m_facade->currentDrinkGlassID(), 0);
    }

    void marking()
    {
        auto marked = [&](int id) {
            return m_ts->store().scalar(QStringLiteral("SELECT Marked FROM Drinks WHERE id = %1").arg(id)).toInt();
        };
        m_facade->SetDrinkMark(true, 7);
        QCOMPARE(marked(7), 1);
        QVERIFY(m_facade->currentDrinkMark());
        m_facade->setCurrentDrinkID(20);
        m_facade->SetDrinkMark(false, 0); // 0: the current drink
        QCOMPARE(marked(20), 0);
        m_facade->SetDrinkMark(true, 404); // no such drink: nothing changes, no current record
        QVERIFY(!m_facade->onRecord());
        QCOMPARE(m_ts->store().scalar(QStringLiteral("SELECT SUM(Marked) FROM Drinks")).toInt(), 2);
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
