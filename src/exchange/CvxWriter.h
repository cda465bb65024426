#pragma once

#include <QString>

class CDrinkFacade;
class DrinkStore;

// The head every exchange file starts with.
QString cvxFileHead();
// One drink as an exchange record, ending in CR LF; "" when there is no such drink.
QString drinkAsCVX(CDrinkFacade &facade, DrinkStore &store, qint32 drinkID);
// A single-precision amount as the exchange file writes it.
QString cvxMeasureText(float measure);
