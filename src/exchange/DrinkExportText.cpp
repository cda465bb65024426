#include "exchange/DrinkExportText.h"

#include "base/Cp1252.h"
#include "base/Currency.h"
#include "presentation/CDrinkFacade.h"
#include "store/DrinkStore.h"

namespace {
const QString kCrLf = QStringLiteral("\r\n");
const QString kNothing = QStringLiteral("&nbsp");
constexpr int kLastLine = 28;
constexpr qsizetype kWidth = 42;

QString text(const QVariant &v) { return v.isNull() ? QString() : v.toString(); }
QString money(const QVariant &v) { return v.isNull() ? QString() : Currency::fromVariant(v).toSqlText(); }
QString attribute(const char *name, const QString &value)
{
    return u' ' + QLatin1String(name) + QStringLiteral("=\"") + xmlEscape(value) + u'"';
}
}

QString xmlEscape(const QString &text)
{
    QString out;
    out.reserve(text.size());
    for (const uint code : text.toUcs4()) {
        const QString one = QString::fromUcs4(reinterpret_cast<const char32_t *>(&code), 1);
        const QByteArray byte = Cp1252::encode(one);
        const uint c = (byte.size() == 1 && Cp1252::decode(byte) == one) ? uchar(byte[0]) : code;
        if (c > 127 || c < 32 || c == 34 || c == 38 || c == 92 || c == 47 || c == 62 || c == 60)
            out += QStringLiteral("&#%1;").arg(c, 4, 10, QLatin1Char('0'));
        else
            out += QChar(c);
    }
    return out;
}

QString drinkAsXML(CDrinkFacade &facade, DrinkStore &store, qint32 drinkID)
{
    if (!facade.seekForOutput(drinkID))
        return {};
    const auto f = [&](const char *name) { return facade.field(QLatin1String(name)); };
    const QString id = QString::number(f("id").toInt());
    QString out = QStringLiteral("<Drink ID=\"") + id + u'"' + attribute("Name", text(f("Name"))) +
                  attribute("Glass", text(f("GlassType"))) + attribute("Recipe", text(f("Description"))) +
                  attribute("Price", money(f("Price"))) + attribute("Cost", money(f("Cost"))) +
                  attribute("Garnish", text(f("GarnishID"))) + attribute("Build", text(f("BuildID"))) +
                  attribute("Comment", text(f("Comments"))) + attribute("Rating", text(f("RatingID"))) + u'>' + kCrLf;
    out += QStringLiteral("<Categories>") + kCrLf;
    QSqlQuery categories = store.select(QStringLiteral("SELECT * FROM DrinkCategories WHERE DrinkID = ") + id);
    while (categories.next())
        out += QStringLiteral("<Category Name=\"") + xmlEscape(text(categories.value(QStringLiteral("Type")))) +
               QStringLiteral("\" />") + kCrLf;
    out += QStringLiteral("</Categories>") + kCrLf + QStringLiteral("<Ingredients>") + kCrLf;
    QSqlQuery lines = store.select(QStringLiteral("SELECT * FROM DrinkIngredients WHERE DrinkID = ") + id);
    while (lines.next()) {
        const QVariant measure = lines.value(QStringLiteral("measure"));
        out += QStringLiteral("<Ingredient Name=\"") + xmlEscape(text(lines.value(QStringLiteral("Ingredient")))) + u'"' +
               attribute("MAmount", text(lines.value(QStringLiteral("MetricAmount")))) +
               attribute("Amount", text(lines.value(QStringLiteral("amount")))) +
               attribute("Measure", measure.isNull() ? QString() : QString::number(measure.toFloat(), 'g', 7)) +
               QStringLiteral(" />") + kCrLf;
    }
    out += QStringLiteral("</Ingredients>") + kCrLf + QStringLiteral("</Drink>") + kCrLf;
    return out;
}

QString wrapChunk(qsizetype &position, qsizetype width, const QString &text)
{
    const auto at = [&](qsizetype p) { return p >= 1 && p <= text.size() ? text.at(p - 1) : QChar(); };
    while (at(position) != u' ' && position > 1)
        --position;
    if (position != 1)
        ++position;
    QString chunk = text.mid(position - 1, width + 1);
    if (chunk.size() < width)
        return chunk;
    while (!chunk.endsWith(u' ') && chunk.size() > 1)
        chunk.chop(1);
    return chunk;
}

QString drinkAsMaitreD(CDrinkFacade &facade, DrinkStore &store, qint32 drinkID, qint32 itemNumber, bool withRecipe)
{
    if (!facade.seekForOutput(drinkID))
        return {};
    const auto f = [&](const char *name) { return facade.field(QLatin1String(name)); };
    QString out = QStringLiteral("[%1]").arg(itemNumber, 4, 10, QLatin1Char('0')) + kCrLf;
    out += QStringLiteral("DESCRIPTION=") + text(f("Name")) + kCrLf;
    int n = 1;
    const auto line = [&](const QString &value) { out += QStringLiteral("Line%1=").arg(n++) + value + kCrLf; };

    QString glass = facade.GetGlassName(f("GlassType"));
    if (!f("BuildID").isNull()) {
        QString build = facade.GetBuildName();
        if (build == kNothing)
            build.clear();
        // The build goes to the right edge of the printer's line when both fit.
        if (glass.size() + build.size() < kWidth)
            glass = glass.leftJustified(kWidth - build.size(), u' ') + build;
    }
    line(glass);
    line(QString());
    QSqlQuery lines = store.select(QStringLiteral("SELECT * FROM DrinkIngredients WHERE DrinkID = ") +
                                   QString::number(f("id").toInt()));
    while (n <= kLastLine && lines.next())
        line((text(lines.value(QStringLiteral("amount"))) + u' ' + text(lines.value(QStringLiteral("Ingredient")))).trimmed());
    if (n <= kLastLine)
        line(QString());
    if (!withRecipe)
        return out;

    QString recipe = text(f("Description"));
    for (QChar &c : recipe)
        if (c < u' ')
            c = u' ';
    for (qsizetype p = 1; p < recipe.size(); p += kWidth) {
        if (n > kLastLine)
            return out;
        line(wrapChunk(p, kWidth, recipe));
    }
    if (n > kLastLine)
        return out;
    if (!f("GarnishID").isNull()) {
        const QString garnish = facade.GetGarnishName();
        if (garnish != kNothing)
            line(garnish);
    }
    return out;
}
