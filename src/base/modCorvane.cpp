#include "base/modCorvane.h"

#include "base/CLocalConfig.h"

namespace modCorvane {

namespace {
const QString kLetters = QStringLiteral("NPGCMLA");
}

State &state()
{
    static State s;
    return s;
}

QString viewLetter(int view)
{
    return view >= 0 && view < kLetters.size() ? QString(kLetters[view]) : QStringLiteral("A");
}

int viewFromLetter(const QString &letter)
{
    if (letter.size() != 1)
        return 6;
    const qsizetype i = kLetters.indexOf(letter[0]);
    return i < 0 ? 6 : int(i);
}

void LoadOptions(State &s, const CLocalConfig &config)
{
    s.useMissingIngColor = config.Load(kSettings, QStringLiteral("UseMissingIngColor"), QStringLiteral("Y")) == u"Y";
    s.useMetric = config.Load(kSettings, QStringLiteral("UseMetric"), QStringLiteral("N")) == u"Y";
    s.defaultView = config.Load(kSettings, QStringLiteral("DefaultView"), QStringLiteral("D"));
}

void LoadLastView(State &s, const CLocalConfig &config)
{
    if (s.defaultView != u"D")
        s.currentView = viewFromLetter(s.defaultView);
    else
        s.currentView = viewFromLetter(config.Load(kSettings, QStringLiteral("LastView"), QStringLiteral("A")));
}

void SaveLastView(const State &s, const CLocalConfig &config)
{
    if (s.defaultView != u"D")
        return;
    const QString letter = s.currentView >= 0 && s.currentView <= 5 ? viewLetter(s.currentView) : QStringLiteral("A");
    config.Save(kSettings, QStringLiteral("LastView"), letter);
}

} // namespace modCorvane
