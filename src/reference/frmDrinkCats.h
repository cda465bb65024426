#pragma once

#include <QDialog>

class DrinkStore;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

// "Drink Categories": adds, renames and removes the categories of drinks.
class frmDrinkCats : public QDialog {
    Q_OBJECT
public:
    explicit frmDrinkCats(DrinkStore &store, QWidget *parent = nullptr);

public slots:
    void cmdAdd_Click();
    void cmdUpdate_Click();
    void cmdRemove_Click();

protected:
    void showEvent(QShowEvent *event) override;

private:
    DrinkStore &m_store;
    QListWidget *lstTypes;
    QLineEdit *txtType;
    QPushButton *cmdAdd, *cmdUpdate, *cmdRemove, *cmdClose;
};

// "Convert to Category": gives every marked drink one more category.
class frmConvToCat : public QDialog {
    Q_OBJECT
public:
    explicit frmConvToCat(DrinkStore &store, QWidget *parent = nullptr);

public slots:
    void cmdOK_Click();
    void cmdEditCats_Click();

protected:
    void showEvent(QShowEvent *event) override;

private:
    DrinkStore &m_store;
    QListWidget *lstCats;
    QLabel *Label1;
    QPushButton *cmdOK, *cmdCancel, *cmdEditCats;
};
