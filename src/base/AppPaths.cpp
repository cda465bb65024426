#include "base/AppPaths.h"

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QTemporaryDir>

namespace {
QString g_appDir;

// Copies one file under a temporary name and renames it into place, so that a full disk
// leaves no half file that a later start would take for a whole one.
bool copyWhole(const QString &from, const QString &to, QString *error)
{
    const QString part = to + QStringLiteral(".part");
    QFile::remove(part);
    if (!QFile::copy(from, part) || !QFile::rename(part, to)) {
        QFile::remove(part);
        *error = QStringLiteral("Cannot copy %1 to %2.").arg(from, to);
        return false;
    }
    // Delivered files may come from a read-only install tree; the copies are the user's.
    QFile::setPermissions(to, QFile::permissions(to) | QFileDevice::WriteOwner);
    return true;
}

// Copies every file of the tree that the target lacks; what the target has is left alone.
bool copyMissing(const QString &from, const QString &to, QString *error)
{
    const QDir src(from);
    if (!QDir().mkpath(to)) {
        *error = QStringLiteral("Cannot create the directory %1.").arg(to);
        return false;
    }
    QDirIterator it(from, QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot | QDir::Hidden | QDir::System,
                    QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString path = it.next();
        const QString target = to + QLatin1Char('/') + src.relativeFilePath(path);
        if (QFileInfo(target).exists() || QFileInfo(target).isSymLink())
            continue;
        if (it.fileInfo().isDir()) {
            if (!QDir().mkpath(target)) {
                *error = QStringLiteral("Cannot create the directory %1.").arg(target);
                return false;
            }
        } else if (!copyWhole(path, target, error)) {
            return false;
        }
    }
    return true;
}

// A new application directory is filled beside its place and renamed into it when whole.
bool fillNew(const QString &delivered, const QString &dir, QString *error)
{
    const QFileInfo info(dir);
    const QString parent = info.absolutePath();
    if (!QDir().mkpath(parent)) {
        *error = QStringLiteral("Cannot create the directory %1.").arg(parent);
        return false;
    }
    QTemporaryDir filling(parent + QStringLiteral("/.") + info.fileName() + QStringLiteral("-filling-XXXXXX"));
    if (!filling.isValid()) {
        *error = QStringLiteral("Cannot create a directory in %1.").arg(parent);
        return false;
    }
    if (!copyMissing(delivered, filling.path(), error))
        return false;
    if (info.exists())
        QDir().rmdir(dir); // empty: it is replaced by the filled one
    if (!QDir().rename(filling.path(), dir)) {
        *error = QStringLiteral("Cannot create the directory %1.").arg(dir);
        return false;
    }
    filling.setAutoRemove(false);
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
    const QFileInfo info(dir);
    if (info.exists() && !info.isDir()) {
        *error = QStringLiteral("The application directory %1 is a file, not a directory.").arg(dir);
        return false;
    }
    const bool fresh = !info.exists() || QDir(dir).isEmpty(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden);
    const QString delivered = deliveredDataDir();
    if (delivered.isEmpty()) {
        if (!fresh)
            return true; // nothing to restore from; the open says what is missing
        *error = QStringLiteral("The delivered recipe book was not found beside the program.");
        return false;
    }
    return fresh ? fillNew(delivered, dir, error) : copyMissing(delivered, dir, error);
}

} // namespace AppPaths
