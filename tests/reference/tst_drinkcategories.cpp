// The drink categories kept by hand, and the marked drinks given one of them.
#include "GuiTest.h"
#include "TestStore.h"
#include "reference/DrinkCategories.h"
#include "reference/frmDrinkCats.h"
#include "store/DrinkStore.h"

#include <QLineEdit>
#include <QListWidget>

using namespace DrinkCategories;

namespace {
// Drinks 1 and 2 are marked; 1 is already a "Sour", 3 is one and is not marked.
const QString Rows = QStringLiteral(
    "INSERT INTO DrinkTypes (TypeID, Type) VALUES (0, 'Unknown / Other'), (1, 'Sour'), (5, 'Tiki');"
    "INSERT INTO Drinks (id, Name, Marked) VALUES (1, 'A', 1), (2, 'B', 1), (3, 'C', 0);"
    "INSERT INTO DrinkTypeRel (DrinkID, DrinkTypeID) VALUES (1, 1), (1, 5), (3, 1), (3, 5);");

QString relations(DrinkStore &store)
{
    return store
        .scalar(QStringLiteral("SELECT group_concat(DrinkID || ':' || DrinkTypeID, ' ') FROM (SELECT * FROM "
                               "DrinkTypeRel ORDER BY DrinkID, DrinkTypeID)"))
        .toString();
}

void select(QListWidget *list, const QString &text)
{
    list->setCurrentItem(list->findItems(text, Qt::MatchExactly).value(0));
}

// Where CORVANE_SHOTS names a folder, a picture of the dialog goes there.
void shoot(QWidget *w, const char *name)
{
    if (qEnvironmentVariableIsSet("CORVANE_SHOTS"))
        w->grab().save(qEnvironmentVariable("CORVANE_SHOTS") + u'/' + QLatin1String(name) + ".png");
}
} // namespace

class tst_DrinkCategories : public QObject {
    Q_OBJECT

private slots:
    void nameProblems_data();
    void nameProblems();
    void categoriesWorkflow();
};

void tst_DrinkCategories::nameProblems_data()
{
    QTest::addColumn<bool>("adding");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("message");

    const QString below = ".  Please enter a different name in the text box below the list of categories.";
    QTest::newRow("add empty") << true << ""
                               << "Please enter the description of the drink category you wish to add in the box "
                                  "below the list of categories.";
    QTest::newRow("add taken") << true << "Sour" << "There is already a drink category named Sour" + below;
    QTest::newRow("add differs in case") << true << "sour" << "";
    QTest::newRow("rename empty") << false << ""
                                  << "Please enter the new description for the 'Sour' drink category in the box below "
                                     "the list of categories.";
    QTest::newRow("rename taken") << false << "Tiki"
                                  << "There is already an drink category named 'Tiki'.  Please enter a different "
                                     "name in the text box below the list of categories.";
    QTest::newRow("rename with a quote") << false << "Sour \"old\"" << "";
}

void tst_DrinkCategories::nameProblems()
{
    QFETCH(bool, adding);
    QFETCH(QString, text);
    QFETCH(QString, message);
    const std::vector<Category> list{{0, "Unknown / Other"}, {1, "Sour"}, {5, "Tiki"}};
    QCOMPARE(adding ? AddProblem(list, text) : UpdateProblem(list, QStringLiteral("Sour"), text), message);
}

void tst_DrinkCategories::categoriesWorkflow()
{
    TestStore ts(Rows);
    DrinkStore &store = ts.store();
    frmConvToCat convert(store);
    convert.show();
    auto *cats = child<QListWidget>(&convert, "lstCats");
    QCOMPARE(cats->count(), 3);

    // The categories dialog from the convert dialog: add, refuse, rename, remove.
    QTimer::singleShot(0, &convert, [&] {
        QTRY_VERIFY(QApplication::activeModalWidget());
        QWidget *dialog = QApplication::activeModalWidget();
        auto *types = child<QListWidget>(dialog, "lstTypes");
        auto *text = child<QLineEdit>(dialog, "txtType");
        text->setText(QStringLiteral("Fizz «🍋»"));
        child<QPushButton>(dialog, "cmdAdd")->click();
        QCOMPARE(types->currentItem()->text(), QStringLiteral("Fizz «🍋»"));
        QString seen;
        answerNextMessage(dialog, &seen);
        child<QPushButton>(dialog, "cmdAdd")->click();
        QVERIFY(seen.contains(QStringLiteral("There is already a drink category named Fizz «🍋».")));

        select(types, QStringLiteral("Unknown / Other"));
        answerNextMessage(dialog, &seen);
        child<QPushButton>(dialog, "cmdRemove")->click();
        QVERIFY(seen.endsWith(QStringLiteral("|You cannot remove the 'Unknown / Other' drink category.")));

        select(types, QStringLiteral("Tiki"));
        text->setText(QStringLiteral("Tiki \"hot\""));
        child<QPushButton>(dialog, "cmdUpdate")->click();
        select(types, QStringLiteral("Sour"));
        answerNextMessage(dialog, &seen, QMessageBox::Ok);
        child<QPushButton>(dialog, "cmdRemove")->click();
        QVERIFY(seen.contains(QStringLiteral("Are you sure that you want to remove the 'Sour' drink category from "
                                             "the list.\nAll drinks with this category will be changed to 'Unknown / "
                                             "Other'")));
        shoot(dialog, "categories");
        child<QPushButton>(dialog, "cmdClose")->click();
    });
    child<QPushButton>(&convert, "cmdEditCats")->click();
    QCOMPARE(store.scalar(QStringLiteral("SELECT group_concat(TypeID || '=' || Type, '|') FROM (SELECT * FROM "
                                         "DrinkTypes ORDER BY TypeID)"))
                 .toString(),
             QStringLiteral("0=Unknown / Other|5=Tiki \"hot\"|6=Fizz «🍋»"));
    // The removed category's drinks keep a row, for "Unknown / Other".
    QCOMPARE(relations(store), QStringLiteral("1:0 1:5 3:0 3:5"));
    QCOMPARE(cats->count(), 3);

    // Nothing selected: nothing happens and the dialog stays.
    cats->setCurrentItem(nullptr);
    child<QPushButton>(&convert, "cmdOK")->click();
    QVERIFY(convert.isVisible());
    // The marked drinks gain "Tiki", once each, and lose nothing; the unmarked one is left alone.
    select(cats, QStringLiteral("Tiki \"hot\""));
    shoot(&convert, "convert");
    child<QPushButton>(&convert, "cmdOK")->click();
    QVERIFY(!convert.isVisible());
    QCOMPARE(relations(store), QStringLiteral("1:0 1:5 2:5 3:0 3:5"));
}

QTEST_MAIN(tst_DrinkCategories)
#include "tst_drinkcategories.moc"
