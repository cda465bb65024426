// Every list statement of the seven views, on Drinks and in search mode on SearchResults, as
// the main list loads it: the statement, then one forward pass reading id and name.
#include "BenchRegistry.h"

#include "presentation/DrinkListModel.h"
#include "presentation/ListSql.h"
#include "store/DrinkStore.h"

#include <QRegularExpression>

namespace {

// Views 1 to 3 list the drinks of one ingredient, glass or category: the busiest one, the
// longest list a user can choose there.
enum class Pick { Tab, BusiestIngredient, BusiestGlass, BusiestCategory };

struct ListCase {
    const char *id;
    const char *label;
    int view;
    Pick pick;
    int tab;
    bool inSearch;
    bool markedOnly;
};

constexpr int TabDigits = 0, TabS = 19, TabZ = 26;

// S is the longest letter tab of the generated names. The unmarked Z tab lists every unmarked
// name before Z, so it is the longest list of view 4.
constexpr ListCase kListCases[] = {
    {"list.name.tab-0-9", "By Name, tab 0-9", 0, Pick::Tab, TabDigits, false, false},
    {"list.name.tab-S", "By Name, tab S", 0, Pick::Tab, TabS, false, false},
    {"list.name.tab-Z", "By Name, tab Z", 0, Pick::Tab, TabZ, false, false},
    {"list.liquor", "By Liquor, busiest ingredient", 1, Pick::BusiestIngredient, 0, false, false},
    {"list.glass", "By Glassware, busiest glass", 2, Pick::BusiestGlass, 0, false, false},
    {"list.category", "By Category, busiest category", 3, Pick::BusiestCategory, 0, false, false},
    {"list.marked.tab-S", "View Marked, marked, tab S", 4, Pick::Tab, TabS, false, true},
    {"list.unmarked.tab-S", "View Marked, unmarked, tab S", 4, Pick::Tab, TabS, false, false},
    {"list.unmarked.tab-Z", "View Marked, unmarked, tab Z", 4, Pick::Tab, TabZ, false, false},
    {"list.cabinet.tab-S", "Liquor Cabinet View, tab S", 5, Pick::Tab, TabS, false, false},
    {"list.all", "View All", 6, Pick::Tab, 0, false, false},
    {"search.name.tab-S", "Search: By Name, tab S", 0, Pick::Tab, TabS, true, false},
    {"search.liquor", "Search: By Liquor, busiest ingredient", 1, Pick::BusiestIngredient, 0, true, false},
    {"search.glass", "Search: By Glassware, busiest glass", 2, Pick::BusiestGlass, 0, true, false},
    {"search.category", "Search: By Category, busiest category", 3, Pick::BusiestCategory, 0, true, false},
    {"search.marked.tab-S", "Search: View Marked, marked, tab S", 4, Pick::Tab, TabS, true, true},
    {"search.unmarked.tab-Z", "Search: View Marked, unmarked, tab Z", 4, Pick::Tab, TabZ, true, false},
    {"search.cabinet.tab-S", "Search: Liquor Cabinet View, tab S", 5, Pick::Tab, TabS, true, false},
    {"search.all", "Search: View All", 6, Pick::Tab, 0, true, false},
};

struct QuickCase {
    const char *id;
    const char *label;
    const char *text;
    bool inSearch;
};

// The first letter typed, and a few more.
constexpr QuickCase kQuickCases[] = {
    {"list.quick.S", "View All, quick search \"S\"", "S", false},
    {"list.quick.Blue-L", "View All, quick search \"Blue L\"", "Blue L", false},
    {"search.quick.S", "Search: View All, quick search \"S\"", "S", true},
};

int busiest(DrinkStore &setup, Pick pick)
{
    switch (pick) {
    case Pick::BusiestIngredient:
        return setup
            .scalar(QStringLiteral("SELECT IngID FROM DrinkRel GROUP BY IngID ORDER BY COUNT(*) DESC, IngID LIMIT 1"))
            .toInt();
    case Pick::BusiestGlass:
        return setup
            .scalar(QStringLiteral("SELECT GlassType FROM Drinks WHERE GlassType IS NOT NULL GROUP BY GlassType "
                                   "ORDER BY COUNT(*) DESC, GlassType LIMIT 1"))
            .toInt();
    case Pick::BusiestCategory:
        return setup
            .scalar(QStringLiteral("SELECT DrinkTypeID FROM DrinkTypeRel GROUP BY DrinkTypeID "
                                   "ORDER BY COUNT(*) DESC, DrinkTypeID LIMIT 1"))
            .toInt();
    case Pick::Tab:
        break;
    }
    return 0;
}

// Why a list may take more than twice the engine's time. Measured through the engine's own
// interface: on a short list the cost before the first row rules, on View All of 100,000
// drinks the bare pass is about a quarter of the load, making the names' QStrings about a
// third, Qt SQL's QVariant for each value the rest.
const QString kRowCost = QStringLiteral(
    "Qt's share: each load takes a new QSqlQuery (the connection looked up by name, the statement translated "
    "from the old dialect, prepared in UTF-16, its columns described) before the first row, then every value "
    "comes as a QVariant and every name becomes a QString of its own; the shell prints the engine's bytes as "
    "they lie");
const QString kLikeCost = QStringLiteral(
    "like() is the program's own function (the old engine's patterns): the engine reads the range of the name "
    "index that the typed letters bound, as in the shell, and hands each name of it to like() as well");

void addList(Bench::Registry &registry, const Bench::Store &store, const char *id, const QString &label,
             const QString &jetSql, Bench::Floor floor)
{
    registry.add(
        id, label, store,
        [path = store.path, jetSql](benchmark::State &state) {
            DrinkStore db(path);
            DrinkListModel model;
            // The first load fills the engine's page cache, as the shell's first run does.
            model.load(db, jetSql);
            for (auto _ : state)
                model.load(db, jetSql);
            state.counters["rows"] = model.rowCount();
        },
        std::move(floor));
}

void listCases(Bench::Registry &registry, const Bench::Store &store, DrinkStore &setup)
{
    for (const ListCase &c : kListCases) {
        const int selection = c.pick == Pick::Tab ? c.tab : busiest(setup, c.pick);
        const QString sql = BuildListSQL(c.view, selection, c.inSearch, c.markedOnly);
        Bench::Floor floor;
        floor.statements = {Bench::native(sql)};
        floor.reason = kRowCost;
        addList(registry, store, c.id, QString::fromUtf8(c.label), sql, floor);
    }

    // The program's LIKE is its own function (the old engine's patterns), which the shell does
    // not have: there the built-in LIKE with the same pattern in its own wildcards stands in.
    static const QRegularExpression likePattern(QStringLiteral("LIKE '([^']*)'"));
    for (const QuickCase &c : kQuickCases) {
        const QString sql = QuickSearchSQL(QString::fromUtf8(c.text), c.inSearch);
        Bench::Floor floor;
        QString shellSql = Bench::native(sql);
        const QRegularExpressionMatch m = likePattern.match(shellSql);
        if (m.hasMatch()) {
            QString pattern = m.captured(1);
            pattern.replace(u'*', u'%').replace(u'?', u'_');
            shellSql.replace(m.capturedStart(1), m.capturedLength(1), pattern);
            floor.note = QStringLiteral("the shell's built-in LIKE '%1', beside the same bounds on the name").arg(pattern);
        }
        floor.statements = {shellSql};
        floor.reason = kLikeCost;
        addList(registry, store, c.id, QString::fromUtf8(c.label), sql, floor);
    }
}

const Bench::Area area(20, listCases);

} // namespace
