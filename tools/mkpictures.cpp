// corvane-mkpictures --book DIR --out DIR [--sheet FILE.png]
// Draws the delivered pictures (glasses, drink pictures, spacer) and packs the two picture
// archives. --sheet also writes all glasses and some drinks on one sheet for a look.
#include "pictures/PictureGenerator.h"

#include <QGuiApplication>
#include <cstdio>
#include <memory>

int main(int argc, char **argv)
{
    QString book, out, sheet;
    for (int i = 1; i + 1 < argc; i += 2) {
        const QString value = QString::fromLocal8Bit(argv[i + 1]);
        if (qstrcmp(argv[i], "--book") == 0)
            book = value;
        else if (qstrcmp(argv[i], "--out") == 0)
            out = value;
        else if (qstrcmp(argv[i], "--sheet") == 0)
            sheet = value;
    }
    if (book.isEmpty() || (out.isEmpty() && sheet.isEmpty())) {
        std::fprintf(stderr, "usage: corvane-mkpictures --book DIR --out DIR [--sheet FILE.png]\n");
        return 2;
    }
    // Drawing on images needs no display; only the sheet's captions need fonts, and so a
    // QGuiApplication, which must not look for a display in the build.
    std::unique_ptr<QCoreApplication> app;
    if (sheet.isEmpty()) {
        app = std::make_unique<QCoreApplication>(argc, argv);
    } else {
        if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
            qputenv("QT_QPA_PLATFORM", "offscreen");
        app = std::make_unique<QGuiApplication>(argc, argv);
    }
    if (!sheet.isEmpty() && !PictureGenerator::contactSheet(book, 12).save(sheet)) {
        std::fprintf(stderr, "cannot write %s\n", qPrintable(sheet));
        return 1;
    }
    if (out.isEmpty())
        return 0;
    PictureGenerator::Result result;
    QString error;
    if (!PictureGenerator::run(book, out, &result, &error)) {
        std::fprintf(stderr, "corvane-mkpictures: %s\n", qPrintable(error));
        return 1;
    }
    for (const QString &warning : result.warnings)
        std::fprintf(stderr, "corvane-mkpictures: warning: %s\n", qPrintable(warning));
    if (result.usedSample)
        std::fprintf(stderr, "corvane-mkpictures: warning: no drinks.txt in %s, drew the built-in sample\n",
                     qPrintable(book));
    std::printf("%d glass pictures, %d drink pictures\n", result.glasses, result.drinks);
    return 0;
}
