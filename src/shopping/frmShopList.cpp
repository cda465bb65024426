#include "shopping/frmShopList.h"

#include "presentation/DrinkListModel.h"
#include "shopping/PurchaseAmount.h"
#include "shopping/ShopListFile.h"
#include "shopping/ShopListPrint.h"
#include "shopping/ShoppingList.h"
#include "widgets/ApplyScheme.h"
#include "widgets/HandlerGuard.h"
#include "widgets/NamedControls.h"
#include "widgets/PlainMessage.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QRadioButton>
#include <QScopeGuard>
#include <QTableWidget>
#include <QVBoxLayout>

namespace {

const QString kTitle = QStringLiteral("Shopping List");
const QString kFilter = QStringLiteral("Shopping Lists (*.LST)");

QVBoxLayout *column(QWidget *caption, QWidget *list)
{
    auto *layout = new QVBoxLayout;
    layout->addWidget(caption);
    layout->addWidget(list, 1);
    return layout;
}

} // namespace

frmShopList::frmShopList(DrinkStore &store, QWidget *parent) : QDialog(parent), m_store(store)
{
    setObjectName(QStringLiteral("frmShopList"));
    setWindowTitle(kTitle);

    SourceList = named(new QListWidget(this), "SourceList");
    SelectedList = named(new QListWidget(this), "SelectedList");
    for (QListWidget *list : {SourceList, SelectedList})
        list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    Add = dialogButton(QStringLiteral(">"), "Add", this);
    AddAll = dialogButton(QStringLiteral(">>"), "AddAll", this);
    Remove = dialogButton(QStringLiteral("<"), "Remove", this);
    RemoveAll = dialogButton(QStringLiteral("<<"), "RemoveAll", this);

    NumDrinks = named(new QLineEdit(QStringLiteral("1"), this), "NumDrinks");
    auto *units = named(new QGroupBox(QStringLiteral("Units"), this), "fraUnits");
    Bar = named(new QRadioButton(QStringLiteral("&Bar"), units), "Bar");
    English = named(new QRadioButton(QStringLiteral("&English"), units), "English");
    Metric = named(new QRadioButton(QStringLiteral("&Metric"), units), "Metric");
    Bar->setChecked(true);

    MakeList = dialogButton(QStringLiteral("&Make List"), "MakeList", this);
    ClearList = dialogButton(QStringLiteral("C&lear List"), "ClearList", this);
    Print = dialogButton(QStringLiteral("&Print"), "Print", this);
    Command1 = dialogButton(QStringLiteral("&Open..."), "Command1", this);
    Command2 = dialogButton(QStringLiteral("&Save..."), "Command2", this);
    Done = dialogButton(QStringLiteral("&Done"), "Done", this);

    gridShopList = named(new QTableWidget(1, 2, this), "gridShopList");
    gridShopList->setHorizontalHeaderLabels({QStringLiteral("Ingredient"), QStringLiteral("Amount Required")});
    gridShopList->verticalHeader()->hide();
    gridShopList->verticalHeader()->setDefaultSectionSize(gridShopList->fontMetrics().height() + 6);
    gridShopList->setEditTriggers(QAbstractItemView::NoEditTriggers);
    gridShopList->setSelectionBehavior(QAbstractItemView::SelectRows);
    // The two columns share the grid's width.
    gridShopList->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);

    auto *moves = new QVBoxLayout;
    moves->addStretch(1);
    for (QPushButton *b : {Add, AddAll, Remove, RemoveAll})
        moves->addWidget(b);
    moves->addStretch(1);
    auto *lists = new QHBoxLayout;
    lists->addLayout(column(named(new QLabel(QStringLiteral("Available Drinks"), this), "lblSource"), SourceList), 1);
    lists->addLayout(moves);
    lists->addLayout(column(named(new QLabel(QStringLiteral("Selected Drinks"), this), "lblSelected"), SelectedList),
                     1);

    auto *unitLayout = new QHBoxLayout(units);
    for (QRadioButton *r : {Bar, English, Metric})
        unitLayout->addWidget(r);
    auto *settings = new QHBoxLayout;
    settings->addWidget(
        named(new QLabel(QStringLiteral("How many of each drink do you expect to make?"), this), "lblNumDrinks"));
    settings->addWidget(NumDrinks);
    settings->addWidget(units);

    auto *buttons = new QHBoxLayout;
    for (QPushButton *b : {MakeList, ClearList, Command1, Command2, Print})
        buttons->addWidget(b);
    buttons->addStretch(1);
    buttons->addWidget(Done);

    auto *layout = new QVBoxLayout(this);
    layout->addLayout(lists, 3);
    layout->addLayout(settings);
    layout->addWidget(gridShopList, 2);
    layout->addLayout(buttons);
    resize(640, 560);

    connect(Add, &QPushButton::clicked, this, &frmShopList::Add_Click);
    connect(AddAll, &QPushButton::clicked, this, &frmShopList::AddAll_Click);
    connect(Remove, &QPushButton::clicked, this, &frmShopList::Remove_Click);
    connect(RemoveAll, &QPushButton::clicked, this, &frmShopList::RemoveAll_Click);
    connect(SourceList, &QListWidget::itemDoubleClicked, this,
            [this](QListWidgetItem *item) { moveItem(SourceList, SelectedList, item); });
    connect(SelectedList, &QListWidget::itemDoubleClicked, this,
            [this](QListWidgetItem *item) { moveItem(SelectedList, SourceList, item); });
    connect(MakeList, &QPushButton::clicked, this, [this] { runGuarded(this, [this] { MakeList_Click(); }); });
    connect(ClearList, &QPushButton::clicked, this, &frmShopList::ClearList_Click);
    connect(Print, &QPushButton::clicked, this, &frmShopList::Print_Click);
    connect(Command1, &QPushButton::clicked, this, [this] { runGuarded(this, [this] { Command1_Click(); }); });
    connect(Command2, &QPushButton::clicked, this, &frmShopList::Command2_Click);
    connect(Done, &QPushButton::clicked, this, &QDialog::accept);

    ApplySchemeToForm(this);
}

void frmShopList::Setup(const DrinkListModel &mainList)
{
    const int rows = mainList.rowCount();
    if (rows >= kMaxDrinks)
        plainMessage(this, QStringLiteral("Not all of the drinks in the current list can be displayed.  Only the "
                                          "first 12000 will be shown."));
    SourceList->clear();
    SelectedList->clear();
    for (int row = 0; row < std::min(rows, kMaxDrinks); ++row) {
        auto *item = new QListWidgetItem(mainList.nameAt(row), SourceList);
        item->setData(IdRole, mainList.idAt(row));
    }
}

void frmShopList::moveItem(QListWidget *from, QListWidget *to, QListWidgetItem *item)
{
    if (!item)
        return;
    to->addItem(from->takeItem(from->row(item)));
}

void frmShopList::moveItems(QListWidget *from, QListWidget *to, bool all)
{
    std::vector<int> rows;
    for (int i = 0; i < from->count(); ++i)
        if (all || from->item(i)->isSelected())
            rows.push_back(i);
    for (int row : rows) {
        auto *copy = new QListWidgetItem(from->item(row)->text(), to);
        copy->setData(IdRole, from->item(row)->data(IdRole));
    }
    // Taken from the end backwards, so the rows still to take keep their places.
    for (auto it = rows.rbegin(); it != rows.rend(); ++it)
        delete from->takeItem(*it);
}

void frmShopList::Add_Click()
{
    moveItems(SourceList, SelectedList, false);
}

void frmShopList::AddAll_Click()
{
    moveItems(SourceList, SelectedList, true);
}

void frmShopList::Remove_Click()
{
    moveItems(SelectedList, SourceList, false);
}

void frmShopList::RemoveAll_Click()
{
    moveItems(SelectedList, SourceList, true);
}

void frmShopList::resetGrid(const QString &firstCell)
{
    gridShopList->clearContents();
    gridShopList->setRowCount(1);
    gridShopList->setItem(0, 0, new QTableWidgetItem(firstCell));
    gridShopList->setItem(0, 1, new QTableWidgetItem(QString()));
}

void frmShopList::ClearList_Click()
{
    resetGrid();
}

int frmShopList::unitFamily() const
{
    if (Metric->isChecked())
        return PurchaseAmount::Metric;
    if (English->isChecked())
        return PurchaseAmount::English;
    return PurchaseAmount::Bar;
}

void frmShopList::MakeList_Click()
{
    if (SelectedList->count() == 0) {
        plainMessage(this, QStringLiteral("Please select the drinks you want the shopping list for."));
        return;
    }
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const auto restoreCursor = qScopeGuard([] { QApplication::restoreOverrideCursor(); });
    resetGrid();
    const std::optional<int> n = ShoppingList::numberOfDrinks(NumDrinks->text());
    if (!n) {
        plainMessage(
            this, QStringLiteral("Please enter a number greater than or equal to 1 for the number of drinks to make."));
        return;
    }
    std::vector<qint32> ids;
    for (int i = 0; i < SelectedList->count(); ++i)
        ids.push_back(SelectedList->item(i)->data(IdRole).toInt());
    const auto rows = ShoppingList::Generate(m_store, ids, *n, unitFamily(), [this](const QString &stage) {
        gridShopList->item(0, 0)->setText(stage);
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    });
    resetGrid();
    if (rows.empty())
        return;
    gridShopList->setRowCount(int(rows.size()));
    for (int r = 0; r < int(rows.size()); ++r) {
        gridShopList->setItem(r, 0, new QTableWidgetItem(rows[std::size_t(r)].ingredient));
        gridShopList->setItem(r, 1, new QTableWidgetItem(rows[std::size_t(r)].amount));
    }
}

QString frmShopList::chooseFile(const QString &title, bool save)
{
    QFileDialog dialog(this, title);
    dialog.setObjectName(QStringLiteral("dlgShopListFile"));
    dialog.setNameFilter(kFilter);
    dialog.setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    // A missing file is answered by the list's own message, an existing one by its own question.
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    dialog.setDefaultSuffix(QStringLiteral("LST"));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return {};
    return dialog.selectedFiles().constFirst();
}

void frmShopList::Command2_Click()
{
    const QString path = chooseFile(QStringLiteral("Save Shopping List as"), true);
    if (path.isEmpty())
        return;
    if (QFileInfo::exists(path)) {
        QMessageBox ask(QMessageBox::NoIcon, kTitle,
                        QStringLiteral("The file '%1' already exists.  Do you want ot overwrite it?").arg(path),
                        QMessageBox::Yes | QMessageBox::No, this);
        if (ask.exec() != QMessageBox::Yes)
            return;
    }
    QStringList names;
    for (int i = 0; i < SelectedList->count(); ++i)
        names << SelectedList->item(i)->text();
    const QString error = ShopListFile::Write(path, names, NumDrinks->text());
    if (!error.isEmpty())
        QMessageBox::critical(this, kTitle, error);
}

void frmShopList::Command1_Click()
{
    const QString path = chooseFile(QStringLiteral("Open Shopping List"), false);
    if (!path.isEmpty())
        openList(path);
}

void frmShopList::openList(const QString &path)
{
    const ShopListFile::Content content = ShopListFile::Read(path);
    switch (content.status) {
    case ShopListFile::Status::NotFound: {
        QMessageBox box(QMessageBox::NoIcon, kTitle, QStringLiteral("The file '%1' Could not be found.").arg(path),
                        QMessageBox::Ok, this);
        box.exec();
        return;
    }
    case ShopListFile::Status::BadFormat: {
        QMessageBox box(QMessageBox::Critical, kTitle,
                        QStringLiteral("This file is not in the correct format for a saved shopping list."),
                        QMessageBox::Ok, this);
        box.exec();
        return;
    }
    case ShopListFile::Status::Unreadable:
        return;
    case ShopListFile::Status::Read:
    case ShopListFile::Status::Truncated:
        break;
    }
    // The drinks of a list opened before are dropped, not given back to the available ones.
    SelectedList->clear();
    resetGrid();
    for (const QString &name : content.drinkNames) {
        const QString wanted = name.trimmed();
        for (int i = 0; i < SourceList->count(); ++i) {
            if (SourceList->item(i)->text().trimmed() == wanted) {
                moveItem(SourceList, SelectedList, SourceList->item(i));
                break;
            }
        }
    }
    // A file that ends before its number is left there: the drinks found so far stay chosen.
    if (content.status == ShopListFile::Status::Truncated)
        return;
    NumDrinks->setText(content.numDrinks);
    MakeList_Click();
}

void frmShopList::Print_Click()
{
    ShopListPrint::Input input;
    for (int i = 0; i < SelectedList->count(); ++i)
        input.drinkNames << SelectedList->item(i)->text();
    input.numDrinks = NumDrinks->text();
    input.family = unitFamily();
    for (int r = 0; r < gridShopList->rowCount(); ++r) {
        const QTableWidgetItem *ingredient = gridShopList->item(r, 0);
        const QTableWidgetItem *amount = gridShopList->item(r, 1);
        input.rows.push_back({ingredient ? ingredient->text() : QString(), amount ? amount->text() : QString()});
    }
    const QDateTime now = QDateTime::currentDateTime();
    if (!m_printFile.isEmpty()) {
        const QString error = ShopListPrint::PrintToPdf(m_printFile, input, now);
        if (!error.isEmpty())
            QMessageBox::critical(this, kTitle, error);
        return;
    }
    // The system's printers, and Qt's own printing to a PDF file.
    QPrinter printer(QPrinter::HighResolution);
    // Also the name Qt offers when printing to a file.
    printer.setDocName(QStringLiteral("Shopping List"));
    QPrintDialog dialog(&printer, this);
    dialog.setObjectName(QStringLiteral("dlgPrint"));
    if (dialog.exec() != QDialog::Accepted)
        return;
    if (!ShopListPrint::Print(printer, ShopListPrint::Layout(input, now)))
        QMessageBox::critical(this, kTitle, QStringLiteral("The printer could not be used."));
}
