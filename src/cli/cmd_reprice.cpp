#include "cli/CliCommand.h"
#include "cli/RowWriter.h"
#include "pricing/PriceBatch.h"
#include "pricing/PriceRules.h"
#include "pricing/RepricePreview.h"
#include "store/DrinkStore.h"

#include <cstdio>

namespace {

void declare(QCommandLineParser &p)
{
    p.addOption({QStringLiteral("method"),
                 QStringLiteral("cost (markup from cost), bcm (beverage cost method) or cur (change of the current price)."),
                 QStringLiteral("METHOD")});
    p.addOption({QStringLiteral("percent"), QStringLiteral("The percentage of the method."), QStringLiteral("P")});
    p.addOption({QStringLiteral("round"),
                 QStringLiteral("Rounding step: 0 to 1, 1 to 0.5, 2 to 0.25, 3 to 0.1, 4 to 0.05, 5 none."),
                 QStringLiteral("INDEX")});
    p.addOption({QStringLiteral("minimum"), QStringLiteral("The minimum price, or \"none\"."), QStringLiteral("M")});
    p.addOption({QStringLiteral("zero-only"), QStringLiteral("Only the drinks priced at 0.")});
    p.addOption({QStringLiteral("apply"), QStringLiteral("Write costs and prices (in one transaction); without it nothing is written.")});
}

// The worksheet's form as the book's settings fill it, then changed by the options given.
PriceForm formOf(CliContext &c, DrinkStore &store)
{
    PriceForm form;
    ApplyStoredToForm(store, form);
    const QString stored = LoadPriceSettings(store).markupPct;
    if (c.isSet("method")) {
        const QString m = c.value("method").toLower();
        if (m == u"cost")
            form.method = MarkupFromCost;
        else if (m == u"bcm")
            form.method = BeverageCostMethod;
        else if (m == u"cur")
            form.method = MarkupFromCurrent;
        else
            throw UsageError(QStringLiteral("unknown method \"%1\" (cost, bcm or cur)").arg(m));
    }
    // One percentage, given or stored, for whichever method runs.
    form.markupPct = form.increasePct = form.bcmPct = c.isSet("percent") ? c.value("percent") : stored;
    if (c.isSet("round")) {
        bool ok = false;
        form.roundTo = c.value("round").toInt(&ok);
        if (!ok || form.roundTo < 0 || form.roundTo >= RoundingStepCount)
            throw UsageError(QStringLiteral("the rounding index is 0 to 5"));
    }
    if (c.isSet("minimum")) {
        form.forceMinimum = c.value("minimum").toLower() != u"none";
        form.minPrice = form.forceMinimum ? c.value("minimum") : QString();
    }
    if (c.isSet("zero-only"))
        form.zeroOnly = true;
    const QString problem = PriceFormProblem(form, true);
    if (!problem.isEmpty())
        throw UserError(problem);
    return form;
}

QString percentText(std::optional<double> v) { return v ? QString::number(*v, 'f', 2) + u'%' : QStringLiteral("-"); }

int run(CliContext &c)
{
    c.expect(0, "");
    DrinkStore &store = c.store();
    const PriceForm form = formOf(c, store);
    const RepriceOutcome outcome = c.isSet("apply") ? applyReprice(store, form) : previewReprice(store, form);
    RowWriter out(c.json(), {QStringLiteral("id"), QStringLiteral("name"), QStringLiteral("old_price"),
                             QStringLiteral("new_price"), QStringLiteral("old_cost"), QStringLiteral("new_cost"),
                             QStringLiteral("margin_before"), QStringLiteral("margin_after")});
    for (const RepriceLine &l : outcome.changed)
        out.add({l.id, l.name, Cell::money(l.oldPrice), Cell::money(l.newPrice), Cell::money(l.oldCost),
                 Cell::money(l.newCost), Cell::figure(priceMargin(l.oldCost, l.oldPrice)),
                 Cell::figure(priceMargin(l.newCost, l.newPrice))});
    out.finish();
    // The summary goes where it does not mix with the rows a script reads.
    const QString summary =
        QStringLiteral("%1 of %2 drinks %3 a new price; average margin %4 -> %5")
            .arg(outcome.changed.size())
            .arg(outcome.examined)
            .arg(c.isSet("apply") ? QStringLiteral("got") : QStringLiteral("would get"),
                 percentText(outcome.marginBefore), percentText(outcome.marginAfter));
    std::fputs((summary + u'\n').toUtf8().constData(), stderr);
    return 0;
}

const CliCommand command{"reprice", "[--method cost|bcm|cur] [--percent P] [--round INDEX] [--minimum M] [--zero-only] [--apply]",
                         "Recalculates drink costs and prices as the Drink Price Worksheet does; a dry run by default.",
                         declare, run};
const CliCommandEntry entry(command);

} // namespace
