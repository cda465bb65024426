#include "exchange/frmDXImport.h"

#include "exchange/CvxImport.h"
#include "widgets/ApplyScheme.h"
#include "widgets/HandlerGuard.h"
#include "widgets/PlainMessage.h"
#include "widgets/NamedControls.h"

#include <QApplication>
#include <QFileDialog>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

frmDXImport::frmDXImport(DrinkStore &store, QWidget *parent) : QDialog(parent), m_store(store)
{
    setObjectName(QStringLiteral("frmDXImport"));
    setWindowTitle(QStringLiteral("Import Drink Exchange File"));
    txtFileName = named(new QLineEdit(this), "txtFileName");
    cmdBrowse = named(new QPushButton(QStringLiteral("&Browse..."), this), "cmdBrowse");
    cmdOK = named(new QPushButton(QStringLiteral("&OK"), this), "cmdOK");
    cmdCancel = named(new QPushButton(QStringLiteral("&Cancel"), this), "cmdCancel");
    fraResults = named(new QGroupBox(QStringLiteral("Results"), this), "fraResults");
    txtAdded = named(new QLineEdit(QStringLiteral("0"), fraResults), "txtAdded");
    txtIgnored = named(new QLineEdit(QStringLiteral("0"), fraResults), "txtIgnored");
    txtAdded->setReadOnly(true);
    txtIgnored->setReadOnly(true);
    auto *counters = new QFormLayout(fraResults);
    counters->addRow(QStringLiteral("Drinks added:"), txtAdded);
    counters->addRow(QStringLiteral("Drinks ignored (already in the book):"), txtIgnored);

    auto *file = new QHBoxLayout();
    file->addWidget(new QLabel(QStringLiteral("File to import:"), this));
    file->addWidget(txtFileName, 1);
    file->addWidget(cmdBrowse);
    auto *buttons = new QHBoxLayout();
    buttons->addStretch(1);
    buttons->addWidget(cmdOK);
    buttons->addWidget(cmdCancel);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(file);
    layout->addWidget(fraResults);
    layout->addLayout(buttons);
    resize(520, sizeHint().height());
    fraResults->hide();

    connect(cmdBrowse, &QPushButton::clicked, this, &frmDXImport::cmdBrowse_Click);
    connect(cmdOK, &QPushButton::clicked, this, &frmDXImport::cmdOK_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    ApplySchemeToForm(this);
}

void frmDXImport::cmdBrowse_Click()
{
    const QString name = QFileDialog::getOpenFileName(this, QStringLiteral("Find Drink Exchange Files"), txtFileName->text(),
                                                      QStringLiteral("Corvane Drink Exchange (*.CVX *.cvx)"));
    if (!name.isEmpty())
        txtFileName->setText(name);
}

void frmDXImport::bump(QLineEdit *counter)
{
    counter->setText(QString::number(counter->text().toLongLong() + 1));
    QApplication::processEvents();
}

void frmDXImport::ImportCVXFile(const QString &fileName)
{
    txtFileName->setText(fileName);
    cmdOK_Click();
}

void frmDXImport::setFileName(const QString &fileName) { txtFileName->setText(fileName); }

void frmDXImport::cmdOK_Click()
{
    const QString name = txtFileName->text();
    if (name.isEmpty()) {
        plainMessage(this, QStringLiteral("Please enter the name of the file to import."));
        return;
    }
    // The counters show as soon as the first record is stored; the buttons wait for the end
    // so that the yields in between cannot close the dialog or start a second import.
    const bool shownBefore = fraResults->isVisible();
    fraResults->show();
    cmdCancel->setEnabled(false);
    cmdOK->setEnabled(false);
    CvxImportResult result;
    runGuarded(this, [&] {
        result = importCvxFile(m_store, name, [this](CvxImporter::Outcome outcome) {
            if (outcome == CvxImporter::Added)
                m_addedAny = true;
            bump(outcome == CvxImporter::Added ? txtAdded : txtIgnored);
        });
    });
    cmdCancel->setEnabled(true);
    cmdOK->setEnabled(true);
    if (result.status == CvxImportResult::NotExchangeFile || result.status == CvxImportResult::UnknownVersion ||
        result.status == CvxImportResult::Unreadable)
        fraResults->setVisible(shownBefore);
    if (!result.message.isEmpty())
        plainMessage(this, result.message);
}
