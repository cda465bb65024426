#pragma once

#include <QString>
#include <optional>

// The arithmetic and messages of the English / metric conversion dialog, over the fifteen units
// of MetricConvertUnits().

// The platform's numeric test and reading: blanks around, a sign, digits with at most one
// decimal point, an optional exponent. Nothing for any other text.
std::optional<double> ParseConvertAmount(const QString &text);

// A double in the general number format: up to fifteen significant digits, no trailing zeros,
// exponent form below 1E-04 and from 1E+15 ("0.333333333333333", "1E-05", "1.5E+15").
QString GeneralNumber(double value);

// What the Convert button leads to: a message to show, or the text for the result field.
struct ConvertOutcome {
    QString message;
    QString result;
};

// fromIndex and toIndex are the units' list positions, -1 for no selection.
ConvertOutcome ConvertForDialog(const QString &amountText, int fromIndex, int toIndex);
