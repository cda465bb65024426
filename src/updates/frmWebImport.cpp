#include "updates/frmWebImport.h"

#include "updates/UpdateIndex.h"
#include "widgets/ApplyScheme.h"
#include "widgets/NamedControls.h"
#include "widgets/PlainMessage.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLocale>
#include <QProgressBar>
#include <QPushButton>
#include <QSet>
#include <QTableWidget>
#include <QVBoxLayout>

namespace {
const QString kTicked = QStringLiteral("C");
}

frmWebImport::frmWebImport(DrinkStore &store, const QString &appDir, const QString &host, QWidget *parent)
    : QDialog(parent), m_store(store), m_client(store, appDir, host)
{
    setObjectName(QStringLiteral("frmWebImport"));
    setWindowTitle(QStringLiteral("Check for Updates Online"));
    lblStatus =
        named(new QLabel(QStringLiteral("This feature requires an active Internet Connection."), this), "lblStatus");
    fgUpdates = named(new QTableWidget(0, ColumnCount, this), "fgUpdates");
    fgUpdates->setHorizontalHeaderLabels({"Date", "Select", "Status", "Type", "Name", "Description", "URL"});
    fgUpdates->verticalHeader()->hide();
    fgUpdates->setEditTriggers(QAbstractItemView::NoEditTriggers);
    fgUpdates->setSelectionBehavior(QAbstractItemView::SelectRows);
    fgUpdates->setSelectionMode(QAbstractItemView::SingleSelection);
    fgUpdates->setWordWrap(false);
    fgUpdates->setColumnWidth(ColDate, 90);
    fgUpdates->setColumnWidth(ColSelect, 50);
    fgUpdates->setColumnWidth(ColStatus, 80);
    fgUpdates->setColumnWidth(ColType, 60);
    fgUpdates->setColumnWidth(ColName, 160);
    fgUpdates->horizontalHeader()->setStretchLastSection(false);
    fgUpdates->horizontalHeader()->setSectionResizeMode(ColDescription, QHeaderView::Stretch);
    fgUpdates->setColumnHidden(ColURL, true);
    fgUpdates->installEventFilter(this);
    pbDownload = named(new QProgressBar(this), "pbDownload");
    pbDownload->setTextVisible(false);
    pbDownload->hide();
    cmdDownload = dialogButton(QStringLiteral("&Download"), "cmdDownload", this);
    cmdImport = dialogButton(QStringLiteral("&Import"), "cmdImport", this);
    cmdStop = dialogButton(QStringLiteral("&Stop"), "cmdStop", this);
    cmdCancel = dialogButton(QStringLiteral("&Close"), "cmdCancel", this);
    cmdStop->setEnabled(false);
    cmdDownload->setToolTip(QStringLiteral("Fetch the list of updates"));
    cmdImport->setToolTip(QStringLiteral("Download and add the ticked updates"));

    auto *buttons = new QHBoxLayout();
    buttons->addWidget(pbDownload, 1);
    buttons->addStretch(0);
    buttons->addWidget(cmdDownload);
    buttons->addWidget(cmdImport);
    buttons->addWidget(cmdStop);
    buttons->addWidget(cmdCancel);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(lblStatus);
    layout->addWidget(fgUpdates, 1);
    layout->addLayout(buttons);
    resize(720, 360);

    connect(cmdDownload, &QPushButton::clicked, this, &frmWebImport::cmdDownload_Click);
    connect(cmdImport, &QPushButton::clicked, this, &frmWebImport::cmdImport_Click);
    connect(cmdStop, &QPushButton::clicked, this, &frmWebImport::cmdStop_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmWebImport::reject);
    connect(fgUpdates, &QTableWidget::cellClicked, this, [this](int row, int column) {
        if (column == ColSelect)
            toggleSelect(row);
    });
    connect(&m_client, &UpdateClient::progress, this, [this](qint64 received, qint64 total) {
        pbDownload->setRange(0, total > 0 ? 1000 : 0);
        if (total > 0)
            pbDownload->setValue(int(received * 1000 / total));
    });
    connect(&m_client, &UpdateClient::checked, this, &frmWebImport::checked);
    connect(&m_client, &UpdateClient::downloadFailed, this, [this] { m_anyDownloadFailed = true; });
    connect(&m_client, &UpdateClient::updateDone, this, &frmWebImport::updateDone);
    connect(&m_client, &UpdateClient::importFinished, this, &frmWebImport::importFinished);
    ApplySchemeToForm(this);
    LoadUpdates();
}

frmWebImport::~frmWebImport()
{
    if (m_client.busy())
        QApplication::restoreOverrideCursor();
}

bool frmWebImport::eventFilter(QObject *watched, QEvent *event)
{
    // Space ticks the current row, as a click in its "Select" cell does.
    if (watched == fgUpdates && event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent *>(event)->key() == Qt::Key_Space && fgUpdates->currentRow() >= 0) {
        toggleSelect(fgUpdates->currentRow());
        return true;
    }
    return QDialog::eventFilter(watched, event);
}

void frmWebImport::LoadUpdates()
{
    const QList<UpdateRow> rows = UpdateIndex::load(m_store);
    if (rows.isEmpty())
        return;
    // Ticks stay with their updates when the grid is filled again.
    QSet<QString> ticked;
    for (int r = 0; r < fgUpdates->rowCount(); ++r)
        if (fgUpdates->item(r, ColSelect)->text() == kTicked)
            ticked << fgUpdates->item(r, ColURL)->text();
    fgUpdates->setRowCount(int(rows.size()));
    for (int r = 0; r < rows.size(); ++r) {
        const UpdateRow &u = rows[r];
        const QString cells[ColumnCount] = {QLocale().toString(u.date, QLocale::ShortFormat),
                                            ticked.contains(u.url) ? kTicked : QString(),
                                            u.status,
                                            u.recipes ? QStringLiteral("Drinks") : QStringLiteral("Images"),
                                            u.name,
                                            u.description,
                                            u.url};
        for (int c = 0; c < ColumnCount; ++c) {
            auto *item = new QTableWidgetItem(cells[c]);
            if (c == ColSelect)
                item->setTextAlignment(Qt::AlignCenter);
            fgUpdates->setItem(r, c, item);
        }
    }
}

void frmWebImport::toggleSelect(int row)
{
    if (!fgUpdates->isEnabled() || row < 0)
        return;
    QTableWidgetItem *cell = fgUpdates->item(row, ColSelect);
    cell->setText(cell->text() == kTicked ? QString() : kTicked);
}

void frmWebImport::setBusy(bool busy)
{
    if (busy)
        QApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QApplication::restoreOverrideCursor();
    fgUpdates->setEnabled(!busy);
    cmdDownload->setEnabled(!busy);
    cmdImport->setEnabled(!busy);
    cmdCancel->setEnabled(!busy);
    cmdStop->setEnabled(busy);
    pbDownload->setVisible(busy);
    pbDownload->setRange(0, 0);
}

void frmWebImport::cmdDownload_Click()
{
    if (m_client.busy())
        return;
    setBusy(true);
    m_client.checkForUpdates();
}

void frmWebImport::checked(bool ok, int, const QString &)
{
    setBusy(false);
    if (!ok)
        plainMessage(this, UpdateClient::downloadFailedMessage(m_client.host()));
    LoadUpdates();
}

void frmWebImport::cmdImport_Click()
{
    if (m_client.busy())
        return;
    QStringList urls;
    for (int r = 0; r < fgUpdates->rowCount(); ++r) {
        const QString url = fgUpdates->item(r, ColURL)->text();
        if (fgUpdates->item(r, ColSelect)->text() == kTicked && !url.isEmpty())
            urls << url;
    }
    m_anyDownloadFailed = false;
    m_messages.clear();
    setBusy(true);
    m_client.importUpdates(urls);
}

void frmWebImport::cmdStop_Click()
{
    m_client.cancel();
}

void frmWebImport::reject()
{
    // Closing while a transfer runs stops it first; the window closes once it has ended.
    if (m_client.busy()) {
        m_client.cancel();
        return;
    }
    QDialog::reject();
}

void frmWebImport::updateDone(const QString &url, const QString &message)
{
    for (int r = 0; r < fgUpdates->rowCount(); ++r)
        if (fgUpdates->item(r, ColURL)->text() == url)
            fgUpdates->item(r, ColStatus)->setText(QStringLiteral("Complete"));
    if (!message.isEmpty() && !m_messages.contains(message))
        m_messages << message;
}

void frmWebImport::importFinished(bool)
{
    setBusy(false);
    if (m_client.counters().drinksAdded > 0)
        m_addedAny = true;
    if (m_anyDownloadFailed)
        plainMessage(this, UpdateClient::downloadFailedMessage(m_client.host()));
    for (const QString &message : std::as_const(m_messages))
        plainMessage(this, message);
    const QString report = UpdateClient::report(m_client.counters());
    if (!report.isEmpty())
        plainMessage(this, report);
}
