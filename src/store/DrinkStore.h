#pragma once

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <vector>

// The one open drink store. Every statement the program writes in the old engine's dialect
// goes through here, is translated, checked, and on failure raised as a StoreError with the
// engine's text.
class DrinkStore {
public:
    // Opens an existing store file; never creates one. Throws StoreError naming the file when
    // it is missing, is not a database, or is not a drink store.
    explicit DrinkStore(const QString &path);
    ~DrinkStore();
    DrinkStore(const DrinkStore &) = delete;
    DrinkStore &operator=(const DrinkStore &) = delete;

    QString path() const { return m_path; }
    QSqlDatabase database() const;

    // Runs an UPDATE, DELETE or INSERT written in the old dialect; returns the rows affected.
    int execute(const QString &jetSql);
    // A forward-only SELECT written in the old dialect, positioned before the first row.
    QSqlQuery select(const QString &jetSql);
    // The rows of a two-column (id, name) statement in one pass straight off the engine: the
    // main list reads up to every drink of the book this way.
    void selectIdNames(const QString &jetSql, std::vector<qint32> &ids, QStringList &names);
    // The first column of the first row, or a null value when there is no row.
    QVariant scalar(const QString &jetSql);

    // Native statements with bound values, for the program's own reads and writes.
    QSqlQuery prepare(const QString &sql);
    void exec(QSqlQuery &query);

    void beginTransaction();
    void commit();
    void rollback();

private:
    QString m_path;
    QString m_connection;
};

// Rolls back unless committed, so a save made of several statements is whole or not at all.
class ScopedTransaction {
public:
    explicit ScopedTransaction(DrinkStore &store) : m_store(store) { m_store.beginTransaction(); }
    ~ScopedTransaction()
    {
        if (!m_done) {
            try {
                m_store.rollback();
            } catch (...) {
            }
        }
    }
    void commit()
    {
        m_store.commit();
        m_done = true;
    }
    ScopedTransaction(const ScopedTransaction &) = delete;
    ScopedTransaction &operator=(const ScopedTransaction &) = delete;

private:
    DrinkStore &m_store;
    bool m_done = false;
};

// Removes a drink the way every part of the program does, in this order and in one
// transaction: categories, lines, the drink, and its row among the search results.
void removeDrink(DrinkStore &store, qint32 id);
QStringList drinkRemovalStatements(qint32 id);
