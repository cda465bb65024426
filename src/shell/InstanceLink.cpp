#include "shell/InstanceLink.h"

#include <QCryptographicHash>
#include <QDir>
#include <QLocalServer>
#include <QLocalSocket>
#include <QPointer>

namespace {
const QByteArray kHandled = "handled\n";
}

InstanceLink::InstanceLink(QObject *parent) : QObject(parent) {}

InstanceLink::~InstanceLink() = default;

QString InstanceLink::serverName(const QString &appDir)
{
    // One mailbox per user and application directory: two books never talk to each other.
    const QByteArray key = QDir::cleanPath(QDir(appDir).absolutePath()).toUtf8();
    const QByteArray hash = QCryptographicHash::hash(key, QCryptographicHash::Sha1).toHex().left(16);
    return QStringLiteral("corvane-ready-for-command-%1-%2").arg(qEnvironmentVariable("USER", QStringLiteral("user")),
                                                                 QString::fromLatin1(hash));
}

bool InstanceLink::handOver(const QString &appDir, const QString &commandLine, int connectTimeoutMs)
{
    QLocalSocket socket;
    socket.connectToServer(serverName(appDir));
    if (!socket.waitForConnected(connectTimeoutMs))
        return false;
    socket.write(commandLine.toUtf8().replace('\n', ' ') + '\n');
    if (!socket.waitForBytesWritten(connectTimeoutMs))
        return false;
    // The running copy answers once it has shown the drink, which may wait on a message box.
    QByteArray reply;
    while (!reply.endsWith('\n')) {
        if (!socket.waitForReadyRead(-1))
            break;
        reply += socket.readAll();
    }
    return reply == kHandled;
}

bool InstanceLink::listen(const QString &appDir)
{
    const QString name = serverName(appDir);
    {
        // Only a mailbox nobody answers (left by a copy that crashed) may be cleared.
        QLocalSocket probe;
        probe.connectToServer(name);
        if (probe.waitForConnected(200))
            return false;
    }
    QLocalServer::removeServer(name);
    m_server = new QLocalServer(this);
    m_server->setSocketOptions(QLocalServer::UserAccessOption);
    connect(m_server, &QLocalServer::newConnection, this, &InstanceLink::onNewConnection);
    return m_server->listen(name);
}

void InstanceLink::onNewConnection()
{
    while (QLocalSocket *socket = m_server->nextPendingConnection()) {
        connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        connect(socket, &QLocalSocket::readyRead, this, [this, socket] {
            QPointer<QLocalSocket> guard(socket);
            while (guard && socket->canReadLine()) {
                const QString line = QString::fromUtf8(socket->readLine()).chopped(1);
                emit commandReceived(line);
                if (guard) {
                    socket->write(kHandled);
                    socket->flush();
                }
            }
        });
    }
}
