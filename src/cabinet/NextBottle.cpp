#include "cabinet/NextBottle.h"

#include "cabinet/LiquorCabinet.h"
#include "search/AdvancedSearch.h"
#include "search/SearchResults.h"
#include "store/DrinkStore.h"
#include "store/EngineReader.h"

#include <QSqlQuery>
#include <QVariant>
#include <algorithm>

namespace NextBottle {

namespace {

template <typename Rows> int indexOf(const Rows &sortedIds, qint32 id)
{
    const auto at = std::lower_bound(sortedIds.begin(), sortedIds.end(), id);
    return at != sortedIds.end() && *at == id ? static_cast<int>(at - sortedIds.begin()) : -1;
}

// The missing bottles of one drink: stops counting at three, when the drink is out of reach.
struct Shortfall {
    int count = 0;
    qint32 first = 0, second = 0; // ingredient indexes
};

} // namespace

int Book::ingredientIndex(qint32 id) const
{
    const auto at = std::lower_bound(ingredients.begin(), ingredients.end(), id,
                                     [](const Ingredient &row, qint32 value) { return row.id < value; });
    return at != ingredients.end() && at->id == id ? static_cast<int>(at - ingredients.begin()) : -1;
}

int Book::drinkIndex(qint32 id) const
{
    return indexOf(drinkIds, id);
}

Book LoadBook(DrinkStore &store)
{
    Book book;
    {
        QSqlQuery rows = store.select(QStringLiteral("SELECT id, Ingredient, unitprice FROM Ingredients ORDER BY id"));
        while (rows.next())
            book.ingredients.push_back(
                {rows.value(0).toInt(), rows.value(1).toString(), Currency::fromVariant(rows.value(2))});
    }
    {
        EngineReader drinks(store, QStringLiteral("SELECT id, Name FROM Drinks ORDER BY id"));
        while (drinks.next()) {
            book.drinkIds.push_back(drinks.integer(0));
            book.drinkNames.push_back(drinks.text(1));
        }
    }
    // Lines arrive in drink order, so each drink's run is appended whole; the run is then sorted
    // and made distinct, as one missing ingredient named on two lines is one bottle to buy.
    book.firstLine.assign(book.drinkIds.size() + 1, 0);
    std::size_t unstarted = 0; // the first drink whose run has not begun
    std::size_t runStart = 0;
    const auto closeRun = [&] {
        const auto begin = book.lines.begin() + static_cast<std::ptrdiff_t>(runStart);
        std::sort(begin, book.lines.end());
        book.lines.erase(std::unique(begin, book.lines.end()), book.lines.end());
    };
    EngineReader lines(store, QStringLiteral("SELECT DrinkID, IngID FROM DrinkRel ORDER BY DrinkID, seq"));
    while (lines.next()) {
        const int drink = lines.isNull(0) ? -1 : book.drinkIndex(lines.integer(0));
        if (drink < 0)
            continue; // lines of a drink that is gone
        if (static_cast<std::size_t>(drink) >= unstarted) {
            closeRun();
            while (unstarted <= static_cast<std::size_t>(drink))
                book.firstLine[unstarted++] = static_cast<std::uint32_t>(book.lines.size());
            runStart = book.lines.size();
        }
        const int ingredient = lines.isNull(1) ? -1 : book.ingredientIndex(lines.integer(1));
        book.lines.push_back(ingredient < 0 ? Book::kNoBottle : ingredient);
    }
    closeRun();
    while (unstarted <= book.drinkIds.size())
        book.firstLine[unstarted++] = static_cast<std::uint32_t>(book.lines.size());
    return book;
}

std::vector<qint32> StoredTicks(DrinkStore &store)
{
    std::vector<qint32> ids;
    QSqlQuery rows = store.select(QStringLiteral("SELECT id FROM Ingredients WHERE Selected <> 0 ORDER BY id"));
    while (rows.next())
        ids.push_back(rows.value(0).toInt());
    return ids;
}

QStringList SetOwned(DrinkStore &store, const QStringList &names, bool owned)
{
    std::vector<qint32> ticks = StoredTicks(store);
    QStringList unknown;
    QSqlQuery byName = store.prepare(QStringLiteral("SELECT id FROM Ingredients WHERE Ingredient = ?"));
    for (const QString &name : names) {
        byName.bindValue(0, name);
        store.exec(byName);
        bool found = false;
        while (byName.next()) {
            found = true;
            const qint32 id = byName.value(0).toInt();
            const auto at = std::lower_bound(ticks.begin(), ticks.end(), id);
            if (owned && (at == ticks.end() || *at != id))
                ticks.insert(at, id);
            else if (!owned && at != ticks.end() && *at == id)
                ticks.erase(at);
        }
        if (!found)
            unknown << name;
    }
    if (unknown.isEmpty())
        LiquorCabinet::FindMatches(store, ticks);
    return unknown;
}

Outlook Look(const Book &book, const std::vector<qint32> &tickedIds)
{
    std::vector<char> owned(book.ingredients.size(), 0);
    for (qint32 id : tickedIds) {
        const int at = book.ingredientIndex(id);
        if (at >= 0)
            owned[static_cast<std::size_t>(at)] = 1;
    }
    std::vector<int> unlocks(book.ingredients.size(), 0), bringsNear(book.ingredients.size(), 0);
    Outlook outlook;
    const auto idOf = [&](qint32 index) { return book.ingredients[static_cast<std::size_t>(index)].id; };

    for (std::size_t drink = 0; drink < book.drinkIds.size(); ++drink) {
        const std::uint32_t begin = book.firstLine[drink], end = book.firstLine[drink + 1];
        if (begin == end)
            continue; // no lines: never made, and no bottle changes that
        // kNoBottle sorts first, so an unfillable line is seen before any other.
        if (book.lines[begin] == Book::kNoBottle)
            continue;
        Shortfall missing;
        for (std::uint32_t line = begin; line < end && missing.count < 3; ++line) {
            const qint32 ingredient = book.lines[line];
            if (owned[static_cast<std::size_t>(ingredient)])
                continue;
            (missing.count == 0 ? missing.first : missing.second) = ingredient;
            ++missing.count;
        }
        const qint32 drinkId = book.drinkIds[drink];
        switch (missing.count) {
        case 0:
            outlook.canMake.push_back(drinkId);
            break;
        case 1:
            ++unlocks[static_cast<std::size_t>(missing.first)];
            outlook.missingOne.push_back({drinkId, {idOf(missing.first), 0}});
            break;
        case 2:
            ++bringsNear[static_cast<std::size_t>(missing.first)];
            ++bringsNear[static_cast<std::size_t>(missing.second)];
            outlook.missingTwo.push_back({drinkId, {idOf(missing.first), idOf(missing.second)}});
            break;
        default:
            break;
        }
    }

    for (std::size_t i = 0; i < book.ingredients.size(); ++i) {
        if (!owned[i] && (unlocks[i] > 0 || bringsNear[i] > 0))
            outlook.ranking.push_back({book.ingredients[i].id, unlocks[i], bringsNear[i]});
    }
    std::sort(outlook.ranking.begin(), outlook.ranking.end(), [&](const Candidate &a, const Candidate &b) {
        if (a.unlocks != b.unlocks)
            return a.unlocks > b.unlocks;
        if (a.bringsNear != b.bringsNear)
            return a.bringsNear > b.bringsNear;
        const int byName =
            book.ingredients[static_cast<std::size_t>(book.ingredientIndex(a.ingredientId))].name.compare(
                book.ingredients[static_cast<std::size_t>(book.ingredientIndex(b.ingredientId))].name,
                Qt::CaseInsensitive);
        return byName != 0 ? byName < 0 : a.ingredientId < b.ingredientId;
    });
    return outlook;
}

std::vector<qint32> DrinksUnlockedBy(const Outlook &outlook, qint32 ingredientId)
{
    std::vector<qint32> drinks;
    for (const NearMatch &near : outlook.missingOne) {
        if (near.missing[0] == ingredientId)
            drinks.push_back(near.drinkId);
    }
    return drinks;
}

void ShowAsSearchResults(DrinkStore &store, const Book &book, const std::vector<qint32> &drinkIds)
{
    QList<SearchCandidate> drinks;
    for (qint32 id : drinkIds) {
        const int at = book.drinkIndex(id);
        if (at >= 0)
            drinks.append({id, book.drinkNames[static_cast<std::size_t>(at)]});
    }
    ReplaceSearchResults(store, drinks);
}

} // namespace NextBottle
