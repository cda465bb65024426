// The next bottle over a small book whose answers were worked out by hand.
#include "CabinetBook.h"
#include "NextBottleBook.h"
#include "TestStore.h"
#include "cabinet/LiquorCabinet.h"
#include "cabinet/NextBottle.h"

#include <QtTest>

using namespace NextBottle;

namespace {

// "drink:missing" per near match, a second missing bottle after "+".
QString nearText(const std::vector<NearMatch> &matches)
{
    QStringList parts;
    for (const NearMatch &m : matches)
        parts << QString::number(m.drinkId) + u':' + QString::number(m.missing[0]) +
                     (m.missing[1] ? u'+' + QString::number(m.missing[1]) : QString());
    return parts.join(u' ');
}

// "ingredient:unlocks/brought near" in ranking order.
QString rankingText(const std::vector<Candidate> &ranking)
{
    QStringList parts;
    for (const Candidate &c : ranking)
        parts << QStringLiteral("%1:%2/%3").arg(c.ingredientId).arg(c.unlocks).arg(c.bringsNear);
    return parts.join(u' ');
}

} // namespace

class tst_NextBottle : public QObject {
    Q_OBJECT
  private slots:
    void init() { m_book = std::make_unique<TestStore>(nextBottleBookSql()); }
    void cleanup() { m_book.reset(); }
    void outlook_data();
    void outlook();
    void unlockedDrinksShownAsSearch_data();
    void unlockedDrinksShownAsSearch();
    void bookOfNothing();

  private:
    std::unique_ptr<TestStore> m_book;
};

void tst_NextBottle::outlook_data()
{
    QTest::addColumn<IdList>("ticks");
    QTest::addColumn<IdList>("canMake");
    QTest::addColumn<QString>("missingOne");
    QTest::addColumn<QString>("missingTwo");
    QTest::addColumn<QString>("ranking");

    // Rum and Vodka both unlock one drink and bring one near: the name decides. Lime Juice
    // unlocks as many but brings none near. Cola, Soda: only near, by name.
    QTest::newRow("gin and tonic") << IdList{1, 5} << IdList{20} << "21:2 22:4 30:3"
                                   << "25:3+9 26:2+6"
                                   << "3:1/1 2:1/1 4:1/0 9:0/1 6:0/1";
    QTest::newRow("ticks in any order") << IdList{5, 1, 5} << IdList{20} << "21:2 22:4 30:3"
                                        << "25:3+9 26:2+6"
                                        << "3:1/1 2:1/1 4:1/0 9:0/1 6:0/1";
    // Gimlet names Lime Juice twice: one bottle short, not two.
    QTest::newRow("empty cabinet") << IdList{} << IdList{} << "30:3"
                                   << "20:1+5 21:2+5 22:1+4 25:3+9 26:2+6"
                                   << "3:1/1 1:0/2 5:0/2 2:0/2 9:0/1 4:0/1 6:0/1";
    // The drinks without a line, with an empty line or a line of no ingredient stay out.
    QTest::newRow("everything") << IdList{1, 2, 3, 4, 5, 6, 7, 8, 9} << IdList{20, 21, 22, 23, 24, 25, 26, 30} << ""
                                << ""
                                << "";
    QTest::newRow("a mojito bar") << IdList{3, 4, 6, 7, 8} << IdList{23, 30} << "22:1 24:9 25:9 26:2"
                                  << "20:1+5 21:2+5"
                                  << "9:2/0 1:1/1 2:1/1 5:0/2";
    QTest::newRow("one short of the mojito") << IdList{3, 4, 6, 7} << IdList{30} << "22:1 23:8 24:9 25:9 26:2"
                                             << "20:1+5 21:2+5"
                                             << "9:2/0 1:1/1 2:1/1 8:1/0 5:0/2";
}

void tst_NextBottle::outlook()
{
    QFETCH(IdList, ticks);
    const Book book = LoadBook(m_book->store());
    const Outlook seen = Look(book, {ticks.begin(), ticks.end()});
    QFETCH(IdList, canMake);
    QCOMPARE(IdList(seen.canMake.begin(), seen.canMake.end()), canMake);
    QTEST(nearText(seen.missingOne), "missingOne");
    QTEST(nearText(seen.missingTwo), "missingTwo");
    QTEST(rankingText(seen.ranking), "ranking");

    // The drinks it can make are the ones the cabinet's own scan marks for the same ticks.
    if (!ticks.isEmpty()) {
        LiquorCabinet::FindMatches(m_book->store(), {ticks.begin(), ticks.end()});
        QCOMPARE(marked(m_book->store()), canMake);
    }
    // Each candidate's unlocked drinks are the near matches it alone completes.
    for (const Candidate &c : seen.ranking)
        QCOMPARE(int(DrinksUnlockedBy(seen, c.ingredientId).size()), c.unlocks);
}

void tst_NextBottle::unlockedDrinksShownAsSearch_data()
{
    QTest::addColumn<IdList>("ticks"); // empty: the ticks the store holds (Gin, Tonic)
    QTest::addColumn<qint32>("bottle");
    QTest::addColumn<QStringList>("shown");

    QTest::newRow("stored ticks, vodka") << IdList{} << 2 << QStringList{"Vodka Tonic"};
    QTest::newRow("mojito bar, cola") << IdList{3, 4, 6, 7, 8} << 9 << QStringList{"Cuba Libre", "Rum and Cola"};
    // Owned already, or only brings drinks near: nothing to show, and the old results go.
    QTest::newRow("owned bottle") << IdList{} << 1 << QStringList{};
    QTest::newRow("only brings near") << IdList{} << 6 << QStringList{};
}

void tst_NextBottle::unlockedDrinksShownAsSearch()
{
    QFETCH(IdList, ticks);
    QFETCH(qint32, bottle);
    DrinkStore &store = m_book->store();
    store.execute(QStringLiteral("INSERT INTO SearchResults (ID, Name) VALUES (23, 'Mojito')"));
    const std::vector<qint32> owned =
        ticks.isEmpty() ? StoredTicks(store) : std::vector<qint32>(ticks.begin(), ticks.end());
    if (ticks.isEmpty())
        QCOMPARE(owned, (std::vector<qint32>{1, 5}));

    const Book book = LoadBook(store);
    ShowAsSearchResults(store, book, DrinksUnlockedBy(Look(book, owned), bottle));
    QStringList shown;
    QSqlQuery rows = store.select(QStringLiteral("SELECT Name FROM SearchResults ORDER BY Name"));
    while (rows.next())
        shown << rows.value(0).toString();
    QTEST(shown, "shown");
}

// A new book: no drink, no ingredient, and nothing to rank.
void tst_NextBottle::bookOfNothing()
{
    TestStore empty;
    const Book book = LoadBook(empty.store());
    const Outlook seen = Look(book, {1, 2});
    QVERIFY(seen.canMake.empty() && seen.missingOne.empty() && seen.missingTwo.empty() && seen.ranking.empty());
    QCOMPARE(book.firstLine.size(), std::size_t(1));
}

QTEST_GUILESS_MAIN(tst_NextBottle)
#include "tst_nextbottle.moc"
