// The drink editor and the ingredient grid: opening a drink, saving it, and reading every
// ingredient into the grid.
#include "BenchRegistry.h"

#include "editing/DrinkEditorStore.h"
#include "editing/EditorLines.h"
#include "presentation/TextGridModel.h"
#include "reference/IngredientMaint.h"
#include "store/DrinkStore.h"
#include "store/StoreError.h"

#include <QDir>
#include <QFile>
#include <QSqlQuery>
#include <vector>

namespace {

constexpr int SampleSize = 32;
constexpr int GridIngredients = 10000;

// The editor's state for a stored drink, as its controls would hand it to the save.
DrinkDraft draftOf(DrinkStore &db, qint32 id)
{
    const StoredDrink s = LoadStoredDrink(db, id);
    DrinkDraft d;
    d.drinkId = id;
    d.name = s.name;
    d.recipe = s.recipe;
    d.comments = s.comments;
    d.glassId = s.glassId;
    d.priceText = s.priceText;
    d.costText = s.costText;
    d.garnish.entries = {{QStringLiteral("garnish"), s.garnishId.value_or(0)}};
    d.garnish.selected = 0;
    d.build.entries = {{QStringLiteral("build"), s.buildId.value_or(0)}};
    d.build.selected = 0;
    d.lockPrice = s.lockPrice;
    d.imagePathText = s.imagePath;
    d.lines = s.lines;
    d.categoryIds = s.categoryIds;
    return d;
}

Bench::Floor loadFloor(const std::vector<qint32> &ids)
{
    Bench::Floor floor;
    floor.operations = static_cast<int>(ids.size());
    for (qint32 id : ids) {
        const QString n = QString::number(id);
        floor.statements << QStringLiteral("SELECT * FROM Drinks WHERE id = ") + n
                         << QStringLiteral("SELECT * FROM DrinkIngredients WHERE DrinkID = ") + n +
                                QStringLiteral(" ORDER BY Seq")
                         << QStringLiteral("SELECT * FROM DrinkTypeRel WHERE DrinkID = ") + n;
    }
    floor.note = QStringLiteral("the shell prepares each statement once per drink, as the editor does");
    floor.reason = QStringLiteral(
        "beside the three reads, each line's amount is read as a measure and costed in its unit, and the grid's and the "
        "price breakdown's texts are built in the locale's currency format, which the shell does not do");
    return floor;
}

Bench::Floor saveFloor(DrinkStore &setup, qint32 id)
{
    const QString n = QString::number(id);
    Bench::Floor floor;
    floor.statements << QStringLiteral("PRAGMA synchronous=FULL") << QStringLiteral("BEGIN IMMEDIATE")
                     << QStringLiteral("CREATE TEMP TABLE r AS SELECT * FROM DrinkRel WHERE DrinkID = ") + n
                     << QStringLiteral("CREATE TEMP TABLE c AS SELECT * FROM DrinkTypeRel WHERE DrinkID = ") + n
                     << QStringLiteral("CREATE TEMP TABLE d AS SELECT * FROM Drinks WHERE id = ") + n;
    for (const QString &sql : drinkRemovalStatements(id).mid(0, 3))
        floor.statements << sql;
    floor.statements << QStringLiteral("SELECT Count(ID) FROM SearchResults WHERE ID = ") + n
                     << QStringLiteral("INSERT INTO Drinks SELECT * FROM d")
                     << QStringLiteral("INSERT INTO DrinkRel SELECT * FROM r")
                     << QStringLiteral("INSERT INTO DrinkTypeRel SELECT * FROM c")
                     << QStringLiteral("DROP TABLE r") << QStringLiteral("DROP TABLE c") << QStringLiteral("DROP TABLE d")
                     << QStringLiteral("COMMIT");
    floor.note = QStringLiteral("the rows are copied back from temporary tables, where the editor binds each line");
    Q_UNUSED(setup);
    return floor;
}

// A copy of the store of its own with the ingredients grown to the grid's size: the other
// writing areas share the scratch copy and must not see them.
QString storeWithManyIngredients(const Bench::Store &store)
{
    const QString dir = QDir(store.appDir).filePath(QStringLiteral("scratch-ingredients"));
    const QString path = QDir(dir).filePath(QStringLiteral("drinks.db"));
    QDir().mkpath(dir);
    for (const char *suffix : {"", "-wal", "-shm"})
        QFile::remove(path + QLatin1String(suffix));
    if (!QFile::copy(store.path, path))
        throw StoreError(QStringLiteral("The store cannot be copied."), path);
    DrinkStore db(path);
    ScopedTransaction tx(db);
    const int have = db.scalar(QStringLiteral("SELECT COUNT(*) FROM Ingredients")).toInt();
    QSqlQuery add = db.prepare(QStringLiteral("INSERT INTO Ingredients (Ingredient, UnitType, ozperunit, unitprice, "
                                              "Type, SubType, Notes) SELECT Ingredient || ' ' || ?, UnitType, "
                                              "ozperunit, unitprice, Type, SubType, Notes FROM Ingredients WHERE id = ?"));
    for (int k = have; k < GridIngredients; ++k) {
        add.bindValue(0, k);
        add.bindValue(1, 1 + k % have);
        db.exec(add);
    }
    tx.commit();
    return path;
}

void editorCases(Bench::Registry &registry, const Bench::Store &store, DrinkStore &setup)
{
    const std::vector<qint32> ids = Bench::sampleIds(store, SampleSize);
    registry.add(
        "editor.open", QStringLiteral("Drink editor, a drink read into its lines and price breakdown"), store,
        [path = store.path, ids](benchmark::State &state) {
            DrinkStore db(path);
            TextGridModel lines(IngredientLineHeaders()), prices(PriceLineHeaders());
            std::size_t k = 0;
            for (auto _ : state) {
                const StoredDrink d = LoadStoredDrink(db, ids[k++ % ids.size()]);
                lines.setRows(d.lines);
                RebuildPriceLines(lines, prices, d.costText);
            }
        },
        loadFloor(ids));

    const Bench::Store copy = Bench::scratchCopy(store);
    const qint32 saved = ids[ids.size() / 2];
    registry.add(
        "editor.save", QStringLiteral("Drink editor, a drink saved over itself in one transaction"), copy,
        [path = copy.path, saved](benchmark::State &state) {
            DrinkStore db(path);
            const DrinkDraft draft = draftOf(db, saved);
            for (auto _ : state)
                SaveDrink(db, draft);
        },
        saveFloor(setup, saved));

    const QString many = storeWithManyIngredients(store);
    Bench::Store manyStore = store;
    manyStore.path = many;
    Bench::Floor gridFloor;
    gridFloor.statements << QStringLiteral("SELECT id, Ingredient, UnitType, ozperunit, unitprice, Type, SubType, "
                                           "Notes FROM IngMaintList");
    gridFloor.reason = QStringLiteral(
        "every row becomes the grid's text: the ounces as a number text, the price through the locale's currency "
        "format, eight QStrings a row from QVariants, where the shell prints the engine's bytes as they lie");
    registry.add(
        "ingmaint.load", QStringLiteral("Ingredient grid, %1 ingredients read and shown").arg(GridIngredients),
        manyStore,
        [many](benchmark::State &state) {
            DrinkStore db(many);
            TextGridModel grid(IngredientMaint::Headers());
            for (auto _ : state)
                grid.setRows(IngredientMaint::LoadRows(db));
            state.counters["rows"] = grid.rowCount();
        },
        gridFloor);
}

const Bench::Area area(90, editorCases);

} // namespace
