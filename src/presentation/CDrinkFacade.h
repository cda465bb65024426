#pragma once

#include <QSqlQuery>
#include <QSqlRecord>
#include <QString>
#include <QVariant>

#include "base/Currency.h"

class DrinkStore;

// The one way the program looks at a single drink. Its cursor on Drinks is the current
// drink: every drinkAs... call moves it to the drink asked for.
class CDrinkFacade {
public:
    // appDir: where the image archive lies and the page's pictures are written. Throws
    // StoreError when a table it reads is empty.
    CDrinkFacade(DrinkStore &store, const QString &appDir);

    QString drinkAsPlainText(qint32 drinkID);
    // The drink page: the blank page for no such drink, the no-template page without a
    // template, else the template filled from the drink. Writes the page's glass picture.
    QString drinkAsHTML(qint32 drinkID);

    // The current drink's lines, in their order; the caller iterates it.
    QSqlQuery currentDrinkIngredients();

    qint32 currentDrinkID() const;
    void setCurrentDrinkID(qint32 drinkID);
    QString currentDrinkName() const;
    bool currentDrinkMark() const;

    QString currentHTMLTemplatePath() const { return m_templatePath; }
    void setCurrentHTMLTemplatePath(const QString &path);
    QString currentHTMLTemplateRoot() const { return m_templateRoot; }
    void setCurrentHTMLTemplateRoot(const QString &path);
    QString templateText() const { return m_templateText; }
    QString imageArchivePath() const { return m_imageArchivePath; }
    QString appDir() const { return m_appDir; }

    void SetDrinkMark(bool mark, qint32 drinkID);

    // Costs and prices are read from the drink's stored fields; these compute nothing.
    Currency GetDrinkCost(qint32) const { return {}; }
    Currency GetDrinkPrice(qint32) const { return {}; }

    qint32 currentDrinkGlassID() const;
    QString currentDrinkGlassName();
    QString currentDrinkBuildName();
    QString currentDrinkGarnishName();
    QString currentDrinkRecipe() const;

    // The lookups behind the texts; "&nbsp" stands for nothing found.
    QString GetGlassName(const QVariant &glassID);
    QString GetGarnishName();
    QString GetBuildName();
    QString GetRatingName();

    // The current record (empty when the cursor stands on none) and its field by name.
    bool onRecord() const { return m_onRecord; }
    QVariant field(const QString &name) const { return m_onRecord ? m_record.value(name) : QVariant(); }

    // The seek of every drinkAs... output: false (and the cursor untouched for a negative
    // id) when there is no such drink.
    bool seekForOutput(qint32 drinkID);

    bool nextGlassIsA = true;

private:
    bool seek(qint32 drinkID);
    void moveFirst();
    QString lookupName(QSqlQuery &query, const QVariant &id, const QString &fallback);
    QString lookupByField(QSqlQuery &query, const char *field);
    QSqlQuery linesOf(const QVariant &drinkID, bool ordered);

    DrinkStore &m_store;
    QSqlRecord m_record;
    bool m_onRecord = false;
    QSqlQuery m_seekDrink, m_firstDrink, m_glass, m_garnish, m_build, m_rating;
    QString m_appDir, m_templatePath, m_templateRoot, m_templateText, m_imageArchivePath;
};
