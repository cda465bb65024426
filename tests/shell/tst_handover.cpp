// A second start hands its command line to the copy running on the same book.
#include "TestStore.h"
#include "shell/InstanceLink.h"

#include <QElapsedTimer>
#include <QLocalSocket>
#include <QProcess>
#include <QSignalSpy>
#include <QThread>
#include <QtTest>

class tst_HandOver : public QObject {
    Q_OBJECT
private slots:
    void linkDeliversAndWaitsForHandling();
    void noRunningCopy();
    void processesHandOver();
    void secondPlainStartRunsItsOwnCopy();

private:
    static bool waitForMailbox(const QString &appDir, int ms);
    static void startProgram(QProcess &p, const QStringList &args);
};

void tst_HandOver::linkDeliversAndWaitsForHandling()
{
    QTemporaryDir dir;
    InstanceLink running;
    QVERIFY(running.listen(dir.path()));
    QStringList handled;
    connect(&running, &InstanceLink::commandReceived, this, [&](const QString &line) {
        QThread::msleep(150); // the sender must still be waiting while we work
        handled << line;
    });

    bool delivered = false;
    qint64 waited = 0;
    QThread *sender = QThread::create([&] {
        QElapsedTimer t;
        t.start();
        delivered = InstanceLink::handOver(dir.path(), QStringLiteral("/ID=2"));
        waited = t.elapsed();
    });
    sender->start();
    QTRY_VERIFY_WITH_TIMEOUT(sender->isFinished(), 5000);
    delete sender;
    QVERIFY(delivered);
    QCOMPARE(handled, QStringList{QStringLiteral("/ID=2")});
    QVERIFY(waited >= 150);

    // A second copy on the same book does not take the mailbox over.
    InstanceLink second;
    QVERIFY(!second.listen(dir.path()));
}

void tst_HandOver::noRunningCopy()
{
    QTemporaryDir dir;
    QVERIFY(!InstanceLink::handOver(dir.path(), QStringLiteral("/ID=2"), 200));
    QVERIFY(InstanceLink::serverName(dir.path()) != InstanceLink::serverName(dir.path() + QStringLiteral("x")));
}

bool tst_HandOver::waitForMailbox(const QString &appDir, int ms)
{
    QElapsedTimer t;
    t.start();
    while (t.elapsed() < ms) {
        QLocalSocket s;
        s.connectToServer(InstanceLink::serverName(appDir));
        if (s.waitForConnected(100)) {
            s.disconnectFromServer();
            return true;
        }
        QThread::msleep(50);
    }
    return false;
}

void tst_HandOver::startProgram(QProcess &p, const QStringList &args)
{
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    p.setProcessEnvironment(env);
    p.start(QStringLiteral(CORVANE_EXECUTABLE), args);
}

void tst_HandOver::processesHandOver()
{
    TestStore book(QString(), true);
    QProcess first;
    startProgram(first, {QStringLiteral("--appdir"), book.appDir()});
    QVERIFY(first.waitForStarted());
    QVERIFY2(waitForMailbox(book.appDir(), 15000), "the first copy never got ready");

    QProcess second;
    QElapsedTimer t;
    t.start();
    startProgram(second, {QStringLiteral("--appdir"), book.appDir(), QStringLiteral("/ID=2")});
    QVERIFY(second.waitForFinished(5000));
    QCOMPARE(second.exitStatus(), QProcess::NormalExit);
    QCOMPARE(second.exitCode(), 0);
    QVERIFY2(t.elapsed() < 2000, qPrintable(QString::number(t.elapsed())));
    QCOMPARE(first.state(), QProcess::Running);
    first.kill();
    first.waitForFinished();
}

void tst_HandOver::secondPlainStartRunsItsOwnCopy()
{
    TestStore book(QString(), true);
    // With nobody to hand over to, a start with a command line runs as the first copy.
    QProcess copy;
    startProgram(copy, {QStringLiteral("--appdir"), book.appDir(), QStringLiteral("/ID=2")});
    QVERIFY(copy.waitForStarted());
    QVERIFY(waitForMailbox(book.appDir(), 15000));
    // A plain second start is a second full copy, and keeps running.
    QProcess plain;
    startProgram(plain, {QStringLiteral("--appdir"), book.appDir()});
    QVERIFY(plain.waitForStarted());
    QVERIFY(!plain.waitForFinished(1500));
    plain.kill();
    copy.kill();
    plain.waitForFinished();
    copy.waitForFinished();
}

QTEST_GUILESS_MAIN(tst_HandOver)
#include "tst_handover.moc"
