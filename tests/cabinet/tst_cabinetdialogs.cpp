// The cabinet dialog driven as the user drives it, and the general progress window.
#include "CabinetBook.h"
#include "GuiTest.h"
#include "TestFiles.h"
#include "TestStore.h"
#include "base/AppPaths.h"
#include "cabinet/frmLiquorCab.h"
#include "widgets/frmProgressDLG.h"

#include <QFrame>
#include <QLabel>
#include <QProgressBar>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>

class tst_CabinetDialogs : public QObject {
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void treeShowsStoredTicks();
    void tickGoesDownOnly();
    void findMatchesStoresAndCloses();
    void noTickKeepsEarlierResults();
    void checkedTypeWithoutIngredients();
    void cancelSearchKeepsDialogOpen();
    void closingWithoutFindingStoresNothing_data();
    void closingWithoutFindingStoresNothing();
    void progressTexts_data();
    void progressTexts();

private:
    QTreeWidgetItem *node(const QString &key) const;
    void setAllUnchecked();
    IdList selected() { return ::selected(m_book->store()); }
    IdList marked() { return ::marked(m_book->store()); }
    void screenshot(QWidget *w, const QString &name);

    std::unique_ptr<TestStore> m_book;
    std::unique_ptr<frmLiquorCab> m_dlg;
    QTreeWidget *m_tree = nullptr;
};

void tst_CabinetDialogs::init()
{
    m_book = std::make_unique<TestStore>(cabinetBookSql());
    AppPaths::setAppDir(m_book->appDir());
    m_dlg = std::make_unique<frmLiquorCab>(m_book->store());
    m_dlg->show();
    m_tree = child<QTreeWidget>(m_dlg.get(), "tvIng");
    QVERIFY(m_tree);
}

void tst_CabinetDialogs::cleanup()
{
    m_dlg.reset();
    m_book.reset();
}

QTreeWidgetItem *tst_CabinetDialogs::node(const QString &key) const
{
    for (QTreeWidgetItemIterator it(m_tree); *it; ++it) {
        if ((*it)->data(0, frmLiquorCab::KeyRole).toString() == key)
            return *it;
    }
    return nullptr;
}

void tst_CabinetDialogs::setAllUnchecked()
{
    for (QTreeWidgetItemIterator it(m_tree); *it; ++it)
        (*it)->setCheckState(0, Qt::Unchecked);
}

void tst_CabinetDialogs::screenshot(QWidget *w, const QString &name)
{
    if (qEnvironmentVariableIsSet("CORVANE_SCREENSHOTS"))
        w->grab().save(qEnvironmentVariable("CORVANE_SCREENSHOTS") + u'/' + name + QStringLiteral(".png"));
}

void tst_CabinetDialogs::treeShowsStoredTicks()
{
    QCOMPARE(m_tree->topLevelItemCount(), 4);
    QCOMPARE(node("C2")->checkState(0), Qt::Checked);   // Tonic and Lime Juice are both owned
    QCOMPARE(node("C1")->checkState(0), Qt::Unchecked); // Spirits: the rums are not
    QCOMPARE(node("I1")->parent()->parent(), node("C1"));
    QVERIFY(m_dlg->WasCanceled());
    QVERIFY(!child<QFrame>(m_dlg.get(), "pnlProgress")->isVisible());
    screenshot(m_dlg.get(), QStringLiteral("liquorcab"));
}

void tst_CabinetDialogs::tickGoesDownOnly()
{
    // "S2" is also the key of the empty sub type before it: the rum node is found by its children.
    QTreeWidgetItem *rum = node("I2")->parent();
    node("C1")->setCheckState(0, Qt::Checked);
    for (QTreeWidgetItem *n : {node("S1"), node("I1"), rum, node("I2"), node("I3")})
        QCOMPARE(n->checkState(0), Qt::Checked);
    // Unticking one ingredient leaves its sub type and type as they were.
    node("I3")->setCheckState(0, Qt::Unchecked);
    QCOMPARE(rum->checkState(0), Qt::Checked);
    QCOMPARE(node("C1")->checkState(0), Qt::Checked);
    rum->setCheckState(0, Qt::Unchecked);
    QCOMPARE(node("I2")->checkState(0), Qt::Unchecked);
    QCOMPARE(node("I1")->checkState(0), Qt::Checked);
}

void tst_CabinetDialogs::findMatchesStoresAndCloses()
{
    node("C1")->setCheckState(0, Qt::Checked); // all spirits, with Tonic and Lime Juice stored
    child<QPushButton>(m_dlg.get(), "OK")->click();
    QVERIFY(!m_dlg->isVisible());
    QVERIFY(!m_dlg->WasCanceled());
    QCOMPARE(m_dlg->result(), int(QDialog::Accepted));
    QCOMPARE(selected(), (IdList{1, 2, 3, 4, 5}));
    QCOMPARE(marked(), (IdList{10, 12, 14, 16}));
}

void tst_CabinetDialogs::noTickKeepsEarlierResults()
{
    setAllUnchecked();
    QString shown;
    answerNextMessage(this, &shown);
    child<QPushButton>(m_dlg.get(), "OK")->click();
    QCOMPARE(shown,
             QStringLiteral("Corvane|You must select at least one ingredient for the Liquor Cabinet feature to work."));
    QVERIFY(m_dlg->isVisible());
    QVERIFY(child<QPushButton>(m_dlg.get(), "OK")->isEnabled());
    QCOMPARE(selected(), (IdList{1, 4, 5}));
    QCOMPARE(marked(), (IdList{16, 18}));
}

void tst_CabinetDialogs::checkedTypeWithoutIngredients()
{
    // A type node with nothing below passes the count; its tag names a type, not an
    // ingredient, even where an ingredient has the same number.
    setAllUnchecked();
    auto *bare = new QTreeWidgetItem(QStringList{QStringLiteral("Bare")});
    bare->setData(0, frmLiquorCab::KeyRole, QStringLiteral("C1"));
    bare->setData(0, frmLiquorCab::TagRole, QStringLiteral("1"));
    bare->setFlags(Qt::ItemIsEnabled | Qt::ItemIsUserCheckable);
    bare->setCheckState(0, Qt::Checked);
    m_tree->addTopLevelItem(bare);
    child<QPushButton>(m_dlg.get(), "OK")->click();
    QVERIFY(!m_dlg->WasCanceled());
    QCOMPARE(selected(), IdList{});
    QCOMPARE(marked(), IdList{});
}

void tst_CabinetDialogs::cancelSearchKeepsDialogOpen()
{
    node("C1")->setCheckState(0, Qt::Checked);
    auto *panel = child<QFrame>(m_dlg.get(), "pnlProgress");
    auto *label = child<QLabel>(m_dlg.get(), "lblProgress");
    auto *ok = child<QPushButton>(m_dlg.get(), "OK");
    auto *cancel = child<QPushButton>(m_dlg.get(), "cmdCancel");
    QString during;
    bool disabledDuring = false;
    // Runs at the scan's first look at pending events.
    QTimer::singleShot(0, this, [&] {
        during = panel->isVisible() ? label->text() : QString();
        disabledDuring = !ok->isEnabled() && !cancel->isEnabled();
        screenshot(m_dlg.get(), QStringLiteral("liquorcab-scanning"));
        child<QPushButton>(m_dlg.get(), "cmdCancelSearch")->click();
    });
    ok->click();
    QCOMPARE(during, QStringLiteral("Checking Drink 1 of 5"));
    QVERIFY(disabledDuring);
    QVERIFY(m_dlg->isVisible());
    QVERIFY(m_dlg->WasCanceled());
    QVERIFY(!panel->isVisible());
    QVERIFY(ok->isEnabled() && cancel->isEnabled());
    // The ticks are stored; no drink was finished, and the earlier marks are gone.
    QCOMPARE(selected(), (IdList{1, 2, 3, 4, 5}));
    QCOMPARE(marked(), IdList{});
}

void tst_CabinetDialogs::closingWithoutFindingStoresNothing_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<QByteArray>("printed"); // the start of the listing file
    QTest::newRow("Cancel") << "cmdCancel" << QByteArray();
    QTest::newRow("Print") << "cmdPrint" << QByteArray("%PDF");
}

void tst_CabinetDialogs::closingWithoutFindingStoresNothing()
{
    QFETCH(QString, button);
    QFETCH(QByteArray, printed);
    node("I2")->setCheckState(0, Qt::Checked); // printed although not stored
    const QString pdf = QDir(m_book->appDir()).filePath(QStringLiteral("listing.pdf"));
    m_dlg->setReportFile(pdf);
    child<QPushButton>(m_dlg.get(), qPrintable(button))->click();
    QVERIFY(!m_dlg->isVisible());
    QVERIFY(m_dlg->WasCanceled());
    QCOMPARE(readFile(pdf).left(4), printed);
    QCOMPARE(selected(), (IdList{1, 4, 5}));
    if (qEnvironmentVariableIsSet("CORVANE_SCREENSHOTS") && !printed.isEmpty())
        QFile::copy(pdf, qEnvironmentVariable("CORVANE_SCREENSHOTS") + QStringLiteral("/listing.pdf"));
    // The next showing starts from the stored ticks.
    m_dlg->show();
    QCOMPARE(node("I2")->checkState(0), Qt::Unchecked);
    QCOMPARE(node("I1")->checkState(0), Qt::Checked);
}

void tst_CabinetDialogs::progressTexts_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<bool>("allowCancel");
    QTest::addColumn<QString>("expected");
    QTest::newRow("of maximum") << 0 << true << "3 of 20 drinks";
    // Counted from the maximum, so negative; and two blanks before the last word.
    QTest::newRow("remaining") << 1 << false << "-17 drinks  remaining";
    QTest::newRow("completed") << 2 << true << "3 drinks  completed";
    QTest::newRow("other style keeps the text") << 7 << true << "";
}

void tst_CabinetDialogs::progressTexts()
{
    QFETCH(int, style);
    QFETCH(bool, allowCancel);
    QFETCH(QString, expected);
    frmProgressDLG dlg;
    dlg.Setup(0, 20, style, 0, allowCancel, QStringLiteral("Pricing"), QStringLiteral("drinks"));
    dlg.show();
    dlg.SetValue(3);
    QCOMPARE(child<QLabel>(&dlg, "lblProgress")->text(), expected);
    QCOMPARE(child<QProgressBar>(&dlg, "progBar")->value(), 3);
    QVERIFY(!dlg.isModal());
    screenshot(&dlg, QStringLiteral("progress"));
    child<QPushButton>(&dlg, "cmdCancel")->click();
    QCOMPARE(dlg.WasCanceled(), allowCancel);
}

QTEST_MAIN(tst_CabinetDialogs)
#include "tst_cabinetdialogs.moc"
