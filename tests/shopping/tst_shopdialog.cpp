// The shopping list window driven as a user drives it: choose drinks, make the list, save it,
// open it again, print it.
#include "GuiTest.h"
#include "ModalAnswers.h"
#include "TestFiles.h"
#include "TestStore.h"
#include "base/AppPaths.h"
#include "presentation/DrinkListModel.h"
#include "shopping/frmShopList.h"

#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>
#include <QTableWidget>
#include <QTemporaryDir>

namespace {

QString bookSql()
{
    return QStringLiteral(R"(
INSERT INTO Ingredients (id, Ingredient) VALUES (1, 'Gin'), (2, 'Lemon Juice'), (3, 'Soda'), (4, 'Vodka');
INSERT INTO Drinks (id, Name) VALUES (1, 'Gin Sour'), (2, 'Gin Fizz'), (3, 'Empty Glass'), (4, 'Lemon Drop'),
  (5, 'Caf' || char(233) || ' "Noir"');
INSERT INTO DrinkRel (DrinkID, IngID, seq, measure) VALUES
  (1, 1, 1, 2), (1, 2, 2, 0.75), (2, 1, 1, 2), (2, 3, 2, 0), (4, 2, 1, 1), (4, 4, 2, 2), (5, 4, 1, 1.5);
)");
}

// The rows of a list or grid, columns joined by '|'; an empty cell is "".
QStringList entries(const QAbstractItemView *view)
{
    const QAbstractItemModel *m = view->model();
    QStringList out;
    for (int r = 0; r < m->rowCount(); ++r) {
        QStringList cells;
        for (int c = 0; c < m->columnCount(); ++c)
            cells << m->index(r, c).data().toString();
        out << cells.join(u'|');
    }
    return out;
}

void selectByName(QListWidget *list, const QStringList &names)
{
    for (int i = 0; i < list->count(); ++i)
        list->item(i)->setSelected(names.contains(list->item(i)->text()));
}

} // namespace

class tst_ShopDialog : public QObject {
    Q_OBJECT
private slots:
    void init();
    void makeSaveOpenPrint();
    void refusals_data();
    void refusals();

private:
    std::unique_ptr<frmShopList> newDialog();

    std::unique_ptr<TestStore> m_book;
    DrinkListModel m_list;
};

void tst_ShopDialog::init()
{
    // The file dialogs are answered through their widgets, on any desktop.
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    m_book = std::make_unique<TestStore>(bookSql());
    AppPaths::setAppDir(m_book->appDir());
    m_list.load(m_book->store(), QStringLiteral("SELECT id, Name FROM Drinks ORDER BY Name"));
}

std::unique_ptr<frmShopList> tst_ShopDialog::newDialog()
{
    auto dlg = std::make_unique<frmShopList>(m_book->store());
    dlg->Setup(m_list);
    dlg->show();
    return dlg;
}

void tst_ShopDialog::makeSaveOpenPrint()
{
    auto dlg = newDialog();
    auto *source = child<QListWidget>(dlg.get(), "SourceList");
    auto *selected = child<QListWidget>(dlg.get(), "SelectedList");
    auto *grid = child<QTableWidget>(dlg.get(), "gridShopList");
    auto *num = child<QLineEdit>(dlg.get(), "NumDrinks");
    const QString cafe = QStringLiteral("Caf\u00e9 \"Noir\"");
    QCOMPARE(entries(source), (QStringList{cafe, "Empty Glass", "Gin Fizz", "Gin Sour", "Lemon Drop"}));
    QCOMPARE(grid->horizontalHeaderItem(1)->text(), QStringLiteral("Amount Required"));

    // Move two by selection, one by double click, and one back.
    selectByName(source, {"Gin Sour", cafe, "Lemon Drop"});
    child<QPushButton>(dlg.get(), "Add")->click();
    QCOMPARE(entries(selected), (QStringList{cafe, "Gin Sour", "Lemon Drop"}));
    QCOMPARE(entries(source), (QStringList{"Empty Glass", "Gin Fizz"}));
    emit source->itemDoubleClicked(source->item(1));
    selectByName(selected, {"Lemon Drop"});
    child<QPushButton>(dlg.get(), "Remove")->click();
    QCOMPARE(entries(selected), (QStringList{cafe, "Gin Sour", "Gin Fizz"}));

    num->setText(QStringLiteral("10"));
    child<QRadioButton>(dlg.get(), "English")->setChecked(true);
    child<QPushButton>(dlg.get(), "MakeList")->click();
    QCOMPARE(entries(grid), (QStringList{"Gin| 2 Quarts", "Lemon Juice| 8 Ounces", "Vodka| 2 Cups"}));

    // Saved; an overwrite refused leaves the file as it was.
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("party.LST"));
    ModalAnswers answers;
    answers.paths << path;
    child<QPushButton>(dlg.get(), "Command2")->click();
    QCOMPARE(answers.take(), QStringList{"Save Shopping List as"});
    const QByteArray saved = readFile(path);
    QCOMPARE(saved,
             QByteArray("Selected Drinks:\r\nCaf\xe9 \"Noir\"\r\nGin Sour\r\nGin Fizz\r\nNum Drinks:\r\n10\r\n"));
    num->setText(QStringLiteral("3"));
    answers.paths << path;
    answers.buttons << QMessageBox::No;
    child<QPushButton>(dlg.get(), "Command2")->click();
    QCOMPARE(answers.take(),
             (QStringList{"Save Shopping List as",
                          QStringLiteral("Shopping List|The file '%1' already exists.  Do you want ot overwrite it?")
                              .arg(path)}));
    QCOMPARE(readFile(path), saved);
    num->setText(QStringLiteral("10"));

    // Printed to PDF with the list as shown.
    const QString pdf = dir.filePath(QStringLiteral("list.pdf"));
    dlg->setPrintFile(pdf);
    child<QPushButton>(dlg.get(), "Print")->click();
    QVERIFY(readFile(pdf).startsWith("%PDF"));

    // Opened in a fresh window: the drinks are chosen by name and the list is made again.
    auto again = newDialog();
    answers.paths << path;
    child<QPushButton>(again.get(), "Command1")->click();
    QCOMPARE(answers.take(), QStringList{"Open Shopping List"});
    QCOMPARE(entries(child<QListWidget>(again.get(), "SelectedList")), (QStringList{cafe, "Gin Sour", "Gin Fizz"}));
    QCOMPARE(entries(child<QListWidget>(again.get(), "SourceList")), (QStringList{"Empty Glass", "Lemon Drop"}));
    QCOMPARE(child<QLineEdit>(again.get(), "NumDrinks")->text(), QStringLiteral("10"));
    // The unit family is not saved: the window's own (Bar) is used.
    QCOMPARE(entries(child<QTableWidget>(again.get(), "gridShopList")),
             (QStringList{"Gin| 2 Fifths", "Lemon Juice| 8 Ounces", "Vodka| 16 Ounces"}));

    // Opening it a second time: the drinks of the first opening are no longer available.
    answers.paths << path;
    child<QPushButton>(again.get(), "Command1")->click();
    QVERIFY(entries(child<QListWidget>(again.get(), "SelectedList")).isEmpty());
    QCOMPARE(answers.take(), (QStringList{"Open Shopping List",
                                          "Corvane|Please select the drinks you want the shopping list for."}));

    child<QPushButton>(again.get(), "ClearList")->click();
    QCOMPARE(entries(child<QTableWidget>(again.get(), "gridShopList")), QStringList{"|"});
}

void tst_ShopDialog::refusals_data()
{
    QTest::addColumn<QString>("number");     // typed before Make List; "" when a file is opened
    QTest::addColumn<QByteArray>("file");    // opened, "-" for a missing one; "" when none
    QTest::addColumn<QString>("message");    // %1: the file's path
    QTest::addColumn<QStringList>("chosen"); // the selection afterwards
    QTest::addColumn<QStringList>("grid");
    const QString badNumber =
        QStringLiteral("Corvane|Please enter a number greater than or equal to 1 for the number of drinks to make.");
    const QStringList fizz{"Gin Fizz"}, made{"Gin| 2 Fifths"}, blank{"|"};
    QTest::newRow("zero") << "0" << QByteArray() << badNumber << fizz << blank;
    QTest::newRow("2.5 is 2") << "2.5" << QByteArray() << "" << fizz << QStringList{"Gin| 5 Ounces"};
    QTest::newRow("3.5 is 4") << "3.5" << QByteArray() << "" << fizz << QStringList{"Gin| 9 Ounces"};
    QTest::newRow("missing file") << "" << QByteArray("-") << "Shopping List|The file '%1' Could not be found." << fizz
                                  << made;
    QTest::newRow("not a list") << "" << QByteArray("Drinks:\r\nGin Sour\r\n")
                                << "Shopping List|This file is not in the correct format for a saved shopping list."
                                << fizz << made;
    QTest::newRow("list ends before its number")
        << "" << QByteArray("Selected Drinks:\r\n  Gin Sour \r\nNo Such Drink\r\n") << "" << QStringList{"Gin Sour"}
        << blank;
}

void tst_ShopDialog::refusals()
{
    QFETCH(QString, number);
    QFETCH(QByteArray, file);
    QFETCH(QString, message);
    QFETCH(QStringList, chosen);
    QFETCH(QStringList, grid);
    // A list made before, to see what each refusal leaves of it.
    auto dlg = newDialog();
    selectByName(child<QListWidget>(dlg.get(), "SourceList"), {"Gin Fizz"});
    child<QPushButton>(dlg.get(), "Add")->click();
    auto *num = child<QLineEdit>(dlg.get(), "NumDrinks");
    num->setText(QStringLiteral("20"));
    child<QPushButton>(dlg.get(), "MakeList")->click();

    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("saved.LST"));
    ModalAnswers answers;
    QStringList modals;
    if (file.isEmpty()) {
        num->setText(number);
    } else {
        if (file != "-")
            QVERIFY(writeFile(path, file));
        answers.paths << path;
        modals << "Open Shopping List";
    }
    if (!message.isEmpty())
        modals << (message.contains(u'%') ? message.arg(path) : message);
    child<QPushButton>(dlg.get(), file.isEmpty() ? "MakeList" : "Command1")->click();
    QCOMPARE(answers.take(), modals);
    QCOMPARE(entries(child<QListWidget>(dlg.get(), "SelectedList")), chosen);
    QCOMPARE(entries(child<QTableWidget>(dlg.get(), "gridShopList")), grid);
    // A list that is not read leaves the number as it was.
    if (!file.isEmpty())
        QCOMPARE(num->text(), QStringLiteral("20"));
}

QTEST_MAIN(tst_ShopDialog)
#include "tst_shopdialog.moc"
