// The print dialog driven as a user drives it: from the list to a printed PDF file.
#include "GuiTest.h"
#include "PrintBook.h"
#include "TestStore.h"
#include "base/AppPaths.h"
#include "presentation/CDrinkFacade.h"
#include "presentation/DrinkListModel.h"
#include "printing/PrintLayout.h"
#include "printing/frmPrint.h"
#include "store/DrinkStore.h"

#include <QCheckBox>
#include <QComboBox>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QToolButton>

class TestFrmPrint : public QObject {
    Q_OBJECT
  private slots:
    void refusals_data();
    void refusals();
    void printsTheChosenDrinks();

  private:
    QString lastMessage;
};

void TestFrmPrint::refusals_data()
{
    QTest::addColumn<QString>("extraSql");
    QTest::addColumn<bool>("markedOnly");
    QTest::addColumn<QString>("listSql");
    QTest::addColumn<QString>("message");
    QTest::newRow("no marked drink") << "UPDATE Drinks SET Marked = 0" << true << ""
                                     << "There are no marked drinks to print.";
    QTest::newRow("empty main list") << "" << false << "SELECT id, Name FROM Drinks WHERE id < 0"
                                     << "There are no drinks selected to print.";
    QTest::newRow("marked drinks ignore the list") << "" << true << ""
                                                   << "";
}

void TestFrmPrint::refusals()
{
    QFETCH(QString, extraSql);
    QFETCH(bool, markedOnly);
    QFETCH(QString, listSql);
    QFETCH(QString, message);
    TestStore db(printBookSql() + extraSql + u';');
    CDrinkFacade facade(db.store(), db.appDir());
    DrinkListModel list;
    if (!listSql.isEmpty())
        list.load(db.store(), listSql);
    frmPrint dlg(db.store(), facade, &list);
    QString seen;
    if (!message.isEmpty())
        answerNextMessage(this, &seen);
    QCOMPARE(dlg.Setup(markedOnly), message.isEmpty());
    QCOMPARE(seen.section(u'|', 1), message);
    if (message.isEmpty()) {
        const auto *drinks = child<QListWidget>(&dlg, "lstDrinks");
        QCOMPARE(drinks->count(), 1);
        QCOMPARE(drinks->item(0)->text(), QStringLiteral("Kir \"Royal\" Élysée"));
        QCOMPARE(facade.currentDrinkID(), drinks->item(0)->data(Qt::UserRole).toInt());
    }
}

void TestFrmPrint::printsTheChosenDrinks()
{
    TestStore db(printBookSql());
    AppPaths::setAppDir(db.appDir());
    CDrinkFacade facade(db.store(), db.appDir());
    DrinkListModel list;
    list.load(db.store(), QStringLiteral("SELECT id, Name FROM Drinks ORDER BY Name"));
    frmPrint dlg(db.store(), facade, &list);
    QVERIFY(dlg.Setup(false));
    dlg.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dlg));

    auto *selCount = child<QLabel>(&dlg, "lblSelCount");
    QCOMPARE(child<QLabel>(&dlg, "lblAvailCount")->text(), QStringLiteral("3 Drinks"));
    QCOMPARE(selCount->text(), QStringLiteral("0 Selected, 0 Pages"));

    // Nothing chosen yet: the dialog says so and stays.
    answerNextMessage(this, &lastMessage);
    QTest::mouseClick(child<QPushButton>(&dlg, "cmdPrint"), Qt::LeftButton);
    QCOMPARE(lastMessage.section(u'|', 1), QStringLiteral("Please select the drinks you want to print."));
    QVERIFY(dlg.isVisible());

    QTest::mouseClick(child<QPushButton>(&dlg, "cmdSelectAll"), Qt::LeftButton);
    QCOMPARE(selCount->text(), QStringLiteral("3 Selected, 3 pages"));

    // The layout page: two columns, metric lengths, a margin a millimetre wider.
    QTest::mouseClick(child<QPushButton>(&dlg, "pnlOpt1"), Qt::LeftButton);
    auto *cols = child<QLineEdit>(&dlg, "txtCols");
    cols->setText(QStringLiteral("2"));
    QCOMPARE(selCount->text(), QStringLiteral("3 Selected, 2 pages"));
    QTest::mouseClick(child<QCheckBox>(&dlg, "chkMetric"), Qt::LeftButton);
    QCOMPARE(child<QLabel>(&dlg, "lblMeas")->text(), QStringLiteral("mm"));
    auto *top = child<QLineEdit>(&dlg, "txtMarTop");
    QCOMPARE(top->text(), QStringLiteral("25"));
    QCOMPARE(child<QLineEdit>(&dlg, "txtGlassPH")->text(), QStringLiteral("13"));
    QTest::mouseClick(child<QToolButton>(child<QWidget>(&dlg, "udTop"), "up"), Qt::LeftButton);
    QCOMPARE(top->text(), QStringLiteral("26"));

    // Stored under a new name with quotes and an emoji, then changed and not replaced.
    QTest::mouseClick(child<QPushButton>(&dlg, "pnlOpt0"), Qt::LeftButton);
    const QString name = QStringLiteral("Two \"up\" 🍸");
    QTimer::singleShot(0, this, [name] {
        QTRY_VERIFY(qobject_cast<QInputDialog *>(QApplication::activeModalWidget()));
        auto *box = qobject_cast<QInputDialog *>(QApplication::activeModalWidget());
        box->setTextValue(name);
        box->accept();
    });
    QTest::mouseClick(child<QPushButton>(&dlg, "cmdNewLayout"), Qt::LeftButton);
    auto *layouts = child<QComboBox>(&dlg, "cmbLayout");
    QCOMPARE(layouts->currentText(), name);
    cols->setText(QStringLiteral("3"));
    answerNextMessage(this, &lastMessage, QMessageBox::No);
    QTest::mouseClick(child<QPushButton>(&dlg, "cmdSave"), Qt::LeftButton);
    QCOMPARE(
        lastMessage,
        QStringLiteral("Save Layout|Do you want to replace the \"%1\" layout with the current settings?").arg(name));
    PrintLayoutSettings stored = PrintLayout::defaults();
    QVERIFY(PrintLayout::LoadLayout(db.store(), layouts->currentData().toInt(), stored));
    QCOMPARE(stored.cols, QStringLiteral("2"));
    QCOMPARE(stored.marTop, QStringLiteral("26"));

    // Choosing the layout again brings its settings back; a refused delete keeps it.
    layouts->setCurrentIndex(0);
    emit layouts->activated(0);
    QCOMPARE(cols->text(), QStringLiteral("2"));
    answerNextMessage(this, &lastMessage, QMessageBox::No);
    QTest::mouseClick(child<QPushButton>(&dlg, "cmdDeleteLayout"), Qt::LeftButton);
    QCOMPARE(lastMessage.section(u'|', 0, 0), QStringLiteral("Delete Layout"));
    QCOMPARE(layouts->count(), 1);

    // The recipe shows too, and the run goes to a PDF file.
    child<QCheckBox>(&dlg, "chkPrint3")->setChecked(true);
    auto *printer = child<QComboBox>(&dlg, "cmbPrinter");
    printer->setCurrentIndex(printer->findText(QStringLiteral("PDF file")));
    const QString pdf = db.appDir() + QStringLiteral("/cards.pdf");
    child<QLineEdit>(&dlg, "txtPdfFile")->setText(pdf);
    QTest::mouseClick(child<QPushButton>(&dlg, "cmdPrint"), Qt::LeftButton);
    QVERIFY(!dlg.isVisible());
    QCOMPARE(dlg.printedCards(), 3);
    QCOMPARE(pdfPages(pdf), 2);
    const QString text = pdfText(pdf);
    for (const char *piece :
         {"Manhattan", "Martini", "Kir \"Royal\" Élysée", "2 oz Rye Whiskey", "Stir with ice and strain."})
        QVERIFY2(text.contains(QString::fromUtf8(piece)), piece);

    // A layout with no card prints nothing and says why.
    dlg.show();
    child<QLineEdit>(&dlg, "txtRows")->setText(QStringLiteral("0"));
    QFile::remove(pdf);
    answerNextMessage(this, &lastMessage);
    QTest::mouseClick(child<QPushButton>(&dlg, "cmdPrint"), Qt::LeftButton);
    QCOMPARE(lastMessage.section(u'|', 1), QStringLiteral("Please check your layout settings."));
    QVERIFY(!QFile::exists(pdf));
}

QTEST_MAIN(TestFrmPrint)
#include "tst_frmprint.moc"
