// Folding one ingredient into another from the ingredient grid, and the drinks that use one.
#include "GuiTest.h"
#include "TestStore.h"
#include "reference/IngredientMerge.h"
#include "reference/frmIngMaint.h"
#include "presentation/TextGridModel.h"
#include "store/DrinkStore.h"

#include <QLabel>
#include <QListWidget>
#include <QTableView>
#include <QTreeWidget>

namespace {
// Where CORVANE_SHOTS names a folder, a picture of the dialog goes there.
void shoot(QWidget *w, const char *name)
{
    if (qEnvironmentVariableIsSet("CORVANE_SHOTS"))
        w->grab().save(qEnvironmentVariable("CORVANE_SHOTS") + u'/' + QLatin1String(name) + ".png");
}

// Rum (1) is in "Daiquiri" and twice over in "Mojito «fresh»", which also has lime (2); soda (3)
// is in no drink.
const QString Rows = QStringLiteral(
    "INSERT INTO IngTypes (IngTypeID, IngType) VALUES (0, 'Undefined'), (1, 'Rum');"
    "INSERT INTO Ingredients (id, Ingredient, Type) VALUES (1, 'White rum', 1), (2, 'Lime', 0), (3, 'Soda', 0),"
    " (4, 'Dark rum', 1);"
    "INSERT INTO Drinks (id, Name) VALUES (1, 'Daiquiri'), (2, 'Mojito «fresh»'), (3, 'Cuba \"Libre\"');"
    "INSERT INTO DrinkRel (DrinkID, IngID, seq, measure) VALUES (1, 1, 1, 2), (2, 1, 1, 2), (2, 2, 2, 1),"
    " (2, 1, 3, 1), (3, 4, 1, 2), (3, 2, 2, 0.5);");

QString lines(DrinkStore &store)
{
    return store.scalar(QStringLiteral("SELECT group_concat(DrinkID || ':' || IngID, ' ') FROM (SELECT DrinkID, IngID "
                                       "FROM DrinkRel ORDER BY DrinkID, seq)"))
        .toString();
}

int gridRow(frmIngMaint &form, const QString &name)
{
    for (int r = 0; r < form.grid()->rowCount(); ++r)
        if (form.grid()->cell(r, 1) == name)
            return r;
    return -1;
}

// Plays the user at the dialogs that open over the grid: a message box is answered with OK and
// its text kept; the merge dialog takes the next step: "<type>" picks a type, which is no
// ingredient, "<cancel>" leaves, any other text picks that ingredient and merges.
class ModalPlayer : public QObject {
public:
    ModalPlayer(QStringList steps, QObject *parent) : QObject(parent), m_steps(std::move(steps))
    {
        connect(&m_timer, &QTimer::timeout, this, &ModalPlayer::act);
        m_timer.start(10);
    }
    QStringList messages, notes;

private:
    void act()
    {
        QWidget *top = QApplication::activeModalWidget();
        if (auto *box = qobject_cast<QMessageBox *>(top)) {
            messages << box->text();
            press(box->button(QMessageBox::Ok));
        } else if (top && top->objectName() == QLatin1String("frmIngMerge") && !m_steps.isEmpty()) {
            const QString step = m_steps.takeFirst();
            notes << child<QLabel>(top, "lblNote")->text();
            shoot(top, "merge");
            auto *tree = child<QTreeWidget>(top, "tvIng");
            if (step == QLatin1String("<cancel>")) {
                press(child<QPushButton>(top, "cmdCancel"));
                return;
            }
            const QList<QTreeWidgetItem *> found = tree->findItems(step, Qt::MatchExactly | Qt::MatchRecursive);
            tree->setCurrentItem(step == QLatin1String("<type>") ? tree->topLevelItem(0) : found.value(0));
            press(child<QPushButton>(top, "cmdSave"));
        }
    }
    // Pressed once this turn is over: a dialog the press opens must find the player ready again.
    static void press(QAbstractButton *button) { QTimer::singleShot(0, button, &QAbstractButton::click); }
    QStringList m_steps;
    QTimer m_timer;
};

} // namespace

class tst_IngredientMerge : public QObject {
    Q_OBJECT

private slots:
    void usage_data();
    void usage();
    void mergeFromTheGrid();
};

void tst_IngredientMerge::usage_data()
{
    QTest::addColumn<int>("ingID");
    QTest::addColumn<QString>("names");
    QTest::addColumn<QString>("note");
    QTest::addColumn<QString>("count");

    QTest::newRow("twice in one drink, listed once")
        << 1 << "Daiquiri|Mojito «fresh»" << "'X' is used in the following drinks:" << "2 drinks.";
    QTest::newRow("one drink, no singular") << 4 << "Cuba \"Libre\"" << "'X' is used in the following drinks:"
                                            << "1 drinks.";
    QTest::newRow("unused") << 3 << "" << "'X' is not being used." << "0 drinks.";
}

void tst_IngredientMerge::usage()
{
    QFETCH(int, ingID);
    QFETCH(QString, names);
    QFETCH(QString, note);
    QFETCH(QString, count);
    TestStore ts(Rows);
    const QStringList found = IngredientMerge::IngredientUsage(ts.store(), ingID);
    QCOMPARE(found.join(u'|'), names);
    QCOMPARE(IngredientMerge::UsageNote(QStringLiteral("X"), int(found.size())), note);
    QCOMPARE(IngredientMerge::UsageCount(int(found.size())), count);
}

void tst_IngredientMerge::mergeFromTheGrid()
{
    TestStore ts(Rows);
    frmIngMaint form(ts.store());
    form.show();
    auto *grid = child<QTableView>(&form, "cfIng");

    // The usage dialog of the white rum.
    grid->setCurrentIndex(form.grid()->index(gridRow(form, QStringLiteral("White rum")), 1));
    QTimer::singleShot(0, &form, [] {
        QTRY_VERIFY(QApplication::activeModalWidget());
        QWidget *dialog = QApplication::activeModalWidget();
        QCOMPARE(child<QListWidget>(dialog, "lstDrinks")->count(), 2);
        QCOMPARE(child<QLabel>(dialog, "lblCount")->text(), QStringLiteral("2 drinks."));
        shoot(dialog, "usage");
        child<QPushButton>(dialog, "cmdClose")->click();
    });
    child<QPushButton>(&form, "cmdUsage")->click();

    // A type is no ingredient, and Cancel changes nothing; merging with itself is refused after
    // the grid is saved; then into the dark rum.
    ModalPlayer player({"<type>", "<cancel>", "White rum", "Dark rum"}, &form);
    const auto mergeWhiteRum = [&] {
        grid->setCurrentIndex(form.grid()->index(gridRow(form, QStringLiteral("White rum")), 1));
        child<QPushButton>(&form, "cmdMerge")->click();
    };
    const QString before = lines(ts.store());
    mergeWhiteRum();
    QCOMPARE(player.messages, QStringList{"Please select an ingredient."});
    QCOMPARE(lines(ts.store()), before);
    QCOMPARE(player.notes.value(0), QStringLiteral("All the places where  'White rum' is used will be combined with "
                                                   "the ingredient you select below.  The 'White rum' ingredient will "
                                                   "then be deleted."));

    form.grid()->setData(form.grid()->index(gridRow(form, QStringLiteral("Soda")), 1), QStringLiteral("Soda «water»"));
    mergeWhiteRum();
    QCOMPARE(player.messages.value(1), QStringLiteral("You cannot merge an ingredient with itself."));
    QCOMPARE(ts.store().scalar(QStringLiteral("SELECT Ingredient FROM Ingredients WHERE id = 3")).toString(),
             QStringLiteral("Soda «water»"));
    QCOMPARE(lines(ts.store()), before);

    mergeWhiteRum();
    // Every line moved, the mojito keeps both of its rum lines, and the white rum is gone.
    QCOMPARE(lines(ts.store()), QStringLiteral("1:4 2:4 2:2 2:4 3:4 3:2"));
    QVERIFY(ts.store().scalar(QStringLiteral("SELECT id FROM Ingredients WHERE id = 1")).isNull());
    QCOMPARE(gridRow(form, QStringLiteral("White rum")), -1);
    QCOMPARE(player.messages.size(), 2);
}

QTEST_MAIN(tst_IngredientMerge)
#include "tst_ingredientmerge.moc"
