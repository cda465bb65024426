#pragma once

#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

class DrinkStore;

// Ingredient maintenance without widgets: the rows of the ingredient grid, their checks, and
// the writes of the grid and of the add dialog.
namespace IngredientMaint {

enum Column { ID, Name, UnitType, Ounces, Price, Type, SubType, Notes, ColumnCount };
QStringList Headers();

// Every ingredient as the grid shows it: id, name, unit, ounces, price in the currency
// format, type and sub type names, notes.
std::vector<QStringList> LoadRows(DrinkStore &store);

QStringList IngTypeNames(DrinkStore &store);
// The sub types of the type of that name, by name.
QStringList SubTypeNames(DrinkStore &store, const QString &typeName);
// The ounces per unit of another ingredient bought in the same unit; nothing when none is.
std::optional<QString> ProposeOunces(DrinkStore &store, const QString &unitType);

// 0 when no type or sub type of that name exists.
qint32 LookUpIngTypeID(DrinkStore &store, const QString &typeName);
qint32 LookUpIngSubTypeID(DrinkStore &store, const QString &typeName, const QString &subTypeName);

// The message for a cell the user leaves, or nothing when the cell may stay as it is.
std::optional<QString> LeaveCellProblem(int column, const QString &text);

// Writes the rows that differ from the ones loaded, in one transaction. A row whose price is
// not money stops the save before anything is written: its index is returned.
std::optional<int> SaveRows(DrinkStore &store, const std::vector<QStringList> &loaded,
                            const std::vector<QStringList> &edited);

// Removes an ingredient from every drink and from the list, in one transaction.
void RemoveIngredient(DrinkStore &store, qint32 id);

// The add dialog's ingredient.
struct NewIngredient {
    QString name, unitType, ozPerUnit, unitPrice;
    qint32 typeId = -1;    // -1: no type chosen
    qint32 subTypeId = -1; // -1: no sub type chosen
    bool selected = false;
};
// The add dialog's checks in their order; the message of the first that fails.
std::optional<QString> CheckNewIngredient(DrinkStore &store, const NewIngredient &ingredient);
// Adds the row with the next id; returns that id.
qint32 AddIngredient(DrinkStore &store, const NewIngredient &ingredient);

} // namespace IngredientMaint
