// corvane-mkstore --out FILE --schema schema.sql [--sql rows.sql ...] [--book DIR]
// Writes a new store file from the schema and starter rows, or from the starter recipe book.
#include "editing/StarterBook.h"
#include "editing/StarterBookWriter.h"
#include "store/StoreBuilder.h"
#include "store/StoreError.h"

#include <QCoreApplication>
#include <QFile>
#include <QStringList>
#include <cstdio>

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    QString out, book;
    QStringList scripts;
    const QStringList args = app.arguments();
    for (int i = 1; i + 1 < args.size(); i += 2) {
        if (args[i] == "--out")
            out = args[i + 1];
        else if (args[i] == "--schema" || args[i] == "--sql")
            scripts << args[i + 1];
        else if (args[i] == "--book")
            book = args[i + 1];
    }
    if (out.isEmpty() || scripts.isEmpty()) {
        std::fprintf(
            stderr,
            "usage: corvane-mkstore --out FILE --schema schema.sql [--sql rows.sql ...] [--book DIR]\n");
        return 2;
    }
    // Build beside the target and rename, so a failed build never leaves half a store.
    const QString tmp = out + ".tmp";
    try {
        StarterBook starter;
        if (!book.isEmpty())
            starter = StarterBook::read(book); // before anything is written: a bad book stops early
        StoreBuilder::createFromScripts(tmp, scripts);
        if (!book.isEmpty()) {
            StarterBookWriter::write(starter, tmp);
            // The batch repricing takes costs from the DrinkCost query; warn where it would
            // give another cost than the one stored.
            for (const QString &d : StarterBookWriter::compareWithDrinkCostQuery(tmp))
                std::fprintf(stderr, "warning: %s\n", qPrintable(d));
        }
        QFile::remove(out);
        if (!QFile::rename(tmp, out)) {
            std::fprintf(stderr, "cannot write %s\n", qPrintable(out));
            return 1;
        }
    } catch (const StarterBookError &e) {
        for (const QString &fault : e.faults())
            std::fprintf(stderr, "%s/%s\n", qPrintable(book), qPrintable(fault));
        return 1;
    } catch (const StoreError &e) {
        QFile::remove(tmp);
        std::fprintf(stderr, "%s: %s\n", qPrintable(e.statement()), qPrintable(e.engineText()));
        return 1;
    }
    return 0;
}
