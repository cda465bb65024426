#include "cli/CliCommand.h"
#include "cli/RowWriter.h"
#include "shopping/PurchaseAmount.h"
#include "shopping/ShopListFile.h"
#include "shopping/ShopListPrint.h"
#include "shopping/ShoppingList.h"
#include "store/DrinkStore.h"

#include <QDateTime>
#include <QSqlQuery>

namespace {

// The unit family by its number or its word, as the window's Units box offers them.
int familyOf(const QString &text)
{
    static const std::pair<const char *, int> families[] = {
        {"1", PurchaseAmount::Bar},     {"bar", PurchaseAmount::Bar},         {"2", PurchaseAmount::English},
        {"english", PurchaseAmount::English}, {"3", PurchaseAmount::Metric}, {"metric", PurchaseAmount::Metric}};
    for (const auto &[word, family] : families)
        if (text.compare(QLatin1String(word), Qt::CaseInsensitive) == 0)
            return family;
    throw UsageError(QStringLiteral("--family takes 1 (bar), 2 (english) or 3 (metric)"));
}

QStringList namesOf(DrinkStore &store, const std::vector<qint32> &ids)
{
    QStringList names;
    QSqlQuery q = store.prepare(QStringLiteral("SELECT Name FROM Drinks WHERE id = ?"));
    for (qint32 id : ids) {
        q.bindValue(0, id);
        store.exec(q);
        names << (q.next() ? q.value(0).toString() : QString());
        q.finish();
    }
    return names;
}

void declare(QCommandLineParser &p)
{
    p.addOption({QStringLiteral("marked"), QStringLiteral("The marked drinks, in name order.")});
    p.addOption({QStringLiteral("ids"), QStringLiteral("These drinks: 1,2,3 (a drink twice counts twice)."), QStringLiteral("IDS")});
    p.addOption({QStringLiteral("drinks"), QStringLiteral("How many of each drink you expect to make (default 1)."), QStringLiteral("N")});
    p.addOption({QStringLiteral("family"), QStringLiteral("The units to buy in: 1 bar (default), 2 english, 3 metric."), QStringLiteral("F")});
    p.addOption({QStringLiteral("out"), QStringLiteral("Also save the list as a shopping list file (.LST) the window opens."), QStringLiteral("FILE")});
    p.addOption({QStringLiteral("pdf"), QStringLiteral("Also print the list, as the window prints it, to a PDF file."), QStringLiteral("FILE")});
}

int run(CliContext &c)
{
    c.expect(0, "nothing");
    const QString numDrinks = c.isSet("drinks") ? c.value("drinks") : QStringLiteral("1");
    const std::optional<int> n = ShoppingList::numberOfDrinks(numDrinks);
    if (!n)
        throw UserError(QStringLiteral("Please enter a number greater than or equal to 1 for the number of drinks to make."));
    const int family = c.isSet("family") ? familyOf(c.value("family")) : int(PurchaseAmount::Bar);
    const std::vector<qint32> ids = selectedDrinks(c, false);
    if (ids.empty())
        throw UserError(QStringLiteral("Please select the drinks you want the shopping list for."));

    DrinkStore &store = c.store();
    const std::vector<ShoppingList::Row> rows = ShoppingList::Generate(store, ids, *n, family);
    const QStringList names = namesOf(store, ids);
    if (c.isSet("out")) {
        const QString failed = ShopListFile::Write(c.value("out"), names, numDrinks);
        if (!failed.isEmpty())
            throw UserError(QStringLiteral("%1: %2").arg(c.value("out"), failed));
    }
    if (c.isSet("pdf")) {
        const QString failed = ShopListPrint::PrintToPdf(c.value("pdf"), {names, numDrinks, family, rows}, QDateTime::currentDateTime());
        if (!failed.isEmpty())
            throw UserError(QStringLiteral("%1: %2").arg(c.value("pdf"), failed));
    }
    RowWriter out(c.json(), {QStringLiteral("ingredient"), QStringLiteral("amount")});
    for (const ShoppingList::Row &r : rows)
        out.add({r.ingredient, r.amount.trimmed()});
    out.finish();
    return 0;
}

const CliCommand command{"shopping", "(--marked | --ids 1,2,3) [--drinks N] [--family 1|2|3] [--out FILE.LST] [--pdf FILE]",
                         "The shopping list for drinks: what to buy, in bar, English or metric units.", declare, run,
                         true};
const CliCommandEntry entry(command);

} // namespace
