#include "cli/CliCommand.h"
#include "presentation/CDrinkFacade.h"
#include "printing/PrintLayout.h"
#include "printing/PrintRun.h"

#include <cstdio>

namespace {

// The stored layout of that name, as the print dialog's list offers it; the dialog's
// defaults when no name is given.
PrintLayoutSettings layoutNamed(CliContext &c, const QString &name)
{
    if (name.isEmpty())
        return PrintLayout::defaults();
    PrintLayoutSettings layout = PrintLayout::defaults();
    QStringList known;
    for (const PrintLayout::LayoutEntry &e : PrintLayout::FillLayoutList(c.store())) {
        if (e.name.compare(name, Qt::CaseInsensitive) == 0 && PrintLayout::LoadLayout(c.store(), e.id, layout))
            return layout;
        known << e.name;
    }
    throw UserError(QStringLiteral("There is no print layout \"%1\" (there are: %2).").arg(name, known.join(QStringLiteral(", "))));
}

void declare(QCommandLineParser &p)
{
    p.addOption({QStringLiteral("marked"), QStringLiteral("The marked drinks, in name order.")});
    p.addOption({QStringLiteral("ids"), QStringLiteral("These drinks, in this order: 1,2,3."), QStringLiteral("IDS")});
    p.addOption({QStringLiteral("layout"), QStringLiteral("A layout saved in the print dialog; its defaults when not given."), QStringLiteral("NAME")});
    p.addOption({QStringLiteral("pdf"), QStringLiteral("The PDF file to write."), QStringLiteral("FILE")});
    p.addOption({QStringLiteral("paper"), QStringLiteral("Letter (the default) or A4."), QStringLiteral("NAME")});
}

int run(CliContext &c)
{
    c.expect(0, "nothing");
    const QString pdf = c.value("pdf");
    if (pdf.isEmpty())
        throw UsageError(QStringLiteral("give the file to write with --pdf"));
    QString paper = c.isSet("paper") ? c.value("paper") : QStringLiteral("Letter");
    if (paper.compare(QLatin1String("Letter"), Qt::CaseInsensitive) != 0 && paper.compare(QLatin1String("A4"), Qt::CaseInsensitive) != 0)
        throw UsageError(QStringLiteral("--paper takes Letter or A4"));
    paper = paper.toUpper() == QLatin1String("A4") ? QStringLiteral("A4") : QStringLiteral("Letter");

    const std::vector<qint32> ids = selectedDrinks(c, false);
    if (ids.empty())
        throw UserError(QStringLiteral("There are no drinks to print."));
    const PrintLayoutSettings layout = layoutNamed(c, c.value("layout"));
    const PrintResult r = printDrinksToPdf(pdf, c.facade(), ids, layout, {}, paper);
    switch (r.status) {
    case PrintResult::Printed:
        std::fputs(QStringLiteral("%1 %2 on %3 %4\n")
                       .arg(r.cards)
                       .arg(r.cards == 1 ? QLatin1String("card") : QLatin1String("cards"))
                       .arg(r.pages)
                       .arg(r.pages == 1 ? QLatin1String("page") : QLatin1String("pages"))
                       .toUtf8()
                       .constData(),
                   stdout);
        return 0;
    case PrintResult::BadLayout:
        throw UserError(QStringLiteral("The layout holds no card: check its rows, columns and margins."));
    default:
        throw UserError(QStringLiteral("%1: %2").arg(pdf, r.error.isEmpty() ? QStringLiteral("the file could not be written") : r.error));
    }
}

const CliCommand command{"print", "(--marked | --ids 1,2,3) [--layout NAME] --pdf FILE [--paper Letter|A4]",
                         "Prints recipe cards to a PDF file, as the print dialog lays them out.", declare, run, true};
const CliCommandEntry entry(command);

} // namespace
