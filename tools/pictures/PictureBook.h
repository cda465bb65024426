#pragma once

#include <QColor>
#include <QList>
#include <QString>
#include <QStringList>

// What the pictures need from the recipe book's text files (data/book).
namespace PictureBook {
constexpr int GlassCount = 24;

// The names of glasses 1 to 24 (index 0 is glass 1) from glassware.txt; a glass the file
// does not name, or every glass when there is no file, keeps a built-in name.
QStringList glassNames(const QString &bookDir, QString *error);

struct DrinkPicture {
    QString member; // "000001.jpg"
    QString drink;
    QString glass;
    QString garnish;
    QColor colour;
};
// One entry per drink with a "Picture: #RRGGBB" line, numbered from 1 in file order.
// Without drinks.txt a small sample stands in (usedSample is set), so that the pictures
// can be worked on before the book exists. False with a message for a bad colour.
bool drinkPictures(const QString &bookDir, QList<DrinkPicture> *pictures, bool *usedSample, QString *error);

// The same from the text of drinks.txt.
bool parseDrinks(const QString &text, QList<DrinkPicture> *pictures, QString *error);
} // namespace PictureBook
