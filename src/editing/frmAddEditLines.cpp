// The drink editor's ingredient lines and their costing.
#include "editing/frmAddEdit.h"

#include "editing/EditorLines.h"
#include "presentation/TextGridModel.h"
#include "reference/frmIngMaint.h"
#include "widgets/HandlerGuard.h"
#include "widgets/PlainMessage.h"

#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTableView>
#include <QTreeWidget>

void frmAddEdit::resizeEvent(QResizeEvent *event)
{
    QDialog::resizeEvent(event);
    SizeLineColumns();
}

void frmAddEdit::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    SizeLineColumns();
}

// The amount and the cost take a fifth of the grid each, the name three fifths.
void frmAddEdit::SizeLineColumns()
{
    const int inner = cfIng->viewport()->width();
    for (int c = 0; c < IngCol::Count; ++c) {
        if (cfIng->isColumnHidden(c))
            continue;
        const int share = c == IngCol::Ingredient ? 3 : 1;
        cfIng->setColumnWidth(c, std::max(20, inner * share / 5 - 5));
    }
}

void frmAddEdit::cmdAddIng_Click()
{
    runGuarded(this, [this] {
        QTreeWidgetItem *node = tvIng->currentItem();
        const bool leaf = node && node->isSelected() && node->childCount() == 0;
        const QString typed = txtIngName->text();
        const QString measure = cmbIngUnits->currentIndex() >= 0 ? cmbIngUnits->currentText() : QString();
        const QString amount = txtAmount->text();
        if (const auto problem = CheckNewLine(leaf, typed, measure, amount)) {
            plainMessage(this, problem->message);
            if (problem->focus == LineField::Units)
                cmbIngUnits->setFocus();
            else if (problem->focus == LineField::Amount)
                txtAmount->setFocus();
            return;
        }
        // The line is there before its ingredient is known: one that cannot be found stays empty.
        m_lines->appendRow(QStringList());
        const int row = m_lines->rowCount() - 1;
        cmdRemoveIng->setEnabled(true);
        QStringList cells;
        if (!typed.isEmpty()) {
            const auto found = FindIngredientByName(m_store, typed);
            cells = found ? StoredIngredientLine(*found, amount, measure) : NewIngredientLine(typed, amount, measure);
        } else if (const auto found = FindIngredientById(m_store, node->data(0, Qt::UserRole + 1).toInt())) {
            cells = StoredIngredientLine(*found, amount, measure);
        } else {
            plainMessage(this, QStringLiteral("The ingredient was not found."));
        }
        for (int c = 0; c < cells.size(); ++c)
            m_lines->setCell(row, c, cells[c]);
        cfIng->selectRow(row);
        RefreshPriceGrid();
    });
}

void frmAddEdit::cmdRemoveIng_Click()
{
    const int row = cfIng->currentIndex().row();
    if (m_lines->rowCount() > 1) {
        m_lines->removeRowAt(row < 0 ? m_lines->rowCount() - 1 : row);
    } else {
        m_lines->setRowTotal(0);
        cmdRemoveIng->setEnabled(false);
    }
}

void frmAddEdit::cmdMoveUp_Click()
{
    const int row = cfIng->currentIndex().row();
    if (row < 1)
        return;
    m_lines->swapRows(row, row - 1);
    cfIng->selectRow(row - 1);
    m_prices->swapRows(row, row - 1);
}

void frmAddEdit::cmdMoveDown_Click()
{
    const int row = cfIng->currentIndex().row();
    if (row < 0 || row >= m_lines->rowCount() - 1)
        return;
    m_lines->swapRows(row, row + 1);
    cfIng->selectRow(row + 1);
    m_prices->swapRows(row, row + 1);
}

void frmAddEdit::cmdEditIng_Click()
{
    runGuarded(this, [this] {
        frmIngMaint dialog(m_store, this);
        dialog.exec();
        LoadIngredientTree();
        RefreshPriceGrid();
    });
}

bool frmAddEdit::RefreshPriceGrid()
{
    RefreshIngredientColumns(m_store, *m_lines);
    if (!RebuildPriceLines(*m_lines, *m_prices, txtCost->text())) {
        plainMessage(this, QStringLiteral("Type mismatch"));
        return false;
    }
    return true;
}

void frmAddEdit::cmdResetCost_Click()
{
    const std::optional<Currency> total = SumLineCosts(m_prices->column(PriceCol::Cost));
    if (!total) {
        plainMessage(this, CostProblemMessage());
        return;
    }
    txtCost->setText(total->format());
    runGuarded(this, [this] { RefreshPriceGrid(); });
}

void frmAddEdit::cmdResetPrice_Click()
{
    const DrinkPriceOutcome out =
        ResetDrinkPrice(m_priceSettings, txtCost->text(), txtPrice->text(), [this](const QString &question) {
            return QMessageBox::question(this, QStringLiteral("Drink Pricing"), question,
                                         QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes;
        });
    if (out.kind == DrinkPriceOutcome::Failed)
        plainMessage(this, PriceProblemMessage());
    else if (out.kind == DrinkPriceOutcome::Priced)
        txtPrice->setText(out.price.format());
}
