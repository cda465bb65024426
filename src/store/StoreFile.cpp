#include "store/StoreFile.h"

#include <QFile>
#include <QFileInfo>

#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace StoreFile {

namespace {

const QByteArray kDatabaseMagic("SQLite format 3\0", 16);
const QByteArray kJournalMagic("\xd9\xd5\x05\xf9\x20\xa1\x63\xd7", 8);
constexpr int kHeaderSize = 100;
constexpr qint64 kLogHeaderSize = 32;

quint32 be32(const QByteArray &b, int at)
{
    const auto *p = reinterpret_cast<const uchar *>(b.constData()) + at;
    return (quint32(p[0]) << 24) | (quint32(p[1]) << 16) | (quint32(p[2]) << 8) | quint32(p[3]);
}

QByteArray readAt(const QString &path, qint64 offset, qint64 size)
{
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly) || !f.seek(offset))
        return {};
    return f.read(size);
}

// The book's first page as it stood when the journal was begun, or "" when the journal does
// not hold it. The engine journals page 1 before it writes anything to the book itself.
QByteArray journaledFirstPage(const QString &journal)
{
    const QByteArray head = readAt(journal, 0, 28);
    if (head.size() < 28 || !head.startsWith(kJournalMagic))
        return {};
    const quint32 sector = be32(head, 20), pageSize = be32(head, 24);
    if (sector < 512 || pageSize < 512 || pageSize > 65536)
        return {};
    const qint64 recordSize = 8 + qint64(pageSize);
    const qint64 size = QFileInfo(journal).size();
    quint32 records = be32(head, 8);
    if (records == 0xffffffffu || qint64(records) * recordSize + sector > size)
        records = quint32((size - sector) / recordSize);
    for (quint32 i = 0; i < records; ++i) {
        const qint64 at = sector + qint64(i) * recordSize;
        const QByteArray number = readAt(journal, at, 4);
        if (number.size() == 4 && be32(number, 0) == 1)
            return readAt(journal, at + 4, kHeaderSize);
    }
    return {};
}

// The journal was written for this book when the book still has the first page the journal
// kept, or that page with its change counter one further: the commit the journal guarded had
// begun writing the book, and only the journal can finish putting it back.
bool journalBelongsTo(const QString &journal, const QByteArray &bookHeader)
{
    const QByteArray kept = journaledFirstPage(journal);
    if (kept.size() != kHeaderSize || bookHeader.size() != kHeaderSize)
        return false;
    if (kept == bookHeader)
        return true;
    return kept.left(24) == bookHeader.left(24) && be32(bookHeader, 24) == be32(kept, 24) + 1;
}

timespec changeTime(const QString &path)
{
    struct stat st {};
    if (::stat(QFile::encodeName(path).constData(), &st) != 0)
        return {};
    return st.st_ctim;
}

bool notAfter(const timespec &a, const timespec &b)
{
    return a.tv_sec < b.tv_sec || (a.tv_sec == b.tv_sec && a.tv_nsec <= b.tv_nsec);
}

// A log belongs to a book that was kept in log mode and has not been changed since the log was
// last written; a file copied over the book afterwards is newer than the log.
bool logBelongsTo(const QString &book, const QString &log, const QByteArray &bookHeader)
{
    if (bookHeader.size() != kHeaderSize || bookHeader[18] != 2)
        return false;
    return notAfter(changeTime(book), changeTime(log));
}

QString setAside(const QString &file)
{
    for (int n = 1;; ++n) {
        const QString target = file + QStringLiteral(".set-aside-%1").arg(n);
        if (QFileInfo::exists(target))
            continue;
        return QFile::rename(file, target) ? target : QString();
    }
}

} // namespace

QString problem(const QString &path, bool readHeader)
{
    const QFileInfo info(path);
    if (!info.exists())
        return QStringLiteral("The file does not exist.");
    if (info.isDir())
        return QStringLiteral("This is a folder, not a recipe book file: a recipe book is a single file.");
    if (!info.isFile())
        return QStringLiteral("This is not a regular file, so it cannot be a recipe book.");
    if (!info.isReadable())
        return QStringLiteral("The file cannot be read: permission denied.");
    if (!readHeader || info.size() == 0)
        return {};
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly))
        return QStringLiteral("The file cannot be read: %1").arg(f.errorString());
    if (f.read(16) != kDatabaseMagic)
        return QStringLiteral("The file is not a database: it does not begin as one.");
    return {};
}

bool lockedByOtherProcess(const QString &path)
{
    const int fd = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
    if (fd < 0)
        return false;
    // The engine locks bytes from 1 GiB on: the pending and reserved bytes and the shared range.
    struct flock probe {};
    probe.l_type = F_WRLCK;
    probe.l_whence = SEEK_SET;
    probe.l_start = 0x40000000;
    probe.l_len = 2 + 510;
    const bool locked = ::fcntl(fd, F_GETLK, &probe) == 0 && probe.l_type != F_UNLCK;
    ::close(fd);
    return locked;
}

Leftovers setAsideForeignLeftovers(const QString &path)
{
    Leftovers result;
    const QString journal = path + QStringLiteral("-journal");
    const QString log = path + QStringLiteral("-wal");
    const QString logIndex = path + QStringLiteral("-shm");
    const bool anyLeft = QFileInfo::exists(journal) || QFileInfo::exists(log) || QFileInfo::exists(logIndex);
    if (!anyLeft)
        return result;
    if (lockedByOtherProcess(path)) {
        result.inUse = true;
        return result;
    }
    // A journal whose commit never began, or an empty log, holds nothing the book needs: the
    // book was never written under it. Gone, they cannot be copied or played by mistake.
    const bool hotJournal = QFileInfo(journal).size() >= 28 && readAt(journal, 0, 8) == kJournalMagic;
    const bool fullLog = QFileInfo(log).size() > kLogHeaderSize;
    if (!hotJournal)
        QFile::remove(journal);
    if (!fullLog) {
        QFile::remove(log);
        QFile::remove(logIndex);
    }
    const QByteArray header = readAt(path, 0, kHeaderSize);
    if (hotJournal && !journalBelongsTo(journal, header)) {
        const QString moved = setAside(journal);
        if (!moved.isEmpty())
            result.setAside << moved;
    }
    if (fullLog && !logBelongsTo(path, log, header)) {
        const QString moved = setAside(log);
        if (!moved.isEmpty())
            result.setAside << moved;
        // The index only describes the log just moved; the engine rebuilds it when needed.
        QFile::remove(logIndex);
    }
    return result;
}

} // namespace StoreFile
