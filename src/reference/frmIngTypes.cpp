#include "reference/frmIngTypes.h"

#include "reference/IngredientTypes.h"
#include "widgets/HandlerGuard.h"
#include "widgets/PlainMessage.h"
#include "widgets/NamedControls.h"

#include <QHBoxLayout>
#include <QMessageBox>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

using namespace IngredientTypes;

namespace {
constexpr int TagRole = Qt::UserRole;
constexpr int TextRole = Qt::UserRole + 1; // the text before the edit, to go back to on a veto

} // namespace

frmIngTypes::frmIngTypes(DrinkStore &store, QWidget *parent) : QDialog(parent), m_store(store)
{
    setObjectName(QStringLiteral("frmIngTypes"));
    setWindowTitle(QStringLiteral("Edit Ingredient Types"));
    tvIngTypes = new QTreeWidget(this);
    tvIngTypes->setObjectName(QStringLiteral("tvIngTypes"));
    tvIngTypes->setHeaderHidden(true);
    tvIngTypes->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed |
                                QAbstractItemView::SelectedClicked);
    cmdAddType = dialogButton(QStringLiteral("&Add Type"), "cmdAddType", this);
    cmdAddSubType = dialogButton(QStringLiteral("Add Sub &Type"), "cmdAddSubType", this);
    cmdDelete = dialogButton(QStringLiteral("&Delete"), "cmdDelete", this);
    cmdSave = dialogButton(QStringLiteral("&Save"), "cmdSave", this);
    cmdCancel = dialogButton(QStringLiteral("&Cancel"), "cmdCancel", this);
    connect(cmdAddType, &QPushButton::clicked, this, &frmIngTypes::cmdAddType_Click);
    connect(cmdAddSubType, &QPushButton::clicked, this, &frmIngTypes::cmdAddSubType_Click);
    connect(cmdDelete, &QPushButton::clicked, this, &frmIngTypes::cmdDelete_Click);
    connect(cmdSave, &QPushButton::clicked, this, &frmIngTypes::cmdSave_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(tvIngTypes, &QTreeWidget::itemChanged, this,
            [this](QTreeWidgetItem *item) { tvIngTypes_AfterLabelEdit(item); });
    auto *buttons = new QVBoxLayout;
    for (QPushButton *b : {cmdAddType, cmdAddSubType, cmdDelete})
        buttons->addWidget(b);
    buttons->addStretch(1);
    buttons->addWidget(cmdSave);
    buttons->addWidget(cmdCancel);
    auto *layout = new QHBoxLayout(this);
    layout->addWidget(tvIngTypes, 1);
    layout->addLayout(buttons);
    resize(420, 420);
}

void frmIngTypes::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    runGuarded(this, [this] { fillTree(); });
}

QTreeWidgetItem *frmIngTypes::newNode(QTreeWidgetItem *parent)
{
    auto *item = parent ? new QTreeWidgetItem(parent) : new QTreeWidgetItem(tvIngTypes);
    item->setFlags(item->flags() | Qt::ItemIsEditable);
    return item;
}

void frmIngTypes::fillTree()
{
    m_filling = true;
    tvIngTypes->clear();
    std::vector<QTreeWidgetItem *> items;
    for (const Node &n : LoadTypeTree(m_store)) {
        QTreeWidgetItem *item = newNode(n.parent >= 0 ? items[std::size_t(n.parent)] : nullptr);
        item->setText(0, n.text);
        item->setData(0, TagRole, n.tag);
        item->setData(0, TextRole, n.text);
        items.push_back(item);
    }
    tvIngTypes->expandAll();
    m_filling = false;
}

void frmIngTypes::tvIngTypes_AfterLabelEdit(QTreeWidgetItem *item)
{
    if (m_filling)
        return;
    const QString text = item->text(0);
    QTreeWidgetItem *parent = item->parent();
    const int count = parent ? parent->childCount() : tvIngTypes->topLevelItemCount();
    for (int i = 0; i < count; ++i) {
        QTreeWidgetItem *sibling = parent ? parent->child(i) : tvIngTypes->topLevelItem(i);
        if (sibling != item && sibling->text(0) == text) {
            m_filling = true;
            item->setText(0, item->data(0, TextRole).toString());
            m_filling = false;
            plainMessage(this, DuplicateMessage(text));
            return;
        }
    }
    m_filling = true;
    item->setData(0, TextRole, text);
    m_filling = false;
}

void frmIngTypes::cmdAddType_Click()
{
    m_filling = true;
    QTreeWidgetItem *item = newNode(nullptr);
    item->setData(0, TagRole, -1);
    m_filling = false;
    tvIngTypes->setCurrentItem(item);
    tvIngTypes->scrollToItem(item);
    tvIngTypes->editItem(item);
}

void frmIngTypes::cmdAddSubType_Click()
{
    QTreeWidgetItem *selected = tvIngTypes->currentItem();
    if (!selected)
        return;
    QTreeWidgetItem *type = selected->parent() ? selected->parent() : selected;
    m_filling = true;
    QTreeWidgetItem *item = newNode(type);
    item->setData(0, TagRole, -1);
    m_filling = false;
    type->setExpanded(true);
    tvIngTypes->setCurrentItem(item);
    tvIngTypes->scrollToItem(item);
    tvIngTypes->editItem(item);
}

void frmIngTypes::cmdDelete_Click()
{
    QTreeWidgetItem *item = tvIngTypes->currentItem();
    if (!item)
        return;
    if (item->text(0) == QLatin1String("Undefined")) {
        plainMessage(this, UndefinedMessage());
        return;
    }
    const Question q = DeleteQuestion(item->parent() != nullptr, item->childCount() > 0);
    if (QMessageBox::question(this, q.title, q.text, QMessageBox::Yes | QMessageBox::No) != QMessageBox::Yes)
        return;
    m_deletions << DeletionEntry({item->parent() != nullptr, item->text(0), item->data(0, TagRole).toInt(), -1});
    delete item;
}

void frmIngTypes::cmdSave_Click()
{
    std::vector<Node> nodes;
    for (int t = 0; t < tvIngTypes->topLevelItemCount(); ++t) {
        QTreeWidgetItem *type = tvIngTypes->topLevelItem(t);
        const int typeIndex = int(nodes.size());
        nodes.push_back({false, type->text(0), type->data(0, TagRole).toInt(), -1});
        for (int s = 0; s < type->childCount(); ++s)
            nodes.push_back({true, type->child(s)->text(0), type->child(s)->data(0, TagRole).toInt(), typeIndex});
    }
    if (runGuarded(this, [&] { SaveTypeTree(m_store, nodes, m_deletions); }))
        accept();
}
