#include "shopping/ShopListPrint.h"

#include "shopping/PurchaseAmount.h"

#include <QFontMetricsF>
#include <QLocale>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>
#include <algorithm>

namespace {

constexpr int kNameColumns[] = {5, 50, 95};
constexpr int kLeftColumn = 5;
constexpr int kAmountColumn = 50;

QString timeText(const QDateTime &when)
{
    return QLocale(QLocale::English, QLocale::UnitedStates).toString(when.time(), QStringLiteral("h:mm:ss AP"));
}

ShopListPrint::Piece heading(const char *text)
{
    ShopListPrint::Piece p;
    p.text = QString::fromLatin1(text);
    p.pointSize = 10;
    p.bold = true;
    return p;
}

ShopListPrint::Piece blank()
{
    return ShopListPrint::Piece{};
}

ShopListPrint::Piece at(int column, const QString &text, bool endsLine)
{
    ShopListPrint::Piece p;
    p.text = text;
    p.column = column;
    p.endsLine = endsLine;
    return p;
}

} // namespace

QString ShopListPrint::DateText(const QDateTime &when)
{
    const QLocale us(QLocale::English, QLocale::UnitedStates);
    return us.toString(when.date(), QStringLiteral("dddd, MMMM d, yyyy")) + QStringLiteral(" - ") + timeText(when);
}

QString ShopListPrint::DateMeasureText(const QDateTime &when)
{
    const QLocale us(QLocale::English, QLocale::UnitedStates);
    return us.toString(when.date(), QStringLiteral("dddd, M d, yyyy")) + QStringLiteral(" - ") + timeText(when);
}

std::vector<ShopListPrint::Piece> ShopListPrint::Layout(const Input &input, const QDateTime &when)
{
    std::vector<Piece> pieces;
    Piece title;
    title.text = QString::fromLatin1(kTitle);
    title.pointSize = 18;
    title.centered = true;
    title.centerOn = title.text;
    pieces.push_back(title);

    Piece date;
    date.text = DateText(when);
    date.centered = true;
    date.centerOn = DateMeasureText(when);
    pieces.push_back(date);

    Piece notice;
    notice.text = QString::fromLatin1(kNotice);
    notice.centered = true;
    notice.centerOn = notice.text;
    pieces.push_back(notice);

    pieces.push_back(blank());
    pieces.push_back(heading("Selected Drinks"));
    for (qsizetype i = 0; i < input.drinkNames.size(); ++i) {
        const std::size_t column = std::size_t(i % 3);
        const bool last = i + 1 == input.drinkNames.size();
        pieces.push_back(at(kNameColumns[column], input.drinkNames[i], column == 2 || last));
    }

    pieces.push_back(blank());
    pieces.push_back(blank());
    pieces.push_back(heading("Settings"));
    pieces.push_back(
        at(kLeftColumn,
           input.numDrinks + QStringLiteral(" drinks using ") + PurchaseAmount::familyMeasurementsText(input.family),
           true));

    pieces.push_back(blank());
    pieces.push_back(blank());
    pieces.push_back(heading("Shopping List"));
    const std::vector<ShoppingList::Row> oneEmpty(1);
    for (const ShoppingList::Row &row : input.rows.empty() ? oneEmpty : input.rows) {
        pieces.push_back(at(kLeftColumn, row.ingredient, false));
        pieces.push_back(at(kAmountColumn, row.amount, true));
    }
    return pieces;
}

bool ShopListPrint::Print(QPagedPaintDevice &device, const std::vector<Piece> &pieces)
{
    QPainter painter;
    if (!painter.begin(&device))
        return false;
    const qreal pageWidth = device.width();
    const qreal pageHeight = device.height();
    qreal x = 0;
    qreal y = 0;
    qreal lineHeight = 0;

    auto newLine = [&] {
        y += lineHeight;
        x = 0;
        lineHeight = 0;
    };
    for (const Piece &piece : pieces) {
        QFont font(QStringLiteral("Arial"));
        font.setPointSize(piece.pointSize);
        font.setBold(piece.bold);
        painter.setFont(font);
        const QFontMetricsF metrics(font, &device);

        qreal left = x;
        if (piece.centered)
            left = (pageWidth - metrics.horizontalAdvance(piece.centerOn)) / 2;
        else if (piece.column > 0) {
            const qreal columnX = (piece.column - 1) * metrics.averageCharWidth();
            // A column already passed is reached on the next line.
            if (x > columnX)
                newLine();
            left = columnX;
        }
        lineHeight = std::max(lineHeight, metrics.height());
        if (y + lineHeight > pageHeight && y > 0) {
            device.newPage();
            y = 0;
        }
        painter.drawText(QPointF(left, y + metrics.ascent()), piece.text);
        x = left + metrics.horizontalAdvance(piece.text);
        if (piece.endsLine)
            newLine();
    }
    return painter.end();
}

QString ShopListPrint::PrintToPdf(const QString &path, const Input &input, const QDateTime &when)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return file.errorString();
    {
        QPdfWriter pdf(&file);
        pdf.setTitle(QString::fromLatin1(kTitle));
        pdf.setCreator(QStringLiteral("Corvane"));
        pdf.setPageSize(QPageSize(QPageSize::Letter));
        pdf.setPageMargins(QMarginsF(15, 15, 15, 15), QPageLayout::Millimeter);
        if (!Print(pdf, Layout(input, when)))
            return QStringLiteral("The page could not be drawn.");
    }
    if (!file.commit())
        return file.errorString();
    return {};
}
