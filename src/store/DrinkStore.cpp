#include "store/DrinkStore.h"

#include "store/EngineReader.h"
#include "store/JetDialect.h"
#include "store/SchemaUpgrade.h"
#include "store/StoreFunctions.h"
#include "store/StoreError.h"
#include "store/StoreFile.h"

#include <QAtomicInt>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QHash>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlResult>
#include <QStringList>
#include <QThread>

#include <sqlite3.h>

namespace {

std::function<void()> &busyWaiter()
{
    static std::function<void()> waiter;
    return waiter;
}

// Paths this process has open: their first bytes are never read around the engine, because
// closing any other handle on the file would drop the engine's locks.
QHash<QString, int> &openPaths()
{
    static QHash<QString, int> paths;
    return paths;
}

QString pathKey(const QString &path)
{
    const QString canonical = QFileInfo(path).canonicalFilePath();
    return canonical.isEmpty() ? QFileInfo(path).absoluteFilePath() : canonical;
}

// Called by the engine while another program holds the book: wait, letting the window paint,
// until the book is free or the wait is over.
int busyHandler(void *, int attempt)
{
    thread_local QElapsedTimer waited;
    if (attempt == 0)
        waited.start();
    if (waited.elapsed() >= DrinkStore::kBusyWaitMs)
        return 0;
    if (busyWaiter())
        busyWaiter()();
    QThread::msleep(10);
    return 1;
}

QString engineText(const QSqlError &e)
{
    const QString text = e.databaseText().isEmpty() ? e.text() : e.databaseText();
    return DrinkStore::errorText(e.nativeErrorCode().toInt(), text);
}

} // namespace

void DrinkStore::setBusyWaiter(std::function<void()> waiter) { busyWaiter() = std::move(waiter); }

QString DrinkStore::errorText(int engineCode, const QString &engineText)
{
    if ((engineCode & 0xff) != SQLITE_BUSY)
        return engineText;
    return QStringLiteral("The recipe book is in use by another program or another copy of Corvane, and it "
                          "stayed busy for %1 seconds. Nothing was changed; try again when it is free.")
        .arg(kBusyWaitMs / 1000);
}

DrinkStore::DrinkStore(const QString &path) : m_path(path)
{
    static QAtomicInt counter;
    m_connection = QStringLiteral("drinkstore-%1").arg(counter.fetchAndAddRelaxed(1));

    m_key = pathKey(path);
    const bool openHere = openPaths().contains(m_key);
    const QString problem = StoreFile::problem(path, !openHere);
    if (!problem.isEmpty())
        throw StoreError(problem, path);
    if (!openHere)
        m_setAside = StoreFile::setAsideForeignLeftovers(path).setAside;

    QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), m_connection);
    db.setDatabaseName(path);
    if (!db.open()) {
        const QString text = engineText(db.lastError());
        db = QSqlDatabase();
        QSqlDatabase::removeDatabase(m_connection);
        throw StoreError(text, path);
    }
    try {
        openChecked();
    } catch (const StoreError &e) {
        db.close();
        db = QSqlDatabase();
        QSqlDatabase::removeDatabase(m_connection);
        // The user is told which file failed, with the engine's reason.
        throw StoreError(e.engineText(), path);
    }
    ++openPaths()[m_key];
}

void DrinkStore::openChecked()
{
    sqlite3 *handle = sqliteHandle(database());
    if (!handle)
        throw StoreError(QStringLiteral("The store is not open."));
    sqlite3_busy_handler(handle, busyHandler, nullptr);
    // Reading first proves the file is a drink store before anything could be written to it.
    const QVariant hasDrinks =
        scalar(QStringLiteral("SELECT COUNT(*) FROM sqlite_master WHERE type = 'table' AND name = 'Drinks'"));
    if (hasDrinks.toInt() != 1)
        throw StoreError(QStringLiteral("The file is not a drink store: it has no table Drinks."));
    // A rollback journal: a committed change is in drinks.db itself, and the journal is gone
    // when the command ends. A book last kept with a write-ahead log is folded back into the
    // one file here. The journal's pages stay in memory until the commit, so the book is
    // written only while a commit runs, and the first page always goes to the journal first.
    runControl("PRAGMA journal_mode=DELETE");
    runControl("PRAGMA synchronous=FULL");
    runControl("PRAGMA cache_spill=OFF");
    registerStoreFunctions(handle);
    SchemaUpgrade::upgrade(*this);
}

DrinkStore::~DrinkStore()
{
    if (--openPaths()[m_key] <= 0)
        openPaths().remove(m_key);
    {
        QSqlDatabase db = QSqlDatabase::database(m_connection, false);
        if (db.isOpen())
            db.close();
    }
    QSqlDatabase::removeDatabase(m_connection);
}

QSqlDatabase DrinkStore::database() const { return QSqlDatabase::database(m_connection, false); }

int DrinkStore::execute(const QString &jetSql)
{
    // A statement on its own is a write transaction of its own, taken as one from the start.
    const bool own = !inTransaction();
    if (own)
        beginTransaction();
    QSqlQuery q(database());
    const QString sql = jetToSqlite(jetSql);
    if (!q.exec(sql)) {
        const StoreError error(engineText(q.lastError()), jetSql);
        if (own)
            rollback();
        throw error;
    }
    const int rows = q.numRowsAffected();
    if (own)
        commit();
    return rows;
}

QSqlQuery DrinkStore::select(const QString &jetSql)
{
    QSqlQuery q(database());
    q.setForwardOnly(true);
    if (!q.exec(jetToSqlite(jetSql)))
        throw StoreError(engineText(q.lastError()), jetSql);
    return q;
}

void DrinkStore::selectIdNames(const QString &jetSql, std::vector<qint32> &ids, QStringList &names)
{
    try {
        EngineReader rows(*this, jetToSqlite(jetSql));
        while (rows.next()) {
            ids.push_back(rows.integer(0));
            names.push_back(rows.text(1));
        }
    } catch (const StoreError &e) {
        // The user's statement, not its translation, names the failure.
        throw StoreError(e.engineText(), jetSql);
    }
}

QVariant DrinkStore::scalar(const QString &jetSql)
{
    QSqlQuery q = select(jetSql);
    return q.next() ? q.value(0) : QVariant();
}

QSqlQuery DrinkStore::prepare(const QString &sql)
{
    QSqlQuery q(database());
    q.setForwardOnly(true);
    if (!q.prepare(sql))
        throw StoreError(engineText(q.lastError()), sql);
    return q;
}

void DrinkStore::exec(QSqlQuery &query)
{
    const QVariant handle = query.result() ? query.result()->handle() : QVariant();
    auto *statement = handle.isValid() && qstrcmp(handle.typeName(), "sqlite3_stmt*") == 0
                          ? *static_cast<sqlite3_stmt *const *>(handle.constData())
                          : nullptr;
    const bool own = statement && !sqlite3_stmt_readonly(statement) && !inTransaction();
    if (own)
        beginTransaction();
    if (!query.exec()) {
        const StoreError error(engineText(query.lastError()), query.lastQuery());
        if (own)
            rollback();
        throw error;
    }
    if (own)
        commit();
}

bool DrinkStore::inTransaction() const
{
    sqlite3 *handle = sqliteHandle(database());
    return handle && !sqlite3_get_autocommit(handle);
}

void DrinkStore::runControl(const char *sql)
{
    sqlite3 *handle = sqliteHandle(database());
    if (!handle)
        throw StoreError(QStringLiteral("The store is not open."), QString::fromLatin1(sql));
    char *message = nullptr;
    const int rc = sqlite3_exec(handle, sql, nullptr, nullptr, &message);
    if (rc != SQLITE_OK) {
        const QString text = message ? QString::fromUtf8(message) : QString::fromUtf8(sqlite3_errstr(rc));
        sqlite3_free(message);
        throw StoreError(errorText(rc, text), QString::fromLatin1(sql));
    }
}

void DrinkStore::beginTransaction() { runControl("BEGIN IMMEDIATE"); }

void DrinkStore::commit() { runControl("COMMIT"); }

void DrinkStore::rollback()
{
    // The engine ends a transaction on its own after some failures (a full disk among them).
    if (inTransaction())
        runControl("ROLLBACK");
}

QStringList drinkRemovalStatements(qint32 id)
{
    const QString n = QString::number(id);
    return {QStringLiteral("DELETE FROM DrinkTypeRel WHERE DrinkID = ") + n,
            QStringLiteral("DELETE FROM DrinkRel WHERE DrinkID = ") + n,
            QStringLiteral("DELETE FROM Drinks WHERE ID = ") + n,
            QStringLiteral("DELETE FROM SearchResults WHERE ID = ") + n};
}

void removeDrink(DrinkStore &store, qint32 id)
{
    ScopedTransaction tx(store);
    for (const QString &sql : drinkRemovalStatements(id))
        store.execute(sql);
    tx.commit();
}
