#include "PicturePainter.h"

#include "Garnish.h"

#include <QLinearGradient>
#include <QPainter>
#include <QRadialGradient>
#include <QRandomGenerator>
#include <cmath>

namespace {

constexpr qreal U = GlassShape::Unit;
const QColor Ink(0x34, 0x49, 0x5e);

QBrush materialBrush(const GlassShape &s)
{
    const QRectF r = s.body.boundingRect();
    QLinearGradient g(r.left(), 0, r.right(), 0);
    switch (s.material) {
    case GlassShape::Glass:
        g.setColorAt(0, QColor(165, 200, 222, 150));
        g.setColorAt(0.25, QColor(215, 234, 245, 80));
        g.setColorAt(0.7, QColor(222, 238, 247, 70));
        g.setColorAt(1, QColor(160, 195, 215, 150));
        break;
    case GlassShape::Copper:
        g.setColorAt(0, QColor(0x7a, 0x3d, 0x1a));
        g.setColorAt(0.3, QColor(0xe0, 0x8c, 0x52));
        g.setColorAt(0.42, QColor(0xf4, 0xb0, 0x7c));
        g.setColorAt(0.75, QColor(0xb3, 0x60, 0x2e));
        g.setColorAt(1, QColor(0x6e, 0x36, 0x16));
        break;
    case GlassShape::Metal:
        g.setColorAt(0, QColor(0x7d, 0x87, 0x90));
        g.setColorAt(0.35, QColor(0xe8, 0xee, 0xf2));
        g.setColorAt(0.7, QColor(0xaa, 0xb4, 0xbc));
        g.setColorAt(1, QColor(0x6f, 0x79, 0x82));
        break;
    case GlassShape::Ceramic:
        g.setColorAt(0, QColor(0x6b, 0x3d, 0x1e));
        g.setColorAt(0.35, QColor(0xbf, 0x7d, 0x44));
        g.setColorAt(0.7, QColor(0x9a, 0x5c, 0x2e));
        g.setColorAt(1, QColor(0x5a, 0x31, 0x18));
        break;
    }
    return g;
}

QColor openingColour(const GlassShape &s)
{
    switch (s.material) {
    case GlassShape::Copper:
        return QColor(0x5a, 0x2c, 0x12);
    case GlassShape::Metal:
        return QColor(0x5d, 0x66, 0x6e);
    case GlassShape::Ceramic:
        return QColor(0x3f, 0x24, 0x12);
    case GlassShape::Glass:
        break;
    }
    return QColor(255, 255, 255, 60);
}

bool opaque(const GlassShape &s)
{
    return s.material != GlassShape::Glass;
}

void paintLiquid(QPainter &p, const GlassShape &s, const QColor &drink, const QRectF &surface)
{
    QLinearGradient g(s.inside.boundingRect().left(), 0, s.inside.boundingRect().right(), 0);
    g.setColorAt(0, drink.darker(135));
    g.setColorAt(0.35, drink);
    g.setColorAt(0.65, drink.lighter(106));
    g.setColorAt(1, drink.darker(125));
    p.save();
    if (opaque(s)) {
        QPainterPath opening;
        opening.addEllipse(s.rim);
        p.setClipPath(opening);
    } else {
        QPainterPath below;
        below.addRect(QRectF(0, surface.center().y(), 64 * U, 96 * U));
        p.fillPath(s.inside.intersected(below), g);
    }
    p.setPen(QPen(drink.darker(118), 0.4 * U));
    p.setBrush(drink.lighter(118));
    p.drawEllipse(surface);
    p.restore();
}

void paintIce(QPainter &p, const GlassShape &s, const QRectF &surface)
{
    const qreal half = surface.width() / 2;
    const qreal cube = std::min(0.62 * half, 9.0 * U);
    const QPointF c = surface.center();
    struct Cube {
        qreal dx, dy, angle;
    };
    p.save();
    p.setClipPath(s.inside);
    p.setPen(QPen(QColor(255, 255, 255, 200), 0.45 * U));
    p.setBrush(QColor(255, 255, 255, 85));
    for (const Cube &k : {Cube{-0.38, -0.25, 12}, Cube{0.34, 0.3, -9}, Cube{-0.06, 1.15, 22}}) {
        p.save();
        p.translate(c.x() + k.dx * half, c.y() + k.dy * cube);
        p.rotate(k.angle);
        p.drawRoundedRect(QRectF(-cube / 2, -cube / 2, cube, cube), cube * 0.18, cube * 0.18);
        p.restore();
    }
    p.restore();
}

void paintCrushedIce(QPainter &p, const GlassShape &s)
{
    QRandomGenerator rng(7);
    p.save();
    p.setPen(QPen(QColor(0xa9, 0xbc, 0xc9), 0.35 * U));
    p.setBrush(QColor(250, 252, 255));
    const QRectF r = s.rim;
    for (int i = 0; i < 18; ++i) {
        const qreal t = rng.bounded(1.0);
        const qreal x = r.left() + 0.12 * r.width() + t * 0.76 * r.width();
        const qreal hump = std::sin(t * M_PI) * 5 * U;
        const qreal y = r.top() + 0.5 * U - rng.bounded(1.0) * hump; // the drink shows in front
        const qreal rad = (1.6 + rng.bounded(1.4)) * U;
        p.drawEllipse(QPointF(x, y), rad, rad * 0.85);
    }
    p.restore();
}

void paintHighlight(QPainter &p, const GlassShape &s)
{
    const QPainterPath &along = opaque(s) ? s.body : s.inside;
    const QRectF r = s.inside.boundingRect();
    const qreal top = s.rim.bottom() + 0.1 * r.height();
    const qreal bottom = s.rim.center().y() + 0.55 * (r.bottom() - s.rim.center().y());
    QPainterPath line;
    for (int i = 0; i <= 8; ++i) {
        const qreal y = top + (bottom - top) * i / 8;
        const QPointF point(sliceAt(along, y).left() + 2.6 * U, y);
        if (i == 0)
            line.moveTo(point);
        else
            line.lineTo(point);
    }
    p.setPen(QPen(QColor(255, 255, 255, opaque(s) ? 120 : 170), 1.3 * U, Qt::SolidLine, Qt::RoundCap,
                  Qt::RoundJoin));
    p.setBrush(Qt::NoBrush);
    p.drawPath(line);
}

// Behind the drink's garnish: the vessel's fill, its opening, the drink and its ice.
void paintVesselBack(QPainter &p, const GlassShape &s, const QColor *drink)
{
    p.fillPath(s.body, materialBrush(s));
    p.setPen(Qt::NoPen);
    p.setBrush(openingColour(s));
    p.drawEllipse(s.rim);
    if (drink) {
        const QRectF surface = drinkSurface(s);
        paintLiquid(p, s, *drink, surface);
        if (s.ice && s.material == GlassShape::Glass)
            paintIce(p, s, surface);
    }
}

// In front of it: details, shine, outline and rim.
void paintVesselFront(QPainter &p, const GlassShape &s, qreal lineWidth)
{
    p.save();
    p.setClipPath(s.body);
    p.setPen(QPen(QColor(Ink.red(), Ink.green(), Ink.blue(), 140), 0.6 * lineWidth));
    p.setBrush(Qt::NoBrush);
    for (const QPainterPath &line : s.lines)
        p.drawPath(line);
    if (!s.decoration.isEmpty() && !s.dashed) {
        p.setPen(QPen(QColor(0x3b, 0x22, 0x12), 0.9 * lineWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        p.drawPath(s.decoration);
    }
    p.restore();
    paintHighlight(p, s);

    QPen outline(Ink, lineWidth, s.dashed ? Qt::DashLine : Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    p.setPen(outline);
    p.setBrush(Qt::NoBrush);
    p.drawPath(s.body);
    outline.setWidthF(0.75 * lineWidth);
    p.setPen(outline);
    p.drawEllipse(s.rim);
    if (s.dashed) {
        p.setPen(QPen(Ink, 1.6 * lineWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        p.drawPath(s.decoration);
    }
}

} // namespace

namespace PicturePainter {

QImage glassPicture(GlassKind kind, QSize size)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    const qreal scale = std::min(size.width() / 64.0, size.height() / 96.0);
    p.translate((size.width() - 64 * scale) / 2, (size.height() - 96 * scale) / 2);
    p.scale(scale / U, scale / U);
    // Lines stay about 1.5 pixels wide whatever the size.
    const GlassShape s = glassShape(kind);
    paintVesselBack(p, s, nullptr);
    paintVesselFront(p, s, std::max(1.5 / scale, 0.6) * U);
    p.end();
    return image.convertToFormat(QImage::Format_ARGB32);
}

QImage drinkPicture(GlassKind kind, const QColor &drink, const QString &garnish)
{
    const QSize size = DrinkPictureSize;
    QImage image(size, QImage::Format_RGB32);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    const qreal counter = 232;
    QLinearGradient wall(0, 0, 0, counter);
    wall.setColorAt(0, QColor(0xfb, 0xf7, 0xf0));
    wall.setColorAt(1, QColor(0xe8, 0xd9, 0xc6));
    p.fillRect(QRectF(0, 0, size.width(), counter), wall);
    QRadialGradient glow(QPointF(100, 120), 105);
    glow.setColorAt(0, QColor(255, 255, 255, 190));
    glow.setColorAt(1, QColor(255, 255, 255, 0));
    p.fillRect(QRectF(0, 0, size.width(), counter), glow);
    QLinearGradient wood(0, counter, 0, size.height());
    wood.setColorAt(0, QColor(0xa4, 0x70, 0x48));
    wood.setColorAt(1, QColor(0x6a, 0x41, 0x24));
    p.fillRect(QRectF(0, counter, size.width(), size.height() - counter), wood);
    p.fillRect(QRectF(0, counter, size.width(), 1.5), QColor(0xc9, 0x9f, 0x78));

    const GlassShape s = glassShape(kind);
    const qreal scale = 2.25;
    const QRectF base = s.body.boundingRect();
    QRadialGradient shadow(QPointF(100, counter + 3), base.width() * scale / U * 0.6);
    shadow.setColorAt(0, QColor(0, 0, 0, 90));
    shadow.setColorAt(1, QColor(0, 0, 0, 0));
    p.save();
    p.translate(100, counter + 3);
    p.scale(1, 0.12);
    p.translate(-100, -(counter + 3));
    p.fillRect(QRectF(0, counter - 100, size.width(), 200), shadow);
    p.restore();

    p.translate(100 - 32 * scale, counter + 2 - base.bottom() / U * scale);
    p.scale(scale / U, scale / U);
    paintVesselBack(p, s, &drink);
    paintGarnish(p, s, kind, garnish, GarnishLayer::Inside);
    paintVesselFront(p, s, 1.1 * U);
    if (s.material == GlassShape::Metal)
        paintCrushedIce(p, s);
    paintGarnish(p, s, kind, garnish, GarnishLayer::Outside);
    p.end();
    return image;
}

} // namespace PicturePainter
