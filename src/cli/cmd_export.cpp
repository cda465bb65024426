#include "cli/CliCommand.h"
#include "cli/RowWriter.h"
#include "exchange/DrinkExport.h"
#include "exchange/ExportFile.h"
#include "store/DrinkStore.h"

namespace {

void declare(QCommandLineParser &p)
{
    p.addOption({QStringLiteral("format"), QStringLiteral("cvx (the exchange file), xml or pos (the Maitre'D recipe file)."),
                 QStringLiteral("FORMAT")});
    p.addOption({QStringLiteral("all"), QStringLiteral("Every drink, in name order.")});
    p.addOption({QStringLiteral("marked"), QStringLiteral("The marked drinks, in name order.")});
    p.addOption({QStringLiteral("ids"), QStringLiteral("These drinks, in this order: 1,2,3."), QStringLiteral("IDS")});
    p.addOption({QStringLiteral("limit-64k"), QStringLiteral("pos: stop before the file passes 64K.")});
    p.addOption({QStringLiteral("with-recipe"), QStringLiteral("pos: the recipes on the receipts as well.")});
}

int run(CliContext &c)
{
    const QString file = c.expect(1, "the file to write").at(0);
    if (!c.isSet("format"))
        throw UsageError(QStringLiteral("give the --format"));
    const QString format = c.value("format").toLower();
    DrinkExporter::Mode mode;
    if (format == u"cvx")
        mode = DrinkExporter::Exchange;
    else if (format == u"xml")
        mode = DrinkExporter::Xml;
    else if (format == u"pos")
        mode = DrinkExporter::MaitreD;
    else
        throw UsageError(QStringLiteral("unknown format \"%1\"").arg(format));
    const std::vector<qint32> ids = selectedDrinks(c, true);
    DrinkExporter run(c.store(), c.facade(), mode, c.isSet("limit-64k"), c.isSet("with-recipe"));
    QString stopped;
    for (qint32 id : ids) {
        if (!run.exportDrink(id)) {
            stopped = run.limitMessage();
            break;
        }
    }
    // As the dialog does: what fits is written even when the limit stopped the run.
    if (!writeExportFile(file, run.fileText()).isEmpty())
        throw UserError(QStringLiteral("The file %1 is not a valid file name.").arg(file));
    RowWriter out(c.json(), {QStringLiteral("exported"), QStringLiteral("file")});
    out.add({run.drinksExported(), file});
    out.finish();
    if (!stopped.isEmpty())
        throw UserError(stopped);
    return 0;
}

const CliCommand command{"export", "--format cvx|xml|pos (--all | --marked | --ids 1,2,3) FILE",
                         "Writes drinks to an exchange, XML or point-of-sale file.", declare, run};
const CliCommandEntry entry(command);

} // namespace
