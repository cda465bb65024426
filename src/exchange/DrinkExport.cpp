#include "exchange/DrinkExport.h"

#include "exchange/CvxWriter.h"
#include "exchange/DrinkExportText.h"
#include "store/DrinkStore.h"

#include <QStringList>

DrinkExporter::DrinkExporter(DrinkStore &store, CDrinkFacade &facade, Mode mode, bool limitOn, bool withRecipe)
    : m_store(store), m_facade(facade), m_mode(mode), m_limitOn(mode == MaitreD && limitOn),
      m_withRecipe(withRecipe)
{
    if (mode == Exchange)
        m_text = cvxFileHead();
    else if (mode == Xml)
        m_text = QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\r\n"
                                "<!-- Drinks exported from the Corvane recipe book. -->\r\n"
                                "<!-- Text outside plain ASCII is written as numbered character references. -->\r\n"
                                "<Drinks>\r\n");
}

bool DrinkExporter::exportDrink(qint32 drinkID)
{
    if (m_mode == MaitreD) {
        const QString item = drinkAsMaitreD(m_facade, m_store, drinkID, m_itemNumber, m_withRecipe);
        if (!m_limitOn || m_bytesWritten + item.size() < kLimit) {
            m_text += item;
            ++m_itemNumber;
        }
        // The drink that did not fit is counted, so that it is what trips the limit.
        if (m_limitOn)
            m_bytesWritten += qint32(item.size());
    } else {
        m_text += (m_mode == Exchange ? drinkAsCVX(m_facade, m_store, drinkID) : drinkAsXML(m_facade, m_store, drinkID)) +
                  QStringLiteral("\r\n");
    }
    ++m_drinksExported;
    return !(m_limitOn && m_bytesWritten > kLimit);
}

QString DrinkExporter::fileText() const
{
    return m_mode == Xml ? m_text + QStringLiteral("</Drinks>\r\n") : m_text;
}

QString DrinkExporter::limitMessage() const
{
    return QStringLiteral("The 64K file size limit has been reached.  %1 drinks have been exported.").arg(m_itemNumber);
}

namespace {
std::vector<qint32> ids(DrinkStore &store, const QString &sql)
{
    std::vector<qint32> out;
    QStringList names;
    store.selectIdNames(sql, out, names);
    return out;
}
}

std::vector<qint32> DrinkExporter::markedDrinks(DrinkStore &store)
{
    return ids(store, QStringLiteral("SELECT ID, Name FROM Drinks WHERE Marked = Yes ORDER BY Name"));
}

std::vector<qint32> DrinkExporter::categoryDrinks(DrinkStore &store, qint32 categoryID)
{
    return ids(store, QStringLiteral("SELECT D.ID, D.Name FROM Drinks D, DrinkTypeRel T WHERE D.ID = T.DrinkID AND "
                                     "T.DrinkTypeID = %1 ORDER BY D.Name").arg(categoryID));
}
