#include "pricing/PriceRules.h"

#include "base/VbConvert.h"

#include <array>
#include <cmath>
#include <cstdint>

namespace {

constexpr std::int64_t Unit = 10000; // ten-thousandths in one whole currency unit

// k of each rounding step: the price is rounded to multiples of 1/k.
constexpr std::array<int, 5> StepDivisors = {1, 2, 4, 10, 20};

// A double result held as currency; nothing when it is no number or beyond the range of
// currency, where the old runtime stopped with an overflow.
std::optional<Currency> toCurrency(double value)
{
    constexpr double Limit = 922337203685477.5807;
    if (!std::isfinite(value) || std::fabs(value) > Limit)
        return std::nullopt;
    return Currency::fromDouble(value);
}

// Whole units of a count of ten-thousandths, toward minus infinity.
std::int64_t floorUnits(std::int64_t tenThousandths)
{
    std::int64_t q = tenThousandths / Unit;
    if (tenThousandths % Unit != 0 && tenThousandths < 0)
        --q;
    return q;
}

} // namespace

Currency RoundingStep(int index)
{
    if (index >= 0 && index < static_cast<int>(StepDivisors.size()))
        return Currency::fromTenThousandths(Unit / StepDivisors[index]);
    return Currency::fromTenThousandths(Unit / 100);
}

Currency RoundPriceUp(Currency price, int index)
{
    const std::int64_t t = price.tenThousandths();
    if (index == 0) {
        const std::int64_t whole = floorUnits(t);
        if (whole * Unit == t)
            return price;
        return Currency::fromTenThousandths((whole + 1) * Unit);
    }
    if (index < 1 || index >= static_cast<int>(StepDivisors.size()))
        return price;

    // The truncation is exact on the currency value; the comparison and the new price are
    // worked in double precision, so a price with any digit below the step rises by up to a
    // full step.
    const int k = StepDivisors[index];
    std::int64_t scaled = 0;
    if (__builtin_mul_overflow(t, k, &scaled))
        return price; // beyond any price; the old runtime stopped with an overflow here
    const double a = static_cast<double>(floorUnits(scaled)) / k;
    const double b = static_cast<double>(scaled) / static_cast<double>(Unit) / k;
    if (a == b)
        return price;
    return toCurrency(a + 1.0 / k).value_or(price);
}

std::optional<Currency> PriceByMethod(const QString &method, Currency cost, Currency currentPrice,
                                      float fraction)
{
    const double p = static_cast<double>(fraction);
    if (method == BeverageCostMethod) {
        if (p == 0.0)
            return std::nullopt;
        return toCurrency(cost.toDouble() / p);
    }
    // The markup is held as currency first, so the addition itself is exact.
    const Currency base = method == MarkupFromCurrent ? currentPrice : cost;
    const std::optional<Currency> change = toCurrency(base.toDouble() * p);
    if (!change)
        return std::nullopt;
    return base + *change;
}

std::optional<Currency> CalculatePrice(const PriceSettings &settings, Currency cost, Currency currentPrice)
{
    std::optional<Currency> price = PriceByMethod(settings.method, cost, currentPrice, settings.fraction);
    if (!price)
        return std::nullopt;
    if (*price < Currency())
        price = Currency();
    if (settings.minimum && *price < *settings.minimum)
        price = *settings.minimum;
    return RoundPriceUp(*price, settings.roundTo);
}

float PercentFraction(const QString &percentText)
{
    return static_cast<float>(VbConvert::Val(percentText) / 100.0);
}
