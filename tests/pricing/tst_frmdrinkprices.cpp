// The price worksheet driven as a user would: a refused percentage, a run over the starter book
// that moves the averages, then the same dialog from the editor storing other settings.
#include "GuiTest.h"
#include "TestStore.h"
#include "pricing/frmDrinkPrices.h"
#include "store/DrinkStore.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QSqlQuery>

namespace {
QString setting(DrinkStore &store, const char *var)
{
    return store.scalar(QStringLiteral("SELECT Val FROM Constants WHERE Var = \"%1\"").arg(QLatin1String(var)))
        .toString();
}

QString prices(DrinkStore &store)
{
    return store.scalar(QStringLiteral("SELECT group_concat(Price) FROM (SELECT Price FROM Drinks ORDER BY id)"))
        .toString();
}

void shoot(QWidget *w, const char *name)
{
    if (qEnvironmentVariableIsSet("CORVANE_SHOTS"))
        w->grab().save(qEnvironmentVariable("CORVANE_SHOTS") + u'/' + QLatin1String(name) + ".png");
}
} // namespace

class tst_frmDrinkPrices : public QObject {
    Q_OBJECT

private slots:
    void worksheetThenSettings();
};

void tst_frmDrinkPrices::worksheetThenSettings()
{
    TestStore ts({}, true);
    DrinkStore &store = ts.store();
    // One drink keeps its price whatever the run does.
    store.execute(QStringLiteral("UPDATE Drinks SET LockPrice = Yes, Price = 1.23 WHERE id = (SELECT MIN(id) FROM "
                                 "Drinks)"));
    const QString before = prices(store);

    frmDrinkPrices sheet(store);
    sheet.Setup(false);
    sheet.show();
    QVERIFY(child<QPushButton>(&sheet, "cmdUpdate")->isVisible());
    QVERIFY(!child<QPushButton>(&sheet, "cmdOK")->isVisible());
    const QString averageBefore = child<QLabel>(&sheet, "lblAvgPrice")->text();
    QVERIFY(averageBefore.startsWith(u'$'));
    shoot(&sheet, "worksheet");

    child<QRadioButton>(&sheet, "optMarkup")->click();
    QVERIFY(!child<QLineEdit>(&sheet, "txtBCM")->isEnabled());
    auto *markup = child<QLineEdit>(&sheet, "txtMarkupPct");
    markup->setText(QStringLiteral("many"));
    QString seen;
    answerNextMessage(&sheet, &seen);
    child<QPushButton>(&sheet, "cmdUpdate")->click();
    QVERIFY(seen.endsWith(QStringLiteral("|The markup precentage is not a valid number")));
    QVERIFY(sheet.isVisible());
    QCOMPARE(prices(store), before);

    markup->setText(QStringLiteral("400"));
    child<QComboBox>(&sheet, "cmbRounding")->setCurrentIndex(2);
    child<QCheckBox>(&sheet, "chkForceMinPrice")->setChecked(false);
    child<QCheckBox>(&sheet, "chkZeroOnly")->setChecked(false);
    child<QPushButton>(&sheet, "cmdUpdate")->click();
    QVERIFY(!sheet.isVisible());
    QCOMPARE(sheet.result(), int(QDialog::Accepted));
    QCOMPARE(setting(store, "MarkupOpt"), QStringLiteral("Cost"));
    QCOMPARE(setting(store, "RoundTo"), QStringLiteral(" 2"));
    QCOMPARE(setting(store, "MinPrice"), QStringLiteral("None"));
    // Every unlocked drink now stands on a quarter, at five times its cost or a little above.
    QSqlQuery q = store.select(QStringLiteral("SELECT Cost, Price, LockPrice FROM Drinks"));
    int repriced = 0;
    while (q.next()) {
        const qint64 cost = Currency::fromVariant(q.value(0)).tenThousandths();
        const qint64 price = Currency::fromVariant(q.value(1)).tenThousandths();
        if (q.value(2).toInt() != 0) {
            QCOMPARE(price, 12300);
            continue;
        }
        QCOMPARE(price % 2500, 0);
        QVERIFY(price >= 5 * cost && price < 5 * cost + 2500);
        ++repriced;
    }
    QVERIFY(repriced > 10);

    sheet.show();
    QVERIFY(child<QLabel>(&sheet, "lblAvgPrice")->text() != averageBefore);

    // From the editor: OK stores, the run is not offered, and the cost percentage is checked.
    frmDrinkPrices settings(store);
    settings.Setup(true);
    settings.show();
    QVERIFY(!child<QPushButton>(&settings, "cmdUpdate")->isVisible());
    QCOMPARE(child<QLineEdit>(&settings, "txtMarkupPct")->text(), QStringLiteral("400"));
    QCOMPARE(child<QComboBox>(&settings, "cmbRounding")->currentIndex(), 2);
    const QString repricedPrices = prices(store);
    child<QRadioButton>(&settings, "optBCM")->click();
    child<QLineEdit>(&settings, "txtBCM")->setText(QStringLiteral("100"));
    answerNextMessage(&settings, &seen);
    child<QPushButton>(&settings, "cmdOK")->click();
    QVERIFY(seen.endsWith(QStringLiteral("|The cost percentage must be less than or equal to 99%.")));
    child<QLineEdit>(&settings, "txtBCM")->setText(QStringLiteral("30"));
    shoot(&settings, "settings");
    child<QPushButton>(&settings, "cmdOK")->click();
    QVERIFY(!settings.isVisible());
    QCOMPARE(setting(store, "MarkupOpt"), QStringLiteral("BCM"));
    QCOMPARE(setting(store, "MarkupPct"), QStringLiteral("30"));
    QCOMPARE(prices(store), repricedPrices);
}

QTEST_MAIN(tst_frmDrinkPrices)
#include "tst_frmdrinkprices.moc"
