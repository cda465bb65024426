#include "editing/MetricConvert.h"

#include "editing/Measures.h"

#include <QLocale>
#include <QRegularExpression>
#include <cmath>

std::optional<double> ParseConvertAmount(const QString &text)
{
    static const QRegularExpression number(
        QStringLiteral(R"(^\s*([+-]?)\s*((?:\d+\.?\d*|\.\d+)(?:[eEdD][+-]?\d+)?)\s*$)"));
    const QRegularExpressionMatch m = number.match(text);
    if (!m.hasMatch())
        return std::nullopt;
    QString digits = m.captured(1) + m.captured(2);
    digits.replace(u'd', u'e').replace(u'D', u'e');
    bool ok = false;
    const double value = QLocale::c().toDouble(digits, &ok);
    // A number too large for a double is no number to the platform either.
    if (!ok || !std::isfinite(value))
        return std::nullopt;
    return value;
}

QString GeneralNumber(double value)
{
    if (value == 0)
        return QStringLiteral("0"); // never "-0"
    // Qt's own formatting, not the C library's: the decimal point must not follow the locale.
    return QString::number(value, 'G', 15);
}

ConvertOutcome ConvertForDialog(const QString &amountText, int fromIndex, int toIndex)
{
    const std::optional<double> amount = ParseConvertAmount(amountText);
    if (!amount)
        return {QStringLiteral("The amount you wish to convert is not a valid number."), {}};
    const int units = static_cast<int>(MetricConvertUnits().size());
    if (fromIndex < 0 || fromIndex >= units)
        return {QStringLiteral("Please select the units to convert from."), {}};
    if (toIndex < 0 || toIndex >= units)
        return {QStringLiteral("Please select the units to convert to."), {}};
    const double result = ConvertAmount(*amount, fromIndex, toIndex);
    if (!std::isfinite(result))
        return {QStringLiteral("Overflow"), {}};
    return {{}, GeneralNumber(result)};
}
