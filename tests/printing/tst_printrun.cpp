#include "presentation/CDrinkFacade.h"
#include "printing/PrintRun.h"
#include "store/DrinkStore.h"

#include "PrintBook.h"
#include "TestFiles.h"
#include "TestStore.h"

#include <QtTest>

class TestPrintRun : public QObject {
    Q_OBJECT
  private slots:
    void fullLastPageBeginsNoEmptyOne();
    void cancelAndBadLayout();
};

// Three cards across a landscape page fill it.
void TestPrintRun::fullLastPageBeginsNoEmptyOne()
{
    TestStore db(printBookSql());
    CDrinkFacade facade(db.store(), db.appDir());
    PrintLayoutSettings layout = PrintLayout::defaults();
    layout.cols = QStringLiteral("3");
    layout.portrait = false;
    layout.marTop = layout.marLeft = QStringLiteral("0.5");
    layout.print[checkIndex(PieceRecipe)] = true;
    const QString pdf = db.appDir() + QStringLiteral("/cards.pdf");
    QList<int> progress;
    const PrintResult result = printDrinksToPdf(pdf, facade, {10, 11, 12}, layout, [&](int done, int total) {
        progress << done * 10 + total;
        return true;
    });
    QCOMPARE(result.status, PrintResult::Printed);
    QCOMPARE(result.cards, 3);
    QCOMPARE(result.pages, 1);
    QCOMPARE(progress, (QList<int>{13, 23, 33}));
    QCOMPARE(pdfPages(pdf), 1);

    const QString text = pdfText(pdf);
    for (const char *piece : {"Martini", "Manhattan", "Kir \"Royal\" Élysée", "2 oz Gin", "1/2 oz Dry Vermouth",
                              "1 oz Sweet Vermouth", "1/2 oz Crème de Cassis", "4 oz Champagne", "Stirred", "Olive",
                              "Stir with ice and strain.", "Printed with Corvane"})
        QVERIFY2(text.contains(QString::fromUtf8(piece)), piece);
    // English amounts only, never the metric ones.
    QVERIFY(!text.contains(QStringLiteral("6 cl")));
    // Cards go in list order, left to right.
    QVERIFY(text.indexOf(QStringLiteral("Martini")) < text.indexOf(QStringLiteral("Manhattan")));
}

void TestPrintRun::cancelAndBadLayout()
{
    TestStore db(printBookSql());
    CDrinkFacade facade(db.store(), db.appDir());
    const QString pdf = db.appDir() + QStringLiteral("/cards.pdf");
    QVERIFY(writeFile(pdf, "before"));

    PrintLayoutSettings layout = PrintLayout::defaults();
    int calls = 0;
    PrintResult result = printDrinksToPdf(pdf, facade, {10, 11, 12}, layout, [&](int, int) { return ++calls < 2; });
    QCOMPARE(result.status, PrintResult::Canceled);
    QCOMPARE(calls, 2);

    layout.cols = QStringLiteral("0");
    result = printDrinksToPdf(pdf, facade, {10}, layout);
    QCOMPARE(result.status, PrintResult::BadLayout);
    QCOMPARE(result.cards, 0);

    // Neither run touched the file that was there.
    QCOMPARE(readFile(pdf), QByteArray("before"));

    // A file that cannot be written fails without printing.
    result =
        printDrinksToPdf(db.appDir() + QStringLiteral("/no/such/dir/cards.pdf"), facade, {10}, PrintLayout::defaults());
    QCOMPARE(result.status, PrintResult::Failed);
    QVERIFY(!result.error.isEmpty());
}

QTEST_MAIN(TestPrintRun)
#include "tst_printrun.moc"
