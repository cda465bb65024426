#pragma once

#include <QObject>

class QSocketNotifier;

// The desktop ends a session with SIGTERM or SIGHUP, a terminal with SIGINT: each ends the
// program the way "Exit" does, once the command in hand has finished. The handler itself only
// writes a byte to a pipe; the rest happens in the event loop.
class QuitSignals : public QObject {
    Q_OBJECT
public:
    explicit QuitSignals(QObject *parent = nullptr);
    ~QuitSignals() override;

signals:
    void quitRequested(int signalNumber);

private:
    void onPipeReadable();
    QSocketNotifier *m_notifier = nullptr;
};
