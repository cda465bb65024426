// Saved searches: the line layout of the rows, the default name, and the tables behind them.
#include "SearchBook.h"
#include "TestStore.h"
#include "search/SavedSearch.h"

#include <QtTest>

class tst_SavedSearch : public QObject {
    Q_OBJECT
  private slots:
    void lines_data();
    void lines();
    void defaultName_data();
    void defaultName();
    void idFollowsLastRowAndRemoveTakesOne();
};

void tst_SavedSearch::lines_data()
{
    QTest::addColumn<CriterionRows>("rows");
    QTest::addColumn<QStringList>("lines");
    QTest::newRow("no row, no line") << CriterionRows{} << QStringList{};
    QTest::newRow("last row has no connector")
        << criteria({{"Name", kContains, "gin", "And"}}) << QStringList{"Name", kContains, "gin"};
    QTest::newRow("two rows, empty value kept") << criteria({{"Rating", kEq, "", "Or"}, {"Marked", kEq, "0", "And"}})
                                                << QStringList{"Rating", kEq, "", "Or", "Marked", kEq, "0"};
    CriterionRows five;
    QStringList nineteen;
    for (size_t i = 0; i < 5; ++i) {
        five[i] = {QStringLiteral("Price"), kEq, QString::number(i),
                   i % 2 ? QStringLiteral("Or") : QStringLiteral("And")};
        nineteen << "Price" << kEq << QString::number(i);
        if (i < 4)
            nineteen << five[i].connector;
    }
    QTest::newRow("five rows, nineteen lines") << five << nineteen;
}

void tst_SavedSearch::lines()
{
    QFETCH(CriterionRows, rows);
    QFETCH(QStringList, lines);
    QCOMPARE(SavedSearch::linesOf(rows), lines);
    const QList<SavedSearch::LoadedRow> back = SavedSearch::rowsOf(lines);
    QCOMPARE(back.size(),
             std::count_if(rows.begin(), rows.end(), [](const CriterionRow &r) { return !r.field.isEmpty(); }));
    for (qsizetype i = 0; i < back.size(); ++i) {
        QCOMPARE(back[i].field, rows[i].field);
        QCOMPARE(back[i].value, rows[i].value);
        QCOMPARE(back[i].hasConnector, i + 1 < back.size());
    }
}

void tst_SavedSearch::defaultName_data()
{
    QTest::addColumn<QStringList>("entries");
    QTest::addColumn<QString>("name");
    QTest::newRow("first") << QStringList{"<<Unsaved Search>>"} << "Saved Search 1";
    QTest::newRow("others don't count") << QStringList{"<<Unsaved Search>>", "Sours", "saved search 4"}
                                        << "Saved Search 1";
    QTest::newRow("a count, not a number in use")
        << QStringList{"<<Unsaved Search>>", "Saved Search 2"} << "Saved Search 2";
    QTest::newRow("Saved Searches counts too") << QStringList{"Saved Searches", "Saved Search 1"} << "Saved Search 3";
    QTest::newRow("twelve characters exactly") << QStringList{"Saved Searc", "Saved Search"} << "Saved Search 2";
}

void tst_SavedSearch::defaultName()
{
    QFETCH(QStringList, entries);
    QFETCH(QString, name);
    QCOMPARE(SavedSearch::defaultName(entries), name);
}

// A search saved from the dialog and read back after a restart, with typed quotes, is the
// dialogs' own test; here the ids, the stored line numbers, and removing one search only.
void tst_SavedSearch::idFollowsLastRowAndRemoveTakesOne()
{
    // The last row, not the largest id; lines left under the new id go first.
    TestStore book(QStringLiteral("INSERT INTO SavedSearch VALUES (7, 'Seven'), (3, 'Three');"
                                  "INSERT INTO SavedSearchDef VALUES (4, 0, 'stale'), (4, 1, 'lines'), (3, 0, 'x');"));
    DrinkStore &s = book.store();
    QCOMPARE(SavedSearch::save(s, QStringLiteral("New"), {"Cost", kEq, "1"}), 4);
    QCOMPARE(SavedSearch::load(s, 4), (QStringList{"Cost", kEq, "1"}));
    QCOMPARE(s.scalar(QStringLiteral("SELECT MIN(seq) || '-' || MAX(seq) FROM SavedSearchDef WHERE SearchID = 4"))
                 .toString(),
             QStringLiteral("0-2"));
    SavedSearch::remove(s, 3);
    QCOMPARE(SavedSearch::list(s), (QList<QPair<qint32, QString>>{{7, "Seven"}, {4, "New"}}));
    QCOMPARE(s.scalar(QStringLiteral("SELECT COUNT(*) FROM SavedSearchDef")).toInt(), 3);
}

QTEST_GUILESS_MAIN(tst_SavedSearch)
#include "tst_savedsearch.moc"
