// What a lexer makes of a text, for its tests.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/Recognition.h"

inline std::u16string Wide(std::string_view ascii) { return {ascii.begin(), ascii.end()}; }

inline std::string Quoted(std::string_view text) { return "'" + std::string(text) + "'"; }

inline std::string TypeOf(const Recognition& recognition, const QZToken& token) {
    return (token.hidden ? "@" : "") + std::string(QZTokenName(recognition.Grammar(), token.type));
}

// The types of all tokens by blanks, hidden ones with an @ in front.
inline std::string Types(const Recognition& recognition) {
    std::string types;
    for (const QZToken& token : recognition.Tokens()) {
        types += (types.empty() ? "" : " ") + TypeOf(recognition, token);
    }
    return types;
}

inline std::vector<QZReport> LexerReports(const Recognition& recognition) {
    std::vector<QZReport> reports;
    for (const QZReport& report : recognition.Reports()) {
        if (report.phase == QZPhase::Lexer) reports.push_back(report);
    }
    return reports;
}

struct Row {
    std::u16string_view text;
    std::string_view types;
};

/// Whether some characters of a text make no token.
enum class Losses { None, Some };

template <class Rows>
void ExpectTypes(const Rows& rows, const QZGrammar& grammar = QZGrammarMSAccessSQL_v3(), Losses losses = Losses::None) {
    for (const Row& row : rows) {
        SCOPED_TRACE(ToUtf8(row.text));
        const Recognition recognition(std::u16string(row.text), grammar);
        EXPECT_EQ(Types(recognition), row.types);
        EXPECT_EQ(recognition.LexerErrors() > 0, losses == Losses::Some);
    }
}

struct Expectation {
    std::string word;
    std::string type;
};

// Every word on a line of its own: one token each, with the word as its text; the line ends are hidden or dropped.
inline void ExpectWords(const std::vector<Expectation>& expectations,
                        const QZGrammar& grammar = QZGrammarMSAccessSQL_v3()) {
    std::string text;
    for (const Expectation& expected : expectations) text += expected.word + '\n';
    const Recognition recognition(Wide(text), grammar);
    std::vector<QZToken> tokens = recognition.Tokens();
    EXPECT_EQ(tokens.size() + recognition.LexerErrors(), 2 * expectations.size());
    tokens.erase(std::remove_if(tokens.begin(), tokens.end(), [](const QZToken& token) { return token.hidden; }),
                 tokens.end());
    ASSERT_EQ(tokens.size(), expectations.size());
    for (std::size_t i = 0; i < expectations.size(); ++i) {
        EXPECT_EQ(TypeOf(recognition, tokens[i]), expectations[i].type) << expectations[i].word;
        EXPECT_EQ(tokens[i].text, Wide(expectations[i].word));
    }
}
