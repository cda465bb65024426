#pragma once

#include <QImage>
#include <QString>
#include <QStringList>

// Writes the pictures the program is delivered with into one directory:
//   glass/01.png ... glass/24.png  the glasses of the drink page (64 x 96, transparent)
//   corvane.glw                     the same glasses as "01.gif" ... "24.gif" for printing
//   Corvane.cvi                     "000001.jpg"... for each drink with a picture colour
//   spacer.gif                      a 1 x 1 transparent picture
namespace PictureGenerator {
struct Result {
    int glasses = 0;
    int drinks = 0;
    bool usedSample = false; // no drinks.txt in the book
    QStringList warnings;    // glasses the drawings do not know
};
bool run(const QString &bookDir, const QString &outDir, Result *result, QString *error);

// All glasses and the first drinks on one sheet, to look at them.
QImage contactSheet(const QString &bookDir, int drinkCount);

constexpr QSize PagePictureSize(64, 96);
constexpr QSize PrintPictureSize(128, 192);
} // namespace PictureGenerator
