#include "editing/DrinkEditorStore.h"

#include "base/VbConvert.h"
#include "editing/EditorLines.h"
#include "store/DrinkStore.h"
#include "store/KeyAllocation.h"

#include <QFileInfo>
#include <QSqlQuery>
#include <QSqlRecord>

namespace {

QString moneyText(const QVariant &v) { return Currency::fromVariant(v).format(); }

std::optional<qint32> optionalId(const QVariant &v)
{
    if (v.isNull())
        return std::nullopt;
    return v.toInt();
}

// A price or cost that is not money is left out of the row rather than stored as a guess.
QVariant moneyValue(const QString &text)
{
    const std::optional<Currency> c = Currency::parse(text);
    return c ? QVariant(c->toSqlText()) : QVariant();
}

void DeleteDrinkRows(DrinkStore &store, qint32 drinkId, bool &inSearchResults)
{
    inSearchResults = false;
    if (drinkId <= 0)
        return;
    const QStringList statements = drinkRemovalStatements(drinkId);
    for (int i = 0; i < 3; ++i)
        store.execute(statements[i]);
    const QVariant count =
        store.scalar(QStringLiteral("SELECT Count(ID) FROM SearchResults WHERE ID = ") + QString::number(drinkId));
    if (!count.isNull() && count.toLongLong() > 0) {
        inSearchResults = true;
        store.execute(statements[3]);
    }
}

qint32 WriteDrinkRow(DrinkStore &store, const DrinkDraft &d, bool inSearchResults)
{
    const qint32 id = d.drinkId > 0 ? d.drinkId : KeyAllocation::nextDrinkIdForEditor(store);
    // The ids of the side lists are found in this order, as they always were.
    const qint32 buildId = GetSideID(store, d.build, QStringLiteral("Build"));
    const qint32 garnishId = GetSideID(store, d.garnish, QStringLiteral("Garnish"));
    const qint32 ratingId = GetSideID(store, d.rating, QStringLiteral("Ratings"));
    QSqlQuery q = store.prepare(QStringLiteral(
        "INSERT INTO Drinks (id, Name, GlassType, Description, Comments, Price, Cost, BuildID, GarnishID, RatingID, "
        "LockPrice, ImageFilePath) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"));
    q.addBindValue(id);
    q.addBindValue(d.name);
    q.addBindValue(d.glassId ? QVariant(*d.glassId) : QVariant());
    q.addBindValue(d.recipe);
    q.addBindValue(d.comments);
    q.addBindValue(moneyValue(d.priceText));
    q.addBindValue(moneyValue(d.costText));
    q.addBindValue(buildId);
    q.addBindValue(garnishId);
    q.addBindValue(ratingId);
    q.addBindValue(d.lockPrice ? 1 : 0);
    q.addBindValue(d.imagePathText == InternalImageText ? d.loadedImagePath : d.imagePathText);
    store.exec(q);
    if (inSearchResults) {
        QSqlQuery s = store.prepare(QStringLiteral("INSERT INTO SearchResults (ID, Name) VALUES (?, ?)"));
        s.addBindValue(id);
        s.addBindValue(d.name);
        store.exec(s);
    }
    return id;
}

void WriteDrinkIngredients(DrinkStore &store, qint32 drinkId, const std::vector<QStringList> &lines)
{
    QSqlQuery addIng = store.prepare(QStringLiteral(
        "INSERT INTO Ingredients (id, Ingredient, unitprice, ozperunit, Selected, Type, SubType) "
        "VALUES (?, ?, 0, 0, 0, 0, 0)"));
    QSqlQuery addLine = store.prepare(QStringLiteral(
        "INSERT INTO DrinkRel (DrinkID, IngID, seq, amount, MetricAmount, measure) VALUES (?, ?, ?, ?, ?, ?)"));
    int seq = 0;
    for (const QStringList &line : lines) {
        ++seq; // lines count from 1
        const auto cell = [&](int c) { return c < line.size() ? line[c] : QString(); };
        const double leading = VbConvert::Val(cell(IngCol::ID));
        qint32 ingId = 0;
        if (leading > 0) {
            ingId = static_cast<qint32>(leading);
        } else {
            // Each new name gets its own row, even the same name twice: the name was looked up
            // when its line was added.
            ingId = KeyAllocation::nextIngredientIdForEditor(store);
            addIng.bindValue(0, ingId);
            addIng.bindValue(1, cell(IngCol::Ingredient));
            store.exec(addIng);
        }
        addLine.bindValue(0, drinkId);
        addLine.bindValue(1, ingId);
        addLine.bindValue(2, static_cast<qint16>(seq));
        addLine.bindValue(3, cell(IngCol::Amount));
        addLine.bindValue(4, cell(IngCol::MetricAmount));
        addLine.bindValue(5, static_cast<double>(static_cast<float>(VbConvert::Val(cell(IngCol::Measure)))));
        store.exec(addLine);
    }
}

void WriteDrinkCategories(DrinkStore &store, qint32 drinkId, const QList<qint32> &categoryIds)
{
    for (qint32 typeId : categoryIds)
        store.execute(QStringLiteral("INSERT INTO DrinkTypeRel (DrinkID, DrinkTypeID) ") + QStringLiteral("VALUES (") +
                      QString::number(drinkId) + QStringLiteral(", ") + QString::number(typeId) + u')');
}

} // namespace

StoredDrink LoadStoredDrink(DrinkStore &store, qint32 drinkId)
{
    StoredDrink d;
    const QString id = QString::number(drinkId);
    {
        QSqlQuery q = store.select(QStringLiteral("SELECT * FROM Drinks WHERE ID = ") + id);
        if (q.next()) {
            const QSqlRecord r = q.record();
            d.found = true;
            d.name = r.value(QStringLiteral("Name")).toString();
            d.imagePath = r.value(QStringLiteral("ImageFilePath")).toString();
            d.recipe = r.value(QStringLiteral("Description")).toString();
            d.comments = r.value(QStringLiteral("Comments")).toString();
            d.priceText = moneyText(r.value(QStringLiteral("Price")));
            d.cost = Currency::fromVariant(r.value(QStringLiteral("Cost")));
            d.costText = d.cost.format();
            d.glassId = r.value(QStringLiteral("GlassType")).toInt();
            d.garnishId = optionalId(r.value(QStringLiteral("GarnishID")));
            d.buildId = optionalId(r.value(QStringLiteral("BuildID")));
            d.lockPrice = r.value(QStringLiteral("LockPrice")).toInt() != 0;
        }
    }
    QSqlQuery lines =
        store.select(QStringLiteral("SELECT * FROM DrinkIngredients WHERE DrinkID = ") + id + QStringLiteral(" ORDER BY Seq"));
    const QSqlRecord r = lines.record();
    const int cIng = r.indexOf(QStringLiteral("IngID")), cAmount = r.indexOf(QStringLiteral("amount")),
              cMetric = r.indexOf(QStringLiteral("MetricAmount")), cName = r.indexOf(QStringLiteral("Ingredient")),
              cPrice = r.indexOf(QStringLiteral("unitprice")), cSize = r.indexOf(QStringLiteral("ozperunit")),
              cUnit = r.indexOf(QStringLiteral("UnitType")), cMeasure = r.indexOf(QStringLiteral("measure"));
    while (lines.next()) {
        const QVariant price = lines.value(cPrice), size = lines.value(cSize);
        d.lines.push_back({lines.value(cIng).toString(), lines.value(cAmount).toString(),
                           lines.value(cMetric).toString(), lines.value(cName).toString(), QString(),
                           price.isNull() ? QString() : Currency::fromVariant(price).toSqlText(),
                           size.isNull() ? QString() : QString::number(size.toDouble(), 'G', 15),
                           lines.value(cUnit).toString(),
                           SingleText(static_cast<float>(lines.value(cMeasure).toDouble()))});
    }
    QSqlQuery cats = store.select(QStringLiteral("SELECT * FROM DrinkTypeRel WHERE DrinkID = ") + id);
    while (cats.next())
        d.categoryIds.append(cats.value(QStringLiteral("DrinkTypeID")).toInt());
    return d;
}

std::optional<ValidationFailure> ValidateDrink(DrinkStore &store, const QString &name, int lineCount,
                                               const QString &imagePathText, const QString &loadedName, bool copyFlag)
{
    if (name.isEmpty())
        return ValidationFailure{1, QStringLiteral("Please enter the drink name.")};
    if (lineCount < 1)
        return ValidationFailure{2, QStringLiteral("There must be at least one ingredient selected.")};
    if (imagePathText != InternalImageText && !imagePathText.isEmpty() && !QFileInfo::exists(imagePathText))
        return ValidationFailure{3, QStringLiteral("The drink image specified does not exist.")};
    if (name != loadedName) {
        QString q = name;
        q.replace(u'"', QStringLiteral("\"\""));
        const QVariant count =
            store.scalar(QStringLiteral("SELECT COUNT(Name) FROM Drinks WHERE Name = \"") + q + u'"');
        if (!count.isNull() && count.toLongLong() > 0)
            return ValidationFailure{4, QStringLiteral("Another drink with the name \"") + name +
                                            QStringLiteral("\" already exists.  Please choose a different name.")};
    } else if (copyFlag) {
        return ValidationFailure{5, QStringLiteral("This drink is a copy of \"") + loadedName +
                                        QStringLiteral("\".  The name must be changed before it can be saved.")};
    }
    return std::nullopt;
}

qint32 GetSideID(DrinkStore &store, const SideChoice &choice, const QString &table)
{
    if (!choice.newText.isEmpty()) {
        for (const auto &entry : choice.entries) {
            if (entry.first == choice.newText)
                return entry.second;
        }
        QSqlQuery q = store.prepare(QStringLiteral("INSERT INTO %1 (Name) VALUES (?)").arg(table));
        q.addBindValue(choice.newText);
        store.exec(q);
        return q.lastInsertId().toInt();
    }
    if (choice.selected >= 0 && choice.selected < choice.entries.size())
        return choice.entries[choice.selected].second;
    return 0;
}

SaveOutcome SaveDrink(DrinkStore &store, const DrinkDraft &draft)
{
    SaveOutcome out;
    ScopedTransaction tx(store);
    DeleteDrinkRows(store, draft.drinkId, out.inSearchResults);
    out.drinkId = WriteDrinkRow(store, draft, out.inSearchResults);
    WriteDrinkIngredients(store, out.drinkId, draft.lines);
    WriteDrinkCategories(store, out.drinkId, draft.categoryIds);
    tx.commit();
    return out;
}
