#include "shell/frmOptions.h"

#include "base/CLocalConfig.h"
#include "base/Options.h"
#include "widgets/HandlerGuard.h"
#include "widgets/ApplyScheme.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

frmOptions::frmOptions(modCorvane::State &state, QWidget *parent) : QDialog(parent), m_state(state)
{
    setObjectName(QStringLiteral("frmOptions"));
    setWindowTitle(QStringLiteral("Options"));
    buildWidgets();
    Form_Load();
}

void frmOptions::buildWidgets()
{
    auto *fraView = new QGroupBox(QStringLiteral("Default View"), this);
    fraView->setObjectName(QStringLiteral("fraView"));
    auto *viewLayout = new QVBoxLayout(fraView);
    // In the order of the views in the command panel, the most recent view last.
    const struct {
        const char *name;
        const char *caption;
    } views[] = {{"optViewName", "View by &Name"},
                 {"optViewLiq", "View by Primary &Liquor"},
                 {"optViewGlass", "View by Preferred &Glassware"},
                 {"optViewCat", "View by Drink &Category"},
                 {"optViewMarked", "View &Marked Drinks"},
                 {"optViewCab", "Liquor Cabinet &View (only drinks you can make)"},
                 {"optViewDef", "&Default to the most recently used view"}};
    for (const auto &v : views) {
        auto *option = new QRadioButton(QString::fromLatin1(v.caption), fraView);
        option->setObjectName(QString::fromLatin1(v.name));
        viewLayout->addWidget(option);
        m_viewOptions << option;
    }

    auto *fraUnits = new QGroupBox(QStringLiteral("English / Metric Units"), this);
    fraUnits->setObjectName(QStringLiteral("fraUnits"));
    auto *unitsLayout = new QVBoxLayout(fraUnits);
    optEnglish = new QRadioButton(QStringLiteral("Show English measurments"), fraUnits);
    optEnglish->setObjectName(QStringLiteral("optEnglish"));
    optMetric = new QRadioButton(QStringLiteral("Show Metric measurments"), fraUnits);
    optMetric->setObjectName(QStringLiteral("optMetric"));
    unitsLayout->addWidget(optEnglish);
    unitsLayout->addWidget(optMetric);

    auto *fraIngHL = new QGroupBox(QStringLiteral("Highlight Missing Ingredients"), this);
    fraIngHL->setObjectName(QStringLiteral("fraIngHL"));
    auto *hlLayout = new QHBoxLayout(fraIngHL);
    chkIngHL = new QCheckBox(QStringLiteral("Highlight missing ingredients using this color:"), fraIngHL);
    chkIngHL->setObjectName(QStringLiteral("chkIngHL"));
    cmdIngHL = new ColorButton(fraIngHL);
    cmdIngHL->setObjectName(QStringLiteral("cmdIngHL"));
    cmdIngHL->setAutoDefault(false);
    hlLayout->addWidget(chkIngHL);
    hlLayout->addWidget(cmdIngHL);
    hlLayout->addStretch(1);

    OK = new QPushButton(QStringLiteral("OK"), this);
    OK->setObjectName(QStringLiteral("OK"));
    OK->setDefault(true);
    Cancel = new QPushButton(QStringLiteral("Cancel"), this);
    Cancel->setObjectName(QStringLiteral("Cancel"));
    Cancel->setAutoDefault(false);
    connect(OK, &QPushButton::clicked, this, &frmOptions::OK_Click);
    connect(Cancel, &QPushButton::clicked, this, &frmOptions::Cancel_Click);
    auto *buttons = new QHBoxLayout();
    buttons->addStretch(1);
    buttons->addWidget(OK);
    buttons->addWidget(Cancel);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(fraView);
    layout->addWidget(fraUnits);
    layout->addWidget(fraIngHL);
    layout->addStretch(1);
    layout->addLayout(buttons);
}

void frmOptions::Form_Load()
{
    ApplySchemeToForm(this, m_state);
    cmdIngHL->setColorValue(m_state.missingIngColor);
    chkIngHL->setChecked(m_state.useMissingIngColor);
    (m_state.useMetric ? optMetric : optEnglish)->setChecked(true);
    // A letter with no option of its own, view all among them, leaves every option clear.
    const QString option = modCorvane::viewOptionFor(m_state.defaultView);
    for (QRadioButton *o : m_viewOptions)
        if (o->objectName() == option)
            o->setChecked(true);
}

void frmOptions::OK_Click()
{
    QStringList checked;
    for (const QRadioButton *o : m_viewOptions)
        if (o->isChecked())
            checked << o->objectName();
    m_state.useMissingIngColor = chkIngHL->isChecked();
    m_state.useMetric = optMetric->isChecked();
    m_state.defaultView = modCorvane::defaultViewFrom(checked);
    // The chosen colour is kept even with the highlight off, ready for when it is turned on.
    m_state.missingIngColor = cmdIngHL->colorValue();
    const bool saved = runGuarded(this, [this] {
        const CLocalConfig config;
        modCorvane::SaveOptions(m_state, config);
        modCorvane::SaveMissingIngColor(m_state, config);
    });
    if (saved)
        accept();
}

void frmOptions::Cancel_Click()
{
    reject();
}
