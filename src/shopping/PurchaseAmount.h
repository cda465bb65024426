#pragma once

#include <QString>

// How much of an ingredient to buy: the summed ounces of a shopping list rounded up to whole
// units of the biggest unit of the family that the amount exceeds.
namespace PurchaseAmount {

// The unit families of the shopping list, as its options number them.
enum Family { Bar = 1, English = 2, Metric = 3 };

// The words of a family's closing sentence on the printed list: "Bar measurements." ...
QString familyMeasurementsText(int family);

} // namespace PurchaseAmount

// The quantity text of one ingredient (" 2 Fifths", " 17 Ounces", " 740 ml"), or "" when the
// amount is below the family's smallest unit. Sets the ounces to 0 once a unit is chosen.
// Single precision throughout, as the amounts are stored.
QString GetPurchaseAmount(float &ounces, int family);
