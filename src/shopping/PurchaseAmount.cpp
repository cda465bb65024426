#include "shopping/PurchaseAmount.h"

#include <cfenv>
#include <cmath>

namespace {

// One row of a family: the amount must be strictly above the limit.
struct Unit {
    float limit;
    bool rounded; // the last row of a family rounds; the others take the whole part plus one
    float per;    // ounces per unit; a rounded row with per <= 0 multiplies instead
    const char *singular;
    const char *plural;
};

constexpr Unit kBar[] = {
    {25.6f, false, 25.6f, " Fifth", " Fifths"},
    {16.0f, false, 16.0f, " Pint", " Pints"},
    {1.0f, false, 1.0f, " Ounce", " Ounces"},
    {0.03125f, true, 0.03125f, " Dash", " Dashes"},
};
constexpr Unit kEnglish[] = {
    {128.0f, false, 128.0f, " Gallon", " Gallons"}, {32.0f, false, 32.0f, " Quart", " Quarts"},
    {16.0f, false, 16.0f, " Pint", " Pints"},       {8.0f, false, 8.0f, " Cup", " Cups"},
    {1.0f, false, 1.0f, " Ounce", " Ounces"},       {0.5f, false, 0.5f, " Tbsp.", " Tbsp."},
    {0.125f, true, 0.125f, " Tsp.", " Tsp."},
};
constexpr Unit kMetric[] = {
    {33.8f, false, 33.8f, " Liter", " Liters"},
    {-INFINITY, true, 0.0f, " ml", " ml"},
};
constexpr float kMlPerOunce = 29.6f;

// Halves to the even number, whatever rounding mode the caller left behind.
float roundHalfEven(float value)
{
    const int mode = std::fegetround();
    std::fesetround(FE_TONEAREST);
    const float r = std::nearbyint(value);
    std::fesetround(mode);
    return r;
}

// A count as the standard number-to-string conversion writes a single-precision number: a
// blank for the sign, whole numbers without a point, seven significant digits at most.
QString countText(float count)
{
    QString digits;
    if (std::fabs(count) < 1e7f) {
        digits = QString::number(qint64(count));
    } else {
        digits = QString::number(double(count), 'E', 6);
        // "1.000000E+07" -> "1E+07": trailing zeros of the mantissa go, the exponent keeps two digits.
        const qsizetype e = digits.indexOf(u'E');
        QString mantissa = digits.left(e);
        while (mantissa.endsWith(u'0'))
            mantissa.chop(1);
        if (mantissa.endsWith(u'.'))
            mantissa.chop(1);
        digits = mantissa + digits.mid(e);
    }
    return count < 0 ? digits : u' ' + digits;
}

template <std::size_t N> QString amountIn(const Unit (&units)[N], float &ounces)
{
    for (const Unit &unit : units) {
        // The metric family's last row takes whatever is left, whatever the amount.
        if (unit.limit != -INFINITY && !(ounces > unit.limit))
            continue;
        float count;
        if (!unit.rounded)
            count = std::trunc(ounces / unit.per) + 1.0f;
        else if (unit.per > 0)
            count = roundHalfEven(ounces / unit.per + 1.0f);
        else
            count = roundHalfEven(ounces * kMlPerOunce);
        ounces = 0;
        return countText(count) + QLatin1String(count > 1 ? unit.plural : unit.singular);
    }
    return {};
}

} // namespace

QString PurchaseAmount::familyMeasurementsText(int family)
{
    switch (family) {
    case English:
        return QStringLiteral("English measurements.");
    case Metric:
        return QStringLiteral("Metric measurements.");
    default:
        return QStringLiteral("Bar measurements.");
    }
}

QString GetPurchaseAmount(float &ounces, int family)
{
    switch (family) {
    case PurchaseAmount::Bar:
        return amountIn(kBar, ounces);
    case PurchaseAmount::English:
        return amountIn(kEnglish, ounces);
    case PurchaseAmount::Metric:
        return amountIn(kMetric, ounces);
    default:
        return {};
    }
}
