#include "PackageZip.h"
#include "TestFiles.h"
#include "TestHttpServer.h"
#include "TestStore.h"

#include "store/DrinkStore.h"
#include "updates/UpdateClient.h"
#include "updates/UpdateIndex.h"

#include <QSignalSpy>
#include <QtTest>

class UpdateDownloadsTest : public QObject {
    Q_OBJECT
  private slots:
    void failedUpdateDownloadChangesNothing_data()
    {
        QTest::addColumn<int>("mode");
        QTest::addColumn<bool>("index");
        QTest::newRow("index truncated") << int(TestHttpServer::Truncate) << true;
        QTest::newRow("index redirects forever") << int(TestHttpServer::Redirect) << true;
        QTest::newRow("package stalls") << int(TestHttpServer::Stall) << false;
        QTest::newRow("package truncated") << int(TestHttpServer::Truncate) << false;
    }
    void failedUpdateDownloadChangesNothing()
    {
        QFETCH(int, mode);
        QFETCH(bool, index);
        TestStore store(QStringLiteral("INSERT INTO Drinks (ID, Name) VALUES (1, 'Old One');"));
        TestHttpServer server;
        UpdateClient client(store.store(), store.appDir(), server.host());
        client.setTimeout(1500);
        const QByteArray indexText = ("1/5/2026 P x " + server.url("/CVX/pics.zip") + " Pictures|Images\r\n").toUtf8();
        const auto failing = TestHttpServer::Mode(mode);
        if (index) {
            server.route("/CVX/update.txt", failing,
                           failing == TestHttpServer::Redirect ? "/CVX/update.txt" : indexText);
            QSignalSpy checked(&client, &UpdateClient::checked);
            client.checkForUpdates();
            QVERIFY(checked.wait(10000));
            QCOMPARE(checked.first().at(0).toBool(), false);
            QVERIFY(!checked.first().at(2).toString().isEmpty());
            QCOMPARE(store.store().scalar("SELECT Count(*) FROM Updates").toInt(), 0);
            QVERIFY(!QFile::exists(client.packageDir() + "/update.txt"));
            return;
        }
        UpdateIndex::merge(store.store(), UpdateIndex::parse(indexText));
        server.route("/CVX/pics.zip", failing, packageZip({"pics/000001.jpg"}));
        QSignalSpy failed(&client, &UpdateClient::downloadFailed);
        QSignalSpy done(&client, &UpdateClient::importFinished);
        client.importUpdates({server.url("/CVX/pics.zip")});
        QVERIFY(done.wait(10000));
        QCOMPARE(failed.size(), 1);
        QCOMPARE(client.counters().imagesAdded, 0);
        QCOMPARE(store.store().scalar("SELECT group_concat(Status) FROM Updates").toString(), "Available");
        QCOMPARE(store.store().scalar("SELECT group_concat(ImageFilePath, '|') FROM Drinks").toString(), "");
        QVERIFY(!QFile::exists(store.appDir() + "/Corvane.cvi"));
        QVERIFY(!QFile::exists(client.packageDir() + "/pics.zip"));
    }

    // Addresses that name no plain file in the package folder are passed over.
    void packageFileName_data()
    {
        QTest::addColumn<QString>("url");
        QTest::newRow("trailing slash") << "http://h/CVX/";
        QTest::newRow("way up") << "http://h/CVX/..";
        QTest::newRow("backslash") << "http://h/CVX/..\\drinks.db";
    }
    void packageFileName()
    {
        QFETCH(QString, url);
        QCOMPARE(UpdateClient::packageFileName(url), QString());
    }
};

QTEST_GUILESS_MAIN(UpdateDownloadsTest)
#include "tst_updatedownloads.moc"
