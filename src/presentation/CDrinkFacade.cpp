#include "presentation/CDrinkFacade.h"

#include "base/Cp1252.h"
#include "base/modCorvane.h"
#include "presentation/DrinkPage.h"
#include "store/DrinkStore.h"

#include <QFile>

namespace {
const QString kCrLf = QStringLiteral("\r\n");
const QString kNothing = QStringLiteral("&nbsp");
const QString kUnknownGlass = QStringLiteral("Unknown Glass Type");

QString text(const QVariant &v) { return v.isNull() ? QString() : v.toString(); }
} // namespace

CDrinkFacade::CDrinkFacade(DrinkStore &store, const QString &appDir)
    : m_store(store),
      m_seekDrink(store.prepare(QStringLiteral("SELECT * FROM Drinks WHERE id = ?"))),
      m_firstDrink(store.prepare(QStringLiteral("SELECT * FROM Drinks ORDER BY id LIMIT 1"))),
      m_glass(store.prepare(QStringLiteral("SELECT Name FROM Glassware WHERE GlassID = ?"))),
      m_garnish(store.prepare(QStringLiteral("SELECT Name FROM Garnish WHERE id = ?"))),
      m_build(store.prepare(QStringLiteral("SELECT Name FROM Build WHERE id = ?"))),
      m_rating(store.prepare(QStringLiteral("SELECT Name FROM Ratings WHERE RatingID = ?"))),
      m_appDir(appDir),
      m_imageArchivePath(appDir + QStringLiteral("/Corvane.cvi"))
{
    moveFirst();
}

bool CDrinkFacade::seek(qint32 drinkID)
{
    m_seekDrink.bindValue(0, drinkID);
    m_store.exec(m_seekDrink);
    m_onRecord = m_seekDrink.next();
    m_record = m_onRecord ? m_seekDrink.record() : QSqlRecord();
    m_seekDrink.finish();
    return m_onRecord;
}

void CDrinkFacade::moveFirst()
{
    m_store.exec(m_firstDrink);
    m_onRecord = m_firstDrink.next();
    m_record = m_onRecord ? m_firstDrink.record() : QSqlRecord();
    m_firstDrink.finish();
}

bool CDrinkFacade::seekForOutput(qint32 drinkID)
{
    if (drinkID < 0)
        return false;
    return seek(drinkID);
}

QSqlQuery CDrinkFacade::linesOf(const QVariant &drinkID, bool ordered)
{
    QString sql = QStringLiteral("SELECT * FROM DrinkIngredients WHERE DrinkID = ") + QString::number(drinkID.toInt());
    if (ordered)
        sql += QStringLiteral(" ORDER BY Seq");
    return m_store.select(sql);
}

QString CDrinkFacade::drinkAsPlainText(qint32 drinkID)
{
    if (!seekForOutput(drinkID))
        return {};
    const QVariant id = field(QStringLiteral("id"));
    QString out = text(field(QStringLiteral("Name"))) + kCrLf + kCrLf;

    QSqlQuery lines = linesOf(id, false);
    while (lines.next())
        out += text(lines.value(QStringLiteral("amount"))) + u' ' + text(lines.value(QStringLiteral("Ingredient"))) + kCrLf;
    out += kCrLf;

    out += text(field(QStringLiteral("Description"))) + kCrLf + kCrLf;
    out += GetGlassName(field(QStringLiteral("GlassType"))) + kCrLf + kCrLf;

    QSqlQuery categories = m_store.select(QStringLiteral("SELECT * FROM DrinkCategories WHERE DrinkID = ") +
                                          QString::number(id.toInt()));
    while (categories.next())
        out += text(categories.value(QStringLiteral("Type"))) + kCrLf;
    out += kCrLf;

    const QVariant price = field(QStringLiteral("Price")), cost = field(QStringLiteral("Cost"));
    if (!price.isNull() && !cost.isNull())
        out += QStringLiteral("Price: ") + Currency::fromVariant(price).format() + QStringLiteral(", ") +
               QStringLiteral("Cost: ") + Currency::fromVariant(cost).format() + kCrLf + kCrLf;
    // Here a missing build or garnish row shows as the lookups' "&nbsp", as it always has.
    if (!field(QStringLiteral("BuildID")).isNull())
        out += QStringLiteral("Build: ") + GetBuildName() + kCrLf + kCrLf;
    if (!field(QStringLiteral("GarnishID")).isNull())
        out += QStringLiteral("Garnish: ") + GetGarnishName() + kCrLf + kCrLf;
    return out;
}

QString CDrinkFacade::drinkAsHTML(qint32 drinkID)
{
    DrinkPageBuilder page(*this, m_store, modCorvane::state());
    if (!seekForOutput(drinkID))
        return page.GetBlankPage();
    if (m_templateText.isEmpty())
        return page.GetNoTemplatePage();
    return page.BuildDrinkPage();
}

QSqlQuery CDrinkFacade::currentDrinkIngredients() { return linesOf(field(QStringLiteral("id")), false); }

qint32 CDrinkFacade::currentDrinkID() const { return field(QStringLiteral("id")).toInt(); }

void CDrinkFacade::setCurrentDrinkID(qint32 drinkID)
{
    if (!seek(drinkID))
        moveFirst();
}

QString CDrinkFacade::currentDrinkName() const { return text(field(QStringLiteral("Name"))).trimmed(); }

bool CDrinkFacade::currentDrinkMark() const { return field(QStringLiteral("Marked")).toInt() != 0; }

void CDrinkFacade::setCurrentHTMLTemplatePath(const QString &path)
{
    m_templatePath = path;
    m_templateText.clear();
    // A template that cannot be read leaves no text and no message; the page says so itself.
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.size() <= 0)
        return;
    m_templateText = Cp1252::decodeFile(file.readAll());
}

void CDrinkFacade::setCurrentHTMLTemplateRoot(const QString &path)
{
    m_templateRoot = path;
    if (!m_templateRoot.endsWith(u'/') && !m_templateRoot.endsWith(u'\\'))
        m_templateRoot += u'/';
}

void CDrinkFacade::SetDrinkMark(bool mark, qint32 drinkID)
{
    try {
        if (drinkID > 0)
            seek(drinkID);
        if (!m_onRecord)
            return;
        QSqlQuery update = m_store.prepare(QStringLiteral("UPDATE Drinks SET Marked = ? WHERE id = ?"));
        update.addBindValue(mark ? 1 : 0);
        update.addBindValue(field(QStringLiteral("id")));
        m_store.exec(update);
        m_record.setValue(QStringLiteral("Marked"), mark ? 1 : 0);
    } catch (...) {
        // Marking is a convenience: a failure leaves the mark as it was and says nothing.
    }
}

qint32 CDrinkFacade::currentDrinkGlassID() const { return field(QStringLiteral("GlassType")).toInt(); }

QString CDrinkFacade::currentDrinkGlassName() { return GetGlassName(field(QStringLiteral("GlassType"))); }

QString CDrinkFacade::currentDrinkBuildName()
{
    const QString name = GetBuildName();
    return name == kNothing ? QString() : name;
}

QString CDrinkFacade::currentDrinkGarnishName()
{
    const QString name = GetGarnishName();
    return name == kNothing ? QString() : name;
}

QString CDrinkFacade::currentDrinkRecipe() const { return text(field(QStringLiteral("Description"))); }

QString CDrinkFacade::lookupName(QSqlQuery &query, const QVariant &id, const QString &fallback)
{
    if (id.isNull())
        return fallback;
    query.bindValue(0, id);
    m_store.exec(query);
    const QString name = query.next() ? text(query.value(0)) : fallback;
    query.finish();
    return name;
}

QString CDrinkFacade::lookupByField(QSqlQuery &query, const char *fieldName)
{
    return lookupName(query, field(QString::fromLatin1(fieldName)), kNothing);
}

QString CDrinkFacade::GetGlassName(const QVariant &glassID) { return lookupName(m_glass, glassID, kUnknownGlass); }
QString CDrinkFacade::GetGarnishName() { return lookupByField(m_garnish, "GarnishID"); }
QString CDrinkFacade::GetBuildName() { return lookupByField(m_build, "BuildID"); }
QString CDrinkFacade::GetRatingName() { return lookupByField(m_rating, "RatingID"); }
