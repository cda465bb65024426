#include "search/SavedSearch.h"

#include "store/DrinkStore.h"
#include "store/KeyAllocation.h"

#include <QSqlQuery>

namespace SavedSearch {

QStringList linesOf(const CriterionRows &rows)
{
    QStringList lines;
    for (size_t n = 0; n < rows.size(); ++n) {
        const CriterionRow &row = rows[n];
        if (row.field.isEmpty())
            continue;
        // The connector of the row above is written only once this row is known to be used.
        if (n > 0)
            lines << rows[n - 1].connector;
        lines << row.field << row.comparison << row.value;
    }
    return lines;
}

QList<LoadedRow> rowsOf(const QStringList &lines)
{
    QList<LoadedRow> rows;
    qsizetype i = 0;
    const auto next = [&](QString &out) {
        if (i >= lines.size())
            return false;
        out = lines.at(i++);
        return true;
    };
    while (rows.size() < 5 && i < lines.size()) {
        LoadedRow row;
        next(row.field);
        next(row.comparison);
        next(row.value);
        if (rows.size() < 4)
            row.hasConnector = next(row.connector);
        rows << row;
    }
    return rows;
}

QString defaultName(const QStringList &entries)
{
    const auto count = std::count_if(entries.begin(), entries.end(),
                                     [](const QString &e) { return e.left(12) == QLatin1String("Saved Search"); });
    return QStringLiteral("Saved Search ") + QString::number(count + 1);
}

QList<QPair<qint32, QString>> list(DrinkStore &store)
{
    QList<QPair<qint32, QString>> out;
    QSqlQuery q = store.select(QStringLiteral("SELECT SearchID, SearchName FROM SavedSearch ORDER BY rowid"));
    while (q.next())
        out.append({q.value(0).toInt(), q.value(1).toString()});
    return out;
}

qint32 save(DrinkStore &store, const QString &name, const QStringList &lines)
{
    ScopedTransaction tx(store);
    const qint32 id = KeyAllocation::nextSavedSearchId(store);
    QSqlQuery head = store.prepare(QStringLiteral("INSERT INTO SavedSearch (SearchID, SearchName) VALUES (?, ?)"));
    head.bindValue(0, id);
    head.bindValue(1, name);
    store.exec(head);
    // Lines an earlier search may have left under this id go first.
    store.execute(QStringLiteral("DELETE FROM SavedSearchDef WHERE SearchID = ") + QString::number(id));
    QSqlQuery line = store.prepare(QStringLiteral("INSERT INTO SavedSearchDef (SearchID, seq, def) VALUES (?, ?, ?)"));
    for (qsizetype seq = 0; seq < lines.size(); ++seq) {
        line.bindValue(0, id);
        line.bindValue(1, int(seq));
        line.bindValue(2, lines.at(seq));
        store.exec(line);
    }
    tx.commit();
    return id;
}

QStringList load(DrinkStore &store, qint32 id)
{
    QStringList lines;
    QSqlQuery q = store.select(QStringLiteral("SELECT * FROM SavedSearchDef WHERE SearchID = ") + QString::number(id) +
                               QStringLiteral(" ORDER BY seq"));
    while (q.next())
        lines << q.value(QStringLiteral("def")).toString();
    return lines;
}

void remove(DrinkStore &store, qint32 id)
{
    const QString n = QString::number(id);
    ScopedTransaction tx(store);
    store.execute(QStringLiteral("DELETE FROM SavedSearch WHERE SearchID = ") + n);
    store.execute(QStringLiteral("DELETE FROM SavedSearchDef WHERE SearchID = ") + n);
    tx.commit();
}

QString deleteQuestion(const QString &name)
{
    return QStringLiteral("Are you sure that you want to delete the '") + name + QStringLiteral("'?");
}

} // namespace SavedSearch
