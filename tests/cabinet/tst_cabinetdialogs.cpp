// The cabinet dialog driven as the user drives it, and the general progress window.
#include "CabinetBook.h"
#include "TestStore.h"
#include "base/AppPaths.h"
#include "cabinet/frmLiquorCab.h"
#include "store/DrinkStore.h"
#include "widgets/frmProgressDLG.h"

#include <QApplication>
#include <QFrame>
#include <QLabel>
#include <QMessageBox>
#include <QProgressBar>
#include <QPushButton>
#include <QSqlQuery>
#include <QTimer>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>
#include <QtTest>

using IdList = QList<qint32>;

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
    void secondShowingDropsUnsavedTicks();
    void printsListingToPdf();
    void progressTexts_data();
    void progressTexts();

private:
    QTreeWidgetItem *node(const QString &key) const;
    void setAllUnchecked();
    IdList ids(const QString &sql);
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
    m_tree = m_dlg->findChild<QTreeWidget *>(QStringLiteral("tvIng"));
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

IdList tst_CabinetDialogs::ids(const QString &sql)
{
    IdList result;
    QSqlQuery q = m_book->store().select(sql);
    while (q.next())
        result.append(q.value(0).toInt());
    return result;
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
    QVERIFY(!m_dlg->findChild<QFrame *>(QStringLiteral("pnlProgress"))->isVisible());
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
    m_dlg->findChild<QPushButton *>(QStringLiteral("OK"))->click();
    QVERIFY(!m_dlg->isVisible());
    QVERIFY(!m_dlg->WasCanceled());
    QCOMPARE(m_dlg->result(), int(QDialog::Accepted));
    QCOMPARE(ids("SELECT id FROM Ingredients WHERE Selected <> 0 ORDER BY id"), (IdList{1, 2, 3, 4, 5}));
    QCOMPARE(ids("SELECT id FROM Drinks WHERE LiqCab = 1 ORDER BY id"), (IdList{10, 12, 14, 16}));
}

void tst_CabinetDialogs::noTickKeepsEarlierResults()
{
    setAllUnchecked();
    QString shown;
    QTimer::singleShot(0, this, [&shown] {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        QVERIFY(box);
        shown = box->windowTitle() + u'|' + box->text();
        box->button(QMessageBox::Ok)->click();
    });
    m_dlg->findChild<QPushButton *>(QStringLiteral("OK"))->click();
    QCOMPARE(shown,
             QStringLiteral("Corvane|You must select at least one ingredient for the Liquor Cabinet feature to work."));
    QVERIFY(m_dlg->isVisible());
    QVERIFY(m_dlg->findChild<QPushButton *>(QStringLiteral("OK"))->isEnabled());
    QCOMPARE(ids("SELECT id FROM Ingredients WHERE Selected <> 0 ORDER BY id"), (IdList{1, 4, 5}));
    QCOMPARE(ids("SELECT id FROM Drinks WHERE LiqCab = 1 ORDER BY id"), (IdList{16, 18}));
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
    m_dlg->findChild<QPushButton *>(QStringLiteral("OK"))->click();
    QVERIFY(!m_dlg->WasCanceled());
    QCOMPARE(ids("SELECT id FROM Ingredients WHERE Selected <> 0"), IdList{});
    QCOMPARE(ids("SELECT id FROM Drinks WHERE LiqCab = 1"), IdList{});
}

void tst_CabinetDialogs::cancelSearchKeepsDialogOpen()
{
    node("C1")->setCheckState(0, Qt::Checked);
    auto *panel = m_dlg->findChild<QFrame *>(QStringLiteral("pnlProgress"));
    auto *label = m_dlg->findChild<QLabel *>(QStringLiteral("lblProgress"));
    auto *ok = m_dlg->findChild<QPushButton *>(QStringLiteral("OK"));
    auto *cancel = m_dlg->findChild<QPushButton *>(QStringLiteral("cmdCancel"));
    QString during;
    bool disabledDuring = false;
    // Runs at the scan's first look at pending events.
    QTimer::singleShot(0, this, [&] {
        during = panel->isVisible() ? label->text() : QString();
        disabledDuring = !ok->isEnabled() && !cancel->isEnabled();
        screenshot(m_dlg.get(), QStringLiteral("liquorcab-scanning"));
        m_dlg->findChild<QPushButton *>(QStringLiteral("cmdCancelSearch"))->click();
    });
    ok->click();
    QCOMPARE(during, QStringLiteral("Checking Drink 1 of 5"));
    QVERIFY(disabledDuring);
    QVERIFY(m_dlg->isVisible());
    QVERIFY(m_dlg->WasCanceled());
    QVERIFY(!panel->isVisible());
    QVERIFY(ok->isEnabled() && cancel->isEnabled());
    // The ticks are stored; no drink was finished, and the earlier marks are gone.
    QCOMPARE(ids("SELECT id FROM Ingredients WHERE Selected <> 0 ORDER BY id"), (IdList{1, 2, 3, 4, 5}));
    QCOMPARE(ids("SELECT id FROM Drinks WHERE LiqCab = 1"), IdList{});
}

void tst_CabinetDialogs::secondShowingDropsUnsavedTicks()
{
    node("I2")->setCheckState(0, Qt::Checked);
    m_dlg->findChild<QPushButton *>(QStringLiteral("cmdCancel"))->click();
    QVERIFY(!m_dlg->isVisible());
    m_dlg->show();
    QCOMPARE(node("I2")->checkState(0), Qt::Unchecked);
    QCOMPARE(node("I1")->checkState(0), Qt::Checked);
    QCOMPARE(ids("SELECT id FROM Ingredients WHERE Selected <> 0 ORDER BY id"), (IdList{1, 4, 5}));
}

void tst_CabinetDialogs::printsListingToPdf()
{
    node("I2")->setCheckState(0, Qt::Checked); // printed although not stored
    const QString pdf = QDir(m_book->appDir()).filePath(QStringLiteral("listing.pdf"));
    m_dlg->setReportFile(pdf);
    m_dlg->findChild<QPushButton *>(QStringLiteral("cmdPrint"))->click();
    QVERIFY(!m_dlg->isVisible());
    QVERIFY(m_dlg->WasCanceled());
    QFile file(pdf);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QVERIFY(file.read(4) == "%PDF");
    QCOMPARE(ids("SELECT id FROM Ingredients WHERE Selected <> 0 ORDER BY id"), (IdList{1, 4, 5}));
    if (qEnvironmentVariableIsSet("CORVANE_SCREENSHOTS"))
        QFile::copy(pdf, qEnvironmentVariable("CORVANE_SCREENSHOTS") + QStringLiteral("/listing.pdf"));
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
    QCOMPARE(dlg.findChild<QLabel *>(QStringLiteral("lblProgress"))->text(), expected);
    QCOMPARE(dlg.findChild<QProgressBar *>(QStringLiteral("progBar"))->value(), 3);
    QVERIFY(!dlg.isModal());
    screenshot(&dlg, QStringLiteral("progress"));
    dlg.findChild<QPushButton *>(QStringLiteral("cmdCancel"))->click();
    QCOMPARE(dlg.WasCanceled(), allowCancel);
}

QTEST_MAIN(tst_CabinetDialogs)
#include "tst_cabinetdialogs.moc"
