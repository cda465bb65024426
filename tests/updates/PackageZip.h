#pragma once

#include "presentation/ArchivePasswords.h"

#include <QByteArray>
#include <QFile>
#include <QStringList>
#include <QTemporaryDir>
#include <zip.h>

// A picture package as the maker's server hands it out: members in folders, each holding its
// own name as data, under a password.
inline QByteArray packageZip(const QStringList &members, const QByteArray &password = ArchivePasswords::ImageArchive)
{
    QTemporaryDir dir;
    const QByteArray path = QFile::encodeName(dir.filePath(QStringLiteral("package.zip")));
    int code = 0;
    zip_t *zip = zip_open(path.constData(), ZIP_CREATE | ZIP_TRUNCATE, &code);
    if (!zip)
        return {};
    for (const QString &member : members) {
        const QByteArray name = member.toUtf8();
        const QByteArray data = "picture of " + name;
        void *copy = malloc(size_t(data.size()));
        memcpy(copy, data.constData(), size_t(data.size()));
        zip_source_t *source = zip_source_buffer(zip, copy, zip_uint64_t(data.size()), 1);
        const zip_int64_t index = zip_file_add(zip, name.constData(), source, ZIP_FL_ENC_UTF_8);
        zip_file_set_encryption(zip, zip_uint64_t(index), ZIP_EM_TRAD_PKWARE, password.constData());
    }
    if (zip_close(zip) != 0)
        return {};
    QFile file(QString::fromLocal8Bit(path));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}
