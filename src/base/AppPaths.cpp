#include "base/AppPaths.h"

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

namespace {
QString g_appDir;

bool copyTree(const QString &from, const QString &to, QString *error)
{
    QDir src(from);
    if (!QDir().mkpath(to)) {
        *error = QStringLiteral("Cannot create the directory %1.").arg(to);
        return false;
    }
    QDirIterator it(from, QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot | QDir::Hidden,
                    QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString path = it.next();
        const QString target = to + QLatin1Char('/') + src.relativeFilePath(path);
        if (it.fileInfo().isDir()) {
            if (!QDir().mkpath(target)) {
                *error = QStringLiteral("Cannot create the directory %1.").arg(target);
                return false;
            }
        } else if (!QFile::copy(path, target)) {
            *error = QStringLiteral("Cannot copy %1 to %2.").arg(path, target);
            return false;
        } else {
            // Delivered files may come from a read-only install tree; the copies are the user's.
            QFile::setPermissions(target, QFile::permissions(target) | QFileDevice::WriteOwner);
        }
    }
    return true;
}
} // namespace

namespace AppPaths {

QString resolve(const QString &explicitDir)
{
    if (!explicitDir.isEmpty())
        return QDir::cleanPath(QDir::current().absoluteFilePath(explicitDir));
    const QString env = qEnvironmentVariable("CORVANE_HOME");
    if (!env.isEmpty())
        return QDir::cleanPath(QDir::current().absoluteFilePath(env));
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + QStringLiteral("/corvane");
}

void setAppDir(const QString &dir) { g_appDir = QDir::cleanPath(dir); }
QString appDir() { return g_appDir; }
QString file(const QString &name) { return g_appDir + QLatin1Char('/') + name; }
QString settingsFile() { return file(QStringLiteral("corvane.ini")); }
QString storeFile() { return file(QStringLiteral("drinks.db")); }

QString deliveredDataDir()
{
    const QString override = qEnvironmentVariable("CORVANE_DATA_DIR");
    if (!override.isEmpty())
        return override;
    const QString exeDir = QCoreApplication::applicationDirPath();
    for (const QString &candidate : {exeDir + QStringLiteral("/data"), exeDir + QStringLiteral("/../share/corvane")}) {
        if (QFileInfo::exists(candidate + QStringLiteral("/drinks.db")))
            return QDir::cleanPath(candidate);
    }
    return {};
}

bool ensureFilled(const QString &dir, QString *error)
{
    const QDir d(dir);
    if (d.exists() && !d.isEmpty(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden))
        return true;
    const QString delivered = deliveredDataDir();
    if (delivered.isEmpty()) {
        *error = QStringLiteral("The delivered recipe book was not found beside the program.");
        return false;
    }
    return copyTree(delivered, dir, error);
}

} // namespace AppPaths
