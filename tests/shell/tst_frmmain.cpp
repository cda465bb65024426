// The main window's start and its command lines, driven as a user would.
#include "TestStore.h"
#include "base/AppPaths.h"
#include "base/CLocalConfig.h"
#include "base/modCorvane.h"
#include "presentation/CDrinkFacade.h"
#include "presentation/DrinkListModel.h"
#include "presentation/ListSql.h"
#include "shell/ListController.h"
#include "shell/frmAboutBox.h"
#include "shell/frmMain.h"
#include "store/DrinkStore.h"

#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QTextBrowser>
#include <QTimer>
#include <QtTest>

class tst_FrmMain : public QObject {
    Q_OBJECT
private slots:
    void init();
    void startsOnLastView();
    void commandLines_data();
    void commandLines();
    void viewChangeSavesLastView();
    void unwritableSettingsReachAMessage();
    void aboutBox();

private:
    // Answers the next message box and returns its text.
    QString answerNextMessage();
    QString m_lastMessage;
};

void tst_FrmMain::init()
{
    modCorvane::state() = modCorvane::State();
    m_lastMessage.clear();
}

QString tst_FrmMain::answerNextMessage()
{
    QTimer::singleShot(0, this, [this] {
        QTRY_VERIFY(QApplication::activeModalWidget());
        if (auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget())) {
            m_lastMessage = box->text();
            box->accept();
        }
    });
    return {};
}

void tst_FrmMain::startsOnLastView()
{
    TestStore book(QString(), true);
    AppPaths::setAppDir(book.appDir());
    CLocalConfig().Save(QStringLiteral("Settings"), QStringLiteral("LastView"), QStringLiteral("M"));
    book.store().execute(QStringLiteral("UPDATE Drinks SET Marked = False"));
    book.store().execute(QStringLiteral("UPDATE Drinks SET Marked = True WHERE ID = 2"));
    frmMain w;
    QVERIFY(w.Form_Load(QString()));
    QCOMPARE(modCorvane::state().currentView, 4);
    QVERIFY(w.findChild<QRadioButton *>(QStringLiteral("ssoptMarked"))->isChecked());
    QCOMPARE(w.list()->listStatement(), BuildListSQL(4, 0, false, true));
    QVERIFY(!w.findChild<QWidget *>(QStringLiteral("txtQuickSearch"))->isVisibleTo(&w));
    // The tab of the marked drink's first letter lists it alone.
    const QString name = book.store().scalar(QStringLiteral("SELECT Name FROM Drinks WHERE ID = 2")).toString();
    const int tab = name[0].toUpper().unicode() - 64;
    QTest::mouseClick(w.findChild<QLabel *>(QStringLiteral("pnlListSet%1").arg(tab)), Qt::LeftButton);
    QCOMPARE(w.listModel()->rowCount(), 1);
    QCOMPARE(w.listModel()->idAt(0), 2);
    QCOMPARE(w.findChild<QLabel *>(QStringLiteral("sbCount"))->text(), QStringLiteral("Drink 1 of 1"));
    QCOMPARE(w.findChild<QPushButton *>(QStringLiteral("cmdDummy"))->text(), QStringLiteral("Ready for command"));
    QVERIFY(w.findChild<QTextBrowser *>(QStringLiteral("wbMain"))->toPlainText().startsWith(w.drinkFacade()->currentDrinkName()));
}

void tst_FrmMain::commandLines_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("count");
    QTest::addColumn<int>("current");
    QTest::addColumn<QString>("message");
    QTest::addColumn<bool>("byMap");
    QTest::newRow("id") << "/ID=3" << "Drink ID 3" << 3 << "" << false;
    QTest::newRow("bad id") << "/ID=x3" << "" << -1 << "The Drink ID passed in, x3, is not a valid Corvane Drink ID." << false;
    QTest::newRow("map") << "/MAP=SOUR" << "Map ID SOUR" << 4 << "" << true;
    QTest::newRow("map miss") << "/MAP=NONE" << "" << -1 << "Unable to find NONE in the map file." << false;
    QTest::newRow("ignored") << "hello" << "" << -1 << "" << false;
}

void tst_FrmMain::commandLines()
{
    QFETCH(QString, line);
    QFETCH(QString, count);
    QFETCH(int, current);
    QFETCH(QString, message);
    QFETCH(bool, byMap);
    TestStore book(QString(), true);
    AppPaths::setAppDir(book.appDir());
    QFile map(book.appDir() + QStringLiteral("/Corvane.map"));
    QVERIFY(map.open(QIODevice::WriteOnly));
    map.write(";comment\r\nWhiskey Sour;4;SOUR\r\n");
    map.close();

    frmMain w;
    if (!message.isEmpty())
        answerNextMessage();
    QVERIFY(w.Form_Load(line));
    auto *sbCount = w.findChild<QLabel *>(QStringLiteral("sbCount"));
    const qint32 firstListed = w.listModel()->idAt(0);
    if (!count.isEmpty())
        QCOMPARE(sbCount->text(), count);
    QCOMPARE(w.drinkFacade()->currentDrinkID(), current < 0 ? firstListed : current);
    QCOMPARE(m_lastMessage, message);
    QCOMPARE(w.openedByMap(), byMap);
    QCOMPARE(w.findChild<QPushButton *>(QStringLiteral("cmdDummy"))->text(), QStringLiteral("Ready for command"));
}

void tst_FrmMain::viewChangeSavesLastView()
{
    TestStore book(QString(), true);
    AppPaths::setAppDir(book.appDir());
    frmMain w;
    QVERIFY(w.Form_Load(QString()));
    w.RunCommand(203);
    QCOMPARE(CLocalConfig().Load(QStringLiteral("Settings"), QStringLiteral("LastView"), QString()), QStringLiteral("G"));
    w.RunCommand(207);
    QCOMPARE(CLocalConfig().Load(QStringLiteral("Settings"), QStringLiteral("LastView"), QString()), QStringLiteral("A"));
}

void tst_FrmMain::unwritableSettingsReachAMessage()
{
    TestStore book(QString(), true);
    AppPaths::setAppDir(book.appDir());
    frmMain w;
    QVERIFY(w.Form_Load(QString()));
    // A directory where the settings file should be: said once, and the program goes on.
    QFile::remove(AppPaths::settingsFile());
    QVERIFY(QDir(book.appDir()).mkdir(QStringLiteral("corvane.ini")));
    answerNextMessage();
    w.RunCommand(202);
    QVERIFY2(m_lastMessage.contains(QStringLiteral("cannot be read")), qPrintable(m_lastMessage));
    QCOMPARE(modCorvane::state().currentView, 1);
    m_lastMessage.clear();
    w.RunCommand(203);
    QCOMPARE(m_lastMessage, QString());
    QCOMPARE(modCorvane::state().currentView, 2);
    QVERIFY(QFileInfo(AppPaths::settingsFile()).isDir());
}

void tst_FrmMain::aboutBox()
{
    frmAboutBox box;
    QCOMPARE(box.findChild<QLabel *>(QStringLiteral("lblVer"))->text(), QStringLiteral("Version 6.0u"));
    auto *thanksButton = box.findChild<QPushButton *>(QStringLiteral("Command1"));
    auto *thanks = box.findChild<QWidget *>(QStringLiteral("Thanks"));
    box.show();
    QVERIFY(thanks->isHidden());
    thanksButton->click();
    QVERIFY(thanks->isVisible());
    QCOMPARE(thanksButton->text(), QStringLiteral("&Done"));
    thanksButton->click();
    QVERIFY(thanks->isHidden());
    QCOMPARE(thanksButton->text(), QStringLiteral("&Thanks To..."));
}

QTEST_MAIN(tst_FrmMain)
#include "tst_frmmain.moc"
