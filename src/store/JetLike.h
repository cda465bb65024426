#pragma once

#include <QString>
#include <QStringView>
#include <string>
#include <string_view>
#include <vector>

struct sqlite3;

// The pattern language of the recipe book's searches: * any run, ? one character, # one
// digit, [abc] [a-c] one of, [!a-c] none of (an unclosed "[" is a plain character); letters
// compare as names do, without case or accents.
class JetLikePattern {
public:
    // Every text is a pattern.
    static JetLikePattern compile(QStringView pattern);
    bool matches(QStringView text) const;
    // The engine hands text over as UTF-8; matching it there spares a conversion per row.
    bool matchesUtf8(const char *text, int bytes) const;

private:
    struct Range {
        char32_t from, to;
    };
    struct Token {
        enum Kind { Literal, AnyOne, Digit, AnyRun, Set } kind;
        char32_t ch = 0;           // Literal, folded
        bool negate = false;       // Set
        std::vector<Range> ranges; // Set, folded
    };
    // Most searches are "*x*", "x*" or a plain name: those compare the folded text directly.
    enum Shape { General, Exact, Prefix, Suffix, Contains };

    bool matchFolded(std::u32string_view text) const;
    template <typename View>
    bool matchShape(View text, View literal) const;
    bool matchTokens(std::u32string_view text) const;
    static bool tokenMatches(const Token &t, char32_t c);

    std::vector<Token> m_tokens;
    Shape m_shape = General;
    std::u32string m_literal; // the folded literal of the simple shapes
    bool m_ascii = false;      // a simple shape whose literal is plain ASCII
    std::string m_asciiLiteral;
};

bool jetLike(QStringView pattern, QStringView text);

// Makes the engine's LIKE operator (and like()) follow that language on this connection.
void registerJetLike(sqlite3 *db);
