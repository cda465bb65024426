#pragma once

#include <QList>
#include <QString>

// Every command of the program is a number; the seven pop-up groups of the main window list
// them in this table, and the Ctrl shortcuts reach the same numbers.
struct CommandEntry {
    int group = 0;
    QString caption; // "" with number -1: a separator
    int number = -1;
    char shortcut = 0; // the letter of Ctrl+letter, 0 for none
    bool bold = false;
    bool isSeparator() const { return number == -1 && caption.isEmpty(); }
};

namespace Commands {
inline constexpr int GroupCount = 7;

const QList<CommandEntry> &table();
// The hint of a group for the status line.
QString groupHint(int group);
// The entries of one group's pop-up: the view in force is bold, and the mark entry reads
// "Unmark Drink (Ctrl-M)" for a marked drink.
QList<CommandEntry> popupEntries(int group, int currentView, bool currentDrinkMarked);

// The command of Ctrl with a key, or 0. The letters are matched in a fixed order; the old
// key codes of the small letters are those of other keys (F1 for "p", F9 for "x", Numpad 3
// for "c" ...), and Ctrl with those keys runs the same commands.
int commandForCtrlKey(int qtKey, bool keypad);
}
