#include "updates/UpdateClient.h"

#include "base/CLocalConfig.h"
#include "base/modCorvane.h"
#include "exchange/CvxImport.h"
#include "store/StoreError.h"
#include "updates/PicturePackage.h"
#include "updates/UpdateIndex.h"

#include <QDir>
#include <QFile>
#include <QTimer>

namespace {
const QString kPackageFolder = QStringLiteral("Updates");
const QString kIndexFile = QStringLiteral("update.txt");
} // namespace

UpdateClient::UpdateClient(DrinkStore &store, const QString &appDir, const QString &host, QObject *parent)
    : QObject(parent), m_store(store), m_appDir(appDir), m_host(host), m_download(m_network)
{
    connect(&m_download, &UpdateDownload::progress, this, &UpdateClient::progress);
    connect(&m_download, &UpdateDownload::finished, this, [this](bool ok, const QString &error) {
        if (m_step == Step::Index)
            indexDownloaded(ok, error);
        else if (m_step == Step::Packages)
            packageDownloaded(ok, error);
    });
}

QString UpdateClient::defaultHost()
{
    return QStringLiteral("updates.corvane.com");
}

QString UpdateClient::configuredHost(const CLocalConfig &config)
{
    const QString host = config.Load(modCorvane::kSettings, QStringLiteral("UpdateHost"), defaultHost()).trimmed();
    return host.isEmpty() ? defaultHost() : host;
}

QUrl UpdateClient::indexUrl(const QString &host)
{
    return QUrl(QStringLiteral("http://%1/CVX/update.txt").arg(host));
}

QString UpdateClient::downloadFailedMessage(const QString &host)
{
    return QStringLiteral("Unable to download the updates file from %1 at this time.").arg(host);
}

QString UpdateClient::report(const UpdateCounters &counters)
{
    QString text;
    if (counters.drinksAdded > 0 || counters.drinksIgnored >= 1)
        text = QStringLiteral("Added %1 drinks, ignored %2 drinks that you already had.")
                   .arg(counters.drinksAdded)
                   .arg(counters.drinksIgnored);
    if (counters.imagesAdded > 0) {
        if (!text.isEmpty())
            text += QStringLiteral("\n\n");
        text += QStringLiteral("Added %1 new drink images.").arg(counters.imagesAdded);
    }
    return text;
}

QString UpdateClient::packageFileName(const QString &url)
{
    const qsizetype slash = url.lastIndexOf(u'/');
    if (slash < 0)
        return {};
    const QString name = url.mid(slash + 1);
    // Only a plain file name may be written: no way up and out of the package folder.
    if (name == u"." || name == u".." || name.contains(u'\\'))
        return {};
    return name;
}

QString UpdateClient::packageDir() const
{
    return QDir(m_appDir).filePath(kPackageFolder);
}

void UpdateClient::checkForUpdates()
{
    if (m_busy)
        return;
    m_busy = true;
    m_canceled = false;
    m_step = Step::Index;
    QDir().mkpath(packageDir());
    m_download.start(indexUrl(m_host), QDir(packageDir()).filePath(kIndexFile));
}

void UpdateClient::indexDownloaded(bool ok, const QString &error)
{
    m_step = Step::Idle;
    m_busy = false;
    if (!ok) {
        emit checked(false, 0, error);
        return;
    }
    QFile index(QDir(packageDir()).filePath(kIndexFile));
    if (!index.open(QIODevice::ReadOnly)) {
        emit checked(false, 0, index.errorString());
        return;
    }
    try {
        const int added = UpdateIndex::merge(m_store, UpdateIndex::parse(index.readAll()));
        emit checked(true, added, QString());
    } catch (const StoreError &e) {
        emit checked(false, 0, e.engineText());
    }
}

void UpdateClient::importUpdates(const QStringList &urls)
{
    if (m_busy)
        return;
    m_busy = true;
    m_canceled = false;
    m_counters = {};
    m_queue = urls;
    m_step = Step::Packages;
    QDir().mkpath(packageDir());
    nextPackage();
}

void UpdateClient::cancel()
{
    if (!m_busy)
        return;
    m_canceled = true;
    m_queue.clear();
    m_download.cancel();
}

void UpdateClient::nextPackage()
{
    while (!m_queue.isEmpty() && !m_canceled) {
        m_current = m_queue.takeFirst();
        const QString name = packageFileName(m_current);
        if (name.isEmpty())
            continue;
        m_currentPath = QDir(packageDir()).filePath(name);
        m_download.start(QUrl(m_current), m_currentPath);
        return;
    }
    m_step = Step::Idle;
    m_busy = false;
    emit importFinished(m_canceled);
}

void UpdateClient::packageDownloaded(bool ok, const QString &error)
{
    if (m_canceled) {
        nextPackage();
        return;
    }
    if (!ok) {
        emit downloadFailed(m_current, error);
    } else {
        // The update counts as tried whatever the package held; its message tells the rest.
        // A store error ends this package's import, as it would any other; the run goes on.
        QString message;
        try {
            message = takeIn(m_currentPath);
            UpdateIndex::markComplete(m_store, m_current);
        } catch (const StoreError &e) {
            message = e.engineText();
        }
        emit updateDone(m_current, message);
    }
    // The next download starts from the event loop, so the window paints in between.
    QTimer::singleShot(0, this, &UpdateClient::nextPackage);
}

QString UpdateClient::takeIn(const QString &path)
{
    if (path.endsWith(QLatin1String(".CVX"), Qt::CaseInsensitive)) {
        const CvxImportResult result = importCvxFile(m_store, path, [this](CvxImporter::Outcome outcome) {
            ++(outcome == CvxImporter::Added ? m_counters.drinksAdded : m_counters.drinksIgnored);
        });
        return result.message;
    }
    const PicturePackage::Result result =
        PicturePackage::import(m_store, path, QDir(m_appDir).filePath(QStringLiteral("Corvane.cvi")));
    m_counters.imagesAdded += result.imagesAdded;
    return result.message;
}
