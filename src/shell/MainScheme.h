#pragma once

#include "base/modCorvane.h"

class QWidget;

// Colours the main window in the scheme: its controls by kind, the command column and the
// logo in the background colour, the letter tabs (normal, selected and hot) and the command
// pop-up. Called at start and after the colour dialog.
void ApplySchemeToMain(QWidget *frmMain, const modCorvane::State &s);
void ApplySchemeToMain(QWidget *frmMain);
