// Printing: 1,000 recipe cards, four to a page with the glass picture and the recipe, set into
// a PDF file as the print dialog and the command line print them.
#include "BenchRegistry.h"

#include "presentation/CDrinkFacade.h"
#include "printing/PrintRun.h"
#include "store/DrinkStore.h"
#include "store/StoreError.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <memory>

namespace {

const QString kDataDir = QStringLiteral(CORVANE_BENCH_DATA_DIR);
constexpr int kCards = 1000;

// The glass archive and the blank picture, since each glass is taken out into the folder.
std::shared_ptr<QTemporaryDir> makePrintAppDir()
{
    auto dir = std::make_shared<QTemporaryDir>();
    if (!dir->isValid())
        throw StoreError(dir->errorString(), dir->path());
    for (const char *name : {"corvane.glw", "spacer.gif"}) {
        const QString from = QDir(kDataDir).filePath(QLatin1String(name));
        if (!QFile::copy(from, dir->filePath(QLatin1String(name))))
            throw StoreError(QStringLiteral("The delivered file cannot be copied (is the data built?)."), from);
    }
    return dir;
}

void printCases(Bench::Registry &registry, const Bench::Store &store, DrinkStore &)
{
    const std::vector<qint32> ids = Bench::sampleIds(store, kCards);
    const std::shared_ptr<QTemporaryDir> appDir = makePrintAppDir();
    PrintLayoutSettings layout = PrintLayout::defaults();
    layout.rows = layout.cols = QStringLiteral("2");
    layout.rowSpacing = layout.colSpacing = QStringLiteral("0.25");
    layout.marTop = layout.marBottom = layout.marLeft = layout.marRight = QStringLiteral("0.5");
    layout.print[checkIndex(PieceRecipe)] = true;

    registry.add("print.cards.pdf", QStringLiteral("Print 1,000 cards to PDF, 4 a page, glass pictures and recipes"),
                 store, [store, appDir, ids, layout](benchmark::State &state) {
                     DrinkStore db(store.path);
                     CDrinkFacade facade(db, appDir->path());
                     const QString pdf = appDir->filePath(QStringLiteral("cards.pdf"));
                     int canceledAt = 0;
                     for (auto _ : state) {
                         const PrintResult result = printDrinksToPdf(pdf, facade, ids, layout, [&](int done, int) {
                             canceledAt = done;
                             return true;
                         });
                         if (result.status != PrintResult::Printed || result.cards != int(ids.size()) ||
                             result.pages != (int(ids.size()) + 3) / 4 || canceledAt != int(ids.size())) {
                             state.SkipWithError("the run did not print every card");
                             return;
                         }
                     }
                 });
}

const Bench::Area area(95, printCases);

} // namespace
