// A second start hands its command line to the copy running on the same book.
#include "TestStore.h"
#include "shell/InstanceLink.h"

#include <QElapsedTimer>
#include <QLocalServer>
#include <QLocalSocket>
#include <QProcess>
#include <QThread>
#include <QtTest>

#include <csignal>
#include <memory>

class tst_HandOver : public QObject {
    Q_OBJECT
private slots:
    void linkDeliversAndPassesOn();
    void noRunningCopy();
    void processesHandOver();
    void exchangeFileHandedOverWithItsWholePath();
    void silentCopyIsGivenUpOn();
    void terminationEndsAsExitDoes_data();
    void terminationEndsAsExitDoes();
};

namespace {

// Hands the line over from a thread of its own, as a second start does, while this one serves;
// handledWhenReturned: the lines handled by the time the call came back.
InstanceLink::HandOver handOverFromThread(const QString &appDir, const QString &line, const QAtomicInt &handled,
                                          int *handledWhenReturned)
{
    InstanceLink::HandOver result = InstanceLink::NoRunningCopy;
    QThread *sender = QThread::create([&] {
        result = InstanceLink::handOver(appDir, line);
        *handledWhenReturned = handled.loadAcquire();
    });
    sender->start();
    if (!QTest::qWaitFor([sender] { return sender->isFinished(); }, 5000))
        qFatal("the hand-over never came back");
    delete sender;
    return result;
}

bool waitForMailbox(const QString &appDir, int ms)
{
    QElapsedTimer t;
    t.start();
    while (t.elapsed() < ms) {
        QLocalSocket s;
        s.connectToServer(InstanceLink::serverName(appDir));
        if (s.waitForConnected(100))
            return true;
        QThread::msleep(50);
    }
    return false;
}

// Starts the program on the book's directory; false when it never opens its mailbox.
bool startProgram(QProcess &p, const QString &appDir, const QStringList &args = {})
{
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    p.setProcessEnvironment(env);
    p.start(QStringLiteral(CORVANE_EXECUTABLE), QStringList{QStringLiteral("--appdir"), appDir} + args);
    return p.waitForStarted() && waitForMailbox(appDir, 15000);
}

} // namespace

void tst_HandOver::linkDeliversAndPassesOn()
{
    QTemporaryDir dir;
    auto running = std::make_unique<InstanceLink>();
    QVERIFY(running->listen(dir.path()));
    // A second copy on the same book does not take the mailbox over while the first holds it.
    InstanceLink waiting;
    QVERIFY(!waiting.listen(dir.path()));
    QStringList handled;
    QAtomicInt handledCount;
    const auto handle = [&](const QString &line) {
        QThread::msleep(100); // give a sender that does not wait the chance to run ahead
        handled << line;
        handledCount.fetchAndAddRelease(1);
    };
    connect(running.get(), &InstanceLink::commandReceived, this, handle);
    connect(&waiting, &InstanceLink::commandReceived, this, handle);

    int handledWhenReturned = -1;
    QCOMPARE(handOverFromThread(dir.path(), QStringLiteral("/ID=2"), handledCount, &handledWhenReturned),
             InstanceLink::Handled);
    QCOMPARE(handledWhenReturned, 1); // the sender came back only after the line was handled
    // The copy holding the mailbox ends; the one still running takes it.
    running.reset();
    QTRY_VERIFY(waiting.isListening());
    QCOMPARE(handOverFromThread(dir.path(), QStringLiteral("/ID=7"), handledCount, &handledWhenReturned),
             InstanceLink::Handled);
    QCOMPARE(handledWhenReturned, 2);
    QCOMPARE(handled, (QStringList{QStringLiteral("/ID=2"), QStringLiteral("/ID=7")}));
}

void tst_HandOver::noRunningCopy()
{
    QTemporaryDir dir;
    QCOMPARE(InstanceLink::handOver(dir.path(), QStringLiteral("/ID=2"), 200), InstanceLink::NoRunningCopy);
    QVERIFY(InstanceLink::serverName(dir.path()) != InstanceLink::serverName(dir.path() + QStringLiteral("x")));
}

void tst_HandOver::exchangeFileHandedOverWithItsWholePath()
{
    // The running copy works in another folder than the desktop that starts the second one.
    QTemporaryDir appDir, downloads;
    InstanceLink running;
    QVERIFY(running.listen(appDir.path()));
    QStringList received;
    connect(&running, &InstanceLink::commandReceived, this, [&](const QString &line) { received << line; });
    QProcess second;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    second.setProcessEnvironment(env);
    second.setWorkingDirectory(downloads.path());
    second.start(QStringLiteral(CORVANE_EXECUTABLE),
                 {QStringLiteral("--appdir"), appDir.path(), QStringLiteral("Sours é.cvx")});
    QTRY_COMPARE_WITH_TIMEOUT(second.state(), QProcess::NotRunning, 15000);
    QCOMPARE(second.exitCode(), 0);
    QCOMPARE(received, QStringList{downloads.filePath(QStringLiteral("Sours é.cvx"))});
}

void tst_HandOver::processesHandOver()
{
    TestStore book(QString(), true);
    // With nobody to hand over to, a start with a command line runs as the first copy.
    QProcess first;
    QVERIFY2(startProgram(first, book.appDir(), {QStringLiteral("/ID=2")}), "the first copy never got ready");
    // A second start with a command line hands it over and ends instead of opening a window.
    QProcess second;
    second.setProcessEnvironment(first.processEnvironment());
    second.start(QStringLiteral(CORVANE_EXECUTABLE), {QStringLiteral("--appdir"), book.appDir(), QStringLiteral("/ID=3")});
    QVERIFY(second.waitForFinished(10000));
    QCOMPARE(second.exitStatus(), QProcess::NormalExit);
    QCOMPARE(second.exitCode(), 0);
    // A plain second start is a second full copy, and keeps running.
    QProcess plain;
    startProgram(plain, book.appDir());
    QVERIFY(!plain.waitForFinished(1500));
    QCOMPARE(first.state(), QProcess::Running);
    plain.kill();
    first.kill();
    plain.waitForFinished();
    first.waitForFinished();
}

void tst_HandOver::silentCopyIsGivenUpOn()
{
    QTemporaryDir dir;
    // A copy that holds the mailbox but hangs: it takes the connection and never answers.
    QLocalServer hung;
    QVERIFY(hung.listen(InstanceLink::serverName(dir.path())));
    QCOMPARE(InstanceLink::handOver(dir.path(), QStringLiteral("/ID=2"), 1000, 300), InstanceLink::NoAnswer);
}

void tst_HandOver::terminationEndsAsExitDoes_data()
{
    QTest::addColumn<int>("signalNumber");
    QTest::newRow("SIGTERM, a logout") << int(SIGTERM);
    QTest::newRow("SIGINT, Ctrl-C") << int(SIGINT);
    QTest::newRow("SIGHUP, the terminal closed") << int(SIGHUP);
}

void tst_HandOver::terminationEndsAsExitDoes()
{
    QFETCH(int, signalNumber);
    TestStore book(QString(), true);
    QProcess copy;
    QVERIFY(startProgram(copy, book.appDir()));
    ::kill(pid_t(copy.processId()), signalNumber);
    QVERIFY(copy.waitForFinished(10000));
    QCOMPARE(copy.exitStatus(), QProcess::NormalExit);
    QCOMPARE(copy.exitCode(), 0);
    QVERIFY(!QFile::exists(book.storePath() + QStringLiteral("-journal")));
    QVERIFY(!QFile::exists(book.storePath() + QStringLiteral("-wal")));
}

QTEST_GUILESS_MAIN(tst_HandOver)
#include "tst_handover.moc"
