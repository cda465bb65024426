#pragma once

class QString;
class QWidget;

// A user's mistake told in a plain box with an OK button and the program's title; the dialog
// beneath stays as it was.
void plainMessage(QWidget *parent, const QString &text);
