#include "reference/frmIngMaint.h"

#include "presentation/TextGridModel.h"
#include "reference/IngredientMaint.h"
#include "reference/IngredientMerge.h"
#include "reference/frmIngAdd.h"
#include "reference/frmIngMerge.h"
#include "reference/frmIngTypes.h"
#include "store/DrinkStore.h"
#include "widgets/ApplyScheme.h"
#include "widgets/HandlerGuard.h"
#include "widgets/PlainMessage.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QMessageBox>
#include <QPushButton>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QTimer>
#include <QVBoxLayout>

using namespace IngredientMaint;

namespace {

// The type column picks from the types, the sub type column from the sub types of the row's
// type, built when the cell is entered.
class IngCellDelegate : public QStyledItemDelegate {
public:
    explicit IngCellDelegate(frmIngMaint *form) : QStyledItemDelegate(form), m_form(form) {}

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        if (index.column() != Type && index.column() != SubType)
            return QStyledItemDelegate::createEditor(parent, option, index);
        auto *combo = new QComboBox(parent);
        combo->setEditable(false);
        combo->addItems(index.column() == Type ? m_form->typeNames() : m_form->subTypeNamesFor(index.row()));
        return combo;
    }
    void setEditorData(QWidget *editor, const QModelIndex &index) const override
    {
        if (auto *combo = qobject_cast<QComboBox *>(editor))
            combo->setCurrentIndex(combo->findText(index.data().toString()));
        else
            QStyledItemDelegate::setEditorData(editor, index);
    }
    void setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const override
    {
        if (auto *combo = qobject_cast<QComboBox *>(editor)) {
            if (combo->currentIndex() >= 0)
                model->setData(index, combo->currentText());
        } else {
            QStyledItemDelegate::setModelData(editor, model, index);
        }
    }

private:
    frmIngMaint *m_form;
};

QPushButton *button(const QString &caption, const char *name, const QString &tip, QWidget *parent)
{
    auto *b = new QPushButton(caption, parent);
    b->setObjectName(QString::fromLatin1(name));
    b->setToolTip(tip);
    b->setAutoDefault(false);
    return b;
}


} // namespace

frmIngMaint::frmIngMaint(DrinkStore &store, QWidget *parent) : QDialog(parent), m_store(store)
{
    setObjectName(QStringLiteral("frmIngMaint"));
    setWindowTitle(QStringLiteral("Edit Ingredients"));
    m_grid = new TextGridModel(Headers(), this);
    m_grid->setEditableColumns({Name, UnitType, Ounces, Price, Type, SubType, Notes});
    cfIng = new QTableView(this);
    cfIng->setObjectName(QStringLiteral("cfIng"));
    cfIng->setModel(m_grid);
    cfIng->setItemDelegate(new IngCellDelegate(this));
    cfIng->setSelectionMode(QAbstractItemView::SingleSelection);
    cfIng->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed |
                           QAbstractItemView::AnyKeyPressed | QAbstractItemView::SelectedClicked);
    cfIng->setColumnHidden(ID, true);
    cfIng->verticalHeader()->hide();
    cfIng->verticalHeader()->setDefaultSectionSize(cfIng->fontMetrics().height() + 6);
    cfIng->horizontalHeader()->setSectionResizeMode(Notes, QHeaderView::Stretch);
    cfIng->setColumnWidth(Name, 200);
    cfIng->setColumnWidth(Type, 110);
    cfIng->setColumnWidth(SubType, 110);
    connect(cfIng->selectionModel(), &QItemSelectionModel::currentChanged, this, &frmIngMaint::cfIng_EnterCell);

    cmdCancel = button(QStringLiteral("&Cancel"), "cmdCancel",
                       QStringLiteral("Return to the main screen without saving your changes"), this);
    cmdSave = button(QStringLiteral("&Save"), "cmdSave", QStringLiteral("Save your changes and return to the main screen"),
                     this);
    cmdAdd = button(QStringLiteral("&Add..."), "cmdAdd", QStringLiteral("Add a new ingredient"), this);
    cmdRemove = button(QStringLiteral("&Remove"), "cmdRemove",
                       QStringLiteral("Remove an ingredient.  This will remove it from all drinks that use it."), this);
    cmdMerge = button(QStringLiteral("&Merge..."), "cmdMerge",
                      QStringLiteral("Replace an ingredient with a different one. "), this);
    cmdUsage = button(QStringLiteral("&Usage..."), "cmdUsage", QStringLiteral("Show the drinks that use this ingredient"),
                      this);
    cmdCats = button(QStringLiteral("&Types..."), "cmdCats", QStringLiteral("Edit the ingredient type and sub types"),
                     this);
    connect(cmdCats, &QPushButton::clicked, this, &frmIngMaint::cmdCats_Click);
    connect(cmdMerge, &QPushButton::clicked, this, &frmIngMaint::cmdMerge_Click);
    connect(cmdUsage, &QPushButton::clicked, this, &frmIngMaint::cmdUsage_Click);
    connect(cmdSave, &QPushButton::clicked, this, &frmIngMaint::cmdSave_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmIngMaint::cmdCancel_Click);
    connect(cmdAdd, &QPushButton::clicked, this, &frmIngMaint::cmdAdd_Click);
    connect(cmdRemove, &QPushButton::clicked, this, &frmIngMaint::cmdRemove_Click);

    auto *buttons = new QHBoxLayout();
    for (QPushButton *b : {cmdAdd, cmdRemove, cmdMerge, cmdUsage, cmdCats})
        buttons->addWidget(b);
    buttons->addStretch(1);
    buttons->addWidget(cmdSave);
    buttons->addWidget(cmdCancel);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(cfIng, 1);
    layout->addLayout(buttons);
    resize(900, 560);

    ApplySchemeToForm(this);
    runGuarded(this, [this] {
        m_typeNames = IngTypeNames(m_store);
        LoadGrid();
    });
}

QStringList frmIngMaint::subTypeNamesFor(int row)
{
    QStringList names;
    runGuarded(this, [&] { names = SubTypeNames(m_store, m_grid->cell(row, Type)); });
    return names;
}

void frmIngMaint::LoadGrid()
{
    m_loaded = LoadRows(m_store);
    m_grid->setRows(m_loaded);
}

bool frmIngMaint::SaveGrid()
{
    // A cell still being typed in counts with what it holds.
    if (QWidget *editor = cfIng->indexWidget(cfIng->currentIndex()))
        emit cfIng->itemDelegate()->commitData(editor);
    std::vector<QStringList> edited;
    edited.reserve(std::size_t(m_grid->rowCount()));
    for (int r = 0; r < m_grid->rowCount(); ++r)
        edited.push_back(m_grid->row(r));
    std::optional<int> badRow;
    if (!runGuarded(this, [&] { badRow = SaveRows(m_store, m_loaded, edited); }))
        return false;
    if (badRow) {
        plainMessage(this, QStringLiteral("Type mismatch"));
        selectCell(*badRow, Price);
        return false;
    }
    m_loaded = std::move(edited);
    return true;
}

void frmIngMaint::selectCell(int row, int column)
{
    if (row < 0 || row >= m_grid->rowCount())
        return;
    cfIng->setCurrentIndex(m_grid->index(row, column));
    cfIng->scrollTo(m_grid->index(row, column));
}

void frmIngMaint::cfIng_EnterCell(const QModelIndex &current, const QModelIndex &previous)
{
    if (m_returning)
        return;
    if (previous.isValid() && previous.row() < m_grid->rowCount()) {
        if (const auto problem = LeaveCellProblem(previous.column(), m_grid->cell(previous.row(), previous.column()))) {
            plainMessage(this, *problem);
            if (previous.column() == Name) {
                // The selection goes back to the empty name once the current change is over.
                QTimer::singleShot(0, this, [this, previous] {
                    m_returning = true;
                    selectCell(previous.row(), previous.column());
                    m_returning = false;
                });
                return;
            }
        }
    }
    if (current.isValid() && current.column() == Ounces) {
        const int r = current.row();
        const QString unit = m_grid->cell(r, UnitType);
        if (m_grid->cell(r, Ounces).toDouble() <= 0 && !unit.isEmpty()) {
            runGuarded(this, [&] {
                if (const auto proposed = ProposeOunces(m_store, unit))
                    m_grid->setCell(r, Ounces, *proposed);
            });
        }
    }
}

void frmIngMaint::cmdSave_Click()
{
    if (SaveGrid())
        accept();
}

void frmIngMaint::cmdCancel_Click() { reject(); }

void frmIngMaint::cmdAdd_Click()
{
    frmIngAdd add(m_store, this);
    add.exec();
    if (add.WasCanceled() || !SaveGrid())
        return;
    runGuarded(this, [this] {
        cfIng->setUpdatesEnabled(false);
        LoadGrid();
        cfIng->setUpdatesEnabled(true);
    });
    const QString name = add.IngName();
    for (int r = 0; r < m_grid->rowCount(); ++r) {
        if (m_grid->cell(r, Name) == name) {
            selectCell(r, Name);
            break;
        }
    }
}

void frmIngMaint::cmdRemove_Click()
{
    const int row = cfIng->currentIndex().row();
    if (row < 0 || row >= m_grid->rowCount())
        return;
    QMessageBox box(QMessageBox::Critical, QStringLiteral("Remove Ingredient"),
                    QStringLiteral("Are you sure you want to remove the selected ingredient?\nIt will no longer appear "
                                   "in any drink."),
                    QMessageBox::Yes | QMessageBox::No, this);
    if (box.exec() != QMessageBox::Yes || !SaveGrid())
        return;
    runGuarded(this, [&] {
        RemoveIngredient(m_store, m_grid->cell(row, ID).toInt());
        LoadGrid();
    });
    selectCell(std::min(row, m_grid->rowCount() - 1), Name);
}

void frmIngMaint::cmdMerge_Click()
{
    const int row = cfIng->currentIndex().row();
    if (row < 0 || row >= m_grid->rowCount())
        return;
    const qint32 source = m_grid->cell(row, ID).toInt();
    if (source <= 0)
        return;
    frmIngMerge merge(m_store, this);
    merge.setIngID(source);
    merge.setIngName(m_grid->cell(row, Name));
    merge.exec();
    // The grid is saved first, even when the merge is then refused.
    if (merge.WasCanceled() || !SaveGrid())
        return;
    if (merge.IngID() == source) {
        plainMessage(this, IngredientMerge::SelfMergeMessage());
        return;
    }
    runGuarded(this, [&] {
        IngredientMerge::MergeIngredient(m_store, source, merge.IngID());
        LoadGrid();
    });
}

void frmIngMaint::cmdUsage_Click()
{
    const int row = cfIng->currentIndex().row();
    if (row < 0 || row >= m_grid->rowCount())
        return;
    frmIngUsage usage(m_store, this);
    if (runGuarded(this, [&] { usage.Setup(m_grid->cell(row, ID).toInt(), m_grid->cell(row, Name)); }))
        usage.exec();
}

void frmIngMaint::cmdCats_Click()
{
    frmIngTypes types(m_store, this);
    types.exec();
    // The type column picks from the types as they are now.
    runGuarded(this, [this] { m_typeNames = IngTypeNames(m_store); });
}
