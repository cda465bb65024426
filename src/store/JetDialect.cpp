#include "store/JetDialect.h"

#include <QRegularExpression>
#include <QStringList>

namespace {

// Literals are swapped for markers while the statement's words are rewritten, so that no rule
// can ever change a user's text. The marker uses characters no statement holds.
constexpr QChar kMark(0xE000);

QString markerFor(qsizetype index) { return kMark + QString::number(index) + kMark; }

// Splits off every literal; returns the statement with markers, and the SQLite form of each literal.
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
        body.replace(u'\'', QStringLiteral("''"));
        out += markerFor(literals.size());
        literals << (u'\'' + body + u'\'');
        i = j;
    }
    return out;
}

QString unmaskLiterals(QString sql, const QStringList &literals)
{
    for (qsizetype n = literals.size() - 1; n >= 0; --n)
        sql.replace(markerFor(n), literals[n]);
    return sql;
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

    return unmaskLiterals(sql, literals);
}
