#pragma once

struct sqlite3;
class QSqlDatabase;

// The program's own functions every connection to a store needs: the old engine's LIKE and
// the line cost rule behind the DrinkCost query.
void registerStoreFunctions(sqlite3 *db);
// The same on an open Qt connection; false when it is not a SQLite connection.
bool registerStoreFunctions(const QSqlDatabase &db);
