#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include "base/modCorvane.h"

class CLocalConfig;

// The options the user sets in the options dialog, and the highlight colour of missing
// ingredients, as they are read and written in the settings.
namespace modCorvane {

// An option of the dialog's "Default View" frame and the view letter it stands for.
struct ViewOption {
    QString name;
    QString letter;
};
// In the order the dialog's OK tests them; the last, optViewDef, is "D", the most recent view.
const QList<ViewOption> &viewOptions();
// The option a DefaultView letter sets when the dialog opens; "" for a letter with no option
// (view all, or anything unknown), which leaves every option clear.
QString viewOptionFor(const QString &defaultView);
// The DefaultView letter of the options set: the first in the test order, else "D".
QString defaultViewFrom(const QStringList &checkedOptions);

// A number held as text in a setting: the leading number, rounded; text that is not a number,
// or a number beyond 32 bits, reads as 0.
qint32 settingNumber(const QString &text);

// UseMissingIngColor and UseMetric as "Y" or "N", and DefaultView.
void SaveOptions(const State &s, const CLocalConfig &config);
// With the highlight on, the colour of the setting MissingIngColor; else the scheme's text
// colour, so that missing ingredients look like the rest.
void LoadMissingIngColor(State &s, const CLocalConfig &config);
void SaveMissingIngColor(const State &s, const CLocalConfig &config);

} // namespace modCorvane
