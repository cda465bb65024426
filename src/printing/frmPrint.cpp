#include "printing/frmPrint.h"

#include "base/ColorValues.h"
#include "base/modCorvane.h"
#include "presentation/CDrinkFacade.h"
#include "presentation/DrinkListModel.h"
#include "printing/PreviewPicture.h"
#include "printing/PrintCard.h"
#include "printing/PrintRun.h"
#include "store/DrinkStore.h"
#include "widgets/ApplyScheme.h"
#include "widgets/DelayedProgress.h"
#include "widgets/HandlerGuard.h"
#include "widgets/NamedControls.h"
#include "widgets/PlainMessage.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QPrinter>
#include <QPrinterInfo>
#include <QPushButton>
#include <QSignalBlocker>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace {
const QString kPdfEntry = QStringLiteral("PDF file");
constexpr int kMostDrinks = 12000;

// Letter paper in twips, all of it printable: what a PDF file gets.
const PageMetrics kLetter{12240, 15840, 12240, 15840};
} // namespace

frmPrint::frmPrint(DrinkStore &store, CDrinkFacade &facade, const DrinkListModel *list, QWidget *parent)
    : QDialog(parent), m_store(store), m_facade(facade), m_list(list),
      m_glasses(std::make_unique<GlassPictureCache>(facade.appDir())), m_paper(kLetter)
{
    setObjectName(QStringLiteral("frmPrint"));
    setWindowTitle(QStringLiteral("Print Drinks"));
    m_redrawHeld = true;

    pnlSide = named(new QWidget(this), "pnlSide");
    pnlSide->setAutoFillBackground(true);
    auto *side = new QVBoxLayout(pnlSide);
    side->addWidget(new QLabel(QStringLiteral("Drinks to print:"), pnlSide));
    lstDrinks = named(new QListWidget(pnlSide), "lstDrinks");
    lstDrinks->setSelectionMode(QAbstractItemView::MultiSelection);
    side->addWidget(lstDrinks, 1);
    lblAvailCount = named(new QLabel(pnlSide), "lblAvailCount");
    lblSelCount = named(new QLabel(pnlSide), "lblSelCount");
    side->addWidget(lblAvailCount);
    side->addWidget(lblSelCount);
    auto *selectRow = new QHBoxLayout;
    cmdSelectAll = dialogButton(QStringLiteral("Select All"), "cmdSelectAll", pnlSide);
    cmdClearSelect = dialogButton(QStringLiteral("Clear"), "cmdClearSelect", pnlSide);
    selectRow->addWidget(cmdSelectAll);
    selectRow->addWidget(cmdClearSelect);
    side->addLayout(selectRow);

    // The two option tabs over their pages.
    auto *tabs = new QHBoxLayout;
    tabs->setSpacing(0);
    const char *tabNames[2] = {"pnlOpt0", "pnlOpt1"};
    const QString captions[2] = {QStringLiteral("Print  "), QStringLiteral("Layout  ")};
    for (int i = 0; i < 2; ++i) {
        pnlOpt[size_t(i)] = dialogButton(captions[i], tabNames[i], this);
        pnlOpt[size_t(i)]->setFlat(true);
        pnlOpt[size_t(i)]->setAutoFillBackground(true);
        pnlOpt[size_t(i)]->setMinimumHeight(28);
        tabs->addWidget(pnlOpt[size_t(i)]);
        connect(pnlOpt[size_t(i)], &QPushButton::clicked, this, [this, i] { pnlOpt_Click(i); });
    }
    tabs->addStretch(1);
    pnlDisp = named(new QStackedWidget(this), "pnlDisp");
    pnlDisp->addWidget(buildPrintPage());
    pnlDisp->addWidget(buildLayoutPage());
    auto *options = new QVBoxLayout;
    options->addLayout(tabs);
    options->addWidget(pnlDisp, 1);

    auto *previews = new QVBoxLayout;
    pctLPreview = named(new PreviewPicture(this), "pctLPreview");
    pctSPreview = named(new PreviewPicture(this), "pctSPreview");
    pctLPreview->setPainter([this](QPainter &p, QWidget &w) { paintCard(p, w); });
    pctSPreview->setPainter([this](QPainter &p, QWidget &w) { paintPage(p, w); });
    previews->addWidget(new QLabel(QStringLiteral("Recipe Layout Preview:"), this));
    previews->addWidget(pctLPreview, 1);
    previews->addWidget(new QLabel(QStringLiteral("Page Layout Preview:"), this));
    previews->addWidget(pctSPreview, 1);

    cmdPrint = dialogButton(QStringLiteral("Print"), "cmdPrint", this);
    cmdCancel = dialogButton(QStringLiteral("Cancel"), "cmdCancel", this);
    auto *buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmdPrint);
    buttons->addWidget(cmdCancel);
    previews->addLayout(buttons);

    auto *main = new QHBoxLayout(this);
    main->addWidget(pnlSide, 3);
    main->addLayout(options, 4);
    main->addLayout(previews, 3);

    connect(lstDrinks, &QListWidget::itemSelectionChanged, this, &frmPrint::lstDrinks_Click);
    connect(cmdSelectAll, &QPushButton::clicked, this, &frmPrint::cmdSelectAll_Click);
    connect(cmdClearSelect, &QPushButton::clicked, this, &frmPrint::cmdClearSelect_Click);
    connect(cmdPrint, &QPushButton::clicked, this, &frmPrint::cmdPrint_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);

    // The system's printers, the current one chosen; a PDF file is always offered, so the
    // dialog never stands without a printer.
    const QString current = QPrinterInfo::defaultPrinterName();
    for (const QString &name : QPrinterInfo::availablePrinterNames())
        cmbPrinter->addItem(name);
    cmbPrinter->addItem(kPdfEntry);
    const int currentIndex = cmbPrinter->findText(current);
    cmbPrinter->setCurrentIndex(current.isEmpty() || currentIndex < 0 ? cmbPrinter->count() - 1 : currentIndex);
    connect(cmbPrinter, &QComboBox::currentIndexChanged, this, &frmPrint::cmbPrinter_Click);
    cmbPrinter_Click();

    ApplySchemeToForm(this);
    QPalette sidePalette = pnlSide->palette();
    sidePalette.setColor(QPalette::Window, schemeColor(modCorvane::state().schemeBackgroundColor));
    pnlSide->setPalette(sidePalette);
    pnlOpt_Click(0);
    resize(920, 600);
    m_redrawHeld = false;
}

frmPrint::~frmPrint() = default;

bool frmPrint::Setup(bool markedOnly)
{
    std::vector<qint32> ids;
    QStringList names;
    if (markedOnly) {
        m_store.selectIdNames(QStringLiteral("SELECT ID, Name FROM Drinks WHERE Marked = Yes"), ids, names);
        if (ids.empty()) {
            plainMessage(parentWidget(), QStringLiteral("There are no marked drinks to print."));
            return false;
        }
    } else {
        // The main list as it stands, search results included; its heading row counts.
        const int rows = m_list ? m_list->rowCount() : 0;
        if (rows + 1 < 2) {
            plainMessage(parentWidget(), QStringLiteral("There are no drinks selected to print."));
            return false;
        }
        if (rows > kMostDrinks)
            plainMessage(parentWidget(), QStringLiteral("Not all of the drinks in the current list can be displayed.  "
                                                        "Only the first 12000 will be shown."));
        for (int row = 0; row < std::min(rows, kMostDrinks); ++row) {
            ids.push_back(m_list->idAt(row));
            names << m_list->nameAt(row);
        }
    }
    QApplication::setOverrideCursor(Qt::WaitCursor);
    m_redrawHeld = true;
    FillFromRecordset(ids, names);
    setLayoutControls(PrintLayout::defaults());
    FillLayoutList();
    m_redrawHeld = false;
    // The counts keep their first wording until the list is first clicked.
    pctLPreview->update();
    pctSPreview->update();
    QApplication::restoreOverrideCursor();
    return true;
}

void frmPrint::FillFromRecordset(const std::vector<qint32> &ids, const QStringList &names)
{
    const bool held = m_redrawHeld;
    m_redrawHeld = true;
    lstDrinks->clear();
    for (size_t i = 0; i < ids.size(); ++i) {
        auto *item = new QListWidgetItem(names.value(qsizetype(i)), lstDrinks);
        item->setData(Qt::UserRole, ids[i]);
    }
    lblAvailCount->setText(QStringLiteral("%1 Drinks").arg(lstDrinks->count()));
    lblSelCount->setText(QStringLiteral("0 Selected, 0 Pages"));
    if (!ids.empty())
        m_facade.setCurrentDrinkID(ids.front());
    m_redrawHeld = held;
}

void frmPrint::lstDrinks_Click()
{
    if (m_redrawHeld)
        return;
    const int selected = int(lstDrinks->selectedItems().size());
    const int pages = CardGrid::pageCount(selected, CardGrid::CardsPerPage(layoutFromControls()));
    lblSelCount->setText(QStringLiteral("%1 Selected, %2 pages").arg(selected).arg(pages));
    const qint32 current = m_facade.currentDrinkID();
    if (selected > 0) {
        for (int i = 0; i < lstDrinks->count(); ++i) {
            const QListWidgetItem *item = lstDrinks->item(i);
            if (item->isSelected() && item->data(Qt::UserRole).toInt() != current) {
                m_facade.setCurrentDrinkID(item->data(Qt::UserRole).toInt());
                PreviewCard();
                break;
            }
        }
    } else if (lstDrinks->count() > 0 && lstDrinks->item(0)->data(Qt::UserRole).toInt() != current) {
        m_facade.setCurrentDrinkID(lstDrinks->item(0)->data(Qt::UserRole).toInt());
        PreviewCard();
    }
}

void frmPrint::cmdSelectAll_Click()
{
    const QSignalBlocker block(lstDrinks);
    lstDrinks->selectAll();
    lstDrinks_Click();
}

void frmPrint::cmdClearSelect_Click()
{
    {
        const QSignalBlocker block(lstDrinks);
        lstDrinks->clearSelection();
    }
    lstDrinks_Click();
}

void frmPrint::cmbPrinter_Click()
{
    const bool pdf = cmbPrinter->currentText() == kPdfEntry;
    txtPdfFile->setEnabled(pdf);
    cmdBrowse->setEnabled(pdf);
    if (pdf) {
        m_paper = kLetter;
    } else {
        QPrinter printer(QPrinterInfo::printerInfo(cmbPrinter->currentText()));
        printer.setPageOrientation(QPageLayout::Portrait);
        m_paper = pageMetricsOf(printer);
    }
    ShowPagePreview();
}

void frmPrint::pnlOpt_Click(int index)
{
    pnlDisp->setCurrentIndex(index);
    const auto &state = modCorvane::state();
    for (int i = 0; i < 2; ++i) {
        QPalette palette = pnlOpt[size_t(i)]->palette();
        const bool chosen = i == index;
        palette.setColor(QPalette::Button,
                         schemeColor(chosen ? state.schemeHighlightColor : state.schemeBackgroundColor));
        palette.setColor(QPalette::ButtonText,
                         chosen ? ColorValues::selectedTextColor(state.schemeTextColor, QApplication::palette())
                                : schemeColor(state.schemeTextColor));
        pnlOpt[size_t(i)]->setPalette(palette);
        QFont font = pnlOpt[size_t(i)]->font();
        font.setBold(chosen);
        pnlOpt[size_t(i)]->setFont(font);
    }
}

void frmPrint::cmdPrint_Click()
{
    std::vector<qint32> ids;
    for (int i = 0; i < lstDrinks->count(); ++i)
        if (lstDrinks->item(i)->isSelected())
            ids.push_back(lstDrinks->item(i)->data(Qt::UserRole).toInt());
    if (ids.empty()) {
        plainMessage(this, QStringLiteral("Please select the drinks you want to print."));
        return;
    }
    const PrintLayoutSettings layout = layoutFromControls();
    if (CardGrid::CardsPerPage(layout) < 1) {
        plainMessage(this, QStringLiteral("Please check your layout settings."));
        hide();
        return;
    }
    PrintResult result;
    DelayedProgress progress(this, QStringLiteral("Printing..."), ids.size());
    const PrintProgress tick = [&](int done, int) { return progress.tick(size_t(done)); };
    if (cmbPrinter->currentText() == kPdfEntry) {
        QString path = txtPdfFile->text();
        if (path.isEmpty())
            path = QFileDialog::getSaveFileName(this, QStringLiteral("Print to PDF File"), QString(),
                                                QStringLiteral("PDF Files (*.pdf)"));
        if (path.isEmpty())
            return;
        txtPdfFile->setText(path);
        runGuarded(this, [&] { result = printDrinksToPdf(path, m_facade, ids, layout, tick); });
    } else {
        QPrinter printer(QPrinterInfo::printerInfo(cmbPrinter->currentText()), QPrinter::HighResolution);
        printer.setDocName(QStringLiteral("Corvane"));
        runGuarded(this, [&] { result = PrintDrinks(printer, m_facade, ids, layout, tick); });
    }
    m_printedCards = result.cards;
    if (result.status == PrintResult::Failed)
        plainMessage(this, result.error);
    hide();
    accept();
}

void frmPrint::PreviewCard()
{
    if (!m_redrawHeld)
        pctLPreview->update();
}

void frmPrint::ShowPagePreview()
{
    if (m_redrawHeld)
        return;
    pctSPreview->update();
    pctLPreview->update();
    lstDrinks_Click();
}

void frmPrint::paintCard(QPainter &painter, QWidget &picture)
{
    const float twipsPerPixel = 1440.0f / float(picture.logicalDpiX());
    const float pw = float(picture.width()) * twipsPerPixel, ph = float(picture.height()) * twipsPerPixel;
    const PrintLayoutSettings layout = layoutFromControls();
    const CardGrid::CardPlacement place =
        CardGrid::placeCard(CardGrid::CardWidth(layout, m_paper), CardGrid::CardHeight(layout, m_paper), pw, ph);
    if (place.scale <= 0) {
        painter.drawText(QPointF(4, painter.fontMetrics().ascent() + 4), QStringLiteral("Page cannot be displayed."));
        return;
    }
    const QRectF card(place.card.topLeft() / twipsPerPixel, place.card.size() / twipsPerPixel);
    painter.fillRect(card, Qt::white);
    painter.setPen(Qt::black);
    painter.drawRect(card);
    const CardCell cell{float(place.card.left()) + twipsPerPixel, float(place.card.top()), float(place.card.right()),
                    float(place.card.bottom())};
    try {
        CardSurface surface(painter);
        PrintCard(surface, cardContentOf(m_facade, m_facade.currentDrinkID()), layout, cell, m_glasses->provider(),
                  place.scale);
    } catch (const std::exception &) {
        // A store that cannot be read leaves the card blank; the print run reports the error.
    }
}

void frmPrint::paintPage(QPainter &painter, QWidget &picture)
{
    const float tpp = 1440.0f / float(picture.logicalDpiX());
    const CardGrid::PagePreview preview = CardGrid::ShowPagePreview(
        layoutFromControls(), m_paper, float(picture.width()) * tpp, float(picture.height()) * tpp, tpp, tpp);
    auto px = [tpp](const QRectF &r) { return QRectF(r.topLeft() / tpp, r.size() / tpp); };
    painter.fillRect(px(preview.page), Qt::white);
    painter.setPen(Qt::black);
    painter.drawRect(px(preview.page));
    painter.setPen(QColor(255, 0, 255));
    painter.drawRect(px(preview.margins));
    painter.setPen(QColor(0, 255, 255));
    for (const QLineF &line : preview.lines)
        painter.drawLine(QLineF(line.p1() / tpp, line.p2() / tpp));
}
