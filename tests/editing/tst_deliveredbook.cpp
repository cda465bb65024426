// The delivered store against the book it is built from: each stored line must hold what the
// drink editor would have stored for its source line, and the stored costs must be those of
// the DrinkCost query. (The book's reader refuses a drink without a glass, a category or a line.)
#include "TestStore.h"
#include "editing/Measures.h"
#include "editing/StarterBook.h"
#include "editing/StarterBookWriter.h"
#include "store/DrinkStore.h"

#include <QFile>
#include <QSqlQuery>
#include <QTest>

namespace {
const QString Book = QStringLiteral(CORVANE_SOURCE_DATA_DIR "/book");
} // namespace

class tst_DeliveredBook : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase()
    {
        if (!QFile::exists(TestStore::deliveredStore()))
            QSKIP("the delivered store is not built");
        if (!QFile::exists(Book + QStringLiteral("/drinks.txt")))
            QSKIP("there is no recipe book to compare with");
        try {
            m_book = StarterBook::read(Book);
        } catch (const StarterBookError &e) {
            QFAIL(qPrintable(e.faults().join(QLatin1Char('\n'))));
        }
        m_copy = std::make_unique<TestStore>(QString(), true);
    }

    void linesAreTheEditors()
    {
        QCOMPARE(m_copy->store().scalar(QStringLiteral("SELECT COUNT(*) FROM Drinks")).toInt(), m_book.drinks.size());
        QSqlQuery q(m_copy->store().database());
        QVERIFY(
            q.prepare(QStringLiteral("SELECT R.amount, R.MetricAmount, R.measure, I.Ingredient, R.seq FROM Drinks D "
                                     "JOIN DrinkRel R ON R.DrinkID = D.id JOIN Ingredients I ON I.id = R.IngID "
                                     "WHERE D.Name = ? ORDER BY R.seq")));
        for (const BookDrink &d : m_book.drinks) {
            q.addBindValue(d.name);
            QVERIFY(q.exec());
            int seq = 0;
            for (const BookLine &l : d.lines) {
                const QString where = QStringLiteral("%1, %2 %3: ").arg(d.source, l.amount, l.measure);
                QVERIFY2(q.next(), qPrintable(where + QStringLiteral("line missing")));
                const QString stored = QStringList{q.value(0).toString(), q.value(1).toString(),
                                                   q.value(3).toString(), q.value(4).toString()}
                                           .join(u'|');
                const QString expected = QStringList{GetAmountText(l.amount, l.measure),
                                                     GetMetricAmountText(l.amount, l.measure),
                                                     m_book.ingredient(l.ingredientId)->name, QString::number(++seq)}
                                             .join(u'|');
                QVERIFY2(stored == expected, qPrintable(where + stored + QStringLiteral(" stored, not ") + expected));
                QVERIFY2(static_cast<float>(q.value(2).toDouble()) == GetOunces(l.amount, l.measure),
                         qPrintable(where + QStringLiteral("ounces")));
            }
            QVERIFY2(!q.next(), qPrintable(d.source + QStringLiteral(": more lines stored than written")));
        }
    }

    // The stored costs are the line rule's (the writer's) and must be what the DrinkCost query,
    // which batch repricing uses, gives for the stored lines.
    void costsAgree()
    {
        QCOMPARE(StarterBookWriter::compareWithDrinkCostQuery(m_copy->storePath()), QStringList());
    }

private:
    StarterBook m_book;
    std::unique_ptr<TestStore> m_copy; // of the delivered store
};

QTEST_GUILESS_MAIN(tst_DeliveredBook)
#include "tst_deliveredbook.moc"
