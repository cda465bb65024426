#include "reference/frmIngMerge.h"

#include "cabinet/LiquorCabinet.h"
#include "reference/IngredientMerge.h"
#include "widgets/ApplyScheme.h"
#include "widgets/HandlerGuard.h"
#include "widgets/PlainMessage.h"
#include "widgets/NamedControls.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

frmIngMerge::frmIngMerge(DrinkStore &store, QWidget *parent) : QDialog(parent), m_store(store)
{
    setObjectName(QStringLiteral("frmIngMerge"));
    setWindowTitle(QStringLiteral("Merge Ingredients"));
    lblNote = new QLabel(this);
    lblNote->setObjectName(QStringLiteral("lblNote"));
    lblNote->setWordWrap(true);
    tvIng = new QTreeWidget(this);
    tvIng->setObjectName(QStringLiteral("tvIng"));
    tvIng->setHeaderHidden(true);
    cmdSave = dialogButton(QStringLiteral("&Merge"), "cmdSave", this);
    cmdCancel = dialogButton(QStringLiteral("&Cancel"), "cmdCancel", this);
    connect(cmdSave, &QPushButton::clicked, this, &frmIngMerge::cmdSave_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    auto *buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmdSave);
    buttons->addWidget(cmdCancel);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(lblNote);
    layout->addWidget(tvIng, 1);
    layout->addLayout(buttons);
    resize(420, 480);
    ApplySchemeToForm(this);
}

void frmIngMerge::setIngName(const QString &name)
{
    m_ingName = name;
    lblNote->setText(IngredientMerge::MergeNote(name));
}

void frmIngMerge::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    runGuarded(this, [this] { fillTree(); });
}

void frmIngMerge::fillTree()
{
    tvIng->clear();
    const std::vector<LiquorCabinet::Node> nodes = LiquorCabinet::LoadCabinetTree(m_store);
    std::vector<QTreeWidgetItem *> items;
    items.reserve(nodes.size());
    for (const LiquorCabinet::Node &n : nodes) {
        QTreeWidgetItem *parent = n.parent >= 0 ? items[std::size_t(n.parent)] : nullptr;
        auto *item = parent ? new QTreeWidgetItem(parent) : new QTreeWidgetItem(tvIng);
        item->setText(0, n.text);
        item->setData(0, Qt::UserRole, n.key);
        item->setData(0, Qt::UserRole + 1, n.tag);
        items.push_back(item);
    }
    tvIng->expandAll();
}

void frmIngMerge::cmdSave_Click()
{
    QTreeWidgetItem *node = tvIng->currentItem();
    if (!node || !node->data(0, Qt::UserRole).toString().startsWith(u'I')) {
        plainMessage(this, QStringLiteral("Please select an ingredient."));
        return;
    }
    m_ingID = node->data(0, Qt::UserRole + 1).toInt();
    m_ingName = node->text(0);
    m_canceled = false;
    accept();
}

frmIngUsage::frmIngUsage(DrinkStore &store, QWidget *parent) : QDialog(parent), m_store(store)
{
    setObjectName(QStringLiteral("frmIngUsage"));
    setWindowTitle(QStringLiteral("Ingredient Usage"));
    lblNote = new QLabel(this);
    lblNote->setObjectName(QStringLiteral("lblNote"));
    lblNote->setWordWrap(true);
    lstDrinks = new QListWidget(this);
    lstDrinks->setObjectName(QStringLiteral("lstDrinks"));
    lblCount = new QLabel(this);
    lblCount->setObjectName(QStringLiteral("lblCount"));
    cmdClose = dialogButton(QStringLiteral("&Close"), "cmdClose", this);
    connect(cmdClose, &QPushButton::clicked, this, &QDialog::accept);
    auto *bottom = new QHBoxLayout;
    bottom->addWidget(lblCount, 1);
    bottom->addWidget(cmdClose);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(lblNote);
    layout->addWidget(lstDrinks, 1);
    layout->addLayout(bottom);
    resize(360, 420);
    ApplySchemeToForm(this);
}

void frmIngUsage::Setup(qint32 ingID, const QString &ingName)
{
    const QStringList names = IngredientMerge::IngredientUsage(m_store, ingID);
    lblNote->setText(IngredientMerge::UsageNote(ingName, int(names.size())));
    lstDrinks->clear();
    lstDrinks->addItems(names);
    lblCount->setText(names.isEmpty() ? QString() : IngredientMerge::UsageCount(int(names.size())));
}
