#pragma once

#include <QString>

class DrinkStore;
struct sqlite3;
struct sqlite3_stmt;

// A read-only native statement stepped straight on the engine: the big scans (the main list,
// the liquor cabinet) read up to every row of a large book, and their values need no
// conversion through Qt's variants on the way.
class EngineReader {
public:
    // Throws StoreError with the engine's text when the statement cannot be prepared.
    EngineReader(DrinkStore &store, const QString &sql);
    ~EngineReader();
    EngineReader(const EngineReader &) = delete;
    EngineReader &operator=(const EngineReader &) = delete;

    // The next row; false at the end. Throws StoreError when the engine fails on the way.
    bool next();
    bool isNull(int column) const;
    qint32 integer(int column) const;
    QString text(int column) const;

private:
    QString m_sql;
    sqlite3 *m_db = nullptr;
    sqlite3_stmt *m_statement = nullptr;
};
