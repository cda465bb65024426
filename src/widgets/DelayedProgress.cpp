#include "widgets/DelayedProgress.h"

#include "widgets/frmProgressDLG.h"

namespace {
constexpr qint64 kShowAfterMs = 300;
constexpr qint64 kPaintEveryMs = 50;
}

DelayedProgress::DelayedProgress(QWidget *parent, const QString &caption, std::size_t total)
    : m_parent(parent), m_caption(caption), m_total(total)
{
    m_started.start();
}

DelayedProgress::~DelayedProgress() { delete m_dialog; }

bool DelayedProgress::tick(std::size_t done)
{
    const auto percent = qint16(m_total == 0 ? 100 : done * 100 / m_total);
    if (!m_dialog) {
        if (m_started.elapsed() < kShowAfterMs)
            return true;
        m_dialog = new frmProgressDLG(m_parent);
        m_dialog->setWindowModality(Qt::WindowModal);
        m_dialog->show();
        m_dialog->Setup(0, 100, frmProgressDLG::Completed, percent, true, m_caption, QStringLiteral("percent"));
    } else if (m_lastPaint.elapsed() >= kPaintEveryMs) {
        m_dialog->SetValue(percent); // lets the screen paint and Cancel be pressed
    } else {
        return !m_dialog->WasCanceled();
    }
    m_lastPaint.start();
    return m_dialog && !m_dialog->WasCanceled();
}
