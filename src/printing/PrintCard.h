#pragma once

#include "printing/CardGrid.h"
#include "printing/PrintLayout.h"

#include <QFont>
#include <QImage>
#include <QString>
#include <QStringList>
#include <functional>

class CDrinkFacade;
class QPainter;

// What one card shows of a drink.
struct CardContent {
    QString name;
    qint32 glassID = 0;
    QString glassName;
    QString build;
    QString garnish;
    QString recipe;
    QStringList ingredients; // "amount ingredient", trimmed, in the drink's order
};

// The drink as its card shows it; moves the facade's current drink to it.
CardContent cardContentOf(CDrinkFacade &facade, qint32 drinkID);

// A painter seen in twips: positions and text measures are twips whatever the device's
// resolution, so the device's own font metrics decide every width.
class CardSurface {
  public:
    explicit CardSurface(QPainter &painter);

    // The record in full; fontScale multiplies its size (the recipe preview's scale).
    void setFont(const FontRecord &record, float fontScale = 1.0f);
    float TextWidth(const QString &text) const;
    float TextHeight(const QString &text) const;
    // Prints at (CurrentX, CurrentY), the text's top there, and moves CurrentY one line down.
    void print(const QString &text);
    void PaintPicture(const QImage &picture, float x, float y, float width, float height);

    float CurrentX = 0, CurrentY = 0;
    float unitsPerTwip() const { return m_unitsPerTwip; }
    QPainter &painter() { return m_painter; }

  private:
    QPainter &m_painter;
    float m_unitsPerTwip;
    QFont m_font;
    float m_height = 0, m_ascent = 0;
};

// The picture of a glass for the card; a null image draws nothing.
using GlassPictures = std::function<QImage(qint32 glassID)>;

// Sets one card into the cell. scale multiplies the font sizes and the glass picture's side,
// for the recipe preview; a printed card has 1.
void PrintCard(CardSurface &surface, const CardContent &card, const PrintLayoutSettings &layout, const CardCell &cell,
               const GlassPictures &glassPicture, float scale = 1.0f);

// Word-wraps the text from CurrentY down, between left and left + width; what passes the
// limit is dropped.
void PrintWrappedText(CardSurface &surface, const QString &text, float left, float width, float limit);
