#include "store/StoreWriter.h"

#include "store/StoreError.h"
#include "store/StoreFunctions.h"

#include <QFile>
#include <sqlite3.h>

namespace StoreWriter {

Connection::Connection(const QString &path, Mode mode)
{
    const int flags = SQLITE_OPEN_READWRITE | (mode == Create ? SQLITE_OPEN_CREATE : 0);
    if (sqlite3_open_v2(QFile::encodeName(path).constData(), &m_db, flags, nullptr) != SQLITE_OK) {
        const QString text = error();
        sqlite3_close(m_db);
        throw StoreError(text, path);
    }
    registerStoreFunctions(m_db);
}

Connection::~Connection() { sqlite3_close(m_db); }

QString Connection::error() const { return QString::fromUtf8(sqlite3_errmsg(m_db)); }

void Connection::exec(const char *sql)
{
    char *err = nullptr;
    if (sqlite3_exec(m_db, sql, nullptr, nullptr, &err) != SQLITE_OK) {
        const QString text = QString::fromUtf8(err ? err : sqlite3_errmsg(m_db));
        sqlite3_free(err);
        throw StoreError(text, QString::fromUtf8(sql));
    }
}

void Connection::exec(const QString &sql) { exec(sql.toUtf8().constData()); }

Statement::Statement(Connection &c, const QString &sql) : m_c(c), m_sql(sql)
{
    const QByteArray utf8 = sql.toUtf8();
    if (sqlite3_prepare_v2(c.handle(), utf8.constData(), int(utf8.size()), &m_stmt, nullptr) != SQLITE_OK)
        throw StoreError(c.error(), sql);
}

Statement::~Statement() { sqlite3_finalize(m_stmt); }

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
        throw StoreError(m_c.error(), m_sql);
}

void Statement::check(int rc)
{
    if (rc != SQLITE_OK)
        throw StoreError(m_c.error(), m_sql);
}

} // namespace StoreWriter
