#include "shell/ShellMessages.h"

QString storeOpenFailedText(const QString &storePath, const QString &engineText)
{
    return QStringLiteral("The recipe book %1 could not be opened.\n\n%2").arg(storePath, engineText);
}
