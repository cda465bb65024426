#pragma once

#include <QString>

// Texts the shell shows when something beyond the user's control fails.
QString storeOpenFailedText(const QString &storePath, const QString &engineText);
// An error no handler took, shown the way the program always has: number and text.
QString runtimeErrorText(quint32 number, const QString &text);
