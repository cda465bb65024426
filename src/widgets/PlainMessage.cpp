#include "widgets/PlainMessage.h"

#include <QMessageBox>

void plainMessage(QWidget *parent, const QString &text)
{
    QMessageBox box(QMessageBox::NoIcon, QStringLiteral("Corvane"), text, QMessageBox::Ok, parent);
    box.exec();
}
