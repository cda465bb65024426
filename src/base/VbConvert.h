#pragma once

#include <QString>
#include <QStringView>
#include <optional>

// Number reading as the recipe book has always done it.
namespace VbConvert {
// The longest leading number of the text ("12abc" is 12, "abc" is 0); blanks are skipped,
// also between digits, and "&H1F" / "&O17" are hexadecimal and octal.
double Val(QStringView text);
// A number rounded to a 32-bit whole number, halves to even; nothing when out of range.
std::optional<qint32> CLng(double value);
}
