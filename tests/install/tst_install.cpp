// `cmake --install` into a temporary prefix: the files where the desktop looks for them, the
// desktop entry, icons, metainfo and file type agreeing with each other and passing the
// desktop's own validators, and the installed programs finding their delivered data.
#include "TestFiles.h"

#include <QDirIterator>
#include <QImage>
#include <QProcess>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QXmlStreamReader>
#include <QtTest>

namespace {
const QString kId = QStringLiteral("org.corvane.Corvane");
const QString kMimeType = QStringLiteral("application/x-corvane-exchange");

struct Run {
    int exitCode = -1;
    QString output;
};

Run run(const QString &program, const QStringList &args,
        const QProcessEnvironment &env = QProcessEnvironment::systemEnvironment())
{
    QProcess p;
    p.setProcessEnvironment(env);
    p.setProcessChannelMode(QProcess::MergedChannels);
    p.start(program, args);
    if (!p.waitForFinished(240000))
        p.kill();
    return {p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -1, QString::fromUtf8(p.readAll())};
}

// The keys of the desktop entry's main group.
QHash<QString, QString> desktopEntry(const QString &path)
{
    QHash<QString, QString> keys;
    bool inMain = false;
    for (const QByteArray &line : readFile(path).split('\n')) {
        if (line.startsWith('['))
            inMain = line.trimmed() == "[Desktop Entry]";
        else if (inMain && line.contains('='))
            keys.insert(QString::fromUtf8(line.left(line.indexOf('='))).trimmed(),
                        QString::fromUtf8(line.mid(line.indexOf('=') + 1)).trimmed());
    }
    return keys;
}

// Every "element" text and "element@attribute" value of an XML file, in document order.
QMultiHash<QString, QString> xmlValues(const QString &path)
{
    QMultiHash<QString, QString> values;
    QXmlStreamReader xml(readFile(path));
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        const QString name = xml.name().toString();
        for (const QXmlStreamAttribute &a : xml.attributes())
            values.insert(name + u'@' + a.name().toString(), a.value().toString());
        if (name == u"id" || name == u"launchable" || name == u"mediatype" || name == u"binary")
            values.insert(name, xml.readElementText());
    }
    return values;
}

// The environment of a user who has never started the program.
QProcessEnvironment newUser(const QString &home)
{
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.remove(QStringLiteral("CORVANE_DATA_DIR"));
    env.remove(QStringLiteral("CORVANE_HOME"));
    env.insert(QStringLiteral("HOME"), home);
    env.insert(QStringLiteral("XDG_DATA_HOME"), home + QStringLiteral("/.local/share"));
    env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    return env;
}
} // namespace

class tst_Install : public QObject {
    Q_OBJECT
  private slots:
    void initTestCase();
    void installedFiles_data();
    void installedFiles();
    void deliveredDataComplete();
    void desktopFilesAgree();
    void validators_data();
    void validators();
    void exchangeFilesHaveTheirType();
    void windowFillsNewApplicationDirectory();
    void cliListsTheBook();

  private:
    QString installed(const QString &relative) const { return m_prefix.filePath(relative); }
    QTemporaryDir m_prefix;
    QTemporaryDir m_home;
};

void tst_Install::initTestCase()
{
    QVERIFY(m_prefix.isValid() && m_home.isValid());
    const Run r = run(QStringLiteral(CORVANE_CMAKE), {QStringLiteral("--install"), QStringLiteral(CORVANE_BUILD_DIR),
                                                      QStringLiteral("--prefix"), m_prefix.path()});
    QVERIFY2(r.exitCode == 0, qPrintable(r.output));
}

void tst_Install::installedFiles_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<int>("iconSize"); // a PNG of that size; 0 for another file
    QTest::newRow("program") << "bin/corvane" << 0;
    QTest::newRow("book") << "share/corvane/drinks.db" << 0;
    QTest::newRow("template") << "share/corvane/Templates/Standard.cvt" << 0;
    QTest::newRow("menu entry") << "share/applications/" + kId + ".desktop" << 0;
    QTest::newRow("metainfo") << "share/metainfo/" + kId + ".metainfo.xml" << 0;
    QTest::newRow("file type") << "share/mime/packages/" + kId + ".xml" << 0;
    QTest::newRow("scalable icon") << "share/icons/hicolor/scalable/apps/" + kId + ".svg" << 0;
    for (const int size : {16, 32, 48, 256})
        QTest::addRow("icon %d", size) << QStringLiteral("share/icons/hicolor/%1x%1/apps/%2.png").arg(size).arg(kId)
                                       << size;
    QTest::newRow("copyright") << "share/doc/corvane/copyright" << 0;
    QTest::newRow("change log") << "share/doc/corvane/changelog.gz" << 0;
    QTest::newRow("manual page") << "share/man/man1/corvane.1.gz" << 0;
}

void tst_Install::installedFiles()
{
    QFETCH(QString, path);
    QFETCH(int, iconSize);
    const QFileInfo file(installed(path));
    QVERIFY2(file.isFile() && file.size() > 0, qPrintable(path));
    if (path.startsWith(u"bin/"))
        QVERIFY(file.isExecutable());
    if (iconSize) {
        const QImage icon(file.filePath());
        QCOMPARE(icon.size(), QSize(iconSize, iconSize));
        QVERIFY(icon.hasAlphaChannel());
    }
}

void tst_Install::deliveredDataComplete()
{
    const QString built = QStringLiteral(CORVANE_BUILD_DIR "/data");
    QDirIterator it(built, QDir::Files, QDirIterator::Subdirectories);
    int files = 0;
    while (it.hasNext()) {
        const QFileInfo source(it.next());
        const QString relative = QDir(built).relativeFilePath(source.filePath());
        QCOMPARE(QFileInfo(installed(QStringLiteral("share/corvane/") + relative)).size(), source.size());
        ++files;
    }
    QVERIFY(files > 20);
}

void tst_Install::desktopFilesAgree()
{
    const auto entry =
        desktopEntry(installed(QStringLiteral("share/applications/") + kId + QStringLiteral(".desktop")));
    // The menu starts the installed program and hands it the file opened.
    const QStringList exec = entry.value(QStringLiteral("Exec")).split(u' ');
    QCOMPARE(exec.value(1), QStringLiteral("%f"));
    QVERIFY(QFileInfo(installed(QStringLiteral("bin/") + exec.value(0))).isExecutable());
    QCOMPARE(entry.value(QStringLiteral("Icon")), kId);
    QVERIFY(entry.value(QStringLiteral("MimeType")).split(u';').contains(kMimeType));

    const auto mime = xmlValues(installed(QStringLiteral("share/mime/packages/") + kId + QStringLiteral(".xml")));
    QCOMPARE(mime.value(QStringLiteral("mime-type@type")), kMimeType);
    QCOMPARE(mime.value(QStringLiteral("glob@pattern")), QStringLiteral("*.cvx"));
    QCOMPARE(mime.value(QStringLiteral("match@value")), QStringLiteral("Corvane Drink Exchange File"));

    const auto meta = xmlValues(installed(QStringLiteral("share/metainfo/") + kId + QStringLiteral(".metainfo.xml")));
    QCOMPARE(meta.value(QStringLiteral("id")), kId);
    QCOMPARE(meta.value(QStringLiteral("launchable")), kId + QStringLiteral(".desktop"));
    QCOMPARE(meta.value(QStringLiteral("mediatype")), kMimeType);
    QVERIFY(meta.values(QStringLiteral("binary")).contains(exec.value(0)));
}

void tst_Install::validators_data()
{
    QTest::addColumn<QString>("tool");
    QTest::addColumn<QString>("package");
    QTest::addColumn<QStringList>("args");
    QTest::newRow("desktop entry") << "desktop-file-validate"
                                   << "desktop-file-utils"
                                   << QStringList{installed(QStringLiteral("share/applications/") + kId +
                                                            QStringLiteral(".desktop"))};
    QTest::newRow("metainfo") << "appstreamcli"
                              << "appstream"
                              << QStringList{QStringLiteral("validate"), QStringLiteral("--no-net"),
                                             installed(QStringLiteral("share/metainfo/") + kId +
                                                       QStringLiteral(".metainfo.xml"))};
    QTest::newRow("file type") << "xmllint"
                               << "libxml2-utils"
                               << QStringList{
                                      QStringLiteral("--noout"),
                                      installed(QStringLiteral("share/mime/packages/") + kId + QStringLiteral(".xml"))};
}

void tst_Install::validators()
{
    QFETCH(QString, tool);
    QFETCH(QString, package);
    QFETCH(QStringList, args);
    const QString program = QStandardPaths::findExecutable(tool);
    if (program.isEmpty())
        QSKIP(qPrintable(QStringLiteral("%1 is not installed (Debian package %2, which scripts/install-deps installs)")
                             .arg(tool, package)));
    const Run r = run(program, args);
    QVERIFY2(r.exitCode == 0, qPrintable(r.output));
}

void tst_Install::exchangeFilesHaveTheirType()
{
    const QString program = QStandardPaths::findExecutable(QStringLiteral("update-mime-database"));
    if (program.isEmpty())
        QSKIP("update-mime-database is not installed (Debian package shared-mime-info, which scripts/install-deps "
              "installs)");
    // The desktop's file type database built from what was installed knows our files by name and content.
    const Run r = run(program, {installed(QStringLiteral("share/mime"))});
    QVERIFY2(r.exitCode == 0, qPrintable(r.output));
    QVERIFY(readFile(installed(QStringLiteral("share/mime/globs2"))).contains(":" + kMimeType.toUtf8() + ":*.cvx"));
    QVERIFY(readFile(installed(QStringLiteral("share/mime/magic"))).contains("Corvane Drink Exchange File"));
}

void tst_Install::windowFillsNewApplicationDirectory()
{
    // A new user's first start fills the default application directory from the installed data.
    const QString appDir = m_home.filePath(QStringLiteral("window/.local/share/corvane"));
    QProcess window;
    window.setProcessEnvironment(newUser(m_home.filePath(QStringLiteral("window"))));
    window.start(installed(QStringLiteral("bin/corvane")), {});
    QVERIFY(window.waitForStarted());
    QTRY_VERIFY_WITH_TIMEOUT(
        QFileInfo::exists(appDir + QStringLiteral("/drinks.db")) || window.state() == QProcess::NotRunning, 60000);
    QCOMPARE(window.state(), QProcess::Running);
    window.terminate(); // ends as "Exit" does
    QVERIFY(window.waitForFinished(30000));
    QCOMPARE(QFileInfo(appDir + QStringLiteral("/drinks.db")).size(),
             QFileInfo(installed(QStringLiteral("share/corvane/drinks.db"))).size());
    QVERIFY(QFileInfo::exists(appDir + QStringLiteral("/Templates/Standard.cvt")));
}

void tst_Install::cliListsTheBook()
{
    const QString cli = installed(QStringLiteral("bin/corvane-cli"));
    if (!QFileInfo::exists(cli))
        QSKIP("corvane-cli is not built in this tree, so it was not installed; its listing was not checked");
    qint64 drinks = 0;
    {
        auto db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("delivered"));
        db.setDatabaseName(installed(QStringLiteral("share/corvane/drinks.db")));
        db.setConnectOptions(QStringLiteral("QSQLITE_OPEN_READONLY"));
        QVERIFY(db.open());
        QSqlQuery q(QStringLiteral("SELECT COUNT(*) FROM Drinks NOT INDEXED"), db);
        QVERIFY(q.next());
        drinks = q.value(0).toLongLong();
    }
    QSqlDatabase::removeDatabase(QStringLiteral("delivered"));
    const QString home = m_home.filePath(QStringLiteral("cli"));
    QProcessEnvironment env = newUser(home);
    env.insert(QStringLiteral("CORVANE_HOME"), home + QStringLiteral("/book"));
    const Run r = run(cli, {QStringLiteral("list"), QStringLiteral("--view"), QStringLiteral("all")}, env);
    QVERIFY2(r.exitCode == 0, qPrintable(r.output));
    QCOMPARE(r.output.split(u'\n', Qt::SkipEmptyParts).size(), drinks);
    QVERIFY(r.output.contains(QStringLiteral("Gimlet")));
    QVERIFY(QFileInfo::exists(home + QStringLiteral("/book/drinks.db")));
}

QTEST_GUILESS_MAIN(tst_Install)
#include "tst_install.moc"
