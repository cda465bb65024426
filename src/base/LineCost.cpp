#include "base/LineCost.h"

#include <cmath>

Currency LineCost(Currency unitPrice, float ozPerUnit, float measure)
{
    if (ozPerUnit <= 0.0f || unitPrice <= Currency() || measure <= 0.0f)
        return Currency();
    const double cost = unitPrice.toDouble() / static_cast<double>(ozPerUnit) * static_cast<double>(measure);
    // Beyond the range of currency the old runtime stopped with an overflow; nothing is owed.
    constexpr double Limit = 922337203685477.5807;
    if (!std::isfinite(cost) || std::fabs(cost) > Limit)
        return Currency();
    return Currency::fromDouble(cost);
}
