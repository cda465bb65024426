#include "exchange/CvxWriter.h"

#include "presentation/CDrinkFacade.h"
#include "store/DrinkStore.h"

namespace {
const QString kCrLf = QStringLiteral("\r\n");
QString text(const QVariant &v) { return v.isNull() ? QString() : v.toString(); }
}

QString cvxFileHead() { return QStringLiteral("Corvane Drink Exchange File\r\nVersion:  1.1\r\n"); }

QString cvxMeasureText(float measure) { return QString::number(double(measure), 'g', 7); }

QString drinkAsCVX(CDrinkFacade &facade, DrinkStore &store, qint32 drinkID)
{
    if (!facade.seekForOutput(drinkID))
        return {};
    const QString id = QString::number(facade.field(QStringLiteral("id")).toInt());
    QString out = QStringLiteral("----------") + kCrLf;
    out += QStringLiteral("Name:     ") + text(facade.field(QStringLiteral("Name"))) + kCrLf;
    out += QStringLiteral("Glass:    ") + text(facade.field(QStringLiteral("GlassType"))) + kCrLf;
    QSqlQuery categories = store.select(QStringLiteral("SELECT * FROM DrinkCategories WHERE DrinkID = ") + id);
    while (categories.next())
        out += QStringLiteral("Category: ") + text(categories.value(QStringLiteral("Type"))) + kCrLf;
    QSqlQuery lines = store.select(QStringLiteral("SELECT * FROM DrinkIngredients WHERE DrinkID = ") + id);
    while (lines.next()) {
        out += QStringLiteral("Ing:      ") + text(lines.value(QStringLiteral("Ingredient"))) + kCrLf;
        out += QStringLiteral("MAmount:  ") + text(lines.value(QStringLiteral("MetricAmount"))) + kCrLf;
        out += QStringLiteral("Amount:   ") + text(lines.value(QStringLiteral("amount"))) + kCrLf;
        const QVariant measure = lines.value(QStringLiteral("measure"));
        // A line without a measure goes out empty, as it stands; the reader refuses it.
        out += QStringLiteral("Measure:  ") + (measure.isNull() ? QString() : cvxMeasureText(measure.toFloat())) + kCrLf;
    }
    out += QStringLiteral("Recipe:   ") + text(facade.field(QStringLiteral("Description"))) + kCrLf;
    return out;
}
