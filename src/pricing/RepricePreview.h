#pragma once

#include "base/Currency.h"
#include "pricing/PriceBatch.h"

#include <QString>
#include <optional>
#include <vector>

class DrinkStore;

// The worksheet's batch worked out without writing: each drink's cost as the recalculation
// would set it, and its price as the run would set it from that cost.
struct RepriceLine {
    qint32 id = 0;
    QString name;
    Currency oldCost, newCost, oldPrice, newPrice;
};

// Margin: the share of the price that is not cost, in percent; none for a price of 0.
std::optional<double> priceMargin(Currency cost, Currency price);

struct RepriceOutcome {
    std::vector<RepriceLine> changed; // the drinks whose price moves, in the run's order
    std::size_t examined = 0;         // the drinks the run reprices
    // Average margin over the examined drinks that have a price, before and after.
    std::optional<double> marginBefore, marginAfter;
};

// Works the run out from the store as it stands. Throws StoreError when the method's
// arithmetic fails, as the run itself does.
RepriceOutcome previewReprice(DrinkStore &store, const PriceForm &form);

// The run itself, as the worksheet makes it, in one transaction: the costs recalculated, then
// the prices. Returns what it changed.
RepriceOutcome applyReprice(DrinkStore &store, const PriceForm &form);
