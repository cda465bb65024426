#include "store/ColorSchemes.h"

#include "base/CLocalConfig.h"
#include "base/ColorValues.h"
#include "base/Options.h"
#include "store/DrinkStore.h"

#include <QSqlQuery>
#include <QVariant>

namespace ColorSchemes {

namespace {
const QString kColumns = QStringLiteral("id, Name, TextColor, HighlightColor, AccentColor, BackgroundColor");

ColorScheme fromRow(const QSqlQuery &q)
{
    using ColorValues::fromStored;
    return {q.value(0).toInt(),
            q.value(1).toString(),
            fromStored(q.value(2).toLongLong()),
            fromStored(q.value(3).toLongLong()),
            fromStored(q.value(4).toLongLong()),
            fromStored(q.value(5).toLongLong())};
}

QString number(quint32 color)
{
    return QString::number(ColorValues::toStored(color));
}
} // namespace

QList<ColorScheme> all(DrinkStore &store)
{
    QSqlQuery q = store.prepare(QStringLiteral("SELECT %1 FROM ColorSchemes ORDER BY id").arg(kColumns));
    store.exec(q);
    QList<ColorScheme> rows;
    while (q.next())
        rows << fromRow(q);
    return rows;
}

std::optional<ColorScheme> find(DrinkStore &store, qint32 id)
{
    QSqlQuery q = store.prepare(QStringLiteral("SELECT %1 FROM ColorSchemes WHERE id = ?").arg(kColumns));
    q.addBindValue(id);
    store.exec(q);
    if (!q.next())
        return std::nullopt;
    return fromRow(q);
}

qint32 add(DrinkStore &store, const ColorScheme &scheme)
{
    QSqlQuery q = store.prepare(QStringLiteral("INSERT INTO ColorSchemes (Name, TextColor, HighlightColor, "
                                               "AccentColor, BackgroundColor) VALUES (?, ?, ?, ?, ?)"));
    q.addBindValue(scheme.name);
    for (quint32 c : {scheme.textColor, scheme.highlightColor, scheme.accentColor, scheme.backgroundColor})
        q.addBindValue(ColorValues::toStored(c));
    store.exec(q);
    return q.lastInsertId().toInt();
}

QString updateStatement(const ColorScheme &scheme)
{
    // A quote in the name is doubled, so it stays inside the literal.
    QString name = scheme.name;
    name.replace(u'"', QStringLiteral("\"\""));
    return QStringLiteral("UPDATE ColorSchemes SET ") + QStringLiteral("Name = \"") + name + QStringLiteral("\", ") +
           QStringLiteral("TextColor = ") + number(scheme.textColor) + QStringLiteral(", ") +
           QStringLiteral("BackgroundColor = ") + number(scheme.backgroundColor) + QStringLiteral(", ") +
           QStringLiteral("HighlightColor = ") + number(scheme.highlightColor) + QStringLiteral(", ") +
           QStringLiteral("AccentColor = ") + number(scheme.accentColor) + QStringLiteral(" ") +
           QStringLiteral("WHERE ID = ") + QString::number(scheme.id);
}

void update(DrinkStore &store, const ColorScheme &scheme)
{
    store.execute(updateStatement(scheme));
}

QString deleteStatement(qint32 id)
{
    return QStringLiteral("DELETE FROM ColorSchemes WHERE ID = %1").arg(id);
}

void remove(DrinkStore &store, qint32 id)
{
    store.execute(deleteStatement(id));
}

} // namespace ColorSchemes

namespace modCorvane {

void LoadColorScheme(State &s, DrinkStore &store, const CLocalConfig &config)
{
    s.colorSchemeID = settingNumber(config.Load(kSettings, QStringLiteral("ColorScheme"), QStringLiteral("64")));
    const State defaults;
    s.schemeTextColor = defaults.schemeTextColor;
    s.schemeHighlightColor = defaults.schemeHighlightColor;
    s.schemeAccentColor = defaults.schemeAccentColor;
    s.schemeBackgroundColor = defaults.schemeBackgroundColor;
    if (const std::optional<ColorScheme> row = ColorSchemes::find(store, s.colorSchemeID)) {
        s.schemeTextColor = row->textColor;
        s.schemeHighlightColor = row->highlightColor;
        s.schemeAccentColor = row->accentColor;
        s.schemeBackgroundColor = row->backgroundColor;
    }
    if (config.Load(kSettings, QStringLiteral("UseMissingIngColor"), QStringLiteral("Y")) != u"Y")
        s.missingIngColor = s.schemeTextColor;
}

} // namespace modCorvane
