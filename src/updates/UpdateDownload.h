#pragma once

#include <QNetworkReply>
#include <QObject>
#include <QPointer>
#include <QSaveFile>
#include <QUrl>
#include <memory>

class QNetworkAccessManager;

// One plain HTTP GET of a whole file, never blocking: the bytes go to a file written beside
// the target and renamed into place only when the answer was complete and good, so nothing
// half-downloaded is ever found under the target's name.
class UpdateDownload : public QObject {
    Q_OBJECT
  public:
    static constexpr int kDefaultTimeoutMs = 30000; // no byte for this long ends the download
    static constexpr int kMaxRedirects = 5;

    UpdateDownload(QNetworkAccessManager &network, QObject *parent = nullptr);
    ~UpdateDownload() override;

    void setTimeout(int ms) { m_timeoutMs = ms; }
    // Starts the download; finished() follows exactly once, also when the target cannot be written.
    void start(const QUrl &url, const QString &targetPath);
    // Ends a running download as failed; the target is left as it was.
    void cancel();
    bool running() const { return m_reply != nullptr; }

  signals:
    void progress(qint64 received, qint64 total);
    // ok: the target holds the whole answer. error: why not, for the user.
    void finished(bool ok, const QString &error);

  private:
    void readFrom(QNetworkReply *reply);
    void done();
    void fail(const QString &error);

    QNetworkAccessManager &m_network;
    QPointer<QNetworkReply> m_reply;
    std::unique_ptr<QSaveFile> m_file;
    int m_timeoutMs = kDefaultTimeoutMs;
    bool m_canceled = false;
    bool m_writeFailed = false;
};
