#include "reference/IngredientTypes.h"

#include "base/VbConvert.h"
#include "store/DrinkStore.h"

#include <QSqlQuery>

namespace IngredientTypes {

std::vector<Node> LoadTypeTree(DrinkStore &store)
{
    QSqlQuery q = store.select(QStringLiteral("SELECT IngTypes.IngType, IngTypes.IngTypeID, ") +
                               QStringLiteral("IngSubTypes.IngSubTypeID, IngSubTypes.Name ") +
                               QStringLiteral("FROM IngTypes LEFT JOIN IngSubTypes ") +
                               QStringLiteral("ON IngTypes.IngTypeID = IngSubTypes.IngTypeID ") +
                               QStringLiteral("ORDER BY IngTypes.IngType, IngSubTypes.Name"));
    std::vector<Node> nodes;
    int type = -1;
    qint32 lastTypeID = 0;
    while (q.next()) {
        const qint32 typeID = q.value(1).toInt();
        if (type < 0 || typeID != lastTypeID) {
            nodes.push_back({false, q.value(0).toString(), typeID, -1});
            type = int(nodes.size()) - 1;
            lastTypeID = typeID;
        }
        if (!q.value(2).isNull())
            nodes.push_back({true, q.value(3).toString(), q.value(2).toInt(), type});
    }
    return nodes;
}

QString DuplicateMessage(const QString &text)
{
    return QStringLiteral("The Ingredient Type '") + text + QStringLiteral("' already exists.  Please enter a new name.");
}

QString UndefinedMessage()
{
    return QStringLiteral("The 'Undefined' entry cannot be deleted.");
}

Question DeleteQuestion(bool subType, bool hasSubTypes)
{
    if (subType)
        return {QStringLiteral("Delete Ingredient Sub Type"),
                QStringLiteral("Are you sure you want to delete this Ingredient Sub Type?  All Ingredients that use "
                               "this will have their types set to Undefined.")};
    if (hasSubTypes)
        return {QStringLiteral("Delete Ingredient Type"),
                QStringLiteral("Are you sure you want to delete this Ingredient Type and it's Sub Types?  All "
                               "Ingredients that use this will have their types set to Undefined.")};
    return {QStringLiteral("Delete Ingredient Type"),
            QStringLiteral("Are you sure you want to delete this Ingredient Type?  All Ingredients that use this will "
                           "have their types set to Undefined.")};
}

QString DeletionEntry(const Node &node)
{
    return (node.subType ? QStringLiteral("S") : QStringLiteral("C")) + QString::number(node.tag);
}

void SaveTypeTree(DrinkStore &store, const std::vector<Node> &nodes, const QStringList &deletions)
{
    ScopedTransaction tx(store);
    // New types are numbered from the count of types, as the list has always done.
    qint32 nextType = store.scalar(QStringLiteral("SELECT COUNT(*) FROM IngTypes")).toInt();
    QSqlQuery findSub = store.prepare(QStringLiteral("SELECT Name FROM IngSubTypes WHERE IngSubTypeID = ?"));
    QSqlQuery addSub = store.prepare(QStringLiteral("INSERT INTO IngSubTypes (Name, IngTypeID) VALUES (?, ?)"));
    QSqlQuery setSub = store.prepare(QStringLiteral("UPDATE IngSubTypes SET Name = ? WHERE IngSubTypeID = ?"));
    QSqlQuery findType = store.prepare(QStringLiteral("SELECT IngType FROM IngTypes WHERE IngTypeID = ?"));
    QSqlQuery addType = store.prepare(QStringLiteral("INSERT INTO IngTypes (IngTypeID, IngType) VALUES (?, ?)"));
    QSqlQuery setType = store.prepare(QStringLiteral("UPDATE IngTypes SET IngType = ? WHERE IngTypeID = ?"));
    const auto run = [&](QSqlQuery &q, const QVariant &a, const QVariant &b) {
        q.bindValue(0, a);
        q.bindValue(1, b);
        store.exec(q);
    };
    const auto found = [&](QSqlQuery &q, qint32 id, QString *text) {
        q.bindValue(0, id);
        store.exec(q);
        const bool hit = q.next();
        if (hit)
            *text = q.value(0).toString();
        q.finish();
        return hit;
    };
    for (const Node &n : nodes) {
        QString stored;
        if (n.subType) {
            // A sub type of a type new in this save is written under -1, the new type's tag.
            const qint32 parentTag = n.parent >= 0 ? nodes[std::size_t(n.parent)].tag : -1;
            if (n.tag >= 0 && found(findSub, n.tag, &stored)) {
                if (stored != n.text)
                    run(setSub, n.text, n.tag);
            } else {
                run(addSub, n.text, parentTag);
            }
        } else if (n.tag >= 0 && found(findType, n.tag, &stored)) {
            if (stored != n.text)
                run(setType, n.text, n.tag);
        } else {
            run(addType, nextType++, n.text);
        }
    }
    for (const QString &entry : deletions) {
        const qint32 id = qint32(VbConvert::Val(QStringView(entry).mid(1)));
        if (id <= 0)
            continue;
        if (entry.startsWith(u'C')) {
            store.execute(QStringLiteral("UPDATE Ingredients SET Type = 0, SubType = 0 WHERE Type = %1").arg(id));
            store.execute(QStringLiteral("DELETE FROM IngSubTypes WHERE IngTypeID = %1").arg(id));
            store.execute(QStringLiteral("DELETE FROM IngTypes WHERE IngTypeID = %1").arg(id));
        } else {
            store.execute(QStringLiteral("UPDATE Ingredients SET SubType = 0 WHERE SubType = %1").arg(id));
            store.execute(QStringLiteral("DELETE FROM IngSubTypes WHERE IngSubTypeID = %1").arg(id));
        }
    }
    tx.commit();
}

} // namespace IngredientTypes
