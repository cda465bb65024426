#pragma once

#include <QString>
#include <QStringView>
#include <optional>
#include <vector>

struct sqlite3;

// The pattern language of the recipe book's searches: * any run, ? one character, # one
// digit, [abc] [a-c] one of, [!a-c] none of; letters compare without case.
class JetLikePattern {
public:
    // Nothing when the pattern is malformed (an unclosed "[").
    static std::optional<JetLikePattern> compile(QStringView pattern);
    bool matches(QStringView text) const;

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
    bool tokenMatches(const Token &t, char32_t c) const;
    std::vector<Token> m_tokens;
};

bool jetLike(QStringView pattern, QStringView text);

// Makes the engine's LIKE operator (and like()) follow that language on this connection.
void registerJetLike(sqlite3 *db);
