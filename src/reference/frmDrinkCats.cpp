#include "reference/frmDrinkCats.h"

#include "reference/DrinkCategories.h"
#include "widgets/ApplyScheme.h"
#include "widgets/HandlerGuard.h"
#include "widgets/PlainMessage.h"
#include "widgets/NamedControls.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QVBoxLayout>

using namespace DrinkCategories;

namespace {
QListWidget *categoryList(const char *name, QWidget *parent)
{
    auto *list = new QListWidget(parent);
    list->setObjectName(QString::fromLatin1(name));
    return list;
}

// The list from the store, each entry with its id; the first one selected.
void fillCategories(DrinkStore &store, QListWidget *list)
{
    list->clear();
    for (const Category &c : LoadCategories(store)) {
        auto *item = new QListWidgetItem(c.name, list);
        item->setData(Qt::UserRole, c.id);
    }
    if (list->count() > 0)
        list->setCurrentRow(0);
}

std::vector<Category> entries(const QListWidget *list)
{
    std::vector<Category> out;
    for (int i = 0; i < list->count(); ++i)
        out.push_back({list->item(i)->data(Qt::UserRole).toInt(), list->item(i)->text()});
    return out;
}
} // namespace

frmDrinkCats::frmDrinkCats(DrinkStore &store, QWidget *parent) : QDialog(parent), m_store(store)
{
    setObjectName(QStringLiteral("frmDrinkCats"));
    setWindowTitle(QStringLiteral("Drink Categories"));
    lstTypes = categoryList("lstTypes", this);
    txtType = new QLineEdit(this);
    txtType->setObjectName(QStringLiteral("txtType"));
    cmdAdd = dialogButton(QStringLiteral("&Add"), "cmdAdd", this);
    cmdUpdate = dialogButton(QStringLiteral("&Update"), "cmdUpdate", this);
    cmdRemove = dialogButton(QStringLiteral("&Remove"), "cmdRemove", this);
    cmdClose = dialogButton(QStringLiteral("&Close"), "cmdClose", this);
    connect(lstTypes, &QListWidget::itemClicked, this, [this](QListWidgetItem *item) { txtType->setText(item->text()); });
    connect(cmdAdd, &QPushButton::clicked, this, &frmDrinkCats::cmdAdd_Click);
    connect(cmdUpdate, &QPushButton::clicked, this, &frmDrinkCats::cmdUpdate_Click);
    connect(cmdRemove, &QPushButton::clicked, this, &frmDrinkCats::cmdRemove_Click);
    connect(cmdClose, &QPushButton::clicked, this, &QDialog::accept);
    auto *buttons = new QVBoxLayout;
    for (QPushButton *b : {cmdAdd, cmdUpdate, cmdRemove})
        buttons->addWidget(b);
    buttons->addStretch(1);
    buttons->addWidget(cmdClose);
    auto *left = new QVBoxLayout;
    left->addWidget(lstTypes, 1);
    left->addWidget(txtType);
    auto *layout = new QHBoxLayout(this);
    layout->addLayout(left, 1);
    layout->addLayout(buttons);
    resize(380, 360);
    ApplySchemeToForm(this);
}

void frmDrinkCats::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    runGuarded(this, [this] { fillCategories(m_store, lstTypes); });
}

void frmDrinkCats::cmdAdd_Click()
{
    const QString text = txtType->text();
    const std::vector<Category> list = entries(lstTypes);
    const QString problem = AddProblem(list, text);
    if (!problem.isEmpty()) {
        plainMessage(this, problem);
        return;
    }
    const qint32 id = NextCategoryID(list);
    runGuarded(this, [&] {
        AddCategory(m_store, id, text);
        auto *item = new QListWidgetItem(text, lstTypes);
        item->setData(Qt::UserRole, id);
        lstTypes->setCurrentItem(item);
    });
}

void frmDrinkCats::cmdUpdate_Click()
{
    QListWidgetItem *item = lstTypes->currentItem();
    if (!item)
        return;
    const QString text = txtType->text();
    const QString problem = UpdateProblem(entries(lstTypes), item->text(), text);
    if (!problem.isEmpty()) {
        plainMessage(this, problem);
        return;
    }
    runGuarded(this, [&] {
        RenameCategory(m_store, item->data(Qt::UserRole).toInt(), text);
        item->setText(text);
    });
}

void frmDrinkCats::cmdRemove_Click()
{
    QListWidgetItem *item = lstTypes->currentItem();
    if (!item)
        return;
    const qint32 id = item->data(Qt::UserRole).toInt();
    const QString problem = RemoveProblem(id);
    if (!problem.isEmpty()) {
        plainMessage(this, problem);
        return;
    }
    QMessageBox box(QMessageBox::Question, QStringLiteral("Corvane"), RemoveQuestion(item->text()),
                    QMessageBox::Ok | QMessageBox::Cancel, this);
    if (box.exec() != QMessageBox::Ok)
        return;
    runGuarded(this, [&] {
        RemoveCategory(m_store, id);
        delete item;
    });
}

frmConvToCat::frmConvToCat(DrinkStore &store, QWidget *parent) : QDialog(parent), m_store(store)
{
    setObjectName(QStringLiteral("frmConvToCat"));
    setWindowTitle(QStringLiteral("Convert to Category"));
    Label1 = new QLabel(QStringLiteral("Choose the category to give every marked drink:"), this);
    Label1->setObjectName(QStringLiteral("Label1"));
    lstCats = categoryList("lstCats", this);
    cmdOK = dialogButton(QStringLiteral("&OK"), "cmdOK", this);
    cmdCancel = dialogButton(QStringLiteral("&Cancel"), "cmdCancel", this);
    cmdEditCats = dialogButton(QStringLiteral("&Edit Categories..."), "cmdEditCats", this);
    connect(cmdOK, &QPushButton::clicked, this, &frmConvToCat::cmdOK_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(cmdEditCats, &QPushButton::clicked, this, &frmConvToCat::cmdEditCats_Click);
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(cmdEditCats);
    buttons->addStretch(1);
    buttons->addWidget(cmdOK);
    buttons->addWidget(cmdCancel);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(Label1);
    layout->addWidget(lstCats, 1);
    layout->addLayout(buttons);
    resize(380, 360);
    ApplySchemeToForm(this);
}

void frmConvToCat::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    runGuarded(this, [this] { fillCategories(m_store, lstCats); });
}

void frmConvToCat::cmdEditCats_Click()
{
    frmDrinkCats cats(m_store, this);
    cats.exec();
    runGuarded(this, [this] { fillCategories(m_store, lstCats); });
}

void frmConvToCat::cmdOK_Click()
{
    QListWidgetItem *item = lstCats->currentItem();
    if (!item)
        return;
    if (runGuarded(this, [&] { AddMarkedToCategory(m_store, item->data(Qt::UserRole).toInt()); }))
        accept();
}
