#pragma once

#include <QString>
#include <QStringList>

// A saved shopping list (.LST): not the list itself but what makes it, the names of the chosen
// drinks and the number of each, so that opening it makes the list again from the store as it
// is then.
namespace ShopListFile {

inline constexpr const char *kDrinksLine = "Selected Drinks:";
inline constexpr const char *kNumberLine = "Num Drinks:";

// Writes the file whole or not at all, in Windows-1252 with CR LF (UTF-8 when a name holds a
// character Windows-1252 cannot carry). Returns "" or the reason it failed.
QString Write(const QString &path, const QStringList &drinkNames, const QString &numDrinks);

enum class Status {
    Read,       // names and number
    NotFound,   // no such file
    BadFormat,  // the first line is not the drinks line; nothing was taken
    Unreadable, // the file could not be opened or read
    Truncated,  // the file ends before the number: the names before the end are given
};

struct Content {
    Status status = Status::Unreadable;
    QStringList drinkNames; // as they stand in the file, blanks included
    QString numDrinks;      // trimmed
};

// Reads a saved list. Lines end in CR LF, CR or LF.
Content Read(const QString &path);

} // namespace ShopListFile
