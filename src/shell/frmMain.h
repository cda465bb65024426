#pragma once

#include <QMainWindow>
#include <functional>
#include <memory>
#include <optional>

#include "base/CommandLine.h"

class CDrinkFacade;
class CommandPanels;
class DrinkListModel;
class DrinkStore;
class InstanceLink;
class ListController;
class QKeyEvent;
class QLabel;
class QPushButton;
class QTextBrowser;

// The main window: the drink list, the page of the selected drink, and the one dispatcher of
// numbered commands.
class frmMain : public QMainWindow {
    Q_OBJECT
public:
    explicit frmMain(QWidget *parent = nullptr);
    ~frmMain() override;

    // The start: opens the store and the facade, reads the settings, opens the last view and
    // handles this start's own command line. False (after telling the user) when the store
    // cannot be opened; the program then ends.
    bool Form_Load(const QString &commandLine);

    void RunCommand(int command);
    void ProcessCommandLine(const QString &text);
    void ShowDrink(qint32 drinkID);
    void ShowSelectedDrink();

    DrinkStore *store() const { return m_store.get(); }
    CDrinkFacade *drinkFacade() const { return m_facade.get(); }
    bool openedByMap() const { return m_openedByMap; }
    DrinkListModel *listModel() const { return m_listModel; }
    ListController *list() const { return m_list; }

public slots:
    void cmdDummy_Click();

protected:
    void closeEvent(QCloseEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void buildWidgets();
    void ShowDrinkByID(const CommandLineAction &action);
    void ShowDrinkByMapID(const QString &mapId);
    void ImportExchangeFile(const QString &fileName);
    void pnlLogo_Click();
    void showPage(const QString &html);
    bool Form_KeyDown(QKeyEvent *event);
    // The list row's drink for the commands that act on it; false when the list is empty.
    bool selectedDrink(qint32 &id, QString &name) const;
    void DeleteDrink();
    void CopyToClipboard(bool append);
    void MarkAll(bool mark);
    void OpenHelp(int command);
    void bringForward();
    // Runs a piece of a command; an error nothing else handles is shown with the engine's or
    // the settings' own text, and the program goes on.
    bool guarded(const std::function<void()> &f);

    std::unique_ptr<DrinkStore> m_store;
    std::unique_ptr<CDrinkFacade> m_facade;
    InstanceLink *m_link = nullptr;
    DrinkListModel *m_listModel = nullptr;
    ListController *m_list = nullptr;

    QTextBrowser *wbMain = nullptr;
    QLabel *sbMain = nullptr;
    QLabel *sbCount = nullptr;
    QPushButton *cmdDummy = nullptr;
    QPushButton *pnlLogo = nullptr;
    CommandPanels *pnlCommands = nullptr;

    bool m_openedByMap = false;
    bool m_buildingPage = false;
    std::optional<qint32> m_pendingDrink;
};
