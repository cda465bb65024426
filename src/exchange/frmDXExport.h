#pragma once

#include <QDialog>

class CDrinkFacade;
class DrinkListModel;
class DrinkStore;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QRadioButton;

// Writes marked drinks, one category, or drinks picked from the main list to an exchange file,
// the Maitre'D recipe file or an XML file; also rebuilds the map file.
class frmDXExport : public QDialog {
    Q_OBJECT
public:
    // list: the main list, whose drinks can be picked one by one (may be null).
    frmDXExport(DrinkStore &store, CDrinkFacade &facade, const DrinkListModel *list, QWidget *parent = nullptr);

    // 1 exchange file, 2 Maitre'D, 3 XML.
    void Setup(int mode);

public slots:
    void cmdOK_Click();
    void cmdMapFile_Click();
    void optionChanged();
    void lstDrinks_Click();

private:
    DrinkStore &m_store;
    CDrinkFacade &m_facade;
    int exportMode = 1;
    QLineEdit *txtFileName;
    QRadioButton *optMarked, *optCat, *optSel;
    QComboBox *cmbCategory;
    QListWidget *lstDrinks;
    QPushButton *btnSelectAll, *btnClearSelect, *cmdOK, *cmdCancel, *cmdMapFile, *cmdBrowse;
    QLabel *lblAvailCount, *lblSelCount, *lblStatus;
    QCheckBox *chk64K, *chkIncRecipe;
};
