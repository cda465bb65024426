// Finding the page templates below a directory, their names and descriptions.
#include "TestFiles.h"
#include "templates/TemplateScan.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

class tst_TemplateScan : public QObject {
    Q_OBJECT
private slots:
    void scanOrder();
    void description_data();
    void description();
};

void tst_TemplateScan::scanOrder()
{
    QTemporaryDir dir;
    const QString root = dir.path() + QStringLiteral("/Templates");
    for (const char *file :
         {"Standard.cvt", "b.CVT", ".cvt", "old.cvt.bak", "sub/z.cvt", "sub/deeper/Deep.Cvt", "asub/X.cvt"}) {
        const QString path = root + u'/' + QString::fromLatin1(file);
        QVERIFY(QDir().mkpath(QFileInfo(path).path()));
        QVERIFY(writeFile(path, "<html></html>"));
    }
    // A directory whose name looks like a template is no template.
    QVERIFY(QDir().mkpath(root + QStringLiteral("/dir.cvt")));

    TemplateList records;
    ScanTemplates(root, true, records);
    QStringList seen;
    for (const TemplateRecord &r : records) {
        QVERIFY(r.path.startsWith(root + u'/'));
        seen << r.path.mid(root.size() + 1) + u'=' + r.name;
    }
    // Names in any letter case, the files of a directory before its subdirectories.
    QCOMPARE(seen, (QStringList{".cvt=", "b.CVT=b", "Standard.cvt=Standard", "asub/X.cvt=X", "sub/z.cvt=z",
                                "sub/deeper/Deep.Cvt=Deep"}));
}

void tst_TemplateScan::description_data()
{
    QTest::addColumn<QByteArray>("bytes"); // "-": no file
    QTest::addColumn<QString>("expected");
    QTest::newRow("closed on a later line")
        << QByteArray("<meta name=\"description\" content=\"one\" />\r\n<p class=\"x\">two")
        << "one\" />\r\n<p class=\"x";
    QTest::newRow("any letter case, windows-1252")
        << QByteArray("<META NAME=\"Description\" CONTENT=\"Caf\xe9\">") << QStringLiteral("Caf\u00e9");
    QTest::newRow("unreadable") << QByteArray("-") << "";
}

void tst_TemplateScan::description()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, expected);
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("t.cvt"));
    if (bytes != "-")
        QVERIFY(writeFile(path, bytes));
    QCOMPARE(GetTemplateDescription(path), expected);
    // An unreadable template is still listed.
    TemplateList records;
    AddTemplate(path, records);
    QCOMPARE(records.size(), std::size_t(1));
    QCOMPARE(records[0].description, expected);
}

QTEST_GUILESS_MAIN(tst_TemplateScan)
#include "tst_templatescan.moc"
