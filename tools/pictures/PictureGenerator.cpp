#include "PictureGenerator.h"

#include "PictureBook.h"
#include "PicturePainter.h"
#include "presentation/ArchivePasswords.h"
#include "presentation/GifWriter.h"
#include "presentation/ZipArchive.h"

#include <QBuffer>
#include <QDir>
#include <QPainter>
#include <QSaveFile>

namespace {

QByteArray encode(const QImage &image, const char *format, int quality = -1)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (!image.save(&buffer, format, quality))
        return {};
    return bytes;
}

bool writeFile(const QString &path, const QByteArray &bytes, QString *error)
{
    QSaveFile file(path);
    if (file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit())
        return true;
    *error = QStringLiteral("%1: %2").arg(path, file.errorString());
    return false;
}

QByteArray gifBytes(const QImage &image)
{
    int transparent = -1;
    const QImage indexed = GifWriter::toIndexed(image, qRgb(255, 255, 255), &transparent);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    GifWriter::write(indexed, &buffer, transparent);
    return bytes;
}

QList<GlassKind> glassKinds(const QStringList &names)
{
    QList<GlassKind> kinds;
    for (const QString &name : names)
        kinds << glassKindForName(name);
    return kinds;
}

// A drink's glass by its name in the book's glass list, else by the words of the name.
GlassKind kindOfDrink(const PictureBook::DrinkPicture &drink, const QStringList &names,
                      const QList<GlassKind> &kinds)
{
    for (int i = 0; i < names.size(); ++i) {
        if (names[i].compare(drink.glass, Qt::CaseInsensitive) == 0)
            return kinds[i];
    }
    return glassKindForName(drink.glass);
}

bool writeGlasses(const QString &outDir, const QList<GlassKind> &kinds, QString *error)
{
    ZipArchive archive;
    if (!archive.open(outDir + "/corvane.glw", QString::fromLatin1(ArchivePasswords::GlassArchive),
                      ZipArchive::Replace)) {
        *error = archive.errorString();
        return false;
    }
    for (int i = 0; i < kinds.size(); ++i) {
        const QString number = QStringLiteral("%1").arg(i + 1, 2, 10, QChar('0'));
        const QImage page = PicturePainter::glassPicture(kinds[i], PictureGenerator::PagePictureSize);
        if (!writeFile(outDir + "/glass/" + number + ".png", encode(page, "PNG"), error))
            return false;
        const QImage print = PicturePainter::glassPicture(kinds[i], PictureGenerator::PrintPictureSize);
        if (!archive.addData(number + ".gif", gifBytes(print), ZipArchive::Store)) {
            *error = archive.errorString();
            return false;
        }
    }
    if (!archive.commit()) {
        *error = archive.errorString();
        return false;
    }
    return true;
}

bool writeDrinks(const QString &outDir, const QList<PictureBook::DrinkPicture> &drinks,
                 const QStringList &names, const QList<GlassKind> &kinds, QString *error)
{
    ZipArchive archive;
    if (!archive.open(outDir + "/Corvane.cvi", QString::fromLatin1(ArchivePasswords::ImageArchive),
                      ZipArchive::Replace)) {
        *error = archive.errorString();
        return false;
    }
    for (const PictureBook::DrinkPicture &drink : drinks) {
        const QImage picture =
            PicturePainter::drinkPicture(kindOfDrink(drink, names, kinds), drink.colour, drink.garnish);
        if (!archive.addData(drink.member, encode(picture, "JPG", 90), ZipArchive::Store)) {
            *error = archive.errorString();
            return false;
        }
    }
    if (!archive.commit()) {
        *error = archive.errorString();
        return false;
    }
    return true;
}

} // namespace

namespace PictureGenerator {

bool run(const QString &bookDir, const QString &outDir, Result *result, QString *error)
{
    const QStringList names = PictureBook::glassNames(bookDir, error);
    if (names.isEmpty())
        return false;
    QList<PictureBook::DrinkPicture> drinks;
    if (!PictureBook::drinkPictures(bookDir, &drinks, &result->usedSample, error))
        return false;
    if (!QDir().mkpath(outDir + "/glass")) {
        *error = QStringLiteral("%1: cannot create the directory").arg(outDir);
        return false;
    }
    const QList<GlassKind> kinds = glassKinds(names);
    for (int i = 0; i + 1 < kinds.size(); ++i) {
        if (kinds[i] == GlassKind::Unknown)
            result->warnings << QStringLiteral("glass %1, \"%2\", has no drawing of its own and is drawn as "
                                               "the unknown glass")
                                    .arg(i + 1)
                                    .arg(names[i]);
    }
    if (!writeGlasses(outDir, kinds, error) || !writeDrinks(outDir, drinks, names, kinds, error))
        return false;

    QImage spacer(1, 1, QImage::Format_Indexed8);
    spacer.setColorTable({qRgba(255, 255, 255, 0)});
    spacer.fill(0);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    GifWriter::write(spacer, &buffer, 0);
    if (!writeFile(outDir + "/spacer.gif", bytes, error))
        return false;
    result->glasses = int(kinds.size());
    result->drinks = int(drinks.size());
    return true;
}

QImage contactSheet(const QString &bookDir, int drinkCount)
{
    QString error;
    const QStringList names = PictureBook::glassNames(bookDir, &error);
    const QList<GlassKind> kinds = glassKinds(names);
    QList<PictureBook::DrinkPicture> drinks;
    bool sample = false;
    PictureBook::drinkPictures(bookDir, &drinks, &sample, &error);
    drinks = drinks.mid(0, drinkCount);

    const int columns = 8, cellW = 210, cellH = 230;
    const int glassRows = (int(kinds.size()) + columns - 1) / columns;
    const int drinkRows = (int(drinks.size()) + 5) / 6;
    QImage sheet(columns * cellW, glassRows * cellH + drinkRows * 290, QImage::Format_RGB32);
    sheet.fill(Qt::white);
    QPainter p(&sheet);
    for (int i = 0; i < kinds.size(); ++i) {
        const QPoint at((i % columns) * cellW, (i / columns) * cellH);
        // The print picture as it comes back from its GIF, the page picture beside it.
        const QImage print = PicturePainter::glassPicture(kinds[i], PrintPictureSize);
        p.drawImage(at + QPoint(4, 4), QImage::fromData(gifBytes(print), "GIF"));
        p.drawImage(at + QPoint(140, 100), PicturePainter::glassPicture(kinds[i], PagePictureSize));
        p.drawText(QRect(at.x(), at.y() + 198, cellW, 30), Qt::AlignCenter,
                   QStringLiteral("%1 %2").arg(i + 1).arg(names[i]));
    }
    for (int i = 0; i < drinks.size(); ++i) {
        const QPoint at((i % 6) * 200, glassRows * cellH + (i / 6) * 290);
        p.drawImage(at, PicturePainter::drinkPicture(kindOfDrink(drinks[i], names, kinds), drinks[i].colour,
                                                     drinks[i].garnish));
        p.drawText(QRect(at.x(), at.y() + 262, 200, 26), Qt::AlignCenter,
                   drinks[i].drink + " / " + drinks[i].garnish);
    }
    return sheet;
}

} // namespace PictureGenerator
