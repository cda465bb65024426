#pragma once

#include <QString>

// The application directory: drinks.db, the settings file, templates, archives and the
// program's temporary files all live there.
namespace AppPaths {
// Chooses the directory: an explicit one (--appdir), else $CORVANE_HOME, else
// $XDG_DATA_HOME/corvane (usually ~/.local/share/corvane).
QString resolve(const QString &explicitDir);
void setAppDir(const QString &dir);
QString appDir();
// "\name" in the old program's terms: a file directly in the application directory.
QString file(const QString &name);
QString settingsFile();
QString storeFile();
// Where the delivered data was built or installed, or "" when it cannot be found.
QString deliveredDataDir();
// Fills a missing or empty application directory from the delivered data, beside it first and
// then renamed into place; in a directory already there, puts back each delivered file that is
// missing and leaves every file present as it is. Returns false with a message when that is
// impossible.
bool ensureFilled(const QString &dir, QString *error);
}
