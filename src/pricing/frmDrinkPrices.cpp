#include "pricing/frmDrinkPrices.h"

#include "reference/frmIngMaint.h"
#include "store/DrinkStore.h"
#include "widgets/ApplyScheme.h"
#include "widgets/HandlerGuard.h"
#include "widgets/PlainMessage.h"
#include "widgets/NamedControls.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDesktopServices>
#include <QElapsedTimer>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QScopeGuard>
#include <QStyle>
#include <QUrl>
#include <QVBoxLayout>
#include <functional>
#include <tuple>

namespace {
// The page about the book on pricing drinks.
const char *const PricingBookPage = "https://www.example.com/ssi/04sbm.shtml";
// The screen is painted and Cancel read this often during the run, not after every drink.
constexpr int YieldEveryMs = 50;


QLabel *label(const QString &text, const char *name, QWidget *parent)
{
    return named(new QLabel(text, parent), name);
}

// A label that acts on a click, for the line about the book.
class ClickLabel : public QLabel {
public:
    ClickLabel(const std::function<void()> &onClick, QWidget *parent) : QLabel(parent), m_onClick(onClick)
    {
        setCursor(Qt::PointingHandCursor);
        setToolTip(QStringLiteral("Click for more information"));
    }

protected:
    void mouseReleaseEvent(QMouseEvent *event) override
    {
        if (event->button() == Qt::LeftButton)
            m_onClick();
    }

private:
    std::function<void()> m_onClick;
};
} // namespace

frmDrinkPrices::frmDrinkPrices(DrinkStore &store, QWidget *parent) : QDialog(parent), m_store(store)
{
    setObjectName(QStringLiteral("frmDrinkPrices"));
    setWindowTitle(QStringLiteral("Drink Price Worksheet"));
    m_body = new QWidget(this);
    auto *grid = new QGridLayout(m_body);

    optMarkup = named(new QRadioButton(QStringLiteral("Based on % &Markup from cost"), m_body), "optMarkup");
    lblMark1 = label(QStringLiteral("&Where the markup is"), "lblMark1", m_body);
    txtMarkupPct = named(new QLineEdit(m_body), "txtMarkupPct");
    lblMark2 = label(QStringLiteral("%"), "lblMark2", m_body);
    optIncrease = named(new QRadioButton(QStringLiteral("Based on % &Increase or decrease from current price"), m_body),
                        "optIncrease");
    lblInc1 = label(QStringLiteral("W&here the markup is"), "lblInc1", m_body);
    txtIncreasePct = named(new QLineEdit(m_body), "txtIncreasePct");
    lblInc2 = label(QStringLiteral("(use negative numbers for a decrease)"), "lblInc2", m_body);
    optBCM = named(new QRadioButton(QStringLiteral("Based on the Beverage Cost Method"), m_body), "optBCM");
    lblBCM1 = label(QStringLiteral("Where the desired cost percentage is"), "lblBCM1", m_body);
    txtBCM = named(new QLineEdit(m_body), "txtBCM");
    lblBCM2 = label(QStringLiteral("%"), "lblBCM2", m_body);
    lblMark1->setBuddy(txtMarkupPct);
    lblInc1->setBuddy(txtIncreasePct);
    lblBCM1->setBuddy(txtBCM);
    int row = 0;
    for (auto [opt, l1, txt, l2] : {std::tuple{optMarkup, lblMark1, txtMarkupPct, lblMark2},
                                    std::tuple{optIncrease, lblInc1, txtIncreasePct, lblInc2},
                                    std::tuple{optBCM, lblBCM1, txtBCM, lblBCM2}}) {
        grid->addWidget(opt, row++, 0, 1, 4);
        grid->addWidget(l1, row, 1);
        txt->setMaximumWidth(80);
        grid->addWidget(txt, row, 2);
        grid->addWidget(l2, row++, 3);
        connect(opt, &QRadioButton::toggled, this, &frmDrinkPrices::applyOption);
    }
    chkForceMinPrice = named(new QCheckBox(QStringLiteral("&Force the minimum price of any drink to"), m_body),
                             "chkForceMinPrice");
    txtMinPrice = named(new QLineEdit(m_body), "txtMinPrice");
    txtMinPrice->setMaximumWidth(80);
    grid->addWidget(chkForceMinPrice, row, 0, 1, 2);
    grid->addWidget(txtMinPrice, row++, 2);
    chkZeroOnly = named(new QCheckBox(QStringLiteral("&Apply only to drinks with a current price of 0"), m_body),
                        "chkZeroOnly");
    grid->addWidget(chkZeroOnly, row++, 0, 1, 4);
    auto *lblRounding = label(QStringLiteral("&Round calculated prices up to the nearst"), "lblRounding", m_body);
    cmbRounding = named(new QComboBox(m_body), "cmbRounding");
    lblRounding->setBuddy(cmbRounding);
    grid->addWidget(lblRounding, row, 0, 1, 2);
    grid->addWidget(cmbRounding, row++, 2);
    grid->setColumnMinimumWidth(0, 20);
    grid->setColumnStretch(3, 1);

    auto *stats = new QGridLayout;
    int s = 0;
    for (auto [caption, value, name] :
         {std::tuple{"Average Cost Per Oz (Liquor):", &lblAvgCPOLiq, "lblAvgCPOLiq"},
          std::tuple{"Average Cost Per Oz (Other):", &lblAvgCPOOth, "lblAvgCPOOth"},
          std::tuple{"Average Drink Cost:", &lblAvgCost, "lblAvgCost"},
          std::tuple{"Average Drink Price:", &lblAvgPrice, "lblAvgPrice"}}) {
        stats->addWidget(new QLabel(QString::fromLatin1(caption), m_body), s, 0);
        *value = label(QString(), name, m_body);
        (*value)->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        (*value)->setMinimumWidth(90);
        stats->addWidget(*value, s++, 1);
    }
    grid->addLayout(stats, row++, 0, 1, 4);

    Label10 = label(QStringLiteral("For more infomation about drink cost and pricing, see the book"), "Label10", m_body);
    Label10->setWordWrap(true);
    Image2 = named(new ClickLabel([this] { OpenPricingBookPage(); }, m_body), "Image2");
    Image2->setPixmap(style()->standardIcon(QStyle::SP_FileDialogInfoView).pixmap(32, 32));
    lblSBM = named(new ClickLabel([this] { OpenPricingBookPage(); }, m_body), "lblSBM");
    lblSBM->setText(QStringLiteral("Beverage Management: Costing and Pricing the Bar Menu"));
    lblSBM->setWordWrap(true);
    auto *book = new QHBoxLayout;
    auto *bookText = new QVBoxLayout;
    bookText->addWidget(Label10);
    bookText->addWidget(lblSBM);
    book->addWidget(Image2);
    book->addLayout(bookText, 1);
    grid->addLayout(book, row++, 0, 1, 4);

    cmdUpdate = dialogButton(QStringLiteral("&Update Prices"), "cmdUpdate", m_body);
    cmdOK = dialogButton(QStringLiteral("&OK"), "cmdOK", m_body);
    cmdCancel = dialogButton(QStringLiteral("&Cancel"), "cmdCancel", m_body);
    cmdIng = dialogButton(QStringLiteral("&Edit Ingredient List..."), "cmdIng", m_body);
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(cmdIng);
    buttons->addStretch(1);
    buttons->addWidget(cmdUpdate);
    buttons->addWidget(cmdOK);
    buttons->addWidget(cmdCancel);
    grid->addLayout(buttons, row++, 0, 1, 4);
    connect(cmdUpdate, &QPushButton::clicked, this, &frmDrinkPrices::cmdUpdate_Click);
    connect(cmdOK, &QPushButton::clicked, this, &frmDrinkPrices::cmdOK_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmDrinkPrices::cmdCancel_Click);
    connect(cmdIng, &QPushButton::clicked, this, &frmDrinkPrices::cmdIng_Click);

    // The progress panel lies over the form, centred, while the run goes on.
    pnlProgress = named(new QFrame(this), "pnlProgress");
    pnlProgress->setFrameShape(QFrame::Panel);
    pnlProgress->setFrameShadow(QFrame::Raised);
    pnlProgress->setAutoFillBackground(true);
    auto *panel = new QVBoxLayout(pnlProgress);
    lblProgress = label(QString(), "lblProgress", pnlProgress);
    lblProgress->setAlignment(Qt::AlignCenter);
    lblProgress->setMinimumWidth(260);
    cmdCancelSearch = dialogButton(QStringLiteral("Cancel"), "cmdCancelSearch", pnlProgress);
    panel->addWidget(lblProgress);
    panel->addWidget(cmdCancelSearch, 0, Qt::AlignCenter);
    connect(cmdCancelSearch, &QPushButton::clicked, this, &frmDrinkPrices::cmdCancelSearch_Click);
    pnlProgress->hide();

    auto *outer = new QVBoxLayout(this);
    outer->addWidget(m_body);

    // Form_Load
    for (int i = 0; i < RoundingStepCount; ++i)
        cmbRounding->addItem(RoundingStep(i).format());
    optMarkup->setChecked(true);
    applyOption();
    txtMarkupPct->setText(QStringLiteral("0"));
    txtIncreasePct->setText(QStringLiteral("0"));
    cmbRounding->setCurrentIndex(0);
    ApplySchemeToForm(this);
    // The line about the book is blue whatever the scheme, as a link is.
    lblSBM->setStyleSheet(QStringLiteral("color: #0000FF"));
}

void frmDrinkPrices::Setup(bool settingsMode)
{
    m_settingsMode = settingsMode;
}

void frmDrinkPrices::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    if (!m_running)
        runGuarded(this, [this] { Form_Activate(); });
}

void frmDrinkPrices::Form_Activate()
{
    pnlProgress->hide();
    cmdUpdate->setVisible(!m_settingsMode);
    cmdOK->setVisible(m_settingsMode);
    PriceForm form = readForm();
    ApplyStoredToForm(m_store, form);
    (form.method == MarkupFromCost ? optMarkup : form.method == BeverageCostMethod ? optBCM : optIncrease)
        ->setChecked(true);
    txtMarkupPct->setText(form.markupPct);
    txtIncreasePct->setText(form.increasePct);
    txtBCM->setText(form.bcmPct);
    chkZeroOnly->setChecked(form.zeroOnly);
    cmbRounding->setCurrentIndex(form.roundTo >= 0 && form.roundTo < cmbRounding->count() ? form.roundTo : -1);
    chkForceMinPrice->setChecked(form.forceMinimum);
    txtMinPrice->setText(form.minPrice);
    ShowStatistics();
}

void frmDrinkPrices::applyOption()
{
    const std::tuple<QRadioButton *, QWidget *, QWidget *, QWidget *> groups[] = {
        {optMarkup, lblMark1, txtMarkupPct, lblMark2},
        {optIncrease, lblInc1, txtIncreasePct, lblInc2},
        {optBCM, lblBCM1, txtBCM, lblBCM2}};
    for (auto [opt, a, b, c] : groups)
        for (QWidget *w : {a, b, c})
            w->setEnabled(opt->isChecked());
}

PriceForm frmDrinkPrices::readForm() const
{
    PriceForm f;
    f.method = optMarkup->isChecked() ? MarkupFromCost : optBCM->isChecked() ? BeverageCostMethod : MarkupFromCurrent;
    f.markupPct = txtMarkupPct->text();
    f.increasePct = txtIncreasePct->text();
    f.bcmPct = txtBCM->text();
    f.forceMinimum = chkForceMinPrice->isChecked();
    f.minPrice = txtMinPrice->text();
    f.zeroOnly = chkZeroOnly->isChecked();
    f.roundTo = cmbRounding->currentIndex();
    return f;
}

void frmDrinkPrices::ShowStatistics()
{
    const PriceStatistics s = ::ShowStatistics(m_store);
    lblAvgCPOLiq->setText(s.costPerOzLiquor.format());
    lblAvgCPOOth->setText(s.costPerOzOther.format());
    lblAvgCost->setText(s.drinkCost.format());
    lblAvgPrice->setText(s.drinkPrice.format());
}

void frmDrinkPrices::cmdOK_Click()
{
    if (!m_settingsMode) {
        QDialog::accept();
        return;
    }
    const PriceForm form = readForm();
    const QString problem = PriceFormProblem(form, true);
    if (!problem.isEmpty()) {
        plainMessage(this, problem);
        return;
    }
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const bool stored = runGuarded(this, [&] {
        const auto restore = qScopeGuard([] { QApplication::restoreOverrideCursor(); });
        SavePriceSettings(m_store, StoredFromForm(form));
    });
    if (stored)
        QDialog::accept();
}

void frmDrinkPrices::cmdCancel_Click()
{
    QDialog::reject();
}

void frmDrinkPrices::reject()
{
    // Escape or closing the window during the run asks it to stop, like its own Cancel.
    if (m_running)
        cmdCancelSearch_Click();
    else
        QDialog::reject();
}

void frmDrinkPrices::cmdCancelSearch_Click()
{
    m_cancel = true;
}

void frmDrinkPrices::cmdIng_Click()
{
    frmIngMaint dialog(m_store, this);
    dialog.exec();
    // Coming back reads the stored settings again, as every activation does.
    runGuarded(this, [this] { Form_Activate(); });
}

void frmDrinkPrices::OpenPricingBookPage()
{
    QDesktopServices::openUrl(QUrl(QString::fromLatin1(PricingBookPage)));
}

void frmDrinkPrices::setRunning(bool running)
{
    // While the run lets the screen paint, nothing on the form but its Cancel can start anything.
    m_running = running;
    m_body->setEnabled(!running);
    if (running) {
        pnlProgress->adjustSize();
        pnlProgress->move((width() - pnlProgress->width()) / 2, (height() - pnlProgress->height()) / 2);
        pnlProgress->raise();
        pnlProgress->show();
    }
}

void frmDrinkPrices::cmdUpdate_Click()
{
    if (m_running)
        return;
    const PriceForm form = readForm();
    const QString problem = PriceFormProblem(form, false);
    if (!problem.isEmpty()) {
        plainMessage(this, problem);
        return;
    }
    QApplication::setOverrideCursor(Qt::WaitCursor);
    bool finished = false;
    runGuarded(this, [&] {
        const auto restore = qScopeGuard([this] {
            setRunning(false);
            QApplication::restoreOverrideCursor();
        });
        lblProgress->setText(QStringLiteral("Recalculating the drink costs..."));
        setRunning(true);
        QApplication::processEvents();
        RecalculateDrinkCosts(m_store);
        QApplication::processEvents();
        SavePriceSettings(m_store, StoredFromForm(form));
        const std::vector<BatchDrink> drinks = DrinksToReprice(m_store, form.zeroOnly);
        if (drinks.empty()) {
            finished = true;
            return;
        }
        const QString total = QString::number(drinks.size());
        const auto showCount = [&](std::size_t n) {
            lblProgress->setText(QStringLiteral("Updating drink ") + QString::number(n) + QStringLiteral(" of ") + total +
                                 u'.');
        };
        m_cancel = false;
        showCount(1);
        QApplication::processEvents();
        QElapsedTimer sinceYield;
        sinceYield.start();
        RepriceDrinks(m_store, drinks, BatchPriceSettings(form), [&](std::size_t done, std::size_t) {
            if (sinceYield.elapsed() >= YieldEveryMs) {
                showCount(done + 1);
                QApplication::processEvents();
                sinceYield.restart();
            }
            return !m_cancel;
        });
        finished = true;
    });
    if (finished)
        QDialog::accept();
}
