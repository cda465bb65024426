-- The drink store. Every text column compares without case, as the recipe book always has.
-- The names the lists show (drinks, ingredients, glasses, categories, ingredient types) follow
-- NAMEFOLD, the program's own order of names: without case or accents, so "Éclair" files
-- under E. The sqlite3 shell reads every row; to compare or sort those columns there, add
-- COLLATE NOCASE or load the collation (see README).
-- Currency columns hold decimal values (3.5 means $3.50); Yes/No columns hold 1 and 0.
-- Version 2: the name columns follow NAMEFOLD (a store of version 1 is moved on open).
PRAGMA user_version = 2;

CREATE TABLE Drinks (
  id            INTEGER PRIMARY KEY,
  Name          TEXT COLLATE NAMEFOLD,
  GlassType     INTEGER,
  Description   TEXT COLLATE NOCASE,
  Comments      TEXT COLLATE NOCASE,
  Price         NUMERIC,
  Cost          NUMERIC,
  BuildID       INTEGER,
  GarnishID     INTEGER,
  RatingID      INTEGER,
  LockPrice     INTEGER NOT NULL DEFAULT 0,
  ImageFilePath TEXT COLLATE NOCASE DEFAULT '',
  Marked        INTEGER NOT NULL DEFAULT 0,
  LiqCab        INTEGER NOT NULL DEFAULT 0,
  DrinkType     INTEGER
);
CREATE INDEX Name ON Drinks (Name);
-- The lists by glass, mark and cabinet read these in name order without touching other drinks.
CREATE INDEX DrinksGlassName ON Drinks (GlassType, Name);
CREATE INDEX DrinksMarkedName ON Drinks (Marked, Name);
CREATE INDEX DrinksLiqCabName ON Drinks (LiqCab, Name);

CREATE TABLE DrinkRel (
  DrinkID      INTEGER,
  IngID        INTEGER,
  seq          INTEGER,
  amount       TEXT COLLATE NOCASE,
  MetricAmount TEXT COLLATE NOCASE,
  measure      REAL
);
CREATE INDEX DrinkID ON DrinkRel (DrinkID, seq);
CREATE INDEX DrinkRelIngID ON DrinkRel (IngID);

CREATE TABLE Ingredients (
  id         INTEGER PRIMARY KEY,
  Ingredient TEXT COLLATE NAMEFOLD,
  UnitType   TEXT COLLATE NOCASE,
  ozperunit  REAL,
  unitprice  NUMERIC,
  Notes      TEXT COLLATE NOCASE,
  Type       INTEGER NOT NULL DEFAULT 0,
  SubType    INTEGER NOT NULL DEFAULT 0,
  Selected   INTEGER NOT NULL DEFAULT 0
);
CREATE INDEX Ingredient ON Ingredients (Ingredient);

CREATE TABLE IngTypes (
  IngTypeID INTEGER PRIMARY KEY,
  IngType   TEXT COLLATE NAMEFOLD
);

CREATE TABLE IngSubTypes (
  IngSubTypeID INTEGER PRIMARY KEY AUTOINCREMENT,
  IngTypeID    INTEGER,
  Name         TEXT COLLATE NOCASE
);

CREATE TABLE DrinkTypes (
  TypeID INTEGER PRIMARY KEY,
  Type   TEXT COLLATE NAMEFOLD
);
CREATE INDEX Type ON DrinkTypes (Type);

CREATE TABLE DrinkTypeRel (
  DrinkID     INTEGER,
  DrinkTypeID INTEGER
);
CREATE INDEX DrinkTypeRelDrinkID ON DrinkTypeRel (DrinkID);
CREATE INDEX DrinkTypeRelTypeID ON DrinkTypeRel (DrinkTypeID);

CREATE TABLE Glassware (
  GlassID INTEGER PRIMARY KEY,
  Name    TEXT COLLATE NAMEFOLD,
  Notes   TEXT COLLATE NOCASE
);

CREATE TABLE Garnish (
  id   INTEGER PRIMARY KEY AUTOINCREMENT,
  Name TEXT COLLATE NOCASE
);

CREATE TABLE Build (
  id   INTEGER PRIMARY KEY AUTOINCREMENT,
  Name TEXT COLLATE NOCASE
);

CREATE TABLE Ratings (
  RatingID INTEGER PRIMARY KEY AUTOINCREMENT,
  Name     TEXT COLLATE NOCASE
);

CREATE TABLE ColorSchemes (
  id              INTEGER PRIMARY KEY AUTOINCREMENT,
  Name            TEXT COLLATE NOCASE,
  TextColor       INTEGER,
  HighlightColor  INTEGER,
  AccentColor     INTEGER,
  BackgroundColor INTEGER
);

CREATE TABLE Constants (
  Var TEXT COLLATE NOCASE PRIMARY KEY,
  Val TEXT
);

CREATE TABLE SavedSearch (
  SearchID   INTEGER,
  SearchName TEXT COLLATE NOCASE
);

CREATE TABLE SavedSearchDef (
  SearchID INTEGER,
  seq      INTEGER,
  def      TEXT
);
CREATE INDEX SavedSearchDefID ON SavedSearchDef (SearchID, seq);

CREATE TABLE PrintLayout (
  PrintLayoutID INTEGER PRIMARY KEY AUTOINCREMENT,
  Name          TEXT COLLATE NOCASE,
  Orientation   INTEGER,
  Metric        INTEGER,
  MarTop        REAL,
  MarBottom     REAL,
  MarLeft       REAL,
  MarRight      REAL,
  Rows          INTEGER,
  RowSpacing    REAL,
  Cols          INTEGER,
  ColSpacing    REAL,
  GlassHeight   REAL,
  NameFont      TEXT,
  IngFont       TEXT,
  GlassFont     TEXT,
  BuildFont     TEXT,
  GarnishFont   TEXT,
  MarkFont      TEXT,
  RecipeFont    TEXT,
  PrintIng      INTEGER,
  PrintGlass    INTEGER,
  PrintBuild    INTEGER,
  PrintGarnish  INTEGER,
  PrintMark     INTEGER,
  PrintRecipe   INTEGER,
  Mark          TEXT,
  GlassOpt      INTEGER
);
CREATE INDEX PrintLayoutName ON PrintLayout (Name);

CREATE TABLE SearchResults (
  ID   INTEGER,
  Name TEXT COLLATE NAMEFOLD
);
CREATE INDEX SearchResultsID ON SearchResults (ID);
CREATE INDEX SearchResultsName ON SearchResults (Name);

CREATE TABLE tmp_ShopList (
  id INTEGER
);
CREATE INDEX ID ON tmp_ShopList (id);

CREATE TABLE Updates (
  Name        TEXT COLLATE NOCASE,
  Description TEXT COLLATE NOCASE,
  Recipes     INTEGER NOT NULL DEFAULT 0,
  Date        TEXT,
  URL         TEXT,
  Status      TEXT COLLATE NOCASE
);
CREATE INDEX UpdatesName ON Updates (Name);

-- Saved queries.

CREATE VIEW DrinkIngredients AS
  SELECT R.DrinkID AS DrinkID, R.seq AS Seq, R.IngID AS IngID, R.amount AS amount,
         R.MetricAmount AS MetricAmount, R.measure AS measure, I.Ingredient AS Ingredient,
         I.unitprice AS unitprice, I.ozperunit AS ozperunit, I.UnitType AS UnitType,
         I.Selected AS Selected
  FROM DrinkRel R INNER JOIN Ingredients I ON R.IngID = I.id
  ORDER BY R.DrinkID, R.seq;

CREATE VIEW DrinkCategories AS
  SELECT R.DrinkID AS DrinkID, T.Type AS Type
  FROM DrinkTypeRel R INNER JOIN DrinkTypes T ON R.DrinkTypeID = T.TypeID;

CREATE VIEW IngMaintList AS
  SELECT I.id AS id, I.Ingredient AS Ingredient, I.UnitType AS UnitType, I.ozperunit AS ozperunit,
         I.unitprice AS unitprice, I.Notes AS Notes, T.IngType AS Type, I.Type AS TypeID,
         S.Name AS SubType, I.SubType AS SubTypeID, I.Selected AS Selected
  FROM Ingredients I
       LEFT JOIN IngTypes T ON I.Type = T.IngTypeID
       LEFT JOIN IngSubTypes S ON I.SubType = S.IngSubTypeID;

CREATE VIEW ShoppingListQuery AS
  SELECT I.Ingredient AS Ingredient, SUM(R.measure) AS SumOfMeasure
  FROM tmp_ShopList L
       INNER JOIN DrinkRel R ON R.DrinkID = L.id
       INNER JOIN Ingredients I ON R.IngID = I.id
  GROUP BY I.Ingredient
  ORDER BY I.Ingredient;

CREATE VIEW GetZeroPriceDrinks AS
  SELECT * FROM Drinks WHERE Price = 0;

CREATE VIEW GetMaxDrinkID AS
  SELECT MAX(id) AS MaxOfid FROM Drinks;

-- A line costs unitprice / ozperunit * measure, nothing when any of the three is not positive,
-- each line held as currency before the drink's lines are summed. LineCost() is the program's
-- own rule, registered on every connection it opens, so batch and editor agree to the last digit.
CREATE VIEW DrinkCost AS
  SELECT R.DrinkID AS DrinkID,
         ROUND(SUM(LineCost(I.unitprice, I.ozperunit, R.measure)), 4) AS Cost
  FROM DrinkRel R INNER JOIN Ingredients I ON R.IngID = I.id
  GROUP BY R.DrinkID;
