#include "shell/ListController.h"

#include "base/modCorvane.h"
#include "presentation/DrinkListModel.h"
#include "presentation/ListSql.h"
#include "shell/LetterTabs.h"
#include "store/DrinkStore.h"
#include "store/StoreError.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QRadioButton>
#include <QSqlQuery>
#include <QTableView>
#include <QTimer>
#include <QVBoxLayout>

ListController::ListController(QWidget *parent, DrinkListModel *model) : QObject(parent), m_model(model)
{
    m_panel = new QWidget(parent);
    m_panel->setObjectName(QStringLiteral("pctBrowse"));
    auto *layout = new QVBoxLayout(m_panel);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(3);

    cmbSelect = new QComboBox(m_panel);
    cmbSelect->setObjectName(QStringLiteral("cmbSelect"));
    cmbSelect->setMaxVisibleItems(25);
    connect(cmbSelect, &QComboBox::activated, this, [this] { cmbSelect_Click(); });
    layout->addWidget(cmbSelect);

    m_tabs = new LetterTabs(m_panel);
    connect(m_tabs, &LetterTabs::tabClicked, this, &ListController::pnlListSet_Click);
    layout->addWidget(m_tabs);

    auto *options = new QWidget(m_panel);
    options->setObjectName(QStringLiteral("pnlMarkedOptions"));
    auto *optLayout = new QHBoxLayout(options);
    optLayout->setContentsMargins(0, 0, 0, 0);
    ssoptMarked = new QRadioButton(QStringLiteral("Show Marked Only"), options);
    ssoptMarked->setObjectName(QStringLiteral("ssoptMarked"));
    ssoptUnmarked = new QRadioButton(QStringLiteral("Show Unmarked Only"), options);
    ssoptUnmarked->setObjectName(QStringLiteral("ssoptUnmarked"));
    connect(ssoptMarked, &QRadioButton::clicked, this, &ListController::ssoptMarked_Click);
    connect(ssoptUnmarked, &QRadioButton::clicked, this, &ListController::ssoptMarked_Click);
    optLayout->addWidget(ssoptMarked);
    optLayout->addWidget(ssoptUnmarked);
    layout->addWidget(options);

    auto *quick = new QWidget(m_panel);
    quick->setObjectName(QStringLiteral("pnlQuickSearch"));
    auto *quickLayout = new QHBoxLayout(quick);
    quickLayout->setContentsMargins(0, 0, 0, 0);
    lblQuickSearch = new QLabel(QStringLiteral("Quick name search"), quick);
    lblQuickSearch->setObjectName(QStringLiteral("lblQuickSearch"));
    txtQuickSearch = new QLineEdit(quick);
    txtQuickSearch->setObjectName(QStringLiteral("txtQuickSearch"));
    txtQuickSearch->setToolTip(QStringLiteral("Enter the first few letters of the drink name."));
    connect(txtQuickSearch, &QLineEdit::textChanged, this, &ListController::txtQuickSearch_Change);
    quickLayout->addWidget(lblQuickSearch);
    quickLayout->addWidget(txtQuickSearch, 1);
    layout->addWidget(quick);

    timerQS = new QTimer(this);
    timerQS->setObjectName(QStringLiteral("timerQS"));
    timerQS->setSingleShot(true);
    timerQS->setInterval(250);
    connect(timerQS, &QTimer::timeout, this, &ListController::timerQS_Timer);

    gridDrinkNames = new QTableView(m_panel);
    gridDrinkNames->setObjectName(QStringLiteral("gridDrinkNames"));
    gridDrinkNames->setModel(m_model);
    gridDrinkNames->setColumnHidden(DrinkListModel::IdColumn, true);
    gridDrinkNames->setSelectionBehavior(QAbstractItemView::SelectRows);
    gridDrinkNames->setSelectionMode(QAbstractItemView::SingleSelection);
    gridDrinkNames->setEditTriggers(QAbstractItemView::NoEditTriggers);
    gridDrinkNames->setWordWrap(false);
    gridDrinkNames->horizontalHeader()->setStretchLastSection(true);
    gridDrinkNames->horizontalHeader()->hide();
    gridDrinkNames->verticalHeader()->hide();
    // Fixed row heights let the view place a row of a long list without measuring the others.
    gridDrinkNames->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    gridDrinkNames->verticalHeader()->setDefaultSectionSize(gridDrinkNames->fontMetrics().height() + 4);
    connect(gridDrinkNames->selectionModel(), &QItemSelectionModel::currentRowChanged, this, [this] {
        if (m_quietSelection)
            return;
        emit closePanels();
        ShowSelectedDrink();
    });
    layout->addWidget(gridDrinkNames, 1);

    sbCount = new QLabel(parent);
    sbCount->setObjectName(QStringLiteral("sbCount"));
}

void ListController::setTabColors(const TabColors &colors) { m_tabs->setColors(colors); }

void ListController::ArrangeListControls()
{
    const int view = modCorvane::state().currentView;
    m_tabs->setVisible(view == 0 || view == 4 || view == 5);
    cmbSelect->setVisible(view >= 1 && view <= 3);
    txtQuickSearch->parentWidget()->setVisible(view == 6);
    ssoptMarked->parentWidget()->setVisible(view == 4);
}

bool ListController::reload(const QString &sql)
{
    try {
        m_model->load(*m_store, sql);
        listSQL = sql;
        // The new list stands on its first row; whether its page is shown is the caller's choice.
        selectRowQuietly(m_model->rowCount() > 0 ? 0 : -1);
        return true;
    } catch (const StoreError &e) {
        // A quote in a typed text breaks the statement: say why and keep the list as it was.
        QMessageBox::critical(m_panel->window(), QStringLiteral("Corvane"), e.engineText());
        return false;
    }
}

void ListController::openView(int command)
{
    const int view = modCorvane::state().currentView;
    switch (command) {
    case 201:
    case 206:
        ArrangeListControls();
        pnlListSet_Click(0);
        break;
    case 202:
    case 203:
    case 204:
        FillSelector(view);
        ArrangeListControls();
        if (cmbSelect->count() > 0) {
            cmbSelect->setCurrentIndex(0);
            cmbSelect_Click();
        }
        break;
    case 205:
        ArrangeListControls();
        ssoptMarked->setChecked(true);
        pnlListSet_Click(0);
        break;
    case 207:
        ArrangeListControls();
        reload(BuildListSQL(view, currentListTab, searchActive, false));
        {
            // Emptying the box must not start a quick search of its own.
            const QSignalBlocker block(txtQuickSearch);
            txtQuickSearch->clear();
            quickSearchText.clear();
        }
        ShowSelectedDrink();
        break;
    default:
        break;
    }
    SizeListColumns();
}

void ListController::reloadWithCurrentTab()
{
    const int view = modCorvane::state().currentView;
    reload(BuildListSQL(view, currentListTab, searchActive, view == 4 && ssoptMarked->isChecked()));
    ShowSelectedDrink();
}

void ListController::FillSelector(int view)
{
    cmbSelect->clear();
    QSqlQuery q = m_store->select(SelectorSQL(view));
    while (q.next())
        cmbSelect->addItem(q.value(1).toString(), q.value(0).toInt());
}

void ListController::pnlListSet_Click(int tab)
{
    m_tabs->select(tab);
    currentListTab = short(tab);
    const int view = modCorvane::state().currentView;
    reload(BuildListSQL(view, tab, searchActive, view == 4 && ssoptMarked->isChecked()));
    ShowSelectedDrink();
    SizeListColumns();
}

void ListController::cmbSelect_Click()
{
    emit closePanels();
    if (cmbSelect->currentIndex() < 0)
        return;
    reload(BuildListSQL(modCorvane::state().currentView, cmbSelect->currentData().toInt(), searchActive, false));
    ShowSelectedDrink();
}

void ListController::ssoptMarked_Click()
{
    emit closePanels();
    // The option's value goes in as the search flag and the search flag as the marked test:
    // the pair has always worked this way round, and a letter tab click then lists what the
    // option promises.
    reload(BuildListSQL(modCorvane::state().currentView, currentListTab, ssoptMarked->isChecked(), searchActive));
    ShowSelectedDrink();
}

void ListController::txtQuickSearch_Change()
{
    emit closePanels();
    quickSearchText = txtQuickSearch->text();
    timerQS->start();
}

void ListController::timerQS_Timer()
{
    timerQS->stop();
    // The page is left alone: it follows only when the selected row changes.
    reload(QuickSearchSQL(quickSearchText, searchActive));
}

void ListController::SizeListColumns()
{
    gridDrinkNames->setColumnHidden(DrinkListModel::IdColumn, true);
}

int ListController::selectedRow() const
{
    const int rows = m_model->rowCount();
    if (rows == 0)
        return -1;
    const QModelIndex current = gridDrinkNames->currentIndex();
    return current.isValid() && current.row() < rows ? current.row() : 0;
}

const std::vector<qint32> &ListController::rowsOnScreen() const { return m_model->ids(); }

void ListController::selectRowQuietly(int row)
{
    m_quietSelection = true;
    if (row < 0)
        gridDrinkNames->setCurrentIndex(QModelIndex());
    else
        gridDrinkNames->selectRow(row);
    m_quietSelection = false;
}

void ListController::ShowSelectedDrink()
{
    const int rows = m_model->rowCount();
    qint32 id = 0;
    if (rows > 0) {
        const int row = selectedRow();
        if (gridDrinkNames->currentIndex().row() != row)
            selectRowQuietly(row);
        sbCount->setText(QStringLiteral("Drink %1 of %2").arg(row + 1).arg(rows));
        id = m_model->idAt(row);
    } else {
        sbCount->clear();
    }
    emit showDrink(id);
}
