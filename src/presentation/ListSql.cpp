#include "presentation/ListSql.h"

#include "store/JetDialect.h"

namespace {

QString letter(int code) { return QString(QChar(code)); }

// Tabs 1 to 25 run from their letter up to the next one; tab 26 ("Z") from its letter on.
// In the unmarked list, tab 26 alone reads "<" instead of ">=": it has always listed the
// names before "Z" there, and users know it that way.
QString tabRange(const QString &nameColumn, int tab, const QString &markedTail)
{
    const QString low = letter(64 + tab);
    if (tab == 0)
        return nameColumn + QStringLiteral(" < 'A'");
    if (tab <= 25)
        return nameColumn + QStringLiteral(" >= '") + low + QStringLiteral("' AND ") + nameColumn +
               QStringLiteral(" < '") + letter(65 + tab) + u'\'';
    const bool unmarkedZ = markedTail.contains(QStringLiteral("= False"));
    return nameColumn + (unmarkedZ ? QStringLiteral(" < '") : QStringLiteral(" >= '")) + low + u'\'';
}

QString byTab(const QString &head, const QString &nameColumn, int tab, const QString &tail)
{
    return head + tabRange(nameColumn, tab, tail) + tail + QStringLiteral(" ORDER BY ") + nameColumn;
}

} // namespace

QString BuildListSQL(int view, int selection, bool inSearch, bool markedOnly)
{
    const QString id = QString::number(selection);
    const int tab = selection < 0 ? 0 : selection;
    const QString plainHead = inSearch ? QStringLiteral("SELECT ID, Name FROM SearchResults WHERE ")
                                       : QStringLiteral("SELECT ID, Name FROM Drinks WHERE ");
    const QString joinedHead = QStringLiteral("SELECT D.ID, D.Name FROM SearchResults S, Drinks D WHERE S.ID = D.ID AND ");
    const QString markTail = markedOnly ? QStringLiteral(" AND Marked = True") : QStringLiteral(" AND Marked = False");

    switch (view) {
    case 0:
        return byTab(plainHead, QStringLiteral("Name"), tab, QString());
    case 1:
        return (inSearch ? QStringLiteral("SELECT D.ID, D.Name FROM SearchResults D, DrinkRel R WHERE ")
                         : QStringLiteral("SELECT D.ID, D.Name FROM Drinks D, DrinkRel R WHERE ")) +
               QStringLiteral("R.IngID = ") + id + QStringLiteral(" AND R.DrinkID = D.ID ORDER BY D.Name");
    case 2:
        return inSearch ? QStringLiteral("SELECT D.ID, D.Name FROM SearchResults S, Drinks D WHERE S.ID = D.ID AND "
                                         "D.GlassType = ") + id + QStringLiteral(" ORDER BY D.Name")
                        : QStringLiteral("SELECT ID, Name FROM Drinks WHERE GlassType = ") + id +
                              QStringLiteral(" ORDER BY Name");
    case 3:
        return (inSearch ? QStringLiteral("SELECT D.ID, D.Name FROM SearchResults D, DrinkTypeRel R WHERE ")
                         : QStringLiteral("SELECT D.ID, D.Name FROM Drinks D, DrinkTypeRel R WHERE ")) +
               QStringLiteral("R.DrinkID = D.ID AND R.DrinkTypeID = ") + id + QStringLiteral(" ORDER BY D.Name");
    case 4:
        return inSearch ? byTab(joinedHead, QStringLiteral("D.Name"), tab, QStringLiteral(" AND D.") + markTail.mid(5))
                        : byTab(QStringLiteral("SELECT ID, Name FROM Drinks WHERE "), QStringLiteral("Name"), tab, markTail);
    case 5:
        return inSearch ? byTab(joinedHead, QStringLiteral("D.Name"), tab, QStringLiteral(" AND D.LiqCab = 1"))
                        : byTab(QStringLiteral("SELECT ID, Name FROM Drinks WHERE "), QStringLiteral("Name"), tab,
                                QStringLiteral(" AND LiqCab = 1"));
    case 6:
        return inSearch ? QStringLiteral("SELECT ID, Name FROM SearchResults ORDER BY Name")
                        : QStringLiteral("SELECT ID, Name FROM Drinks ORDER BY Name");
    default:
        return {};
    }
}

QString SelectorSQL(int view)
{
    switch (view) {
    case 1:
        return QStringLiteral("SELECT ID, Ingredient as Name FROM Ingredients ORDER BY Ingredient");
    case 2:
        return QStringLiteral("SELECT GlassID as ID, Name FROM Glassware ORDER BY Name");
    case 3:
        return QStringLiteral("SELECT TypeID as ID, Type AS Name FROM DrinkTypes ORDER BY Type");
    default:
        return {};
    }
}

QString QuickSearchSQL(const QString &text, bool inSearch)
{
    const QString table = inSearch ? QStringLiteral("SearchResults") : QStringLiteral("Drinks");
    if (text.isEmpty())
        return QStringLiteral("SELECT ID, Name FROM ") + table + QStringLiteral(" ORDER BY Name");
    return QStringLiteral("SELECT ID, Name FROM ") + table + QStringLiteral(" WHERE Name LIKE \"") + jetLiteralText(text) +
           QStringLiteral("*\" ORDER BY Name");
}
