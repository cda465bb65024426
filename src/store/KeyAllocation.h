#pragma once

#include <QList>
#include <QtGlobal>

class DrinkStore;

// How each table gets a new key. The rules differ by the place that adds the row, and each
// place keeps its own; the store assigns the rest (Garnish, Build, Ratings, ColorSchemes,
// PrintLayout, IngSubTypes) itself.
namespace KeyAllocation {
// The drink editor: the largest drink id plus 1.
qint32 nextDrinkIdForEditor(DrinkStore &store);
// Import of drinks.
qint32 nextDrinkIdForImport(DrinkStore &store);
// The drink editor, when a typed ingredient is new.
qint32 nextIngredientIdForEditor(DrinkStore &store);
// The add-ingredient dialog.
qint32 nextIngredientIdForAddDialog(DrinkStore &store);
// Import of ingredients.
qint32 nextIngredientIdForImport(DrinkStore &store);
// The category dialog: from the categories on screen, not from the table.
qint32 nextDrinkTypeIdFromList(const QList<qint32> &shownIds);
// Import of categories.
qint32 nextDrinkTypeIdForImport(DrinkStore &store);
// Saved searches: the id of the table's last row plus 1, or 1 for an empty table.
qint32 nextSavedSearchId(DrinkStore &store);
// Ingredient types: the row count when the save starts, plus 1 for the first new type,
// plus 2 for the second, and so on.
qint32 nextIngTypeId(DrinkStore &store, int newTypesBefore);

// The statements behind the rules, as the program writes them.
inline constexpr const char *kMaxDrinkIdImport = "SELECT DISTINCTROW Max([ID]) AS MaxID FROM Drinks";
inline constexpr const char *kMaxIngredientIdEditor = "SELECT Max(ID) FROM Ingredients";
inline constexpr const char *kMaxIngredientIdAddDialog = "SELECT MAX(ID) FROM Ingredients";
inline constexpr const char *kMaxIngredientIdImport = "SELECT DISTINCTROW Max([ID]) AS MaxID FROM Ingredients";
inline constexpr const char *kMaxDrinkTypeIdImport = "SELECT DISTINCTROW Max([TypeID]) AS MaxID FROM DrinkTypes";
}
