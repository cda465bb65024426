#pragma once

#include <QElapsedTimer>
#include <QPointer>

#include "widgets/frmProgressDLG.h"
#include <QString>
#include <cstddef>

class QWidget;

// Progress for work that is usually quick and sometimes long (a command on a list of a large
// book): the progress window appears only once the work has taken a moment, blocks the window
// beneath it so no other command can start, and lets the screen paint at most every 50 ms.
class DelayedProgress {
public:
    DelayedProgress(QWidget *parent, const QString &caption, std::size_t total);
    ~DelayedProgress();
    DelayedProgress(const DelayedProgress &) = delete;
    DelayedProgress &operator=(const DelayedProgress &) = delete;

    // Reports `done` of the total; false once the user has pressed Cancel.
    bool tick(std::size_t done);
    bool shown() const { return m_dialog != nullptr; }

private:
    QWidget *m_parent;
    QString m_caption;
    std::size_t m_total;
    QElapsedTimer m_started;
    QElapsedTimer m_lastPaint;
    QPointer<frmProgressDLG> m_dialog;
};
