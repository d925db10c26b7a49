#include <gtest/gtest.h>

#include <cstdint>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>
#include <thread>
#include <type_traits>
#include <utility>
#include <vector>

#include "QZParserSQL/CQZMSSQLParser.h"
#include "QZParserSQL/MSSQLTokens.h"
#include "QZParserSQL/MSSQLfromTokens.h"
#include "tests/dialect/Views.h"
#include "tests/front/Slot.h"
#include "tests/support/Outline.h"
#include "tests/support/Recognition.h"

namespace {

constexpr char kTree[] =
    "nil(SELECT_QUERY_(PREDICATE SELECT_LIST(ALIAS(COLUMN_SPECIFICATION(COLUMN_NAME(a)))) "
    "FROM_DEF_(ALIAS(TABLE_SPECIFICATION(TABLE_NAME(t))))) <EOF>)";
constexpr char kTreeOfNoText[] = "nil(SELECT_QUERY_(Tree Error Node) <EOF>)";

std::string Parsed(std::u16string_view sql) {
    const Messages silence;
    CString text(sql);
    CQZMSSQLParser parser;
    parser.SetSQL(text);
    parser.ParseSQL();
    return Shape(*ViewOf(parser));
}

std::unique_ptr<CQZSQLTree> FromViewOf(CQZMSSQLParser& parser) {
    CQZSQLTree* view = nullptr;
    parser.GetSQLFromTree(&view);
    return std::unique_ptr<CQZSQLTree>(view);
}

TEST(MSSQLFacade, MakesATreeOfAQuery) {
    EXPECT_TRUE((std::is_base_of_v<CQZSQLParser, CQZMSSQLParser>));
    EXPECT_EQ(Parsed(u"SELECT a FROM t"), kTree);
    EXPECT_EQ(Parsed(u""), kTreeOfNoText);
    EXPECT_EQ(Parsed(u"INSERT t"), "nil(SELECT_QUERY_(Tree Error Node) INSERT t <EOF>)");
}

// Hosts that were compiled earlier call the operations by their entry.
TEST(MSSQLFacade, KeepsItsVirtualOperationsInOrder) {
    EXPECT_EQ(SlotOf(&CQZMSSQLParser::ParseSQL), 2U);
    EXPECT_EQ(SlotOf(&CQZMSSQLParser::SetSQL), 3U);
    EXPECT_EQ(SlotOf(&CQZMSSQLParser::GetSQLTree), 4U);
    EXPECT_EQ(SlotOf(&CQZMSSQLParser::GetSQLFromTree), 5U);
}

TEST(MSSQLFacade, GivesAViewOfTheFromTreeThatHasNoNodeAndAnswers) {
    const Messages silence;
    CString text(u"SELECT a FROM t");
    CQZMSSQLParser parser;
    const auto expectEmpty = [&] {
        const auto view = FromViewOf(parser);
        ASSERT_NE(view, nullptr);
        EXPECT_NE(view, FromViewOf(parser));
        EXPECT_EQ(view->GetChildCount(), 0U);
        EXPECT_EQ(view->GetText(), u" ");
        EXPECT_EQ(view->GetType(), 0U);
        ASSERT_NE(view->GetChild(0), nullptr);
        EXPECT_EQ(view->GetChild(0)->GetChildCount(), 0U);
        EXPECT_EQ(view->GetChild(3)->GetText(), u" ");
    };
    expectEmpty();
    parser.SetSQL(text);
    parser.ParseSQL();
    expectEmpty();
    EXPECT_EQ(Shape(*ViewOf(parser)), kTree);
}

TEST(MSSQLFacade, KeepsTheTreesThatAreOutInALaterParse) {
    const Messages silence;
    CString text(u"SELECT a FROM t");
    CString other(u"SELECT b");
    CQZMSSQLParser parser;
    parser.SetSQL(text);
    parser.ParseSQL();
    const auto first = ViewOf(parser);
    parser.ParseSQL();
    EXPECT_EQ(Shape(*ViewOf(parser)), kTreeOfNoText) << "the text is read to its end";
    parser.SetSQL(other);
    parser.ParseSQL();
    EXPECT_EQ(Shape(*first), kTree);
    EXPECT_EQ(Shape(*ViewOf(parser)),
              "nil(SELECT_QUERY_(PREDICATE SELECT_LIST(ALIAS(COLUMN_SPECIFICATION(COLUMN_NAME(b))))) <EOF>)");
}

TEST(MSSQLFacade, TellsEachDroppedBlankOnALineOfItsOwn) {
    const Messages messages;
    CString text(u"SELECT  a\nFROM t");
    CQZMSSQLParser parser;
    parser.SetSQL(text);
    parser.ParseSQL();
    ASSERT_EQ(messages.Lines().size(), 4U);
    EXPECT_NE(messages.Lines()[0].find("1:7"), std::string::npos) << messages.Lines()[0];
    EXPECT_NE(messages.Lines()[3].find("2:5"), std::string::npos) << messages.Lines()[3];
}

TEST(MSSQLFacade, GivesTheTypesOfItsGrammar) {
    const Messages silence;
    CString text(u"SELECT a FROM t JOIN u ON x *= y");
    CQZMSSQLParser parser;
    parser.SetSQL(text);
    parser.ParseSQL();
    const auto view = ViewOf(parser);
    CQZSQLTree& from = *view->GetChild(0)->GetChild(2);
    EXPECT_EQ(view->GetChild(0)->GetType(), MSSQL::SELECT_QUERY_);
    EXPECT_EQ(from.GetType(), MSSQL::FROM_DEF_);
    CQZSQLTree& join = *from.GetChild(0)->GetChild(0);
    EXPECT_EQ(join.GetType(), MSSQL::JOIN_KEYWORD);
    EXPECT_EQ(join.GetChild(1)->GetChild(1)->GetChild(0)->GetChild(0)->GetType(), MSSQL::LOJ);
}

TEST(MSSQLFacade, RunsInParallelWithOthers) {
    const Messages silence;
    std::vector<std::string> trees(4);
    std::vector<std::thread> threads;
    for (std::string& tree : trees) {
        threads.emplace_back([&tree] {
            for (int i = 0; i < 50; ++i) {
                CString text(u"SELECT a FROM t");
                CQZMSSQLParser parser;
                parser.SetSQL(text);
                parser.ParseSQL();
                tree = Shape(*ViewOf(parser));
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
    for (const std::string& tree : trees) EXPECT_EQ(tree, kTree);
}

// ------------------------------------------------------------------------------------- recognizers without a facade

void Count(void* count, const QZReport&) { ++*static_cast<int*>(count); }
bool IsBlank(void*, std::u16string_view dropped) { return dropped == u" "; }

// Runs a grammar's recognizers as a host does and gives the tree; reports are counted, those of blanks left out.
template <class LexerNew, class ParserNew>
std::string ByHand(const QZGrammar& grammar, LexerNew newLexer, ParserNew newParser, std::u16string_view text,
                   int& reports) {
    const QZReporter reporter{Count, &reports, IsBlank};
    auto* input = antlr3NewUCS2StringInPlaceStream(text.data(), static_cast<std::uint32_t>(text.size()), nullptr);
    auto* lexer = newLexer(input);
    QZSetLexerReporter(lexer, &reporter);
    auto* tokens = QZNewTokenStream(lexer);
    auto* parser = newParser(tokens);
    QZSetParserReporter(parser, &reporter);
    std::string tree = Sexpr(grammar, QZRunEntryRule(grammar, parser));
    QZCloseInput(input);
    QZFreeTokenStream(tokens);
    QZFreeLexer(grammar, lexer);
    QZFreeParser(grammar, parser);
    return tree;
}

TEST(MSSQLRecognizers, RunByHand) {
    const std::string expected =
        "(nil (SELECT_QUERY_ PREDICATE (SELECT_LIST (ALIAS (COLUMN_SPECIFICATION (COLUMN_NAME IDENTIFICATOR:\"a\"))))) "
        "EOF)";
    int reports = 0;
    EXPECT_EQ(ByHand(QZGrammarMSSQL(), MSSQLLexerNew, MSSQLParserNew, u"SELECT a;", reports), expected);
    EXPECT_EQ(reports, 1) << "the semicolon";
    const auto lexerNew = [](QZInputStream* input) { return MSSQLLexerNewSSD(input, nullptr); };
    const auto parserNew = [](QZTokenStream* tokens) { return MSSQLParserNewSSD(tokens, nullptr); };
    EXPECT_EQ(ByHand(QZGrammarMSSQL(), lexerNew, parserNew, u"SELECT a", reports), expected);
    EXPECT_EQ(reports, 1);
}

TEST(MSSQLFromRecognizers, RunByHand) {
    const std::string expected =
        "(nil (FROM_DEF_ (JOIN_DEF_ (JOIN_KEYWORD_:\"JOIN\" (JOIN_PREFIX_ (ALIAS_ (TABLE_SPECIFICATION_ (TABLE_NAME_ "
        "ID_:\"a\")))) (JOIN_POSTFIX_ (ALIAS_ (TABLE_SPECIFICATION_ (TABLE_NAME_ ID_:\"b\"))))))) EOF)";
    int reports = 0;
    EXPECT_EQ(ByHand(QZGrammarMSSQLfrom(), MSSQLfromLexerNew, MSSQLfromParserNew, u"a JOIN b", reports), expected);
    EXPECT_EQ(reports, 0);
    const auto lexerNew = [](QZInputStream* input) { return MSSQLfromLexerNewSSD(input, nullptr); };
    const auto parserNew = [](QZTokenStream* tokens) { return MSSQLfromParserNewSSD(tokens, nullptr); };
    EXPECT_EQ(ByHand(QZGrammarMSSQLfrom(), lexerNew, parserNew, u"a JOIN b;", reports), expected);
    EXPECT_EQ(reports, 1) << "the semicolon";
    EXPECT_NE(QZTokenName(QZGrammarMSSQLfrom(), MSSQLfrom::JOIN_DEF_), nullptr);
}

// ----------------------------------------------------------------------------------------------------- hostile texts

// A root whose first child the grammar made and whose last is the end of the text; a second run gives the same.
void ExpectTree(const std::u16string& text) {
    for (const auto& [grammar, first] :
         {std::pair{&QZGrammarMSSQL(), "SELECT_QUERY_"}, std::pair{&QZGrammarMSSQLfrom(), "FROM_DEF_"}}) {
        const Recognition recognition(text, *grammar);
        const std::uint32_t count = QZChildCount(recognition.Root());
        ASSERT_GE(count, 2U) << ToUtf8(text);
        EXPECT_EQ(NodeLabel(*grammar, QZChildAt(recognition.Root(), 0)), first);
        EXPECT_EQ(NodeLabel(*grammar, QZChildAt(recognition.Root(), count - 1)), "EOF");
        const Recognition second(text, *grammar);
        EXPECT_EQ(Sexpr(*grammar, second.Root()), Sexpr(*grammar, recognition.Root()));
    }
}

TEST(MSSQLHostileTexts, HaveATree) {
    using namespace std::string_literals;
    const std::u16string texts[] = {u"",
                                    u" ",
                                    u";",
                                    u"\0"s,
                                    u"SELECT\0a"s,
                                    u"SELECT '",
                                    u"SELECT [",
                                    u"SELECT \"",
                                    u"SELECT `",
                                    u"SELECT a FROM [t",
                                    u"\xD800",
                                    u"SELECT \xDC00 a",
                                    u"SELECT 'a\xD83D\xDE00",
                                    u"\xFEFFSELECT a",
                                    u"SELECT a\x01\x7F FROM t",
                                    u"@@@@@@",
                                    u"SELECT @@",
                                    u"SELECT a FROM t WHERE a = @",
                                    u"SELECT a FROM t WHERE (((",
                                    u"SELECT a FROM t)))",
                                    u"SELECT )",
                                    u"SELECT a FROM ((t JOIN",
                                    u"SELECT a FROM t JOIN (((",
                                    u"SELECT f(((",
                                    u"SELECT {{{",
                                    u"SELECT {fn",
                                    u"SELECT CASE WHEN",
                                    u"SELECT CONVERT(",
                                    u"SELECT CAST(a AS",
                                    u"SELECT DATEADD(",
                                    u"SELECT a FROM t OPTION",
                                    u"SELECT a FROM t FOR XML",
                                    u"SELECT TOP",
                                    u"SELECT TOP (",
                                    u"UNION SELECT",
                                    u"SELECT a UNION",
                                    u"SET ",
                                    u"EXPAND ",
                                    u"BYNATY ",
                                    u"SELECT EXPAND VIEW",
                                    u"a JOIN b ON (((",
                                    u"((((a JOIN",
                                    u"a JOIN [b",
                                    u"1E+",
                                    u"a\r\r\n\n"};
    for (const std::u16string& text : texts) ExpectTree(text);
}

TEST(MSSQLHostileTexts, MayHaveParenthesesOfEveryKindAnywhere) {
    const std::u16string_view sign[] = {u"(", u")", u"[", u"]", u"{", u"}", u"'", u"\"", u"`"};
    const std::u16string_view parts[] = {u"SELECT ",          u"TOP 5 ",  u"f(a, 1)",  u" AS x",      u" FROM t",
                                         u" JOIN u ON a = b", u" WHERE ", u"a IN (1)", u" GROUP BY ", u"a",
                                         u" UNION ",          u"SELECT b"};
    for (const std::u16string_view stray : sign) {
        for (std::size_t place = 0; place <= std::size(parts); ++place) {
            std::u16string text;
            for (std::size_t i = 0; i < std::size(parts); ++i) {
                if (i == place) text += stray;
                text += parts[i];
            }
            ExpectTree(place == std::size(parts) ? text.append(stray) : text);
        }
    }
}

TEST(MSSQLHostileTexts, MayHoldAnyCharacterAnywhere) {
    for (const std::u16string_view stray : {u"\u00E9", u"\u4E2D", u"\xD800", u"\uFFFF", u"\x01", u"$"}) {
        std::u16string text = u"SELECT [a], 'b' FROM t JOIN u ON x *= y WHERE c = @d ORDER BY e";
        const std::string whole = Parsed(text);
        for (std::size_t place = 0; place <= text.size(); ++place) {
            std::u16string with = text;
            with.insert(place, stray);
            ExpectTree(with);
            // Between tokens it is nothing, like a blank.
            if (place > 0 && place < text.size() && (text[place] == u' ' || text[place - 1] == u' ')) {
                EXPECT_EQ(Parsed(with), whole) << place;
            }
        }
    }
}

}  // namespace
