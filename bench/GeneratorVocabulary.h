#pragma once

#include <span>

// The words and reference rows the synthetic books are made of. Lists are ordered by how
// often the generator draws from them: earlier entries are the popular ones.
namespace GeneratorVocabulary {

// How an ingredient is measured in a recipe line.
enum class Use {
    Spirit,
    Modifier,
    Bitters,
    Juice,
    Syrup,
    Lengthener,
    Sparkling,
    Beer,
    Dairy,
    Egg,
    Fruit,
    Herb,
    Spice,
    Ice
};

struct IngredientBase {
    const char *name;
    int type;
    int subType;
    Use use;
    const char *unitType;
    double ozPerUnit;
    int priceLowCents; // unit price range; 0 and 0 for free ingredients
    int priceHighCents;
};

struct IdName {
    int id;
    const char *name;
};

struct SubType {
    int id;
    int typeId;
    const char *name;
};

std::span<const IngredientBase> ingredientBases();
// Brand names before alcoholic bases, qualifiers before the others; at least as many of each
// as it takes to reach the ingredient count.
std::span<const char *const> brands();
std::span<const char *const> qualifiers();

std::span<const IdName> ingredientTypes();
std::span<const SubType> ingredientSubTypes();
std::span<const IdName> glassware();  // GlassID 1 to 24
std::span<const IdName> categories(); // TypeID 0 is "Unknown / Other"
std::span<const IdName> garnishes();
std::span<const IdName> builds();
std::span<const IdName> ratings();

// Drink names: a first word, a second word, and for some a third.
std::span<const char *const> firstWords();
std::span<const char *const> secondWords();
std::span<const char *const> thirdWords();
// Leading numbers of the few names that begin with a digit.
std::span<const char *const> leadingNumbers();

std::span<const char *const> methodSentences();
std::span<const char *const> serveSentences();
std::span<const char *const> comments();

} // namespace GeneratorVocabulary
