#pragma once

#include "updates/UpdateDownload.h"

#include <QNetworkAccessManager>
#include <QObject>
#include <QStringList>

class CLocalConfig;
class DrinkStore;

// What one import run took in.
struct UpdateCounters {
    qint32 drinksAdded = 0;
    qint32 drinksIgnored = 0;
    qint32 imagesAdded = 0;
};

// The two steps of online updates, each started by the user and never blocking: fetch the
// index from the update host and merge it into Updates; download the chosen packages one
// after the other and take them in, drinks through the exchange import, pictures into the
// image archive. Packages are kept in the folder "Updates" of the application directory.
class UpdateClient : public QObject {
    Q_OBJECT
  public:
    UpdateClient(DrinkStore &store, const QString &appDir, const QString &host, QObject *parent = nullptr);

    // The host named in the settings ("UpdateHost"), else the program's own.
    static QString configuredHost(const CLocalConfig &config);
    static QString defaultHost();
    // The index on a host: "http://<host>/CVX/update.txt"; a host may carry a port.
    static QUrl indexUrl(const QString &host);
    // The user's message when a file could not be fetched from the host.
    static QString downloadFailedMessage(const QString &host);
    // The closing report of an import run; "" when there is nothing to tell.
    static QString report(const UpdateCounters &counters);
    // The package's file name in a URL: all after the last "/"; "" when there is none.
    static QString packageFileName(const QString &url);

    QString host() const { return m_host; }
    QString packageDir() const;
    void setTimeout(int ms) { m_download.setTimeout(ms); }
    bool busy() const { return m_busy; }
    const UpdateCounters &counters() const { return m_counters; }

    void checkForUpdates();
    void importUpdates(const QStringList &urls);
    // Stops the run after the download under way; nothing of that download is used.
    void cancel();

  signals:
    void progress(qint64 received, qint64 total);
    // ok false: the index could not be fetched (error says why); added: rows new in Updates.
    void checked(bool ok, int added, const QString &error);
    void downloadFailed(const QString &url, const QString &error);
    // The package was tried and its update marked "Complete"; message is "" when all went well.
    void updateDone(const QString &url, const QString &message);
    void importFinished(bool canceled);

  private:
    void indexDownloaded(bool ok, const QString &error);
    void nextPackage();
    void packageDownloaded(bool ok, const QString &error);
    QString takeIn(const QString &path);

    DrinkStore &m_store;
    QString m_appDir;
    QString m_host;
    QNetworkAccessManager m_network;
    UpdateDownload m_download;
    enum class Step { Idle, Index, Packages } m_step = Step::Idle;
    bool m_busy = false;
    bool m_canceled = false;
    QStringList m_queue;
    QString m_current, m_currentPath;
    UpdateCounters m_counters;
};
