#include <gtest/gtest.h>

#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/Lexed.h"
#include "tests/support/Words.h"

namespace {

std::string TypesOf(std::u16string_view text) { return Types(Recognition(std::u16string(text), QZGrammarMSSQLfrom())); }

const std::vector<std::string_view> kKeywords = vocabulary::Words("JOIN INNER LEFT RIGHT FULL OUTER CROSS ON WITH AND");
const std::vector<std::string_view> kHints = vocabulary::Words("LOOP HASH MERGE REMOTE");

struct Sign {
    std::u16string_view text;
    std::string token;
};

const std::vector<Sign> kSigns = {{u"#", "'#'"},
                                  {u"##", "'##'"},
                                  {u"\r", "'\\r'"},
                                  {u"\n", "'\\n'"},
                                  {u"(", "LEFT_PAREN_"},
                                  {u")", "RIGHT_PAREN_"},
                                  {u"[", "LEFT_COL_PAREN_"},
                                  {u"]", "RIGHT_COL_PAREN_"},
                                  {u"\"", "MY_QUOTE"},
                                  {u"+", "PLUS_"},
                                  {u"-", "MINUS_"},
                                  {u"&", "AMPERSAND_"},
                                  {u"/", "DIVIDE_"},
                                  {u".", "DOT_"},
                                  {u"*", "ASTERISK_"},
                                  {u",", "COMMA_"},
                                  {u"|", "VERTBAR_"},
                                  {u"=", "EQ_"},
                                  {u"<", "L_T_"},
                                  {u">", "GT_"},
                                  {u"!=", "NOT_EQ_"},
                                  {u"<>", "NOT_EQ_"},
                                  {u"<=", "LE_"},
                                  {u">=", "GE_"},
                                  {u"*=", "LOJ_"},
                                  {u"=*", "GOJ_"}};

TEST(MSSQLFromVocabulary, HoldsTheTokensThatAreKnownAndNoOthers) {
    std::set<std::string> known = {"ID_", "INT_", "FLOAT_", "EXPONENT_", "WS", "LITERAL_AS_"};
    for (char letter = 'A'; letter <= 'Z'; ++letter) known.insert(std::string(1, letter));
    for (const std::string_view word : kKeywords) known.insert(std::string(word) + "_KEYWORD_");
    for (const std::string_view hint : kHints) known.insert(Quoted(hint));
    for (const Sign& sign : kSigns) known.insert(sign.token);
    for (const std::string_view name :
         vocabulary::Words("COLUMN_SPECIFICATION_ FROM_DEF_ JOIN_DEF_ JOIN_PREFIX_ JOIN_POSTFIX_ NESTED_JOIN_ "
                           "SEARCH_CONDITION_ ALIAS_ NEW_NAME_ TABLE_SPECIFICATION_ DB_NAME_ TABLE_NAME_ COLUMN_NAME_ "
                           "NUMBER_LITERAL_ AND ON_ TEST_ TEST_2")) {
        known.emplace(name);
    }
    std::set<std::string> found;
    for (std::uint32_t type = 0; type < 1000; ++type) {
        if (const char* name = QZTokenName(QZGrammarMSSQLfrom(), type)) found.emplace(name);
    }
    EXPECT_EQ(found, known);
}

TEST(MSSQLFromLexer, KnowsItsKeywordsInAnyCaseAndTheHintsInCapitals) {
    for (const std::string_view keyword : kKeywords) {
        for (const std::string& word : vocabulary::WithEachLetterTurned(std::string(keyword))) {
            EXPECT_EQ(TypesOf(Wide(word)), std::string(keyword) + "_KEYWORD_") << word;
        }
        EXPECT_EQ(TypesOf(Wide(vocabulary::Lower(keyword))), std::string(keyword) + "_KEYWORD_");
        EXPECT_EQ(TypesOf(Wide(std::string(keyword) + "1")), "ID_");
    }
    for (const std::string_view hint : kHints) {
        EXPECT_EQ(TypesOf(Wide(hint)), Quoted(hint));
        EXPECT_EQ(TypesOf(Wide(vocabulary::Lower(hint))), "ID_");
        EXPECT_EQ(TypesOf(Wide(std::string(hint) + "_")), "ID_");
    }
    for (const std::string_view word : {"AS", "as", "As"}) EXPECT_EQ(TypesOf(Wide(word)), "LITERAL_AS_");
}

TEST(MSSQLFromLexer, KnowsEachSign) {
    for (const Sign& sign : kSigns) {
        EXPECT_EQ(TypesOf(sign.text), sign.token);
        EXPECT_EQ(TypesOf(std::u16string(sign.text) + u"a"), sign.token + " ID_");
    }
}

TEST(MSSQLFromLexer, TellsNumbersApart) {
    const struct {
        std::u16string_view text;
        std::string_view types;
    } rows[] = {{u"1", "INT_"},         {u"0123", "INT_"},   {u"1.5", "FLOAT_"},           {u"1.", "FLOAT_"},
                {u".5", "FLOAT_"},      {u"1E5", "FLOAT_"},  {u"1e-5", "FLOAT_"},          {u"1.5E+3", "FLOAT_"},
                {u".5e1", "FLOAT_"},    {u"1.E2", "FLOAT_"}, {u"1.5.2", "FLOAT_ FLOAT_"},  {u"1a", "INT_ ID_"},
                {u"a.1", "ID_ FLOAT_"}, {u"a1", "ID_"},      {u"1-2", "INT_ MINUS_ INT_"}, {u"..", "DOT_ DOT_"}};
    for (const auto& row : rows) EXPECT_EQ(TypesOf(row.text), row.types) << ToUtf8(row.text);
}

TEST(MSSQLFromLexer, EndsANameBeforeEveryOtherSign) {
    EXPECT_EQ(TypesOf(u"a-b"), "ID_ MINUS_ ID_");
    EXPECT_EQ(TypesOf(u"a#b"), "ID_ '#' ID_");
    EXPECT_EQ(TypesOf(u"_a9_"), "ID_");
    EXPECT_EQ(TypesOf(u"a!b"), "ID_") << "an exclamation mark is taken for a sign of two, which fails at the b";
    EXPECT_EQ(TypesOf(u"a?b"), "ID_ ID_");
    EXPECT_EQ(TypesOf(u"na\u00EFve"), "ID_ ID_");
}

// Blanks and tabs are dropped with a report each, line ends are tokens.
TEST(MSSQLFromLexer, DropsBlanksAndTabsOnly) {
    const Recognition recognition(u"a \tb\r\nc", QZGrammarMSSQLfrom());
    EXPECT_EQ(Types(recognition), "ID_ ID_ '\\r' '\\n' ID_");
    EXPECT_EQ(recognition.LexerErrors(), 2U);
    for (const std::u16string_view stray : {u"!", u"$", u"'", u";", u"?", u"@", u"`", u"{", u"}", u"%", u"\u00E9"}) {
        EXPECT_EQ(TypesOf(stray), "") << ToUtf8(stray);
    }
}

}  // namespace
