#include "printing/PrintCard.h"
#include "printing/PrintLayout.h"

#include "RecordingDevice.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QtTest>

namespace {

// Each piece its own font size, so that a piece set in another's font shows. Colours keep red in
// the lowest byte; a system colour number (the garnish's) prints black.
PrintLayoutSettings distinctFonts()
{
    PrintLayoutSettings layout = PrintLayout::defaults();
    const qint16 sizes[PieceCount] = {18, 11, 9, 12, 7, 6, 10};
    const qint32 colours[PieceCount] = {0x0000FF, 0, 0, 0xFF0000, 0, 0, qint32(0x80000008u)};
    for (int i = 0; i < PieceCount; ++i)
        layout.fonts[i] = FontRecord{
            QStringLiteral("DejaVu Sans"), sizes[i], i == PieceName, i == PieceGarnish, false, false, colours[i]};
    return layout;
}

const CardContent kMartini{"Martini",
                           3,
                           "Cocktail glass",
                           "Stirred",
                           "Olive",
                           "Stir with ice and strain.",
                           {"2 oz Gin", "1/2 oz Dry Vermouth"}};

// The device's own measures of a piece's font, in twips.
struct Measure {
    QFontMetricsF metrics;
    static QFont fontOf(const FontRecord &r, float scale)
    {
        QFont f(r.FontName);
        f.setPointSizeF(r.FontSize * scale);
        f.setBold(r.Bold);
        f.setItalic(r.Italic);
        return f;
    }
    Measure(const FontRecord &r, QPaintDevice *d, float scale = 1) : metrics(fontOf(r, scale), d) {}
    float h() const { return float(metrics.height()); }
    float a() const { return float(metrics.ascent()); }
    float w(const QString &t) const { return float(metrics.horizontalAdvance(t)); }
};

const CardCell kCell{1440, 1440, 1440 + 4320, 1440 + 2880}; // 3 by 2 inches

// One card set into the cell on the device.
void draw(RecordingDevice &device, const CardContent &card, const PrintLayoutSettings &layout, const CardCell &cell,
          const GlassPictures &glass = {}, float scale = 1)
{
    QPainter painter(&device);
    CardSurface surface(painter);
    PrintCard(surface, card, layout, cell, glass, scale);
}

} // namespace

class TestPrintCard : public QObject {
    Q_OBJECT
  private slots:
    void pieces();
    void ingredientColumns_data();
    void ingredientColumns();
    void wrapping_data();
    void wrapping();
};

// Every piece of a card as the recipe preview sets it, at half size.
void TestPrintCard::pieces()
{
    const float scale = 0.5f;
    PrintLayoutSettings layout = distinctFonts();
    layout.print[checkIndex(PieceRecipe)] = true;
    const CardContent card = kMartini;
    RecordingDevice device;
    QImage tall(10, 40, QImage::Format_RGB32);
    tall.fill(Qt::blue);
    // Only the drink's own glass has a picture.
    draw(
        device, card, layout, kCell, [&](qint32 id) { return id == card.glassID ? tall : QImage(); }, scale);
    auto m = [&](CardPiece p) { return Measure(layout.fonts[p], &device, scale); };
    auto check = [&](CardPiece piece, const QString &text, float left, float top) {
        const auto t = std::find_if(device.texts.begin(), device.texts.end(), [&](auto &d) { return d.text == text; });
        QVERIFY2(t != device.texts.end(), qPrintable(text));
        QVERIFY2(qAbs(t->at.x() - left) < 1 && qAbs(t->at.y() - (top + m(piece).a())) < 1,
                 qPrintable(QStringLiteral("%1 at %2,%3").arg(text).arg(t->at.x()).arg(t->at.y())));
        QCOMPARE(t->font.pointSizeF(), layout.fonts[piece].FontSize * double(scale));
        QCOMPARE(t->font.bold(), layout.fonts[piece].Bold);
        QCOMPARE(t->font.italic(), layout.fonts[piece].Italic);
        QCOMPARE(t->color, QColor(piece == PieceName ? Qt::red : piece == PieceIng ? Qt::blue : Qt::black));
    };
    check(PieceName, card.name, kCell.Left, kCell.Top);
    const float cursorY = kCell.Top + m(PieceName).h();
    const float side = 720 * scale; // the glass picture's half inch
    // A tall picture is squeezed into the square.
    QCOMPARE(device.pictures, (std::vector<QRectF>{QRectF(kCell.Left, cursorY, side, side)}));
    check(PieceBuild, card.build, kCell.Right - m(PieceBuild).w(card.build), cursorY);
    const float bodyTop = cursorY + std::max(side, m(PieceBuild).h());
    check(PieceMark, layout.mark, kCell.Left, kCell.Bottom - m(PieceMark).h());
    check(PieceGarnish, card.garnish, kCell.Right - m(PieceGarnish).w(card.garnish),
          kCell.Bottom - m(PieceGarnish).h());
    // One column, its block centred on the card.
    const float x = kCell.Left + (kCell.Right - kCell.Left) / 2 - m(PieceIng).w(card.ingredients[1]) / 2;
    check(PieceIng, card.ingredients[0], x, bodyTop);
    check(PieceIng, card.ingredients[1], x, bodyTop + m(PieceIng).h());
    check(PieceRecipe, card.recipe, kCell.Left, bodyTop + 2 * m(PieceIng).h());
    QCOMPARE(int(device.texts.size()), 7);
}

void TestPrintCard::ingredientColumns_data()
{
    QTest::addColumn<int>("fit"); // lines the body holds
    QTest::addColumn<int>("lines");
    QTest::addColumn<int>("columns"); // columns the card is divided into
    QTest::addColumn<int>("filled");  // columns that get lines
    QTest::newRow("exactly as many as fit") << 4 << 4 << 1 << 1;
    // Twice what fits divides the card in three, and the third stays empty.
    QTest::newRow("twice what fits") << 3 << 6 << 3 << 2;
    QTest::newRow("no room at all") << 0 << 3 << 0 << 0;
}

void TestPrintCard::ingredientColumns()
{
    QFETCH(int, fit);
    QFETCH(int, lines);
    QFETCH(int, columns);
    QFETCH(int, filled);
    PrintLayoutSettings layout = distinctFonts();
    layout.print = {false, false, true, false, false, false};
    CardContent card = kMartini;
    card.ingredients.clear();
    for (int i = 0; i < lines; ++i)
        card.ingredients << QStringLiteral("%1 oz Spirit %2").arg(i + 1).arg(i);
    RecordingDevice device;
    const Measure name(layout.fonts[PieceName], &device), ing(layout.fonts[PieceIng], &device);
    CardCell cell = kCell;
    cell.Bottom = cell.Top + name.h() + ing.h() * (float(fit) + 0.5f);
    draw(device, card, layout, cell);
    QCOMPARE(int(device.texts.size()), 1 + (columns > 0 ? lines : 0)); // the name, then the lines in order
    QList<float> xs;
    for (int i = 0; i + 1 < int(device.texts.size()); ++i) {
        const RecordingDevice::Text &t = device.texts[size_t(i + 1)];
        QCOMPARE(t.text, card.ingredients[i]);
        QVERIFY(qAbs(t.at.y() - (cell.Top + name.h() + ing.h() * float(i % fit) + ing.a())) < 1);
        if (!xs.contains(float(t.at.x())))
            xs << float(t.at.x());
    }
    QCOMPARE(int(xs.size()), filled);
    if (columns > 0) {
        // The first block sits on the first of columns + 1 equal steps.
        float widest = 0;
        for (int i = 0; i < std::min(fit, lines); ++i)
            widest = std::max(widest, ing.w(card.ingredients[i]));
        const float centre = cell.Left + (cell.Right - cell.Left) / float(columns + 1);
        QVERIFY(qAbs(xs[0] - (centre - widest / 2)) < 1);
    }
}

void TestPrintCard::wrapping_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<float>("lines");     // room, in lines, from the top
    QTest::addColumn<QString>("widthOf"); // the width: this text's
    QTest::addColumn<QStringList>("out");
    QTest::newRow("CR LF and a lone LF break once, losing no letter")
        << "Shake.\r\nStir.\nStrain." << 5.0f << "Shake well." << QStringList{"Shake.", "Stir.", "Strain."};
    QTest::newRow("back to the last blank")
        << "Shake with ice" << 5.0f << "Shake with ic" << QStringList{"Shake with", "ice"};
    // Room for three lines: the rest is dropped.
    QTest::newRow("past the limit") << "a\nb\nc\nd\ne" << 3.0f << "abcdef" << QStringList{"a", "b", "c"};
}

void TestPrintCard::wrapping()
{
    QFETCH(QString, text);
    QFETCH(float, lines);
    QFETCH(QString, widthOf);
    QFETCH(QStringList, out);
    RecordingDevice device;
    const FontRecord font{QStringLiteral("DejaVu Sans"), 10};
    const Measure m(font, &device);
    {
        QPainter painter(&device);
        CardSurface surface(painter);
        surface.setFont(font);
        surface.CurrentY = 100;
        PrintWrappedText(surface, text, 0, m.w(widthOf), 100 + lines * m.h());
    }
    QStringList got;
    for (const auto &t : device.texts) {
        QVERIFY(qAbs(t.at.y() - (100 + m.h() * float(got.size()) + m.a())) < 1);
        QVERIFY(m.w(t.text) <= m.w(widthOf));
        got << t.text;
    }
    QCOMPARE(got, out);
}

QTEST_MAIN(TestPrintCard)
#include "tst_printcard.moc"
