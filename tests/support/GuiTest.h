#pragma once

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QtTest>

// A named control of a window; a missing one ends the test run, as the form itself is broken.
template <typename T> T *child(const QObject *parent, const char *name)
{
    T *found = parent->findChild<T *>(QString::fromLatin1(name));
    if (!found)
        qFatal("no control %s", name);
    return found;
}

// Answers the next message box with the button once it is shown, and keeps "title|text" of it.
inline void answerNextMessage(QObject *context, QString *seen, QMessageBox::StandardButton button = QMessageBox::Ok)
{
    QTimer::singleShot(0, context, [seen, button] {
        QTRY_VERIFY(qobject_cast<QMessageBox *>(QApplication::activeModalWidget()));
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        *seen = box->windowTitle() + u'|' + box->text();
        box->button(button)->click();
    });
}
