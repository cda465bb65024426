// corvane-mkbigstore --drinks N --seed S --out DIR [--if-stale]
// Writes DIR/drinks.db, a synthetic recipe book of N drinks, the same for the same seed.
// With --if-stale an existing store from the same options and generator is kept.
#include "StoreGenerator.h"

#include "store/StoreError.h"

#include <QCoreApplication>
#include <QStringList>
#include <cstdio>

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    const QStringList args = app.arguments();
    StoreGenerator::Options options;
    QString out;
    bool ifStale = false, ok = true;
    for (int i = 1; i < args.size(); ++i) {
        const bool hasValue = i + 1 < args.size();
        if (args[i] == QLatin1String("--drinks") && hasValue)
            options.drinks = args[++i].toInt(&ok);
        else if (args[i] == QLatin1String("--seed") && hasValue)
            options.seed = args[++i].toULongLong(&ok);
        else if (args[i] == QLatin1String("--out") && hasValue)
            out = args[++i];
        else if (args[i] == QLatin1String("--if-stale"))
            ifStale = true;
        else
            ok = false;
        if (!ok)
            break;
    }
    if (!ok || out.isEmpty() || options.drinks < 1) {
        std::fprintf(stderr, "usage: corvane-mkbigstore --drinks N --seed S --out DIR [--if-stale]\n");
        return 2;
    }
    if (ifStale && StoreGenerator::isCurrent(out, options)) {
        std::printf("%s/drinks.db: %d drinks, seed %llu, up to date\n", qPrintable(out), options.drinks,
                    static_cast<unsigned long long>(options.seed));
        return 0;
    }
    try {
        const StoreGenerator::Summary s = StoreGenerator::generate(out, options);
        std::printf("%s/drinks.db: %d drinks, %d lines, %d category rows, %d search results, %d marked, "
                    "%d in the cabinet; %.1f s\n",
                    qPrintable(out), s.drinks, s.lines, s.categoryRows, s.searchResults, s.markedDrinks,
                    s.cabinetDrinks, s.seconds);
    } catch (const StoreError &e) {
        std::fprintf(stderr, "%s: %s\n", qPrintable(e.statement()), qPrintable(e.engineText()));
        return 1;
    }
    return 0;
}
