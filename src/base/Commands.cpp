#include "base/Commands.h"

#include <Qt>

namespace Commands {

namespace {
CommandEntry sep(int group) { return {group, QString(), -1, 0, false}; }
CommandEntry cmd(int group, const char *caption, int number, char shortcut = 0)
{
    return {group, QString::fromUtf8(caption), number, shortcut, false};
}
} // namespace

const QList<CommandEntry> &table()
{
    static const QList<CommandEntry> t = {
        cmd(0, "Drink Import...", 1), cmd(0, "Updates Online...", 7), sep(0),
        cmd(0, "Drink Export...", 2), cmd(0, "Export to Maitre'D...", 3), cmd(0, "Export to XML...", 8), sep(0),
        cmd(0, "Print Drinks (Ctrl-P)", 4, 'P'), cmd(0, "Print Marked Drinks...", 5), sep(0),
        cmd(0, "Exit", 6),
        cmd(1, "Add (Ctrl-A)...", 101, 'A'), cmd(1, "Edit (Ctrl-E)...", 102, 'E'), cmd(1, "Copy Current Drink", 103),
        cmd(1, "Delete (Ctrl-D)", 104, 'D'), sep(1),
        cmd(1, "Copy to Clipboard (Ctrl-C)", 105, 'C'), cmd(1, "Append to Clipboard (Ctrl-X)", 106, 'X'),
        cmd(2, "By Name", 201), cmd(2, "By Liquor", 202), cmd(2, "By Glassware", 203), cmd(2, "By Category", 204),
        sep(2), cmd(2, "View Marked", 205), cmd(2, "Liquor Cabinet View", 206), sep(2),
        cmd(2, "View All (Ctrl-V)", 207, 'V'),
        cmd(3, "By Name...", 301), cmd(3, "By Ingredient...", 302), cmd(3, "By Recipe...", 303),
        cmd(3, "By Glass...", 304), cmd(3, "By Category...", 305), sep(3),
        cmd(3, "Advanced Search (Ctrl-S)...", 306, 'S'), cmd(3, "Find Similar Drinks...", 307), sep(3),
        cmd(3, "Clear Search (Show All)", 308),
        cmd(4, "Mark Drink (Ctrl-M)", 401, 'M'), sep(4), cmd(4, "Mark All in Current List", 402),
        cmd(4, "Unmark All", 403), sep(4), cmd(4, "Convert to Category...", 404),
        cmd(5, "Liquor Cabinet...", 501), cmd(5, "Shopping List...", 502), sep(5),
        cmd(5, "Edit Ingredients...", 503), cmd(5, "Ingredient Categories...", 504), sep(5),
        cmd(5, "Drink Prices...", 505), cmd(5, "Drink Categories...", 506), sep(5),
        cmd(5, "Unit Conversions...", 507), cmd(5, "Templates...", 510), cmd(5, "Options...", 508),
        cmd(5, "Colors...", 509),
        cmd(6, "Contents (F1)...", 601), cmd(6, "Search...", 602), sep(6), cmd(6, "Beer Guide...", 603),
        cmd(6, "Liquor Glossary...", 604), sep(6), cmd(6, "About Corvane...", 605),
    };
    return t;
}

QString groupHint(int group)
{
    static const char *hints[GroupCount] = {"Import, Export and Print", "Add, Edit, Delete", "Change the View",
                                            "Search for Drinks", "Mark and Unmark", "Tools and Options", "Help"};
    return group >= 0 && group < GroupCount ? QString::fromLatin1(hints[group]) : QString();
}

QList<CommandEntry> popupEntries(int group, int currentView, bool currentDrinkMarked)
{
    QList<CommandEntry> entries;
    for (CommandEntry e : table()) {
        if (e.group != group)
            continue;
        if (e.number >= 201 && e.number <= 206)
            e.bold = currentView == e.number - 201;
        else if (e.number == 207)
            e.bold = currentView == 6;
        else if (e.number == 401 && currentDrinkMarked)
            e.caption = QStringLiteral("Unmark Drink (Ctrl-M)");
        entries << e;
    }
    return entries;
}

int commandForCtrlKey(int qtKey, bool keypad)
{
    // The letters in the order they are tried, each with the key that shares its small
    // letter's old key code.
    struct Shortcut {
        int letter;
        int twinKey;
        bool twinOnKeypad;
        int command;
    };
    static const Shortcut order[] = {
        {Qt::Key_C, Qt::Key_3, true, 105},     {Qt::Key_X, Qt::Key_F9, false, 106},
        {Qt::Key_P, Qt::Key_F1, false, 4},     {Qt::Key_A, Qt::Key_1, true, 101},
        {Qt::Key_E, Qt::Key_5, true, 102},     {Qt::Key_D, Qt::Key_4, true, 104},
        {Qt::Key_V, Qt::Key_F7, false, 207},   {Qt::Key_S, Qt::Key_F4, false, 306},
        {Qt::Key_M, Qt::Key_Minus, true, 401},
    };
    for (const Shortcut &s : order) {
        if (qtKey == s.letter && !keypad)
            return s.command;
        if (qtKey == s.twinKey && keypad == s.twinOnKeypad)
            return s.command;
    }
    return 0;
}

} // namespace Commands
