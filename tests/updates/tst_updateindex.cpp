#include "PackageZip.h"
#include "TestFiles.h"
#include "TestStore.h"

#include "presentation/ArchivePasswords.h"
#include "presentation/ZipArchive.h"
#include "store/DrinkStore.h"
#include "updates/PicturePackage.h"
#include "updates/UpdateIndex.h"

#include <QtTest>

namespace {
const QString kPassword = QString::fromLatin1(ArchivePasswords::ImageArchive);

// A zip with these members and contents, under the given password.
void writeZip(const QString &path, const QStringList &members, const QString &password = kPassword)
{
    ZipArchive zip;
    QVERIFY(zip.open(path, password, ZipArchive::Replace));
    for (const QString &member : members)
        QVERIFY(zip.addData(member, "picture of " + member.toUtf8()));
    QVERIFY(zip.commit());
}

QStringList column(DrinkStore &store, const QString &sql)
{
    QStringList values;
    QSqlQuery query = store.select(sql);
    while (query.next())
        values << query.value(0).toString();
    return values;
}
} // namespace

class UpdateIndexTest : public QObject {
    Q_OBJECT
  private slots:
    void lines_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QStringList>("lines");
        QTest::newRow("CR LF") << "a b\r\nc\r\n" << QStringList{"a b", "c"};
        QTest::newRow("last line without end not taken") << "a\r\nb" << QStringList{"a"};
        QTest::newRow("run of control characters is one end") << "a\r\n\r\n\t\nb\tc\n" << QStringList{"a", "b", "c"};
        QTest::newRow("leading end gives an empty line") << "\r\na\n" << QStringList{"", "a"};
        QTest::newRow("empty") << "" << QStringList{};
    }
    void lines()
    {
        QFETCH(QString, text);
        QFETCH(QStringList, lines);
        QCOMPARE(UpdateIndex::lines(text), lines);
    }

    void parseLine_data()
    {
        QTest::addColumn<QString>("line");
        QTest::addColumn<QDate>("date");
        QTest::addColumn<bool>("recipes");
        QTest::addColumn<QString>("url");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("description");
        const QDate none(1900, 1, 1);
        QTest::newRow("drinks") << "3/14/2026 D 12 http://h/CVX/spring.cvx Spring drinks | New for spring"
                                << QDate(2026, 3, 14) << true << "http://h/CVX/spring.cvx"
                                << "Spring drinks"
                                << "New for spring";
        QTest::newRow("pictures") << "2026-03-14 P x http://h/p.zip Pics|Forty pictures" << QDate(2026, 3, 14) << false
                                  << "http://h/p.zip"
                                  << "Pics"
                                  << "Forty pictures";
        QTest::newRow("type is exact") << "1/2/2026 d x u N|" << QDate(2026, 1, 2) << false << "u"
                                       << "N"
                                       << "";
        QTest::newRow("no bar: name to the end") << "1/2/2026 D x u The whole rest" << QDate(2026, 1, 2) << true << "u"
                                                 << "The whole rest"
                                                 << "";
        QTest::newRow("only the first bar splits") << "1/2/26 D x u A|b|c" << QDate(2026, 1, 2) << true << "u"
                                                   << "A"
                                                   << "b|c";
        QTest::newRow("bad date") << "Someday D x u Name|d" << none << true << "u"
                                  << "Name"
                                  << "d";
        QTest::newRow("two blanks shift the fields") << "1/2/2026  D x u N|d" << QDate(2026, 1, 2) << false << "x"
                                                     << "u N"
                                                     << "d";
        QTest::newRow("empty name") << "1/2/2026 D x u  | only a description" << QDate(2026, 1, 2) << true << "u"
                                    << ""
                                    << "only a description";
        QTest::newRow("garbage") << "#&!garbage" << none << false << ""
                                 << ""
                                 << "";
        QTest::newRow("accents and quotes kept")
            << "1/2/2026 D x u Caf\u00e9 \"Ol\u00e9\" | it's \U0001F378" << QDate(2026, 1, 2) << true << "u"
            << "Caf\u00e9 \"Ol\u00e9\""
            << "it's \U0001F378";
    }
    void parseLine()
    {
        QFETCH(QString, line);
        const UpdateEntry entry = UpdateIndex::parseLine(line);
        QTEST(entry.date, "date");
        QTEST(entry.recipes, "recipes");
        QTEST(entry.url, "url");
        QTEST(entry.name, "name");
        QTEST(entry.description, "description");
    }

    void mergeKeepsKnownUpdates()
    {
        TestStore t;
        const QByteArray first = "1/1/2026 D x http://h/a.cvx Alpha|first\r\n"
                                 "nonsense\r\n"
                                 "1/1/2026 P x http://h/b.zip Beta|pictures\r\n"
                                 "1/1/2026 D x http://h/c.cvx Cut off";
        QCOMPARE(UpdateIndex::merge(t.store(), UpdateIndex::parse(first)), 2);
        UpdateIndex::markComplete(t.store(), QStringLiteral("http://h/a.cvx"));
        // The same names again, one in other case and with a new URL: nothing changes.
        const QByteArray second = "2/2/2026 D x http://h/a2.cvx ALPHA|changed\r\n"
                                  "1/1/2026 P x http://h/b.zip Beta|pictures\r\n"
                                  "bad-date D x http://h/g.cvx Gamma\xe9|new\r\n";
        QCOMPARE(UpdateIndex::merge(t.store(), UpdateIndex::parse(second)), 1);
        const QList<UpdateRow> rows = UpdateIndex::load(t.store());
        QCOMPARE(rows.size(), 3);
        QCOMPARE(rows[0].name, "Alpha");
        QCOMPARE(rows[0].description, "first");
        QCOMPARE(rows[0].url, "http://h/a.cvx");
        QCOMPARE(rows[0].status, "Complete");
        QCOMPARE(rows[1].status, "Available");
        QVERIFY(!rows[1].recipes);
        QCOMPARE(rows[2].name, QString::fromUtf8("Gamma\u00e9"));
        QCOMPARE(rows[2].date, QDate(1900, 1, 1));
        QVERIFY(rows[2].recipes);
    }

    void pictureFileName_data()
    {
        QTest::addColumn<QString>("member");
        QTest::addColumn<QString>("fileName");
        QTest::newRow("in a folder") << "pics/000123.jpg"
                                     << "000123.jpg";
        QTest::newRow("upper case") << "pics/000123.JPG"
                                    << "000123.JPG";
        QTest::newRow("at the root") << "000123.jpg"
                                     << "";
        QTest::newRow("not a jpeg") << "pics/000123.gif"
                                    << "";
        QTest::newRow("too short") << ".jpg"
                                   << "";
        QTest::newRow("folder entry") << "pics/"
                                      << "";
    }
    void pictureFileName()
    {
        QFETCH(QString, member);
        QTEST(PicturePackage::pictureFileName(member), "fileName");
    }

    void picturesAddedOrReplaced()
    {
        TestStore t(QStringLiteral("INSERT INTO Drinks (ID, Name, ImageFilePath) VALUES (1, 'One', ''), (2, 'Two', "
                                   "'old'), (12, 'Twelve', '000012');"));
        const QString archive = t.appDir() + "/Corvane.cvi";
        writeZip(archive, {"000002.jpg", "000009.jpg"});
        const QString package = t.appDir() + "/pics.zip";
        QVERIFY(
            writeFile(package, packageZip({"pics/", "pics/000001.jpg", "pics/000002.JPG", "000003.jpg", "pics/abc.jpg",
                                           "pics/000004.jpg", "pics/readme.txt", "pics/12.jpg", "pics/000000.jpg"})));
        const PicturePackage::Result result = PicturePackage::import(t.store(), package, archive);
        QCOMPARE(result.message, QString());
        QCOMPARE(result.imagesAdded, 3); // 1, 2 and 4; drink 4 does not exist
        ZipArchive check;
        QVERIFY(check.open(archive, kPassword));
        QStringList names = check.memberNames();
        names.sort(Qt::CaseInsensitive);
        QCOMPARE(names, (QStringList{"000001.jpg", "000002.jpg", "000004.jpg", "000009.jpg"}));
        QByteArray data;
        QCOMPARE(check.read("000002.jpg", &data), 0);
        QCOMPARE(data, "picture of pics/000002.JPG");
        QCOMPARE(column(t.store(), "SELECT ImageFilePath FROM Drinks ORDER BY ID"),
                 (QStringList{"000001", "000002", "000012"}));
    }

    void badPackageChangesNothing_data()
    {
        QTest::addColumn<int>("kind");
        QTest::newRow("not a zip") << 0;
        QTest::newRow("wrong password") << 1;
        QTest::newRow("cut in half") << 2;
        QTest::newRow("missing") << 3;
    }
    void badPackageChangesNothing()
    {
        QFETCH(int, kind);
        TestStore t(QStringLiteral("INSERT INTO Drinks (ID, Name, ImageFilePath) VALUES (1, 'One', 'keep');"));
        const QString archive = t.appDir() + "/Corvane.cvi";
        writeZip(archive, {"000009.jpg"});
        const QByteArray archiveBefore = readFile(archive);
        const QString package = t.appDir() + "/pics.zip";
        if (kind == 0)
            QVERIFY(writeFile(package, "1/1/2026 this is no zip\r\n"));
        if (kind == 1)
            QVERIFY(writeFile(package, packageZip({"pics/000001.jpg"}, "other7x")));
        if (kind == 2) {
            const QByteArray whole = packageZip({"pics/000001.jpg"});
            QVERIFY(whole.size() > 40);
            QVERIFY(writeFile(package, whole.chopped(40)));
        }
        const PicturePackage::Result result = PicturePackage::import(t.store(), package, archive);
        QCOMPARE(result.message, PicturePackage::corruptMessage());
        QCOMPARE(readFile(archive), archiveBefore);
        QCOMPARE(column(t.store(), "SELECT ImageFilePath FROM Drinks"), QStringList{"keep"});
    }
};

QTEST_GUILESS_MAIN(UpdateIndexTest)
#include "tst_updateindex.moc"
