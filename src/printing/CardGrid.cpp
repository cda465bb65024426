#include "printing/CardGrid.h"

#include "base/VbConvert.h"

#include <cmath>

namespace CardGrid {

namespace {
float num(const QString &text)
{
    return float(VbConvert::Val(text));
}
} // namespace

float ToTwips(float length, bool metric)
{
    return metric ? length * 56.7f : length * 1440.0f;
}

float ToTwips(const QString &length, bool metric)
{
    return ToTwips(num(length), metric);
}

qint16 CardsPerPage(const PrintLayoutSettings &layout)
{
    return qint16(std::trunc(VbConvert::Val(layout.cols) * VbConvert::Val(layout.rows)));
}

int pageCount(int cards, int cardsPerPage)
{
    if (cardsPerPage <= 0)
        return 0;
    return cards / cardsPerPage + (cards % cardsPerPage ? 1 : 0);
}

std::vector<CardCell> NewPage(const PrintLayoutSettings &layout, const PageMetrics &page)
{
    const float rows = num(layout.rows), cols = num(layout.cols);
    if (rows * cols < 1)
        return {};
    const bool m = layout.metric;
    const float rowSpacing = ToTwips(layout.rowSpacing, m), colSpacing = ToTwips(layout.colSpacing, m);
    const float hw = (page.Width - page.ScaleWidth) / 2, hh = (page.Height - page.ScaleHeight) / 2;
    const float left = ToTwips(layout.marLeft, m) - hw;
    const float top = ToTwips(layout.marTop, m) - hh;
    const float right = page.Width - ToTwips(layout.marRight, m) - hw;
    const float bottom = page.Height - ToTwips(layout.marBottom, m) - hh;
    const float cellWidth = (right - left - (cols - 1) * colSpacing) / cols;
    const float cellHeight = (bottom - top - (rows - 1) * rowSpacing) / rows;

    const int rowCount = int(rows), colCount = int(cols);
    std::vector<CardCell> cells(size_t(std::max(0, int(rows * cols))));
    for (int r = 1; r <= rowCount; ++r) {
        for (int c = 1; c <= colCount; ++c) {
            const size_t index = size_t((r - 1) * colCount + (c - 1));
            if (index >= cells.size())
                continue;
            CardCell &cell = cells[index];
            cell.Left = cellWidth * float(c - 1) + left + colSpacing * float(c - 1);
            cell.Top = cellHeight * float(r - 1) + top + rowSpacing * float(r - 1);
            cell.Right = cell.Left + cellWidth;
            cell.Bottom = cell.Top + cellHeight;
        }
    }
    return cells;
}

namespace {
float cardSize(float pageSide, const QString &marA, const QString &marB, const QString &countText,
               const QString &spacing, bool metric)
{
    float size = pageSide - ToTwips(marA, metric) - ToTwips(marB, metric);
    const float count = num(countText);
    if (count > 0)
        size = (size - (count - 1) * ToTwips(spacing, metric)) / count;
    return size;
}
} // namespace

float CardWidth(const PrintLayoutSettings &l, const PageMetrics &page)
{
    return cardSize(l.portrait ? page.Width : page.Height, l.marLeft, l.marRight, l.cols, l.colSpacing, l.metric);
}

float CardHeight(const PrintLayoutSettings &l, const PageMetrics &page)
{
    return cardSize(l.portrait ? page.Height : page.Width, l.marTop, l.marBottom, l.rows, l.rowSpacing, l.metric);
}

CardPlacement placeCard(float w, float h, float pw, float ph)
{
    CardPlacement placement;
    if (w == 0 || h == 0)
        return placement;
    placement.scale = std::min((ph - 0.1f * ph) / h, (pw - 0.1f * pw) / w);
    if (placement.scale <= 0)
        return placement;
    const float s = placement.scale;
    placement.card = QRectF((pw - w * s) / 2, (ph - h * s) / 2, w * s, h * s);
    return placement;
}

PagePreview ShowPagePreview(const PrintLayoutSettings &l, const PageMetrics &paper, float pw, float ph, float onePixelX,
                            float onePixelY)
{
    PagePreview preview;
    const int rows = int(qint16(VbConvert::Val(l.rows))), cols = int(qint16(VbConvert::Val(l.cols)));
    const float width = l.portrait ? paper.Width : paper.Height;
    const float height = l.portrait ? paper.Height : paper.Width;
    if (height <= 0)
        return preview;
    // The height alone decides the scale, so a landscape page may be wider than the picture.
    const float s = (ph - 0.1f * ph) / height;
    preview.scale = s;
    const float pageLeft = (pw - width * s) / 2, pageTop = (ph - height * s) / 2;
    preview.page = QRectF(pageLeft, pageTop, width * s, height * s);

    const bool m = l.metric;
    float top = pageTop + ToTwips(l.marTop, m) * s;
    float bottom = pageTop + height * s - ToTwips(l.marBottom, m) * s;
    float left = pageLeft + ToTwips(l.marLeft, m) * s;
    float right = pageLeft + width * s - ToTwips(l.marRight, m) * s;
    preview.margins = QRectF(QPointF(left, top), QPointF(right, bottom));
    top += onePixelY;
    bottom -= onePixelY;
    left += onePixelX;
    right -= onePixelX;

    if (rows > 1) {
        const float spacing = ToTwips(l.rowSpacing, m) * s;
        const float rowHeight = (bottom - top - float(rows - 1) * spacing) / float(rows);
        float y = top;
        for (int r = 0; r < rows; ++r) {
            preview.lines.emplace_back(left, y, right, y);
            y += rowHeight;
            preview.lines.emplace_back(left, y, right, y);
            y += spacing;
        }
    }
    if (cols > 1) {
        const float spacing = ToTwips(l.colSpacing, m) * s;
        const float colWidth = (right - left - float(cols - 1) * spacing) / float(cols);
        float x = left;
        for (int c = 0; c < cols; ++c) {
            preview.lines.emplace_back(x, top, x, bottom);
            x += colWidth;
            preview.lines.emplace_back(x, top, x, bottom);
            x += spacing;
        }
    }
    return preview;
}

} // namespace CardGrid
