// The layout half of the print dialog: its two option pages, the controls' layout, the
// stored layouts, fonts and units.
#include "printing/frmPrint.h"

#include "printing/PreviewPicture.h"
#include "store/DrinkStore.h"
#include "widgets/HandlerGuard.h"
#include "widgets/NamedControls.h"
#include "widgets/PlainMessage.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QFontDialog>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QToolButton>
#include <QVBoxLayout>

namespace {
// The limits of the rows and columns up-downs.
constexpr int kMostRowsOrColumns = 20;
} // namespace

QWidget *frmPrint::lengthBox(QLineEdit *&text, const char *textName, const char *udName, bool wholeNumber)
{
    auto *box = new QWidget(this);
    auto *row = new QHBoxLayout(box);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(1);
    text = named(new QLineEdit(box), textName);
    text->setMaximumWidth(70);
    auto *ud = named(new QWidget(box), udName);
    auto *arrows = new QVBoxLayout(ud);
    arrows->setContentsMargins(0, 0, 0, 0);
    arrows->setSpacing(0);
    QLineEdit *target = text;
    for (const bool up : {true, false}) {
        auto *arrow = new QToolButton(ud);
        arrow->setObjectName(up ? QStringLiteral("up") : QStringLiteral("down"));
        arrow->setArrowType(up ? Qt::UpArrow : Qt::DownArrow);
        arrow->setFixedSize(16, 11);
        arrow->setAutoRepeat(true);
        arrows->addWidget(arrow);
        connect(arrow, &QToolButton::clicked, this,
                [this, target, up, wholeNumber] { stepBox(target, up, wholeNumber); });
    }
    row->addWidget(text);
    row->addWidget(ud);
    row->addStretch(1);
    return box;
}

void frmPrint::stepBox(QLineEdit *text, bool up, bool wholeNumber)
{
    if (wholeNumber) {
        const int value = std::clamp(text->text().toInt() + (up ? 1 : -1), 1, kMostRowsOrColumns);
        text->setText(QString::number(value));
        return;
    }
    text->setText(PrintLayout::stepLength(text->text(), chkMetric->isChecked(), up));
}

QWidget *frmPrint::buildPrintPage()
{
    auto *page = named(new QWidget(this), "pnlDisp0");
    auto *column = new QVBoxLayout(page);

    auto *where = new QFormLayout;
    cmbPrinter = named(new QComboBox(page), "cmbPrinter");
    where->addRow(QStringLiteral("Printer:"), cmbPrinter);
    auto *fileRow = new QHBoxLayout;
    txtPdfFile = named(new QLineEdit(page), "txtPdfFile");
    cmdBrowse = dialogButton(QStringLiteral("Browse..."), "cmdBrowse", page);
    fileRow->addWidget(txtPdfFile, 1);
    fileRow->addWidget(cmdBrowse);
    lblPdfFile = new QLabel(QStringLiteral("PDF file:"), page);
    where->addRow(lblPdfFile, fileRow);
    cmbLayout = named(new QComboBox(page), "cmbLayout");
    where->addRow(QStringLiteral("Layout:"), cmbLayout);
    column->addLayout(where);
    auto *layoutButtons = new QHBoxLayout;
    cmdNewLayout = dialogButton(QStringLiteral("New..."), "cmdNewLayout", page);
    cmdSave = dialogButton(QStringLiteral("Save"), "cmdSave", page);
    cmdDeleteLayout = dialogButton(QStringLiteral("Delete"), "cmdDeleteLayout", page);
    layoutButtons->addStretch(1);
    layoutButtons->addWidget(cmdNewLayout);
    layoutButtons->addWidget(cmdSave);
    layoutButtons->addWidget(cmdDeleteLayout);
    column->addLayout(layoutButtons);

    auto *pieces = new QGroupBox(QStringLiteral("Print on each card"), page);
    auto *grid = new QGridLayout(pieces);
    const char *fontNames[PieceCount] = {"cmdFont0", "cmdFont1", "cmdFont2", "cmdFont3",
                                         "cmdFont4", "cmdFont5", "cmdFont6"};
    const char *checkNames[PieceCount - 1] = {"chkPrint0", "chkPrint1", "chkPrint2",
                                              "chkPrint3", "chkPrint4", "chkPrint5"};
    const QString captions[PieceCount] = {
        QStringLiteral("Drink name"), QStringLiteral("Glass"), QStringLiteral("Build"),  QStringLiteral("Ingredients"),
        QStringLiteral("Recipe"),     QStringLiteral("Mark"),  QStringLiteral("Garnish")};
    // Rows in the order of the card: name, glass and build, ingredients, recipe, mark and garnish.
    const int rowOf[PieceCount] = {0, 1, 3, 4, 5, 6, 7};
    for (int i = 0; i < PieceCount; ++i) {
        const int row = rowOf[i];
        if (i == PieceName) {
            grid->addWidget(new QLabel(captions[i], pieces), row, 0);
        } else {
            chkPrint[size_t(i - 1)] = named(new QCheckBox(captions[i], pieces), checkNames[i - 1]);
            grid->addWidget(chkPrint[size_t(i - 1)], row, 0);
            connect(chkPrint[size_t(i - 1)], &QCheckBox::toggled, this, &frmPrint::PreviewCard);
        }
        cmdFont[size_t(i)] = dialogButton(QStringLiteral("Font..."), fontNames[i], pieces);
        grid->addWidget(cmdFont[size_t(i)], row, 2);
        connect(cmdFont[size_t(i)], &QPushButton::clicked, this, [this, i] { cmdFont_Click(i); });
    }
    cmbGlassPrint = named(new QComboBox(pieces), "cmbGlassPrint");
    cmbGlassPrint->addItems({QStringLiteral("Text"), QStringLiteral("Picture")});
    grid->addWidget(cmbGlassPrint, 1, 1);
    auto *glassSize = new QHBoxLayout;
    glassSize->addWidget(new QLabel(QStringLiteral("Picture size:"), pieces));
    glassSize->addWidget(lengthBox(txtGlassPH, "txtGlassPH", "udGlassPH"));
    grid->addLayout(glassSize, 2, 1);
    txtMark = named(new QLineEdit(pieces), "txtMark");
    grid->addWidget(txtMark, rowOf[PieceMark], 1);
    grid->setColumnStretch(1, 1);
    column->addWidget(pieces);
    column->addStretch(1);

    connect(cmbGlassPrint, &QComboBox::currentIndexChanged, this, &frmPrint::PreviewCard);
    connect(txtGlassPH, &QLineEdit::textChanged, this, &frmPrint::PreviewCard);
    connect(txtMark, &QLineEdit::textChanged, this, &frmPrint::PreviewCard);
    connect(cmbLayout, &QComboBox::activated, this, &frmPrint::cmbLayout_Click);
    connect(cmdNewLayout, &QPushButton::clicked, this, &frmPrint::cmdNewLayout_Click);
    connect(cmdSave, &QPushButton::clicked, this, &frmPrint::cmdSave_Click);
    connect(cmdDeleteLayout, &QPushButton::clicked, this, &frmPrint::cmdDeleteLayout_Click);
    connect(cmdBrowse, &QPushButton::clicked, this, [this] {
        const QString path = QFileDialog::getSaveFileName(this, QStringLiteral("Print to PDF File"), txtPdfFile->text(),
                                                          QStringLiteral("PDF Files (*.pdf)"));
        if (!path.isEmpty())
            txtPdfFile->setText(path);
    });
    return page;
}

QWidget *frmPrint::buildLayoutPage()
{
    auto *page = named(new QWidget(this), "pnlDisp1");
    auto *column = new QVBoxLayout(page);

    auto *paperBox = new QGroupBox(QStringLiteral("Paper"), page);
    auto *paperRow = new QHBoxLayout(paperBox);
    optPort = named(new QRadioButton(QStringLiteral("Portrait"), paperBox), "optPort");
    optLand = named(new QRadioButton(QStringLiteral("Landscape"), paperBox), "optLand");
    chkMetric = named(new QCheckBox(QStringLiteral("Metric"), paperBox), "chkMetric");
    paperRow->addWidget(optPort);
    paperRow->addWidget(optLand);
    paperRow->addStretch(1);
    paperRow->addWidget(chkMetric);
    column->addWidget(paperBox);

    auto *margins = new QGroupBox(QStringLiteral("Margins"), page);
    auto *marginGrid = new QFormLayout(margins);
    marginGrid->addRow(QStringLiteral("Top:"), lengthBox(txtMarTop, "txtMarTop", "udTop"));
    marginGrid->addRow(QStringLiteral("Bottom:"), lengthBox(txtMarBottom, "txtMarBottom", "udBottom"));
    marginGrid->addRow(QStringLiteral("Left:"), lengthBox(txtMarLeft, "txtMarLeft", "udLeft"));
    marginGrid->addRow(QStringLiteral("Right:"), lengthBox(txtMarRight, "txtMarRight", "udRight"));
    column->addWidget(margins);

    auto *cards = new QGroupBox(QStringLiteral("Cards on a page"), page);
    auto *cardGrid = new QFormLayout(cards);
    cardGrid->addRow(QStringLiteral("Rows:"), lengthBox(txtRows, "txtRows", "udRows", true));
    cardGrid->addRow(QStringLiteral("Columns:"), lengthBox(txtCols, "txtCols", "udCols", true));
    cardGrid->addRow(QStringLiteral("Row spacing:"), lengthBox(txtRowSpacing, "txtRowSpacing", "udRowSpacing"));
    cardGrid->addRow(QStringLiteral("Column spacing:"), lengthBox(txtColSpacing, "txtColSpacing", "udColSpacing"));
    column->addWidget(cards);
    auto *unitRow = new QHBoxLayout;
    unitRow->addWidget(new QLabel(QStringLiteral("Lengths in:"), page));
    lblMeas = named(new QLabel(QStringLiteral("in."), page), "lblMeas");
    lblMeas->setMinimumWidth(lblMeas->fontMetrics().horizontalAdvance(QStringLiteral("mm")) * 2);
    unitRow->addWidget(lblMeas);
    unitRow->addStretch(1);
    column->addLayout(unitRow);
    column->addStretch(1);

    for (QLineEdit *box :
         {txtMarTop, txtMarBottom, txtMarLeft, txtMarRight, txtRows, txtCols, txtRowSpacing, txtColSpacing})
        connect(box, &QLineEdit::textChanged, this, &frmPrint::ShowPagePreview);
    connect(optPort, &QRadioButton::toggled, this, &frmPrint::ShowPagePreview);
    connect(chkMetric, &QCheckBox::clicked, this, &frmPrint::chkMetric_Click);
    return page;
}

PrintLayoutSettings frmPrint::layoutFromControls() const
{
    PrintLayoutSettings l;
    l.portrait = optPort->isChecked();
    l.metric = chkMetric->isChecked();
    l.marTop = txtMarTop->text();
    l.marBottom = txtMarBottom->text();
    l.marLeft = txtMarLeft->text();
    l.marRight = txtMarRight->text();
    l.rows = txtRows->text();
    l.cols = txtCols->text();
    l.rowSpacing = txtRowSpacing->text();
    l.colSpacing = txtColSpacing->text();
    l.glassHeight = txtGlassPH->text();
    l.fonts = m_fonts;
    for (size_t i = 0; i < chkPrint.size(); ++i)
        l.print[i] = chkPrint[i]->isChecked();
    l.mark = txtMark->text();
    l.glassAsText = cmbGlassPrint->currentText() == u"Text";
    return l;
}

void frmPrint::setLayoutControls(const PrintLayoutSettings &l)
{
    const bool held = m_redrawHeld;
    m_redrawHeld = true;
    {
        const QSignalBlocker block(chkMetric);
        chkMetric->setChecked(l.metric);
    }
    lblMeas->setText(l.metric ? QStringLiteral("mm") : QStringLiteral("in."));
    (l.portrait ? optPort : optLand)->setChecked(true);
    txtMarTop->setText(l.marTop);
    txtMarBottom->setText(l.marBottom);
    txtMarLeft->setText(l.marLeft);
    txtMarRight->setText(l.marRight);
    txtRows->setText(l.rows);
    txtCols->setText(l.cols);
    txtRowSpacing->setText(l.rowSpacing);
    txtColSpacing->setText(l.colSpacing);
    txtGlassPH->setText(l.glassHeight);
    m_fonts = l.fonts;
    for (size_t i = 0; i < chkPrint.size(); ++i)
        chkPrint[i]->setChecked(l.print[i]);
    txtMark->setText(l.mark);
    cmbGlassPrint->setCurrentIndex(l.glassAsText ? 0 : 1);
    m_redrawHeld = held;
    ShowPagePreview();
}

void frmPrint::FillLayoutList()
{
    const QSignalBlocker block(cmbLayout);
    cmbLayout->clear();
    for (const auto &entry : PrintLayout::FillLayoutList(m_store))
        cmbLayout->addItem(entry.name, entry.id);
    cmbLayout->setCurrentIndex(-1);
}

void frmPrint::cmbLayout_Click()
{
    if (cmbLayout->currentIndex() < 0)
        return;
    PrintLayoutSettings layout = layoutFromControls();
    runGuarded(this, [&] {
        if (PrintLayout::LoadLayout(m_store, cmbLayout->currentData().toInt(), layout))
            setLayoutControls(layout);
    });
}

void frmPrint::SaveLayout()
{
    QString name;
    if (cmbLayout->currentIndex() >= 0 && !cmbLayout->currentText().isEmpty()) {
        name = cmbLayout->currentText();
        QMessageBox ask(QMessageBox::Question, QStringLiteral("Save Layout"),
                        QStringLiteral("Do you want to replace the \"%1\" layout with the current settings?").arg(name),
                        QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, this);
        if (ask.exec() != QMessageBox::Yes)
            return;
    } else {
        name = QInputDialog::getText(this, QStringLiteral("Save Layout"),
                                     QStringLiteral("Please enter a name for this layout"));
        if (name.isEmpty())
            return;
    }
    if (!runGuarded(this, [&] { PrintLayout::SaveLayout(m_store, name, layoutFromControls()); }))
        return;
    FillLayoutList();
    const QSignalBlocker block(cmbLayout);
    cmbLayout->setCurrentIndex(cmbLayout->findText(name, Qt::MatchFixedString | Qt::MatchCaseSensitive));
}

void frmPrint::cmdNewLayout_Click()
{
    {
        const QSignalBlocker block(cmbLayout);
        cmbLayout->setCurrentIndex(-1);
    }
    SaveLayout();
}

void frmPrint::cmdSave_Click()
{
    SaveLayout();
}

void frmPrint::cmdDeleteLayout_Click()
{
    if (cmbLayout->currentIndex() < 0) {
        plainMessage(this, QStringLiteral("There is no layout selected."));
        return;
    }
    QMessageBox ask(QMessageBox::NoIcon, QStringLiteral("Delete Layout"),
                    QStringLiteral("Are you sure you want to delete the \"%1\" layout?").arg(cmbLayout->currentText()),
                    QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, this);
    if (ask.exec() != QMessageBox::Yes)
        return;
    runGuarded(this, [&] { PrintLayout::DeleteLayout(m_store, cmbLayout->currentData().toInt()); });
    FillLayoutList();
}

void frmPrint::cmdFont_Click(int index)
{
    FontRecord &record = m_fonts[size_t(index)];
    QFont font(record.FontName);
    font.setPointSize(std::max<int>(1, record.FontSize));
    font.setBold(record.Bold);
    font.setItalic(record.Italic);
    font.setUnderline(record.Underline);
    font.setStrikeOut(record.Strikethrough);
    bool ok = false;
    const QFont chosen = QFontDialog::getFont(&ok, font, this, QStringLiteral("Font"));
    if (!ok)
        return;
    record.FontName = chosen.family();
    record.FontSize = qint16(chosen.pointSizeF()); // whole points, the fraction dropped
    record.Bold = chosen.bold();
    record.Italic = chosen.italic();
    record.Underline = chosen.underline();
    record.Strikethrough = chosen.strikeOut();
    PreviewCard();
}

void frmPrint::chkMetric_Click()
{
    const bool metric = chkMetric->isChecked();
    lblMeas->setText(metric ? QStringLiteral("mm") : QStringLiteral("in."));
    const bool held = m_redrawHeld;
    m_redrawHeld = true;
    for (QLineEdit *box : {txtMarTop, txtMarBottom, txtMarLeft, txtMarRight, txtRowSpacing, txtColSpacing, txtGlassPH})
        box->setText(PrintLayout::ConvertLength(box->text(), metric));
    m_redrawHeld = held;
    ShowPagePreview();
}
