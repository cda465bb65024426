#include "store/SchemaUpgrade.h"

#include "store/DrinkStore.h"
#include "store/NameFold.h"

#include <QRegularExpression>
#include <QStringList>

namespace SchemaUpgrade {

namespace {

void run(DrinkStore &store, const QString &sql)
{
    QSqlQuery q = store.prepare(sql);
    store.exec(q);
}

QStringList texts(DrinkStore &store, const QString &sql, const QString &table)
{
    QSqlQuery q = store.prepare(sql);
    q.addBindValue(table);
    store.exec(q);
    QStringList out;
    while (q.next())
        out << q.value(0).toString();
    return out;
}

// SQLite cannot change a column's collation in place: the table is made anew under its own
// name with the new declaration, its rows copied, and its indexes built again in the new order.
void recollate(DrinkStore &store, const QString &table, const QString &column)
{
    const QStringList created = texts(
        store, QStringLiteral("SELECT sql FROM sqlite_master WHERE type = 'table' AND name = ?"), table);
    if (created.isEmpty())
        return;
    const QRegularExpression declaration(QStringLiteral(R"((\b%1\s+TEXT\s+COLLATE\s+)NOCASE\b)").arg(column),
                                         QRegularExpression::CaseInsensitiveOption);
    QString newTable = created.first();
    if (!newTable.contains(declaration))
        return;
    newTable.replace(declaration, QStringLiteral("\\1") + QLatin1String(NameFold::kCollation));
    const QString temporary = table + QStringLiteral("_upgrade");
    newTable.replace(QRegularExpression(QStringLiteral(R"(^\s*CREATE\s+TABLE\s+"?%1"?)").arg(table),
                                        QRegularExpression::CaseInsensitiveOption),
                     QStringLiteral("CREATE TABLE ") + temporary);
    const QStringList indexes = texts(
        store, QStringLiteral("SELECT sql FROM sqlite_master WHERE type = 'index' AND tbl_name = ? AND sql IS NOT NULL"),
        table);

    run(store, newTable);
    run(store, QStringLiteral("INSERT INTO %1 SELECT * FROM %2").arg(temporary, table));
    run(store, QStringLiteral("DROP TABLE %1").arg(table));
    run(store, QStringLiteral("ALTER TABLE %1 RENAME TO %2").arg(temporary, table));
    for (const QString &index : indexes)
        run(store, index);
}

} // namespace

void upgrade(DrinkStore &store)
{
    if (store.scalar(QStringLiteral("PRAGMA user_version")).toInt() >= kCurrentVersion)
        return;
    // The saved queries name the tables being made anew; they are left as they stand.
    run(store, QStringLiteral("PRAGMA legacy_alter_table = ON"));
    struct Restore {
        DrinkStore &store;
        ~Restore()
        {
            try {
                run(store, QStringLiteral("PRAGMA legacy_alter_table = OFF"));
            } catch (...) {
            }
        }
    } restore{store};
    {
        ScopedTransaction tx(store);
        static const char *const names[][2] = {{"Drinks", "Name"},        {"Ingredients", "Ingredient"},
                                               {"IngTypes", "IngType"},   {"DrinkTypes", "Type"},
                                               {"Glassware", "Name"},     {"SearchResults", "Name"}};
        for (const auto &n : names)
            recollate(store, QLatin1String(n[0]), QLatin1String(n[1]));
        run(store, QStringLiteral("PRAGMA user_version = %1").arg(kCurrentVersion));
        tx.commit();
    }
}

} // namespace SchemaUpgrade
