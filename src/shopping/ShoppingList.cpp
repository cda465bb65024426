#include "shopping/ShoppingList.h"

#include "base/VbConvert.h"
#include "shopping/PurchaseAmount.h"
#include "store/DrinkStore.h"

#include <QSqlQuery>

// The rows of the saved query ShoppingListQuery, with the tables taken in the order written
// (CROSS JOIN keeps it): from the chosen drinks to their lines by the drink's index. Left to
// itself the engine walks the ingredients in name order and every line of the book under each,
// which takes most of a second on a large book for any list.
QString ShoppingList::sumsStatement()
{
    return QStringLiteral(
        "SELECT I.Ingredient AS Ingredient, SUM(R.measure) AS SumOfMeasure "
        "FROM tmp_ShopList L CROSS JOIN DrinkRel R ON R.DrinkID = L.id CROSS JOIN Ingredients I ON R.IngID = I.id "
        "GROUP BY I.Ingredient ORDER BY I.Ingredient");
}

std::optional<int> ShoppingList::numberOfDrinks(const QString &typed)
{
    const std::optional<qint32> n = VbConvert::CLng(VbConvert::Val(typed));
    if (!n || *n <= 0)
        return std::nullopt;
    return *n;
}

std::vector<ShoppingList::Row> ShoppingList::Generate(DrinkStore &store, const std::vector<qint32> &drinkIds,
                                                      int numDrinks, int family, const Stage &stage)
{
    if (stage)
        stage(QString::fromLatin1(kStoringDrinks));
    {
        // One write for the whole selection: a thousand drinks are stored at the speed of one.
        ScopedTransaction tx(store);
        store.execute(QStringLiteral("DELETE * FROM tmp_ShopList"));
        QSqlQuery insert = store.prepare(QStringLiteral("INSERT INTO tmp_ShopList (id) VALUES (?)"));
        for (qint32 id : drinkIds) {
            insert.bindValue(0, id);
            store.exec(insert);
        }
        tx.commit();
    }
    if (stage)
        stage(QString::fromLatin1(kSumming));

    std::vector<Row> rows;
    QSqlQuery sums = store.prepare(sumsStatement());
    store.exec(sums);
    while (sums.next()) {
        float ounces = float(double(numDrinks) * sums.value(1).toDouble());
        if (ounces > 0) {
            Row row;
            row.ingredient = sums.value(0).toString();
            row.amount = GetPurchaseAmount(ounces, family);
            rows.push_back(std::move(row));
        }
    }
    return rows;
}
