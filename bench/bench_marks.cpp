// "Mark All in Current List" and "Unmark All" on View All, the longest list there is: every
// drink's mark written, a few hundred drinks per statement, in one transaction, on the copy.
#include "BenchRegistry.h"

#include "presentation/DrinkListModel.h"
#include "presentation/ListSql.h"
#include "store/DrinkFlags.h"
#include "store/DrinkStore.h"

namespace {

void markCases(Bench::Registry &registry, const Bench::Store &store, DrinkStore &)
{
    const Bench::Store copy = Bench::scratchCopy(store);
    Bench::Floor floor;
    floor.statements = {QStringLiteral("PRAGMA synchronous=FULL"), QStringLiteral("BEGIN"),
                        QStringLiteral("UPDATE Drinks SET Marked = 1 - Marked WHERE id IN (SELECT id FROM Drinks)"),
                        QStringLiteral("COMMIT")};
    floor.note = QStringLiteral("one statement over the table, where the program writes the ids of the list on "
                                "screen; synchronous=FULL, as the program's connection writes");
    registry.add(
        "marks.all", QStringLiteral("Mark All in Current List, View All"), copy,
        [path = copy.path](benchmark::State &state) {
            DrinkStore db(path);
            DrinkListModel list;
            list.load(db, BuildListSQL(6, 0, false, false));
            int value = 1;
            for (auto _ : state) {
                ScopedTransaction tx(db);
                setDrinkFlag(db, QStringLiteral("Marked"), value, list.ids());
                tx.commit();
                value = 1 - value;
            }
            state.counters["rows"] = double(list.ids().size());
        },
        floor);
}

const Bench::Area area(75, markCases);

} // namespace
