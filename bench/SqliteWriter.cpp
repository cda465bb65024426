#include "SqliteWriter.h"

#include "store/StoreError.h"

#include <QFile>
#include <sqlite3.h>

namespace SqliteWriter {

Connection::Connection(const QString &path, Mode mode)
{
    const int flags = SQLITE_OPEN_READWRITE | (mode == Create ? SQLITE_OPEN_CREATE : 0);
    if (sqlite3_open_v2(QFile::encodeName(path).constData(), &m_db, flags, nullptr) != SQLITE_OK) {
        const QString text = error();
        sqlite3_close(m_db);
        throw StoreError(text, path);
    }
}

Connection::~Connection()
{
    sqlite3_close(m_db);
}

QString Connection::error() const
{
    return QString::fromUtf8(sqlite3_errmsg(m_db));
}

void Connection::exec(const char *sql)
{
    if (sqlite3_exec(m_db, sql, nullptr, nullptr, nullptr) != SQLITE_OK)
        throw StoreError(error(), QString::fromUtf8(sql));
}

Statement::Statement(Connection &c, const char *sql) : m_c(c), m_sql(sql)
{
    if (sqlite3_prepare_v2(c.handle(), sql, -1, &m_stmt, nullptr) != SQLITE_OK)
        throw StoreError(c.error(), QString::fromUtf8(sql));
}

Statement::~Statement()
{
    sqlite3_finalize(m_stmt);
}

Statement &Statement::integer(int i, qint64 v)
{
    check(sqlite3_bind_int64(m_stmt, i, v));
    return *this;
}

Statement &Statement::real(int i, double v)
{
    check(sqlite3_bind_double(m_stmt, i, v));
    return *this;
}

// The engine copies the text: the caller's buffer may go at once.
Statement &Statement::text(int i, const char *v)
{
    check(sqlite3_bind_text(m_stmt, i, v, -1, SQLITE_TRANSIENT));
    return *this;
}

Statement &Statement::text(int i, const std::string &v)
{
    check(sqlite3_bind_text(m_stmt, i, v.data(), static_cast<int>(v.size()), SQLITE_TRANSIENT));
    return *this;
}

Statement &Statement::text(int i, const QByteArray &v)
{
    check(sqlite3_bind_text(m_stmt, i, v.constData(), static_cast<int>(v.size()), SQLITE_TRANSIENT));
    return *this;
}

Statement &Statement::null(int i)
{
    check(sqlite3_bind_null(m_stmt, i));
    return *this;
}

void Statement::run()
{
    const int rc = sqlite3_step(m_stmt);
    sqlite3_reset(m_stmt);
    sqlite3_clear_bindings(m_stmt);
    if (rc != SQLITE_DONE)
        throw StoreError(m_c.error(), QString::fromUtf8(m_sql));
}

void Statement::check(int rc)
{
    if (rc != SQLITE_OK)
        throw StoreError(m_c.error(), QString::fromUtf8(m_sql));
}

} // namespace SqliteWriter
