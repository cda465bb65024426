// The book file on its own holds every committed change, whatever happens to the writer, and
// an open never plays another file's journal or log into it. Real processes write and are
// killed; the book is then read on its own, the way a user copies it.
#include "TestFiles.h"
#include "TestStore.h"
#include "store/DrinkStore.h"
#include "store/StoreBuilder.h"
#include "store/StoreError.h"
#include "store/StoreFunctions.h"

#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QThread>
#include <QtTest>

#include <csignal>
#include <sqlite3.h>

namespace {

// The delivered book with a few thousand more drinks, so that a command writes many pages.
QString makeBook(const QTemporaryDir &dir)
{
    const QString path = dir.filePath(QStringLiteral("drinks.db"));
    QFile::copy(TestStore::deliveredStore(), path);
    QFile::setPermissions(path, QFile::permissions(path) | QFileDevice::WriteOwner);
    StoreBuilder::runScriptText(path, QStringLiteral(
        "WITH RECURSIVE n(i) AS (SELECT 100000 UNION ALL SELECT i + 1 FROM n WHERE i < 103000) "
        "INSERT INTO Drinks (id, Name, Description, Marked, LiqCab) "
        "SELECT i, 'Test drink ' || i, 'Shake with ice and strain. ' || i, 0, 0 FROM n;"));
    return path;
}

// What a copy of the book file alone holds, read without anything beside it.
struct Alone {
    QString integrity, valueA, valueB;
    int userVersion = -1, drinks = 0;
    int wrongMarksA = -1, wrongMarksB = -1; // drinks of a writer's half not marked as its counter says
};

Alone readAlone(const QString &book)
{
    QTemporaryDir elsewhere;
    const QString copy = elsewhere.filePath(QStringLiteral("copy.db"));
    QFile::copy(book, copy);
    Alone a;
    sqlite3 *db = nullptr;
    sqlite3_stmt *s = nullptr;
    const char *sql =
        "SELECT (SELECT group_concat(integrity_check) FROM pragma_integrity_check), a, b, "
        "(SELECT user_version FROM pragma_user_version), (SELECT COUNT(*) FROM Drinks), "
        "(SELECT COUNT(*) FROM Drinks WHERE id % 2 = 0 AND Marked <> ifnull(CAST(a AS INTEGER), 0) % 2), "
        "(SELECT COUNT(*) FROM Drinks WHERE id % 2 = 1 AND Marked <> ifnull(CAST(b AS INTEGER), 0) % 2) "
        "FROM (SELECT (SELECT Val FROM Constants WHERE Var = 'A') AS a, (SELECT Val FROM Constants WHERE Var = 'B') AS b)";
    if (sqlite3_open_v2(copy.toUtf8().constData(), &db, SQLITE_OPEN_READONLY, nullptr) == SQLITE_OK) {
        // The name order the book's indexes are kept in, as the shell has it with the extension loaded.
        registerStoreFunctions(db);
        if (sqlite3_prepare_v2(db, sql, -1, &s, nullptr) == SQLITE_OK && sqlite3_step(s) == SQLITE_ROW) {
            const auto col = [s](int i) { return QString::fromUtf8(reinterpret_cast<const char *>(sqlite3_column_text(s, i))); };
            a = {col(0), col(1), col(2), col(3).toInt(), col(4).toInt(), col(5).toInt(), col(6).toInt()};
        }
    }
    sqlite3_finalize(s);
    sqlite3_close(db);
    return a;
}

void startWriter(QProcess &p, const QStringList &args)
{
    p.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    p.start(QStringLiteral(BOOKWRITER), args);
}

// Reads the writer's lines until one starts with the prefix; false when it ends first.
bool waitForLine(QProcess &p, const QByteArray &prefix, QByteArray *seen)
{
    while (true) {
        for (const QByteArray &line : seen->split('\n'))
            if (line.startsWith(prefix))
                return true;
        if (!p.waitForReadyRead(15000))
            return false;
        *seen += p.readAllStandardOutput();
    }
}

int lastCommitted(const QByteArray &output)
{
    int last = 0;
    for (const QByteArray &line : output.split('\n'))
        if (line.startsWith("committed "))
            last = line.mid(10).toInt();
    return last;
}

bool leftovers(const QString &book)
{
    return QFile::exists(book + QStringLiteral("-journal")) || QFile::exists(book + QStringLiteral("-wal"));
}

} // namespace

class tst_BookFile : public QObject {
    Q_OBJECT
private slots:
    void writerStoppedAtRandom_data();
    void writerStoppedAtRandom();
    void killedWriterLeftovers_data();
    void killedWriterLeftovers();
    void twoWritersAtOnce();
    void busyBookWaitsThenSaysSo();
};

void tst_BookFile::writerStoppedAtRandom_data()
{
    QTest::addColumn<int>("signalNumber");
    QTest::addColumn<int>("maxDelayMs");
    for (int round = 1; round <= 3; ++round) {
        QTest::addRow("kill -9, round %d", round) << int(SIGKILL) << 120 * round;
        QTest::addRow("SIGTERM, round %d", round) << int(SIGTERM) << 120 * round;
    }
}

void tst_BookFile::writerStoppedAtRandom()
{
    QFETCH(int, signalNumber);
    QFETCH(int, maxDelayMs);
    QTemporaryDir dir;
    const QString book = makeBook(dir);
    QProcess writer;
    startWriter(writer, {book, QStringLiteral("loop"), QStringLiteral("A"), QStringLiteral("0")});
    QByteArray output;
    QVERIFY(waitForLine(writer, "committed", &output));
    QThread::msleep(QRandomGenerator::global()->bounded(maxDelayMs));
    ::kill(pid_t(writer.processId()), signalNumber);
    QVERIFY(writer.waitForFinished(15000));
    output += writer.readAllStandardOutput();
    const int committed = lastCommitted(output);
    QVERIFY(committed >= 1);

    if (signalNumber == SIGTERM) {
        // Ended as Exit ends the program: after the command in hand, with nothing beside the book.
        QCOMPARE(writer.exitStatus(), QProcess::NormalExit);
        QCOMPARE(writer.exitCode(), 0);
    } else {
        // The next start finishes what the killed one left; then the book stands alone.
        DrinkStore next(book);
        QVERIFY(next.setAsideFiles().isEmpty());
    }
    QVERIFY(!leftovers(book));
    const Alone alone = readAlone(book);
    QCOMPARE(alone.integrity, QStringLiteral("ok"));
    // Every command that said it committed is there; one more may have committed unsaid.
    QVERIFY2(alone.valueA.toInt() == committed || alone.valueA.toInt() == committed + 1, qPrintable(alone.valueA));
    QCOMPARE(alone.wrongMarksA, 0);
}

void tst_BookFile::killedWriterLeftovers_data()
{
    QTest::addColumn<QString>("mode");
    QTest::addColumn<bool>("replaced");
    QTest::newRow("journal, own book") << "hold" << false;
    QTest::newRow("journal, book replaced") << "hold" << true;
    QTest::newRow("log, own book") << "log" << false;
    QTest::newRow("log, book replaced") << "log" << true;
}

void tst_BookFile::killedWriterLeftovers()
{
    QFETCH(QString, mode);
    QFETCH(bool, replaced);
    QTemporaryDir dir;
    const QString book = makeBook(dir);
    const Alone before = readAlone(book);
    QProcess writer;
    startWriter(writer, {book, mode});
    QByteArray output;
    QVERIFY2(waitForLine(writer, "hot", &output), output.constData());
    writer.kill();
    QVERIFY(writer.waitForFinished(15000));
    QVERIFY(leftovers(book));

    if (replaced) {
        // A user restores another book over drinks.db, the way cp does: same file, new bytes.
        const QByteArray restored = readFile(TestStore::deliveredStore());
        QVERIFY(writeFile(book, restored));
        {
            DrinkStore opened(book);
            QCOMPARE(opened.setAsideFiles().size(), 1);
            QVERIFY(QFile::exists(opened.setAsideFiles().first()));
            QVERIFY(opened.scalar(QStringLiteral("SELECT COUNT(*) FROM Drinks")).toInt() > 0);
        }
        QVERIFY(readFile(book) == restored);
        QVERIFY(!leftovers(book));
        return;
    }

    {
        DrinkStore opened(book);
        QVERIFY(opened.setAsideFiles().isEmpty());
    }
    QVERIFY(!leftovers(book));
    const Alone after = readAlone(book);
    QCOMPARE(after.integrity, QStringLiteral("ok"));
    QCOMPARE(after.drinks, before.drinks);
    if (mode == u"hold") {
        // The command never committed: the book is as it was before it.
        QCOMPARE(after.userVersion, before.userVersion);
        QCOMPARE(after.wrongMarksA, before.wrongMarksA);
        QCOMPARE(after.wrongMarksB, before.wrongMarksB);
    } else {
        // The logged commit was the book's own: it is now in the file itself.
        QCOMPARE(after.valueA, QStringLiteral("logged"));
    }
}

void tst_BookFile::twoWritersAtOnce()
{
    QTemporaryDir dir;
    const QString book = makeBook(dir);
    QProcess a, b;
    startWriter(a, {book, QStringLiteral("loop"), QStringLiteral("A"), QStringLiteral("40")});
    startWriter(b, {book, QStringLiteral("loop"), QStringLiteral("B"), QStringLiteral("40")});
    QVERIFY(a.waitForFinished(60000));
    QVERIFY(b.waitForFinished(60000));
    const QByteArray outA = a.readAllStandardOutput(), outB = b.readAllStandardOutput();
    QVERIFY2(a.exitCode() == 0 && lastCommitted(outA) == 40, outA.right(200).constData());
    QVERIFY2(b.exitCode() == 0 && lastCommitted(outB) == 40, outB.right(200).constData());
    const Alone alone = readAlone(book);
    QCOMPARE(alone.integrity, QStringLiteral("ok"));
    QCOMPARE(alone.valueA, QStringLiteral("40"));
    QCOMPARE(alone.valueB, QStringLiteral("40"));
    QCOMPARE(alone.wrongMarksA, 0);
    QCOMPARE(alone.wrongMarksB, 0);
}

// While another program holds the book for writing, a write waits, letting the caller paint,
// and then fails with a plain message and nothing changed; once the book is free it goes through.
void tst_BookFile::busyBookWaitsThenSaysSo()
{
    QTemporaryDir dir;
    const QString book = makeBook(dir);
    QProcess holder;
    startWriter(holder, {book, QStringLiteral("lock")});
    QByteArray output;
    QVERIFY2(waitForLine(holder, "hot", &output), output.constData());
    int waits = 0;
    DrinkStore::setBusyWaiter([&] { ++waits; });
    DrinkStore store(book);
    const QString write = QStringLiteral("UPDATE Drinks SET Marked = 1 WHERE id = 100001");
    try {
        store.execute(write);
        QFAIL("wrote to a book another program holds");
    } catch (const StoreError &e) {
        QVERIFY2(e.engineText().contains(QStringLiteral("in use by another program")), qPrintable(e.engineText()));
    }
    QVERIFY(waits > 0);
    QVERIFY(!store.inTransaction());
    holder.kill();
    QVERIFY(holder.waitForFinished(15000));
    QCOMPARE(store.execute(write), 1);
    DrinkStore::setBusyWaiter({});
}

QTEST_GUILESS_MAIN(tst_BookFile)
#include "tst_bookfile.moc"
