#include "pricing/PriceSettings.h"

#include "base/VbConvert.h"
#include "pricing/PriceRules.h"
#include "store/DrinkStore.h"

#include <QSqlQuery>
#include <QStringList>

namespace {
const QString CrLf = QStringLiteral("\r\n");

QString decimalNote()
{
    return CrLf + CrLf +
           QStringLiteral("Note:  If you are using an international version of Windows where the decimal place is "
                          "something other than a period (.) try replacing your local decimal place with a period "
                          "when updating the cost or price.");
}
} // namespace

StoredPriceSettings LoadPriceSettings(DrinkStore &store)
{
    StoredPriceSettings s;
    QSqlQuery q = store.prepare(QStringLiteral("SELECT Var, Val FROM Constants"));
    store.exec(q);
    while (q.next()) {
        const QString var = q.value(0).toString();
        const QString val = q.value(1).toString();
        if (var.compare(QLatin1String("MarkupOpt"), Qt::CaseInsensitive) == 0)
            s.markupOpt = val;
        else if (var.compare(QLatin1String("MarkupPct"), Qt::CaseInsensitive) == 0)
            s.markupPct = val;
        else if (var.compare(QLatin1String("ApplyZero"), Qt::CaseInsensitive) == 0)
            s.applyZero = val == QLatin1String("True");
        else if (var.compare(QLatin1String("RoundTo"), Qt::CaseInsensitive) == 0)
            s.roundTo = static_cast<qint16>(VbConvert::Val(val));
        else if (var.compare(QLatin1String("MinPrice"), Qt::CaseInsensitive) == 0)
            s.minPrice = val;
    }
    return s;
}

QString PriceSettingsText(const StoredPriceSettings &s)
{
    const QString step = RoundingStep(s.roundTo).format();
    const QString minimum = s.minPrice == QLatin1String("None")
                                ? QStringLiteral("no minimum price.")
                                : QStringLiteral("a minimum price of ") + s.minPrice + u'.';
    const QString tail = QStringLiteral("The price is being rounded to the nearest ") + step + QStringLiteral(" with ") +
                         minimum + CrLf + CrLf + QStringLiteral("To change the price calculation, click on ") +
                         QStringLiteral("the Price Settings button below.");
    if (s.markupOpt == MarkupFromCost)
        return QStringLiteral("Drink Price Settings:") + CrLf + CrLf +
               QStringLiteral("The Drink Price is being calculated based on a markup of ") + s.markupPct +
               QStringLiteral("% from the cost.  ") + tail;
    if (s.markupOpt == BeverageCostMethod)
        return QStringLiteral("Drink Price Settings:") + CrLf + CrLf +
               QStringLiteral("The Drink Price is being calculated using the  ") +
               QStringLiteral("Beverage Cost Method with a Cost Percentage of ") + s.markupPct + QStringLiteral("%.  ") +
               tail;
    return QStringLiteral("The Drink Price is not being calculated because Markup ") +
           QStringLiteral("from Current Price is selected.  Click on the Price Settings ") +
           QStringLiteral("button below to change the rules for calculating the drink price.");
}

QString CostProblemMessage()
{
    return QStringLiteral("There was a problem calculating the drink cost.  Please check that the cost entered is a "
                          "valid number (no letters or other marks).") +
           decimalNote();
}

QString PriceProblemMessage()
{
    return QStringLiteral("There was a problem calculating the drink price.  Please check that the cost and price "
                          "entered are valid numbers (no letters or other marks).") +
           decimalNote();
}

std::optional<Currency> SumLineCosts(const QStringList &costTexts)
{
    Currency total;
    for (const QString &text : costTexts) {
        const std::optional<Currency> c = Currency::parse(text);
        if (!c)
            return std::nullopt;
        total += *c;
    }
    return total;
}

DrinkPriceOutcome ResetDrinkPrice(const StoredPriceSettings &s, const QString &costText, const QString &priceText,
                                  const std::function<bool(const QString &)> &askUseCurrent)
{
    const DrinkPriceOutcome failed{DrinkPriceOutcome::Failed, {}};
    const std::optional<Currency> cost = Currency::parse(costText);
    if (!cost)
        return failed;
    const float fraction = PercentFraction(s.markupPct);
    // The minimum is read before the method is looked at: a stored "None" fails every method.
    Currency minimum;
    if (!s.minPrice.isEmpty()) {
        const std::optional<Currency> m = Currency::parse(s.minPrice);
        if (!m)
            return failed;
        minimum = *m;
    }
    if (s.markupOpt == MarkupFromCurrent) {
        const QString question = QStringLiteral("The price is based on a markup from the current price.  Should the "
                                                "current price of ") +
                                 priceText + QStringLiteral(" be used?");
        if (!askUseCurrent(question))
            return {DrinkPriceOutcome::Declined, {}};
        const std::optional<Currency> current = Currency::parse(priceText);
        if (!current)
            return failed;
        // The change goes straight to the price: no floor, no minimum, no rounding here.
        const std::optional<Currency> price = PriceByMethod(MarkupFromCurrent, *cost, *current, fraction);
        if (!price)
            return failed;
        return {DrinkPriceOutcome::Priced, *price};
    }
    std::optional<Currency> price = PriceByMethod(s.markupOpt == BeverageCostMethod ? BeverageCostMethod : MarkupFromCost,
                                                  *cost, Currency(), fraction);
    if (!price)
        return failed;
    if (*price < Currency())
        price = Currency();
    if (minimum > Currency() && *price < minimum)
        price = minimum;
    return {DrinkPriceOutcome::Priced, RoundPriceUp(*price, s.roundTo)};
}
