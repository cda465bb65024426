#pragma once

#include <QDialog>
#include <vector>

class DrinkStore;
class QFrame;
class NextBottlePanel;
class QLabel;
class QPushButton;
class QTabWidget;
class QTreeWidget;
class QTreeWidgetItem;

// The liquor cabinet: the user ticks the ingredients they own; "&Find Matches" stores the ticks
// and marks every drink that can be made from them. The main window shows those drinks after
// the dialog closes with WasCanceled false.
class frmLiquorCab : public QDialog {
    Q_OBJECT
public:
    explicit frmLiquorCab(DrinkStore &store, QWidget *parent = nullptr);

    // True unless the last scan ran to its end.
    bool WasCanceled() const { return Canceled; }
    // True when the dialog closed by putting the drinks a bottle would unlock into
    // SearchResults, for the main list to show as a search.
    bool ShowsUnlockedDrinks() const { return m_showsUnlocked; }
    // The report goes to this PDF file instead of the default printer.
    void setReportFile(const QString &pdfPath) { m_reportFile = pdfPath; }

    // Tree item data: the node's key ("C", "S" or "I" and a number) and its tag.
    static constexpr int KeyRole = Qt::UserRole;
    static constexpr int TagRole = Qt::UserRole + 1;

public slots:
    void OK_Click();
    void cmdCancel_Click();
    void cmdPrint_Click();
    void cmdCancelSearch_Click();
    void tvIng_NodeCheck(QTreeWidgetItem *node);
    void tabCabinet_Click(int page);

protected:
    void showEvent(QShowEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void reject() override;

private:
    void Form_Activate();
    void endScan();
    // Checked ingredient nodes, in tree order.
    std::vector<QTreeWidgetItem *> checkedIngredients() const;
    QString reportTarget() const;

    DrinkStore &m_store;
    QString m_reportFile;
    bool Canceled = true;
    bool CancelScan = false;
    bool LoadingTree = false;
    bool m_scanning = false;
    bool m_showsUnlocked = false;
    std::vector<qint32> SelectedIds;

    QTabWidget *tabCabinet;
    QTreeWidget *tvIng;
    NextBottlePanel *pnlNextBottle;
    QLabel *Label2;
    QPushButton *OK, *cmdCancel, *cmdPrint;
    QFrame *pnlProgress;
    QLabel *lblProgress;
    QPushButton *cmdCancelSearch;
};
