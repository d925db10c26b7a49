#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "tests/MSAccess_v3/vocabulary.h"
#include "tests/support/Lexed.h"

namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;
using vocabulary::Entry;

// ------------------------------------------------------------------------------------------ signs, numbers and names

TEST(AccessLexer, KnowsEachSign) {
    for (const Entry& sign : vocabulary::kSigns) {
        const Recognition recognition(Wide(sign.text));
        EXPECT_EQ(Types(recognition), sign.token);
        EXPECT_EQ(recognition.Tokens().front().text, Wide(sign.text));
    }
}

TEST(AccessLexer, JoinsTwoSignsThatStandTogetherInACompoundAndNoOthers) {
    for (const Entry& first : vocabulary::kSigns) {
        for (const Entry& second : vocabulary::kSigns) {
            const std::string pair = std::string(first.text) + std::string(second.text);
            const auto compound =
                std::find_if(std::begin(vocabulary::kCompoundSigns), std::end(vocabulary::kCompoundSigns),
                             [&](const Entry& entry) { return entry.text == pair; });
            const std::string apart = std::string(first.token) + " " + std::string(second.token);
            const bool joined = compound != std::end(vocabulary::kCompoundSigns);
            EXPECT_EQ(Types(Recognition(Wide(pair))), joined ? std::string(compound->token) : apart) << pair;
            const Recognition spaced(Wide(std::string(first.text) + " " + std::string(second.text)));
            EXPECT_EQ(Types(spaced), std::string(first.token) + " @WS " + std::string(second.token)) << pair;
        }
    }
}

TEST(AccessLexer, FindsCompoundSignsWithAndWithoutBlanksAround) {
    for (const Entry& compound : vocabulary::kCompoundSigns) {
        const std::string token(compound.token);
        const std::string text(compound.text);
        EXPECT_EQ(Types(Recognition(Wide("a" + text + "b"))), "IDENTIFICATOR " + token + " IDENTIFICATOR");
        EXPECT_EQ(Types(Recognition(Wide("a " + text + " b"))), "IDENTIFICATOR @WS " + token + " @WS IDENTIFICATOR");
        EXPECT_EQ(Types(Recognition(Wide("1" + text + "[x]"))), "DIGIT " + token + " COL_PAREN_ATTRITION");
    }
}

TEST(AccessLexer, ReadsRunsOfSignsFromTheLeft) {
    ExpectTypes(std::vector<Row>{
        {u"&&&", "AND_KEYWORD2 AMPERSAND"},
        {u"&&&&", "AND_KEYWORD2 AND_KEYWORD2"},
        {u"|||", "OR_KEYWORD2 VERTBAR"},
        {u"| |", "VERTBAR @WS VERTBAR"},
        {u"=*=", "GOJ EQ"},
        {u"*=*", "LOJ ASTERISK"},
        {u"**=", "ASTERISK LOJ"},
        {u"==*", "EQ GOJ"},
        {u"<=>", "LE GT"},
        {u"<>=", "NOT_EQ EQ"},
        {u"!==", "NOT_EQ EQ"},
        {u"!!=", "EXCLAMATION_MARK NOT_EQ"},
        {u">>=", "GT GE"},
        {u"=*", "GOJ"},
        {u"a=*", "IDENTIFICATOR GOJ"},
    });
}

TEST(AccessLexer, KnowsNoComment) {
    ExpectTypes(std::vector<Row>{
        {u"--", "MINUS MINUS"},
        {u"-- a", "MINUS MINUS @WS IDENTIFICATOR"},
        {u"/*", "DIVIDE ASTERISK"},
        {u"/* a */", "DIVIDE ASTERISK @WS IDENTIFICATOR @WS ASTERISK DIVIDE"},
        {u"//", "DIVIDE DIVIDE"},
        {u"#a", "'#' IDENTIFICATOR"},
    });
}

TEST(AccessLexer, TakesAWholeRunOfDigitsForOneNumber) {
    ExpectTypes(std::vector<Row>{
        {u"0", "DIGIT"},
        {u"9876543210", "DIGIT"},
        {u"1.5", "DIGIT DOT DIGIT"},
        {u".5", "DOT DIGIT"},
        {u"5.", "DIGIT DOT"},
        {u"1.5E+3", "DIGIT DOT DIGIT IDENTIFICATOR PLUS DIGIT"},
        {u"1a", "DIGIT IDENTIFICATOR"},
        {u"1 a", "DIGIT @WS IDENTIFICATOR"},
        {u"1select", "DIGIT SELECT_KEYWORD"},
        {u"10d", "DIGIT 'd'"},
        {u"1_", "DIGIT IDENTIFICATOR"},
        {u"-1", "MINUS DIGIT"},
        {u"\u0661", "IDENTIFICATOR"},  // an Arabic digit
    });
    const Recognition recognition(u"00123456789");
    EXPECT_EQ(recognition.Tokens().at(0).text, u"00123456789");
}

TEST(AccessLexer, TakesEachLetterInBothCasesForANameExceptTheWordsOfOneLetter) {
    const std::string letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
    std::vector<Expectation> expectations;
    for (const char letter : letters) {
        const bool isWord = letter == 'd' || letter == 'm' || letter == 'n';
        expectations.push_back({{letter}, isWord ? Quoted(std::string(1, letter)) : "IDENTIFICATOR"});
        expectations.push_back({{'_', letter}, "IDENTIFICATOR"});
        expectations.push_back({{letter, '9'}, "IDENTIFICATOR"});
        expectations.push_back({{letter, '_'}, "IDENTIFICATOR"});
    }
    ASSERT_EQ(expectations.size(), 4U * 52);
    ExpectWords(expectations);
}

TEST(AccessLexer, TakesLettersOfAnyAlphabetIntoAName) {
    for (const std::u16string_view name :
         {u"Größe"sv, u"größe"sv, u"Заказы"sv, u"名前"sv, u"Ñandú_1"sv, u"_"sv, u"__9"sv, u"a1b2"sv, u"\u0080"sv,
          u"\uFFFE"sv, u"a\u0080b\uFFFEc"sv, u"\u00A0"sv, u"\uFEFFx"sv, u"\u2028"sv, u"ä9"sv, u"x\U0001F600y"sv}) {
        const Recognition recognition{std::u16string(name)};
        ASSERT_EQ(Types(recognition), "IDENTIFICATOR") << ToUtf8(name);
        EXPECT_EQ(recognition.Tokens().front().text, name);
        EXPECT_EQ(recognition.LexerErrors(), 0U);
    }
}

TEST(AccessLexer, TakesEachSurrogateForOneCharacterOfAName) {
    for (const std::u16string& name : {u"\xD83D\xDE00"s, u"\xD83D"s, u"\xDE00"s, u"a\xDE00\xD83D"s}) {
        const Recognition recognition(name + u" b");
        ASSERT_EQ(Types(recognition), "IDENTIFICATOR @WS IDENTIFICATOR");
        const QZToken behind = recognition.Tokens()[2];
        EXPECT_EQ(recognition.Tokens()[0].text, name);
        EXPECT_EQ(behind.position.offset, name.size() + 1);
        EXPECT_EQ(behind.position.column, name.size() + 2);
    }
}

// Brackets and quotes depend on what follows them, a return on whether a line feed follows.
std::string TypeOfSingleUnit(char16_t unit) {
    const auto isAnyOf = [&](std::u16string_view units) { return units.find(unit) != std::u16string_view::npos; };
    if (isAnyOf(u" \t\n")) return "@WS";
    if (isAnyOf(u"0123456789")) return "DIGIT";
    if (isAnyOf(u"dmn")) return Quoted(std::string(1, static_cast<char>(unit)));
    if (isAnyOf(u"ABCDEFGHIJKLMNOPQRSTUVWXYZ_abcdefghijklmnopqrstuvwxyz")) return "IDENTIFICATOR";
    if (unit >= 0x80 && unit <= 0xFFFE) return "IDENTIFICATOR";
    for (const Entry& sign : vocabulary::kSigns) {
        if (Wide(sign.text) == std::u16string(1, unit)) return std::string(sign.token);
    }
    return "";
}

bool MakesNoToken(unsigned unit) {
    return unit <= 0x08 || unit == 0x0B || unit == 0x0C || (unit >= 0x0E && unit <= 0x1F) || unit == ';' ||
           unit == '?' || unit == '\\' || unit == '~' || unit == 0x7F || unit == 0xFFFF;
}

TEST(AccessLexer, HasAnAnswerForEachOfAllCharacters) {
    std::u16string text;
    for (unsigned unit = 0; unit <= 0xFFFF; ++unit) {
        if (u"['\"\r"sv.find(static_cast<char16_t>(unit)) != std::u16string_view::npos) continue;
        text += {static_cast<char16_t>(unit), u'\n'};
    }
    const Recognition recognition(text);
    std::vector<std::string> found(text.size());
    for (const QZToken& token : recognition.Tokens()) {
        EXPECT_EQ(token.text.size(), 1U);
        found[token.position.offset] = TypeOf(recognition, token);
    }
    std::vector<std::size_t> lost;
    for (std::size_t offset = 0; offset < text.size(); offset += 2) {
        EXPECT_EQ(found[offset], TypeOfSingleUnit(text[offset])) << "character " << +text[offset];
        EXPECT_EQ(found[offset].empty(), MakesNoToken(text[offset])) << "character " << +text[offset];
        if (found[offset].empty()) lost.push_back(offset);
    }
    std::vector<std::size_t> reported;
    for (const QZReport& report : LexerReports(recognition)) reported.push_back(report.position.offset);
    EXPECT_EQ(lost.size(), 35U);
    EXPECT_EQ(reported, lost);
    EXPECT_EQ(recognition.LexerErrors(), lost.size());
}

// -------------------------------------------------------------------------------------------- characters left out

TEST(AccessLexer, DropsCharactersWithoutATokenOneByOneAndReportsEach) {
    const std::u16string stray =
        u"\x01\x02\x03\x04\x05\x06\x07\x08\x0B\x0C\x0E\x0F\x10\x11\x12\x13\x14\x15\x16\x17\x18\x19\x1A\x1B\x1C\x1D\x1E"
        u"\x1F\x7F;?\\~\uFFFF"s +
        u'\0';
    for (const char16_t unit : stray) {
        const Recognition recognition(std::u16string(u"a") + unit + unit + u"b\n" + unit);
        SCOPED_TRACE(+unit);
        EXPECT_EQ(Types(recognition), "IDENTIFICATOR IDENTIFICATOR @WS");
        EXPECT_EQ(recognition.LexerErrors(), 3U);
        const std::vector<QZReport> reports = LexerReports(recognition);
        ASSERT_EQ(reports.size(), 3U);
        const QZPosition expected[] = {{1, 2, 1}, {1, 3, 2}, {2, 1, 5}};
        for (std::size_t i = 0; i < reports.size(); ++i) {
            EXPECT_EQ(reports[i].kind, QZReportKind::DroppedCharacter);
            EXPECT_EQ(reports[i].position.line, expected[i].line);
            EXPECT_EQ(reports[i].position.column, expected[i].column);
            EXPECT_EQ(reports[i].position.offset, expected[i].offset);
            EXPECT_FALSE(reports[i].message.empty());
        }
    }
}

TEST(AccessLexer, ReportsInOneLineWhateverIsLost) {
    for (const std::u16string_view text : {u";"sv, u"\x0B"sv, u"\0"sv, u"\x7F"sv, u"\uFFFF"sv, u"'a\nb"sv, u"[a\r\nb"sv,
                                           u"\"\n"sv, u"EXPAND \n"sv, u"'\x1B[31m"sv}) {
        const Recognition recognition{std::u16string(text)};
        const std::vector<QZReport> reports = LexerReports(recognition);
        ASSERT_EQ(reports.size(), 1U) << ToUtf8(text);
        const std::string& message = reports.front().message;
        const bool hasControl =
            std::any_of(message.begin(), message.end(), [](unsigned char unit) { return unit < 0x20; });
        EXPECT_FALSE(hasControl) << testing::PrintToString(message);
    }
}

TEST(AccessLexer, GoesOnUnharmedBehindASemicolon) {
    const Recognition recognition(u"SELECT a FROM t;");
    EXPECT_EQ(recognition.LexerErrors(), 1U);
    EXPECT_EQ(recognition.ParserErrors(), 0U);
    EXPECT_EQ(recognition.Tokens().size(), 7U);
}

// ------------------------------------------------------------------------------------------------ brackets and quotes

TEST(AccessLexer, TakesBracketsAndQuotesWithAllThatIsInThemForOneToken) {
    const struct {
        std::u16string_view delimiters;
        std::string_view type;
    } kinds[] = {{u"[]", "COL_PAREN_ATTRITION"}, {u"''", "QUOTE_ATTRITION"}, {u"\"\"", "MY_QUOTE_ATTRITION"}};
    for (const auto& kind : kinds) {
        for (const std::u16string_view body :
             {u""sv,       u"abc"sv,    u" a b "sv,  u"a\nb"sv,         u"a\r\nb"sv,     u"\n"sv,           u"\t"sv,
              u"\0"sv,     u"a\0b"sv,   u";?\\~"sv,  u"\x01\x1F\x7F"sv, u"Größe 名前"sv, u"\xD83D\xDE00"sv, u"\xD83D"sv,
              u"\xDE00"sv, u"\uFFFE"sv, u"\uFFFF"sv, u"SELECT"sv,       u"--"sv,         u"[("sv,           u"a.b"sv}) {
            const std::u16string text = kind.delimiters.front() + std::u16string(body) + kind.delimiters.back();
            const Recognition recognition(text + u" x");
            SCOPED_TRACE(ToUtf8(text));
            EXPECT_EQ(Types(recognition), std::string(kind.type) + " @WS IDENTIFICATOR");
            EXPECT_EQ(recognition.LexerErrors(), 0U);
            EXPECT_EQ(recognition.Tokens().at(0).text, text);
        }
    }
}

TEST(AccessLexer, LetsOneKindOfDelimiterStandInAnother) {
    ExpectTypes(std::vector<Row>{
        {u"['\"]", "COL_PAREN_ATTRITION"},
        {u"'[\"]'", "QUOTE_ATTRITION"},
        {u"\"['\"", "MY_QUOTE_ATTRITION"},
        {u"[[a]", "COL_PAREN_ATTRITION"},
        {u"[a]]", "COL_PAREN_ATTRITION RIGHT_COL_PAREN"},
        {u"[a][b]", "COL_PAREN_ATTRITION COL_PAREN_ATTRITION"},
        {u"[a].[b]", "COL_PAREN_ATTRITION DOT COL_PAREN_ATTRITION"},
        {u"[a.b]", "COL_PAREN_ATTRITION"},
        {u"x'a'y", "IDENTIFICATOR QUOTE_ATTRITION IDENTIFICATOR"},
        {u"`a`", "MY_ONE_QUOTE IDENTIFICATOR MY_ONE_QUOTE"},
    });
}

TEST(AccessLexer, KnowsNoEscape) {
    ExpectTypes(std::vector<Row>{
        {u"'it''s'", "QUOTE_ATTRITION QUOTE_ATTRITION"},
        {u"''''", "QUOTE_ATTRITION QUOTE_ATTRITION"},
        {u"\"a\"\"b\"", "MY_QUOTE_ATTRITION MY_QUOTE_ATTRITION"},
        {u"'a\\'", "QUOTE_ATTRITION"},
    });
    const Recognition recognition(u"'it''s'");
    EXPECT_EQ(recognition.Tokens().at(0).text, u"'it'");
    EXPECT_EQ(recognition.Tokens().at(1).text, u"'s'");
}

TEST(AccessLexer, GivesAnOpeningDelimiterATokenOfItsOwnAtTheVeryEndOnly) {
    ExpectTypes(std::vector<Row>{
        {u"[", "LEFT_COL_PAREN"},
        {u"'", "QUOTE"},
        {u"\"", "MY_QUOTE"},
        {u"a [", "IDENTIFICATOR @WS LEFT_COL_PAREN"},
        {u"'a''", "QUOTE_ATTRITION QUOTE"},
        {u"[a][", "COL_PAREN_ATTRITION LEFT_COL_PAREN"},
        {u"\"\"\"", "MY_QUOTE_ATTRITION MY_QUOTE"},
        {u"]", "RIGHT_COL_PAREN"},
    });
}

struct Loss {
    std::u16string_view text;
    std::string_view types;
    QZPosition position;
};

void ExpectOneLoss(const Loss& loss) {
    SCOPED_TRACE(ToUtf8(loss.text));
    const Recognition recognition{std::u16string(loss.text)};
    EXPECT_EQ(Types(recognition), loss.types);
    EXPECT_EQ(recognition.LexerErrors(), 1U);
    const std::vector<QZReport> reports = LexerReports(recognition);
    ASSERT_EQ(reports.size(), 1U);
    EXPECT_EQ(reports[0].position.line, loss.position.line);
    EXPECT_EQ(reports[0].position.column, loss.position.column);
    EXPECT_EQ(reports[0].position.offset, loss.position.offset);
}

TEST(AccessLexer, LosesTheWholeRestBehindAnUnclosedDelimiter) {
    const Loss losses[] = {
        {u"[a", "", {1, 1, 0}},
        {u"[ ", "", {1, 1, 0}},
        {u"'a", "", {1, 1, 0}},
        {u"\"a", "", {1, 1, 0}},
        {u"a [b FROM t WHERE x = 1", "IDENTIFICATOR @WS", {1, 3, 2}},
        {u"a 'b FROM t;?", "IDENTIFICATOR @WS", {1, 3, 2}},
        {u"a \"b\nFROM t\n", "IDENTIFICATOR @WS", {1, 3, 2}},
        {u"a\nb 'c\n[d] \"e\"", "IDENTIFICATOR @WS IDENTIFICATOR @WS", {2, 3, 4}},
        {u"'a''b", "QUOTE_ATTRITION", {1, 4, 3}},
        {u"[a]['b'", "COL_PAREN_ATTRITION", {1, 4, 3}},
    };
    for (const Loss& loss : losses) ExpectOneLoss(loss);
}

// --------------------------------------------------------------------------------- literals with a blank in the middle

TEST(AccessLexer, TakesExpandViewsAndBynatyBase64ForOneTokenEach) {
    ExpectTypes(std::vector<Row>{
        {u"EXPAND VIEWS", "'EXPAND VIEWS'"},
        {u"BYNATY base64", "'BYNATY base64'"},
        {u"EXPAND VIEWSx", "'EXPAND VIEWS' IDENTIFICATOR"},
        {u"EXPAND VIEWS$", "'EXPAND VIEWS' DOLLAR"},
        {u"BYNATY base645", "'BYNATY base64' DIGIT"},
        {u"xEXPAND VIEWS", "IDENTIFICATOR @WS IDENTIFICATOR"},
        {u"BINARY base64", "IDENTIFICATOR @WS IDENTIFICATOR"},
    });
    EXPECT_EQ(Recognition(u"EXPAND VIEWS").Tokens().at(0).text, u"EXPAND VIEWS");
}

TEST(AccessLexer, CommitsToThemOnlyInThatCaseAndBeforeABlank) {
    ExpectTypes(std::vector<Row>{
        {u"EXPAND", "IDENTIFICATOR"},
        {u"BYNATY", "IDENTIFICATOR"},
        {u"EXPAND,", "IDENTIFICATOR COMMA"},
        {u"BYNATY.", "IDENTIFICATOR DOT"},
        {u"EXPAND\tVIEWS", "IDENTIFICATOR @WS IDENTIFICATOR"},
        {u"EXPAND\nVIEWS", "IDENTIFICATOR @WS IDENTIFICATOR"},
        {u"EXPANDVIEWS", "IDENTIFICATOR"},
        {u"EXPANDED x", "IDENTIFICATOR @WS IDENTIFICATOR"},
        {u"Expand VIEWS", "IDENTIFICATOR @WS IDENTIFICATOR"},
        {u"expand views", "IDENTIFICATOR @WS IDENTIFICATOR"},
        {u"bynaty base64", "IDENTIFICATOR @WS IDENTIFICATOR"},
        {u"[EXPAND x]", "COL_PAREN_ATTRITION"},
    });
}

TEST(AccessLexer, LosesWhatItHasReadOfThemAndOneCharacterMore) {
    const Loss losses[] = {
        {u"EXPAND ", "", {1, 1, 0}},
        {u"EXPAND x", "", {1, 1, 0}},
        {u"EXPAND xyz", "IDENTIFICATOR", {1, 1, 0}},
        {u"EXPAND  VIEWS", "IDENTIFICATOR", {1, 1, 0}},
        {u"EXPAND views", "IDENTIFICATOR", {1, 1, 0}},
        {u"EXPAND VIEW, a", "@WS IDENTIFICATOR", {1, 1, 0}},
        {u"EXPAND VIEW", "", {1, 1, 0}},
        {u"a EXPAND = 1", "IDENTIFICATOR @WS @WS DIGIT", {1, 3, 2}},
        {u"a,\nEXPAND (b)", "IDENTIFICATOR COMMA @WS IDENTIFICATOR RIGHT_PAREN", {2, 1, 3}},
        {u"BYNATY BASE64", "IDENTIFICATOR", {1, 1, 0}},
        {u"BYNATY base6x1", "DIGIT", {1, 1, 0}},
        {u"BYNATY 64", "DIGIT", {1, 1, 0}},
    };
    for (const Loss& loss : losses) ExpectOneLoss(loss);
    EXPECT_EQ(Recognition(u"BYNATY BASE64").Tokens().at(0).text, u"ASE64");
    EXPECT_EQ(Recognition(u"EXPAND xyz").Tokens().at(0).text, u"yz");
}

// -------------------------------------------------------------------------------------------- white space, positions

TEST(AccessLexer, HidesWhiteSpaceUnitByUnit) {
    ExpectTypes(std::vector<Row>{
        {u" ", "@WS"},
        {u"\t", "@WS"},
        {u"\n", "@WS"},
        {u"\r", "@WS"},
        {u"\r\n", "@WS"},
        {u"  ", "@WS @WS"},
        {u"\n\n", "@WS @WS"},
        {u"\r\r", "@WS @WS"},
        {u"\n\r", "@WS @WS"},
        {u"\r\n\r\n", "@WS @WS"},
        {u"\r\r\n", "@WS @WS"},
        {u" \t\r\n ", "@WS @WS @WS @WS"},
    });
    EXPECT_EQ(Recognition(u"\r\n").Tokens().at(0).text, u"\r\n");
}

TEST(AccessLexer, GivesAnEmptyTextNoToken) {
    const Recognition recognition(u"");
    EXPECT_EQ(Types(recognition), "");
    EXPECT_EQ(recognition.LexerErrors(), 0U);
}

TEST(AccessLexer, TellsWhereEachTokenStands) {
    const Recognition recognition(u"SELECT\n  [a\nb],;\r\n'\xD83D\xDE00'x");
    const struct {
        std::string_view type;
        std::u16string_view text;
        QZPosition position;
    } expected[] = {
        {"SELECT_KEYWORD", u"SELECT", {1, 1, 0}},
        {"@WS", u"\n", {1, 7, 6}},
        {"@WS", u" ", {2, 1, 7}},
        {"@WS", u" ", {2, 2, 8}},
        {"COL_PAREN_ATTRITION", u"[a\nb]", {2, 3, 9}},
        {"COMMA", u",", {3, 3, 14}},
        {"@WS", u"\r\n", {3, 5, 16}},
        {"QUOTE_ATTRITION", u"'\xD83D\xDE00'", {4, 1, 18}},
        {"IDENTIFICATOR", u"x", {4, 5, 22}},
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
        EXPECT_EQ(tokens[i].hidden, expected[i].type.front() == '@');
    }
}

}  // namespace
