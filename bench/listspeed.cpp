// corvane-listspeed DIR: times the main window's list commands on the store in DIR, from the
// command to the grid filled, as a user waits for them: View All, a letter tab, a quick search.
#include "base/AppPaths.h"
#include "base/modCorvane.h"
#include "presentation/DrinkListModel.h"
#include "shell/ListController.h"
#include "shell/frmMain.h"

#include "ScreenTime.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QTableView>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>


int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    if (argc < 2) {
        std::fprintf(stderr, "usage: corvane-listspeed APPDIR\n");
        return 2;
    }
    AppPaths::setAppDir(QString::fromLocal8Bit(argv[1]));
    frmMain w;
    if (!w.Form_Load(QString()))
        return 1;
    w.show();
    QApplication::processEvents();
    auto *quick = w.findChild<QLineEdit *>(QStringLiteral("txtQuickSearch"));
    auto *timer = w.findChild<QTimer *>(QStringLiteral("timerQS"));
    const int runs = 7;

    const double all = medianScreenMs(runs, [&](int) { w.RunCommand(207); });
    const int rows = w.listModel()->rowCount();
    quick->setText(QStringLiteral("S"));
    timer->stop();
    // Measured from the moment the 250 ms delay has passed.
    const double quickS = medianScreenMs(runs, [&](int) { QMetaObject::invokeMethod(timer, "timeout"); });
    const int quickRows = w.listModel()->rowCount();
    w.RunCommand(201);
    auto *tabS = w.findChild<QLabel *>(QStringLiteral("pnlListSet19"));
    const double tab = medianScreenMs(runs, [&](int) {
        QMouseEvent press(QEvent::MouseButtonPress, QPointF(2, 2), QPointF(2, 2), QPointF(2, 2), Qt::LeftButton,
                          Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(tabS, &press);
    });
    const int tabRows = w.listModel()->rowCount();
    const double scroll = medianScreenMs(runs, [&](int) {
        auto *grid = w.list()->grid();
        grid->scrollToBottom();
        QApplication::processEvents();
        grid->scrollToTop();
    });
    // The next row to its page shown (template, glass picture, page file, page view).
    w.RunCommand(207);
    int row = 0;
    const double next = medianScreenMs(runs, [&](int) {
        auto *grid = w.list()->grid();
        grid->setCurrentIndex(w.listModel()->index(++row, 0));
    });
    std::printf("Next row to page shown: %.1f ms\n", next);
    std::printf("View All (%d rows): %.1f ms\nLetter tab S (%d rows): %.1f ms\n", rows, all, tabRows, tab);
    std::printf("Quick search \"S\" (%d rows, without the 250 ms delay): %.1f ms\n", quickRows, quickS);
    std::printf("Scroll to the end and back: %.1f ms\n", scroll);
    return 0;
}
