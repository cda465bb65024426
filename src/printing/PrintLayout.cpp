#include "printing/PrintLayout.h"

#include "base/VbConvert.h"
#include "store/DrinkStore.h"

#include <QSqlQuery>
#include <QSqlRecord>
#include <QVariant>

namespace PrintLayout {

namespace {

const char *const kFontFields[PieceCount] = {"NameFont",   "GlassFont", "BuildFont",  "IngFont",
                                             "RecipeFont", "MarkFont",  "GarnishFont"};
const char *const kPrintFields[PieceCount - 1] = {"PrintGlass",  "PrintBuild", "PrintIng",
                                                  "PrintRecipe", "PrintMark",  "PrintGarnish"};

QString boolText(bool value)
{
    return value ? QStringLiteral("True") : QStringLiteral("False");
}

bool textBool(const QString &text)
{
    return text.compare(QStringLiteral("True"), Qt::CaseInsensitive) == 0 || text == u"-1";
}

double num(const QString &text)
{
    return VbConvert::Val(text);
}

QString storedLength(const QVariant &value, bool metric)
{
    const double v = value.toDouble();
    return metric ? QString::number(v) : QString::number(v, 'f', 2);
}

} // namespace

QString defaultMark()
{
    return QStringLiteral("Printed with Corvane");
}

void ResetLayoutControls(PrintLayoutSettings &layout)
{
    layout.marTop = layout.marBottom = layout.marLeft = layout.marRight = QStringLiteral("1.0");
    layout.rows = layout.cols = QStringLiteral("1");
    layout.rowSpacing = layout.colSpacing = QStringLiteral("0");
    layout.portrait = true;
}

void SetDefaultLayout(PrintLayoutSettings &layout)
{
    static const qint16 sizes[PieceCount] = {14, 10, 10, 12, 8, 8, 10};
    for (int i = 0; i < PieceCount; ++i)
        layout.fonts[i] = FontRecord{QStringLiteral("Arial"), sizes[i]};
    layout.print = {true, true, true, false, true, true};
    layout.glassHeight = QStringLiteral("0.5");
    layout.glassAsText = false;
    layout.mark = defaultMark();
}

PrintLayoutSettings defaults()
{
    PrintLayoutSettings layout;
    ResetLayoutControls(layout);
    SetDefaultLayout(layout);
    return layout;
}

QString fontToText(const FontRecord &font)
{
    // Strikethrough before underline: the order the layouts have always been stored in.
    return font.FontName + u';' + QString::number(font.FontSize) + u';' + QString::number(font.Color) + u';' +
           boolText(font.Bold) + u';' + boolText(font.Italic) + u';' + boolText(font.Strikethrough) + u';' +
           boolText(font.Underline) + u';';
}

FontRecord fontFromText(const QString &text, const FontRecord &before)
{
    FontRecord font = before;
    // Only what stands between two semicolons is a field; a tail without one is dropped.
    QStringList fields = text.split(u';');
    fields.removeLast();
    for (qsizetype i = 0; i < fields.size() && i < 7; ++i) {
        const QString &f = fields[i];
        switch (i) {
        case 0:
            font.FontName = f;
            break;
        case 1:
            font.FontSize = qint16(num(f));
            break;
        case 2:
            font.Color = qint32(num(f));
            break;
        case 3:
            font.Bold = textBool(f);
            break;
        case 4:
            font.Italic = textBool(f);
            break;
        case 5:
            font.Strikethrough = textBool(f);
            break;
        case 6:
            font.Underline = textBool(f);
            break;
        }
    }
    return font;
}

QString ConvertLength(const QString &text, bool toMetric)
{
    // 25.3968, not 25.4: the factor the layouts were always converted with.
    const double value = num(text);
    return toMetric ? QString::number(value * 25.3968, 'f', 0) : QString::number(value / 25.3968, 'f', 1);
}

QString stepLength(const QString &text, bool metric, bool up)
{
    const double step = metric ? 1.0 : 0.1;
    const double value = num(text) + (up ? step : -step);
    const int decimals = metric ? 0 : 1;
    return QString::number(value < 0 ? 0.0 : value, 'f', decimals);
}

std::vector<LayoutEntry> FillLayoutList(DrinkStore &store)
{
    std::vector<LayoutEntry> list;
    QSqlQuery query = store.select(QStringLiteral("SELECT Name, PrintLayoutID FROM PrintLayout ORDER BY Name"));
    while (query.next())
        list.push_back({query.value(1).toInt(), query.value(0).toString()});
    return list;
}

bool LoadLayout(DrinkStore &store, qint32 id, PrintLayoutSettings &layout)
{
    QSqlQuery query = store.prepare(QStringLiteral("SELECT * FROM PrintLayout WHERE PrintLayoutID = ?"));
    query.addBindValue(id);
    store.exec(query);
    if (!query.next())
        return false;
    const QSqlRecord row = query.record();
    auto value = [&](const char *name) { return row.value(QString::fromLatin1(name)); };
    layout.portrait = value("Orientation").toInt() != 2;
    layout.metric = value("Metric").toInt() != 0;
    layout.marTop = storedLength(value("MarTop"), layout.metric);
    layout.marBottom = storedLength(value("MarBottom"), layout.metric);
    layout.marLeft = storedLength(value("MarLeft"), layout.metric);
    layout.marRight = storedLength(value("MarRight"), layout.metric);
    layout.rowSpacing = storedLength(value("RowSpacing"), layout.metric);
    layout.colSpacing = storedLength(value("ColSpacing"), layout.metric);
    layout.glassHeight = storedLength(value("GlassHeight"), layout.metric);
    layout.rows = QString::number(value("Rows").toInt());
    layout.cols = QString::number(value("Cols").toInt());
    for (int i = 0; i < PieceCount; ++i)
        layout.fonts[i] = fontFromText(value(kFontFields[i]).toString(), layout.fonts[i]);
    for (int i = 0; i < PieceCount - 1; ++i) {
        if (i != checkIndex(PieceMark))
            layout.print[i] = value(kPrintFields[i]).toInt() != 0;
    }
    layout.mark = value("Mark").toString();
    layout.glassAsText = value("GlassOpt").toInt() == 2;
    return true;
}

qint32 SaveLayout(DrinkStore &store, const QString &name, const PrintLayoutSettings &layout)
{
    ScopedTransaction transaction(store);
    QSqlQuery find = store.prepare(QStringLiteral("SELECT PrintLayoutID FROM PrintLayout WHERE Name = ? LIMIT 1"));
    find.addBindValue(name);
    store.exec(find);
    const bool found = find.next();
    qint32 id = found ? find.value(0).toInt() : 0;
    find.finish();

    QStringList fields = {QStringLiteral("Name"),       QStringLiteral("Orientation"), QStringLiteral("Metric"),
                          QStringLiteral("MarTop"),     QStringLiteral("MarBottom"),   QStringLiteral("MarLeft"),
                          QStringLiteral("MarRight"),   QStringLiteral("Rows"),        QStringLiteral("Cols"),
                          QStringLiteral("RowSpacing"), QStringLiteral("ColSpacing"),  QStringLiteral("GlassHeight")};
    QVariantList values = {name,
                           layout.portrait ? 1 : 2,
                           layout.metric ? 1 : 0,
                           num(layout.marTop),
                           num(layout.marBottom),
                           num(layout.marLeft),
                           num(layout.marRight),
                           num(layout.rows),
                           num(layout.cols),
                           num(layout.rowSpacing),
                           num(layout.colSpacing),
                           num(layout.glassHeight)};
    for (int i = 0; i < PieceCount; ++i) {
        fields << QString::fromLatin1(kFontFields[i]);
        values << fontToText(layout.fonts[i]);
    }
    for (int i = 0; i < PieceCount - 1; ++i) {
        fields << QString::fromLatin1(kPrintFields[i]);
        values << (layout.print[i] ? 1 : 0);
    }
    fields << QStringLiteral("Mark") << QStringLiteral("GlassOpt");
    values << layout.mark << (layout.glassAsText ? 2 : 1);

    QString sql;
    if (found) {
        sql = QStringLiteral("UPDATE PrintLayout SET ") + fields.join(QStringLiteral(" = ?, ")) +
              QStringLiteral(" = ? WHERE PrintLayoutID = ?");
        values << id;
    } else {
        sql = QStringLiteral("INSERT INTO PrintLayout (") + fields.join(u',') + QStringLiteral(") VALUES (") +
              QStringList(fields.size(), QStringLiteral("?")).join(u',') + u')';
    }
    QSqlQuery write = store.prepare(sql);
    for (const QVariant &v : values)
        write.addBindValue(v);
    store.exec(write);
    if (!found)
        id = write.lastInsertId().toInt();
    transaction.commit();
    return id;
}

void DeleteLayout(DrinkStore &store, qint32 id)
{
    QSqlQuery query = store.prepare(QStringLiteral("DELETE FROM PrintLayout WHERE PrintLayoutID = ?"));
    query.addBindValue(id);
    store.exec(query);
}

} // namespace PrintLayout
