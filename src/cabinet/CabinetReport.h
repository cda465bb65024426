#pragma once

#include <QDateTime>
#include <QString>
#include <vector>

class QPagedPaintDevice;

// The printed listing of the ingredients ticked in the cabinet's tree: a title, the date, and
// one line per ingredient under its type and sub type.
namespace CabinetReport {

inline constexpr int kTwipsPerInch = 1440;
inline constexpr int kTypeX = 720;
inline constexpr int kSubTypeX = 3600;
inline constexpr int kIngredientX = 6480;

// A ticked ingredient with the texts of its sub type and type, in tree order.
struct Line {
    QString type;
    QString subType;
    QString ingredient;
};

// One piece of text as the listing prints it: a font, a position from the left of the page in
// twips, and whether the line ends after it.
struct Piece {
    QString text;
    int pointSize = 10;
    bool bold = false;
    int xTwips = 0;
    bool endsLine = true;
};

// "mm/dd/yyyy hh:nn am/pm": "03/07/2024 09:05 pm"
QString DateText(const QDateTime &when);

// The listing's pieces. A type or sub type is printed where it differs from the last one
// printed at its place, so a sub type repeated under a new type is not printed again.
std::vector<Piece> Layout(const std::vector<Line> &lines, const QDateTime &when);

// Prints the pieces in "Arial", from the top left of the printable area, starting a new page
// when a line does not fit. False when the device cannot be painted on.
bool Print(QPagedPaintDevice &device, const std::vector<Piece> &pieces);

} // namespace CabinetReport
