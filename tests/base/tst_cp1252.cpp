// Windows-1252 text: every byte reads and writes back, the 0x80-0x9F block is not Latin-1.
#include "base/Cp1252.h"

#include <QtTest>

class tst_Cp1252 : public QObject {
    Q_OBJECT
private slots:
    void everyByteRoundTrips()
    {
        QByteArray all;
        for (int b = 0; b < 256; ++b)
            all.append(char(b));
        const QString text = Cp1252::decode(all);
        QCOMPARE(text.size(), 256);
        QCOMPARE(Cp1252::encode(text), all);
    }

    // Text and its bytes; where the text has no byte of its own the way back cannot give it again.
    void text_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<bool>("bothWays");
        QTest::newRow("empty") << QString() << QByteArray() << true;
        QTest::newRow("Latin-1 as it is, nul included")
            << QStringLiteral(u"A\0\u00A0\u00E9\u00FF") << QByteArray("A\0\xA0\xE9\xFF", 5) << true;
        QTest::newRow("the 0x80 block is not Latin-1")
            << QStringLiteral(u"\u20AC\u2019\u2122\u0178") << QByteArray("\x80\x92\x99\x9F") << true;
        QTest::newRow("its holes keep their bytes")
            << QStringLiteral(u"\u0081\u009D") << QByteArray("\x81\x9D") << true;
        QTest::newRow("recipe line") << QStringLiteral(u"1½ oz Crème de Cassis – “chilled”")
                                     << QByteArray("1\xBD oz Cr\xE8me de Cassis \x96 \x93" "chilled\x94") << true;
        QTest::newRow("ligature and caron") << QStringLiteral(u"Œ š Ž") << QByteArray("\x8C \x9A \x8E") << true;
        QTest::newRow("C1 control with no byte") << QStringLiteral(u"\u0080\u0082") << QByteArray("??") << false;
        QTest::newRow("outside the code page") << QStringLiteral(u"a中b") << QByteArray("a?b") << false;
        QTest::newRow("beyond the basic plane is one mark")
            << QStringLiteral(u"a\U0001F378b") << QByteArray("a?b") << false;
        QTest::newRow("lone surrogate") << QString(QChar(0xD83C)) + QLatin1Char('x') << QByteArray("?x") << false;
    }

    void text()
    {
        QFETCH(QString, text);
        QFETCH(QByteArray, bytes);
        QFETCH(bool, bothWays);
        QCOMPARE(Cp1252::encode(text), bytes);
        if (bothWays)
            QCOMPARE(Cp1252::decode(bytes), text);
    }

    // Files: valid UTF-8 with any non-ASCII character is UTF-8, everything else Windows-1252.
    void fileText_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("text");
        QTest::newRow("plain ASCII") << QByteArray("Caf") << QStringLiteral("Caf");
        QTest::newRow("UTF-8") << QByteArray("Caf\xC3\xA9 \xF0\x9F\x8D\xB8") << QStringLiteral(u"Café \U0001F378");
        QTest::newRow("UTF-8 with its mark") << QByteArray("\xEF\xBB\xBF" "Caf\xC3\xA9") << QStringLiteral(u"Café");
        QTest::newRow("Windows-1252") << QByteArray("Caf\xE9 \x93x\x94") << QStringLiteral(u"Café “x”");
        QTest::newRow("UTF-8 cut short") << QByteArray("Caf\xC3") << QStringLiteral(u"CafÃ");
    }

    void fileText()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, text);
        QCOMPARE(Cp1252::decodeFile(bytes), text);
    }
};

QTEST_GUILESS_MAIN(tst_Cp1252)
#include "tst_cp1252.moc"
