#include "base/CLocalConfig.h"

#include "base/AppPaths.h"

#include <QFileInfo>
#include <QSettings>

namespace {

const QString kAppName = QStringLiteral("Corvane");

// The numbers keep the old store's system error codes added to the base:
// 5 access denied, 13 invalid data.
constexpr quint32 kAccessDenied = CLocalConfig::ErrBase + 5;
constexpr quint32 kInvalidData = CLocalConfig::ErrBase + 13;

// The common checks of both directions; gives the settings group of the value.
QString checkedGroup(const QString &appName, const QString &section, const QString &key)
{
    const QString app = appName.trimmed();
    const QString sec = section.trimmed();
    if (app.isEmpty())
        throw ConfigError(CLocalConfig::ErrAppNameEmpty, QStringLiteral("AppName may not be empty"));
    if (sec.isEmpty())
        throw ConfigError(CLocalConfig::ErrSectionEmpty, QStringLiteral("Section may not be empty"));
    if (key.trimmed().isEmpty())
        throw ConfigError(CLocalConfig::ErrKeyEmpty, QStringLiteral("Key may not be empty"));
    return app + QLatin1Char('/') + sec;
}

void throwOnOpenStatus(QSettings::Status status, const QString &text)
{
    if (status == QSettings::FormatError)
        throw ConfigError(kInvalidData, text);
    if (status == QSettings::AccessError)
        throw ConfigError(kAccessDenied, text);
}

} // namespace

ConfigError::ConfigError(quint32 number, const QString &text)
    : std::runtime_error(text.toStdString()), m_number(number), m_text(text)
{
}

QString ConfigError::displayText() const
{
    return QStringLiteral("Run-time error '%1 (%2)':\n\n%3").arg(qint32(m_number)).arg(QString::number(m_number, 16), m_text);
}

CLocalConfig::CLocalConfig() : m_file(AppPaths::settingsFile()) {}

CLocalConfig::CLocalConfig(const QString &settingsFile) : m_file(settingsFile) {}

QString CLocalConfig::Load(const QString &section, const QString &key, const QString &defaultValue) const
{
    return ReadSetting(kAppName, section, key, defaultValue);
}

void CLocalConfig::Save(const QString &section, const QString &key, const QString &value) const
{
    WriteSetting(kAppName, section, key, value);
}

QString CLocalConfig::ReadSetting(const QString &appName, const QString &section, const QString &key,
                                  const QString &defaultValue) const
{
    const QString group = checkedGroup(appName, section, key);
    // A missing file is an installation that has saved nothing yet, not a failure.
    if (!QFileInfo::exists(m_file))
        return defaultValue;
    QSettings settings(m_file, QSettings::IniFormat);
    throwOnOpenStatus(settings.status(), QStringLiteral("Could not open registry section"));
    settings.beginGroup(group);
    if (!settings.contains(key))
        return defaultValue;
    // Unquoted commas make a list and @Variant(...) another type: neither is a text
    // setting this program wrote.
    const QVariant value = settings.value(key);
    if (value.typeId() != QMetaType::QString)
        throw ConfigError(ErrBase, QStringLiteral("Registry data not a string"));
    return value.toString();
}

void CLocalConfig::WriteSetting(const QString &appName, const QString &section, const QString &key,
                                const QString &value) const
{
    const QString group = checkedGroup(appName, section, key);
    const QString openText = QStringLiteral("Could not open/create registry section");
    // QSettings would create missing directories on its own; the settings belong in an
    // existing application directory, so a missing one is an error.
    const QFileInfo file(m_file);
    const QFileInfo dir(file.absolutePath());
    if (!dir.isDir() || !dir.isWritable() || (file.exists() && (!file.isFile() || !file.isWritable())))
        throw ConfigError(kAccessDenied, openText);
    QSettings settings(m_file, QSettings::IniFormat);
    // A file QSettings cannot parse would be rewritten with only the part it understood;
    // refuse rather than lose the rest.
    throwOnOpenStatus(settings.status(), openText);
    settings.beginGroup(group);
    settings.setValue(key, value);
    settings.sync();
    if (settings.status() != QSettings::NoError)
        throw ConfigError(kAccessDenied, QStringLiteral("Could not set key value"));
}
