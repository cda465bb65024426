#pragma once

#include "base/Currency.h"

// Cost of one recipe line: unitprice / ozperunit * measure, worked in double precision and
// then held as currency. A line whose price, ounces per unit or measure is not above 0 costs
// nothing ("Fill With", "Top With" and ingredients without a price among them). The store's
// DrinkCost query sums this same function, so the editor and the batch never disagree.
Currency LineCost(Currency unitPrice, float ozPerUnit, float measure);
