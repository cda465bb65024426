#pragma once

#include <QDialog>
#include <QList>

#include "base/modCorvane.h"
#include "widgets/ColorButton.h"

class QCheckBox;
class QPushButton;
class QRadioButton;

// The options: the view to open at start, English or metric amounts, and the highlight of
// ingredients missing from the liquor cabinet. OK writes them; Cancel changes nothing.
class frmOptions : public QDialog {
    Q_OBJECT
  public:
    explicit frmOptions(modCorvane::State &state, QWidget *parent = nullptr);

    // The colour chooser of cmdIngHL; the platform's colour dialog unless replaced.
    void setColorPicker(const ColorPicker &picker) { cmdIngHL->setPicker(picker); }

    void OK_Click();
    void Cancel_Click();

  private:
    void buildWidgets();
    void Form_Load();

    modCorvane::State &m_state;
    QList<QRadioButton *> m_viewOptions;
    QRadioButton *optEnglish = nullptr;
    QRadioButton *optMetric = nullptr;
    QCheckBox *chkIngHL = nullptr;
    ColorButton *cmdIngHL = nullptr;
    QPushButton *OK = nullptr;
    QPushButton *Cancel = nullptr;
};
