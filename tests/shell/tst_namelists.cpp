// Names in the main window's lists as a reader looks for them: under their letter whatever
// their accent, and found by the quick search whatever is typed.
#include "TestStore.h"
#include "base/AppPaths.h"
#include "base/modCorvane.h"
#include "presentation/DrinkListModel.h"
#include "shell/frmMain.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QtTest>

class tst_NameLists : public QObject {
    Q_OBJECT
private slots:
    void lettersAndQuickSearch();
};

namespace {
QStringList shown(frmMain &w)
{
    QStringList names;
    for (int row = 0; row < w.listModel()->rowCount(); ++row)
        names << w.listModel()->index(row, DrinkListModel::NameColumn).data().toString();
    return names;
}
} // namespace

void tst_NameLists::lettersAndQuickSearch()
{
    modCorvane::state() = modCorvane::State();
    TestStore book(QStringLiteral(
        "INSERT INTO Drinks (id, Name) VALUES (1, 'Éclair Fizz'), (2, 'Eggnog'), (3, 'Zombie'), (4, 'Jungle Bird'), "
        "(5, 'Jägerbomb'), (6, 'The \"Big\" Easy'), (7, 'Piña Colada'), (8, 'Pisco Sour');"));
    AppPaths::setAppDir(book.appDir());
    frmMain w;
    QVERIFY(w.Form_Load(QString()));
    // No engine error may reach the user on the way.
    bool messaged = false;
    QTimer watch;
    connect(&watch, &QTimer::timeout, [&] {
        if (auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget())) {
            messaged = true;
            box->accept();
        }
    });
    watch.start(20);

    w.RunCommand(201);
    QTest::mouseClick(w.findChild<QLabel *>(QStringLiteral("pnlListSet5")), Qt::LeftButton);
    QCOMPARE(shown(w), (QStringList{"Éclair Fizz", "Eggnog"}));
    QTest::mouseClick(w.findChild<QLabel *>(QStringLiteral("pnlListSet10")), Qt::LeftButton);
    QCOMPARE(shown(w), (QStringList{"Jägerbomb", "Jungle Bird"}));

    w.RunCommand(207);
    QCOMPARE(shown(w), (QStringList{"Éclair Fizz", "Eggnog", "Jägerbomb", "Jungle Bird", "Piña Colada", "Pisco Sour",
                                    "The \"Big\" Easy", "Zombie"}));
    auto *quick = w.findChild<QLineEdit *>(QStringLiteral("txtQuickSearch"));
    const QList<std::pair<QString, QStringList>> typed = {
        {QStringLiteral("ecl"), {"Éclair Fizz"}},
        {QStringLiteral("PINA"), {"Piña Colada"}},
        {QStringLiteral("The \"B"), {"The \"Big\" Easy"}},
        {QStringLiteral("\""), {}},
        {QStringLiteral("[z"), {}},
    };
    for (const auto &[text, names] : typed) {
        quick->setText(text);
        QTRY_COMPARE(shown(w), names);
    }
    QVERIFY(!messaged);
}

QTEST_MAIN(tst_NameLists)
#include "tst_namelists.moc"
