#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tests/Grammar/vocabulary.h"
#include "tests/support/Lexed.h"

namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;
using vocabulary::Entry;

Recognition Lexed(std::u16string text) { return Recognition(std::move(text), QZGrammarMySQLSelect()); }

std::string TypesOf(const std::string& text) { return Types(Lexed(Wide(text))); }

void ExpectClean(const std::vector<Row>& rows) { ExpectTypes(rows, QZGrammarMySQLSelect()); }

// The tokens of a text and how many characters, or beginnings of tokens with one character more, are dropped.
struct Drops {
    std::u16string_view text;
    std::string_view types;
    std::uint32_t errors;
    std::u16string_view lastToken = u"";
};

void ExpectDrops(const std::vector<Drops>& rows) {
    for (const Drops& row : rows) {
        SCOPED_TRACE(ToUtf8(row.text));
        const Recognition recognition = Lexed(std::u16string(row.text));
        EXPECT_EQ(Types(recognition), row.types);
        EXPECT_EQ(recognition.LexerErrors(), row.errors);
        if (row.lastToken.empty()) continue;
        EXPECT_EQ(recognition.Tokens().back().text, row.lastToken);
    }
}

std::string TypeOfSign(char sign) {
    for (const Entry& entry : vocabulary::kSigns) {
        if (entry.text == std::string(1, sign)) return std::string(entry.token);
    }
    return "";
}

bool IsLetter(unsigned unit) { return (unit >= 'A' && unit <= 'Z') || (unit >= 'a' && unit <= 'z') || unit == '_'; }
bool IsDigit(unsigned unit) { return unit >= '0' && unit <= '9'; }

// ------------------------------------------------------------------------------------------ signs, numbers and names

TEST(MySQLLexer, KnowsEachSign) {
    for (const Entry& sign : vocabulary::kSigns) {
        const Recognition recognition = Lexed(Wide(sign.text));
        EXPECT_EQ(Types(recognition), sign.token);
        EXPECT_EQ(recognition.Tokens().front().text, Wide(sign.text));
    }
}

TEST(MySQLLexer, JoinsTwoSignsThatStandTogetherInACompoundAndNoOthers) {
    for (const Entry& first : vocabulary::kSigns) {
        for (const Entry& second : vocabulary::kSigns) {
            const std::string pair = std::string(first.text) + std::string(second.text);
            if (pair == "@@") continue;
            const auto* compound =
                std::find_if(std::begin(vocabulary::kCompoundSigns), std::end(vocabulary::kCompoundSigns),
                             [&](const Entry& entry) { return entry.text == pair; });
            const std::string apart = std::string(first.token) + " " + std::string(second.token);
            const bool joined = compound != std::end(vocabulary::kCompoundSigns);
            EXPECT_EQ(TypesOf(pair), joined ? std::string(compound->token) : apart) << pair;
            EXPECT_EQ(TypesOf(std::string(first.text) + " " + std::string(second.text)), apart) << pair;
        }
    }
}

TEST(MySQLLexer, ReadsRunsOfSignsFromTheLeft) {
    ExpectClean({
        {u"&", "AMPERSAND"},
        {u"&&", "AND_KEYWORD2"},
        {u"&&&", "AND_KEYWORD2 AMPERSAND"},
        {u"|", "VERTBAR"},
        {u"||", "OR_KEYWORD2"},
        {u"|||", "OR_KEYWORD2 VERTBAR"},
        {u"=*", "GOJ"},
        {u"=a", "EQ IDENTIFICATOR"},
        {u"==", "EQ EQ"},
        {u"*=", "LOJ"},
        {u"*a", "ASTERISK IDENTIFICATOR"},
        {u"**=", "ASTERISK LOJ"},
        {u"=*=", "GOJ EQ"},
        {u"<=>", "LE GT"},
        {u"<>", "NOT_EQ"},
        {u"!=", "NOT_EQ"},
        {u"<>=", "NOT_EQ EQ"},
        {u"!==", "NOT_EQ EQ"},
        {u">>=", "GT GE"},
    });
}

TEST(MySQLLexer, KnowsNoCommentAndNoLongToken) {
    ExpectClean({
        {u"--", "MINUS MINUS"},
        {u"/*", "DIVIDE ASTERISK"},
        {u"`order`", "MY_ONE_QUOTE ORDER_KEYWORD MY_ONE_QUOTE"},
        {u"\"abc\"", "MY_QUOTE IDENTIFICATOR MY_QUOTE"},
        {u"[abc]", "LEFT_COL_PAREN IDENTIFICATOR RIGHT_COL_PAREN"},
        {u"'abc'", "''' IDENTIFICATOR '''"},
        {u"''''", "''' ''' ''' '''"},
        {u"`'\"`'\"", "MY_ONE_QUOTE ''' MY_QUOTE MY_ONE_QUOTE ''' MY_QUOTE"},
        {u"'select'", "''' SELECT_KEYWORD '''"},
    });
    ExpectDrops({
        {u"#a", "IDENTIFICATOR", 1},
        {u"'a b'", "''' IDENTIFICATOR IDENTIFICATOR '''", 1},
        {u"'a\\'b'", "''' IDENTIFICATOR ''' IDENTIFICATOR '''", 1},
        {u"'$ #'", "''' '''", 3},
        {u"`a$b`", "MY_ONE_QUOTE IDENTIFICATOR IDENTIFICATOR MY_ONE_QUOTE", 1},
    });
}

TEST(MySQLLexer, TakesAWholeRunOfDigitsForOneNumber) {
    ExpectClean({
        {u"0", "DIGIT"},
        {u"12", "DIGIT"},
        {u"9876543210", "DIGIT"},
        {u"1.5", "DIGIT DOT DIGIT"},
        {u".5", "DOT DIGIT"},
        {u"1e3", "DIGIT IDENTIFICATOR"},
        {u"1.5e+3", "DIGIT DOT DIGIT IDENTIFICATOR PLUS DIGIT"},
        {u"1a", "DIGIT IDENTIFICATOR"},
        {u"1_", "DIGIT IDENTIFICATOR"},
        {u"1mm", "DIGIT 'mm'"},
        {u"-1", "MINUS DIGIT"},
    });
    EXPECT_EQ(Lexed(u"1e3").Tokens().at(1).text, u"e3");
}

TEST(MySQLLexer, HasAnAnswerForEachOfAllCharacters) {
    std::u16string text;
    for (unsigned unit = 0; unit <= 0xFFFF; ++unit) {
        if (unit != '!') text += {static_cast<char16_t>(unit), u'\n'};
    }
    const Recognition recognition = Lexed(text);
    std::vector<std::string> found(text.size());
    for (const QZToken& token : recognition.Tokens()) {
        EXPECT_EQ(token.text.size(), 1U);
        found[token.position.offset] = TypeOf(recognition, token);
    }
    std::size_t tokens = 0;
    for (std::size_t offset = 0; offset < text.size(); offset += 2) {
        const unsigned unit = text[offset];
        const std::string sign = unit < 0x80 ? TypeOfSign(static_cast<char>(unit)) : "";
        const std::string expected = IsLetter(unit) ? "IDENTIFICATOR" : IsDigit(unit) ? "DIGIT" : sign;
        EXPECT_EQ(found[offset], expected) << "character " << unit;
        tokens += expected.empty() ? 0 : 1;
    }
    EXPECT_EQ(tokens, 53U + 10 + 22);
    EXPECT_EQ(recognition.LexerErrors(), text.size() - tokens);
}

// -------------------------------------------------------------------------------------------- characters left out

TEST(MySQLLexer, DropsWhiteSpaceOneByOne) {
    ExpectDrops({
        {u"", "", 0},
        {u" ", "", 1},
        {u" \t\r\n", "", 4},
        {u"a b", "IDENTIFICATOR IDENTIFICATOR", 1},
        {u"a   b", "IDENTIFICATOR IDENTIFICATOR", 3},
        {u" a\r\nb\t", "IDENTIFICATOR IDENTIFICATOR", 4},
        {u"| |", "VERTBAR VERTBAR", 1},
        {u"< >", "L_T GT", 1},
        {u"1 2", "DIGIT DIGIT", 1},
    });
}

void Count(void* count, const QZReport& report) {
    if (report.kind == QZReportKind::DroppedCharacter) ++*static_cast<std::size_t*>(count);
}

TEST(MySQLLexer, ReportsEachWhiteSpaceToAReporterThatIgnoresNone) {
    const std::u16string text = u"a \t\r\n;b";
    std::size_t reports = 0;
    const QZReporter reporter{Count, &reports};
    const QZGrammar& grammar = QZGrammarMySQLSelect();
    auto* input = antlr3NewUCS2StringInPlaceStream(text.data(), static_cast<std::uint32_t>(text.size()), nullptr);
    auto* lexer = MySQLSelectLexerNew(input);
    QZSetLexerReporter(lexer, &reporter);
    auto* tokens = QZNewTokenStream(lexer);
    EXPECT_EQ(QZTokenCount(tokens), 2U);
    EXPECT_EQ(reports, 5U);
    EXPECT_EQ(QZLexerErrorCount(lexer), 5U);
    QZCloseInput(input);
    QZFreeTokenStream(tokens);
    QZFreeLexer(grammar, lexer);
}

TEST(MySQLLexer, DropsCharactersWithoutATokenOneByOneAndReportsEach) {
    for (const char16_t unit : u"#$:;?\\^~\x01\x0B\x7F\u0080\u00A0äж名\xD83D\xDE00\uFEFF\uFFFF"s + u'\0') {
        const Recognition recognition = Lexed(std::u16string(u"a") + unit + unit + u"b\n" + unit);
        SCOPED_TRACE(+unit);
        EXPECT_EQ(Types(recognition), "IDENTIFICATOR IDENTIFICATOR");
        EXPECT_EQ(recognition.LexerErrors(), 4U);
        const std::vector<QZReport> reports = LexerReports(recognition);
        ASSERT_EQ(reports.size(), 3U);
        const QZPosition expected[] = {{1, 2, 1}, {1, 3, 2}, {2, 1, 5}};
        for (std::size_t i = 0; i < reports.size(); ++i) {
            EXPECT_EQ(reports[i].kind, QZReportKind::DroppedCharacter);
            EXPECT_EQ(reports[i].position.line, expected[i].line);
            EXPECT_EQ(reports[i].position.column, expected[i].column);
            EXPECT_EQ(reports[i].position.offset, expected[i].offset);
        }
    }
}

TEST(MySQLLexer, LosesALoneExclamationMarkWithTheCharacterBehindIt) {
    ExpectDrops({
        {u"!", "", 1},
        {u"!!", "", 1},
        {u"!a", "", 1},
        {u"!ab", "IDENTIFICATOR", 1, u"b"},
        {u"! =", "EQ", 1},
        {u"!\n\n=", "EQ", 2},
        {u"!!=", "EQ", 1},
        {u"a!(b)", "IDENTIFICATOR IDENTIFICATOR RIGHT_PAREN", 1},
    });
}

// ----------------------------------------------------------------------------------------------------------------- NOT

TEST(MySQLLexer, TakesNotBeforeAnyPrintableCharacterButABlankForItself) {
    for (char unit = '!'; unit <= '~'; ++unit) {
        const std::string expected = IsLetter(unit) || IsDigit(unit) ? "IDENTIFICATOR"
                                     : TypeOfSign(unit).empty()      ? "NOT"
                                                                     : "NOT " + TypeOfSign(unit);
        EXPECT_EQ(TypesOf("NOT"s + unit), expected) << unit;
        EXPECT_EQ(TypesOf("not"s + unit), expected) << unit;
    }
    ExpectClean({{u"NOT", "NOT"}, {u"Not", "NOT"}, {u"NOT(a)", "NOT LEFT_PAREN IDENTIFICATOR RIGHT_PAREN"}});
    ExpectDrops({
        {u"NOT\tIN", "NOT IN_KEYWORD", 1},
        {u"NOT\nNULL", "NOT NULL_KEYWORD", 1},
        {u"NOT\r\nEXISTS", "NOT EXISTS", 2},
        {u"NOT\ta", "NOT IDENTIFICATOR", 1},
    });
}

TEST(MySQLLexer, JoinsNotAndOneBlankWithInNullAndExists) {
    ExpectClean({
        {u"NOT IN", "NOT_IN_KEYWORD"},
        {u"not in", "NOT_IN_KEYWORD"},
        {u"Not In", "NOT_IN_KEYWORD"},
        {u"NOT NULL", "NOT_NULL_KEYWORD"},
        {u"not Null", "NOT_NULL_KEYWORD"},
        {u"NOT EXISTS", "NOT_EXISTS"},
        {u"nOT eXISTS", "NOT_EXISTS"},
        {u"NOT IN(", "NOT_IN_KEYWORD LEFT_PAREN"},
        {u"NOT INTO", "NOT_IN_KEYWORD IDENTIFICATOR"},
        {u"NOT NULLABLE", "NOT_NULL_KEYWORD IDENTIFICATOR"},
        {u"NOT EXISTS1", "NOT_EXISTS DIGIT"},
    });
    EXPECT_EQ(Lexed(u"Not In").Tokens().front().text, u"Not In");
}

TEST(MySQLLexer, DropsTheFirstLetterOfNotBeforeABlankAndAnyOtherCharacter) {
    for (char unit = ' '; unit <= '~'; ++unit) {
        if ("EeIiNn"s.find(unit) != std::string::npos) continue;
        const bool isWord = IsLetter(unit);
        const std::string behind = isWord ? "IDENTIFICATOR" : IsDigit(unit) ? "DIGIT" : TypeOfSign(unit);
        const Recognition recognition = Lexed(Wide("NOT "s + unit));
        EXPECT_EQ(Types(recognition), behind.empty() ? "IDENTIFICATOR" : "IDENTIFICATOR " + behind) << unit;
        EXPECT_EQ(recognition.Tokens().front().text, u"OT");
        EXPECT_EQ(recognition.LexerErrors(), behind.empty() ? 3U : 2U) << unit;
    }
    ExpectDrops({
        {u"NOT ", "IDENTIFICATOR", 2, u"OT"},
        {u"NOT  IN", "IDENTIFICATOR IN_KEYWORD", 3},
        {u"NOT a", "IDENTIFICATOR IDENTIFICATOR", 2},
        {u"NOT LIKE", "IDENTIFICATOR LIKE_KEYWORD", 2},
        {u"NOT BETWEEN", "IDENTIFICATOR BETWEEN_KEYWORD", 2},
        {u"NOT (", "IDENTIFICATOR LEFT_PAREN", 2},
        {u"not like", "IDENTIFICATOR LIKE_KEYWORD", 2},
        {u"NOT \tIN", "IDENTIFICATOR IN_KEYWORD", 3},
    });
}

TEST(MySQLLexer, LosesWhatItHasReadOfTheSecondWordAndOneCharacterMore) {
    ExpectDrops({
        {u"NOT ISNULL", "NULL_KEYWORD", 1, u"NULL"},
        {u"NOT ISNULL(a)", "NULL_KEYWORD LEFT_PAREN IDENTIFICATOR RIGHT_PAREN", 1},
        {u"NOT I", "", 1},
        {u"NOT IF(a)", "LEFT_PAREN IDENTIFICATOR RIGHT_PAREN", 1},
        {u"NOT NOW()", "IDENTIFICATOR LEFT_PAREN RIGHT_PAREN", 1, u")"},
        {u"NOT name", "IDENTIFICATOR", 1, u"me"},
        {u"NOT E", "", 1},
        {u"NOT EXIT", "", 1},
        {u"NOT exist(a)", "IDENTIFICATOR RIGHT_PAREN", 1},
        {u"NOT N = 1", "EQ DIGIT", 2},
        {u"NOT NULx", "", 1},
    });
}

// ------------------------------------------------------------------------------ literals with a blank, the system's
// names

TEST(MySQLLexer, TakesExpandViewsAndBynatyBase64ForOneTokenEach) {
    ExpectClean({
        {u"EXPAND VIEWS", "'EXPAND VIEWS'"},
        {u"BYNATY base64", "'BYNATY base64'"},
        {u"EXPAND VIEWSx", "'EXPAND VIEWS' IDENTIFICATOR"},
        {u"BYNATY base645", "'BYNATY base64' DIGIT"},
        {u"EXPAND", "IDENTIFICATOR"},
        {u"BYNATY", "IDENTIFICATOR"},
        {u"EXPAND,", "IDENTIFICATOR COMMA"},
        {u"EXPANDVIEWS", "IDENTIFICATOR"},
    });
    ExpectDrops({
        {u"EXPAND\tVIEWS", "IDENTIFICATOR IDENTIFICATOR", 1},
        {u"Expand VIEWS", "IDENTIFICATOR IDENTIFICATOR", 1},
        {u"expand views", "IDENTIFICATOR IDENTIFICATOR", 1},
        {u"BINARY base64", "IDENTIFICATOR IDENTIFICATOR", 1},
        {u"EXPAND ", "", 1},
        {u"EXPAND xyz", "IDENTIFICATOR", 1, u"yz"},
        {u"EXPAND  VIEWS", "IDENTIFICATOR", 1, u"VIEWS"},
        {u"EXPAND VIEW, a", "IDENTIFICATOR", 2, u"a"},
        {u"BYNATY BASE64", "IDENTIFICATOR", 1, u"ASE64"},
        {u"BYNATY base6x1", "DIGIT", 1, u"1"},
    });
}

TEST(MySQLLexer, KnowsTheSystemsNamesAndLooksNoFurther) {
    for (const std::string_view word : vocabulary::kSystemNames) {
        const std::string name(word);
        EXPECT_EQ(TypesOf(name), Quoted(name));
        EXPECT_EQ(TypesOf(name + "X"), Quoted(name) + " IDENTIFICATOR");
        EXPECT_EQ(TypesOf(name + "1"), Quoted(name) + " DIGIT");
        EXPECT_EQ(TypesOf(name + "@"), Quoted(name) + " '@'");
    }
}

TEST(MySQLLexer, DropsTheFirstOfTwoAtSignsWhereNoNameFollows) {
    for (const std::string_view word : vocabulary::kSystemNames) {
        for (std::size_t length = 3; length < word.size(); ++length) {
            const std::string beginning(word.substr(0, length));
            const Recognition recognition = Lexed(Wide(beginning));
            EXPECT_EQ(Types(recognition), "'@' " + vocabulary::TokenOfWord(beginning.substr(2))) << beginning;
            EXPECT_EQ(recognition.LexerErrors(), 1U) << beginning;
        }
    }
    ExpectDrops({
        {u"@", "'@'", 0},
        {u"@x", "'@' IDENTIFICATOR", 0},
        {u"@@", "'@'", 1},
        {u"@@@", "'@'", 2},
        {u"@@x", "'@' IDENTIFICATOR", 1, u"x"},
        {u"@@version", "'@' IDENTIFICATOR", 1, u"version"},
        {u"@@CPU_BUSY", "'@' IDENTIFICATOR", 1, u"CPU_BUSY"},
        {u"@@ VERSION", "'@' IDENTIFICATOR", 2},
        {u"@@@VERSION", "'@@VERSION'", 1},
    });
}

// ---------------------------------------------------------------------------------------------------------- positions

TEST(MySQLLexer, TellsWhereEachTokenStands) {
    const Recognition recognition = Lexed(u"SELECT\n  `a\nb`,;\r\nNOT IN 'x'");
    const struct {
        std::string_view type;
        std::u16string_view text;
        QZPosition position;
    } expected[] = {
        {"SELECT_KEYWORD", u"SELECT", {1, 1, 0}},  {"MY_ONE_QUOTE", u"`", {2, 3, 9}},
        {"IDENTIFICATOR", u"a", {2, 4, 10}},       {"IDENTIFICATOR", u"b", {3, 1, 12}},
        {"MY_ONE_QUOTE", u"`", {3, 2, 13}},        {"COMMA", u",", {3, 3, 14}},
        {"NOT_IN_KEYWORD", u"NOT IN", {4, 1, 18}}, {"'''", u"'", {4, 8, 25}},
        {"IDENTIFICATOR", u"x", {4, 9, 26}},       {"'''", u"'", {4, 10, 27}},
    };
    const std::vector<QZToken> tokens = recognition.Tokens();
    ASSERT_EQ(tokens.size(), std::size(expected));
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(TypeOf(recognition, tokens[i]), expected[i].type);
        EXPECT_EQ(tokens[i].text, expected[i].text);
        EXPECT_EQ(tokens[i].position.line, expected[i].position.line);
        EXPECT_EQ(tokens[i].position.column, expected[i].position.column);
        EXPECT_EQ(tokens[i].position.offset, expected[i].position.offset);
        EXPECT_FALSE(tokens[i].hidden);
    }
}

}  // namespace
