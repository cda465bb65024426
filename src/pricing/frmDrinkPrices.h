#pragma once

#include "pricing/PriceBatch.h"

#include <QDialog>

class DrinkStore;
class QCheckBox;
class QComboBox;
class QFrame;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

// "Drink Price Worksheet": the pricing settings, and from the main window the run that
// recosts every drink and reprices the unlocked ones; from the drink editor it only stores
// the settings.
class frmDrinkPrices : public QDialog {
    Q_OBJECT
public:
    explicit frmDrinkPrices(DrinkStore &store, QWidget *parent = nullptr);

    // settingsMode: OK stores the settings; otherwise "Update Prices" runs the batch.
    void Setup(bool settingsMode);
    bool running() const { return m_running; }

public slots:
    void cmdUpdate_Click();
    void cmdOK_Click();
    void cmdCancel_Click();
    void cmdCancelSearch_Click();
    void cmdIng_Click();
    void OpenPricingBookPage();

protected:
    void showEvent(QShowEvent *event) override;
    void reject() override;

private:
    void Form_Activate();
    void ShowStatistics();
    void applyOption();
    void runBatch();
    PriceForm readForm() const;
    void setRunning(bool running);

    DrinkStore &m_store;
    bool m_settingsMode = false;
    bool m_cancel = false;
    bool m_running = false;

    QRadioButton *optMarkup, *optIncrease, *optBCM;
    QLabel *lblMark1, *lblMark2, *lblInc1, *lblInc2, *lblBCM1, *lblBCM2;
    QLineEdit *txtMarkupPct, *txtIncreasePct, *txtBCM, *txtMinPrice;
    QCheckBox *chkForceMinPrice, *chkZeroOnly;
    QComboBox *cmbRounding;
    QLabel *lblAvgCPOLiq, *lblAvgCPOOth, *lblAvgCost, *lblAvgPrice;
    QPushButton *cmdUpdate, *cmdOK, *cmdCancel, *cmdIng;
    QFrame *pnlProgress;
    QLabel *lblProgress;
    QPushButton *cmdCancelSearch;
    QLabel *lblSBM, *Image2, *Label10;
    QWidget *m_body;
};
