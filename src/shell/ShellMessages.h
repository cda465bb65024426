#pragma once

#include <QString>

// Texts the shell shows when something beyond the user's control fails.
QString storeOpenFailedText(const QString &storePath, const QString &engineText);
QString handOverTimedOutText(const QString &commandLine);
