#pragma once

#include <QString>

// The simple search: five kinds, each one attribute of the drink and one value from the user,
// and the criterion fragments of the advanced search. All statements are in the old dialect
// and insert into SearchResults; the main list then reads that table.
namespace SearchKind {
enum : int {
    ByName = 301,
    ByIngredient = 302,
    ByRecipe = 303,
    ByGlassware = 304,
    ByCategory = 305,
    Advanced = 306,
    FindSimilar = 307,
};
}

inline const QString kDeleteSearchResults = QStringLiteral("DELETE FROM SearchResults");
inline const QString kInsertSearchResults = QStringLiteral("INSERT INTO SearchResults ( ID, Name ) ");

// True when a criterion's value is a plain decimal number, the only text an unquoted value
// (an id, a price) may hold.
bool isSearchNumber(const QString &value);

// The LIKE pattern of kinds 301 to 303, built from the text as typed (untrimmed): anywhere in
// the field, or from its start.
QString SimpleSearchPattern(const QString &text, bool matchAll);

// The statement of one simple search kind. patternOrValue is the pattern for 301 to 303 and
// the chosen id in decimal digits for 304 and 305. A " typed in a pattern is written twice, the
// old dialect's way, so the pattern stays one literal. "" for other kinds.
QString SimpleSearchSQL(int kind, const QString &patternOrValue);

// The fragment of one advanced criterion, "(C.Name LIKE "*v*")" and the like. For the quoted
// fields (Name, Recipe, Comment) value comes back quoted, with the wildcards of comparison
// when op is LIKE, and any " in it written twice. A value of the unquoted fields that is no
// number (nor True or False, as "Marked" gives) becomes Null, which no drink equals. Any field without a column of Drinks, Ingredient
// among them, gives "".
QString GetSQLForField(const QString &field, const QString &op, QString &value, const QString &comparison);

// "Is Equal To" =, "Is Greater Than" >, "Is Less Than" <, the three pattern comparisons LIKE,
// anything else "".
QString ComparisonOperator(const QString &comparison);

// A value between double quotes (a " in it written twice), with the wildcards of a LIKE comparison: "v*" for
// "Starts With", "*v" for "Ends With", "*v*" for any other; plain "v" for other operators.
QString QuotedSearchValue(const QString &op, const QString &value, const QString &comparison);
