#pragma once

#include <QPushButton>
#include <QString>

// A dialog's push button with its control name. It never becomes the default on focus, so
// Enter in a text box does not press whichever button was last focused.
inline QPushButton *dialogButton(const QString &caption, const char *name, QWidget *parent)
{
    auto *b = new QPushButton(caption, parent);
    b->setObjectName(QString::fromLatin1(name));
    b->setAutoDefault(false);
    return b;
}
