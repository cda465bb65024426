#include "editing/StarterBook.h"

#include "editing/Measures.h"

#include <QDir>
#include <QFile>
#include <QHash>
#include <QRegularExpression>
#include <QSet>

namespace {

struct SourceLine {
    int number = 0;
    QString text;
};

QString key(const QString &name)
{
    return name.toLower();
}

// Reads the files of a book one by one, resolving names against what earlier files defined.
// Faults are collected rather than thrown one at a time, so a writer sees all of them at once.
class BookReader {
public:
    explicit BookReader(const QString &dir) : m_dir(dir) {}

    StarterBook read()
    {
        readTypes();
        readIngredients();
        readGlassware();
        readCategories();
        readNames(QStringLiteral("garnishes.txt"), QStringLiteral("garnish"), m_book.garnishes, m_garnishIds);
        readNames(QStringLiteral("builds.txt"), QStringLiteral("build"), m_book.builds, m_buildIds);
        readNames(QStringLiteral("ratings.txt"), QStringLiteral("rating"), m_book.ratings, m_ratingIds);
        readColorSchemes();
        readConstants();
        readPrintLayouts();
        readDrinks();
        if (!m_faults.isEmpty())
            throw StarterBookError(m_faults);
        return m_book;
    }

private:
    void fault(const QString &file, int line, const QString &what)
    {
        m_faults << (line > 0 ? QStringLiteral("%1:%2: %3").arg(file).arg(line).arg(what)
                              : QStringLiteral("%1: %2").arg(file, what));
    }

    QList<SourceLine> lines(const QString &file)
    {
        QFile f(QDir(m_dir).filePath(file));
        if (!f.open(QIODevice::ReadOnly)) {
            fault(file, 0, QStringLiteral("cannot read the file: %1").arg(f.errorString()));
            return {};
        }
        QString text = QString::fromUtf8(f.readAll());
        if (text.startsWith(QChar(0xFEFF)))
            text.remove(0, 1);
        QList<SourceLine> result;
        int number = 0;
        for (QString line : text.split(QLatin1Char('\n'))) {
            ++number;
            if (line.endsWith(QLatin1Char('\r')))
                line.chop(1);
            result.append({number, line});
        }
        return result;
    }

    static bool isComment(const QString &line) { return line.trimmed().startsWith(QLatin1Char('#')); }

    // The lines that carry a record: neither blank nor comments.
    QList<SourceLine> records(const QString &file)
    {
        QList<SourceLine> result;
        for (const SourceLine &l : lines(file))
            if (!l.text.trimmed().isEmpty() && !isComment(l.text))
                result.append(l);
        return result;
    }

    // Runs of lines separated by blank lines; comment lines are left out without ending a run.
    QList<QList<SourceLine>> blocks(const QString &file)
    {
        QList<QList<SourceLine>> result;
        QList<SourceLine> current;
        for (const SourceLine &l : lines(file)) {
            if (l.text.trimmed().isEmpty()) {
                if (!current.isEmpty())
                    result.append(current);
                current.clear();
            } else if (!isComment(l.text)) {
                current.append(l);
            }
        }
        if (!current.isEmpty())
            result.append(current);
        return result;
    }

    // The fields of a table line. The last field takes the rest of the line, bars included, and
    // fields from minimum on may be left out (they read as empty).
    std::optional<QStringList> fields(const QString &file, const SourceLine &l, int count, int minimum,
                                      const QString &shape)
    {
        QStringList parts = l.text.split(QLatin1Char('|'));
        if (parts.size() > count) {
            const QStringList rest = parts.mid(count - 1);
            parts = parts.mid(0, count - 1);
            parts << rest.join(QLatin1Char('|'));
        }
        for (QString &p : parts)
            p = p.trimmed();
        if (parts.size() < minimum) {
            fault(file, l.number, QStringLiteral("expected \"%1\"").arg(shape));
            return std::nullopt;
        }
        while (parts.size() < count)
            parts << QString();
        return parts;
    }

    std::optional<int> integer(const QString &file, int line, const QString &text, const QString &what)
    {
        static const QRegularExpression re(QStringLiteral("^-?\\d{1,9}$"));
        if (!re.match(text).hasMatch()) {
            fault(file, line, QStringLiteral("%1 \"%2\" is not a whole number").arg(what, text));
            return std::nullopt;
        }
        return text.toInt();
    }

    std::optional<double> decimal(const QString &file, int line, const QString &text, const QString &what)
    {
        static const QRegularExpression re(QStringLiteral("^(\\d+(\\.\\d*)?|\\.\\d+)$"));
        if (!re.match(text).hasMatch()) {
            fault(file, line, QStringLiteral("%1 \"%2\" is not a number like 25.4").arg(what, text));
            return std::nullopt;
        }
        return QLocale::c().toDouble(text);
    }

    // Money as written, to the ten-thousandth, without passing through floating point.
    std::optional<Currency> money(const QString &file, int line, const QString &text, const QString &what)
    {
        static const QRegularExpression re(QStringLiteral("^(\\d{1,12})(?:\\.(\\d{0,4}))?$"));
        const QRegularExpressionMatch m = re.match(text);
        if (!m.hasMatch()) {
            fault(file, line,
                  QStringLiteral("%1 \"%2\" is not an amount of money like 22.99").arg(what, text));
            return std::nullopt;
        }
        const QString decimals = m.captured(2).leftJustified(4, QLatin1Char('0'));
        return Currency::fromTenThousandths(m.captured(1).toLongLong() * 10000 + decimals.toLongLong());
    }

    std::optional<std::uint32_t> colour(const QString &file, int line, const QString &text,
                                        const QString &what)
    {
        static const QRegularExpression re(QStringLiteral("^#[0-9A-Fa-f]{6}$"));
        if (!re.match(text).hasMatch()) {
            fault(file, line, QStringLiteral("%1 \"%2\" is not a colour like #1A2B3C").arg(what, text));
            return std::nullopt;
        }
        return text.mid(1).toUInt(nullptr, 16); // 0xRRGGBB
    }

    static std::uint32_t platformColour(std::uint32_t rgb)
    {
        return ((rgb >> 16) & 0xFF) | (rgb & 0xFF00) | ((rgb & 0xFF) << 16);
    }

    // A name that must be given and must not repeat (compared without case, like the store).
    bool newName(const QString &file, int line, const QString &name, QHash<QString, int> &seen, int id,
                 const QString &what)
    {
        if (name.isEmpty()) {
            fault(file, line, QStringLiteral("the %1 has no name").arg(what));
            return false;
        }
        if (seen.contains(key(name))) {
            fault(file, line, QStringLiteral("%1 \"%2\" is already defined").arg(what, name));
            return false;
        }
        seen.insert(key(name), id);
        return true;
    }

    bool newId(const QString &file, int line, int id, QSet<int> &seen, const QString &what)
    {
        if (seen.contains(id)) {
            fault(file, line, QStringLiteral("%1 id %2 is already used").arg(what).arg(id));
            return false;
        }
        seen.insert(id);
        return true;
    }

    void readTypes();
    void readIngredients();
    void readGlassware();
    void readCategories();
    void readNames(const QString &file, const QString &what, QList<BookName> &list, QHash<QString, int> &ids);
    void readColorSchemes();
    void readConstants();
    void readPrintLayouts();
    void readDrinks();
    void readDrink(const QString &file, const QList<SourceLine> &block, int &pictures);
    void readDrinkLine(const QString &file, const SourceLine &l, BookDrink &drink);

    QString m_dir;
    StarterBook m_book;
    QStringList m_faults;
    QHash<QString, int> m_typeIds, m_ingredientIds, m_glassIds, m_categoryIds, m_garnishIds, m_buildIds,
        m_ratingIds, m_drinkIds;
    QHash<int, QHash<QString, int>> m_subTypeIds; // by type id, then sub type name
};

void BookReader::readTypes()
{
    const QString file = QStringLiteral("types.txt");
    QSet<int> ids;
    for (const SourceLine &l : records(file)) {
        const auto f =
            fields(file, l, 3, 3, QStringLiteral("T | id | type name\" or \"S | type id | sub type name"));
        if (!f)
            continue;
        const QString kind = f->at(0).toUpper();
        const std::optional<int> id = integer(file, l.number, f->at(1), QStringLiteral("the type id"));
        if (!id)
            continue;
        if (kind == QLatin1String("T")) {
            if (newId(file, l.number, *id, ids, QStringLiteral("type")) &&
                newName(file, l.number, f->at(2), m_typeIds, *id, QStringLiteral("type")))
                m_book.types.append({*id, f->at(2)});
        } else if (kind == QLatin1String("S")) {
            if (!ids.contains(*id)) {
                fault(file, l.number, QStringLiteral("type %1 is not defined above").arg(*id));
                continue;
            }
            const int subId = static_cast<int>(m_book.subTypes.size()) + 1;
            if (newName(file, l.number, f->at(2), m_subTypeIds[*id], subId, QStringLiteral("sub type")))
                m_book.subTypes.append({subId, *id, f->at(2)});
        } else {
            fault(file, l.number, QStringLiteral("a line begins with T for a type or S for a sub type"));
        }
    }
    if (!m_typeIds.contains(key(QStringLiteral("Undefined"))) ||
        m_typeIds.value(key(QStringLiteral("Undefined"))) != 0)
        fault(file, 0, QStringLiteral("type 0 must be \"Undefined\""));
}

void BookReader::readIngredients()
{
    const QString file = QStringLiteral("ingredients.txt");
    for (const SourceLine &l : records(file)) {
        const auto f = fields(
            file, l, 7, 6,
            QStringLiteral("name | type | sub type or - | unit type | oz per unit | unit price | notes"));
        if (!f)
            continue;
        BookIngredient ing;
        ing.id = static_cast<int>(m_book.ingredients.size()) + 1;
        ing.name = f->at(0);
        if (!m_typeIds.contains(key(f->at(1)))) {
            fault(file, l.number, QStringLiteral("unknown ingredient type \"%1\"").arg(f->at(1)));
        } else {
            ing.type = m_typeIds.value(key(f->at(1)));
            if (f->at(2) != QLatin1String("-")) {
                const QHash<QString, int> subTypes = m_subTypeIds.value(ing.type);
                if (!subTypes.contains(key(f->at(2)))) {
                    fault(file, l.number,
                          QStringLiteral("unknown sub type \"%1\" of type \"%2\"").arg(f->at(2), f->at(1)));
                } else {
                    ing.subType = subTypes.value(key(f->at(2)));
                }
            }
        }
        ing.unitType = f->at(3);
        const auto oz = decimal(file, l.number, f->at(4), QStringLiteral("oz per unit"));
        const auto price = money(file, l.number, f->at(5), QStringLiteral("unit price"));
        ing.ozPerUnit = oz.value_or(0);
        ing.unitPrice = price.value_or(Currency());
        ing.notes = f->at(6);
        // Known by name even when a field is wrong, so the drinks using it are not blamed too.
        if (newName(file, l.number, ing.name, m_ingredientIds, ing.id, QStringLiteral("ingredient")))
            m_book.ingredients.append(ing);
    }
}

void BookReader::readGlassware()
{
    const QString file = QStringLiteral("glassware.txt");
    QSet<int> ids;
    for (const SourceLine &l : records(file)) {
        const auto f = fields(file, l, 3, 2, QStringLiteral("GlassID | name | description"));
        if (!f)
            continue;
        const std::optional<int> id = integer(file, l.number, f->at(0), QStringLiteral("the glass id"));
        if (!id)
            continue;
        // The glass pictures are numbered 1 to 24; a glass beyond them could not be shown.
        const bool shown = *id >= 1 && *id <= 24;
        if (!shown)
            fault(file, l.number, QStringLiteral("glass id %1 is not in 1..24").arg(*id));
        if (newId(file, l.number, *id, ids, QStringLiteral("glass")) &&
            newName(file, l.number, f->at(1), m_glassIds, *id, QStringLiteral("glass")) && shown)
            m_book.glassware.append({*id, f->at(1), f->at(2)});
    }
}

void BookReader::readCategories()
{
    const QString file = QStringLiteral("categories.txt");
    QSet<int> ids;
    for (const SourceLine &l : records(file)) {
        const auto f = fields(file, l, 2, 2, QStringLiteral("TypeID | name"));
        if (!f)
            continue;
        const std::optional<int> id = integer(file, l.number, f->at(0), QStringLiteral("the category id"));
        if (!id)
            continue;
        if (*id < 0 || *id > 32767) {
            fault(file, l.number, QStringLiteral("category id %1 is not in 0..32767").arg(*id));
            continue;
        }
        if (newId(file, l.number, *id, ids, QStringLiteral("category")) &&
            newName(file, l.number, f->at(1), m_categoryIds, *id, QStringLiteral("category")))
            m_book.categories.append({*id, f->at(1)});
    }
    const QString other = QStringLiteral("Unknown / Other");
    if (m_categoryIds.value(key(other), -1) != 0)
        fault(file, 0, QStringLiteral("category 0 must be \"%1\"").arg(other));
}

void BookReader::readNames(const QString &file, const QString &what, QList<BookName> &list,
                           QHash<QString, int> &ids)
{
    for (const SourceLine &l : records(file)) {
        const QString name = l.text.trimmed();
        const int id = static_cast<int>(list.size()) + 1;
        if (newName(file, l.number, name, ids, id, what))
            list.append({id, name});
    }
}

void BookReader::readColorSchemes()
{
    const QString file = QStringLiteral("colorschemes.txt");
    QSet<int> ids;
    QHash<QString, int> names;
    for (const SourceLine &l : records(file)) {
        const auto f =
            fields(file, l, 6, 6, QStringLiteral("id | name | text | highlight | accent | background"));
        if (!f)
            continue;
        const std::optional<int> id = integer(file, l.number, f->at(0), QStringLiteral("the scheme id"));
        const auto text = colour(file, l.number, f->at(2), QStringLiteral("text colour"));
        const auto highlight = colour(file, l.number, f->at(3), QStringLiteral("highlight colour"));
        const auto accent = colour(file, l.number, f->at(4), QStringLiteral("accent colour"));
        const auto background = colour(file, l.number, f->at(5), QStringLiteral("background colour"));
        if (!id || !text || !highlight || !accent || !background)
            continue;
        if (newId(file, l.number, *id, ids, QStringLiteral("scheme")) &&
            newName(file, l.number, f->at(1), names, *id, QStringLiteral("scheme")))
            m_book.colorSchemes.append({*id, f->at(1), platformColour(*text), platformColour(*highlight),
                                        platformColour(*accent), platformColour(*background)});
    }
    // The default scheme of a new installation.
    if (!ids.contains(64))
        fault(file, 0, QStringLiteral("scheme 64 (the default) is missing"));
}

void BookReader::readConstants()
{
    const QString file = QStringLiteral("constants.txt");
    const QStringList required = {QStringLiteral("MarkupOpt"), QStringLiteral("MarkupPct"),
                                  QStringLiteral("ApplyZero"), QStringLiteral("RoundTo"),
                                  QStringLiteral("MinPrice")};
    QSet<QString> seen;
    for (const SourceLine &l : records(file)) {
        const auto f = fields(file, l, 2, 2, QStringLiteral("Var | Val"));
        if (!f)
            continue;
        const QString var = f->at(0);
        QString val = f->at(1);
        if (!required.contains(var)) {
            fault(file, l.number, QStringLiteral("unknown setting \"%1\"").arg(var));
            continue;
        }
        if (seen.contains(var)) {
            fault(file, l.number, QStringLiteral("setting \"%1\" is already given").arg(var));
            continue;
        }
        seen.insert(var);
        bool ok = true;
        if (var == QLatin1String("MarkupOpt")) {
            ok = val == QLatin1String("Cost") || val == QLatin1String("Cur") || val == QLatin1String("BCM");
            if (!ok)
                fault(file, l.number, QStringLiteral("MarkupOpt \"%1\" is not Cost, Cur or BCM").arg(val));
        } else if (var == QLatin1String("MarkupPct")) {
            ok = decimal(file, l.number, val, QStringLiteral("MarkupPct")).has_value();
        } else if (var == QLatin1String("ApplyZero")) {
            ok = val == QLatin1String("True") || val == QLatin1String("False");
            if (!ok)
                fault(file, l.number, QStringLiteral("ApplyZero \"%1\" is not True or False").arg(val));
        } else if (var == QLatin1String("RoundTo")) {
            const std::optional<int> index = integer(file, l.number, val, QStringLiteral("RoundTo"));
            ok = index.has_value();
            // Stored as the number-to-text conversion writes it, with a blank for the sign.
            if (ok && *index >= 0)
                val = QLatin1Char(' ') + QString::number(*index);
        } else if (var == QLatin1String("MinPrice") && val != QLatin1String("None")) {
            ok = money(file, l.number, val, QStringLiteral("MinPrice")).has_value();
        }
        if (ok)
            m_book.constants.append({var, val});
    }
    for (const QString &var : required)
        if (!seen.contains(var))
            fault(file, 0, QStringLiteral("setting \"%1\" is missing").arg(var));
}

void BookReader::readPrintLayouts()
{
    const QString file = QStringLiteral("printlayouts.txt");
    static const QStringList textFields = {
        QStringLiteral("Name"),      QStringLiteral("NameFont"),   QStringLiteral("IngFont"),
        QStringLiteral("GlassFont"), QStringLiteral("BuildFont"),  QStringLiteral("GarnishFont"),
        QStringLiteral("MarkFont"),  QStringLiteral("RecipeFont"), QStringLiteral("Mark")};
    static const QStringList numberFields = {
        QStringLiteral("Orientation"), QStringLiteral("Metric"),      QStringLiteral("MarTop"),
        QStringLiteral("MarBottom"),   QStringLiteral("MarLeft"),     QStringLiteral("MarRight"),
        QStringLiteral("Rows"),        QStringLiteral("RowSpacing"),  QStringLiteral("Cols"),
        QStringLiteral("ColSpacing"),  QStringLiteral("GlassHeight"), QStringLiteral("PrintIng"),
        QStringLiteral("PrintGlass"),  QStringLiteral("PrintBuild"),  QStringLiteral("PrintGarnish"),
        QStringLiteral("PrintMark"),   QStringLiteral("PrintRecipe"), QStringLiteral("GlassOpt")};
    static const QRegularExpression number(QStringLiteral("^-?(\\d+(\\.\\d*)?|\\.\\d+)$"));
    QHash<QString, int> names;
    for (const QList<SourceLine> &block : blocks(file)) {
        BookPrintLayout layout;
        layout.id = static_cast<int>(m_book.printLayouts.size()) + 1;
        QSet<QString> seen;
        QString name;
        bool ok = true;
        for (const SourceLine &l : block) {
            const qsizetype eq = l.text.indexOf(QLatin1Char('='));
            const QString field = l.text.left(eq).trimmed();
            const QString value = eq < 0 ? QString() : l.text.mid(eq + 1).trimmed();
            if (eq < 0 || (!textFields.contains(field) && !numberFields.contains(field))) {
                fault(file, l.number, QStringLiteral("expected \"field=value\" with a field of PrintLayout"));
                ok = false;
            } else if (seen.contains(field)) {
                fault(file, l.number, QStringLiteral("%1 is already given for this layout").arg(field));
                ok = false;
            } else if (numberFields.contains(field) && !number.match(value).hasMatch()) {
                fault(file, l.number, QStringLiteral("%1 \"%2\" is not a number").arg(field, value));
                ok = false;
            } else {
                seen.insert(field);
                layout.fields.append({field, value});
                if (field == QLatin1String("Name"))
                    name = value;
            }
        }
        if (!seen.contains(QStringLiteral("Name"))) {
            fault(file, block.first().number, QStringLiteral("the layout has no Name"));
            continue;
        }
        if (ok && newName(file, block.first().number, name, names, layout.id, QStringLiteral("layout")))
            m_book.printLayouts.append(layout);
    }
}

void BookReader::readDrinks()
{
    const QString file = QStringLiteral("drinks.txt");
    int pictures = 0;
    for (const QList<SourceLine> &block : blocks(file))
        readDrink(file, block, pictures);
}

void BookReader::readDrink(const QString &file, const QList<SourceLine> &block, int &pictures)
{
    static const QRegularExpression fieldLine(QStringLiteral("^([A-Za-z]+):\\s*(.*)$"));
    BookDrink drink;
    drink.id = static_cast<int>(m_book.drinks.size()) + 1;
    drink.source = QStringLiteral("%1:%2").arg(file).arg(block.first().number);
    QSet<QString> given;
    QStringList recipe;
    bool inRecipe = false;
    bool anyLine = false;
    int categoryNames = 0;
    const int faultsBefore = static_cast<int>(m_faults.size());

    for (const SourceLine &l : block) {
        if (inRecipe) {
            recipe << l.text.trimmed();
            continue;
        }
        const QRegularExpressionMatch m = fieldLine.match(l.text.trimmed());
        if (!m.hasMatch()) {
            if (l.text.contains(QLatin1Char('|'))) {
                anyLine = true;
                readDrinkLine(file, l, drink);
            } else
                fault(file, l.number,
                      QStringLiteral("expected \"Field: value\" or \"amount | measure | ingredient\""));
            continue;
        }
        const QString field = m.captured(1);
        const QString value = m.captured(2).trimmed();
        if (given.contains(field)) {
            fault(file, l.number, QStringLiteral("%1 is already given for this drink").arg(field));
            continue;
        }
        given.insert(field);
        auto lookUp = [&](const QHash<QString, int> &ids, const QString &what, int &target) {
            if (ids.contains(key(value)))
                target = ids.value(key(value));
            else
                fault(file, l.number, QStringLiteral("unknown %1 \"%2\"").arg(what, value));
        };
        if (field == QLatin1String("Name")) {
            drink.name = value;
        } else if (field == QLatin1String("Glass")) {
            lookUp(m_glassIds, QStringLiteral("glass"), drink.glass);
        } else if (field == QLatin1String("Categories")) {
            for (const QString &part : value.split(QLatin1Char(';'), Qt::SkipEmptyParts)) {
                const QString name = part.trimmed();
                if (name.isEmpty())
                    continue;
                ++categoryNames;
                if (!m_categoryIds.contains(key(name)))
                    fault(file, l.number, QStringLiteral("unknown category \"%1\"").arg(name));
                else if (drink.categories.contains(m_categoryIds.value(key(name))))
                    fault(file, l.number, QStringLiteral("category \"%1\" is listed twice").arg(name));
                else
                    drink.categories << m_categoryIds.value(key(name));
            }
        } else if (field == QLatin1String("Build")) {
            lookUp(m_buildIds, QStringLiteral("build"), drink.build);
        } else if (field == QLatin1String("Garnish")) {
            lookUp(m_garnishIds, QStringLiteral("garnish"), drink.garnish);
        } else if (field == QLatin1String("Rating")) {
            lookUp(m_ratingIds, QStringLiteral("rating"), drink.rating);
        } else if (field == QLatin1String("Picture")) {
            drink.pictureColour = colour(file, l.number, value, QStringLiteral("picture colour"));
        } else if (field == QLatin1String("Comments")) {
            drink.comments = value;
        } else if (field == QLatin1String("Recipe")) {
            inRecipe = true;
            if (!value.isEmpty())
                recipe << value;
        } else {
            fault(file, l.number, QStringLiteral("unknown field \"%1\"").arg(field));
        }
    }

    const int at = block.first().number;
    if (drink.name.isEmpty())
        fault(file, at, QStringLiteral("the drink has no Name"));
    else if (m_drinkIds.contains(key(drink.name)))
        fault(file, at, QStringLiteral("drink \"%1\" is already defined").arg(drink.name));
    if (!given.contains(QStringLiteral("Glass")))
        fault(file, at, QStringLiteral("drink \"%1\" has no Glass").arg(drink.name));
    if (categoryNames == 0)
        fault(file, at, QStringLiteral("drink \"%1\" has no Categories").arg(drink.name));
    if (!given.contains(QStringLiteral("Recipe")) || recipe.isEmpty())
        fault(file, at, QStringLiteral("drink \"%1\" has no Recipe").arg(drink.name));
    if (!anyLine)
        fault(file, at, QStringLiteral("drink \"%1\" has no ingredient line").arg(drink.name));
    if (m_faults.size() != faultsBefore)
        return;

    drink.recipe = recipe.join(QStringLiteral("\r\n"));
    if (drink.pictureColour)
        drink.imageFilePath = QStringLiteral("%1").arg(++pictures, 6, 10, QLatin1Char('0'));
    m_drinkIds.insert(key(drink.name), drink.id);
    m_book.drinks.append(drink);
}

void BookReader::readDrinkLine(const QString &file, const SourceLine &l, BookDrink &drink)
{
    const auto f = fields(file, l, 3, 3, QStringLiteral("amount | measure | ingredient"));
    if (!f)
        return;
    BookLine line;
    line.amount = f->at(0);
    const Measure *measure = nullptr;
    // Only the editor's list: the conversions know "cl" and "ml" too, but no user can pick them.
    for (const Measure &m : EditorMeasures())
        if (key(m.name) == key(f->at(1)))
            measure = &m;
    if (!measure) {
        fault(file, l.number, QStringLiteral("unknown measure \"%1\"").arg(f->at(1)));
        return;
    }
    line.measure = measure->name;
    static const QRegularExpression amount(QStringLiteral("^(\\d+(\\.\\d*)?|\\.\\d+)$"));
    if (!measure->hasNumber) {
        if (!line.amount.isEmpty()) {
            fault(file, l.number, QStringLiteral("\"%1\" takes no amount").arg(measure->name));
            return;
        }
    } else if (!amount.match(line.amount).hasMatch() || QLocale::c().toDouble(line.amount) <= 0) {
        fault(file, l.number,
              QStringLiteral("amount \"%1\" is not a decimal number above 0 like 1.5").arg(line.amount));
        return;
    }
    if (!m_ingredientIds.contains(key(f->at(2)))) {
        fault(file, l.number, QStringLiteral("unknown ingredient \"%1\"").arg(f->at(2)));
        return;
    }
    line.ingredientId = m_ingredientIds.value(key(f->at(2)));
    drink.lines.append(line);
}

} // namespace

StarterBookError::StarterBookError(const QStringList &faults)
    : std::runtime_error(faults.join(QLatin1Char('\n')).toStdString()), m_faults(faults)
{}

StarterBook StarterBook::read(const QString &dir)
{
    return BookReader(dir).read();
}

const BookIngredient *StarterBook::ingredient(int id) const
{
    for (const BookIngredient &i : ingredients)
        if (i.id == id)
            return &i;
    return nullptr;
}

std::optional<QString> StarterBook::constant(const QString &var) const
{
    for (const BookConstant &c : constants)
        if (c.var == var)
            return c.val;
    return std::nullopt;
}
