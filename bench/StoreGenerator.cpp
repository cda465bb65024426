#include "StoreGenerator.h"

#include "GeneratorVocabulary.h"
#include "store/StoreWriter.h"

#include "base/Currency.h"
#include "base/LineCost.h"
#include "editing/Measures.h"
#include "pricing/PriceRules.h"
#include "store/StoreError.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QSaveFile>
#include <algorithm>
#include <cmath>
#include <string>
#include <unordered_set>
#include <vector>

using namespace GeneratorVocabulary;

namespace {

const QString kStoreName = QStringLiteral("drinks.db");
const QString kKeyName = QStringLiteral("generator.key");

// splitmix64: tiny, and the same numbers on every platform and library, which the standard
// distributions do not promise.
class Random {
public:
    explicit Random(quint64 seed) : m_state(seed) {}
    quint64 next()
    {
        quint64 z = (m_state += 0x9E3779B97F4A7C15ull);
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
        return z ^ (z >> 31);
    }
    int below(int n) { return static_cast<int>(next() % static_cast<quint64>(n)); }
    bool percent(int p) { return below(100) < p; }
    double unit() { return static_cast<double>(next() >> 11) * 0x1.0p-53; }
    // An index below n where small ones are far more likely: the higher the power, the more
    // the first entries dominate (popular ingredients, common glasses).
    int skewed(int n, double power) { return std::min(n - 1, static_cast<int>(n * std::pow(unit(), power))); }
    template <typename T> const T &pick(std::span<const T> list)
    {
        return list[static_cast<size_t>(below(static_cast<int>(list.size())))];
    }

private:
    quint64 m_state;
};

struct Ingredient {
    std::string name;
    int type = 0;
    int subType = 0;
    Use use = Use::Ice;
    const char *unitType = "";
    double ozPerUnit = 0;
    Currency unitPrice;
    bool selected = false;
};

// One way a recipe line is written: as typed in the editor, then turned into its stored
// values by the measure functions.
struct LineForm {
    QByteArray amount;
    QByteArray metricAmount;
    float ounces = 0;
};

struct TypedAmount {
    Use use;
    const char *amount;
    const char *measure;
    int weight;
};

// How often each way of writing a line is drawn, within its use. The big measures (liters,
// gallons) are the rare party punches.
constexpr TypedAmount kTypedAmounts[] = {
    {Use::Spirit, "1.5", "Ounce (Shot)", 40},
    {Use::Spirit, "2", "Ounce (Shot)", 25},
    {Use::Spirit, "1", "Ounce (Shot)", 25},
    {Use::Spirit, "0.75", "Ounce (Shot)", 10},
    {Use::Spirit, "1.25", "Ounce (Shot)", 10},
    {Use::Spirit, ".5", "Ounce (Shot)", 8},
    {Use::Spirit, "1", "Jigger", 15},
    {Use::Spirit, "2", "Part", 6},
    {Use::Spirit, "1", "Part", 6},
    {Use::Spirit, "1", "Liter", 1},
    {Use::Spirit, "1", "\xC2\xBD Gal. (1.75 L)", 1},
    {Use::Modifier, "0.5", "Ounce (Shot)", 30},
    {Use::Modifier, "0.75", "Ounce (Shot)", 20},
    {Use::Modifier, "1", "Ounce (Shot)", 20},
    {Use::Modifier, "0.25", "Ounce (Shot)", 10},
    {Use::Modifier, "1", "Teaspoon", 8},
    {Use::Modifier, "2", "Teaspoon", 4},
    {Use::Modifier, "1", "Part", 5},
    {Use::Modifier, "1", "Splash", 8},
    {Use::Bitters, "2", "Dash", 10},
    {Use::Bitters, "1", "Dash", 6},
    {Use::Bitters, "3", "Dash", 4},
    {Use::Bitters, "1", "Splash", 1},
    {Use::Juice, "0.75", "Ounce (Shot)", 30},
    {Use::Juice, "1", "Ounce (Shot)", 30},
    {Use::Juice, "0.5", "Ounce (Shot)", 20},
    {Use::Juice, "2", "Ounce (Shot)", 15},
    {Use::Juice, "3", "Ounce (Shot)", 8},
    {Use::Juice, "1", "Splash", 10},
    {Use::Juice, "2", "Splash", 4},
    {Use::Juice, "1", "Cup", 2},
    {Use::Juice, "1", "Quart", 1},
    {Use::Syrup, "0.5", "Ounce (Shot)", 20},
    {Use::Syrup, "0.25", "Ounce (Shot)", 10},
    {Use::Syrup, "1", "Teaspoon", 15},
    {Use::Syrup, "2", "Teaspoon", 8},
    {Use::Syrup, "1", "Tablespoon", 6},
    {Use::Syrup, "2", "Dash", 4},
    {Use::Lengthener, "", "Fill With", 30},
    {Use::Lengthener, "", "Top With", 15},
    {Use::Lengthener, "3", "Ounce (Shot)", 10},
    {Use::Lengthener, "4", "Ounce (Shot)", 10},
    {Use::Lengthener, ".5", "Cup", 3},
    {Use::Lengthener, "1", "Gallon", 1},
    {Use::Sparkling, "", "Top With", 20},
    {Use::Sparkling, "3", "Ounce (Shot)", 10},
    {Use::Sparkling, "4", "Ounce (Shot)", 6},
    {Use::Sparkling, "1", "Fifth (750 ml)", 1},
    {Use::Beer, "", "Fill With", 10},
    {Use::Beer, "1", "Pint", 3},
    {Use::Beer, "6", "Ounce (Shot)", 4},
    {Use::Dairy, "1", "Ounce (Shot)", 10},
    {Use::Dairy, "2", "Ounce (Shot)", 6},
    {Use::Dairy, "1", "Tablespoon", 4},
    {Use::Dairy, "1", "Splash", 3},
    {Use::Egg, "1", "Piece", 1},
    {Use::Fruit, "1", "Wedge", 10},
    {Use::Fruit, "2", "Wedge", 4},
    {Use::Fruit, "1", "Slice", 8},
    {Use::Fruit, "3", "Slice", 2},
    {Use::Fruit, "0.5", "Piece", 3},
    {Use::Fruit, "1", "Piece", 5},
    {Use::Herb, "1", "Sprig", 6},
    {Use::Herb, "4", "Sprig", 3},
    {Use::Herb, "6", "Piece", 2},
    {Use::Spice, "1", "Dash", 3},
    {Use::Spice, "1", "Piece", 2},
    {Use::Ice, "1", "Cup", 1},
    {Use::Ice, "", "Fill With", 1},
};

constexpr int kUseCount = static_cast<int>(Use::Ice) + 1;

std::vector<std::vector<LineForm>> makeLineForms()
{
    std::vector<std::vector<LineForm>> forms(kUseCount);
    for (const TypedAmount &t : kTypedAmounts) {
        const QString amount = QString::fromUtf8(t.amount), measure = QString::fromUtf8(t.measure);
        const LineForm form{GetAmountText(amount, measure).toUtf8(), GetMetricAmountText(amount, measure).toUtf8(),
                            GetOunces(amount, measure)};
        // Drawn uniformly from the list, so the weight is the number of copies.
        forms[static_cast<size_t>(t.use)].insert(forms[static_cast<size_t>(t.use)].end(), size_t(t.weight), form);
    }
    return forms;
}

// The popular ingredients are the bare bases; brands and qualifiers make the long tail.
std::vector<Ingredient> makeIngredients(Random &random)
{
    const auto bases = ingredientBases();
    static_assert(StoreGenerator::IngredientCount > 0);
    std::vector<Ingredient> list;
    list.reserve(StoreGenerator::IngredientCount);
    for (size_t round = 0; list.size() < size_t(StoreGenerator::IngredientCount); ++round) {
        if (round > brands().size() || round > qualifiers().size())
            throw StoreError(QStringLiteral("too few brands and qualifiers for the ingredient count"));
        for (const IngredientBase &b : bases) {
            if (list.size() == size_t(StoreGenerator::IngredientCount))
                break;
            Ingredient i;
            i.name = b.name;
            if (round > 0) {
                const bool liquor = b.type >= 1 && b.type <= 3;
                i.name = std::string(liquor ? brands()[round - 1] : qualifiers()[round - 1]) + ' ' + b.name;
            }
            i.type = b.type;
            i.subType = b.subType;
            i.use = b.use;
            i.unitType = b.unitType;
            i.ozPerUnit = b.ozPerUnit;
            const int cents = b.priceHighCents > b.priceLowCents
                                  ? b.priceLowCents + random.below(b.priceHighCents - b.priceLowCents + 1)
                                  : b.priceLowCents;
            i.unitPrice = Currency::fromTenThousandths(qint64(cents) * 100);
            list.push_back(std::move(i));
        }
    }
    // What the bartender owns: the common bottles and a scattering of the rest.
    for (size_t k = 0; k < list.size(); ++k)
        list[k].selected = k < 100 || random.percent(10);
    return list;
}

std::string lowerAscii(std::string s)
{
    for (char &c : s)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    return s;
}

// Names are unique (the editor refuses a duplicate). Some extend an earlier name, as variants
// do ("Blue Lagoon", "Blue Lagoon Royale"); a few begin with a digit.
class NameMaker {
public:
    std::string make(Random &random)
    {
        for (int attempt = 0;; ++attempt) {
            std::string name;
            const int kind = random.below(100);
            if (kind < 1) {
                name = std::string(random.pick(leadingNumbers())) + ' ' + random.pick(secondWords());
                if (random.percent(50))
                    addThirdWord(name, random);
            } else if (kind < 13 && !m_names.empty()) {
                name = m_names[static_cast<size_t>(random.below(static_cast<int>(m_names.size())))];
                addThirdWord(name, random);
            } else {
                name = std::string(firstWords()[static_cast<size_t>(random.skewed(int(firstWords().size()), 1.5))]) +
                       ' ' + secondWords()[static_cast<size_t>(random.skewed(int(secondWords().size()), 1.3))];
                // Two words run out first; later attempts always take a third.
                if (random.percent(45) || attempt > 3)
                    addThirdWord(name, random);
            }
            if (m_seen.insert(lowerAscii(name)).second) {
                m_names.push_back(name);
                return name;
            }
        }
    }

private:
    // Never "Sour Sour": a word that repeats the last one is drawn again.
    static void addThirdWord(std::string &name, Random &random)
    {
        for (;;) {
            const std::string word = random.pick(thirdWords());
            if (name.size() <= word.size() || name.compare(name.size() - word.size(), word.size(), word) != 0) {
                name += ' ' + word;
                return;
            }
        }
    }

    std::unordered_set<std::string> m_seen;
    std::vector<std::string> m_names;
};

struct Line {
    int ingredient; // index into the ingredient list
    const LineForm *form;
};

class DrinkMaker {
public:
    DrinkMaker(const std::vector<Ingredient> &ingredients) : m_ingredients(ingredients), m_forms(makeLineForms())
    {
        for (size_t k = 0; k < ingredients.size(); ++k)
            if (ingredients[k].type == 1)
                m_spirits.push_back(static_cast<int>(k));
    }

    // 2 to 9 lines, most drinks 3 to 5; the first is a spirit, the others any ingredient,
    // never the same one twice.
    std::vector<Line> lines(Random &random) const
    {
        static constexpr int weights[] = {10, 22, 24, 18, 12, 7, 4, 3};
        int roll = random.below(100), count = 2;
        for (int w : weights) {
            if (roll < w)
                break;
            roll -= w;
            ++count;
        }
        std::vector<Line> result;
        std::vector<int> used;
        used.push_back(m_spirits[static_cast<size_t>(random.skewed(int(m_spirits.size()), 2.0))]);
        while (static_cast<int>(used.size()) < count) {
            const int k = random.skewed(static_cast<int>(m_ingredients.size()), 3.0);
            if (std::find(used.begin(), used.end(), k) == used.end())
                used.push_back(k);
        }
        for (int k : used) {
            const auto &forms = m_forms[static_cast<size_t>(m_ingredients[static_cast<size_t>(k)].use)];
            result.push_back({k, &forms[static_cast<size_t>(random.below(static_cast<int>(forms.size())))]});
        }
        return result;
    }

    Currency cost(const std::vector<Line> &lines) const
    {
        Currency total;
        for (const Line &l : lines) {
            const Ingredient &i = m_ingredients[static_cast<size_t>(l.ingredient)];
            total += LineCost(i.unitPrice, static_cast<float>(i.ozPerUnit), l.form->ounces);
        }
        return total;
    }

    bool canBeMade(const std::vector<Line> &lines) const
    {
        return !lines.empty() && std::all_of(lines.begin(), lines.end(), [this](const Line &l) {
            return m_ingredients[static_cast<size_t>(l.ingredient)].selected;
        });
    }

private:
    const std::vector<Ingredient> &m_ingredients;
    std::vector<std::vector<LineForm>> m_forms;
    std::vector<int> m_spirits;
};

// The price settings the store's Constants rows hold.
PriceSettings storePriceSettings()
{
    PriceSettings s;
    s.method = MarkupFromCost;
    s.fraction = PercentFraction(QStringLiteral("300"));
    s.roundTo = 2;
    return s;
}

void writeReference(StoreWriter::Connection &c, const std::vector<Ingredient> &ingredients)
{
    using StoreWriter::Statement;
    auto idNames = [&c](const char *sql, std::span<const IdName> rows) {
        Statement s(c, sql);
        for (const IdName &r : rows)
            s.integer(1, r.id).text(2, r.name).run();
    };
    idNames("INSERT INTO IngTypes (IngTypeID, IngType) VALUES (?, ?)", ingredientTypes());
    Statement sub(c, "INSERT INTO IngSubTypes (IngSubTypeID, IngTypeID, Name) VALUES (?, ?, ?)");
    for (const SubType &s : ingredientSubTypes())
        sub.integer(1, s.id).integer(2, s.typeId).text(3, s.name).run();
    idNames("INSERT INTO Glassware (GlassID, Name, Notes) VALUES (?, ?, '')", glassware());
    idNames("INSERT INTO DrinkTypes (TypeID, Type) VALUES (?, ?)", categories());
    idNames("INSERT INTO Garnish (id, Name) VALUES (?, ?)", garnishes());
    idNames("INSERT INTO Build (id, Name) VALUES (?, ?)", builds());
    idNames("INSERT INTO Ratings (RatingID, Name) VALUES (?, ?)", ratings());
    c.exec("INSERT INTO ColorSchemes (id, Name, TextColor, HighlightColor, AccentColor, BackgroundColor) "
           "VALUES (64, 'Corvane Classic', 3355443, 10053171, 14474460, 15790320)");
    c.exec("INSERT INTO Constants (Var, Val) VALUES ('MarkupOpt', 'Cost'), ('MarkupPct', '300'), "
           "('ApplyZero', 'False'), ('RoundTo', ' 2'), ('MinPrice', 'None')");

    Statement ing(c, "INSERT INTO Ingredients (id, Ingredient, UnitType, ozperunit, unitprice, Notes, Type, "
                     "SubType, Selected) VALUES (?, ?, ?, ?, ?, '', ?, ?, ?)");
    int id = 0;
    for (const Ingredient &i : ingredients)
        ing.integer(1, ++id)
            .text(2, i.name)
            .text(3, i.unitType)
            .real(4, i.ozPerUnit)
            .real(5, i.unitPrice.toDouble())
            .integer(6, i.type)
            .integer(7, i.subType)
            .integer(8, i.selected ? 1 : 0)
            .run();
}

std::string description(Random &random)
{
    std::string text = random.pick(methodSentences());
    if (random.percent(60))
        text += std::string(" ") + random.pick(serveSentences());
    return text;
}

void writeDrinks(StoreWriter::Connection &c, Random &random, const std::vector<Ingredient> &ingredients, int count,
                 StoreGenerator::Summary &summary)
{
    using StoreWriter::Statement;
    Statement drink(c, "INSERT INTO Drinks (id, Name, GlassType, Description, Comments, Price, Cost, BuildID, "
                       "GarnishID, RatingID, LockPrice, ImageFilePath, Marked, LiqCab) "
                       "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, '', ?, ?)");
    Statement line(c, "INSERT INTO DrinkRel (DrinkID, IngID, seq, amount, MetricAmount, measure) "
                      "VALUES (?, ?, ?, ?, ?, ?)");
    Statement category(c, "INSERT INTO DrinkTypeRel (DrinkID, DrinkTypeID) VALUES (?, ?)");
    Statement result(c, "INSERT INTO SearchResults (ID, Name) VALUES (?, ?)");

    const PriceSettings settings = storePriceSettings();
    const DrinkMaker maker(ingredients);
    NameMaker names;
    const int categoryCount = static_cast<int>(categories().size());
    for (int id = 1; id <= count; ++id) {
        const std::string name = names.make(random);
        const std::vector<Line> lines = maker.lines(random);
        const Currency cost = maker.cost(lines);
        const bool liqCab = maker.canBeMade(lines);
        const bool marked = random.percent(5);

        // Most prices follow the settings; some are set by hand and locked, a few not yet set.
        const int priceKind = random.below(100);
        const bool locked = priceKind < 2;
        Currency price;
        if (locked)
            price = Currency::fromTenThousandths(qint64(4 + random.below(12)) * 10000 + 5000);
        else if (priceKind >= 5)
            price = CalculatePrice(settings, cost, Currency()).value_or(Currency());

        drink.integer(1, id).text(2, name).integer(3, 1 + random.skewed(24, 1.3)).text(4, description(random));
        if (random.percent(25))
            drink.text(5, random.pick(comments()));
        else
            drink.text(5, "");
        drink.real(6, price.toDouble()).real(7, cost.toDouble()).integer(8, 1 + random.below(int(builds().size())));
        if (random.percent(95))
            drink.integer(9, 1 + random.skewed(int(garnishes().size()), 1.5));
        else
            drink.null(9);
        drink.integer(10, 1 + random.below(int(ratings().size())))
            .integer(11, locked ? 1 : 0)
            .integer(12, marked ? 1 : 0)
            .integer(13, liqCab ? 1 : 0)
            .run();

        int seq = 0;
        for (const Line &l : lines)
            line.integer(1, id)
                .integer(2, l.ingredient + 1)
                .integer(3, ++seq)
                .text(4, l.form->amount)
                .text(5, l.form->metricAmount)
                .real(6, static_cast<double>(l.form->ounces))
                .run();

        // 1 to 3 categories; a few drinks sit only in "Unknown / Other".
        const int wanted = random.percent(60) ? 1 : random.percent(75) ? 2 : 3;
        std::vector<int> chosen;
        if (random.percent(4))
            chosen.push_back(0);
        while (static_cast<int>(chosen.size()) < wanted) {
            const int t = 1 + random.skewed(categoryCount - 1, 1.5);
            if (std::find(chosen.begin(), chosen.end(), t) == chosen.end())
                chosen.push_back(t);
        }
        for (int t : chosen)
            category.integer(1, id).integer(2, t).run();

        if (random.percent(10)) {
            result.integer(1, id).text(2, name).run();
            ++summary.searchResults;
        }
        summary.lines += static_cast<int>(lines.size());
        summary.categoryRows += static_cast<int>(chosen.size());
        summary.cabinetDrinks += liqCab ? 1 : 0;
        summary.markedDrinks += marked ? 1 : 0;
    }
    summary.drinks = count;
}

QString keyText(const StoreGenerator::Options &options)
{
    return QStringLiteral("drinks=%1 seed=%2 generator=%3\n")
        .arg(options.drinks)
        .arg(options.seed)
        .arg(QStringLiteral(CORVANE_BENCH_GENERATOR_HASH));
}

} // namespace

namespace StoreGenerator {

QString schemaFile()
{
    return QStringLiteral(CORVANE_BENCH_SCHEMA_FILE);
}

Summary generate(const QString &appDir, const Options &options)
{
    QElapsedTimer timer;
    timer.start();
    if (options.drinks < 1)
        throw StoreError(QStringLiteral("a store needs at least one drink"));
    QDir dir(appDir);
    if (!dir.mkpath(QStringLiteral(".")))
        throw StoreError(QStringLiteral("cannot create the directory"), appDir);
    // The key goes first and comes back last: a store left half-written is never reused.
    QFile::remove(dir.filePath(kKeyName));
    const QString path = dir.filePath(kStoreName);
    QFile::remove(path + QStringLiteral("-wal"));
    QFile::remove(path + QStringLiteral("-shm"));
    QFile::remove(path);
    QFile schema(schemaFile());
    if (!schema.open(QIODevice::ReadOnly))
        throw StoreError(schema.errorString(), schemaFile());

    Summary summary;
    {
        StoreWriter::Connection c(path, StoreWriter::Connection::Create);
        // A new file written in one go: nothing to protect until the commit.
        c.exec("PRAGMA synchronous = OFF");
        c.exec("PRAGMA journal_mode = MEMORY");
        c.exec("PRAGMA cache_size = -65536");
        c.exec(schema.readAll().constData());
        c.exec("BEGIN");
        Random random(options.seed);
        const std::vector<Ingredient> ingredients = makeIngredients(random);
        writeReference(c, ingredients);
        writeDrinks(c, random, ingredients, options.drinks, summary);
        c.exec("COMMIT");
        // As the program leaves it: one file, with a rollback journal only while a command writes.
        c.exec("PRAGMA journal_mode = DELETE");
    }

    QSaveFile key(dir.filePath(kKeyName));
    if (!key.open(QIODevice::WriteOnly) || key.write(keyText(options).toUtf8()) < 0 || !key.commit())
        throw StoreError(key.errorString(), dir.filePath(kKeyName));
    summary.seconds = static_cast<double>(timer.nsecsElapsed()) / 1e9;
    return summary;
}

bool isCurrent(const QString &appDir, const Options &options)
{
    const QDir dir(appDir);
    QFile key(dir.filePath(kKeyName));
    if (!QFile::exists(dir.filePath(kStoreName)) || !key.open(QIODevice::ReadOnly))
        return false;
    return QString::fromUtf8(key.readAll()) == keyText(options);
}

bool ensure(const QString &appDir, const Options &options)
{
    if (isCurrent(appDir, options))
        return false;
    generate(appDir, options);
    return true;
}

} // namespace StoreGenerator
