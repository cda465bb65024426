#pragma once

#include <benchmark/benchmark.h>

#include <QString>
#include <QStringList>
#include <functional>
#include <optional>
#include <string>
#include <vector>

class DrinkStore;

// Every benchmark says what it measures and, where the work is the engine's, which native
// statements the engine alone would run for it: bench/run times those through the sqlite3
// shell on the same file, so each of our numbers stands beside the floor it can approach.
namespace Bench {

// A generated store that the benchmarks of one size run on.
struct Store {
    int drinks = 0;
    QString appDir;
    QString path; // appDir/drinks.db
};

struct Floor {
    QStringList statements; // native SQL, run in this order
    int operations = 1;     // how many of the benchmark's operations the statements do
    QString note;           // how the statements differ from the program's, when they do
    QString reason;         // why the program needs more than twice the floor, when it does
};

struct Case {
    std::string name; // id "/" drinks, the benchmark's name
    QString label;    // what the table calls it
    int drinks = 0;
    QString storePath;
    std::function<void(benchmark::State &)> body;
    std::optional<Floor> floor;
};

class Registry {
public:
    void add(const char *id, const QString &label, const Store &store, std::function<void(benchmark::State &)> body,
             std::optional<Floor> floor = std::nullopt);
    const std::vector<Case> &cases() const { return m_cases; }

private:
    std::vector<Case> m_cases;
};

// Each bench_*.cpp file adds its cases for every store through one of these, defined at file
// scope. setup is open on the store for looking up ids; the bodies open their own connection.
// Areas run, and the table lists them, by rank.
using AreaFunction = void (*)(Registry &registry, const Store &store, DrinkStore &setup);
struct Area {
    Area(int rank, AreaFunction function);
};
std::vector<AreaFunction> areasByRank();

// `count` drink ids spread evenly over the generated store, for cases that go round its drinks.
std::vector<qint32> sampleIds(const Store &store, int count);

// A statement written in the old dialect, as the engine receives it.
QString native(const QString &jetSql);

// The store's copy for the benchmarks that write, beside the cached store in its folder
// "scratch": copied afresh once per run of the program, so every run starts from the generated
// rows, and kept after it, because the floors of those benchmarks run on it too. All writing
// areas share it, each restoring or overwriting only what it writes. Throws StoreError.
Store scratchCopy(const Store &store);

} // namespace Bench
