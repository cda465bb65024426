// The worksheet's batch on a small store: costs from the lines, each method over locked,
// zero-priced and unpriced drinks, cancel, the settings rows, the form's checks and the averages.
#include "TestStore.h"
#include "pricing/PriceBatch.h"
#include "store/DrinkStore.h"
#include "store/StoreError.h"

#include <QTest>

namespace {
// Gin is liquor at 0.80 an ounce, lime juice 0.50, water free. A: 2 oz gin and 1 oz lime
// (2.10), a stale cost; B: 1 oz gin, priced 0, no cost; C: no lines, no price; D: locked.
const QString Rows = QStringLiteral(
    "INSERT INTO Ingredients (id, Ingredient, ozperunit, unitprice, Type) VALUES"
    " (1, 'Gin', 25, 20, 1), (2, 'Lime \"juice\"', 1, 0.5, 5), (3, 'Water', 1, 0, 6);"
    "INSERT INTO Drinks (id, Name, Price, Cost, LockPrice) VALUES"
    " (1, 'A', 5, 0, 0), (2, 'B', 0, NULL, 0), (3, 'C', NULL, NULL, 0), (4, 'D', 8, 1, -1);"
    "INSERT INTO DrinkRel (DrinkID, IngID, seq, measure) VALUES"
    " (1, 1, 1, 2), (1, 2, 2, 1), (1, 3, 3, 4), (2, 1, 1, 1), (4, 1, 1, 1);");

QString column(DrinkStore &store, const char *field)
{
    QStringList out;
    QSqlQuery q = store.select(QStringLiteral("SELECT %1 FROM Drinks ORDER BY id").arg(QLatin1String(field)));
    while (q.next())
        out << (q.value(0).isNull() ? QStringLiteral("null") : Currency::fromVariant(q.value(0)).toSqlText());
    return out.join(u' ');
}
} // namespace

class tst_PriceBatch : public QObject {
    Q_OBJECT

private slots:
    void repriceByMethod_data();
    void repriceByMethod();
    void cancelKeepsEveryPrice();
    void zeroCostPercentFailsWhole();
    void settingsRows_data();
    void settingsRows();
    void formProblem_data();
    void formProblem();
    void statistics();
};

void tst_PriceBatch::repriceByMethod_data()
{
    QTest::addColumn<QString>("method");
    QTest::addColumn<QString>("percent");
    QTest::addColumn<int>("roundTo");
    QTest::addColumn<QString>("minimum"); // empty: not forced
    QTest::addColumn<bool>("zeroOnly");
    QTest::addColumn<QString>("prices"); // A B C D after the run

    QTest::newRow("cost 100%, no rounding") << "Cost" << "100" << 5 << "" << false << "4.2 1.6 0 8";
    QTest::newRow("minimum before the quarter") << "Cost" << "100" << 2 << "2" << false << "4.25 2 2 8";
    QTest::newRow("beverage cost 25%, half") << "BCM" << "25" << 1 << "" << false << "8.5 3.5 0 8";
    QTest::newRow("current price +10%") << "Cur" << "10" << 5 << "" << false << "5.5 0 0 8";
    QTest::newRow("current price -150% floors at 0") << "Cur" << "-150" << 0 << "" << false << "0 0 0 8";
    QTest::newRow("nothing selected: no rounding") << "Cost" << "33.3" << -1 << "" << false << "2.7993 1.0664 0 8";
    QTest::newRow("zero-priced only") << "Cost" << "100" << 5 << "" << true << "5 1.6 null 8";
}

void tst_PriceBatch::repriceByMethod()
{
    QFETCH(QString, method);
    QFETCH(QString, percent);
    QFETCH(int, roundTo);
    QFETCH(QString, minimum);
    QFETCH(bool, zeroOnly);
    QFETCH(QString, prices);
    TestStore ts(Rows);
    QCOMPARE(RecalculateDrinkCosts(ts.store()), 3);
    // A drink without lines keeps its cost; a locked one is costed all the same.
    QCOMPARE(column(ts.store(), "Cost"), QStringLiteral("2.1 0.8 null 0.8"));

    PriceForm form;
    form.method = method;
    (method == "Cost" ? form.markupPct : method == "BCM" ? form.bcmPct : form.increasePct) = percent;
    form.forceMinimum = !minimum.isEmpty();
    form.minPrice = minimum;
    form.zeroOnly = zeroOnly;
    form.roundTo = roundTo;
    std::size_t last = 0;
    const std::vector<BatchDrink> drinks = DrinksToReprice(ts.store(), zeroOnly);
    QVERIFY(RepriceDrinks(ts.store(), drinks, BatchPriceSettings(form), [&](std::size_t done, std::size_t total) {
        last = done;
        return total == drinks.size();
    }));
    QCOMPARE(last, drinks.size());
    QCOMPARE(column(ts.store(), "Price"), prices);
}

void tst_PriceBatch::cancelKeepsEveryPrice()
{
    TestStore ts(Rows);
    RecalculateDrinkCosts(ts.store());
    PriceForm form;
    form.markupPct = QStringLiteral("300");
    const QString before = column(ts.store(), "Price");
    QVERIFY(!RepriceDrinks(ts.store(), DrinksToReprice(ts.store(), false), BatchPriceSettings(form),
                           [](std::size_t done, std::size_t) { return done < 2; }));
    QVERIFY(!ts.store().inTransaction());
    QCOMPARE(column(ts.store(), "Price"), before);
    QCOMPARE(column(ts.store(), "Cost"), QStringLiteral("2.1 0.8 null 0.8"));
}

void tst_PriceBatch::zeroCostPercentFailsWhole()
{
    TestStore ts(Rows);
    PriceForm form;
    form.method = BeverageCostMethod;
    form.bcmPct = QStringLiteral("0");
    QVERIFY(PriceFormProblem(form, false).isEmpty()); // the run does not check it
    const QString before = column(ts.store(), "Price");
    QVERIFY_THROWS_EXCEPTION(StoreError, RepriceDrinks(ts.store(), DrinksToReprice(ts.store(), false),
                                                       BatchPriceSettings(form), {}));
    QVERIFY(!ts.store().inTransaction());
    QCOMPARE(column(ts.store(), "Price"), before);
}

void tst_PriceBatch::settingsRows_data()
{
    QTest::addColumn<QString>("method");
    QTest::addColumn<int>("roundTo");
    QTest::addColumn<bool>("forceMinimum");
    QTest::addColumn<QString>("rows"); // Var=Val in key order

    QTest::newRow("cost, quarter, minimum")
        << "Cost" << 2 << true << "ApplyZero=True|MarkupOpt=Cost|MarkupPct=m|MinPrice=1.5|RoundTo= 2";
    QTest::newRow("beverage cost, none selected")
        << "BCM" << -1 << false << "ApplyZero=True|MarkupOpt=BCM|MarkupPct=b|MinPrice=None|RoundTo=-1";
    QTest::newRow("current price") << "Cur" << 0 << false
                                   << "ApplyZero=True|MarkupOpt=Cur|MarkupPct=i|MinPrice=None|RoundTo= 0";
}

void tst_PriceBatch::settingsRows()
{
    QFETCH(QString, method);
    QFETCH(int, roundTo);
    QFETCH(bool, forceMinimum);
    QFETCH(QString, rows);
    // One row is there already and is changed; the others are added.
    TestStore ts(QStringLiteral("INSERT INTO Constants VALUES ('MarkupOpt', 'old');"));
    PriceForm form{method, "m", "i", "b", forceMinimum, "1.5", true, roundTo};
    SavePriceSettings(ts.store(), StoredFromForm(form));
    QStringList stored;
    QSqlQuery q = ts.store().select(QStringLiteral("SELECT Var, Val FROM Constants ORDER BY Var"));
    while (q.next())
        stored << q.value(0).toString() + u'=' + q.value(1).toString();
    QCOMPARE(stored.join(u'|'), rows);

    PriceForm back;
    ApplyStoredToForm(ts.store(), back);
    QCOMPARE(back.method, method);
    QCOMPARE(StoredFromForm(back).markupPct, StoredFromForm(form).markupPct);
    QCOMPARE(back.roundTo, roundTo);
    QCOMPARE(back.forceMinimum, forceMinimum);
    QVERIFY(back.zeroOnly);
}

void tst_PriceBatch::formProblem_data()
{
    QTest::addColumn<QString>("method");
    QTest::addColumn<QString>("percent");
    QTest::addColumn<QString>("minimum"); // empty: not forced
    QTest::addColumn<bool>("forOk");
    QTest::addColumn<QString>("message");

    const QString badMin = "The minimum price is not valid.  You do not need to put a currency symbol in the price field.";
    QTest::newRow("markup no number") << "Cost" << "ten" << "x" << true << "The markup precentage is not a valid number";
    QTest::newRow("markup below 0")
        << "Cost" << "-1" << "" << false << "The markup percentage must be greater than or equal to zero.";
    QTest::newRow("increase no number") << "Cur" << "" << "" << false << "The precent increase is not a valid number";
    QTest::newRow("negative increase passes") << "Cur" << "-20" << "" << true << "";
    QTest::newRow("cost percent no number") << "BCM" << "a" << "" << true << "The cost precentage is not a valid number";
    QTest::newRow("cost percent 0") << "BCM" << "0" << "" << true << "The cost percentage must be greater than zero.";
    QTest::newRow("cost percent 100 for OK")
        << "BCM" << "100" << "" << true << "The cost percentage must be less than or equal to 99%.";
    QTest::newRow("cost percent 100 for the run") << "BCM" << "100" << "" << false << "";
    QTest::newRow("cost percent 99") << "BCM" << "99" << "" << true << "";
    QTest::newRow("minimum no number") << "Cost" << "10" << "$" << false << badMin;
    QTest::newRow("minimum in currency format") << "Cost" << "10" << "$1.50" << false << "";
    QTest::newRow("minimum below 0")
        << "BCM" << "x" << "-0.01" << false << "The minimum price must be greater than or equal to zero.";
}

void tst_PriceBatch::formProblem()
{
    QFETCH(QString, method);
    QFETCH(QString, percent);
    QFETCH(QString, minimum);
    QFETCH(bool, forOk);
    QFETCH(QString, message);
    PriceForm form{method, percent, percent, percent, !minimum.isEmpty(), minimum, false, 0};
    QCOMPARE(PriceFormProblem(form, forOk), message);
}

void tst_PriceBatch::statistics()
{
    TestStore empty;
    const PriceStatistics none = ShowStatistics(empty.store());
    QCOMPARE(none.costPerOzLiquor, Currency());
    QCOMPARE(none.drinkPrice, Currency());

    TestStore ts(Rows);
    RecalculateDrinkCosts(ts.store());
    const PriceStatistics s = ShowStatistics(ts.store());
    QCOMPARE(s.costPerOzLiquor.toSqlText(), QStringLiteral("0.8"));
    QCOMPARE(s.costPerOzOther.toSqlText(), QStringLiteral("0.5")); // free water is left out
    QCOMPARE(s.drinkCost.toSqlText(), QStringLiteral("1.2333"));
    QCOMPARE(s.drinkPrice.toSqlText(), QStringLiteral("6.5")); // 5 and 8, not divided as whole numbers
}

QTEST_GUILESS_MAIN(tst_PriceBatch)
#include "tst_pricebatch.moc"
