#include "store/StoreBuilder.h"

#include "store/StoreError.h"

#include <QFile>
#include <sqlite3.h>

namespace {

struct Handle {
    sqlite3 *db = nullptr;
    ~Handle() { sqlite3_close(db); }
};

void openHandle(Handle &h, const QString &path, int flags)
{
    if (sqlite3_open_v2(QFile::encodeName(path).constData(), &h.db, flags, nullptr) != SQLITE_OK)
        throw StoreError(QString::fromUtf8(sqlite3_errmsg(h.db)), path);
}

void run(Handle &h, const QString &sql, const QString &origin)
{
    char *err = nullptr;
    if (sqlite3_exec(h.db, sql.toUtf8().constData(), nullptr, nullptr, &err) != SQLITE_OK) {
        const QString text = QString::fromUtf8(err ? err : "unknown error");
        sqlite3_free(err);
        throw StoreError(text, origin);
    }
}

} // namespace

namespace StoreBuilder {

void createFromScripts(const QString &path, const QStringList &scriptFiles)
{
    QFile::remove(path);
    Handle h;
    openHandle(h, path, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
    for (const QString &script : scriptFiles) {
        QFile f(script);
        if (!f.open(QIODevice::ReadOnly))
            throw StoreError(f.errorString(), script);
        run(h, QString::fromUtf8(f.readAll()), script);
    }
}

void runScriptText(const QString &path, const QString &sql)
{
    Handle h;
    openHandle(h, path, SQLITE_OPEN_READWRITE);
    run(h, sql, path);
}

} // namespace StoreBuilder
