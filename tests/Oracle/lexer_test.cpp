#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "tests/Oracle/vocabulary.h"
#include "tests/support/Lexed.h"

namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;
using vocabulary::Entry;

Recognition Recognized(std::u16string_view text) { return Recognition(std::u16string(text), QZGrammarOracle()); }

std::string TypesOf(std::u16string_view text) { return Types(Recognized(text)); }

void ExpectAll(const std::vector<Row>& rows) { ExpectTypes(rows, QZGrammarOracle()); }

// ------------------------------------------------------------------------------------------ signs, numbers and names

TEST(OracleLexer, KnowsEachSign) {
    for (const Entry& sign : vocabulary::kSigns) EXPECT_EQ(TypesOf(Wide(sign.text)), sign.token);
}

TEST(OracleLexer, JoinsTwoSignsThatStandTogetherInACompoundAndNoOthers) {
    for (const Entry& first : vocabulary::kSigns) {
        for (const Entry& second : vocabulary::kSigns) {
            const std::string pair = std::string(first.text) + std::string(second.text);
            if (pair == "@@") continue;
            const auto compound =
                std::find_if(std::begin(vocabulary::kCompoundSigns), std::end(vocabulary::kCompoundSigns),
                             [&](const Entry& entry) { return entry.text == pair; });
            const std::string apart = std::string(first.token) + " " + std::string(second.token);
            const bool joined = compound != std::end(vocabulary::kCompoundSigns);
            EXPECT_EQ(TypesOf(Wide(pair)), joined ? std::string(compound->token) : apart) << pair;
            EXPECT_EQ(TypesOf(Wide(std::string(first.text) + " " + std::string(second.text))),
                      std::string(first.token) + " @WS " + std::string(second.token));
        }
    }
}

TEST(OracleLexer, ReadsRunsOfSignsFromTheLeft) {
    ExpectAll({
        {u"=*", "GOJ"},
        {u"*=", "LOJ"},
        {u"||", "OR_KEYWORD2"},
        {u"|", "VERTBAR"},
        {u"&&", "AND_KEYWORD2"},
        {u"&", "AMPERSAND"},
        {u"&&&", "AND_KEYWORD2 AMPERSAND"},
        {u"|||", "OR_KEYWORD2 VERTBAR"},
        {u"=*=", "GOJ EQ"},
        {u"*=*", "LOJ ASTERISK"},
        {u"<=>", "LE GT"},
        {u"<>=", "NOT_EQ EQ"},
        {u"!==", "NOT_EQ EQ"},
        {u"!=", "NOT_EQ"},
        {u"###", "'##' '#'"},
        {u"(+)", "LEFT_PAREN PLUS RIGHT_PAREN"},
    });
}

TEST(OracleLexer, KnowsNoComment) {
    ExpectAll({
        {u"-- a", "MINUS MINUS @WS IDENTIFICATOR"},
        {u"/* a */", "DIVIDE ASTERISK @WS IDENTIFICATOR @WS ASTERISK DIVIDE"},
    });
}

TEST(OracleLexer, TakesAWholeRunOfDigitsForOneNumber) {
    ExpectAll({
        {u"0", "DIGIT"},
        {u"9876543210", "DIGIT"},
        {u"1.5", "DIGIT DOT DIGIT"},
        {u".5", "DOT DIGIT"},
        {u"1.5E+3", "DIGIT DOT DIGIT IDENTIFICATOR PLUS DIGIT"},
        {u"1a", "DIGIT IDENTIFICATOR"},
        {u"1select", "DIGIT SELECT_KEYWORD"},
        {u"1yy", "DIGIT 'yy'"},
        {u"-1", "MINUS DIGIT"},
    });
}

TEST(OracleLexer, BeginsANameWithALetterOrLineAndGoesOnWithDigitsAndTwoSigns) {
    ExpectAll({
        {u"a$b#1", "IDENTIFICATOR"},
        {u"_", "IDENTIFICATOR"},
        {u"_$", "IDENTIFICATOR"},
        {u"#a", "'#' IDENTIFICATOR"},
        {u"##a#", "'##' IDENTIFICATOR"},
        {u"a##", "IDENTIFICATOR"},
    });
    EXPECT_EQ(Recognized(u"a$b#1").Tokens().at(0).text, u"a$b#1");
}

std::string TypeOfSingleUnit(char16_t unit) {
    const auto isAnyOf = [&](std::u16string_view units) { return units.find(unit) != std::u16string_view::npos; };
    if (isAnyOf(u" \t\n")) return "@WS";
    if (isAnyOf(u"0123456789")) return "DIGIT";
    if (isAnyOf(u"ABCDEFGHIJKLMNOPQRSTUVWXYZ_abcdefghijklmnopqrstuvwxyz")) return "IDENTIFICATOR";
    for (const Entry& sign : vocabulary::kSigns) {
        if (Wide(sign.text) == std::u16string(1, unit)) return std::string(sign.token);
    }
    return "";
}

bool MakesNoToken(unsigned unit) {
    return unit <= 0x08 || unit == 0x0B || unit == 0x0C || (unit >= 0x0E && unit <= 0x1F) || unit == '$' ||
           unit == ':' || unit == ';' || unit == '?' || unit == '\\' || unit == '^' || unit >= '~';
}

TEST(OracleLexer, HasAnAnswerForEachOfAllCharacters) {
    std::u16string text;
    for (unsigned unit = 0; unit <= 0xFFFF; ++unit) {
        if (u"['\"\r!"sv.find(static_cast<char16_t>(unit)) != std::u16string_view::npos) continue;
        text += {static_cast<char16_t>(unit), u'\n'};
    }
    const Recognition recognition = Recognized(text);
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
    EXPECT_EQ(reported, lost);
    EXPECT_EQ(recognition.LexerErrors(), lost.size());
}

// ------------------------------------------------------------------------------------------------ brackets and quotes

TEST(OracleLexer, TakesBracketsAndQuotesWithAllThatIsInThemForOneToken) {
    const struct {
        std::u16string_view delimiters;
        std::string_view type;
    } kinds[] = {{u"[]", "COL_PAREN_ATTRITION"}, {u"''", "QUOTE_ATTRITION"}, {u"\"\"", "MY_QUOTE_ATTRITION"}};
    for (const auto& kind : kinds) {
        for (const std::u16string_view body :
             {u""sv, u"abc"sv, u" a b "sv, u"a\r\nb"sv, u"\0"sv, u";?\\~^$"sv, u"\x01\x7F"sv, u"Größe 名前"sv,
              u"\xD83D\xDE00"sv, u"\xD83D"sv, u"\uFFFE"sv, u"\uFFFF"sv, u"SELECT"sv, u"--"sv, u"a.b"sv}) {
            const std::u16string text = kind.delimiters.front() + std::u16string(body) + kind.delimiters.back();
            const Recognition recognition = Recognized(text + u" x");
            SCOPED_TRACE(ToUtf8(text));
            EXPECT_EQ(Types(recognition), std::string(kind.type) + " @WS IDENTIFICATOR");
            EXPECT_EQ(recognition.LexerErrors(), 0U);
            EXPECT_EQ(recognition.Tokens().at(0).text, text);
        }
    }
}

TEST(OracleLexer, LetsOneKindOfDelimiterStandInAnotherAndKnowsNoEscape) {
    ExpectAll({
        {u"['\"]", "COL_PAREN_ATTRITION"},
        {u"'[\"]'", "QUOTE_ATTRITION"},
        {u"\"['\"", "MY_QUOTE_ATTRITION"},
        {u"[a]]", "COL_PAREN_ATTRITION RIGHT_COL_PAREN"},
        {u"'it''s'", "QUOTE_ATTRITION QUOTE_ATTRITION"},
        {u"\"a\"\"b\"", "MY_QUOTE_ATTRITION MY_QUOTE_ATTRITION"},
        {u"`a`", "MY_ONE_QUOTE IDENTIFICATOR MY_ONE_QUOTE"},
    });
}

TEST(OracleLexer, GivesAnOpeningDelimiterATokenOfItsOwnAtTheVeryEndOnly) {
    ExpectAll({
        {u"[", "LEFT_COL_PAREN"},
        {u"'", "'''"},
        {u"\"", "MY_QUOTE"},
        {u"a [", "IDENTIFICATOR @WS LEFT_COL_PAREN"},
        {u"'a''", "QUOTE_ATTRITION '''"},
        {u"\"\"\"", "MY_QUOTE_ATTRITION MY_QUOTE"},
        {u"]", "RIGHT_COL_PAREN"},
    });
}

struct Loss {
    std::u16string_view text;
    std::string_view types;
    std::size_t offset;
};

void ExpectOneLoss(const Loss& loss) {
    SCOPED_TRACE(ToUtf8(loss.text));
    const Recognition recognition = Recognized(loss.text);
    EXPECT_EQ(Types(recognition), loss.types);
    EXPECT_EQ(recognition.LexerErrors(), 1U);
    const std::vector<QZReport> reports = LexerReports(recognition);
    ASSERT_EQ(reports.size(), 1U);
    EXPECT_EQ(reports[0].position.offset, loss.offset);
    EXPECT_EQ(reports[0].kind, QZReportKind::DroppedCharacter);
}

TEST(OracleLexer, LosesTheWholeRestBehindAnUnclosedDelimiter) {
    const Loss losses[] = {
        {u"[a", "", 0},
        {u"' ", "", 0},
        {u"\"a", "", 0},
        {u"a [b FROM t WHERE x = 1", "IDENTIFICATOR @WS", 2},
        {u"a 'b FROM t;?", "IDENTIFICATOR @WS", 2},
        {u"a \"b\nFROM t\n", "IDENTIFICATOR @WS", 2},
        {u"'a''b", "QUOTE_ATTRITION", 3},
    };
    for (const Loss& loss : losses) ExpectOneLoss(loss);
}

// -------------------------------------------------------------------------------------------------- words that commit

TEST(OracleLexer, TakesAWordWithABlankOrPointInTheMiddleForOneToken) {
    ExpectAll({
        {u"EXPAND VIEWS", "'EXPAND VIEWS'"},
        {u"BYNATY base64", "'BYNATY base64'"},
        {u"SET TEXTSIZE", "'SET TEXTSIZE'"},
        {u"dbms_random.value", "'dbms_random.value'"},
        {u"SET TEXTSIZEx", "'SET TEXTSIZE' IDENTIFICATOR"},
        {u"dbms_random.values", "'dbms_random.value' IDENTIFICATOR"},
        {u"dbms_random.value(", "'dbms_random.value' LEFT_PAREN"},
    });
    for (const std::string_view literal : vocabulary::kLiteralsOfTwoWords) {
        EXPECT_EQ(Recognized(Wide(literal)).Tokens().at(0).text, Wide(literal));
    }
}

TEST(OracleLexer, CommitsToThemOnlyInThatCaseAndBeforeThatSign) {
    ExpectAll({
        {u"SET", "IDENTIFICATOR"},
        {u"SET,", "IDENTIFICATOR COMMA"},
        {u"SET\tTEXTSIZE", "IDENTIFICATOR @WS IDENTIFICATOR"},
        {u"SET\nTEXTSIZE", "IDENTIFICATOR @WS IDENTIFICATOR"},
        {u"Set TEXTSIZE", "IDENTIFICATOR @WS IDENTIFICATOR"},
        {u"set textsize", "IDENTIFICATOR @WS IDENTIFICATOR"},
        {u"EXPAND", "IDENTIFICATOR"},
        {u"expand views", "IDENTIFICATOR @WS IDENTIFICATOR"},
        {u"BYNATY.", "IDENTIFICATOR DOT"},
        {u"dbms_random", "IDENTIFICATOR"},
        {u"dbms_random .value", "IDENTIFICATOR @WS DOT IDENTIFICATOR"},
        {u"dbms_random(", "IDENTIFICATOR LEFT_PAREN"},
        {u"DBMS_RANDOM.VALUE", "IDENTIFICATOR DOT IDENTIFICATOR"},
        {u"Dbms_random.value", "IDENTIFICATOR DOT IDENTIFICATOR"},
    });
}

TEST(OracleLexer, LosesWhatItHasReadOfThemAndOneCharacterMore) {
    const Loss losses[] = {
        {u"SET ", "", 0},
        {u"SET x", "", 0},
        {u"SET xyz", "IDENTIFICATOR", 0},
        {u"SET  TEXTSIZE", "IDENTIFICATOR", 0},
        {u"a SET = 1", "IDENTIFICATOR @WS @WS DIGIT", 2},
        {u"EXPAND views", "IDENTIFICATOR", 0},
        {u"BYNATY BASE64", "IDENTIFICATOR", 0},
        {u"dbms_random.VALUE", "IDENTIFICATOR", 0},
        {u"dbms_random.string('a')", "IDENTIFICATOR LEFT_PAREN QUOTE_ATTRITION RIGHT_PAREN", 0},
        {u"!a", "", 0},
        {u"! =", "EQ", 0},
    };
    for (const Loss& loss : losses) ExpectOneLoss(loss);
    EXPECT_EQ(Recognized(u"SET  TEXTSIZE").Tokens().at(0).text, u"TEXTSIZE");
    EXPECT_EQ(Recognized(u"dbms_random.VALUE").Tokens().at(0).text, u"ALUE");
}

// Before its blank or point a cut word is a name, or the shorter word that it has become.
TEST(OracleLexer, LosesACutWordAtAnyLength) {
    const std::map<std::string_view, std::string_view> shorterWords = {{"BY", "BY_KEYWORD"}, {"EXP", "EXP"}};
    for (const std::string_view literal : vocabulary::kLiteralsOfTwoWords) {
        const std::size_t sign = literal.find_first_of(" .");
        for (std::size_t length = 1; length < literal.size(); ++length) {
            const std::string_view cut = literal.substr(0, length);
            SCOPED_TRACE(cut);
            const Recognition recognition = Recognized(Wide(cut));
            const auto shorter = shorterWords.find(cut);
            const std::string_view word = shorter == shorterWords.end() ? "IDENTIFICATOR" : shorter->second;
            EXPECT_EQ(Types(recognition), length <= sign ? word : "");
            EXPECT_EQ(recognition.LexerErrors(), length <= sign ? 0U : 1U);
        }
    }
}

TEST(OracleLexer, DropsALoneExclamationMarkWithTheCharacterBehindIt) {
    EXPECT_EQ(TypesOf(u"a!b"), "IDENTIFICATOR");
    EXPECT_EQ(TypesOf(u"a!bc"), "IDENTIFICATOR IDENTIFICATOR");
    EXPECT_EQ(TypesOf(u"!"), "");
}

// --------------------------------------------------------------------------------------------------------- at signs

TEST(OracleLexer, KnowsTheSystemsNamesInTheCaseShown) {
    ASSERT_EQ(vocabulary::kSystemNames.size(), 16U);
    for (const std::string_view name : vocabulary::kSystemNames) {
        EXPECT_EQ(TypesOf(Wide(name)), Quoted(name));
        EXPECT_EQ(TypesOf(Wide(name) + u"X"), Quoted(name) + " IDENTIFICATOR");
        EXPECT_EQ(TypesOf(Wide(name) + u"("), Quoted(name) + " LEFT_PAREN");
    }
}

TEST(OracleLexer, DropsTheFirstOfTwoAtSignsWhereNoNameBegins) {
    const Loss losses[] = {
        {u"@@version", "'@' IDENTIFICATOR", 0},
        {u"@@CPU_BUSY", "'@' IDENTIFICATOR", 0},
        {u"@@", "'@'", 0},
        {u"@@ VERSION", "'@' @WS IDENTIFICATOR", 0},
        {u"@@1", "'@' DIGIT", 0},
        {u"a @@LANG", "IDENTIFICATOR @WS '@' IDENTIFICATOR", 2},
        {u"@@VERSIOn", "'@' IDENTIFICATOR", 0},
        {u"@@SERVER", "'@' IDENTIFICATOR", 0},
    };
    for (const Loss& loss : losses) ExpectOneLoss(loss);
    EXPECT_EQ(TypesOf(u"@a"), "'@' IDENTIFICATOR");
    EXPECT_EQ(TypesOf(u"@@@VERSION"), "'@@VERSION'");
}

TEST(OracleLexer, DropsTheFirstAtSignOfANameCutAtAnyLength) {
    for (const std::string_view name : vocabulary::kSystemNames) {
        for (std::size_t length = 2; length < name.size(); ++length) {
            SCOPED_TRACE(name.substr(0, length));
            const std::string word(name.substr(2, length - 2));
            const std::string type = word.empty() ? "" : " " + vocabulary::TokenOfWord(word);
            EXPECT_EQ(TypesOf(Wide(name.substr(0, length))), "'@'" + type);
        }
    }
}

// ----------------------------------------------------------------------------------- characters left out, white space

TEST(OracleLexer, DropsCharactersWithoutATokenOneByOneAndReportsEach) {
    const std::u16string stray = u"\x01\x0B\x1F\x7F$:;?\\^~ä\u0080\xD800\uFFFF"s + u'\0';
    for (const char16_t unit : stray) {
        const Recognition recognition = Recognized(u","s + unit + unit + u",\n" + unit);
        SCOPED_TRACE(+unit);
        EXPECT_EQ(Types(recognition), "COMMA COMMA @WS");
        EXPECT_EQ(recognition.LexerErrors(), 3U);
        const std::vector<QZReport> reports = LexerReports(recognition);
        ASSERT_EQ(reports.size(), 3U);
        const QZPosition expected[] = {{1, 2, 1}, {1, 3, 2}, {2, 1, 5}};
        for (std::size_t i = 0; i < reports.size(); ++i) {
            EXPECT_EQ(reports[i].position.line, expected[i].line);
            EXPECT_EQ(reports[i].position.column, expected[i].column);
            EXPECT_EQ(reports[i].position.offset, expected[i].offset);
        }
    }
}

TEST(OracleLexer, LeavesTheNameOfAHostVariable) {
    const Recognition recognition = Recognized(u":x;");
    EXPECT_EQ(Types(recognition), "IDENTIFICATOR");
    EXPECT_EQ(recognition.Tokens().at(0).text, u"x");
    EXPECT_EQ(recognition.LexerErrors(), 2U);
}

TEST(OracleLexer, HidesWhiteSpaceUnitByUnit) {
    ExpectAll({
        {u"", ""},
        {u" ", "@WS"},
        {u"\t", "@WS"},
        {u"\r\n", "@WS"},
        {u"\n\r", "@WS @WS"},
        {u"\r\r\n", "@WS @WS"},
        {u" \t\r\n ", "@WS @WS @WS @WS"},
    });
}

TEST(OracleLexer, TellsWhereEachTokenStands) {
    const Recognition recognition = Recognized(u"SELECT\n  [a\nb],;\r\n'\xD83D\xDE00'x");
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
        EXPECT_EQ(TypeOf(recognition, tokens[i]), expected[i].type);
        EXPECT_EQ(tokens[i].text, expected[i].text);
        EXPECT_EQ(tokens[i].position.line, expected[i].position.line);
        EXPECT_EQ(tokens[i].position.column, expected[i].position.column);
        EXPECT_EQ(tokens[i].position.offset, expected[i].position.offset);
    }
}

}  // namespace
