#pragma once

#include <QByteArray>
#include <QString>
#include <string>

#include "base/Currency.h"

struct sqlite3;
struct sqlite3_stmt;

// Writing a store file straight through the engine, for the tools that fill whole stores (the
// delivered book, the benchmarks' generator, new stores from scripts): statements prepared
// once and bound per row. Every failure throws StoreError with the engine's text.
namespace StoreWriter {

class Connection {
public:
    enum Mode { Existing, Create };
    // Brings the program's own functions, so the saved queries that use them work here too.
    explicit Connection(const QString &path, Mode mode = Existing);
    ~Connection();
    Connection(const Connection &) = delete;
    Connection &operator=(const Connection &) = delete;

    sqlite3 *handle() const { return m_db; }
    QString error() const;
    // One or more statements.
    void exec(const char *sql);
    void exec(const QString &sql);

private:
    sqlite3 *m_db = nullptr;
};

// Bind the values, run, and it is ready for the next row.
class Statement {
public:
    Statement(Connection &c, const QString &sql);
    ~Statement();
    Statement(const Statement &) = delete;
    Statement &operator=(const Statement &) = delete;

    Statement &integer(int i, qint64 v);
    Statement &real(int i, double v);
    // Currency columns hold decimal values: 3.5, not 35000.
    Statement &money(int i, Currency v) { return real(i, v.toDouble()); }
    Statement &text(int i, const char *v);
    Statement &text(int i, const std::string &v);
    Statement &text(int i, const QByteArray &v);
    Statement &text(int i, const QString &v) { return text(i, v.toUtf8()); }
    Statement &null(int i);
    void run();

private:
    void check(int rc);

    Connection &m_c;
    QString m_sql;
    sqlite3_stmt *m_stmt = nullptr;
};

} // namespace StoreWriter
