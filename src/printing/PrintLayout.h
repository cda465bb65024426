#pragma once

#include <QString>
#include <QStringList>
#include <QtGlobal>
#include <array>
#include <vector>

class DrinkStore;

// One card piece's font as the layout keeps it.
struct FontRecord {
    QString FontName;
    qint16 FontSize = 0;
    bool Bold = false;
    bool Italic = false;
    bool Underline = false;
    bool Strikethrough = false;
    qint32 Color = 0;

    bool operator==(const FontRecord &) const = default;
};

// The pieces of a card, in the order of the font records.
enum CardPiece { PieceName, PieceGlass, PieceBuild, PieceIng, PieceRecipe, PieceMark, PieceGarnish, PieceCount };

// The print check boxes are the font order less the name.
inline int checkIndex(CardPiece piece)
{
    return int(piece) - 1;
}

// A layout as the print dialog's controls hold it: lengths, rows and columns stay the texts
// the user typed, read as numbers only where they are used.
struct PrintLayoutSettings {
    bool portrait = true;
    bool metric = false;
    QString marTop, marBottom, marLeft, marRight;
    QString rows, cols, rowSpacing, colSpacing;
    QString glassHeight;
    std::array<FontRecord, PieceCount> fonts;
    std::array<bool, PieceCount - 1> print{}; // glass, build, ingredients, recipe, mark, garnish
    QString mark;
    bool glassAsText = false; // "Text" rather than "Picture"

    bool printed(CardPiece piece) const { return print[checkIndex(piece)]; }
};

namespace PrintLayout {

// The line every new layout carries at the foot of its cards.
QString defaultMark();

// Margins, rows, columns, spacing and orientation back to their defaults.
void ResetLayoutControls(PrintLayoutSettings &layout);
// Every default: the above plus fonts, pieces, glass, mark.
void SetDefaultLayout(PrintLayoutSettings &layout);
PrintLayoutSettings defaults();

// "name;size;colour;bold;italic;strikethrough;underline;" and back. Reading keeps the record's
// fields where the text has too few.
QString fontToText(const FontRecord &font);
FontRecord fontFromText(const QString &text, const FontRecord &before = {});

// One length rewritten in the other unit, losing digits as the dialog always has.
QString ConvertLength(const QString &text, bool toMetric);
// The up-down buttons of a length: one millimetre or a tenth of an inch, never below 0.
QString stepLength(const QString &text, bool metric, bool up);

struct LayoutEntry {
    qint32 id = 0;
    QString name;
};
// The stored layouts by name.
std::vector<LayoutEntry> FillLayoutList(DrinkStore &store);
// Fills the layout from one row; false (the layout untouched) when there is no such row.
// The mark's check box is not read back, so it keeps its state across a load.
bool LoadLayout(DrinkStore &store, qint32 id, PrintLayoutSettings &layout);
// Stores the layout under the name, replacing a layout of that name. Returns its id.
qint32 SaveLayout(DrinkStore &store, const QString &name, const PrintLayoutSettings &layout);
void DeleteLayout(DrinkStore &store, qint32 id);

} // namespace PrintLayout
