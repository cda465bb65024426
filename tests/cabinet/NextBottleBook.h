#pragma once

#include <QString>

// A small book for the next bottle, its answers worked out by hand in the tests.
//
// Ingredients: 1 Gin, 2 Vodka, 3 Rum, 4 Lime Juice, 5 Tonic, 6 Soda, 7 Mint, 8 Sugar, 9 Cola.
// Drinks and their lines (ingredient ids):
//   20 Gin and Tonic  1, 5           21 Vodka Tonic  2, 5        22 Gimlet       1, 4, 4
//   23 Mojito         3, 4, 7, 8, 6  24 Cuba Libre   3, 9, 4     25 Rum and Cola 3, 9
//   26 Vodka Soda     2, 6           27 Empty Glass  no line     28 Broken       1, no ingredient
//   29 Ghost          1, 42 (no such ingredient)                 30 Neat Rum     3
//   99                lines, but no drink
// Gin and Tonic are owned.
inline QString nextBottleBookSql()
{
    return QStringLiteral(R"(
INSERT INTO IngTypes (IngTypeID, IngType) VALUES (0, 'Undefined'), (1, 'Spirits'), (2, 'Mixers');
INSERT INTO Ingredients (id, Ingredient, unitprice, Type, Selected) VALUES
  (1, 'Gin', 21.5, 1, 1), (2, 'Vodka', 18, 1, 0), (3, 'Rum', 16.25, 1, 0), (4, 'Lime Juice', 3, 2, 0),
  (5, 'Tonic', 1.2, 2, 1), (6, 'Soda', 0.9, 2, 0), (7, 'Mint', 2, 2, 0), (8, 'Sugar', 1, 2, 0),
  (9, 'Cola', 1.5, 2, 0);
INSERT INTO Drinks (id, Name) VALUES
  (20, 'Gin and Tonic'), (21, 'Vodka Tonic'), (22, 'Gimlet'), (23, 'Mojito'), (24, 'Cuba Libre'),
  (25, 'Rum and Cola'), (26, 'Vodka Soda'), (27, 'Empty Glass'), (28, 'Broken'), (29, 'Ghost'),
  (30, 'Neat Rum');
INSERT INTO DrinkRel (DrinkID, IngID, seq) VALUES
  (20, 1, 1), (20, 5, 2), (21, 2, 1), (21, 5, 2), (22, 1, 1), (22, 4, 2), (22, 4, 3),
  (23, 3, 1), (23, 4, 2), (23, 7, 3), (23, 8, 4), (23, 6, 5), (24, 3, 1), (24, 9, 2), (24, 4, 3),
  (25, 9, 1), (25, 3, 2), (26, 2, 1), (26, 6, 2), (28, 1, 1), (28, NULL, 2), (29, 1, 1), (29, 42, 2),
  (30, 3, 1), (99, 2, 1), (99, 5, 2);
)");
}
