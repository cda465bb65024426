#pragma once

#include "store/DrinkStore.h"

#include <QSqlQuery>
#include <QString>

using IdList = QList<qint32>;

inline IdList idsWhere(DrinkStore &store, const QString &sql)
{
    IdList ids;
    QSqlQuery q = store.select(sql);
    while (q.next())
        ids.append(q.value(0).toInt());
    return ids;
}

// The drinks the cabinet marked, and the ingredients ticked as owned.
inline IdList marked(DrinkStore &store)
{
    return idsWhere(store, QStringLiteral("SELECT id FROM Drinks WHERE LiqCab = 1 ORDER BY id"));
}

inline IdList selected(DrinkStore &store)
{
    return idsWhere(store, QStringLiteral("SELECT id FROM Ingredients WHERE Selected <> 0 ORDER BY id"));
}

// A small book for the cabinet: types with and without sub types, a type without a row of its
// own, drinks that match, miss one ingredient or have no line, lines whose drink is gone.
//
// Drinks and their lines (ingredient ids):
//   10 Gin and Tonic  1, 5        12 Daiquiri   2, 4, 4      14 Dark Daiquiri  3, 4
//   16 Gin Fill       1 (Fill With)               18 Empty Glass   no line
//   11 and 99         lines, but no drink
// Drinks 16 and 18 start marked, as an earlier scan could have left them.
inline QString cabinetBookSql()
{
    return QStringLiteral(R"(
INSERT INTO IngTypes (IngTypeID, IngType) VALUES (0, 'Undefined'), (1, 'Spirits'), (2, 'Mixers');
INSERT INTO IngSubTypes (IngSubTypeID, IngTypeID, Name) VALUES (1, 1, 'Gin'), (2, 1, 'Rum'), (3, 2, 'Juice');
INSERT INTO Ingredients (id, Ingredient, Type, SubType, Selected) VALUES
  (1, 'Gin', 1, 1, 1), (2, 'Light Rum', 1, 2, 0), (3, 'Dark Rum', 1, 2, 0), (4, 'Lime Juice', 2, 3, 1),
  (5, 'Tonic', 2, 0, 1), (6, 'Bitters', 0, 0, 0), (7, 'Mystery', 9, 0, 0);
INSERT INTO Drinks (id, Name, LiqCab) VALUES
  (10, 'Gin and Tonic', 0), (12, 'Daiquiri', 0), (14, 'Dark Daiquiri', 0), (16, 'Gin Fill', 1),
  (18, 'Empty Glass', 1);
INSERT INTO DrinkRel (DrinkID, IngID, seq, amount, measure) VALUES
  (10, 1, 1, '2 oz', 2), (10, 5, 2, '4 oz', 4),
  (11, 1, 1, '1 oz', 1),
  (12, 2, 1, '2 oz', 2), (12, 4, 2, '1 oz', 1), (12, 4, 3, '1 dash', 0.03),
  (14, 3, 1, '2 oz', 2), (14, 4, 2, '1 oz', 1),
  (16, 1, 1, 'Fill With', 0),
  (99, 1, 1, '1 oz', 1), (99, 5, 2, '1 oz', 1);
)");
}
