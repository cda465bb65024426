#pragma once

#include <QString>

// The map file links outside keys to drinks, one link a line: "<anything>;<drink id>;<key>".
// Lines starting with ";" are comments.
struct MapLookup {
    enum Result { Found, NotFound, FileError };
    Result result = FileError;
    qint32 drinkId = 0;
};

MapLookup lookupMapId(const QString &mapFilePath, const QString &mapId);

QString mapIdNotFoundMessage(const QString &mapId);

class DrinkStore;
// Writes every drink as "<name>;<id>;" in name order, with empty keys for the user to fill
// in. Returns "" or the reason it failed.
QString writeMapFile(DrinkStore &store, const QString &mapFilePath);
QString replaceMapFileQuestion();
