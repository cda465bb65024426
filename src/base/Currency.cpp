#include "base/Currency.h"

#include <cmath>
#include <limits>

namespace {

constexpr std::int64_t kMax = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kMin = std::numeric_limits<std::int64_t>::min();

// Magnitude of a value; works for the most negative one too.
std::uint64_t magnitude(std::int64_t v)
{
    return v < 0 ? 0 - static_cast<std::uint64_t>(v) : static_cast<std::uint64_t>(v);
}

std::optional<std::int64_t> signedFromMagnitude(std::uint64_t mag, bool negative)
{
    const std::uint64_t limit = static_cast<std::uint64_t>(kMax) + (negative ? 1 : 0);
    if (mag > limit)
        return std::nullopt;
    return negative ? static_cast<std::int64_t>(0 - mag) : static_cast<std::int64_t>(mag);
}

// Reads whole and fraction digits (ASCII, already checked) into ten-thousandths, rounding the
// fifth decimal and beyond half to even. Nothing when the value does not fit.
std::optional<std::int64_t> fromDigits(QStringView whole, QStringView fraction, bool negative)
{
    constexpr std::uint64_t maxMag = static_cast<std::uint64_t>(kMax) + 1;
    std::uint64_t mag = 0;
    for (QChar c : whole) {
        const unsigned d = c.unicode() - u'0';
        if (mag > (maxMag - d) / 10)
            return std::nullopt;
        mag = mag * 10 + d;
    }
    for (int i = 0; i < 4; ++i) {
        const unsigned d = i < fraction.size() ? fraction[i].unicode() - u'0' : 0;
        if (mag > (maxMag - d) / 10)
            return std::nullopt;
        mag = mag * 10 + d;
    }
    if (fraction.size() > 4) {
        const unsigned next = fraction[4].unicode() - u'0';
        bool beyond = false;
        for (qsizetype i = 5; i < fraction.size() && !beyond; ++i)
            beyond = fraction[i] != u'0';
        if (next > 5 || (next == 5 && (beyond || (mag & 1))))
            ++mag;
    }
    return signedFromMagnitude(mag, negative);
}

// "[+-]digits[.digits]" with at least one digit, as SQLite and the program's own SQL write
// numbers.
std::optional<std::int64_t> fromPlainDecimal(QStringView text)
{
    text = text.trimmed();
    bool negative = false;
    if (!text.isEmpty() && (text.front() == u'-' || text.front() == u'+')) {
        negative = text.front() == u'-';
        text = text.mid(1);
    }
    const qsizetype dot = text.indexOf(u'.');
    const QStringView whole = dot < 0 ? text : text.left(dot);
    const QStringView fraction = dot < 0 ? QStringView() : text.mid(dot + 1);
    if (whole.isEmpty() && fraction.isEmpty())
        return std::nullopt;
    for (QStringView part : {whole, fraction}) {
        for (QChar c : part) {
            if (c < u'0' || c > u'9')
                return std::nullopt;
        }
    }
    return fromDigits(whole, fraction, negative);
}

Currency saturated(bool negative)
{
    return Currency::fromTenThousandths(negative ? kMin : kMax);
}

bool isUsEnglish(const QLocale &locale)
{
    return locale.language() == QLocale::English && locale.territory() == QLocale::UnitedStates;
}

// The locale's currency pattern for positive or negative amounts, with the number
// replaced by "%1". Qt knows where the symbol and the sign go; the digits we write
// ourselves, because a double cannot carry every currency value.
QString currencyPattern(const QLocale &locale, bool negative)
{
    const QString number = locale.toString(1.25, 'f', 2);
    if (negative && isUsEnglish(locale))
        return QLatin1Char('(') + currencyPattern(locale, false) + QLatin1Char(')');
    QString pattern = locale.toCurrencyString(negative ? -1.25 : 1.25, QString(), 2);
    const qsizetype at = pattern.indexOf(number);
    if (at < 0)
        return QString();
    return pattern.replace(at, number.size(), QStringLiteral("%1"));
}

// Strips what from the start of the text, or else from its end; tells whether it did.
bool stripAffix(QString &text, const QString &what)
{
    if (what.isEmpty())
        return false;
    if (text.startsWith(what)) {
        text.remove(0, what.size());
        return true;
    }
    if (text.endsWith(what)) {
        text.chop(what.size());
        return true;
    }
    return false;
}

// Direction marks (Arabic locales) are invisible and carry no meaning for a number.
QString withoutFormatMarks(QString text)
{
    text.removeIf([](QChar c) { return c.category() == QChar::Other_Format; });
    return text;
}

bool isDigitChar(QChar c)
{
    return c.category() == QChar::Number_DecimalDigit;
}

// Splits the whole part at its group separators and checks that they stand where the
// locale puts them: the last group three digits, the ones before two or three (Indian
// grouping), the first one to three.
bool ungroup(QStringView whole, const QString &groupSep, QString &digits)
{
    const bool spaceGroups = groupSep.size() == 1 && groupSep.front().isSpace();
    QList<qsizetype> groups;
    qsizetype run = 0;
    for (qsizetype i = 0; i < whole.size(); ++i) {
        const QChar c = whole[i];
        if (isDigitChar(c)) {
            digits += QChar(u'0' + c.digitValue());
            ++run;
        } else if ((spaceGroups && c.isSpace()) ||
                   (!groupSep.isEmpty() && whole.mid(i).startsWith(groupSep))) {
            if (run == 0)
                return false;
            groups.append(run);
            run = 0;
            if (!spaceGroups)
                i += groupSep.size() - 1;
        } else {
            return false;
        }
    }
    if (groups.isEmpty())
        return true;
    if (run != 3 || groups.front() > 3)
        return false;
    for (qsizetype i = 1; i < groups.size(); ++i) {
        if (groups[i] != 2 && groups[i] != 3)
            return false;
    }
    return true;
}

std::optional<std::int64_t> parseNumber(QStringView core, const QLocale &locale, bool negative)
{
    const QString decimal = locale.decimalPoint();
    const QString group = locale.groupSeparator();
    QString mark = decimal;
    if (!core.contains(decimal) && decimal != QLatin1String(".")) {
        // A period is also a decimal mark, unless it is the locale's group separator and
        // there is more than one of them ("1.234.567" in German).
        if (group != QLatin1String(".") || core.count(u'.') == 1)
            mark = QStringLiteral(".");
    }
    const qsizetype at = core.indexOf(mark);
    if (at >= 0 && core.indexOf(mark, at + mark.size()) >= 0)
        return std::nullopt;
    const QStringView whole = at < 0 ? core : core.left(at);
    const QStringView fraction = at < 0 ? QStringView() : core.mid(at + mark.size());
    QString wholeDigits;
    if (!ungroup(whole, group == mark ? QString() : group, wholeDigits))
        return std::nullopt;
    QString fractionDigits;
    for (QChar c : fraction) {
        if (!isDigitChar(c))
            return std::nullopt;
        fractionDigits += QChar(u'0' + c.digitValue());
    }
    if (wholeDigits.isEmpty() && fractionDigits.isEmpty())
        return std::nullopt;
    return fromDigits(wholeDigits, fractionDigits, negative);
}

} // namespace

Currency Currency::fromDouble(double v)
{
    if (std::isnan(v))
        return Currency();
    const double scaled = v * 10000.0;
    // 2^63 is the first double beyond the range.
    if (scaled >= 9223372036854775808.0 || scaled < -9223372036854775808.0)
        return saturated(scaled < 0);
    double whole = std::floor(scaled);
    const double rest = scaled - whole;
    if (rest > 0.5 || (rest == 0.5 && std::fmod(whole, 2.0) != 0.0))
        whole += 1.0;
    if (whole >= 9223372036854775808.0)
        return saturated(false);
    return fromTenThousandths(static_cast<std::int64_t>(whole));
}

Currency Currency::fromVariant(const QVariant &v)
{
    if (v.isNull())
        return Currency();
    switch (v.typeId()) {
    case QMetaType::Int:
    case QMetaType::LongLong: {
        const qlonglong n = v.toLongLong();
        if (n > kMax / 10000 || n < kMin / 10000)
            return saturated(n < 0);
        return fromTenThousandths(n * 10000);
    }
    case QMetaType::UInt:
    case QMetaType::ULongLong: {
        const qulonglong n = v.toULongLong();
        if (n > static_cast<qulonglong>(kMax / 10000))
            return saturated(false);
        return fromTenThousandths(static_cast<std::int64_t>(n) * 10000);
    }
    case QMetaType::Double:
    case QMetaType::Float: {
        // The shortest text of the double is the decimal the store meant: 0.1 stays
        // 0.1 instead of 0.1000000000000000055...
        const double d = v.toDouble();
        if (const auto exact = fromPlainDecimal(QString::number(d, 'f', QLocale::FloatingPointShortest)))
            return fromTenThousandths(*exact);
        return fromDouble(d);
    }
    default:
        break;
    }
    const QString text = v.toString();
    if (const auto exact = fromPlainDecimal(text))
        return fromTenThousandths(*exact);
    bool ok = false;
    const double d = text.trimmed().toDouble(&ok);
    return ok ? fromDouble(d) : Currency();
}

QString Currency::toSqlText() const
{
    const std::uint64_t mag = magnitude(m_value);
    QString text = QString::number(mag / 10000);
    std::uint64_t fraction = mag % 10000;
    if (fraction != 0) {
        int digits = 4;
        while (fraction % 10 == 0) {
            fraction /= 10;
            --digits;
        }
        text += QLatin1Char('.') + QString::number(fraction).rightJustified(digits, QLatin1Char('0'));
    }
    if (m_value < 0)
        text.prepend(QLatin1Char('-'));
    return text;
}

QLocale Currency::currencyLocale()
{
    const QLocale system = QLocale::system();
    if (system.language() == QLocale::C || system.name() == QLatin1String("C"))
        return QLocale(QLocale::English, QLocale::UnitedStates);
    return system;
}

QString Currency::format() const
{
    return format(currencyLocale());
}

QString Currency::format(const QLocale &locale) const
{
    // Whole cents, halves away from zero.
    const std::uint64_t cents = (magnitude(m_value) + 50) / 100;
    const bool negative = m_value < 0 && cents != 0;
    const std::uint64_t units = cents / 100;
    const std::uint64_t rest = cents % 100;
    QString number = locale.toString(static_cast<qulonglong>(units)) + locale.decimalPoint();
    if (rest < 10)
        number += locale.zeroDigit();
    number += locale.toString(static_cast<qulonglong>(rest));

    const QString pattern = currencyPattern(locale, negative);
    if (pattern.isEmpty()) {
        const double amount = double(cents) / 100.0;
        return locale.toCurrencyString(negative ? -amount : amount, QString(), 2);
    }
    return pattern.arg(number);
}

std::optional<Currency> Currency::parse(const QString &text)
{
    return parse(text, currencyLocale());
}

std::optional<Currency> Currency::parse(const QString &text, const QLocale &locale)
{
    QString s = withoutFormatMarks(text).trimmed();
    bool negative = false;
    if (s.size() >= 2 && s.front() == u'(' && s.back() == u')') {
        negative = true;
        s = s.mid(1, s.size() - 2).trimmed();
    }

    const QString negativeSign = withoutFormatMarks(locale.negativeSign());
    const QString symbol = withoutFormatMarks(locale.currencySymbol(QLocale::CurrencySymbol));
    // The symbol and one sign may stand on either side of the number, in either order.
    bool sawSymbol = false;
    bool sawSign = false;
    for (;;) {
        s = s.trimmed();
        if (!sawSymbol && stripAffix(s, symbol)) {
            sawSymbol = true;
            continue;
        }
        if (sawSign)
            break;
        if (stripAffix(s, negativeSign) || stripAffix(s, QStringLiteral("-")) ||
            stripAffix(s, QStringLiteral("\u2212"))) {
            if (negative)
                return std::nullopt; // "(-1.50)"
            negative = sawSign = true;
            continue;
        }
        if (stripAffix(s, QStringLiteral("+"))) {
            sawSign = true;
            continue;
        }
        break;
    }
    if (s.isEmpty())
        return std::nullopt;
    const auto value = parseNumber(s, locale, negative);
    if (!value)
        return std::nullopt;
    return fromTenThousandths(*value);
}
