#include "PackageZip.h"
#include "TestFiles.h"
#include "TestHttpServer.h"
#include "TestStore.h"

#include "store/DrinkStore.h"
#include "updates/UpdateClient.h"
#include "updates/UpdateIndex.h"

#include <QSignalSpy>
#include <QtTest>

namespace {
struct Book {
    TestStore store{QStringLiteral("INSERT INTO Drinks (ID, Name) VALUES (1, 'Old One');")};
    TestHttpServer server;
    UpdateClient client{store.store(), store.appDir(), server.host()};
    Book() { client.setTimeout(1500); }
};
} // namespace

class UpdateDownloadsTest : public QObject {
    Q_OBJECT
  private slots:
    void failedUpdateDownloadChangesNothing_data()
    {
        QTest::addColumn<int>("mode");
        QTest::addColumn<bool>("index");
        QTest::newRow("index 404") << int(TestHttpServer::NotFound) << true;
        QTest::newRow("index truncated") << int(TestHttpServer::Truncate) << true;
        QTest::newRow("index redirects forever") << int(TestHttpServer::Redirect) << true;
        QTest::newRow("package stalls") << int(TestHttpServer::Stall) << false;
        QTest::newRow("package truncated") << int(TestHttpServer::Truncate) << false;
    }
    void failedUpdateDownloadChangesNothing()
    {
        QFETCH(int, mode);
        QFETCH(bool, index);
        Book b;
        const QByteArray indexText =
            ("1/5/2026 P x " + b.server.url("/CVX/pics.zip") + " Pictures|Images\r\n").toUtf8();
        const auto failing = TestHttpServer::Mode(mode);
        if (index) {
            b.server.route("/CVX/update.txt", failing,
                           failing == TestHttpServer::Redirect ? "/CVX/update.txt" : indexText);
            QSignalSpy checked(&b.client, &UpdateClient::checked);
            b.client.checkForUpdates();
            QVERIFY(checked.wait(10000));
            QCOMPARE(checked.first().at(0).toBool(), false);
            QVERIFY(!checked.first().at(2).toString().isEmpty());
            QCOMPARE(b.store.store().scalar("SELECT Count(*) FROM Updates").toInt(), 0);
            QVERIFY(!QFile::exists(b.client.packageDir() + "/update.txt"));
            return;
        }
        UpdateIndex::merge(b.store.store(), UpdateIndex::parse(indexText));
        b.server.route("/CVX/pics.zip", failing, packageZip({"pics/000001.jpg"}));
        QSignalSpy failed(&b.client, &UpdateClient::downloadFailed);
        QSignalSpy done(&b.client, &UpdateClient::importFinished);
        b.client.importUpdates({b.server.url("/CVX/pics.zip")});
        QVERIFY(done.wait(10000));
        QCOMPARE(failed.size(), 1);
        QCOMPARE(b.client.counters().imagesAdded, 0);
        QCOMPARE(b.store.store().scalar("SELECT group_concat(Status) FROM Updates").toString(), "Available");
        QCOMPARE(b.store.store().scalar("SELECT group_concat(ImageFilePath, '|') FROM Drinks").toString(), "");
        QVERIFY(!QFile::exists(b.store.appDir() + "/Corvane.cvi"));
        QVERIFY(!QFile::exists(b.client.packageDir() + "/pics.zip"));
    }

    void report_data()
    {
        QTest::addColumn<int>("added");
        QTest::addColumn<int>("ignored");
        QTest::addColumn<int>("images");
        QTest::addColumn<QString>("text");
        QTest::newRow("nothing") << 0 << 0 << 0 << "";
        QTest::newRow("only ignored") << 0 << 2 << 0 << "Added 0 drinks, ignored 2 drinks that you already had.";
        QTest::newRow("only images") << 0 << 0 << 2 << "Added 2 new drink images.";
    }
    void report()
    {
        QFETCH(int, added);
        QFETCH(int, ignored);
        QFETCH(int, images);
        QTEST(UpdateClient::report({added, ignored, images}), "text");
    }

    void packageFileName_data()
    {
        QTest::addColumn<QString>("url");
        QTest::addColumn<QString>("name");
        QTest::newRow("plain") << "http://h/CVX/spring.cvx"
                               << "spring.cvx";
        QTest::newRow("no slash") << "spring.cvx"
                                  << "";
        QTest::newRow("trailing slash") << "http://h/CVX/"
                                        << "";
        QTest::newRow("way up") << "http://h/CVX/.."
                                << "";
        QTest::newRow("backslash") << "http://h/CVX/..\\drinks.db"
                                   << "";
    }
    void packageFileName()
    {
        QFETCH(QString, url);
        QTEST(UpdateClient::packageFileName(url), "name");
    }
};

QTEST_GUILESS_MAIN(UpdateDownloadsTest)
#include "tst_updatedownloads.moc"
