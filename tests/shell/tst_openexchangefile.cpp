// An exchange file opened from the desktop: the program starts on it, or a running copy is
// handed it, and the import dialog opens on the file for the user to confirm.
#include "GuiTest.h"
#include "TestFiles.h"
#include "TestStore.h"
#include "base/AppPaths.h"
#include "base/modCorvane.h"
#include "exchange/frmDXImport.h"
#include "presentation/DrinkListModel.h"
#include "shell/frmMain.h"
#include "store/DrinkStore.h"

#include <QGroupBox>
#include <QLineEdit>

namespace {
const QByteArray kNewAndKnown =
    "Corvane Drink Exchange File\r\nVersion:  1.1\r\n"
    "----------\r\nName:     Zeppelin Fizz\r\nGlass:    3\r\nCategory: Fizzes\r\n"
    "Ing:      Gin\r\nMAmount:  6 cl\r\nAmount:   2 oz\r\nMeasure:  1\r\nRecipe:   Shake.\r\n\r\n"
    "----------\r\nName:     Gimlet\r\nGlass:    3\r\nCategory: Sours\r\nRecipe:   Stir.\r\n\r\n";
} // namespace

class tst_OpenExchangeFile : public QObject {
    Q_OBJECT
  private slots:
    void opensImportDialog_data();
    void opensImportDialog();
};

void tst_OpenExchangeFile::opensImportDialog_data()
{
    QTest::addColumn<bool>("handedOver"); // to a window already running, else on its first start
    QTest::newRow("first start") << false;
    QTest::newRow("handed over") << true;
}

void tst_OpenExchangeFile::opensImportDialog()
{
    QFETCH(bool, handedOver);
    modCorvane::state() = modCorvane::State();
    TestStore book(QString(), true);
    AppPaths::setAppDir(book.appDir());
    QTemporaryDir downloads;
    const QString file = downloads.filePath(QStringLiteral("Summer drinks (été).CVX"));
    QVERIFY(writeFile(file, kNewAndKnown));

    // The user reads the file the dialog opened on, presses OK, reads the counters and closes it.
    QString fileShown, seenCounters;
    bool resultsBeforeOK = true;
    QTimer dialog;
    connect(&dialog, &QTimer::timeout, this, [&] {
        auto *dlg = qobject_cast<frmDXImport *>(QApplication::activeModalWidget());
        if (!dlg)
            return;
        dialog.stop();
        fileShown = child<QLineEdit>(dlg, "txtFileName")->text();
        resultsBeforeOK = child<QGroupBox>(dlg, "fraResults")->isVisible();
        child<QPushButton>(dlg, "cmdOK")->click();
        seenCounters = child<QLineEdit>(dlg, "txtAdded")->text() + u'|' + child<QLineEdit>(dlg, "txtIgnored")->text();
        child<QPushButton>(dlg, "cmdCancel")->click();
    });
    dialog.start(20);

    frmMain w;
    QVERIFY(w.Form_Load(handedOver ? QString() : file));
    if (handedOver) {
        auto *mailbox = child<QPushButton>(&w, "cmdDummy");
        mailbox->setText(file);
        mailbox->click();
        // The line is answered before the dialog opens, so a second start does not wait on it.
        QVERIFY(!QApplication::activeModalWidget());
    }
    QTRY_VERIFY(!seenCounters.isEmpty());
    QTRY_VERIFY(!QApplication::activeModalWidget());
    QCOMPARE(fileShown, file);
    QVERIFY(!resultsBeforeOK); // nothing is imported before the user says OK
    QCOMPARE(seenCounters, QStringLiteral("1|1"));
    // The list on screen shows what was imported.
    const QVariant newId = book.store().scalar(QStringLiteral("SELECT ID FROM Drinks WHERE Name = 'Zeppelin Fizz'"));
    QVERIFY(w.listModel()->rowOfId(newId.toInt()) >= 0);
}

QTEST_MAIN(tst_OpenExchangeFile)
#include "tst_openexchangefile.moc"
