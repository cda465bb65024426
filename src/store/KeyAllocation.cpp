#include "store/KeyAllocation.h"

#include "store/DrinkStore.h"

#include <algorithm>

namespace KeyAllocation {

namespace {

// An empty table has no largest key; the first row then gets 1.
qint32 onePast(const QVariant &max) { return max.isNull() ? 1 : max.toInt() + 1; }

qint32 onePast(DrinkStore &store, const char *sql) { return onePast(store.scalar(QString::fromLatin1(sql))); }

} // namespace

qint32 nextDrinkIdForEditor(DrinkStore &store) { return onePast(store.scalar(QStringLiteral("SELECT * FROM GetMaxDrinkID"))); }
qint32 nextDrinkIdForImport(DrinkStore &store) { return onePast(store, kMaxDrinkIdImport); }
qint32 nextIngredientIdForEditor(DrinkStore &store) { return onePast(store, kMaxIngredientIdEditor); }
qint32 nextIngredientIdForAddDialog(DrinkStore &store) { return onePast(store, kMaxIngredientIdAddDialog); }
qint32 nextIngredientIdForImport(DrinkStore &store) { return onePast(store, kMaxIngredientIdImport); }
qint32 nextDrinkTypeIdForImport(DrinkStore &store) { return onePast(store, kMaxDrinkTypeIdImport); }

qint32 nextDrinkTypeIdFromList(const QList<qint32> &shownIds)
{
    if (shownIds.isEmpty())
        return 1;
    return *std::max_element(shownIds.begin(), shownIds.end()) + 1;
}

qint32 nextSavedSearchId(DrinkStore &store)
{
    return onePast(store.scalar(QStringLiteral("SELECT SearchID FROM SavedSearch ORDER BY rowid DESC LIMIT 1")));
}

qint32 nextIngTypeId(DrinkStore &store, int newTypesBefore)
{
    return store.scalar(QStringLiteral("SELECT COUNT(*) FROM IngTypes")).toInt() + 1 + newTypesBefore;
}

} // namespace KeyAllocation
