#include "presentation/ArchivePasswords.h"
#include "presentation/ZipArchive.h"

#include <QFile>
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

QByteArray readAll(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void writeAll(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    QCOMPARE(file.write(bytes), bytes.size());
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
            QCOMPARE(readAll(m_tmp->filePath(name)), data);
        }
    }

    // Another zip tool must read what we write, and must need the password to do it.
    void otherToolsReadTheArchive_data() { roundTrip_data(); }
    void otherToolsReadTheArchive()
    {
        QFETCH(int, compression);
        const QString unzip = QStandardPaths::findExecutable("unzip");
        if (unzip.isEmpty())
            QSKIP("the unzip tool is not installed");
        const QString path = m_tmp->filePath("corvane.glw");
        const QString password = QString::fromLatin1(ArchivePasswords::GlassArchive);
        QVERIFY(writeArchive(path, password, ZipArchive::Compression(compression)));

        QProcess good;
        good.start(unzip, {"-P", password, "-t", path});
        QVERIFY(good.waitForFinished());
        const QString report = QString::fromLocal8Bit(good.readAllStandardOutput());
        QVERIFY2(good.exitCode() == 0 && report.contains("No errors detected"), qPrintable(report));

        QProcess bad;
        bad.start(unzip, {"-P", "wrong", "-t", path});
        QVERIFY(bad.waitForFinished());
        QVERIFY(bad.exitCode() != 0);
    }

    void extractFailures_data()
    {
        QTest::addColumn<QString>("fault");
        QTest::addColumn<QString>("member");
        QTest::addColumn<QList<int>>("codes");
        const QList<int> damaged{ZipArchive::ArchiveDamaged};
        QTest::newRow("no archive") << "missing"
                                    << "000001.jpg" << QList<int>{ZipArchive::ArchiveMissing};
        QTest::newRow("no such member") << ""
                                        << "000099.jpg" << QList<int>{ZipArchive::MemberMissing};
        QTest::newRow("path as member") << ""
                                        << "../000001.jpg" << QList<int>{ZipArchive::MemberMissing};
        // One wrong password in 256 passes PKWARE's check byte; the CRC then catches it.
        QTest::newRow("wrong password")
            << "password"
            << "000001.jpg" << QList<int>{ZipArchive::WrongPassword, ZipArchive::DataDamaged};
        QTest::newRow("truncated archive") << "truncate"
                                           << "000001.jpg" << damaged;
        QTest::newRow("empty file") << "empty"
                                    << "000001.jpg" << damaged;
        QTest::newRow("not a zip") << "text"
                                   << "000001.jpg" << damaged;
        QTest::newRow("damaged member data") << "flip"
                                             << "000001.jpg" << QList<int>{ZipArchive::DataDamaged};
    }
    void extractFailures()
    {
        QFETCH(QString, fault);
        QFETCH(QString, member);
        QFETCH(QList<int>, codes);
        const QString path = m_tmp->filePath("Corvane.cvi");
        QVERIFY(writeArchive(path, Password, ZipArchive::Store));
        const QByteArray good = readAll(path);
        QString password = Password;
        if (fault == "missing")
            QFile::remove(path);
        else if (fault == "password")
            password = QString::fromLatin1(ArchivePasswords::GlassArchive);
        else if (fault == "truncate")
            writeAll(path, good.left(good.size() / 2));
        else if (fault == "empty")
            writeAll(path, QByteArray());
        else if (fault == "text")
            writeAll(path, "Name: Daiquiri\r\n");
        else if (fault == "flip")
            writeAll(path, QByteArray(good).replace(1000, 4, "\xde\xad\xbe\xef"));

        const QString out = m_tmp->filePath("out");
        QVERIFY(QDir().mkpath(out));
        const int code = ZipArchive::extractMember(path, password, member, out);
        QVERIFY2(codes.contains(code), qPrintable(QString::number(code)));
        QVERIFY2(QDir(out).isEmpty(), "a failed extraction left a file behind");
    }

    void extractReplacesAnExistingFile()
    {
        const QString path = m_tmp->filePath("Corvane.cvi");
        QVERIFY(writeArchive(path, Password, ZipArchive::Deflate));
        const QString target = m_tmp->filePath("000002.jpg");
        writeAll(target, noise(90000, 2)); // longer than the member: no tail may survive

        QCOMPARE(ZipArchive::extractMember(path, Password, "000002.jpg", m_tmp->path()), 0);
        QCOMPARE(readAll(target), QByteArray(5000, 'x'));
    }

    void failedExtractionKeepsTheExistingFile()
    {
        const QString path = m_tmp->filePath("Corvane.cvi");
        QVERIFY(writeArchive(path, Password, ZipArchive::Store));
        const QByteArray good = readAll(path);
        writeAll(path, QByteArray(good).replace(1000, 4, "\xde\xad\xbe\xef"));
        const QString target = m_tmp->filePath("000001.jpg");
        writeAll(target, "the picture from last time");

        QVERIFY(ZipArchive::extractMember(path, Password, "000001.jpg", m_tmp->path()) != 0);
        QCOMPARE(readAll(target), QByteArray("the picture from last time"));
    }

    void memberNamesIgnoreCase()
    {
        const QString path = m_tmp->filePath("Corvane.cvi");
        QVERIFY(writeArchive(path, Password, ZipArchive::Store));
        QCOMPARE(ZipArchive::extractMember(path, Password, "07.GIF", m_tmp->path()), 0);
        QCOMPARE(readAll(m_tmp->filePath("07.GIF")), QByteArray("GIF89a"));
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
            QCOMPARE(readAll(m_tmp->filePath(name)), data);
        }
    }

    void updateCreatesAMissingArchive()
    {
        const QString path = m_tmp->filePath("new.glw");
        const QString source = m_tmp->filePath("01.gif");
        writeAll(source, "GIF89a...");
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
        writeAll(path, "not an archive, but somebody's file");
        ZipArchive archive;
        QVERIFY(!archive.open(path, Password, ZipArchive::Update));
        QCOMPARE(archive.error(), ZipArchive::ArchiveDamaged);
        QCOMPARE(readAll(path), QByteArray("not an archive, but somebody's file"));

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
