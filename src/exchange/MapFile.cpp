#include "exchange/MapFile.h"

#include "base/Cp1252.h"
#include "base/VbConvert.h"
#include "exchange/ExportFile.h"
#include "store/DrinkStore.h"

#include <QFile>
#include <QStringList>
#include <vector>

MapLookup lookupMapId(const QString &mapFilePath, const QString &mapId)
{
    QFile file(mapFilePath);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    while (!file.atEnd()) {
        QByteArray raw = file.readLine();
        while (raw.endsWith('\n') || raw.endsWith('\r'))
            raw.chop(1);
        const QString line = Cp1252::decode(raw);
        if (line.startsWith(u';'))
            continue;
        const qsizetype last = line.lastIndexOf(u';');
        if (last < 0 || last == line.size() - 1)
            continue;
        if (line.mid(last + 1) != mapId)
            continue;
        // The id stands between the last two ";"; with only one there is none, and it is 0.
        const qsizetype before = last > 0 ? line.lastIndexOf(u';', last - 1) : -1;
        qint32 id = 0;
        if (before >= 0)
            id = VbConvert::CLng(VbConvert::Val(QStringView(line).mid(before + 1, last - before - 1))).value_or(0);
        return {MapLookup::Found, id};
    }
    return {MapLookup::NotFound, 0};
}

QString mapIdNotFoundMessage(const QString &mapId)
{
    return QStringLiteral("Unable to find %1 in the map file.").arg(mapId);
}

QString writeMapFile(DrinkStore &store, const QString &mapFilePath)
{
    std::vector<qint32> ids;
    QStringList names;
    store.selectIdNames(QStringLiteral("SELECT id, Name FROM Drinks ORDER BY Name"), ids, names);
    QString text;
    for (size_t i = 0; i < ids.size(); ++i)
        text += names.at(qsizetype(i)).trimmed() + u';' + QString::number(ids[i]) + QStringLiteral(";\r\n");
    return writeExportFile(mapFilePath, text);
}

QString replaceMapFileQuestion()
{
    return QStringLiteral("This will replace your existing MAP file with a new one.  Any information in the old one "
                          "will be lost.  Do you want to continue?");
}
