#include "store/StoreFunctions.h"

#include "base/LineCost.h"
#include "store/JetLike.h"
#include "store/NameFold.h"

#include <QSqlDatabase>
#include <QSqlDriver>
#include <QString>
#include <sqlite3.h>

namespace {

Currency currencyArg(sqlite3_value *v)
{
    switch (sqlite3_value_type(v)) {
    case SQLITE_INTEGER:
        return Currency::fromTenThousandths(sqlite3_value_int64(v) * 10000);
    case SQLITE_FLOAT:
        return Currency::fromDouble(sqlite3_value_double(v));
    case SQLITE_TEXT:
        return Currency::fromVariant(QString::fromUtf8(reinterpret_cast<const char *>(sqlite3_value_text(v))));
    default:
        return Currency();
    }
}

// LineCost(unitprice, ozperunit, measure): ounces and measure are single precision, as stored.
void lineCostFunction(sqlite3_context *ctx, int, sqlite3_value **argv)
{
    const Currency cost = LineCost(currencyArg(argv[0]), float(sqlite3_value_double(argv[1])),
                                   float(sqlite3_value_double(argv[2])));
    sqlite3_result_double(ctx, cost.toDouble());
}

} // namespace

void registerStoreFunctions(sqlite3 *db)
{
    registerJetLike(db);
    NameFold::registerCollation(db);
    sqlite3_create_function(db, "LineCost", 3, SQLITE_UTF8 | SQLITE_DETERMINISTIC, nullptr, lineCostFunction,
                            nullptr, nullptr);
}

sqlite3 *sqliteHandle(const QSqlDatabase &db)
{
    const QVariant handle = db.driver() ? db.driver()->handle() : QVariant();
    if (!handle.isValid() || qstrcmp(handle.typeName(), "sqlite3*") != 0)
        return nullptr;
    return *static_cast<sqlite3 *const *>(handle.data());
}

bool registerStoreFunctions(const QSqlDatabase &db)
{
    sqlite3 *h = sqliteHandle(db);
    if (!h)
        return false;
    registerStoreFunctions(h);
    return true;
}
