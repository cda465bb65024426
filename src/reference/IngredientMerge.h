#pragma once

#include <QString>
#include <QStringList>

class DrinkStore;

// Folding one ingredient into another, and the drinks that use an ingredient.
namespace IngredientMerge {

// The note over the merge dialog's tree.
QString MergeNote(const QString &name);
QString SelfMergeMessage();

// Every line of the source moves to the target, then the source goes; one transaction. A drink
// that held both keeps two lines, both for the target.
void MergeIngredient(DrinkStore &store, qint32 source, qint32 target);

// The names of the drinks that use the ingredient, in name order, each once.
QStringList IngredientUsage(DrinkStore &store, qint32 ingID);
QString UsageSQL(qint32 ingID);
// The usage dialog's note and count line.
QString UsageNote(const QString &name, int count);
QString UsageCount(int count);

} // namespace IngredientMerge
