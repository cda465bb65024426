#pragma once

#include "base/Currency.h"

#include <QList>
#include <QPair>
#include <QString>
#include <QStringList>
#include <cstdint>
#include <optional>
#include <stdexcept>

// The starter recipe book: the plain text files from which the delivered store is built
// (their format is described in data/book/README.md). Reading resolves every name to its id,
// so a record that refers to something unknown is caught here with its file and line, long
// before the store would take it.

struct BookIngType {
    int id = 0;
    QString name;
};

struct BookIngSubType {
    int id = 0;
    int typeId = 0;
    QString name;
};

struct BookIngredient {
    int id = 0;
    QString name;
    int type = 0;
    int subType = 0; // 0 for none
    QString unitType;
    double ozPerUnit = 0;
    Currency unitPrice;
    QString notes;
};

struct BookGlass {
    int id = 0;
    QString name;
    QString notes;
};

// A row with an id and a name only: a drink category, garnish, build or rating.
struct BookName {
    int id = 0;
    QString name;
};

struct BookColorScheme {
    int id = 0;
    QString name;
    // Colours as the platform holds them: red in the lowest byte, then green, then blue.
    std::uint32_t text = 0, highlight = 0, accent = 0, background = 0;
};

struct BookConstant {
    QString var;
    QString val; // as stored; RoundTo carries the leading blank of a number written as text
};

struct BookPrintLayout {
    int id = 0;
    QList<QPair<QString, QString>> fields; // column name and value, in the order written
};

struct BookLine {
    QString amount;  // as typed, empty for "Fill With" and "Top With"
    QString measure; // the editor's own spelling of the measure name
    int ingredientId = 0;
};

struct BookDrink {
    int id = 0;
    QString name;
    int glass = 0;
    QList<int> categories;
    int build = 0, garnish = 0, rating = 0; // 0 where the book names none
    QString comments;
    QString recipe;                             // lines joined with CR LF
    QString imageFilePath;                      // "000001"... for drinks with a picture, else empty
    std::optional<std::uint32_t> pictureColour; // #RRGGBB of the drink in the glass, as 0xRRGGBB
    QList<BookLine> lines;
    QString source; // "drinks.txt:12", where the block begins
};

// Everything wrong with a book, one "file:line: what is wrong" per fault.
class StarterBookError : public std::runtime_error {
public:
    explicit StarterBookError(const QStringList &faults);
    QStringList faults() const { return m_faults; }

private:
    QStringList m_faults;
};

struct StarterBook {
    QList<BookIngType> types;
    QList<BookIngSubType> subTypes;
    QList<BookIngredient> ingredients;
    QList<BookGlass> glassware;
    QList<BookName> categories;
    QList<BookName> garnishes;
    QList<BookName> builds;
    QList<BookName> ratings;
    QList<BookColorScheme> colorSchemes;
    QList<BookConstant> constants;
    QList<BookPrintLayout> printLayouts;
    QList<BookDrink> drinks;

    // Reads every file of the book in dir. Throws StarterBookError listing all faults found.
    static StarterBook read(const QString &dir);

    const BookIngredient *ingredient(int id) const;
    // The value of a Constants row, or nothing when the book has no such row.
    std::optional<QString> constant(const QString &var) const;
};
