// The cabinet's Next Bottle page driven as a user drives it.
#include "CabinetBook.h"
#include "GuiTest.h"
#include "NextBottleBook.h"
#include "TestStore.h"
#include "base/AppPaths.h"
#include "cabinet/NextBottlePanel.h"
#include "cabinet/frmLiquorCab.h"

#include <QLabel>
#include <QListWidget>
#include <QTabWidget>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>

class tst_NextBottlePanel : public QObject {
    Q_OBJECT
private slots:
    void init();
    void rankingFollowsTheTicks_data();
    void rankingFollowsTheTicks();
    void showUnlockedDrinksInTheList();

private:
    void tick(const QString &key, bool on);
    QStringList unlocked() const;

    std::unique_ptr<TestStore> m_book;
    std::unique_ptr<frmLiquorCab> m_dlg;
    QTabWidget *m_tabs = nullptr;
    QTreeWidget *m_ranking = nullptr;
};

void tst_NextBottlePanel::init()
{
    m_dlg.reset(); // before its store
    m_book = std::make_unique<TestStore>(nextBottleBookSql());
    AppPaths::setAppDir(m_book->appDir());
    m_dlg = std::make_unique<frmLiquorCab>(m_book->store());
    m_dlg->show();
    m_tabs = child<QTabWidget>(m_dlg.get(), "tabCabinet");
    m_ranking = child<QTreeWidget>(m_dlg.get(), "lstNextBottle");
}

void tst_NextBottlePanel::tick(const QString &key, bool on)
{
    m_tabs->setCurrentIndex(0);
    auto *tree = child<QTreeWidget>(m_dlg.get(), "tvIng");
    for (QTreeWidgetItemIterator it(tree); *it; ++it) {
        if ((*it)->data(0, frmLiquorCab::KeyRole).toString() == key)
            (*it)->setCheckState(0, on ? Qt::Checked : Qt::Unchecked);
    }
}

QStringList tst_NextBottlePanel::unlocked() const
{
    QStringList names;
    auto *list = child<QListWidget>(m_dlg.get(), "lstUnlocked");
    for (int i = 0; i < list->count(); ++i)
        names << list->item(i)->text();
    return names;
}

void tst_NextBottlePanel::rankingFollowsTheTicks_data()
{
    QTest::addColumn<QStringList>("changes"); // "+I3" ticks ingredient 3, "-I5" unticks 5
    QTest::addColumn<QStringList>("ranking");
    QTest::addColumn<QStringList>("firstUnlocks");
    QTest::addColumn<QString>("summary");

    QTest::newRow("stored ticks") << QStringList{}
                                  << QStringList{"Rum 1 $16.25", "Vodka 1 $18.00", "Lime Juice 1 $3.00", "Cola 0 $1.50",
                                                 "Soda 0 $0.90"}
                                  << QStringList{"Neat Rum"}
                                  << "Drinks you can make: 1. One bottle short: 3. Two bottles short: 2.";
    // Ticks not yet stored count.
    QTest::newRow("rum and lime added") << QStringList{"+I3", "+I4"}
                                        << QStringList{"Cola 2 $1.50", "Vodka 1 $18.00", "Soda 0 $0.90"}
                                        << QStringList{"Cuba Libre", "Rum and Cola"}
                                        << "Drinks you can make: 3. One bottle short: 3. Two bottles short: 1.";
    // A tick on a type goes down to its ingredients: all owned, nothing left to buy.
    QTest::newRow("everything") << QStringList{"+C1", "+C2"} << QStringList{} << QStringList{}
                                << "Drinks you can make: 8. One bottle short: 0. Two bottles short: 0.";
}

void tst_NextBottlePanel::rankingFollowsTheTicks()
{
    QFETCH(QStringList, changes);
    m_tabs->setCurrentIndex(1); // the book is read once; later ticks are answered from it
    for (const QString &change : changes)
        tick(change.mid(1), change.startsWith(u'+'));
    m_tabs->setCurrentIndex(1);
    QStringList rows; // "name amount price" per ranking row
    for (int i = 0; i < m_ranking->topLevelItemCount(); ++i)
        rows << m_ranking->topLevelItem(i)->text(0) + u' ' + m_ranking->topLevelItem(i)->text(1) + u' ' +
                    m_ranking->topLevelItem(i)->text(2);
    QTEST(rows, "ranking");
    QTEST(unlocked(), "firstUnlocks");
    QTEST(child<QLabel>(m_dlg.get(), "lblSummary")->text(), "summary");
}

// A bottle that only brings drinks near has nothing to show; one that unlocks puts its drinks
// into SearchResults and closes the dialog without storing the ticks.
void tst_NextBottlePanel::showUnlockedDrinksInTheList()
{
    m_book->store().execute(QStringLiteral("INSERT INTO SearchResults (ID, Name) VALUES (23, 'Mojito')"));
    tick(QStringLiteral("I3"), true);
    tick(QStringLiteral("I4"), true);
    m_tabs->setCurrentIndex(1);
    auto *show = child<QPushButton>(m_dlg.get(), "cmdShowUnlocked");
    m_ranking->setCurrentItem(m_ranking->topLevelItem(2)); // Soda
    QVERIFY(!show->isEnabled());
    QCOMPARE(child<QLabel>(m_dlg.get(), "lblUnlocked")->text(),
             QStringLiteral("Soda alone adds no drink; it brings drinks within one more bottle."));

    m_ranking->setCurrentItem(m_ranking->topLevelItem(0)); // Cola
    QCOMPARE(unlocked(), (QStringList{"Cuba Libre", "Rum and Cola"}));
    QTest::mouseClick(show, Qt::LeftButton);
    QVERIFY(!m_dlg->isVisible());
    QVERIFY(m_dlg->ShowsUnlockedDrinks());
    QVERIFY(m_dlg->WasCanceled());
    QCOMPARE(idsWhere(m_book->store(), QStringLiteral("SELECT ID FROM SearchResults ORDER BY ID")), (IdList{24, 25}));
    QCOMPARE(selected(m_book->store()), (IdList{1, 5}));

    // Shown again, the dialog starts on the tree, and closing it shows nothing.
    m_dlg->show();
    QCOMPARE(m_tabs->currentIndex(), 0);
    QVERIFY(!m_dlg->ShowsUnlockedDrinks());
}

QTEST_MAIN(tst_NextBottlePanel)
#include "tst_nextbottlepanel.moc"
