#include "printing/PrintCard.h"
#include "printing/PrintLayout.h"

#include "RecordingDevice.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QtTest>

namespace {

// Each piece its own font size, so that a piece set in another's font shows.
PrintLayoutSettings distinctFonts()
{
    PrintLayoutSettings layout = PrintLayout::defaults();
    const qint16 sizes[PieceCount] = {18, 11, 9, 12, 7, 6, 10};
    for (int i = 0; i < PieceCount; ++i)
        layout.fonts[i] = FontRecord{QStringLiteral("DejaVu Sans"), sizes[i], i == PieceName, i == PieceGarnish};
    layout.print = {true, true, true, true, true, true};
    layout.mark = QStringLiteral("Mark line");
    return layout;
}

CardContent martini()
{
    CardContent card;
    card.name = QStringLiteral("Martini");
    card.glassID = 3;
    card.glassName = QStringLiteral("Cocktail glass");
    card.build = QStringLiteral("Stirred");
    card.garnish = QStringLiteral("Olive");
    card.recipe = QStringLiteral("Stir with ice and strain.");
    card.ingredients = {QStringLiteral("2 oz Gin"), QStringLiteral("1/2 oz Dry Vermouth")};
    return card;
}

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

QStringList drawnLines(RecordingDevice &device, const QString &text, float width, float top, float limit)
{
    QPainter painter(&device);
    CardSurface surface(painter);
    surface.setFont(FontRecord{QStringLiteral("DejaVu Sans"), 10});
    surface.CurrentY = top;
    PrintWrappedText(surface, text, 0, width, limit);
    painter.end();
    QStringList lines;
    for (const auto &t : device.texts)
        lines << t.text;
    return lines;
}

} // namespace

class TestPrintCard : public QObject {
    Q_OBJECT
  private slots:
    void pieces_data();
    void pieces();
    void ingredientColumns_data();
    void ingredientColumns();
    void nameIsCut_data();
    void nameIsCut();
    void wrapping_data();
    void wrapping();
};

void TestPrintCard::pieces_data()
{
    QTest::addColumn<QList<bool>>("print"); // glass, build, ingredients, recipe, mark, garnish
    QTest::addColumn<bool>("glassAsText");
    QTest::addColumn<float>("scale");
    QTest::newRow("every piece, glass as text") << QList<bool>{1, 1, 1, 1, 1, 1} << true << 1.0f;
    QTest::newRow("every piece, glass picture") << QList<bool>{1, 1, 1, 1, 1, 1} << false << 1.0f;
    QTest::newRow("name only") << QList<bool>{0, 0, 0, 0, 0, 0} << true << 1.0f;
    QTest::newRow("preview at half size") << QList<bool>{1, 1, 1, 0, 1, 1} << false << 0.5f;
    QTest::newRow("no build, no mark") << QList<bool>{1, 0, 1, 1, 0, 1} << true << 1.0f;
}

void TestPrintCard::pieces()
{
    QFETCH(QList<bool>, print);
    QFETCH(bool, glassAsText);
    QFETCH(float, scale);
    PrintLayoutSettings layout = distinctFonts();
    for (int i = 0; i < 6; ++i)
        layout.print[size_t(i)] = print[i];
    layout.glassAsText = glassAsText;
    const CardContent card = martini();
    RecordingDevice device;
    int glassAsked = 0;
    {
        QPainter painter(&device);
        CardSurface surface(painter);
        PrintCard(
            surface, card, layout, kCell,
            [&](qint32 id) {
                glassAsked = id;
                QImage tall(10, 40, QImage::Format_RGB32);
                tall.fill(Qt::blue);
                return tall;
            },
            scale);
    }
    auto m = [&](CardPiece p) { return Measure(layout.fonts[p], &device, scale); };
    auto check = [&](CardPiece piece, const QString &text, float left, float top) {
        const auto *t = device.find(text);
        QVERIFY2(t, qPrintable(text));
        QVERIFY2(qAbs(t->at.x() - left) < 1 && qAbs(t->at.y() - (top + m(piece).a())) < 1,
                 qPrintable(QStringLiteral("%1 at %2,%3").arg(text).arg(t->at.x()).arg(t->at.y())));
        QCOMPARE(t->font.pointSizeF(), layout.fonts[piece].FontSize * double(scale));
        QCOMPARE(t->font.bold(), layout.fonts[piece].Bold);
        QCOMPARE(t->font.italic(), layout.fonts[piece].Italic);
    };
    check(PieceName, card.name, kCell.Left, kCell.Top);
    const float cursorY = kCell.Top + m(PieceName).h();
    float rowHeight = 0;
    const float side = 720 * scale; // the glass picture's half inch
    if (print[0] && glassAsText) {
        check(PieceGlass, card.glassName, kCell.Left, cursorY);
        rowHeight = m(PieceGlass).h();
    }
    QCOMPARE(int(device.pictures.size()), print[0] && !glassAsText ? 1 : 0);
    if (print[0] && !glassAsText) {
        // A tall picture is squeezed into the square.
        QCOMPARE(device.pictures[0], QRectF(kCell.Left, cursorY, side, side));
        QCOMPARE(glassAsked, card.glassID);
        rowHeight = side;
    }
    if (print[1]) {
        check(PieceBuild, card.build, kCell.Right - m(PieceBuild).w(card.build), cursorY);
        rowHeight = std::max(rowHeight, m(PieceBuild).h());
    }
    const float bodyTop = cursorY + rowHeight;
    if (print[4])
        check(PieceMark, layout.mark, kCell.Left, kCell.Bottom - m(PieceMark).h());
    if (print[5])
        check(PieceGarnish, card.garnish, kCell.Right - m(PieceGarnish).w(card.garnish),
              kCell.Bottom - m(PieceGarnish).h());
    if (print[2]) {
        // One column, its block centred on the card.
        const float widest = m(PieceIng).w(card.ingredients[1]);
        const float x = kCell.Left + (kCell.Right - kCell.Left) / 2 - widest / 2;
        check(PieceIng, card.ingredients[0], x, bodyTop);
        check(PieceIng, card.ingredients[1], x, bodyTop + m(PieceIng).h());
    }
    if (print[3])
        check(PieceRecipe, card.recipe, kCell.Left, bodyTop + (print[2] ? 2 : 0) * m(PieceIng).h());
    const int expected = 1 + (print[0] && glassAsText) + print[1] + 2 * print[2] + print[3] + print[4] + print[5];
    QCOMPARE(int(device.texts.size()), expected);
}

void TestPrintCard::ingredientColumns_data()
{
    QTest::addColumn<int>("fit"); // lines the body holds
    QTest::addColumn<int>("lines");
    QTest::addColumn<int>("columns"); // columns the card is divided into
    QTest::addColumn<int>("filled");  // columns that get lines
    QTest::newRow("exactly as many as fit") << 4 << 4 << 1 << 1;
    QTest::newRow("one more than fit") << 4 << 5 << 2 << 2;
    QTest::newRow("fewer than fit") << 4 << 2 << 1 << 1;
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
    CardContent card = martini();
    card.ingredients.clear();
    for (int i = 0; i < lines; ++i)
        card.ingredients << QStringLiteral("%1 oz Spirit %2").arg(i + 1).arg(i);
    RecordingDevice device;
    const Measure name(layout.fonts[PieceName], &device), ing(layout.fonts[PieceIng], &device);
    CardCell cell = kCell;
    cell.Bottom = cell.Top + name.h() + ing.h() * (float(fit) + 0.5f);
    {
        QPainter painter(&device);
        CardSurface surface(painter);
        PrintCard(surface, card, layout, cell, {});
    }
    QList<float> xs;
    for (int i = 0; i < lines; ++i) {
        const auto *t = device.find(card.ingredients[i]);
        if (columns == 0) {
            QVERIFY(!t);
            continue;
        }
        QVERIFY(t);
        const int row = i % fit;
        QVERIFY(qAbs(t->at.y() - (cell.Top + name.h() + ing.h() * float(row) + ing.a())) < 1);
        if (!xs.contains(float(t->at.x())))
            xs << float(t->at.x());
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

void TestPrintCard::nameIsCut_data()
{
    QTest::addColumn<int>("chars");   // the cell is as wide as this many characters of the name
    QTest::addColumn<float>("extra"); // and this much wider
    QTest::addColumn<int>("printed");
    QTest::newRow("just as wide") << 6 << 0.0f << 6;
    QTest::newRow("a little wider") << 6 << 1.0f << 7;
    QTest::newRow("a little narrower") << 6 << -1.0f << 6;
    QTest::newRow("whole name fits") << 9 << 200.0f << 9;
    QTest::newRow("no width at all") << 0 << 0.0f << 0;
}

void TestPrintCard::nameIsCut()
{
    QFETCH(int, chars);
    QFETCH(float, extra);
    QFETCH(int, printed);
    PrintLayoutSettings layout = distinctFonts();
    layout.print = {false, false, false, false, false, false};
    CardContent card = martini();
    card.name = QStringLiteral("Manhattan");
    RecordingDevice device;
    const Measure name(layout.fonts[PieceName], &device);
    CardCell cell = kCell;
    cell.Right = cell.Left + name.w(card.name.left(chars)) + extra;
    {
        QPainter painter(&device);
        CardSurface surface(painter);
        PrintCard(surface, card, layout, cell, {});
    }
    const QString expected = card.name.left(printed);
    QCOMPARE(expected.isEmpty() ? QString() : device.texts.at(0).text, expected);
}

void TestPrintCard::wrapping_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("widthOf"); // the width: this text's
    QTest::addColumn<float>("lines");     // room, in lines, from the top
    QTest::addColumn<QStringList>("out");
    QTest::newRow("fits") << "Shake well."
                          << "Shake well. and more" << 5.0f << QStringList{"Shake well."};
    QTest::newRow("break at the end prints no empty line")
        << "Shake well.\r\n"
        << "Shake well. and more" << 5.0f << QStringList{"Shake well."};
    QTest::newRow("CR LF") << "Shake.\r\nStrain."
                           << "Shake well. and more" << 5.0f << QStringList{"Shake.", "Strain."};
    QTest::newRow("lone LF loses no letter") << "Shake.\nStrain."
                                             << "Shake well. and more" << 5.0f << QStringList{"Shake.", "Strain."};
    QTest::newRow("back to the last blank") << "Shake with ice"
                                            << "Shake with ic" << 5.0f << QStringList{"Shake with", "ice"};
    QTest::newRow("word wider than the card") << "Supercalifragilistic"
                                              << "Supercali" << 5.0f << QStringList{"Supercali", "fragilist", "ic"};
    // Room for three lines: the rest is dropped.
    QTest::newRow("past the limit") << "a\nb\nc\nd\ne"
                                    << "abcdef" << 3.0f << QStringList{"a", "b", "c"};
    QTest::newRow("no room for one line") << "a b"
                                          << "abcdef" << 0.5f << QStringList{};
}

void TestPrintCard::wrapping()
{
    QFETCH(QString, text);
    QFETCH(QString, widthOf);
    QFETCH(float, lines);
    QFETCH(QStringList, out);
    RecordingDevice device;
    const Measure m(FontRecord{QStringLiteral("DejaVu Sans"), 10}, &device);
    const QStringList got = drawnLines(device, text, m.w(widthOf), 100, 100 + lines * m.h());
    if (text.startsWith(u"Super")) {
        // However the word is cut, no letter is lost and no line is wider than the card.
        QCOMPARE(got.join(QString()), text);
        for (const QString &line : got)
            QVERIFY(m.w(line) <= m.w(widthOf));
        QCOMPARE(got.value(0), out.value(0));
        return;
    }
    QCOMPARE(got, out);
    for (int i = 0; i < int(device.texts.size()); ++i)
        QVERIFY(qAbs(device.texts[size_t(i)].at.y() - (100 + m.h() * float(i) + m.a())) < 1);
}

QTEST_MAIN(TestPrintCard)
#include "tst_printcard.moc"
