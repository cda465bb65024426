#pragma once

#include <functional>

class QWidget;

// Runs a dialog's handler. An error of the store or the settings that the handler does not
// take is shown with its own text over the dialog, and the program goes on; false then.
bool runGuarded(QWidget *parent, const std::function<void()> &handler);
