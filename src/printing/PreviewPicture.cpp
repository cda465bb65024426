#include "printing/PreviewPicture.h"

#include <QPainter>

PreviewPicture::PreviewPicture(QWidget *parent) : QWidget(parent)
{
    setAutoFillBackground(true);
    setMinimumSize(180, 180);
}

void PreviewPicture::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::TextAntialiasing);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    if (m_painter)
        m_painter(painter, *this);
}
