#include "search/AdvancedSearch.h"

#include "search/SearchSql.h"
#include "store/DrinkStore.h"
#include "store/NameFold.h"

#include <QHash>
#include <QSqlQuery>

namespace AdvancedSearch {

namespace {
const QString kIngredient = QStringLiteral("Ingredient");
const QString kEqual = QStringLiteral("Is Equal To");
const QString kContains = QStringLiteral("Contains the word(s)");
} // namespace

const QStringList &fieldNames()
{
    static const QStringList names = {
        QStringLiteral("Name"),    QStringLiteral("Ingredient"), QStringLiteral("Category"), QStringLiteral("Recipe"),
        QStringLiteral("Comment"), QStringLiteral("Glassware"),  QStringLiteral("Marked"),   QStringLiteral("Price"),
        QStringLiteral("Cost"),    QStringLiteral("Rating"),     QStringLiteral("Build"),    QStringLiteral("Garnish")};
    return names;
}

QStringList comparisonsFor(const QString &field, int row)
{
    if (field == QLatin1String("Name") || field == kIngredient) {
        if (row == 1)
            return {kEqual, QStringLiteral("Starts With"), QStringLiteral("Ends With"), kContains};
        return {kEqual, QStringLiteral("Is Greater Than"), QStringLiteral("Is Less Than"), kContains};
    }
    if (field == QLatin1String("Recipe") || field == QLatin1String("Comment"))
        return {kEqual, kContains};
    if (field == QLatin1String("Price") || field == QLatin1String("Cost"))
        return {kEqual, QStringLiteral("Is Greater Than"), QStringLiteral("Is Less Than")};
    if (fieldNames().contains(field))
        return {kEqual};
    return {};
}

int firstComparison(const QString &field)
{
    if (field == QLatin1String("Name") || field == kIngredient)
        return 3;
    if (field == QLatin1String("Recipe") || field == QLatin1String("Comment"))
        return 1;
    return 0;
}

ValueSource valueSourceFor(const QString &field)
{
    static const QHash<QString, ValueSource> lists = {
        {QStringLiteral("Category"), ValueSource::Category}, {QStringLiteral("Glassware"), ValueSource::Glass},
        {QStringLiteral("Rating"), ValueSource::Rating},     {QStringLiteral("Build"), ValueSource::Build},
        {QStringLiteral("Garnish"), ValueSource::Garnish},   {QStringLiteral("Marked"), ValueSource::Marked}};
    return lists.value(field, ValueSource::Text);
}

QString referenceListSQL(ValueSource source)
{
    // Each table in its own order.
    switch (source) {
    case ValueSource::Category:
        return QStringLiteral("SELECT Type, TypeID FROM DrinkTypes");
    case ValueSource::Glass:
        return QStringLiteral("SELECT Name, GlassID FROM Glassware");
    case ValueSource::Rating:
        return QStringLiteral("SELECT Name, RatingID FROM Ratings");
    case ValueSource::Build:
        return QStringLiteral("SELECT Name, id FROM Build");
    case ValueSource::Garnish:
        return QStringLiteral("SELECT Name, id FROM Garnish");
    default:
        return {};
    }
}

} // namespace AdvancedSearch

namespace {

// The connector above row n (0-based), as the statement spells it.
QString joinWord(const CriterionRows &rows, size_t n)
{
    return rows[n - 1].connector == QLatin1String("And") ? QStringLiteral(" AND ") : QStringLiteral(" OR ");
}

QString fragmentOf(const CriterionRow &row)
{
    QString value = row.value;
    return GetSQLForField(row.field, ComparisonOperator(row.comparison), value, row.comparison);
}

bool isIngredient(const CriterionRow &row)
{
    return row.field == QLatin1String("Ingredient");
}

} // namespace

AdvancedQuery ComposeAdvancedSearch(const CriterionRows &rows)
{
    AdvancedQuery q;
    q.ingredientPath = std::any_of(rows.begin(), rows.end(), isIngredient);

    if (!q.ingredientPath) {
        q.sql = kInsertSearchResults + QStringLiteral("SELECT C.ID, C.Name FROM Drinks C WHERE ");
        for (size_t n = 0; n < rows.size(); ++n) {
            if (rows[n].field.isEmpty())
                continue;
            if (n > 0)
                q.sql += joinWord(rows, n);
            q.sql += fragmentOf(rows[n]);
        }
        return q;
    }

    QString clauses;
    for (size_t n = 0; n < rows.size(); ++n) {
        const CriterionRow &row = rows[n];
        if (!isIngredient(row))
            continue;
        const QString op = ComparisonOperator(row.comparison);
        if (!clauses.isEmpty())
            clauses += QStringLiteral(" OR ");
        clauses +=
            QStringLiteral("(A.Ingredient ") + op + u' ' + QuotedSearchValue(op, row.value, row.comparison) + u')';
        q.lstIng << (op == QLatin1String("LIKE") ? QStringLiteral("!") : op) + u' ' + row.value;
        // An "Or" above an ingredient row lowers what the query demands; VerifyDrink still
        // demands every ingredient criterion.
        if (n == 0)
            q.requiredCount = 1;
        else if (rows[n - 1].connector == QLatin1String("And"))
            ++q.requiredCount;
    }
    q.sql = QStringLiteral("SELECT C.ID, C.Name FROM Ingredients A, DrinkRel B, Drinks C WHERE (") + clauses +
            QStringLiteral(") AND (A.ID = B.IngID) AND (C.ID = B.DrinkID) ");
    for (size_t n = 0; n < rows.size(); ++n) {
        if (rows[n].field.isEmpty() || isIngredient(rows[n]))
            continue;
        q.sql += (n == 0 ? QStringLiteral(" AND ") : joinWord(rows, n)) + fragmentOf(rows[n]);
    }
    q.sql += QStringLiteral(" GROUP BY C.ID, C.Name HAVING COUNT(C.Name) >= ") + QString::number(q.requiredCount);
    return q;
}

bool VerifyDrink(const QStringList &lstIng, const QStringList &ingredients)
{
    if (ingredients.isEmpty())
        return false;
    // "!" compares as the query's LIKE found the drink: without case or accents.
    QStringList foldedNames;
    const auto folded = [&](qsizetype i) -> const QString & {
        if (foldedNames.isEmpty())
            for (const QString &name : ingredients)
                foldedNames << NameFold::folded(name);
        return foldedNames.at(i);
    };
    for (const QString &entry : lstIng) {
        const QChar code = entry.isEmpty() ? QChar() : entry.at(0);
        const QString rest = entry.mid(1).trimmed();
        const QString foldedRest = code == u'!' ? NameFold::folded(rest) : QString();
        qsizetype at = -1;
        const bool satisfied = std::any_of(ingredients.begin(), ingredients.end(), [&](const QString &name) {
            ++at;
            // The typed value stands on the left: ">" keeps a drink with an ingredient below it.
            switch (code.unicode()) {
            case u'=':
                return rest.compare(name, Qt::CaseSensitive) == 0;
            case u'>':
                return rest.compare(name, Qt::CaseSensitive) > 0;
            case u'<':
                return rest.compare(name, Qt::CaseSensitive) < 0;
            case u'!':
                return folded(at).contains(foldedRest);
            default:
                return false;
            }
        });
        if (!satisfied)
            return false;
    }
    return true;
}

QList<SearchCandidate> FindIngredientMatches(DrinkStore &store, const AdvancedQuery &query)
{
    QList<SearchCandidate> lstTemp;
    QHash<qint32, QStringList> ingredients;
    {
        QSqlQuery rows = store.select(query.sql);
        while (rows.next()) {
            lstTemp.append({rows.value(0).toInt(), rows.value(1).toString()});
            ingredients.insert(lstTemp.constLast().id, {});
        }
    }
    if (lstTemp.isEmpty())
        return lstTemp;

    // One read for all candidates instead of one per drink, from the same query VerifyDrink
    // reads: the same names, drink by drink. The ids go in as a list so that the candidates'
    // query, the costly part, runs only once.
    QString ids;
    ids.reserve(lstTemp.size() * 7);
    for (const SearchCandidate &c : lstTemp) {
        if (!ids.isEmpty())
            ids += u',';
        ids += QString::number(c.id);
    }
    QSqlQuery names = store.prepare(
        QStringLiteral("SELECT DrinkID, Ingredient FROM DrinkIngredients WHERE DrinkID IN (") + ids + u')');
    store.exec(names);
    while (names.next()) {
        const auto it = ingredients.find(names.value(0).toInt());
        if (it != ingredients.end())
            it->append(names.value(1).toString());
    }
    lstTemp.removeIf([&](const SearchCandidate &c) { return !VerifyDrink(query.lstIng, ingredients.value(c.id)); });
    return lstTemp;
}

void AppendSearchResults(DrinkStore &store, const QList<SearchCandidate> &drinks)
{
    QSqlQuery insert = store.prepare(QStringLiteral("INSERT INTO SearchResults (ID, Name) VALUES (?, ?)"));
    for (const SearchCandidate &d : drinks) {
        insert.bindValue(0, d.id);
        insert.bindValue(1, d.name);
        store.exec(insert);
    }
}
