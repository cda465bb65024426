#pragma once

#include "shopping/ShoppingList.h"

#include <QDateTime>
#include <QString>
#include <QStringList>
#include <vector>

class QPagedPaintDevice;

// The printed shopping list: title, date, the chosen drinks in three columns, the settings
// and the list, in "Arial", on any paged device (a printer or a PDF file).
namespace ShopListPrint {

inline constexpr const char *kTitle = "Corvane for Windows 3.0 Shopping List";
inline constexpr const char *kNotice = "Made with Corvane, the recipe book of mixed drinks";

// What the print shows, as the shopping list window holds it.
struct Input {
    QStringList drinkNames;
    QString numDrinks; // as typed
    int family = 1;
    std::vector<ShoppingList::Row> rows; // none prints one empty line
};

// One piece of text. A column is a character position counted from 1 in the average
// character width of the piece's font (0: none); a centered piece is placed by the width of
// centerOn, which may differ from its text.
struct Piece {
    QString text;
    int pointSize = 8;
    bool bold = false;
    int column = 0;
    bool centered = false;
    QString centerOn;
    bool endsLine = true;
};

// "Monday, November 23, 2026 - 3:06:02 PM", and the text the date is centered by, with the
// month as a number: "Monday, 11 23, 2026 - 3:06:02 PM".
QString DateText(const QDateTime &when);
QString DateMeasureText(const QDateTime &when);

std::vector<Piece> Layout(const Input &input, const QDateTime &when);

// Draws the pieces from the top left of the device's page, a line as high as its font, with
// a new page when a line would pass the bottom. False when the device cannot be painted on.
bool Print(QPagedPaintDevice &device, const std::vector<Piece> &pieces);

// The list printed to a PDF file, written whole or not at all. Returns "" or the reason.
QString PrintToPdf(const QString &path, const Input &input, const QDateTime &when);

} // namespace ShopListPrint
