#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <array>

class DrinkStore;

// The advanced search: up to five criteria rows with a connector between each row and the
// next. Without an ingredient criterion one INSERT ... SELECT does everything; with one, a
// grouped query gives candidates and VerifyDrink decides drink by drink.

// One criteria row as the dialog holds it. field is "" when the row's field list has no
// selection; connector is the selected text of the row's own connector ("And", "Or" or ""),
// which joins it to the next row.
struct CriterionRow {
    QString field;
    QString comparison;
    QString value;
    QString connector;
};
using CriterionRows = std::array<CriterionRow, 5>;

namespace AdvancedSearch {
// The entries of every field list, in their order.
const QStringList &fieldNames();
// The comparisons a field offers in a row (1 to 5): only row 1 offers "Starts With" and
// "Ends With" for Name and Ingredient.
QStringList comparisonsFor(const QString &field, int row);
// The index of the comparison selected when the field is chosen.
int firstComparison(const QString &field);

// Where a field's value comes from: the text box, or a list of ids from one table.
enum class ValueSource { Text, Category, Glass, Rating, Build, Garnish, Marked };
ValueSource valueSourceFor(const QString &field);
// The two fixed entries of the list of "Marked".
inline const QString kMarked = QStringLiteral("Marked");
inline const QString kUnmarked = QStringLiteral("Unmarked");
// The statement that fills the reference list of a source ("" for Text and Marked).
QString referenceListSQL(ValueSource source);
} // namespace AdvancedSearch

struct AdvancedQuery {
    bool ingredientPath = false;
    // Plain path: the INSERT into SearchResults. Ingredient path: the SELECT of candidates.
    QString sql;
    // Ingredient path: how many ingredient rows a candidate must match in the query, and one
    // entry per ingredient criterion: an operator code ("=", ">", "<", "!" for any pattern),
    // a blank and the value as typed.
    int requiredCount = 0;
    QStringList lstIng;
};

// The statement of the rows, composed as the dialog's search does. The values are inserted
// as they stand: a double quote in one breaks the statement.
AdvancedQuery ComposeAdvancedSearch(const CriterionRows &rows);

// Whether a drink with these ingredient names satisfies every entry of lstIng. The connector
// between ingredient rows plays no part here, so ingredient criteria always all apply. "=",
// ">" and "<" compare the typed value with the name exactly, the value on the left; "!"
// looks for the value anywhere in the name, without case. A drink with no ingredient fails.
bool VerifyDrink(const QStringList &lstIng, const QStringList &ingredients);

struct SearchCandidate {
    qint32 id = 0;
    QString name;
    bool operator==(const SearchCandidate &) const = default;
};

// The ingredient path after composition: the candidates of the query in the order the query
// gives them, less those VerifyDrink removes. The ingredients of all candidates are read in
// one statement rather than one per drink.
QList<SearchCandidate> FindIngredientMatches(DrinkStore &store, const AdvancedQuery &query);

// Appends the drinks to SearchResults in their order; the caller empties the table first.
void AppendSearchResults(DrinkStore &store, const QList<SearchCandidate> &drinks);
