#include "presentation/PageFiles.h"

#include "base/Cp1252.h"
#include "presentation/ArchivePasswords.h"
#include "presentation/ZipArchive.h"

#include <QFile>

namespace PageFiles {

QString writePageFile(const QString &appDir, const QString &html, QString *errorText)
{
    const QString path = appDir + QStringLiteral("/corvane.cvk");
    // A scratch file, rewritten for every page: not worth a flush to the disk on each row.
    QFile file(path);
    const QByteArray bytes = Cp1252::encode(html + QStringLiteral("\r\n"));
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || file.write(bytes) != bytes.size() || !file.flush()) {
        if (errorText)
            *errorText = QStringLiteral("%1: %2").arg(path, file.errorString());
        return {};
    }
    return path;
}

QString GlassPicturePath(const QString &appDir, int glassID)
{
    // At least two digits, the sign in front: 7 is "07", -3 is "-03".
    const QString number = QStringLiteral("%1").arg(qAbs(glassID), 2, 10, QChar(u'0'));
    const QString member = (glassID < 0 ? QStringLiteral("-") : QString()) + number + QStringLiteral(".gif");
    const int code = ZipArchive::extractMember(appDir + QStringLiteral("/corvane.glw"),
                                               QString::fromLatin1(ArchivePasswords::GlassArchive), member, appDir);
    return appDir + u'/' + (code == 0 ? member : QStringLiteral("spacer.gif"));
}

} // namespace PageFiles
