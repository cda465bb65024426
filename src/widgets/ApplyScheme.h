#pragma once

#include <QColor>

#include "base/modCorvane.h"

class QWidget;

// The scheme's colours resolved for drawing: system colour values through the platform's
// own palette, never through a palette the scheme has already changed.
QColor schemeColor(quint32 value);

// Colours a form by kind of control: labels, frames and panels, check boxes, option and push
// buttons take the text and background colours; pictures and splitters the background; grids
// the background, the highlight, the text and its negative for selected rows; text boxes,
// lists and combo boxes keep the platform's colours. Runs again safely after a change.
void ApplySchemeToForm(QWidget *form, const modCorvane::State &s);
// The same with the application's scheme.
void ApplySchemeToForm(QWidget *form);

// Gives a control the platform's colours whatever its form's scheme, every role set, so that
// nothing falls back to the form: trees whose branch marks and check boxes must show on any
// scheme.
void KeepPlatformColors(QWidget *control);
