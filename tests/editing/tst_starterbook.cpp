#include "TestFiles.h"
#include "TestStore.h"
#include "editing/StarterBook.h"
#include "editing/StarterBookWriter.h"
#include "store/DrinkStore.h"
#include "store/StoreError.h"

#include <QDir>
#include <QFile>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QTest>

namespace {

const QString MiniBook = QStringLiteral(CORVANE_TEST_DATA_DIR "/book-mini");

// A copy of the small book that a test may break.
struct BookCopy {
    QTemporaryDir dir;
    BookCopy()
    {
        for (const QString &name : QDir(MiniBook).entryList(QDir::Files))
            QFile::copy(QDir(MiniBook).filePath(name), dir.filePath(name));
    }
    bool replace(const QString &file, const QString &before, const QString &after)
    {
        QString text = QString::fromUtf8(readFile(dir.filePath(file)));
        return text.count(before) == 1 && writeFile(dir.filePath(file), text.replace(before, after).toUtf8());
    }
    QStringList faults() const
    {
        try {
            StarterBook::read(dir.path());
        } catch (const StarterBookError &e) {
            return e.faults();
        }
        return {};
    }
};

} // namespace

class tst_StarterBook : public QObject {
    Q_OBJECT

private slots:
    void readsTheBook()
    {
        const StarterBook book = StarterBook::read(MiniBook);
        QCOMPARE(book.drinks.size(), 4);

        // Names are matched without case and stored in the editor's own spelling.
        const BookDrink &daiquiri = book.drinks.at(0);
        QCOMPARE(daiquiri.lines.at(2).measure, QStringLiteral("Ounce (Shot)"));
        QCOMPARE(book.ingredient(daiquiri.lines.at(2).ingredientId)->name, QStringLiteral("Simple Syrup"));
        QCOMPARE(book.ingredient(2)->subType, 2); // "gin" is the sub type Gin

        // The last field of a line takes the rest, bars included.
        QCOMPARE(book.ingredient(2)->notes, QStringLiteral("London dry | with a bar in the note"));

        const BookDrink &mojito = book.drinks.at(1);
        QCOMPARE(mojito.lines.at(4).amount, QString());
        QCOMPARE(mojito.lines.at(4).measure, QStringLiteral("Top With"));
        QCOMPARE(mojito.recipe,
                 QStringLiteral("Muddle the mint with syrup and lime.\r\nAdd rum and ice.\r\nTop with soda."));
        QCOMPARE(mojito.comments, QStringLiteral("Muddle gently."));

        QCOMPARE(daiquiri.pictureColour, std::optional<std::uint32_t>(0xF3EFC8));
    }

    // Each fault names its file, which the row breaks.
    void faults_data()
    {
        QTest::addColumn<QString>("before");
        QTest::addColumn<QString>("after");
        QTest::addColumn<QString>("fault");
        auto row = [](const char *name, const char *before, const char *after, const char *fault) {
            QTest::newRow(name) << QString::fromUtf8(before) << QString::fromUtf8(after) << QString::fromUtf8(fault);
        };
        row("unknown glass", "Glass: Coupe", "Glass: Tumbler", "drinks.txt:3: unknown glass \"Tumbler\"");
        row("unknown category", "Categories: Highballs", "Categories: Highballs; Tiki",
            "drinks.txt:16: unknown category \"Tiki\"");
        row("unknown ingredient", "1.5 | Jigger | Gin", "1.5 | Jigger | Genever",
            "drinks.txt:34: unknown ingredient \"Genever\"");
        row("unknown measure", "2 | Dash |", "2 | Dashes |", "drinks.txt:33: unknown measure \"Dashes\"");
        row("a fraction", "0.75 | ounce", "3/4 | ounce",
            "drinks.txt:11: amount \"3/4\" is not a decimal number above 0 like 1.5");
        row("amount of 0", "1 | Piece | Ice", "0 | Piece | Ice",
            "drinks.txt:40: amount \"0\" is not a decimal number above 0 like 1.5");
        row("amount with Fill With", "| Fill With", "2 | Fill With", "drinks.txt:41: \"Fill With\" takes no amount");
        row("duplicate drink", "Name: Pink Gin", "Name: daiquiri",
            "drinks.txt:29: drink \"daiquiri\" is already defined");
        row("drink without lines", "1 | Piece | Ice\n| Fill With | Club Soda\n", "",
            "drinks.txt:37: drink \"Soda on Ice\" has no ingredient line");
        row("drink without glass", "Glass: Cocktail Glass\n", "", "drinks.txt:29: drink \"Pink Gin\" has no Glass");
        row("drink without categories", "Categories: Classic Cocktails; Sours\n", "",
            "drinks.txt:2: drink \"Daiquiri\" has no Categories");
        row("unknown field", "Comments: Muddle", "Comment: Muddle", "drinks.txt:24: unknown field \"Comment\"");
        row("stray line", "Garnish: Mint Sprig", "Mint Sprig",
            "drinks.txt:18: expected \"Field: value\" or \"amount | measure | ingredient\"");
        row("field twice", "Build: Built", "Build: Built\nBuild: Shaken",
            "drinks.txt:18: Build is already given for this drink");
        row("bad picture colour", "Picture: #E8A0A0", "Picture: pink",
            "drinks.txt:32: picture colour \"pink\" is not a colour like #1A2B3C");
        row("decimal comma", "| 25.4 | 15.99 |", "| 25,4 | 15.99 |",
            "ingredients.txt:2: oz per unit \"25,4\" is not a number like 25.4");
        row("money with a sign", "| 6.49 |", "| $6.49 |",
            "ingredients.txt:4: unit price \"$6.49\" is not an amount of money like 22.99");
        row("money below a ten-thousandth", "| 6.49 |", "| 6.49001 |",
            "ingredients.txt:4: unit price \"6.49001\" is not an amount of money like 22.99");
        row("unknown type", "Mint | Undefined", "Mint | Herbs", "ingredients.txt:7: unknown ingredient type \"Herbs\"");
        row("sub type of another type", "Club Soda | Mixers | Soda", "Club Soda | Mixers | Rum",
            "ingredients.txt:6: unknown sub type \"Rum\" of type \"Mixers\"");
        row("too few fields", "| bag | 0 | 0 | Costs nothing", "| bag | 0",
            "ingredients.txt:9: expected \"name | type | sub type or - | unit type | oz per unit | unit price | "
            "notes\"");
        row("duplicate ingredient", "Ice | Undefined", "GIN | Undefined",
            "ingredients.txt:9: ingredient \"GIN\" is already defined");
        row("glass beyond the pictures", "24 | Unknown", "25 | Unknown",
            "glassware.txt:4: glass id 25 is not in 1..24");
        row("glass id twice", "4 | Collins", "1 | Collins", "glassware.txt:2: glass id 1 is already used");
        row("no default scheme", "64 | Corvane", "63 | Corvane",
            "colorschemes.txt: scheme 64 (the default) is missing");
        row("short colour", "#FF8000", "#FF800",
            "colorschemes.txt:2: highlight colour \"#FF800\" is not a colour like #1A2B3C");
        row("unknown markup method", "MarkupOpt | Cost", "MarkupOpt | Markup",
            "constants.txt:1: MarkupOpt \"Markup\" is not Cost, Cur or BCM");
        row("missing setting", "MinPrice | 2.10\n", "", "constants.txt: setting \"MinPrice\" is missing");
        row("no Unknown / Other", "0 | Unknown / Other", "0 | Other",
            "categories.txt: category 0 must be \"Unknown / Other\"");
        row("no Undefined", "T | 0 | Undefined", "T | 0 | None", "types.txt: type 0 must be \"Undefined\"");
        row("sub type of no type", "S | 4 | Soda", "S | 9 | Soda", "types.txt:10: type 9 is not defined above");
        row("layout number", "Rows=2", "Rows=two", "printlayouts.txt:5: Rows \"two\" is not a number");
        row("layout field", "Cols=1", "Columns=1",
            "printlayouts.txt:6: expected \"field=value\" with a field of PrintLayout");
        row("duplicate garnish", "Mint Sprig", "lime wedge",
            "garnishes.txt:2: garnish \"lime wedge\" is already defined");
    }

    void faults()
    {
        QFETCH(QString, before);
        QFETCH(QString, after);
        QFETCH(QString, fault);
        BookCopy book;
        QVERIFY(book.replace(fault.section(u':', 0, 0), before, after));
        const QStringList faults = book.faults();
        QVERIFY2(faults.contains(fault), qPrintable(faults.join(QLatin1Char('\n'))));
    }

    void everyFaultIsReported()
    {
        BookCopy book;
        QVERIFY(book.replace(QStringLiteral("drinks.txt"), QStringLiteral("Glass: Coupe"),
                             QStringLiteral("Glass: Mug")));
        QVERIFY(book.replace(QStringLiteral("ingredients.txt"), QStringLiteral("| 4.99"),
                             QStringLiteral("| 4.99.")));
        QVERIFY(QFile::remove(book.dir.filePath(QStringLiteral("ratings.txt"))));
        // Each fault once: the drinks that use the broken ingredient are not blamed as well.
        const QStringList faults = book.faults();
        const QStringList expected = {QStringLiteral("ingredients.txt:5: unit price \"4.99.\""),
                                      QStringLiteral("ratings.txt: cannot read the file"),
                                      QStringLiteral("drinks.txt:3: unknown glass \"Mug\""),
                                      QStringLiteral("drinks.txt:7: unknown rating \"Excellent\"")};
        QCOMPARE(faults.size(), expected.size());
        for (qsizetype i = 0; i < expected.size(); ++i)
            QVERIFY2(faults.at(i).startsWith(expected.at(i)), qPrintable(faults.at(i)));
    }

    // What the writer stores for the small book. Costs are the sums of the line costs and the
    // DrinkCost query's alike; prices come from the book's settings: 300% markup, a minimum of
    // 2.10, rounded up to 0.25. Colours are held as the platform holds them, red in the low byte.
    void storeRows_data()
    {
        QTest::addColumn<QString>("sql");
        QTest::addColumn<QString>("expected");
        // Pictures are numbered in file order, among the drinks that have one.
        QTest::newRow("costs, prices and pictures")
            << "SELECT group_concat(x, '; ') FROM (SELECT printf('%s %.4f %.4f %.4f %s', D.Name, D.Cost, C.Cost, "
               "D.Price, D.ImageFilePath) AS x FROM Drinks D JOIN DrinkCost C ON C.DrinkID = D.id ORDER BY D.id)"
            << "Daiquiri 1.5618 1.5618 6.2500 000001; Mojito 2.1588 2.1588 8.7500 ; "
               "Pink Gin 2.1770 2.1770 8.7500 000002; Soda on Ice 0.0000 0.0000 2.2500 ";
        QTest::newRow("colours") << "SELECT printf('%06X %06X %06X %06X', TextColor, HighlightColor, AccentColor, "
                                    "BackgroundColor) FROM ColorSchemes WHERE id = 65"
                                 << "302010 0080FF 00FF00 FF0000";
        QTest::newRow("settings as written") << "SELECT '[' || Val || ']' FROM Constants WHERE Var = 'RoundTo'"
                                             << "[ 2]";
        QTest::newRow("a drink's references")
            << "SELECT printf('%d %d %d %d ', GlassType, BuildID, GarnishID, RatingID) || (SELECT "
               "group_concat(DrinkTypeID) FROM DrinkTypeRel WHERE DrinkID = id) FROM Drinks WHERE id = 1"
            << "16 1 1 3 1,3";
        QTest::newRow("print layout") << "SELECT typeof(Rows) || ' ' || MarTop || ' ' || NameFont FROM PrintLayout "
                                         "WHERE Name = 'Index Cards'"
                                      << "integer 0.5 Arial;14;0;True;False;False;False;";
    }

    void storeRows()
    {
        QFETCH(QString, sql);
        QFETCH(QString, expected);
        if (!m_built) {
            m_built = std::make_unique<TestStore>();
            StarterBookWriter::write(StarterBook::read(MiniBook), m_built->storePath());
        }
        QSqlQuery q(m_built->store().database());
        QVERIFY(q.exec(sql) && q.next());
        QCOMPARE(q.value(0).toString(), expected);
    }

    void failedWriteLeavesNothing()
    {
        // A cost percentage of 0 gives no price, so the write fails at the first drink, after
        // every other table has had its rows.
        StarterBook book = StarterBook::read(MiniBook);
        for (BookConstant &c : book.constants) {
            if (c.var == QLatin1String("MarkupOpt"))
                c.val = QStringLiteral("BCM");
            if (c.var == QLatin1String("MarkupPct"))
                c.val = QStringLiteral("0");
        }
        TestStore empty;
        QVERIFY_THROWS_EXCEPTION(StoreError, StarterBookWriter::write(book, empty.storePath()));
        QCOMPARE(empty.store()
                     .scalar(QStringLiteral("SELECT (SELECT COUNT(*) FROM IngTypes) + (SELECT COUNT(*) FROM "
                                            "Ingredients) + (SELECT COUNT(*) FROM PrintLayout)"))
                     .toInt(),
                 0);
    }

private:
    // The small book's store, written once; read through the program's own store, which
    // brings the functions its queries use.
    std::unique_ptr<TestStore> m_built;
};

QTEST_GUILESS_MAIN(tst_StarterBook)
#include "tst_starterbook.moc"
