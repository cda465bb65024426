#include "cli/CliCommand.h"
#include "cli/RowWriter.h"
#include "presentation/ListSql.h"
#include "search/SearchSql.h"
#include "store/DrinkStore.h"

namespace {

int kindOf(const QString &name)
{
    static const std::pair<const char *, int> kinds[] = {{"name", SearchKind::ByName},
                                                         {"ingredient", SearchKind::ByIngredient},
                                                         {"recipe", SearchKind::ByRecipe},
                                                         {"glass", SearchKind::ByGlassware},
                                                         {"category", SearchKind::ByCategory}};
    for (const auto &[word, kind] : kinds)
        if (name.compare(QLatin1String(word), Qt::CaseInsensitive) == 0)
            return kind;
    throw UsageError(QStringLiteral("unknown kind \"%1\" (name, ingredient, recipe, glass or category)").arg(name));
}

// The glass or category as the search dialog offers it: by id or by its name.
QString choiceOf(DrinkStore &store, int kind, const QString &text)
{
    const int view = kind == SearchKind::ByGlassware ? 2 : 3;
    QSqlQuery q = store.select(SelectorSQL(view));
    bool isNumber = false;
    const qint32 wanted = text.trimmed().toInt(&isNumber);
    while (q.next())
        if ((isNumber && q.value(0).toInt() == wanted) || q.value(1).toString().compare(text, Qt::CaseInsensitive) == 0)
            return QString::number(q.value(0).toInt());
    throw UserError(QStringLiteral("There is no %1 \"%2\".").arg(view == 2 ? QLatin1String("glass") : QLatin1String("category"), text));
}

void declare(QCommandLineParser &p)
{
    p.addOption({QStringLiteral("first"), QStringLiteral("Match the first letters only (name, ingredient, recipe).")});
}

int run(CliContext &c)
{
    const QStringList p = c.expect(2, "the kind and the text to search for");
    const int kind = kindOf(p.at(0));
    const QString text = p.at(1);
    DrinkStore &store = c.store();
    QString value;
    if (kind == SearchKind::ByGlassware || kind == SearchKind::ByCategory)
        value = choiceOf(store, kind, text);
    else if (text.trimmed().isEmpty())
        throw UserError(QStringLiteral("There is nothing to search for."));
    else
        value = SimpleSearchPattern(text, !c.isSet("first"));
    // The dialog's statement without its INSERT: the results go to the terminal, and the
    // window's own search results stay as they are. Listed as the search view lists them.
    QString select = SimpleSearchSQL(kind, value);
    select.remove(0, kInsertSearchResults.size());
    std::vector<qint32> ids;
    QStringList names;
    store.selectIdNames(QStringLiteral("SELECT ID, Name FROM (") + select + QStringLiteral(") ORDER BY Name"), ids, names);
    printDrinks(c.json(), ids, names);
    return 0;
}

const CliCommand command{"search", "KIND TEXT [--first] [--json]",
                         "Finds drinks by name, ingredient, recipe, glass or category, as the simple search does.",
                         declare, run};
const CliCommandEntry entry(command);

} // namespace
