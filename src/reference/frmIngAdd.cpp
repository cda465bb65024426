#include "reference/frmIngAdd.h"

#include "reference/IngredientMaint.h"
#include "store/DrinkStore.h"
#include "widgets/ApplyScheme.h"
#include "widgets/HandlerGuard.h"
#include "widgets/PlainMessage.h"
#include "widgets/NamedControls.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QSqlQuery>

frmIngAdd::frmIngAdd(DrinkStore &store, QWidget *parent) : QDialog(parent), m_store(store)
{
    setObjectName(QStringLiteral("frmIngAdd"));
    setWindowTitle(QStringLiteral("Add Ingredient"));
    txtName = named(new QLineEdit(this), "txtName");
    txtUnitType = named(new QLineEdit(this), "txtUnitType");
    txtOzPerUnit = named(new QLineEdit(this), "txtOzPerUnit");
    txtUnitPrice = named(new QLineEdit(this), "txtUnitPrice");
    cmbType = named(new QComboBox(this), "cmbType");
    cmbSubType = named(new QComboBox(this), "cmbSubType");
    chkSelected = named(new QCheckBox(QStringLiteral("Currently have this ingredient on hand"), this), "chkSelected");
    cmdSave = named(new QPushButton(QStringLiteral("&Save"), this), "cmdSave");
    cmdCancel = named(new QPushButton(QStringLiteral("&Cancel"), this), "cmdCancel");
    auto *form = new QFormLayout();
    form->addRow(QStringLiteral("Name"), txtName);
    form->addRow(QStringLiteral("Unit Type (eg: Fifth)"), txtUnitType);
    form->addRow(QStringLiteral("Oz or Peices / Unit"), txtOzPerUnit);
    form->addRow(QStringLiteral("Unit Price"), txtUnitPrice);
    form->addRow(QStringLiteral("Ingredient Type"), cmbType);
    form->addRow(QStringLiteral("Ingredient Sub Type"), cmbSubType);
    form->addRow(chkSelected);
    auto *buttons = new QHBoxLayout();
    buttons->addStretch(1);
    buttons->addWidget(cmdSave);
    buttons->addWidget(cmdCancel);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addLayout(buttons);
    connect(cmdSave, &QPushButton::clicked, this, &frmIngAdd::cmdSave_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(cmbType, &QComboBox::activated, this, &frmIngAdd::cmbType_Click);

    ApplySchemeToForm(this);
    runGuarded(this, [this] {
        QSqlQuery q = m_store.select(QStringLiteral("SELECT * FROM IngTypes ORDER BY IngType"));
        while (q.next())
            cmbType->addItem(q.value(QStringLiteral("IngType")).toString(), q.value(QStringLiteral("IngTypeID")));
        cmbType->setCurrentIndex(-1);
    });
}

QString frmIngAdd::IngName() const { return txtName->text(); }

void frmIngAdd::cmbType_Click()
{
    cmbSubType->clear();
    if (cmbType->currentIndex() < 0)
        return;
    runGuarded(this, [this] {
        QSqlQuery q = m_store.select(QStringLiteral("SELECT * FROM IngSubTypes ") + QStringLiteral("WHERE IngTypeID = ") +
                                     QString::number(cmbType->currentData().toInt()) + u' ' +
                                     QStringLiteral("ORDER BY Name"));
        while (q.next())
            cmbSubType->addItem(q.value(QStringLiteral("Name")).toString(), q.value(QStringLiteral("IngSubTypeID")));
        cmbSubType->setCurrentIndex(-1);
    });
}

void frmIngAdd::cmdSave_Click()
{
    IngredientMaint::NewIngredient n;
    n.name = txtName->text();
    n.unitType = txtUnitType->text();
    n.ozPerUnit = txtOzPerUnit->text();
    n.unitPrice = txtUnitPrice->text();
    n.typeId = cmbType->currentIndex() >= 0 ? cmbType->currentData().toInt() : -1;
    n.subTypeId = cmbSubType->currentIndex() >= 0 ? cmbSubType->currentData().toInt() : -1;
    n.selected = chkSelected->isChecked();
    std::optional<QString> problem;
    bool added = false;
    runGuarded(this, [&] {
        problem = IngredientMaint::CheckNewIngredient(m_store, n);
        if (!problem) {
            IngredientMaint::AddIngredient(m_store, n);
            added = true;
        }
    });
    if (problem) {
        plainMessage(this, *problem);
    }
    if (!added)
        return;
    m_canceled = false;
    accept();
}
