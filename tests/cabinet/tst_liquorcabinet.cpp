// The cabinet's scan over a small book, its tree of ingredients and its printed listing.
#include "CabinetBook.h"
#include "TestStore.h"
#include "cabinet/CabinetReport.h"
#include "cabinet/LiquorCabinet.h"
#include "store/StoreError.h"

#include <QPdfWriter>
#include <QTemporaryDir>
#include <algorithm>
#include <QtTest>

using namespace LiquorCabinet;

namespace {

std::vector<qint32> vec(const IdList &ids)
{
    return {ids.begin(), ids.end()};
}

} // namespace

class tst_LiquorCabinet : public QObject {
    Q_OBJECT
private slots:
    void isIngredientSelected_data();
    void isIngredientSelected();
    void findMatches_data();
    void findMatches();
    void stopLeavesPartialState_data();
    void stopLeavesPartialState();
    void failureKeepsEarlierState_data();
    void failureKeepsEarlierState();
    void treeFromIngredientList();
    void reportDate_data();
    void reportDate();
    void reportLayout();
    void reportRunsOverPages();
};

void tst_LiquorCabinet::isIngredientSelected_data()
{
    QTest::addColumn<IdList>("ids");
    QTest::addColumn<qint32>("id");
    QTest::addColumn<bool>("expected");
    const IdList five = {2, 5, 9, 40, 41};
    QTest::newRow("empty") << IdList{} << 0 << false;
    QTest::newRow("one") << IdList{7} << 7 << true;
    QTest::newRow("first") << five << 2 << true;
    QTest::newRow("last") << five << 41 << true;
    QTest::newRow("middle") << five << 9 << true;
    QTest::newRow("below all") << five << 1 << false;
    QTest::newRow("above all") << five << 42 << false;
    QTest::newRow("between") << five << 10 << false;
    QTest::newRow("largest id") << IdList{1, 2147483647} << 2147483647 << true;
}

void tst_LiquorCabinet::isIngredientSelected()
{
    QFETCH(IdList, ids);
    QFETCH(qint32, id);
    QFETCH(bool, expected);
    QCOMPARE(IsIngredientSelected(vec(ids), id), expected);
}

void tst_LiquorCabinet::findMatches_data()
{
    QTest::addColumn<IdList>("ticked");
    QTest::addColumn<IdList>("expectedSelected");
    QTest::addColumn<IdList>("expectedMarked");
    // 18 has no line and 11, 99 have no drink: none of them is ever marked, and the marks
    // 16 and 18 carried from before are gone unless earned again.
    QTest::newRow("the stored ticks") << IdList{1, 4, 5} << IdList{1, 4, 5} << IdList{10, 16};
    QTest::newRow("one missing ingredient") << IdList{1, 2} << IdList{1, 2} << IdList{16};
    QTest::newRow("everything") << IdList{1, 2, 3, 4, 5, 6, 7} << IdList{1, 2, 3, 4, 5, 6, 7} << IdList{10, 12, 14, 16};
    QTest::newRow("ticks in any order") << IdList{5, 4, 3, 2, 1} << IdList{1, 2, 3, 4, 5} << IdList{10, 12, 14, 16};
    QTest::newRow("an id without an ingredient") << IdList{999, 1, 5} << IdList{1, 5} << IdList{10, 16};
    QTest::newRow("nothing") << IdList{} << IdList{} << IdList{};
}

void tst_LiquorCabinet::findMatches()
{
    QFETCH(IdList, ticked);
    QFETCH(IdList, expectedSelected);
    QFETCH(IdList, expectedMarked);
    TestStore book(cabinetBookSql());
    const ScanOutcome outcome = FindMatches(book.store(), vec(ticked));
    QVERIFY(outcome.completed);
    QCOMPARE(outcome.total, 5);
    QCOMPARE(outcome.matches, expectedMarked.size());
    QCOMPARE(selected(book.store()), expectedSelected);
    QCOMPARE(marked(book.store()), expectedMarked);
    QCOMPARE(book.store().scalar(QStringLiteral("SELECT COUNT(*) FROM Drinks")).toInt(), 5);
}

void tst_LiquorCabinet::stopLeavesPartialState_data()
{
    QTest::addColumn<int>("stopAt"); // the counter at which the callback asks to stop; 0: never
    QTest::addColumn<int>("ask");    // which question at that counter says stop
    QTest::addColumn<IdList>("expectedSelected");
    QTest::addColumn<IdList>("expectedMarked");
    // One step per group of lines in drink order: 10, 11 (no drink), 12, 14, 16, 99 (no drink);
    // so the counter ends at 7 for 5 drinks. The ticks are stored whatever happens to the scan.
    const IdList all = {1, 2, 3, 4, 5};
    QTest::newRow("before the first drink") << 1 << 1 << all << IdList{};
    QTest::newRow("the drink in progress is not marked") << 2 << 1 << all << IdList{};
    QTest::newRow("after a drink without a row") << 3 << 1 << all << IdList{10};
    QTest::newRow("after three drinks") << 5 << 1 << all << IdList{10, 12};
    QTest::newRow("after the last") << 7 << 1 << all << IdList{10, 12, 14, 16};
    QTest::newRow("never") << 0 << 1 << all << IdList{10, 12, 14, 16};
    // The last count is asked again while the marks are written: Cancel then takes the whole
    // Find Matches back.
    QTest::newRow("while the marks are written") << 7 << 2 << IdList{1, 4, 5} << IdList{16, 18};
}

void tst_LiquorCabinet::stopLeavesPartialState()
{
    QFETCH(int, stopAt);
    QFETCH(int, ask);
    QFETCH(IdList, expectedSelected);
    QFETCH(IdList, expectedMarked);
    TestStore book(cabinetBookSql());
    QList<int> counters;
    const ScanOutcome outcome = FindMatches(book.store(), {1, 2, 3, 4, 5}, [&](int counter, int total) {
        counters.append(total == 5 ? counter : -counter);
        return counter == stopAt && counters.count(counter) == ask;
    });
    QCOMPARE(outcome.completed, stopAt == 0);
    QCOMPARE(outcome.undone, ask == 2);
    QList<int> steps = counters;
    steps.erase(std::unique(steps.begin(), steps.end()), steps.end());
    QCOMPARE(steps.size(), stopAt ? stopAt : 7);
    QCOMPARE(counters.last(), stopAt ? stopAt : 7);
    QCOMPARE(selected(book.store()), expectedSelected);
    QCOMPARE(marked(book.store()), expectedMarked);
}

void tst_LiquorCabinet::failureKeepsEarlierState_data()
{
    // The ticks and the marks are one transaction: a refused mark or tick changes neither.
    QTest::addColumn<QString>("trigger");
    QTest::newRow("marks refused") << "CREATE TRIGGER refuse BEFORE UPDATE OF LiqCab ON Drinks WHEN NEW.LiqCab = 1 "
                                      "BEGIN SELECT RAISE(ABORT, 'refused'); END;";
    QTest::newRow("tick refused")
        << "CREATE TRIGGER refuse BEFORE UPDATE OF Selected ON Ingredients WHEN NEW.id = 3 AND NEW.Selected = 1 "
           "BEGIN SELECT RAISE(ABORT, 'refused'); END;";
}

void tst_LiquorCabinet::failureKeepsEarlierState()
{
    QFETCH(QString, trigger);
    TestStore book(cabinetBookSql() + trigger);
    QVERIFY_THROWS_EXCEPTION(StoreError, FindMatches(book.store(), {1, 2, 3, 4, 5}));
    QCOMPARE(selected(book.store()), (IdList{1, 4, 5}));
    QCOMPARE(marked(book.store()), (IdList{16, 18}));
}

void tst_LiquorCabinet::treeFromIngredientList()
{
    TestStore book(cabinetBookSql());
    QStringList got;
    for (const Node &n : LoadCabinetTree(book.store())) {
        got << QStringLiteral("%1 %2 '%3' %4 %5 %6")
                   .arg(n.level)
                   .arg(n.parent)
                   .arg(n.text, n.key, n.tag, n.checked ? QStringLiteral("x") : QStringLiteral("-"));
    }
    // Level, parent, text, key, tag, checked. A type or sub type without an id is keyed by the
    // node count plus 1 (which may repeat another node's key: "S2"); a type without a row and a
    // sub type 0 show an empty text; each type starts its own sub types, even an empty one
    // following another empty one. Parents are checked when all below them are.
    const QStringList expected = {
        "1 -1 '' C9 9 -",         "2 0 '' S2 0 -",           "3 1 'Mystery' I7 7 -",     "1 -1 'Mixers' C2 2 x",
        "2 3 '' S5 0 x",          "3 4 'Tonic' I5 5 x",      "2 3 'Juice' S3 3 x",       "3 6 'Lime Juice' I4 4 x",
        "1 -1 'Spirits' C1 1 -",  "2 8 'Gin' S1 1 x",        "3 9 'Gin' I1 1 x",         "2 8 'Rum' S2 2 -",
        "3 11 'Dark Rum' I3 3 -", "3 11 'Light Rum' I2 2 -", "1 -1 'Undefined' C15 0 -", "2 14 '' S16 0 -",
        "3 15 'Bitters' I6 6 -",
    };
    QCOMPARE(got, expected);
}

void tst_LiquorCabinet::reportDate_data()
{
    QTest::addColumn<QDateTime>("when");
    QTest::addColumn<QString>("expected");
    const QDate d(2024, 3, 7);
    QTest::newRow("evening") << QDateTime(d, QTime(21, 5)) << "03/07/2024 09:05 pm";
    QTest::newRow("midnight") << QDateTime(d, QTime(0, 0)) << "03/07/2024 12:00 am";
    QTest::newRow("noon") << QDateTime(d, QTime(12, 0)) << "03/07/2024 12:00 pm";
    QTest::newRow("before noon") << QDateTime(d, QTime(11, 59, 59)) << "03/07/2024 11:59 am";
    QTest::newRow("december") << QDateTime(QDate(1999, 12, 31), QTime(23, 59)) << "12/31/1999 11:59 pm";
}

void tst_LiquorCabinet::reportDate()
{
    QFETCH(QDateTime, when);
    QFETCH(QString, expected);
    QCOMPARE(CabinetReport::DateText(when), expected);
}

void tst_LiquorCabinet::reportLayout()
{
    const std::vector<CabinetReport::Line> lines = {
        {"Mixers", "Juice", "Lime Juice"},
        {"Mixers", "Juice", "Orange Juice"},
        {"Mixers", "Soda", "Tonic"},
        // The same sub type text under the next type is not printed again.
        {"Spirits", "Soda", "Soda Gin"},
        {"Spirits", "Gin", "Gin"},
    };
    QStringList got;
    for (const CabinetReport::Piece &p : CabinetReport::Layout(lines, QDateTime(QDate(2024, 3, 7), QTime(9, 5))))
        got << QStringLiteral("%1|%2%3|%4%5")
                   .arg(p.text)
                   .arg(p.pointSize)
                   .arg(p.bold ? "b" : "")
                   .arg(p.xTwips)
                   .arg(p.endsLine ? "|" : "");
    const QStringList expected = {
        "Corvane Selected Ingredients Listing|16b|0|",
        "03/07/2024 09:05 am|8|0|",
        "|8|0|",
        "|8|0|",
        "Mixers|10b|720",
        "Juice|10b|3600",
        "Lime Juice|10|6480|",
        "Orange Juice|10|6480|",
        "Soda|10b|3600",
        "Tonic|10|6480|",
        "Spirits|10b|720",
        "Soda Gin|10|6480|",
        "Gin|10b|3600",
        "Gin|10|6480|",
    };
    QCOMPARE(got, expected);
}

void tst_LiquorCabinet::reportRunsOverPages()
{
    QTemporaryDir dir;
    const QString file = dir.filePath(QStringLiteral("report.pdf"));
    std::vector<CabinetReport::Line> lines;
    for (int i = 0; i < 200; ++i)
        lines.push_back({"Type", "Sub", QStringLiteral("Ingredient %1").arg(i)});
    {
        QPdfWriter pdf(file);
        pdf.setPageSize(QPageSize(QPageSize::Letter));
        QVERIFY(CabinetReport::Print(pdf, CabinetReport::Layout(lines, QDateTime::currentDateTime())));
    }
    QFile f(file);
    QVERIFY(f.open(QIODevice::ReadOnly));
    const QByteArray bytes = f.readAll();
    QVERIFY(bytes.startsWith("%PDF"));
    // 204 lines of at least 8 points do not fit on one Letter page, nor on two.
    const qsizetype pages = bytes.count("/Type /Page\n") + bytes.count("/Type /Page\r") + bytes.count("/Type /Page ");
    QVERIFY2(pages >= 3, QByteArray::number(pages));
}

QTEST_MAIN(tst_LiquorCabinet)
#include "tst_liquorcabinet.moc"
