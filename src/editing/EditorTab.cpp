#include "editing/EditorTab.h"

#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QVBoxLayout>

EditorTab::EditorTab(int page, const QString &caption, QWidget *parent) : QFrame(parent), m_page(page)
{
    setObjectName(QStringLiteral("pnlOpt%1").arg(page));
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    setCursor(Qt::PointingHandCursor);
    m_picture = new QLabel(this);
    m_picture->setAlignment(Qt::AlignCenter);
    m_caption = new QLabel(caption, this);
    m_caption->setAlignment(Qt::AlignCenter);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 4, 6, 4);
    layout->setSpacing(2);
    layout->addWidget(m_picture);
    layout->addWidget(m_caption);
}

void EditorTab::setPicture(Picture picture)
{
    m_picture->setPixmap(EditorTabPicture(m_page, picture, m_text));
}

void EditorTab::setColors(const QColor &back, const QColor &text)
{
    m_text = text;
    QPalette p = palette();
    p.setColor(QPalette::Window, back);
    p.setColor(QPalette::WindowText, text);
    setPalette(p);
    m_caption->setPalette(p);
}

QColor EditorTab::backColor() const { return palette().color(QPalette::Window); }

void EditorTab::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        emit clicked(m_page);
    QFrame::mousePressEvent(event);
}

void EditorTab::enterEvent(QEnterEvent *event)
{
    emit hovered(m_page, true);
    QFrame::enterEvent(event);
}

void EditorTab::leaveEvent(QEvent *event)
{
    emit hovered(m_page, false);
    QFrame::leaveEvent(event);
}

QPixmap EditorTabPicture(int page, EditorTab::Picture picture, const QColor &ink, int size)
{
    QPixmap pm(size, size);
    pm.fill(Qt::transparent);
    QPainter p(&pm);
    p.setRenderHint(QPainter::Antialiasing);
    QColor color = ink.isValid() ? ink : QColor(Qt::black);
    if (picture == EditorTab::Rest)
        color.setAlphaF(0.55);
    const qreal w = picture == EditorTab::Hover ? 2.6 : 1.8;
    p.setPen(QPen(color, w, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.scale(size / 32.0, size / 32.0);
    switch (page) {
    case 0: { // a bottle
        QPainterPath b;
        b.moveTo(13, 4);
        b.lineTo(19, 4);
        b.lineTo(19, 11);
        b.cubicTo(24, 13, 24, 15, 24, 18);
        b.lineTo(24, 28);
        b.lineTo(8, 28);
        b.lineTo(8, 18);
        b.cubicTo(8, 15, 8, 13, 13, 11);
        b.closeSubpath();
        p.drawPath(b);
        p.drawRect(QRectF(11, 18, 10, 6));
        break;
    }
    case 1: // a cocktail glass
        p.drawPolygon(QPolygonF({QPointF(5, 6), QPointF(27, 6), QPointF(16, 17)}));
        p.drawLine(QPointF(16, 17), QPointF(16, 27));
        p.drawLine(QPointF(10, 27), QPointF(22, 27));
        break;
    case 2: // a list with ticks
        for (int i = 0; i < 3; ++i) {
            const qreal y = 8 + i * 8;
            p.drawRect(QRectF(5, y - 3, 6, 6));
            p.drawLine(QPointF(14, y), QPointF(27, y));
        }
        p.drawPolyline(QPolygonF({QPointF(6, 8), QPointF(8, 10), QPointF(12, 4)}));
        break;
    case 3: // a recipe card
        p.drawRect(QRectF(6, 4, 20, 24));
        for (int i = 0; i < 4; ++i)
            p.drawLine(QPointF(10, 10 + i * 5), QPointF(22, 10 + i * 5));
        break;
    case 4: { // a price tag
        QFont f = p.font();
        f.setPixelSize(22);
        f.setBold(picture != EditorTab::Rest);
        p.setFont(f);
        p.drawEllipse(QRectF(4, 4, 24, 24));
        p.drawText(QRectF(4, 4, 24, 24), Qt::AlignCenter, QStringLiteral("$"));
        break;
    }
    default: // a framed picture
        p.drawRect(QRectF(4, 6, 24, 20));
        p.drawPolyline(QPolygonF({QPointF(6, 24), QPointF(13, 15), QPointF(18, 21), QPointF(21, 18), QPointF(26, 24)}));
        p.drawEllipse(QRectF(19, 9, 4, 4));
        break;
    }
    return pm;
}
