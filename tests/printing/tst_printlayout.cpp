#include "printing/CardGrid.h"
#include "printing/PrintLayout.h"
#include "store/DrinkStore.h"

#include "TestStore.h"

#include <QtTest>

Q_DECLARE_METATYPE(FontRecord)

class TestPrintLayout : public QObject {
    Q_OBJECT
  private slots:
    void fontText_data();
    void fontText();
    void lengths_data();
    void lengths();
    void grid_data();
    void grid();
    void fractionsMultiplyFirst();
    void saveAndLoad();
};

void TestPrintLayout::fontText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<FontRecord>("before"); // what the record held: a short text keeps the rest
    QTest::addColumn<FontRecord>("font");
    QTest::addColumn<bool>("writtenBack"); // the font gives this very text
    const FontRecord none;
    QTest::newRow("default") << "Arial;14;0;False;False;False;False;" << none << FontRecord{"Arial", 14} << true;
    // Underline is stored after strikethrough.
    QTest::newRow("bold underline red") << "Times New Roman;9;255;True;False;False;True;" << none
                                        << FontRecord{"Times New Roman", 9, true, false, true, false, 255} << true;
    QTest::newRow("italic strikethrough") << "Courier;8;65280;False;True;True;False;" << none
                                          << FontRecord{"Courier", 8, false, true, false, true, 0x00FF00} << true;
    QTest::newRow("-1 and any case are true")
        << "Arial;10;0;-1;TRUE;0;false;" << none << FontRecord{"Arial", 10, true, true} << false;
    // A tail after the last ";" is no field.
    QTest::newRow("short text") << "Verdana;12;99" << FontRecord{"Keep", 30, true, true, true, true, 7}
                                << FontRecord{"Verdana", 12, true, true, true, true, 7} << false;
}

void TestPrintLayout::fontText()
{
    QFETCH(QString, text);
    QFETCH(FontRecord, before);
    QFETCH(FontRecord, font);
    QFETCH(bool, writtenBack);
    QCOMPARE(PrintLayout::fontFromText(text, before), font);
    if (writtenBack)
        QCOMPARE(PrintLayout::fontToText(font), text);
}

enum LengthOp { Convert, Up, Down };

void TestPrintLayout::lengths_data()
{
    QTest::addColumn<int>("op");
    QTest::addColumn<QString>("in");
    QTest::addColumn<bool>("metric"); // the unit converted to, or stepped in
    QTest::addColumn<QString>("out");
    // 25.3968 millimetres to the inch, not 25.4: each of these would round the other way.
    QTest::newRow("inch to mm, the old factor") << int(Convert) << "10.02" << true << "254";
    QTest::newRow("mm to inch, the old factor") << int(Convert) << "31.748" << false << "1.3";
    QTest::newRow("mm to inch keeps a decimal") << int(Convert) << "25" << false << "1.0";
    QTest::newRow("numeric prefix") << int(Convert) << "2in" << true << "51";
    QTest::newRow("inch down below 0") << int(Down) << "0.05" << false << "0.0";
    QTest::newRow("mm down from fraction") << int(Down) << "3.6" << true << "3";
}

void TestPrintLayout::lengths()
{
    QFETCH(int, op);
    QFETCH(QString, in);
    QFETCH(bool, metric);
    QFETCH(QString, out);
    QCOMPARE(op == Convert ? PrintLayout::ConvertLength(in, metric) : PrintLayout::stepLength(in, metric, op == Up),
             out);
}

void TestPrintLayout::grid_data()
{
    QTest::addColumn<QStringList>("settings"); // rows, cols, row spacing, col spacing, margin, metric
    QTest::addColumn<QList<float>>("page");    // width, height, printable width, printable height
    QTest::addColumn<QList<float>>("cell");    // the last one's left, top, right, bottom

    // Millimetres, and a printable part 300 twips in from each side of the paper.
    QTest::newRow("metric 3x1") << QStringList{"3", "1", "5", "0", "10", "m"}
                                << QList<float>{11906, 16838, 11306, 16238}
                                << QList<float>{267, 10925.333f, 11039, 15971};
    // Landscape: the device reports its paper turned.
    QTest::newRow("landscape 1x3") << QStringList{"1", "3", "0", "0.1", "0.5", "", "land"}
                                   << QList<float>{15840, 12240, 15840, 12240}
                                   << QList<float>{10416, 720, 15120, 11520};
}

void TestPrintLayout::grid()
{
    QFETCH(QStringList, settings);
    QFETCH(QList<float>, page);
    QFETCH(QList<float>, cell);
    PrintLayoutSettings layout = PrintLayout::defaults();
    layout.rows = settings[0];
    layout.cols = settings[1];
    layout.rowSpacing = settings[2];
    layout.colSpacing = settings[3];
    layout.marTop = layout.marBottom = layout.marLeft = layout.marRight = settings[4];
    layout.metric = settings[5] == u"m";
    layout.portrait = !settings.contains(QStringLiteral("land"));
    const PageMetrics metrics{page[0], page[1], page[2], page[3]};
    const std::vector<CardCell> cells = CardGrid::NewPage(layout, metrics);
    QCOMPARE(int(cells.size()), layout.rows.toInt() * layout.cols.toInt());
    const CardCell &c = cells.back();
    const QList<float> got{c.Left, c.Top, c.Right, c.Bottom};
    for (int i = 0; i < 4; ++i)
        QVERIFY2(qAbs(got[i] - cell[i]) < 0.05f, qPrintable(QStringLiteral("side %1: %2").arg(i).arg(got[i])));
}

// Rows and columns as typed are multiplied before the count is cut to whole cards.
void TestPrintLayout::fractionsMultiplyFirst()
{
    PrintLayoutSettings layout = PrintLayout::defaults();
    layout.rows = QStringLiteral("2.5");
    layout.cols = QStringLiteral("2");
    QCOMPARE(CardGrid::pageCount(5, CardGrid::CardsPerPage(layout)), 1);
}

void TestPrintLayout::saveAndLoad()
{
    TestStore db;
    PrintLayoutSettings saved = PrintLayout::defaults();
    saved.metric = true;
    saved.portrait = false;
    saved.fonts[PieceIng] = FontRecord{"DejaVu Serif", 11, true, false, false, true, 0x123456};
    saved.print = {false, true, false, true, false, true};
    saved.mark = QStringLiteral("Le \"Bar\" d'Élodie 🍸");
    saved.glassAsText = true;
    const QString name = QStringLiteral("Bar \"Élodie\" 🍸");
    const qint32 id = PrintLayout::SaveLayout(db.store(), name, saved);

    PrintLayoutSettings loaded = PrintLayout::defaults();
    QVERIFY(PrintLayout::LoadLayout(db.store(), id, loaded));
    QCOMPARE(loaded.portrait, false);
    QCOMPARE(loaded.metric, true);
    QCOMPARE(loaded.fonts, saved.fonts);
    QCOMPARE(loaded.mark, saved.mark);
    QCOMPARE(loaded.glassAsText, true);
    // The mark's check box is not read back: it keeps its state across a load.
    std::array<bool, 6> expected = saved.print;
    expected[checkIndex(PieceMark)] = true;
    QCOMPARE(loaded.print, expected);

    // Saving under a stored name replaces that layout; inch lengths come back with two decimals.
    const qint32 again = PrintLayout::SaveLayout(db.store(), name, PrintLayout::defaults());
    QCOMPARE(again, id);
    QVERIFY(PrintLayout::LoadLayout(db.store(), id, loaded));
    QCOMPARE(loaded.marTop, QStringLiteral("1.00"));
    QCOMPARE(loaded.rowSpacing, QStringLiteral("0.00"));

    const auto list = PrintLayout::FillLayoutList(db.store());
    QCOMPARE(int(list.size()), 1);
    QCOMPARE(list[0].name, name);

    PrintLayout::DeleteLayout(db.store(), id);
    PrintLayoutSettings untouched = loaded;
    QVERIFY(!PrintLayout::LoadLayout(db.store(), id, untouched));
    QCOMPARE(untouched.mark, loaded.mark);
    QVERIFY(PrintLayout::FillLayoutList(db.store()).empty());
}

QTEST_GUILESS_MAIN(TestPrintLayout)
#include "tst_printlayout.moc"
