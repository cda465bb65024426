#pragma once

#include <QDialog>
#include <QList>

#include "base/modCorvane.h"
#include "store/ColorSchemes.h"
#include "widgets/ColorButton.h"

class DrinkStore;
class QLineEdit;
class QListWidget;
class QPushButton;

// The colour schemes: pick the current one, or make, change and delete schemes. Ends with
// OK (the chosen scheme is loaded into the state) or Cancel (what was saved stays saved).
class frmColorScheme : public QDialog {
    Q_OBJECT
  public:
    frmColorScheme(DrinkStore &store, modCorvane::State &state, QWidget *parent = nullptr);

    // The colour chooser of the four panels; the platform's colour dialog unless replaced.
    void setColorPicker(const ColorPicker &picker);

    void lstColor_Click();
    void cmdNew_Click();
    void txtName_Change();
    void cmdSave_Click();
    void cmdDelete_Click();
    void cmdOK_Click();
    void cmdCancel_Click();

  private:
    void buildWidgets();
    void Form_Load();
    void SetEditMode(bool on);
    void addEntry(int index);
    // The record of the selected entry, or -1.
    int selectedIndex() const;

    DrinkStore &m_store;
    modCorvane::State &m_state;
    // One record per row of the table; the list's entries carry their index here.
    QList<ColorScheme> m_schemes;
    bool isNew = false;
    bool isEditing = false;
    bool isLoading = false;

    QListWidget *lstColor = nullptr;
    QLineEdit *txtName = nullptr;
    ColorButton *pnlText = nullptr;
    ColorButton *pnlHighlight = nullptr;
    ColorButton *pnlAccent = nullptr;
    ColorButton *pnlBackground = nullptr;
    QPushButton *cmdNew = nullptr;
    QPushButton *cmdSave = nullptr;
    QPushButton *cmdDelete = nullptr;
    QPushButton *cmdOK = nullptr;
    QPushButton *cmdCancel = nullptr;
};
