#include "store/JetDialect.h"

#include "store/NameFold.h"

#include <QRegularExpression>
#include <QStringList>

namespace {

// Literals are swapped for markers while the statement's words are rewritten, so that no rule
// can ever change a user's text. The marker uses characters no statement holds.
constexpr QChar kMark(0xE000);

QString markerFor(qsizetype index) { return kMark + QString::number(index) + kMark; }

QString sqliteLiteral(QString body)
{
    return u'\'' + body.replace(u'\'', QStringLiteral("''")) + u'\'';
}

// Splits off every literal; returns the statement with markers, and the text of each literal.
// A user's " reaches here doubled, as the old engine wrote it inside a "literal", and leaves
// as one character of a 'literal' in which a ' is doubled: the text stays one value.
QString maskLiterals(const QString &sql, QStringList &literals)
{
    QString out;
    out.reserve(sql.size());
    for (qsizetype i = 0; i < sql.size();) {
        const QChar c = sql[i];
        if (c != u'"' && c != u'\'') {
            out += c;
            ++i;
            continue;
        }
        // A quote inside is written twice in both kinds of literal.
        QString body;
        qsizetype j = i + 1;
        bool closed = false;
        while (j < sql.size()) {
            if (sql[j] == c) {
                if (j + 1 < sql.size() && sql[j + 1] == c) {
                    body += c;
                    j += 2;
                    continue;
                }
                closed = true;
                ++j;
                break;
            }
            body += sql[j++];
        }
        if (!closed) {
            // Leave a broken literal for the engine to refuse with its own message.
            out += sql.mid(i);
            break;
        }
        out += markerFor(literals.size());
        literals << body;
        i = j;
    }
    return out;
}

// One pass, so that a literal that happens to hold a marker's characters stays as it is.
QString unmaskLiterals(const QString &sql, const QStringList &literals)
{
    QString out;
    out.reserve(sql.size());
    for (qsizetype i = 0; i < sql.size();) {
        const qsizetype end = sql[i] == kMark ? sql.indexOf(kMark, i + 1) : -1;
        if (end < 0) {
            out += sql[i++];
            continue;
        }
        out += sqliteLiteral(literals.value(QStringView(sql).sliced(i + 1, end - i - 1).toInt()));
        i = end + 1;
    }
    return out;
}

QRegularExpression rx(const char *pattern)
{
    return QRegularExpression(QString::fromLatin1(pattern), QRegularExpression::CaseInsensitiveOption |
                                                                QRegularExpression::DotMatchesEverythingOption);
}

QString rewriteMultiTableDelete(const QString &sql)
{
    static const QRegularExpression multiDelete =
        rx(R"(^\s*DELETE\s+([\w\[\]]+)\.\*\s+FROM\s+(.*?)(?:\s+WHERE\s+(.*?))?\s*;?\s*$)");
    const auto m = multiDelete.match(sql);
    if (!m.hasMatch())
        return sql;
    const QString table = m.captured(1);
    QString select = QStringLiteral("SELECT %1.rowid FROM %2").arg(table, m.captured(2));
    if (m.hasCaptured(3) && !m.captured(3).isEmpty())
        select += QStringLiteral(" WHERE ") + m.captured(3);
    return QStringLiteral("DELETE FROM %1 WHERE rowid IN (%2)").arg(table, select);
}

QString unqualifySetTargets(const QString &sql)
{
    static const QRegularExpression update = rx(R"(^(\s*UPDATE\s.*?\sSET\s)(.*?)(\sWHERE\s.*)?$)");
    static const QRegularExpression qualifiedTarget = rx(R"((^|,)(\s*)[\w\[\]]+\.([\w\[\]]+\s*=))");
    const auto m = update.match(sql);
    if (!m.hasMatch())
        return sql;
    QString assignments = m.captured(2);
    // Only the assigned column of each "a.b = value" loses its table name; values keep theirs.
    assignments.replace(qualifiedTarget, QStringLiteral("\\1\\2\\3"));
    return m.captured(1) + assignments + m.captured(3);
}

// The text before the trailing stars of a pattern that is nothing but a beginning ("Blue L*"),
// or nothing.
QString prefixOf(const QString &pattern)
{
    qsizetype end = pattern.size();
    while (end > 0 && pattern[end - 1] == u'*')
        --end;
    if (end == 0 || end == pattern.size())
        return {};
    const QStringView text = QStringView(pattern).first(end);
    for (const QChar c : text)
        if (c == u'*' || c == u'?' || c == u'#' || c == u'[')
            return {};
    return text.toString();
}

// "col LIKE 'text*'" also bounds col to the names that fold to text and a little more, in the
// order of names: the engine then reads that range of an index on col instead of every row,
// and like() still decides. The bounds are the folded text and the same text followed by the
// last code point, which sorts after every letter that could follow it.
QString boundPrefixPatterns(const QString &sql, QStringList &literals)
{
    static const QRegularExpression like(QStringLiteral("((?:\\b\\w+\\.)?\\b\\w+)\\s+LIKE\\s+") + kMark +
                                             QStringLiteral("(\\d+)") + kMark,
                                         QRegularExpression::CaseInsensitiveOption);
    QString out;
    qsizetype from = 0;
    for (auto it = like.globalMatch(sql); it.hasNext();) {
        const auto m = it.next();
        const QString column = m.captured(1);
        const QString prefix = prefixOf(literals.value(m.captured(2).toInt()));
        if (prefix.isEmpty() || column.compare(QLatin1String("NOT"), Qt::CaseInsensitive) == 0)
            continue;
        static const char32_t last = 0x10FFFF;
        static const QString kLastCodePoint = QString::fromUcs4(&last, 1);
        const QString low = NameFold::folded(prefix);
        const QString collate = QStringLiteral(" COLLATE ") + QLatin1String(NameFold::kCollation);
        out += QStringView(sql).sliced(from, m.capturedStart() - from);
        // The bounds join the literals, which alone may hold a user's text.
        literals << low << low + kLastCodePoint;
        out += u'(' + column + QStringLiteral(" >= ") + markerFor(literals.size() - 2) + collate +
               QStringLiteral(" AND ") + column + QStringLiteral(" < ") + markerFor(literals.size() - 1) + collate +
               QStringLiteral(" AND ") + m.captured() + u')';
        from = m.capturedEnd();
    }
    out += QStringView(sql).sliced(from);
    return out;
}

// Drinks keep their categories in DrinkTypeRel; "C.DrinkType = n" finds the drinks of
// category n there.
QString categoryThroughRelation(const QString &sql)
{
    static const QRegularExpression drinkType = rx(R"(\b(\w+)\.DrinkType\s*=\s*(-?\d+))");
    QString out = sql;
    out.replace(drinkType, QStringLiteral("\\1.ID IN (SELECT DrinkID FROM DrinkTypeRel WHERE DrinkTypeID = \\2)"));
    return out;
}

} // namespace

QString jetToSqlite(const QString &jetSql)
{
    QStringList literals;
    QString sql = maskLiterals(jetSql, literals);

    static const QRegularExpression distinctRow = rx(R"(\bDISTINCTROW\s+)");
    static const QRegularExpression deleteStar = rx(R"(\bDELETE\s+\*\s*FROM\b)");
    static const QRegularExpression trueWord = rx(R"((?<![\w.\[])(?:True|Yes)(?![\w(\]]))");
    static const QRegularExpression falseWord = rx(R"((?<![\w.\[])(?:False|No)(?![\w(\]]))");

    sql.replace(distinctRow, QString());
    sql.replace(deleteStar, QStringLiteral("DELETE FROM"));
    sql = rewriteMultiTableDelete(sql);
    sql = unqualifySetTargets(sql);
    // Boolean words, but not a column that happens to be qualified (X.No) or a function call.
    sql.replace(trueWord, QStringLiteral("1"));
    sql.replace(falseWord, QStringLiteral("0"));
    sql = categoryThroughRelation(sql);
    sql = boundPrefixPatterns(sql, literals);

    return unmaskLiterals(sql, literals);
}

QString jetLiteralText(const QString &text)
{
    return QString(text).replace(u'"', QStringLiteral("\"\""));
}
