#pragma once

#include <QDialog>

class DrinkStore;
class QLabel;
class QPushButton;
class QTreeWidget;

// "Merge Ingredients": picks the ingredient that another one is folded into.
class frmIngMerge : public QDialog {
    Q_OBJECT
public:
    explicit frmIngMerge(DrinkStore &store, QWidget *parent = nullptr);

    // The ingredient to fold in; after a Merge, the one chosen.
    qint32 IngID() const { return m_ingID; }
    void setIngID(qint32 id) { m_ingID = id; }
    QString IngName() const { return m_ingName; }
    void setIngName(const QString &name);
    bool WasCanceled() const { return m_canceled; }

public slots:
    void cmdSave_Click();

protected:
    void showEvent(QShowEvent *event) override;

private:
    void fillTree();

    DrinkStore &m_store;
    qint32 m_ingID = 0;
    QString m_ingName;
    bool m_canceled = true;
    QTreeWidget *tvIng;
    QLabel *lblNote;
    QPushButton *cmdSave, *cmdCancel;
};

// "Ingredient Usage": the drinks that use one ingredient.
class frmIngUsage : public QDialog {
    Q_OBJECT
public:
    explicit frmIngUsage(DrinkStore &store, QWidget *parent = nullptr);
    void Setup(qint32 ingID, const QString &ingName);

private:
    DrinkStore &m_store;
    QLabel *lblNote, *lblCount;
    class QListWidget *lstDrinks;
    QPushButton *cmdClose;
};
