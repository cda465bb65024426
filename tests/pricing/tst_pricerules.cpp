#include "pricing/PriceRules.h"

#include <QTest>

namespace {
Currency money(qint64 tenThousandths) { return Currency::fromTenThousandths(tenThousandths); }
} // namespace

class tst_PriceRules : public QObject {
    Q_OBJECT

private slots:
    void lineCost_data()
    {
        QTest::addColumn<qint64>("unitPrice"); // ten-thousandths
        QTest::addColumn<float>("ozPerUnit");
        QTest::addColumn<float>("measure");
        QTest::addColumn<qint64>("expected");

        QTest::newRow("two ounces of a fifth") << qint64(159900) << 25.4f << 2.0f << qint64(12591);
        QTest::newRow("bitters by the dash") << qint64(89900) << 4.0f << 0.0625f << qint64(1405);
        QTest::newRow("counted: six sprigs of a bunch of 20") << qint64(19900) << 20.0f << 6.0f << qint64(5970);
        // Ounces per unit are single precision: 6.8 is held as 6.80000019, which takes this cost
        // below the half (in double precision it would be 0.21875 and round up).
        QTest::newRow("single-precision ounces per unit") << qint64(11900) << 6.8f << 1.25f << qint64(2187);
        // A half ten-thousandth goes to even, as currency conversion does.
        QTest::newRow("half to even") << qint64(10000) << 32.0f << 1.0f << qint64(312);
        QTest::newRow("no ounces per unit") << qint64(159900) << 0.0f << 2.0f << qint64(0);
        QTest::newRow("no price") << qint64(0) << 25.4f << 2.0f << qint64(0);
        QTest::newRow("negative price") << qint64(-10000) << 25.4f << 2.0f << qint64(0);
        QTest::newRow("fill with has no ounces") << qint64(14900) << 33.8f << 0.0f << qint64(0);
        QTest::newRow("negative ounces per unit") << qint64(14900) << -33.8f << 1.0f << qint64(0);
    }

    void lineCost()
    {
        QFETCH(qint64, unitPrice);
        QFETCH(float, ozPerUnit);
        QFETCH(float, measure);
        QFETCH(qint64, expected);
        QCOMPARE(LineCost(money(unitPrice), ozPerUnit, measure).tenThousandths(), expected);
    }

    void roundPriceUp_data()
    {
        QTest::addColumn<qint64>("price");
        QTest::addColumn<int>("index");
        QTest::addColumn<qint64>("expected");

        QTest::newRow("0.25: 3.10 up") << qint64(31000) << 2 << qint64(32500);
        QTest::newRow("0.25: 3.25 stays") << qint64(32500) << 2 << qint64(32500);
        QTest::newRow("0.25: 3.26 up") << qint64(32600) << 2 << qint64(35000);
        QTest::newRow("1: 3.01 up") << qint64(30100) << 0 << qint64(40000);
        QTest::newRow("1: 3.00 stays") << qint64(30000) << 0 << qint64(30000);
        QTest::newRow("1: 0.0001 up") << qint64(1) << 0 << qint64(10000);
        QTest::newRow("0.5: a ten-thousandth above a step") << qint64(30001) << 1 << qint64(35000);
        QTest::newRow("0.5: 3.50 stays") << qint64(35000) << 1 << qint64(35000);
        QTest::newRow("0.1: 3.14 up") << qint64(31400) << 3 << qint64(32000);
        QTest::newRow("0.1: 3.20 stays") << qint64(32000) << 3 << qint64(32000);
        QTest::newRow("0.05: 3.01 up") << qint64(30100) << 4 << qint64(30500);
        QTest::newRow("0.05: 3.95 stays") << qint64(39500) << 4 << qint64(39500);
        QTest::newRow("0.05: 3.9999 up") << qint64(39999) << 4 << qint64(40000);
        QTest::newRow("0 stays") << qint64(0) << 2 << qint64(0);
        QTest::newRow("0.01 keeps all four decimals") << qint64(31416) << 5 << qint64(31416);
        QTest::newRow("no row") << qint64(31416) << -1 << qint64(31416);
        QTest::newRow("beyond the list") << qint64(31416) << 6 << qint64(31416);
    }

    void roundPriceUp()
    {
        QFETCH(qint64, price);
        QFETCH(int, index);
        QFETCH(qint64, expected);
        QCOMPARE(RoundPriceUp(money(price), index).tenThousandths(), expected);
    }

    void calculatePrice_data()
    {
        QTest::addColumn<QString>("method");
        QTest::addColumn<QString>("percent"); // as typed or stored
        QTest::addColumn<qint64>("cost");
        QTest::addColumn<qint64>("current");
        QTest::addColumn<qint64>("minimum"); // -1: none
        QTest::addColumn<int>("roundTo");
        QTest::addColumn<qint64>("expected"); // -1: no price, the arithmetic fails

        constexpr qint64 None = -1, Fails = -1;
        auto row = [](const char *name, const char *method, const char *percent, qint64 cost, qint64 current,
                      qint64 minimum, int roundTo, qint64 expected) {
            QTest::newRow(name) << QString::fromUtf8(method) << QString::fromUtf8(percent) << cost << current
                                << minimum << roundTo << expected;
        };
        // Money in ten-thousandths.
        row("100% markup on 1.25", "Cost", "100", 12500, 0, None, 5, 25000);
        row("cost percentage 25 on 1.25", "BCM", "25", 12500, 0, None, 5, 50000);
        row("markup held as currency first", "Cost", "8.25", 12345, 0, None, 5, 13363);
        row("stored percentage with a blank", "Cost", " 300", 15618, 0, None, 2, 62500);
        row("Cur works on the current price", "Cur", "50", 99900, 20000, None, 5, 30000);
        row("Cur decrease", "Cur", "-10", 0, 40000, None, 5, 36000);
        row("Cur below -100% floors at 0", "Cur", "-150", 0, 40000, None, 2, 0);
        row("zero cost, minimum", "Cost", "300", 0, 0, 20000, 2, 20000);
        row("minimum before rounding", "BCM", "20", 0, 0, 21000, 2, 22500);
        row("rounded price above the minimum", "Cost", "100", 10100, 0, 20000, 0, 30000);
        row("price above the minimum kept", "Cost", "100", 15000, 0, 20000, 5, 30000);
        row("unknown method is Cost", "", "100", 12500, 30000, None, 5, 25000);
        row("BCM with 0% fails", "BCM", "0", 12500, 0, None, 2, Fails);
        row("BCM with no percentage fails", "BCM", "None", 12500, 0, None, 2, Fails);
    }

    void calculatePrice()
    {
        QFETCH(QString, method);
        QFETCH(QString, percent);
        QFETCH(qint64, cost);
        QFETCH(qint64, current);
        QFETCH(qint64, minimum);
        QFETCH(int, roundTo);
        QFETCH(qint64, expected);

        PriceSettings s;
        s.method = method;
        s.fraction = PercentFraction(percent);
        if (minimum >= 0)
            s.minimum = money(minimum);
        s.roundTo = roundTo;
        const std::optional<Currency> price = CalculatePrice(s, money(cost), money(current));
        if (expected < 0) {
            QVERIFY(!price);
            return;
        }
        QVERIFY(price);
        QCOMPARE(price->tenThousandths(), expected);
    }
};

QTEST_GUILESS_MAIN(tst_PriceRules)
#include "tst_pricerules.moc"
