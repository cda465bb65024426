#include "editing/EditorLines.h"

#include "base/LineCost.h"
#include "base/VbConvert.h"
#include "editing/Measures.h"
#include "editing/MetricConvert.h"
#include "presentation/TextGridModel.h"
#include "store/DrinkStore.h"

#include <QSqlQuery>
#include <QSqlRecord>

namespace {

QString quoted(const QString &text)
{
    QString t = text;
    t.replace(u'"', QStringLiteral("\"\""));
    return u'"' + t + u'"';
}

std::optional<IngredientRecord> recordOf(QSqlQuery &q)
{
    if (!q.next())
        return std::nullopt;
    const QSqlRecord r = q.record();
    IngredientRecord ing;
    ing.id = r.value(QStringLiteral("id")).toInt();
    ing.name = r.value(QStringLiteral("Ingredient")).toString();
    ing.unitPrice = r.value(QStringLiteral("unitprice"));
    ing.ozPerUnit = r.value(QStringLiteral("ozperunit"));
    ing.unitType = r.value(QStringLiteral("UnitType"));
    return ing;
}

QString priceText(const QVariant &v)
{
    return v.isNull() ? QString() : Currency::fromVariant(v).toSqlText();
}

QString sizeText(const QVariant &v)
{
    return v.isNull() ? QString() : GeneralNumber(v.toDouble());
}

Currency moneyOf(const QString &text)
{
    return text.isEmpty() ? Currency() : Currency::parse(text).value_or(Currency());
}

float singleOf(const QString &text) { return static_cast<float>(VbConvert::Val(text)); }

bool hasNumber(const QString &measureName)
{
    const Measure *m = FindMeasure(measureName);
    return !m || m->hasNumber;
}

} // namespace

QStringList IngredientLineHeaders()
{
    return {QStringLiteral("ID"),         QStringLiteral("Amount"),    QStringLiteral("Amount"),
            QStringLiteral("Ingredient"), QStringLiteral("Cost"),      QStringLiteral("UnitCost"),
            QStringLiteral("OzPerUnit"),  QStringLiteral("UnitType"), QStringLiteral("Measure")};
}

QStringList PriceLineHeaders()
{
    return {QStringLiteral("ID"),    QStringLiteral("Ingredient"), QStringLiteral("Unit $"), QStringLiteral("Oz."),
            QStringLiteral("$/Oz."), QStringLiteral("Cost"),       QStringLiteral("Cost %")};
}

QString SingleText(float value)
{
    if (value == 0.0f)
        return QStringLiteral("0");
    return QString::number(static_cast<double>(value), 'G', 7);
}

QString PercentText(double fraction)
{
    return QString::number(fraction * 100.0, 'f', 2) + u'%';
}

bool IsNumeric(const QString &text) { return ParseConvertAmount(text).has_value(); }

std::optional<IngredientRecord> FindIngredientByName(DrinkStore &store, const QString &name)
{
    QSqlQuery q = store.select(QStringLiteral("SELECT * FROM Ingredients WHERE Ingredient = ") + quoted(name));
    return recordOf(q);
}

std::optional<IngredientRecord> FindIngredientById(DrinkStore &store, qint32 id)
{
    QSqlQuery q = store.select(QStringLiteral("SELECT * FROM Ingredients WHERE ID = ") + QString::number(id));
    return recordOf(q);
}

std::optional<LineProblem> CheckNewLine(bool leafChosen, const QString &typedName, const QString &measureName,
                                        const QString &amountText)
{
    if (!leafChosen && typedName.isEmpty())
        return LineProblem{QStringLiteral("Please select an ingredient from the list or type in a new one."),
                           LineField::Ingredient};
    if (measureName.isEmpty())
        return LineProblem{QStringLiteral("Please select the units to use."), LineField::Units};
    if (hasNumber(measureName)) {
        if (amountText.isEmpty())
            return LineProblem{QStringLiteral("Please enter an amount."), LineField::Amount};
        if (!IsNumeric(amountText))
            return LineProblem{QStringLiteral("The amount should be a number.  Please enter fractions as decimals "
                                              "(ie: 1/2 = 0.5)"),
                               LineField::Amount};
    }
    return std::nullopt;
}

QStringList StoredIngredientLine(const IngredientRecord &ing, const QString &amountText, const QString &measureName)
{
    const float ounces = GetOunces(amountText, measureName);
    const Currency unitPrice = Currency::fromVariant(ing.unitPrice);
    const float perUnit = static_cast<float>(ing.ozPerUnit.toDouble());
    // Where the ingredient has no price or no size the line shows a plain 0 until the next refresh.
    const QString cost = perUnit > 0.0f && unitPrice > Currency() ? LineCost(unitPrice, perUnit, ounces).format()
                                                                  : QStringLiteral("0");
    return {QString::number(ing.id),
            GetAmountText(amountText, measureName),
            GetMetricAmountText(amountText, measureName),
            ing.name,
            cost,
            priceText(ing.unitPrice),
            sizeText(ing.ozPerUnit),
            ing.unitType.toString(),
            SingleText(ounces)};
}

QStringList NewIngredientLine(const QString &typedName, const QString &amountText, const QString &measureName)
{
    return {QStringLiteral("-1"),
            GetAmountText(amountText, measureName),
            GetMetricAmountText(amountText, measureName),
            typedName,
            Currency().format(),
            QString(),
            QString(),
            QString(),
            SingleText(GetOunces(amountText, measureName))};
}

void RefreshIngredientColumns(DrinkStore &store, TextGridModel &lines)
{
    QSqlQuery q = store.prepare(
        QStringLiteral("SELECT Ingredient, unitprice, ozperunit, UnitType FROM Ingredients WHERE id = ?"));
    for (int r = 0; r < lines.rowCount(); ++r) {
        const double id = VbConvert::Val(lines.cell(r, IngCol::ID));
        if (id <= 0)
            continue;
        q.bindValue(0, static_cast<qint64>(id));
        store.exec(q);
        if (!q.next())
            continue;
        lines.setCell(r, IngCol::Ingredient, q.value(0).toString());
        lines.setCell(r, IngCol::Cost, QString());
        lines.setCell(r, IngCol::UnitCost, priceText(q.value(1)));
        lines.setCell(r, IngCol::OzPerUnit, sizeText(q.value(2)));
        lines.setCell(r, IngCol::UnitType, q.value(3).toString());
        q.finish();
    }
}

bool RebuildPriceLines(TextGridModel &lines, TextGridModel &prices, const QString &costText)
{
    Currency total;
    if (!costText.isEmpty()) {
        const std::optional<Currency> t = Currency::parse(costText);
        if (!t)
            return false;
        total = *t;
    }
    const QString zero = Currency().format();
    std::vector<QStringList> rows;
    rows.reserve(std::size_t(lines.rowCount()));
    for (int r = 0; r < lines.rowCount(); ++r) {
        const Currency u = moneyOf(lines.cell(r, IngCol::UnitCost));
        const float z = singleOf(lines.cell(r, IngCol::OzPerUnit));
        const float m = singleOf(lines.cell(r, IngCol::Measure));
        QStringList row{lines.cell(r, IngCol::ID), lines.cell(r, IngCol::Ingredient), u.format(), SingleText(m),
                        zero, zero, PercentText(0)};
        if (z > 0.0f && m > 0.0f && u > Currency()) {
            const Currency perOunce = Currency::fromDouble(u.toDouble() / static_cast<double>(z));
            const Currency cost = LineCost(u, z, m);
            row[PriceCol::PerOunce] = perOunce.format();
            row[PriceCol::Cost] = cost.format();
            if (total > Currency())
                row[PriceCol::CostPercent] = PercentText(cost.toDouble() / total.toDouble());
        }
        lines.setCell(r, IngCol::Cost, row[PriceCol::Cost]);
        rows.push_back(std::move(row));
    }
    prices.setRows(std::move(rows));
    return true;
}
