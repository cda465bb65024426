#include "store/DrinkStore.h"

#include "store/EngineReader.h"
#include "store/JetDialect.h"
#include "store/SchemaUpgrade.h"
#include "store/StoreFunctions.h"
#include "store/StoreError.h"

#include <QAtomicInt>
#include <QFileInfo>
#include <QSqlError>
#include <QStringList>

namespace {

QString engineText(const QSqlError &e)
{
    return e.databaseText().isEmpty() ? e.text() : e.databaseText();
}

} // namespace

DrinkStore::DrinkStore(const QString &path) : m_path(path)
{
    static QAtomicInt counter;
    m_connection = QStringLiteral("drinkstore-%1").arg(counter.fetchAndAddRelaxed(1));

    const QFileInfo info(path);
    if (!info.exists() || !info.isFile())
        throw StoreError(QStringLiteral("The file does not exist."), path);

    QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), m_connection);
    db.setDatabaseName(path);
    db.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=5000"));
    if (!db.open()) {
        const QString text = engineText(db.lastError());
        db = QSqlDatabase();
        QSqlDatabase::removeDatabase(m_connection);
        throw StoreError(text, path);
    }
    try {
        // Reading first proves the file is a database before anything could be written to it.
        QVariant hasDrinks = scalar(QStringLiteral(
            "SELECT COUNT(*) FROM sqlite_master WHERE type = 'table' AND name = 'Drinks'"));
        if (hasDrinks.toInt() != 1)
            throw StoreError(QStringLiteral("The file is not a drink store: it has no table Drinks."), path);
        QSqlQuery pragma(db);
        pragma.exec(QStringLiteral("PRAGMA journal_mode=WAL"));
        pragma.exec(QStringLiteral("PRAGMA synchronous=NORMAL"));
        registerStoreFunctions(db);
        SchemaUpgrade::upgrade(*this);
    } catch (const StoreError &e) {
        db.close();
        db = QSqlDatabase();
        QSqlDatabase::removeDatabase(m_connection);
        // The user is told which file failed, with the engine's reason.
        throw StoreError(e.engineText(), path);
    }
}

DrinkStore::~DrinkStore()
{
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
    QSqlQuery q(database());
    const QString sql = jetToSqlite(jetSql);
    if (!q.exec(sql))
        throw StoreError(engineText(q.lastError()), jetSql);
    return q.numRowsAffected();
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
    if (!query.exec())
        throw StoreError(engineText(query.lastError()), query.lastQuery());
}

void DrinkStore::beginTransaction()
{
    if (!database().transaction())
        throw StoreError(engineText(database().lastError()), QStringLiteral("BEGIN"));
}

void DrinkStore::commit()
{
    if (!database().commit())
        throw StoreError(engineText(database().lastError()), QStringLiteral("COMMIT"));
}

void DrinkStore::rollback()
{
    if (!database().rollback())
        throw StoreError(engineText(database().lastError()), QStringLiteral("ROLLBACK"));
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
