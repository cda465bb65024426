#include "PictureBook.h"

#include <QFile>
#include <QRegularExpression>

namespace {

const char *const DefaultGlasses[PictureBook::GlassCount] = {
    "Cocktail Glass", "Coupe",          "Nick and Nora",    "Old-Fashioned",   "Double Old-Fashioned",
    "Highball",       "Collins",        "Hurricane",        "Margarita Glass", "Champagne Flute",
    "Wine Glass",     "Brandy Snifter", "Shot Glass",       "Cordial",         "Pint Glass",
    "Beer Mug",       "Pilsner",        "Irish Coffee Mug", "Copper Mug",      "Tiki Mug",
    "Julep Cup",      "Sour Glass",     "Punch Cup",        "Unknown Glass",
};

const char SampleDrinks[] =
    "Name: Daiquiri\nGlass: Coupe\nGarnish: Lime Wheel\nPicture: #F3EFC8\n\n"
    "Name: Negroni\nGlass: Old-Fashioned\nGarnish: Orange Twist\nPicture: #B8252E\n\n"
    "Name: Mojito\nGlass: Highball\nGarnish: Mint Sprig\nPicture: #DDEFC9\n\n"
    "Name: Margarita\nGlass: Margarita Glass\nGarnish: Salt Rim\nPicture: #E9F0B0\n\n"
    "Name: Manhattan\nGlass: Cocktail Glass\nGarnish: Cherry\nPicture: #8A3B12\n\n"
    "Name: Moscow Mule\nGlass: Copper Mug\nGarnish: Lime Wedge\nPicture: #E8E2C0\n\n"
    "Name: Mint Julep\nGlass: Julep Cup\nGarnish: Mint Sprig\nPicture: #C8A45A\n\n"
    "Name: Dirty Martini\nGlass: Cocktail Glass\nGarnish: Olives\nPicture: #D9D6B0\n\n"
    "Name: Mai Tai\nGlass: Tiki Mug\nGarnish: Pineapple and Cherry\nPicture: #E0892E\n\n"
    "Name: Irish Coffee\nGlass: Irish Coffee Mug\nGarnish: Whipped Cream\nPicture: #4A2A17\n\n"
    "Name: Hurricane\nGlass: Hurricane\nGarnish: Orange Slice and Umbrella\nPicture: #E8422F\n\n"
    "Name: Sidecar\nGlass: Coupe\nGarnish: Sugar Rim and Lemon Twist\nPicture: #E7B65A\n";

bool readText(const QString &path, QString *text)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    *text = QString::fromUtf8(file.readAll());
    return true;
}

} // namespace

namespace PictureBook {

QStringList glassNames(const QString &bookDir, QString *error)
{
    QStringList names;
    for (const char *name : DefaultGlasses)
        names << QString::fromLatin1(name);
    QString text;
    if (!readText(bookDir + "/glassware.txt", &text))
        return names;
    int lineNo = 0;
    for (const QString &raw : text.split('\n')) {
        ++lineNo;
        const QString line = raw.trimmed();
        if (line.isEmpty() || line.startsWith('#'))
            continue;
        const QStringList fields = line.split('|');
        bool ok = false;
        const int id = fields.value(0).trimmed().toInt(&ok);
        if (!ok || id < 1 || id > GlassCount || fields.size() < 2) {
            if (error)
                *error = QStringLiteral("glassware.txt:%1: expected '<1..24> | <name> | ...'").arg(lineNo);
            return {};
        }
        names[id - 1] = fields[1].trimmed();
    }
    return names;
}

bool parseDrinks(const QString &text, QList<DrinkPicture> *pictures, QString *error)
{
    static const QRegularExpression colourPattern(QStringLiteral("^#[0-9A-Fa-f]{6}$"));
    pictures->clear();
    DrinkPicture current;
    QString colourText;
    int lineNo = 0, pictureLine = 0;
    bool inRecipe = false; // the recipe runs to the end of the block, colons and all
    auto endBlock = [&]() {
        if (!colourText.isEmpty()) {
            if (!colourPattern.match(colourText).hasMatch()) {
                if (error)
                    *error = QStringLiteral("drinks.txt:%1: picture colour '%2' is not #RRGGBB")
                                 .arg(pictureLine)
                                 .arg(colourText);
                return false;
            }
            current.colour = QColor::fromString(colourText);
            current.member = QStringLiteral("%1.jpg").arg(pictures->size() + 1, 6, 10, QChar('0'));
            pictures->append(current);
        }
        current = DrinkPicture();
        colourText.clear();
        inRecipe = false;
        return true;
    };
    const QStringList lines = text.split('\n');
    for (const QString &raw : lines) {
        ++lineNo;
        const QString line = raw.trimmed();
        if (line.isEmpty()) {
            if (!endBlock())
                return false;
            continue;
        }
        if (line.startsWith('#') || inRecipe)
            continue;
        const qsizetype colon = line.indexOf(':');
        if (colon < 0)
            continue;
        const QString key = line.left(colon).trimmed().toLower();
        const QString value = line.mid(colon + 1).trimmed();
        if (key == "name")
            current.drink = value;
        else if (key == "glass")
            current.glass = value;
        else if (key == "garnish")
            current.garnish = value;
        else if (key == "recipe")
            inRecipe = true;
        else if (key == "picture") {
            colourText = value;
            pictureLine = lineNo;
        }
    }
    return endBlock();
}

bool drinkPictures(const QString &bookDir, QList<DrinkPicture> *pictures, bool *usedSample, QString *error)
{
    QString text;
    *usedSample = !readText(bookDir + "/drinks.txt", &text);
    if (*usedSample)
        text = QString::fromLatin1(SampleDrinks);
    return parseDrinks(text, pictures, error);
}

} // namespace PictureBook
