#pragma once

#include <QStringView>
#include <string>

struct sqlite3;

// Names compare as a reader of the list expects: case and accents do not count, so "Éclair"
// files under E and "CRÈME" equals "Crème". Two names that fold alike are still told apart
// by their accents (the plain letter first), so that the order is total up to case alone.
namespace NameFold {

// The letter c stands for when names are compared: lower case, without its accent. 0 for a
// combining accent of its own, which drops out.
char32_t fold(char32_t c);

// The folded text, for a bound or a pattern that must meet the folded names.
QString folded(QStringView text);

// <0, 0, >0 as UTF-8 name a sorts before, with or after b.
int compare(const unsigned char *a, int na, const unsigned char *b, int nb);

// The name of the collation the store's name columns use.
inline constexpr const char *kCollation = "NAMEFOLD";

// Registers that collation on this connection.
void registerCollation(sqlite3 *db);

} // namespace NameFold
