// The purchase quantities, the list made from a small book, the saved list file and the print's
// layout.
#include "TestFiles.h"
#include "TestStore.h"
#include "shopping/PurchaseAmount.h"
#include "shopping/ShopListFile.h"
#include "shopping/ShopListPrint.h"
#include "shopping/ShoppingList.h"
#include "store/DrinkStore.h"

#include <QTemporaryDir>
#include <QtTest>

namespace {

// Drinks and their lines (ingredient: ounces):
//   1 Gin Sour      Gin 2, Lemon 0.75, Bitters 0.03
//   4 Lemon Drop    Lemon 1, Vodka 2
QString bookSql()
{
    return QStringLiteral(R"(
INSERT INTO Ingredients (id, Ingredient) VALUES (1, 'Gin'), (2, 'Lemon Juice'), (3, 'Bitters'), (6, 'Vodka');
INSERT INTO Drinks (id, Name) VALUES (1, 'Gin Sour'), (4, 'Lemon Drop');
INSERT INTO DrinkRel (DrinkID, IngID, seq, measure) VALUES
  (1, 1, 1, 2), (1, 2, 2, 0.75), (1, 3, 3, 0.03), (4, 2, 1, 1), (4, 6, 2, 2);
)");
}

} // namespace

class tst_ShoppingList : public QObject {
    Q_OBJECT
private slots:
    void purchaseAmount_data();
    void purchaseAmount();
    void generate();
    void roundTrip();
    void read();
    void printLayout();
    void printToPdf();
};

void tst_ShoppingList::purchaseAmount_data()
{
    QTest::addColumn<int>("family");
    QTest::addColumn<float>("ounces");
    QTest::addColumn<QString>("expected");
    const int bar = PurchaseAmount::Bar, metric = PurchaseAmount::Metric;
    QTest::newRow("bar 16 goes one ounce up") << bar << 16.0f << " 17 Ounces";
    QTest::newRow("bar 16.5 is above the pint") << bar << 16.5f << " 2 Pints";
    QTest::newRow("bar 25.6 single is not above the fifth") << bar << 25.6f << " 2 Pints";
    QTest::newRow("bar 51.2 exact multiple goes up") << bar << 51.2f << " 3 Fifths";
    QTest::newRow("bar dash limit") << bar << 0.03125f << "";
    QTest::newRow("bar 2.5 dashes to 2") << bar << 0.046875f << " 2 Dashes";
    QTest::newRow("bar 3.5 dashes to 4") << bar << 0.078125f << " 4 Dashes";
    QTest::newRow("bar huge count in exponent form") << bar << 1e9f << " 3.90625E+07 Fifths";
    QTest::newRow("metric liter limit in ml") << metric << 33.8f << " 1000 ml";
    QTest::newRow("family 0") << 0 << 40.0f << "";
}

void tst_ShoppingList::purchaseAmount()
{
    QFETCH(int, family);
    QFETCH(float, ounces);
    QFETCH(QString, expected);
    const float before = ounces;
    QCOMPARE(GetPurchaseAmount(ounces, family), expected);
    // A chosen unit uses the amount up; no unit leaves it.
    QCOMPARE(ounces, expected.isEmpty() ? before : 0.0f);
}

void tst_ShoppingList::generate()
{
    TestStore t(bookSql());
    // What an earlier list left behind is replaced.
    t.store().execute(QStringLiteral("INSERT INTO tmp_ShopList (id) VALUES (1), (4)"));
    QStringList stages;
    // A drink chosen twice counts twice; a dash too small keeps its row with no amount.
    const auto rows =
        ShoppingList::Generate(t.store(), {1, 4, 4}, 1, PurchaseAmount::Bar, [&](const QString &s) { stages << s; });
    QStringList texts;
    for (const auto &row : rows)
        texts << row.ingredient + u'|' + row.amount;
    QCOMPARE(texts, (QStringList{"Bitters|", "Gin| 3 Ounces", "Lemon Juice| 3 Ounces", "Vodka| 5 Ounces"}));
    QCOMPARE(stages, (QStringList{"Generating list of Drinks...", "Generating shopping list..."}));
    QCOMPARE(t.store().scalar(QStringLiteral("SELECT COUNT(*) FROM tmp_ShopList")).toInt(), 3);
    QVERIFY(!t.store().inTransaction());
}

void tst_ShoppingList::roundTrip()
{
    // Names windows-1252 cannot hold are saved in UTF-8; blanks and quotes stay as typed.
    const QStringList names{QStringLiteral("  \"Hurricane\" "), QStringLiteral("Pi\u00f1a \U0001F379"), "It's"};
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("party.LST"));
    QCOMPARE(ShopListFile::Write(path, names, QStringLiteral("2.5")), QString());
    const ShopListFile::Content back = ShopListFile::Read(path);
    QCOMPARE(back.status, ShopListFile::Status::Read);
    QCOMPARE(back.drinkNames, names);
    QCOMPARE(back.numDrinks, QStringLiteral("2.5"));
}

void tst_ShoppingList::read()
{
    // Blanks around the head lines, LF line ends and no end after the last line are taken; only
    // the first number line ends the names, and the next line is the number whatever it holds.
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("list.LST"));
    QVERIFY(writeFile(path, "  Selected Drinks:  \nGin\n Num Drinks: \n Num Drinks: "));
    const ShopListFile::Content content = ShopListFile::Read(path);
    QCOMPARE(content.status, ShopListFile::Status::Read);
    QCOMPARE(content.drinkNames, QStringList{"Gin"});
    QCOMPARE(content.numDrinks, QStringLiteral("Num Drinks:"));
}

void tst_ShoppingList::printLayout()
{
    ShopListPrint::Input input{{}, QStringLiteral("2.5"), PurchaseAmount::English, {}};
    for (int i = 0; i < 7; ++i)
        input.drinkNames << QStringLiteral("Drink %1").arg(i);
    const auto pieces = ShopListPrint::Layout(input, QDateTime(QDate(2026, 3, 7), QTime(21, 5, 9)));
    QStringList lines;
    QString line;
    for (const auto &p : pieces) {
        line += (line.isEmpty() ? QString() : QStringLiteral(" ")) +
                (p.column ? QString::number(p.column) + u':' : QString()) + p.text;
        if (p.endsLine)
            lines << std::exchange(line, QString());
    }
    // Title, date, notice, the names (column:text), the settings, and one empty row when no list was made.
    QCOMPARE(lines, (QStringList{"Corvane for Windows 3.0 Shopping List", "Saturday, March 7, 2026 - 9:05:09 PM",
                                 ShopListPrint::kNotice, "", "Selected Drinks", "5:Drink 0 50:Drink 1 95:Drink 2",
                                 "5:Drink 3 50:Drink 4 95:Drink 5", "5:Drink 6", "", "", "Settings",
                                 "5:2.5 drinks using English measurements.", "", "", "Shopping List", "5: 50:"}));
    // The date is centered by its text with the month as a number.
    QCOMPARE(pieces[1].centerOn, QStringLiteral("Saturday, 3 7, 2026 - 9:05:09 PM"));
}

void tst_ShoppingList::printToPdf()
{
    QTemporaryDir dir;
    ShopListPrint::Input input{{"Gin Sour"}, QStringLiteral("4"), PurchaseAmount::Bar, {}};
    // Enough lines to run over the first page.
    input.rows.assign(300, {QStringLiteral("Gin"), QStringLiteral(" 2 Pints")});
    const QString path = dir.filePath(QStringLiteral("list.pdf"));
    QCOMPARE(ShopListPrint::PrintToPdf(path, input, QDateTime::currentDateTime()), QString());
    const QByteArray pdf = readFile(path);
    QVERIFY(pdf.startsWith("%PDF") && pdf.count("/Type /Page") - pdf.count("/Type /Pages") >= 2);
    QVERIFY(!ShopListPrint::PrintToPdf(dir.filePath(QStringLiteral("missing/list.pdf")), input, {}).isEmpty());
}

QTEST_MAIN(tst_ShoppingList)
#include "tst_shoppinglist.moc"
