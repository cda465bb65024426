#include "templates/TemplateScan.h"

#include "base/Cp1252.h"

#include <QDir>
#include <QFile>

namespace {

constexpr QDir::SortFlags kListOrder = QDir::Name | QDir::IgnoreCase;

bool isSeparator(QChar c)
{
    return c == u'/' || c == u'\\';
}

} // namespace

QString templateName(const QString &path)
{
    const qsizetype end = path.size() - 4;
    if (end <= 0)
        return {};
    qsizetype start = end;
    while (start > 0 && !isSeparator(path[start - 1]))
        --start;
    return path.mid(start, end - start);
}

QString templateRoot(const QString &path)
{
    qsizetype i = path.size();
    while (i > 0 && !isSeparator(path[i - 1]))
        --i;
    return path.left(i);
}

QString GetTemplateDescription(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QString text = Cp1252::decodeFile(file.readAll());
    static const QString open = QStringLiteral("<meta name=\"description\" content=\"");
    const qsizetype found = text.indexOf(open, 0, Qt::CaseInsensitive);
    if (found < 0)
        return {};
    const qsizetype start = found + open.size();
    const qsizetype end = text.indexOf(QStringLiteral("\">"), start);
    if (end < 0)
        return {};
    return text.mid(start, end - start);
}

void AddTemplate(const QString &path, TemplateList &records)
{
    if (path.right(4).toUpper() != QLatin1String(".CVT"))
        return;
    records.push_back({path, templateName(path), GetTemplateDescription(path)});
}

void ScanTemplates(const QString &directory, bool withSubdirectories, TemplateList &records)
{
    QString dir = directory.isEmpty() ? QStringLiteral("/") : directory;
    if (!isSeparator(dir.back()))
        dir += u'/';
    const QDir here(dir);
    const QStringList files = here.entryList(QDir::Files | QDir::Hidden | QDir::System, kListOrder);
    for (const QString &name : files)
        AddTemplate(dir + name, records);
    if (!withSubdirectories)
        return;
    const QStringList subdirectories =
        here.entryList(QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot | QDir::NoSymLinks, kListOrder);
    for (const QString &name : subdirectories)
        ScanTemplates(dir + name, true, records);
}
