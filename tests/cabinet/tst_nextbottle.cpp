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

    // Gin and Tonic, ticked twice and out of order. Rum and Vodka both unlock one drink and
    // bring one near: the name decides. Lime Juice unlocks as many but brings none near. Cola,
    // Soda: only near, by name.
    QTest::newRow("ticks in any order") << IdList{5, 1, 5} << IdList{20} << "21:2 22:4 30:3"
                                        << "25:3+9 26:2+6"
                                        << "3:1/1 2:1/1 4:1/0 9:0/1 6:0/1";
    // Gimlet names Lime Juice twice: one bottle short, not two.
    QTest::newRow("empty cabinet") << IdList{} << IdList{} << "30:3"
                                   << "20:1+5 21:2+5 22:1+4 25:3+9 26:2+6"
                                   << "3:1/1 1:0/2 5:0/2 2:0/2 9:0/1 4:0/1 6:0/1";
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
        QCOMPARE(rankingText(Look(book, StoredTicks(m_book->store())).ranking), rankingText(seen.ranking));
    }
    // Each candidate's unlocked drinks are the near matches it alone completes.
    for (const Candidate &c : seen.ranking)
        QCOMPARE(int(DrinksUnlockedBy(seen, c.ingredientId).size()), c.unlocks);
}

QTEST_GUILESS_MAIN(tst_NextBottle)
#include "tst_nextbottle.moc"
