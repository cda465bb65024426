// The drink page: tokens, sections, colours, pictures and the page's files.
#include "TestFiles.h"
#include "ShownDrinks.h"
#include "TestStore.h"
#include "base/Cp1252.h"
#include "base/modCorvane.h"
#include "presentation/ArchivePasswords.h"
#include "presentation/CDrinkFacade.h"
#include "presentation/DrinkPage.h"
#include "presentation/PageFiles.h"
#include "presentation/ZipArchive.h"
#include "store/DrinkStore.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QtTest>

namespace {
// The test's scheme: every colour distinct, and not symmetric, so a swapped pair shows.
constexpr quint32 kBackground = 0xF0E0D0, kText = 0x010203, kHighlight = 0x0A0B0C, kAccent = 0x445566,
                  kMissing = 0x0000FF;

QRgb glassColor(int n)
{
    return qRgb(n * 10, 100, 200);
}

bool writeArchive(const QString &path, const QString &password, const QStringList &members)
{
    ZipArchive archive;
    if (!archive.open(path, password, ZipArchive::Replace))
        return false;
    for (const QString &member : members)
        if (!archive.addData(member, "picture " + member.toLatin1()))
            return false;
    return archive.commit();
}

} // namespace

class tst_DrinkPage : public QObject {
    Q_OBJECT
  private slots:
    // One store and one set of pictures for all tests; each test gets a new facade, the test's
    // scheme, and a directory without the files that pages leave behind.
    void initTestCase()
    {
        m_ts = std::make_unique<TestStore>(shownDrinksRows());
        // Pictures 1 and 24 only: transparent on the left, the glass's colour on the right.
        QVERIFY(QDir(m_ts->appDir()).mkpath(QStringLiteral("glass")));
        for (int n : {1, 24}) {
            QImage picture(4, 4, QImage::Format_ARGB32);
            picture.fill(Qt::transparent);
            for (int y = 0; y < 4; ++y)
                for (int x = 2; x < 4; ++x)
                    picture.setPixel(x, y, glassColor(n));
            QVERIFY(picture.save(QStringLiteral("%1/glass/%2.png").arg(m_ts->appDir()).arg(n, 2, 10, QChar(u'0'))));
        }
    }

    void init()
    {
        QDir dir(m_ts->appDir());
        const QStringList leftBehind{QStringLiteral("*.bmp"), QStringLiteral("*.jpg"), QStringLiteral("*.gif"),
                                     QStringLiteral("*.cvk"), QStringLiteral("*.glw")};
        for (const QString &name : dir.entryList(leftBehind, QDir::Files))
            QVERIFY(dir.remove(name));
        if (!dir.exists(QStringLiteral("Corvane.cvi")))
            QVERIFY(writeArchive(dir.filePath(QStringLiteral("Corvane.cvi")),
                                 QString::fromLatin1(ArchivePasswords::ImageArchive),
                                 {QStringLiteral("000123.jpg"), QStringLiteral("12345.jpg")}));
        setImage(5, QStringLiteral("000123"));

        m_facade = std::make_unique<CDrinkFacade>(m_ts->store(), m_ts->appDir());
        m_facade->setCurrentHTMLTemplateRoot(m_ts->appDir() + QStringLiteral("/Templates"));

        modCorvane::State &s = modCorvane::state();
        s = modCorvane::State{};
        s.schemeBackgroundColor = kBackground;
        s.schemeTextColor = kText;
        s.schemeHighlightColor = kHighlight;
        s.schemeAccentColor = kAccent;
        s.missingIngColor = kMissing;
    }

    void cleanup() { m_facade.reset(); }

    void everyToken()
    {
        const QStringList names =
            QStringLiteral("BackgroundColor TextColor HighlightColor AccentColor Name Recipe Garnish "
                           "Build Rating Comment Price Cost Glassware GlassImagePath DrinkImagePath "
                           "Marked MarkedImage Nope Ing Categories")
                .split(u' ');
        QString tmpl;
        for (const QString &name : names)
            tmpl += name + u'=' + QStringLiteral("!#!#") + name + QStringLiteral("!#!#\r\n");

        QCOMPARE(page(5, tmpl),
                 app(QStringLiteral("BackgroundColor=D0E0F0\r\nTextColor=030201\r\nHighlightColor=0C0B0A\r\n"
                                    "AccentColor=665544\r\nName=Daiquiri\r\nRecipe=Shake & strain.\r\n"
                                    "Garnish=Lime Wheel\r\nBuild=Shaken\r\nRating=Excellent\r\n"
                                    "Comment=Tart\r\nPrice=$4.25\r\nCost=$1.02\r\nGlassware=Coupe\r\n"
                                    "GlassImagePath=<app>/glassb.bmp\r\nDrinkImagePath=<app>/000123.jpg\r\n"
                                    "Marked=Marked\r\nMarkedImage=<app>/Templates/mrk.gif\r\n"
                                    "Nope=!#!#Nope!#!#\r\nIng=2 oz Light Rum<br>1 oz Lime Juice<br>\r\n"
                                    "Categories=Sours<br>Classic Cocktails<br>\r\n")));
        QCOMPARE(m_facade->currentDrinkID(), 5);

        QCOMPARE(page(6, tmpl),
                 app(QStringLiteral("BackgroundColor=D0E0F0\r\nTextColor=030201\r\nHighlightColor=0C0B0A\r\n"
                                    "AccentColor=665544\r\nName=A <b> & B\r\nRecipe=\r\n"
                                    "Garnish=&nbsp\r\nBuild=&nbsp\r\nRating=&nbsp\r\n"
                                    "Comment=\r\nPrice=$0.00\r\nCost=$0.00\r\nGlassware=Other Glass\r\n"
                                    "GlassImagePath=<app>/glassa.bmp\r\nDrinkImagePath=<app>/spacer.gif\r\n"
                                    "Marked=Not Marked\r\nMarkedImage=<app>/Templates/unmrk.gif\r\n"
                                    "Nope=!#!#Nope!#!#\r\nIng=&nbsp\r\nCategories=&nbsp\r\n")));
    }

    void tokens_data()
    {
        QTest::addColumn<int>("id");
        QTest::addColumn<QString>("tmpl");
        QTest::addColumn<QString>("expected");
        QTest::newRow("upper case") << 5 << "<h1>!#!#NAME!#!#</h1>" << "<h1>Daiquiri</h1>";
        QTest::newRow("every occurrence, any case") << 5 << "!#!#name!#!#/!#!#nAmE!#!#/!#!#Name!#!#"
                                                    << "Daiquiri/Daiquiri/Daiquiri";
        QTest::newRow("unknown and broken tokens kept") << 5 << "!#!#Drink!#!# !#!Name!#!# !#!#Name!# !#!#!#!#"
                                                        << "!#!#Drink!#!# !#!Name!#!# !#!#Name!# !#!#!#!#";
        // Name comes before Comment: a name holding a later token is filled again, not the reverse.
        QTest::newRow("replacement order") << 10 << "!#!#Name!#!#|!#!#Comment!#!#" << "!#!#Name!#!#|!#!#Name!#!#";
    }

    void tokens()
    {
        QFETCH(int, id);
        QFETCH(QString, tmpl);
        QFETCH(QString, expected);
        QCOMPARE(page(id, tmpl), app(expected));
    }

    void sections_data()
    {
        QTest::addColumn<int>("id");
        QTest::addColumn<bool>("metric");
        QTest::addColumn<bool>("missingColor");
        QTest::addColumn<QString>("tmpl");
        QTest::addColumn<QString>("expected");

        const QString ing = QStringLiteral("a<!-StartIng>[!#!#IngColor!#!#:!#!#Ing!#!#]<!-EndIng>b");
        QTest::newRow("rows, missing one coloured")
            << 5 << false << true << ing << "a<!-StartIng>[030201:2 oz Light Rum][FF0000:1 oz Lime Juice]b";
        QTest::newRow("metric amounts") << 5 << true << true << ing
                                        << "a<!-StartIng>[030201:6.0 cl Light Rum][FF0000:3.0 cl Lime Juice]b";
        QTest::newRow("missing colour off") << 5 << false << false << ing
                                            << "a<!-StartIng>[030201:2 oz Light Rum][030201:1 oz Lime Juice]b";
        QTest::newRow("markers at the very ends") << 5 << false << true << "<!-StartIng>!#!#Ing!#!#;<!-EndIng>"
                                                  << "<!-StartIng>2 oz Light Rum;1 oz Lime Juice;";
        QTest::newRow("markers in any case, as written") << 5 << false << true << "<!-STARTING>!#!#Ing!#!#;<!-ending>x"
                                                         << "<!-STARTING>2 oz Light Rum;1 oz Lime Juice;x";
        QTest::newRow("only the first section")
            << 5 << false << true << "<!-StartIng>(!#!#Ing!#!#)<!-EndIng>|<!-StartIng>!#!#Ing!#!#<!-EndIng>"
            << "<!-StartIng>(2 oz Light Rum)(1 oz Lime Juice)|<!-StartIng>!#!#Ing!#!#<!-EndIng>";
        QTest::newRow("no section: english, no colour")
            << 5 << true << true << "<!-StartIng>!#!#Ing!#!#|!#!#IngColor!#!#"
            << "<!-StartIng>2 oz Light Rum<br>1 oz Lime Juice<br>|!#!#IngColor!#!#";
        QTest::newRow("no ingredients keep the markers")
            << 6 << false << true << ing << "a<!-StartIng>[!#!#IngColor!#!#:&nbsp]<!-EndIng>b";
        QTest::newRow("end before start leaves the ingredients, categories go on")
            << 5 << false << true << "<!-EndIng>!#!#Ing!#!#<!-StartIng>|!#!#Categories!#!#"
            << "<!-EndIng>!#!#Ing!#!#<!-StartIng>|Sours<br>Classic Cocktails<br>";

        QTest::newRow("categories repeat their start marker")
            << 5 << false << true << "x<!-StartCat><i>!#!#Categories!#!#</i><!-EndCat>y"
            << "x<!-StartCat><i>Sours</i><!-StartCat><i>Classic Cocktails</i>y";
        QTest::newRow("category markers at the very ends")
            << 5 << false << true << "<!-startcat>!#!#Categories!#!#<!-ENDCAT>"
            << "<!-startcat>Sours<!-startcat>Classic Cocktails";
        QTest::newRow("no category section") << 5 << false << true << "<!-EndCat>!#!#Categories!#!#"
                                             << "<!-EndCat>Sours<br>Classic Cocktails<br>";
        QTest::newRow("no categories keep the markers")
            << 6 << false << true << "x<!-StartCat>!#!#Categories!#!#<!-EndCat>y"
            << "x<!-StartCat>&nbsp<!-EndCat>y";
        QTest::newRow("category end before start") << 5 << false << true << "<!-EndCat>!#!#Categories!#!#<!-StartCat>"
                                                   << "<!-EndCat>!#!#Categories!#!#<!-StartCat>";
    }

    void sections()
    {
        QFETCH(int, id);
        QFETCH(bool, metric);
        QFETCH(bool, missingColor);
        QFETCH(QString, tmpl);
        QFETCH(QString, expected);
        modCorvane::state().useMetric = metric;
        modCorvane::state().useMissingIngColor = missingColor;
        QCOMPARE(page(id, tmpl), expected);
    }

    void colorToHTML_data()
    {
        QTest::addColumn<quint32>("value");
        QTest::addColumn<QString>("html");
        QTest::addColumn<quint32>("after");
        // Without a GUI application the system colours take the platform's usual values.
        QTest::newRow("white") << 0xFFFFFFu << "FFFFFF" << 0xFFFFFFu;
        QTest::newRow("just out of range") << 0x1000000u << "FFFFFF" << 0xFFFFFFu;
        QTest::newRow("highlight") << 0x8000000Du << "0078D7" << 0xD77800u;
    }

    void colorToHTML()
    {
        QFETCH(quint32, value);
        QFETCH(QString, html);
        QFETCH(quint32, after);
        QCOMPARE(DrinkPage::ColorToHTML(value), html);
        QCOMPARE(value, after);
    }

    void colorsWrittenBack()
    {
        modCorvane::State &s = modCorvane::state();
        s.schemeTextColor = modCorvane::SysWindowText;
        s.schemeAccentColor = modCorvane::SysButtonShadow;
        s.missingIngColor = 0x80000005;
        QCOMPARE(page(5, QStringLiteral("!#!#AccentColor!#!#<!-StartIng>!#!#IngColor!#!#;<!-EndIng>")),
                 QStringLiteral("A0A0A0<!-StartIng>000000;FFFFFF;"));
        QCOMPARE(s.schemeTextColor, 0u);
        QCOMPARE(s.schemeAccentColor, 0xA0A0A0u);
        QCOMPARE(s.missingIngColor, 0xFFFFFFu);

        s.schemeBackgroundColor = modCorvane::SysButtonFace;
        QCOMPARE(m_facade->drinkAsHTML(0), QStringLiteral("<html><head><body bgcolor=\"#F0F0F0\">&nbsp</body></html>"));
        QCOMPARE(s.schemeBackgroundColor, 0xF0F0F0u);
    }

    void specialPages_data()
    {
        QTest::addColumn<int>("id");
        QTest::addColumn<QString>("tmpl");
        QTest::addColumn<QString>("expected");
        const QString blank = QStringLiteral("<html><head><body bgcolor=\"#D0E0F0\">&nbsp</body></html>");
        QTest::newRow("no selection") << 0 << "!#!#Name!#!#" << blank;
        QTest::newRow("unknown drink, no template") << 404 << "" << blank;
        QTest::newRow("no template")
            << 6 << ""
            << "<html><body bgcolor=\"#D0E0F0\"><h1 align=\"CENTER\"><font face=\"Arial, Helvetica, "
               "sans-serif\">A <b> & B</font></h1>Please select a template (Tools | "
               "Templates)</body></html>";
    }

    void specialPages()
    {
        QFETCH(int, id);
        QFETCH(QString, tmpl);
        QFETCH(QString, expected);
        QCOMPARE(page(id, tmpl), expected);
        // Neither page has a glass picture, so the turn does not move.
        QVERIFY(m_facade->nextGlassIsA);
        QVERIFY(!QFile::exists(m_ts->appDir() + QStringLiteral("/glassb.bmp")));
    }

    void glassFilesInTurns()
    {
        const QString a = m_ts->appDir() + QStringLiteral("/glassa.bmp"),
                      b = m_ts->appDir() + QStringLiteral("/glassb.bmp");
        QVERIFY(writeFile(a, QByteArray()));

        // The picture is written whether or not the template shows it.
        QCOMPARE(page(5, QStringLiteral("no glass here")), QStringLiteral("no glass here"));
        QVERIFY(!QFile::exists(a));
        QCOMPARE(QImage(b).pixel(3, 3), glassColor(1));

        QCOMPARE(m_facade->drinkAsHTML(5), QStringLiteral("no glass here"));
        QVERIFY(!QFile::exists(b));
        QCOMPARE(QImage(a).pixel(3, 3), glassColor(1));

        // No picture for glass 3: the page keeps its path, and no older glass stands in.
        QFile::copy(a, b);
        QCOMPARE(page(9, QStringLiteral("!#!#GlassImagePath!#!#")), b);
        QVERIFY(!QFile::exists(a));
        QVERIFY(!QFile::exists(b));
    }

    void glassNumber_data()
    {
        QTest::addColumn<int>("id");
        QTest::addColumn<int>("picture");
        QTest::addColumn<QString>("name");
        QTest::newRow("glass 1") << 5 << 1 << "Coupe";
        QTest::newRow("Null") << 6 << 24 << "Other Glass";
        QTest::newRow("0") << 7 << 24 << "Other Glass";
        QTest::newRow("25") << 8 << 24 << "Other Glass";
    }

    void glassNumber()
    {
        QFETCH(int, id);
        QFETCH(int, picture);
        QFETCH(QString, name);
        QCOMPARE(page(id, QStringLiteral("!#!#Glassware!#!#")), name);
        const QImage bitmap(m_ts->appDir() + QStringLiteral("/glassb.bmp"));
        QVERIFY(!bitmap.hasAlphaChannel());
        QCOMPARE(bitmap.size(), QSize(4, 4));
        QCOMPARE(bitmap.pixel(3, 0), glassColor(picture));
        QCOMPARE(bitmap.pixel(0, 0), qRgb(255, 255, 255)); // transparency lies on white
    }

    void drinkImage_data()
    {
        QTest::addColumn<QString>("value");
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("extracted");
        auto row = [](const char *name, const char *value, const char *path, const char *extracted) {
            QTest::newRow(name) << QString::fromLatin1(value) << QString::fromLatin1(path)
                                << QString::fromLatin1(extracted);
        };
        row("six digits from the archive", "000123", "<app>/000123.jpg", "000123.jpg");
        row("five digits are a path", "12345", "12345", "");
        row("six characters with a letter", "12a456", "12a456", "");
        row("a full path, unchecked", "/srv/pictures/sour.jpg", "/srv/pictures/sour.jpg", "");
        row("member missing", "000999", "<app>/spacer.gif", "");
        row("no picture", "", "<app>/spacer.gif", "");
    }

    void drinkImage()
    {
        QFETCH(QString, value);
        QFETCH(QString, path);
        QFETCH(QString, extracted);
        setImage(5, value);
        QCOMPARE(page(5, QStringLiteral("<img src=\"!#!#drinkimagepath!#!#\">")), app("<img src=\"" + path + "\">"));
        QCOMPARE(QFile::exists(m_ts->appDir() + QStringLiteral("/12345.jpg")), false);
        if (!extracted.isEmpty())
            QCOMPARE(readFile(m_ts->appDir() + u'/' + extracted), "picture " + extracted.toLatin1());
    }

    void drinkImageOnlyWhenAsked()
    {
        const QString picture = m_ts->appDir() + QStringLiteral("/000123.jpg");
        QCOMPARE(page(5, QStringLiteral("!#!#Name!#!#")), QStringLiteral("Daiquiri"));
        QVERIFY(!QFile::exists(picture));

        QVERIFY(QFile::remove(m_ts->appDir() + QStringLiteral("/Corvane.cvi")));
        QCOMPARE(page(5, QStringLiteral("!#!#DrinkImagePath!#!#")), app(QStringLiteral("<app>/spacer.gif")));
        QVERIFY(!QFile::exists(picture));
    }

    void pageFile()
    {
        const QString path = m_ts->appDir() + QStringLiteral("/corvane.cvk");
        QVERIFY(writeFile(path, "a longer page that was here before"));

        QString error;
        QCOMPARE(PageFiles::writePageFile(m_ts->appDir(), QString::fromUtf8("<p>Café € 1\r\n2</p>"), &error), path);
        QCOMPARE(readFile(path), QByteArray("<p>Caf\xe9 \x80 1\r\n2</p>\r\n"));
        QVERIFY(error.isEmpty());

        QCOMPARE(PageFiles::writePageFile(m_ts->appDir() + QStringLiteral("/no/such/dir"), QStringLiteral("x"), &error),
                 QString());
        QVERIFY(error.contains(QStringLiteral("corvane.cvk")));
    }

    void glassPicturePath_data()
    {
        QTest::addColumn<int>("glass");
        QTest::addColumn<bool>("archive");
        QTest::addColumn<QString>("path");
        QTest::newRow("one digit padded") << 7 << true << "<app>/07.gif";
        QTest::newRow("two digits") << 12 << true << "<app>/12.gif";
        QTest::newRow("three digits") << 123 << true << "<app>/123.gif";
        QTest::newRow("member missing") << 5 << true << "<app>/spacer.gif";
        QTest::newRow("archive missing") << 7 << false << "<app>/spacer.gif";
    }

    void glassPicturePath()
    {
        QFETCH(int, glass);
        QFETCH(bool, archive);
        QFETCH(QString, path);
        if (archive)
            QVERIFY(writeArchive(m_ts->appDir() + QStringLiteral("/corvane.glw"),
                                 QString::fromLatin1(ArchivePasswords::GlassArchive),
                                 {QStringLiteral("07.gif"), QStringLiteral("12.gif"), QStringLiteral("123.gif")}));
        QCOMPARE(PageFiles::GlassPicturePath(m_ts->appDir(), glass), app(path));
        if (!path.endsWith(QStringLiteral("spacer.gif")))
            QVERIFY(readFile(app(path)).startsWith("picture "));
    }

  private:
    QString page(int id, const QString &tmpl);
    QString app(QString text) const;
    void setImage(int id, const QString &value);

    std::unique_ptr<TestStore> m_ts;
    std::unique_ptr<CDrinkFacade> m_facade;
};

QString tst_DrinkPage::page(int id, const QString &tmpl)
{
    const QString path = m_ts->appDir() + QStringLiteral("/page.cvt");
    if (!writeFile(path, Cp1252::encode(tmpl)))
        return QStringLiteral("cannot write the template");
    m_facade->setCurrentHTMLTemplatePath(path);
    return m_facade->drinkAsHTML(id);
}

// Expected texts name the application directory "<app>".
QString tst_DrinkPage::app(QString text) const
{
    return text.replace(QStringLiteral("<app>"), m_ts->appDir());
}

void tst_DrinkPage::setImage(int id, const QString &value)
{
    QSqlQuery update = m_ts->store().prepare(QStringLiteral("UPDATE Drinks SET ImageFilePath = ? WHERE id = ?"));
    update.addBindValue(value);
    update.addBindValue(id);
    m_ts->store().exec(update);
}

QTEST_GUILESS_MAIN(tst_DrinkPage)
#include "tst_drinkpage.moc"
