#pragma once

#include <QDialog>

class DrinkListModel;
class DrinkStore;
class QLabel;
class QLineEdit;
class QListWidget;
class QListWidgetItem;
class QPushButton;
class QRadioButton;
class QTableWidget;

// The shopping list: drinks moved from the main list's rows to a selection, a number of each,
// a unit family, and the ingredients to buy; lists are saved and opened as .LST files and
// printed.
class frmShopList : public QDialog {
    Q_OBJECT
public:
    // The main list offers at most this many drinks.
    static constexpr int kMaxDrinks = 12000;
    // Item data of both lists: the drink's id.
    static constexpr int IdRole = Qt::UserRole;

    frmShopList(DrinkStore &store, QWidget *parent = nullptr);

    // Fills "Available Drinks" from the main list's rows, in their order.
    void Setup(const DrinkListModel &mainList);
    // Print goes to this PDF file instead of through the print dialog.
    void setPrintFile(const QString &pdfPath) { m_printFile = pdfPath; }

public slots:
    void Add_Click();
    void AddAll_Click();
    void Remove_Click();
    void RemoveAll_Click();
    void MakeList_Click();
    void ClearList_Click();
    void Print_Click();
    void Command1_Click();
    void Command2_Click();

private:
    void moveItems(QListWidget *from, QListWidget *to, bool all);
    void moveItem(QListWidget *from, QListWidget *to, QListWidgetItem *item);
    void resetGrid(const QString &firstCell = {});
    int unitFamily() const;
    // A file name from the file dialog, "" when cancelled.
    QString chooseFile(const QString &title, bool save);
    void openList(const QString &path);

    DrinkStore &m_store;
    QString m_printFile;

    QListWidget *SourceList, *SelectedList;
    QPushButton *Add, *AddAll, *Remove, *RemoveAll;
    QLineEdit *NumDrinks;
    QRadioButton *Bar, *English, *Metric;
    QPushButton *MakeList, *ClearList, *Print, *Done, *Command1, *Command2;
    QTableWidget *gridShopList;
};
