// The search dialogs' OK: the simple search by name, and an advanced search with two ingredient
// criteria, each emptying SearchResults and filling it as the dialog does, on the store's copy.
#include "BenchRegistry.h"

#include "search/AdvancedSearch.h"
#include "search/SearchResults.h"
#include "search/SearchSql.h"
#include "store/DrinkStore.h"

#include <QRegularExpression>
#include <QSqlQuery>

namespace {

// The program's connection waits for the disk at every commit, as the shell does by default;
// said here so that the floor does what the program does whatever the shell's default.
const QString kSynchronous = QStringLiteral("PRAGMA synchronous=FULL");

// The program's LIKE is its own function (the old engine's patterns), which the shell does not
// have: there the built-in LIKE with the same patterns in its own wildcards stands in.
QString withBuiltInLike(QString sql, QStringList &patterns)
{
    static const QRegularExpression likePattern(QStringLiteral("LIKE '([^']*)'"),
                                                QRegularExpression::CaseInsensitiveOption);
    qsizetype from = 0;
    for (QRegularExpressionMatch m = likePattern.match(sql); m.hasMatch(); m = likePattern.match(sql, from)) {
        QString pattern = m.captured(1);
        pattern.replace(u'*', u'%').replace(u'?', u'_');
        sql.replace(m.capturedStart(1), m.capturedLength(1), pattern);
        from = m.capturedStart(1) + pattern.size() + 1;
        patterns << QStringLiteral("'") + pattern + u'\'';
    }
    return sql;
}

QString quoted(const QString &text)
{
    return u'\'' + QString(text).replace(u'\'', QStringLiteral("''")) + u'\'';
}

int searchResults(DrinkStore &db)
{
    return db.scalar(QStringLiteral("SELECT COUNT(*) FROM SearchResults")).toInt();
}

// Kind 301 with "Match anywhere": the pattern "*gin*".
void simpleSearchCase(Bench::Registry &registry, const Bench::Store &copy)
{
    const QString sql = SimpleSearchSQL(SearchKind::ByName, SimpleSearchPattern(QStringLiteral("gin"), true));

    Bench::Floor floor;
    QStringList patterns;
    floor.statements = {kSynchronous, QStringLiteral("BEGIN"), Bench::native(kDeleteSearchResults),
                        withBuiltInLike(Bench::native(sql), patterns), QStringLiteral("COMMIT")};
    floor.note = QStringLiteral("the shell's built-in LIKE %1; synchronous=FULL, as the program's connection "
                                "writes")
                     .arg(patterns.join(QStringLiteral(", ")));
    floor.reason = QStringLiteral(
        "like() is the program's own function (the old engine's patterns): every one of the names is handed to it "
        "and compared without case or accents, where the shell's built-in LIKE folds ASCII letters only");

    registry.add(
        "search-dialog.name", QStringLiteral("Search by Name \"*gin*\": empty and fill SearchResults"), copy,
        [path = copy.path, sql](benchmark::State &state) {
            DrinkStore db(path);
            // As frmSearch's OK: the emptying and the new rows in one transaction.
            const auto search = [&] { ReplaceSearchResults(db, sql); };
            search();
            for (auto _ : state)
                search();
            state.counters["rows"] = searchResults(db);
        },
        floor);
}

// Ingredient contains "gin" And Ingredient contains "lime", as the dialog's rows hold them when
// the user picks the field in two rows and types the values.
CriterionRows ginAndLime()
{
    const QString contains = QStringLiteral("Contains the word(s)");
    CriterionRows rows;
    rows[0] = {QStringLiteral("Ingredient"), contains, QStringLiteral("gin"), QStringLiteral("And")};
    rows[1] = {QStringLiteral("Ingredient"), contains, QStringLiteral("lime"), QStringLiteral("And")};
    return rows;
}

void advancedSearchCase(Bench::Registry &registry, const Bench::Store &copy, DrinkStore &setup)
{
    const CriterionRows rows = ginAndLime();
    const AdvancedQuery query = ComposeAdvancedSearch(rows);

    // The floor runs the statements the program runs for these rows: the candidates, their
    // ingredients, and the rows written.
    QString candidates;
    {
        QSqlQuery q = setup.select(query.sql);
        while (q.next())
            candidates += (candidates.isEmpty() ? QString() : QStringLiteral(",")) + q.value(0).toString();
    }
    const QList<SearchCandidate> found = FindIngredientMatches(setup, query);
    Bench::Floor floor;
    QStringList patterns;
    floor.statements << withBuiltInLike(Bench::native(query.sql), patterns);
    if (!candidates.isEmpty())
        floor.statements << QStringLiteral("SELECT DrinkID, Ingredient FROM DrinkIngredients WHERE DrinkID IN (") +
                                candidates + u')';
    if (!found.isEmpty()) {
        floor.statements << kSynchronous << QStringLiteral("BEGIN") << Bench::native(kDeleteSearchResults);
        for (const SearchCandidate &d : found)
            floor.statements
                << QStringLiteral("INSERT INTO SearchResults (ID, Name) VALUES (%1, %2)").arg(d.id).arg(quoted(d.name));
        floor.statements << QStringLiteral("COMMIT");
    }
    floor.note = QStringLiteral("the shell's built-in LIKE %1; each result's INSERT parsed anew, where the program "
                                "binds one prepared statement; synchronous=FULL, as the program's connection "
                                "writes")
                     .arg(patterns.join(QStringLiteral(", ")));

    registry.add(
        "search-dialog.advanced",
        QStringLiteral("Advanced search: Ingredient contains \"gin\" And Ingredient contains \"lime\""), copy,
        [path = copy.path, rows](benchmark::State &state) {
            DrinkStore db(path);
            // As frmAdvSearch's OK on the ingredient path: composed, verified drink by drink, and
            // the results written in one transaction unless there are none.
            const auto search = [&] {
                const AdvancedQuery q = ComposeAdvancedSearch(rows);
                const QList<SearchCandidate> drinks = FindIngredientMatches(db, q);
                if (drinks.isEmpty())
                    return;
                ReplaceSearchResults(db, drinks);
            };
            search();
            for (auto _ : state)
                search();
            state.counters["rows"] = searchResults(db);
        },
        floor);
}

void searchCases(Bench::Registry &registry, const Bench::Store &store, DrinkStore &setup)
{
    const Bench::Store copy = Bench::scratchCopy(store);
    simpleSearchCase(registry, copy);
    advancedSearchCase(registry, copy, setup);
}

const Bench::Area area(60, searchCases);

} // namespace
