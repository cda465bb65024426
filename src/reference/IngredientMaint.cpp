#include "reference/IngredientMaint.h"

#include "base/Currency.h"
#include "base/VbConvert.h"
#include "store/DrinkStore.h"
#include "store/KeyAllocation.h"

#include <QRegularExpression>
#include <QSqlQuery>
#include <QSqlRecord>

namespace IngredientMaint {

namespace {

QString quoted(const QString &text)
{
    QString t = text;
    t.replace(u'"', QStringLiteral("\"\""));
    return u'"' + t + u'"';
}

// The old platform's numeric test: blanks around, a sign, digits with one decimal point.
bool isNumeric(const QString &text)
{
    static const QRegularExpression number(QStringLiteral(R"(^\s*[+-]?\s*(\d+\.?\d*|\.\d+)([eEdD][+-]?\d+)?\s*$)"));
    return number.match(text).hasMatch();
}

QString ouncesText(const QVariant &v) { return v.isNull() ? QString() : QString::number(v.toDouble(), 'G', 15); }

QVariant textOrNull(const QString &text) { return text.isEmpty() ? QVariant() : QVariant(text); }

} // namespace

QStringList Headers()
{
    return {QStringLiteral("ID"),    QStringLiteral("Ingredient"), QStringLiteral("Unit Type"),
            QStringLiteral("Ounces"), QStringLiteral("Price"),     QStringLiteral("Type"),
            QStringLiteral("Sub Type"), QStringLiteral("Notes")};
}

std::vector<QStringList> LoadRows(DrinkStore &store)
{
    std::vector<QStringList> rows;
    QSqlQuery q = store.select(QStringLiteral("SELECT id, Ingredient, UnitType, ozperunit, unitprice, Type, SubType, "
                                              "Notes FROM IngMaintList"));
    while (q.next()) {
        rows.push_back({q.value(0).toString(), q.value(1).toString(), q.value(2).toString(), ouncesText(q.value(3)),
                        Currency::fromVariant(q.value(4)).format(), q.value(5).toString(), q.value(6).toString(),
                        q.value(7).toString()});
    }
    return rows;
}

QStringList IngTypeNames(DrinkStore &store)
{
    QStringList names;
    QSqlQuery q = store.select(QStringLiteral("SELECT * FROM IngTypes ORDER BY IngType"));
    while (q.next())
        names.append(q.value(QStringLiteral("IngType")).toString());
    return names;
}

QStringList SubTypeNames(DrinkStore &store, const QString &typeName)
{
    QStringList names;
    QSqlQuery q = store.select(QStringLiteral("SELECT IngSubTypes.Name FROM IngSubTypes, IngTypes ") +
                               QStringLiteral("WHERE IngTypes.IngType = ") + quoted(typeName) + u' ' +
                               QStringLiteral("AND IngTypes.IngTypeID = IngSubTypes.IngTypeID ") +
                               QStringLiteral("ORDER BY IngSubTypes.Name"));
    while (q.next())
        names.append(q.value(0).toString());
    return names;
}

std::optional<QString> ProposeOunces(DrinkStore &store, const QString &unitType)
{
    QSqlQuery q = store.select(QStringLiteral("SELECT DISTINCT OzPerUnit FROM Ingredients ") +
                               QStringLiteral("WHERE UnitType = ") + quoted(unitType));
    if (!q.next())
        return std::nullopt;
    return ouncesText(q.value(0));
}

qint32 LookUpIngTypeID(DrinkStore &store, const QString &typeName)
{
    QSqlQuery q = store.select(QStringLiteral("SELECT * FROM IngTypes WHERE IngType = ") + quoted(typeName));
    return q.next() ? q.value(QStringLiteral("IngTypeID")).toInt() : 0;
}

qint32 LookUpIngSubTypeID(DrinkStore &store, const QString &typeName, const QString &subTypeName)
{
    QSqlQuery q = store.select(QStringLiteral("SELECT IngSubTypes.IngSubTypeID, IngSubTypes.Name ") +
                               QStringLiteral("FROM IngSubTypes, IngTypes ") +
                               QStringLiteral("WHERE IngTypes.IngType = ") + quoted(typeName) + u' ' +
                               QStringLiteral("AND IngTypes.IngTypeID = IngSubTypes.IngTypeID ") +
                               QStringLiteral("AND IngSubTypes.Name = ") + quoted(subTypeName) + u' ' +
                               QStringLiteral("ORDER BY IngSubTypes.Name"));
    return q.next() ? q.value(0).toInt() : 0;
}

std::optional<QString> LeaveCellProblem(int column, const QString &text)
{
    if (column == Ounces && !isNumeric(text))
        return QStringLiteral("Please enter a number that represents the number of ounces or peices per purchased "
                              "unit.");
    if (column == Name && text.isEmpty())
        return QStringLiteral("The Ingredient name cannot be blank.");
    return std::nullopt;
}

std::optional<int> SaveRows(DrinkStore &store, const std::vector<QStringList> &loaded,
                            const std::vector<QStringList> &edited)
{
    std::vector<std::size_t> changed;
    for (std::size_t r = 0; r < edited.size(); ++r) {
        if (r < loaded.size() && loaded[r] == edited[r])
            continue;
        if (!Currency::parse(edited[r].value(Price)))
            return static_cast<int>(r);
        changed.push_back(r);
    }
    if (changed.empty())
        return std::nullopt;
    ScopedTransaction tx(store);
    QSqlQuery q = store.prepare(QStringLiteral("UPDATE Ingredients SET Ingredient = ?, UnitType = ?, ozperunit = ?, "
                                               "unitprice = ?, Type = ?, SubType = ?, Notes = ? WHERE id = ?"));
    for (std::size_t r : changed) {
        const QStringList &row = edited[r];
        q.bindValue(0, row.value(Name));
        q.bindValue(1, textOrNull(row.value(UnitType)));
        q.bindValue(2, VbConvert::Val(row.value(Ounces)));
        q.bindValue(3, Currency::parse(row.value(Price))->toSqlText());
        q.bindValue(4, LookUpIngTypeID(store, row.value(Type)));
        q.bindValue(5, LookUpIngSubTypeID(store, row.value(Type), row.value(SubType)));
        q.bindValue(6, textOrNull(row.value(Notes)));
        q.bindValue(7, row.value(ID).toInt());
        store.exec(q);
    }
    tx.commit();
    return std::nullopt;
}

void RemoveIngredient(DrinkStore &store, qint32 id)
{
    ScopedTransaction tx(store);
    if (id > 0) {
        store.execute(QStringLiteral("DELETE FROM DrinkRel WHERE IngID = ") + QString::number(id));
        store.execute(QStringLiteral("DELETE FROM Ingredients WHERE ID = ") + QString::number(id));
    }
    tx.commit();
}

std::optional<QString> CheckNewIngredient(DrinkStore &store, const NewIngredient &n)
{
    if (n.name.isEmpty())
        return QStringLiteral("Please enter the ingredient name.");
    if (n.typeId < 0)
        return QStringLiteral("Please select the ingredient type.");
    if (n.subTypeId < 0)
        return QStringLiteral("Please select the ingredient sub type.");
    if (!n.ozPerUnit.isEmpty() && !isNumeric(n.ozPerUnit))
        return QStringLiteral("Please enter only numbers for the Ounces or Pieces per unit.");
    QSqlQuery q = store.prepare(QStringLiteral("SELECT 1 FROM Ingredients WHERE Ingredient = ?"));
    q.addBindValue(n.name);
    store.exec(q);
    if (q.next())
        return QStringLiteral("The ingredient name you have entered, \"") + n.name +
               QStringLiteral("\" is already in the list.  Please enter a different name.");
    if (!n.unitPrice.isEmpty() && !Currency::parse(n.unitPrice))
        return QStringLiteral("Type mismatch");
    return std::nullopt;
}

qint32 AddIngredient(DrinkStore &store, const NewIngredient &n)
{
    ScopedTransaction tx(store);
    const qint32 id = KeyAllocation::nextIngredientIdForAddDialog(store);
    QSqlQuery q = store.prepare(QStringLiteral("INSERT INTO Ingredients (id, Ingredient, Type, SubType, Selected, "
                                               "UnitType, ozperunit, unitprice) VALUES (?, ?, ?, ?, ?, ?, ?, ?)"));
    q.addBindValue(id);
    q.addBindValue(n.name);
    q.addBindValue(n.typeId);
    q.addBindValue(n.subTypeId);
    q.addBindValue(n.selected ? 1 : 0);
    q.addBindValue(textOrNull(n.unitType));
    q.addBindValue(n.ozPerUnit.isEmpty() ? QVariant() : QVariant(VbConvert::Val(n.ozPerUnit)));
    q.addBindValue(n.unitPrice.isEmpty() ? QVariant() : QVariant(Currency::parse(n.unitPrice)->toSqlText()));
    store.exec(q);
    tx.commit();
    return id;
}

} // namespace IngredientMaint
