#include "printing/PrintCard.h"

#include "presentation/CDrinkFacade.h"

#include <QFontMetricsF>
#include <QPaintDevice>
#include <QPainter>
#include <QSqlQuery>
#include <algorithm>
#include <cmath>

CardContent cardContentOf(CDrinkFacade &facade, qint32 drinkID)
{
    facade.setCurrentDrinkID(drinkID);
    CardContent card;
    card.name = facade.currentDrinkName();
    card.glassID = facade.currentDrinkGlassID();
    card.glassName = facade.currentDrinkGlassName();
    card.build = facade.currentDrinkBuildName();
    card.garnish = facade.currentDrinkGarnishName();
    card.recipe = facade.currentDrinkRecipe();
    QSqlQuery lines = facade.currentDrinkIngredients();
    // Cards always show the English amount; the metric flag of a layout rules its lengths only.
    while (lines.next())
        card.ingredients << (lines.value(QStringLiteral("amount")).toString() + u' ' +
                             lines.value(QStringLiteral("Ingredient")).toString())
                                .trimmed();
    return card;
}

CardSurface::CardSurface(QPainter &painter)
    : m_painter(painter), m_unitsPerTwip(float(painter.device()->logicalDpiY()) / 1440.0f)
{
}

void CardSurface::setFont(const FontRecord &record, float fontScale)
{
    m_font = QFont(record.FontName);
    m_font.setPointSizeF(std::max(0.1, double(record.FontSize) * double(fontScale)));
    m_font.setBold(record.Bold);
    m_font.setItalic(record.Italic);
    m_font.setUnderline(record.Underline);
    m_font.setStrikeOut(record.Strikethrough);
    // Red in the lowest byte; a system colour number prints black.
    const quint32 c = quint32(record.Color);
    const QColor color =
        (c & 0x80000000u) ? QColor(Qt::black) : QColor(int(c & 0xFF), int((c >> 8) & 0xFF), int((c >> 16) & 0xFF));
    m_painter.setFont(m_font);
    m_painter.setPen(color);
    const QFontMetricsF metrics(m_font, m_painter.device());
    m_height = float(metrics.height()) / m_unitsPerTwip;
    m_ascent = float(metrics.ascent()) / m_unitsPerTwip;
}

float CardSurface::TextWidth(const QString &text) const
{
    return float(QFontMetricsF(m_font, m_painter.device()).horizontalAdvance(text)) / m_unitsPerTwip;
}

float CardSurface::TextHeight(const QString &) const
{
    return m_height;
}

void CardSurface::print(const QString &text)
{
    m_painter.drawText(QPointF(CurrentX * m_unitsPerTwip, (CurrentY + m_ascent) * m_unitsPerTwip), text);
    CurrentY += m_height;
}

void CardSurface::PaintPicture(const QImage &picture, float x, float y, float width, float height)
{
    if (picture.isNull())
        return;
    const float k = m_unitsPerTwip;
    const QRectF target(x * k, y * k, width * k, height * k);
    // Shrunk for a screen, the thin lines of a glass drawing would vanish between the pixels
    // the painter samples: the picture is scaled down by averaging first.
    const QSize size = target.size().toSize();
    if (size.width() > 0 && size.height() > 0 && size.width() < picture.width() && size.height() < picture.height())
        m_painter.drawImage(target, picture.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    else
        m_painter.drawImage(target, picture);
}

namespace {

void printAt(CardSurface &s, float x, float y, const QString &text)
{
    s.CurrentX = x;
    s.CurrentY = y;
    s.print(text);
}

// The name is cut, never wrapped: a character is taken while the text so far is narrower than
// the cell, so the last one taken may stick out a little.
QString fittedName(CardSurface &s, const QString &name, float width)
{
    QString text;
    for (const QChar ch : name) {
        if (!(width > s.TextWidth(text)))
            break;
        text += ch;
    }
    return text;
}

// The ingredient lines, in columns centred across the card. Returns the top of what follows.
float printIngredients(CardSurface &s, const QStringList &lines, const CardCell &cell, float bodyTop, float bodyBottom)
{
    const float lineHeight = s.TextHeight(lines.value(0));
    if (lineHeight <= 0)
        return bodyTop;
    const int linesPerColumn = int(qint16(std::trunc((bodyBottom - bodyTop) / lineHeight)));
    if (linesPerColumn <= 0 || lines.isEmpty())
        return bodyTop;
    const int count = int(lines.size());
    const int columnCount = count == linesPerColumn ? 1 : int(float(count) / float(linesPerColumn) + 1);
    const float step = (cell.Right - cell.Left) / float(columnCount + 1);
    float lowest = bodyTop - lineHeight;
    for (int column = 0; column * linesPerColumn < count; ++column) {
        const int first = column * linesPerColumn, last = std::min(count, first + linesPerColumn);
        // The column is one block: its widest line centred on the column's centre line.
        float widest = 0;
        for (int i = first; i < last; ++i)
            widest = std::max(widest, s.TextWidth(lines[i]));
        const float x = cell.Left + step * float(column + 1) - widest / 2;
        for (int i = first; i < last; ++i) {
            const float y = bodyTop + lineHeight * float(i - first);
            printAt(s, x, y, lines[i]);
            lowest = std::max(lowest, y);
        }
    }
    return lowest + lineHeight;
}

} // namespace

void PrintWrappedText(CardSurface &s, const QString &text, float left, float width, float limit)
{
    limit -= s.TextHeight(text);
    if (s.CurrentY > limit)
        return;
    QString rest = text;
    auto printLine = [&](const QString &line) {
        s.CurrentX = left;
        s.print(line);
        return s.CurrentY <= limit;
    };
    while (!rest.isEmpty()) {
        QString line;
        qsizetype i = 0;
        bool broke = false;
        while (i < rest.size() && s.TextWidth(line) < width) {
            const QChar ch = rest[i];
            if (ch < u' ') {
                // A line break: CR LF counts as one, as does a lone CR or LF.
                const qsizetype skip = (ch == u'\r' && i + 1 < rest.size() && rest[i + 1] == u'\n') ? 2 : 1;
                rest = rest.mid(i + skip);
                broke = true;
                break;
            }
            line += ch;
            ++i;
        }
        if (!broke) {
            if (i >= rest.size() && s.TextWidth(line) < width) {
                printLine(line);
                return;
            }
            // Back to the last blank; a word wider than the card is cut where the width ends.
            const qsizetype blank = line.lastIndexOf(u' ');
            if (blank > 0) {
                line.truncate(blank);
                rest = rest.mid(blank + 1);
            } else {
                if (line.size() > 1 && s.TextWidth(line) > width)
                    line.chop(1);
                rest = rest.mid(line.size());
            }
        }
        if (!printLine(line))
            return;
    }
}

void PrintCard(CardSurface &s, const CardContent &card, const PrintLayoutSettings &layout, const CardCell &cell,
               const GlassPictures &glassPicture, float scale)
{
    const auto &fonts = layout.fonts;
    // 1. The name, always.
    s.setFont(fonts[PieceName], scale);
    printAt(s, cell.Left, cell.Top, fittedName(s, card.name, cell.Right - cell.Left));
    const float cursorY = cell.Top + s.TextHeight(card.name);
    float rowHeight = 0;

    // 2, 3. Glass at the left, build at the right, one row as high as the taller.
    if (layout.printed(PieceGlass)) {
        if (layout.glassAsText) {
            s.setFont(fonts[PieceGlass], scale);
            printAt(s, cell.Left, cursorY, card.glassName);
            rowHeight = s.TextHeight(card.glassName);
        } else {
            const float side = CardGrid::ToTwips(layout.glassHeight, layout.metric) * scale;
            if (side > 0) {
                if (glassPicture)
                    s.PaintPicture(glassPicture(card.glassID), cell.Left, cursorY, side, side);
                rowHeight = side;
            }
        }
    }
    if (layout.printed(PieceBuild)) {
        s.setFont(fonts[PieceBuild], scale);
        printAt(s, cell.Right - s.TextWidth(card.build), cursorY, card.build);
        rowHeight = std::max(rowHeight, s.TextHeight(card.build));
    }
    const float bodyTop = cursorY + rowHeight;

    // 5, 6. Mark at the left, garnish at the right of the bottom row.
    if (layout.printed(PieceMark)) {
        s.setFont(fonts[PieceMark], scale);
        printAt(s, cell.Left, cell.Bottom - s.TextHeight(layout.mark), layout.mark);
        rowHeight = s.TextHeight(layout.mark);
    }
    if (layout.printed(PieceGarnish)) {
        s.setFont(fonts[PieceGarnish], scale);
        const float h = s.TextHeight(card.garnish);
        printAt(s, cell.Right - s.TextWidth(card.garnish), cell.Bottom - h, card.garnish);
        rowHeight = std::max(rowHeight, h);
    }
    const float bodyBottom = cell.Bottom - rowHeight;

    // 8. Ingredients, 9. the recipe where room is left.
    float next = bodyTop;
    if (layout.printed(PieceIng)) {
        s.setFont(fonts[PieceIng], scale);
        next = printIngredients(s, card.ingredients, cell, bodyTop, bodyBottom);
    }
    if (layout.printed(PieceRecipe) && bodyBottom - next > 0) {
        s.setFont(fonts[PieceRecipe], scale);
        s.CurrentX = cell.Left;
        s.CurrentY = next;
        PrintWrappedText(s, card.recipe, cell.Left, cell.Right - cell.Left, bodyBottom);
    }
}
