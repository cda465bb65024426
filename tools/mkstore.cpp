// corvane-mkstore --out FILE --schema schema.sql [--sql rows.sql ...]
// Writes a new store file from the schema and starter rows.
#include "store/StoreBuilder.h"
#include "store/StoreError.h"

#include <QCoreApplication>
#include <QFile>
#include <QStringList>
#include <cstdio>

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    QString out;
    QStringList scripts;
    const QStringList args = app.arguments();
    for (int i = 1; i + 1 < args.size(); i += 2) {
        if (args[i] == "--out")
            out = args[i + 1];
        else if (args[i] == "--schema" || args[i] == "--sql")
            scripts << args[i + 1];
    }
    if (out.isEmpty() || scripts.isEmpty()) {
        std::fprintf(stderr, "usage: corvane-mkstore --out FILE --schema schema.sql [--sql rows.sql ...]\n");
        return 2;
    }
    try {
        // Build beside the target and rename, so a failed build never leaves half a store.
        const QString tmp = out + ".tmp";
        StoreBuilder::createFromScripts(tmp, scripts);
        QFile::remove(out);
        if (!QFile::rename(tmp, out)) {
            std::fprintf(stderr, "cannot write %s\n", qPrintable(out));
            return 1;
        }
    } catch (const StoreError &e) {
        std::fprintf(stderr, "%s: %s\n", qPrintable(e.statement()), qPrintable(e.engineText()));
        return 1;
    }
    return 0;
}
