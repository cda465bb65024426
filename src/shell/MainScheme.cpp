#include "shell/MainScheme.h"

#include "base/ColorValues.h"
#include "shell/CommandPanels.h"
#include "shell/LetterTabs.h"
#include "widgets/ApplyScheme.h"

#include <QGuiApplication>

void ApplySchemeToMain(QWidget *frmMain, const modCorvane::State &s)
{
    ApplySchemeToForm(frmMain, s);
    const QPalette platform = QGuiApplication::palette();
    const QColor text = ColorValues::toQColor(s.schemeTextColor, platform);
    const QColor back = ColorValues::toQColor(s.schemeBackgroundColor, platform);
    const QColor highlight = ColorValues::toQColor(s.schemeHighlightColor, platform);
    const QColor accent = ColorValues::toQColor(s.schemeAccentColor, platform);

    for (const char *name : {"pctSys", "pctBase", "pctSpacer", "pnlLogo"}) {
        auto *w = frmMain->findChild<QWidget *>(QString::fromLatin1(name));
        if (!w)
            continue;
        QPalette p = w->palette();
        p.setColor(QPalette::Window, back);
        p.setColor(QPalette::Button, back);
        w->setPalette(p);
        w->setAutoFillBackground(true);
    }
    // The tabs and the pop-up keep their own looks; the pass above painted them plain.
    if (auto *tabs = frmMain->findChild<LetterTabs *>())
        tabs->setColors({back, text, highlight, ColorValues::selectedTextColor(s.schemeTextColor, platform), accent});
    if (auto *panels = frmMain->findChild<CommandPanels *>())
        panels->setColors({text, back, accent, highlight, ColorValues::selectedTextColor(s.schemeTextColor, platform)});
}

void ApplySchemeToMain(QWidget *frmMain)
{
    ApplySchemeToMain(frmMain, modCorvane::state());
}
