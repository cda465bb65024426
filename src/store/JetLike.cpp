#include "store/JetLike.h"

#include <QChar>
#include <sqlite3.h>

namespace {

char32_t fold(char32_t c) { return QChar::toCaseFolded(c); }

// Decodes UTF-16 into code points once, so that ? counts characters, not halves of pairs.
std::u32string codePoints(QStringView s)
{
    std::u32string out;
    out.reserve(s.size());
    for (qsizetype i = 0; i < s.size(); ++i) {
        const QChar c = s[i];
        if (c.isHighSurrogate() && i + 1 < s.size() && s[i + 1].isLowSurrogate()) {
            out += QChar::surrogateToUcs4(c, s[i + 1]);
            ++i;
        } else {
            out += c.unicode();
        }
    }
    return out;
}

} // namespace

std::optional<JetLikePattern> JetLikePattern::compile(QStringView pattern)
{
    JetLikePattern p;
    const std::u32string cps = codePoints(pattern);
    for (size_t i = 0; i < cps.size(); ++i) {
        const char32_t c = cps[i];
        Token t{Token::Literal, 0, false, {}};
        if (c == U'*') {
            if (!p.m_tokens.empty() && p.m_tokens.back().kind == Token::AnyRun)
                continue;
            t.kind = Token::AnyRun;
        } else if (c == U'?') {
            t.kind = Token::AnyOne;
        } else if (c == U'#') {
            t.kind = Token::Digit;
        } else if (c == U'[') {
            size_t j = i + 1;
            t.kind = Token::Set;
            if (j < cps.size() && cps[j] == U'!') {
                t.negate = true;
                ++j;
            }
            const size_t first = j;
            // A "]" right after the opening bracket closes an empty set ("[]" matches nothing
            // and consumes nothing), as the old engine had it.
            while (j < cps.size() && cps[j] != U']') {
                char32_t lo = cps[j];
                if (j + 2 < cps.size() && cps[j + 1] == U'-' && cps[j + 2] != U']') {
                    t.ranges.push_back({fold(lo), fold(cps[j + 2])});
                    j += 3;
                } else {
                    t.ranges.push_back({fold(lo), fold(lo)});
                    ++j;
                }
            }
            if (j >= cps.size())
                return std::nullopt;
            i = j;
            if (j == first && !t.negate)
                continue; // "[]": zero-length
        } else {
            t.ch = fold(c);
        }
        p.m_tokens.push_back(std::move(t));
    }
    return p;
}

bool JetLikePattern::tokenMatches(const Token &t, char32_t c) const
{
    switch (t.kind) {
    case Token::Literal:
        return fold(c) == t.ch;
    case Token::AnyOne:
        return true;
    case Token::Digit:
        return c >= U'0' && c <= U'9';
    case Token::Set: {
        const char32_t f = fold(c);
        bool in = false;
        for (const Range &r : t.ranges)
            if ((f >= r.from && f <= r.to) || (c >= r.from && c <= r.to)) {
                in = true;
                break;
            }
        return in != t.negate;
    }
    case Token::AnyRun:
        break;
    }
    return false;
}

bool JetLikePattern::matches(QStringView textView) const
{
    const std::u32string text = codePoints(textView);
    // Greedy match with one backtrack point: the position after the last "*" seen.
    size_t ti = 0, pi = 0;
    size_t starP = SIZE_MAX, starT = 0;
    while (ti < text.size()) {
        if (pi < m_tokens.size() && m_tokens[pi].kind == Token::AnyRun) {
            starP = ++pi;
            starT = ti;
        } else if (pi < m_tokens.size() && tokenMatches(m_tokens[pi], text[ti])) {
            ++pi;
            ++ti;
        } else if (starP != SIZE_MAX) {
            pi = starP;
            ti = ++starT;
        } else {
            return false;
        }
    }
    while (pi < m_tokens.size() && m_tokens[pi].kind == Token::AnyRun)
        ++pi;
    return pi == m_tokens.size();
}

bool jetLike(QStringView pattern, QStringView text)
{
    const auto p = JetLikePattern::compile(pattern);
    return p && p->matches(text);
}

namespace {

QStringView argText(sqlite3_value *v)
{
    const auto *data = static_cast<const char16_t *>(sqlite3_value_text16(v));
    const int bytes = sqlite3_value_bytes16(v);
    return QStringView(data, bytes / 2);
}

void destroyPattern(void *p) { delete static_cast<JetLikePattern *>(p); }

// like(pattern, text[, escape]): the engine calls this for "text LIKE pattern". The compiled
// pattern is kept with the statement, so a scan of the whole drink list compiles it once.
void likeFunction(sqlite3_context *ctx, int argc, sqlite3_value **argv)
{
    if (sqlite3_value_type(argv[0]) == SQLITE_NULL || sqlite3_value_type(argv[1]) == SQLITE_NULL ||
        (argc == 3 && sqlite3_value_type(argv[2]) == SQLITE_NULL)) {
        sqlite3_result_null(ctx);
        return;
    }
    auto *compiled = static_cast<JetLikePattern *>(sqlite3_get_auxdata(ctx, 0));
    if (!compiled) {
        auto p = JetLikePattern::compile(argText(argv[0]));
        if (!p) {
            sqlite3_result_error(ctx, "Invalid pattern string", -1);
            return;
        }
        compiled = new JetLikePattern(std::move(*p));
        sqlite3_set_auxdata(ctx, 0, compiled, destroyPattern);
        // The engine may drop the aux data at once; then re-read it from what it kept.
        compiled = static_cast<JetLikePattern *>(sqlite3_get_auxdata(ctx, 0));
        if (!compiled) {
            sqlite3_result_int(ctx, jetLike(argText(argv[0]), argText(argv[1])) ? 1 : 0);
            return;
        }
    }
    sqlite3_result_int(ctx, compiled->matches(argText(argv[1])) ? 1 : 0);
}

} // namespace

void registerJetLike(sqlite3 *db)
{
    const int flags = SQLITE_UTF16 | SQLITE_DETERMINISTIC;
    sqlite3_create_function(db, "like", 2, flags, nullptr, likeFunction, nullptr, nullptr);
    sqlite3_create_function(db, "like", 3, flags, nullptr, likeFunction, nullptr, nullptr);
}
