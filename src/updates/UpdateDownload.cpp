#include "updates/UpdateDownload.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QTimer>

UpdateDownload::UpdateDownload(QNetworkAccessManager &network, QObject *parent) : QObject(parent), m_network(network) {}

UpdateDownload::~UpdateDownload()
{
    if (m_reply) {
        m_reply->disconnect(this);
        m_reply->abort();
        m_reply->deleteLater();
    }
}

void UpdateDownload::start(const QUrl &url, const QString &targetPath)
{
    m_canceled = false;
    m_writeFailed = false;
    m_file = std::make_unique<QSaveFile>(targetPath);
    if (!m_file->open(QIODevice::WriteOnly)) {
        const QString error = m_file->errorString();
        m_file.reset();
        // Told after start() returns, as every other outcome is.
        QTimer::singleShot(0, this, [this, error] { emit finished(false, error); });
        return;
    }
    QNetworkRequest request(url);
    request.setHeader(QNetworkRequest::UserAgentHeader, QStringLiteral("Corvane 6.0"));
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    request.setAttribute(QNetworkRequest::CacheSaveControlAttribute, false);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::NoLessSafeRedirectPolicy);
    request.setMaximumRedirectsAllowed(kMaxRedirects);
    request.setTransferTimeout(m_timeoutMs);
    m_reply = m_network.get(request);
    connect(m_reply, &QNetworkReply::readyRead, this, [this] { readFrom(m_reply); });
    connect(m_reply, &QNetworkReply::downloadProgress, this, &UpdateDownload::progress);
    connect(m_reply, &QNetworkReply::finished, this, &UpdateDownload::done);
}

void UpdateDownload::cancel()
{
    if (!m_reply)
        return;
    m_canceled = true;
    m_reply->abort(); // finished() follows at once
}

void UpdateDownload::readFrom(QNetworkReply *reply)
{
    if (!reply->isOpen())
        return;
    const QByteArray bytes = reply->readAll();
    if (m_writeFailed || !m_file)
        return;
    if (m_file->write(bytes) != bytes.size()) {
        m_writeFailed = true;
        reply->abort();
    }
}

void UpdateDownload::fail(const QString &error)
{
    if (m_file)
        m_file->cancelWriting();
    m_file.reset();
    emit finished(false, error);
}

void UpdateDownload::done()
{
    QNetworkReply *reply = m_reply;
    m_reply = nullptr;
    reply->deleteLater();
    readFrom(reply);
    const int status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    const QVariant length = reply->header(QNetworkRequest::ContentLengthHeader);
    if (m_canceled)
        return fail(QStringLiteral("Canceled."));
    if (m_writeFailed)
        return fail(m_file ? m_file->errorString() : QString());
    if (reply->error() != QNetworkReply::NoError) {
        if (reply->error() == QNetworkReply::OperationCanceledError)
            return fail(QStringLiteral("The server did not answer in time."));
        return fail(reply->errorString());
    }
    if (status != 200)
        return fail(QStringLiteral("The server answered %1.").arg(status));
    if (length.isValid() && length.toLongLong() != m_file->size())
        return fail(QStringLiteral("The file arrived incomplete."));
    if (!m_file->commit())
        return fail(m_file->errorString());
    m_file.reset();
    emit finished(true, QString());
}
