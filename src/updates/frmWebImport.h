#pragma once

#include "updates/UpdateClient.h"

#include <QDialog>
#include <QStringList>

class DrinkStore;
class QLabel;
class QProgressBar;
class QPushButton;
class QTableWidget;

// "Check for Updates Online": fetches the update index into the grid, then downloads the
// ticked packages and takes in their drinks and pictures. The network never holds the
// window: every transfer runs in the background with a timeout, and "Stop" ends it.
class frmWebImport : public QDialog {
    Q_OBJECT
  public:
    enum Column { ColDate, ColSelect, ColStatus, ColType, ColName, ColDescription, ColURL, ColumnCount };

    frmWebImport(DrinkStore &store, const QString &appDir, const QString &host, QWidget *parent = nullptr);
    ~frmWebImport() override;

    void setTimeout(int ms) { m_client.setTimeout(ms); }
    // Whether any drink was added, so that the caller re-reads its list.
    bool addedAny() const { return m_addedAny; }

  public slots:
    void cmdDownload_Click();
    void cmdImport_Click();
    void cmdStop_Click();
    void reject() override;

  protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

  private:
    void LoadUpdates();
    void toggleSelect(int row);
    void setBusy(bool busy);
    void checked(bool ok, int added, const QString &error);
    void updateDone(const QString &url, const QString &message);
    void importFinished(bool canceled);

    DrinkStore &m_store;
    UpdateClient m_client;
    bool m_addedAny = false;
    bool m_anyDownloadFailed = false;
    QStringList m_messages;
    QLabel *lblStatus;
    QTableWidget *fgUpdates;
    QProgressBar *pbDownload;
    QPushButton *cmdDownload, *cmdImport, *cmdStop, *cmdCancel;
};
