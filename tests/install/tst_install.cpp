// `cmake --install` into a temporary prefix: the files where the desktop looks for them, passing
// the desktop's own validators, and the installed programs finding their delivered data.
#include "TestFiles.h"

#include <QImage>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>

namespace {
const QString kId = QStringLiteral("org.corvane.Corvane");

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

// A user who has never started the program, with the default application directory under home.
QProcessEnvironment newUser(const QString &home)
{
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    for (const char *name : {"CORVANE_DATA_DIR", "CORVANE_HOME", "XDG_DATA_HOME"})
        env.remove(QString::fromLatin1(name));
    env.insert(QStringLiteral("HOME"), home);
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
    void validators_data();
    void validators();
    void windowFillsNewApplicationDirectory();
    void cliListsTheBook();

  private:
    QString installed(const QString &relative) const { return m_prefix.filePath(relative); }
    QTemporaryDir m_prefix, m_home;
};

void tst_Install::initTestCase()
{
    const Run r = run(QStringLiteral(CORVANE_CMAKE), {QStringLiteral("--install"), QStringLiteral(CORVANE_BUILD_DIR),
                                                      QStringLiteral("--prefix"), m_prefix.path()});
    QVERIFY2(r.exitCode == 0, qPrintable(r.output));
}

void tst_Install::installedFiles_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QByteArrayList>("holds"); // texts the file must hold, so that the pieces name each other
    QTest::addColumn<int>("iconSize");         // a PNG of that size
    const QByteArray type = "application/x-corvane-exchange", id = kId.toUtf8();
    QTest::newRow("menu entry") << "share/applications/" + kId + ".desktop"
                                << QByteArrayList{"\nMimeType=" + type + ";\n", "\nExec=corvane %f\n",
                                                  "\nIcon=" + id + "\n"}
                                << 0;
    QTest::newRow("metainfo") << "share/metainfo/" + kId + ".metainfo.xml"
                              << QByteArrayList{">" + id + ".desktop</launchable>"} << 0;
    QTest::newRow("file type") << "share/mime/packages/" + kId + ".xml" << QByteArrayList{"type=\"" + type + "\""} << 0;
    QTest::newRow("scalable icon") << "share/icons/hicolor/scalable/apps/" + kId + ".svg" << QByteArrayList{"<svg"}
                                   << 0;
    for (const int size : {16, 32, 48, 256})
        QTest::addRow("icon %d", size) << QStringLiteral("share/icons/hicolor/%1x%1/apps/%2.png").arg(size).arg(kId)
                                       << QByteArrayList() << size;
    for (const char *doc : {"doc/corvane/copyright", "doc/corvane/changelog.gz", "man/man1/corvane.1.gz"})
        QTest::newRow(doc) << "share/" + QString::fromLatin1(doc) << QByteArrayList() << 0;
}

void tst_Install::installedFiles()
{
    QFETCH(QString, path);
    QFETCH(QByteArrayList, holds);
    QFETCH(int, iconSize);
    const QFileInfo file(installed(path));
    QVERIFY2(file.isFile() && file.size() > 0, qPrintable(path));
    QCOMPARE(file.isExecutable(), path.startsWith(u"bin/"));
    for (const QByteArray &text : holds)
        QVERIFY2(readFile(file.filePath()).contains(text), text.constData());
    if (iconSize)
        QCOMPARE(QImage(file.filePath()).size(), QSize(iconSize, iconSize));
}

void tst_Install::validators_data()
{
    QTest::addColumn<QString>("tool");
    QTest::addColumn<QStringList>("args");
    QTest::addColumn<QStringList>("results");  // files the tool writes,
    QTest::addColumn<QByteArrayList>("holds"); // and what each must hold
    QTest::newRow("menu entry") << "desktop-file-validate"
                                << QStringList{installed("share/applications/" + kId + ".desktop")} << QStringList()
                                << QByteArrayList();
    QTest::newRow("metainfo") << "appstreamcli"
                              << QStringList{"validate", "--no-net",
                                             installed("share/metainfo/" + kId + ".metainfo.xml")}
                              << QStringList() << QByteArrayList();
    // The file type database built from what was installed knows exchange files by name and content.
    QTest::newRow("file type") << "update-mime-database" << QStringList{installed("share/mime")}
                               << QStringList{installed("share/mime/globs2"), installed("share/mime/magic")}
                               << QByteArrayList{":application/x-corvane-exchange:*.cvx",
                                                 "Corvane Drink Exchange File"};
}

void tst_Install::validators()
{
    QFETCH(QString, tool);
    QFETCH(QStringList, args);
    QFETCH(QStringList, results);
    QFETCH(QByteArrayList, holds);
    const QString program = QStandardPaths::findExecutable(tool);
    if (program.isEmpty())
        QSKIP(qPrintable(tool + " is not installed (scripts/install-deps installs it)"));
    const Run r = run(program, args);
    QVERIFY2(r.exitCode == 0, qPrintable(r.output));
    for (qsizetype i = 0; i < results.size(); ++i)
        QVERIFY2(readFile(results[i]).contains(holds[i]), qPrintable(results[i]));
}

void tst_Install::windowFillsNewApplicationDirectory()
{
    const QString home = m_home.filePath(QStringLiteral("window"));
    const QString book = home + QStringLiteral("/.local/share/corvane/drinks.db");
    QProcess window;
    window.setProcessEnvironment(newUser(home));
    window.start(installed(QStringLiteral("bin/corvane")), {});
    QTRY_VERIFY_WITH_TIMEOUT(QFileInfo::exists(book) || window.state() == QProcess::NotRunning, 60000);
    QCOMPARE(window.state(), QProcess::Running);
    window.terminate(); // ends as "Exit" does
    QVERIFY(window.waitForFinished(30000));
    QCOMPARE(QFileInfo(book).size(), QFileInfo(installed(QStringLiteral("share/corvane/drinks.db"))).size());
}

void tst_Install::cliListsTheBook()
{
    const QString cli = installed(QStringLiteral("bin/corvane-cli"));
    const QString home = m_home.filePath(QStringLiteral("cli"));
    const Run r = run(cli, {QStringLiteral("list"), QStringLiteral("--view"), QStringLiteral("all")}, newUser(home));
    QVERIFY2(r.exitCode == 0, qPrintable(r.output));
    QVERIFY(r.output.split(u'\n', Qt::SkipEmptyParts).size() > 200); // the delivered book, every drink
    QVERIFY(r.output.contains(QStringLiteral("Gimlet")));
    QVERIFY(QFileInfo::exists(home + QStringLiteral("/.local/share/corvane/drinks.db")));
}

QTEST_GUILESS_MAIN(tst_Install)
#include "tst_install.moc"
