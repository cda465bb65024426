#pragma once

#include "base/Currency.h"
#include "editing/StarterBook.h"
#include "pricing/PriceRules.h"

#include <QString>
#include <QStringList>

// Puts a starter book into a new store. Every recipe line gets its three values from the
// measure functions, exactly as the drink editor would have stored it; each drink's cost is
// the sum of its line costs, and its price comes from the book's price settings.
namespace StarterBookWriter {

// Writes every record of the book into the store file at storePath, which holds the schema
// and no rows, in one transaction: on a failure nothing is written. Throws StoreError.
void write(const StarterBook &book, const QString &storePath);

// The book's Constants rows as the batch repricing reads them: "None" is no minimum.
PriceSettings priceSettings(const StarterBook &book);

// The sum of the drink's line costs, each held as currency.
Currency drinkCost(const StarterBook &book, const BookDrink &drink);

// One message for each drink whose stored Cost differs from what the DrinkCost query
// computes from its lines; empty when they all agree.
QStringList compareWithDrinkCostQuery(const QString &storePath);

} // namespace StarterBookWriter
