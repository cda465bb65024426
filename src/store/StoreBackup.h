#pragma once

#include <QString>

class DrinkStore;

// A consistent copy of an open store, taken by the engine page by page while other programs
// may read and write it. The copy is written beside the target and renamed into place only
// when whole. Returns "" or the reason it failed.
QString backupStore(DrinkStore &store, const QString &targetPath);
