// The shopping list: a thousand drinks stored in tmp_ShopList and their ingredients summed and
// turned into purchase quantities, on the store's copy.
#include "BenchRegistry.h"

#include "shopping/PurchaseAmount.h"
#include "shopping/ShoppingList.h"
#include "store/DrinkStore.h"

namespace {

constexpr int kDrinks = 1000;

// The engine's part of one list: the drinks replaced in one transaction, then the one query.
Bench::Floor listFloor(const std::vector<qint32> &ids)
{
    Bench::Floor floor;
    floor.statements << QStringLiteral("PRAGMA synchronous=FULL") << QStringLiteral("BEGIN")
                     << Bench::native(QStringLiteral("DELETE * FROM tmp_ShopList"));
    for (qint32 id : ids)
        floor.statements << QStringLiteral("INSERT INTO tmp_ShopList (id) VALUES (%1)").arg(id);
    floor.statements << QStringLiteral("COMMIT") << ShoppingList::sumsStatement();
    floor.note = QStringLiteral("each INSERT parsed anew, where the program binds one prepared statement; "
                                "synchronous=FULL, as the program's connection writes");
    return floor;
}

void shoppingCases(Bench::Registry &registry, const Bench::Store &store, DrinkStore &)
{
    if (store.drinks < kDrinks)
        return;
    const std::vector<qint32> ids = Bench::sampleIds(store, kDrinks);
    const Bench::Store copy = Bench::scratchCopy(store);
    registry.add(
        "shopping.list", QStringLiteral("Shopping list for 1,000 drinks"), copy,
        [path = copy.path, ids](benchmark::State &state) {
            DrinkStore db(path);
            std::size_t rows = 0;
            for (auto _ : state)
                rows = ShoppingList::Generate(db, ids, 4, PurchaseAmount::Bar).size();
            if (rows == 0)
                state.SkipWithError("no ingredient listed");
            state.counters["rows"] = double(rows);
        },
        listFloor(ids));
}

} // namespace

const Bench::Area area(95, shoppingCases);
