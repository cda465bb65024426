#pragma once

struct sqlite3;
class QSqlDatabase;

// The program's own functions every connection to a store needs: the old engine's LIKE, the
// order of names (NAMEFOLD, see NameFold.h) and the line cost rule behind the DrinkCost query.
void registerStoreFunctions(sqlite3 *db);
// The engine's own handle behind an open Qt connection, or null when it is none.
sqlite3 *sqliteHandle(const QSqlDatabase &db);
// The same on an open Qt connection; false when it is not a SQLite connection.
bool registerStoreFunctions(const QSqlDatabase &db);
