#pragma once

#include <QDialog>
#include <QStringList>

class DrinkStore;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

// "Edit Ingredient Types": types and their sub types in a tree; nothing reaches the store
// before Save.
class frmIngTypes : public QDialog {
    Q_OBJECT
public:
    explicit frmIngTypes(DrinkStore &store, QWidget *parent = nullptr);

public slots:
    void cmdAddType_Click();
    void cmdAddSubType_Click();
    void cmdDelete_Click();
    void cmdSave_Click();

protected:
    void showEvent(QShowEvent *event) override;

private:
    void fillTree();
    void tvIngTypes_AfterLabelEdit(QTreeWidgetItem *item);
    QTreeWidgetItem *newNode(QTreeWidgetItem *parent);

    DrinkStore &m_store;
    QStringList m_deletions;
    bool m_filling = false;
    QTreeWidget *tvIngTypes;
    QPushButton *cmdAddType, *cmdAddSubType, *cmdDelete, *cmdSave, *cmdCancel;
};
