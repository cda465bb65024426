#include "BenchRegistry.h"

#include "store/JetDialect.h"

#include <algorithm>

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

} // namespace Bench
