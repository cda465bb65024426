// The drink editor driven through the main window as a user works with it: add a drink with
// four lines, price it, save, find it in the list and on the page; edit and cancel; copy.
#include "GuiTest.h"
#include "TestStore.h"
#include "base/AppPaths.h"
#include "base/modCorvane.h"
#include "editing/frmAddEdit.h"
#include "presentation/DrinkListModel.h"
#include "shell/ListController.h"
#include "shell/frmMain.h"
#include "store/DrinkStore.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QStackedWidget>
#include <QTableView>
#include <QTextBrowser>
#include <QTimer>
#include <QTreeWidget>
#include <QtTest>
#include <functional>

class tst_FrmAddEdit : public QObject {
    Q_OBJECT
private slots:
    void init();
    void addPriceSaveEditCopy();
    void linesMoveAndRemove();
    void tabsFollowTheScheme();

private:
    // Runs a command whose dialog the driver works while it is open.
    void runWithDialog(frmMain &w, int command, const std::function<void(frmAddEdit *)> &driver);
    // Clicks a button that opens a message box, answers it, and returns its text.
    QString clickAndAnswer(QAbstractButton *button);
};

void tst_FrmAddEdit::init() { modCorvane::state() = modCorvane::State(); }

void tst_FrmAddEdit::runWithDialog(frmMain &w, int command, const std::function<void(frmAddEdit *)> &driver)
{
    bool driven = false;
    QTimer::singleShot(0, this, [&] {
        auto *dlg = qobject_cast<frmAddEdit *>(QApplication::activeModalWidget());
        QVERIFY(dlg);
        driver(dlg);
        driven = true;
        if (dlg->isVisible())
            dlg->reject();
    });
    w.RunCommand(command);
    QVERIFY(driven);
}

QString tst_FrmAddEdit::clickAndAnswer(QAbstractButton *button)
{
    QString seen;
    answerNextMessage(this, &seen);
    button->click();
    return seen.section(u'|', 1);
}

void tst_FrmAddEdit::addPriceSaveEditCopy()
{
    TestStore book(QString(), true);
    AppPaths::setAppDir(book.appDir());
    DrinkStore &s = book.store();
    s.execute(QStringLiteral("UPDATE Constants SET Val = '1' WHERE Var = 'MinPrice'"));
    frmMain w;
    QVERIFY(w.Form_Load(QString()));
    const qint32 newId = s.scalar(QStringLiteral("SELECT MAX(id) FROM Drinks")).toInt() + 1;
    const int ingredientsBefore = s.scalar(QStringLiteral("SELECT COUNT(*) FROM Ingredients")).toInt();
    const QString name = QStringLiteral("Crème \"Nouvelle\" O'Hara 🍸");
    const QString newIngredient = QStringLiteral("House \"Orgeat\" Ñ");

    runWithDialog(w, 101, [&](frmAddEdit *dlg) {
        QCOMPARE(dlg->windowTitle(), QStringLiteral("Add"));
        auto *txtName = child<QLineEdit>(dlg, "txtName");
        auto *tvIng = child<QTreeWidget>(dlg, "tvIng");
        auto *txtIngName = child<QLineEdit>(dlg, "txtIngName");
        auto *cmbIngUnits = child<QComboBox>(dlg, "cmbIngUnits");
        auto *txtAmount = child<QLineEdit>(dlg, "txtAmount");
        auto *cmdAddIng = child<QPushButton>(dlg, "cmdAddIng");
        auto *cmdSave = child<QPushButton>(dlg, "cmdSave");
        auto *cfIng = child<QTableView>(dlg, "cfIng");
        txtName->setText(name);
        QCOMPARE(clickAndAnswer(cmdSave), QStringLiteral("There must be at least one ingredient selected."));
        QCOMPARE(dlg->GetCurrentPage(), 0);

        // Pages turn round in both directions.
        dlg->ShowPage(5);
        child<QPushButton>(dlg, "cmdNext")->click();
        QCOMPARE(dlg->GetCurrentPage(), 0);
        child<QPushButton>(dlg, "cmdPrev")->click();
        QCOMPARE(dlg->GetCurrentPage(), 5);
        dlg->ShowPage(0);

        QCOMPARE(clickAndAnswer(cmdAddIng),
                 QStringLiteral("Please select an ingredient from the list or type in a new one."));
        const auto leaves = tvIng->findItems(QStringLiteral("London Dry Gin"), Qt::MatchExactly | Qt::MatchRecursive);
        QCOMPARE(leaves.size(), 1);
        tvIng->setCurrentItem(leaves.first());
        QCOMPARE(clickAndAnswer(cmdAddIng), QStringLiteral("Please select the units to use."));
        cmbIngUnits->setCurrentText(QStringLiteral("Ounce (Shot)"));
        txtAmount->setText(QStringLiteral("1/2"));
        QCOMPARE(clickAndAnswer(cmdAddIng),
                 QStringLiteral("The amount should be a number.  Please enter fractions as decimals (ie: 1/2 = 0.5)"));
        txtAmount->setText(QStringLiteral("2"));
        cmdAddIng->click();
        // A typed name wins over the tree; the store's form of a known name is shown.
        txtIngName->setText(QStringLiteral("lime JUICE"));
        txtAmount->setText(QStringLiteral("0.75"));
        cmdAddIng->click();
        txtIngName->setText(newIngredient);
        txtAmount->setText(QStringLiteral("0.5"));
        cmdAddIng->click();
        txtIngName->setText(QStringLiteral("Club Soda"));
        cmbIngUnits->setCurrentText(QStringLiteral("Top With"));
        txtAmount->clear();
        cmdAddIng->click();
        QCOMPARE(cfIng->model()->rowCount(), 4);
        QCOMPARE(cfIng->model()->index(1, 3).data().toString(), QStringLiteral("Lime Juice"));
        QCOMPARE(cfIng->model()->index(0, 1).data().toString(), QStringLiteral("2 oz"));
        QCOMPARE(cfIng->model()->index(3, 1).data().toString(), QStringLiteral("Top With"));
        // Nothing is written before the save.
        QCOMPARE(s.scalar(QStringLiteral("SELECT COUNT(*) FROM Ingredients")).toInt(), ingredientsBefore);

        dlg->ShowPage(4);
        child<QPushButton>(dlg, "cmdResetCost")->click();
        QCOMPARE(child<QLineEdit>(dlg, "txtCost")->text(), QStringLiteral("$2.23"));
        child<QPushButton>(dlg, "cmdResetPrice")->click();
        QCOMPARE(child<QLineEdit>(dlg, "txtPrice")->text(), QStringLiteral("$9.00"));
        QCOMPARE(child<QTableView>(dlg, "cfPrice")->model()->index(0, 6).data().toString(), QStringLiteral("88.24%"));

        child<QListWidget>(dlg, "lstGlass")->setCurrentRow(0);
        child<QListWidget>(dlg, "lstCats")->item(1)->setCheckState(Qt::Checked);
        child<QLineEdit>(dlg, "txtNewGarnish")->setText(QStringLiteral("Orange “Coin”"));
        cmdSave->click();
        QVERIFY(!dlg->isVisible());
    });

    // Stored as typed, its lines in their order, one new ingredient and the new garnish.
    const auto stored = [&](const char *sql) { return s.scalar(QString::fromLatin1(sql).arg(newId)).toString(); };
    QCOMPARE(stored("SELECT D.Name || printf('|%.2f|', D.Price) || G.Name FROM Drinks D, Garnish G "
                    "WHERE D.GarnishID = G.id AND D.id = %1"),
             name + QStringLiteral("|9.00|Orange “Coin”"));
    QCOMPARE(stored("SELECT group_concat(Ingredient, '|') FROM (SELECT I.Ingredient FROM DrinkRel R, Ingredients I "
                    "WHERE R.IngID = I.id AND R.DrinkID = %1 ORDER BY R.seq)"),
             QStringLiteral("London Dry Gin|Lime Juice|") + newIngredient + QStringLiteral("|Club Soda"));
    QCOMPARE(s.scalar(QStringLiteral("SELECT COUNT(*) FROM Ingredients")).toInt(), ingredientsBefore + 1);
    // The list stands on the new drink, and the page shows it.
    QCOMPARE(w.listModel()->idAt(w.list()->selectedRow()), newId);
    QTRY_VERIFY(w.findChild<QTextBrowser *>()->toPlainText().contains(QStringLiteral("Crème \"Nouvelle\" O'Hara")));

    // Edit, change everything, cancel: nothing reaches the store.
    const QString pricesBefore = s.scalar(QStringLiteral("SELECT group_concat(Price) FROM Drinks")).toString();
    runWithDialog(w, 102, [&](frmAddEdit *dlg) {
        QCOMPARE(dlg->windowTitle(), QStringLiteral("Edit"));
        QCOMPARE(child<QLineEdit>(dlg, "txtName")->text(), name);
        QCOMPARE(child<QTableView>(dlg, "cfIng")->model()->rowCount(), 4);
        QVERIFY(child<QListWidget>(dlg, "lstCats")->item(1)->checkState() == Qt::Checked);
        child<QLineEdit>(dlg, "txtPrice")->setText(QStringLiteral("$1.00"));
        child<QPushButton>(dlg, "cmdRemoveIng")->click();
        child<QPushButton>(dlg, "cmdCancel")->click();
    });
    QCOMPARE(s.scalar(QStringLiteral("SELECT group_concat(Price) FROM Drinks")).toString(), pricesBefore);
    QCOMPARE(stored("SELECT COUNT(*) FROM DrinkRel WHERE DrinkID = %1"), QStringLiteral("4"));

    // Copy: refused under the same name, saved under a new one with a new id.
    runWithDialog(w, 103, [&](frmAddEdit *dlg) {
        auto *cmdSave = child<QPushButton>(dlg, "cmdSave");
        QCOMPARE(clickAndAnswer(cmdSave), QStringLiteral("This drink is a copy of \"") + name +
                                              QStringLiteral("\".  The name must be changed before it can be saved."));
        child<QLineEdit>(dlg, "txtName")->setText(QStringLiteral("Second Nouvelle"));
        cmdSave->click();
    });
    const qint32 copyId = s.scalar(QStringLiteral("SELECT id FROM Drinks WHERE Name = 'Second Nouvelle'")).toInt();
    QCOMPARE(copyId, newId + 1);
    QCOMPARE(w.listModel()->idAt(w.list()->selectedRow()), copyId);
}

namespace {
const char *kSmallBook = R"(
INSERT INTO Ingredients (id, Ingredient, UnitType, ozperunit, unitprice) VALUES
  (1, 'Gin', 'Fifth', 25.4, 15.99), (2, 'Vermouth', 'Fifth', 25.4, 8.99), (3, 'Olive', 'Jar', 40, 3.99);
INSERT INTO Drinks (id, Name, Cost) VALUES (1, 'Martini', 1.5);
INSERT INTO DrinkRel (DrinkID, IngID, seq, amount, MetricAmount, measure) VALUES
  (1, 1, 1, '2 oz', '6.0 cl ', 2), (1, 2, 2, '0.5 oz', '1.5 cl ', 0.5), (1, 3, 3, '1 piece', '1 ml piece', 1);
)";

QStringList column(QAbstractItemModel *m, int c)
{
    QStringList out;
    for (int r = 0; r < m->rowCount(); ++r)
        out << m->index(r, c).data().toString();
    return out;
}
} // namespace

void tst_FrmAddEdit::linesMoveAndRemove()
{
    TestStore t(QString::fromUtf8(kSmallBook));
    frmAddEdit dlg(t.store(), t.appDir());
    dlg.Setup(true, false, 1);
    auto *cfIng = child<QTableView>(&dlg, "cfIng");
    auto *lines = cfIng->model();
    auto *prices = child<QTableView>(&dlg, "cfPrice")->model();
    auto click = [&](const char *name) { child<QPushButton>(&dlg, name)->click(); };
    // The stored cost is the base of the shares until the cost is worked out again.
    QCOMPARE(column(prices, 6), (QStringList{"83.94%", "11.80%", "6.65%"}));
    cfIng->selectRow(0);
    click("cmdMoveUp"); // the first line stays
    QCOMPARE(column(lines, 3), (QStringList{"Gin", "Vermouth", "Olive"}));
    click("cmdMoveDown");
    QCOMPARE(column(lines, 3), (QStringList{"Vermouth", "Gin", "Olive"}));
    QCOMPARE(column(prices, 1), (QStringList{"Vermouth", "Gin", "Olive"}));
    QCOMPARE(cfIng->currentIndex().row(), 1);
    cfIng->selectRow(2);
    click("cmdMoveDown"); // the last line stays
    QCOMPARE(column(lines, 3), (QStringList{"Vermouth", "Gin", "Olive"}));
    click("cmdRemoveIng");
    QCOMPARE(column(lines, 3), (QStringList{"Vermouth", "Gin"}));
    // The breakdown keeps the removed line until it is worked out again.
    QCOMPARE(prices->rowCount(), 3);
    click("cmdResetCost");
    QCOMPARE(child<QLineEdit>(&dlg, "txtCost")->text(), QStringLiteral("$1.54"));
    QCOMPARE(prices->rowCount(), 2);
    click("cmdResetCost");
    QCOMPARE(child<QLineEdit>(&dlg, "txtCost")->text(), QStringLiteral("$1.44"));
    cfIng->selectRow(0);
    click("cmdRemoveIng");
    click("cmdRemoveIng");
    QCOMPARE(lines->rowCount(), 0);
    QVERIFY(!child<QPushButton>(&dlg, "cmdRemoveIng")->isEnabled());
}

void tst_FrmAddEdit::tabsFollowTheScheme()
{
    TestStore t(QString::fromUtf8(kSmallBook));
    // A scheme chosen after the start: the editor is built in its colours and still finds its page.
    modCorvane::state().schemeHighlightColor = 0xE7B888;
    modCorvane::state().schemeBackgroundColor = 0x14100D;
    modCorvane::state().schemeTextColor = 0xF7F1EE;
    frmAddEdit dlg(t.store(), t.appDir());
    QCOMPARE(dlg.GetCurrentPage(), 0);
    auto *tab = child<QWidget>(&dlg, "pnlOpt3");
    QCOMPARE(tab->palette().color(QPalette::Window), QColor(0x0D, 0x10, 0x14));
    dlg.ShowPage(3);
    QCOMPARE(dlg.GetCurrentPage(), 3);
    QCOMPARE(tab->palette().color(QPalette::Window), QColor(0x88, 0xB8, 0xE7));
    // The active page's text is the negative of the scheme's text colour.
    QCOMPARE(tab->palette().color(QPalette::WindowText), QColor(0x11, 0x0E, 0x08));
    QCOMPARE(dlg.findChild<QStackedWidget *>()->currentWidget()->objectName(), QStringLiteral("pnlDisp3"));
}

QTEST_MAIN(tst_FrmAddEdit)
#include "tst_frmaddedit.moc"
