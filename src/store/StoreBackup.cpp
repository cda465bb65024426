#include "store/StoreBackup.h"

#include "store/DrinkStore.h"
#include "store/StoreFunctions.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QThread>
#include <sqlite3.h>

namespace {
// How long a copy waits for a writer that holds the book before it gives up.
constexpr int kWaitMs = DrinkStore::kBusyWaitMs;
constexpr int kPauseMs = 50;
} // namespace

QString backupStore(DrinkStore &store, const QString &targetPath)
{
    sqlite3 *source = sqliteHandle(store.database());
    if (!source)
        return QStringLiteral("The book is not open.");
    // A copy over the book itself would remove the book before the copy was made.
    if (QFileInfo(targetPath).canonicalFilePath() == QFileInfo(store.path()).canonicalFilePath())
        return QStringLiteral("The copy cannot replace the book itself: %1").arg(targetPath);
    const QString partial = targetPath + QStringLiteral(".partial");
    QFile::remove(partial);
    sqlite3 *target = nullptr;
    if (sqlite3_open_v2(QFile::encodeName(partial).constData(), &target,
                        SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr) != SQLITE_OK) {
        const QString why = target ? QString::fromUtf8(sqlite3_errmsg(target)) : QStringLiteral("out of memory");
        sqlite3_close(target);
        return QStringLiteral("The file %1 cannot be written: %2").arg(targetPath, why);
    }
    QString failure;
    sqlite3_backup *copy = sqlite3_backup_init(target, "main", source, "main");
    if (!copy) {
        failure = QString::fromUtf8(sqlite3_errmsg(target));
    } else {
        // All pages in one step, under one read lock: the copy is the book at one moment.
        int rc = SQLITE_OK;
        for (int waited = 0;; waited += kPauseMs) {
            rc = sqlite3_backup_step(copy, -1);
            if ((rc != SQLITE_BUSY && rc != SQLITE_LOCKED) || waited >= kWaitMs)
                break;
            QThread::msleep(kPauseMs);
        }
        sqlite3_backup_finish(copy);
        if (rc != SQLITE_DONE)
            failure = DrinkStore::errorText(rc, QString::fromUtf8(sqlite3_errstr(rc)));
    }
    sqlite3_close(target);
    if (failure.isEmpty()) {
        QFile::remove(targetPath);
        if (!QFile::rename(partial, targetPath))
            failure = QStringLiteral("The copy cannot be moved to %1.").arg(targetPath);
    }
    if (!failure.isEmpty()) {
        QFile::remove(partial);
        return failure.startsWith(QStringLiteral("The ")) ? failure
                                                          : QStringLiteral("The book cannot be copied to %1: %2").arg(targetPath, failure);
    }
    return {};
}
