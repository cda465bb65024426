#include "shell/ShellMessages.h"

QString storeOpenFailedText(const QString &storePath, const QString &engineText)
{
    return QStringLiteral("The recipe book %1 could not be opened.\n\n%2").arg(storePath, engineText);
}

QString runtimeErrorText(quint32 number, const QString &text)
{
    return QStringLiteral("Run-time error '%1 (%2)':\n\n%3")
        .arg(qint32(number))
        .arg(QString::number(number, 16), text);
}
