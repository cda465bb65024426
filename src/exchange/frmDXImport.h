#pragma once

#include <QDialog>

class DrinkStore;
class QGroupBox;
class QLineEdit;
class QPushButton;

// "Import Drink Exchange File": adds the drinks of a .CVX file, counting the added and the
// ignored ones; the dialog stays open for further files.
class frmDXImport : public QDialog {
    Q_OBJECT
public:
    explicit frmDXImport(DrinkStore &store, QWidget *parent = nullptr);

    // For callers that drive the dialog from code: the same as typing the name and pressing OK.
    void ImportCVXFile(const QString &fileName);
    // Opens on a file the user chose outside the program; the import waits for OK.
    void setFileName(const QString &fileName);
    // Whether any drink was added, so that the caller re-reads what it shows.
    bool addedAny() const { return m_addedAny; }

public slots:
    void cmdBrowse_Click();
    void cmdOK_Click();

private:
    void bump(QLineEdit *counter);

    DrinkStore &m_store;
    bool m_addedAny = false;
    QLineEdit *txtFileName, *txtAdded, *txtIgnored;
    QPushButton *cmdBrowse, *cmdOK, *cmdCancel;
    QGroupBox *fraResults;
};
