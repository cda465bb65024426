#pragma once

#include <QColor>
#include <QDialog>
#include <QList>
#include <array>

#include "search/AdvancedSearch.h"
#include "search/ICVForm.h"

class DrinkStore;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

// The advanced search: five criteria rows on twelve drink attributes with a connector
// between each row and the next, and searches kept under a name.
class frmAdvSearch : public QDialog, public ICVForm {
    Q_OBJECT
  public:
    explicit frmAdvSearch(DrinkStore &store, QWidget *parent = nullptr);

    bool WasCanceled() const override { return Canceled; }
    // Every advanced search starts the same way: nothing to configure.
    void Setup(int) override {}

    // Row 1 to 5 on "Ingredient" with the name in its text box, as Find Similar fills it.
    void SetIngredientRow(int row, const QString &ingredient);

  public slots:
    void cmdOK_Click();
    void cmdCancel_Click();
    void cmdClear_Click();
    void cmdSave_Click();
    void cmdDelete_Click();
    void cmbSavedSearch_Click();

  signals:
    // The dialog beeped: nothing to search for, or nothing found on the ingredient path.
    void beeped();

  protected:
    void reject() override;
    void closeEvent(QCloseEvent *event) override;

  private:
    struct RefEntry {
        QString text;
        qint32 id;
    };
    using RefList = QList<RefEntry>;

    void buildRows();
    void loadReferenceList(RefList &list, AdvancedSearch::ValueSource source);
    void cmbField_Click(int row);
    void enable(QWidget *control, bool on);
    void beep();
    // The rows as the search reads them, and as a saved search keeps them.
    CriterionRows searchRows() const;
    CriterionRows savedRows() const;
    void loadRows(const QStringList &lines);
    void showError(const QString &text);

    DrinkStore &m_store;
    bool Canceled = false;
    QColor m_enabledBack, m_disabledBack;

    std::array<QComboBox *, 5> cmbField{}, cmbComp{}, cmbVal{};
    std::array<QLineEdit *, 5> txtVal{};
    std::array<QComboBox *, 4> cmbOp{};
    QComboBox *cmbSavedSearch;
    QLabel *lblSavedSearch;
    QPushButton *cmdOK, *cmdCancel, *cmdClear, *cmdSave, *cmdDelete;
    RefList lstCat, lstGlass, lstRating, lstBuild, lstGarnish;
};
