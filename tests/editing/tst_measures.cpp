#include "editing/Measures.h"

#include <QTest>
#include <cstring>

class tst_Measures : public QObject {
    Q_OBJECT

private slots:
    // A recipe line as the editor turns it into its English text, its metric text and its ounces.
    void line_data()
    {
        QTest::addColumn<QString>("amount");
        QTest::addColumn<QString>("measure");
        QTest::addColumn<QString>("english");
        QTest::addColumn<QString>("metric");
        QTest::addColumn<float>("ounces");
        auto row = [](const char *name, const char *amount, const char *measure, const char *english,
                      const char *metric, float ounces) {
            QTest::newRow(name) << QString::fromUtf8(amount) << QString::fromUtf8(measure) << QString::fromUtf8(english)
                                << QString::fromUtf8(metric) << ounces;
        };
        // Amounts up to 1 take the singular; the typed text is kept; an empty metric word leaves
        // the trailing blank.
        row("typed text kept", "1.50", "Ounce (Shot)", "1.50 oz", "4.5 cl ", 1.5f);
        row("1 oz", "1", "Ounce (Shot)", "1 oz", "3.0 cl ", 1.0f);
        row("exactly 1 is singular", "1", "Dash", "1 dash", "1 ml dash", 0.03125f);
        row("1.0 is singular", "1.0", "Jigger", "1.0 jigger", "4.5 cl jigger", 1.5f);
        row("1.01 is plural", "1.01", "Dash", "1.01 dashes", "1 ml dashes", 0.0315625f);
        row("0.25 is singular", "0.25", "Splash", "0.25 splash", "1 ml splash", 0.015625f);
        row("0 is singular", "0", "Wedge", "0 wedge", "0 ml wedge", 0.0f);
        row("2 dashes", "2", "Dash", "2 dashes", "2 ml dashes", 0.0625f);
        row("3 sprigs, a count", "3", "Sprig", "3 sprigs", "3 ml sprigs", 3.0f);
        row("12 wedges", "12", "Wedge", "12 wedges", "1.2 cl wedges", 12.0f);
        row("1 tsp", "1", "Teaspoon", "1 tsp.", "5 ml ", 0.167f);
        row("same word both ways", "2", "Teaspoon", "2 tsp.", "10 ml ", 0.334f);
        row("3 tsp", "3", "Teaspoon", "3 tsp.", "1.5 cl ", 0.501f);
        row("1 tbs", "1", "Tablespoon", "1 tbs.", "1.5 cl ", 0.5f);
        row("jiggers", "1.5", "Jigger", "1.5 jiggers", "6.8 cl jiggers", 2.25f);
        row("cup", "1", "Cup", "1 cup", "23.6 cl ", 8.0f);
        row("1 fifth", "1", "Fifth (750 ml)", "1 fifth", "75.0 cl ", 25.4f);
        row("1 gallon", "1", "Gallon", "1 gallon", "3.787 lt ", 128.0f);
        row("half gallon: 64 oz, 1894 ml", "1", "½ Gal. (1.75 L)", "1 ½ Gallon", "1.894 lt ", 64.0f);
        row("half gallons", "2", "½ Gal. (1.75 L)", "2 ½ Gallons", "3.788 lt ", 128.0f);
        row("1 liter", "1", "Liter", "1 lt", "100.0 cl lt", 33.8f);
        row("2 liters", "2", "Liter", "2 lt", "2.000 lt lt", 67.6f);
        row("splash doubles", "3.5", "Splash", "3.5 splashes", "7 ml splashes", 0.21875f);
        row("cl, not in the list", "2", "cl", "2 cl", "2.0 cl cl", 0.676f);
        row("ml, not in the list", "10", "ml", "10 ml", "10 ml ml", 0.338f);
        row("tenth of an ounce", "0.1", "Ounce (Shot)", "0.1 oz", "3 ml ", 0.1f);

        // The borders between the three metric forms.
        row("10 ml stays ml", "10", "Dash", "10 dashes", "10 ml dashes", 0.3125f);
        row("10.5 ml is cl", "10.5", "Dash", "10.5 dashes", "1.1 cl dashes", 0.328125f);
        row("1000 ml stays cl", "1000", "Dash", "1000 dashes", "100.0 cl dashes", 31.25f);
        row("1001 ml is lt", "1001", "Dash", "1001 dashes", "1.001 lt dashes", 31.28125f);

        // Halves go away from zero, decided on the seven digits of the single value: 0.35 oz is
        // 10.5 ml, and 1.05 cl (held as 1.04999995) shows as 1.1.
        row("2.5 ml", "2.5", "Dash", "2.5 dashes", "3 ml dashes", 0.078125f);
        row("0.5 ml", "0.5", "Dash", "0.5 dash", "1 ml dash", 0.015625f);
        row("0.75 oz", "0.75", "Ounce (Shot)", "0.75 oz", "2.3 cl ", 0.75f);
        row("0.35 oz", "0.35", "Ounce (Shot)", "0.35 oz", "1.1 cl ", 0.35f);
        row("1.0005 lt", "1.0005", "Liter", "1.0005 lt", "1.001 lt lt", 33.8168983f);

        row("amount read as far as it is a number", "2 oz", "Ounce (Shot)", "2 oz oz", "6.0 cl ", 2.0f);
        row("no number", "abc", "Ounce (Shot)", "abc oz", "0 ml ", 0.0f);
        row("empty amount", "", "Ounce (Shot)", " oz", "0 ml ", 0.0f);
        row("fill with ignores the amount", "2", "Fill With", "Fill With", "Fill With", 0.0f);
        row("top with, no amount", "", "Top With", "Top With", "Top With", 0.0f);
        row("unknown measure", "2", "Thimble", "2 ", "0 ml ", 0.0f);
        row("names are exact", "2", "ounce (shot)", "2 ", "0 ml ", 0.0f);
    }

    void line()
    {
        QFETCH(QString, amount);
        QFETCH(QString, measure);
        QFETCH(QString, english);
        QFETCH(QString, metric);
        QFETCH(float, ounces);
        QCOMPARE(GetAmountText(amount, measure), english);
        QCOMPARE(GetMetricAmountText(amount, measure), metric);
        // Stored as it is computed, so compared to the last bit.
        const float actual = GetOunces(amount, measure);
        QVERIFY2(std::memcmp(&actual, &ounces, sizeof actual) == 0,
                 qPrintable(QStringLiteral("%1 != %2").arg(actual, 0, 'g', 9).arg(ounces, 0, 'g', 9)));
    }

    // The editor's list leaves out the metric units, which callers may still name.
    void editorListOffersNoMetricUnits()
    {
        const QStringList names = EditorMeasureNames();
        QVERIFY(!names.contains(QStringLiteral("cl")) && !names.contains(QStringLiteral("ml")));
        QVERIFY(FindMeasure(QStringLiteral("cl")) && FindMeasure(QStringLiteral("ml")));
    }
};

QTEST_GUILESS_MAIN(tst_Measures)
#include "tst_measures.moc"
