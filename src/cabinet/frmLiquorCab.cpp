#include "cabinet/frmLiquorCab.h"

#include "base/AppPaths.h"
#include "cabinet/CabinetReport.h"
#include "cabinet/LiquorCabinet.h"
#include "cabinet/NextBottlePanel.h"
#include "store/StoreError.h"
#include "widgets/ApplyScheme.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDesktopServices>
#include <QElapsedTimer>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QMessageBox>
#include <QPrinter>
#include <QPrinterInfo>
#include <QPushButton>
#include <QShowEvent>
#include <QTabWidget>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>
#include <QUrl>
#include <QVBoxLayout>

namespace {

// Between two looks at pending events: often enough for the progress text to move and for
// Cancel to answer, rarely enough that a large book is not scanned at the speed of the screen.
constexpr qint64 kYieldMilliseconds = 50;

void setCheckedTree(QTreeWidgetItem *node, Qt::CheckState state)
{
    for (int i = 0; i < node->childCount(); ++i) {
        QTreeWidgetItem *child = node->child(i);
        child->setCheckState(0, state);
        setCheckedTree(child, state);
    }
}

} // namespace

frmLiquorCab::frmLiquorCab(DrinkStore &store, QWidget *parent) : QDialog(parent), m_store(store)
{
    setObjectName(QStringLiteral("frmLiquorCab"));
    setWindowTitle(QStringLiteral("Liquor Cabinet"));

    tabCabinet = new QTabWidget(this);
    tabCabinet->setObjectName(QStringLiteral("tabCabinet"));
    auto *cabinetPage = new QWidget(tabCabinet);
    Label2 = new QLabel(QStringLiteral("Put a check next to the ingredients you have"), cabinetPage);
    Label2->setObjectName(QStringLiteral("Label2"));
    tvIng = new QTreeWidget(cabinetPage);
    tvIng->setObjectName(QStringLiteral("tvIng"));
    tvIng->setHeaderHidden(true);
    tvIng->setColumnCount(1);
    connect(tvIng, &QTreeWidget::itemChanged, this, [this](QTreeWidgetItem *node, int) { tvIng_NodeCheck(node); });

    pnlProgress = new QFrame(this);
    pnlProgress->setObjectName(QStringLiteral("pnlProgress"));
    pnlProgress->setFrameShape(QFrame::StyledPanel);
    auto *progressLayout = new QHBoxLayout(pnlProgress);
    lblProgress = new QLabel(pnlProgress);
    lblProgress->setObjectName(QStringLiteral("lblProgress"));
    cmdCancelSearch = new QPushButton(QStringLiteral("Cancel"), pnlProgress);
    cmdCancelSearch->setObjectName(QStringLiteral("cmdCancelSearch"));
    progressLayout->addWidget(lblProgress, 1);
    progressLayout->addWidget(cmdCancelSearch);
    connect(cmdCancelSearch, &QPushButton::clicked, this, &frmLiquorCab::cmdCancelSearch_Click);

    OK = new QPushButton(QStringLiteral("&Find Matches"), this);
    OK->setObjectName(QStringLiteral("OK"));
    OK->setToolTip(QStringLiteral("Start scanning for drinks you can make"));
    OK->setDefault(true);
    cmdPrint = new QPushButton(QStringLiteral("&Print"), this);
    cmdPrint->setObjectName(QStringLiteral("cmdPrint"));
    cmdPrint->setToolTip(QStringLiteral("Print a report of your selected ingredients"));
    cmdCancel = new QPushButton(QStringLiteral("&Cancel"), this);
    cmdCancel->setObjectName(QStringLiteral("cmdCancel"));
    cmdCancel->setToolTip(QStringLiteral("Return to the main screen without saving"));
    connect(OK, &QPushButton::clicked, this, &frmLiquorCab::OK_Click);
    connect(cmdPrint, &QPushButton::clicked, this, &frmLiquorCab::cmdPrint_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmLiquorCab::cmdCancel_Click);

    auto *cabinetLayout = new QVBoxLayout(cabinetPage);
    cabinetLayout->addWidget(Label2);
    cabinetLayout->addWidget(tvIng, 1);
    tabCabinet->addTab(cabinetPage, QStringLiteral("Liquor Cabinet"));
    pnlNextBottle = new NextBottlePanel(m_store, tabCabinet);
    tabCabinet->addTab(pnlNextBottle, QStringLiteral("Next Bottle"));
    connect(tabCabinet, &QTabWidget::currentChanged, this, &frmLiquorCab::tabCabinet_Click);
    connect(pnlNextBottle, &NextBottlePanel::drinksShown, this, [this] {
        m_showsUnlocked = true;
        accept();
    });

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(tabCabinet, 1);
    layout->addWidget(pnlProgress);
    auto *buttons = new QHBoxLayout();
    buttons->addWidget(OK);
    buttons->addWidget(cmdPrint);
    buttons->addStretch(1);
    buttons->addWidget(cmdCancel);
    layout->addLayout(buttons);
    resize(460, 520);

    // Form_Load
    ApplySchemeToForm(this);
    // The tree keeps the platform's colours, so its branch marks and check boxes show on any
    // scheme, as the drink editor's ingredient tree does.
    KeepPlatformColors(tvIng);
    pnlProgress->hide();
}

void frmLiquorCab::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    // A window restored by the desktop keeps its ticks; each showing by the program starts afresh.
    if (!event->spontaneous())
        Form_Activate();
}

// Rebuilds the tree from the store each time, so unsaved ticks of an earlier showing are gone.
void frmLiquorCab::Form_Activate()
{
    Canceled = true;
    m_showsUnlocked = false;
    pnlNextBottle->forgetBook();
    {
        const QSignalBlocker quiet(tabCabinet);
        tabCabinet->setCurrentIndex(0);
    }
    pnlProgress->hide();
    LoadingTree = true;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    QApplication::processEvents();
    tvIng->clear();
    try {
        const std::vector<LiquorCabinet::Node> nodes = LiquorCabinet::LoadCabinetTree(m_store);
        std::vector<QTreeWidgetItem *> items;
        items.reserve(nodes.size());
        QList<QTreeWidgetItem *> roots;
        for (const LiquorCabinet::Node &n : nodes) {
            QTreeWidgetItem *parent = n.parent >= 0 ? items[static_cast<std::size_t>(n.parent)] : nullptr;
            auto *item = parent ? new QTreeWidgetItem(parent) : new QTreeWidgetItem();
            item->setText(0, n.text);
            item->setData(0, KeyRole, n.key);
            item->setData(0, TagRole, n.tag);
            item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
            item->setCheckState(0, n.checked ? Qt::Checked : Qt::Unchecked);
            items.push_back(item);
            if (!parent)
                roots.append(item);
        }
        tvIng->addTopLevelItems(roots);
        for (QTreeWidgetItem *root : roots)
            root->setExpanded(true);
    } catch (const StoreError &e) {
        QApplication::restoreOverrideCursor();
        LoadingTree = false;
        QMessageBox::critical(this, QStringLiteral("Corvane"), e.engineText());
        return;
    }
    LoadingTree = false;
    QApplication::restoreOverrideCursor();
}

// A tick goes down the branch; a parent never follows its children.
void frmLiquorCab::tvIng_NodeCheck(QTreeWidgetItem *node)
{
    if (LoadingTree)
        return;
    LoadingTree = true; // the children report their changes too; they are part of this tick
    setCheckedTree(node, node->checkState(0));
    LoadingTree = false;
}

// The next bottle answers for the ticks as they stand in the tree, stored or not.
void frmLiquorCab::tabCabinet_Click(int page)
{
    if (tabCabinet->widget(page) != pnlNextBottle)
        return;
    std::vector<qint32> ticked;
    for (QTreeWidgetItem *node : checkedIngredients())
        ticked.push_back(node->data(0, TagRole).toInt());
    QApplication::setOverrideCursor(Qt::WaitCursor);
    try {
        pnlNextBottle->showFor(ticked);
    } catch (const StoreError &e) {
        QApplication::restoreOverrideCursor();
        QMessageBox::critical(this, QStringLiteral("Corvane"), e.engineText());
        return;
    }
    QApplication::restoreOverrideCursor();
}

std::vector<QTreeWidgetItem *> frmLiquorCab::checkedIngredients() const
{
    // Only ingredient nodes carry an ingredient id: a checked type or sub type that has nothing
    // below it is not an ingredient, whatever number its tag holds.
    std::vector<QTreeWidgetItem *> result;
    for (QTreeWidgetItemIterator it(tvIng, QTreeWidgetItemIterator::NoChildren | QTreeWidgetItemIterator::Checked); *it;
         ++it) {
        if ((*it)->data(0, KeyRole).toString().startsWith(u'I'))
            result.push_back(*it);
    }
    return result;
}

void frmLiquorCab::OK_Click()
{
    QApplication::setOverrideCursor(Qt::WaitCursor);
    int checked = 0;
    for (QTreeWidgetItemIterator it(tvIng, QTreeWidgetItemIterator::Checked); *it; ++it)
        ++checked;
    if (checked == 0) {
        QApplication::restoreOverrideCursor();
        QMessageBox box(
            QMessageBox::NoIcon, QStringLiteral("Corvane"),
            QStringLiteral("You must select at least one ingredient for the Liquor Cabinet feature to work."),
            QMessageBox::Ok, this);
        box.exec();
        return;
    }
    OK->setEnabled(false);
    cmdCancel->setEnabled(false);
    cmdPrint->setEnabled(false);
    tabCabinet->setTabEnabled(1, false); // the book is being written
    m_scanning = true;

    std::vector<qint32> ticked;
    for (QTreeWidgetItem *node : checkedIngredients())
        ticked.push_back(node->data(0, TagRole).toInt());

    QElapsedTimer sinceYield;
    LiquorCabinet::ScanOutcome outcome;
    try {
        CancelScan = false;
        pnlProgress->show();
        // The ticks and the marks are stored together: a failure leaves both as they were.
        const auto progress = [&](int counter, int total) {
            if (!sinceYield.isValid() || sinceYield.elapsed() >= kYieldMilliseconds) {
                lblProgress->setText(LiquorCabinet::ScanProgressText(counter, total));
                QApplication::processEvents();
                sinceYield.start();
            }
            return CancelScan;
        };
        outcome = LiquorCabinet::FindMatches(m_store, ticked, progress, &SelectedIds);
    } catch (const StoreError &e) {
        endScan();
        QMessageBox::critical(this, QStringLiteral("Corvane"), e.engineText());
        return;
    }
    if (!outcome.completed) {
        // Stopped: the ticks are stored, the drinks examined so far are marked, and the dialog
        // stays open.
        endScan();
        return;
    }
    m_scanning = false;
    QApplication::restoreOverrideCursor();
    tabCabinet->setTabEnabled(1, true);
    OK->setEnabled(true);
    cmdCancel->setEnabled(true);
    cmdPrint->setEnabled(true);
    Canceled = false;
    accept();
}

void frmLiquorCab::endScan()
{
    m_scanning = false;
    Canceled = true;
    tabCabinet->setTabEnabled(1, true);
    OK->setEnabled(true);
    cmdCancel->setEnabled(true);
    cmdPrint->setEnabled(true);
    pnlProgress->hide();
    QApplication::restoreOverrideCursor();
}

void frmLiquorCab::cmdCancelSearch_Click()
{
    CancelScan = true;
}

// Only hides: ticks not stored by Find Matches are dropped.
void frmLiquorCab::cmdCancel_Click()
{
    reject();
}

void frmLiquorCab::reject()
{
    // The scan lets events run; closing the window then would leave it scanning unseen.
    if (!m_scanning)
        QDialog::reject();
}

void frmLiquorCab::closeEvent(QCloseEvent *event)
{
    if (m_scanning)
        event->ignore();
    else
        QDialog::closeEvent(event);
}

QString frmLiquorCab::reportTarget() const
{
    if (!m_reportFile.isEmpty())
        return m_reportFile;
    return QPrinterInfo::defaultPrinter().isNull() ? AppPaths::file(QStringLiteral("Selected Ingredients.pdf"))
                                                   : QString();
}

// The tree as shown is printed, ticks not yet stored included.
void frmLiquorCab::cmdPrint_Click()
{
    QApplication::setOverrideCursor(Qt::WaitCursor);
    std::vector<CabinetReport::Line> lines;
    for (QTreeWidgetItem *node : checkedIngredients()) {
        QTreeWidgetItem *subType = node->parent();
        QTreeWidgetItem *type = subType ? subType->parent() : nullptr;
        lines.push_back({type ? type->text(0) : QString(), subType ? subType->text(0) : QString(), node->text(0)});
    }
    const std::vector<CabinetReport::Piece> pieces = CabinetReport::Layout(lines, QDateTime::currentDateTime());

    // Straight to the default printer; where none is set up, to a PDF file.
    const QString pdf = reportTarget();
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(QStringLiteral("Corvane Selected Ingredients Listing"));
    if (!pdf.isEmpty()) {
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(pdf);
    }
    const bool printed = CabinetReport::Print(printer, pieces);
    QApplication::restoreOverrideCursor();
    if (printed && !pdf.isEmpty() && m_reportFile.isEmpty())
        QDesktopServices::openUrl(QUrl::fromLocalFile(pdf));
    reject();
}
