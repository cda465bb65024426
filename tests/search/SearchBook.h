#pragma once

#include "search/AdvancedSearch.h"
#include "store/DrinkStore.h"

#include <QList>
#include <QSqlQuery>
#include <initializer_list>

// A small recipe book the search tests share, its rows chosen so that each rule of the
// searches shows in the drinks that come back. Drink 9 has seven lines, drink 7 none.
inline const char *kSearchBook = R"SQL(
INSERT INTO Ingredients (id, Ingredient) VALUES
  (1, 'Gin'), (2, 'Lime Juice'), (3, 'Tonic Water'), (4, 'Vodka'), (5, 'Orange Juice'), (6, 'Triple Sec'),
  (7, 'Sloe Gin'), (8, 'Rum'), (9, 'Tequila'), (10, 'Cola');
INSERT INTO Glassware (GlassID, Name) VALUES (1, 'Highball'), (2, 'Cocktail'), (3, 'Shot'), (4, 'Punch Bowl');
INSERT INTO DrinkTypes (TypeID, Type) VALUES (0, 'Unknown / Other'), (1, 'Long Drinks'), (2, 'Sours');
INSERT INTO Ratings (RatingID, Name) VALUES (1, 'Good'), (2, 'Great');
INSERT INTO Build (id, Name) VALUES (1, 'Shaken'), (2, 'Stirred');
INSERT INTO Garnish (id, Name) VALUES (1, 'Lime Wheel'), (2, 'Cherry');
INSERT INTO Drinks (id, Name, GlassType, Description, Price, Marked, DrinkType) VALUES
  (1, 'Gin and Tonic', 1, 'Pour gin over ice, top with tonic.', 4, 1, 1),
  (2, 'Gimlet', 2, 'Shake gin and lime.', 5, 0, NULL),
  (3, 'Screwdriver', 1, 'Build vodka and orange juice.', 3.5, 1, NULL),
  (4, 'Kamikaze', 3, 'Shake vodka, triple sec and lime.', 6, 1, NULL),
  (5, 'Vodka Tonic', 1, 'Vodka and tonic.', 3, 0, NULL),
  (6, 'Orange Blossom', 2, 'Gin, orange and a dash of lime.', 4.5, 0, NULL),
  (7, 'Mystery Punch', 4, 'Ask the bartender.', 2, 0, NULL),
  (8, 'Sloe Screw', 1, 'Sloe gin and orange juice.', 4, 0, NULL),
  (9, 'Long Island Iced Tea', 4, 'Build.', 7, 0, NULL);
UPDATE Drinks SET Cost = Price / 4, Comments = 'Dry' WHERE id IN (3, 4);
UPDATE Drinks SET RatingID = 2 WHERE id = 6; UPDATE Drinks SET BuildID = 1 WHERE id = 5;
UPDATE Drinks SET GarnishID = 2 WHERE id = 7;
INSERT INTO DrinkRel (DrinkID, IngID, seq) VALUES
  (1, 1, 1), (1, 3, 2), (2, 1, 1), (2, 2, 2), (3, 4, 1), (3, 5, 2), (4, 4, 1), (4, 6, 2), (4, 2, 3),
  (5, 4, 1), (5, 3, 2), (6, 1, 1), (6, 5, 2), (6, 2, 3), (8, 7, 1), (8, 5, 2),
  (9, 4, 1), (9, 8, 2), (9, 1, 3), (9, 9, 4), (9, 6, 5), (9, 2, 6), (9, 10, 7);
INSERT INTO DrinkTypeRel (DrinkID, DrinkTypeID) VALUES (1, 1), (3, 1), (5, 1), (2, 2), (4, 2);
)SQL";

// Criteria rows from the used ones: field, comparison, value, connector to the next row.
inline CriterionRows criteria(std::initializer_list<CriterionRow> used)
{
    CriterionRows r;
    size_t i = 0;
    for (const CriterionRow &row : used)
        r[i++] = row;
    return r;
}

inline QList<int> searchResults(DrinkStore &store)
{
    QList<int> ids;
    QSqlQuery q = store.select(QStringLiteral("SELECT ID FROM SearchResults ORDER BY ID"));
    while (q.next())
        ids << q.value(0).toInt();
    return ids;
}

inline const QString kEq = QStringLiteral("Is Equal To"), kGt = QStringLiteral("Is Greater Than"),
                     kLt = QStringLiteral("Is Less Than"), kStarts = QStringLiteral("Starts With"),
                     kEnds = QStringLiteral("Ends With"), kContains = QStringLiteral("Contains the word(s)");

Q_DECLARE_METATYPE(CriterionRows)
