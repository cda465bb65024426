#pragma once

#include "templates/TemplateScan.h"

#include <QDialog>

class CDrinkFacade;
class QLabel;
class QListWidget;
class QPushButton;

// The template chooser: every .CVT file below the application's Templates directory, with
// where it lies and what it says of itself; Select makes the chosen one the template of all
// drink pages, now and at the next start.
class frmTemplates : public QDialog {
    Q_OBJECT
public:
    // Item data of lstTemplates: the index of the entry's record.
    static constexpr int RecordRole = Qt::UserRole;

    explicit frmTemplates(CDrinkFacade &facade, QWidget *parent = nullptr);

public slots:
    void lstTemplates_Click();
    void cmdSave_Click();
    void cmdCancel_Click();

private:
    void Form_Load();

    CDrinkFacade &m_facade;
    TemplateList m_templates;

    QListWidget *lstTemplates;
    QLabel *lblLocation, *lblDesc;
    QPushButton *cmdSave, *cmdCancel;
};
