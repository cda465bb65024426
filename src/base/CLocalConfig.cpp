#include "base/CLocalConfig.h"

#include "base/AppPaths.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QSet>
#include <QSettings>
#include <QTemporaryFile>

#include <memory>
#include <unistd.h>

namespace {

const QString kAppName = QStringLiteral("Corvane");

// The numbers keep the old store's system error codes added to the base:
// 5 access denied, 13 invalid data.
constexpr quint32 kAccessDenied = CLocalConfig::ErrBase + 5;

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

std::function<void(const QString &)> &noticeHandler()
{
    static std::function<void(const QString &)> handler;
    return handler;
}

// Each file is spoken of once per run, whatever is wrong with it.
void noticeOnce(const QString &file, const QString &text)
{
    static QSet<QString> told;
    if (told.contains(file))
        return;
    told.insert(file);
    if (noticeHandler())
        noticeHandler()(text);
    else
        qWarning("%s", qPrintable(text));
}

struct SettingsFile {
    enum State { Missing, Unreadable, Read } state = Missing;
    QByteArray bytes;
};

SettingsFile readSettingsFile(const QString &path)
{
    SettingsFile result;
    const QFileInfo info(path);
    if (!info.exists() && !info.isSymLink())
        return result;
    QFile f(path);
    // A file its owner made unreadable is treated as such even by an administrator.
    const bool ownerForbids = info.ownerId() == ::geteuid() && !(info.permissions() & QFileDevice::ReadOwner);
    if (info.isDir() || ownerForbids || !f.open(QIODevice::ReadOnly)) {
        result.state = SettingsFile::Unreadable;
        noticeOnce(path, QStringLiteral("The settings file %1 cannot be read. Corvane goes on with its default "
                                        "settings for now and leaves that file as it is.")
                             .arg(QDir::toNativeSeparators(path)));
        return result;
    }
    result.state = SettingsFile::Read;
    result.bytes = f.readAll();
    return result;
}

// A line the settings reader takes for nothing: not blank, no comment, no section, no key.
bool hasForeignLines(const QByteArray &bytes)
{
    for (const QByteArray &raw : bytes.split('\n')) {
        const QByteArray line = raw.trimmed();
        if (line.isEmpty() || line.startsWith(';') || line.startsWith('#') || line.contains('='))
            continue;
        if (line.startsWith('[') && line.endsWith(']'))
            continue;
        return true;
    }
    return false;
}

// The settings reader on a private copy of the file: the reader keeps what it parsed of each
// path for the whole run, and would not notice a file changed twice within its clock's tick.
struct ParsedCopy {
    QTemporaryFile file;
    std::unique_ptr<QSettings> settings;
};

std::unique_ptr<ParsedCopy> parse(const QByteArray &bytes)
{
    auto copy = std::make_unique<ParsedCopy>();
    copy->file.setFileTemplate(QDir::tempPath() + QStringLiteral("/corvane-settings-XXXXXX.ini"));
    if (!copy->file.open())
        throw ConfigError(kAccessDenied, QStringLiteral("Could not open registry section"));
    copy->file.write(bytes);
    copy->file.close();
    copy->settings = std::make_unique<QSettings>(copy->file.fileName(), QSettings::IniFormat);
    return copy;
}

// Keeps a copy of a file with lines no setting reads, before anything is written to it.
void keepBadCopy(const QString &path, const SettingsFile &file, const ParsedCopy &parsed)
{
    // The copy is of the file as this run first found it; later saves keep the lines anyway.
    static QSet<QString> copied;
    if (copied.contains(path))
        return;
    if (parsed.settings->status() != QSettings::FormatError && !hasForeignLines(file.bytes))
        return;
    copied.insert(path);
    const QString bad = path + QStringLiteral(".bad");
    QFile existing(bad);
    const bool kept = existing.open(QIODevice::ReadOnly) && existing.readAll() == file.bytes;
    existing.close();
    if (!kept) {
        QSaveFile copy(bad);
        if (!copy.open(QIODevice::WriteOnly) || copy.write(file.bytes) != file.bytes.size() || !copy.commit())
            return; // nothing said: the lines are still in the file itself
    }
    noticeOnce(path, QStringLiteral("The settings file %1 has lines that are not settings. They are kept as "
                                    "they stand, and a copy of the file was saved as %2.")
                         .arg(QDir::toNativeSeparators(path), QDir::toNativeSeparators(bad)));
}

// The section line and the key line the settings writer gives this value.
std::pair<QByteArray, QByteArray> encodedLines(const QString &group, const QString &key, const QString &value)
{
    auto copy = parse({});
    copy->settings->beginGroup(group);
    copy->settings->setValue(key, value);
    copy->settings->endGroup();
    copy->settings->sync();
    QFile f(copy->file.fileName());
    if (!f.open(QIODevice::ReadOnly))
        throw ConfigError(kAccessDenied, QStringLiteral("Could not set key value"));
    const QList<QByteArray> lines = f.readAll().trimmed().split('\n');
    if (lines.size() != 2)
        throw ConfigError(kAccessDenied, QStringLiteral("Could not set key value"));
    return {lines[0].trimmed(), lines[1].trimmed()};
}

QByteArray keyOf(const QByteArray &line)
{
    const qsizetype eq = line.indexOf('=');
    return eq < 0 ? QByteArray() : line.left(eq).trimmed();
}

// The file's text with the key's line replaced, or added to its section, or a section added.
QByteArray spliced(const QByteArray &bytes, const QByteArray &sectionLine, const QByteArray &keyLine)
{
    const QByteArray eol = bytes.contains("\r\n") ? QByteArray("\r\n") : QByteArray("\n");
    QList<QByteArray> lines = bytes.split('\n');
    const bool endsWithEol = bytes.isEmpty() || bytes.endsWith('\n');
    if (endsWithEol)
        lines.removeLast();
    const QByteArray key = keyOf(keyLine);
    const QByteArray cr = eol.size() == 2 ? QByteArray("\r") : QByteArray();
    bool inSection = false, replaced = false;
    qsizetype lastOfSection = -1;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const QByteArray line = lines[i].trimmed();
        if (line.startsWith('[')) {
            inSection = line == sectionLine;
            if (inSection)
                lastOfSection = i;
            continue;
        }
        if (!inSection)
            continue;
        if (!line.isEmpty())
            lastOfSection = i;
        if (keyOf(line) == key) {
            lines[i] = keyLine + cr;
            replaced = true;
        }
    }
    if (!replaced && lastOfSection >= 0) {
        lines.insert(lastOfSection + 1, keyLine + cr);
    } else if (!replaced) {
        lines << sectionLine + cr << keyLine + cr;
    }
    QByteArray out = lines.join('\n');
    if (!out.isEmpty())
        out += '\n';
    return out;
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

void CLocalConfig::setNoticeHandler(std::function<void(const QString &)> handler)
{
    noticeHandler() = std::move(handler);
}

QString CLocalConfig::ReadSetting(const QString &appName, const QString &section, const QString &key,
                                  const QString &defaultValue) const
{
    const QString group = checkedGroup(appName, section, key);
    // A missing file is an installation that has saved nothing yet, not a failure.
    const SettingsFile file = readSettingsFile(m_file);
    if (file.state != SettingsFile::Read)
        return defaultValue;
    const auto parsed = parse(file.bytes);
    keepBadCopy(m_file, file, *parsed);
    QSettings &settings = *parsed->settings;
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
    // The settings belong in an existing application directory, so a missing one is an error.
    const QFileInfo info(m_file);
    const QFileInfo dir(info.absolutePath());
    if (!dir.isDir() || !dir.isWritable())
        throw ConfigError(kAccessDenied, openText);
    const SettingsFile file = readSettingsFile(m_file);
    if (file.state == SettingsFile::Unreadable)
        return; // the user was told; a file that cannot be read is never replaced
    if (info.exists() && !info.isWritable())
        throw ConfigError(kAccessDenied, openText);
    keepBadCopy(m_file, file, *parse(file.bytes));
    const auto [sectionLine, keyLine] = encodedLines(group, key, value);
    const QByteArray text = spliced(file.bytes, sectionLine, keyLine);
    QSaveFile out(m_file);
    if (!out.open(QIODevice::WriteOnly) || out.write(text) != text.size() || !out.commit())
        throw ConfigError(kAccessDenied, QStringLiteral("Could not set key value"));
}
