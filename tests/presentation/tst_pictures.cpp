#include "TestFiles.h"
#include "pictures/GlassShapes.h"
#include "pictures/PictureBook.h"
#include "pictures/PictureGenerator.h"
#include "pictures/PicturePainter.h"
#include "presentation/ArchivePasswords.h"
#include "presentation/ZipArchive.h"

#include <QDir>
#include <QGuiApplication>
#include <QTemporaryDir>
#include <QTest>
#include <set>

Q_DECLARE_METATYPE(GlassKind)

namespace {

// Pixels within a small distance of a colour.
int pixelsNear(const QImage &image, QColor colour, int tolerance)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor c = image.pixelColor(x, y);
            if (std::abs(c.red() - colour.red()) + std::abs(c.green() - colour.green()) +
                    std::abs(c.blue() - colour.blue()) <=
                tolerance)
                ++count;
        }
    }
    return count;
}

} // namespace

class tst_Pictures : public QObject {
    Q_OBJECT

  private slots:
    void glassKindForName_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<GlassKind>("kind");
        QTest::newRow("martini") << "Martini" << GlassKind::Cocktail;
        QTest::newRow("double before old-fashioned") << "Double Old-Fashioned" << GlassKind::DoubleOldFashioned;
        QTest::newRow("irish coffee is no beer mug") << "Irish Coffee Mug" << GlassKind::IrishCoffee;
        QTest::newRow("copper mug is no beer mug") << "Moscow Mule Mug" << GlassKind::CopperMug;
        QTest::newRow("beer mug") << "Beer Mug" << GlassKind::BeerMug;
        QTest::newRow("champagne coupe is no flute") << "Champagne Coupe" << GlassKind::Coupe;
        QTest::newRow("champagne flute") << "Champagne Flute" << GlassKind::Flute;
        QTest::newRow("pilsner beer glass") << "Pilsner Beer Glass" << GlassKind::Pilsner;
        QTest::newRow("whiskey sour") << "Whiskey Sour Glass" << GlassKind::Sour;
        QTest::newRow("nick and nora") << "Nick & Nora" << GlassKind::NickAndNora;
        QTest::newRow("case does not matter") << "HURRICANE" << GlassKind::Hurricane;
        QTest::newRow("unknown by name") << "Unknown Glass" << GlassKind::Unknown;
        QTest::newRow("nothing known") << "Flower Vase" << GlassKind::Unknown;
        QTest::newRow("empty") << "" << GlassKind::Unknown;
    }
    void glassKindForName()
    {
        QFETCH(QString, name);
        QFETCH(GlassKind, kind);
        QCOMPARE(::glassKindForName(name), kind);
    }

    // Without a glassware.txt the 24 built-in names must still give 24 different drawings,
    // the last the unknown glass.
    void builtInGlassesAreAllDifferent()
    {
        QTemporaryDir empty;
        QString error;
        const QStringList names = PictureBook::glassNames(empty.path(), &error);
        QCOMPARE(names.size(), PictureBook::GlassCount);
        std::set<GlassKind> kinds;
        for (const QString &name : names)
            kinds.insert(::glassKindForName(name));
        QCOMPARE(int(kinds.size()), PictureBook::GlassCount);
        QCOMPARE(::glassKindForName(names.last()), GlassKind::Unknown);
    }

    void glassNamesFromTheBook_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<int>("id");
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("ok");
        QTest::newRow("by id, not by line")
            << QByteArray("# glasses\n7 | Tiki Mug | carved\n1 | Coupe | shallow\n") << 7 << "Tiki Mug"
            << true;
        QTest::newRow("unnamed id keeps its built-in name")
            << QByteArray("1 | Coupe | x\n") << 24 << "Unknown Glass" << true;
        QTest::newRow("CR LF") << QByteArray("3 | Sour Glass | x\r\n") << 3 << "Sour Glass" << true;
        QTest::newRow("id out of range") << QByteArray("25 | Vase | x\n") << 0 << "" << false;
        QTest::newRow("no id") << QByteArray("Coupe | x\n") << 0 << "" << false;
    }
    void glassNamesFromTheBook()
    {
        QFETCH(QByteArray, text);
        QFETCH(int, id);
        QFETCH(QString, name);
        QFETCH(bool, ok);
        QTemporaryDir book;
        QVERIFY(writeFile(book.filePath("glassware.txt"), text));
        QString error;
        const QStringList names = PictureBook::glassNames(book.path(), &error);
        QCOMPARE(!names.isEmpty(), ok);
        QCOMPARE(error.isEmpty(), ok);
        if (ok)
            QCOMPARE(names[id - 1], name);
    }

    // The numbers must be those the store build gives: drinks with a picture, in file order.
    // A picture colour must be #RRGGBB; an empty one asks for no picture.
    void drinkPictureNumbers_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QStringList>("expected"); // "member drink glass colour", or the error
        QTest::newRow("drinks without a picture take no number")
            << "Name: A\nGlass: Coupe\nPicture: #102030\n\nName: B\nGlass: Coupe\n\n"
               "Name: C\nGlass: Highball\nGarnish: Lime Wheel\nPicture: #ffeedd\n"
            << QStringList{"000001.jpg A Coupe #102030", "000002.jpg C Highball #ffeedd"};
        QTest::newRow("recipe text is not read as fields")
            << "Name: A\nGlass: Coupe\nRecipe: Stir.\nPicture: #000000 is not a field here\n\n"
               "Name: B\nGlass: Coupe\nPicture: #0000FF\nRecipe: Shake.\n"
            << QStringList{"000001.jpg B Coupe #0000ff"};
        QTest::newRow("comments, CR LF, several blank lines")
            << "# the book\r\n\r\n\r\nName: A\r\nGlass: Coupe\r\n# later\r\nPicture: #abcdef\r\n"
            << QStringList{"000001.jpg A Coupe #abcdef"};
        QTest::newRow("empty book") << "" << QStringList{};
        QTest::newRow("empty colour") << "Name: A\n\nName: B\nPicture: \n" << QStringList{};
        for (const char *colour : {"F3EFC8", "#FFF", "#red"})
            QTest::newRow(colour) << QStringLiteral("Name: A\n\nName: B\nPicture: %1\n").arg(colour)
                                  << QStringList{"error drinks.txt:4"};
    }
    void drinkPictureNumbers()
    {
        QFETCH(QString, text);
        QFETCH(QStringList, expected);
        QList<PictureBook::DrinkPicture> pictures;
        QString error;
        QStringList got;
        if (!PictureBook::parseDrinks(text, &pictures, &error))
            got << QStringLiteral("error ") + error.left(12);
        for (const auto &p : pictures)
            got << QStringList{p.member, p.drink, p.glass, p.colour.name()}.join(' ');
        QCOMPARE(got, expected);
    }

    // Every glass is drawn: a transparent background and the drawing in the middle.
    void glassPictures_data()
    {
        QTest::addColumn<GlassKind>("kind");
        for (int k = 0; k <= int(GlassKind::Unknown); ++k)
            QTest::newRow(qPrintable(QString::number(k))) << GlassKind(k);
    }
    void glassPictures()
    {
        QFETCH(GlassKind, kind);
        const QImage page = PicturePainter::glassPicture(kind, PictureGenerator::PagePictureSize);
        QCOMPARE(page.size(), QSize(64, 96));
        QCOMPARE(qAlpha(page.pixel(0, 0)), 0);
        QCOMPARE(qAlpha(page.pixel(63, 0)), 0);
        int opaque = 0;
        for (int y = 0; y < page.height(); ++y) {
            for (int x = 0; x < page.width(); ++x)
                opaque += qAlpha(page.pixel(x, y)) > 200;
        }
        QVERIFY2(opaque > 150, qPrintable(QString::number(opaque)));

        // The drink's colour must show, even in an opaque mug.
        const QColor green(0, 190, 0);
        const QImage drink = PicturePainter::drinkPicture(kind, green, QString());
        QCOMPARE(drink.size(), PicturePainter::DrinkPictureSize);
        const int shown = pixelsNear(drink, green, 60);
        QVERIFY2(shown > 300, qPrintable(QString::number(shown)));
    }

    void generatorWritesTheDeliveredPictures()
    {
        QTemporaryDir book, out;
        QByteArray glasses;
        for (int id = 24; id >= 1; --id)
            glasses += QByteArray::number(id) + " | " +
                       (id == 5 ? "Copper Mug" : "Glass " + QByteArray::number(id)) + " | x\n";
        QVERIFY(writeFile(book.filePath("glassware.txt"), glasses));
        QVERIFY(writeFile(book.filePath("drinks.txt"), "Name: Mule\nGlass: copper mug\nPicture: #E8E2C0\n\n"
                                                       "Name: Plain\nGlass: Glass 2\n\n"
                                                       "Name: Odd\nGlass: No Such Glass\nPicture: #336699\n"));
        PictureGenerator::Result result;
        QString error;
        QVERIFY2(PictureGenerator::run(book.path(), out.path(), &result, &error), qPrintable(error));
        QCOMPARE(result.glasses, 24);
        QCOMPARE(result.drinks, 2);
        QVERIFY(!result.usedSample);
        // "Glass N" names no kind of glass: all but the copper mug and glass 24 are reported.
        QCOMPARE(result.warnings.size(), 22);

        const QString image = QString::fromLatin1(ArchivePasswords::ImageArchive);
        const QString glass = QString::fromLatin1(ArchivePasswords::GlassArchive);
        ZipArchive archive;
        QVERIFY(archive.open(out.filePath("Corvane.cvi"), image));
        QCOMPARE(archive.memberNames(), (QStringList{"000001.jpg", "000002.jpg"}));
        QCOMPARE(archive.extract("000002.jpg", out.path()), 0);
        QCOMPARE(QImage(out.filePath("000002.jpg")).size(), QSize(200, 260));
        QVERIFY(ZipArchive::extractMember(out.filePath("Corvane.cvi"), glass, "000001.jpg", out.path()) != 0);

        QVERIFY(archive.open(out.filePath("corvane.glw"), glass));
        QStringList gifs;
        for (int id = 1; id <= 24; ++id)
            gifs << QStringLiteral("%1.gif").arg(id, 2, 10, QChar('0'));
        QCOMPARE(archive.memberNames(), gifs);
        QCOMPARE(archive.extract("05.gif", out.path()), 0);
        const QImage copper = QImage(out.filePath("05.gif")).convertToFormat(QImage::Format_ARGB32);
        QCOMPARE(copper.size(), PictureGenerator::PrintPictureSize);
        QCOMPARE(qAlpha(copper.pixel(0, 0)), 0);

        for (const QString &gif : gifs) {
            const QImage page(out.filePath("glass/" + QString(gif).replace(".gif", ".png")));
            QCOMPARE(page.size(), PictureGenerator::PagePictureSize);
        }
        const QImage spacer = QImage(out.filePath("spacer.gif")).convertToFormat(QImage::Format_ARGB32);
        QCOMPARE(spacer.size(), QSize(1, 1));
        QCOMPARE(qAlpha(spacer.pixel(0, 0)), 0);
    }

    void generatorWithoutDrinksUsesTheSample()
    {
        QTemporaryDir book, out;
        PictureGenerator::Result result;
        QString error;
        QVERIFY2(PictureGenerator::run(book.path(), out.path(), &result, &error), qPrintable(error));
        QVERIFY(result.usedSample);
        QVERIFY(result.drinks > 0);
    }
};

QTEST_MAIN(tst_Pictures)
#include "tst_pictures.moc"
