// The liquor cabinet's Find Matches: the ticks stored, every drink's lines read and the drinks
// that can be made marked, on the store's copy.
#include "BenchRegistry.h"

#include "cabinet/LiquorCabinet.h"
#include "store/DrinkStore.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QSqlQuery>

namespace {

// The ingredients the store has Selected, in the order of the cabinet's tree, as the dialog
// collects its ticks.
std::vector<qint32> storedTicks(DrinkStore &setup)
{
    std::vector<qint32> ids;
    QSqlQuery rows = setup.select(
        QStringLiteral("SELECT id FROM IngMaintList WHERE Selected <> 0 ORDER BY Type, SubType, Ingredient"));
    while (rows.next())
        ids.push_back(rows.value(0).toInt());
    return ids;
}

// What the engine runs for one Find Matches: the ticks, then the two reads of the scan. The
// generator sets LiqCab from the Selected ingredients as a scan would, so with the store's own
// ticks the scan finds the marks the store has and writes none.
Bench::Floor scanFloor(const std::vector<qint32> &ticked)
{
    Bench::Floor floor;
    floor.statements << QStringLiteral("PRAGMA synchronous=FULL") << QStringLiteral("BEGIN")
                     << Bench::native(QStringLiteral("UPDATE DISTINCTROW Ingredients SET Ingredients.Selected = No "
                                                     "WHERE Ingredients.Selected=Yes"));
    for (qint32 id : ticked)
        floor.statements << QStringLiteral("UPDATE Ingredients SET Selected = 1 WHERE id = ") + QString::number(id);
    floor.statements << QStringLiteral("COMMIT") << QStringLiteral("BEGIN")
                     << QStringLiteral("SELECT id, LiqCab FROM Drinks ORDER BY id")
                     << QStringLiteral("SELECT DrinkID, IngID FROM DrinkRel ORDER BY DrinkID, seq")
                     << QStringLiteral("COMMIT");
    floor.note = QStringLiteral("each tick's UPDATE parsed anew, where the program binds one prepared statement; "
                                "synchronous=FULL, as the program's connection writes");
    return floor;
}

void cabinetCases(Bench::Registry &registry, const Bench::Store &store, DrinkStore &setup)
{
    const std::vector<qint32> ticked = storedTicks(setup);
    if (ticked.empty())
        return;
    const Bench::Store copy = Bench::scratchCopy(store);
    registry.add(
        "cabinet.find-matches",
        QStringLiteral("Liquor cabinet, Find Matches, the store's %1 ticked ingredients").arg(ticked.size()), copy,
        [path = copy.path, ticked](benchmark::State &state) {
            DrinkStore db(path);
            // As the dialog's OK: the progress is asked after every drink, and events are looked
            // at every 50 ms (the dialog also shows the count then).
            QElapsedTimer sinceYield;
            const LiquorCabinet::ScanProgress progress = [&](int, int) {
                if (!sinceYield.isValid() || sinceYield.elapsed() >= 50) {
                    QCoreApplication::processEvents();
                    sinceYield.start();
                }
                return false;
            };
            LiquorCabinet::ScanOutcome outcome = LiquorCabinet::FindMatches(db, ticked, progress);
            for (auto _ : state) {
                sinceYield.invalidate();
                outcome = LiquorCabinet::FindMatches(db, ticked, progress);
            }
            if (!outcome.completed)
                state.SkipWithError("the scan stopped");
            state.counters["rows"] = outcome.matches;
        },
        scanFloor(ticked));
}

const Bench::Area area(70, cabinetCases);

} // namespace
