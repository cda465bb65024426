#pragma once

#include "base/Currency.h"

#include <QByteArray>
#include <QJsonArray>
#include <QJsonValue>
#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

// One value of a row: its text for the tab-separated line and its JSON value.
struct Cell {
    Cell(qint64 n) : text(QString::number(n)), json(double(n)) {}
    Cell(int n) : Cell(qint64(n)) {}
    Cell(const QString &s) : text(s), json(s) {}
    Cell(const char *s) : Cell(QString::fromUtf8(s)) {}
    // Money as a plain decimal number either way.
    static Cell money(Currency value) { return Cell(value.toSqlText(), QJsonValue(value.toDouble())); }
    // Nothing: empty text, null.
    static Cell none() { return Cell(QString(), QJsonValue::Null); }
    // A figure with two decimals; empty text and null when there is none.
    static Cell figure(std::optional<double> value);

    QString text;
    QJsonValue json;

private:
    Cell(QString t, QJsonValue j) : text(std::move(t)), json(std::move(j)) {}
};

// Rows on standard output: tab-separated lines, or with --json one array of objects whose
// keys are the column names.
class RowWriter {
public:
    RowWriter(bool json, QStringList columns);
    ~RowWriter();

    void add(const std::vector<Cell> &cells);
    // Ends the output: the JSON array is written here.
    void finish();

private:
    void flush();

    bool m_json;
    QStringList m_columns;
    QJsonArray m_rows;
    QByteArray m_text;
    bool m_finished = false;
};

// A line of text on standard output (a summary, a document).
void printLine(const QString &text);

// Drinks as the lists show them: id and name, one a row.
void printDrinks(bool json, const std::vector<qint32> &ids, const QStringList &names);
