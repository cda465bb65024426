#include "reference/IngredientMerge.h"

#include "store/DrinkStore.h"

#include <QSqlQuery>

namespace IngredientMerge {

QString MergeNote(const QString &name)
{
    return QStringLiteral("All the places where  '") + name +
           QStringLiteral("' is used will be combined with the ingredient you select below.  The '") + name +
           QStringLiteral("' ingredient will then be deleted.");
}

QString SelfMergeMessage()
{
    return QStringLiteral("You cannot merge an ingredient with itself.");
}

void MergeIngredient(DrinkStore &store, qint32 source, qint32 target)
{
    ScopedTransaction tx(store);
    store.execute(QStringLiteral("UPDATE DrinkRel SET IngID = %1 WHERE IngID = %2").arg(target).arg(source));
    store.execute(QStringLiteral("DELETE FROM Ingredients WHERE ID = %1").arg(source));
    tx.commit();
}

QString UsageSQL(qint32 ingID)
{
    return QStringLiteral("SELECT DISTINCT D.Name FROM Drinks D, DrinkRel R ") + QStringLiteral("WHERE R.IngID = ") +
           QString::number(ingID) + u' ' + QStringLiteral("AND D.ID = R.DrinkID ORDER BY D.Name");
}

QStringList IngredientUsage(DrinkStore &store, qint32 ingID)
{
    QStringList names;
    QSqlQuery q = store.select(UsageSQL(ingID));
    while (q.next())
        names << q.value(0).toString();
    return names;
}

QString UsageNote(const QString &name, int count)
{
    return count == 0 ? u'\'' + name + QStringLiteral("' is not being used.")
                      : u'\'' + name + QStringLiteral("' is used in the following drinks:");
}

QString UsageCount(int count)
{
    // The count is a 16-bit number and has no singular.
    return QString::number(qint16(count)) + QStringLiteral(" drinks.");
}

} // namespace IngredientMerge
