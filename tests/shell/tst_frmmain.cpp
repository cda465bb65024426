// The main window's start and its command lines, driven as a user would.
#include "GuiTest.h"
#include "TestFiles.h"
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

#include <QFile>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QSet>
#include <QSqlQuery>
#include <QRadioButton>
#include <QTableView>
#include <QTextBrowser>
#include <QtTest>

class tst_FrmMain : public QObject {
    Q_OBJECT
private slots:
    void init();
    void cleanup() { m_book.reset(); }
    void startsOnLastViewAndMarksFromItsTabs();
    void commandLines_data();
    void commandLines();
    void viewChangesSaveTheLastViewWhileTheyCan();
    void aboutBox();
    void markAllActsOnTheListOnScreen_data();
    void markAllActsOnTheListOnScreen();
    void pageBelongsToTheLastSelectedDrink();

private:
    DrinkStore &store() { return m_book->store(); }
    std::unique_ptr<TestStore> m_book; // the delivered book, in the application directory
};

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

void tst_FrmMain::init()
{
    modCorvane::state() = modCorvane::State();
    m_book = std::make_unique<TestStore>(QString(), true);
    AppPaths::setAppDir(m_book->appDir());
}

void tst_FrmMain::startsOnLastViewAndMarksFromItsTabs()
{
    CLocalConfig().Save(QStringLiteral("Settings"), QStringLiteral("LastView"), QStringLiteral("M"));
    store().execute(QStringLiteral("UPDATE Drinks SET Marked = False"));
    store().execute(QStringLiteral("UPDATE Drinks SET Marked = True WHERE ID = 2"));
    frmMain w;
    QVERIFY(w.Form_Load(QString()));
    QCOMPARE(modCorvane::state().currentView, 4);
    QVERIFY(child<QRadioButton>(&w, "ssoptMarked")->isChecked());
    QCOMPARE(w.list()->listStatement(), BuildListSQL(4, 0, false, true));
    QVERIFY(!child<QWidget>(&w, "txtQuickSearch")->isVisibleTo(&w));
    const auto clickTab = [&](int tab) {
        QTest::mouseClick(child<QLabel>(&w, qPrintable(QStringLiteral("pnlListSet%1").arg(tab))), Qt::LeftButton);
    };
    // The tab of the marked drink's first letter lists it alone.
    const QString name = store().scalar(QStringLiteral("SELECT Name FROM Drinks WHERE ID = 2")).toString();
    clickTab(name[0].toUpper().unicode() - 64);
    QCOMPARE(w.listModel()->rowCount(), 1);
    QCOMPARE(w.listModel()->idAt(0), 2);
    QCOMPARE(child<QLabel>(&w, "sbCount")->text(), QStringLiteral("Drink 1 of 1"));
    QCOMPARE(child<QPushButton>(&w, "cmdDummy")->text(), QStringLiteral("Ready for command"));
    QVERIFY(child<QTextBrowser>(&w, "wbMain")->toPlainText().startsWith(w.drinkFacade()->currentDrinkName()));

    // "Show Unmarked Only", then the tab of S: the unmarked drinks from S to T.
    child<QRadioButton>(&w, "ssoptUnmarked")->click();
    clickTab(19);
    const QSet<qint32> sDrinks = onScreen(*w.listModel());
    QVERIFY(sDrinks.size() > 3);
    for (int row = 0; row < w.listModel()->rowCount(); ++row)
        QVERIFY(w.listModel()->nameAt(row).startsWith(u'S', Qt::CaseInsensitive));
    w.RunCommand(402);
    QCOMPARE(markedIds(store()), QSet<qint32>{2} + sDrinks);
    // The marked side of the same tab now lists exactly them.
    child<QRadioButton>(&w, "ssoptMarked")->click();
    clickTab(19);
    QCOMPARE(onScreen(*w.listModel()), sDrinks);
}

void tst_FrmMain::commandLines_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("count");
    QTest::addColumn<int>("current");
    QTest::addColumn<QString>("message");
    QTest::addColumn<bool>("byMap");
    QTest::newRow("id") << "/ID=3" << "Drink ID 3" << 3 << "" << false;
    QTest::newRow("bad id") << "/ID=x3" << "" << -1 << "Corvane|The Drink ID passed in, x3, is not a valid Corvane Drink ID." << false;
    QTest::newRow("map") << "/MAP=SOUR" << "Map ID SOUR" << 4 << "" << true;
    QTest::newRow("map miss") << "/MAP=NONE" << "" << -1 << "Corvane|Unable to find NONE in the map file." << false;
    QTest::newRow("ignored") << "hello" << "" << -1 << "" << false;
}

void tst_FrmMain::commandLines()
{
    QFETCH(QString, line);
    QFETCH(QString, count);
    QFETCH(int, current);
    QFETCH(QString, message);
    QFETCH(bool, byMap);
    QVERIFY(writeFile(m_book->appDir() + QStringLiteral("/Corvane.map"), ";comment\r\nWhiskey Sour;4;SOUR\r\n"));
    frmMain w;
    QString seen;
    if (!message.isEmpty())
        answerNextMessage(this, &seen);
    QVERIFY(w.Form_Load(line));
    auto *sbCount = child<QLabel>(&w, "sbCount");
    const qint32 firstListed = w.listModel()->idAt(0);
    if (!count.isEmpty())
        QCOMPARE(sbCount->text(), count);
    QCOMPARE(w.drinkFacade()->currentDrinkID(), current < 0 ? firstListed : current);
    QCOMPARE(seen, message);
    QCOMPARE(w.openedByMap(), byMap);
    QCOMPARE(child<QPushButton>(&w, "cmdDummy")->text(), QStringLiteral("Ready for command"));
}

void tst_FrmMain::viewChangesSaveTheLastViewWhileTheyCan()
{
    frmMain w;
    QVERIFY(w.Form_Load(QString()));
    const auto lastView = [] { return CLocalConfig().Load(QStringLiteral("Settings"), QStringLiteral("LastView"), QString()); };
    w.RunCommand(203);
    QCOMPARE(lastView(), QStringLiteral("G"));
    w.RunCommand(207);
    QCOMPARE(lastView(), QStringLiteral("A"));
    // A directory where the settings file should be: said once, and the program goes on.
    QFile::remove(AppPaths::settingsFile());
    QVERIFY(QDir(m_book->appDir()).mkdir(QStringLiteral("corvane.ini")));
    QString seen;
    answerNextMessage(this, &seen);
    w.RunCommand(202);
    QVERIFY2(seen.contains(QStringLiteral("cannot be read")), qPrintable(seen));
    QCOMPARE(modCorvane::state().currentView, 1);
    // Once said, the next change goes on without a word.
    seen.clear();
    QTimer::singleShot(0, this, [&seen] {
        if (QWidget *box = QApplication::activeModalWidget()) {
            seen = box->windowTitle();
            box->close();
        }
    });
    w.RunCommand(203);
    QCoreApplication::processEvents();
    QCOMPARE(seen, QString());
    QCOMPARE(modCorvane::state().currentView, 2);
    QVERIFY(QFileInfo(AppPaths::settingsFile()).isDir());
}

void tst_FrmMain::aboutBox()
{
    modCorvane::state().schemeBackgroundColor = 0x203040;
    frmAboutBox box;
    QCOMPARE(box.palette().color(QPalette::Window), QColor(0x40, 0x30, 0x20)); // the scheme's colours
    QCOMPARE(child<QLabel>(&box, "lblVer")->text(), QStringLiteral("Version 6.0u"));
    auto *thanksButton = child<QPushButton>(&box, "Command1");
    auto *thanks = child<QWidget>(&box, "Thanks");
    box.show();
    QVERIFY(thanks->isHidden());
    thanksButton->click();
    QVERIFY(thanks->isVisible());
    QCOMPARE(thanksButton->text(), QStringLiteral("&Done"));
    thanksButton->click();
    QVERIFY(thanks->isHidden());
    QCOMPARE(thanksButton->text(), QStringLiteral("&Thanks To..."));
}


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
    const bool mark = command == 402;
    // Unmarking starts from a book where every drink is marked.
    store().execute(mark ? QStringLiteral("UPDATE Drinks SET Marked = False")
                              : QStringLiteral("UPDATE Drinks SET Marked = True"));
    const QSet<qint32> before = markedIds(store());
    frmMain w;
    QVERIFY(w.Form_Load(QString()));
    w.RunCommand(207);
    QTest::keyClicks(child<QLineEdit>(&w, "txtQuickSearch"), typed);
    QTRY_COMPARE(w.listModel()->rowCount(), rows);
    const QString page = child<QTextBrowser>(&w, "wbMain")->toPlainText();

    w.RunCommand(command);

    const QSet<qint32> shown = onScreen(*w.listModel());
    QCOMPARE(markedIds(store()), mark ? before + shown : before - shown);
    if (rows > 0) {
        // The list stands where it stood, and its selected drink is the one on the page.
        QCOMPARE(w.list()->selectedRow(), 0);
        QCOMPARE(child<QLabel>(&w, "sbCount")->text(), QStringLiteral("Drink 1 of %1").arg(rows));
        QCOMPARE(w.drinkFacade()->currentDrinkID(), w.listModel()->idAt(0));
    } else {
        QCOMPARE(child<QTextBrowser>(&w, "wbMain")->toPlainText(), page);
    }
}

void tst_FrmMain::pageBelongsToTheLastSelectedDrink()
{
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
    const QString page = child<QTextBrowser>(&w, "wbMain")->toPlainText();
    QVERIFY2(page.trimmed().startsWith(w.listModel()->nameAt(2)), qPrintable(page.left(60)));
    // Every one of the drink's own ingredients is on the page.
    QSqlQuery own = store().select(QStringLiteral("SELECT Ingredient FROM DrinkIngredients WHERE DrinkID = %1").arg(id));
    int ingredients = 0;
    for (; own.next(); ++ingredients)
        QVERIFY2(page.contains(own.value(0).toString()), qPrintable(own.value(0).toString() + u'\n' + page));
    QVERIFY(ingredients > 0);
    QCOMPARE(w.drinkFacade()->currentDrinkID(), id);
}

QTEST_MAIN(tst_FrmMain)
#include "tst_frmmain.moc"
