#include "base/Options.h"

#include "base/CLocalConfig.h"
#include "base/ColorValues.h"
#include "base/VbConvert.h"

namespace modCorvane {

namespace {
QString yesNo(bool b)
{
    return b ? QStringLiteral("Y") : QStringLiteral("N");
}
} // namespace

const QList<ViewOption> &viewOptions()
{
    static const QList<ViewOption> options{
        {QStringLiteral("optViewName"), QStringLiteral("N")},   {QStringLiteral("optViewGlass"), QStringLiteral("G")},
        {QStringLiteral("optViewMarked"), QStringLiteral("M")}, {QStringLiteral("optViewCab"), QStringLiteral("L")},
        {QStringLiteral("optViewLiq"), QStringLiteral("P")},    {QStringLiteral("optViewCat"), QStringLiteral("C")},
        {QStringLiteral("optViewDef"), QStringLiteral("D")},
    };
    return options;
}

QString viewOptionFor(const QString &defaultView)
{
    for (const ViewOption &o : viewOptions())
        if (o.letter == defaultView)
            return o.name;
    return QString();
}

QString defaultViewFrom(const QStringList &checkedOptions)
{
    for (const ViewOption &o : viewOptions())
        if (checkedOptions.contains(o.name))
            return o.letter;
    return QStringLiteral("D");
}

qint32 settingNumber(const QString &text)
{
    return VbConvert::CLng(VbConvert::Val(text)).value_or(0);
}

void SaveOptions(const State &s, const CLocalConfig &config)
{
    config.Save(kSettings, QStringLiteral("UseMissingIngColor"), yesNo(s.useMissingIngColor));
    config.Save(kSettings, QStringLiteral("UseMetric"), yesNo(s.useMetric));
    config.Save(kSettings, QStringLiteral("DefaultView"), s.defaultView);
}

void LoadMissingIngColor(State &s, const CLocalConfig &config)
{
    if (config.Load(kSettings, QStringLiteral("UseMissingIngColor"), QStringLiteral("Y")) == u"Y")
        s.missingIngColor = ColorValues::fromStored(
            settingNumber(config.Load(kSettings, QStringLiteral("MissingIngColor"), QStringLiteral("0"))));
    else
        s.missingIngColor = s.schemeTextColor;
}

void SaveMissingIngColor(const State &s, const CLocalConfig &config)
{
    config.Save(kSettings, QStringLiteral("MissingIngColor"),
                QString::number(ColorValues::toStored(s.missingIngColor)));
}

} // namespace modCorvane
