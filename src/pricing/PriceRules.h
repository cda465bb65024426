#pragma once

#include "base/Currency.h"
#include "base/LineCost.h"

#include <QString>
#include <optional>

// How a drink gets its cost and price: the line cost, the markup methods and the rounding
// steps. The drink editor and the batch in the prices dialog both take their numbers from
// here; they differ only in where the settings come from and in what they do with "Cur".

// The rounding steps of the price settings, in list order: 1, 0.5, 0.25, 0.1, 0.05, and 0.01
// for "no rounding". Any index beyond the list also means no rounding.
inline constexpr int RoundingStepCount = 6;
// The step that an index stands for, as shown to the user (0.01 where nothing is rounded).
Currency RoundingStep(int index);

// Rounds a price up to the next step of the index's list entry; a price that already sits on
// a step stays. Indexes other than 0 to 4 leave the price as it is.
Currency RoundPriceUp(Currency price, int index);

// The markup methods, as stored in Constants.MarkupOpt.
inline const QString MarkupFromCost = QStringLiteral("Cost");
inline const QString MarkupFromCurrent = QStringLiteral("Cur");
inline const QString BeverageCostMethod = QStringLiteral("BCM");

// The bare result of a method, before floor, minimum and rounding. fraction is the percentage
// divided by 100. "Cost": cost plus the markup; "Cur": the current price plus the change
// (fraction may be negative); "BCM": cost divided by the fraction. Any other method text is
// taken as "Cost". Nothing when the arithmetic fails (BCM with a fraction of 0, a result
// beyond the range of currency).
std::optional<Currency> PriceByMethod(const QString &method, Currency cost, Currency currentPrice,
                                      float fraction);

struct PriceSettings {
    QString method;                  // "Cost", "Cur" or "BCM"
    float fraction = 0.0f;           // the percentage divided by 100
    std::optional<Currency> minimum; // no minimum when empty
    int roundTo = -1;                // index of the rounding step
};

// A drink's price by the settings: the method's result, raised to 0 when below it, raised to
// the minimum when below that, then rounded up. So the minimum comes before the rounding, and
// a rounded price may stand above the minimum but never below it. Nothing when the method's
// arithmetic fails.
std::optional<Currency> CalculatePrice(const PriceSettings &settings, Currency cost, Currency currentPrice);

// The percentage held as a single-precision fraction: the leading number of the typed or
// stored text, divided by 100.
float PercentFraction(const QString &percentText);
