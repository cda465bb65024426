#pragma once

#include "printing/PrintLayout.h"

#include <QLineF>
#include <QRectF>
#include <QtGlobal>
#include <vector>

// The page arithmetic of the cards, in twips (1440 to the inch), single precision as the
// layouts have always been computed.
struct CardCell {
    float Left = 0, Top = 0, Right = 0, Bottom = 0;
};

// A page as the target surface reports it, in twips: the paper, and the part of it the
// device can print on, centred on the paper.
struct PageMetrics {
    float Width = 0, Height = 0;           // the paper
    float ScaleWidth = 0, ScaleHeight = 0; // the printable part
};

namespace CardGrid {

float ToTwips(float length, bool metric);
float ToTwips(const QString &length, bool metric);

// Whole cards on a page: columns times rows.
qint16 CardsPerPage(const PrintLayoutSettings &layout);
// Pages for a number of cards; 0 when the layout holds no card.
int pageCount(int cards, int cardsPerPage);

// The cells of one page in row-major order, the device's unprintable border taken off. Empty
// when the layout holds no card.
std::vector<CardCell> NewPage(const PrintLayoutSettings &layout, const PageMetrics &page);

// One card's size from the paper alone, as the recipe preview shows it.
float CardWidth(const PrintLayoutSettings &layout, const PageMetrics &page);
float CardHeight(const PrintLayoutSettings &layout, const PageMetrics &page);

// Where the recipe preview puts its card in a picture of pw by ph (any unit), and at what
// scale; scale <= 0 means the card cannot be shown.
struct CardPlacement {
    float scale = 0;
    QRectF card;
};
CardPlacement placeCard(float cardWidth, float cardHeight, float pw, float ph);

// The page preview in a picture of pw by ph twips: the page, its margins and the lines of
// the rows and columns. onePixelX/Y: twips of one screen pixel.
struct PagePreview {
    float scale = 0;
    QRectF page;
    QRectF margins;
    std::vector<QLineF> lines;
};
PagePreview ShowPagePreview(const PrintLayoutSettings &layout, const PageMetrics &page, float pw, float ph,
                            float onePixelX, float onePixelY);

} // namespace CardGrid
