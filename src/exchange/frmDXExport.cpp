#include "exchange/frmDXExport.h"

#include "base/AppPaths.h"
#include "exchange/DrinkExport.h"
#include "exchange/ExportFile.h"
#include "exchange/MapFile.h"
#include "presentation/DrinkListModel.h"
#include "store/DrinkStore.h"
#include "widgets/ApplyScheme.h"
#include "widgets/HandlerGuard.h"
#include "widgets/PlainMessage.h"
#include "widgets/NamedControls.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QSqlQuery>

namespace {
constexpr int kListCapacity = 12000;
} // namespace

frmDXExport::frmDXExport(DrinkStore &store, CDrinkFacade &facade, const DrinkListModel *list, QWidget *parent)
    : QDialog(parent), m_store(store), m_facade(facade)
{
    setObjectName(QStringLiteral("frmDXExport"));
    txtFileName = named(new QLineEdit(this), "txtFileName");
    cmdBrowse = named(new QPushButton(QStringLiteral("&Browse..."), this), "cmdBrowse");
    optMarked = named(new QRadioButton(QStringLiteral("All &marked drinks"), this), "optMarked");
    optCat = named(new QRadioButton(QStringLiteral("All drinks in this c&ategory:"), this), "optCat");
    optSel = named(new QRadioButton(QStringLiteral("&Selected drinks:"), this), "optSel");
    cmbCategory = named(new QComboBox(this), "cmbCategory");
    lstDrinks = named(new QListWidget(this), "lstDrinks");
    lstDrinks->setSelectionMode(QAbstractItemView::MultiSelection);
    btnSelectAll = named(new QPushButton(QStringLiteral("Select &All"), this), "btnSelectAll");
    btnClearSelect = named(new QPushButton(QStringLiteral("C&lear"), this), "btnClearSelect");
    lblAvailCount = named(new QLabel(this), "lblAvailCount");
    lblSelCount = named(new QLabel(this), "lblSelCount");
    chk64K = named(new QCheckBox(QStringLiteral("Limit file size to 64k "), this), "chk64K");
    chkIncRecipe = named(new QCheckBox(QStringLiteral("Include drink recipes"), this), "chkIncRecipe");
    lblStatus = named(new QLabel(this), "lblStatus");
    cmdOK = named(new QPushButton(QStringLiteral("&OK"), this), "cmdOK");
    cmdCancel = named(new QPushButton(QStringLiteral("&Cancel"), this), "cmdCancel");
    cmdMapFile = named(new QPushButton(QStringLiteral("&Rebuild Map File"), this), "cmdMapFile");

    auto *grid = new QGridLayout(this);
    grid->addWidget(new QLabel(QStringLiteral("Export to file:"), this), 0, 0);
    grid->addWidget(txtFileName, 0, 1, 1, 2);
    grid->addWidget(cmdBrowse, 0, 3);
    grid->addWidget(optMarked, 1, 0, 1, 4);
    grid->addWidget(optCat, 2, 0);
    grid->addWidget(cmbCategory, 2, 1, 1, 3);
    grid->addWidget(optSel, 3, 0);
    grid->addWidget(lstDrinks, 3, 1, 4, 2);
    grid->addWidget(btnSelectAll, 3, 3);
    grid->addWidget(btnClearSelect, 4, 3);
    grid->addWidget(lblAvailCount, 5, 3);
    grid->addWidget(lblSelCount, 6, 3);
    grid->addWidget(chk64K, 7, 0, 1, 2);
    grid->addWidget(chkIncRecipe, 7, 2, 1, 2);
    grid->addWidget(lblStatus, 8, 0, 1, 2);
    grid->addWidget(cmdMapFile, 9, 0);
    grid->addWidget(cmdOK, 9, 2);
    grid->addWidget(cmdCancel, 9, 3);
    resize(560, 420);

    connect(optMarked, &QRadioButton::toggled, this, &frmDXExport::optionChanged);
    connect(optCat, &QRadioButton::toggled, this, &frmDXExport::optionChanged);
    connect(optSel, &QRadioButton::toggled, this, &frmDXExport::optionChanged);
    connect(lstDrinks, &QListWidget::itemSelectionChanged, this, &frmDXExport::lstDrinks_Click);
    connect(btnSelectAll, &QPushButton::clicked, lstDrinks, &QListWidget::selectAll);
    connect(btnClearSelect, &QPushButton::clicked, lstDrinks, &QListWidget::clearSelection);
    connect(cmdOK, &QPushButton::clicked, this, &frmDXExport::cmdOK_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(cmdMapFile, &QPushButton::clicked, this, &frmDXExport::cmdMapFile_Click);
    connect(cmdBrowse, &QPushButton::clicked, this, [this] {
        const QString name = QFileDialog::getSaveFileName(this, windowTitle(), txtFileName->text(), QString(), nullptr,
                                                          QFileDialog::DontConfirmOverwrite);
        if (!name.isEmpty())
            txtFileName->setText(name);
    });
    ApplySchemeToForm(this);
    lblStatus->hide();

    QApplication::setOverrideCursor(Qt::WaitCursor);
    runGuarded(this, [this] {
        QSqlQuery q = m_store.select(QStringLiteral("SELECT * FROM DrinkTypes"));
        while (q.next())
            cmbCategory->addItem(q.value(QStringLiteral("Type")).toString(), q.value(QStringLiteral("TypeID")));
    });
    int rows = list ? list->rowCount() : 0;
    if (rows > kListCapacity) {
        QApplication::restoreOverrideCursor();
        plainMessage(this, QStringLiteral("Not all of the drinks in the current list can be displayed.  Only the first "
                                          "12000 will be shown."));
        QApplication::setOverrideCursor(Qt::WaitCursor);
        rows = kListCapacity;
    }
    for (int row = 0; row < rows; ++row) {
        auto *item = new QListWidgetItem(list->nameAt(row), lstDrinks);
        item->setData(Qt::UserRole, list->idAt(row));
    }
    QApplication::restoreOverrideCursor();
    lblAvailCount->setText(QStringLiteral("%1 Drinks").arg(lstDrinks->count()));
    lblSelCount->setText(QStringLiteral("0 Selected"));
    optMarked->setChecked(true);
    optionChanged();
}

void frmDXExport::Setup(int mode)
{
    exportMode = mode;
    static const char *const captions[] = {"Export Drink Exchange File", "Export Maitre'D Drink Recipe File",
                                           "Export Drinks in an XML File"};
    setWindowTitle(QLatin1String(captions[qBound(1, mode, 3) - 1]));
    const QString dir = QDir::toNativeSeparators(AppPaths::appDir());
    txtFileName->setText(mode == 2 ? QStringLiteral("C:\\recipe.txt")
                                   : dir + QDir::separator() + (mode == 3 ? QStringLiteral("drinks.xml") : QStringLiteral("drinks.cvx")));
    chk64K->setVisible(mode == 2);
    chkIncRecipe->setVisible(mode == 2);
}

void frmDXExport::optionChanged()
{
    cmbCategory->setEnabled(optCat->isChecked());
    lstDrinks->setEnabled(optSel->isChecked());
    btnSelectAll->setEnabled(optSel->isChecked());
    btnClearSelect->setEnabled(optSel->isChecked());
}

void frmDXExport::lstDrinks_Click()
{
    lblSelCount->setText(QStringLiteral("%1 Selected").arg(lstDrinks->selectedItems().size()));
}

void frmDXExport::cmdOK_Click()
{
    const QString name = txtFileName->text();
    if (name.isEmpty()) {
        plainMessage(this, QStringLiteral("Please enter a file name."));
        return;
    }
    const QFileInfo info(name);
    if (info.exists() &&
        QMessageBox::question(this, windowTitle(),
                              QStringLiteral("The file %1 already exists.  Do you want to replace this file?").arg(info.fileName()),
                              QMessageBox::Yes | QMessageBox::No) != QMessageBox::Yes)
        return;

    std::vector<qint32> ids;
    if (optCat->isChecked() && cmbCategory->currentIndex() < 0) {
        plainMessage(this, QStringLiteral("Please select the category of drink to export"));
        return;
    }
    QString message;
    bool written = false;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    lblStatus->clear();
    lblStatus->show();
    runGuarded(this, [&] {
        if (optMarked->isChecked())
            ids = DrinkExporter::markedDrinks(m_store);
        else if (optCat->isChecked())
            ids = DrinkExporter::categoryDrinks(m_store, cmbCategory->currentData().toInt());
        else
            for (int i = 0; i < lstDrinks->count(); ++i)
                if (lstDrinks->item(i)->isSelected())
                    ids.push_back(lstDrinks->item(i)->data(Qt::UserRole).toInt());
        DrinkExporter run(m_store, m_facade, DrinkExporter::Mode(exportMode), chk64K->isChecked(), chkIncRecipe->isChecked());
        for (qint32 id : ids) {
            const bool goOn = run.exportDrink(id);
            lblStatus->setText(QStringLiteral("Drinks Exported: %1").arg(run.drinksExported()));
            QApplication::processEvents();
            if (!goOn) {
                message = run.limitMessage();
                break;
            }
        }
        // Written only once whole, so a failure leaves whatever file was there before.
        if (writeExportFile(name, run.fileText()).isEmpty())
            written = true;
        else
            message = QStringLiteral("The file %1 is not a valid file name.").arg(name);
    });
    QApplication::restoreOverrideCursor();
    lblStatus->hide();
    if (!message.isEmpty())
        plainMessage(this, message);
    if (written)
        accept();
}

void frmDXExport::cmdMapFile_Click()
{
    if (QMessageBox::warning(this, QStringLiteral("Replace Map File"), replaceMapFileQuestion(),
                             QMessageBox::Yes | QMessageBox::No) != QMessageBox::Yes)
        return;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    QString failed;
    runGuarded(this, [&] { failed = writeMapFile(m_store, AppPaths::appDir() + QStringLiteral("/Corvane.map")); });
    QApplication::restoreOverrideCursor();
    plainMessage(this, failed.isEmpty() ? QStringLiteral("New MAP file created successfully.")
                                        : QStringLiteral("The map file cannot be written: ") + failed);
}
