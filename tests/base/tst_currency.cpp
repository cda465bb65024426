// Money as the store holds it and as the user reads and types it.
#include "base/Currency.h"

#include <QRandomGenerator>
#include <QtTest>
#include <limits>

namespace {
constexpr qint64 kMax = std::numeric_limits<qint64>::max();
constexpr qint64 kMin = std::numeric_limits<qint64>::min();
const qint64 kNone = -1; // marks "no value" in parse tables; -1 is never a parse result there
}

class tst_Currency : public QObject {
    Q_OBJECT
private slots:
    void fromDouble_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<qint64>("expected");
        // Halves go to the even neighbour, as the old runtime's conversion did.
        QTest::newRow("half down to even") << 0.00005 << qint64(0);
        QTest::newRow("half up to even") << 0.00035 << qint64(4);
        QTest::newRow("half stays even") << 0.00025 << qint64(2);
        QTest::newRow("negative half") << -2.00015 << qint64(-20002);
        QTest::newRow("above half") << 1.23456 << qint64(12346);
        QTest::newRow("float noise") << 0.1 + 0.2 << qint64(3000);
        QTest::newRow("nan") << std::numeric_limits<double>::quiet_NaN() << qint64(0);
        QTest::newRow("too large") << 1e300 << kMax;
        QTest::newRow("too small") << -std::numeric_limits<double>::infinity() << kMin;
    }

    void fromDouble()
    {
        QFETCH(double, value);
        QFETCH(qint64, expected);
        QCOMPARE(Currency::fromDouble(value).tenThousandths(), expected);
    }

    void fromVariant_data()
    {
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<qint64>("expected");
        QTest::newRow("invalid") << QVariant() << qint64(0);
        QTest::newRow("sql null") << QVariant(QMetaType(QMetaType::Double)) << qint64(0);
        QTest::newRow("integer") << QVariant(12) << qint64(120000);
        QTest::newRow("integer too large") << QVariant(qlonglong(1) << 60) << kMax;
        QTest::newRow("double") << QVariant(3.3) << qint64(33000);
        QTest::newRow("double fifth decimal half") << QVariant(2.00005) << qint64(20000);
        QTest::newRow("text blanks") << QVariant(QStringLiteral(" 12 ")) << qint64(120000);
        QTest::newRow("text half to even") << QVariant(QStringLiteral("0.00025")) << qint64(2);
        QTest::newRow("text past half") << QVariant(QStringLiteral("0.000250001")) << qint64(3);
        QTest::newRow("text largest") << QVariant(QStringLiteral("922337203685477.5807")) << kMax;
        QTest::newRow("text exponent") << QVariant(QStringLiteral("1e3")) << qint64(10000000);
        QTest::newRow("text junk") << QVariant(QStringLiteral("abc")) << qint64(0);
    }

    void fromVariant()
    {
        QFETCH(QVariant, value);
        QFETCH(qint64, expected);
        QCOMPARE(Currency::fromVariant(value).tenThousandths(), expected);
    }

    void sqlText_data()
    {
        QTest::addColumn<qint64>("value");
        QTest::addColumn<QString>("text");
        QTest::newRow("zero") << qint64(0) << "0";
        QTest::newRow("whole") << qint64(120000) << "12";
        QTest::newRow("one decimal") << qint64(35000) << "3.5";
        QTest::newRow("small negative") << qint64(-125) << "-0.0125";
        QTest::newRow("inner zeros") << qint64(10001) << "1.0001";
        QTest::newRow("largest") << kMax << "922337203685477.5807";
        QTest::newRow("smallest") << kMin << "-922337203685477.5808";
    }

    void sqlText()
    {
        QFETCH(qint64, value);
        QFETCH(QString, text);
        const Currency c = Currency::fromTenThousandths(value);
        QCOMPARE(c.toSqlText(), text);
        QCOMPARE(Currency::fromVariant(text), c);
    }

    void format_data()
    {
        QTest::addColumn<QString>("locale");
        QTest::addColumn<qint64>("value");
        QTest::addColumn<QString>("text");
        QTest::newRow("us grouped") << "en_US" << qint64(12345000) << "$1,234.50";
        QTest::newRow("us zero") << "en_US" << qint64(0) << "$0.00";
        QTest::newRow("us negative") << "en_US" << qint64(-15000) << "($1.50)";
        QTest::newRow("us half cent away from zero") << "en_US" << qint64(50) << "$0.01";
        QTest::newRow("us negative half cent") << "en_US" << qint64(-50) << "($0.01)";
        QTest::newRow("us no negative zero") << "en_US" << qint64(-49) << "$0.00";
        QTest::newRow("us largest") << "en_US" << kMax << "$922,337,203,685,477.58";
        QTest::newRow("german") << "de_DE" << qint64(12345000) << QStringLiteral(u"1.234,50\u00A0€");
        QTest::newRow("german negative") << "de_DE" << qint64(-15000) << QStringLiteral(u"-1,50\u00A0€");
    }

    void format()
    {
        QFETCH(QString, locale);
        QFETCH(qint64, value);
        QFETCH(QString, text);
        QCOMPARE(Currency::fromTenThousandths(value).format(QLocale(locale)), text);
    }

    // What format writes is read back by the round trip below; these are texts typed by hand.
    void parse_data()
    {
        QTest::addColumn<QString>("locale");
        QTest::addColumn<QString>("text");
        QTest::addColumn<qint64>("expected");
        QTest::newRow("us minus before symbol") << "en_US" << "-$1.50" << qint64(-15000);
        QTest::newRow("us minus after symbol") << "en_US" << "$-1.50" << qint64(-15000);
        QTest::newRow("us plain") << "en_US" << "1234.5" << qint64(12345000);
        QTest::newRow("us plain negative") << "en_US" << "-2" << qint64(-20000);
        QTest::newRow("us blanks") << "en_US" << " 3.10 " << qint64(31000);
        QTest::newRow("us leading point") << "en_US" << ".25" << qint64(2500);
        QTest::newRow("us Indian groups") << "en_US" << "12,34,567" << qint64(12345670000);
        QTest::newRow("us fifth decimal") << "en_US" << "1.23456" << qint64(12346);
        QTest::newRow("us largest") << "en_US" << "922337203685477.5807" << kMax;
        QTest::newRow("us overflow") << "en_US" << "922337203685477.5808" << kNone;
        QTest::newRow("us empty") << "en_US" << "" << kNone;
        QTest::newRow("us letters") << "en_US" << "abc" << kNone;
        QTest::newRow("us two points") << "en_US" << "1.2.3" << kNone;
        QTest::newRow("us symbol only") << "en_US" << "$" << kNone;
        QTest::newRow("us symbol twice") << "en_US" << "$$1" << kNone;
        QTest::newRow("us misplaced group") << "en_US" << "1,23" << kNone;
        QTest::newRow("us double negative") << "en_US" << "(-1.50)" << kNone;
        QTest::newRow("us inner minus") << "en_US" << "1-2" << kNone;
        QTest::newRow("us exponent") << "en_US" << "1e3" << kNone;
        QTest::newRow("german negative") << "de_DE" << QStringLiteral(u"-1,50 €") << qint64(-15000);
        QTest::newRow("german comma") << "de_DE" << "1,5" << qint64(15000);
        QTest::newRow("german period as decimal") << "de_DE" << "3.5" << qint64(35000);
        QTest::newRow("german groups without decimals") << "de_DE" << "1.234.567" << qint64(12345670000);
        QTest::newRow("german bad groups") << "de_DE" << "1.2.3" << kNone;
        QTest::newRow("french typed space") << "fr_FR" << "1 234,50" << qint64(12345000);
        QTest::newRow("french parentheses") << "fr_FR" << QStringLiteral(u"(1,50 €)") << qint64(-15000);
        QTest::newRow("swedish minus sign") << "sv_SE" << QStringLiteral(u"\u22121,50 kr") << qint64(-15000);
        QTest::newRow("arabic digits") << "ar_EG" << QStringLiteral(u"١٬٢٣٤٫٥٠") << qint64(12345000);
    }

    void parse()
    {
        QFETCH(QString, locale);
        QFETCH(QString, text);
        QFETCH(qint64, expected);
        const std::optional<Currency> c = Currency::parse(text, QLocale(locale));
        if (expected == kNone) {
            QVERIFY2(!c, qPrintable(c ? c->toSqlText() : QString()));
        } else {
            QVERIFY(c);
            QCOMPARE(c->tenThousandths(), expected);
        }
    }

    void roundTrip_data()
    {
        QTest::addColumn<QString>("locale");
        for (const char *name : {"en_US", "en_GB", "de_DE", "fr_FR", "de_CH", "nl_NL", "sv_SE", "pt_BR", "hi_IN",
                                 "ja_JP", "ar_EG", "C"})
            QTest::newRow(name) << QString::fromLatin1(name);
    }

    // Where a double carries the value exactly, our own digits match Qt's currency text; and
    // whatever format writes for a value in whole cents, parse reads back to the same value.
    void roundTrip()
    {
        QFETCH(QString, locale);
        const QLocale l(locale);
        // US English alone puts negatives in parentheses, where Qt writes a minus.
        for (double v : {0.0, 0.05, 1234.5, -1.5, -1234567.89, 98765432.1})
            if (locale != u"en_US")
                QCOMPARE(Currency::fromDouble(v).format(l), l.toCurrencyString(v, QString(), 2));
        QList<qint64> cents = {0, 1, -1, 99, -100, 150, 123450, -99999999, 100000001, 922337203685477, kMax / 100,
                               kMin / 100};
        QRandomGenerator random(1234);
        for (int i = 0; i < 2000; ++i)
            cents.append(qint64(random.generate64() >> (1 + i % 60)) * (i % 2 ? 1 : -1) / 100);
        for (qint64 cent : cents) {
            const Currency c = Currency::fromTenThousandths(cent * 100);
            const QString text = c.format(l);
            const std::optional<Currency> back = Currency::parse(text, l);
            QVERIFY2(back, qPrintable(text));
            QCOMPARE(back->tenThousandths(), c.tenThousandths());
        }
    }

    void cLocaleMeansUsEnglish()
    {
        if (QLocale::system().name() != QLatin1String("C"))
            QSKIP("the test runs with LC_ALL=C.UTF-8");
        QCOMPARE(Currency::currencyLocale().name(), QStringLiteral("en_US"));
        QCOMPARE(Currency::fromTenThousandths(-12345000).format(), QStringLiteral("($1,234.50)"));
        QCOMPARE(Currency::parse(QStringLiteral("($1,234.50)")), Currency::fromTenThousandths(-12345000));
    }
};

QTEST_GUILESS_MAIN(tst_Currency)
#include "tst_currency.moc"
