#pragma once

#include <QObject>
#include <QString>

class QLocalServer;
class QLocalSocket;

// How a second start reaches the copy already running on the same application directory:
// it hands over its command line, waits until the running copy has handled it, and ends.
// The rendezvous name plays the part of the old "Ready for command" mailbox.
class InstanceLink : public QObject {
    Q_OBJECT
public:
    explicit InstanceLink(QObject *parent = nullptr);
    ~InstanceLink() override;

    static QString serverName(const QString &appDir);

    enum HandOver {
        NoRunningCopy, // nobody holds the mailbox: this start runs as the first copy
        Handled,       // the running copy took the line and reported it handled
        NoAnswer,      // a copy holds the mailbox but did not answer in time
    };
    static constexpr int kAnswerTimeoutMs = 10000;
    // The second start's side. Waits at most answerTimeoutMs for the running copy.
    static HandOver handOver(const QString &appDir, const QString &commandLine, int connectTimeoutMs = 1000,
                             int answerTimeoutMs = kAnswerTimeoutMs);

    // The running copy's side. Each line received is given to commandReceived, whose handler
    // runs before the sender is released. False when another copy holds the mailbox: this one
    // then takes it over as soon as that copy ends, so that a command line always reaches a
    // running copy.
    bool listen(const QString &appDir);
    bool isListening() const;

signals:
    void commandReceived(const QString &commandLine);

private:
    bool takeMailbox();
    void onNewConnection();
    QString m_name;
    QLocalServer *m_server = nullptr;
    QLocalSocket *m_holder = nullptr; // a line to the copy holding the mailbox, to learn when it ends
};
