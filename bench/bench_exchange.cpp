// Exchange files on the large book: 10,000 drinks written to a .CVX file, and a file of
// 10,000 drinks new to the book imported into it, one transaction a drink, counting as it goes.
#include "BenchRegistry.h"

#include "exchange/CvxImport.h"
#include "exchange/CvxWriter.h"
#include "exchange/DrinkExport.h"
#include "exchange/ExportFile.h"
#include "presentation/CDrinkFacade.h"
#include "store/DrinkStore.h"

#include <QDir>
#include <QTemporaryDir>

namespace {
constexpr int kDrinks = 10000;

void exchangeCases(Bench::Registry &registry, const Bench::Store &store, DrinkStore &)
{
    if (store.drinks < kDrinks)
        return;
    const std::vector<qint32> ids = Bench::sampleIds(store, kDrinks);
    registry.add("exchange.export", QStringLiteral("Export 10,000 drinks to CVX"), store,
                 [store, ids](benchmark::State &state) {
                     DrinkStore db(store.path);
                     CDrinkFacade facade(db, store.appDir);
                     QTemporaryDir dir;
                     for (auto _ : state) {
                         DrinkExporter run(db, facade, DrinkExporter::Exchange);
                         for (qint32 id : ids)
                             run.exportDrink(id);
                         if (!writeExportFile(dir.filePath(QStringLiteral("drinks.cvx")), run.fileText()).isEmpty())
                             state.SkipWithError("export not written");
                     }
                 });

    const Bench::Store copy = Bench::scratchCopy(store);
    registry.add("exchange.import", QStringLiteral("Import 10,000 drinks from CVX"), copy,
                 [copy, ids](benchmark::State &state) {
                     DrinkStore db(copy.path);
                     QTemporaryDir dir;
                     const QString path = dir.filePath(QStringLiteral("new.cvx"));
                     {
                         // The book's own drinks under names it does not hold yet.
                         CDrinkFacade facade(db, copy.appDir);
                         QString text = cvxFileHead();
                         for (qint32 id : ids)
                             text += drinkAsCVX(facade, db, id).replace(QStringLiteral("\r\nName:     "),
                                                                         QStringLiteral("\r\nName:     Imported ")) +
                                     QStringLiteral("\r\n");
                         writeExportFile(path, text);
                     }
                     const qint32 before = db.scalar(QStringLiteral("SELECT Max(ID) FROM Drinks")).toInt();
                     int counted = 0;
                     for (auto _ : state) {
                         const CvxImportResult result = importCvxFile(db, path, [&](CvxImporter::Outcome) { ++counted; });
                         state.PauseTiming();
                         if (result.status != CvxImportResult::Done || counted % kDrinks != 0)
                             state.SkipWithError("import stopped");
                         // The copy is shared with the other writing benchmarks: the drinks go again.
                         const QString after = QString::number(before);
                         db.execute(QStringLiteral("DELETE FROM DrinkRel WHERE DrinkID > ") + after);
                         db.execute(QStringLiteral("DELETE FROM DrinkTypeRel WHERE DrinkID > ") + after);
                         db.execute(QStringLiteral("DELETE FROM Drinks WHERE ID > ") + after);
                         state.ResumeTiming();
                     }
                 });
}

const Bench::Area area(85, exchangeCases);

} // namespace
