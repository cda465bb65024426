#include "editing/StarterBookWriter.h"

#include "base/VbConvert.h"
#include "editing/Measures.h"
#include "store/StoreError.h"
#include "store/StoreWriter.h"

#include <sqlite3.h>

namespace {

using StoreWriter::Connection;
using StoreWriter::Statement;

void writeReference(Connection &c, const StarterBook &book)
{
    Statement type(c, QStringLiteral("INSERT INTO IngTypes (IngTypeID, IngType) VALUES (?, ?)"));
    for (const BookIngType &t : book.types)
        type.integer(1, t.id).text(2, t.name).run();

    Statement subType(
        c, QStringLiteral("INSERT INTO IngSubTypes (IngSubTypeID, IngTypeID, Name) VALUES (?, ?, ?)"));
    for (const BookIngSubType &s : book.subTypes)
        subType.integer(1, s.id).integer(2, s.typeId).text(3, s.name).run();

    Statement ing(
        c, QStringLiteral("INSERT INTO Ingredients (id, Ingredient, UnitType, ozperunit, unitprice, Notes, "
                          "Type, SubType, Selected) VALUES (?, ?, ?, ?, ?, ?, ?, ?, 0)"));
    for (const BookIngredient &i : book.ingredients)
        ing.integer(1, i.id)
            .text(2, i.name)
            .text(3, i.unitType)
            .real(4, i.ozPerUnit)
            .money(5, i.unitPrice)
            .text(6, i.notes)
            .integer(7, i.type)
            .integer(8, i.subType)
            .run();

    Statement glass(c, QStringLiteral("INSERT INTO Glassware (GlassID, Name, Notes) VALUES (?, ?, ?)"));
    for (const BookGlass &g : book.glassware)
        glass.integer(1, g.id).text(2, g.name).text(3, g.notes).run();

    auto names = [&c](const QString &sql, const QList<BookName> &rows) {
        Statement s(c, sql);
        for (const BookName &n : rows)
            s.integer(1, n.id).text(2, n.name).run();
    };
    names(QStringLiteral("INSERT INTO DrinkTypes (TypeID, Type) VALUES (?, ?)"), book.categories);
    names(QStringLiteral("INSERT INTO Garnish (id, Name) VALUES (?, ?)"), book.garnishes);
    names(QStringLiteral("INSERT INTO Build (id, Name) VALUES (?, ?)"), book.builds);
    names(QStringLiteral("INSERT INTO Ratings (RatingID, Name) VALUES (?, ?)"), book.ratings);

    Statement scheme(
        c, QStringLiteral("INSERT INTO ColorSchemes (id, Name, TextColor, HighlightColor, AccentColor, "
                          "BackgroundColor) VALUES (?, ?, ?, ?, ?, ?)"));
    for (const BookColorScheme &s : book.colorSchemes)
        scheme.integer(1, s.id)
            .text(2, s.name)
            .integer(3, s.text)
            .integer(4, s.highlight)
            .integer(5, s.accent)
            .integer(6, s.background)
            .run();

    Statement constant(c, QStringLiteral("INSERT INTO Constants (Var, Val) VALUES (?, ?)"));
    for (const BookConstant &k : book.constants)
        constant.text(1, k.var).text(2, k.val).run();

    // Numbers are bound as text; the columns' numeric affinity stores them as numbers.
    for (const BookPrintLayout &l : book.printLayouts) {
        QStringList columns{QStringLiteral("PrintLayoutID")}, marks{QStringLiteral("?")};
        for (const auto &[field, value] : l.fields) {
            columns << field;
            marks << QStringLiteral("?");
        }
        Statement layout(c, QStringLiteral("INSERT INTO PrintLayout (%1) VALUES (%2)")
                                .arg(columns.join(QStringLiteral(", ")), marks.join(QStringLiteral(", "))));
        layout.integer(1, l.id);
        int i = 2;
        for (const auto &[field, value] : l.fields)
            layout.text(i++, value);
        layout.run();
    }
}

void writeDrinks(Connection &c, const StarterBook &book)
{
    const PriceSettings settings = StarterBookWriter::priceSettings(book);
    Statement drinkRow(
        c, QStringLiteral("INSERT INTO Drinks (id, Name, GlassType, Description, Comments, Price, Cost, "
                          "BuildID, GarnishID, RatingID, LockPrice, ImageFilePath, Marked, LiqCab) "
                          "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, 0, ?, 0, 0)"));
    Statement lineRow(
        c, QStringLiteral("INSERT INTO DrinkRel (DrinkID, IngID, seq, amount, MetricAmount, measure) "
                          "VALUES (?, ?, ?, ?, ?, ?)"));
    Statement categoryRow(c, QStringLiteral("INSERT INTO DrinkTypeRel (DrinkID, DrinkTypeID) VALUES (?, ?)"));

    for (const BookDrink &d : book.drinks) {
        const Currency cost = StarterBookWriter::drinkCost(book, d);
        const std::optional<Currency> price = CalculatePrice(settings, cost, Currency());
        if (!price)
            throw StoreError(QStringLiteral("the price settings give no price for drink \"%1\"").arg(d.name),
                             d.source);
        drinkRow.integer(1, d.id)
            .text(2, d.name)
            .integer(3, d.glass)
            .text(4, d.recipe)
            .text(5, d.comments)
            .money(6, *price)
            .money(7, cost)
            .integer(8, d.build)
            .integer(9, d.garnish)
            .integer(10, d.rating)
            .text(11, d.imageFilePath)
            .run();

        int seq = 0;
        for (const BookLine &l : d.lines) {
            const float ounces = GetOunces(l.amount, l.measure);
            lineRow.integer(1, d.id)
                .integer(2, l.ingredientId)
                .integer(3, ++seq)
                .text(4, GetAmountText(l.amount, l.measure))
                .text(5, GetMetricAmountText(l.amount, l.measure))
                .real(6, static_cast<double>(ounces))
                .run();
        }
        for (const int category : d.categories)
            categoryRow.integer(1, d.id).integer(2, category).run();
    }
}

QString moneyText(Currency v)
{
    return QString::number(v.toDouble(), 'f', 4);
}

} // namespace

namespace StarterBookWriter {

void write(const StarterBook &book, const QString &storePath)
{
    Connection c(storePath);
    c.exec(QStringLiteral("BEGIN IMMEDIATE"));
    try {
        writeReference(c, book);
        writeDrinks(c, book);
        c.exec(QStringLiteral("COMMIT"));
    } catch (...) {
        sqlite3_exec(c.handle(), "ROLLBACK", nullptr, nullptr, nullptr);
        throw;
    }
}

PriceSettings priceSettings(const StarterBook &book)
{
    PriceSettings s;
    s.method = book.constant(QStringLiteral("MarkupOpt")).value_or(QString());
    s.fraction = PercentFraction(book.constant(QStringLiteral("MarkupPct")).value_or(QString()));
    const QString minimum = book.constant(QStringLiteral("MinPrice")).value_or(QString());
    if (!minimum.isEmpty() && minimum != QLatin1String("None"))
        s.minimum = Currency::fromDouble(VbConvert::Val(minimum));
    const std::optional<QString> roundTo = book.constant(QStringLiteral("RoundTo"));
    s.roundTo = roundTo ? VbConvert::CLng(VbConvert::Val(*roundTo)).value_or(-1) : -1;
    return s;
}

Currency drinkCost(const StarterBook &book, const BookDrink &drink)
{
    Currency total;
    for (const BookLine &l : drink.lines) {
        const BookIngredient *ing = book.ingredient(l.ingredientId);
        if (ing)
            total +=
                LineCost(ing->unitPrice, static_cast<float>(ing->ozPerUnit), GetOunces(l.amount, l.measure));
    }
    return total;
}

QStringList compareWithDrinkCostQuery(const QString &storePath)
{
    Connection c(storePath);
    const QString sql = QStringLiteral("SELECT D.Name, D.Cost, C.Cost FROM Drinks D "
                                       "LEFT JOIN DrinkCost C ON C.DrinkID = D.id ORDER BY D.id");
    sqlite3_stmt *stmt = nullptr;
    if (sqlite3_prepare_v2(c.handle(), sql.toUtf8().constData(), -1, &stmt, nullptr) != SQLITE_OK)
        throw StoreError(c.error(), sql);
    QStringList differences;
    int rc;
    while ((rc = sqlite3_step(stmt)) == SQLITE_ROW) {
        const Currency stored = Currency::fromDouble(sqlite3_column_double(stmt, 1));
        const Currency computed = Currency::fromDouble(sqlite3_column_double(stmt, 2));
        if (stored != computed)
            differences << QStringLiteral("drink \"%1\": Cost %2, but the DrinkCost query gives %3")
                               .arg(QString::fromUtf8(
                                        reinterpret_cast<const char *>(sqlite3_column_text(stmt, 0))),
                                    moneyText(stored), moneyText(computed));
    }
    sqlite3_finalize(stmt);
    if (rc != SQLITE_DONE)
        throw StoreError(c.error(), sql);
    return differences;
}

} // namespace StarterBookWriter
