// The two search dialogs driven as a user would: what each kind shows, the rows of the
// advanced search, its saved searches, Find Similar, and what a bad value leads to.
#include "GuiTest.h"
#include "SearchBook.h"
#include "TestStore.h"
#include "base/modCorvane.h"
#include "presentation/CDrinkFacade.h"
#include "search/SavedSearch.h"
#include "search/SearchDialogs.h"
#include "search/frmAdvSearch.h"
#include "search/frmSearch.h"

#include <QApplication>
#include <QComboBox>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QtTest>
#include <functional>

namespace {

// Calls f with the next modal window other than `except` once it shows.
void onModal(const std::function<void(QWidget *)> &f, QWidget *except = nullptr)
{
    auto *timer = new QTimer(qApp);
    timer->setInterval(5);
    QObject::connect(timer, &QTimer::timeout, qApp, [=] {
        QWidget *w = QApplication::activeModalWidget();
        if (!w || w == except || !w->isVisible())
            return;
        timer->stop();
        timer->deleteLater();
        f(w);
    });
    timer->start();
}

struct Message {
    QString title, text;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
};

// Answers the next message box over `over` with a button, and keeps what it said.
void answerMessage(QWidget *over, QMessageBox::StandardButton button, Message *seen)
{
    onModal(
        [=](QWidget *w) {
            auto *box = qobject_cast<QMessageBox *>(w);
            QVERIFY(box);
            *seen = {box->windowTitle(), box->text(), box->icon()};
            box->button(button)->click();
        },
        over);
}

// The control of a criteria row: cmbField1, txtVal5...
template <class T> T *ofRow(QWidget *w, const char *name, int row)
{
    return child<T>(w, (name + QByteArray::number(row)).constData());
}
QComboBox *combo(QWidget *w, const char *name, int row) { return ofRow<QComboBox>(w, name, row); }
QLineEdit *txtVal(QWidget *w, int row) { return ofRow<QLineEdit>(w, "txtVal", row); }
void click(QWidget *w, const char *button) { child<QPushButton>(w, button)->click(); }

QStringList entries(const QComboBox *c)
{
    QStringList out;
    for (int i = 0; i < c->count(); ++i)
        out << c->itemText(i);
    return out;
}

void choose(QComboBox *c, const QString &text)
{
    const int at = c->findText(text);
    QVERIFY2(at >= 0, qPrintable(text));
    c->setCurrentIndex(at);
}

void setRow(QWidget *dialog, int row, const QString &field, const QString &comparison, const QString &value)
{
    choose(combo(dialog, "cmbField", row), field);
    choose(combo(dialog, "cmbComp", row), comparison);
    if (txtVal(dialog, row)->isHidden())
        choose(combo(dialog, "cmbVal", row), value);
    else
        txtVal(dialog, row)->setText(value);
}

// With CORVANE_SCREENSHOTS set to a directory, the dialogs are kept there as pictures.
void screenshot(QWidget *w, const QString &name)
{
    const QString dir = qEnvironmentVariable("CORVANE_SCREENSHOTS");
    if (dir.isEmpty())
        return;
    w->show();
    QCoreApplication::processEvents();
    w->grab().save(dir + u'/' + name + QStringLiteral(".png"));
}

// The rows as the dialog opens and as Clear leaves them; off controls in the form's colour.
void verifyLoadedState(QWidget *dialog)
{
    const QColor form = dialog->palette().color(QPalette::Window);
    const QColor on = combo(dialog, "cmbField", 1)->palette().color(QPalette::Base);
    QVERIFY(on != form);
    for (int row = 1; row <= 5; ++row) {
        auto *field = combo(dialog, "cmbField", row);
        QCOMPARE(field->currentIndex(), -1);
        QCOMPARE(field->isEnabled(), row == 1);
        QCOMPARE(field->palette().color(QPalette::Base), row == 1 ? on : form);
        QCOMPARE(combo(dialog, "cmbComp", row)->currentIndex(), -1);
        QVERIFY(!combo(dialog, "cmbComp", row)->isEnabled());
        QCOMPARE(combo(dialog, "cmbComp", row)->palette().color(QPalette::Base), form);
        QCOMPARE(combo(dialog, "cmbVal", row)->count(), 0);
        QVERIFY(!combo(dialog, "cmbVal", row)->isEnabled());
        QVERIFY(combo(dialog, "cmbVal", row)->isHidden());
        QVERIFY(!txtVal(dialog, row)->isHidden());
        QCOMPARE(txtVal(dialog, row)->text(), QString());
        if (row < 5) {
            QCOMPARE(combo(dialog, "cmbOp", row)->currentIndex(), -1);
            QVERIFY(!combo(dialog, "cmbOp", row)->isEnabled());
        }
    }
    QCOMPARE(child<QComboBox>(dialog, "cmbSavedSearch")->currentIndex(), 0);
}

QString book()
{
    return QString::fromLatin1(kSearchBook);
}

} // namespace

class tst_SearchDialogs : public QObject {
    Q_OBJECT
  private slots:
    void init();
    void simpleKinds_data();
    void simpleKinds();
    void simpleSearch();
    void advancedLoadAndClear();
    void fieldChoice_data();
    void fieldChoice();
    void advancedSearch_data();
    void advancedSearch();
    void savedSearchLoadsBackAfterRestart();
    void deleteAsksFirst();
    void findSimilar_data();
    void findSimilar();
};

void tst_SearchDialogs::init()
{
    modCorvane::state() = modCorvane::State();
    // A plain colour, so that controls painted with the form's background stand out.
    modCorvane::state().schemeBackgroundColor = 0x00C0E0D0;
}

void tst_SearchDialogs::simpleKinds_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("prompt");
    QTest::addColumn<QStringList>("choices"); // empty: the text box and the match options
    QTest::newRow("301") << 301 << "Search by Name"
                         << "Enter a name or part of a name to search for and click on OK to start your search."
                         << QStringList{};
    QTest::newRow("302")
        << 302 << "Search by Ingredient"
        << "Enter an ingredient name or part of one to search for and click on OK to start your search."
        << QStringList{};
    QTest::newRow("303") << 303 << "Search by Recipe"
                         << "Enter a word or phrase to search for and click on OK to start your search."
                         << QStringList{};
    QTest::newRow("304") << 304 << "Search by Glassware"
                         << "Select the glassware to search for and click on OK to start your search."
                         << QStringList{"Highball", "Cocktail", "Shot", "Punch Bowl"};
    QTest::newRow("305") << 305 << "Search by Category"
                         << "Select the category to search for and click on OK to start your search."
                         << QStringList{"Unknown / Other", "Long Drinks", "Sours"};
}

void tst_SearchDialogs::simpleKinds()
{
    QFETCH(int, kind);
    QFETCH(QString, caption);
    QFETCH(QString, prompt);
    QFETCH(QStringList, choices);
    TestStore store(book());
    frmSearch dialog(store.store());
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Search for Drinks by Name"));
    dialog.Setup(kind);
    QCOMPARE(dialog.windowTitle(), caption);
    QCOMPARE(child<QLabel>(&dialog, "Label1")->text(), prompt);
    const bool text = choices.isEmpty();
    QCOMPARE(child<QWidget>(&dialog, "SearchText")->isHidden(), !text);
    QCOMPARE(child<QWidget>(&dialog, "pnlMatch")->isHidden(), !text);
    auto *list = child<QComboBox>(&dialog, "cmbSearch");
    QCOMPARE(list->isHidden(), text);
    QCOMPARE(entries(list), choices);
    QCOMPARE(list->currentIndex(), text ? -1 : 0);
    if (kind == 304)
        QCOMPARE(list->itemData(3).toInt(), 4);
    QVERIFY(child<QRadioButton>(&dialog, "optMatchAll")->isChecked());
    QCOMPARE(child<QRadioButton>(&dialog, "optMatchAll")->text(), QStringLiteral("Match all instances"));
    QCOMPARE(child<QRadioButton>(&dialog, "optMatchFirst")->text(), QStringLiteral("Match first letters only"));
    QCOMPARE(child<QPushButton>(&dialog, "OK")->text(), QStringLiteral("&OK"));
    QCOMPARE(child<QPushButton>(&dialog, "Cancel")->text(), QStringLiteral("&Cancel"));
    screenshot(&dialog, QStringLiteral("frmSearch-%1").arg(kind));
}

void tst_SearchDialogs::simpleSearch()
{
    TestStore store(book());
    CDrinkFacade facade(store.store(), store.appDir());
    bool blankStayedOpen = false;
    onModal([&](QWidget *w) {
        auto *text = child<QLineEdit>(w, "SearchText");
        text->setText(QStringLiteral("   "));
        click(w, "OK");
        blankStayedOpen = w->isVisible() && text->text().isEmpty();
        text->setText(QStringLiteral("tonic"));
        click(w, "OK");
    });
    QVERIFY(ShowSearchDialog(301, store.store(), facade, nullptr));
    QVERIFY(blankStayedOpen);
    QCOMPARE(searchResults(store.store()), (QList<int>{1, 5}));

    onModal([](QWidget *w) {
        child<QComboBox>(w, "cmbSearch")->setCurrentIndex(1);
        click(w, "OK");
    });
    QVERIFY(ShowSearchDialog(304, store.store(), facade, nullptr));
    QCOMPARE(searchResults(store.store()), (QList<int>{2, 6}));

    onModal([](QWidget *w) {
        child<QLineEdit>(w, "SearchText")->setText(QStringLiteral("gin"));
        click(w, "Cancel");
    });
    QVERIFY(!ShowSearchDialog(302, store.store(), facade, nullptr));
    QCOMPARE(searchResults(store.store()), (QList<int>{2, 6}));
    QVERIFY(!ShowSearchDialog(308, store.store(), facade, nullptr));

    // The advanced search closed by its frame is no Cancel; Escape is.
    onModal([](QWidget *w) { w->close(); });
    QVERIFY(ShowSearchDialog(306, store.store(), facade, nullptr));
    onModal([](QWidget *w) { QTest::keyClick(w, Qt::Key_Escape); });
    QVERIFY(!ShowSearchDialog(306, store.store(), facade, nullptr));
}

void tst_SearchDialogs::advancedLoadAndClear()
{
    TestStore store(book());
    store.store().execute(QStringLiteral("INSERT INTO SavedSearch VALUES (1, 'Sours'), (2, 'Saved Search 1')"));
    frmAdvSearch dialog(store.store());
    QCOMPARE(dialog.palette().color(QPalette::Window), QColor(0xD0, 0xE0, 0xC0));
    verifyLoadedState(&dialog);
    QCOMPARE(entries(combo(&dialog, "cmbField", 3)),
             (QStringList{"Name", "Ingredient", "Category", "Recipe", "Comment", "Glassware", "Marked", "Price", "Cost",
                          "Rating", "Build", "Garnish"}));
    QCOMPARE(entries(combo(&dialog, "cmbOp", 4)), (QStringList{"And", "Or"}));
    QVERIFY(!dialog.findChild<QComboBox *>(QStringLiteral("cmbOp5")));
    auto *saved = child<QComboBox>(&dialog, "cmbSavedSearch");
    QCOMPARE(entries(saved), (QStringList{"<<Unsaved Search>>", "Sours", "Saved Search 1"}));
    QCOMPARE(saved->itemData(0).toInt(), 0);
    QCOMPARE(saved->itemData(2).toInt(), 2);
    QCOMPARE(child<QLabel>(&dialog, "lblSavedSearch")->text(), QStringLiteral("&Previously saved searches"));
    const std::pair<const char *, const char *> buttons[] = {{"cmdOK", "&Search"},  {"cmdCancel", "&Cancel"},
                                                             {"cmdClear", "&Clear"}, {"cmdSave", "S&ave"},
                                                             {"cmdDelete", "&Delete"}};
    for (const auto &[name, caption] : buttons)
        QCOMPARE(child<QPushButton>(&dialog, name)->text(), QString::fromLatin1(caption));
    screenshot(&dialog, QStringLiteral("frmAdvSearch-blank"));

    setRow(&dialog, 1, QStringLiteral("Glassware"), kEq, QStringLiteral("Shot"));
    setRow(&dialog, 2, QStringLiteral("Name"), kContains, QStringLiteral("x"));
    choose(saved, QStringLiteral("Sours"));
    click(&dialog, "cmdClear");
    verifyLoadedState(&dialog);
}

void tst_SearchDialogs::fieldChoice_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("field");
    QTest::addColumn<QStringList>("comparisons");
    QTest::addColumn<int>("selected");
    QTest::addColumn<QStringList>("values"); // empty: the text box
    const QStringList nameRow1{kEq, kStarts, kEnds, kContains}, nameRows{kEq, kGt, kLt, kContains};
    QTest::newRow("Name 1") << 1 << "Name" << nameRow1 << 3 << QStringList{};
    QTest::newRow("Name 2") << 2 << "Name" << nameRows << 3 << QStringList{};
    QTest::newRow("Ingredient 1") << 1 << "Ingredient" << nameRow1 << 3 << QStringList{};
    QTest::newRow("Ingredient 5") << 5 << "Ingredient" << nameRows << 3 << QStringList{};
    QTest::newRow("Recipe") << 1 << "Recipe" << QStringList{kEq, kContains} << 1 << QStringList{};
    QTest::newRow("Comment") << 3 << "Comment" << QStringList{kEq, kContains} << 1 << QStringList{};
    QTest::newRow("Price") << 1 << "Price" << QStringList{kEq, kGt, kLt} << 0 << QStringList{};
    QTest::newRow("Cost") << 2 << "Cost" << QStringList{kEq, kGt, kLt} << 0 << QStringList{};
    QTest::newRow("Category") << 1 << "Category" << QStringList{kEq} << 0
                              << QStringList{"Unknown / Other", "Long Drinks", "Sours"};
    QTest::newRow("Glassware") << 4 << "Glassware" << QStringList{kEq} << 0
                               << QStringList{"Highball", "Cocktail", "Shot", "Punch Bowl"};
    QTest::newRow("Rating") << 1 << "Rating" << QStringList{kEq} << 0 << QStringList{"Good", "Great"};
    QTest::newRow("Build") << 2 << "Build" << QStringList{kEq} << 0 << QStringList{"Shaken", "Stirred"};
    QTest::newRow("Garnish") << 1 << "Garnish" << QStringList{kEq} << 0 << QStringList{"Lime Wheel", "Cherry"};
    QTest::newRow("Marked") << 5 << "Marked" << QStringList{kEq} << 0 << QStringList{"Marked", "Unmarked"};
}

void tst_SearchDialogs::fieldChoice()
{
    QFETCH(int, row);
    QFETCH(QString, field);
    QFETCH(QStringList, comparisons);
    QFETCH(int, selected);
    QFETCH(QStringList, values);
    TestStore store(book());
    frmAdvSearch dialog(store.store());
    const QColor on = combo(&dialog, "cmbField", 1)->palette().color(QPalette::Base);
    for (int r = 1; r < row; ++r)
        choose(combo(&dialog, "cmbField", r), QStringLiteral("Price"));
    txtVal(&dialog, row)->setText(QStringLiteral("left over"));
    if (row < 5)
        combo(&dialog, "cmbOp", row)->setCurrentIndex(1);
    choose(combo(&dialog, "cmbField", row), field);

    auto *comp = combo(&dialog, "cmbComp", row);
    QCOMPARE(entries(comp), comparisons);
    QCOMPARE(comp->currentIndex(), selected);
    QCOMPARE(comp->palette().color(QPalette::Base), on);
    auto *list = combo(&dialog, "cmbVal", row);
    QCOMPARE(txtVal(&dialog, row)->isHidden(), !values.isEmpty());
    QCOMPARE(txtVal(&dialog, row)->text(), QString());
    QCOMPARE(list->isHidden(), values.isEmpty());
    QCOMPARE(entries(list), values);
    QCOMPARE(list->currentIndex(), values.isEmpty() ? -1 : 0);
    if (row < 5) {
        QCOMPARE(combo(&dialog, "cmbOp", row)->currentText(), QStringLiteral("And"));
        QVERIFY(combo(&dialog, "cmbField", row + 1)->isEnabled());
        QCOMPARE(combo(&dialog, "cmbField", row + 1)->palette().color(QPalette::Base), on);
    }
}

void tst_SearchDialogs::advancedSearch_data()
{
    QTest::addColumn<CriterionRows>("rows");
    QTest::addColumn<bool>("beeps");
    QTest::addColumn<QString>("problem"); // "": no message
    QTest::addColumn<QList<int>>("ids");  // SearchResults afterwards; it held 4 before
    const QList<int> before{4};
    QTest::newRow("no field, no text") << CriterionRows{} << true << "" << before;
    QTest::newRow("Marked alone runs") << criteria({{"Marked", kEq, "Unmarked", ""}}) << false << ""
                                       << QList<int>{2, 5, 6, 7, 8, 9, 10};
    QTest::newRow("A or B and C") << criteria({{"Name", kContains, "tonic", "Or"},
                                               {"Price", kGt, "4", "And"},
                                               {"Marked", kEq, "Marked", ""}})
                                  << false << "" << QList<int>{1, 4, 5};
    QTest::newRow("plain search finding nothing closes")
        << criteria({{"Name", kEq, "zzz", ""}}) << false << "" << QList<int>{};
    QTest::newRow("two ingredients") << criteria({{"Ingredient", kContains, "gin", "Or"},
                                                  {"Ingredient", kContains, "tonic", ""}})
                                     << false << "" << QList<int>{1};
    QTest::newRow("no candidate: beep, stays") << criteria({{"Ingredient", kEq, "zzz", ""}}) << true << "" << before;
    // The query finds Gin case-blind, the filter wants the exact case.
    QTest::newRow("all removed by the filter: beep, stays")
        << criteria({{"Ingredient", kEq, "gin", ""}}) << true << "" << before;
    // Typed text is data: a quote or a word where a number belongs never reaches the engine.
    QTest::newRow("price not a number") << criteria({{"Price", kLt, "3 OR 1=1", ""}}) << false << "" << QList<int>{};
    QTest::newRow("quote in a name") << criteria({{"Name", kContains, "O\"Neil", ""}}) << false << ""
                                     << QList<int>{10};
    QTest::newRow("quote in an ingredient")
        << criteria({{"Ingredient", kContains, "O\"Neil", ""}}) << true << "" << before;
    QTest::newRow("category") << criteria({{"Category", kEq, "Sours", ""}}) << false << "" << QList<int>{2, 4};
    // The store refuses the statement (its column is gone): the message, and the dialog stays.
    QTest::newRow("engine refuses") << criteria({{"Comment", kContains, "x", ""}}) << false << "problem"
                                    << before;
}

void tst_SearchDialogs::advancedSearch()
{
    QFETCH(CriterionRows, rows);
    QFETCH(bool, beeps);
    QFETCH(QString, problem);
    QFETCH(QList<int>, ids);
    TestStore store(book());
    store.store().execute(QStringLiteral("INSERT INTO SearchResults VALUES (4, 'Kamikaze')"));
    store.store().execute(QStringLiteral("INSERT INTO Drinks (id, Name) VALUES (10, 'The O\"Neil')"));
    if (!problem.isEmpty())
        store.store().execute(QStringLiteral("ALTER TABLE Drinks RENAME COLUMN Comments TO Remarks"));
    frmAdvSearch dialog(store.store());
    dialog.show();
    QSignalSpy beeped(&dialog, &frmAdvSearch::beeped);
    for (int i = 0; i < 5 && !rows[i].field.isEmpty(); ++i) {
        setRow(&dialog, i + 1, rows[i].field, rows[i].comparison, rows[i].value);
        if (i < 4 && !rows[i].connector.isEmpty())
            choose(combo(&dialog, "cmbOp", i + 1), rows[i].connector);
    }
    if (QTest::currentDataTag() == QLatin1String("A or B and C"))
        screenshot(&dialog, QStringLiteral("frmAdvSearch-rows"));
    Message seen;
    if (!problem.isEmpty())
        answerMessage(&dialog, QMessageBox::Ok, &seen);
    click(&dialog, "cmdOK");
    QCOMPARE(beeped.count(), beeps ? 1 : 0);
    QCOMPARE(dialog.isVisible(), beeps || !problem.isEmpty());
    QVERIFY(!dialog.WasCanceled());
    if (!problem.isEmpty()) {
        const QString prefix = QStringLiteral("There was a problem with the search: ");
        QCOMPARE(seen.title, QStringLiteral("Corvane"));
        QVERIFY2(seen.text.startsWith(prefix) && seen.text.size() > prefix.size(), qPrintable(seen.text));
    }
    QCOMPARE(searchResults(store.store()), ids);
    QCOMPARE(store.store().scalar(QStringLiteral("SELECT COUNT(*) FROM Drinks")).toInt(), 10);
}

void tst_SearchDialogs::savedSearchLoadsBackAfterRestart()
{
    TestStore store(book());
    {
        frmAdvSearch dialog(store.store());
        dialog.show();
        // Typed text goes back and forth as it stands.
        setRow(&dialog, 1, QStringLiteral("Name"), kContains, QStringLiteral("\"Gín\" 🍸"));
        combo(&dialog, "cmbOp", 1)->setCurrentIndex(1);
        setRow(&dialog, 2, QStringLiteral("Marked"), kEq, QStringLiteral("Marked"));
        setRow(&dialog, 3, QStringLiteral("Rating"), kEq, QStringLiteral("Great"));
        setRow(&dialog, 4, QStringLiteral("Glassware"), kEq, QStringLiteral("Shot"));
        QString label, title, proposed;
        onModal(
            [&](QWidget *w) {
                auto *input = qobject_cast<QInputDialog *>(w);
                QVERIFY(input);
                label = input->labelText();
                title = input->windowTitle();
                proposed = input->textValue();
                input->setTextValue(QStringLiteral("Gin or marked"));
                input->accept();
            },
            &dialog);
        click(&dialog, "cmdSave");
        QCOMPARE(label, QStringLiteral("Please enter a name for this search"));
        QCOMPARE(title, QStringLiteral("Save Search"));
        QCOMPARE(proposed, QStringLiteral("Saved Search 1"));
        auto *saved = child<QComboBox>(&dialog, "cmbSavedSearch");
        QCOMPARE(saved->currentText(), QStringLiteral("Gin or marked"));
        QCOMPARE(saved->currentData().toInt(), 1);
    }
    QCOMPARE(SavedSearch::load(store.store(), 1),
             (QStringList{"Name", kContains, "\"Gín\" 🍸", "Or", "Marked", kEq, "0", "And", "Rating", kEq, "", "And",
                          "Glassware", kEq, "3"}));

    DrinkStore restarted(store.storePath());
    frmAdvSearch dialog(restarted);
    for (int row = 1; row <= 5; ++row)
        setRow(&dialog, row, QStringLiteral("Comment"), kEq, QStringLiteral("row %1").arg(row));
    choose(child<QComboBox>(&dialog, "cmbSavedSearch"), QStringLiteral("Gin or marked"));
    QCOMPARE(combo(&dialog, "cmbComp", 1)->currentText(), kContains);
    QCOMPARE(txtVal(&dialog, 1)->text(), QStringLiteral("\"Gín\" 🍸"));
    // The stored connector, although choosing the field set "And" on the way.
    QCOMPARE(combo(&dialog, "cmbOp", 1)->currentText(), QStringLiteral("Or"));
    // Marked stored 0, which both entries carry: the last one wins.
    QCOMPARE(combo(&dialog, "cmbVal", 2)->currentText(), QStringLiteral("Unmarked"));
    // Rating stored its empty text box: the list shows its first entry.
    QCOMPARE(combo(&dialog, "cmbVal", 3)->currentText(), QStringLiteral("Good"));
    QCOMPARE(combo(&dialog, "cmbVal", 4)->currentText(), QStringLiteral("Shot"));
    // A row the search does not mention keeps what it held.
    QCOMPARE(txtVal(&dialog, 5)->text(), QStringLiteral("row 5"));
}

void tst_SearchDialogs::deleteAsksFirst()
{
    TestStore store(book());
    SavedSearch::save(store.store(), QStringLiteral("Sours"), {"Name", kContains, "sour"});
    frmAdvSearch dialog(store.store());
    dialog.show();
    auto *saved = child<QComboBox>(&dialog, "cmbSavedSearch");
    choose(saved, QStringLiteral("Sours"));
    QCOMPARE(txtVal(&dialog, 1)->text(), QStringLiteral("sour"));

    Message seen;
    answerMessage(&dialog, QMessageBox::No, &seen);
    click(&dialog, "cmdDelete");
    QCOMPARE(seen.title, QStringLiteral("Delete Saved Search"));
    QCOMPARE(seen.text, QStringLiteral("Are you sure that you want to delete the 'Sours'?"));
    QCOMPARE(seen.icon, QMessageBox::Warning);
    QCOMPARE(saved->count(), 2);

    answerMessage(&dialog, QMessageBox::Yes, &seen);
    click(&dialog, "cmdDelete");
    QCOMPARE(entries(saved), QStringList{"<<Unsaved Search>>"});
    verifyLoadedState(&dialog);
    QCOMPARE(store.store().scalar(QStringLiteral("SELECT COUNT(*) FROM SavedSearchDef")).toInt(), 0);
    // Entry 0 is nothing to delete: no question (one would block here).
    click(&dialog, "cmdDelete");
}

void tst_SearchDialogs::findSimilar_data()
{
    QTest::addColumn<int>("drink");
    QTest::addColumn<QStringList>("ingredients");
    QTest::newRow("seven lines fill five rows") << 9 << QStringList{"Vodka", "Rum", "Gin", "Tequila", "Triple Sec"};
    QTest::newRow("two lines") << 1 << QStringList{"Gin", "Tonic Water"};
    QTest::newRow("no lines: blank") << 7 << QStringList{};
}

void tst_SearchDialogs::findSimilar()
{
    QFETCH(int, drink);
    QFETCH(QStringList, ingredients);
    TestStore store(book());
    CDrinkFacade facade(store.store(), store.appDir());
    facade.setCurrentDrinkID(drink);
    QStringList rows;
    onModal([&](QWidget *w) {
        for (int row = 1; row <= 5; ++row)
            rows << QStringList{combo(w, "cmbField", row)->currentText(), combo(w, "cmbComp", row)->currentText(),
                                txtVal(w, row)->text(), row < 5 ? combo(w, "cmbOp", row)->currentText() : "-"}
                        .join(u'|');
        if (drink == 9)
            screenshot(w, QStringLiteral("frmAdvSearch-similar"));
        click(w, "cmdCancel");
    });
    QVERIFY(!ShowSearchDialog(307, store.store(), facade, nullptr));
    QStringList expected;
    for (int row = 0; row < 5; ++row) {
        const QString last = row == 4 ? QStringLiteral("-") : QString();
        expected << (row < ingredients.size()
                         ? QStringList{"Ingredient", kContains, ingredients[row], row == 4 ? "-" : "And"}.join(u'|')
                         : QStringList{"", "", "", last}.join(u'|'));
    }
    QCOMPARE(rows, expected);
}

QTEST_MAIN(tst_SearchDialogs)
#include "tst_searchdialogs.moc"
