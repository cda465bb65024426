#pragma once

#include <QLocale>
#include <QString>
#include <QVariant>
#include <cstdint>
#include <optional>

// Money: a signed count of ten-thousandths, as the store's Currency fields hold it.
// No money arithmetic ever goes through floating point, except where a rule converts a
// double product into currency (fromDouble, rounding half to even like the old runtime).
class Currency {
public:
    constexpr Currency() = default;
    static constexpr Currency fromTenThousandths(std::int64_t v) { Currency c; c.m_value = v; return c; }
    static Currency fromDouble(double v);            // rounds to the nearest ten-thousandth, halves to even
    static Currency fromVariant(const QVariant &v);  // a store value (decimal number); Null gives 0

    constexpr std::int64_t tenThousandths() const { return m_value; }
    double toDouble() const { return static_cast<double>(m_value) / 10000.0; }
    // Decimal text for SQL and the store: "3.5", "-0.0125", "12".
    QString toSqlText() const;

    // The locale's currency format: "$1,234.50", negatives "($1.50)" in en_US. A C or POSIX
    // system locale is taken as en_US.
    QString format() const;
    QString format(const QLocale &locale) const;
    // Reads text in the locale's currency format back, and also plain numbers with a period
    // as the decimal mark. Empty or unreadable text gives nothing.
    static std::optional<Currency> parse(const QString &text);
    static std::optional<Currency> parse(const QString &text, const QLocale &locale);

    // The system locale, or en_US where the system has none (C/POSIX).
    static QLocale currencyLocale();

    friend constexpr bool operator==(Currency a, Currency b) = default;
    friend constexpr auto operator<=>(Currency a, Currency b) = default;
    friend constexpr Currency operator+(Currency a, Currency b) { return fromTenThousandths(a.m_value + b.m_value); }
    friend constexpr Currency operator-(Currency a, Currency b) { return fromTenThousandths(a.m_value - b.m_value); }
    Currency &operator+=(Currency o) { m_value += o.m_value; return *this; }

private:
    std::int64_t m_value = 0;
};
