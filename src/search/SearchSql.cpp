#include "search/SearchSql.h"

#include "store/JetDialect.h"

#include <QHash>
#include <QRegularExpression>

QString SimpleSearchPattern(const QString &text, bool matchAll)
{
    return matchAll ? u'*' + text + u'*' : text + u'*';
}

QString SimpleSearchSQL(int kind, const QString &patternOrValue)
{
    const QString v = kind == SearchKind::ByName || kind == SearchKind::ByIngredient || kind == SearchKind::ByRecipe
                          ? jetLiteralText(patternOrValue)
                          : patternOrValue;
    switch (kind) {
    case SearchKind::ByName:
        return kInsertSearchResults + QStringLiteral("SELECT Drinks.ID, Drinks.Name ") +
               QStringLiteral("FROM Drinks WHERE Drinks.Name Like \"") + v + u'"';
    case SearchKind::ByIngredient:
        return kInsertSearchResults + QStringLiteral("SELECT DISTINCT D.ID, D.Name ") +
               QStringLiteral("FROM Drinks D, DrinkRel R, Ingredients I ") +
               QStringLiteral("WHERE D.ID = R.DrinkID AND R.IngID = I.ID AND ") +
               QStringLiteral("I.Ingredient LIKE \"") + v + u'"';
    case SearchKind::ByRecipe:
        return kInsertSearchResults + QStringLiteral("SELECT Drinks.ID, Drinks.Name ") +
               QStringLiteral("FROM Drinks WHERE Drinks.Description LIKE \"") + v + u'"';
    case SearchKind::ByGlassware:
        return kInsertSearchResults + QStringLiteral("SELECT Drinks.ID, Drinks.Name ") +
               QStringLiteral("FROM Drinks WHERE Drinks.GlassType = ") + v;
    case SearchKind::ByCategory:
        return kInsertSearchResults + QStringLiteral("SELECT DISTINCT D.ID, D.Name ") +
               QStringLiteral("FROM Drinks D, DrinkTypeRel T WHERE D.ID = T.DrinkID AND ") +
               QStringLiteral("T.DrinkTypeID = ") + v;
    default:
        return {};
    }
}

QString ComparisonOperator(const QString &comparison)
{
    if (comparison == QLatin1String("Is Equal To"))
        return QStringLiteral("=");
    if (comparison == QLatin1String("Is Greater Than"))
        return QStringLiteral(">");
    if (comparison == QLatin1String("Is Less Than"))
        return QStringLiteral("<");
    if (comparison == QLatin1String("Starts With") || comparison == QLatin1String("Ends With") ||
        comparison == QLatin1String("Contains the word(s)"))
        return QStringLiteral("LIKE");
    return {};
}

QString QuotedSearchValue(const QString &op, const QString &typed, const QString &comparison)
{
    const QString value = jetLiteralText(typed);
    if (op != QLatin1String("LIKE"))
        return u'"' + value + u'"';
    if (comparison == QLatin1String("Starts With"))
        return u'"' + value + QStringLiteral("*\"");
    if (comparison == QLatin1String("Ends With"))
        return QStringLiteral("\"*") + value + u'"';
    return QStringLiteral("\"*") + value + QStringLiteral("*\"");
}

bool isSearchNumber(const QString &value)
{
    // A decimal number as the engine reads it; anything else would reach it as SQL.
    static const QRegularExpression number(QStringLiteral(R"(^\s*[+-]?(\d+\.?\d*|\.\d+)([eE][+-]?\d+)?\s*$)"));
    return number.match(value).hasMatch();
}

QString GetSQLForField(const QString &field, const QString &op, QString &value, const QString &comparison)
{
    struct Column {
        const char *name;
        bool quoted;
    };
    static const QHash<QString, Column> columns = {
        {QStringLiteral("Name"), {"C.Name ", true}},          {QStringLiteral("Category"), {"C.DrinkType ", false}},
        {QStringLiteral("Recipe"), {"C.Description ", true}}, {QStringLiteral("Glassware"), {"C.GlassType ", false}},
        {QStringLiteral("Comment"), {"C.Comments ", true}},   {QStringLiteral("Rating"), {"C.RatingID ", false}},
        {QStringLiteral("Build"), {"C.BuildID ", false}},     {QStringLiteral("Garnish"), {"C.GarnishID ", false}},
        {QStringLiteral("Marked"), {"C.Marked ", false}},     {QStringLiteral("Price"), {"C.Price ", false}},
        {QStringLiteral("Cost"), {"C.Cost ", false}},
    };
    const auto it = columns.constFind(field);
    if (it == columns.constEnd())
        return {};
    if (it->quoted)
        value = QuotedSearchValue(op, value, comparison);
    else if (!isSearchNumber(value) && value != QLatin1String("True") && value != QLatin1String("False"))
        value = QStringLiteral("Null"); // not a number: the criterion matches no drink
    return u'(' + QLatin1String(it->name) + op + u' ' + value + u')';
}
