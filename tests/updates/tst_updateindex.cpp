#include "PackageZip.h"
#include "TestFiles.h"
#include "TestStore.h"

#include "store/DrinkStore.h"
#include "updates/PicturePackage.h"
#include "updates/UpdateIndex.h"

#include <QtTest>

class UpdateIndexTest : public QObject {
    Q_OBJECT
  private slots:
    // A run of control characters, tabs among them, is one line end; a last line without one is lost.
    void lines() { QCOMPARE(UpdateIndex::lines("a\r\n\r\n\t\nb\tc\nd"), (QStringList{"a", "b", "c"})); }

    // The fields of a line: date, "D" or "P", URL, name, description.
    void parseLine_data()
    {
        QTest::addColumn<QString>("line");
        QTest::addColumn<QStringList>("fields");
        QTest::newRow("date as year first; type is exact")
            << "2026-03-14 d x u N|" << QStringList{"2026-03-14", "P", "u", "N", ""};
        QTest::newRow("no bar: name to the end")
            << "1/2/2026 D x u The rest" << QStringList{"2026-01-02", "D", "u", "The rest", ""};
        QTest::newRow("only the first bar splits; accents and quotes kept")
            << "1/2/26 D x u Caf\u00e9 \"Ol\u00e9\" | b|it's \U0001F378"
            << QStringList{"2026-01-02", "D", "u", "Caf\u00e9 \"Ol\u00e9\"", "b|it's \U0001F378"};
        QTest::newRow("two blanks shift the fields")
            << "1/2/2026  D x u N|d" << QStringList{"2026-01-02", "P", "x", "u N", "d"};
        QTest::newRow("empty name") << "1/2/2026 D x u  | only text"
                                    << QStringList{"2026-01-02", "D", "u", "", "only text"};
        QTest::newRow("garbage") << "#&!garbage" << QStringList{"1900-01-01", "P", "", "", ""};
    }
    void parseLine()
    {
        QFETCH(QString, line);
        const UpdateEntry e = UpdateIndex::parseLine(line);
        QTEST((QStringList{e.date.toString(Qt::ISODate), e.recipes ? "D" : "P", e.url, e.name, e.description}),
              "fields");
    }

    void badPackageChangesNothing_data()
    {
        QTest::addColumn<QByteArray>("package");
        QTest::newRow("wrong password") << packageZip({"pics/000001.jpg"}, "other7x");
        QTest::newRow("cut short") << packageZip({"pics/000001.jpg"}).chopped(40);
    }
    void badPackageChangesNothing()
    {
        QFETCH(QByteArray, package);
        TestStore t(QStringLiteral("INSERT INTO Drinks (ID, Name, ImageFilePath) VALUES (1, 'One', 'keep');"));
        const QString archive = t.appDir() + "/Corvane.cvi";
        QVERIFY(writeFile(archive, packageZip({"000009.jpg"})));
        const QString path = t.appDir() + "/pics.zip";
        QVERIFY(writeFile(path, package));
        const QByteArray archiveBefore = readFile(archive);
        QCOMPARE(PicturePackage::import(t.store(), path, archive).message, PicturePackage::corruptMessage());
        QCOMPARE(readFile(archive), archiveBefore);
        QCOMPARE(t.store().scalar("SELECT ImageFilePath FROM Drinks").toString(), "keep");
    }
};

QTEST_GUILESS_MAIN(UpdateIndexTest)
#include "tst_updateindex.moc"
