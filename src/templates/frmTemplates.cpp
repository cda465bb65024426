#include "templates/frmTemplates.h"

#include "base/CLocalConfig.h"
#include "base/modCorvane.h"
#include "presentation/CDrinkFacade.h"
#include "widgets/ApplyScheme.h"
#include "widgets/HandlerGuard.h"
#include "widgets/NamedControls.h"
#include "widgets/PlainMessage.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>

frmTemplates::frmTemplates(CDrinkFacade &facade, QWidget *parent) : QDialog(parent), m_facade(facade)
{
    setObjectName(QStringLiteral("frmTemplates"));
    setWindowTitle(QStringLiteral("Templates"));

    lstTemplates = named(new QListWidget(this), "lstTemplates");
    lstTemplates->setSortingEnabled(true);
    lblLocation = named(new QLabel(QStringLiteral("Location"), this), "lblLocation");
    lblDesc = named(new QLabel(QStringLiteral("Description"), this), "lblDesc");
    for (QLabel *label : {lblLocation, lblDesc}) {
        label->setWordWrap(true);
        label->setTextFormat(Qt::PlainText);
        label->setFrameShape(QFrame::StyledPanel);
        label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    }
    cmdSave = dialogButton(QStringLiteral("&Select"), "cmdSave", this);
    cmdSave->setDefault(true);
    cmdCancel = dialogButton(QStringLiteral("&Cancel"), "cmdCancel", this);

    auto *layout = new QGridLayout(this);
    layout->addWidget(named(new QLabel(QStringLiteral("Templates"), this), "lblTemplates"), 0, 0);
    layout->addWidget(lstTemplates, 1, 0, 4, 1);
    layout->addWidget(named(new QLabel(QStringLiteral("Location:"), this), "lblLocationCaption"), 0, 1);
    layout->addWidget(lblLocation, 1, 1);
    layout->addWidget(named(new QLabel(QStringLiteral("Description:"), this), "lblDescCaption"), 2, 1);
    layout->addWidget(lblDesc, 3, 1);
    layout->setRowStretch(3, 1);
    auto *buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmdSave);
    buttons->addWidget(cmdCancel);
    layout->addLayout(buttons, 4, 1);
    layout->setColumnStretch(1, 1);
    resize(560, 320);

    connect(lstTemplates, &QListWidget::itemSelectionChanged, this, &frmTemplates::lstTemplates_Click);
    connect(lstTemplates, &QListWidget::itemDoubleClicked, this,
            [this] { runGuarded(this, [this] { cmdSave_Click(); }); });
    connect(cmdSave, &QPushButton::clicked, this, [this] { runGuarded(this, [this] { cmdSave_Click(); }); });
    connect(cmdCancel, &QPushButton::clicked, this, &frmTemplates::cmdCancel_Click);

    ApplySchemeToForm(this);
    Form_Load();
}

void frmTemplates::Form_Load()
{
    const QString current = m_facade.currentHTMLTemplatePath();
    const QString wanted = current.isEmpty() ? QString() : templateName(current);
    m_templates.clear();
    ScanTemplates(m_facade.appDir() + QStringLiteral("/Templates/"), true, m_templates);
    for (std::size_t i = 0; i < m_templates.size(); ++i) {
        auto *item = new QListWidgetItem(m_templates[i].name);
        item->setData(RecordRole, qulonglong(i));
        lstTemplates->addItem(item);
        // Two templates of one name in different directories: the later one stays selected.
        if (m_templates[i].name == wanted)
            lstTemplates->setCurrentItem(item);
    }
}

void frmTemplates::lstTemplates_Click()
{
    const QList<QListWidgetItem *> chosen = lstTemplates->selectedItems();
    if (chosen.isEmpty())
        return;
    const TemplateRecord &record = m_templates[chosen.first()->data(RecordRole).toULongLong()];
    lblLocation->setText(record.path);
    lblDesc->setText(record.description);
}

void frmTemplates::cmdSave_Click()
{
    const QList<QListWidgetItem *> chosen = lstTemplates->selectedItems();
    if (chosen.isEmpty()) {
        plainMessage(this, QStringLiteral("Please select a template to use."));
        return;
    }
    const TemplateRecord &record = m_templates[chosen.first()->data(RecordRole).toULongLong()];
    const QString root = templateRoot(record.path);
    const CLocalConfig config;
    config.Save(modCorvane::kSettings, QStringLiteral("TemplatePath"), record.path);
    config.Save(modCorvane::kSettings, QStringLiteral("TemplateRoot"), root);
    m_facade.setCurrentHTMLTemplatePath(record.path);
    m_facade.setCurrentHTMLTemplateRoot(root);
    accept();
}

void frmTemplates::cmdCancel_Click()
{
    reject();
}
