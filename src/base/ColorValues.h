#pragma once

#include <QColor>
#include <QPalette>
#include <QtGlobal>
#include <optional>

// The program's colours are 32-bit values as the settings and the ColorSchemes table hold
// them: red, green, blue in the low three bytes (red lowest), or, with the high bit set, the
// number of a system colour, which the platform's palette decides.
namespace ColorValues {

constexpr quint32 SystemFlag = 0x80000000;
constexpr quint32 White = 0xFFFFFF;

constexpr bool isSystem(quint32 value)
{
    return (value & SystemFlag) != 0;
}

// A system colour by its number (window text is 8, highlight 13, button face 15, button
// shadow 16, highlight text 14, ...). A number the palette has no role for is black.
QColor systemColor(quint32 index, const QPalette &palette);
QColor toQColor(quint32 value, const QPalette &palette);
quint32 fromQColor(const QColor &color);

// The text of a selected row or letter tab: the system's highlight text while the text colour
// is the system's window text, else 0xFFFFFF minus the text colour, a colour negative. That
// subtraction is done in signed 32 bits; for another system value it leaves the range and
// there is no colour (nullopt).
std::optional<quint32> selectedTextValue(quint32 textColor);
// The same, as a colour to draw with; out of range it falls back to the palette's highlight text.
QColor selectedTextColor(quint32 textColor, const QPalette &palette);

// A colour value written in a setting (decimal text) or stored in a row (signed 32 bits).
quint32 fromStored(qint64 stored);
qint32 toStored(quint32 value);

} // namespace ColorValues
