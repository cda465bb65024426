// Online updates on the large book: an index of 2,000 updates merged into Updates (half of
// them known already), and a picture package of 1,000 pictures taken into a copy of the
// delivered picture archive, which is rewritten whole.
#include "BenchRegistry.h"

#include "presentation/ArchivePasswords.h"
#include "store/DrinkStore.h"
#include "updates/PicturePackage.h"
#include "updates/UpdateIndex.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <cstdlib>
#include <cstring>
#include <zip.h>

namespace {
constexpr int kIndexLines = 2000;
constexpr int kPictures = 1000;

QByteArray indexText(int lines)
{
    QByteArray text;
    for (int i = 0; i < lines; ++i)
        text +=
            QStringLiteral(
                "3/%1/2026 %2 1 http://updates.example/CVX/pack%3.%4 Update number %3|Drinks and pictures, part %3\r\n")
                .arg(1 + i % 28)
                .arg(i % 2 ? u'P' : u'D')
                .arg(i)
                .arg(i % 2 ? QStringLiteral("zip") : QStringLiteral("cvx"))
                .toLatin1();
    return text;
}

// A package as the update server hands it out: pictures under a folder, with the password.
bool writePackage(const QString &path, const std::vector<qint32> &ids)
{
    int code = 0;
    zip_t *zip = zip_open(QFile::encodeName(path).constData(), ZIP_CREATE | ZIP_TRUNCATE, &code);
    if (!zip)
        return false;
    const QByteArray picture(6000, 'j'); // about the size of a delivered drink picture
    for (qint32 id : ids) {
        void *copy = std::malloc(size_t(picture.size()));
        std::memcpy(copy, picture.constData(), size_t(picture.size()));
        zip_source_t *source = zip_source_buffer(zip, copy, zip_uint64_t(picture.size()), 1);
        const QByteArray name = QStringLiteral("pics/%1.jpg").arg(id, 6, 10, QLatin1Char('0')).toLatin1();
        const zip_int64_t index = zip_file_add(zip, name.constData(), source, ZIP_FL_OVERWRITE);
        zip_set_file_compression(zip, zip_uint64_t(index), ZIP_CM_STORE, 0);
        zip_file_set_encryption(zip, zip_uint64_t(index), ZIP_EM_TRAD_PKWARE, ArchivePasswords::ImageArchive);
    }
    return zip_close(zip) == 0;
}

void updateCases(Bench::Registry &registry, const Bench::Store &store, DrinkStore &)
{
    if (store.drinks < kPictures)
        return;
    const Bench::Store copy = Bench::scratchCopy(store);
    registry.add("updates.merge", QStringLiteral("Merge an index of 2,000 updates, 1,000 known"), copy,
                 [copy](benchmark::State &state) {
                     DrinkStore db(copy.path);
                     const QByteArray all = indexText(kIndexLines);
                     const QByteArray known = indexText(kIndexLines / 2);
                     for (auto _ : state) {
                         state.PauseTiming();
                         db.execute(QStringLiteral("DELETE FROM Updates"));
                         UpdateIndex::merge(db, UpdateIndex::parse(known));
                         state.ResumeTiming();
                         if (UpdateIndex::merge(db, UpdateIndex::parse(all)) != kIndexLines - kIndexLines / 2)
                             state.SkipWithError("merge added the wrong rows");
                     }
                     db.execute(QStringLiteral("DELETE FROM Updates"));
                 });

    const std::vector<qint32> ids = Bench::sampleIds(store, kPictures);
    registry.add("updates.pictures", QStringLiteral("Take in a package of 1,000 drink pictures"), copy,
                 [copy, ids](benchmark::State &state) {
                     DrinkStore db(copy.path);
                     QTemporaryDir dir;
                     const QString package = dir.filePath(QStringLiteral("pics.zip"));
                     const QString archive = dir.filePath(QStringLiteral("Corvane.cvi"));
                     const QString delivered =
                         QDir(QStringLiteral(CORVANE_BENCH_DATA_DIR)).filePath(QStringLiteral("Corvane.cvi"));
                     if (!writePackage(package, ids)) {
                         state.SkipWithError("package not written");
                         return;
                     }
                     for (auto _ : state) {
                         state.PauseTiming();
                         QFile::remove(archive);
                         QFile::copy(delivered, archive);
                         state.ResumeTiming();
                         const PicturePackage::Result result = PicturePackage::import(db, package, archive);
                         if (!result.message.isEmpty() || result.imagesAdded != kPictures)
                             state.SkipWithError("pictures not taken in");
                     }
                 });
}

const Bench::Area area(87, updateCases);

} // namespace
