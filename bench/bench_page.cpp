// The drink page: the delivered Standard.cvt filled for a drink of 8 lines and 3 categories,
// once for a drink without a picture of its own and once for one whose picture comes out of
// the picture archive.
#include "BenchRegistry.h"

#include "presentation/CDrinkFacade.h"
#include "store/DrinkStore.h"
#include "store/StoreError.h"

#include <QDir>
#include <QFile>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <cstdio>
#include <memory>
#include <vector>

namespace {

const QString kDataDir = QStringLiteral(CORVANE_BENCH_DATA_DIR);
const QString kArchivePicture = QStringLiteral("000001");

void copyFile(const QString &from, const QString &to)
{
    if (!QFile::copy(from, to))
        throw StoreError(QStringLiteral("The delivered file cannot be copied (is the data built?)."), from);
}

// The application folder a page needs: the glass pictures and the picture archive, copied from
// the build's data into a folder of its own, since every page writes its glass picture there,
// and the drink's picture when it has one.
std::shared_ptr<QTemporaryDir> makePageAppDir()
{
    auto dir = std::make_shared<QTemporaryDir>();
    if (!dir->isValid())
        throw StoreError(dir->errorString(), dir->path());
    const QDir data(kDataDir), target(dir->path());
    const QDir glass(data.filePath(QStringLiteral("glass")));
    const QStringList pictures = glass.entryList({QStringLiteral("*.png")}, QDir::Files);
    if (pictures.isEmpty())
        throw StoreError(QStringLiteral("No glass pictures (is the data built?)."), glass.path());
    target.mkdir(QStringLiteral("glass"));
    for (const QString &picture : pictures)
        copyFile(glass.filePath(picture), target.filePath(QStringLiteral("glass/") + picture));
    for (const char *name : {"Corvane.cvi", "spacer.gif"})
        copyFile(data.filePath(QLatin1String(name)), target.filePath(QLatin1String(name)));
    return dir;
}

// Where a page's time goes beyond the engine's, from a profile of the page without a picture
// at 1,000 drinks, and of the page with one.
const QString kPageCost = QStringLiteral(
    "the page is mostly not the engine's work: about half of it is the glass picture (the PNG read and decoded, "
    "painted on white, written as a BMP file, the other of the two files removed), a tenth the template's "
    "token replacements over its 4 KB; the statements, the lines and categories each through a new QSqlQuery, "
    "take about a quarter, a little more than their floor");
const QString kPictureCost = QStringLiteral(
    "; the drink's picture adds the archive opened (its directory read), the member decrypted and inflated, and "
    "its file written through QSaveFile, which waits for the disk (fdatasync) before it renames: that wait, "
    "not the CPU (about 1.6 ms of the page here), is most of the wall time and follows the disk's load");

struct PageDrink {
    qint32 id = 0;
    QVariant glass, build, garnish, rating;
};

// The first two drinks of 8 lines and 3 categories with every lookup of the page set.
std::vector<PageDrink> pageDrinks(DrinkStore &setup)
{
    std::vector<PageDrink> drinks;
    QSqlQuery rows = setup.select(
        QStringLiteral("SELECT D.id, D.GlassType, D.BuildID, D.GarnishID, D.RatingID FROM Drinks D "
                       "WHERE D.GlassType IS NOT NULL AND D.BuildID IS NOT NULL AND D.GarnishID IS NOT NULL "
                       "AND D.RatingID IS NOT NULL "
                       "AND (SELECT COUNT(*) FROM DrinkRel R WHERE R.DrinkID = D.id) = 8 "
                       "AND (SELECT COUNT(*) FROM DrinkTypeRel T WHERE T.DrinkID = D.id) = 3 ORDER BY D.id LIMIT 2"));
    while (rows.next())
        drinks.push_back({rows.value(0).toInt(), rows.value(1), rows.value(2), rows.value(3), rows.value(4)});
    return drinks;
}

// What the engine runs for one page: the drink, its garnish, build, rating and glass, its lines
// and its categories.
Bench::Floor pageFloor(const PageDrink &drink, const QString &reason)
{
    const QString n = QString::number(drink.id);
    int glass = drink.glass.toInt();
    if (glass < 1 || glass > 24)
        glass = 24;
    Bench::Floor floor;
    floor.statements = {QStringLiteral("SELECT * FROM Drinks WHERE id = ") + n,
                        QStringLiteral("SELECT Name FROM Garnish WHERE id = ") + drink.garnish.toString(),
                        QStringLiteral("SELECT Name FROM Build WHERE id = ") + drink.build.toString(),
                        QStringLiteral("SELECT Name FROM Ratings WHERE RatingID = ") + drink.rating.toString(),
                        QStringLiteral("SELECT Name FROM Glassware WHERE GlassID = ") + QString::number(glass),
                        QStringLiteral("SELECT * FROM DrinkIngredients WHERE DrinkID = ") + n,
                        QStringLiteral("SELECT * FROM DrinkCategories WHERE DrinkID = ") + n};
    floor.note = QStringLiteral("the page's statements only, each prepared anew by the shell; the template, the "
                                "glass picture and the drink's picture are not the engine's work");
    floor.reason = reason;
    return floor;
}

void pageCases(Bench::Registry &registry, const Bench::Store &store, DrinkStore &setup)
{
    const std::vector<PageDrink> drinks = pageDrinks(setup);
    if (drinks.size() < 2) {
        std::fprintf(stderr, "no two drinks of 8 lines and 3 categories among %d: no page benchmarks\n", store.drinks);
        return;
    }
    // One drink without a picture, one with the archive's first: written on the copy.
    const Bench::Store copy = Bench::scratchCopy(store);
    {
        DrinkStore db(copy.path);
        QSqlQuery set = db.prepare(QStringLiteral("UPDATE Drinks SET ImageFilePath = ? WHERE id = ?"));
        set.bindValue(0, QStringLiteral(""));
        set.bindValue(1, drinks[0].id);
        db.exec(set);
        set.bindValue(0, kArchivePicture);
        set.bindValue(1, drinks[1].id);
        db.exec(set);
    }
    const std::shared_ptr<QTemporaryDir> appDir = makePageAppDir();

    const auto body = [copy, appDir](qint32 id, bool withPicture) {
        return [copy, appDir, id, withPicture](benchmark::State &state) {
            DrinkStore db(copy.path);
            CDrinkFacade facade(db, appDir->path());
            facade.setCurrentHTMLTemplatePath(kDataDir + QStringLiteral("/Templates/Standard.cvt"));
            facade.setCurrentHTMLTemplateRoot(kDataDir + QStringLiteral("/Templates"));
            // The first page fills the caches, and shows that the page is the one meant.
            const QString page = facade.drinkAsHTML(id);
            const QString picture = withPicture ? appDir->filePath(kArchivePicture + QStringLiteral(".jpg"))
                                                : appDir->filePath(QStringLiteral("spacer.gif"));
            const QString glass = appDir->filePath(QStringLiteral("glassb.bmp"));
            if (facade.templateText().isEmpty() || !page.contains(picture) || !page.contains(glass) ||
                !QFile::exists(glass) || (withPicture && !QFile::exists(picture))) {
                state.SkipWithError("the page is not the delivered template filled with the drink's pictures");
                return;
            }
            for (auto _ : state)
                benchmark::DoNotOptimize(facade.drinkAsHTML(id));
        };
    };

    registry.add("page.html.no-picture",
                 QStringLiteral("drinkAsHTML, Standard.cvt, 8 lines, 3 categories, no drink picture"), copy,
                 body(drinks[0].id, false), pageFloor(drinks[0], kPageCost));
    registry.add("page.html.picture",
                 QStringLiteral("drinkAsHTML, Standard.cvt, 8 lines, 3 categories, picture 000001 from Corvane.cvi"),
                 copy, body(drinks[1].id, true), pageFloor(drinks[1], kPageCost + kPictureCost));
}

const Bench::Area area(50, pageCases);

} // namespace
