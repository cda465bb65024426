// The price worksheet's run on the store's copy: every drink's cost from its lines, then every
// unlocked drink repriced in one transaction, with the progress looked at every 50 ms.
#include "BenchRegistry.h"

#include "pricing/PriceBatch.h"
#include "store/DrinkStore.h"

#include <QCoreApplication>
#include <QElapsedTimer>

namespace {

Bench::Floor costFloor()
{
    Bench::Floor floor;
    floor.statements << QStringLiteral("PRAGMA synchronous=FULL")
                     << QStringLiteral("SELECT R.DrinkID, ROUND(SUM(I.unitprice / I.ozperunit * R.measure), 4) FROM "
                                       "DrinkRel R INNER JOIN Ingredients I ON R.IngID = I.id GROUP BY R.DrinkID")
                     << QStringLiteral("BEGIN") << QStringLiteral("UPDATE Drinks SET Cost = Cost + 0")
                     << QStringLiteral("COMMIT");
    floor.note = QStringLiteral("the line cost in floating point where the program's own function rounds each line "
                                "to currency; one UPDATE of every row where the program binds one per drink");
    floor.reason = QStringLiteral(
        "each line costed through the program's own SQL function, rounded to currency as the editor rounds it, and one "
        "bound UPDATE per drink whose cost changed, where the shell does one UPDATE in the engine; on a small book the "
        "commit's wait for the disk is a large part of both");
    return floor;
}

Bench::Floor priceFloor()
{
    Bench::Floor floor;
    floor.statements << QStringLiteral("PRAGMA synchronous=FULL")
                     << QStringLiteral("SELECT ID, Cost, Price FROM Drinks WHERE LockPrice = 0")
                     << QStringLiteral("BEGIN")
                     << QStringLiteral("UPDATE Drinks SET Price = Cost * 3 WHERE LockPrice = 0")
                     << QStringLiteral("COMMIT");
    floor.note = QStringLiteral("one UPDATE of every unlocked row where the program binds one per drink");
    floor.reason = QStringLiteral(
        "each price worked out in currency arithmetic with the worksheet's markup, minimum and rounding step, and written by "
        "one bound UPDATE per drink, with the window's progress handled every 50 ms, where the shell multiplies in one UPDATE");
    return floor;
}

void priceCases(Bench::Registry &registry, const Bench::Store &store, DrinkStore &)
{
    const Bench::Store copy = Bench::scratchCopy(store);
    registry.add("prices.recost", QStringLiteral("Recalculate all costs"), copy,
                 [path = copy.path](benchmark::State &state) {
                     DrinkStore db(path);
                     int costed = 0;
                     for (auto _ : state)
                         costed = RecalculateDrinkCosts(db);
                     state.counters["rows"] = costed;
                 },
                 costFloor());
    registry.add("prices.reprice", QStringLiteral("Reprice all drinks"), copy,
                 [path = copy.path](benchmark::State &state) {
                     DrinkStore db(path);
                     PriceForm form;
                     form.markupPct = QStringLiteral("300");
                     form.roundTo = 2;
                     QElapsedTimer sinceYield;
                     const auto progress = [&](std::size_t, std::size_t) {
                         if (sinceYield.elapsed() >= 50) {
                             QCoreApplication::processEvents();
                             sinceYield.restart();
                         }
                         return true;
                     };
                     std::size_t priced = 0;
                     for (auto _ : state) {
                         sinceYield.start();
                         const std::vector<BatchDrink> drinks = DrinksToReprice(db, false);
                         if (!RepriceDrinks(db, drinks, BatchPriceSettings(form), progress))
                             state.SkipWithError("the run stopped");
                         priced = drinks.size();
                     }
                     state.counters["rows"] = double(priced);
                 },
                 priceFloor());
}

const Bench::Area area(80, priceCases);

} // namespace
