#include "GuiTest.h"
#include "ModalAnswers.h"
#include "PackageZip.h"
#include "TestFiles.h"
#include "TestHttpServer.h"
#include "TestStore.h"

#include "presentation/ZipArchive.h"
#include "store/DrinkStore.h"
#include "updates/UpdateClient.h"
#include "updates/frmWebImport.h"

#include <QTableWidget>

namespace {
const QByteArray kCvx = "Corvane Drink Exchange File\r\nVersion:  1.1\r\n"
                        "----------\r\nName:     Harbor Light\r\nGlass:    3\r\nCategory: Shots\r\n"
                        "Ing:      Rum\r\nMAmount:  3 cl\r\nAmount:   1 oz\r\nMeasure:  1\r\nRecipe:   Shake.\r\n\r\n"
                        "----------\r\nName:     Old One\r\nGlass:    3\r\nCategory: Shots\r\nRecipe:   Stir.\r\n\r\n";

QString cell(QTableWidget *grid, int row, int column)
{
    return grid->item(row, column)->text();
}

void clickCell(QTableWidget *grid, int row, int column)
{
    const QRect rect = grid->visualItemRect(grid->item(row, column));
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, rect.center());
}
} // namespace

class UpdateWindowTest : public QObject {
    Q_OBJECT
  private slots:
    void updateDownloadTickImport()
    {
        TestStore t(QStringLiteral("INSERT INTO Drinks (ID, Name, ImageFilePath) VALUES (1, 'Old One', ''), "
                                   "(2, 'Two', 'old'), (12, 'Twelve', '000012');"));
        const QString archive = t.appDir() + "/Corvane.cvi";
        QVERIFY(writeFile(archive, packageZip({"000002.jpg", "000009.jpg"})));
        TestHttpServer server;
        // The index is found behind a redirect, as a moved server would send it.
        server.route("/CVX/update.txt", TestHttpServer::Redirect, "/CVX/moved.txt");
        server.route("/CVX/moved.txt", TestHttpServer::Serve,
                     ("3/14/2026 D x " + server.url("/CVX/spring.cvx") + " Spring drinks|Harbor Light and more\r\n" +
                      "3/15/2026 P x " + server.url("/CVX/pics.zip") + " Spring pictures|One picture\r\n" +
                      "3/16/2026 D x " + server.url("/CVX/later.cvx") + " Later|Not ticked\r\n")
                         .toUtf8());
        server.route("/CVX/spring.cvx", TestHttpServer::Serve, kCvx);
        // Only a six-digit JPEG in a folder is a picture: 1, 2 and 4 (drink 4 does not exist).
        server.route("/CVX/pics.zip", TestHttpServer::Serve,
                     packageZip({"pics/000001.jpg", "pics/000002.JPG", "000003.jpg", "pics/000004.jpg",
                                 "pics/readme.txt", "pics/12.jpg", "pics/000000.jpg"}));

        frmWebImport dlg(t.store(), t.appDir(), server.host());
        dlg.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dlg));
        auto *grid = child<QTableWidget>(&dlg, "fgUpdates");
        QTest::mouseClick(child<QPushButton>(&dlg, "cmdDownload"), Qt::LeftButton);
        QTRY_COMPARE(grid->rowCount(), 3);
        QCOMPARE(cell(grid, 0, frmWebImport::ColType), "Drinks");
        QCOMPARE(cell(grid, 1, frmWebImport::ColType), "Images");
        QCOMPARE(cell(grid, 1, frmWebImport::ColName), "Spring pictures");

        // Tick the first two rows, one by mouse and one by keyboard; a second click unticks.
        clickCell(grid, 0, frmWebImport::ColSelect);
        clickCell(grid, 2, frmWebImport::ColSelect);
        clickCell(grid, 2, frmWebImport::ColSelect);
        grid->setCurrentCell(1, frmWebImport::ColName);
        QTest::keyClick(grid, Qt::Key_Space);

        // The window shows its messages when a transfer ends, from whatever event loop runs then.
        ModalAnswers answers;
        QTest::mouseClick(child<QPushButton>(&dlg, "cmdImport"), Qt::LeftButton);
        QTRY_COMPARE(answers.seen(), QStringList{"Corvane|Added 1 drinks, ignored 1 drinks that you already had.\n\n"
                                                 "Added 3 new drink images."});
        QCOMPARE(cell(grid, 0, frmWebImport::ColStatus), "Complete");
        QCOMPARE(cell(grid, 1, frmWebImport::ColStatus), "Complete");
        QCOMPARE(cell(grid, 2, frmWebImport::ColStatus), "Available");
        QVERIFY(dlg.addedAny());
        QCOMPARE(t.store().scalar("SELECT Count(*) FROM Drinks WHERE Name = 'Harbor Light'").toInt(), 1);
        QCOMPARE(t.store().scalar("SELECT group_concat(ImageFilePath) FROM Drinks WHERE ID IN (1, 2, 12)").toString(),
                 "000001,000002,000012");
        ZipArchive pictures;
        QVERIFY(pictures.open(archive, QString::fromLatin1(ArchivePasswords::ImageArchive)));
        QStringList names = pictures.memberNames();
        names.sort(Qt::CaseInsensitive);
        QCOMPARE(names, (QStringList{"000001.jpg", "000002.jpg", "000004.jpg", "000009.jpg"}));
        QByteArray data;
        QCOMPARE(pictures.read("000002.jpg", &data), 0);
        QCOMPARE(data, "picture of pics/000002.JPG");

        // A later index: a known name, in other letter case and at a new address, changes nothing and
        // keeps its status and tick; a line with no name is passed over; a new name comes in, read
        // as windows-1252, even with a date nobody can read.
        server.route("/CVX/moved.txt", TestHttpServer::Serve,
                     ("2/2/2027 D x " + server.url("/CVX/spring2.cvx") + " SPRING DRINKS|changed\r\nnonsense\r\n")
                             .toUtf8() +
                         "bad-date P x u Gamma\xe9|new\r\n");
        QTest::mouseClick(child<QPushButton>(&dlg, "cmdDownload"), Qt::LeftButton);
        QTRY_VERIFY(child<QPushButton>(&dlg, "cmdDownload")->isEnabled());
        QCOMPARE(grid->rowCount(), 4);
        QCOMPARE(cell(grid, 0, frmWebImport::ColStatus), "Complete");
        QCOMPARE(cell(grid, 0, frmWebImport::ColSelect), "C");
        QCOMPARE(cell(grid, 0, frmWebImport::ColDescription), "Harbor Light and more");
        QCOMPARE(cell(grid, 3, frmWebImport::ColName), QStringLiteral("Gamma\u00e9"));
    }

    void updateServerFailures()
    {
        TestStore t;
        TestHttpServer server;
        server.route("/CVX/update.txt", TestHttpServer::NotFound);
        frmWebImport dlg(t.store(), t.appDir(), server.host());
        dlg.setTimeout(60000);
        dlg.show();
        ModalAnswers answers;
        QTest::mouseClick(child<QPushButton>(&dlg, "cmdDownload"), Qt::LeftButton);
        QTRY_COMPARE(answers.seen(),
                     QStringList{"Corvane|Unable to download the updates file from " + server.host() + " at this time."});

        // A server that never answers: Stop gives the window back, and nothing is taken in.
        server.route("/CVX/update.txt", TestHttpServer::Serve,
                     ("1/1/2026 D x " + server.url("/CVX/slow.cvx") + " Slow|never comes\r\n").toUtf8());
        server.route("/CVX/slow.cvx", TestHttpServer::Stall);
        QTest::mouseClick(child<QPushButton>(&dlg, "cmdDownload"), Qt::LeftButton);
        auto *grid = child<QTableWidget>(&dlg, "fgUpdates");
        QTRY_COMPARE(grid->rowCount(), 1);
        clickCell(grid, 0, frmWebImport::ColSelect);
        QTest::mouseClick(child<QPushButton>(&dlg, "cmdImport"), Qt::LeftButton);
        QVERIFY(!child<QPushButton>(&dlg, "cmdCancel")->isEnabled());
        QVERIFY(!grid->isEnabled());
        QTRY_COMPARE(server.requests(), 3);
        QTest::mouseClick(child<QPushButton>(&dlg, "cmdStop"), Qt::LeftButton);
        QTRY_VERIFY(child<QPushButton>(&dlg, "cmdCancel")->isEnabled());
        QVERIFY(dlg.isVisible());
        QCOMPARE(answers.seen().size(), 1); // a stop the user asked for is no failure to tell
        QCOMPARE(cell(grid, 0, frmWebImport::ColStatus), "Available");
        QCOMPARE(t.store().scalar("SELECT Count(*) FROM Drinks").toInt(), 0);
    }
};

QTEST_MAIN(UpdateWindowTest)
#include "tst_updatewindow.moc"
