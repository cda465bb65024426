#pragma once

#include "base/Currency.h"

#include <QString>
#include <functional>
#include <optional>

class DrinkStore;

// The pricing settings as they are stored in Constants, read for the drink editor: its price
// button and the sentence that tells the user how prices are worked out.
struct StoredPriceSettings {
    QString markupOpt;  // "Cost", "BCM", "Cur", or empty when the row is missing
    QString markupPct;  // as typed, without the sign
    bool applyZero = false;
    qint16 roundTo = -1; // index of the rounding step; -1 when the row is missing
    QString minPrice;    // "None" or a number as text
};

// Reads the five rows; a missing row leaves its member at its default.
StoredPriceSettings LoadPriceSettings(DrinkStore &store);

// The sentence of the editor's pricing page (lines end in CR LF).
QString PriceSettingsText(const StoredPriceSettings &settings);

// The messages of the editor's two price buttons when a number cannot be read.
QString CostProblemMessage();
QString PriceProblemMessage();

// The editor's "reset cost": the line costs as shown, each read as currency, summed. Nothing
// when one of them cannot be read.
std::optional<Currency> SumLineCosts(const QStringList &costTexts);

// The editor's "reset price" on one drink, from the stored settings. askUseCurrent is asked
// the question of "Cur" and says yes or no.
struct DrinkPriceOutcome {
    enum Kind { Priced, Declined, Failed } kind = Failed;
    Currency price;
};
DrinkPriceOutcome ResetDrinkPrice(const StoredPriceSettings &settings, const QString &costText,
                                  const QString &priceText,
                                  const std::function<bool(const QString &question)> &askUseCurrent);
