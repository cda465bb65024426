#pragma once

#include <QString>

// Drinks as the drink text and the drink page show them: one with every field, and others
// with fields empty, missing, unusual or pointing nowhere.
inline QString shownDrinksRows()
{
    return QStringLiteral(R"SQL(
INSERT INTO Glassware VALUES (1, 'Coupe', ''), (2, NULL, ''), (3, 'Flute', ''), (24, 'Other Glass', '');
INSERT INTO Garnish (id, Name) VALUES (1, 'Lime Wheel');
INSERT INTO Build (id, Name) VALUES (1, 'Shaken');
INSERT INTO Ratings (RatingID, Name) VALUES (1, 'Excellent');
INSERT INTO DrinkTypes VALUES (0, 'Unknown / Other'), (1, 'Sours'), (2, 'Classic Cocktails');
INSERT INTO Ingredients (id, Ingredient, Selected) VALUES (1, 'Light Rum', 1), (2, 'Lime Juice', 0);
INSERT INTO Drinks (id, Name, GlassType, Description, Comments, Price, Cost, BuildID, GarnishID, RatingID,
                    Marked, ImageFilePath) VALUES
  (5, 'Daiquiri', 1, 'Shake & strain.', 'Tart', 4.25, 1.0213, 1, 1, 1, 1, '000123'),
  (6, 'A <b> & B', NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, 0, ''),
  (7, 'Zero', 0, '', '', 1, 1, NULL, NULL, NULL, 0, ''),
  (8, 'Big', 25, '', '', 1, 1, NULL, NULL, NULL, 0, ''),
  (9, 'Flat', 3, '', '', 1, 1, NULL, NULL, NULL, 0, ''),
  (10, '!#!#Comment!#!#', 1, '', '!#!#Name!#!#', 1, 1, NULL, NULL, NULL, 0, ''),
  (20, '  Bare  ', NULL, NULL, NULL, 3, NULL, NULL, NULL, NULL, 1, NULL),
  (21, 'Lost', 77, 'x', NULL, NULL, NULL, 99, 98, NULL, 0, NULL),
  (22, 'Neg', 2, '', NULL, -1.5, 1234.5, NULL, NULL, NULL, 0, NULL);
INSERT INTO DrinkRel VALUES (5, 2, 2, '1 oz', '3.0 cl', 1), (5, 1, 1, '2 oz', '6.0 cl', 2),
  (21, 42, 1, 'orphan', '', 1);
INSERT INTO DrinkTypeRel VALUES (5, 1), (5, 2), (21, 7);
)SQL");
}
