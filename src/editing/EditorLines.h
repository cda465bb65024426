#pragma once

#include "base/Currency.h"

#include <QString>
#include <QStringList>
#include <QVariant>
#include <optional>

class DrinkStore;
class TextGridModel;

// The drink editor's two line grids. The ingredient grid holds the recipe lines as the save
// writes them; the price grid is its breakdown, rebuilt only when asked.
namespace IngCol {
enum { ID, Amount, MetricAmount, Ingredient, Cost, UnitCost, OzPerUnit, UnitType, Measure, Count };
}
namespace PriceCol {
enum { ID, Ingredient, UnitPrice, Ounces, PerOunce, Cost, CostPercent, Count };
}

QStringList IngredientLineHeaders();
QStringList PriceLineHeaders();

// A single-precision number as the old runtime wrote it: up to seven significant digits.
QString SingleText(float value);
// A fraction in the format "0.00%".
QString PercentText(double fraction);
// The old platform's numeric test: blanks around, a sign, digits with one decimal point.
bool IsNumeric(const QString &text);

// The ingredient a new line names, as the store holds it.
struct IngredientRecord {
    qint32 id = 0;
    QString name;
    QVariant unitPrice, ozPerUnit, unitType;
};
// By typed name, compared as the store compares names (without case).
std::optional<IngredientRecord> FindIngredientByName(DrinkStore &store, const QString &name);
std::optional<IngredientRecord> FindIngredientById(DrinkStore &store, qint32 id);

// Which input of the ingredient page a refused line points the user to.
enum class LineField { None, Ingredient, Units, Amount };
struct LineProblem {
    QString message;
    LineField focus = LineField::None;
};
// The checks before a line is added, in their order; nothing when the line may be added.
// leafChosen: an ingredient (not a group) is selected in the tree.
std::optional<LineProblem> CheckNewLine(bool leafChosen, const QString &typedName, const QString &measureName,
                                        const QString &amountText);

// A line of an ingredient the store knows: its name as stored, its price columns, the three
// amount values, and its cost ("0" where the ingredient has no price or no size).
QStringList StoredIngredientLine(const IngredientRecord &ingredient, const QString &amountText,
                                 const QString &measureName);
// A line of a name the store does not know yet: id "-1", no price columns. The ingredient row
// is written only when the drink is saved.
QStringList NewIngredientLine(const QString &typedName, const QString &amountText, const QString &measureName);

// Re-reads name, price, size and unit of every line whose ingredient is stored, so changes
// made to ingredients meanwhile reach the open drink. Lines of new names keep what was typed.
void RefreshIngredientColumns(DrinkStore &store, TextGridModel &lines);
// Rebuilds the price grid from the lines and writes each line's cost back into them. The
// percentages are shares of the drink's cost as its field shows it (0 for an empty field).
// False, with nothing rebuilt, when that text is not money.
bool RebuildPriceLines(TextGridModel &lines, TextGridModel &prices, const QString &costText);
