#pragma once

#include <QByteArray>
#include <QString>
#include <string>

struct sqlite3;
struct sqlite3_stmt;

// The generator writes hundreds of thousands of rows: straight through the engine's own
// interface, with statements prepared once and bound per row.
namespace SqliteWriter {

class Connection {
public:
    enum Mode { Existing, Create };
    explicit Connection(const QString &path, Mode mode = Existing);
    ~Connection();
    Connection(const Connection &) = delete;
    Connection &operator=(const Connection &) = delete;

    sqlite3 *handle() const { return m_db; }
    QString error() const;
    void exec(const char *sql);

private:
    sqlite3 *m_db = nullptr;
};

// Bind the values, run, and it is ready for the next row. Every failure throws StoreError
// with the engine's text and the statement.
class Statement {
public:
    Statement(Connection &c, const char *sql);
    ~Statement();
    Statement(const Statement &) = delete;
    Statement &operator=(const Statement &) = delete;

    Statement &integer(int i, qint64 v);
    Statement &real(int i, double v);
    Statement &text(int i, const char *v);
    Statement &text(int i, const std::string &v);
    Statement &text(int i, const QByteArray &v);
    Statement &null(int i);
    void run();

private:
    void check(int rc);

    Connection &m_c;
    const char *m_sql;
    sqlite3_stmt *m_stmt = nullptr;
};

} // namespace SqliteWriter
