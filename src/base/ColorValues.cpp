#include "base/ColorValues.h"

#include <array>
#include <limits>

namespace ColorValues {

namespace {
struct SystemRole {
    QPalette::ColorGroup group;
    QPalette::ColorRole role;
};

constexpr QPalette::ColorGroup A = QPalette::Active;

// The platform's numbered system colours, each given the palette role that plays its part
// here. Button face (15) is the window colour: it is what forms and panels are painted with,
// and a style may draw push buttons in a shade of their own.
constexpr std::array<SystemRole, 31> kRoles{{
    {A, QPalette::Midlight},                    // 0 scroll bar
    {A, QPalette::Dark},                        // 1 desktop
    {A, QPalette::Highlight},                   // 2 active caption
    {A, QPalette::Mid},                         // 3 inactive caption
    {A, QPalette::Window},                      // 4 menu
    {A, QPalette::Base},                        // 5 window
    {A, QPalette::Shadow},                      // 6 window frame
    {A, QPalette::WindowText},                  // 7 menu text
    {A, QPalette::WindowText},                  // 8 window text
    {A, QPalette::HighlightedText},             // 9 caption text
    {A, QPalette::Window},                      // 10 active border
    {A, QPalette::Window},                      // 11 inactive border
    {A, QPalette::Dark},                        // 12 application workspace
    {A, QPalette::Highlight},                   // 13 highlight
    {A, QPalette::HighlightedText},             // 14 highlight text
    {A, QPalette::Window},                      // 15 button face
    {A, QPalette::Dark},                        // 16 button shadow
    {QPalette::Disabled, QPalette::Text},       // 17 gray text
    {A, QPalette::ButtonText},                  // 18 button text
    {QPalette::Inactive, QPalette::WindowText}, // 19 inactive caption text
    {A, QPalette::Light},                       // 20 button highlight
    {A, QPalette::Shadow},                      // 21 dark shadow
    {A, QPalette::Midlight},                    // 22 light
    {A, QPalette::ToolTipText},                 // 23 info text
    {A, QPalette::ToolTipBase},                 // 24 info background
    {A, QPalette::NoRole},                      // 25 unused
    {A, QPalette::Link},                        // 26 hot light
    {A, QPalette::Highlight},                   // 27 active caption gradient
    {A, QPalette::Mid},                         // 28 inactive caption gradient
    {A, QPalette::Highlight},                   // 29 menu highlight
    {A, QPalette::Window},                      // 30 menu bar
}};

constexpr quint32 kWindowText = SystemFlag | 8;
constexpr quint32 kHighlightText = SystemFlag | 14;
} // namespace

QColor systemColor(quint32 index, const QPalette &palette)
{
    if (index >= kRoles.size() || kRoles[index].role == QPalette::NoRole)
        return QColor(Qt::black);
    return palette.color(kRoles[index].group, kRoles[index].role);
}

QColor toQColor(quint32 value, const QPalette &palette)
{
    if (isSystem(value))
        return systemColor(value & ~SystemFlag, palette);
    return QColor(int(value & 0xFF), int((value >> 8) & 0xFF), int((value >> 16) & 0xFF));
}

quint32 fromQColor(const QColor &color)
{
    const QColor rgb = color.toRgb();
    return quint32(rgb.red()) | quint32(rgb.green()) << 8 | quint32(rgb.blue()) << 16;
}

std::optional<quint32> selectedTextValue(quint32 textColor)
{
    if (textColor == kWindowText)
        return kHighlightText;
    const qint64 negative = qint64(White) - qint64(qint32(textColor));
    if (negative < std::numeric_limits<qint32>::min() || negative > std::numeric_limits<qint32>::max())
        return std::nullopt;
    return quint32(qint32(negative));
}

QColor selectedTextColor(quint32 textColor, const QPalette &palette)
{
    const std::optional<quint32> value = selectedTextValue(textColor);
    return toQColor(value ? *value : kHighlightText, palette);
}

quint32 fromStored(qint64 stored)
{
    return quint32(stored);
}

qint32 toStored(quint32 value)
{
    return qint32(value);
}

} // namespace ColorValues
