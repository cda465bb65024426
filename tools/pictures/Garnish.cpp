#include "Garnish.h"

#include <QPainter>
#include <QRandomGenerator>
#include <cmath>

namespace {

constexpr qreal U = GlassShape::Unit;

bool mentions(const QString &garnish, std::initializer_list<const char *> words)
{
    for (const char *w : words) {
        if (garnish.contains(QLatin1String(w), Qt::CaseInsensitive))
            return true;
    }
    return false;
}

struct Fruit {
    QColor peel, flesh;
};

// Citrus and the like, by the first fruit named.
bool fruitOf(const QString &garnish, Fruit *fruit)
{
    struct Named {
        const char *word;
        Fruit fruit;
    };
    static const Named fruits[] = {
        {"lime", {QColor(0x5b, 0x9a, 0x3c), QColor(0xcd, 0xe8, 0xa4)}},
        {"lemon", {QColor(0xf0, 0xc4, 0x1b), QColor(0xff, 0xf2, 0xa8)}},
        {"grapefruit", {QColor(0xe8, 0x8a, 0x6c), QColor(0xfb, 0xc3, 0xb0)}},
        {"orange", {QColor(0xee, 0x86, 0x1e), QColor(0xff, 0xc7, 0x84)}},
        {"cucumber", {QColor(0x3c, 0x74, 0x34), QColor(0xe2, 0xf1, 0xc8)}},
    };
    for (const Named &n : fruits) {
        if (garnish.contains(QLatin1String(n.word), Qt::CaseInsensitive)) {
            *fruit = n.fruit;
            return true;
        }
    }
    return false;
}

// Where things sit on the rim: the first at the right end, each next one further left.
class RimPlaces {
  public:
    explicit RimPlaces(const QRectF &rim) : m_rim(rim) {}
    QPointF next(qreal width)
    {
        const QPointF at(m_rim.right() - m_used - 0.2 * width, m_rim.center().y());
        m_used += width;
        return at;
    }

  private:
    QRectF m_rim;
    qreal m_used = 0;
};

void wheel(QPainter &p, QPointF centre, const Fruit &f, bool half)
{
    const qreal r = 6.2 * U;
    p.save();
    p.translate(centre.x(), centre.y() - (half ? 0 : 2.5 * U));
    if (half)
        p.rotate(-25);
    const QRectF outer(-r, -r, 2 * r, 2 * r);
    const QRectF inner = outer.adjusted(0.9 * U, 0.9 * U, -0.9 * U, -0.9 * U);
    const int start = half ? 180 * 16 : 0;
    const int span = half ? 180 * 16 : 360 * 16;
    p.setPen(QPen(f.peel.darker(130), 0.5 * U));
    p.setBrush(f.peel);
    p.drawPie(outer, start, span);
    p.setPen(Qt::NoPen);
    p.setBrush(f.flesh);
    p.drawPie(inner, start, span);
    p.setPen(QPen(f.peel.lighter(115), 0.35 * U));
    const int spokes = half ? 4 : 8;
    for (int i = 0; i <= spokes; ++i) {
        const qreal a = (half ? M_PI : 0) + i * (half ? M_PI : 2 * M_PI) / spokes;
        p.drawLine(QPointF(0, 0), QPointF(std::cos(a) * inner.width() / 2, -std::sin(a) * inner.width() / 2));
    }
    p.restore();
}

void twist(QPainter &p, QPointF rim, const Fruit &f)
{
    QPainterPath peel(rim + QPointF(-4 * U, -1.5 * U));
    peel.cubicTo(rim + QPointF(4 * U, -4 * U), rim + QPointF(5 * U, 4 * U), rim + QPointF(1.5 * U, 7 * U));
    peel.cubicTo(rim + QPointF(-1 * U, 9 * U), rim + QPointF(5 * U, 12 * U), rim + QPointF(3 * U, 16 * U));
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(f.peel.darker(125), 2.6 * U, Qt::SolidLine, Qt::RoundCap));
    p.drawPath(peel);
    p.setPen(QPen(f.peel, 1.6 * U, Qt::SolidLine, Qt::RoundCap));
    p.drawPath(peel);
}

void cherry(QPainter &p, QPointF rim, const QColor &colour, bool stem)
{
    const QPointF c = rim + QPointF(0, -2.8 * U);
    if (stem) {
        QPainterPath s(c + QPointF(0, -2.5 * U));
        s.quadTo(c + QPointF(0.5 * U, -8 * U), c + QPointF(-4 * U, -11 * U));
        p.setBrush(Qt::NoBrush);
        p.setPen(QPen(QColor(0x5b, 0x3a, 0x1a), 0.6 * U, Qt::SolidLine, Qt::RoundCap));
        p.drawPath(s);
    }
    QRadialGradient g(c + QPointF(-1 * U, -1 * U), 3.6 * U);
    g.setColorAt(0, colour.lighter(150));
    g.setColorAt(1, colour);
    p.setPen(QPen(colour.darker(140), 0.4 * U));
    p.setBrush(g);
    p.drawEllipse(c, 3.2 * U, 3 * U);
}

void mint(QPainter &p, const QRectF &rim)
{
    const QPointF base(rim.left() + 0.38 * rim.width(), rim.center().y() - 0.5 * U);
    for (qreal angle : {-62.0, -28.0, 8.0, -45.0, -10.0}) {
        p.save();
        p.translate(base);
        p.rotate(angle - 90);
        const qreal length = (angle == -45.0 || angle == -10.0) ? 6.5 * U : 8.5 * U;
        const QRectF leaf(0.6 * U, -2.2 * U, length, 4.4 * U);
        p.setPen(QPen(QColor(0x2e, 0x6b, 0x2a), 0.35 * U));
        p.setBrush(QColor(0x4c, 0xa0, 0x45));
        p.drawEllipse(leaf);
        p.drawLine(QPointF(leaf.left(), 0), QPointF(leaf.right() - 0.8 * U, 0));
        p.restore();
    }
}

void crystalRim(QPainter &p, const QRectF &rim)
{
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(QColor(0xb8, 0xbf, 0xc6), 1.9 * U, Qt::DotLine, Qt::RoundCap));
    p.drawEllipse(rim);
    p.setPen(QPen(Qt::white, 1.4 * U, Qt::DotLine, Qt::RoundCap));
    p.drawEllipse(rim);
}

void cream(QPainter &p, const QRectF &rim)
{
    QPainterPath dome(QPointF(rim.left() + 0.6 * U, rim.center().y()));
    dome.cubicTo(rim.left() - 0.5 * U, rim.top() - 7 * U, rim.right() + 0.5 * U, rim.top() - 7 * U,
                 rim.right() - 0.6 * U, rim.center().y());
    dome.cubicTo(rim.right() - 3 * U, rim.bottom() + 0.5 * U, rim.left() + 3 * U, rim.bottom() + 0.5 * U,
                 rim.left() + 0.6 * U, rim.center().y());
    p.setPen(QPen(QColor(0xd8, 0xca, 0xb2), 0.5 * U));
    p.setBrush(QColor(0xff, 0xfb, 0xf2));
    p.drawPath(dome);
}

void dusting(QPainter &p, const QRectF &surface)
{
    QRandomGenerator rng(11);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(0x6b, 0x3e, 0x1f));
    for (int i = 0; i < 18; ++i) {
        const qreal a = rng.bounded(2 * M_PI), d = std::sqrt(rng.bounded(1.0)) * 0.8;
        const QPointF at = surface.center() + QPointF(std::cos(a) * d * surface.width() / 2,
                                                      std::sin(a) * d * surface.height() / 2);
        p.drawEllipse(at, 0.45 * U, 0.35 * U);
    }
}

void pineapple(QPainter &p, QPointF rim)
{
    p.save();
    p.translate(rim + QPointF(0, -1 * U));
    p.setPen(QPen(QColor(0x2f, 0x6e, 0x2c), 0.35 * U));
    p.setBrush(QColor(0x4f, 0x9a, 0x3f));
    for (qreal a : {-30.0, -10.0, 12.0}) {
        p.save();
        p.translate(0, -6 * U);
        p.rotate(a);
        p.drawEllipse(QRectF(-0.9 * U, -7 * U, 1.8 * U, 7 * U));
        p.restore();
    }
    p.setPen(QPen(QColor(0xb0, 0x80, 0x28), 0.5 * U));
    p.setBrush(QColor(0xf7, 0xd5, 0x48));
    p.drawPie(QRectF(-7 * U, -7 * U, 14 * U, 14 * U), 60 * 16, 60 * 16);
    p.restore();
}

void umbrella(QPainter &p, const QRectF &rim)
{
    const QPointF foot(rim.center().x() + 0.1 * rim.width(), rim.center().y() + 4 * U);
    // Tall glasses reach the top of the picture: the umbrella must stay inside it.
    const QPointF top(rim.center().x() - 0.25 * rim.width() - 3 * U, std::max(rim.top() - 18 * U, -1 * U));
    p.setPen(QPen(QColor(0xc8, 0xa1, 0x65), 0.6 * U, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(foot, top);
    p.save();
    p.translate(top);
    p.rotate(-18);
    QPainterPath canopy(QPointF(-10 * U, 3 * U));
    canopy.quadTo(QPointF(0, -9 * U), QPointF(10 * U, 3 * U));
    canopy.quadTo(QPointF(0, 1 * U), QPointF(-10 * U, 3 * U));
    p.setPen(QPen(QColor(0xa8, 0x2d, 0x5c), 0.4 * U));
    p.setBrush(QColor(0xe8, 0x57, 0x8a));
    p.drawPath(canopy);
    p.restore();
}

// A pick from the bottom of the drink to above the rim, with olives or onions on it.
void pick(QPainter &p, const GlassShape &s, const QRectF &surface, const QColor &fruit)
{
    const QPointF low(surface.center().x() - 0.15 * surface.width(), surface.center().y() + 5 * U);
    const QPointF high(s.rim.right() - 0.15 * s.rim.width(), s.rim.top() - 9 * U);
    p.setPen(QPen(QColor(0xc8, 0xa1, 0x65), 0.6 * U, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(low, high);
    const qreal angle = std::atan2(high.y() - low.y(), high.x() - low.x()) * 180 / M_PI;
    for (qreal t : {0.12, 0.32}) {
        p.save();
        p.translate(low + t * (high - low));
        p.rotate(angle);
        p.setPen(QPen(fruit.darker(140), 0.4 * U));
        p.setBrush(fruit);
        p.drawEllipse(QPointF(0, 0), 2.4 * U, 1.9 * U);
        if (fruit.green() > fruit.red()) { // an olive's pimento
            p.setPen(Qt::NoPen);
            p.setBrush(QColor(0xc6, 0x2d, 0x2d));
            p.drawEllipse(QPointF(1.5 * U, 0), 0.8 * U, 0.8 * U);
        }
        p.restore();
    }
}

void stick(QPainter &p, const GlassShape &s, const QRectF &surface, const QColor &colour, qreal width)
{
    const QPointF low(surface.center().x() + 0.2 * surface.width(), s.inside.boundingRect().bottom() - 5 * U);
    const QPointF high(s.rim.right() + 3 * U, s.rim.top() - 16 * U);
    p.setPen(QPen(colour, width, Qt::SolidLine, Qt::FlatCap));
    p.drawLine(low, high);
    p.setPen(QPen(colour.lighter(150), width / 3, Qt::SolidLine, Qt::FlatCap));
    p.drawLine(low, high);
}

bool tall(GlassKind kind)
{
    return kind == GlassKind::Collins || kind == GlassKind::Highball || kind == GlassKind::Hurricane ||
           kind == GlassKind::TikiMug || kind == GlassKind::CopperMug || kind == GlassKind::JulepCup;
}

void paintInside(QPainter &p, const GlassShape &s, GlassKind kind, const QString &garnish)
{
    const QRectF surface = drinkSurface(s);
    p.save();
    if (s.material != GlassShape::Glass) {
        // Seen only above the rim and through the opening.
        QPainterPath visible;
        visible.addRect(QRectF(-100 * U, -100 * U, 300 * U, 300 * U));
        QPainterPath opening;
        opening.addEllipse(s.rim);
        p.setClipPath(visible.subtracted(s.body).united(opening));
    }
    if (mentions(garnish, {"olive"}))
        pick(p, s, surface, QColor(0x7a, 0x9a, 0x2e));
    else if (mentions(garnish, {"onion"}))
        pick(p, s, surface, QColor(0xf1, 0xec, 0xdc));
    if (mentions(garnish, {"celery"}))
        stick(p, s, surface, QColor(0x8b, 0xc3, 0x4a), 3 * U);
    else if (mentions(garnish, {"cinnamon stick"}))
        stick(p, s, surface, QColor(0x8b, 0x55, 0x2c), 2.2 * U);
    else if (tall(kind))
        stick(p, s, surface, QColor(0xd9, 0x44, 0x44), 2 * U);
    p.restore();
}

void paintOutside(QPainter &p, const GlassShape &s, const QString &garnish)
{
    if (mentions(garnish, {"salt", "sugar"}))
        crystalRim(p, s.rim);
    if (mentions(garnish, {"whipped", "cream"}))
        cream(p, s.rim);
    if (mentions(garnish, {"nutmeg", "cocoa", "grated", "dust", "powder", "shaved"}) ||
        (mentions(garnish, {"cinnamon"}) && !mentions(garnish, {"stick"})))
        dusting(p, drinkSurface(s));
    if (mentions(garnish, {"mint"}))
        mint(p, s.rim);
    if (mentions(garnish, {"umbrella", "parasol"}))
        umbrella(p, s.rim);

    RimPlaces places(s.rim);
    Fruit fruit;
    if (fruitOf(garnish, &fruit)) {
        if (mentions(garnish, {"twist", "peel", "zest", "spiral"}))
            twist(p, places.next(9 * U), fruit);
        else
            wheel(p, places.next(11 * U), fruit, mentions(garnish, {"wedge"}));
    }
    if (mentions(garnish, {"pineapple"}))
        pineapple(p, places.next(10 * U));
    if (mentions(garnish, {"cherry", "cherries"}))
        cherry(p, places.next(8 * U), QColor(0xc4, 0x12, 0x2c), true);
    else if (mentions(garnish, {"berry", "berries"}))
        cherry(p, places.next(8 * U), QColor(0x6b, 0x1b, 0x4a), false);
}

} // namespace

void paintGarnish(QPainter &p, const GlassShape &shape, GlassKind kind, const QString &garnish,
                  GarnishLayer layer)
{
    p.save();
    if (layer == GarnishLayer::Inside)
        paintInside(p, shape, kind, garnish);
    else
        paintOutside(p, shape, garnish);
    p.restore();
}
