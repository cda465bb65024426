#include "exchange/ExportFile.h"

#include "base/Cp1252.h"

#include <QSaveFile>

bool exportNeedsUtf8(const QString &text) { return Cp1252::decode(Cp1252::encode(text)) != text; }

QString writeExportFile(const QString &path, const QString &text)
{
    const QByteArray bytes = exportNeedsUtf8(text) ? text.toUtf8() : Cp1252::encode(text);
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return file.errorString();
    if (file.write(bytes) != bytes.size()) {
        const QString why = file.errorString();
        file.cancelWriting();
        return why;
    }
    if (!file.commit())
        return file.errorString();
    return {};
}
