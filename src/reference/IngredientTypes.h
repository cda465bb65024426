#pragma once

#include <QString>
#include <QStringList>
#include <vector>

class DrinkStore;

// The two-level list of ingredient types and their sub types, edited as a tree and saved at
// once. The type "Undefined" is where ingredients go when their type is deleted.
namespace IngredientTypes {

struct Node {
    bool subType = false;
    QString text;
    qint32 tag = -1;  // the id in the store; -1 for a node added in the dialog
    int parent = -1;  // index of the type node of a sub type
};

// The tree as the store holds it, types in name order each followed by its sub types.
std::vector<Node> LoadTypeTree(DrinkStore &store);

QString DuplicateMessage(const QString &text);
QString UndefinedMessage();
struct Question {
    QString title;
    QString text;
};
Question DeleteQuestion(bool subType, bool hasSubTypes);

// The entry a deleted node leaves among the pending deletions: "C" or "S" and its id.
QString DeletionEntry(const Node &node);

// Writes the tree (nodes in the tree's order, a sub type after its type), then runs the
// pending deletions, in one transaction. Entries with an id of 0 or below are skipped.
void SaveTypeTree(DrinkStore &store, const std::vector<Node> &nodes, const QStringList &deletions);

} // namespace IngredientTypes
