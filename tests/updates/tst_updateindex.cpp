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

    // The fields of a line: date, "D" or "P", URL, name, description.
    void parseLine_data()
    {
        QTest::addColumn<QString>("line");
        QTest::addColumn<QStringList>("fields");
        QTest::newRow("drinks") << "3/14/2026 D 12 http://h/s.cvx Spring drinks | New for spring"
                                << QStringList{"2026-03-14", "D", "http://h/s.cvx", "Spring drinks", "New for spring"};
        QTest::newRow("pictures") << "2026-03-14 P x http://h/p.zip Pics|Forty"
                                  << QStringList{"2026-03-14", "P", "http://h/p.zip", "Pics", "Forty"};
        QTest::newRow("type is exact") << "1/2/2026 d x u N|" << QStringList{"2026-01-02", "P", "u", "N", ""};
        QTest::newRow("no bar: name to the end")
            << "1/2/2026 D x u The rest" << QStringList{"2026-01-02", "D", "u", "The rest", ""};
        QTest::newRow("only the first bar splits")
            << "1/2/26 D x u A|b|c" << QStringList{"2026-01-02", "D", "u", "A", "b|c"};
        QTest::newRow("bad date") << "Someday D x u Name|d" << QStringList{"1900-01-01", "D", "u", "Name", "d"};
        QTest::newRow("two blanks shift the fields")
            << "1/2/2026  D x u N|d" << QStringList{"2026-01-02", "P", "x", "u N", "d"};
        QTest::newRow("empty name") << "1/2/2026 D x u  | only text"
                                    << QStringList{"2026-01-02", "D", "u", "", "only text"};
        QTest::newRow("garbage") << "#&!garbage" << QStringList{"1900-01-01", "P", "", "", ""};
        QTest::newRow("accents and quotes kept")
            << "1/2/2026 D x u Caf\u00e9 \"Ol\u00e9\" | it's \U0001F378"
            << QStringList{"2026-01-02", "D", "u", "Caf\u00e9 \"Ol\u00e9\"", "it's \U0001F378"};
    }
    void parseLine()
    {
        QFETCH(QString, line);
        const UpdateEntry e = UpdateIndex::parseLine(line);
        QTEST((QStringList{e.date.toString(Qt::ISODate), e.recipes ? "D" : "P", e.url, e.name, e.description}),
              "fields");
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
        QStringList rows;
        for (const UpdateRow &r : UpdateIndex::load(t.store()))
            rows << QStringList{r.date.toString(Qt::ISODate),
                                r.recipes ? "D" : "P",
                                r.url,
                                r.name,
                                r.description,
                                r.status}
                        .join(u'~');
        QCOMPARE(rows, (QStringList{"2026-01-01~D~http://h/a.cvx~Alpha~first~Complete",
                                    "2026-01-01~P~http://h/b.zip~Beta~pictures~Available",
                                    "1900-01-01~D~http://h/g.cvx~Gamma\u00e9~new~Available"}));
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
