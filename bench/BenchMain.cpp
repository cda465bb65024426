// corvane-bench [--print-floors] [Google Benchmark flags]
// Runs every benchmark on the generated stores (made first when missing or stale). With
// --print-floors it prints instead, as JSON, each benchmark's label and the native statements
// of its engine floor, for bench/run.
//
// CORVANE_BENCH_SIZES (default "1000,100000"), CORVANE_BENCH_SEED (1) and CORVANE_BENCH_STORES
// (bench/.stores in the source tree) choose the stores.
#include "BenchRegistry.h"
#include "StoreGenerator.h"

#include "store/DrinkStore.h"
#include "store/StoreError.h"

#include <QGuiApplication>
#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <cstdio>
#include <cstring>

namespace {

QString setting(const char *name, const QString &fallback)
{
    const QString value = qEnvironmentVariable(name);
    return value.isEmpty() ? fallback : value;
}

std::vector<int> sizes()
{
    std::vector<int> list;
    for (const QString &part : setting("CORVANE_BENCH_SIZES", QStringLiteral("1000,100000")).split(u',')) {
        bool ok = false;
        const int n = part.trimmed().toInt(&ok);
        if (ok && n > 0)
            list.push_back(n);
    }
    return list;
}

Bench::Store prepareStore(int drinks)
{
    const StoreGenerator::Options options{drinks, setting("CORVANE_BENCH_SEED", QStringLiteral("1")).toULongLong()};
    const QDir root(setting("CORVANE_BENCH_STORES", QStringLiteral(CORVANE_BENCH_STORE_CACHE)));
    Bench::Store store;
    store.drinks = drinks;
    store.appDir = root.filePath(QStringLiteral("drinks-%1-seed-%2").arg(drinks).arg(options.seed));
    store.path = QDir(store.appDir).filePath(QStringLiteral("drinks.db"));
    if (!StoreGenerator::isCurrent(store.appDir, options)) {
        std::fprintf(stderr, "writing a store of %d drinks to %s ...", drinks, qPrintable(store.appDir));
        const StoreGenerator::Summary s = StoreGenerator::generate(store.appDir, options);
        std::fprintf(stderr, " %.1f s\n", s.seconds);
    }
    return store;
}

QJsonObject floorsOf(const Bench::Case &c)
{
    QJsonObject o{{QStringLiteral("name"), QString::fromStdString(c.name)},
                  {QStringLiteral("label"), c.label},
                  {QStringLiteral("drinks"), c.drinks},
                  {QStringLiteral("store"), c.storePath}};
    if (c.floor) {
        o.insert(QStringLiteral("statements"), QJsonArray::fromStringList(c.floor->statements));
        o.insert(QStringLiteral("operations"), c.floor->operations);
        o.insert(QStringLiteral("note"), c.floor->note);
        o.insert(QStringLiteral("reason"), c.floor->reason);
    }
    return o;
}

} // namespace

int main(int argc, char **argv)
{
    bool printFloors = false;
    int kept = 1;
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--print-floors") == 0)
            printFloors = true;
        else
            argv[kept++] = argv[i];
    }
    argc = kept;
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    // Qt SQL finds its driver plugins only through an application object; printed cards need
    // fonts, which only a GUI application has, on the screenless platform.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);

    Bench::Registry registry;
    try {
        for (int drinks : sizes()) {
            const Bench::Store store = prepareStore(drinks);
            DrinkStore setup(store.path);
            for (Bench::AreaFunction area : Bench::areasByRank())
                area(registry, store, setup);
        }
    } catch (const StoreError &e) {
        std::fprintf(stderr, "%s: %s\n", qPrintable(e.statement()), qPrintable(e.engineText()));
        return 1;
    }

    if (printFloors) {
        QJsonArray list;
        for (const Bench::Case &c : registry.cases())
            list.append(floorsOf(c));
        std::fputs(QJsonDocument(list).toJson().constData(), stdout);
        return 0;
    }
    for (const Bench::Case &c : registry.cases()) {
        auto body = [run = c.body](benchmark::State &state) {
            try {
                run(state);
            } catch (const StoreError &e) {
                state.SkipWithError(qPrintable(e.engineText()));
            }
        };
        // Wall time: the floor beside it is wall time too, and it is what the user waits for.
        benchmark::RegisterBenchmark(c.name.c_str(), body)->UseRealTime()->Unit(benchmark::kMicrosecond);
    }
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
