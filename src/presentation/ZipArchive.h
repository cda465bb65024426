#pragma once

#include <functional>

#include <QByteArray>
#include <QString>
#include <QStringList>

struct zip;

// A password-protected zip archive (the drink and glass picture archives). Members are read
// with the archive's password and written with traditional PKWARE encryption, which every
// unzip tool understands. Changes reach the disk only in commit(), through a temporary file
// renamed into place, so a failed write leaves the old archive as it was.
class ZipArchive {
  public:
    // Error codes of extract() and error(); only 0 means success.
    enum Error {
        NoError = 0,
        NotOpen,
        ArchiveMissing,
        ArchiveDamaged,
        MemberMissing,
        WrongPassword,
        DataDamaged, // CRC or inflate failure: a damaged member, or a password that passed the check byte
        WriteFailed,
    };
    enum OpenMode {
        ReadOnly,
        Update,  // keeps the members; the archive is created on commit when missing
        Replace, // starts empty; commit replaces whatever file was there
    };
    enum Compression { Deflate, Store };

    ZipArchive() = default;
    ~ZipArchive();
    ZipArchive(const ZipArchive &) = delete;
    ZipArchive &operator=(const ZipArchive &) = delete;

    bool open(const QString &path, const QString &password, OpenMode mode = ReadOnly);
    bool isOpen() const { return m_zip != nullptr; }
    // Discards uncommitted changes.
    void close();
    // Writes the changes and closes. False (and the file untouched) on failure.
    bool commit();

    QStringList memberNames() const;
    // Extracts one member (name compared without case, as on the old platform) to
    // dir/member, replacing a file of that name. Returns 0 on success, else an Error.
    int extract(const QString &member, const QString &dir);
    // Adds a member or replaces the one of that name, encrypted with the archive's password.
    // Reads one member by its full name, folders included (name compared without case).
    // Returns 0 on success, else an Error; data is left empty then.
    int read(const QString &member, QByteArray *data);
    bool addData(const QString &member, const QByteArray &data, Compression compression = Deflate);
    bool addFile(const QString &member, const QString &sourcePath, Compression compression = Deflate);

    Error error() const { return m_error; }
    QString errorString() const { return m_errorString; }

    // Open, extract, close: what the drink page and the print layouts need.
    static int extractMember(const QString &archivePath, const QString &password, const QString &member,
                             const QString &dir);

  private:
    bool fail(Error error, const QString &text);
    int failCode(Error error, const QString &text);
    // Reads a member chunk by chunk into the sink; a sink that returns false stops the read
    // with the error it set. Only plain names (no folder) when plainNameOnly.
    int readMember(const QString &member, bool plainNameOnly, const std::function<bool(const char *, qsizetype)> &sink);

    zip *m_zip = nullptr;
    QByteArray m_password;
    Error m_error = NoError;
    QString m_errorString;
};
