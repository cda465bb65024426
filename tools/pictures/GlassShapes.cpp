#include "GlassShapes.h"

#include <QPainterPathStroker>
#include <array>
#include <initializer_list>

namespace {

constexpr qreal U = GlassShape::Unit;
constexpr qreal CentreX = 32;

QPointF at(qreal x, qreal y)
{
    return QPointF((CentreX + x) * U, y * U);
}

// The right half of a symmetric outline, from the rim downwards; path() mirrors it.
class Profile {
  public:
    Profile(qreal x, qreal y) : m_start(x, y) {}
    Profile &line(qreal x, qreal y)
    {
        m_segments.push_back({false, {}, {}, QPointF(x, y)});
        return *this;
    }
    Profile &curve(qreal c1x, qreal c1y, qreal c2x, qreal c2y, qreal x, qreal y)
    {
        m_segments.push_back({true, QPointF(c1x, c1y), QPointF(c2x, c2y), QPointF(x, y)});
        return *this;
    }
    QPainterPath path() const
    {
        QPainterPath p(at(m_start.x(), m_start.y()));
        for (const Segment &s : m_segments) {
            if (s.curved)
                p.cubicTo(at(s.c1.x(), s.c1.y()), at(s.c2.x(), s.c2.y()), at(s.to.x(), s.to.y()));
            else
                p.lineTo(at(s.to.x(), s.to.y()));
        }
        // Back up the left side: each segment reversed and mirrored.
        for (int i = int(m_segments.size()) - 1; i >= 0; --i) {
            const Segment &s = m_segments[i];
            const QPointF from = i > 0 ? m_segments[i - 1].to : m_start;
            if (i == int(m_segments.size()) - 1 && s.to.x() != 0)
                p.lineTo(at(-s.to.x(), s.to.y()));
            if (s.curved)
                p.cubicTo(at(-s.c2.x(), s.c2.y()), at(-s.c1.x(), s.c1.y()), at(-from.x(), from.y()));
            else
                p.lineTo(at(-from.x(), from.y()));
        }
        p.closeSubpath();
        return p;
    }

  private:
    struct Segment {
        bool curved;
        QPointF c1, c2, to;
    };
    QPointF m_start;
    QList<Segment> m_segments;
};

QPainterPath ellipse(qreal cx, qreal cy, qreal rx, qreal ry)
{
    QPainterPath p;
    p.addEllipse(at(cx, cy), rx * U, ry * U);
    return p;
}

QPainterPath stem(qreal top, qreal bottom, qreal half = 1.3)
{
    QPainterPath p;
    p.addRect(QRectF(at(-half, top), at(half, bottom)));
    return p;
}

QPainterPath foot(qreal y, qreal half, qreal ry = 2.4)
{
    return ellipse(0, y, half, ry);
}

// A handle as a band of the given width along a curve from the body and back.
QPainterPath handle(QPointF from, QPointF c1, QPointF c2, QPointF to, qreal width)
{
    QPainterPath centre(at(from.x(), from.y()));
    centre.cubicTo(at(c1.x(), c1.y()), at(c2.x(), c2.y()), at(to.x(), to.y()));
    QPainterPathStroker stroker;
    stroker.setWidth(width * U);
    stroker.setCapStyle(Qt::FlatCap);
    return stroker.createStroke(centre).simplified();
}

QPainterPath segment(QPointF a, QPointF b)
{
    QPainterPath p(at(a.x(), a.y()));
    p.lineTo(at(b.x(), b.y()));
    return p;
}

// The line where a thick glass base meets the drink.
QPainterPath baseLine(qreal half, qreal y)
{
    QPainterPath p(at(-half, y));
    p.quadTo(at(0, y + 1.2), at(half, y));
    return p;
}

// The outline united with its rim ellipse, so that the back of the rim is part of the
// silhouette.
GlassShape make(const QPainterPath &outline, qreal rimHalf, qreal rimY,
                std::initializer_list<QPainterPath> parts, const Profile &inside, qreal fill)
{
    GlassShape s;
    const qreal ry = qBound(1.2, rimHalf * 0.2, 3.6);
    s.rim = QRectF(at(-rimHalf, rimY - ry), at(rimHalf, rimY + ry));
    QPainterPath body = outline;
    QPainterPath rim;
    rim.addEllipse(s.rim);
    body = body.united(rim);
    for (const QPainterPath &part : parts)
        body = body.united(part);
    s.body = body.simplified();
    s.inside = inside.path();
    s.fill = fill;
    return s;
}

GlassShape tumbler(qreal rimHalf, qreal rimY, qreal bottomHalf, qreal insideBottom, qreal fill, bool ice)
{
    const Profile outer = Profile(rimHalf, rimY)
                              .line(bottomHalf, 88)
                              .curve(bottomHalf - 0.1, 90.5, bottomHalf - 1, 91, bottomHalf - 3, 91)
                              .line(0, 91);
    const qreal wall = 1.2;
    const qreal insideHalf = bottomHalf - wall + (rimHalf - bottomHalf) * (88 - insideBottom) / (88 - rimY);
    GlassShape s =
        make(outer.path(), rimHalf, rimY, {},
             Profile(rimHalf - wall, rimY + 1).line(insideHalf, insideBottom).line(0, insideBottom), fill);
    s.lines << baseLine(insideHalf, insideBottom);
    s.ice = ice;
    return s;
}

GlassShape cocktail()
{
    return make(Profile(27, 14).line(1.6, 45.5).line(0, 46).path(), 27, 14, {stem(45, 88), foot(89, 15)},
                Profile(25, 15).line(0, 43.5), 0.8);
}

GlassShape coupe()
{
    return make(Profile(25, 22).curve(25, 34, 18, 42, 3, 43).line(0, 43).path(), 25, 22,
                {stem(42, 88), foot(89, 14)}, Profile(23.6, 23).curve(23.6, 33, 17, 40, 0, 40.6), 0.75);
}

GlassShape nickAndNora()
{
    return make(Profile(16, 16).curve(17, 30, 14, 44, 2, 47).line(0, 47).path(), 16, 16,
                {stem(46, 88), foot(89, 12)}, Profile(14.8, 17).curve(15.8, 30, 13, 42, 0, 44.8), 0.7);
}

GlassShape hurricane()
{
    const Profile outer = Profile(15, 6)
                              .curve(13, 18, 9, 28, 9.5, 36)
                              .curve(10, 46, 18, 54, 17, 64)
                              .curve(16, 72, 8, 77, 2, 78)
                              .line(0, 78);
    const Profile inside = Profile(13.8, 7)
                               .curve(11.8, 18, 7.8, 28, 8.3, 36)
                               .curve(8.8, 46, 16.8, 54, 15.8, 64)
                               .curve(14.8, 71, 7, 75.5, 0, 76);
    return make(outer.path(), 15, 6, {stem(77, 86, 2), foot(88.5, 14, 2.6)}, inside, 0.85);
}

GlassShape margarita()
{
    const Profile outer =
        Profile(28, 14).curve(27.5, 21, 20, 25, 12, 26).curve(9, 27, 11, 42, 2, 46).line(0, 46);
    const Profile inside =
        Profile(26.5, 15).curve(26, 20.5, 19, 24, 11, 24.8).curve(7.8, 26, 9.8, 41, 0, 43.8);
    return make(outer.path(), 28, 14, {stem(45, 88), foot(89, 14)}, inside, 0.9);
}

GlassShape flute()
{
    return make(Profile(9, 6).curve(10, 20, 10, 38, 3, 51).line(0, 52).path(), 9, 6,
                {stem(50, 88), foot(89, 12)}, Profile(7.8, 7).curve(8.8, 20, 8.8, 37, 0, 49.6), 0.85);
}

GlassShape wine()
{
    const Profile outer = Profile(14, 12).curve(17, 24, 20, 40, 9, 49).curve(6, 51.5, 3, 52, 0, 52);
    const Profile inside =
        Profile(12.8, 13).curve(15.8, 24, 18.6, 39, 8.3, 47.6).curve(5.5, 50, 3, 50.5, 0, 50.5);
    return make(outer.path(), 14, 12, {stem(51, 88), foot(89, 15)}, inside, 0.45);
}

GlassShape snifter()
{
    const Profile outer =
        Profile(11, 24).curve(15, 28, 25, 38, 24, 52).curve(23, 64, 12, 70, 3, 71).line(0, 71);
    const Profile inside =
        Profile(10, 25).curve(14, 29, 23.6, 38.5, 22.6, 52).curve(21.6, 63, 11.5, 68.5, 0, 69.5);
    return make(outer.path(), 11, 24, {stem(70, 84, 1.8), foot(86.5, 14, 2.6)}, inside, 0.3);
}

GlassShape cordial()
{
    return make(Profile(9, 40).curve(9.5, 48, 8, 56, 2, 60).line(0, 60).path(), 9, 40,
                {stem(59, 88, 1.1), foot(89, 10, 2)}, Profile(7.8, 41).curve(8.3, 48, 7, 54.5, 0, 57.6),
                0.75);
}

GlassShape beerMug()
{
    GlassShape s = tumbler(16, 18, 16, 82, 0.8, false);
    const QPainterPath grip = handle({15.5, 30}, {31, 28}, {31, 76}, {15.5, 74}, 5);
    s.body = s.body.united(grip).simplified();
    for (qreal x : {-8.0, 0.0, 8.0})
        s.lines << segment({x, 26}, {x, 80});
    return s;
}

GlassShape pilsner()
{
    const Profile outer = Profile(15, 4)
                              .curve(14, 30, 7, 60, 6, 74)
                              .line(6, 80)
                              .curve(6, 84, 11, 86, 11, 89)
                              .curve(11, 90.5, 10, 91, 8, 91)
                              .line(0, 91);
    GlassShape s =
        make(outer.path(), 15, 4, {}, Profile(13.8, 5).curve(12.8, 30, 5.8, 60, 4.8, 73).line(0, 73), 0.85);
    s.lines << baseLine(4.8, 73);
    return s;
}

GlassShape irishCoffee()
{
    const Profile outer = Profile(14, 16).line(13.5, 56).curve(13.5, 64, 8, 68, 2, 68).line(0, 68);
    const Profile inside = Profile(12.8, 17).line(12.3, 56).curve(12.3, 62.5, 7.5, 66.5, 0, 66.5);
    const QPainterPath grip = handle({13, 24}, {25, 23}, {25, 49}, {12.8, 50}, 3.6);
    return make(outer.path(), 14, 16, {stem(67, 85, 1.8), foot(87.5, 13, 2.6), grip}, inside, 0.8);
}

GlassShape copperMug()
{
    const Profile outer =
        Profile(18, 26).curve(19.6, 46, 19.6, 70, 18.5, 88).curve(18.4, 90.5, 17.5, 91, 15, 91).line(0, 91);
    const QPainterPath grip = handle({18, 36}, {31, 35}, {31, 71}, {18, 70}, 5);
    GlassShape s = make(outer.path(), 18, 26, {grip}, Profile(17, 27).line(17, 86).line(0, 86), 0.85);
    s.material = GlassShape::Copper;
    s.lines << segment({-18.8, 31}, {18.8, 31}) << segment({-19, 84}, {19, 84});
    s.lines << ellipse(28.6, 44, 0.9, 0.9) << ellipse(28.6, 62, 0.9, 0.9);
    return s;
}

GlassShape tikiMug()
{
    const Profile outer =
        Profile(14, 10).curve(15, 40, 17, 70, 16, 88).curve(16, 90.5, 15, 91, 13, 91).line(0, 91);
    GlassShape s = make(outer.path(), 14, 10, {}, Profile(13, 11).line(14.5, 86).line(0, 86), 0.85);
    s.material = GlassShape::Ceramic;
    QPainterPath face;
    for (qreal side : {-1.0, 1.0}) {
        face.moveTo(at(side * 12, 30));
        face.quadTo(at(side * 7, 26), at(side * 2, 31)); // brow
        face.addEllipse(at(side * 6.5, 36), 2.6 * U, 2.2 * U);
    }
    face.moveTo(at(-2, 34)); // nose
    face.quadTo(at(-5, 48), at(0, 50));
    face.quadTo(at(5, 48), at(2, 34));
    face.addRoundedRect(QRectF(at(-9, 58), at(9, 70)), 3 * U, 3 * U); // mouth
    for (qreal x : {-4.5, 0.0, 4.5})
        face.addPath(segment({x, 58}, {x, 70}));
    face.addPath(segment({-9, 64}, {9, 64}));
    s.decoration = face;
    return s;
}

GlassShape julepCup()
{
    const Profile outer = Profile(16, 28).line(13, 84).line(13.6, 86).line(13.6, 91).line(0, 91);
    GlassShape s = make(outer.path(), 16, 28, {}, Profile(15, 29).line(12.2, 84).line(0, 84), 0.9);
    s.material = GlassShape::Metal;
    s.lines << segment({-15.7, 32}, {15.7, 32}) << segment({-13.4, 86}, {13.4, 86});
    s.ice = true;
    return s;
}

GlassShape sour()
{
    const Profile outer = Profile(15, 30).line(13, 48).curve(12, 56, 8, 58, 2, 58).line(0, 58);
    const Profile inside = Profile(13.8, 31).line(11.8, 48).curve(11, 54.5, 7.5, 56.5, 0, 56.5);
    return make(outer.path(), 15, 30, {stem(57, 88), foot(89, 12)}, inside, 0.75);
}

GlassShape punchCup()
{
    const Profile outer =
        Profile(18, 60).curve(18, 76, 15, 86, 10, 87).line(10, 88.5).line(11, 89.5).line(11, 91).line(0, 91);
    const QPainterPath grip = handle({17.4, 64}, {27, 63}, {27, 81}, {15, 82}, 3.6);
    return make(outer.path(), 18, 60, {grip}, Profile(16.8, 61).curve(16.8, 75, 14, 84.8, 0, 85.5), 0.75);
}

GlassShape unknown()
{
    GlassShape s = tumbler(17, 30, 15, 84, 0.7, false);
    s.lines.clear();
    s.dashed = true;
    QPainterPath mark(at(-5.5, 50));
    mark.cubicTo(at(-5.5, 42), at(5.5, 42), at(5.5, 50));
    mark.cubicTo(at(5.5, 56), at(0, 56), at(0, 63));
    mark.addEllipse(at(0, 69), 1.3 * U, 1.3 * U);
    s.decoration = mark;
    return s;
}

bool hasAny(const QString &name, const std::array<const char *, 6> &words)
{
    for (const char *w : words) {
        if (w && name.contains(QLatin1String(w), Qt::CaseInsensitive))
            return true;
    }
    return false;
}

} // namespace

GlassKind glassKindForName(const QString &name)
{
    // Most specific words first: "Irish coffee mug" is no beer mug, "double old-fashioned"
    // no old-fashioned, "champagne coupe" no flute.
    struct Rule {
        std::array<const char *, 6> words;
        GlassKind kind;
    };
    static const Rule rules[] = {
        {{"unknown"}, GlassKind::Unknown},
        {{"nick", "nora"}, GlassKind::NickAndNora},
        {{"double old", "double-old", "double rocks"}, GlassKind::DoubleOldFashioned},
        {{"old fashion", "old-fashion", "oldfashion", "rocks", "lowball", "tumbler"},
         GlassKind::OldFashioned},
        {{"irish", "coffee", "toddy"}, GlassKind::IrishCoffee},
        {{"copper", "mule"}, GlassKind::CopperMug},
        {{"tiki"}, GlassKind::TikiMug},
        {{"julep"}, GlassKind::JulepCup},
        {{"punch", "teacup", "tea cup"}, GlassKind::PunchCup},
        {{"coupe", "saucer"}, GlassKind::Coupe},
        {{"flute", "champagne"}, GlassKind::Flute},
        {{"margarita"}, GlassKind::Margarita},
        {{"hurricane", "poco"}, GlassKind::Hurricane},
        {{"snifter", "brandy", "balloon", "glencairn"}, GlassKind::Snifter},
        {{"cordial", "pony", "liqueur", "pousse"}, GlassKind::Cordial},
        {{"shot", "shooter"}, GlassKind::Shot},
        {{"pilsner", "pilsener"}, GlassKind::Pilsner},
        {{"mug", "stein", "tankard"}, GlassKind::BeerMug},
        {{"pint", "beer"}, GlassKind::Pint},
        {{"collins", "zombie", "chimney", "cooler"}, GlassKind::Collins},
        {{"highball", "jar", "fizz", "delmonico"}, GlassKind::Highball},
        {{"sour"}, GlassKind::Sour},
        {{"wine", "goblet", "tulip"}, GlassKind::Wine},
        {{"cocktail", "martini"}, GlassKind::Cocktail},
    };
    for (const Rule &rule : rules) {
        if (hasAny(name, rule.words))
            return rule.kind;
    }
    return GlassKind::Unknown;
}

GlassShape glassShape(GlassKind kind)
{
    switch (kind) {
    case GlassKind::Cocktail:
        return cocktail();
    case GlassKind::Coupe:
        return coupe();
    case GlassKind::NickAndNora:
        return nickAndNora();
    case GlassKind::OldFashioned:
        return tumbler(21, 46, 19.5, 83, 0.7, true);
    case GlassKind::DoubleOldFashioned:
        return tumbler(25, 36, 23, 83, 0.7, true);
    case GlassKind::Highball:
        return tumbler(15.5, 18, 14.5, 84, 0.8, true);
    case GlassKind::Collins:
        return tumbler(12, 6, 12, 85, 0.85, true);
    case GlassKind::Hurricane:
        return hurricane();
    case GlassKind::Margarita:
        return margarita();
    case GlassKind::Flute:
        return flute();
    case GlassKind::Wine:
        return wine();
    case GlassKind::Snifter:
        return snifter();
    case GlassKind::Shot:
        return tumbler(12, 56, 10, 82, 0.8, false);
    case GlassKind::Cordial:
        return cordial();
    case GlassKind::Pint:
        return tumbler(17, 8, 13.5, 85, 0.85, false);
    case GlassKind::BeerMug:
        return beerMug();
    case GlassKind::Pilsner:
        return pilsner();
    case GlassKind::IrishCoffee:
        return irishCoffee();
    case GlassKind::CopperMug:
        return copperMug();
    case GlassKind::TikiMug:
        return tikiMug();
    case GlassKind::JulepCup:
        return julepCup();
    case GlassKind::Sour:
        return sour();
    case GlassKind::PunchCup:
        return punchCup();
    case GlassKind::Unknown:
        break;
    }
    return unknown();
}

QRectF sliceAt(const QPainterPath &path, qreal y)
{
    QPainterPath strip;
    strip.addRect(QRectF(-1000, y - 0.4 * U, 64 * U + 2000, 0.8 * U));
    return path.intersected(strip).boundingRect();
}

QRectF drinkSurface(const GlassShape &shape)
{
    if (shape.material != GlassShape::Glass) // only the top shows, just under the rim
        return shape.rim.adjusted(1.2 * U, 0.9 * U, -1.2 * U, 0.3 * U);
    const QRectF in = shape.inside.boundingRect();
    const qreal y = in.bottom() - shape.fill * (in.bottom() - shape.rim.center().y());
    const QRectF w = sliceAt(shape.inside, y);
    const qreal ry = std::max(0.6 * U, w.width() * shape.rim.height() / shape.rim.width() / 2);
    return QRectF(w.left(), y - ry, w.width(), 2 * ry);
}
