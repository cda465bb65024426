// The store's order of names for the sqlite3 shell: ".load <build>/tools/corvane-namefold" in
// the shell lets it compare and sort the name columns as the program does.
#include "store/NameFold.h"

#include <sqlite3.h>

extern "C" int sqlite3_extension_init(sqlite3 *db, char **, const void *)
{
    NameFold::registerCollation(db);
    return SQLITE_OK;
}
