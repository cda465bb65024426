#include "cabinet/LiquorCabinet.h"

#include "store/DrinkStore.h"
#include "store/DrinkFlags.h"
#include "store/EngineReader.h"
#include "store/StoreError.h"

#include <QSqlQuery>
#include <QSqlRecord>
#include <QStringList>
#include <QVariant>
#include <algorithm>

namespace LiquorCabinet {

namespace {

const QString kTreeSql = QStringLiteral("SELECT * FROM IngMaintList ORDER BY Type, SubType, Ingredient");
const QString kClearSelectedSql = QStringLiteral("UPDATE DISTINCTROW Ingredients SET Ingredients.Selected = No "
                                                 "WHERE Ingredients.Selected=Yes");

QString groupKey(QChar letter, const QVariant &id, std::size_t nodeCount)
{
    const qint64 value = id.toLongLong();
    return letter + QString::number(value > 0 ? value : static_cast<qint64>(nodeCount) + 1);
}

// A parent is checked when all its children are; children come right after their parent.
void checkParents(std::vector<Node> &nodes, Node::Level level)
{
    std::vector<int> childCount(nodes.size(), 0), checkedCount(nodes.size(), 0);
    for (const Node &n : nodes) {
        if (n.level != level + 1 || n.parent < 0)
            continue;
        ++childCount[static_cast<std::size_t>(n.parent)];
        if (n.checked)
            ++checkedCount[static_cast<std::size_t>(n.parent)];
    }
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        if (nodes[i].level == level)
            nodes[i].checked = childCount[i] > 0 && checkedCount[i] == childCount[i];
    }
}

} // namespace

std::vector<Node> LoadCabinetTree(DrinkStore &store)
{
    std::vector<Node> nodes;
    QSqlQuery rows = store.select(kTreeSql);
    const int typeCol = rows.record().indexOf(QStringLiteral("Type"));
    const int typeIdCol = rows.record().indexOf(QStringLiteral("TypeID"));
    const int subCol = rows.record().indexOf(QStringLiteral("SubType"));
    const int subIdCol = rows.record().indexOf(QStringLiteral("SubTypeID"));
    const int nameCol = rows.record().indexOf(QStringLiteral("Ingredient"));
    const int idCol = rows.record().indexOf(QStringLiteral("id"));
    const int selectedCol = rows.record().indexOf(QStringLiteral("Selected"));

    int typeNode = -1, subNode = -1;
    QString lastType, lastSub;
    while (rows.next()) {
        // A null name shows as an empty text and groups with the other empty ones.
        const QString type = rows.value(typeCol).toString();
        const QString sub = rows.value(subCol).toString();
        if (typeNode < 0 || type != lastType) {
            Node n;
            n.level = Node::Type;
            n.text = type;
            n.key = groupKey(u'C', rows.value(typeIdCol), nodes.size());
            n.tag = QString::number(rows.value(typeIdCol).toLongLong());
            nodes.push_back(n);
            typeNode = static_cast<int>(nodes.size()) - 1;
            lastType = type;
            subNode = -1; // the groups nest: a new type starts its own sub types
        }
        if (subNode < 0 || sub != lastSub) {
            Node n;
            n.level = Node::SubType;
            n.parent = typeNode;
            n.text = sub;
            n.key = groupKey(u'S', rows.value(subIdCol), nodes.size());
            n.tag = QString::number(rows.value(subIdCol).toLongLong());
            nodes.push_back(n);
            subNode = static_cast<int>(nodes.size()) - 1;
            lastSub = sub;
        }
        Node n;
        n.level = Node::Ingredient;
        n.parent = subNode;
        n.text = rows.value(nameCol).toString();
        const QString id = QString::number(rows.value(idCol).toLongLong());
        n.key = QStringLiteral("I") + id;
        n.tag = id;
        n.checked = rows.value(selectedCol).toInt() != 0;
        nodes.push_back(n);
    }
    checkParents(nodes, Node::SubType);
    checkParents(nodes, Node::Type);
    return nodes;
}

bool IsIngredientSelected(const std::vector<qint32> &selectedIds, qint32 id)
{
    qint64 low = 0, high = static_cast<qint64>(selectedIds.size()) - 1;
    while (low <= high) {
        const qint64 middle = (low + high) / 2;
        const qint32 value = selectedIds[static_cast<std::size_t>(middle)];
        if (value == id)
            return true;
        if (id < value)
            high = middle - 1;
        else
            low = middle + 1;
    }
    return false;
}

QString ScanProgressText(int counter, int total)
{
    return QStringLiteral("Checking Drink ") + QString::number(counter) + QStringLiteral(" of ") +
           QString::number(total);
}

std::vector<qint32> StoreSelectedIngredients(DrinkStore &store, std::vector<qint32> tickedIds)
{
    ScopedTransaction tx(store);
    store.execute(kClearSelectedSql);
    QSqlQuery tick = store.prepare(QStringLiteral("UPDATE Ingredients SET Selected = 1 WHERE id = ?"));
    for (qint32 id : tickedIds) {
        tick.bindValue(0, id);
        store.exec(tick);
    }
    tx.commit();
    std::sort(tickedIds.begin(), tickedIds.end());
    return tickedIds;
}

ScanOutcome ScanForMatches(DrinkStore &store, const std::vector<qint32> &sortedSelectedIds,
                           const ScanProgress &progress)
{
    ScanOutcome outcome;
    ScopedTransaction tx(store);

    // The drinks and their marks, read once; each group of lines then finds its drink here.
    std::vector<qint32> drinkIds, oldMarks;
    {
        EngineReader drinks(store, QStringLiteral("SELECT id, LiqCab FROM Drinks ORDER BY id"));
        while (drinks.next()) {
            drinkIds.push_back(drinks.integer(0));
            oldMarks.push_back(drinks.integer(1));
        }
    }
    outcome.total = static_cast<int>(drinkIds.size());
    std::vector<bool> matched(drinkIds.size(), false);

    EngineReader lines(store, QStringLiteral("SELECT DrinkID, IngID FROM DrinkRel ORDER BY DrinkID, seq"));
    int counter = 1;
    bool more = lines.next();
    bool stopped = more && progress && progress(counter, outcome.total);
    while (more && !stopped) {
        // One group: the lines of one DrinkID. Lines of no drink at all (null) group together.
        const bool drinkNull = lines.isNull(0);
        const qint32 drinkID = lines.integer(0);
        const auto drink = std::lower_bound(drinkIds.begin(), drinkIds.end(), drinkID);
        const bool found = !drinkNull && drink != drinkIds.end() && *drink == drinkID;
        int owned = 0, missing = 0;
        do {
            if (!lines.isNull(1) && IsIngredientSelected(sortedSelectedIds, lines.integer(1)))
                ++owned;
            else
                ++missing;
            more = lines.next();
        } while (more && lines.isNull(0) == drinkNull && lines.integer(0) == drinkID);
        ++outcome.checked;
        ++counter;
        stopped = progress && progress(counter, outcome.total);
        if (stopped)
            break;
        if (found && missing == 0 && owned > 0) {
            matched[static_cast<std::size_t>(drink - drinkIds.begin())] = true;
            ++outcome.matches;
        }
    }
    outcome.completed = !stopped;

    // Every mark is cleared and the matches marked, at once: written as the difference to the
    // stored marks, so that a large book is not rewritten for the few marks that change.
    std::vector<qint32> clear, mark;
    for (std::size_t i = 0; i < drinkIds.size(); ++i) {
        if (matched[i] && oldMarks[i] != 1)
            mark.push_back(drinkIds[i]);
        else if (!matched[i] && oldMarks[i] != 0)
            clear.push_back(drinkIds[i]);
    }
    // A large book takes a while to write: the progress stays on screen and Cancel answers.
    const auto stop = [&] { return !stopped && progress && progress(counter, outcome.total); };
    const auto keepGoing = [&](std::size_t) { return !stop(); };
    if (!setDrinkFlag(store, QStringLiteral("LiqCab"), 0, clear, keepGoing) ||
        !setDrinkFlag(store, QStringLiteral("LiqCab"), 1, mark, keepGoing)) {
        outcome = ScanOutcome();
        outcome.undone = true;
        return outcome; // the transaction rolls back on the way out
    }
    tx.commit();
    return outcome;
}

ScanOutcome FindMatches(DrinkStore &store, const std::vector<qint32> &tickedIds, const ScanProgress &progress,
                        std::vector<qint32> *selectedIds)
{
    ScopedTransaction tx(store);
    std::vector<qint32> sorted = StoreSelectedIngredients(store, tickedIds);
    const ScanOutcome outcome = ScanForMatches(store, sorted, progress);
    if (outcome.undone)
        return outcome;
    tx.commit();
    if (selectedIds)
        *selectedIds = std::move(sorted);
    return outcome;
}

} // namespace LiquorCabinet
