#include "shell/ShellMessages.h"

QString storeOpenFailedText(const QString &storePath, const QString &engineText)
{
    return QStringLiteral("The recipe book %1 could not be opened.\n\n%2").arg(storePath, engineText);
}

QString handOverTimedOutText(const QString &commandLine)
{
    return QStringLiteral("Corvane is already running on this recipe book, but it did not answer within 10 seconds. "
                          "\"%1\" was not shown; try again once the running copy answers.")
        .arg(commandLine.trimmed());
}
