#include "cli/CliCommand.h"
#include "cli/RowWriter.h"
#include "exchange/DrinkExport.h"
#include "presentation/CDrinkFacade.h"
#include "store/DrinkStore.h"

#include <cstdio>

namespace {

void declare(QCommandLineParser &p)
{
    p.addOption({QStringLiteral("format"), QStringLiteral("text (the default), html, cvx, xml or pos."),
                 QStringLiteral("FORMAT")});
    p.addOption({QStringLiteral("with-recipe"), QStringLiteral("pos: the recipe on the receipt as well.")});
}

int run(CliContext &c)
{
    const QStringList p = c.expect(1, "the drink id");
    bool ok = false;
    const qint32 id = p.at(0).toInt(&ok);
    if (!ok)
        throw UsageError(QStringLiteral("\"%1\" is not a drink id").arg(p.at(0)));
    const QString format = c.isSet("format") ? c.value("format").toLower() : QStringLiteral("text");
    static const QStringList formats{QStringLiteral("text"), QStringLiteral("html"), QStringLiteral("cvx"),
                                     QStringLiteral("xml"), QStringLiteral("pos")};
    if (!formats.contains(format))
        throw UsageError(QStringLiteral("unknown format \"%1\"").arg(format));
    DrinkStore &store = c.store();
    CDrinkFacade &facade = c.facade();
    // The facade moves to the first drink for an id it cannot find; the command says so instead.
    if (!facade.seekForOutput(id) || id <= 0)
        throw UserError(QStringLiteral("There is no drink with the id %1.").arg(p.at(0)));
    QString text;
    if (format == u"text")
        text = facade.drinkAsPlainText(id);
    else if (format == u"html")
        text = facade.drinkAsHTML(id);
    else {
        // The file a one-drink export writes, head and end included.
        const auto mode = format == u"cvx" ? DrinkExporter::Exchange
                          : format == u"xml" ? DrinkExporter::Xml
                                             : DrinkExporter::MaitreD;
        DrinkExporter exporter(store, facade, mode, false, c.isSet("with-recipe"));
        exporter.exportDrink(id);
        text = exporter.fileText();
    }
    // Pages and text read on a terminal; exchange files stay byte for byte as exported.
    if (format == u"text" || format == u"html")
        text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    std::fputs(text.toUtf8().constData(), stdout);
    if (!text.endsWith(u'\n'))
        std::fputc('\n', stdout);
    return 0;
}

const CliCommand command{"show", "ID [--format text|html|cvx|xml|pos]",
                         "Shows one drink as the page, the text or an exchange format writes it.", declare, run};
const CliCommandEntry entry(command);

} // namespace
