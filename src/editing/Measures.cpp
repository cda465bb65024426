#include "editing/Measures.h"

#include "base/VbConvert.h"

#include <cmath>
#include <cstdint>
#include <cstdio>

namespace {

const QString FillWith = QStringLiteral("Fill With");
const QString TopWith = QStringLiteral("Top With");

Measure withMetricWord(const char16_t *name, const char16_t *singular, const char16_t *plural, double ounces,
                       int milliliters)
{
    const QString s = QString::fromUtf16(singular), p = QString::fromUtf16(plural);
    return {QString::fromUtf16(name), s, p, ounces, milliliters, s, p, true};
}

Measure withoutMetricWord(const char16_t *name, const char16_t *singular, const char16_t *plural,
                          double ounces, int milliliters)
{
    Measure m = withMetricWord(name, singular, plural, ounces, milliliters);
    m.metricSingular.clear();
    m.metricPlural.clear();
    return m;
}

Measure noNumber(const QString &name)
{
    return {name, name, name, 0, 0, QString(), QString(), false};
}

// The round bar measures of the editor. Some numbers differ from the reference table of the
// conversion dialog on purpose (a teaspoon is 0.167 oz, an ounce 30 ml, half a gallon 64 oz
// and 1894 ml whatever its label says).
std::vector<Measure> makeEditorMeasures()
{
    std::vector<Measure> m;
    m.push_back(withMetricWord(u"Dash", u"dash", u"dashes", 0.03125, 1));
    m.push_back(withMetricWord(u"Splash", u"splash", u"splashes", 0.0625, 2));
    m.push_back(withoutMetricWord(u"Teaspoon", u"tsp.", u"tsp.", 0.167, 5));
    m.push_back(withoutMetricWord(u"Tablespoon", u"tbs.", u"tbs.", 0.5, 15));
    m.push_back(withoutMetricWord(u"Ounce (Shot)", u"oz", u"oz", 1, 30));
    m.push_back(withMetricWord(u"Jigger", u"jigger", u"jiggers", 1.5, 45));
    m.push_back(withoutMetricWord(u"Cup", u"cup", u"cups", 8, 236));
    m.push_back(withoutMetricWord(u"Pint", u"pint", u"pints", 16, 473));
    m.push_back(withoutMetricWord(u"Fifth (750 ml)", u"fifth", u"fifths", 25.4, 750));
    m.push_back(withoutMetricWord(u"Quart", u"quart", u"quarts", 32, 947));
    m.push_back(withoutMetricWord(u"½ Gal. (1.75 L)", u"½ Gallon", u"½ Gallons", 64, 1894));
    m.push_back(withoutMetricWord(u"Gallon", u"gallon", u"gallons", 128, 3787));
    m.push_back(withMetricWord(u"Liter", u"lt", u"lt", 33.8, 1000));
    m.push_back(withMetricWord(u"Sprig", u"sprig", u"sprigs", 1, 1));
    m.push_back(withMetricWord(u"Piece", u"piece", u"pieces", 1, 1));
    m.push_back(withMetricWord(u"Wedge", u"wedge", u"wedges", 1, 1));
    m.push_back(withMetricWord(u"Slice", u"slice", u"slices", 1, 1));
    m.push_back(withMetricWord(u"Part", u"part", u"parts", 1, 1));
    m.push_back(noNumber(FillWith));
    m.push_back(noNumber(TopWith));
    return m;
}

// Known to the conversions but not offered by the list.
const std::vector<Measure> &extraMeasures()
{
    static const std::vector<Measure> extra = {withMetricWord(u"cl", u"cl", u"cl", 0.338, 10),
                                               withMetricWord(u"ml", u"ml", u"ml", 0.0338, 1)};
    return extra;
}

bool isSingular(float amount)
{
    return amount <= 1.0f;
}

float amountOf(const QString &amountText)
{
    return static_cast<float>(VbConvert::Val(amountText));
}

} // namespace

const std::vector<Measure> &EditorMeasures()
{
    static const std::vector<Measure> measures = makeEditorMeasures();
    return measures;
}

QStringList EditorMeasureNames()
{
    QStringList names;
    for (const Measure &m : EditorMeasures())
        names << m.name;
    return names;
}

const Measure *FindMeasure(const QString &name)
{
    for (const auto *list : {&EditorMeasures(), &extraMeasures()})
        for (const Measure &m : *list)
            if (m.name == name)
                return &m;
    return nullptr;
}

QString GetAmountText(const QString &amountText, const QString &measureName)
{
    const Measure *m = FindMeasure(measureName);
    if (m && !m->hasNumber)
        return m->name;
    QString word;
    if (m)
        word = isSingular(amountOf(amountText)) ? m->singular : m->plural;
    // The amount stays exactly as typed: "1.50" is not normalised.
    return amountText + QLatin1Char(' ') + word;
}

QString GetMetricAmountText(const QString &amountText, const QString &measureName)
{
    const Measure *m = FindMeasure(measureName);
    if (m && !m->hasNumber)
        return m->name;
    const float amount = amountOf(amountText);
    const float ml = amount * static_cast<float>(m ? m->milliliters : 0);

    QString number;
    if (ml > 1000.0f)
        number = FormatSingle(ml / 1000.0f, 3) + QStringLiteral(" lt");
    else if (ml > 10.0f)
        number = FormatSingle(ml / 10.0f, 1) + QStringLiteral(" cl");
    else
        number = FormatSingle(ml, 0) + QStringLiteral(" ml");

    QString word;
    if (m)
        word = isSingular(amount) ? m->metricSingular : m->metricPlural;
    // An empty word leaves the trailing blank; stored values have it.
    return number + QLatin1Char(' ') + word;
}

float GetOunces(const QString &amountText, const QString &measureName)
{
    const Measure *m = FindMeasure(measureName);
    if (!m || !m->hasNumber)
        return 0.0f;
    // The product is worked exactly and held once in single precision.
    return static_cast<float>(static_cast<double>(amountOf(amountText)) * m->ounces);
}

QString FormatSingle(float value, int decimals)
{
    if (!std::isfinite(value))
        return QString::number(value);

    // Seven significant digits first, as a single becomes text, then the rounding to the
    // decimals shown, on those digits, halves away from zero.
    char buf[32];
    std::snprintf(buf, sizeof buf, "%.6e", static_cast<double>(std::fabs(value)));
    std::int64_t mantissa = buf[0] - '0';
    for (int i = 2; i < 8; ++i)
        mantissa = mantissa * 10 + (buf[i] - '0');
    const int exponent = std::atoi(buf + 9);

    // value = mantissa * 10^(exponent - 6); wanted: value * 10^decimals as a whole number.
    const int shift = exponent - 6 + decimals;
    QString digits;
    if (shift >= 0) {
        digits = QString::number(mantissa) + QString(shift, QLatin1Char('0'));
    } else if (shift < -7) {
        digits = QStringLiteral("0");
    } else {
        std::int64_t divisor = 1;
        for (int i = 0; i < -shift; ++i)
            divisor *= 10;
        digits = QString::number((mantissa + divisor / 2) / divisor);
    }
    if (digits.size() < decimals + 1)
        digits.prepend(QString(decimals + 1 - digits.size(), QLatin1Char('0')));
    if (decimals > 0)
        digits.insert(digits.size() - decimals, QLatin1Char('.'));
    // A negative amount keeps its sign even where it rounds to nothing, as the old runtime did.
    if (value < 0.0f)
        digits.prepend(QLatin1Char('-'));
    return digits;
}

const std::vector<MetricConvertUnit> &MetricConvertUnits()
{
    // 1/32, 1/16 and 1/6 are divisions, not decimals written out.
    static const std::vector<MetricConvertUnit> units = {
        {QStringLiteral("Dash"), 1.0 / 32.0, false, 32},
        {QStringLiteral("Splash"), 1.0 / 16.0, false, 16},
        {QStringLiteral("Teaspoon"), 1.0 / 6.0, false, 6},
        {QStringLiteral("Tablespoon"), 0.5, false, 2},
        {QStringLiteral("Ounce"), 1, false, 1},
        {QStringLiteral("Jigger"), 1.5, true, 1.5},
        {QStringLiteral("Cup"), 8, true, 8},
        {QStringLiteral("Pint"), 16, true, 16},
        {QStringLiteral("English Fifth"), 25.6, true, 25.6},
        {QStringLiteral("Fifth (750 ml)"), 25.4, true, 25.4},
        {QStringLiteral("Quart"), 32, true, 32},
        {QStringLiteral("Gallon"), 128, true, 128},
        {QStringLiteral("liter"), 33.8, true, 33.8},
        {QStringLiteral("centiliter"), 0.338, true, 0.338},
        {QStringLiteral("milliliter"), 0.0338, true, 0.0338},
    };
    return units;
}

double ConvertAmount(double amount, int fromIndex, int toIndex)
{
    const auto &units = MetricConvertUnits();
    const MetricConvertUnit &from = units.at(static_cast<std::size_t>(fromIndex));
    const MetricConvertUnit &to = units.at(static_cast<std::size_t>(toIndex));
    const double ounces = amount * from.toOunces;
    return to.fromOuncesDivides ? ounces / to.fromOunces : ounces * to.fromOunces;
}
