#include "store/JetLike.h"

#include "store/NameFold.h"

#include <algorithm>

#include <QChar>
#include <sqlite3.h>

namespace {

using NameFold::fold;

// Patterns and texts fold as names compare: case and accents drop out (an accent written
// apart from its letter drops out altogether).
inline void append(std::u32string &out, char32_t c)
{
    if (const char32_t f = fold(c))
        out += f;
}

// Folded code points of UTF-16 text, so that ? counts characters, not halves of pairs.
void foldUtf16(QStringView s, std::u32string &out)
{
    out.clear();
    for (qsizetype i = 0; i < s.size(); ++i) {
        const QChar c = s[i];
        if (c.isHighSurrogate() && i + 1 < s.size() && s[i + 1].isLowSurrogate()) {
            append(out, QChar::surrogateToUcs4(c, s[i + 1]));
            ++i;
        } else {
            append(out, c.unicode());
        }
    }
}

// Folded code points of UTF-8 text; a byte that is no valid sequence is taken as it stands.
void foldUtf8(const unsigned char *s, int n, std::u32string &out)
{
    out.clear();
    for (int i = 0; i < n;) {
        const unsigned char b = s[i];
        if (b < 0x80) {
            out += b >= 'A' && b <= 'Z' ? char32_t(b + 32) : char32_t(b);
            ++i;
            continue;
        }
        int len = b >= 0xF0 ? 4 : b >= 0xE0 ? 3 : b >= 0xC0 ? 2 : 1;
        char32_t cp = len == 4 ? b & 0x07 : len == 3 ? b & 0x0F : len == 2 ? b & 0x1F : b;
        if (len > 1 && i + len <= n) {
            for (int k = 1; k < len; ++k)
                cp = (cp << 6) | (s[i + k] & 0x3F);
        } else {
            len = 1;
            cp = b;
        }
        append(out, cp);
        i += len;
    }
}

} // namespace

JetLikePattern JetLikePattern::compile(QStringView pattern)
{
    JetLikePattern p;
    std::u32string cps;
    foldUtf16(pattern, cps);
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
                if (j + 2 < cps.size() && cps[j + 1] == U'-' && cps[j + 2] != U']') {
                    t.ranges.push_back({cps[j], cps[j + 2]});
                    j += 3;
                } else {
                    t.ranges.push_back({cps[j], cps[j]});
                    ++j;
                }
            }
            if (j >= cps.size()) {
                // An unclosed "[" opens no set: it is a plain character.
                t = Token{Token::Literal, c, false, {}};
                p.m_tokens.push_back(std::move(t));
                continue;
            }
            i = j;
            if (j == first && !t.negate)
                continue; // "[]": zero-length
        } else {
            t.ch = c;
        }
        p.m_tokens.push_back(std::move(t));
    }

    // Recognise the simple shapes: literals with at most a "*" at either end.
    const auto &tk = p.m_tokens;
    const bool lead = !tk.empty() && tk.front().kind == Token::AnyRun;
    const bool trail = tk.size() > size_t(lead) && tk.back().kind == Token::AnyRun;
    bool literalsOnly = true;
    for (size_t k = lead; k < tk.size() - (trail ? 1 : 0) && literalsOnly; ++k) {
        if (tk[k].kind == Token::Literal)
            p.m_literal += tk[k].ch;
        else
            literalsOnly = false;
    }
    if (literalsOnly) {
        p.m_shape = lead && trail ? Contains : lead ? Suffix : trail ? Prefix : Exact;
        p.m_ascii = std::all_of(p.m_literal.begin(), p.m_literal.end(), [](char32_t c) { return c < 0x80; });
        if (p.m_ascii)
            p.m_asciiLiteral.assign(p.m_literal.begin(), p.m_literal.end());
    }
    return p;
}

bool JetLikePattern::tokenMatches(const Token &t, char32_t c)
{
    switch (t.kind) {
    case Token::Literal:
        return c == t.ch;
    case Token::AnyOne:
        return true;
    case Token::Digit:
        return c >= U'0' && c <= U'9';
    case Token::Set: {
        bool in = false;
        for (const Range &r : t.ranges)
            if (c >= r.from && c <= r.to) {
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

bool JetLikePattern::matchTokens(std::u32string_view text) const
{
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

template <typename View>
bool JetLikePattern::matchShape(View text, View lit) const
{
    switch (m_shape) {
    case Exact:
        return text == lit;
    case Prefix:
        return text.substr(0, lit.size()) == lit;
    case Suffix:
        return text.size() >= lit.size() && text.substr(text.size() - lit.size()) == lit;
    case Contains:
        return text.find(lit) != View::npos;
    case General:
        break;
    }
    return false;
}

bool JetLikePattern::matchFolded(std::u32string_view text) const
{
    if (m_shape != General)
        return matchShape(text, std::u32string_view(m_literal));
    return matchTokens(text);
}

bool JetLikePattern::matches(QStringView text) const
{
    std::u32string folded;
    foldUtf16(text, folded);
    return matchFolded(folded);
}

bool JetLikePattern::matchesUtf8(const char *text, int bytes) const
{
    // A plain ASCII text against a plain ASCII literal is compared as bytes, without widening
    // it first: the usual name search on the usual name.
    if (m_ascii) {
        thread_local std::string lowered;
        lowered.resize(size_t(bytes));
        int i = 0;
        for (; i < bytes; ++i) {
            const unsigned char b = static_cast<unsigned char>(text[i]);
            if (b >= 0x80)
                break;
            lowered[size_t(i)] = char(b >= 'A' && b <= 'Z' ? b + 32 : b);
        }
        if (i == bytes)
            return matchShape(std::string_view(lowered), std::string_view(m_asciiLiteral));
    }
    // One buffer per thread, reused for every row of a scan.
    thread_local std::u32string folded;
    foldUtf8(reinterpret_cast<const unsigned char *>(text), bytes, folded);
    return matchFolded(folded);
}

bool jetLike(QStringView pattern, QStringView text)
{
    return JetLikePattern::compile(pattern).matches(text);
}

namespace {

void destroyPattern(void *p) { delete static_cast<JetLikePattern *>(p); }

JetLikePattern compileArg(sqlite3_value *v)
{
    const auto *data = static_cast<const char16_t *>(sqlite3_value_text16(v));
    return JetLikePattern::compile(QStringView(data, sqlite3_value_bytes16(v) / 2));
}

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
    JetLikePattern local;
    if (!compiled) {
        local = compileArg(argv[0]);
        sqlite3_set_auxdata(ctx, 0, new JetLikePattern(local), destroyPattern);
        compiled = &local;
    }
    const auto *text = reinterpret_cast<const char *>(sqlite3_value_text(argv[1]));
    sqlite3_result_int(ctx, compiled->matchesUtf8(text, sqlite3_value_bytes(argv[1])) ? 1 : 0);
}

} // namespace

void registerJetLike(sqlite3 *db)
{
    const int flags = SQLITE_UTF8 | SQLITE_DETERMINISTIC;
    sqlite3_create_function(db, "like", 2, flags, nullptr, likeFunction, nullptr, nullptr);
    sqlite3_create_function(db, "like", 3, flags, nullptr, likeFunction, nullptr, nullptr);
}
