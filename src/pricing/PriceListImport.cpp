#include "pricing/PriceListImport.h"

#include "reference/IngredientMaint.h"
#include "store/DrinkStore.h"

#include <QSqlQuery>
#include <QStringList>

namespace {

// The separator of the file: whichever of comma and semicolon the header uses more often
// outside quotes; a comma when it uses neither.
QChar separatorOf(const QString &header)
{
    int commas = 0, semicolons = 0;
    bool quoted = false;
    for (QChar c : header) {
        if (c == u'"')
            quoted = !quoted;
        else if (!quoted && c == u',')
            ++commas;
        else if (!quoted && c == u';')
            ++semicolons;
    }
    return semicolons > commas ? QChar(u';') : QChar(u',');
}

// The fields of one line; a quote inside a quoted field is written twice. False when a quoted
// field does not end on its line.
bool splitFields(const QString &line, QChar separator, QStringList &fields)
{
    fields.clear();
    QString field;
    bool quoted = false;
    for (qsizetype i = 0; i < line.size(); ++i) {
        const QChar c = line[i];
        if (quoted) {
            if (c == u'"' && i + 1 < line.size() && line[i + 1] == u'"')
                field += u'"', ++i;
            else if (c == u'"')
                quoted = false;
            else
                field += c;
        } else if (c == u'"') {
            quoted = true;
        } else if (c == separator) {
            fields << field.trimmed();
            field.clear();
        } else {
            field += c;
        }
    }
    fields << field.trimmed();
    return !quoted;
}

// A list separated by semicolons comes from a place that writes a decimal comma, whatever
// the locale here says: "12,5" there is twelve and a half.
std::optional<double> numberOf(QString text, const QLocale &locale, QChar separator)
{
    bool ok = false;
    double v = locale.toDouble(text, &ok);
    if (!ok && separator == u';' && text.count(u',') == 1 && !text.contains(u'.'))
        text.replace(u',', u'.');
    if (!ok)
        v = QLocale::c().toDouble(text, &ok);
    return ok ? std::optional<double>(v) : std::nullopt;
}

std::optional<Currency> moneyOf(const QString &text, const QLocale &locale, QChar separator)
{
    if (const auto v = numberOf(text, locale, separator))
        return Currency::fromDouble(*v);
    // A price copied with its currency sign.
    return Currency::parse(text, locale);
}

} // namespace

PriceList readPriceList(const QString &text, const QLocale &locale)
{
    PriceList list;
    QString body = text;
    body.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    const QStringList lines = body.split(u'\n');
    QChar separator;
    QStringList fields;
    const auto refuse = [&](int line, const QString &why) {
        list.badLine = line;
        list.problem = why;
        return list;
    };
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const int lineNo = int(i) + 1;
        const QString &line = lines[i];
        if (line.trimmed().isEmpty())
            continue;
        if (separator.isNull()) {
            separator = separatorOf(line); // the header row names the columns
            continue;
        }
        if (!splitFields(line, separator, fields))
            return refuse(lineNo, QStringLiteral("a quoted field does not end"));
        PriceListRow row;
        row.line = lineNo;
        row.name = fields.value(0);
        if (row.name.isEmpty())
            return refuse(lineNo, QStringLiteral("no ingredient name"));
        const QString priceText = fields.value(1);
        if (priceText.isEmpty())
            return refuse(lineNo, QStringLiteral("no price for \"%1\"").arg(row.name));
        const auto price = moneyOf(priceText, locale, separator);
        if (!price)
            return refuse(lineNo, QStringLiteral("the price \"%1\" is not a number").arg(priceText));
        if (*price < Currency())
            return refuse(lineNo, QStringLiteral("the price \"%1\" is below zero").arg(priceText));
        row.price = *price;
        row.unitType = fields.value(2);
        const QString ozText = fields.value(3);
        if (!ozText.isEmpty()) {
            const auto oz = numberOf(ozText, locale, separator);
            if (!oz || *oz <= 0)
                return refuse(lineNo, QStringLiteral("the ounces per unit \"%1\" are not a number above zero").arg(ozText));
            row.ozPerUnit = *oz;
        }
        if (fields.size() > 4)
            return refuse(lineNo, QStringLiteral("more than four fields"));
        list.rows.push_back(row);
    }
    return list;
}

std::vector<PriceChange> planPriceImport(DrinkStore &store, const PriceList &list, bool create)
{
    QSqlQuery find = store.prepare(
        QStringLiteral("SELECT id, unitprice, UnitType, ozperunit FROM Ingredients WHERE Ingredient = ? ORDER BY id"));
    std::vector<PriceChange> changes;
    changes.reserve(list.rows.size());
    for (const PriceListRow &row : list.rows) {
        find.bindValue(0, row.name);
        store.exec(find);
        bool any = false;
        while (find.next()) {
            any = true;
            PriceChange c;
            c.row = row;
            c.id = find.value(0).toInt();
            c.oldPrice = Currency::fromVariant(find.value(1));
            const bool sameUnit = row.unitType.isEmpty() || row.unitType == find.value(2).toString();
            const bool sameOz = !row.ozPerUnit || *row.ozPerUnit == find.value(3).toDouble();
            c.kind = c.oldPrice == row.price && sameUnit && sameOz && !find.value(1).isNull() ? PriceChange::Unchanged
                                                                                                : PriceChange::Update;
            changes.push_back(c);
        }
        find.finish();
        if (!any) {
            PriceChange c;
            c.row = row;
            c.kind = create ? PriceChange::Create : PriceChange::Unknown;
            changes.push_back(c);
        }
    }
    return changes;
}

int applyPriceImport(DrinkStore &store, const std::vector<PriceChange> &changes)
{
    ScopedTransaction tx(store);
    QSqlQuery update = store.prepare(QStringLiteral(
        "UPDATE Ingredients SET unitprice = ?, UnitType = coalesce(?, UnitType), ozperunit = coalesce(?, ozperunit) "
        "WHERE id = ?"));
    QSqlQuery find = store.prepare(QStringLiteral("SELECT id FROM Ingredients WHERE Ingredient = ? ORDER BY id"));
    int written = 0;
    for (const PriceChange &c : changes) {
        if (c.kind != PriceChange::Update && c.kind != PriceChange::Create)
            continue;
        qint32 id = c.id;
        if (c.kind == PriceChange::Create) {
            // The same new name twice in a list makes one ingredient.
            find.bindValue(0, c.row.name);
            store.exec(find);
            id = find.next() ? find.value(0).toInt() : 0;
            find.finish();
            if (id == 0) {
                IngredientMaint::NewIngredient n;
                n.name = c.row.name;
                n.typeId = 0;
                n.subTypeId = 0;
                id = IngredientMaint::AddIngredient(store, n);
            }
        }
        update.bindValue(0, c.row.price.toSqlText().toDouble());
        update.bindValue(1, c.row.unitType.isEmpty() ? QVariant() : QVariant(c.row.unitType));
        update.bindValue(2, c.row.ozPerUnit ? QVariant(*c.row.ozPerUnit) : QVariant());
        update.bindValue(3, id);
        store.exec(update);
        ++written;
    }
    tx.commit();
    return written;
}
