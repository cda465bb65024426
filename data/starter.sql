-- A small starter recipe book: enough for the program to open and show real drinks.
BEGIN;
INSERT INTO IngTypes (IngTypeID, IngType) VALUES
  (0, 'Undefined'), (1, 'Spirits'), (2, 'Liqueurs'), (3, 'Wine and Beer'), (4, 'Mixers'), (5, 'Fruit and Garnish');
INSERT INTO IngSubTypes (IngSubTypeID, IngTypeID, Name) VALUES
  (1, 1, 'Gin'), (2, 1, 'Rum'), (3, 1, 'Tequila'), (4, 1, 'Vodka'), (5, 1, 'Whiskey'),
  (6, 2, 'Orange Liqueur'), (7, 3, 'Vermouth'), (8, 4, 'Juice'), (9, 4, 'Soda'), (10, 4, 'Syrup');

INSERT INTO Ingredients (id, Ingredient, UnitType, ozperunit, unitprice, Notes, Type, SubType) VALUES
  (1, 'Gin', '750 ml bottle', 25.4, 22.99, 'London dry', 1, 1),
  (2, 'Light Rum', '750 ml bottle', 25.4, 15.99, '', 1, 2),
  (3, 'Tequila', '750 ml bottle', 25.4, 24.99, 'Blanco, 100% agave', 1, 3),
  (4, 'Vodka', '1 L bottle', 33.8, 19.99, '', 1, 4),
  (5, 'Bourbon Whiskey', '750 ml bottle', 25.4, 27.99, '', 1, 5),
  (6, 'Triple Sec', '750 ml bottle', 25.4, 11.99, '', 2, 6),
  (7, 'Dry Vermouth', '750 ml bottle', 25.4, 9.99, '', 3, 7),
  (8, 'Sweet Vermouth', '750 ml bottle', 25.4, 9.99, '', 3, 7),
  (9, 'Lime Juice', '1 L bottle', 33.8, 6.49, 'Fresh squeezed', 4, 8),
  (10, 'Lemon Juice', '1 L bottle', 33.8, 6.49, 'Fresh squeezed', 4, 8),
  (11, 'Simple Syrup', '1 L bottle', 33.8, 4.99, 'Equal parts sugar and water', 4, 10),
  (12, 'Club Soda', '1 L bottle', 33.8, 1.49, '', 4, 9),
  (13, 'Angostura Bitters', '4 oz bottle', 4, 8.99, '', 2, 0),
  (14, 'Mint', 'bunch', 20, 1.99, 'Sprigs', 5, 0),
  (15, 'Orange', 'each', 8, 0.79, 'Slices and peels', 5, 0),
  (16, 'Sugar Cube', 'box', 100, 3.49, '', 0, 0);

INSERT INTO Glassware (GlassID, Name, Notes) VALUES
  (1, 'Cocktail Glass', 'Stemmed, cone-shaped bowl, 4 to 7 oz.'),
  (2, 'Old-Fashioned Glass', 'Short tumbler with a heavy base, 6 to 10 oz.'),
  (3, 'Highball Glass', 'Tall straight tumbler, 8 to 12 oz.'),
  (4, 'Collins Glass', 'Taller and narrower than a highball, 10 to 14 oz.'),
  (5, 'Margarita Glass', 'Stemmed glass with a wide, stepped bowl.'),
  (6, 'Champagne Flute', 'Tall narrow bowl that keeps the bubbles.'),
  (7, 'Shot Glass', 'Small glass for a single measure, 1 to 2 oz.'),
  (8, 'Wine Glass', 'Stemmed glass with a rounded bowl.'),
  (9, 'Hurricane Glass', 'Tall curved glass for tropical drinks.'),
  (10, 'Pint Glass', '16 oz glass for beer and large mixed drinks.'),
  (11, 'Beer Mug', 'Heavy glass with a handle.'),
  (12, 'Brandy Snifter', 'Short stem and a wide bowl that narrows at the top.'),
  (13, 'Cordial Glass', 'Small stemmed glass for liqueurs.'),
  (14, 'Irish Coffee Mug', 'Heat-proof stemmed glass with a handle.'),
  (15, 'Sour Glass', 'Stemmed, tulip-shaped glass for sours.'),
  (16, 'Coupe', 'Shallow, broad-bowled stemmed glass.'),
  (17, 'Copper Mug', 'Copper mug that keeps the drink cold.'),
  (18, 'Tiki Mug', 'Ceramic mug for tropical drinks.'),
  (19, 'Punch Cup', 'Small cup with a handle for punch.'),
  (20, 'Parfait Glass', 'Tall footed glass for layered and ice cream drinks.'),
  (21, 'Pousse Cafe Glass', 'Narrow glass for layered liqueurs.'),
  (22, 'Julep Cup', 'Metal cup that frosts over with crushed ice.'),
  (23, 'Pilsner Glass', 'Tall tapered glass for light beers.'),
  (24, 'Unknown Glass', 'Any glass that fits the drink.');

INSERT INTO DrinkTypes (TypeID, Type) VALUES
  (0, 'Unknown / Other'), (1, 'Classic Cocktails'), (2, 'Highballs'), (3, 'Sours'), (4, 'Martinis');

INSERT INTO Garnish (id, Name) VALUES (1, 'Lime Wedge'), (2, 'Lemon Twist'), (3, 'Olive'), (4, 'Mint Sprig'), (5, 'Orange Slice');
INSERT INTO Build (id, Name) VALUES (1, 'Shaken'), (2, 'Stirred'), (3, 'Built'), (4, 'Muddled');
INSERT INTO Ratings (RatingID, Name) VALUES (1, 'Not Rated'), (2, 'Fair'), (3, 'Good'), (4, 'Very Good'), (5, 'Excellent');

INSERT INTO Drinks (id, Name, GlassType, Description, Comments, Price, Cost, BuildID, GarnishID, RatingID, LockPrice, ImageFilePath, Marked, LiqCab) VALUES
  (1, 'Daiquiri', 16, 'Shake the rum, lime juice and syrup hard with ice and strain into a chilled coupe.', '', 4.25, 1.02, 1, 1, 5, 0, '', 0, 0),
  (2, 'Dry Martini', 1, 'Stir the gin and vermouth with ice until very cold and strain into a chilled cocktail glass.', '', 5.50, 1.78, 2, 3, 5, 0, '', 0, 0),
  (3, 'Margarita', 5, 'Shake with ice and strain into a salt-rimmed glass over fresh ice.', '', 5.25, 1.73, 1, 1, 4, 0, '', 0, 0),
  (4, 'Mojito', 4, 'Muddle the mint gently with syrup and lime, add rum and ice, and top with soda.', '', 5.00, 1.02, 4, 4, 4, 0, '', 0, 0),
  (5, 'Old Fashioned', 2, 'Muddle the sugar with bitters and a splash of water, add bourbon and ice, and stir.', '', 5.75, 2.34, 4, 5, 5, 0, '', 0, 0),
  (6, 'Screwdriver', 3, 'Pour the vodka over ice and fill with orange juice.', '', 3.75, 0.89, 3, 5, 3, 0, '', 0, 0);

INSERT INTO DrinkRel (DrinkID, IngID, seq, amount, MetricAmount, measure) VALUES
  (1, 2, 1, '2 oz', '6.0 cl', 2), (1, 9, 2, '1 oz', '3.0 cl', 1), (1, 11, 3, '0.75 oz', '2.3 cl', 0.75),
  (2, 1, 1, '2.5 oz', '7.5 cl', 2.5), (2, 7, 2, '0.5 oz', '1.5 cl', 0.5),
  (3, 3, 1, '2 oz', '6.0 cl', 2), (3, 6, 2, '1 oz', '3.0 cl', 1), (3, 9, 3, '1 oz', '3.0 cl', 1),
  (4, 14, 1, '6 sprigs', '6 sprigs', 6), (4, 2, 2, '2 oz', '6.0 cl', 2), (4, 9, 3, '1 oz', '3.0 cl', 1),
  (4, 11, 4, '0.75 oz', '2.3 cl', 0.75), (4, 12, 5, 'Top With', 'Top With', 0),
  (5, 16, 1, '1 piece', '1 piece', 1), (5, 13, 2, '2 dashes', '2 dashes', 0.0625), (5, 5, 3, '2 oz', '6.0 cl', 2),
  (6, 4, 1, '1.5 oz', '4.5 cl', 1.5), (6, 15, 2, 'Fill With', 'Fill With', 0);

INSERT INTO DrinkTypeRel (DrinkID, DrinkTypeID) VALUES
  (1, 1), (1, 3), (2, 1), (2, 4), (3, 3), (4, 2), (5, 1), (6, 2);

INSERT INTO ColorSchemes (id, Name, TextColor, HighlightColor, AccentColor, BackgroundColor) VALUES
  (64, 'Corvane Classic', 3355443, 10053171, 14474460, 15790320);

INSERT INTO Constants (Var, Val) VALUES
  ('MarkupOpt', 'Cost'), ('MarkupPct', '300'), ('ApplyZero', 'False'), ('RoundTo', ' 2'), ('MinPrice', 'None');
COMMIT;
