// Windows-1252 text: every byte reads and writes back, the 0x80-0x9F block is not Latin-1.
#include "base/Cp1252.h"

#include <QtTest>

class tst_Cp1252 : public QObject {
    Q_OBJECT
private slots:
    void decodeByte_data();
    void decodeByte();
    void everyByteRoundTrips();
    void encode_data();
    void encode();
};

void tst_Cp1252::decodeByte_data()
{
    QTest::addColumn<int>("byte");
    QTest::addColumn<int>("codePoint");
    QTest::newRow("ascii") << 0x41 << 0x41;
    QTest::newRow("nul") << 0x00 << 0x00;
    QTest::newRow("euro") << 0x80 << 0x20AC;
    QTest::newRow("right quote") << 0x92 << 0x2019;
    QTest::newRow("trade mark") << 0x99 << 0x2122;
    QTest::newRow("Y diaeresis") << 0x9F << 0x0178;
    QTest::newRow("undefined 81") << 0x81 << 0x81;
    QTest::newRow("undefined 9D") << 0x9D << 0x9D;
    QTest::newRow("no-break space") << 0xA0 << 0xA0;
    QTest::newRow("e acute") << 0xE9 << 0xE9;
    QTest::newRow("y diaeresis") << 0xFF << 0xFF;
}

void tst_Cp1252::decodeByte()
{
    QFETCH(int, byte);
    QFETCH(int, codePoint);
    const QString text = Cp1252::decode(QByteArray(1, char(byte)));
    QCOMPARE(text.size(), 1);
    QCOMPARE(int(text.front().unicode()), codePoint);
}

void tst_Cp1252::everyByteRoundTrips()
{
    QByteArray all;
    for (int b = 0; b < 256; ++b)
        all.append(char(b));
    const QString text = Cp1252::decode(all);
    QCOMPARE(text.size(), 256);
    QCOMPARE(Cp1252::encode(text), all);
}

void tst_Cp1252::encode_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("empty") << QString() << QByteArray();
    QTest::newRow("recipe line") << QStringLiteral(u"1½ oz Crème de Cassis – “chilled”")
                                 << QByteArray("1\xBD oz Cr\xE8me de Cassis \x96 \x93" "chilled\x94");
    QTest::newRow("ligature and caron") << QStringLiteral(u"Œ š Ž") << QByteArray("\x8C \x9A \x8E");
    QTest::newRow("C1 control with no byte") << QStringLiteral(u"\u0080\u0082") << QByteArray("??");
    QTest::newRow("outside the code page") << QStringLiteral(u"a中b") << QByteArray("a?b");
    QTest::newRow("beyond the basic plane is one mark")
        << QStringLiteral(u"a\U0001F378b") << QByteArray("a?b");
    QTest::newRow("lone surrogate") << QString(QChar(0xD83C)) + QLatin1Char('x') << QByteArray("?x");
}

void tst_Cp1252::encode()
{
    QFETCH(QString, text);
    QFETCH(QByteArray, bytes);
    QCOMPARE(Cp1252::encode(text), bytes);
}

QTEST_GUILESS_MAIN(tst_Cp1252)
#include "tst_cp1252.moc"
