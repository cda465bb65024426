#pragma once

#include <QString>

// The program composes its statements in the dialect of the old desktop engine (the texts
// are part of the design and tests compare them). This turns one such statement into what
// SQLite understands, just before it runs:
//  - "double-quoted" literals become 'single-quoted' ("" inside stands for one ");
//  - DISTINCTROW is dropped, and DELETE * FROM becomes DELETE FROM;
//  - DELETE T.* FROM T, U WHERE ... deletes the rows of T that the join selects;
//  - True/Yes and False/No become 1 and 0;
//  - the columns assigned in an UPDATE's SET lose their table qualifier;
//  - "X.DrinkType = n" (the advanced search's category) finds the drinks of category n in
//    DrinkTypeRel, where a drink's categories are kept;
//  - "col LIKE "text*"" is also bounded to the range of names that begin with text, in the
//    store's order of names, so that an index on col serves it.
// Text inside literals is never touched, so LIKE patterns reach the engine's like() as typed.
QString jetToSqlite(const QString &jetSql);

// A user's text as it stands inside a "double-quoted" literal of the old dialect: each " in it
// is written twice, so the text stays one value whatever it holds. jetToSqlite reads it back.
QString jetLiteralText(const QString &text);
