#include "store/StoreBuilder.h"

#include "store/StoreError.h"
#include "store/StoreWriter.h"

#include <QFile>

namespace StoreBuilder {

namespace {
// A failing script is named, not the text of its statements.
void run(StoreWriter::Connection &c, const QString &sql, const QString &origin)
{
    try {
        c.exec(sql);
    } catch (const StoreError &e) {
        throw StoreError(e.engineText(), origin);
    }
}
} // namespace

void createFromScripts(const QString &path, const QStringList &scriptFiles)
{
    QFile::remove(path);
    StoreWriter::Connection c(path, StoreWriter::Connection::Create);
    for (const QString &script : scriptFiles) {
        QFile f(script);
        if (!f.open(QIODevice::ReadOnly))
            throw StoreError(f.errorString(), script);
        run(c, QString::fromUtf8(f.readAll()), script);
    }
}

void runScriptText(const QString &path, const QString &sql)
{
    StoreWriter::Connection c(path);
    run(c, sql, path);
}

} // namespace StoreBuilder
