#pragma once

struct sqlite3;

// The program's own functions every connection to a store needs: the old engine's LIKE and
// the line cost rule behind the DrinkCost query.
void registerStoreFunctions(sqlite3 *db);
