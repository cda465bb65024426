#pragma once

#include <QDialog>

#include "search/ICVForm.h"

class DrinkStore;
class QComboBox;
class QFrame;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

// The simple search: one attribute of the drink (name, ingredient, recipe, glass, category)
// and one value, a text or an entry of a list.
class frmSearch : public QDialog, public ICVForm {
    Q_OBJECT
  public:
    explicit frmSearch(DrinkStore &store, QWidget *parent = nullptr);

    bool WasCanceled() const override { return Canceled; }
    // Kinds 301 to 305; 304 and 305 fill the list from Glassware or DrinkTypes.
    void Setup(int kind) override;

  public slots:
    void OK_Click();
    void Cancel_Click();

  protected:
    void showEvent(QShowEvent *event) override;

  private:
    DrinkStore &m_store;
    int SearchKind = 0;
    bool Canceled = true;

    QLabel *Label1;
    QLineEdit *SearchText;
    QComboBox *cmbSearch;
    QFrame *pnlMatch;
    QRadioButton *optMatchAll, *optMatchFirst;
    QPushButton *OK, *Cancel;
};
