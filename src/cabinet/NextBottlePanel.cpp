#include "cabinet/NextBottlePanel.h"

#include "widgets/NamedControls.h"

#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>

NextBottlePanel::NextBottlePanel(DrinkStore &store, QWidget *parent) : QWidget(parent), m_store(store)
{
    setObjectName(QStringLiteral("pnlNextBottle"));
    lblSummary = named(new QLabel(this), "lblSummary");
    lblSummary->setWordWrap(true);
    lstNextBottle = named(new QTreeWidget(this), "lstNextBottle");
    lstNextBottle->setRootIsDecorated(false);
    lstNextBottle->setHeaderLabels(
        {QStringLiteral("Ingredient"), QStringLiteral("Unlocks"), QStringLiteral("Unit Price")});
    lstNextBottle->header()->setStretchLastSection(false);
    lstNextBottle->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    lstNextBottle->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    lstNextBottle->header()->setSectionResizeMode(2, QHeaderView::ResizeToContents);
    lblUnlocked = named(new QLabel(this), "lblUnlocked");
    lstUnlocked = named(new QListWidget(this), "lstUnlocked");
    cmdShowUnlocked = dialogButton(QStringLiteral("&Show These Drinks"), "cmdShowUnlocked", this);
    cmdShowUnlocked->setToolTip(QStringLiteral("List the drinks this bottle would let you make in the main window"));

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(lblSummary);
    layout->addWidget(lstNextBottle, 3);
    layout->addWidget(lblUnlocked);
    layout->addWidget(lstUnlocked, 2);
    layout->addWidget(cmdShowUnlocked, 0, Qt::AlignRight);

    connect(lstNextBottle, &QTreeWidget::currentItemChanged, this, &NextBottlePanel::lstNextBottle_Click);
    connect(cmdShowUnlocked, &QPushButton::clicked, this, &NextBottlePanel::cmdShowUnlocked_Click);
}

void NextBottlePanel::showFor(const std::vector<qint32> &tickedIds)
{
    if (!m_book)
        m_book = NextBottle::LoadBook(m_store);
    m_outlook = NextBottle::Look(*m_book, tickedIds);
    lblSummary->setText(QStringLiteral("Drinks you can make: %1. One bottle short: %2. Two bottles short: %3.")
                            .arg(m_outlook.canMake.size())
                            .arg(m_outlook.missingOne.size())
                            .arg(m_outlook.missingTwo.size()));

    const QSignalBlocker quiet(lstNextBottle);
    lstNextBottle->clear();
    QList<QTreeWidgetItem *> rows;
    for (const NextBottle::Candidate &c : m_outlook.ranking) {
        const auto &ingredient = m_book->ingredients[static_cast<std::size_t>(m_book->ingredientIndex(c.ingredientId))];
        auto *row = new QTreeWidgetItem({ingredient.name, QString::number(c.unlocks), ingredient.unitPrice.format()});
        row->setData(0, IdRole, c.ingredientId);
        row->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
        row->setTextAlignment(2, Qt::AlignRight | Qt::AlignVCenter);
        row->setToolTip(1, QStringLiteral("%1 more drinks within one bottle").arg(c.bringsNear));
        rows.append(row);
    }
    lstNextBottle->addTopLevelItems(rows);
    lstNextBottle->setCurrentItem(rows.isEmpty() ? nullptr : rows.first());
    lstNextBottle_Click();
}

// The drinks the chosen bottle completes, by name.
void NextBottlePanel::lstNextBottle_Click()
{
    lstUnlocked->clear();
    m_unlocked.clear();
    const QTreeWidgetItem *row = lstNextBottle->currentItem();
    if (row && m_book) {
        m_unlocked = NextBottle::DrinksUnlockedBy(m_outlook, row->data(0, IdRole).toInt());
        QStringList names;
        for (qint32 id : m_unlocked)
            names << m_book->drinkNames[static_cast<std::size_t>(m_book->drinkIndex(id))];
        std::sort(names.begin(), names.end(),
                  [](const QString &a, const QString &b) { return a.compare(b, Qt::CaseInsensitive) < 0; });
        lstUnlocked->addItems(names);
        lblUnlocked->setText(
            !m_unlocked.empty()
                ? QStringLiteral("With %1 you could also make:").arg(row->text(0))
                : QStringLiteral("%1 alone adds no drink; it brings drinks within one more bottle.").arg(row->text(0)));
    } else {
        lblUnlocked->setText(QStringLiteral("No single bottle would add a drink you can make."));
    }
    cmdShowUnlocked->setEnabled(!m_unlocked.empty());
}

void NextBottlePanel::cmdShowUnlocked_Click()
{
    if (!m_book || m_unlocked.empty())
        return;
    NextBottle::ShowAsSearchResults(m_store, *m_book, m_unlocked);
    emit drinksShown();
}
