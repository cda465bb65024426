#pragma once

#include <QDialog>

class DrinkStore;
class QCheckBox;
class QComboBox;
class QLineEdit;
class QPushButton;

// "Add Ingredient": one new ingredient with its type, sub type, unit and price.
class frmIngAdd : public QDialog {
    Q_OBJECT
public:
    explicit frmIngAdd(DrinkStore &store, QWidget *parent = nullptr);

    bool WasCanceled() const { return m_canceled; }
    QString IngName() const;

public slots:
    void cmdSave_Click();
    void cmbType_Click();

private:
    DrinkStore &m_store;
    bool m_canceled = true;
    QLineEdit *txtName, *txtUnitType, *txtOzPerUnit, *txtUnitPrice;
    QComboBox *cmbType, *cmbSubType;
    QCheckBox *chkSelected;
    QPushButton *cmdSave, *cmdCancel;
};
