#pragma once

#include <QDialog>
#include <vector>

class QComboBox;
class QFrame;
class QLineEdit;
class QPushButton;
class QTabBar;

// The English / metric conversion calculator and its reference pages. It keeps the platform's
// colours and never touches the store.
class frmMetricConvert : public QDialog {
    Q_OBJECT
public:
    explicit frmMetricConvert(QWidget *parent = nullptr);

public slots:
    void cmdConvert_Click();
    void cmdOK_Click();
    void tabConversion_Click(int index);
    void cmbFrom_Click();
    void cmbTo_Click();
    void txtSourceAmount_Change();

private:
    QFrame *buildConversions();
    QFrame *buildReference(int number, const QStringList &lines, bool headline, int leftColumnLines);
    void showMessage(const QString &text);

    int m_shownTab = 0; // the tab whose panel is visible

    QTabBar *tabConversion;
    std::vector<QFrame *> Frames; // Frames[i] belongs to tab i; named Frames1 to Frames5
    QLineEdit *txtSourceAmount;
    QComboBox *cmbFrom;
    QComboBox *cmbTo;
    QLineEdit *txtResultAmount;
    QPushButton *cmdConvert;
    QPushButton *cmdOK;
};
