#pragma once

#include <QByteArray>
#include <QDate>
#include <QList>
#include <QString>
#include <QStringList>

class DrinkStore;

// One line of the update index on the maker's web host.
struct UpdateEntry {
    QDate date;
    bool recipes = false; // an exchange file of drinks; otherwise a picture package
    QString url;
    QString name;
    QString description;
};

// One row of the local table Updates, as the update window shows it.
struct UpdateRow {
    QDate date;
    bool recipes = false;
    QString name;
    QString description;
    QString url;
    QString status;
};

namespace UpdateIndex {
// The date an index line has when its own is no date.
QDate noDate();
// The lines of the index: any run of characters below the blank ends a line, and text after
// the last line end is not taken (a file cut off in transfer loses only its broken line).
QStringList lines(const QString &text);
// The fields of one line: date, type, one skipped field, URL, then name and description
// split at the first "|". A missing field is empty.
UpdateEntry parseLine(const QString &line);
// Every line of an index file, decoded as Windows-1252.
QList<UpdateEntry> parse(const QByteArray &bytes);

// Adds each entry with a name not yet in Updates as "Available"; a known update keeps its
// row as it stands, status included. All in one transaction. Returns the rows added.
int merge(DrinkStore &store, const QList<UpdateEntry> &entries);
// All rows of Updates in the table's order.
QList<UpdateRow> load(DrinkStore &store);
// Marks every update with this URL "Complete".
void markComplete(DrinkStore &store, const QString &url);
} // namespace UpdateIndex
