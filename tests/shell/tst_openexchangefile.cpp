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
#include <QtTest>

namespace {
const QByteArray kTwoDrinks =
    "Corvane Drink Exchange File\r\nVersion:  1.1\r\n"
    "----------\r\nName:     Zeppelin Fizz\r\nGlass:    3\r\nCategory: Fizzes\r\n"
    "Ing:      Gin\r\nMAmount:  6 cl\r\nAmount:   2 oz\r\nMeasure:  1\r\nRecipe:   Shake.\r\n\r\n"
    "----------\r\nName:     Gimlet\r\nGlass:    3\r\nCategory: Sours\r\nRecipe:   Stir.\r\n\r\n";

// What the user saw and did in the import dialog.
struct Seen {
    QString fileName, added, ignored, message;
    bool resultsShownAtFirst = true;
};

// Works the next import dialog as a user: reads the file it opened on, presses OK, reads the
// counters (or the message the import gave), and closes it.
void workImportDialog(QObject *context, Seen *seen)
{
    // Message boxes are answered by a timer of their own: the one working the dialog is still
    // inside its click while the import's message shows.
    auto *boxes = new QTimer(context);
    QObject::connect(boxes, &QTimer::timeout, context, [seen] {
        if (auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget())) {
            seen->message = box->text();
            box->button(QMessageBox::Ok)->click();
        }
    });
    boxes->start(20);
    auto *poll = new QTimer(context);
    QObject::connect(poll, &QTimer::timeout, context, [poll, boxes, seen] {
        auto *dlg = qobject_cast<frmDXImport *>(QApplication::activeModalWidget());
        if (!dlg)
            return;
        poll->stop();
        seen->fileName = child<QLineEdit>(dlg, "txtFileName")->text();
        seen->resultsShownAtFirst = child<QGroupBox>(dlg, "fraResults")->isVisible();
        child<QPushButton>(dlg, "cmdOK")->click();
        seen->added = child<QLineEdit>(dlg, "txtAdded")->text();
        seen->ignored = child<QLineEdit>(dlg, "txtIgnored")->text();
        child<QPushButton>(dlg, "cmdCancel")->click();
        poll->deleteLater();
        boxes->deleteLater();
    });
    poll->start(20);
}
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
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("added");
    QTest::addColumn<QString>("ignored");
    QTest::addColumn<QString>("message");
    QTest::newRow("first start") << false << kTwoDrinks << "1"
                                 << "1"
                                 << "";
    QTest::newRow("handed over") << true << kTwoDrinks << "1"
                                 << "1"
                                 << "";
    QTest::newRow("not an exchange file") << false << QByteArray("Shopping list\r\n") << ""
                                          << ""
                                          << "This file is not a valid Corvane Drink Exchange file.";
}

void tst_OpenExchangeFile::opensImportDialog()
{
    QFETCH(bool, handedOver);
    QFETCH(QByteArray, content);
    QFETCH(QString, added);
    QFETCH(QString, ignored);
    QFETCH(QString, message);
    modCorvane::state() = modCorvane::State();
    TestStore book(QString(), true);
    AppPaths::setAppDir(book.appDir());
    QTemporaryDir downloads;
    const QString file = downloads.filePath(QStringLiteral("Summer drinks (été).CVX"));
    QVERIFY(writeFile(file, content));
    const qint64 drinksBefore = book.store().scalar(QStringLiteral("SELECT COUNT(*) FROM Drinks")).toLongLong();

    Seen seen;
    workImportDialog(this, &seen);
    frmMain w;
    if (handedOver) {
        QVERIFY(w.Form_Load(QString()));
        auto *mailbox = child<QPushButton>(&w, "cmdDummy");
        mailbox->setText(file);
        mailbox->click();
        // The line is answered before the dialog opens, so a second start does not wait on it.
        QCOMPARE(mailbox->text(), QStringLiteral("Ready for command"));
        QVERIFY(!QApplication::activeModalWidget());
    } else {
        QVERIFY(w.Form_Load(file));
    }
    QTRY_VERIFY(!seen.fileName.isEmpty());
    QTRY_VERIFY(!QApplication::activeModalWidget());

    QCOMPARE(seen.fileName, file);
    QVERIFY(!seen.resultsShownAtFirst); // nothing is imported before the user says OK
    QCOMPARE(seen.message, message);
    if (message.isEmpty()) {
        QCOMPARE(seen.added, added);
        QCOMPARE(seen.ignored, ignored);
    }
    const qint64 drinksAfter = book.store().scalar(QStringLiteral("SELECT COUNT(*) FROM Drinks")).toLongLong();
    QCOMPARE(drinksAfter - drinksBefore, added.toLongLong());
    // The list on screen shows what was imported.
    const qint32 newId =
        book.store().scalar(QStringLiteral("SELECT ID FROM Drinks WHERE Name = 'Zeppelin Fizz'")).toInt();
    QCOMPARE(w.listModel()->rowOfId(newId) >= 0, added == u"1");
}

QTEST_MAIN(tst_OpenExchangeFile)
#include "tst_openexchangefile.moc"
