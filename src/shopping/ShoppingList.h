#pragma once

#include <QString>
#include <functional>
#include <optional>
#include <vector>

class DrinkStore;

// The shopping list for a set of drinks: the drinks go into tmp_ShopList, ShoppingListQuery
// sums the ounces of their ingredients, and each sum times the number of drinks becomes a
// purchase quantity.
namespace ShoppingList {

struct Row {
    QString ingredient;
    QString amount;
};

// The number of each drink as typed: its leading number rounded to a whole number, halves to
// even ("2.5" is 2, "3.5" is 4). Nothing when it is not above 0 or too large to count.
std::optional<int> numberOfDrinks(const QString &typed);

// Stage texts shown in the list while it is made.
inline constexpr const char *kStoringDrinks = "Generating list of Drinks...";
inline constexpr const char *kSumming = "Generating shopping list...";
using Stage = std::function<void(const QString &text)>;

// The sums of ShoppingListQuery for the drinks in tmp_ShopList, as the list reads them.
QString sumsStatement();

// Replaces the rows of tmp_ShopList by the drinks (a drink twice counts twice), then reads the
// sums: one row per ingredient in the query's order, amounts above 0 only. Store failures are
// thrown as StoreError, with tmp_ShopList as it was.
std::vector<Row> Generate(DrinkStore &store, const std::vector<qint32> &drinkIds, int numDrinks, int family,
                          const Stage &stage = {});

} // namespace ShoppingList
