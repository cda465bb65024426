#pragma once

#include "printing/CardGrid.h"
#include "printing/PrintLayout.h"

#include <QDialog>
#include <array>
#include <memory>

class CDrinkFacade;
class DrinkListModel;
class DrinkStore;
class GlassPictureCache;
class PreviewPicture;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QRadioButton;
class QStackedWidget;

// The print dialog: the drinks to print, the printer, the card layout on two option pages,
// the stored layouts, and the two previews.
class frmPrint : public QDialog {
    Q_OBJECT
  public:
    // list: the main list as it stands (may be null).
    frmPrint(DrinkStore &store, CDrinkFacade &facade, const DrinkListModel *list, QWidget *parent = nullptr);
    ~frmPrint() override;

    // Fills the dialog with the marked drinks or the main list's; false (after telling why)
    // when there is nothing to print.
    bool Setup(bool markedOnly);

    // The layout as the controls hold it, and back.
    PrintLayoutSettings layoutFromControls() const;
    void setLayoutControls(const PrintLayoutSettings &layout);
    // The paper of the chosen printer, upright.
    PageMetrics paper() const { return m_paper; }
    // What the last print run gave, for whoever opened the dialog.
    int printedCards() const { return m_printedCards; }

  public slots:
    void lstDrinks_Click();
    void cmdSelectAll_Click();
    void cmdClearSelect_Click();
    void cmbPrinter_Click();
    void cmbLayout_Click();
    void pnlOpt_Click(int index);
    void cmdPrint_Click();
    void cmdNewLayout_Click();
    void cmdSave_Click();
    void cmdDeleteLayout_Click();
    void cmdFont_Click(int index);
    void chkMetric_Click();
    void ShowPagePreview();
    void PreviewCard();

  private:
    QWidget *buildPrintPage();
    QWidget *buildLayoutPage();
    QWidget *lengthBox(QLineEdit *&text, const char *textName, const char *udName, bool wholeNumber = false);
    void stepBox(QLineEdit *text, bool up, bool wholeNumber);
    void FillFromRecordset(const std::vector<qint32> &ids, const QStringList &names);
    void FillLayoutList();
    void SaveLayout();
    void colorTabs();
    void paintCard(QPainter &painter, QWidget &picture);
    void paintPage(QPainter &painter, QWidget &picture);
    bool printToPrinter(const std::vector<qint32> &ids, const PrintLayoutSettings &layout);

    DrinkStore &m_store;
    CDrinkFacade &m_facade;
    const DrinkListModel *m_list;
    std::unique_ptr<GlassPictureCache> m_glasses;
    bool m_redrawHeld = false;
    bool m_clickedOnce = false;
    PageMetrics m_paper;
    int m_printedCards = 0;
    std::array<FontRecord, PieceCount> m_fonts;

    QListWidget *lstDrinks;
    QLabel *lblAvailCount, *lblSelCount, *lblMeas, *lblPdfFile;
    QPushButton *cmdSelectAll, *cmdClearSelect, *cmdPrint, *cmdCancel;
    QPushButton *cmdNewLayout, *cmdSave, *cmdDeleteLayout, *cmdBrowse;
    std::array<QPushButton *, PieceCount> cmdFont;
    std::array<QCheckBox *, PieceCount - 1> chkPrint;
    std::array<QPushButton *, 2> pnlOpt;
    QStackedWidget *pnlDisp;
    QComboBox *cmbPrinter, *cmbLayout, *cmbGlassPrint;
    QLineEdit *txtMarTop, *txtMarBottom, *txtMarLeft, *txtMarRight, *txtRows, *txtCols, *txtRowSpacing, *txtColSpacing,
        *txtGlassPH, *txtMark, *txtPdfFile;
    QRadioButton *optPort, *optLand;
    QCheckBox *chkMetric;
    PreviewPicture *pctLPreview, *pctSPreview;
    QWidget *pnlSide;
};
