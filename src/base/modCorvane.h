#pragma once

#include <QString>
#include <QtGlobal>

class CLocalConfig;

// The application state that lasts for the whole run: the view, the colours and the options.
// The open store and the drink facade belong to the main window, which owns the run.
namespace modCorvane {

enum : quint32 {
    SysWindowText = 0x80000008,
    SysHighlight = 0x8000000D,
    SysButtonFace = 0x8000000F,
    SysButtonShadow = 0x80000010,
};

struct State {
    int currentView = 6;
    quint32 schemeTextColor = SysWindowText;
    quint32 schemeHighlightColor = SysHighlight;
    quint32 schemeAccentColor = SysButtonShadow;
    quint32 schemeBackgroundColor = SysButtonFace;
    quint32 missingIngColor = 0;
    qint32 colorSchemeID = 64;
    bool useMetric = false;
    bool useMissingIngColor = true;
    QString defaultView = QStringLiteral("D");
};

State &state();

// The seven views and their letters: N P G C M L A for 0 to 6.
QString viewLetter(int view);
// A letter that names no view gives 6, View All.
int viewFromLetter(const QString &letter);

void LoadOptions(State &s, const CLocalConfig &config);
void LoadLastView(State &s, const CLocalConfig &config);
// Only while the default view is "D" (the most recent one); a view outside 0..5 saves "A".
void SaveLastView(const State &s, const CLocalConfig &config);

inline const QString kSettings = QStringLiteral("Settings");
}
