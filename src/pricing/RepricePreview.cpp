#include "pricing/RepricePreview.h"

#include "store/DrinkStore.h"
#include "store/StoreError.h"

#include <QHash>
#include <QSqlQuery>

std::optional<double> priceMargin(Currency cost, Currency price)
{
    if (price == Currency())
        return std::nullopt;
    return (price.toDouble() - cost.toDouble()) / price.toDouble() * 100.0;
}

namespace {

struct Average {
    double sum = 0;
    int count = 0;
    void add(std::optional<double> v)
    {
        if (v)
            sum += *v, ++count;
    }
    std::optional<double> value() const { return count ? std::optional<double>(sum / count) : std::nullopt; }
};

} // namespace

RepriceOutcome previewReprice(DrinkStore &store, const PriceForm &form)
{
    // The costs the recalculation would write: drinks without lines keep theirs.
    QHash<qint32, Currency> costs;
    {
        QSqlQuery q = store.prepare(QStringLiteral("SELECT DrinkID, Cost FROM DrinkCost"));
        q.setForwardOnly(true);
        store.exec(q);
        while (q.next())
            costs.insert(q.value(0).toInt(), Currency::fromVariant(q.value(1)));
    }
    QHash<qint32, QString> names;
    {
        QSqlQuery q = store.prepare(QStringLiteral("SELECT id, Name FROM Drinks"));
        q.setForwardOnly(true);
        store.exec(q);
        while (q.next())
            names.insert(q.value(0).toInt(), q.value(1).toString());
    }
    const PriceSettings settings = BatchPriceSettings(form);
    RepriceOutcome out;
    Average before, after;
    for (const BatchDrink &d : DrinksToReprice(store, form.zeroOnly)) {
        const Currency cost = costs.value(d.id, d.cost);
        const std::optional<Currency> price = CalculatePrice(settings, cost, d.price);
        if (!price)
            throw StoreError(QStringLiteral("Division by zero"));
        ++out.examined;
        before.add(priceMargin(d.cost, d.price));
        after.add(priceMargin(cost, *price));
        if (*price != d.price)
            out.changed.push_back({d.id, names.value(d.id), d.cost, cost, d.price, *price});
    }
    out.marginBefore = before.value();
    out.marginAfter = after.value();
    return out;
}

RepriceOutcome applyReprice(DrinkStore &store, const PriceForm &form)
{
    ScopedTransaction tx(store);
    RepriceOutcome out = previewReprice(store, form);
    RecalculateDrinkCosts(store);
    RepriceDrinks(store, DrinksToReprice(store, form.zeroOnly), BatchPriceSettings(form), {});
    tx.commit();
    return out;
}
