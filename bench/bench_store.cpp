// Opening the store, and the start-up work up to the first list on screen.
#include "BenchRegistry.h"

#include "presentation/CDrinkFacade.h"
#include "presentation/DrinkListModel.h"
#include "presentation/ListSql.h"
#include "store/DrinkStore.h"

namespace {

void storeCases(Bench::Registry &registry, const Bench::Store &store, DrinkStore &)
{
    registry.add("store.open", QStringLiteral("Open the store"), store, [path = store.path](benchmark::State &state) {
        for (auto _ : state) {
            DrinkStore db(path);
            benchmark::DoNotOptimize(db.path());
        }
    });

    // Start-up opens the last view; a new installation's is View All.
    const QString firstList = BuildListSQL(6, 0, false, false);
    Bench::Floor floor;
    floor.statements = {QStringLiteral("SELECT COUNT(*) FROM sqlite_master WHERE type = 'table' AND name = 'Drinks'"),
                        QStringLiteral("SELECT * FROM Drinks ORDER BY id LIMIT 1"), Bench::native(firstList)};
    floor.note = QStringLiteral("the file already open in the shell");
    floor.reason = QStringLiteral("the View All list (the names as QStrings, see there), and the open itself: the "
                                  "file's checks and journal set-up, the program's SQL functions and the facade's six "
                                  "prepared statements, which the shell has no need of");
    registry.add(
        "startup.first-list", QStringLiteral("Start-up to the first list (open, facade, View All)"), store,
        [store, firstList](benchmark::State &state) {
            for (auto _ : state) {
                DrinkStore db(store.path);
                CDrinkFacade facade(db, store.appDir);
                DrinkListModel model;
                model.load(db, firstList);
                benchmark::DoNotOptimize(model.rowCount());
            }
        },
        floor);
}

const Bench::Area area(10, storeCases);

} // namespace
