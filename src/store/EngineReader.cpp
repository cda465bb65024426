#include "store/EngineReader.h"

#include "store/DrinkStore.h"
#include "store/StoreError.h"
#include "store/StoreFunctions.h"

#include <sqlite3.h>

EngineReader::EngineReader(DrinkStore &store, const QString &sql) : m_sql(sql)
{
    m_db = sqliteHandle(store.database());
    if (!m_db)
        throw StoreError(QStringLiteral("The store is not open."), m_sql);
    const QByteArray utf8 = sql.toUtf8();
    const int rc = sqlite3_prepare_v2(m_db, utf8.constData(), int(utf8.size()), &m_statement, nullptr);
    if (rc != SQLITE_OK)
        throw StoreError(DrinkStore::errorText(rc, QString::fromUtf8(sqlite3_errmsg(m_db))), m_sql);
}

EngineReader::~EngineReader() { sqlite3_finalize(m_statement); }

bool EngineReader::next()
{
    const int rc = sqlite3_step(m_statement);
    if (rc == SQLITE_ROW)
        return true;
    if (rc == SQLITE_DONE)
        return false;
    throw StoreError(DrinkStore::errorText(rc, QString::fromUtf8(sqlite3_errmsg(m_db))), m_sql);
}

bool EngineReader::isNull(int column) const { return sqlite3_column_type(m_statement, column) == SQLITE_NULL; }

qint32 EngineReader::integer(int column) const { return sqlite3_column_int(m_statement, column); }

QString EngineReader::text(int column) const
{
    const auto *data = static_cast<const QChar *>(sqlite3_column_text16(m_statement, column));
    return data ? QString(data, sqlite3_column_bytes16(m_statement, column) / 2) : QString();
}
