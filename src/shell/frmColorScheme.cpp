#include "shell/frmColorScheme.h"

#include "base/CLocalConfig.h"
#include "widgets/HandlerGuard.h"
#include "store/DrinkStore.h"
#include "widgets/ApplyScheme.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QVBoxLayout>

frmColorScheme::frmColorScheme(DrinkStore &store, modCorvane::State &state, QWidget *parent)
    : QDialog(parent), m_store(store), m_state(state)
{
    setObjectName(QStringLiteral("frmColorScheme"));
    setWindowTitle(QStringLiteral("Colors"));
    buildWidgets();
    Form_Load();
}

void frmColorScheme::buildWidgets()
{
    auto *lblColor = new QLabel(QStringLiteral("Color Schemes"), this);
    lblColor->setObjectName(QStringLiteral("lblColor"));
    lstColor = new QListWidget(this);
    lstColor->setObjectName(QStringLiteral("lstColor"));
    lblColor->setBuddy(lstColor);
    // A selection, not a change of the current row: the list may make an entry current
    // without selecting it, and a click on that entry must still show it.
    connect(lstColor, &QListWidget::itemSelectionChanged, this, &frmColorScheme::lstColor_Click);

    auto *lblName = new QLabel(QStringLiteral("Name"), this);
    lblName->setObjectName(QStringLiteral("lblName"));
    txtName = new QLineEdit(this);
    txtName->setObjectName(QStringLiteral("txtName"));
    lblName->setBuddy(txtName);
    connect(txtName, &QLineEdit::textChanged, this, &frmColorScheme::txtName_Change);

    auto *fields = new QGridLayout();
    fields->addWidget(lblName, 0, 0);
    fields->addWidget(txtName, 0, 1);
    const struct {
        ColorButton *&panel;
        const char *name;
        const char *label;
        const char *caption;
    } panels[] = {{pnlText, "pnlText", "lblText", "Text Color"},
                  {pnlHighlight, "pnlHighlight", "lblHighlight", "Highlight Color"},
                  {pnlAccent, "pnlAccent", "lblAccent", "Accent Color"},
                  {pnlBackground, "pnlBackground", "lblBackground", "Background Color"}};
    int row = 1;
    for (const auto &p : panels) {
        auto *label = new QLabel(QString::fromLatin1(p.caption), this);
        label->setObjectName(QString::fromLatin1(p.label));
        p.panel = new ColorButton(this);
        p.panel->setObjectName(QString::fromLatin1(p.name));
        p.panel->setMinimumWidth(90);
        label->setBuddy(p.panel);
        connect(p.panel, &ColorButton::colorPicked, this, [this] { SetEditMode(true); });
        fields->addWidget(label, row, 0);
        fields->addWidget(p.panel, row, 1, Qt::AlignLeft);
        ++row;
    }
    fields->setRowStretch(row, 1);

    auto makeButton = [this](QPushButton *&button, const char *name, const char *caption) {
        button = new QPushButton(QString::fromLatin1(caption), this);
        button->setObjectName(QString::fromLatin1(name));
        button->setAutoDefault(false);
    };
    makeButton(cmdNew, "cmdNew", "&New");
    makeButton(cmdSave, "cmdSave", "&Save");
    makeButton(cmdDelete, "cmdDelete", "&Delete");
    makeButton(cmdOK, "cmdOK", "OK");
    makeButton(cmdCancel, "cmdCancel", "Cancel");
    cmdOK->setDefault(true);
    connect(cmdNew, &QPushButton::clicked, this, &frmColorScheme::cmdNew_Click);
    connect(cmdSave, &QPushButton::clicked, this, &frmColorScheme::cmdSave_Click);
    connect(cmdDelete, &QPushButton::clicked, this, &frmColorScheme::cmdDelete_Click);
    connect(cmdOK, &QPushButton::clicked, this, &frmColorScheme::cmdOK_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmColorScheme::cmdCancel_Click);

    auto *editButtons = new QHBoxLayout();
    editButtons->addWidget(cmdNew);
    editButtons->addWidget(cmdSave);
    editButtons->addWidget(cmdDelete);
    editButtons->addStretch(1);

    auto *right = new QVBoxLayout();
    right->addLayout(fields, 1);
    right->addLayout(editButtons);

    auto *left = new QVBoxLayout();
    left->addWidget(lblColor);
    left->addWidget(lstColor, 1);

    auto *top = new QHBoxLayout();
    top->addLayout(left, 1);
    top->addSpacing(8);
    top->addLayout(right, 1);

    auto *closeButtons = new QHBoxLayout();
    closeButtons->addStretch(1);
    closeButtons->addWidget(cmdOK);
    closeButtons->addWidget(cmdCancel);

    auto *layout = new QVBoxLayout(this);
    layout->addLayout(top, 1);
    layout->addLayout(closeButtons);
    resize(460, 280);
}

void frmColorScheme::setColorPicker(const ColorPicker &picker)
{
    for (ColorButton *panel : {pnlText, pnlHighlight, pnlAccent, pnlBackground})
        panel->setPicker(picker);
}

void frmColorScheme::Form_Load()
{
    ApplySchemeToForm(this, m_state);
    SetEditMode(false);
    runGuarded(this, [this] {
        m_schemes = ColorSchemes::all(m_store);
        for (int i = 0; i < m_schemes.size(); ++i) {
            addEntry(i);
            if (m_schemes[i].id == m_state.colorSchemeID)
                lstColor->setCurrentRow(lstColor->count() - 1);
        }
    });
}

void frmColorScheme::addEntry(int index)
{
    auto *item = new QListWidgetItem(m_schemes[index].name, lstColor);
    item->setData(Qt::UserRole, index);
}

int frmColorScheme::selectedIndex() const
{
    const QListWidgetItem *item = lstColor->currentItem();
    return item && item->isSelected() ? item->data(Qt::UserRole).toInt() : -1;
}

void frmColorScheme::SetEditMode(bool on)
{
    isEditing = on;
    lstColor->setEnabled(!on);
    cmdNew->setEnabled(!on);
    cmdDelete->setEnabled(!on);
    cmdOK->setEnabled(!on);
    cmdSave->setEnabled(on);
}

void frmColorScheme::lstColor_Click()
{
    const int index = selectedIndex();
    if (index < 0)
        return;
    const ColorScheme &scheme = m_schemes[index];
    isLoading = true;
    txtName->setText(scheme.name);
    pnlText->setColorValue(scheme.textColor);
    pnlHighlight->setColorValue(scheme.highlightColor);
    pnlAccent->setColorValue(scheme.accentColor);
    pnlBackground->setColorValue(scheme.backgroundColor);
    isLoading = false;
    SetEditMode(false);
}

void frmColorScheme::cmdNew_Click()
{
    isNew = true;
    for (ColorButton *panel : {pnlText, pnlHighlight, pnlAccent, pnlBackground})
        panel->setColorValue(0xFFFFFF);
    SetEditMode(true);
}

void frmColorScheme::txtName_Change()
{
    if (!isLoading)
        SetEditMode(true);
}

void frmColorScheme::cmdSave_Click()
{
    ColorScheme scheme;
    scheme.name = txtName->text();
    scheme.textColor = pnlText->colorValue();
    scheme.highlightColor = pnlHighlight->colorValue();
    scheme.accentColor = pnlAccent->colorValue();
    scheme.backgroundColor = pnlBackground->colorValue();
    const bool saved = runGuarded(this, [&] {
        if (isNew) {
            m_schemes.append(scheme);
            m_schemes.last().id = ColorSchemes::add(m_store, scheme);
            addEntry(int(m_schemes.size()) - 1);
            lstColor->setCurrentRow(lstColor->count() - 1);
            isNew = false;
            return;
        }
        // With no entry selected (the last one was just deleted) there is nothing to change.
        const int index = selectedIndex();
        if (index < 0)
            return;
        scheme.id = m_schemes[index].id;
        m_schemes[index] = scheme;
        ColorSchemes::update(m_store, scheme);
        lstColor->currentItem()->setText(scheme.name);
    });
    if (saved)
        SetEditMode(false);
}

void frmColorScheme::cmdDelete_Click()
{
    const int index = selectedIndex();
    if (index < 0)
        return;
    runGuarded(this, [&] {
        ColorSchemes::remove(m_store, m_schemes[index].id);
        // The list is left with no entry selected; the fields keep what they showed.
        const QSignalBlocker quiet(lstColor);
        delete lstColor->currentItem();
        lstColor->setCurrentRow(-1);
    });
}

void frmColorScheme::cmdOK_Click()
{
    const int index = selectedIndex();
    if (index < 0) {
        QMessageBox::information(this, QStringLiteral("Corvane"), QStringLiteral("Please select a color scheme."));
        return;
    }
    const bool done = runGuarded(this, [&] {
        m_state.colorSchemeID = m_schemes[index].id;
        const CLocalConfig config;
        config.Save(modCorvane::kSettings, QStringLiteral("ColorScheme"), QString::number(m_state.colorSchemeID));
        modCorvane::LoadColorScheme(m_state, m_store, config);
    });
    if (done)
        accept();
}

void frmColorScheme::cmdCancel_Click()
{
    reject();
}
