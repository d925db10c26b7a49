#include <gtest/gtest.h>

#include <cstdint>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "tests/Oracle/vocabulary.h"
#include "tests/support/Lexed.h"

namespace {

using vocabulary::Entry;
using vocabulary::TokenOfWord;
using vocabulary::WithEachLetterTurned;

void ExpectTokens(const std::vector<Expectation>& expectations) { ExpectWords(expectations, QZGrammarOracle()); }

void ExpectTokens(const std::vector<std::string>& words) {
    std::vector<Expectation> expectations;
    for (const std::string& word : words) expectations.push_back({word, TokenOfWord(word)});
    ExpectTokens(expectations);
}

// Keywords and literal words.
std::vector<std::string> AllWords() {
    std::vector<std::string> words(vocabulary::kLiteralWords.begin(), vocabulary::kLiteralWords.end());
    for (const Entry& keyword : vocabulary::Keywords()) words.emplace_back(keyword.text);
    return words;
}

TEST(OracleVocabulary, HoldsTheTokensThatAreKnownAndNoOthers) {
    std::set<std::string> known = {"DIGIT",
                                   "IDENTIFICATOR",
                                   "COL_PAREN_ATTRITION",
                                   "QUOTE_ATTRITION",
                                   "MY_QUOTE_ATTRITION",
                                   "LEFT_COL_PAREN",
                                   "MY_QUOTE",
                                   "'''",
                                   "WS"};
    for (const auto* words : {&vocabulary::kLiteralWords, &vocabulary::kSystemNames}) {
        for (const std::string_view word : *words) known.insert(Quoted(word));
    }
    for (const std::string_view literal : vocabulary::kLiteralsOfTwoWords) known.insert(Quoted(literal));
    for (const Entry& keyword : vocabulary::Keywords()) known.emplace(keyword.token);
    for (const Entry& sign : vocabulary::kSigns) known.emplace(sign.token);
    for (const Entry& sign : vocabulary::kCompoundSigns) known.emplace(sign.token);
    EXPECT_EQ(known.size(), 266U);
    for (const std::string_view name : vocabulary::kImaginary) known.emplace(name);
    for (char letter = 'A'; letter <= 'Z'; ++letter) known.insert(std::string(1, letter));
    known.insert("UNDERLINE");
    std::set<std::string> found;
    for (std::uint32_t type = 0; type < 1000; ++type) {
        if (const char* name = QZTokenName(QZGrammarOracle(), type)) found.emplace(name);
    }
    EXPECT_EQ(found, known);
}

TEST(OracleLexer, GivesALiteralWordInTheCaseShownItsOwnToken) {
    std::vector<Expectation> expectations;
    for (const std::string_view word : vocabulary::kLiteralWords) {
        expectations.push_back({std::string(word), Quoted(word)});
    }
    ASSERT_EQ(expectations.size(), 40U);
    ExpectTokens(expectations);
}

TEST(OracleLexer, GivesALiteralWordInAnotherCaseToTheKeywordOfThatNameOrTakesItForAName) {
    const std::map<std::string_view, std::string> keywords = {
        {"WITH", "WITH_KEYWORD"}, {"HASH", "HASH"}, {"MERGE", "MERGE"}};
    std::vector<Expectation> expectations;
    for (const std::string_view literal : vocabulary::kLiteralWords) {
        const auto keyword = keywords.find(literal);
        const std::string type = keyword == keywords.end() ? "IDENTIFICATOR" : keyword->second;
        for (const std::string& word : WithEachLetterTurned(std::string(literal))) {
            if (word != literal) expectations.push_back({word, type});
        }
    }
    ExpectTokens(expectations);
}

TEST(OracleLexer, LetsTheLiteralWinTheTie) {
    ExpectTokens(std::vector<Expectation>{{"WITH", "'WITH'"},
                                          {"with", "WITH_KEYWORD"},
                                          {"With", "WITH_KEYWORD"},
                                          {"MERGE", "'MERGE'"},
                                          {"merge", "MERGE"},
                                          {"HASH", "'HASH'"},
                                          {"hash", "HASH"},
                                          {"LOOP", "LOOP"},
                                          {"loop", "LOOP"},
                                          {"REMOTE", "REMOTE"},
                                          {"INTO", "'INTO'"},
                                          {"into", "IDENTIFICATOR"},
                                          {"INDEX", "'INDEX'"},
                                          {"Index", "IDENTIFICATOR"},
                                          {"KEEP", "'KEEP'"},
                                          {"keep", "IDENTIFICATOR"},
                                          {"MAXDOP", "'MAXDOP'"},
                                          {"MaxDop", "IDENTIFICATOR"},
                                          {"RAW", "RAW"},
                                          {"raw", "RAW"},
                                          {"mi", "'mi'"},
                                          {"MI", "IDENTIFICATOR"},
                                          {"mm", "'mm'"},
                                          {"wk", "'wk'"},
                                          {"yy", "'yy'"},
                                          {"yyyy", "'yyyy'"},
                                          {"yyy", "IDENTIFICATOR"},
                                          {"YYYY", "IDENTIFICATOR"},
                                          {"fn", "'fn'"},
                                          {"FN", "IDENTIFICATOR"},
                                          {"SYSDATE", "IDENTIFICATOR"},
                                          {"ROWNUM", "IDENTIFICATOR"},
                                          {"DUAL", "IDENTIFICATOR"}});
}

TEST(OracleLexer, TakesEachKeywordInAnyCase) {
    std::vector<std::string> words;
    for (const Entry& keyword : vocabulary::Keywords()) {
        words.emplace_back(keyword.text);
        words.push_back(vocabulary::Lower(keyword.text));
        words.push_back(vocabulary::Mixed(keyword.text));
    }
    ASSERT_EQ(words.size(), 3U * (129 + 40));
    ExpectTokens(words);
}

TEST(OracleLexer, TakesEachLetterOfEachKeywordInBothCases) {
    std::vector<std::string> words;
    for (const Entry& keyword : vocabulary::Keywords()) {
        for (const std::string& base : {std::string(keyword.text), vocabulary::Lower(keyword.text)}) {
            for (const std::string& word : WithEachLetterTurned(base)) words.push_back(word);
        }
    }
    ExpectTokens(words);
}

TEST(OracleLexer, SpellsSomeKeywordsOtherwiseThanTheyAreNamed) {
    ExpectTokens(std::vector<Expectation>{{"AS", "LITERAL_AS"},
                                          {"UNION", "UNION_KEYWORD_"},
                                          {"UNION_", "IDENTIFICATOR"},
                                          {"WITHTIES", "WITHTIES_KEYWORD"},
                                          {"MOD", "IDENTIFICATOR"},
                                          {"BYNARY_CHECKSUM", "BYNARY_CHECKSUM"},
                                          {"BINARY_CHECKSUM", "IDENTIFICATOR"},
                                          {"PARINDEX", "PARINDEX"},
                                          {"PATINDEX", "IDENTIFICATOR"},
                                          {"ATN2", "ATN2"},
                                          {"ATAN2", "IDENTIFICATOR"},
                                          {"VARCHAR2", "VARCHAR2"},
                                          {"VARCHAR", "VARCHAR"},
                                          {"VARCHAR3", "IDENTIFICATOR"},
                                          {"NVARCHAR2", "IDENTIFICATOR"},
                                          {"NVL2", "IDENTIFICATOR"},
                                          {"LOG10", "LOG10"},
                                          {"LOG1", "IDENTIFICATOR"},
                                          {"FROM_TZ", "FROM_TZ"},
                                          {"FROM_", "IDENTIFICATOR"},
                                          {"NOT_IN", "IDENTIFICATOR"},
                                          {"SELECT_KEYWORD", "IDENTIFICATOR"}});
}

TEST(OracleLexer, TakesNoNodeNameForMoreThanAName) {
    std::vector<std::string> words;
    for (const std::string_view name : vocabulary::kImaginary) words.emplace_back(name);
    ExpectTokens(words);
    ExpectTokens(std::vector<Expectation>{{"SELECT_LIST", "IDENTIFICATOR"},
                                          {"WHERE_JOIN", "IDENTIFICATOR"},
                                          {"IN_", "IDENTIFICATOR"},
                                          {"UNION", "UNION_KEYWORD_"},
                                          {"UNDERLINE", "IDENTIFICATOR"}});
}

TEST(OracleLexer, TakesAWordThatGoesOnForAName) {
    const std::string following = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ_0123456789#$";
    std::vector<std::string> words;
    for (const std::string& word : AllWords()) {
        for (const char unit : following) words.push_back(word + unit);
    }
    ExpectTokens(words);
    ExpectTokens(std::vector<Expectation>{{"selectx", "IDENTIFICATOR"},
                                          {"SETX", "IDENTIFICATOR"},
                                          {"EXPANDX", "IDENTIFICATOR"},
                                          {"WITH#", "IDENTIFICATOR"},
                                          {"a$b#1", "IDENTIFICATOR"},
                                          {"TABLOCKX", "'TABLOCKX'"},
                                          {"STDEVP", "STDEVP"}});
}

TEST(OracleLexer, TakesTheBeginningOfAWordForANameUnlessItIsAWordItself) {
    std::vector<std::string> words;
    for (const std::string& word : AllWords()) {
        for (std::size_t length = 1; length < word.size(); ++length) words.push_back(word.substr(0, length));
    }
    ExpectTokens(words);
    ExpectTokens(
        std::vector<Expectation>{{"SELEC", "IDENTIFICATOR"}, {"SET", "IDENTIFICATOR"}, {"y", "IDENTIFICATOR"}});
}

TEST(OracleLexer, EndsAWordAtAnySignButTheTwoThatBelongToNames) {
    for (const std::string& word : AllWords()) {
        for (const Entry& sign : vocabulary::kSigns) {
            if (sign.text == "#") continue;
            const Recognition recognition(Wide(word + std::string(sign.text)), QZGrammarOracle());
            EXPECT_EQ(Types(recognition), TokenOfWord(word) + " " + std::string(sign.token)) << word << sign.text;
        }
    }
}

TEST(OracleLexer, EndsAWordAtALetterOfAnotherAlphabetAndDropsThat) {
    for (const std::string& word : AllWords()) {
        for (const char16_t unit : {u'\u007F', u'\u0080', u'ä', u'ж', u'\xD800', u'\uFFFF'}) {
            const Recognition recognition(Wide(word) + unit, QZGrammarOracle());
            EXPECT_EQ(Types(recognition), TokenOfWord(word));
            EXPECT_EQ(recognition.LexerErrors(), 1U);
        }
    }
    ExpectTypes(
        std::vector<Row>{
            {u"\u017FELECT", "IDENTIFICATOR"},              // long s
            {u"L\u0130KE", "IDENTIFICATOR IDENTIFICATOR"},  // dotted capital i
            {u"LI\u212AE", "IDENTIFICATOR IDENTIFICATOR"},  // Kelvin sign
            {u"ＡＳ", ""},                                  // full-width letters
            {u"Größe", "IDENTIFICATOR IDENTIFICATOR"},
            {u"AS\u00E4AS", "LITERAL_AS LITERAL_AS"},
        },
        QZGrammarOracle(), Losses::Some);
}

TEST(OracleLexer, KnowsNoJoinedFormsOfNot) {
    ExpectTypes(
        std::vector<Row>{
            {u"NOT IN", "NOT_KEYWORD @WS IN_KEYWORD"},
            {u"NOT NULL", "NOT_KEYWORD @WS NULL_KEYWORD"},
            {u"not like", "NOT_KEYWORD @WS LIKE_KEYWORD"},
            {u"WITH TIES", "'WITH' @WS IDENTIFICATOR"},
            {u"VARCHAR2(", "VARCHAR2 LEFT_PAREN"},
            {u"VARCHAR(", "VARCHAR LEFT_PAREN"},
        },
        QZGrammarOracle());
}

}  // namespace
