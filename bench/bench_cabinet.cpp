// The liquor cabinet's Find Matches: the ticks stored, every drink's lines read and the drinks
// that can be made marked, on the store's copy.
#include "BenchRegistry.h"

#include "cabinet/LiquorCabinet.h"
#include "cabinet/NextBottle.h"
#include "store/DrinkStore.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QSqlQuery>
#include <algorithm>

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

// The Next Bottle page: the book read into memory and ranked for the store's ticks, as on its
// first showing; then the ranking alone, as each later showing with other ticks.
Bench::Floor nextBottleFloor()
{
    Bench::Floor floor;
    floor.statements << QStringLiteral("SELECT id, Ingredient, unitprice FROM Ingredients ORDER BY id")
                     << QStringLiteral("SELECT id, Name FROM Drinks ORDER BY id")
                     << QStringLiteral("SELECT DrinkID, IngID FROM DrinkRel ORDER BY DrinkID, seq");
    floor.note = QStringLiteral("the three reads of the book; the near matches and the ranking are a pass in memory");
    floor.reason = QStringLiteral(
        "every drink and ingredient name becomes a QString and every line an index into the book held in memory, then "
        "the pass that finds the near matches and ranks the bottles; the shell only prints the rows");
    return floor;
}

void nextBottleCases(Bench::Registry &registry, const Bench::Store &store, DrinkStore &setup)
{
    std::vector<qint32> ticked = storedTicks(setup);
    std::sort(ticked.begin(), ticked.end());
    registry.add(
        "cabinet.next-bottle", QStringLiteral("Cabinet next bottle ranking, book read and ranked"), store,
        [path = store.path, ticked](benchmark::State &state) {
            DrinkStore db(path);
            std::size_t ranked = 0;
            for (auto _ : state) {
                const NextBottle::Book book = NextBottle::LoadBook(db);
                const NextBottle::Outlook outlook = NextBottle::Look(book, ticked);
                ranked = outlook.ranking.size();
                benchmark::DoNotOptimize(outlook.missingTwo.data());
            }
            state.counters["rows"] = static_cast<double>(ranked);
        },
        nextBottleFloor());
    registry.add("cabinet.next-bottle-ticks", QStringLiteral("Cabinet next bottle ranking, book in memory"), store,
                 [path = store.path, ticked](benchmark::State &state) {
                     DrinkStore db(path);
                     const NextBottle::Book book = NextBottle::LoadBook(db);
                     std::size_t near = 0;
                     for (auto _ : state) {
                         const NextBottle::Outlook outlook = NextBottle::Look(book, ticked);
                         near = outlook.missingOne.size() + outlook.missingTwo.size();
                     }
                     state.counters["rows"] = static_cast<double>(near);
                 });
}

const Bench::Area area(70, cabinetCases);
const Bench::Area nextBottleArea(71, nextBottleCases);

} // namespace
