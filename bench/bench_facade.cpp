// The drink facade's outputs: the text of one drink, for drinks spread over the whole store.
#include "BenchRegistry.h"

#include "presentation/CDrinkFacade.h"
#include "store/DrinkStore.h"

#include <QSqlQuery>
#include <vector>

namespace {

constexpr int SampleSize = 64;

// What the engine runs for the plain text of these drinks: the drink, its lines, its glass,
// its categories, its build and garnish.
Bench::Floor plainTextFloor(DrinkStore &setup, const std::vector<qint32> &ids)
{
    Bench::Floor floor;
    floor.operations = static_cast<int>(ids.size());
    floor.note = QStringLiteral("the shell prepares every statement anew, where the facade keeps its lookups "
                                "of the drink, glass, build and garnish prepared");
    floor.reason = QStringLiteral("the lines and categories each take a new QSqlQuery with its own prepare, the "
                                  "drink's row is copied into a QSqlRecord and its fields found by name, and "
                                  "price and cost are formatted through QLocale");
    for (qint32 id : ids) {
        const QString n = QString::number(id);
        QSqlQuery row =
            setup.select(QStringLiteral("SELECT GlassType, BuildID, GarnishID FROM Drinks WHERE id = ") + n);
        if (!row.next())
            continue;
        floor.statements << QStringLiteral("SELECT * FROM Drinks WHERE id = ") + n
                         << QStringLiteral("SELECT * FROM DrinkIngredients WHERE DrinkID = ") + n;
        if (!row.value(0).isNull())
            floor.statements << QStringLiteral("SELECT Name FROM Glassware WHERE GlassID = ") + row.value(0).toString();
        floor.statements << QStringLiteral("SELECT * FROM DrinkCategories WHERE DrinkID = ") + n;
        if (!row.value(1).isNull())
            floor.statements << QStringLiteral("SELECT Name FROM Build WHERE id = ") + row.value(1).toString();
        if (!row.value(2).isNull())
            floor.statements << QStringLiteral("SELECT Name FROM Garnish WHERE id = ") + row.value(2).toString();
    }
    return floor;
}

void facadeCases(Bench::Registry &registry, const Bench::Store &store, DrinkStore &setup)
{
    const std::vector<qint32> ids = Bench::sampleIds(store, SampleSize);
    registry.add(
        "facade.drinkAsPlainText", QStringLiteral("drinkAsPlainText, one drink"), store,
        [store, ids](benchmark::State &state) {
            DrinkStore db(store.path);
            CDrinkFacade facade(db, store.appDir);
            size_t next = 0;
            for (auto _ : state)
                benchmark::DoNotOptimize(facade.drinkAsPlainText(ids[next++ % ids.size()]));
        },
        plainTextFloor(setup, ids));
}

const Bench::Area area(40, facadeCases);

} // namespace
