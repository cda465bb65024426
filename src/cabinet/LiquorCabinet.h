#pragma once

#include <QString>
#include <functional>
#include <vector>

class DrinkStore;

// The liquor cabinet: which ingredients the user owns (Ingredients.Selected) and which drinks
// can be made from them (Drinks.LiqCab = 1).
namespace LiquorCabinet {

// One node of the cabinet's tree, in tree order; parent is an index into the same list, or -1
// for a type.
struct Node {
    enum Level { Type = 1, SubType = 2, Ingredient = 3 };
    int level = Type;
    int parent = -1;
    QString text;
    QString key; // "C", "S" or "I" and a number
    QString tag; // the type's, sub type's or ingredient's id as text
    bool checked = false;
};

// The tree of types, sub types and ingredients from IngMaintList. An ingredient is checked
// when it is Selected, a sub type when all its ingredients are, a type when all its sub types
// are. A type or sub type without an id above 0 is keyed by the node count plus 1, so that the
// ingredients without one still share a node with a key of its own.
std::vector<Node> LoadCabinetTree(DrinkStore &store);

// Binary search over ids sorted ascending.
bool IsIngredientSelected(const std::vector<qint32> &selectedIds, qint32 id);

// "Checking Drink <counter> of <total>"
QString ScanProgressText(int counter, int total);

// Called before the first drink and after each drink with the counter as the scan shows it
// (it may end at the total plus 1); returning true stops the scan there, before the drink just
// counted is marked.
using ScanProgress = std::function<bool(int counter, int total)>;

struct ScanOutcome {
    bool completed = false; // false when the progress callback stopped it
    bool undone = false;    // stopped while the marks were being written: nothing was stored
    int total = 0;          // drinks in the store
    int checked = 0;        // drinks whose lines were read
    int matches = 0;        // drinks marked
};

// Stores the ticks: every Selected flag cleared, then set on the ticked ids that exist, in one
// transaction. Returns the ticked ids sorted ascending, ids without a row included.
std::vector<qint32> StoreSelectedIngredients(DrinkStore &store, std::vector<qint32> tickedIds);

// Clears every LiqCab and sets it to 1 on each drink that has at least one line and whose
// lines all name an owned ingredient, walking DrinkRel in drink order. Stopped early, the drinks
// examined so far keep their marks and all others stay 0; either way the marks are stored as
// one transaction, so a failure leaves the earlier results in force. The progress is asked on
// while the marks are written too; stopped then, the whole transaction is taken back (undone).
ScanOutcome ScanForMatches(DrinkStore &store, const std::vector<qint32> &sortedSelectedIds,
                           const ScanProgress &progress = {});

// "&Find Matches" after the ticks are counted: both of the above, in one transaction, so that a
// failure leaves the ticks and the marks as they were. selectedIds, when given, receives the
// sorted ticks.
ScanOutcome FindMatches(DrinkStore &store, const std::vector<qint32> &tickedIds, const ScanProgress &progress = {},
                        std::vector<qint32> *selectedIds = nullptr);

} // namespace LiquorCabinet
