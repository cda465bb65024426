#pragma once

#include <QObject>
#include <QString>
#include <vector>

class DrinkListModel;
class DrinkStore;
class LetterTabs;
class QComboBox;
class QLabel;
class QLineEdit;
class QRadioButton;
class QTableView;
class QTimer;
class QWidget;
struct TabColors;

// The list side of the main window: the seven views, the selector, the letter tabs, the
// marked/unmarked pair, the quick search, and the search mode over SearchResults.
class ListController : public QObject {
    Q_OBJECT
public:
    ListController(QWidget *parent, DrinkListModel *model);

    QWidget *widget() const { return m_panel; }
    QTableView *grid() const { return gridDrinkNames; }
    QLabel *countLabel() const { return sbCount; }
    void setStore(DrinkStore *store) { m_store = store; }

    // Commands 201 to 207: the view number is already set in the application state.
    void openView(int command);
    // Reload with the last letter tab as the selection, whatever the view (delete, searches).
    void reloadWithCurrentTab();
    void setSearchActive(bool active) { searchActive = active; }
    bool isSearchActive() const { return searchActive; }
    short listTab() const { return currentListTab; }
    QString listStatement() const { return listSQL; }
    void setTabColors(const TabColors &colors);
    void ShowSelectedDrink();
    // The selected row of the list on screen, or -1 when the list is empty. A list with rows
    // always has one: after every load the grid stands on its first row, as it always has.
    int selectedRow() const;
    // The ids of the rows on screen, in their order: what "Mark All" and friends act on.
    const std::vector<qint32> &rowsOnScreen() const;
    // Selects a row without showing its page (a command puts the selection back).
    void selectRowQuietly(int row);

signals:
    void showDrink(qint32 drinkID);
    // Any open command panel closes when the list is used.
    void closePanels();

private:
    void ArrangeListControls();
    bool reload(const QString &sql);
    void FillSelector(int view);
    void pnlListSet_Click(int tab);
    void cmbSelect_Click();
    void ssoptMarked_Click();
    void txtQuickSearch_Change();
    void timerQS_Timer();
    void SizeListColumns();

    DrinkStore *m_store = nullptr;
    DrinkListModel *m_model;
    QWidget *m_panel;
    QTableView *gridDrinkNames;
    QComboBox *cmbSelect;
    LetterTabs *m_tabs;
    QRadioButton *ssoptMarked, *ssoptUnmarked;
    QLabel *lblQuickSearch;
    QLineEdit *txtQuickSearch;
    QTimer *timerQS;
    QLabel *sbCount;

    short currentListTab = -1;
    bool searchActive = false;
    QString quickSearchText;
    QString listSQL;
    bool m_quietSelection = false;
};
