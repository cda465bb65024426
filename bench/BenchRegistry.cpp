#include "BenchRegistry.h"

#include "store/JetDialect.h"
#include "store/StoreError.h"

#include <QDir>
#include <QFile>
#include <algorithm>
#include <map>

namespace Bench {

void Registry::add(const char *id, const QString &label, const Store &store,
                   std::function<void(benchmark::State &)> body, std::optional<Floor> floor)
{
    m_cases.push_back({std::string(id) + '/' + std::to_string(store.drinks), label, store.drinks, store.path,
                       std::move(body), std::move(floor)});
}

namespace {
std::vector<std::pair<int, AreaFunction>> &areaList()
{
    static std::vector<std::pair<int, AreaFunction>> list;
    return list;
}
} // namespace

Area::Area(int rank, AreaFunction function)
{
    areaList().emplace_back(rank, function);
}

std::vector<AreaFunction> areasByRank()
{
    auto list = areaList();
    std::stable_sort(list.begin(), list.end(), [](const auto &a, const auto &b) { return a.first < b.first; });
    std::vector<AreaFunction> functions;
    for (const auto &a : list)
        functions.push_back(a.second);
    return functions;
}

QString native(const QString &jetSql)
{
    return jetToSqlite(jetSql);
}

std::vector<qint32> sampleIds(const Store &store, int count)
{
    std::vector<qint32> ids;
    for (int k = 0; k < count; ++k)
        ids.push_back(1 + static_cast<qint32>(static_cast<qint64>(k) * store.drinks / count));
    return ids;
}

Store scratchCopy(const Store &store)
{
    static std::map<QString, Store> copies;
    const auto made = copies.find(store.path);
    if (made != copies.end())
        return made->second;

    Store copy = store;
    copy.appDir = QDir(store.appDir).filePath(QStringLiteral("scratch"));
    copy.path = QDir(copy.appDir).filePath(QStringLiteral("drinks.db"));
    if (!QDir().mkpath(copy.appDir))
        throw StoreError(QStringLiteral("The folder for the store's copy cannot be made."), copy.appDir);
    // The copy's journal files of an earlier run belong to the old file.
    for (const char *suffix : {"", "-wal", "-shm"})
        QFile::remove(copy.path + QLatin1String(suffix));
    if (!QFile::copy(store.path, copy.path))
        throw StoreError(QStringLiteral("The store cannot be copied."), copy.path);
    copies.emplace(store.path, copy);
    return copy;
}

} // namespace Bench
