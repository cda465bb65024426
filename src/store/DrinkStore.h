#pragma once

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <functional>
#include <vector>

// The one open drink store. Every statement the program writes in the old engine's dialect
// goes through here, is translated, checked, and on failure raised as a StoreError with the
// engine's text.
class DrinkStore {
public:
    // Opens an existing store file; never creates one, and writes nothing to it before it is
    // known to be a drink store. Throws StoreError naming the file when it is missing, is not
    // a database, or is not a drink store. Every change is in the file itself once its command
    // has ended: the journal lives only while a write transaction runs.
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

    // A write transaction, taken as one from its start (BEGIN IMMEDIATE), so that two copies
    // writing at once wait for each other instead of failing halfway.
    void beginTransaction();
    void commit();
    void rollback();
    bool inTransaction() const;

    // Files the open moved out of the way because they belonged to another file.
    QStringList setAsideFiles() const { return m_setAside; }

    // While another program holds the book, statements wait this long for it.
    static constexpr int kBusyWaitMs = 10000;
    // Called over and over while a statement waits for the book, so that a window can paint
    // meanwhile; by default the wait just sleeps.
    static void setBusyWaiter(std::function<void()> waiter);
    // The text the user sees for an engine error: a book that stayed busy is said plainly.
    static QString errorText(int engineCode, const QString &engineText);

private:
    void openChecked();
    void runControl(const char *sql);

    QString m_path;
    QString m_key; // the path as this process's open books are known by
    QString m_connection;
    QStringList m_setAside;
};

// Rolls back unless committed, so a save made of several statements is whole or not at all.
// Inside a transaction already begun it adds nothing: the outer one decides for both.
class ScopedTransaction {
public:
    explicit ScopedTransaction(DrinkStore &store) : m_store(store), m_done(store.inTransaction())
    {
        if (!m_done)
            m_store.beginTransaction();
        else
            m_nested = true;
    }
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
        if (!m_nested)
            m_store.commit();
        m_done = true;
    }
    ScopedTransaction(const ScopedTransaction &) = delete;
    ScopedTransaction &operator=(const ScopedTransaction &) = delete;

private:
    DrinkStore &m_store;
    bool m_done = false;
    bool m_nested = false;
};

// Removes a drink the way every part of the program does, in this order and in one
// transaction: categories, lines, the drink, and its row among the search results.
void removeDrink(DrinkStore &store, qint32 id);
QStringList drinkRemovalStatements(qint32 id);
