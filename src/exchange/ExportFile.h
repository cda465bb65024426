#pragma once

#include <QString>

// Writes an export under its name only once it is whole: a failure leaves the file that was
// there before. The text goes out in Windows-1252 when it can carry every character, else
// in UTF-8, which the program's own reader recognises, so that no drink is changed on the way.
// Returns "" or the reason it failed.
QString writeExportFile(const QString &path, const QString &text);
// Whether writeExportFile would write this text in UTF-8.
bool exportNeedsUtf8(const QString &text);
