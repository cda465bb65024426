#pragma once

#include <QObject>
#include <QString>

class QLocalServer;

// How a second start reaches the copy already running on the same application directory:
// it hands over its command line, waits until the running copy has handled it, and ends.
// The rendezvous name plays the part of the old "Ready for command" mailbox.
class InstanceLink : public QObject {
    Q_OBJECT
public:
    explicit InstanceLink(QObject *parent = nullptr);
    ~InstanceLink() override;

    static QString serverName(const QString &appDir);

    // The second start's side. True when a running copy took the line and reported it handled.
    static bool handOver(const QString &appDir, const QString &commandLine, int connectTimeoutMs = 1000);

    // The running copy's side. Each line received is given to commandReceived, whose handler
    // runs before the sender is released.
    bool listen(const QString &appDir);

signals:
    void commandReceived(const QString &commandLine);

private:
    void onNewConnection();
    QLocalServer *m_server = nullptr;
};
