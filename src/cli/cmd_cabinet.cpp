#include "cabinet/NextBottle.h"
#include "cli/CliCommand.h"
#include "cli/RowWriter.h"

namespace {

QString ingredientName(const NextBottle::Book &book, qint32 id)
{
    const int i = book.ingredientIndex(id);
    return i < 0 ? QString() : book.ingredients[size_t(i)].name;
}

QString drinkName(const NextBottle::Book &book, qint32 id)
{
    const int i = book.drinkIndex(id);
    return i < 0 ? QString() : book.drinkNames[size_t(i)];
}

int tick(CliContext &c, const QStringList &names, bool owned)
{
    if (names.isEmpty())
        throw UsageError(QStringLiteral("name the ingredients to %1").arg(owned ? QLatin1String("tick") : QLatin1String("untick")));
    const QStringList unknown = NextBottle::SetOwned(c.store(), names, owned);
    if (!unknown.isEmpty())
        throw UserError(QStringLiteral("No ingredient is named \"%1\"; nothing was changed.").arg(unknown.join(QStringLiteral("\", \""))));
    return 0;
}

void listNear(CliContext &c, const NextBottle::Book &book, const std::vector<NextBottle::NearMatch> &near)
{
    RowWriter out(c.json(), {QStringLiteral("id"), QStringLiteral("name"), QStringLiteral("missing")});
    for (const NextBottle::NearMatch &m : near) {
        QStringList missing{ingredientName(book, m.missing[0])};
        if (m.missing[1] != 0)
            missing << ingredientName(book, m.missing[1]);
        out.add({m.drinkId, drinkName(book, m.drinkId), missing.join(QStringLiteral(", "))});
    }
    out.finish();
}

void listNext(CliContext &c, const NextBottle::Book &book, const std::vector<NextBottle::Candidate> &ranking, int top)
{
    RowWriter out(c.json(), {QStringLiteral("id"), QStringLiteral("ingredient"), QStringLiteral("unlocks"),
                             QStringLiteral("brings_near"), QStringLiteral("unit_price")});
    for (size_t i = 0; i < ranking.size() && int(i) < top; ++i) {
        const NextBottle::Candidate &r = ranking[i];
        const int at = book.ingredientIndex(r.ingredientId);
        out.add({r.ingredientId, ingredientName(book, r.ingredientId), r.unlocks, r.bringsNear,
                 at < 0 ? Cell::none() : Cell::money(book.ingredients[size_t(at)].unitPrice)});
    }
    out.finish();
}

int positiveNumber(CliContext &c, const char *option, int fallback)
{
    if (!c.isSet(option))
        return fallback;
    bool ok = false;
    const int n = c.value(option).toInt(&ok);
    if (!ok || n < 1)
        throw UsageError(QStringLiteral("--%1 takes a whole number from 1").arg(QLatin1String(option)));
    return n;
}

void declare(QCommandLineParser &p)
{
    p.addOption({QStringLiteral("missing"), QStringLiteral("near: drinks short of 1 or 2 bottles (default 1)."), QStringLiteral("N")});
    p.addOption({QStringLiteral("top"), QStringLiteral("next: how many bottles to list (default 10)."), QStringLiteral("N")});
}

int run(CliContext &c)
{
    QStringList p = c.positional();
    if (p.isEmpty())
        throw UsageError(QStringLiteral("name what to do: tick, untick, can-make, near or next"));
    const QString action = p.takeFirst();
    if (action == QLatin1String("tick") || action == QLatin1String("untick"))
        return tick(c, p, action == QLatin1String("tick"));
    if (!p.isEmpty())
        throw UsageError(QStringLiteral("%1 takes no names").arg(action));

    const NextBottle::Book book = NextBottle::LoadBook(c.store());
    const NextBottle::Outlook outlook = NextBottle::Look(book, NextBottle::StoredTicks(c.store()));
    if (action == QLatin1String("can-make")) {
        QStringList names;
        for (qint32 id : outlook.canMake)
            names << drinkName(book, id);
        printDrinks(c.json(), outlook.canMake, names);
    } else if (action == QLatin1String("near")) {
        const int missing = positiveNumber(c, "missing", 1);
        if (missing > 2)
            throw UsageError(QStringLiteral("--missing takes 1 or 2"));
        listNear(c, book, missing == 1 ? outlook.missingOne : outlook.missingTwo);
    } else if (action == QLatin1String("next")) {
        listNext(c, book, outlook.ranking, positiveNumber(c, "top", 10));
    } else {
        throw UsageError(QStringLiteral("unknown cabinet action \"%1\" (tick, untick, can-make, near or next)").arg(action));
    }
    return 0;
}

const CliCommand command{"cabinet", "tick NAME... | untick NAME... | can-make | near [--missing 1|2] | next [--top N]  [--json]",
                         "The liquor cabinet: tick the bottles you own, what you can make, what you are short of, what to buy next.",
                         declare, run};
const CliCommandEntry entry(command);

} // namespace
