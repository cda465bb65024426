// The drink editor's cost and price: its lines' costs, the reset buttons, and the sentence that
// tells how prices are worked out.
#include "TestStore.h"
#include "editing/EditorLines.h"
#include "presentation/TextGridModel.h"
#include "pricing/PriceSettings.h"
#include "store/DrinkStore.h"

#include <QAbstractItemModelTester>
#include <QTest>

namespace {
QString money(qint64 tenThousandths) { return Currency::fromTenThousandths(tenThousandths).format(); }
} // namespace

class tst_DrinkPricing : public QObject {
    Q_OBJECT

private slots:
    void resetPrice_data();
    void resetPrice();
    void settingsSentence_data();
    void settingsSentence();
    void settingsReadFromStore();
    void priceLines_data();
    void priceLines();
    void refreshFollowsChangedIngredient();
    void resetCostSumsShownLines();
};

void tst_DrinkPricing::resetPrice_data()
{
    QTest::addColumn<QString>("method");
    QTest::addColumn<QString>("percent");
    QTest::addColumn<int>("roundTo");
    QTest::addColumn<QString>("minimum");
    QTest::addColumn<QString>("cost");
    QTest::addColumn<QString>("price");
    QTest::addColumn<bool>("answer"); // to the question of "Cur"
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("expected");

    const int P = DrinkPriceOutcome::Priced, D = DrinkPriceOutcome::Declined, F = DrinkPriceOutcome::Failed;
    // The steps themselves and the methods' arithmetic are the price rules' own cases; here only
    // how the editor's texts and stored settings reach them.
    QTest::newRow("300% on 1.03, quarter") << "Cost" << "300" << 2 << "" << money(10300) << "" << false << P
                                           << money(42500);
    QTest::newRow("minimum then rounding") << "BCM" << "25" << 2 << "2.10" << "0.25" << "" << false << P
                                           << money(22500);
    QTest::newRow("zero cost takes the minimum") << "Cost" << "300" << 5 << "2" << money(0) << "" << false << P
                                                 << money(20000);
    QTest::newRow("\"None\" minimum fails") << "Cost" << "300" << 2 << "None" << "1" << "" << false << F << "";
    QTest::newRow("\"None\" fails Cur before the question") << "Cur" << "10" << 2 << "None" << "1" << "$5.00"
                                                            << true << F << "";
    QTest::newRow("BCM with 0 percent fails") << "BCM" << "0" << 2 << "" << "1" << "" << false << F << "";
    QTest::newRow("cost that is no number") << "Cost" << "300" << 2 << "" << "abc" << "" << false << F << "";
    QTest::newRow("empty cost") << "Cost" << "300" << 2 << "" << "" << "" << false << F << "";
    QTest::newRow("Cur declined") << "Cur" << "10" << 2 << "" << "1" << "$5.00" << false << D << "";
    // No floor, minimum or rounding on the current price.
    QTest::newRow("Cur: no rounding, no minimum") << "Cur" << "10" << 2 << "9" << "1" << "$5.01" << true << P
                                                  << money(55110);
    QTest::newRow("Cur below -100% goes negative") << "Cur" << "-150" << 2 << "" << "1" << "$4.00" << true << P
                                                   << money(-20000);
    QTest::newRow("empty method is Cost") << "" << "100" << 5 << "" << "1.25" << "" << false << P << money(25000);
}

void tst_DrinkPricing::resetPrice()
{
    QFETCH(QString, method);
    QFETCH(QString, percent);
    QFETCH(int, roundTo);
    QFETCH(QString, minimum);
    QFETCH(QString, cost);
    QFETCH(QString, price);
    QFETCH(bool, answer);
    QFETCH(int, kind);
    QFETCH(QString, expected);
    StoredPriceSettings s{method, percent, false, qint16(roundTo), minimum};
    QString asked;
    const DrinkPriceOutcome out = ResetDrinkPrice(s, cost, price, [&](const QString &q) {
        asked = q;
        return answer;
    });
    QCOMPARE(int(out.kind), kind);
    if (kind == DrinkPriceOutcome::Priced)
        QCOMPARE(out.price.format(), expected);
    if (method == QLatin1String("Cur") && minimum != QLatin1String("None"))
        QCOMPARE(asked, QStringLiteral("The price is based on a markup from the current price.  Should the current "
                                       "price of ") + price + QStringLiteral(" be used?"));
    else
        QVERIFY(asked.isEmpty());
}

void tst_DrinkPricing::settingsSentence_data()
{
    QTest::addColumn<QString>("method");
    QTest::addColumn<int>("roundTo");
    QTest::addColumn<QString>("minimum");
    QTest::addColumn<QString>("expected");
    QTest::newRow("Cost, quarter, none")
        << "Cost" << 2 << "None"
        << "Drink Price Settings:\r\n\r\nThe Drink Price is being calculated based on a markup of 300% from the "
           "cost.  The price is being rounded to the nearest $0.25 with no minimum price.\r\n\r\nTo change the price "
           "calculation, click on the Price Settings button below.";
    QTest::newRow("BCM, missing step, minimum")
        << "BCM" << -1 << "2.5"
        << "Drink Price Settings:\r\n\r\nThe Drink Price is being calculated using the  Beverage Cost Method with a "
           "Cost Percentage of 300%.  The price is being rounded to the nearest $0.01 with a minimum price of 2.5."
           "\r\n\r\nTo change the price calculation, click on the Price Settings button below.";
    QTest::newRow("Cur") << "Cur" << 0 << "None"
                         << "The Drink Price is not being calculated because Markup from Current Price is selected.  "
                            "Click on the Price Settings button below to change the rules for calculating the drink "
                            "price.";
}

void tst_DrinkPricing::settingsSentence()
{
    QFETCH(QString, method);
    QFETCH(int, roundTo);
    QFETCH(QString, minimum);
    QFETCH(QString, expected);
    QCOMPARE(PriceSettingsText({method, QStringLiteral("300"), false, qint16(roundTo), minimum}), expected);
}

void tst_DrinkPricing::settingsReadFromStore()
{
    TestStore t(QStringLiteral("INSERT INTO Constants (Var, Val) VALUES ('MarkupOpt', 'BCM'), ('MarkupPct', '22'), "
                               "('ApplyZero', 'True'), ('RoundTo', ' 3'), ('MinPrice', 'None');"));
    const StoredPriceSettings s = LoadPriceSettings(t.store());
    QCOMPARE(s.markupOpt, QStringLiteral("BCM"));
    QCOMPARE(s.markupPct, QStringLiteral("22"));
    QVERIFY(s.applyZero);
    QCOMPARE(int(s.roundTo), 3);
    QCOMPARE(s.minPrice, QStringLiteral("None"));
    TestStore empty;
    QCOMPARE(int(LoadPriceSettings(empty.store()).roundTo), -1);
}

void tst_DrinkPricing::priceLines_data()
{
    QTest::addColumn<QStringList>("line"); // unit price, oz per unit, measure
    QTest::addColumn<QString>("costField");
    QTest::addColumn<QStringList>("expected"); // unit $, oz., $/oz., cost, cost %
    QTest::newRow("two ounces of a fifth") << QStringList{"15.99", "25.4", "2"} << "$2.50"
                                           << QStringList{"$15.99", "2", "$0.63", "$1.26", "50.36%"};
    QTest::newRow("no cost field: 0%") << QStringList{"15.99", "25.4", "2"} << ""
                                       << QStringList{"$15.99", "2", "$0.63", "$1.26", "0.00%"};
    QTest::newRow("no size") << QStringList{"3.99", "0", "1"} << "$2.50"
                             << QStringList{"$3.99", "1", "$0.00", "$0.00", "0.00%"};
    QTest::newRow("new ingredient") << QStringList{"", "", "1.5"} << "$2.50"
                                    << QStringList{"$0.00", "1.5", "$0.00", "$0.00", "0.00%"};
}

void tst_DrinkPricing::priceLines()
{
    QFETCH(QStringList, line);
    QFETCH(QString, costField);
    QFETCH(QStringList, expected);
    TextGridModel lines(IngredientLineHeaders()), prices(PriceLineHeaders());
    QAbstractItemModelTester tester(&prices);
    lines.appendRow({"5", "2 oz", "6.0 cl ", "Gin", "0", line[0], line[1], "Fifth", line[2]});
    QVERIFY(RebuildPriceLines(lines, prices, costField));
    QCOMPARE(prices.rowCount(), 1);
    QCOMPARE(prices.row(0).mid(PriceCol::UnitPrice), expected);
    QCOMPARE(lines.cell(0, IngCol::Cost), expected[3]);
    QVERIFY(!RebuildPriceLines(lines, prices, QStringLiteral("two dollars")));
}

void tst_DrinkPricing::refreshFollowsChangedIngredient()
{
    // A renamed ingredient's new price reaching an open editor is the ingredient grid window's
    // test; here a line added while its ingredient had no price, and a new ingredient's line.
    TestStore t(QStringLiteral("INSERT INTO Ingredients (id, Ingredient, UnitType, ozperunit, unitprice) VALUES "
                               "(1, 'Gin', 'Fifth', 25.4, 0);"));
    DrinkStore &s = t.store();
    TextGridModel lines(IngredientLineHeaders());
    lines.appendRow(StoredIngredientLine(*FindIngredientByName(s, QStringLiteral("GIN")), QStringLiteral("2"),
                                         QStringLiteral("Ounce (Shot)")));
    lines.appendRow(NewIngredientLine(QStringLiteral("Tonic"), QStringLiteral("4"), QStringLiteral("Ounce (Shot)")));
    QCOMPARE(lines.cell(0, IngCol::Ingredient), QStringLiteral("Gin")); // the store's form of the name
    QCOMPARE(lines.cell(0, IngCol::Cost), QStringLiteral("0"));
    s.execute(QStringLiteral("UPDATE Ingredients SET unitprice = 31.98 WHERE id = 1"));
    RefreshIngredientColumns(s, lines);
    QCOMPARE(lines.cell(1, IngCol::Ingredient), QStringLiteral("Tonic"));
    TextGridModel prices(PriceLineHeaders());
    QVERIFY(RebuildPriceLines(lines, prices, QString()));
    QCOMPARE(lines.cell(0, IngCol::Cost), money(25181));
    QCOMPARE(lines.cell(1, IngCol::Cost), money(0));
}

void tst_DrinkPricing::resetCostSumsShownLines()
{
    // The sum is of the costs as shown, in whole cents: $1.26 + $0.14 + $0.00.
    QCOMPARE(SumLineCosts({money(12591), money(1405), money(0)}), Currency::fromTenThousandths(14000));
    QVERIFY(!SumLineCosts({money(1), QStringLiteral("n/a")}));
    QCOMPARE(SumLineCosts({}), Currency());
}

QTEST_GUILESS_MAIN(tst_DrinkPricing)
#include "tst_drinkpricing.moc"
