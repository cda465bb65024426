#include "TestFiles.h"
#include "presentation/ArchivePasswords.h"
#include "presentation/ZipArchive.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QRandomGenerator>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <memory>

namespace {

const QString Password = QString::fromLatin1(ArchivePasswords::ImageArchive);

QByteArray noise(int size, quint32 seed)
{
    QByteArray bytes(size, Qt::Uninitialized);
    QRandomGenerator rng(seed);
    for (char &b : bytes)
        b = char(rng.bounded(256));
    return bytes;
}

// Members as the picture archives hold them, plus the awkward sizes.
QList<std::pair<QString, QByteArray>> sampleMembers()
{
    return {
        {"000001.jpg", noise(70000, 1)},
        {"000002.jpg", QByteArray(5000, 'x')},
        {"07.gif", QByteArray("GIF89a")},
        {"empty.txt", QByteArray()},
    };
}

bool writeArchive(const QString &path, const QString &password, ZipArchive::Compression compression)
{
    ZipArchive archive;
    if (!archive.open(path, password, ZipArchive::Replace))
        return false;
    for (const auto &[name, data] : sampleMembers()) {
        if (!archive.addData(name, data, compression))
            return false;
    }
    return archive.commit();
}

} // namespace

class tst_ZipArchive : public QObject {
    Q_OBJECT

  private slots:
    void init()
    {
        m_tmp = std::make_unique<QTemporaryDir>();
        QVERIFY(m_tmp->isValid());
    }

    void roundTrip_data()
    {
        QTest::addColumn<int>("compression");
        QTest::newRow("stored") << int(ZipArchive::Store);
        QTest::newRow("deflated") << int(ZipArchive::Deflate);
    }
    // What we write reads back; another zip tool reads it too, and needs the password to.
    void roundTrip()
    {
        QFETCH(int, compression);
        const QString path = m_tmp->filePath("Corvane.cvi");
        QVERIFY(writeArchive(path, Password, ZipArchive::Compression(compression)));

        ZipArchive archive;
        QVERIFY(archive.open(path, Password));
        QStringList expected;
        for (const auto &member : sampleMembers())
            expected << member.first;
        QCOMPARE(archive.memberNames(), expected);
        for (const auto &[name, data] : sampleMembers()) {
            QCOMPARE(archive.extract(name, m_tmp->path()), 0);
            QCOMPARE(readFile(m_tmp->filePath(name)), data);
        }

        const QString unzip = QStandardPaths::findExecutable("unzip");
        if (unzip.isEmpty())
            QSKIP("the unzip tool is not installed");
        QProcess good;
        good.start(unzip, {"-P", Password, "-t", path});
        QVERIFY(good.waitForFinished());
        const QString report = QString::fromLocal8Bit(good.readAllStandardOutput());
        QVERIFY2(good.exitCode() == 0 && report.contains("No errors detected"), qPrintable(report));
        QProcess bad;
        bad.start(unzip, {"-P", "wrong", "-t", path});
        QVERIFY(bad.waitForFinished());
        QVERIFY(bad.exitCode() != 0);
    }

    // A good extraction replaces the file that stood there, longer or not; a failed one leaves
    // it as it was and writes nothing beside it.
    void extract_data()
    {
        QTest::addColumn<QString>("fault");
        QTest::addColumn<QString>("member");
        QTest::addColumn<QList<int>>("codes");
        auto row = [](const char *name, const char *fault, const char *member, QList<int> codes) {
            QTest::newRow(name) << QString::fromLatin1(fault) << QString::fromLatin1(member) << codes;
        };
        const QList<int> damaged{ZipArchive::ArchiveDamaged};
        row("replaces a longer file", "", "000002.jpg", {0});
        row("member names ignore case", "", "07.GIF", {0});
        row("no archive", "missing", "000001.jpg", {ZipArchive::ArchiveMissing});
        row("no such member", "", "000099.jpg", {ZipArchive::MemberMissing});
        row("path as member", "", "../000001.jpg", {ZipArchive::MemberMissing});
        // One wrong password in 256 passes PKWARE's check byte; the CRC then catches it.
        row("wrong password", "password", "000001.jpg", {ZipArchive::WrongPassword, ZipArchive::DataDamaged});
        row("truncated archive", "truncate", "000001.jpg", damaged);
        row("empty file", "empty", "000001.jpg", damaged);
        row("not a zip", "text", "000001.jpg", damaged);
        row("damaged member data", "flip", "000001.jpg", {ZipArchive::DataDamaged});
    }
    void extract()
    {
        QFETCH(QString, fault);
        QFETCH(QString, member);
        QFETCH(QList<int>, codes);
        const QString path = m_tmp->filePath("Corvane.cvi");
        QVERIFY(writeArchive(path, Password, ZipArchive::Store));
        const QByteArray good = readFile(path);
        QString password = Password;
        if (fault == "missing")
            QFile::remove(path);
        else if (fault == "password")
            password = QString::fromLatin1(ArchivePasswords::GlassArchive);
        else if (fault == "truncate")
            QVERIFY(writeFile(path, good.left(good.size() / 2)));
        else if (fault == "empty")
            QVERIFY(writeFile(path, QByteArray()));
        else if (fault == "text")
            QVERIFY(writeFile(path, "Name: Daiquiri\r\n"));
        else if (fault == "flip")
            QVERIFY(writeFile(path, QByteArray(good).replace(1000, 4, "\xde\xad\xbe\xef")));

        const QDir out(m_tmp->filePath("out"));
        QVERIFY(out.mkpath("."));
        const QString target = out.filePath(QFileInfo(member).fileName());
        const QByteArray before = noise(90000, 2);
        QVERIFY(writeFile(target, before));
        const int code = ZipArchive::extractMember(path, password, member, out.path());
        QVERIFY2(codes.contains(code), qPrintable(QString::number(code)));
        QCOMPARE(out.entryList(QDir::Files), QStringList{QFileInfo(member).fileName()});
        if (code != 0) {
            QCOMPARE(readFile(target), before);
            return;
        }
        for (const auto &[name, data] : sampleMembers())
            if (name.compare(member, Qt::CaseInsensitive) == 0)
                QCOMPARE(readFile(target), data);
    }

    void updateReplacesOneMemberAndKeepsTheRest()
    {
        const QString path = m_tmp->filePath("Corvane.cvi");
        QVERIFY(writeArchive(path, Password, ZipArchive::Deflate));
        {
            ZipArchive archive;
            QVERIFY(archive.open(path, Password, ZipArchive::Update));
            QVERIFY(archive.addData("000002.jpg", "replaced"));
            QVERIFY(archive.addData("000003.jpg", "added"));
            QVERIFY(archive.commit());
        }
        ZipArchive archive;
        QVERIFY(archive.open(path, Password));
        QCOMPARE(archive.memberNames().size(), sampleMembers().size() + 1);
        for (const auto &[name, data] : QList<std::pair<QString, QByteArray>>{
                 {"000001.jpg", noise(70000, 1)}, {"000002.jpg", "replaced"}, {"000003.jpg", "added"}}) {
            QCOMPARE(archive.extract(name, m_tmp->path()), 0);
            QCOMPARE(readFile(m_tmp->filePath(name)), data);
        }
    }

    void updateCreatesAMissingArchive()
    {
        const QString path = m_tmp->filePath("new.glw");
        const QString source = m_tmp->filePath("01.gif");
        QVERIFY(writeFile(source, "GIF89a..."));
        ZipArchive archive;
        QVERIFY(archive.open(path, Password, ZipArchive::Update));
        QVERIFY(archive.addFile("01.gif", source));
        QVERIFY(!archive.addFile("02.gif", m_tmp->filePath("no such file")));
        QVERIFY(!archive.addData("sub/03.gif", "x"));
        QVERIFY(archive.commit());
        QVERIFY(archive.open(path, Password));
        QCOMPARE(archive.memberNames(), QStringList{"01.gif"});
    }

    // A write that cannot finish must leave the archive on disk as it was.
    void failedWritesLeaveTheArchiveAlone()
    {
        const QString path = m_tmp->filePath("Corvane.cvi");
        QVERIFY(writeFile(path, "not an archive, but somebody's file"));
        ZipArchive archive;
        QVERIFY(!archive.open(path, Password, ZipArchive::Update));
        QCOMPARE(archive.error(), ZipArchive::ArchiveDamaged);
        QCOMPARE(readFile(path), QByteArray("not an archive, but somebody's file"));

        QTemporaryDir gone;
        QVERIFY(archive.open(gone.filePath("Corvane.cvi"), Password, ZipArchive::Update));
        QVERIFY(archive.addData("000001.jpg", "x"));
        QVERIFY(gone.remove());
        QVERIFY(!archive.commit());
        QCOMPARE(archive.error(), ZipArchive::WriteFailed);
        QVERIFY(!archive.isOpen());
    }

  private:
    std::unique_ptr<QTemporaryDir> m_tmp;
};

QTEST_GUILESS_MAIN(tst_ZipArchive)
#include "tst_ziparchive.moc"
