// Filling the application directory from the delivered data: a new one appears whole or not
// at all, and a half-filled one gets back what it lacks without losing what the user changed.
#include "base/AppPaths.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

namespace {

void writeFile(const QString &path, const QByteArray &content)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile f(path);
    QVERIFY(f.open(QIODevice::WriteOnly));
    f.write(content);
}

QByteArray readFile(const QString &path)
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("<missing>");
}

QStringList filesBelow(const QString &dir)
{
    QStringList files;
    QDirIterator it(dir, QDir::Files | QDir::Hidden | QDir::System, QDirIterator::Subdirectories);
    while (it.hasNext())
        files << QDir(dir).relativeFilePath(it.next());
    files.sort();
    return files;
}

const QStringList kDelivered = {QStringLiteral("Corvane.cvi"), QStringLiteral("Templates/Standard.cvt"),
                                QStringLiteral("corvane.ini"), QStringLiteral("drinks.db")};

} // namespace

class tst_AppDir : public QObject {
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void newDirectoryWholeOrNothing_data();
    void newDirectoryWholeOrNothing();
    void halfFilledIsFinished();

private:
    std::unique_ptr<QTemporaryDir> m_delivered;
};

void tst_AppDir::init()
{
    m_delivered = std::make_unique<QTemporaryDir>();
    for (const QString &name : kDelivered)
        writeFile(m_delivered->filePath(name), "delivered " + name.toUtf8());
    qputenv("CORVANE_DATA_DIR", m_delivered->path().toUtf8());
}

void tst_AppDir::cleanup() { qunsetenv("CORVANE_DATA_DIR"); }

void tst_AppDir::newDirectoryWholeOrNothing_data()
{
    QTest::addColumn<bool>("existsEmpty");
    QTest::addColumn<bool>("deliveryBroken");
    QTest::newRow("missing") << false << false;
    QTest::newRow("empty") << true << false;
    // A delivered file that cannot be copied stands for a disk that fills up halfway.
    QTest::newRow("missing, copy fails") << false << true;
    QTest::newRow("empty, copy fails") << true << true;
}

void tst_AppDir::newDirectoryWholeOrNothing()
{
    QFETCH(bool, existsEmpty);
    QFETCH(bool, deliveryBroken);
    if (deliveryBroken)
        QVERIFY(QFile::link(m_delivered->filePath(QStringLiteral("nowhere")), m_delivered->filePath(QStringLiteral("zz-broken"))));
    QTemporaryDir parent;
    const QString dir = parent.filePath(QStringLiteral("corvane"));
    if (existsEmpty)
        QVERIFY(QDir().mkdir(dir));

    QString error;
    const bool filled = AppPaths::ensureFilled(dir, &error);
    QCOMPARE(filled, !deliveryBroken);
    QCOMPARE(error.isEmpty(), !deliveryBroken);
    // Nothing is left beside it, whatever happened.
    QCOMPARE(QDir(parent.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden),
             (existsEmpty || filled) ? QStringList{QStringLiteral("corvane")} : QStringList{});
    if (filled)
        QCOMPARE(filesBelow(dir), QStringList(kDelivered));
    else
        QVERIFY(filesBelow(dir).isEmpty());
}

void tst_AppDir::halfFilledIsFinished()
{
    QTemporaryDir parent;
    const QString dir = parent.filePath(QStringLiteral("corvane"));
    // A fill that stopped halfway, and a user who has since changed the settings and kept a file.
    writeFile(dir + QStringLiteral("/corvane.ini"), "the user's own settings");
    writeFile(dir + QStringLiteral("/Corvane.cvi.part"), "half a copy");
    writeFile(dir + QStringLiteral("/mine.txt"), "kept");
    QString error;
    QVERIFY2(AppPaths::ensureFilled(dir, &error), qPrintable(error));
    QCOMPARE(readFile(dir + QStringLiteral("/corvane.ini")), QByteArray("the user's own settings"));
    QCOMPARE(readFile(dir + QStringLiteral("/mine.txt")), QByteArray("kept"));
    for (const QString &name : {QStringLiteral("Corvane.cvi"), QStringLiteral("Templates/Standard.cvt"),
                                QStringLiteral("drinks.db")})
        QCOMPARE(readFile(dir + u'/' + name), "delivered " + name.toUtf8());
    // Filled again, nothing changes.
    const QStringList files = filesBelow(dir);
    QVERIFY(AppPaths::ensureFilled(dir, &error));
    QCOMPARE(filesBelow(dir), files);

}

QTEST_GUILESS_MAIN(tst_AppDir)
#include "tst_appdir.moc"
