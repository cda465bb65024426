// The conversion dialog driven through its controls: the arithmetic of its fifteen units, its
// messages, the emptied result and its pages.
#include "GuiTest.h"
#include "editing/frmMetricConvert.h"

#include <QComboBox>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QTabBar>

class tst_MetricConvert : public QObject {
    Q_OBJECT
private slots:
    void init()
    {
        m_dlg = std::make_unique<frmMetricConvert>();
        m_dlg->show();
    }

    void cleanup() { m_dlg.reset(); }

    void convert_data()
    {
        QTest::addColumn<QString>("amount");
        QTest::addColumn<int>("from");
        QTest::addColumn<int>("to");
        QTest::addColumn<QString>("expected");
        // Units: 0 Dash, 1 Splash, 2 Teaspoon, 3 Tablespoon, 4 Ounce, 5 Jigger, 6 Cup, 7 Pint,
        // 8 English Fifth, 9 Fifth (750 ml), 10 Quart, 11 Gallon, 12 liter, 13 centiliter, 14 milliliter.
        QTest::newRow("all fifteen digits") << "1" << 2 << 3 << "0.333333333333333";
        QTest::newRow("the reference pint, not the editor's") << "1" << 7 << 14 << "473.372781065089";
        QTest::newRow("rounded at fifteen digits") << "2" << 12 << 13 << "200";
        QTest::newRow("dashes multiply") << "0.5" << 4 << 0 << "16";
        QTest::newRow("ounces divide") << "3" << 4 << 5 << "2";
        QTest::newRow("english fifth") << "1" << 8 << 9 << "1.00787401574803";
        QTest::newRow("cup to splashes") << "1" << 6 << 1 << "128";
        QTest::newRow("small numbers in exponent form") << "1" << 0 << 11 << "0.000244140625";
        QTest::newRow("smaller still") << "0.01" << 0 << 11 << "2.44140625E-06";
        QTest::newRow("large numbers in exponent form") << "1e20" << 11 << 0 << "4.096E+23";
        QTest::newRow("fifteen digits before the point") << "999999999999999" << 4 << 4 << "999999999999999";
        QTest::newRow("blanks and sign") << "  -1.5 " << 5 << 4 << "-2.25";
        QTest::newRow("leading point") << ".5" << 6 << 4 << "4";
        QTest::newRow("not a number") << "1/2" << 4 << 4
                                      << "message: Corvane|The amount you wish to convert is not a valid number.";
        QTest::newRow("amount before units")
            << "x" << -1 << -1 << "message: Corvane|The amount you wish to convert is not a valid number.";
        QTest::newRow("no from unit") << "1" << -1 << 4 << "message: Corvane|Please select the units to convert from.";
        QTest::newRow("no to unit") << "1" << 4 << -1 << "message: Corvane|Please select the units to convert to.";
    }

    void convert()
    {
        QFETCH(QString, amount);
        QFETCH(int, from);
        QFETCH(int, to);
        QFETCH(QString, expected);
        QCOMPARE(convertAndCatch(amount, from, to), expected);
    }

    void resultEmptied_data()
    {
        QTest::addColumn<QString>("change");
        QTest::newRow("amount") << "amount";
        QTest::newRow("from") << "from";
        QTest::newRow("to") << "to";
    }

    void resultEmptied()
    {
        QFETCH(QString, change);
        QCOMPARE(convertAndCatch("1", 4, 13), QStringLiteral("2.9585798816568"));
        if (change == "amount")
            QTest::keyClick(child<QLineEdit>("txtSourceAmount"), Qt::Key_5);
        else if (change == "from")
            child<QComboBox>("cmbFrom")->setCurrentIndex(5);
        else
            child<QComboBox>("cmbTo")->setCurrentIndex(14);
        QCOMPARE(child<QLineEdit>("txtResultAmount")->text(), QString());
    }

    void unitLists()
    {
        auto *from = child<QComboBox>("cmbFrom");
        auto *to = child<QComboBox>("cmbTo");
        QCOMPARE(from->count(), 15);
        QCOMPARE(from->currentIndex(), -1);
        QCOMPARE(to->currentIndex(), -1);
        for (int i = 0; i < 15; ++i)
            QCOMPARE(to->itemText(i), from->itemText(i));
        QCOMPARE(m_dlg->windowTitle(), QStringLiteral("English / Metric Conversion Utility and Reference"));
    }

    void pages()
    {
        auto *tabs = child<QTabBar>("tabConversion");
        QCOMPARE(tabs->count(), 5);
        QCOMPARE(tabs->tabText(4), QStringLiteral("Beer && Wine"));
        auto visible = [this] {
            QString shown;
            for (int i = 1; i <= 5; ++i) {
                if (m_dlg->findChild<QFrame *>(QStringLiteral("Frames%1").arg(i))->isVisible())
                    shown += QString::number(i);
            }
            return shown;
        };
        QCOMPARE(visible(), QStringLiteral("1"));
        const QString shots = qEnvironmentVariable("CORVANE_SCREENSHOTS");
        if (!shots.isEmpty())
            m_dlg->grab().save(shots + QStringLiteral("/metric-1.png"));
        for (int tab : {2, 4, 1, 3, 0}) {
            tabs->setCurrentIndex(tab);
            QCOMPARE(visible(), QString::number(tab + 1));
            if (!shots.isEmpty())
                m_dlg->grab().save(shots + QStringLiteral("/metric-%1.png").arg(tab + 1));
        }
    }

    void quirkyTexts_data()
    {
        // Double blanks, the half and quarter glyphs and the old spelling stay as written.
        QTest::addColumn<QString>("text");
        QTest::newRow("step 4") << "4.  Click on Convert and the converted value will appear here.";
        QTest::newRow("gallon") << "1 Gallon  =3.785 l";
        QTest::newRow("jigger") << "1 Jigger = 1\u00BD oz.";
        QTest::newRow("bottles")
            << "The volumes of standard liquor bottles were changed to use more rounded numbers in the "
               "metric system.  This is a comparison of standard bottle sizes as they are now and the "
               "English measurement they are based on";
        QTest::newRow("pony keg")
            << "1 \u00BC Barrel of beer (also known as a pony keg or \u00BC keg) = 3.25 cases = 7.25 "
               "gallons = 78 12 oz. beers";
        QTest::newRow("carafe")
            << "1 Carafe of wine = 374 ml = 12.6 oz.  This size is not always followed by the makers of "
               "carafes";
        QTest::newRow("help") << "Press F1 for Help";
    }

    void quirkyTexts()
    {
        QFETCH(QString, text);
        QStringList labels;
        for (const QLabel *label : m_dlg->findChildren<QLabel *>())
            labels << label->text();
        QVERIFY2(labels.contains(text), qPrintable(text));
    }

private:
    QString convertAndCatch(const QString &amount, int from, int to);
    template <class T> T *child(const char *name) const { return ::child<T>(m_dlg.get(), name); }
    std::unique_ptr<frmMetricConvert> m_dlg;
};

// Runs Convert; returns the result text, or "message: " and the text of the box it showed.
QString tst_MetricConvert::convertAndCatch(const QString &amount, int from, int to)
{
    child<QLineEdit>("txtSourceAmount")->setText(amount);
    child<QComboBox>("cmbFrom")->setCurrentIndex(from);
    child<QComboBox>("cmbTo")->setCurrentIndex(to);
    QString message;
    QTimer guard;
    guard.setInterval(0);
    connect(&guard, &QTimer::timeout, this, [&] {
        if (auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget())) {
            message = box->windowTitle() + u'|' + box->text();
            box->button(QMessageBox::Ok)->click();
        }
    });
    guard.start();
    child<QPushButton>("cmdConvert")->click();
    guard.stop();
    return message.isEmpty() ? child<QLineEdit>("txtResultAmount")->text() : QStringLiteral("message: ") + message;
}

QTEST_MAIN(tst_MetricConvert)
#include "tst_metricconvert.moc"
