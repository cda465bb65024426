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
    void outlook();
};

// Gin and Tonic owned, ticked twice and out of order. Broken, Ghost and Empty Glass are never
// makeable, nor the lines of no drink near. Gimlet names Lime Juice twice: one bottle short, not
// two. Rum and Vodka both unlock one drink and bring one near: the name decides. Lime Juice
// unlocks as many but brings none near. Cola, Soda: only near, by name.
void tst_NextBottle::outlook()
{
    TestStore book(nextBottleBookSql());
    const IdList ticks{5, 1, 5};
    const Book loaded = LoadBook(book.store());
    const Outlook seen = Look(loaded, {ticks.begin(), ticks.end()});
    QCOMPARE(IdList(seen.canMake.begin(), seen.canMake.end()), IdList{20});
    QCOMPARE(nearText(seen.missingOne), QStringLiteral("21:2 22:4 30:3"));
    QCOMPARE(nearText(seen.missingTwo), QStringLiteral("25:3+9 26:2+6"));
    QCOMPARE(rankingText(seen.ranking), QStringLiteral("3:1/1 2:1/1 4:1/0 9:0/1 6:0/1"));

    // The drinks it can make are the ones the cabinet's own scan marks for the same ticks.
    LiquorCabinet::FindMatches(book.store(), {ticks.begin(), ticks.end()});
    QCOMPARE(marked(book.store()), IdList{20});
    QCOMPARE(rankingText(Look(loaded, StoredTicks(book.store())).ranking), rankingText(seen.ranking));
}

QTEST_GUILESS_MAIN(tst_NextBottle)
#include "tst_nextbottle.moc"
