#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include "search/AdvancedSearch.h"

class DrinkStore;

// A saved search keeps the texts of the advanced search's rows, not a statement: line by
// line in SavedSearchDef (field, comparison, value of a row, then the connector to the next
// row when that row is used), under a name in SavedSearch.
namespace SavedSearch {

inline const QString kUnsavedSearch = QStringLiteral("<<Unsaved Search>>");

// The lines of the rows. Here a row's value is what the dialog stores for it: the id of the
// chosen entry for Glassware, Category and Marked (0 for Marked, whose entries carry none),
// the text box for every other field, even where that box is hidden and empty.
QStringList linesOf(const CriterionRows &rows);

// One row as the lines give it back; connector is the line after the row's value, if any.
struct LoadedRow {
    QString field;
    QString comparison;
    QString value;
    bool hasConnector = false;
    QString connector;
};
// At most five rows; the lines stop wherever they stop.
QList<LoadedRow> rowsOf(const QStringList &lines);

// "Saved Search " and one more than the number of entries that begin with "Saved Search":
// a count, not the highest number in use, so the name may be one that exists.
QString defaultName(const QStringList &entries);

// The searches in the order of the table: id and name.
QList<QPair<qint32, QString>> list(DrinkStore &store);
// Adds a search under a new id and returns the id. Never replaces one, whatever its name.
qint32 save(DrinkStore &store, const QString &name, const QStringList &lines);
// The lines of a search in their order.
QStringList load(DrinkStore &store, qint32 id);
void remove(DrinkStore &store, qint32 id);

QString deleteQuestion(const QString &name);

} // namespace SavedSearch
