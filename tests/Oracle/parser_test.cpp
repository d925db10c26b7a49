// The parser of Oracle as hosts use it, and what comes of texts that are no good queries.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <thread>
#include <type_traits>
#include <vector>

#include "QZParserSQL/Oracle/CQZOracleParser.h"
#include "tests/dialect/Views.h"
#include "tests/front/Slot.h"
#include "tests/support/Outline.h"
#include "tests/support/Recognition.h"

namespace {

using namespace std::string_view_literals;

constexpr char kTree[] =
    "nil(SELECT_QUERY_OR(SELECT_LIST(COLUMN_SPECIFICATION(COLUMN_NAME(a))) "
    "FROM_DEF_(ALIAS(TABLE_SPECIFICATION(TABLE_NAME(t)) NEW_NAME(x)))) <EOF>)";
constexpr char kTreeOfNoText[] = "nil(SELECT_QUERY_OR(Tree Error Node) <EOF>)";

std::string ShapeOf(CQZOracleParser& parser) {
    CQZSQLTree* view = nullptr;
    parser.GetSQLTree(&view);
    return Shape(*std::unique_ptr<CQZSQLTree>(view));
}

std::string Parsed(std::u16string_view sql) {
    CString text(sql);
    CQZOracleParser parser;
    parser.SetSQL(text);
    parser.ParseSQL();
    return ShapeOf(parser);
}

TEST(OracleParser, MakesATreeOfAQuery) { EXPECT_EQ(Parsed(u"SELECT a FROM t x"), kTree); }

TEST(OracleParser, IsAParserWithItsOperationsInOrder) {
    EXPECT_TRUE((std::is_base_of_v<CQZSQLParser, CQZOracleParser>));
    EXPECT_EQ(SlotOf(&CQZOracleParser::ParseSQL), 2U);
    EXPECT_EQ(SlotOf(&CQZOracleParser::SetSQL), 3U);
    EXPECT_EQ(SlotOf(&CQZOracleParser::GetSQLTree), 4U);
}

TEST(OracleParser, ParsesNothingWithoutAText) {
    CQZOracleParser parser;
    parser.ParseSQL();
    EXPECT_EQ(ShapeOf(parser), " ");
}

TEST(OracleParser, ParsesASecondTextAndFindsNothingLeftOfAFirst) {
    const Messages messages;
    CString text(u"SELECT a FROM t x");
    CString other(u"select a from t x");
    CQZOracleParser parser;
    parser.SetSQL(text);
    parser.ParseSQL();
    EXPECT_EQ(ShapeOf(parser), kTree);
    parser.ParseSQL();
    EXPECT_EQ(ShapeOf(parser), kTreeOfNoText);
    parser.SetSQL(other);
    parser.ParseSQL();
    EXPECT_EQ(ShapeOf(parser), kTree);
}

TEST(OracleParser, MakesATreeOfWhatIsNoQuery) {
    const struct {
        std::u16string_view text;
        std::string tree;
    } rows[] = {
        {u"", kTreeOfNoText},
        {u" \r\n\t", kTreeOfNoText},
        {u";", kTreeOfNoText},
        {u"\0"sv, kTreeOfNoText},
        {u"\xD800", kTreeOfNoText},
        {u"ä", kTreeOfNoText},
        {u"'", "nil(SELECT_QUERY_OR(Tree Error Node) ' <EOF>)"},
        {u"foo", "nil(SELECT_QUERY_OR(Tree Error Node) foo <EOF>)"},
        {u"(", "nil(SELECT_QUERY_OR(Tree Error Node) ( <EOF>)"},
        {u"((", "nil(SELECT_QUERY_OR(Tree Error Node) ( ( <EOF>)"},
        {u"UPDATE t SET = 1", "nil(SELECT_QUERY_OR(Tree Error Node) UPDATE t 1 <EOF>)"},
        {u"BEGIN SELECT a FROM t; END;", "nil(SELECT_QUERY_OR(Tree Error Node) BEGIN SELECT a FROM t END <EOF>)"},
    };
    for (const auto& row : rows) {
        const Messages messages;
        EXPECT_EQ(Parsed(row.text), row.tree);
        EXPECT_FALSE(messages.Lines().empty());
    }
}

TEST(OracleRecognizers, RunWithoutAFacade) {
    constexpr std::u16string_view kText = u"SELECT a";
    for (const bool sharesState : {false, true}) {
        auto* input = antlr3NewUCS2StringInPlaceStream(kText.data(), static_cast<std::uint32_t>(kText.size()), nullptr);
        auto* lexer = sharesState ? OracleLexerNewSSD(input, nullptr) : OracleLexerNew(input);
        auto* tokens = QZNewTokenStream(lexer);
        auto* parser = sharesState ? OracleParserNewSSD(tokens, nullptr) : OracleParserNew(tokens);
        EXPECT_EQ(Sexpr(QZGrammarOracle(), QZRunEntryRule(QZGrammarOracle(), parser)),
                  "(nil (SELECT_QUERY_OR (SELECT_LIST (COLUMN_SPECIFICATION (COLUMN_NAME IDENTIFICATOR:\"a\")))) EOF)");
        EXPECT_EQ(QZParserErrorCount(parser), 0U);
        QZCloseInput(input);
        QZFreeTokenStream(tokens);
        QZFreeLexer(QZGrammarOracle(), lexer);
        QZFreeParser(QZGrammarOracle(), parser);
    }
}

TEST(OracleParser, RunsInParallelWithOthers) {
    std::vector<std::string> trees(4);
    std::vector<std::thread> threads;
    for (std::string& tree : trees) {
        threads.emplace_back([&tree] {
            for (int i = 0; i < 50; ++i) tree = Parsed(u"SELECT a FROM t x");
        });
    }
    for (std::thread& thread : threads) thread.join();
    for (const std::string& tree : trees) EXPECT_EQ(tree, kTree);
}

// ---------------------------------------------------------------------------------------------------------- bad texts

constexpr std::u16string_view kAllClauses =
    u"SELECT DISTINCT TOP 5 a AS x, NVL(b, 'c'), CASE WHEN a = 1 THEN 2 END, ROW_NUMBER() OVER (ORDER BY a) rn "
    u"FROM t y LEFT JOIN (SELECT b FROM u) z ON y.a = z.b(+), v "
    u"WHERE NOT (a IN (1, 2)) AND b BETWEEN -1 AND :c GROUP BY a, b + 1 with cube HAVING COUNT(*) > 1 "
    u"ORDER BY a DESC COMPUTE SUM(a) BY b FOR XML AUTO.ELEMENTS OPTION FAST 10 UNION ALL SELECT EXTRACT(YEAR FROM d), "
    u"CAST(a AS VARCHAR2(10 BYTE)) FROM [w]";

// Whatever the text: the query and the end of the text are there, and the reports have a place in it.
void ExpectWhole(const std::u16string& text) {
    const Recognition recognition(text, QZGrammarOracle());
    const QZNode* root = recognition.Root();
    ASSERT_NE(root, nullptr);
    const std::uint32_t count = QZChildCount(root);
    ASSERT_GE(count, 2U) << ToUtf8(text);
    EXPECT_EQ(QZTextOf(QZGrammarOracle(), QZChildAt(root, 0)), u"SELECT_QUERY_OR");
    EXPECT_EQ(QZKindOf(QZChildAt(root, count - 1)), QZNodeKind::EndOfText);
    for (const QZReport& report : recognition.Reports()) EXPECT_LE(report.position.offset, text.size());
}

TEST(OracleBadTexts, KeepTheQueryAndTheEndWhereverTheyAreCut) {
    for (std::size_t length = 0; length <= kAllClauses.size(); ++length) {
        ExpectWhole(std::u16string(kAllClauses.substr(0, length)));
    }
}

TEST(OracleBadTexts, KeepThemWhateverStandsBetween) {
    const std::u16string_view intruders[] = {u"'",
                                             u"\"",
                                             u"[",
                                             u"]",
                                             u"`",
                                             u"(",
                                             u")",
                                             u",",
                                             u".",
                                             u"+",
                                             u"-",
                                             u"(+)",
                                             u"\0"sv,
                                             u"\x1F",
                                             u"ä",
                                             u"\xD800",
                                             u"\xDC00",
                                             u"@@",
                                             u"@",
                                             u"#",
                                             u"!",
                                             u"{",
                                             u"}",
                                             u"SET ",
                                             u"EXPAND ",
                                             u"NOT ",
                                             u"||",
                                             u"1E",
                                             u":",
                                             u"SELECT ",
                                             u"dbms_random.",
                                             u"UNION ",
                                             u"JOIN ",
                                             u"BETWEEN ",
                                             u"OVER "};
    for (const std::u16string_view intruder : intruders) {
        for (std::size_t place = 0; place <= kAllClauses.size(); place = kAllClauses.find(u' ', place + 1)) {
            ExpectWhole(std::u16string(kAllClauses).insert(place, u" " + std::u16string(intruder)));
        }
    }
}

TEST(OracleBadTexts, LoseTheRestBehindADelimiterThatIsNotClosedInAnyClause) {
    const struct {
        std::u16string_view begin;
        std::string_view tree;
    } rows[] = {
        {u"SELECT ", "(nil (SELECT_QUERY_OR (SELECT_LIST ERROR)) EOF)"},
        {u"SELECT * FROM ", "(nil (SELECT_QUERY_OR (SELECT_LIST (ASTERISK_ ASTERISK:\"*\")) FROM_DEF_) EOF)"},
        {u"SELECT * WHERE ",
         "(nil (SELECT_QUERY_OR (SELECT_LIST (ASTERISK_ ASTERISK:\"*\"))) WHERE_KEYWORD:\"WHERE\" EOF)"},
        {u"SELECT * GROUP BY ",
         "(nil (SELECT_QUERY_OR (SELECT_LIST (ASTERISK_ ASTERISK:\"*\"))) GROUP_KEYWORD:\"GROUP\" BY_KEYWORD:\"BY\" "
         "EOF)"},
        {u"SELECT * HAVING ",
         "(nil (SELECT_QUERY_OR (SELECT_LIST (ASTERISK_ ASTERISK:\"*\"))) HAVING_KEYWORD:\"HAVING\" EOF)"},
        {u"SELECT * ORDER BY ",
         "(nil (SELECT_QUERY_OR (SELECT_LIST (ASTERISK_ ASTERISK:\"*\"))) ORDER_KEYWORD:\"ORDER\" BY_KEYWORD:\"BY\" "
         "EOF)"},
        {u"SELECT * UNION ",
         "(nil (SELECT_QUERY_OR (SELECT_LIST (ASTERISK_ ASTERISK:\"*\"))) UNION_KEYWORD_:\"UNION\" EOF)"},
    };
    for (const auto& row : rows) {
        for (const std::u16string_view delimiter : {u"'", u"\"", u"["}) {
            const Recognition recognition(std::u16string(row.begin).append(delimiter).append(u"x y FROM z;"),
                                          QZGrammarOracle());
            EXPECT_EQ(Sexpr(QZGrammarOracle(), recognition.Root()), row.tree);
            EXPECT_EQ(recognition.LexerErrors(), 1U);
        }
    }
}

TEST(OracleBadTexts, TakeACutWordWithAPointForANameUpToThePoint) {
    constexpr std::u16string_view kWord = u"dbms_random.value";
    for (std::size_t length = 1; length < kWord.size(); ++length) {
        const std::u16string text = u"SELECT " + std::u16string(kWord.substr(0, length));
        const bool isName = length <= kWord.find(u'.');
        const Recognition recognition(text, QZGrammarOracle());
        const std::string item =
            isName ? "(COLUMN_SPECIFICATION (COLUMN_NAME IDENTIFICATOR:\"" + ToUtf8(kWord.substr(0, length)) + "\"))"
                   : "ERROR";
        EXPECT_EQ(Sexpr(QZGrammarOracle(), recognition.Root()),
                  "(nil (SELECT_QUERY_OR (SELECT_LIST " + item + ")) EOF)");
    }
}

}  // namespace
