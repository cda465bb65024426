#include "cli/CliCommand.h"
#include "cli/RowWriter.h"
#include "presentation/ListSql.h"
#include "store/DrinkStore.h"

namespace {

const char *const kViews[] = {"name", "liquor", "glass", "category", "marked", "cabinet", "all"};

int viewOf(const QString &name)
{
    for (int v = 0; v < 7; ++v)
        if (name.compare(QLatin1String(kViews[v]), Qt::CaseInsensitive) == 0)
            return v;
    throw UsageError(QStringLiteral("unknown view \"%1\"").arg(name));
}

// The letter tab of views name, marked and cabinet: "0-9" (or "0", "#") for names below A,
// else the letter.
int tabOf(const QString &key)
{
    if (key.isEmpty() || key == u"0-9" || key == u"0" || key == u"#")
        return 0;
    const QChar c = key.at(0).toUpper();
    if (key.size() == 1 && c >= u'A' && c <= u'Z')
        return c.unicode() - u'A' + 1;
    throw UsageError(QStringLiteral("\"%1\" is no letter tab (0-9 or A to Z)").arg(key));
}

// The entry of the ingredient, glass or category selector: by id, or by name as the
// selector shows it; the first entry when no key is given, as the window opens the view.
qint32 selectorIdOf(DrinkStore &store, int view, const QString &key)
{
    static const char *const what[] = {"", "ingredient", "glass", "category"};
    QSqlQuery q = store.select(SelectorSQL(view));
    bool isNumber = false;
    const qint32 wanted = key.toInt(&isNumber);
    while (q.next()) {
        if (key.isEmpty() || (isNumber && q.value(0).toInt() == wanted) ||
            q.value(1).toString().compare(key, Qt::CaseInsensitive) == 0)
            return q.value(0).toInt();
    }
    if (key.isEmpty())
        return -1; // an empty selector: nothing to list
    throw UserError(QStringLiteral("There is no %1 \"%2\".").arg(QLatin1String(what[view]), key));
}

void declare(QCommandLineParser &p)
{
    p.addOption({QStringLiteral("view"), QStringLiteral("name, liquor, glass, category, marked, cabinet or all (the default)."),
                 QStringLiteral("VIEW")});
    p.addOption({QStringLiteral("key"),
                 QStringLiteral("The letter tab (0-9, A to Z) of views name, marked and cabinet; the ingredient, glass or "
                                "category (id or name) of the others. The view's first entry when not given."),
                 QStringLiteral("KEY")});
    p.addOption({QStringLiteral("unmarked"), QStringLiteral("View marked: the unmarked drinks instead.")});
    p.addOption({QStringLiteral("quick"), QStringLiteral("View all: the quick name search, names that begin with TEXT."),
                 QStringLiteral("TEXT")});
}

int run(CliContext &c)
{
    c.expect(0, "");
    const int view = c.isSet("view") ? viewOf(c.value("view")) : 6;
    const QString key = c.value("key");
    if (c.isSet("quick") && view != 6)
        throw UsageError(QStringLiteral("--quick belongs to the view all"));
    if (c.isSet("key") && view == 6)
        throw UsageError(QStringLiteral("the view all has no key"));
    if (c.isSet("unmarked") && view != 4)
        throw UsageError(QStringLiteral("--unmarked belongs to the view marked"));
    DrinkStore &store = c.store();
    QString sql;
    if (view == 6)
        sql = c.isSet("quick") ? QuickSearchSQL(c.value("quick"), false) : BuildListSQL(6, 0, false, false);
    else if (view >= 1 && view <= 3) {
        const qint32 id = selectorIdOf(store, view, key);
        if (id >= 0)
            sql = BuildListSQL(view, id, false, false);
    } else
        sql = BuildListSQL(view, tabOf(key), false, view == 4 && !c.isSet("unmarked"));

    std::vector<qint32> ids;
    QStringList names;
    if (!sql.isEmpty())
        store.selectIdNames(sql, ids, names);
    printDrinks(c.json(), ids, names);
    return 0;
}

const CliCommand command{"list", "[--view VIEW] [--key KEY] [--quick TEXT] [--json]",
                         "Lists drinks, id and name, as the window's list shows them.", declare, run};
const CliCommandEntry entry(command);

} // namespace
