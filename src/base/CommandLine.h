#pragma once

#include <QString>

// What a command line asks of the program: show a drink by its id or by a key of the map
// file. Anything else is ignored in silence.
struct CommandLineAction {
    enum Kind { Ignore, ShowDrinkByID, InvalidDrinkID, ShowDrinkByMapID };
    Kind kind = Ignore;
    qint32 drinkId = 0;
    QString text; // what followed the switch: the id as typed, or the map key
};

CommandLineAction ParseCommandLine(const QString &line);

QString invalidDrinkIdMessage(const QString &idText);
