#pragma once

#include <QString>

class DrinkStore;

// A picture package: a zip archive with the image archive's password whose members
// "folder/NNNNNN.jpg" are drink pictures, the six-digit number being the drink's id.
namespace PicturePackage {
// The picture's file name of a member, or "" when the member is no picture: it must be
// longer than 4 characters, end in ".JPG" in any case and lie in a folder.
QString pictureFileName(const QString &member);

struct Result {
    qint32 imagesAdded = 0; // pictures taken from the package, also those the archive refused
    QString message;        // for the user; empty when all went well
};

// Adds or replaces the package's pictures in the image archive and points each drink of
// that number at its picture. The archive is rewritten beside itself and renamed into place,
// and the drinks change only once it stands; a package that is no zip, has another password
// or a damaged member changes nothing.
Result import(DrinkStore &store, const QString &packagePath, const QString &imageArchivePath);

QString corruptMessage();
} // namespace PicturePackage
