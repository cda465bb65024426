#pragma once

#include <QString>
#include <functional>
#include <stdexcept>

// A numbered error of the settings store; number and text are those the user sees.
class ConfigError : public std::runtime_error {
public:
    ConfigError(quint32 number, const QString &text);
    quint32 number() const { return m_number; }
    QString text() const { return m_text; }
    // Shown the way the program always has shown an error no handler took: number and text.
    QString displayText() const;

private:
    quint32 m_number;
    QString m_text;
};

// The program's named text settings. Holds no state: every call opens the settings file in
// the application directory, does its work and closes it. Reading never creates anything.
// A save changes the one line of its key and keeps every other line of the file as it was,
// written whole through a temporary file. A file with lines that are no settings is copied
// once to "<file>.bad" and the user told so; a file that cannot be read gives one message,
// reads as all defaults and is never written.
class CLocalConfig {
public:
    // Settings file of the current application directory (AppPaths), unless one is given.
    CLocalConfig();
    explicit CLocalConfig(const QString &settingsFile);

    QString Load(const QString &section, const QString &key, const QString &defaultValue) const;
    void Save(const QString &section, const QString &key, const QString &value) const;

    // The internal pair, with the application name as first argument.
    QString ReadSetting(const QString &appName, const QString &section, const QString &key,
                        const QString &defaultValue) const;
    void WriteSetting(const QString &appName, const QString &section, const QString &key,
                      const QString &value) const;

    static constexpr quint32 ErrAppNameEmpty = 0x800403E8;
    static constexpr quint32 ErrSectionEmpty = 0x800403E9;
    static constexpr quint32 ErrKeyEmpty = 0x800403EA;
    static constexpr quint32 ErrBase = 0x800407D0;

    // Where the one-time notices about the file go (a message box in the program).
    static void setNoticeHandler(std::function<void(const QString &)> handler);

private:
    QString m_file;
};
