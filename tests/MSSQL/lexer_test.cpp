#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <iterator>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "tests/MSSQL/vocabulary.h"
#include "tests/support/Lexed.h"

namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;
using vocabulary::Entry;
using vocabulary::TokenOfWord;

// What may follow the first character of a name.
constexpr std::string_view kNameSigns = "!#-?_";

std::string TypesOf(std::u16string_view text) { return Types(Recognition(std::u16string(text), QZGrammarMSSQL())); }
std::string TypesOf(const std::string& ascii) { return TypesOf(Wide(ascii)); }

// Each row's tokens, and one counted error for each character outside of them.
void ExpectRows(const std::vector<Row>& rows) {
    for (const Row& row : rows) {
        SCOPED_TRACE(ToUtf8(row.text));
        const Recognition recognition(std::u16string(row.text), QZGrammarMSSQL());
        EXPECT_EQ(Types(recognition), row.types);
        std::size_t dropped = row.text.size();
        for (const QZToken& token : recognition.Tokens()) dropped -= token.text.size();
        EXPECT_EQ(recognition.LexerErrors(), dropped);
    }
}

// Every word on a line of its own: one token each, with the word as its text.
void ExpectEach(const std::vector<Expectation>& expectations) {
    std::string text;
    for (const Expectation& expected : expectations) text += expected.word + '\n';
    const Recognition recognition(Wide(text), QZGrammarMSSQL());
    const std::vector<QZToken> tokens = recognition.Tokens();
    ASSERT_EQ(tokens.size(), expectations.size());
    EXPECT_EQ(recognition.LexerErrors(), expectations.size()) << "the line ends";
    for (std::size_t i = 0; i < expectations.size(); ++i) {
        EXPECT_EQ(TypeOf(recognition, tokens[i]), expectations[i].type) << expectations[i].word;
        EXPECT_EQ(tokens[i].text, Wide(expectations[i].word));
    }
}

std::vector<std::string> AllWords() {
    std::vector<std::string> all(vocabulary::kLiteralWords.begin(), vocabulary::kLiteralWords.end());
    for (const Entry& keyword : vocabulary::Keywords()) all.emplace_back(keyword.text);
    return all;
}

// ------------------------------------------------------------------------------------------------------------- words

TEST(MSSQLVocabulary, HoldsTheTokensThatAreKnownAndNoOthers) {
    std::set<std::string> known = {"DIGIT", "IDENTIFICATOR", "NOT_EQ", "WS", "UNDERLINE"};
    for (char letter = 'A'; letter <= 'Z'; ++letter) known.insert(std::string(1, letter));
    for (const auto* literals : {&vocabulary::kLiteralWords, &vocabulary::kWordsWithBlank, &vocabulary::kSystemNames}) {
        for (const std::string_view word : *literals) known.insert(Quoted(word));
    }
    for (const Entry& keyword : vocabulary::Keywords()) known.emplace(keyword.token);
    for (const Entry& sign : vocabulary::kSigns) known.emplace(sign.token);
    for (const Entry& sign : vocabulary::kCompoundSigns) known.emplace(sign.token);
    for (const std::string_view name : vocabulary::kImaginary) known.emplace(name);
    std::set<std::string> found;
    for (std::uint32_t type = 0; type < 1000; ++type) {
        if (const char* name = QZTokenName(QZGrammarMSSQL(), type)) found.emplace(name);
    }
    EXPECT_EQ(found, known);
    EXPECT_EQ(vocabulary::kImaginary.size(), 58U);
}

TEST(MSSQLLexer, GivesAWordInOneCaseItsOwnTokenAndInAnotherTheKeywordsOrAName) {
    std::vector<Expectation> expectations;
    for (const std::string_view literal : vocabulary::kLiteralWords) {
        for (const std::string& word : vocabulary::WithEachLetterTurned(std::string(literal))) {
            expectations.push_back({word, TokenOfWord(word)});
        }
        expectations.push_back({vocabulary::Lower(literal), TokenOfWord(vocabulary::Lower(literal))});
        expectations.push_back({vocabulary::Upper(literal), TokenOfWord(vocabulary::Upper(literal))});
    }
    ExpectEach(expectations);
}

TEST(MSSQLLexer, LetsTheWordInOneCaseWinTheTie) {
    ExpectEach({{"WITH", "'WITH'"},
                {"with", "WITH_KEYWORD"},
                {"With", "WITH_KEYWORD"},
                {"HASH", "'HASH'"},
                {"hash", "HASH"},
                {"MERGE", "'MERGE'"},
                {"merge", "MERGE"},
                {"NOW", "'NOW'"},
                {"now", "NOW"},
                {"n", "'n'"},
                {"N", "NSTR"},
                {"day", "'day'"},
                {"DAY", "DAY"},
                {"Day", "DAY"},
                {"m", "'m'"},
                {"M", "IDENTIFICATOR"},
                {"d", "'d'"},
                {"D", "IDENTIFICATOR"},
                {"h", "'h'"},
                {"H", "IDENTIFICATOR"},
                {"mi", "'mi'"},
                {"Mi", "IDENTIFICATOR"},
                {"mm", "'mm'"},
                {"MM", "IDENTIFICATOR"},
                {"yy", "'yy'"},
                {"YY", "IDENTIFICATOR"},
                {"yyyy", "'yyyy'"},
                {"Yyyy", "IDENTIFICATOR"},
                {"ww", "'ww'"},
                {"WW", "IDENTIFICATOR"},
                {"wk", "'wk'"},
                {"wK", "IDENTIFICATOR"},
                {"dw", "'dw'"},
                {"DW", "IDENTIFICATOR"},
                {"dd", "'dd'"},
                {"DD", "IDENTIFICATOR"},
                {"hh", "'hh'"},
                {"HH", "IDENTIFICATOR"},
                {"fn", "'fn'"},
                {"FN", "IDENTIFICATOR"},
                {"BROWSE", "'BROWSE'"},
                {"browse", "IDENTIFICATOR"},
                {"XML", "'XML'"},
                {"xml", "IDENTIFICATOR"},
                {"INDEX", "'INDEX'"},
                {"Index", "IDENTIFICATOR"},
                {"INTO", "'INTO'"},
                {"into", "IDENTIFICATOR"},
                {"NOLOCK", "'NOLOCK'"},
                {"nolock", "IDENTIFICATOR"},
                {"UCASE", "'UCASE'"},
                {"ucase", "IDENTIFICATOR"},
                {"LCASE", "'LCASE'"},
                {"Lcase", "IDENTIFICATOR"},
                {"MAXDOP", "'MAXDOP'"},
                {"maxdop", "IDENTIFICATOR"}});
}

TEST(MSSQLLexer, GivesAKeywordInAnyCaseItsToken) {
    std::vector<Expectation> expectations;
    for (const Entry& keyword : vocabulary::Keywords()) {
        for (const std::string& word : vocabulary::WithEachLetterTurned(std::string(keyword.text))) {
            expectations.push_back({word, TokenOfWord(word)});
        }
        const std::string lower = vocabulary::Lower(keyword.text);
        expectations.push_back({lower, TokenOfWord(lower)});
    }
    ExpectEach(expectations);
}

TEST(MSSQLLexer, TakesALongerOrShorterWordForWhatItIs) {
    std::set<std::string> longer;
    std::set<std::string> shorter;
    for (const std::string& word : AllWords()) {
        for (const char more : "azAZ09"s + std::string(kNameSigns)) longer.insert(word + more);
        for (std::size_t size = 1; size < word.size(); ++size) shorter.insert(word.substr(0, size));
    }
    std::vector<Expectation> expectations;
    for (const auto* some : {&longer, &shorter}) {
        for (const std::string& word : *some) expectations.push_back({word, TokenOfWord(word)});
    }
    ExpectEach(expectations);
}

TEST(MSSQLLexer, EndsAWordBeforeEachOtherSign) {
    for (const std::string& word : AllWords()) {
        for (const Entry& sign : vocabulary::kSigns) {
            if (kNameSigns.find(sign.text) != std::string_view::npos) continue;
            EXPECT_EQ(TypesOf(word + std::string(sign.text)), TokenOfWord(word) + " " + std::string(sign.token))
                << word;
        }
        EXPECT_EQ(TypesOf(word + "$"), TokenOfWord(word));
        EXPECT_EQ(TypesOf(Wide(word) + u"\u00E9"), TokenOfWord(word));
    }
}

// --------------------------------------------------------------------------------------------------- names, numbers

TEST(MSSQLLexer, ReadsTheTextsThatAreTold) {
    ExpectRows({
        {u"SELECT a FROM b", "SELECT_KEYWORD IDENTIFICATOR FROM_KEYWORD IDENTIFICATOR"},
        {u"\tSELECT \r\n a\n\nFROM\t\tb ", "SELECT_KEYWORD IDENTIFICATOR FROM_KEYWORD IDENTIFICATOR"},
        {u"select", "SELECT_KEYWORD"},
        {u"Select", "SELECT_KEYWORD"},
        {u"SELECTED", "IDENTIFICATOR"},
        {u"SELECT-1", "IDENTIFICATOR"},
        {u"SELECT*", "SELECT_KEYWORD ASTERISK"},
        {u"a-b", "IDENTIFICATOR"},
        {u"a-1", "IDENTIFICATOR"},
        {u"a -b", "IDENTIFICATOR MINUS IDENTIFICATOR"},
        {u"a - 1", "IDENTIFICATOR MINUS DIGIT"},
        {u"a--", "IDENTIFICATOR"},
        {u"--", "MINUS MINUS"},
        {u"/* a */", "DIVIDE ASTERISK IDENTIFICATOR ASTERISK DIVIDE"},
        {u"1E5", "DIGIT IDENTIFICATOR"},
        {u"1E-5", "DIGIT IDENTIFICATOR"},
        {u"1E+5", "DIGIT IDENTIFICATOR PLUS DIGIT"},
        {u"1.5", "DIGIT DOT DIGIT"},
        {u"12abc", "DIGIT IDENTIFICATOR"},
        {u"0123456789", "DIGIT"},
        {u"N'x'", "NSTR ''' IDENTIFICATOR '''"},
        {u"n'x'", "'n' ''' IDENTIFICATOR '''"},
        {u"'a b'", "''' IDENTIFICATOR IDENTIFICATOR '''"},
        {u"[a]]b]", "LEFT_COL_PAREN IDENTIFICATOR RIGHT_COL_PAREN RIGHT_COL_PAREN IDENTIFICATOR RIGHT_COL_PAREN"},
        {u"WITH TIES", "'WITH' IDENTIFICATOR"},
        {u"WITHTIES", "WITHTIES_KEYWORD"},
        {u"a;", "IDENTIFICATOR"},
        {u"a<>b", "IDENTIFICATOR NOT_EQ IDENTIFICATOR"},
        {u"1!=b", "DIGIT NOT_EQ IDENTIFICATOR"},
        {u"a*=b", "IDENTIFICATOR LOJ IDENTIFICATOR"},
        {u"a=*b", "IDENTIFICATOR GOJ IDENTIFICATOR"},
        {u"ab cd", "IDENTIFICATOR IDENTIFICATOR"},
        {u"na\u00EFme", "IDENTIFICATOR IDENTIFICATOR"},
        {u"@a", "'@' IDENTIFICATOR"},
        {u"#a", "'#' IDENTIFICATOR"},
        {u"##a", "'##' IDENTIFICATOR"},
        {u"$a", "IDENTIFICATOR"},
        {u"", ""},
    });
}

// An exclamation mark within a name belongs to it, before an equals sign it begins another token.
TEST(MSSQLLexer, TakesExclamationAndQuestionMarksIntoNames) {
    ExpectRows({
        {u"!", "IDENTIFICATOR"},
        {u"!a", "IDENTIFICATOR"},
        {u"!!", "IDENTIFICATOR"},
        {u"a!=b", "IDENTIFICATOR EQ IDENTIFICATOR"},
        {u"a !=b", "IDENTIFICATOR NOT_EQ IDENTIFICATOR"},
        {u"!!=", "IDENTIFICATOR EQ"},
        {u"?", "IDENTIFICATOR"},
        {u"?1", "IDENTIFICATOR"},
        {u"?=", "IDENTIFICATOR EQ"},
        {u"_", "IDENTIFICATOR"},
        {u"_#-!?9", "IDENTIFICATOR"},
        {u"a#b", "IDENTIFICATOR"},
    });
}

TEST(MSSQLLexer, BeginsANameWithEachLetterInBothCases) {
    std::vector<Expectation> expectations;
    for (const char letter : "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz"s) {
        expectations.push_back({{letter}, TokenOfWord({&letter, 1})});
        for (const char more : "_9!?#-Qq"s) expectations.push_back({{letter, more, 'q'}, "IDENTIFICATOR"});
    }
    ExpectEach(expectations);
}

// What a character by itself is.
std::string TypeOfUnit(char16_t unit) {
    if (unit >= u'0' && unit <= u'9') return "DIGIT";
    if (unit > 0x7E) return "";
    const std::string text(1, static_cast<char>(unit));
    if (text == "!" || text == "?" || text == "_") return "IDENTIFICATOR";
    if (std::isalpha(static_cast<unsigned char>(text[0])) != 0) return TokenOfWord(text);
    for (const Entry& sign : vocabulary::kSigns) {
        if (sign.text == text) return std::string(sign.token);
    }
    return "";
}

TEST(MSSQLLexer, HasAnAnswerForEachOfAllCharacters) {
    std::u16string text;
    for (unsigned unit = 0; unit <= 0xFFFF; ++unit) text += {static_cast<char16_t>(unit), u'\n'};
    const Recognition recognition(text, QZGrammarMSSQL());
    std::vector<std::string> found(text.size());
    for (const QZToken& token : recognition.Tokens()) {
        EXPECT_EQ(token.text.size(), 1U);
        found[token.position.offset] = TypeOf(recognition, token);
    }
    std::size_t tokens = 0;
    for (std::size_t offset = 0; offset < text.size(); offset += 2) {
        EXPECT_EQ(found[offset], TypeOfUnit(text[offset])) << "character " << +text[offset];
        tokens += found[offset].empty() ? 0 : 1;
    }
    EXPECT_EQ(tokens, 88U);
    EXPECT_EQ(recognition.LexerErrors(), text.size() - tokens);
}

TEST(MSSQLLexer, DropsTheFiveSignsThatBeginNothing) {
    for (const std::string_view sign : {"$", ":", ";", "\\", "^", "~"}) {
        EXPECT_EQ(TypesOf(std::string(sign)), "");
        EXPECT_EQ(TypesOf("a" + std::string(sign) + "b"), "IDENTIFICATOR IDENTIFICATOR");
    }
}

TEST(MSSQLLexer, DropsEachCharacterWithAReportOfItsPlace) {
    const Recognition recognition(u"a \xD83D\n;b", QZGrammarMSSQL());
    EXPECT_EQ(Types(recognition), "IDENTIFICATOR IDENTIFICATOR");
    EXPECT_EQ(recognition.LexerErrors(), 4U);
    const std::vector<QZReport> reports = LexerReports(recognition);
    ASSERT_EQ(reports.size(), 2U) << "white space is left out";
    const QZPosition expected[] = {{1, 3, 2}, {2, 1, 4}};
    for (std::size_t i = 0; i < reports.size(); ++i) {
        EXPECT_EQ(reports[i].kind, QZReportKind::DroppedCharacter);
        EXPECT_EQ(reports[i].position.line, expected[i].line);
        EXPECT_EQ(reports[i].position.column, expected[i].column);
        EXPECT_EQ(reports[i].position.offset, expected[i].offset);
    }
}

// ------------------------------------------------------------------------------------------------------------- signs

TEST(MSSQLLexer, JoinsTwoSignsThatStandTogetherInACompoundAndNoOthers) {
    for (const Entry& first : vocabulary::kSigns) {
        EXPECT_EQ(TypesOf(std::string(first.text)), first.token);
        for (const Entry& second : vocabulary::kSigns) {
            const std::string pair = std::string(first.text) + std::string(second.text);
            if (pair == "@@") continue;
            const auto compound =
                std::find_if(std::begin(vocabulary::kCompoundSigns), std::end(vocabulary::kCompoundSigns),
                             [&](const Entry& entry) { return entry.text == pair; });
            const bool joined = compound != std::end(vocabulary::kCompoundSigns);
            const std::string apart = std::string(first.token) + " " + std::string(second.token);
            EXPECT_EQ(TypesOf(pair), joined ? std::string(compound->token) : apart) << pair;
            EXPECT_EQ(TypesOf(std::string(first.text) + " " + std::string(second.text)), apart) << pair;
        }
    }
}

TEST(MSSQLLexer, ReadsRunsOfSignsFromTheLeft) {
    ExpectRows({
        {u"&&&", "AND_KEYWORD2 AMPERSAND"},
        {u"|||", "OR_KEYWORD2 VERTBAR"},
        {u"###", "'##' '#'"},
        {u"=*=", "GOJ EQ"},
        {u"*=*", "LOJ ASTERISK"},
        {u"**=", "ASTERISK LOJ"},
        {u"==*", "EQ GOJ"},
        {u"<=>", "LE GT"},
        {u"<>=", "NOT_EQ EQ"},
        {u">=*", "GE ASTERISK"},
    });
}

// ------------------------------------------------------------------------------------------ words with two at signs

TEST(MSSQLLexer, KnowsTheSystemNamesInCapitalsWhateverFollows) {
    for (const std::string_view name : vocabulary::kSystemNames) {
        EXPECT_EQ(TypesOf(std::string(name)), Quoted(name));
        EXPECT_EQ(TypesOf(std::string(name) + "X"), Quoted(name) + " IDENTIFICATOR");
        EXPECT_EQ(TypesOf(std::string(name) + "(a)"), Quoted(name) + " LEFT_PAREN IDENTIFICATOR RIGHT_PAREN");
    }
}

std::string TokenBehindAtSign(const std::string& rest) { return rest.empty() ? "'@'" : "'@' " + TokenOfWord(rest); }

TEST(MSSQLLexer, DropsTheFirstAtSignAloneWhereNoSystemNameBegins) {
    for (const std::string_view name : vocabulary::kSystemNames) {
        for (std::size_t size = 2; size < name.size(); ++size) {
            const std::string cut(name.substr(0, size));
            const Recognition recognition(Wide(cut + " ="), QZGrammarMSSQL());
            EXPECT_EQ(Types(recognition), TokenBehindAtSign(cut.substr(2)) + " EQ") << cut;
            const std::vector<QZReport> reports = LexerReports(recognition);
            ASSERT_EQ(reports.size(), 1U);
            EXPECT_EQ(reports[0].position.offset, 0U);
            EXPECT_EQ(recognition.Tokens()[0].position.column, 2U);
            EXPECT_EQ(TypesOf(cut), TokenBehindAtSign(cut.substr(2))) << "at the end of the text";
        }
        EXPECT_EQ(TypesOf(vocabulary::Lower(name)), "'@' IDENTIFICATOR");
    }
    ExpectRows({
        {u"@@CPU_BUSY", "'@' IDENTIFICATOR"},
        {u"@@version", "'@' IDENTIFICATOR"},
        {u"@@VERSIONX", "'@@VERSION' IDENTIFICATOR"},
        {u"@@", "'@'"},
        {u"@@@", "'@'"},
        {u"@@@SPID", "'@@SPID'"},
        {u"@@@@", "'@'"},
        {u"@ @SPID", "'@' '@' IDENTIFICATOR"},
        {u"@@MAX_X", "'@' IDENTIFICATOR"},
        {u"\n@@MAX_X", "'@' IDENTIFICATOR"},
    });
}

// ----------------------------------------------------------------------------------------------- words with a blank

TEST(MSSQLLexer, KnowsTheWordsWithOneBlank) {
    for (const std::string_view word : vocabulary::kWordsWithBlank) {
        EXPECT_EQ(TypesOf(std::string(word)), Quoted(word));
        EXPECT_EQ(TypesOf(std::string(word) + "x"), Quoted(word) + " IDENTIFICATOR");
    }
}

// The word is taken for the longer one at the blank; at the first difference all of it and one character go.
TEST(MSSQLLexer, LosesAWordWithABlankBehindItUpToTheFirstDifference) {
    for (const std::string_view whole : vocabulary::kWordsWithBlank) {
        const std::size_t blank = whole.find(' ');
        for (std::size_t size = blank + 1; size < whole.size(); ++size) {
            const std::string begin(whole.substr(0, size));
            EXPECT_EQ(TypesOf(begin), "") << "cut off by the end of the text";
            EXPECT_EQ(TypesOf(begin + "@a"), "IDENTIFICATOR") << begin;
            EXPECT_EQ(TypesOf(begin + "\na"), "IDENTIFICATOR") << begin;
        }
        const std::string word(whole.substr(0, blank));
        EXPECT_EQ(TypesOf(word), "IDENTIFICATOR") << "at the end of the text";
        EXPECT_EQ(TypesOf(vocabulary::Lower(word) + " TEXTSIZE"), "IDENTIFICATOR IDENTIFICATOR");
    }
    const Recognition recognition(u"SET  TEXTSIZE", QZGrammarMSSQL());
    EXPECT_EQ(Types(recognition), "IDENTIFICATOR");
    EXPECT_EQ(recognition.Tokens()[0].text, u"TEXTSIZE");
    EXPECT_EQ(TypesOf("SET x"), "");
    EXPECT_EQ(TypesOf("SET xy"), "IDENTIFICATOR");
    EXPECT_EQ(TypesOf("Set TEXTSIZE"), "IDENTIFICATOR IDENTIFICATOR");
    EXPECT_EQ(TypesOf("XSET TEXTSIZE"), "IDENTIFICATOR IDENTIFICATOR");
    EXPECT_EQ(TypesOf("BYNATY BASE64"), "IDENTIFICATOR");
}

TEST(MSSQLLexer, TakesAWordBeforeAnythingButABlankForAName) {
    for (const std::string_view word : {"SET"sv, "EXPAND"sv, "BYNATY"sv}) {
        for (char next = '!'; next <= '~'; ++next) {
            const bool goesOn =
                std::isalnum(static_cast<unsigned char>(next)) != 0 || kNameSigns.find(next) != std::string_view::npos;
            const std::string behind = goesOn ? "" : TypeOfUnit(static_cast<char16_t>(next));
            const std::string expected = behind.empty() ? "IDENTIFICATOR" : "IDENTIFICATOR " + behind;
            EXPECT_EQ(TypesOf(std::string(word) + next), expected) << word << next;
        }
        EXPECT_EQ(TypesOf(std::string(word) + "\tTEXTSIZE"), "IDENTIFICATOR IDENTIFICATOR");
    }
}

}  // namespace
