#pragma once

#include <QString>

class CDrinkFacade;
class DrinkStore;

// The texts of the XML and point-of-sale exports, each "" when there is no such drink.
QString drinkAsXML(CDrinkFacade &facade, DrinkStore &store, qint32 drinkID);
// One item of the Maitre'D recipe file: at most 28 numbered lines of the receipt printer.
QString drinkAsMaitreD(CDrinkFacade &facade, DrinkStore &store, qint32 drinkID, qint32 itemNumber, bool withRecipe);

// Everything but plain ASCII letters, digits and harmless marks becomes "&#0000;" with its
// Windows-1252 code, or its Unicode code point when Windows-1252 has none, so the file is ASCII.
QString xmlEscape(const QString &text);
// The next piece of at most width characters of a recipe, broken after a blank; position is
// 1-based and moves back to the start of the word it fell into.
QString wrapChunk(qsizetype &position, qsizetype width, const QString &text);
