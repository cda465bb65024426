// The export and import windows as a user works them: export picked and marked drinks in each
// format, then import the exchange file into another book and watch the counters.
#include "GuiTest.h"
#include "TestFiles.h"
#include "TestStore.h"
#include "exchange/frmDXExport.h"
#include "exchange/frmDXImport.h"
#include "presentation/CDrinkFacade.h"
#include "presentation/DrinkListModel.h"
#include "store/DrinkStore.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>

namespace {
// Answers the next message box once it shows, without waiting inside the window's own yields.
void answerWhenShown(QObject *context, QString *seen, QMessageBox::StandardButton button = QMessageBox::Ok)
{
    auto *poll = new QTimer(context);
    QObject::connect(poll, &QTimer::timeout, context, [poll, seen, button] {
        if (auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget())) {
            *seen = box->windowTitle() + u'|' + box->text();
            poll->deleteLater();
            box->button(button)->click();
        }
    });
    poll->start(20);
}
}

class tst_ExchangeDialogs : public QObject {
    Q_OBJECT
private slots:
    void exportThenImport()
    {
        TestStore book(QString(), true);
        book.store().execute(QStringLiteral("UPDATE Drinks SET Marked = No"));
        book.store().execute(QStringLiteral("UPDATE Drinks SET Marked = Yes WHERE Name IN ('Mojito', 'Margarita')"));
        CDrinkFacade facade(book.store(), book.appDir());
        DrinkListModel list;
        list.load(book.store(), QStringLiteral("SELECT ID, Name FROM Drinks WHERE Name LIKE 'M*' ORDER BY Name"));
        const QString cvx = book.appDir() + QStringLiteral("/picked.cvx");
        QString seen;

        {
            frmDXExport dlg(book.store(), facade, &list, nullptr);
            dlg.Setup(1);
            dlg.show();
            QVERIFY(!child<QCheckBox>(&dlg, "chk64K")->isVisible());
            QCOMPARE(child<QLabel>(&dlg, "lblAvailCount")->text(), QStringLiteral("%1 Drinks").arg(list.rowCount()));
            QVERIFY(!child<QListWidget>(&dlg, "lstDrinks")->isEnabled());
            child<QRadioButton>(&dlg, "optSel")->click();
            auto *drinks = child<QListWidget>(&dlg, "lstDrinks");
            drinks->item(0)->setSelected(true);
            drinks->item(2)->setSelected(true);
            QCOMPARE(child<QLabel>(&dlg, "lblSelCount")->text(), QStringLiteral("2 Selected"));
            child<QLineEdit>(&dlg, "txtFileName")->setText(cvx);
            grabIfAsked(&dlg, "export");
            child<QPushButton>(&dlg, "cmdOK")->click();
            QCOMPARE(dlg.result(), int(QDialog::Accepted));
            const QByteArray text = readFile(cvx);
            QVERIFY(text.startsWith("Corvane Drink Exchange File\r\nVersion:  1.1\r\n----------\r\nName:     " +
                                    drinks->item(0)->text().toLatin1() + "\r\n"));
            QCOMPARE(text.count("\r\n----------\r\n"), 2);
        }
        {
            // An existing file is kept when the user says No.
            frmDXExport dlg(book.store(), facade, &list, nullptr);
            dlg.Setup(3);
            child<QLineEdit>(&dlg, "txtFileName")->setText(cvx);
            answerWhenShown(this, &seen, QMessageBox::No);
            child<QPushButton>(&dlg, "cmdOK")->click();
            QCOMPARE(seen, QStringLiteral("Export Drinks in an XML File|The file picked.cvx already exists.  Do you want to replace this file?"));
            QVERIFY(readFile(cvx).startsWith("Corvane"));
            // Marked drinks to XML.
            const QString xml = book.appDir() + QStringLiteral("/marked.xml");
            child<QLineEdit>(&dlg, "txtFileName")->setText(xml);
            child<QPushButton>(&dlg, "cmdOK")->click();
            const QByteArray text = readFile(xml);
            QCOMPARE(text.count("<Drink ID="), 2);
            QVERIFY(text.indexOf("Name=\"Margarita\"") < text.indexOf("Name=\"Mojito\""));
        }
        {
            // Marked drinks to the point-of-sale file; a folder that does not exist is refused.
            frmDXExport dlg(book.store(), facade, &list, nullptr);
            dlg.Setup(2);
            dlg.show();
            QVERIFY(child<QCheckBox>(&dlg, "chkIncRecipe")->isVisible());
            child<QLineEdit>(&dlg, "txtFileName")->setText(book.appDir() + QStringLiteral("/no/recipe.txt"));
            answerWhenShown(this, &seen);
            child<QPushButton>(&dlg, "cmdOK")->click();
            QVERIFY2(seen.endsWith(QStringLiteral("/no/recipe.txt is not a valid file name.")), qPrintable(seen));
            QVERIFY(dlg.isVisible());
            const QString pos = book.appDir() + QStringLiteral("/recipe.txt");
            child<QLineEdit>(&dlg, "txtFileName")->setText(pos);
            child<QPushButton>(&dlg, "cmdOK")->click();
            QVERIFY(readFile(pos).startsWith("[0001]\r\nDESCRIPTION=Margarita\r\nLine1="));
            QVERIFY(readFile(pos).contains("\r\n[0002]\r\nDESCRIPTION=Mojito\r\n"));
        }

        TestStore other;
        frmDXImport dlg(other.store(), nullptr);
        dlg.show();
        QVERIFY(!child<QGroupBox>(&dlg, "fraResults")->isVisible());
        answerWhenShown(this, &seen);
        child<QPushButton>(&dlg, "cmdOK")->click();
        QCOMPARE(seen.section(u'|', 1), QStringLiteral("Please enter the name of the file to import."));
        answerWhenShown(this, &seen);
        dlg.ImportCVXFile(book.appDir() + QStringLiteral("/marked.xml"));
        QCOMPARE(seen.section(u'|', 1), QStringLiteral("This file is not a valid Corvane Drink Exchange file."));
        QVERIFY(!child<QGroupBox>(&dlg, "fraResults")->isVisible());
        dlg.ImportCVXFile(cvx);
        dlg.ImportCVXFile(cvx);
        grabIfAsked(&dlg, "import");
        QVERIFY(child<QGroupBox>(&dlg, "fraResults")->isVisible());
        QCOMPARE(child<QLineEdit>(&dlg, "txtAdded")->text(), QStringLiteral("2"));
        QCOMPARE(child<QLineEdit>(&dlg, "txtIgnored")->text(), QStringLiteral("2"));
        QVERIFY(dlg.addedAny());
        QCOMPARE(other.store().scalar(QStringLiteral("SELECT Count(*) FROM Drinks")).toInt(), 2);
    }

private:
    // CORVANE_SHOTS=dir keeps a picture of the window for a person to look at.
    static void grabIfAsked(QWidget *w, const char *name)
    {
        const QString dir = qEnvironmentVariable("CORVANE_SHOTS");
        if (!dir.isEmpty())
            w->grab().save(dir + u'/' + QLatin1String(name) + QStringLiteral(".png"));
    }
};

QTEST_MAIN(tst_ExchangeDialogs)
#include "tst_exchangedialogs.moc"
