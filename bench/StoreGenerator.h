#pragma once

#include <QString>
#include <QtGlobal>

// Large synthetic recipe books, for the benchmarks and the tests: big enough to show what a
// grown book costs, shaped like a real one (popular ingredients, common first words, short and
// long letter tabs), and the same rows for the same seed.
namespace StoreGenerator {

inline constexpr int IngredientCount = 2000;

struct Options {
    int drinks = 1000;
    quint64 seed = 1;
};

struct Summary {
    int drinks = 0;
    int lines = 0;
    int categoryRows = 0;
    int searchResults = 0;
    int cabinetDrinks = 0; // drinks with LiqCab = 1
    int markedDrinks = 0;
    double seconds = 0;
};

// The schema every generated store starts from.
QString schemaFile();

// Writes appDir/drinks.db anew (creating appDir when needed): the schema, the reference rows,
// the ingredients and options.drinks drinks with their lines and categories, in one
// transaction. Every line's texts and ounces come from the measure functions, every Cost from
// the line cost rule and every Price from the store's price settings. A tenth of the drinks
// stand in SearchResults, as after a search, and LiqCab is set from the ingredients marked
// Selected, as after a cabinet scan. Throws StoreError.
Summary generate(const QString &appDir, const Options &options);

// True when appDir holds a store that this generator wrote from the same options: a store is
// reused only while neither the options nor the code that shaped its rows have changed.
bool isCurrent(const QString &appDir, const Options &options);

// Generates unless current; true when a new store was written.
bool ensure(const QString &appDir, const Options &options);

} // namespace StoreGenerator
