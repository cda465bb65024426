#pragma once

#include <QList>
#include <QString>
#include <optional>

#include "base/modCorvane.h"

class CLocalConfig;
class DrinkStore;

// One row of ColorSchemes: a named set of the four colours the program is drawn in.
struct ColorScheme {
    qint32 id = 0;
    QString name;
    quint32 textColor = 0;
    quint32 highlightColor = 0;
    quint32 accentColor = 0;
    quint32 backgroundColor = 0;
};

namespace ColorSchemes {
// Every row, in the order they were added.
QList<ColorScheme> all(DrinkStore &store);
std::optional<ColorScheme> find(DrinkStore &store, qint32 id);
// Adds the row and returns the id the store gave it.
qint32 add(DrinkStore &store, const ColorScheme &scheme);
QString updateStatement(const ColorScheme &scheme);
void update(DrinkStore &store, const ColorScheme &scheme);
QString deleteStatement(qint32 id);
void remove(DrinkStore &store, qint32 id);
} // namespace ColorSchemes

namespace modCorvane {
// The scheme of the setting ColorScheme (a text that is no number finds no row), or the
// system colours when there is no such row. With the highlight of missing ingredients off,
// their colour follows the text colour.
void LoadColorScheme(State &s, DrinkStore &store, const CLocalConfig &config);
} // namespace modCorvane
