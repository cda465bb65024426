#pragma once

#include "GuiTest.h"

#include <QFileDialog>
#include <QLineEdit>

// Answers the modal windows a window opens while it works, whenever they come and from whatever
// event loop runs then, so that a file dialog and the message box after it are both answered:
// each file dialog with the next path (cancelled when none is left), each message box with the
// next button (OK when none is left). Keeps, in order, each file dialog's title and each message
// box's "title|text".
class ModalAnswers : public QObject {
  public:
    QStringList paths;
    QList<QMessageBox::StandardButton> buttons;

    ModalAnswers()
    {
        connect(&m_poll, &QTimer::timeout, this, &ModalAnswers::answer);
        m_poll.start(10);
    }
    const QStringList &seen() const { return m_seen; }
    QStringList take() { return std::exchange(m_seen, {}); }

  private:
    void answer()
    {
        QWidget *modal = QApplication::activeModalWidget();
        if (auto *dialog = qobject_cast<QFileDialog *>(modal)) {
            if (paths.isEmpty()) {
                m_seen << dialog->windowTitle();
                dialog->reject();
                return;
            }
            // Typed into the name box as a user does; a dialog still reading its directory may
            // not take it yet, so it is typed again on the next look.
            child<QLineEdit>(dialog, "fileNameEdit")->setText(paths.first());
            static_cast<QDialog *>(dialog)->accept();
            if (!dialog->isVisible()) {
                m_seen << dialog->windowTitle();
                paths.removeFirst();
            }
        } else if (auto *box = qobject_cast<QMessageBox *>(modal)) {
            m_seen << box->windowTitle() + u'|' + box->text();
            box->button(buttons.isEmpty() ? QMessageBox::Ok : buttons.takeFirst())->click();
        }
    }

    QTimer m_poll;
    QStringList m_seen;
};
