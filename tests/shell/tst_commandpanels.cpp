// The command column, its pop-ups and the shortcuts, driven through the real main window.
#include "GuiTest.h"
#include "TestStore.h"
#include "base/AppPaths.h"
#include "base/Commands.h"
#include "base/modCorvane.h"
#include "presentation/CDrinkFacade.h"
#include "presentation/DrinkListModel.h"
#include "shell/CommandPanels.h"
#include "shell/ListController.h"
#include "shell/frmMain.h"
#include "store/DrinkStore.h"

#include <QAbstractButton>
#include <QClipboard>
#include <QTableView>

class tst_CommandPanels : public QObject {
    Q_OBJECT
private slots:
    void init()
    {
        modCorvane::state() = modCorvane::State();
        m_book = std::make_unique<TestStore>(QString(), true);
        AppPaths::setAppDir(m_book->appDir());
        m_w = std::make_unique<frmMain>();
        QVERIFY(m_w->Form_Load(QString()));
        m_w->RunCommand(207);
    }

    void cleanup()
    {
        m_w.reset();
        m_book.reset();
    }

    // The files pop-up is opened in the window below.
    void popupEntries_data()
    {
        QTest::addColumn<int>("group");
        QTest::addColumn<int>("view");
        QTest::addColumn<bool>("marked");
        QTest::addColumn<int>("count");
        QTest::addColumn<int>("boldNumber"); // 0: none bold
        QTest::addColumn<QString>("captionOf401");
        QTest::newRow("views, all") << 2 << 6 << false << 9 << 207 << "";
        QTest::newRow("views, glassware") << 2 << 2 << false << 9 << 203 << "";
        QTest::newRow("views, cabinet") << 2 << 5 << false << 9 << 206 << "";
        QTest::newRow("mark, unmarked drink") << 4 << 6 << false << 6 << 0 << "Mark Drink (Ctrl-M)";
        QTest::newRow("mark, marked drink") << 4 << 6 << true << 6 << 0 << "Unmark Drink (Ctrl-M)";
        QTest::newRow("tools") << 5 << 0 << false << 13 << 0 << "";
        QTest::newRow("help") << 6 << 0 << false << 7 << 0 << "";
    }

    void popupEntries()
    {
        QFETCH(int, group);
        QFETCH(int, view);
        QFETCH(bool, marked);
        QFETCH(int, count);
        QFETCH(int, boldNumber);
        QFETCH(QString, captionOf401);
        const QList<CommandEntry> entries = Commands::popupEntries(group, view, marked);
        QCOMPARE(entries.size(), count);
        for (const CommandEntry &e : entries) {
            QCOMPARE(e.group, group);
            QCOMPARE(e.bold, e.number == boldNumber);
            if (e.number == 401)
                QCOMPARE(e.caption, captionOf401);
        }
    }

    // Ctrl-C, Ctrl-M, Ctrl-D and Ctrl-F9 are pressed in the window below.
    void ctrlKeys_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<bool>("keypad");
        QTest::addColumn<int>("command");
        QTest::newRow("X") << int(Qt::Key_X) << false << 106;
        QTest::newRow("P") << int(Qt::Key_P) << false << 4;
        QTest::newRow("A") << int(Qt::Key_A) << false << 101;
        QTest::newRow("E") << int(Qt::Key_E) << false << 102;
        QTest::newRow("V") << int(Qt::Key_V) << false << 207;
        QTest::newRow("S") << int(Qt::Key_S) << false << 306;
        QTest::newRow("F1 as p") << int(Qt::Key_F1) << false << 4;
        QTest::newRow("F7 as v") << int(Qt::Key_F7) << false << 207;
        QTest::newRow("F4 as s") << int(Qt::Key_F4) << false << 306;
        QTest::newRow("numpad 3 as c") << int(Qt::Key_3) << true << 105;
        QTest::newRow("numpad 1 as a") << int(Qt::Key_1) << true << 101;
        QTest::newRow("numpad 4 as d") << int(Qt::Key_4) << true << 104;
        QTest::newRow("numpad 5 as e") << int(Qt::Key_5) << true << 102;
        QTest::newRow("numpad minus as m") << int(Qt::Key_Minus) << true << 401;
        QTest::newRow("plain 3 is nothing") << int(Qt::Key_3) << false << 0;
        QTest::newRow("B is nothing") << int(Qt::Key_B) << false << 0;
    }

    void ctrlKeys()
    {
        QFETCH(int, key);
        QFETCH(bool, keypad);
        QFETCH(int, command);
        QCOMPARE(Commands::commandForCtrlKey(key, keypad), command);
    }

    void popupFollowsAndCloses()
    {
        m_w->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_w.get()));
        auto *panels = m_w->findChild<CommandPanels *>();
        auto *files = m_w->findChild<QWidget *>(QStringLiteral("pnlMenu0"));
        auto *views = m_w->findChild<QWidget *>(QStringLiteral("pnlMenu2"));
        QTest::mouseClick(files, Qt::LeftButton);
        QVERIFY(panels->popupOpen());
        QCOMPARE(panels->visibleItems().size(), 11);
        // While open, the pop-up follows the mouse; the shorter list hides the longer one's tail.
        QEnterEvent enter(QPointF(2, 2), QPointF(2, 2), QPointF(2, 2));
        QApplication::sendEvent(views, &enter);
        QCOMPARE(panels->visibleItems().size(), 9);
        int visible = 0;
        for (QLabel *item : panels->popup()->findChildren<PopupItem *>())
            visible += item->isVisibleTo(panels->popup());
        QCOMPARE(visible, 9);
        QVERIFY(panels->visibleItems().last()->isBold()); // View All is in force
        if (qEnvironmentVariableIsSet("CORVANE_SCREENSHOTS"))
            m_w->grab().save(qEnvironmentVariable("CORVANE_SCREENSHOTS") + QStringLiteral("/popup.png"));
        // A second click on the open group closes; the next opens again.
        QTest::mouseClick(views, Qt::LeftButton);
        QVERIFY(!panels->popupOpen());
        QTest::mouseClick(views, Qt::LeftButton);
        QVERIFY(panels->popupOpen());
        // A key without Ctrl closes it.
        QTest::keyClick(m_w->list()->grid(), Qt::Key_Down);
        QVERIFY(!panels->popupOpen());
        // A click elsewhere closes it too, and an entry runs its command.
        QTest::mouseClick(views, Qt::LeftButton);
        QTest::mouseClick(m_w->list()->grid()->viewport(), Qt::LeftButton, {}, QPoint(5, 5));
        QVERIFY(!panels->popupOpen());
        QTest::mouseClick(views, Qt::LeftButton);
        PopupItem *byGlass = panels->visibleItems().at(2);
        QCOMPARE(byGlass->number(), 203);
        QTest::mouseClick(byGlass, Qt::LeftButton);
        QVERIFY(!panels->popupOpen());
        QCOMPARE(modCorvane::state().currentView, 2);
    }

    void markToggleAndMarkAll()
    {
        DrinkStore &store = m_book->store();
        store.execute(QStringLiteral("UPDATE Drinks SET Marked = False"));
        const qint32 first = m_w->listModel()->idAt(0);
        QTest::keyClick(m_w->list()->grid(), Qt::Key_M, Qt::ControlModifier);
        QCOMPARE(store.scalar(QStringLiteral("SELECT Marked FROM Drinks WHERE ID = %1").arg(first)).toInt(), 1);
        QTest::keyClick(m_w->list()->grid(), Qt::Key_M, Qt::ControlModifier);
        QCOMPARE(store.scalar(QStringLiteral("SELECT Marked FROM Drinks WHERE ID = %1").arg(first)).toInt(), 0);

        // Mark all works on the rows shown: a quick-search-narrowed list marks only those.
        m_w->RunCommand(201);
        m_w->list()->grid()->setCurrentIndex(m_w->listModel()->index(0, 0));
        const int shown = m_w->listModel()->rowCount();
        m_w->RunCommand(402);
        QCOMPARE(store.scalar(QStringLiteral("SELECT COUNT(*) FROM Drinks WHERE Marked = True")).toInt(), shown);
        m_w->RunCommand(207);
        m_w->RunCommand(403);
        QCOMPARE(store.scalar(QStringLiteral("SELECT COUNT(*) FROM Drinks WHERE Marked = True")).toInt(), 0);
    }

    void clipboard()
    {
        const qint32 first = m_w->listModel()->idAt(0);
        QTest::keyClick(m_w->list()->grid(), Qt::Key_C, Qt::ControlModifier);
        const QString one = m_w->drinkFacade()->drinkAsPlainText(first);
        QCOMPARE(QGuiApplication::clipboard()->text(), one);
        QTest::keyClick(m_w->list()->grid(), Qt::Key_F9, Qt::ControlModifier);
        QCOMPARE(QGuiApplication::clipboard()->text(), one + one);
    }

    void deleteAsksFirst_data()
    {
        QTest::addColumn<int>("answer");
        QTest::addColumn<bool>("deleted");
        QTest::newRow("yes") << int(QMessageBox::Yes) << true;
        QTest::newRow("no") << int(QMessageBox::No) << false;
        QTest::newRow("cancel") << int(QMessageBox::Cancel) << false;
    }

    void deleteAsksFirst()
    {
        QFETCH(int, answer);
        QFETCH(bool, deleted);
        const qint32 id = m_w->listModel()->idAt(0);
        const QString name = m_w->listModel()->nameAt(0);
        const int rows = m_w->listModel()->rowCount();
        m_book->store().execute(QStringLiteral("INSERT INTO SearchResults VALUES (%1, 'x')").arg(id));
        answerNextMessage(this, &m_question, QMessageBox::StandardButton(answer));
        QTest::keyClick(m_w->list()->grid(), Qt::Key_D, Qt::ControlModifier);
        const QString question = QStringLiteral("Delete Drink|Are you sure you want to delete \"%1\"?\n"
                                                "This cannot be undone.");
        QCOMPARE(m_question, question.arg(name));
        QCOMPARE(m_w->listModel()->rowCount(), deleted ? rows - 1 : rows);
        for (const char *table : {"Drinks WHERE ID", "DrinkRel WHERE DrinkID", "DrinkTypeRel WHERE DrinkID",
                                  "SearchResults WHERE ID"}) {
            const QString left = QStringLiteral("SELECT COUNT(*) FROM %1 = %2").arg(QString::fromLatin1(table)).arg(id);
            QCOMPARE(m_book->store().scalar(left).toInt() == 0, deleted);
        }
    }

private:
    std::unique_ptr<TestStore> m_book;
    std::unique_ptr<frmMain> m_w;
    QString m_question;
};

QTEST_MAIN(tst_CommandPanels)
#include "tst_commandpanels.moc"
