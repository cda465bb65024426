#pragma once

#include "base/Currency.h"

#include <QLocale>
#include <QString>
#include <optional>
#include <vector>

class DrinkStore;

// A supplier's price list: one ingredient a row, with its unit price and, when the supplier
// gives them, the unit it is sold in and the ounces (or pieces) in that unit. The first row
// names the columns; fields are separated by commas or semicolons and may be quoted.
struct PriceListRow {
    int line = 0; // 1-based line of the file
    QString name;
    Currency price;
    QString unitType;                 // empty when the list gives none
    std::optional<double> ozPerUnit;  // none when the list gives none
};

struct PriceList {
    std::vector<PriceListRow> rows;
    int badLine = 0; // the first line that cannot be read, 0 when every line could
    QString problem; // why that line cannot be read
};

// Reads the list. Numbers are read in the locale's notation and, failing that, with a point
// for the decimal mark (or a comma, in a list separated by semicolons). Blank lines are passed
// over. Reading stops at the first bad line.
PriceList readPriceList(const QString &text, const QLocale &locale = QLocale());

// What the import does to one row of the list.
struct PriceChange {
    enum Kind { Update, Unchanged, Create, Unknown };
    Kind kind = Unknown;
    PriceListRow row;
    qint32 id = 0; // 0 for an ingredient not in the store
    Currency oldPrice;
};

// Matches the rows to the store's ingredients by name, as the store compares names. A name
// the store lacks is Unknown, or Create when the caller allows new ingredients.
std::vector<PriceChange> planPriceImport(DrinkStore &store, const PriceList &list, bool create);

// Writes the changes in one transaction: new prices (and units when given), new ingredients
// for Create rows. Returns the number of ingredients written.
int applyPriceImport(DrinkStore &store, const std::vector<PriceChange> &changes);
