#include "shopping/ShopListFile.h"

#include "base/Cp1252.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSaveFile>

QString ShopListFile::Write(const QString &path, const QStringList &drinkNames, const QString &numDrinks)
{
    QString text = QString::fromLatin1(kDrinksLine) + QStringLiteral("\r\n");
    for (const QString &name : drinkNames)
        text += name + QStringLiteral("\r\n");
    text += QString::fromLatin1(kNumberLine) + QStringLiteral("\r\n") + numDrinks + QStringLiteral("\r\n");

    QByteArray bytes = Cp1252::encode(text);
    if (Cp1252::decode(bytes) != text)
        bytes = text.toUtf8();
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return file.errorString();
    if (file.write(bytes) != bytes.size() || !file.commit())
        return file.errorString();
    return {};
}

ShopListFile::Content ShopListFile::Read(const QString &path)
{
    Content content;
    if (!QFileInfo(path).isFile()) {
        content.status = QFileInfo::exists(path) ? Status::Unreadable : Status::NotFound;
        return content;
    }
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        content.status = Status::Unreadable;
        return content;
    }
    const QString text = Cp1252::decodeFile(file.readAll());
    static const QRegularExpression lineEnd(QStringLiteral("\r\n|\r|\n"));
    QStringList lines = text.split(lineEnd);
    // A last line end closes the last line; it does not open another.
    if (!lines.isEmpty() && lines.last().isEmpty())
        lines.removeLast();

    if (lines.isEmpty() || lines.first().trimmed() != QLatin1String(kDrinksLine)) {
        content.status = Status::BadFormat;
        return content;
    }
    qsizetype i = 1;
    for (; i < lines.size(); ++i) {
        if (lines[i].trimmed() == QLatin1String(kNumberLine))
            break;
        content.drinkNames << lines[i];
    }
    if (i + 1 >= lines.size()) {
        content.status = Status::Truncated;
        return content;
    }
    content.numDrinks = lines[i + 1].trimmed();
    content.status = Status::Read;
    return content;
}
