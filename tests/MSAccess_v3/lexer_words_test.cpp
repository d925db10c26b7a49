#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "tests/MSAccess_v3/vocabulary.h"
#include "tests/support/Lexed.h"

namespace {

using vocabulary::Entry;
using vocabulary::Mixed;
using vocabulary::TokenOfWord;
using vocabulary::WithEachLetterTurned;

bool IsWord(std::string_view text) { return text.find('$') == std::string_view::npos; }

// Keywords and literal words, the forms with a dollar sign left out.
std::vector<std::string> AllWords() {
    std::vector<std::string> words(vocabulary::kLiteralWords.begin(), vocabulary::kLiteralWords.end());
    for (const Entry& keyword : vocabulary::Keywords()) {
        if (IsWord(keyword.text)) words.emplace_back(keyword.text);
    }
    return words;
}

// ------------------------------------------------------------------------------------------------------------- words

TEST(AccessVocabulary, HoldsTheTokensThatAreKnownAndNoOthers) {
    std::set<std::string> known = {"DIGIT",
                                   "IDENTIFICATOR",
                                   "COL_PAREN_ATTRITION",
                                   "QUOTE_ATTRITION",
                                   "MY_QUOTE_ATTRITION",
                                   "LEFT_COL_PAREN",
                                   "MY_QUOTE",
                                   "QUOTE",
                                   "WS",
                                   "'EXPAND VIEWS'",
                                   "'BYNATY base64'",
                                   "UNDERLINE"};
    for (char letter = 'A'; letter <= 'Z'; ++letter) known.insert(std::string(1, letter));
    for (const std::string_view word : vocabulary::kLiteralWords) known.insert(Quoted(word));
    for (const Entry& keyword : vocabulary::Keywords()) known.emplace(keyword.token);
    for (const Entry& sign : vocabulary::kSigns) known.emplace(sign.token);
    for (const Entry& sign : vocabulary::kCompoundSigns) known.emplace(sign.token);
    for (const std::string_view name : vocabulary::kImaginary) known.emplace(name);
    std::set<std::string> found;
    for (std::uint32_t type = 0; type < 1000; ++type) {
        if (const char* name = QZTokenName(QZGrammarMSAccessSQL_v3(), type)) found.emplace(name);
    }
    EXPECT_EQ(found, known);
}

TEST(AccessLexer, GivesALiteralWordInTheCaseShownItsOwnToken) {
    std::vector<Expectation> expectations;
    for (const std::string_view word : vocabulary::kLiteralWords) {
        expectations.push_back({std::string(word), Quoted(word)});
    }
    ExpectWords(expectations);
}

TEST(AccessLexer, GivesALiteralWordInAnotherCaseToTheKeywordOfThatNameOrTakesItForAName) {
    const std::map<std::string_view, std::string> keywords = {
        {"WITH", "WITH_KEYWORD"}, {"CONVERT", "CONVERT"}, {"HASH", "HASH"}, {"LOOP", "LOOP"},   {"MERGE", "MERGE"},
        {"REMOTE", "REMOTE"},     {"count", "COUNT"},     {"day", "DAY"},   {"month", "MONTH"}, {"year", "YEAR"},
    };
    std::vector<Expectation> expectations;
    for (const std::string_view literal : vocabulary::kLiteralWords) {
        const auto keyword = keywords.find(literal);
        const std::string type = keyword == keywords.end() ? "IDENTIFICATOR" : keyword->second;
        for (const std::string& word : WithEachLetterTurned(std::string(literal))) {
            if (word != literal) expectations.push_back({word, type});
        }
    }
    ExpectWords(expectations);
}

TEST(AccessLexer, LetsTheLiteralWinTheTie) {
    ExpectWords({{"WITH", "'WITH'"},
                 {"with", "WITH_KEYWORD"},
                 {"With", "WITH_KEYWORD"},
                 {"CONVERT", "'CONVERT'"},
                 {"convert", "CONVERT"},
                 {"Convert", "CONVERT"},
                 {"HASH", "'HASH'"},
                 {"hash", "HASH"},
                 {"LOOP", "'LOOP'"},
                 {"Loop", "LOOP"},
                 {"MERGE", "'MERGE'"},
                 {"Merge", "MERGE"},
                 {"REMOTE", "'REMOTE'"},
                 {"remote", "REMOTE"},
                 {"count", "'count'"},
                 {"COUNT", "COUNT"},
                 {"Count", "COUNT"},
                 {"day", "'day'"},
                 {"DAY", "DAY"},
                 {"Day", "DAY"},
                 {"month", "'month'"},
                 {"MONTH", "MONTH"},
                 {"Month", "MONTH"},
                 {"year", "'year'"},
                 {"YEAR", "YEAR"},
                 {"Year", "YEAR"},
                 {"d", "'d'"},
                 {"D", "IDENTIFICATOR"},
                 {"yyyy", "'yyyy'"},
                 {"YYYY", "IDENTIFICATOR"},
                 {"fn", "'fn'"},
                 {"Fn", "IDENTIFICATOR"},
                 {"NOLOCK", "'NOLOCK'"},
                 {"nolock", "IDENTIFICATOR"},
                 {"XML", "'XML'"},
                 {"Xml", "IDENTIFICATOR"}});
}

TEST(AccessLexer, TakesEachKeywordInAnyCase) {
    std::vector<Expectation> expectations;
    for (const Entry& keyword : vocabulary::Keywords()) {
        for (const std::string& word :
             {std::string(keyword.text), vocabulary::Lower(keyword.text), Mixed(keyword.text)}) {
            // Of the words with a dollar sign none is a literal.
            const std::string type = IsWord(word) ? TokenOfWord(word) : std::string(keyword.token);
            expectations.push_back({word, type});
        }
    }
    ExpectWords(expectations);
}

TEST(AccessLexer, TakesEachLetterOfEachKeywordInBothCases) {
    std::vector<Expectation> expectations;
    for (const Entry& keyword : vocabulary::Keywords()) {
        if (!IsWord(keyword.text)) continue;
        for (const std::string& base : {std::string(keyword.text), vocabulary::Lower(keyword.text)}) {
            for (const std::string& word : WithEachLetterTurned(base))
                expectations.push_back({word, TokenOfWord(word)});
        }
    }
    ExpectWords(expectations);
}

TEST(AccessLexer, SpellsSomeKeywordsOtherwiseThanTheyAreNamed) {
    ExpectTypes(std::vector<Row>{
        {u"AS", "LITERAL_AS"},
        {u"NOTNULL", "NOT_NULL_KEYWORD"},
        {u"NOT NULL", "NOT_KEYWORD @WS NULL_KEYWORD"},
        {u"NOT_NULL", "IDENTIFICATOR"},
        {u"WITHTIES", "WITHTIES_KEYWORD"},
        {u"WITH TIES", "'WITH' @WS IDENTIFICATOR"},
        {u"DISTINCTROW", "DISTINCTROW_KEYWORD"},
        {u"BYNARY_CHECKSUM", "BYNARY_CHECKSUM"},
        {u"BINARY_CHECKSUM", "IDENTIFICATOR"},
        {u"COUNT_BIG", "COUNT_BIG"},
        {u"IDENT_CURRENT", "IDENT_CURRENT"},
        {u"PARINDEX", "PARINDEX"},
        {u"PATINDEX", "IDENTIFICATOR"},
        {u"ATN2", "ATN2"},
        {u"ATN", "IDENTIFICATOR"},
        {u"LOG10", "LOG10"},
        {u"LOG1", "IDENTIFICATOR"},
        {u"LOG", "LOG"},
        {u"LITERAL_AS", "IDENTIFICATOR"},
        {u"SELECT_KEYWORD", "IDENTIFICATOR"},
        {u"LEFT_KEYWORD_DOLLAR", "IDENTIFICATOR"},
    });
}

TEST(AccessLexer, TakesNoNodeNameForMoreThanAName) {
    std::vector<Expectation> expectations;
    for (const std::string_view name : vocabulary::kImaginary) {
        expectations.push_back({std::string(name), TokenOfWord(name)});
    }
    ExpectWords(expectations);
    ExpectWords({{"SELECT_LIST", "IDENTIFICATOR"},
                 {"NUMBER_literal", "IDENTIFICATOR"},
                 {"IN_", "IDENTIFICATOR"},
                 {"LITERALAS", "IDENTIFICATOR"},
                 {"ALIAS", "IDENTIFICATOR"},
                 {"UNDERLINE", "IDENTIFICATOR"}});
}

TEST(AccessLexer, TakesAWordThatGoesOnForAName) {
    const std::string following = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ_0123456789";
    std::vector<Expectation> expectations;
    for (const std::string& word : AllWords()) {
        for (const char unit : following) expectations.push_back({word + unit, TokenOfWord(word + unit)});
    }
    ExpectWords(expectations);
    ExpectWords({{"SELECTED", "IDENTIFICATOR"},
                 {"SELECT_", "IDENTIFICATOR"},
                 {"SELECT1", "IDENTIFICATOR"},
                 {"dayS", "IDENTIFICATOR"},
                 {"WITH1", "IDENTIFICATOR"},
                 {"STDEVP", "STDEVP"},
                 {"LEFTB", "LEFTB"}});
}

TEST(AccessLexer, TakesAWordThatGoesOnInAnotherAlphabetForAName) {
    for (const std::string& word : AllWords()) {
        for (const char16_t unit : {u'\u0080', u'ä', u'ж', u'\xD800', u'\uFFFE'}) {
            const std::u16string text = Wide(word) + unit;
            const Recognition recognition(text);
            EXPECT_EQ(Types(recognition), "IDENTIFICATOR") << ToUtf8(text);
        }
    }
}

TEST(AccessLexer, TakesTheBeginningOfAWordForANameUnlessItIsAWordItself) {
    std::vector<Expectation> expectations;
    for (const std::string& word : AllWords()) {
        for (std::size_t length = 1; length < word.size(); ++length) {
            const std::string beginning = word.substr(0, length);
            expectations.push_back({beginning, TokenOfWord(beginning)});
        }
    }
    ExpectWords(expectations);
    ExpectWords({{"SELEC", "IDENTIFICATOR"}, {"STDE", "IDENTIFICATOR"}, {"wee", "IDENTIFICATOR"}});
}

TEST(AccessLexer, EndsAWordAtAnySign) {
    for (const std::string& word : AllWords()) {
        for (const Entry& sign : vocabulary::kSigns) {
            if (sign.text == "$") continue;
            const Recognition recognition(Wide(word + std::string(sign.text)));
            EXPECT_EQ(Types(recognition), TokenOfWord(word) + " " + std::string(sign.token)) << word << sign.text;
        }
    }
}

TEST(AccessLexer, TakesNoLetterOfAnotherAlphabetIntoAKeyword) {
    ExpectTypes(std::vector<Row>{
        {u"\u017FELECT", "IDENTIFICATOR"},  // long s
        {u"L\u0130KE", "IDENTIFICATOR"},    // dotted capital i
        {u"L\u0131KE", "IDENTIFICATOR"},    // dotless i
        {u"LI\u212AE", "IDENTIFICATOR"},    // Kelvin sign
        {u"ＡＳ", "IDENTIFICATOR"},         // full-width letters
        {u"\u0410S", "IDENTIFICATOR"},      // Cyrillic a
    });
}

// ------------------------------------------------------------------------------------------------------ dollar signs

TEST(AccessLexer, TakesADollarSignIntoTheKeywordsThatHaveSuchAForm) {
    for (const Entry& keyword : vocabulary::kDollarKeywords) {
        for (const std::string& word :
             {std::string(keyword.text), vocabulary::Lower(keyword.text), Mixed(keyword.text)}) {
            const Recognition recognition(Wide(word));
            EXPECT_EQ(Types(recognition), keyword.token);
            ASSERT_EQ(recognition.Tokens().size(), 1U);
            EXPECT_EQ(recognition.Tokens().front().text, Wide(word));
        }
    }
}

TEST(AccessLexer, DoesNotLookBehindTheDollarSignOfAKeyword) {
    const Entry following[] = {{"IDENTIFICATOR", "x"}, {"IDENTIFICATOR", "_"},  {"DIGIT", "1"},
                               {"DOLLAR", "$"},        {"LEFT_PAREN", "("},     {"@WS", " "},
                               {"ASC_KEYWORD", "asc"}, {"LEFT_KEYWORD", "left"}};
    for (const Entry& keyword : vocabulary::kDollarKeywords) {
        for (const Entry& next : following) {
            const Recognition recognition(Wide(std::string(keyword.text) + std::string(next.text)));
            EXPECT_EQ(Types(recognition), std::string(keyword.token) + " " + std::string(next.token));
        }
    }
}

TEST(AccessLexer, EndsAnyOtherWordAtADollarSign) {
    for (const std::string& word : AllWords()) {
        const bool hasDollarForm =
            std::any_of(std::begin(vocabulary::kDollarKeywords), std::end(vocabulary::kDollarKeywords),
                        [&](const Entry& keyword) { return keyword.text == word + "$"; });
        if (hasDollarForm) continue;
        const Recognition recognition(Wide(word + "$"));
        EXPECT_EQ(Types(recognition), TokenOfWord(word) + " DOLLAR") << word;
    }
    ExpectTypes(std::vector<Row>{
        {u"abc$", "IDENTIFICATOR DOLLAR"},
        {u"LEFTS$", "IDENTIFICATOR DOLLAR"},
        {u"Größe$", "IDENTIFICATOR DOLLAR"},
        {u"1$", "DIGIT DOLLAR"},
        {u"LEFT $", "LEFT_KEYWORD @WS DOLLAR"},
        {u"$LEFT", "DOLLAR LEFT_KEYWORD"},
        {u"LEFT$(", "LEFT_KEYWORD_DOLLAR LEFT_PAREN"},
        {u"LEFT(", "LEFT_KEYWORD LEFT_PAREN"},
    });
}

}  // namespace
