#include "shell/InstanceLink.h"

#include <QCryptographicHash>
#include <QDeadlineTimer>
#include <QDir>
#include <QLocalServer>
#include <QLocalSocket>
#include <QPointer>
#include <QTimer>

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

InstanceLink::HandOver InstanceLink::handOver(const QString &appDir, const QString &commandLine,
                                              int connectTimeoutMs, int answerTimeoutMs)
{
    QLocalSocket socket;
    socket.connectToServer(serverName(appDir));
    if (!socket.waitForConnected(connectTimeoutMs))
        return NoRunningCopy;
    // From here the running copy has the line; it answers once it has shown the drink, which may
    // wait on a message box. A copy that hangs is given up on.
    const QDeadlineTimer deadline(answerTimeoutMs);
    socket.write(commandLine.toUtf8().replace('\n', ' ') + '\n');
    QByteArray reply;
    while (!reply.endsWith('\n') && !deadline.hasExpired()) {
        if (socket.bytesToWrite() > 0)
            socket.waitForBytesWritten(int(deadline.remainingTime()));
        else if (!socket.waitForReadyRead(int(deadline.remainingTime())))
            break;
        reply += socket.readAll();
    }
    return reply == kHandled ? Handled : NoAnswer;
}

bool InstanceLink::listen(const QString &appDir)
{
    m_name = serverName(appDir);
    return takeMailbox();
}

bool InstanceLink::isListening() const { return m_server && m_server->isListening(); }

bool InstanceLink::takeMailbox()
{
    if (m_holder)
        m_holder->deleteLater();
    m_holder = nullptr;
    // Only a mailbox nobody answers (left by a copy that crashed) may be cleared. One that
    // answers stays its holder's; the line kept open to it breaks when that copy ends.
    auto *probe = new QLocalSocket(this);
    probe->connectToServer(m_name);
    if (probe->waitForConnected(200)) {
        m_holder = probe;
        connect(probe, &QLocalSocket::disconnected, this, [this] {
            QTimer::singleShot(0, this, [this] { takeMailbox(); });
        });
        return false;
    }
    delete probe;
    QLocalServer::removeServer(m_name);
    m_server = new QLocalServer(this);
    m_server->setSocketOptions(QLocalServer::UserAccessOption);
    connect(m_server, &QLocalServer::newConnection, this, &InstanceLink::onNewConnection);
    return m_server->listen(m_name);
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
