#pragma once

#include <QDialog>

class QLabel;
class QPushButton;
class QFrame;

class frmAboutBox : public QDialog {
    Q_OBJECT
public:
    explicit frmAboutBox(QWidget *parent = nullptr);

private:
    void Command1_Click();
    QLabel *lblVer = nullptr;
    QFrame *Thanks = nullptr;
    QPushButton *Command1 = nullptr;
};
