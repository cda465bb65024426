// corvane-editorspeed DIR: times the drink editor and the ingredient grid on the store in DIR
// as a user waits for them: the editor opened on a drink and shown, the drink saved, and the
// ingredient grid opened and shown.
#include "editing/frmAddEdit.h"
#include "reference/frmIngMaint.h"
#include "store/DrinkStore.h"

#include "ScreenTime.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QPushButton>
#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>


int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    if (argc < 2) {
        std::fprintf(stderr, "usage: corvane-editorspeed APPDIR\n");
        return 2;
    }
    const QString appDir = QString::fromLocal8Bit(argv[1]);
    DrinkStore store(appDir + QStringLiteral("/drinks.db"));
    const int drinks = store.scalar(QStringLiteral("SELECT MAX(id) FROM Drinks")).toInt();
    const int ingredients = store.scalar(QStringLiteral("SELECT COUNT(*) FROM Ingredients")).toInt();
    constexpr int Runs = 15;
    auto idOf = [&](int i) { return 1 + (i * 7919) % std::max(1, drinks); };

    const double open = medianScreenMs(Runs, [&](int i) {
        frmAddEdit dlg(store, appDir);
        dlg.Setup(true, false, idOf(i));
        dlg.show();
        QApplication::processEvents();
    });
    std::vector<std::unique_ptr<frmAddEdit>> editors;
    for (int i = 0; i < Runs; ++i) {
        editors.push_back(std::make_unique<frmAddEdit>(store, appDir));
        editors.back()->Setup(true, false, idOf(i));
    }
    const double save = medianScreenMs(Runs, [&](int i) { editors[std::size_t(i)]->cmdSave_Click(); });
    const double grid = medianScreenMs(5, [&](int) {
        frmIngMaint dlg(store);
        dlg.show();
        QApplication::processEvents();
    });
    std::printf("drinks %d, ingredients %d\n", drinks, ingredients);
    std::printf("editor open and shown: %.1f ms\neditor save: %.1f ms\ningredient grid open and shown: %.1f ms\n",
                open, save, grid);
    return 0;
}
