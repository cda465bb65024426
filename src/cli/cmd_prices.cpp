#include "cli/CliCommand.h"
#include "cli/RowWriter.h"
#include "base/Cp1252.h"
#include "pricing/PriceListImport.h"
#include "store/DrinkStore.h"

#include <QFile>

namespace {

void declare(QCommandLineParser &p)
{
    p.addOption({QStringLiteral("apply"), QStringLiteral("Write the prices (in one transaction); without it nothing is written.")});
    p.addOption({QStringLiteral("create"), QStringLiteral("Add the ingredients the book does not have.")});
}

const char *kindText(PriceChange::Kind kind)
{
    switch (kind) {
    case PriceChange::Update:
        return "update";
    case PriceChange::Unchanged:
        return "same";
    case PriceChange::Create:
        return "new";
    case PriceChange::Unknown:
        break;
    }
    return "unknown";
}

int run(CliContext &c)
{
    const QStringList p = c.expect(2, "\"import\" and the price list");
    if (p.at(0) != u"import")
        throw UsageError(QStringLiteral("unknown prices command \"%1\"").arg(p.at(0)));
    const QString path = p.at(1);
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw UserError(QStringLiteral("The file %1 cannot be read: %2").arg(path, file.errorString()));
    const PriceList list = readPriceList(Cp1252::decodeFile(file.readAll()));
    if (list.badLine > 0)
        throw UserError(QStringLiteral("%1:%2: %3").arg(path).arg(list.badLine).arg(list.problem));
    DrinkStore &store = c.store();
    const std::vector<PriceChange> changes = planPriceImport(store, list, c.isSet("create"));
    if (c.isSet("apply"))
        applyPriceImport(store, changes);
    RowWriter out(c.json(), {QStringLiteral("line"), QStringLiteral("status"), QStringLiteral("id"), QStringLiteral("name"),
                             QStringLiteral("old_price"), QStringLiteral("new_price")});
    for (const PriceChange &ch : changes)
        out.add({ch.row.line, kindText(ch.kind), ch.id, ch.row.name,
                 ch.id ? Cell::money(ch.oldPrice) : Cell::none(), Cell::money(ch.row.price)});
    out.finish();
    return 0;
}

const CliCommand command{"prices", "import FILE.csv [--apply] [--create] [--json]",
                         "Reads ingredient prices from a supplier's list (name, unit price, unit, ounces per unit).",
                         declare, run};
const CliCommandEntry entry(command);

} // namespace
