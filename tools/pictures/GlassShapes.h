#pragma once

#include <QList>
#include <QPainterPath>
#include <QString>

// The kinds of vessel the pictures know how to draw.
enum class GlassKind {
    Cocktail,
    Coupe,
    NickAndNora,
    OldFashioned,
    DoubleOldFashioned,
    Highball,
    Collins,
    Hurricane,
    Margarita,
    Flute,
    Wine,
    Snifter,
    Shot,
    Cordial,
    Pint,
    BeerMug,
    Pilsner,
    IrishCoffee,
    CopperMug,
    TikiMug,
    JulepCup,
    Sour,
    PunchCup,
    Unknown,
};

// Chooses a drawing from words in a glass's name, so that the book may name and number
// its glasses as it likes.
GlassKind glassKindForName(const QString &name);

// One vessel in design units: a 64 x 96 box, y growing downwards, scaled by GlassShape::Unit
// so that the boolean path operations stay smooth when the picture is enlarged.
struct GlassShape {
    static constexpr qreal Unit = 8;
    enum Material { Glass, Copper, Metal, Ceramic };

    QPainterPath body;         // the silhouette, handle included
    QPainterPath inside;       // what holds the drink
    QList<QPainterPath> lines; // thin detail lines: thick bases, facets, bands
    QPainterPath decoration;   // strokes in the material's dark tone (the tiki face)
    QRectF rim;                // the rim ellipse
    qreal fill = 0.75;         // drink level, from the bottom of the inside (0) to the rim (1)
    Material material = Glass;
    bool ice = false;
    bool dashed = false; // the unknown glass
};

GlassShape glassShape(GlassKind kind);

// The horizontal extent of a path at height y.
QRectF sliceAt(const QPainterPath &path, qreal y);
// The ellipse of the drink's surface at the shape's fill level.
QRectF drinkSurface(const GlassShape &shape);
