#include "cabinet/CabinetReport.h"

#include <QFont>
#include <QFontMetricsF>
#include <QPagedPaintDevice>
#include <QPainter>

namespace CabinetReport {

namespace {

QString twoDigits(int n)
{
    return QStringLiteral("%1").arg(n, 2, 10, QLatin1Char('0'));
}

QFont fontOf(const Piece &piece)
{
    QFont font(QStringLiteral("Arial"));
    font.setPointSize(piece.pointSize);
    font.setBold(piece.bold);
    return font;
}

} // namespace

QString DateText(const QDateTime &when)
{
    const QDate d = when.date();
    const QTime t = when.time();
    const int hour12 = t.hour() % 12 == 0 ? 12 : t.hour() % 12;
    return twoDigits(d.month()) + u'/' + twoDigits(d.day()) + u'/' + QString::number(d.year()) + u' ' +
           twoDigits(hour12) + u':' + twoDigits(t.minute()) +
           (t.hour() < 12 ? QStringLiteral(" am") : QStringLiteral(" pm"));
}

std::vector<Piece> Layout(const std::vector<Line> &lines, const QDateTime &when)
{
    std::vector<Piece> pieces;
    pieces.push_back({QStringLiteral("Corvane Selected Ingredients Listing"), 16, true, 0, true});
    pieces.push_back({DateText(when), 8, false, 0, true});
    pieces.push_back({QString(), 8, false, 0, true});
    pieces.push_back({QString(), 8, false, 0, true});
    QString lastType, lastSubType;
    for (const Line &line : lines) {
        if (line.type != lastType) {
            pieces.push_back({line.type, 10, true, kTypeX, false});
            lastType = line.type;
        }
        if (line.subType != lastSubType) {
            pieces.push_back({line.subType, 10, true, kSubTypeX, false});
            lastSubType = line.subType;
        }
        pieces.push_back({line.ingredient, 10, false, kIngredientX, true});
    }
    return pieces;
}

bool Print(QPagedPaintDevice &device, const std::vector<Piece> &pieces)
{
    QPainter painter;
    if (!painter.begin(&device))
        return false;
    const double dotsPerTwipX = device.logicalDpiX() / double(kTwipsPerInch);
    const double pageHeight = device.height();
    double y = 0;
    std::size_t i = 0;
    while (i < pieces.size()) {
        // One printed line: the pieces up to the one that ends it.
        std::size_t end = i;
        while (end < pieces.size() && !pieces[end].endsLine)
            ++end;
        end = std::min(end + 1, pieces.size());
        double height = 0, ascent = 0;
        for (std::size_t k = i; k < end; ++k) {
            const QFontMetricsF metrics(fontOf(pieces[k]), &device);
            height = std::max(height, metrics.height());
            ascent = std::max(ascent, metrics.ascent());
        }
        if (y > 0 && y + height > pageHeight) {
            device.newPage();
            y = 0;
        }
        for (std::size_t k = i; k < end; ++k) {
            if (pieces[k].text.isEmpty())
                continue;
            painter.setFont(fontOf(pieces[k]));
            painter.drawText(QPointF(pieces[k].xTwips * dotsPerTwipX, y + ascent), pieces[k].text);
        }
        y += height;
        i = end;
    }
    return painter.end();
}

} // namespace CabinetReport
