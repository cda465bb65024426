#include "shell/CommandIcons.h"

#include <QPainter>
#include <QPainterPath>

namespace CommandIcons {

namespace {

void drawPrinter(QPainter &p)
{
    p.drawRect(QRectF(12, 6, 20, 10));                 // paper in
    p.drawRoundedRect(QRectF(6, 16, 32, 14), 3, 3);    // body
    p.drawRect(QRectF(12, 26, 20, 12));                // paper out
    p.drawLine(QPointF(16, 31), QPointF(28, 31));
    p.drawLine(QPointF(16, 35), QPointF(25, 35));
}

void drawPencil(QPainter &p)
{
    QPainterPath body;
    body.moveTo(30, 6);
    body.lineTo(38, 14);
    body.lineTo(16, 36);
    body.lineTo(6, 38);
    body.lineTo(8, 28);
    body.closeSubpath();
    p.drawPath(body);
    p.drawLine(QPointF(26, 10), QPointF(34, 18));
    p.drawLine(QPointF(8, 28), QPointF(16, 36));
}

void drawList(QPainter &p)
{
    for (int i = 0; i < 4; ++i) {
        const qreal y = 9 + i * 8.5;
        p.drawEllipse(QPointF(9, y), 2, 2);
        p.drawLine(QPointF(15, y), QPointF(37, y));
    }
}

void drawMagnifier(QPainter &p)
{
    p.drawEllipse(QPointF(18, 18), 10, 10);
    QPen pen = p.pen();
    pen.setWidthF(pen.widthF() * 2);
    p.setPen(pen);
    p.drawLine(QPointF(25.5, 25.5), QPointF(37, 37));
}

void drawCheck(QPainter &p)
{
    p.drawRoundedRect(QRectF(6, 6, 32, 32), 4, 4);
    QPen pen = p.pen();
    pen.setWidthF(pen.widthF() * 1.6);
    p.setPen(pen);
    p.drawPolyline(QPolygonF({QPointF(12, 22), QPointF(19, 30), QPointF(32, 13)}));
}

void drawWrench(QPainter &p)
{
    QPen pen = p.pen();
    pen.setWidthF(pen.widthF() * 2.2);
    pen.setCapStyle(Qt::RoundCap);
    p.setPen(pen);
    p.drawLine(QPointF(12, 34), QPointF(26, 18));
    pen.setWidthF(pen.widthF() / 2.2);
    p.setPen(pen);
    p.drawArc(QRectF(22, 5, 16, 16), 200 * 16, 290 * 16);
}

void drawQuestion(QPainter &p)
{
    p.drawEllipse(QPointF(22, 22), 16, 16);
    QFont f = p.font();
    f.setPixelSize(22);
    f.setBold(true);
    p.setFont(f);
    p.drawText(QRectF(6, 6, 32, 32), Qt::AlignCenter, QStringLiteral("?"));
}

} // namespace

QPixmap groupPicture(int group, State state, const QColor &ink, const QColor &back, int size)
{
    QPixmap pm(size, size);
    pm.fill(Qt::transparent);
    QPainter p(&pm);
    p.setRenderHint(QPainter::Antialiasing);
    p.scale(size / 44.0, size / 44.0);
    if (state != Rest) {
        p.setPen(Qt::NoPen);
        p.setBrush(back);
        p.drawRoundedRect(QRectF(1, 1, 42, 42), 6, 6);
    }
    QPen pen(ink, 2.2);
    pen.setJoinStyle(Qt::RoundJoin);
    p.setPen(pen);
    p.setBrush(Qt::NoBrush);
    if (state == Pressed)
        p.translate(1, 1);
    switch (group) {
    case 0: drawPrinter(p); break;
    case 1: drawPencil(p); break;
    case 2: drawList(p); break;
    case 3: drawMagnifier(p); break;
    case 4: drawCheck(p); break;
    case 5: drawWrench(p); break;
    default: drawQuestion(p); break;
    }
    return pm;
}

} // namespace CommandIcons
