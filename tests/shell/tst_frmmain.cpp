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
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QSet>
#include <QSqlQuery>
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
    void markAllActsOnTheListOnScreen_data();
    void markAllActsOnTheListOnScreen();
    void pageBelongsToTheLastSelectedDrink();
    void markingFromTheUnmarkedTab();

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
    modCorvane::state().schemeBackgroundColor = 0x203040;
    frmAboutBox box;
    QCOMPARE(box.palette().color(QPalette::Window), QColor(0x40, 0x30, 0x20)); // the scheme's colours
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

namespace {
QSet<qint32> markedIds(DrinkStore &store)
{
    QSet<qint32> ids;
    QSqlQuery q = store.select(QStringLiteral("SELECT ID FROM Drinks WHERE Marked = True"));
    while (q.next())
        ids.insert(q.value(0).toInt());
    return ids;
}

QSet<qint32> onScreen(const DrinkListModel &model)
{
    return QSet<qint32>(model.ids().begin(), model.ids().end());
}
} // namespace

void tst_FrmMain::markAllActsOnTheListOnScreen_data()
{
    QTest::addColumn<int>("command");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("rows");
    QTest::newRow("mark after a quick search") << 402 << "Ma" << 7;
    QTest::newRow("unmark after a quick search") << 403 << "ma" << 7;
    QTest::newRow("typed quote") << 402 << "Bee's" << 1;
    QTest::newRow("nothing found") << 402 << "Zzq" << 0;
}

void tst_FrmMain::markAllActsOnTheListOnScreen()
{
    QFETCH(int, command);
    QFETCH(QString, typed);
    QFETCH(int, rows);
    TestStore book(QString(), true);
    AppPaths::setAppDir(book.appDir());
    const bool mark = command == 402;
    // Unmarking starts from a book where every drink is marked.
    book.store().execute(mark ? QStringLiteral("UPDATE Drinks SET Marked = False")
                              : QStringLiteral("UPDATE Drinks SET Marked = True"));
    const QSet<qint32> before = markedIds(book.store());
    frmMain w;
    QVERIFY(w.Form_Load(QString()));
    w.RunCommand(207);
    QTest::keyClicks(w.findChild<QLineEdit *>(QStringLiteral("txtQuickSearch")), typed);
    QTRY_COMPARE(w.listModel()->rowCount(), rows);
    const QString page = w.findChild<QTextBrowser *>(QStringLiteral("wbMain"))->toPlainText();

    w.RunCommand(command);

    const QSet<qint32> shown = onScreen(*w.listModel());
    QCOMPARE(markedIds(book.store()), mark ? before + shown : before - shown);
    if (rows > 0) {
        // The list stands where it stood, and its selected drink is the one on the page.
        QCOMPARE(w.list()->selectedRow(), 0);
        QCOMPARE(w.findChild<QLabel *>(QStringLiteral("sbCount"))->text(), QStringLiteral("Drink 1 of %1").arg(rows));
        QCOMPARE(w.drinkFacade()->currentDrinkID(), w.listModel()->idAt(0));
    } else {
        QCOMPARE(w.findChild<QTextBrowser *>(QStringLiteral("wbMain"))->toPlainText(), page);
    }
}

void tst_FrmMain::pageBelongsToTheLastSelectedDrink()
{
    TestStore book(QString(), true);
    AppPaths::setAppDir(book.appDir());
    frmMain w;
    QVERIFY(w.Form_Load(QString()));
    w.drinkFacade()->setCurrentHTMLTemplatePath(QStringLiteral(CORVANE_SOURCE_DATA_DIR "/Templates/Standard.cvt"));
    w.RunCommand(207);
    w.show();
    auto *grid = w.list()->grid();
    grid->setFocus();
    // Two row changes queued at once, as a held Down arrow gives them: the second arrives
    // while the first page is being built.
    for (int i = 0; i < 2; ++i) {
        QCoreApplication::postEvent(grid, new QKeyEvent(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier));
        QCoreApplication::postEvent(grid, new QKeyEvent(QEvent::KeyRelease, Qt::Key_Down, Qt::NoModifier));
    }
    QTRY_COMPARE(w.list()->selectedRow(), 2);
    QCoreApplication::processEvents();
    const qint32 id = w.listModel()->idAt(2);
    const QString page = w.findChild<QTextBrowser *>(QStringLiteral("wbMain"))->toPlainText();
    QVERIFY2(page.trimmed().startsWith(w.listModel()->nameAt(2)), qPrintable(page.left(60)));
    // Every ingredient on the page is the drink's own, and every one of its own is there.
    QSqlQuery all = book.store().select(QStringLiteral("SELECT DrinkID, Ingredient FROM DrinkIngredients "
                                                       "WHERE DrinkID IN (%1, %2, %3)")
                                            .arg(w.listModel()->idAt(0))
                                            .arg(w.listModel()->idAt(1))
                                            .arg(id));
    int own = 0;
    while (all.next()) {
        const QString ingredient = all.value(1).toString();
        if (all.value(0).toInt() == id) {
            ++own;
            QVERIFY2(page.contains(ingredient), qPrintable(ingredient + QStringLiteral("\n") + page));
        }
    }
    QVERIFY(own > 0);
    QCOMPARE(w.drinkFacade()->currentDrinkID(), id);
}

void tst_FrmMain::markingFromTheUnmarkedTab()
{
    TestStore book(QString(), true);
    AppPaths::setAppDir(book.appDir());
    book.store().execute(QStringLiteral("UPDATE Drinks SET Marked = False"));
    book.store().execute(QStringLiteral("UPDATE Drinks SET Marked = True WHERE Name < 'B'"));
    frmMain w;
    QVERIFY(w.Form_Load(QString()));
    w.RunCommand(205);
    const auto clickTab = [&](int tab) {
        QTest::mouseClick(w.findChild<QLabel *>(QStringLiteral("pnlListSet%1").arg(tab)), Qt::LeftButton);
    };
    // "Show Unmarked Only", then the tab of S: the unmarked drinks from S to T.
    w.findChild<QRadioButton *>(QStringLiteral("ssoptUnmarked"))->click();
    clickTab(19);
    const QSet<qint32> sDrinks = onScreen(*w.listModel());
    QVERIFY(sDrinks.size() > 3);
    for (int row = 0; row < w.listModel()->rowCount(); ++row)
        QVERIFY(w.listModel()->nameAt(row).startsWith(u'S', Qt::CaseInsensitive));
    const QSet<qint32> before = markedIds(book.store());
    w.RunCommand(402);
    QCOMPARE(markedIds(book.store()), before + sDrinks);
    // The marked side of the same tab now lists exactly them.
    w.findChild<QRadioButton *>(QStringLiteral("ssoptMarked"))->click();
    clickTab(19);
    QCOMPARE(onScreen(*w.listModel()), sDrinks);
}

QTEST_MAIN(tst_FrmMain)
#include "tst_frmmain.moc"
