#pragma once

#include <QString>
#include <vector>

class CDrinkFacade;
class DrinkStore;

// One export run: the file's text built drink by drink in one of the three formats, with the
// point-of-sale file's 64K limit. The caller writes the text once the run is over.
class DrinkExporter {
public:
    enum Mode { Exchange = 1, MaitreD = 2, Xml = 3 };
    static constexpr qint32 kLimit = 65535;

    DrinkExporter(DrinkStore &store, CDrinkFacade &facade, Mode mode, bool limitOn = false, bool withRecipe = false);

    // Adds one drink; false once the size limit stops the run.
    bool exportDrink(qint32 drinkID);
    // The whole file so far, with the closing line of the XML file.
    QString fileText() const;

    qint32 drinksExported() const { return m_drinksExported; }
    qint32 itemNumber() const { return m_itemNumber; }
    QString limitMessage() const;

    // The drinks of the two stored selections, in name order.
    static std::vector<qint32> markedDrinks(DrinkStore &store);
    static std::vector<qint32> categoryDrinks(DrinkStore &store, qint32 categoryID);

private:
    DrinkStore &m_store;
    CDrinkFacade &m_facade;
    Mode m_mode;
    bool m_limitOn;
    bool m_withRecipe;
    QString m_text;
    qint32 m_itemNumber = 1;
    qint32 m_bytesWritten = 0;
    qint32 m_drinksExported = 0;
};
