#pragma once

#include "base/Currency.h"
#include "pricing/PriceRules.h"
#include "pricing/PriceSettings.h"

#include <QString>
#include <functional>
#include <optional>
#include <vector>

class DrinkStore;

// The worksheet's batch: every drink's cost from its lines, then a new price for every drink
// whose price is not locked, written in one transaction that a cancel rolls back whole.

// Sets Drinks.Cost from the saved query DrinkCost, in its own transaction. Drinks the query
// does not return (no lines) keep their cost. Returns the number of drinks given a cost.
int RecalculateDrinkCosts(DrinkStore &store);

// What the worksheet's controls say, as typed.
struct PriceForm {
    QString method = MarkupFromCost; // "Cost", "Cur" or "BCM"
    QString markupPct = QStringLiteral("0");
    QString increasePct = QStringLiteral("0");
    QString bcmPct;
    bool forceMinimum = false;
    QString minPrice;
    bool zeroOnly = false;
    int roundTo = 0; // list index of the rounding step, -1 when nothing is selected
};

// The first message the form's values earn, or an empty text when they pass. The cost
// percentage is checked only when the settings are stored by OK (forOk), not by the run.
QString PriceFormProblem(const PriceForm &form, bool forOk);

// The form as the five settings rows hold it, and back.
StoredPriceSettings StoredFromForm(const PriceForm &form);
// Fills the form from the rows that exist; missing rows leave its values as they stand.
void ApplyStoredToForm(DrinkStore &store, PriceForm &form);
// Writes the five rows, adding those that are missing.
void SavePriceSettings(DrinkStore &store, const StoredPriceSettings &settings);

// The drinks a run reprices: unlocked ones, or with zeroOnly the unlocked ones priced at 0.
struct BatchDrink {
    qint32 id = 0;
    Currency cost;  // 0 when the store holds none
    Currency price; // 0 when the store holds none
};
std::vector<BatchDrink> DrinksToReprice(DrinkStore &store, bool zeroOnly);

// The rule the run applies to every drink.
PriceSettings BatchPriceSettings(const PriceForm &form);

// Reprices the drinks in one transaction. progress(done, total) is called after each drink;
// when it returns false the run stops and every price it wrote is rolled back. Returns true
// when the run committed. A method whose arithmetic fails (a cost percentage of 0) throws a
// StoreError and leaves no price changed.
bool RepriceDrinks(DrinkStore &store, const std::vector<BatchDrink> &drinks, const PriceSettings &settings,
                   const std::function<bool(std::size_t done, std::size_t total)> &progress);

// The four averages of the worksheet; 0 where there is nothing to average.
struct PriceStatistics {
    Currency costPerOzLiquor;
    Currency costPerOzOther;
    Currency drinkCost;
    Currency drinkPrice;
};
PriceStatistics ShowStatistics(DrinkStore &store);
// The statements behind the averages, in the order of the struct.
QStringList PriceStatisticsQueries();
