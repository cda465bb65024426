#include "updates/UpdateIndex.h"

#include "base/Cp1252.h"
#include "store/DrinkStore.h"

namespace {

// Only blanks are trimmed: any other character of a line is part of its field.
QString trimBlanks(QStringView text)
{
    qsizetype from = 0, to = text.size();
    while (from < to && text[from] == u' ')
        ++from;
    while (to > from && text[to - 1] == u' ')
        --to;
    return text.mid(from, to - from).toString();
}

// The run from pos up to the next blank; pos then stands one past that blank, or at the end.
QStringView nextRun(QStringView line, qsizetype &pos)
{
    if (pos >= line.size())
        return {};
    const qsizetype blank = line.indexOf(u' ', pos);
    const qsizetype end = blank < 0 ? line.size() : blank;
    const QStringView run = line.mid(pos, end - pos);
    pos = blank < 0 ? line.size() : blank + 1;
    return run;
}

QDate readDate(QStringView text)
{
    static const char *const formats[] = {"M/d/yyyy", "M/d/yy", "yyyy-M-d", "M-d-yyyy", "d MMM yyyy"};
    for (const char *format : formats) {
        QDate date = QDate::fromString(text.toString(), QString::fromLatin1(format));
        if (date.isValid()) {
            // A two-digit year means the years around the program's own time, not the 1900s.
            if (date.year() < 1930 && QString::fromLatin1(format).endsWith(QLatin1String("/yy")))
                date = date.addYears(100);
            return date;
        }
    }
    return UpdateIndex::noDate();
}

} // namespace

QDate UpdateIndex::noDate()
{
    return QDate(1900, 1, 1);
}

QStringList UpdateIndex::lines(const QString &text)
{
    QStringList result;
    qsizetype start = 0;
    qsizetype i = 0;
    while (i < text.size()) {
        if (text[i].unicode() < 0x20) {
            result << text.mid(start, i - start);
            while (i < text.size() && text[i].unicode() < 0x20)
                ++i;
            start = i;
        } else {
            ++i;
        }
    }
    return result;
}

UpdateEntry UpdateIndex::parseLine(const QString &line)
{
    UpdateEntry entry;
    qsizetype pos = 0;
    entry.date = readDate(nextRun(line, pos));
    entry.recipes = trimBlanks(nextRun(line, pos)) == u"D";
    nextRun(line, pos);
    entry.url = trimBlanks(nextRun(line, pos));
    const QStringView rest = QStringView(line).mid(qMin(pos, line.size()));
    const qsizetype bar = rest.indexOf(u'|');
    entry.name = trimBlanks(bar < 0 ? rest : rest.left(bar));
    if (bar >= 0)
        entry.description = trimBlanks(rest.mid(bar + 1));
    return entry;
}

QList<UpdateEntry> UpdateIndex::parse(const QByteArray &bytes)
{
    QList<UpdateEntry> entries;
    for (const QString &line : lines(Cp1252::decode(bytes)))
        entries << parseLine(line);
    return entries;
}

int UpdateIndex::merge(DrinkStore &store, const QList<UpdateEntry> &entries)
{
    ScopedTransaction transaction(store);
    QSqlQuery find = store.prepare(QStringLiteral("SELECT 1 FROM Updates WHERE Name = ?"));
    QSqlQuery add = store.prepare(QStringLiteral(
        "INSERT INTO Updates (Description, Recipes, Date, Name, URL, Status) VALUES (?, ?, ?, ?, ?, 'Available')"));
    int added = 0;
    for (const UpdateEntry &entry : entries) {
        if (entry.name.isEmpty())
            continue;
        find.addBindValue(entry.name);
        store.exec(find);
        const bool known = find.next();
        find.finish();
        if (known)
            continue;
        add.addBindValue(entry.description);
        add.addBindValue(entry.recipes ? 1 : 0);
        add.addBindValue(entry.date.toString(Qt::ISODate));
        add.addBindValue(entry.name);
        add.addBindValue(entry.url);
        store.exec(add);
        ++added;
    }
    transaction.commit();
    return added;
}

QList<UpdateRow> UpdateIndex::load(DrinkStore &store)
{
    QList<UpdateRow> rows;
    QSqlQuery query = store.prepare(
        QStringLiteral("SELECT Date, Recipes, Name, Description, URL, Status FROM Updates ORDER BY rowid"));
    store.exec(query);
    while (query.next()) {
        UpdateRow row;
        row.date = QDate::fromString(query.value(0).toString(), Qt::ISODate);
        row.recipes = query.value(1).toInt() != 0;
        row.name = query.value(2).toString();
        row.description = query.value(3).toString();
        row.url = query.value(4).toString();
        row.status = query.value(5).toString();
        rows << row;
    }
    return rows;
}

void UpdateIndex::markComplete(DrinkStore &store, const QString &url)
{
    QSqlQuery query = store.prepare(QStringLiteral("UPDATE Updates SET Status = 'Complete' WHERE URL = ?"));
    query.addBindValue(url);
    store.exec(query);
}
