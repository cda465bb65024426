#pragma once

#include <QDialog>
#include <QModelIndex>
#include <QStringList>
#include <vector>

class DrinkStore;
class QPushButton;
class QTableView;
class TextGridModel;

// "Edit Ingredients": a spreadsheet of every ingredient. Changes reach the store on "Save", and
// before each action that reloads the grid (add, remove); "Cancel" drops only what came after.
class frmIngMaint : public QDialog {
    Q_OBJECT
public:
    explicit frmIngMaint(DrinkStore &store, QWidget *parent = nullptr);

    TextGridModel *grid() const { return m_grid; }
    QStringList typeNames() const { return m_typeNames; }
    QStringList subTypeNamesFor(int row);

public slots:
    void cmdSave_Click();
    void cmdCancel_Click();
    void cmdAdd_Click();
    void cmdRemove_Click();
    void cmdMerge_Click();
    void cmdUsage_Click();
    void cmdCats_Click();

private:
    void LoadGrid();
    bool SaveGrid();
    void cfIng_EnterCell(const QModelIndex &current, const QModelIndex &previous);
    void selectCell(int row, int column);

    DrinkStore &m_store;
    TextGridModel *m_grid;
    std::vector<QStringList> m_loaded;
    QStringList m_typeNames;
    QTableView *cfIng;
    QPushButton *cmdSave, *cmdCancel, *cmdAdd, *cmdRemove, *cmdMerge, *cmdUsage, *cmdCats;
    bool m_returning = false;
};
