#include <gtest/gtest.h>

#include <cstdint>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "tests/Grammar/vocabulary.h"
#include "tests/support/Lexed.h"

namespace {

using vocabulary::Entry;
using vocabulary::TokenOfWord;
using vocabulary::WithEachLetterTurned;

void ExpectTokens(const std::vector<Expectation>& expectations) { ExpectWords(expectations, QZGrammarMySQLSelect()); }

// The token that the vocabulary tells for each word.
void ExpectKnown(const std::vector<std::string>& words) {
    std::vector<Expectation> expectations;
    for (const std::string& word : words) expectations.push_back({word, TokenOfWord(word)});
    ExpectTokens(expectations);
}

std::vector<std::string> AllWords() {
    std::vector<std::string> words(vocabulary::kLiteralWords.begin(), vocabulary::kLiteralWords.end());
    for (const Entry& keyword : vocabulary::Keywords()) words.emplace_back(keyword.text);
    return words;
}

TEST(MySQLVocabulary, HoldsTheTokensThatAreKnownAndNoOthers) {
    std::set<std::string> known = {"DIGIT", "IDENTIFICATOR", "WS", "UNDERLINE", "'EXPAND VIEWS'", "'BYNATY base64'"};
    for (char letter = 'A'; letter <= 'Z'; ++letter) known.insert(std::string(1, letter));
    for (const auto* words : {&vocabulary::kLiteralWords, &vocabulary::kSystemNames}) {
        for (const std::string_view word : *words) known.insert(Quoted(word));
    }
    for (const Entry& keyword : vocabulary::Keywords()) known.emplace(keyword.token);
    for (const Entry& keyword : vocabulary::kKeywordsWithBlank) known.emplace(keyword.token);
    for (const Entry& sign : vocabulary::kSigns) known.emplace(sign.token);
    for (const Entry& sign : vocabulary::kCompoundSigns) known.emplace(sign.token);
    // 309 kinds of tokens, among them the two spellings of NOT_EQ as one; 26 letters, the line and white space beside.
    EXPECT_EQ(known.size(), 309U + 28);
    for (const std::string_view name : vocabulary::kImaginary) known.emplace(name);
    std::set<std::string> found;
    for (std::uint32_t type = 0; type < 1000; ++type) {
        if (const char* name = QZTokenName(QZGrammarMySQLSelect(), type)) found.emplace(name);
    }
    EXPECT_EQ(found, known);
}

TEST(MySQLLexer, GivesALiteralWordInTheCaseShownItsOwnToken) {
    std::vector<Expectation> expectations;
    for (const std::string_view word : vocabulary::kLiteralWords) {
        expectations.push_back({std::string(word), Quoted(word)});
    }
    ASSERT_EQ(expectations.size(), 43U);
    ExpectTokens(expectations);
}

TEST(MySQLLexer, GivesALiteralWordInAnotherCaseToTheKeywordOfThatNameOrTakesItForAName) {
    const std::map<std::string_view, std::string> keywords = {{"WITH", "WITH_KEYWORD"}, {"CONVERT", "CONVERT_KEYWORD"}};
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

TEST(MySQLLexer, LetsTheLiteralWinTheTie) {
    ExpectTokens({{"WITH", "'WITH'"},
                  {"with", "WITH_KEYWORD"},
                  {"With", "WITH_KEYWORD"},
                  {"CONVERT", "'CONVERT'"},
                  {"convert", "CONVERT_KEYWORD"},
                  {"Convert", "CONVERT_KEYWORD"},
                  {"INTO", "'INTO'"},
                  {"into", "IDENTIFICATOR"},
                  {"INDEX", "'INDEX'"},
                  {"index", "IDENTIFICATOR"},
                  {"RAW", "'RAW'"},
                  {"raw", "IDENTIFICATOR"},
                  {"PLAN", "'PLAN'"},
                  {"Plan", "IDENTIFICATOR"},
                  {"mm", "'mm'"},
                  {"mi", "'mi'"},
                  {"MI", "IDENTIFICATOR"},
                  {"yy", "'yy'"},
                  {"wk", "'wk'"},
                  {"fn", "'fn'"},
                  {"FN", "IDENTIFICATOR"}});
}

TEST(MySQLLexer, TakesEachKeywordInAnyCase) {
    std::vector<std::string> words;
    for (const Entry& keyword : vocabulary::Keywords()) {
        words.emplace_back(keyword.text);
        words.push_back(vocabulary::Lower(keyword.text));
        words.push_back(vocabulary::Mixed(keyword.text));
    }
    ASSERT_EQ(words.size(), 3U * (42 + 172));
    ExpectKnown(words);
    ExpectTokens({{"select", "SELECT_KEYWORD"},
                  {"SELECT", "SELECT_KEYWORD"},
                  {"SeLeCt", "SELECT_KEYWORD"},
                  {"WITHTIES", "WITHTIES_KEYWORD"},
                  {"WithTies", "WITHTIES_KEYWORD"},
                  {"date", "DATE"},
                  {"Date", "DATE"},
                  {"DATE", "DATE"}});
}

TEST(MySQLLexer, TakesEachLetterOfEachKeywordInBothCases) {
    std::vector<std::string> words;
    for (const Entry& keyword : vocabulary::Keywords()) {
        for (const std::string& base : {std::string(keyword.text), vocabulary::Lower(keyword.text)}) {
            for (const std::string& word : WithEachLetterTurned(base)) words.push_back(word);
        }
    }
    ExpectKnown(words);
}

TEST(MySQLLexer, SpellsSomeKeywordsOtherwiseThanTheyAreNamed) {
    ExpectTokens({{"AS", "LITERAL_AS"},
                  {"PERIOD_DIFF", "IDENTIFICATOR"},
                  {"PEDIOD_DIFF", "PEDIODDIFF"},
                  {"PEDIODDIFF", "IDENTIFICATOR"},
                  {"PERIOD_ADD", "PERIODADD"},
                  {"MAKETIME", "IDENTIFICATOR"},
                  {"MAKETME", "MAKETME"},
                  {"TIMESTAMP", "TIMESTAMP"},
                  {"TIMESHTAMP", "TIMESHTAMP"},
                  {"WEEKOFDATE", "WEEKOFDATE"},
                  {"WEEKOFYEAR", "IDENTIFICATOR"},
                  {"TO_DAYS", "TODAYS"},
                  {"TODAYS", "IDENTIFICATOR"},
                  {"CONVERT_TZ", "CONVERTTZ"},
                  {"POSITION", "POSITION_FUNCTION"},
                  {"POSITION_FUNCTION", "IDENTIFICATOR"},
                  {"IS", "IS_KEYWORD"},
                  {"LIKE", "LIKE_KEYWORD"},
                  {"NOT_LIKE", "NOTLIKE"},
                  {"NOTLIKE", "IDENTIFICATOR"},
                  {"NOT_REGEXP", "NOTREGEXP"},
                  {"NOT_X", "IDENTIFICATOR"},
                  {"NOT_NULL", "IDENTIFICATOR"},
                  {"NOTNULL", "IDENTIFICATOR"},
                  {"STRAIGHT_JOIN", "IDENTIFICATOR"},
                  {"LOG10", "LOG10"},
                  {"LOG1", "IDENTIFICATOR"},
                  {"CRC32", "CRC32"},
                  {"CRC3", "IDENTIFICATOR"},
                  {"SELECT_KEYWORD", "IDENTIFICATOR"}});
}

TEST(MySQLLexer, TakesNoNodeNameForMoreThanAName) {
    std::vector<std::string> words;
    for (const std::string_view name : vocabulary::kImaginary) words.emplace_back(name);
    ExpectKnown(words);
    ExpectTokens({{"SELECT_LIST", "IDENTIFICATOR"},
                  {"NUMBER_literal", "IDENTIFICATOR"},
                  {"IN_", "IDENTIFICATOR"},
                  {"LITERALAS", "IDENTIFICATOR"},
                  {"AND", "AND_KEYWORD"},
                  {"LIMIT", "LIMIT_KEYWORD"}});
}

TEST(MySQLLexer, TakesAWordThatGoesOnForAName) {
    const std::string following = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ_0123456789";
    std::vector<std::string> words;
    for (const std::string& word : AllWords()) {
        for (const char unit : following) words.push_back(word + unit);
    }
    ExpectKnown(words);
    ExpectTokens({{"selectx", "IDENTIFICATOR"},
                  {"WITHx", "IDENTIFICATOR"},
                  {"PLANET", "IDENTIFICATOR"},
                  {"SELECT1", "IDENTIFICATOR"},
                  {"TABLOCKX", "'TABLOCKX'"},
                  {"TABLOCKx", "IDENTIFICATOR"}});
}

TEST(MySQLLexer, TakesTheBeginningOfAWordForANameUnlessItIsAWordItself) {
    std::vector<std::string> words;
    for (const std::string& word : AllWords()) {
        for (std::size_t length = 1; length < word.size(); ++length) words.push_back(word.substr(0, length));
    }
    ExpectKnown(words);
    ExpectTokens({{"SELEC", "IDENTIFICATOR"}, {"DIS", "IDENTIFICATOR"}, {"w", "IDENTIFICATOR"}});
}

TEST(MySQLLexer, EndsAWordAtAnySign) {
    for (const std::string& word : AllWords()) {
        for (const Entry& sign : vocabulary::kSigns) {
            const Recognition recognition(Wide(word + std::string(sign.text)), QZGrammarMySQLSelect());
            EXPECT_EQ(Types(recognition), TokenOfWord(word) + " " + std::string(sign.token)) << word << sign.text;
        }
    }
}

TEST(MySQLLexer, EndsAWordAtALetterOfAnotherAlphabetAndDropsThat) {
    for (const std::string& word : AllWords()) {
        for (const char16_t unit : {u'\u007F', u'\u0080', u'ä', u'ж', u'\xD800', u'\uFFFF'}) {
            const Recognition recognition(Wide(word) + unit, QZGrammarMySQLSelect());
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
            {u"AS\u00E4AS", "LITERAL_AS LITERAL_AS"},
        },
        QZGrammarMySQLSelect(), Losses::Some);
}

}  // namespace
