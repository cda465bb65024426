#include "pricing/PriceBatch.h"

#include "base/VbConvert.h"
#include "store/DrinkStore.h"
#include "store/StoreError.h"

#include <QLocale>
#include <QSqlQuery>

namespace {
// A number as the user may type it: plain, with the locale's marks, or in currency format.
bool isNumeric(const QString &text)
{
    const QString t = text.trimmed();
    if (t.isEmpty())
        return false;
    bool ok = false;
    QLocale::c().toDouble(t, &ok);
    if (!ok)
        QLocale().toDouble(t, &ok);
    return ok || Currency::parse(t).has_value();
}

double numberOf(const QString &text)
{
    const QString t = text.trimmed();
    bool ok = false;
    double v = QLocale::c().toDouble(t, &ok);
    if (!ok)
        v = QLocale().toDouble(t, &ok);
    if (!ok)
        v = Currency::parse(t).value_or(Currency()).toDouble();
    return v;
}

template <typename Form> auto &activePercent(Form &form)
{
    if (form.method == MarkupFromCost)
        return form.markupPct;
    if (form.method == BeverageCostMethod)
        return form.bcmPct;
    return form.increasePct;
}
} // namespace

int RecalculateDrinkCosts(DrinkStore &store)
{
    // Read the costs in one pass first: updating while the grouped view is still being read
    // would make the engine start it over for every drink.
    std::vector<std::pair<qint32, QVariant>> costs;
    {
        QSqlQuery q = store.prepare(QStringLiteral("SELECT DrinkID, Cost FROM DrinkCost"));
        q.setForwardOnly(true);
        store.exec(q);
        while (q.next())
            costs.emplace_back(q.value(0).toInt(), q.value(1));
    }
    if (costs.empty())
        return 0;
    ScopedTransaction tx(store);
    QSqlQuery update = store.prepare(QStringLiteral("UPDATE Drinks SET Cost = ? WHERE id = ?"));
    int changed = 0;
    for (const auto &[id, cost] : costs) {
        update.bindValue(0, cost);
        update.bindValue(1, id);
        store.exec(update);
        changed += update.numRowsAffected() > 0 ? 1 : 0;
    }
    tx.commit();
    return changed;
}

QString PriceFormProblem(const PriceForm &form, bool forOk)
{
    if (form.method == MarkupFromCost) {
        if (!isNumeric(form.markupPct))
            return QStringLiteral("The markup precentage is not a valid number");
        if (numberOf(form.markupPct) < 0)
            return QStringLiteral("The markup percentage must be greater than or equal to zero.");
    } else if (form.method == MarkupFromCurrent) {
        if (!isNumeric(form.increasePct))
            return QStringLiteral("The precent increase is not a valid number");
    } else if (form.method == BeverageCostMethod && forOk) {
        if (!isNumeric(form.bcmPct))
            return QStringLiteral("The cost precentage is not a valid number");
        if (numberOf(form.bcmPct) <= 0)
            return QStringLiteral("The cost percentage must be greater than zero.");
        if (numberOf(form.bcmPct) > 99)
            return QStringLiteral("The cost percentage must be less than or equal to 99%.");
    }
    if (form.forceMinimum) {
        if (!isNumeric(form.minPrice))
            return QStringLiteral("The minimum price is not valid.  You do not need to put a currency symbol in the "
                                  "price field.");
        if (numberOf(form.minPrice) < 0)
            return QStringLiteral("The minimum price must be greater than or equal to zero.");
    }
    return {};
}

StoredPriceSettings StoredFromForm(const PriceForm &form)
{
    StoredPriceSettings s;
    s.markupOpt = form.method == MarkupFromCost || form.method == BeverageCostMethod ? form.method : MarkupFromCurrent;
    s.markupPct = activePercent(form);
    s.applyZero = form.zeroOnly;
    s.roundTo = static_cast<qint16>(form.roundTo);
    s.minPrice = form.forceMinimum ? form.minPrice : QStringLiteral("None");
    return s;
}

void ApplyStoredToForm(DrinkStore &store, PriceForm &form)
{
    QSqlQuery q = store.prepare(QStringLiteral("SELECT Var, Val FROM Constants"));
    store.exec(q);
    QString pct;
    bool havePct = false;
    while (q.next()) {
        const QString var = q.value(0).toString().toLower();
        const QString val = q.value(1).toString();
        if (var == QLatin1String("markupopt"))
            form.method = val == MarkupFromCost || val == BeverageCostMethod ? val : MarkupFromCurrent;
        else if (var == QLatin1String("markuppct"))
            pct = val, havePct = true;
        else if (var == QLatin1String("applyzero"))
            form.zeroOnly = val == QLatin1String("True");
        else if (var == QLatin1String("roundto"))
            form.roundTo = static_cast<qint16>(VbConvert::Val(val));
        else if (var == QLatin1String("minprice")) {
            form.forceMinimum = val != QLatin1String("None");
            form.minPrice = form.forceMinimum ? val : QString();
        }
    }
    // The percentage belongs to whichever method the stored option selected.
    if (havePct)
        activePercent(form) = pct;
}

void SavePriceSettings(DrinkStore &store, const StoredPriceSettings &s)
{
    // The index is written as the number-to-text conversion gives it: a blank before a number
    // that is not negative.
    const QString roundTo = s.roundTo >= 0 ? u' ' + QString::number(s.roundTo) : QString::number(s.roundTo);
    const std::pair<const char *, QString> rows[] = {
        {"MarkupOpt", s.markupOpt},
        {"MarkupPct", s.markupPct},
        {"ApplyZero", s.applyZero ? QStringLiteral("True") : QStringLiteral("False")},
        {"RoundTo", roundTo},
        {"MinPrice", s.minPrice},
    };
    ScopedTransaction tx(store);
    QSqlQuery update = store.prepare(QStringLiteral("UPDATE Constants SET Val = ? WHERE Var = ?"));
    QSqlQuery insert = store.prepare(QStringLiteral("INSERT INTO Constants (Var, Val) VALUES (?, ?)"));
    for (const auto &[var, val] : rows) {
        update.bindValue(0, val);
        update.bindValue(1, QString::fromLatin1(var));
        store.exec(update);
        if (update.numRowsAffected() == 0) {
            insert.bindValue(0, QString::fromLatin1(var));
            insert.bindValue(1, val);
            store.exec(insert);
        }
    }
    tx.commit();
}

std::vector<BatchDrink> DrinksToReprice(DrinkStore &store, bool zeroOnly)
{
    // Locked prices stay out of both selections.
    QSqlQuery q = store.select(zeroOnly ? QStringLiteral("SELECT ID, Cost, Price FROM GetZeroPriceDrinks WHERE "
                                                         "LockPrice = No")
                                        : QStringLiteral("SELECT ID, Cost, Price FROM Drinks WHERE LockPrice = No"));
    std::vector<BatchDrink> drinks;
    while (q.next())
        drinks.push_back({q.value(0).toInt(), Currency::fromVariant(q.value(1)), Currency::fromVariant(q.value(2))});
    return drinks;
}

PriceSettings BatchPriceSettings(const PriceForm &form)
{
    PriceSettings s;
    s.method = form.method;
    s.fraction = PercentFraction(activePercent(form));
    if (form.forceMinimum)
        s.minimum = Currency::parse(form.minPrice).value_or(Currency());
    s.roundTo = form.roundTo;
    return s;
}

bool RepriceDrinks(DrinkStore &store, const std::vector<BatchDrink> &drinks, const PriceSettings &settings,
                   const std::function<bool(std::size_t, std::size_t)> &progress)
{
    ScopedTransaction tx(store);
    QSqlQuery update = store.prepare(QStringLiteral("UPDATE Drinks SET Price = ? WHERE id = ?"));
    std::size_t done = 0;
    for (const BatchDrink &d : drinks) {
        const std::optional<Currency> price = CalculatePrice(settings, d.cost, d.price);
        if (!price)
            throw StoreError(QStringLiteral("Division by zero"));
        update.bindValue(0, price->toSqlText().toDouble());
        update.bindValue(1, d.id);
        store.exec(update);
        if (progress && !progress(++done, drinks.size()))
            return false; // the transaction rolls back on leaving
    }
    tx.commit();
    return true;
}

QStringList PriceStatisticsQueries()
{
    const QString perOz = QStringLiteral("SELECT sum(unitprice / ozperunit) / count(id) ") +
                          QStringLiteral("From Ingredients Where unitprice > 0 And ozperunit > 0");
    return {perOz + QStringLiteral(" and type in (1, 2, 3)"), perOz + QStringLiteral(" and type not in (1, 2, 3)"),
            QStringLiteral("SELECT sum(cost) / count(id) ") + QStringLiteral("FROM Drinks WHERE cost > 0"),
            QStringLiteral("SELECT sum(price) / count(id) ") + QStringLiteral("FROM Drinks WHERE price > 0")};
}

PriceStatistics ShowStatistics(DrinkStore &store)
{
    const QStringList queries = PriceStatisticsQueries();
    Currency figures[4];
    for (int i = 0; i < 4; ++i) {
        // The engine divides whole numbers as whole numbers; total() is sum() as a real number,
        // and still leaves nothing to show when no row counts (its 0 divided by 0 is null).
        QString sql = queries.at(i);
        const QVariant v = store.scalar(sql.replace(QLatin1String("sum("), QLatin1String("total(")));
        if (!v.isNull())
            figures[i] = Currency::fromDouble(v.toDouble());
    }
    return {figures[0], figures[1], figures[2], figures[3]};
}
