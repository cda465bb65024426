#include "store/DrinkFlags.h"

#include "store/DrinkStore.h"

#include <QSqlQuery>
#include <algorithm>

bool setDrinkFlag(DrinkStore &store, const QString &column, int value, const std::vector<qint32> &ids,
                  const std::function<bool(std::size_t done)> &progress)
{
    constexpr std::size_t kChunk = 500;
    const QString head = QStringLiteral("UPDATE Drinks SET %1 = %2 WHERE id IN (").arg(column).arg(value);
    for (std::size_t start = 0; start < ids.size(); start += kChunk) {
        const std::size_t end = std::min(ids.size(), start + kChunk);
        QString sql = head;
        sql.reserve(head.size() + int(end - start) * 8);
        for (std::size_t i = start; i < end; ++i) {
            if (i > start)
                sql += u',';
            sql += QString::number(ids[i]);
        }
        sql += u')';
        QSqlQuery q = store.prepare(sql);
        store.exec(q);
        if (progress && !progress(end))
            return false;
    }
    return true;
}
