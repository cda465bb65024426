#include "presentation/GifWriter.h"

#include <QBuffer>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

namespace {

QImage indexedImage(QSize size, int colours, const QString &pattern)
{
    QImage image(size, QImage::Format_Indexed8);
    QList<QRgb> table;
    for (int i = 0; i < colours; ++i)
        table << qRgb((i * 97) % 256, (i * 53 + 17) % 256, 255 - i % 256);
    image.setColorTable(table);
    QRandomGenerator rng(42);
    for (int y = 0; y < size.height(); ++y) {
        uchar *line = image.scanLine(y);
        for (int x = 0; x < size.width(); ++x) {
            if (pattern == "noise")
                line[x] = uchar(rng.bounded(colours));
            else if (pattern == "flat")
                line[x] = uchar(colours - 1);
            else // stripes: long runs that build long table strings
                line[x] = uchar(((x / 7) + y) % colours);
        }
    }
    return image;
}

QImage readBack(const QByteArray &bytes)
{
    QImage image;
    image.loadFromData(bytes, "GIF");
    return image.convertToFormat(QImage::Format_ARGB32);
}

QByteArray written(const QImage &image, int transparentIndex = -1)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (!GifWriter::write(image, &buffer, transparentIndex))
        return {};
    return bytes;
}

} // namespace

class tst_GifWriter : public QObject {
    Q_OBJECT

  private slots:
    // Palette sizes decide the LZW start width; noise fills the code table and forces clears.
    void roundTrip_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<int>("colours");
        QTest::addColumn<QString>("pattern");
        QTest::newRow("1x1") << QSize(1, 1) << 1 << "flat";
        QTest::newRow("two colours") << QSize(33, 17) << 2 << "stripes";
        QTest::newRow("three colours, padded table") << QSize(20, 20) << 3 << "noise";
        QTest::newRow("16 colours") << QSize(64, 96) << 16 << "stripes";
        QTest::newRow("256 colours, table clears") << QSize(300, 200) << 256 << "noise";
        QTest::newRow("129 colours") << QSize(129, 77) << 129 << "noise";
        QTest::newRow("one colour, long strings") << QSize(640, 480) << 4 << "flat";
        QTest::newRow("few colours, many codes") << QSize(500, 300) << 4 << "noise";
    }
    void roundTrip()
    {
        QFETCH(QSize, size);
        QFETCH(int, colours);
        QFETCH(QString, pattern);
        const QImage image = indexedImage(size, colours, pattern);
        const QByteArray bytes = written(image);
        QVERIFY(bytes.startsWith("GIF89a"));
        const QImage back = readBack(bytes);
        QCOMPARE(back.size(), size);
        QCOMPARE(back, image.convertToFormat(QImage::Format_ARGB32));
    }

    void rejectsWhatItCannotWrite_data()
    {
        QTest::addColumn<QImage>("image");
        QTest::addColumn<int>("transparent");
        QTest::newRow("not a palette picture") << QImage(4, 4, QImage::Format_ARGB32) << -1;
        QTest::newRow("empty") << QImage() << -1;
        QTest::newRow("transparent index past 255") << indexedImage(QSize(2, 2), 2, "flat") << 300;
    }
    void rejectsWhatItCannotWrite()
    {
        QFETCH(QImage, image);
        QFETCH(int, transparent);
        QVERIFY(written(image, transparent).isEmpty());
    }

    // Half-transparent pixels: under half opaque is transparent, the rest lies on the matte;
    // the transparent index is written as such, and the other colours as they are.
    void toIndexedKeepsFewColoursExactly()
    {
        QImage image(3, 1, QImage::Format_ARGB32);
        image.setPixel(0, 0, qRgba(200, 20, 20, 255));
        image.setPixel(1, 0, qRgba(0, 0, 0, 100));
        image.setPixel(2, 0, qRgba(0, 0, 255, 128));
        int transparent = -1;
        const QImage indexed = GifWriter::toIndexed(image, qRgb(255, 255, 255), &transparent);
        QCOMPARE(indexed.format(), QImage::Format_Indexed8);
        QCOMPARE(indexed.pixelIndex(1, 0), transparent);
        const QImage back = readBack(written(indexed, transparent));
        QCOMPARE(back.pixel(0, 0), qRgb(200, 20, 20));
        QCOMPARE(qAlpha(back.pixel(1, 0)), 0);
        QCOMPARE(back.pixel(2, 0), qRgb(127, 127, 255));
    }

    void toIndexedReducesManyColoursClosely()
    {
        QImage image(256, 64, QImage::Format_RGB32);
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                image.setPixel(x, y, qRgb(x, y * 4, (x + y * 4) / 2));
        }
        int transparent = 0;
        const QImage indexed = GifWriter::toIndexed(image, qRgb(255, 255, 255), &transparent);
        QCOMPARE(transparent, -1);
        QVERIFY(indexed.colorCount() <= 256);
        int worst = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const QRgb a = image.pixel(x, y), b = indexed.pixel(x, y);
                worst = std::max({worst, std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)),
                                  std::abs(qBlue(a) - qBlue(b))});
            }
        }
        QVERIFY2(worst <= 24, qPrintable(QString::number(worst)));
    }

    void saveWritesAWholeFileOrNone()
    {
        QTemporaryDir dir;
        QImage image(8, 8, QImage::Format_ARGB32);
        image.fill(Qt::transparent);
        image.setPixel(3, 3, qRgb(10, 20, 30));
        QVERIFY(GifWriter::save(image, dir.filePath("spot.gif")));
        const QImage back = QImage(dir.filePath("spot.gif")).convertToFormat(QImage::Format_ARGB32);
        QCOMPARE(back.pixel(3, 3), qRgb(10, 20, 30));
        QCOMPARE(qAlpha(back.pixel(0, 0)), 0);
        QVERIFY(!GifWriter::save(image, dir.filePath("no/such/dir/spot.gif")));
    }
};

QTEST_GUILESS_MAIN(tst_GifWriter)
#include "tst_gifwriter.moc"
