#pragma once

#include <QString>

// The files around the drink page in the application directory.
namespace PageFiles {

// Writes the page to "<appDir>/corvane.cvk" (Windows-1252, ending in CR LF), replacing the
// last page. Returns the file's path, or "" with the reason in errorText.
QString writePageFile(const QString &appDir, const QString &html, QString *errorText = nullptr);

// The printing picture of a glass: "NN.gif" from "<appDir>/corvane.glw", extracted into the
// application directory. Its path, or "<appDir>/spacer.gif" when it cannot be had.
QString GlassPicturePath(const QString &appDir, int glassID);

} // namespace PageFiles
