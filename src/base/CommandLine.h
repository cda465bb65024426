#pragma once

#include <QString>

// What a command line asks of the program: show a drink by its id or by a key of the map
// file, or open the import dialog on a drink exchange file (a name ending in ".cvx", as the
// desktop hands over a file the user opened). Anything else is ignored in silence.
struct CommandLineAction {
    enum Kind { Ignore, ShowDrinkByID, InvalidDrinkID, ShowDrinkByMapID, ImportExchangeFile };
    Kind kind = Ignore;
    qint32 drinkId = 0;
    QString text; // what followed the switch: the id as typed, or the map key; or the file
};

CommandLineAction ParseCommandLine(const QString &line);

// One argument of this start as it goes into the command line: an exchange file (a path or a
// file:// address) becomes an absolute path, because a copy already running, with another
// working directory, may be the one to open it. Everything else passes unchanged.
QString commandLineArgument(const QString &argument, const QString &workingDir);

QString invalidDrinkIdMessage(const QString &idText);
