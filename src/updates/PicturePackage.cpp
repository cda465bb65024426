#include "updates/PicturePackage.h"

#include "presentation/ArchivePasswords.h"
#include "presentation/ZipArchive.h"
#include "store/DrinkStore.h"

#include <QHash>
#include <QList>
#include <QPair>
#include <QRegularExpression>

QString PicturePackage::corruptMessage()
{
    return QStringLiteral("Unable to import the images.  The file may be corrupt.");
}

QString PicturePackage::pictureFileName(const QString &member)
{
    if (member.size() <= 4 || !member.endsWith(QLatin1String(".JPG"), Qt::CaseInsensitive))
        return {};
    const qsizetype slash = member.lastIndexOf(u'/');
    return slash < 0 ? QString() : member.mid(slash + 1);
}

PicturePackage::Result PicturePackage::import(DrinkStore &store, const QString &packagePath,
                                              const QString &imageArchivePath)
{
    const QString password = QString::fromLatin1(ArchivePasswords::ImageArchive);
    Result result;
    ZipArchive package;
    if (!package.open(packagePath, password)) {
        result.message = corruptMessage();
        return result;
    }
    ZipArchive archive;
    bool archiveOpen = false;
    QHash<QString, QString> existing;       // lower-case name -> member name in the archive
    QList<QPair<qint32, QString>> pictures; // drink id, ImageFilePath
    qint32 added = 0;
    for (const QString &member : package.memberNames()) {
        const QString fileName = pictureFileName(member);
        if (fileName.isEmpty())
            continue;
        // The drink page finds a picture of the archive only by a six-digit number; any other
        // name would point the drink at a picture it can never show.
        const QString stem = fileName.chopped(4);
        static const QRegularExpression sixDigits(QStringLiteral("^[0-9]{6}$"));
        if (!sixDigits.match(stem).hasMatch())
            continue;
        const qint32 id = stem.toInt();
        if (id < 1)
            continue;
        QByteArray data;
        const int code = package.read(member, &data);
        if (code == ZipArchive::WrongPassword || code == ZipArchive::DataDamaged) {
            // Half a package is worse than none: the archive and the drinks stay as they were.
            result.message = corruptMessage();
            return result;
        }
        if (code != ZipArchive::NoError)
            continue;
        if (!archiveOpen) {
            if (!archive.open(imageArchivePath, password, ZipArchive::Update)) {
                result.message = corruptMessage();
                return result;
            }
            archiveOpen = true;
            for (const QString &name : archive.memberNames())
                existing.insert(name.toLower(), name);
        }
        ++added;
        // Pictures are found without regard to case, so a new one replaces the old whatever
        // the case of either name.
        const QString memberName = existing.value(fileName.toLower(), fileName);
        existing.insert(fileName.toLower(), memberName);
        if (archive.addData(memberName, data, ZipArchive::Store))
            pictures << qMakePair(id, stem);
    }
    result.imagesAdded = added;
    if (!archiveOpen)
        return result;
    if (!archive.commit()) {
        result.message = QStringLiteral("The drink pictures could not be saved: %1").arg(archive.errorString());
        return result;
    }
    ScopedTransaction transaction(store);
    QSqlQuery point = store.prepare(QStringLiteral("UPDATE Drinks SET ImageFilePath = ? WHERE ID = ?"));
    for (const auto &[id, path] : pictures) {
        point.addBindValue(path);
        point.addBindValue(id);
        store.exec(point);
    }
    transaction.commit();
    return result;
}
