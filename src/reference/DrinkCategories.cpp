#include "reference/DrinkCategories.h"

#include "store/DrinkStore.h"

#include <QSqlQuery>
#include <algorithm>

namespace DrinkCategories {

std::vector<Category> LoadCategories(DrinkStore &store)
{
    std::vector<Category> list;
    QSqlQuery q = store.select(QStringLiteral("SELECT TypeID, Type FROM DrinkTypes"));
    while (q.next())
        list.push_back({q.value(0).toInt(), q.value(1).toString()});
    return list;
}

namespace {
bool taken(const std::vector<Category> &list, const QString &text)
{
    return std::any_of(list.begin(), list.end(), [&](const Category &c) { return c.name == text; });
}
const QString BelowTheList = QStringLiteral("Please enter a different name in the text box below the list of "
                                            "categories.");
} // namespace

QString AddProblem(const std::vector<Category> &list, const QString &text)
{
    if (text.isEmpty())
        return QStringLiteral("Please enter the description of the drink category you wish to add in the box below "
                              "the list of categories.");
    if (taken(list, text))
        return QStringLiteral("There is already a drink category named ") + text + QStringLiteral(".  ") + BelowTheList;
    return {};
}

QString UpdateProblem(const std::vector<Category> &list, const QString &selectedName, const QString &text)
{
    if (text.isEmpty())
        return QStringLiteral("Please enter the new description for the '") + selectedName +
               QStringLiteral("' drink category in the box below the list of categories.");
    if (taken(list, text))
        return QStringLiteral("There is already an drink category named '") + text + QStringLiteral("'.  ") +
               BelowTheList;
    return {};
}

QString RemoveProblem(qint32 id)
{
    return id == 0 ? QStringLiteral("You cannot remove the 'Unknown / Other' drink category.") : QString();
}

QString RemoveQuestion(const QString &name)
{
    return QStringLiteral("Are you sure that you want to remove the '") + name +
           QStringLiteral("' drink category from the list.") + u'\n' +
           QStringLiteral("All drinks with this category will be changed to 'Unknown / Other'");
}

qint32 NextCategoryID(const std::vector<Category> &list)
{
    qint32 top = -1;
    for (const Category &c : list)
        top = std::max(top, c.id);
    return top + 1;
}

void AddCategory(DrinkStore &store, qint32 id, const QString &name)
{
    QSqlQuery q = store.prepare(QStringLiteral("INSERT INTO DrinkTypes (TypeID, Type) VALUES (?, ?)"));
    q.bindValue(0, id);
    q.bindValue(1, name);
    store.exec(q);
}

void RenameCategory(DrinkStore &store, qint32 id, const QString &name)
{
    QSqlQuery q = store.prepare(QStringLiteral("UPDATE DrinkTypes SET Type = ? WHERE TypeID = ?"));
    q.bindValue(0, name);
    q.bindValue(1, id);
    store.exec(q);
}

void RemoveCategory(DrinkStore &store, qint32 id)
{
    ScopedTransaction tx(store);
    store.execute(QStringLiteral("UPDATE DrinkTypeRel SET DrinkTypeID = 0 WHERE DrinkTypeID = %1").arg(id));
    store.execute(QStringLiteral("DELETE FROM DrinkTypes WHERE TypeID = %1").arg(id));
    tx.commit();
}

void AddMarkedToCategory(DrinkStore &store, qint32 id)
{
    ScopedTransaction tx(store);
    store.execute(QStringLiteral("DELETE DrinkTypeRel.* FROM DrinkTypeRel, Drinks ") +
                  QStringLiteral("WHERE DrinkTypeRel.DrinkID = Drinks.ID ") + QStringLiteral("AND Drinks.Marked = True ") +
                  QStringLiteral("AND DrinkTypeRel.DrinkTypeID = ") + QString::number(id));
    store.execute(QStringLiteral("INSERT INTO DrinkTypeRel ( DrinkID, DrinkTypeID )") + QStringLiteral("SELECT Drinks.ID, ") +
                  QString::number(id) + u' ' + QStringLiteral("FROM Drinks WHERE Drinks.Marked = True"));
    tx.commit();
}

} // namespace DrinkCategories
