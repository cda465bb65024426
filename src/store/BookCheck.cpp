#include "store/BookCheck.h"

#include "base/Currency.h"
#include "store/DrinkStore.h"

#include <QSqlQuery>

QStringList checkBook(DrinkStore &store)
{
    QStringList problems;
    {
        QSqlQuery q = store.prepare(QStringLiteral("PRAGMA integrity_check"));
        store.exec(q);
        while (q.next()) {
            const QString text = q.value(0).toString();
            if (text != QLatin1String("ok"))
                problems << QStringLiteral("engine: ") + text;
        }
    }
    {
        QSqlQuery q = store.prepare(QStringLiteral(
            "SELECT R.DrinkID, D.Name, R.seq, R.IngID FROM DrinkRel R LEFT JOIN Drinks D ON D.id = R.DrinkID "
            "WHERE NOT EXISTS (SELECT 1 FROM Ingredients I WHERE I.id = R.IngID) ORDER BY R.DrinkID, R.seq"));
        store.exec(q);
        while (q.next())
            problems << QStringLiteral("drink %1 (%2): line %3 names ingredient %4, which does not exist")
                            .arg(q.value(0).toInt())
                            .arg(q.value(1).toString())
                            .arg(q.value(2).toInt())
                            .arg(q.value(3).toInt());
    }
    {
        QSqlQuery q = store.prepare(QStringLiteral(
            "SELECT T.DrinkID, D.Name, T.DrinkTypeID FROM DrinkTypeRel T LEFT JOIN Drinks D ON D.id = T.DrinkID "
            "WHERE NOT EXISTS (SELECT 1 FROM DrinkTypes C WHERE C.TypeID = T.DrinkTypeID) ORDER BY T.DrinkID"));
        store.exec(q);
        while (q.next())
            problems << QStringLiteral("drink %1 (%2): category %3 does not exist")
                            .arg(q.value(0).toInt())
                            .arg(q.value(1).toString())
                            .arg(q.value(2).toInt());
    }
    {
        QSqlQuery q = store.prepare(QStringLiteral(
            "SELECT D.id, D.Name, D.Cost, C.Cost FROM Drinks D JOIN DrinkCost C ON C.DrinkID = D.id ORDER BY D.id"));
        q.setForwardOnly(true);
        store.exec(q);
        while (q.next()) {
            const Currency stored = Currency::fromVariant(q.value(2));
            const Currency rule = Currency::fromVariant(q.value(3));
            if (stored != rule)
                problems << QStringLiteral("drink %1 (%2): cost %3 where its lines give %4")
                                .arg(q.value(0).toInt())
                                .arg(q.value(1).toString(), stored.toSqlText(), rule.toSqlText());
        }
    }
    return problems;
}
