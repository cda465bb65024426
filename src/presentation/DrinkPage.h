#pragma once

#include <QString>
#include <QtGlobal>

class CDrinkFacade;
class DrinkStore;
namespace modCorvane {
struct State;
}

// The template language of the drink page: tokens "!#!#Name!#!#" and the ingredient and
// category sections. The program knows nothing of HTML beyond these.
namespace DrinkPage {

// Every "!#!#name!#!#", letter case ignored, replaced by the value as it stands: templates
// may put HTML into a drink's fields on purpose, so nothing is escaped.
QString ReplaceToken(const QString &text, const QString &name, const QString &value);

// A colour value (0xBBGGRR, or a system colour) as the six hex digits RRGGBB of an HTML
// colour. A system colour is resolved and the plain value written back into the caller's
// variable, so the program-wide colour holds plain RGB from then on.
QString ColorToHTML(quint32 &color);

// Window text, highlight, button face and button shadow through the platform's palette
// (fixed defaults without a GUI application); any other value outside 0..0xFFFFFF is white.
quint32 resolveColor(quint32 value);

// The digits of any value, cut to its last six or padded to six, BBGGRR turned to RRGGBB.
QString htmlColorDigits(quint32 value);

} // namespace DrinkPage

// Fills a template for the facade's current drink. Made for one page: the facade creates it
// in drinkAsHTML, after its seek.
class DrinkPageBuilder {
  public:
    DrinkPageBuilder(CDrinkFacade &facade, DrinkStore &store, modCorvane::State &state);

    // The facade stands on the drink. Errors before the pictures propagate; later ones cost
    // only the piece of the page they happen in.
    QString BuildDrinkPage();
    QString GetBlankPage();
    QString GetNoTemplatePage();

  private:
    QString WriteGlassPicture(QString text);
    QString GetDrinkImage();
    QString ExpandIngredients(const QString &text);
    QString ExpandCategories(const QString &text);

    CDrinkFacade &m_facade;
    DrinkStore &m_store;
    modCorvane::State &m_state;
    QString m_appDir;
};
