#include "editing/frmMetricConvert.h"

#include "editing/Measures.h"
#include "editing/MetricConvert.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTabBar>
#include <QVBoxLayout>
#include <algorithm>

namespace {

QLabel *fixedLabel(const QString &text, const QString &name, QWidget *parent)
{
    auto *label = new QLabel(text, parent);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    return label;
}

const QStringList &englishLines()
{
    static const QStringList lines = {
        QStringLiteral("One Pint is equal to the volume of one pound of water."),
        QStringLiteral("4 Oz = 1 Gill"),
        QStringLiteral("2 Gills = 1 Cup"),
        QStringLiteral("2 Cups = 1 Pint"),
        QStringLiteral("2 Pints = 1 Quart"),
        QStringLiteral("4 Quarts = 1 Gallon"),
        QStringLiteral("31.5 Gallons = 1 Barrel"),
        QStringLiteral("2 Barrels = 1 Hogshead"),
        QStringLiteral("1 Oz = 29.5 ml = 0.0295 l"),
        QStringLiteral("1 Pint = 473 ml = 0.473 l"),
        QStringLiteral("1 Quart = 946 ml = 0.946 l"),
        QStringLiteral("1 Gallon  =3.785 l"),
        QStringLiteral("1 Jigger = 1\u00BD oz."),
        QStringLiteral("1 Tbsp. = \u00BD oz."),
        QStringLiteral("1 Tsp. = 1/6 oz = 1/3 Tbsp."),
        QStringLiteral("1 Dash = 1/32 oz."),
        QStringLiteral("1 Shot = between 1 and 1.5 oz."),
    };
    return lines;
}

const QStringList &metricLines()
{
    static const QStringList lines = {
        QStringLiteral("One milliliter is equal to the volume of one cubic centimeter"),
        QStringLiteral("29.5 ml = 1 Oz"),
        QStringLiteral("473 ml = 1 Pint"),
        QStringLiteral("946 ml = 1 Quart"),
        QStringLiteral("3785 ml = 1 Gallon"),
        QStringLiteral("10 ml = 1 cl"),
        QStringLiteral("100 ml = 1 dl"),
        QStringLiteral("1000 ml = 1 l"),
    };
    return lines;
}

const QStringList &bottleLines()
{
    static const QStringList lines = {
        QStringLiteral("The volumes of standard liquor bottles were changed to use more rounded numbers in the metric "
                       "system.  This is a comparison of standard bottle sizes as they are now and the English "
                       "measurement they are based on"),
        QStringLiteral("1 Fifth = 750 ml = 25.4 oz. (an English Fifth - 1/5 Gallon = 25.6 oz.)"),
        QStringLiteral("1 Quart = 1 liter = 33.8 oz. (an English Quart is 32 oz.)"),
        QStringLiteral("\u00BD Gallon = 1.75 liters = 59.2 oz. (an English \u00BD Gallon is 64 oz.)"),
        QStringLiteral("1 Pint = 500 ml = 16.9 oz. (an English Pint is 16 oz.)"),
        QStringLiteral("\u00BD Pint = 200 ml = 6.8 oz. (\u00BD of an English Pint is 8 oz.)"),
        QStringLiteral("1 Miniature = 50 ml"),
    };
    return lines;
}

const QStringList &beerLines()
{
    static const QStringList lines = {
        QStringLiteral("1 Barrel of beer = 13 cases = 31 gallons = 312 12 oz. beers"),
        QStringLiteral(
            "1 \u00BD barrel of beer (also known as a keg or \u00BD keg) = 6.5 cases = 15.5 gallons = 156 12 oz. "
            "beers"),
        QStringLiteral(
            "1 \u00BC Barrel of beer (also known as a pony keg or \u00BC keg) = 3.25 cases = 7.25 gallons = 78 "
            "12 oz. beers"),
        QStringLiteral("1 Case of beer = 2.25 gallons = 24 12 oz. beers"),
        QStringLiteral("One Barrel of Beer is 1/2 gallon less than a standard English barrel."),
        QStringLiteral("1 Split of wine = 187 ml = 6.3 oz"),
        QStringLiteral(
            "1 Carafe of wine = 374 ml = 12.6 oz.  This size is not always followed by the makers of carafes"),
        QStringLiteral("1 Magnum of wine = 1.5 liters = 50.7 oz."),
        QStringLiteral("1 Jeroboam of wine = 3 liters = 101.4 oz."),
    };
    return lines;
}

} // namespace

frmMetricConvert::frmMetricConvert(QWidget *parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("frmMetricConvert"));
    setWindowTitle(QStringLiteral("English / Metric Conversion Utility and Reference"));

    tabConversion = new QTabBar(this);
    tabConversion->setObjectName(QStringLiteral("tabConversion"));
    tabConversion->setExpanding(false);
    tabConversion->setDrawBase(true);
    // "&&" is one ampersand on the tab, as it always was.
    for (const char *caption :
         {"Conversions", "English Measurments", "Metric Measurments", "Liquor Bottle Sizes", "Beer && Wine"})
        tabConversion->addTab(QString::fromLatin1(caption));

    auto *pages = new QWidget(this);
    auto *pagesLayout = new QGridLayout(pages);
    pagesLayout->setContentsMargins(0, 0, 0, 0);
    Frames = {buildConversions(), buildReference(2, englishLines(), true, 7), buildReference(3, metricLines(), true, 0),
              buildReference(4, bottleLines(), true, 0), buildReference(5, beerLines(), false, 0)};
    // The panels lie on top of each other; the tallest sets the height of all.
    constexpr int kPageWidth = 640;
    int height = 0;
    for (QFrame *frame : Frames) {
        frame->setParent(pages);
        pagesLayout->addWidget(frame, 0, 0);
        height = std::max(height,
                          frame->hasHeightForWidth() ? frame->heightForWidth(kPageWidth) : frame->sizeHint().height());
    }
    pages->setMinimumSize(kPageWidth, height);

    auto *lblHelp = fixedLabel(QStringLiteral("Press F1 for Help"), QStringLiteral("lblHelp"), this);
    cmdOK = new QPushButton(QStringLiteral("&OK"), this);
    cmdOK->setObjectName(QStringLiteral("cmdOK"));
    connect(cmdOK, &QPushButton::clicked, this, &frmMetricConvert::cmdOK_Click);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(tabConversion);
    layout->addWidget(pages, 1);
    auto *bottom = new QHBoxLayout();
    bottom->addWidget(lblHelp);
    bottom->addStretch(1);
    bottom->addWidget(cmdOK);
    layout->addLayout(bottom);

    // Form_Load: the first panel only, and the same fifteen units in both lists, none chosen.
    for (std::size_t i = 0; i < Frames.size(); ++i)
        Frames[i]->setVisible(i == 0);
    m_shownTab = 0;
    for (const MetricConvertUnit &unit : MetricConvertUnits()) {
        cmbFrom->addItem(unit.name);
        cmbTo->addItem(unit.name);
    }
    cmbFrom->setCurrentIndex(-1);
    cmbTo->setCurrentIndex(-1);
    connect(tabConversion, &QTabBar::currentChanged, this, &frmMetricConvert::tabConversion_Click);
    connect(cmbFrom, &QComboBox::currentIndexChanged, this, &frmMetricConvert::cmbFrom_Click);
    connect(cmbTo, &QComboBox::currentIndexChanged, this, &frmMetricConvert::cmbTo_Click);
    connect(txtSourceAmount, &QLineEdit::textChanged, this, &frmMetricConvert::txtSourceAmount_Change);
    cmdConvert->setDefault(true);
}

QFrame *frmMetricConvert::buildConversions()
{
    auto *frame = new QFrame(this);
    frame->setObjectName(QStringLiteral("Frames1"));
    auto *grid = new QGridLayout(frame);
    txtSourceAmount = new QLineEdit(frame);
    txtSourceAmount->setObjectName(QStringLiteral("txtSourceAmount"));
    cmbFrom = new QComboBox(frame);
    cmbFrom->setObjectName(QStringLiteral("cmbFrom"));
    cmbTo = new QComboBox(frame);
    cmbTo->setObjectName(QStringLiteral("cmbTo"));
    cmdConvert = new QPushButton(QStringLiteral("&Convert"), frame);
    cmdConvert->setObjectName(QStringLiteral("cmdConvert"));
    connect(cmdConvert, &QPushButton::clicked, this, &frmMetricConvert::cmdConvert_Click);
    txtResultAmount = new QLineEdit(frame);
    txtResultAmount->setObjectName(QStringLiteral("txtResultAmount"));
    txtResultAmount->setReadOnly(true);

    const QStringList steps = {QStringLiteral("1. Enter the amount you wish to convert"),
                               QStringLiteral("2. Select the units for the given amount"),
                               QStringLiteral("3. Select the units you want the amount converted to"),
                               QStringLiteral("4.  Click on Convert and the converted value will appear here.")};
    QWidget *fields[] = {txtSourceAmount, cmbFrom, cmbTo, txtResultAmount};
    for (int i = 0; i < 4; ++i) {
        QLabel *step = fixedLabel(steps[i], QStringLiteral("lblStep%1").arg(i + 1), frame);
        const int row = i < 3 ? i : 4;
        grid->addWidget(step, row, 0);
        grid->addWidget(fields[i], row, 1);
    }
    grid->addWidget(cmdConvert, 3, 1, Qt::AlignLeft);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(5, 1);
    return frame;
}

QFrame *frmMetricConvert::buildReference(int number, const QStringList &lines, bool headline, int leftColumnLines)
{
    auto *frame = new QFrame(this);
    frame->setObjectName(QStringLiteral("Frames%1").arg(number));
    auto *grid = new QGridLayout(frame);
    // A headline stands above a gap; the English page puts its table of measures in two columns.
    const int columns = leftColumnLines > 0 ? 2 : 1;
    const int first = headline ? 1 : 0;
    for (int i = 0; i < lines.size(); ++i) {
        QLabel *label = fixedLabel(lines[i], QStringLiteral("lblFrame%1Line%2").arg(number).arg(i + 1), frame);
        label->setWordWrap(true);
        if (i < first) {
            grid->addWidget(label, 0, 0, 1, columns);
            grid->setRowMinimumHeight(1, 8);
        } else if (leftColumnLines > 0 && i > leftColumnLines) {
            grid->addWidget(label, 2 + i - leftColumnLines - 1, 1);
        } else {
            grid->addWidget(label, 2 * first + i - first, 0);
        }
    }
    grid->setRowStretch(grid->rowCount(), 1);
    for (int c = 0; c < columns; ++c)
        grid->setColumnStretch(c, 1);
    return frame;
}

void frmMetricConvert::tabConversion_Click(int index)
{
    if (index == m_shownTab || index < 0 || index >= static_cast<int>(Frames.size()))
        return;
    Frames[static_cast<std::size_t>(m_shownTab)]->hide();
    Frames[static_cast<std::size_t>(index)]->show();
    m_shownTab = index;
}

void frmMetricConvert::cmdConvert_Click()
{
    const ConvertOutcome outcome =
        ConvertForDialog(txtSourceAmount->text(), cmbFrom->currentIndex(), cmbTo->currentIndex());
    if (!outcome.message.isEmpty()) {
        showMessage(outcome.message);
        return;
    }
    txtResultAmount->setText(outcome.result);
}

void frmMetricConvert::showMessage(const QString &text)
{
    QMessageBox box(QMessageBox::NoIcon, QStringLiteral("Corvane"), text, QMessageBox::Ok, this);
    box.exec();
}

// A result never stands beside inputs that did not produce it.
void frmMetricConvert::cmbFrom_Click()
{
    txtResultAmount->clear();
}
void frmMetricConvert::cmbTo_Click()
{
    txtResultAmount->clear();
}
void frmMetricConvert::txtSourceAmount_Change()
{
    txtResultAmount->clear();
}

void frmMetricConvert::cmdOK_Click()
{
    accept();
}
