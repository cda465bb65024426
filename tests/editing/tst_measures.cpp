#include "editing/Measures.h"

#include <QTest>
#include <cstring>

class tst_Measures : public QObject {
    Q_OBJECT

private slots:
    void amountText_data();
    void amountText();
    void metricAmountText_data();
    void metricAmountText();
    void ounces_data();
    void ounces();
    void editorListOffersNoMetricUnits();
    void conversionDialog_data();
    void conversionDialog();
};

void tst_Measures::amountText_data()
{
    QTest::addColumn<QString>("amount");
    QTest::addColumn<QString>("measure");
    QTest::addColumn<QString>("expected");

    QTest::newRow("typed text kept") << "1.50" << "Ounce (Shot)" << "1.50 oz";
    QTest::newRow("exactly 1 is singular") << "1" << "Dash" << "1 dash";
    QTest::newRow("1.0 is singular") << "1.0" << "Jigger" << "1.0 jigger";
    QTest::newRow("1.01 is plural") << "1.01" << "Dash" << "1.01 dashes";
    QTest::newRow("0.25 is singular") << "0.25" << "Splash" << "0.25 splash";
    QTest::newRow("0 is singular") << "0" << "Wedge" << "0 wedge";
    QTest::newRow("plural") << "3" << "Sprig" << "3 sprigs";
    QTest::newRow("same word both ways") << "2" << "Teaspoon" << "2 tsp.";
    QTest::newRow("half gallon") << "2" << "½ Gal. (1.75 L)" << "2 ½ Gallons";
    QTest::newRow("liter") << "2" << "Liter" << "2 lt";
    QTest::newRow("cl, not in the list") << "4" << "cl" << "4 cl";
    QTest::newRow("fill with ignores the amount") << "2" << "Fill With" << "Fill With";
    QTest::newRow("top with, no amount") << "" << "Top With" << "Top With";
    QTest::newRow("unknown measure") << "2" << "Thimble" << "2 ";
    QTest::newRow("names are exact") << "2" << "ounce (shot)" << "2 ";
}

void tst_Measures::amountText()
{
    QFETCH(QString, amount);
    QFETCH(QString, measure);
    QFETCH(QString, expected);
    QCOMPARE(GetAmountText(amount, measure), expected);
}

void tst_Measures::metricAmountText_data()
{
    QTest::addColumn<QString>("amount");
    QTest::addColumn<QString>("measure");
    QTest::addColumn<QString>("expected");

    // The worked examples of the rule, with their trailing blanks.
    QTest::newRow("1 oz") << "1" << "Ounce (Shot)" << "3.0 cl ";
    QTest::newRow("1.5 oz") << "1.5" << "Ounce (Shot)" << "4.5 cl ";
    QTest::newRow("1 tsp") << "1" << "Teaspoon" << "5 ml ";
    QTest::newRow("1 tbs") << "1" << "Tablespoon" << "1.5 cl ";
    QTest::newRow("1 fifth") << "1" << "Fifth (750 ml)" << "75.0 cl ";
    QTest::newRow("1 gallon") << "1" << "Gallon" << "3.787 lt ";
    QTest::newRow("1 jigger") << "1" << "Jigger" << "4.5 cl jigger";
    QTest::newRow("2 dashes") << "2" << "Dash" << "2 ml dashes";
    QTest::newRow("3 sprigs") << "3" << "Sprig" << "3 ml sprigs";
    QTest::newRow("12 wedges") << "12" << "Wedge" << "1.2 cl wedges";
    QTest::newRow("1 liter") << "1" << "Liter" << "100.0 cl lt";
    QTest::newRow("2 liters") << "2" << "Liter" << "2.000 lt lt";

    // The borders between the three forms.
    QTest::newRow("10 ml stays ml") << "10" << "Dash" << "10 ml dashes";
    QTest::newRow("10.5 ml is cl") << "10.5" << "Dash" << "1.1 cl dashes";
    QTest::newRow("1000 ml stays cl") << "1000" << "Dash" << "100.0 cl dashes";
    QTest::newRow("1001 ml is lt") << "1001" << "Dash" << "1.001 lt dashes";

    // Halves go away from zero, decided on the seven digits of the single value: 0.35 oz is
    // 10.5 ml, and 1.05 cl (held as 1.04999995) shows as 1.1.
    QTest::newRow("2.5 ml") << "2.5" << "Dash" << "3 ml dashes";
    QTest::newRow("0.5 ml") << "0.5" << "Dash" << "1 ml dash";
    QTest::newRow("0.75 oz") << "0.75" << "Ounce (Shot)" << "2.3 cl ";
    QTest::newRow("0.35 oz") << "0.35" << "Ounce (Shot)" << "1.1 cl ";
    QTest::newRow("1.0005 lt") << "1.0005" << "Liter" << "1.001 lt lt";

    QTest::newRow("splash doubles") << "3.5" << "Splash" << "7 ml splashes";
    QTest::newRow("cup") << "1" << "Cup" << "23.6 cl ";
    QTest::newRow("half gallon counts 1894 ml") << "1" << "½ Gal. (1.75 L)" << "1.894 lt ";
    QTest::newRow("cl") << "2" << "cl" << "2.0 cl cl";
    QTest::newRow("ml") << "5" << "ml" << "5 ml ml";
    QTest::newRow("amount read as far as it is a number") << "2 oz" << "Ounce (Shot)" << "6.0 cl ";
    QTest::newRow("no number") << "abc" << "Ounce (Shot)" << "0 ml ";
    QTest::newRow("fill with") << "3" << "Fill With" << "Fill With";
    QTest::newRow("top with") << "" << "Top With" << "Top With";
    QTest::newRow("unknown measure") << "2" << "Thimble" << "0 ml ";
}

void tst_Measures::metricAmountText()
{
    QFETCH(QString, amount);
    QFETCH(QString, measure);
    QFETCH(QString, expected);
    QCOMPARE(GetMetricAmountText(amount, measure), expected);
}

void tst_Measures::ounces_data()
{
    QTest::addColumn<QString>("amount");
    QTest::addColumn<QString>("measure");
    QTest::addColumn<float>("expected");

    QTest::newRow("teaspoon") << "1" << "Teaspoon" << 0.167f;
    QTest::newRow("3 teaspoons") << "3" << "Teaspoon" << 0.501f;
    QTest::newRow("2 dashes") << "2" << "Dash" << 0.0625f;
    QTest::newRow("jiggers") << "1.5" << "Jigger" << 2.25f;
    QTest::newRow("fifth") << "1" << "Fifth (750 ml)" << 25.4f;
    QTest::newRow("liters") << "2" << "Liter" << 67.6f;
    QTest::newRow("half gallon is 64 oz") << "1" << "½ Gal. (1.75 L)" << 64.0f;
    QTest::newRow("a count") << "6" << "Sprig" << 6.0f;
    QTest::newRow("tenth of an ounce") << "0.1" << "Ounce (Shot)" << 0.1f;
    QTest::newRow("cl") << "2" << "cl" << 0.676f;
    QTest::newRow("ml") << "10" << "ml" << 0.338f;
    QTest::newRow("fill with") << "5" << "Fill With" << 0.0f;
    QTest::newRow("top with") << "" << "Top With" << 0.0f;
    QTest::newRow("unknown measure") << "2" << "Thimble" << 0.0f;
    QTest::newRow("empty amount") << "" << "Ounce (Shot)" << 0.0f;
}

void tst_Measures::ounces()
{
    QFETCH(QString, amount);
    QFETCH(QString, measure);
    QFETCH(float, expected);
    // Stored as it is computed, so compared to the last bit.
    const float actual = GetOunces(amount, measure);
    QVERIFY2(std::memcmp(&actual, &expected, sizeof actual) == 0,
             qPrintable(QStringLiteral("%1 != %2").arg(actual, 0, 'g', 9).arg(expected, 0, 'g', 9)));
}

void tst_Measures::editorListOffersNoMetricUnits()
{
    const QStringList names = EditorMeasureNames();
    QCOMPARE(names.size(), 20);
    QCOMPARE(names.first(), QStringLiteral("Dash"));
    QCOMPARE(names.indexOf(QStringLiteral("Liter")), 12);
    QCOMPARE(names.last(), QStringLiteral("Top With"));
    QVERIFY(!names.contains(QStringLiteral("cl")) && !names.contains(QStringLiteral("ml")));
    QVERIFY(FindMeasure(QStringLiteral("cl")) && FindMeasure(QStringLiteral("ml")));
}

void tst_Measures::conversionDialog_data()
{
    QTest::addColumn<double>("amount");
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");
    QTest::addColumn<QString>("expected"); // fifteen significant digits, as the dialog shows

    QTest::newRow("tsp to tbs") << 1.0 << "Teaspoon" << "Tablespoon" << "0.333333333333333";
    QTest::newRow("pint to ml uses the reference table")
        << 1.0 << "Pint" << "milliliter" << "473.372781065089";
    QTest::newRow("ounces to jiggers") << 3.0 << "Ounce" << "Jigger" << "2";
    QTest::newRow("dashes to ounces") << 32.0 << "Dash" << "Ounce" << "1";
    QTest::newRow("english fifth") << 1.0 << "English Fifth" << "Fifth (750 ml)" << "1.00787401574803";
    QTest::newRow("liter to cl") << 1.0 << "liter" << "centiliter" << "100";
    QTest::newRow("cup to splashes") << 1.0 << "Cup" << "Splash" << "128";
}

void tst_Measures::conversionDialog()
{
    QFETCH(double, amount);
    QFETCH(QString, from);
    QFETCH(QString, to);
    QFETCH(QString, expected);
    const auto &units = MetricConvertUnits();
    QCOMPARE(units.size(), std::size_t(15));
    auto indexOf = [&](const QString &name) {
        for (std::size_t i = 0; i < units.size(); ++i)
            if (units[i].name == name)
                return static_cast<int>(i);
        return -1;
    };
    QVERIFY(indexOf(from) >= 0 && indexOf(to) >= 0);
    QCOMPARE(QString::number(ConvertAmount(amount, indexOf(from), indexOf(to)), 'g', 15), expected);
}

QTEST_GUILESS_MAIN(tst_Measures)
#include "tst_measures.moc"
