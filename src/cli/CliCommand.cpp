#include "cli/CliCommand.h"

#include "base/AppPaths.h"
#include "base/CLocalConfig.h"
#include "base/modCorvane.h"
#include "exchange/DrinkExport.h"
#include "presentation/CDrinkFacade.h"
#include "presentation/ListSql.h"
#include "store/DrinkStore.h"
#include "store/StoreError.h"

#include <algorithm>
#include <cstring>

namespace CliCommands {
namespace {
std::vector<const CliCommand *> &table()
{
    static std::vector<const CliCommand *> commands;
    return commands;
}
} // namespace

const std::vector<const CliCommand *> &all() { return table(); }

const CliCommand *find(const QString &name)
{
    for (const CliCommand *c : table())
        if (name == QLatin1String(c->name))
            return c;
    return nullptr;
}

bool add(const CliCommand *command)
{
    auto &t = table();
    t.insert(std::upper_bound(t.begin(), t.end(), command,
                              [](const CliCommand *a, const CliCommand *b) { return std::strcmp(a->name, b->name) < 0; }),
             command);
    return true;
}
} // namespace CliCommands

CliContext::CliContext(QCommandLineParser &parser, QString appDirOption)
    : args(parser), m_appDirOption(std::move(appDirOption))
{
}

CliContext::~CliContext()
{
    m_facade.reset();
    m_store.reset();
}

QStringList CliContext::expect(int n, const char *what) const
{
    const QStringList p = positional();
    if (p.size() < n)
        throw UsageError(QStringLiteral("missing %1").arg(QLatin1String(what)));
    if (p.size() > n)
        throw UsageError(QStringLiteral("unexpected argument \"%1\"").arg(p.at(n)));
    return p;
}

DrinkStore &CliContext::store()
{
    if (m_store)
        return *m_store;
    // The window's rules: --appdir, else CORVANE_HOME, else the default; a new or empty
    // directory is filled from the delivered data as on the window's first start.
    const QString dir = AppPaths::resolve(m_appDirOption);
    QString error;
    if (!AppPaths::ensureFilled(dir, &error))
        throw UserError(error);
    AppPaths::setAppDir(dir);
    // A book another program holds makes statements wait, then fail with the store's text.
    try {
        m_store = std::make_unique<DrinkStore>(AppPaths::storeFile());
    } catch (const StoreError &e) {
        throw UserError(e.engineText());
    }
    return *m_store;
}

CDrinkFacade &CliContext::facade()
{
    if (!m_facade) {
        DrinkStore &s = store();
        m_facade = std::make_unique<CDrinkFacade>(s, AppPaths::appDir());
        const CLocalConfig config;
        m_facade->setCurrentHTMLTemplatePath(config.Load(
            modCorvane::kSettings, QStringLiteral("TemplatePath"), AppPaths::file(QStringLiteral("Templates/Standard.cvt"))));
        m_facade->setCurrentHTMLTemplateRoot(
            config.Load(modCorvane::kSettings, QStringLiteral("TemplateRoot"), AppPaths::file(QStringLiteral("Templates/"))));
    }
    return *m_facade;
}

std::vector<qint32> parseIdList(const QString &text)
{
    std::vector<qint32> ids;
    for (const QString &part : text.split(u',')) {
        bool ok = false;
        const qint32 id = part.trimmed().toInt(&ok);
        if (!ok || id <= 0)
            throw UsageError(QStringLiteral("\"%1\" is not a drink id").arg(part.trimmed()));
        ids.push_back(id);
    }
    return ids;
}

std::vector<qint32> selectedDrinks(CliContext &context, bool allowAll)
{
    const int chosen = int(context.isSet("marked")) + int(context.isSet("ids")) + int(allowAll && context.isSet("all"));
    if (chosen != 1)
        throw UsageError(allowAll ? QStringLiteral("give one of --all, --marked or --ids")
                                  : QStringLiteral("give one of --marked or --ids"));
    DrinkStore &store = context.store();
    if (context.isSet("marked"))
        return DrinkExporter::markedDrinks(store);
    if (allowAll && context.isSet("all")) {
        std::vector<qint32> ids;
        QStringList names;
        store.selectIdNames(BuildListSQL(6, 0, false, false), ids, names);
        return ids;
    }
    const std::vector<qint32> ids = parseIdList(context.value("ids"));
    QSqlQuery q = store.prepare(QStringLiteral("SELECT 1 FROM Drinks WHERE id = ?"));
    for (qint32 id : ids) {
        q.bindValue(0, id);
        store.exec(q);
        const bool found = q.next();
        q.finish();
        if (!found)
            throw UserError(QStringLiteral("There is no drink with the id %1.").arg(id));
    }
    return ids;
}
