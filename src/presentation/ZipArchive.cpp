#include "ZipArchive.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <zip.h>

namespace {

QString libzipText(int code)
{
    zip_error_t e;
    zip_error_init_with_code(&e, code);
    const QString text = QString::fromUtf8(zip_error_strerror(&e));
    zip_error_fini(&e);
    return text;
}

// A member is a plain file name: anything with a path in it could write outside the target.
bool isPlainName(const QString &name)
{
    return !name.isEmpty() && name != "." && name != ".." && !name.contains('/') && !name.contains('\\');
}

ZipArchive::Error readError(int code)
{
    switch (code) {
    case ZIP_ER_WRONGPASSWD:
    case ZIP_ER_NOPASSWD:
        return ZipArchive::WrongPassword;
    default:
        return ZipArchive::DataDamaged;
    }
}

} // namespace

ZipArchive::~ZipArchive()
{
    close();
}

bool ZipArchive::fail(Error error, const QString &text)
{
    m_error = error;
    m_errorString = text;
    return false;
}

int ZipArchive::failCode(Error error, const QString &text)
{
    fail(error, text);
    return error;
}

bool ZipArchive::open(const QString &path, const QString &password, OpenMode mode)
{
    close();
    m_error = NoError;
    m_errorString.clear();
    if (mode == ReadOnly && !QFileInfo(path).isFile())
        return fail(ArchiveMissing, QStringLiteral("%1: no such archive").arg(path));

    int flags = ZIP_RDONLY;
    if (mode == Update)
        flags = ZIP_CREATE;
    else if (mode == Replace)
        flags = ZIP_CREATE | ZIP_TRUNCATE;
    int code = 0;
    m_zip = zip_open(QFile::encodeName(path).constData(), flags, &code);
    if (!m_zip)
        return fail(code == ZIP_ER_NOENT ? ArchiveMissing : ArchiveDamaged,
                    QStringLiteral("%1: %2").arg(path, libzipText(code)));
    m_password = password.toLatin1();
    if (!m_password.isEmpty())
        zip_set_default_password(m_zip, m_password.constData());
    return true;
}

void ZipArchive::close()
{
    if (m_zip)
        zip_discard(m_zip);
    m_zip = nullptr;
}

bool ZipArchive::commit()
{
    if (!m_zip)
        return fail(NotOpen, QStringLiteral("no archive is open"));
    // libzip writes a temporary file beside the archive and renames it over the old one.
    if (zip_close(m_zip) != 0) {
        const QString text = QString::fromUtf8(zip_error_strerror(zip_get_error(m_zip)));
        close();
        return fail(WriteFailed, text);
    }
    m_zip = nullptr;
    return true;
}

QStringList ZipArchive::memberNames() const
{
    QStringList names;
    if (!m_zip)
        return names;
    const zip_int64_t count = zip_get_num_entries(m_zip, 0);
    for (zip_int64_t i = 0; i < count; ++i) {
        if (const char *name = zip_get_name(m_zip, zip_uint64_t(i), ZIP_FL_ENC_GUESS))
            names << QString::fromUtf8(name);
    }
    return names;
}

int ZipArchive::readMember(const QString &member, bool plainNameOnly, const std::function<bool(const char *, qsizetype)> &sink)
{
    m_error = NoError;
    m_errorString.clear();
    if (!m_zip)
        return failCode(NotOpen, QStringLiteral("no archive is open"));
    const zip_int64_t index = !plainNameOnly || isPlainName(member)
                                  ? zip_name_locate(m_zip, member.toUtf8().constData(), ZIP_FL_NOCASE)
                                  : -1;
    if (index < 0)
        return failCode(MemberMissing, QStringLiteral("%1: no such member").arg(member));
    zip_file_t *in = zip_fopen_index(m_zip, zip_uint64_t(index), 0);
    if (!in) {
        const int code = zip_error_code_zip(zip_get_error(m_zip));
        zip_error_clear(m_zip);
        return failCode(readError(code), QStringLiteral("%1: %2").arg(member, libzipText(code)));
    }
    char buffer[65536];
    for (;;) {
        const zip_int64_t n = zip_fread(in, buffer, sizeof buffer);
        if (n < 0) {
            const int code = zip_error_code_zip(zip_file_get_error(in));
            zip_fclose(in);
            return failCode(readError(code), QStringLiteral("%1: %2").arg(member, libzipText(code)));
        }
        if (n == 0)
            break;
        if (!sink(buffer, qsizetype(n))) {
            zip_fclose(in);
            return m_error;
        }
    }
    zip_fclose(in);
    return NoError;
}

int ZipArchive::extract(const QString &member, const QString &dir)
{
    // Written aside and renamed, so a member that fails half-way leaves the old file alone. An
    // extracted picture is a scratch copy: it is not flushed to the disk, which would cost the
    // page more than everything else it does.
    const QString target = dir + '/' + member;
    QTemporaryFile out(target + QStringLiteral(".XXXXXX"));
    const auto opened = [&] { return out.isOpen() || out.open() || failCode(WriteFailed, out.errorString()) == NoError; };
    const int read = readMember(member, true, [&](const char *data, qsizetype n) {
        return opened() && (out.write(data, n) == n || failCode(WriteFailed, out.errorString()) == NoError);
    });
    if (read != NoError)
        return read;
    if (!opened()) // an empty member
        return m_error;
    out.close();
    QFile::remove(target);
    if (!out.rename(target))
        return failCode(WriteFailed, out.errorString());
    out.setAutoRemove(false);
    return NoError;
}

int ZipArchive::read(const QString &member, QByteArray *data)
{
    data->clear();
    const int read = readMember(member, false, [data](const char *chunk, qsizetype n) {
        data->append(chunk, n);
        return true;
    });
    if (read != NoError)
        data->clear();
    return read;
}

bool ZipArchive::addData(const QString &member, const QByteArray &data, Compression compression)
{
    if (!m_zip)
        return fail(NotOpen, QStringLiteral("no archive is open"));
    if (!isPlainName(member))
        return fail(WriteFailed, QStringLiteral("%1: not a plain file name").arg(member));
    // libzip reads the source only in zip_close, so it gets a copy it frees itself. An empty
    // member has no buffer: libzip would not free one of length 0.
    void *copy = nullptr;
    if (!data.isEmpty()) {
        copy = std::malloc(size_t(data.size()));
        if (!copy)
            return fail(WriteFailed, QStringLiteral("out of memory"));
        std::memcpy(copy, data.constData(), size_t(data.size()));
    }
    zip_source_t *source = zip_source_buffer(m_zip, copy, zip_uint64_t(data.size()), copy ? 1 : 0);
    if (!source) {
        std::free(copy);
        return fail(WriteFailed, QString::fromUtf8(zip_strerror(m_zip)));
    }
    const zip_int64_t index =
        zip_file_add(m_zip, member.toUtf8().constData(), source, ZIP_FL_OVERWRITE | ZIP_FL_ENC_UTF_8);
    if (index < 0) {
        zip_source_free(source);
        return fail(WriteFailed, QString::fromUtf8(zip_strerror(m_zip)));
    }
    const zip_uint64_t i = zip_uint64_t(index);
    const bool ok =
        zip_set_file_compression(m_zip, i, compression == Store ? ZIP_CM_STORE : ZIP_CM_DEFLATE, 0) == 0 &&
        zip_file_set_encryption(m_zip, i, m_password.isEmpty() ? ZIP_EM_NONE : ZIP_EM_TRAD_PKWARE,
                                m_password.isEmpty() ? nullptr : m_password.constData()) == 0;
    if (!ok)
        return fail(WriteFailed, QString::fromUtf8(zip_strerror(m_zip)));
    return true;
}

bool ZipArchive::addFile(const QString &member, const QString &sourcePath, Compression compression)
{
    QFile file(sourcePath);
    if (!file.open(QIODevice::ReadOnly))
        return fail(WriteFailed, QStringLiteral("%1: %2").arg(sourcePath, file.errorString()));
    return addData(member, file.readAll(), compression);
}

int ZipArchive::extractMember(const QString &archivePath, const QString &password, const QString &member,
                              const QString &dir)
{
    ZipArchive archive;
    if (!archive.open(archivePath, password))
        return archive.error();
    return archive.extract(member, dir);
}
