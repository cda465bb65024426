#pragma once

#include "editing/DrinkEditorStore.h"
#include "pricing/PriceSettings.h"

#include <QDialog>
#include <array>

class DrinkStore;
class EditorTab;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPlainTextEdit;
class QPushButton;
class QStackedWidget;
class QTableView;
class QTreeWidget;
class TextGridModel;

// The drink editor: one drink added, edited, or made from a copy of another, on six pages.
// Nothing reaches the store before "&Save", except what the ingredient dialog saves itself.
class frmAddEdit : public QDialog {
    Q_OBJECT
public:
    frmAddEdit(DrinkStore &store, const QString &appDir, QWidget *parent = nullptr);
    ~frmAddEdit() override;

    // editFlag: load the stored drink drinkID; copyFlag: the load makes a new drink of it.
    void Setup(bool editFlag, bool copyFlag, qint32 drinkID);
    // After a save: the id written (0 for a new drink not saved, -1 for a copy not saved).
    qint32 drinkID() const { return m_drinkID; }
    bool saved() const { return m_saved; }

    static constexpr int PageCount = 6;
    void ShowPage(int page);
    int GetCurrentPage() const;

public slots:
    void cmdSave_Click();
    void cmdCancel_Click();
    void cmdNext_Click();
    void cmdPrev_Click();
    void cmdAddIng_Click();
    void cmdRemoveIng_Click();
    void cmdMoveUp_Click();
    void cmdMoveDown_Click();
    void cmdEditIng_Click();
    void cmdResetCost_Click();
    void cmdResetPrice_Click();
    void cmdBrowse_Click();
    void lstGlass_Click();

protected:
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    void buildFrame();
    QWidget *buildIngredientPage();
    QWidget *buildGlassPage();
    QWidget *buildCategoryPage();
    QWidget *buildRecipePage();
    QWidget *buildPricingPage();
    QWidget *buildPicturePage();
    void Form_Load();
    void LoadLists();
    void LoadIngredientTree();
    void ShowPriceSettings();
    void cmdPriceSettings_Click();
    void LoadDrink();
    void LoadPicture(const QString &imageFilePath);
    bool SaveDrink();
    bool RefreshPriceGrid();
    void SizeLineColumns();
    void tabHover(int page, bool inside);
    DrinkDraft draft() const;
    SideChoice sideChoice(QComboBox *combo, QLineEdit *newText) const;
    void showPicture(const QString &path);

    DrinkStore &m_store;
    QString m_appDir;
    bool m_editFlag = false, m_copyFlag = false, m_loading = false, m_saved = false;
    qint32 m_drinkID = 0;
    QString m_loadedName, m_loadedImagePath;
    StoredPriceSettings m_priceSettings;

    TextGridModel *m_lines, *m_prices;
    std::array<EditorTab *, PageCount> pnlOpt{};
    QStackedWidget *m_pages = nullptr;
    QLineEdit *txtName = nullptr;
    QPushButton *cmdPrev, *cmdNext, *cmdSave, *cmdCancel;
    // Ingredients
    QTreeWidget *tvIng = nullptr;
    QLineEdit *txtIngName, *txtAmount;
    QComboBox *cmbIngUnits;
    QTableView *cfIng;
    QPushButton *cmdAddIng, *cmdEditIng, *cmdRemoveIng, *cmdMoveUp, *cmdMoveDown;
    // Glassware, categories, recipe
    QListWidget *lstGlass, *lstCats;
    QLabel *pnlGlass, *lblGlasswareDesc;
    QPlainTextEdit *txtRecipe, *txtComment;
    QComboBox *cmbGarnish, *cmbBuild, *cmbRating;
    QLineEdit *txtNewGarnish, *txtNewBuild, *txtNewRating;
    // Pricing
    QTableView *cfPrice;
    QLineEdit *txtCost, *txtPrice;
    QCheckBox *chkLockPrice;
    QLabel *lblPriceSettings;
    QPushButton *cmdResetCost, *cmdResetPrice, *cmdPriceSettings;
    // Picture
    QLineEdit *txtDrinkImagePath;
    QPushButton *cmdBrowse;
    QLabel *pnlDrinkImage;
};
