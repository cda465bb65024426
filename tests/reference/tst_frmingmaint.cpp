// The ingredient grid driven as a user works with it, on its own and from an open drink editor.
#include "GuiTest.h"
#include "TestStore.h"
#include "base/modCorvane.h"
#include "editing/frmAddEdit.h"
#include "presentation/TextGridModel.h"
#include "reference/IngredientMaint.h"
#include "reference/frmIngMaint.h"
#include "store/DrinkStore.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTableView>
#include <QTimer>
#include <QtTest>

using namespace IngredientMaint;

namespace {
const char *kRows = R"(
INSERT INTO IngTypes (IngTypeID, IngType) VALUES (0, 'Undefined'), (1, 'Spirits');
INSERT INTO IngSubTypes (IngSubTypeID, IngTypeID, Name) VALUES (1, 1, 'Gin');
INSERT INTO Ingredients (id, Ingredient, UnitType, ozperunit, unitprice, Type, SubType) VALUES
  (1, 'Gin', 'Fifth', 25.4, 15.99, 1, 1), (2, 'Vermouth', 'Fifth', 0, 8.99, 1, 0);
INSERT INTO Drinks (id, Name, Cost) VALUES (1, 'Martini', 2.0);
INSERT INTO DrinkRel (DrinkID, IngID, seq, amount, MetricAmount, measure) VALUES (1, 1, 1, '2 oz', '6.0 cl ', 2);
)";
} // namespace

class tst_FrmIngMaint : public QObject {
    Q_OBJECT
private slots:
    void init() { modCorvane::state() = modCorvane::State(); }
    void editLeaveAndSave();
    void changeReachesOpenEditor();
};

void tst_FrmIngMaint::editLeaveAndSave()
{
    TestStore t(QString::fromUtf8(kRows));
    frmIngMaint dlg(t.store());
    dlg.show();
    auto *grid = child<QTableView>(&dlg, "cfIng");
    TextGridModel *m = dlg.grid();
    QCOMPARE(m->rowCount(), 2);
    // Entering the ounces of a fifth without a size proposes the other fifths' size.
    grid->setCurrentIndex(m->index(1, Ounces));
    QCOMPARE(m->cell(1, Ounces), QStringLiteral("25.4"));
    // A blank name is refused when the cell is left, and the cell is current again.
    grid->setCurrentIndex(m->index(0, Name));
    m->setCell(0, Name, QString());
    QString seen;
    answerNextMessage(this, &seen);
    grid->setCurrentIndex(m->index(0, Notes));
    QTRY_COMPARE(seen, QStringLiteral("Corvane|The Ingredient name cannot be blank."));
    QTRY_COMPARE(grid->currentIndex(), m->index(0, Name));
    m->setCell(0, Name, QStringLiteral("Genièvre \"Oude\""));
    m->setCell(0, Price, QStringLiteral("$21.50"));
    child<QPushButton>(&dlg, "cmdSave")->click();
    QVERIFY(!dlg.isVisible());
    QCOMPARE(t.store().scalar(QStringLiteral("SELECT Ingredient || '|' || unitprice FROM Ingredients WHERE id = 1"))
                 .toString(),
             QStringLiteral("Genièvre \"Oude\"|21.5"));
    QCOMPARE(t.store().scalar(QStringLiteral("SELECT ozperunit FROM Ingredients WHERE id = 2")).toDouble(), 25.4);
}

void tst_FrmIngMaint::changeReachesOpenEditor()
{
    TestStore t(QString::fromUtf8(kRows));
    frmAddEdit editor(t.store(), t.appDir());
    editor.Setup(true, false, 1);
    auto *cfIng = child<QTableView>(&editor, "cfIng");
    QCOMPARE(cfIng->model()->index(0, 4).data().toString(), QStringLiteral("$1.26"));
    // The ingredient dialog opens over the editor; a new price and name are saved there.
    QTimer::singleShot(0, this, [&] {
        auto *dlg = qobject_cast<frmIngMaint *>(QApplication::activeModalWidget());
        QVERIFY(dlg);
        dlg->grid()->setCell(0, Price, QStringLiteral("31.98"));
        dlg->grid()->setCell(0, Name, QStringLiteral("London Gin"));
        child<QPushButton>(dlg, "cmdSave")->click();
    });
    child<QPushButton>(&editor, "cmdEditIng")->click();
    QCOMPARE(cfIng->model()->index(0, 3).data().toString(), QStringLiteral("London Gin"));
    QCOMPARE(cfIng->model()->index(0, 4).data().toString(), QStringLiteral("$2.52"));
    // The drink's cost stays what it was until the user asks for a new one.
    QCOMPARE(child<QLineEdit>(&editor, "txtCost")->text(), QStringLiteral("$2.00"));
    child<QPushButton>(&editor, "cmdResetCost")->click();
    QCOMPARE(child<QLineEdit>(&editor, "txtCost")->text(), QStringLiteral("$2.52"));
}

QTEST_MAIN(tst_FrmIngMaint)
#include "tst_frmingmaint.moc"
