#pragma once

#include <QPushButton>
#include <QString>

// A control with its name, so that every control of a form can be found by the name it has
// always had.
template <typename W> W *named(W *w, const char *name)
{
    w->setObjectName(QString::fromLatin1(name));
    return w;
}

// A dialog's push button with its control name. It never becomes the default on focus, so
// Enter in a text box does not press whichever button was last focused.
inline QPushButton *dialogButton(const QString &caption, const char *name, QWidget *parent)
{
    auto *b = named(new QPushButton(caption, parent), name);
    b->setAutoDefault(false);
    return b;
}
