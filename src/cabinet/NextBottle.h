#pragma once

#include "base/Currency.h"

#include <QString>
#include <QStringList>
#include <array>
#include <cstdint>
#include <vector>

class DrinkStore;

// The cabinet's next bottle: which drinks the owned ingredients leave one or two bottles short,
// and which bottle to buy next. A drink counts as the cabinet's scan counts it: every line must
// be owned, and a drink without lines is never made. A line whose ingredient is empty or names
// no ingredient row can be neither owned nor bought, so its drink is never near either.
namespace NextBottle {

// The book held in memory, by ids: each drink's distinct ingredients as indexes into
// `ingredients`, read once so that any set of ticks is answered without the store.
struct Book {
    struct Ingredient {
        qint32 id = 0;
        QString name;
        Currency unitPrice;
    };
    static constexpr qint32 kNoBottle = -1; // a line no ingredient row fills

    std::vector<Ingredient> ingredients;  // ascending id
    std::vector<qint32> drinkIds;         // ascending
    std::vector<QString> drinkNames;      // beside drinkIds
    std::vector<std::uint32_t> firstLine; // drink i's ingredients: lines[firstLine[i] .. firstLine[i+1])
    std::vector<qint32> lines;

    // Index into ingredients or drinkIds, -1 when there is no such row.
    int ingredientIndex(qint32 id) const;
    int drinkIndex(qint32 id) const;
};

// Reads the ingredients, the drinks and every line in three passes over the store.
Book LoadBook(DrinkStore &store);

// The ingredients the store holds as owned (Ingredients.Selected), ascending.
std::vector<qint32> StoredTicks(DrinkStore &store);

// Ticks (owned true) or unticks ingredients by name, as the store compares names, every
// ingredient of that name; then stores the ticks and marks the drinks they make, as Find
// Matches does. Returns the names no ingredient has: with any, nothing is stored.
QStringList SetOwned(DrinkStore &store, const QStringList &names, bool owned);

// A drink one or two bottles short, and the bottles (ingredient ids, ascending; the second is 0
// when one is missing).
struct NearMatch {
    qint32 drinkId = 0;
    std::array<qint32, 2> missing{};
    bool operator==(const NearMatch &) const = default;
};

// An unticked ingredient and what buying it would change: the drinks it alone completes, and
// the drinks it brings within one more bottle.
struct Candidate {
    qint32 ingredientId = 0;
    int unlocks = 0;
    int bringsNear = 0;
    bool operator==(const Candidate &) const = default;
};

struct Outlook {
    std::vector<qint32> canMake;       // ascending drink id
    std::vector<NearMatch> missingOne; // ascending drink id
    std::vector<NearMatch> missingTwo; // ascending drink id
    // Every unticked ingredient that unlocks or brings near at least one drink: most unlocked
    // first, then most brought near, then by name and id.
    std::vector<Candidate> ranking;
};

// One pass over the book's lines for these ticks (any order; ids without a row are ignored).
Outlook Look(const Book &book, const std::vector<qint32> &tickedIds);

// The drinks that buying this one ingredient would complete, ascending.
std::vector<qint32> DrinksUnlockedBy(const Outlook &outlook, qint32 ingredientId);

// Replaces SearchResults with these drinks, so the main list can show them as it shows a
// search. Ids the book does not hold are left out.
void ShowAsSearchResults(DrinkStore &store, const Book &book, const std::vector<qint32> &drinkIds);

} // namespace NextBottle
