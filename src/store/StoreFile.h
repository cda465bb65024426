#pragma once

#include <QString>
#include <QStringList>

// What lies at the recipe book's path before the engine is let near it. Users copy, back up
// and restore drinks.db on its own; a journal or write-ahead log left beside it by a copy that
// was killed belongs to the file it was made for, and is never played into another one.
namespace StoreFile {

// Why the path cannot be a recipe book, in the user's terms, or "" when it may be one. With
// readHeader the file's first bytes are read too; never do that while this process has the
// book open, since closing any handle on a file drops the engine's locks on it.
QString problem(const QString &path, bool readHeader);

struct Leftovers {
    QStringList setAside; // files moved out of the engine's way, under their new names
    bool inUse = false;   // another program holds the book open: its files are left alone
};

// Looks at the journal and log files beside the book. One that was written for this very file
// is left for the engine to finish; one that belongs to a file since copied over the book is
// renamed out of the way ("drinks.db-journal" becomes "drinks.db-journal.set-aside-1"), so
// the book is opened exactly as it lies. A journal whose commit never began and an empty log
// are removed: the book was never written under them. Nothing is touched while another
// program holds the book open: then the files are its own.
Leftovers setAsideForeignLeftovers(const QString &path);

// True when some other process holds a lock on the book.
bool lockedByOtherProcess(const QString &path);

} // namespace StoreFile
