#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <thread>
#include <type_traits>
#include <vector>

#include "QZParserSQL/MSAccess_v3/CQZMSAccessSQL_v3Parcer.h"
#include "QZParserSQL/dialect/ParserPipeline.h"
#include "QZParserSQL/front/CQZSQLParser.h"
#include "tests/dialect/Views.h"
#include "tests/front/Slot.h"

namespace {

constexpr char kTree[] =
    "nil(SELECT_QUERY(SELECT_LIST(COLUMN_SPECIFICATION(COLUMN_NAME(a))) "
    "FROM_DEF_(ALIAS(TABLE_SPECIFICATION(TABLE_NAME(t))))) <EOF>)";
constexpr char kOtherTree[] = "nil(SELECT_QUERY(SELECT_LIST(COLUMN_SPECIFICATION(COLUMN_NAME([b c])))) <EOF>)";
constexpr char kTreeOfNoText[] = "nil(SELECT_QUERY(Tree Error Node) <EOF>)";
constexpr char kEmptyView[] = " ";

std::string ShapeOf(CQZMSAccessSQL_v3Parcer& parser) { return Shape(*ViewOf(parser)); }

// Parses a text of its own and gives its tree's shape.
std::string Parsed(std::u16string_view sql) {
    CString text(sql);
    CQZMSAccessSQL_v3Parcer parser;
    parser.SetSQL(text);
    parser.ParseSQL();
    return ShapeOf(parser);
}

TEST(Facade, MakesATreeOfAQuery) {
    EXPECT_EQ(Parsed(u"SELECT a FROM t"), kTree);
    EXPECT_EQ(Parsed(u"select [b c]"), kOtherTree);
}

TEST(Facade, IsAParser) {
    EXPECT_TRUE((std::is_base_of_v<CQZSQLParser, CQZMSAccessSQL_v3Parcer>));
    EXPECT_TRUE((std::is_base_of_v<CQZSQLParser, ParserPipeline>));
    EXPECT_TRUE(std::is_abstract_v<CQZSQLParser>);
    EXPECT_TRUE(std::has_virtual_destructor_v<CQZSQLParser>);
}

// Hosts that were compiled earlier call the operations by their entry.
TEST(Facade, KeepsItsVirtualOperationsInOrder) {
    EXPECT_EQ(SlotOf(&CQZSQLParser::ParseSQL), 2U);
    EXPECT_EQ(SlotOf(&CQZMSAccessSQL_v3Parcer::ParseSQL), 2U);
    EXPECT_EQ(SlotOf(&CQZMSAccessSQL_v3Parcer::SetSQL), 3U);
    EXPECT_EQ(SlotOf(&CQZMSAccessSQL_v3Parcer::GetSQLTree), 4U);
    EXPECT_EQ(SlotOf(&ParserPipeline::ParseSQL), 2U);
    EXPECT_EQ(SlotOf(&ParserPipeline::SetSQL), 3U);
    EXPECT_EQ(SlotOf(&ParserPipeline::GetSQLTree), 4U);
}

TEST(Facade, IsDestroyedThroughItsBase) {
    CString text(u"SELECT a FROM t");
    auto parser = std::make_unique<CQZMSAccessSQL_v3Parcer>();
    parser->SetSQL(text);
    parser->ParseSQL();
    EXPECT_EQ(ShapeOf(*parser), kTree);
    const std::unique_ptr<CQZSQLParser> base = std::move(parser);
}

TEST(Facade, IsDestroyedInAnyState) {
    CString text(u"SELECT a FROM t");
    { const CQZMSAccessSQL_v3Parcer untouched; }
    CQZMSAccessSQL_v3Parcer parser;
    parser.SetSQL(text);
}

TEST(Facade, IsNotTouchedByTheReleaseOfMemory) {
    CString text(u"SELECT a FROM t");
    CQZMSAccessSQL_v3Parcer parser;
    parser.SetSQL(text);
    parser.ParseSQL();
    const auto view = ViewOf(parser);
    QZReleaseMemory();
    EXPECT_EQ(Shape(*view), kTree);
    EXPECT_EQ(Parsed(u"select [b c]"), kOtherTree);
    QZReleaseMemory();
    EXPECT_EQ(ShapeOf(parser), kTree);
}

TEST(Facade, ParsesNothingWithoutAText) {
    CQZMSAccessSQL_v3Parcer parser;
    parser.ParseSQL();
    EXPECT_EQ(ShapeOf(parser), kEmptyView);
}

TEST(Facade, GivesAnEmptyViewBeforeTheFirstParse) {
    CString text(u"SELECT a FROM t");
    CQZMSAccessSQL_v3Parcer parser;
    const auto expectEmpty = [&] {
        const auto view = ViewOf(parser);
        ASSERT_NE(view, nullptr);
        EXPECT_EQ(view->GetChildCount(), 0U);
        EXPECT_EQ(view->GetText(), u" ");
        EXPECT_EQ(view->GetType(), 0U);
        ASSERT_NE(view->GetChild(0), nullptr);
        EXPECT_EQ(view->GetChild(0)->GetText(), u" ");
    };
    expectEmpty();
    parser.SetSQL(text);
    expectEmpty();
}

TEST(Facade, ParsesTheTextThatWasSetLast) {
    CString text(u"SELECT a FROM t");
    CString other(u"SELECT [b c]");
    CQZMSAccessSQL_v3Parcer parser;
    parser.SetSQL(text);
    parser.SetSQL(other);
    parser.ParseSQL();
    EXPECT_EQ(ShapeOf(parser), kOtherTree);
}

TEST(Facade, GivesTwoViewsOfTheSameTree) {
    CString text(u"SELECT a FROM t");
    CQZMSAccessSQL_v3Parcer parser;
    parser.SetSQL(text);
    parser.ParseSQL();
    auto first = ViewOf(parser);
    const auto second = ViewOf(parser);
    EXPECT_NE(first, second);
    EXPECT_EQ(Shape(*first), kTree);
    EXPECT_NE(first->GetChild(0), second->GetChild(0));
    first.reset();
    EXPECT_EQ(Shape(*second), kTree);
}

TEST(Facade, KeepsTheTreesThatAreOutWhenANewTextIsSetAndParsed) {
    CString text(u"SELECT a FROM t");
    CString other(u"SELECT [b c]");
    CQZMSAccessSQL_v3Parcer parser;
    parser.SetSQL(text);
    parser.ParseSQL();
    const auto first = ViewOf(parser);
    parser.SetSQL(other);
    EXPECT_EQ(Shape(*first), kTree);
    EXPECT_EQ(ShapeOf(parser), kTree) << "the last tree, until the next parse";
    parser.ParseSQL();
    EXPECT_EQ(Shape(*first), kTree);
    EXPECT_EQ(ShapeOf(parser), kOtherTree);
    parser.SetSQL(text);
    parser.ParseSQL();
    EXPECT_EQ(ShapeOf(parser), kTree);
}

TEST(Facade, FindsNothingLeftOfATextThatItHasParsed) {
    const Messages messages;
    CString text(u"SELECT a FROM t");
    CQZMSAccessSQL_v3Parcer parser;
    parser.SetSQL(text);
    parser.ParseSQL();
    const auto first = ViewOf(parser);
    parser.ParseSQL();
    EXPECT_EQ(Shape(*first), kTree);
    EXPECT_EQ(ShapeOf(parser), kTreeOfNoText);
}

TEST(Facade, ReadsTheTextInPlace) {
    CString text(u"select first_name from people");
    CQZMSAccessSQL_v3Parcer parser;
    parser.SetSQL(text);
    text.MakeUpper();
    parser.ParseSQL();
    const auto view = ViewOf(parser);
    EXPECT_NE(Shape(*view).find("COLUMN_NAME(FIRST_NAME)"), std::string::npos) << Shape(*view);
    text.MakeLower();
    EXPECT_NE(Shape(*view).find("COLUMN_NAME(first_name)"), std::string::npos) << Shape(*view);
}

TEST(Facade, MakesATreeOfWhatIsNoQuery) {
    const struct {
        std::u16string_view text;
        std::string tree;
    } rows[] = {
        {u"", kTreeOfNoText},
        {u" \r\n\t", kTreeOfNoText},
        {u";", kTreeOfNoText},
        {u"'", "nil(SELECT_QUERY(Tree Error Node) ' <EOF>)"},
        {u"foo", "nil(SELECT_QUERY(Tree Error Node) foo <EOF>)"},
        {u"UPDATE t SET a = 1", "nil(SELECT_QUERY(Tree Error Node) UPDATE t SET a = 1 <EOF>)"},
        {u"foo SELECT a FROM t", "nil(SELECT_QUERY(Tree Error Node) foo SELECT a FROM t <EOF>)"},
        {u"(SELECT a FROM t)", "nil(SELECT_QUERY(Tree Error Node) ( SELECT a FROM t ) <EOF>)"},
        {u"\xD800", "nil(SELECT_QUERY(Tree Error Node) \xEF\xBF\xBD <EOF>)"},
    };
    for (const auto& row : rows) {
        const Messages messages;
        EXPECT_EQ(Parsed(row.text), row.tree);
        EXPECT_FALSE(messages.Lines().empty());
    }
}

TEST(Facade, GivesAnErrorNodeNoTypeAndNoChildren) {
    const Messages messages;
    CString text(u"UPDATE t");
    CQZMSAccessSQL_v3Parcer parser;
    parser.SetSQL(text);
    parser.ParseSQL();
    const auto view = ViewOf(parser);
    CQZSQLTree& error = *view->GetChild(0)->GetChild(0);
    EXPECT_EQ(error.GetText(), u"Tree Error Node");
    EXPECT_EQ(error.GetType(), 0U);
    EXPECT_EQ(error.GetChildCount(), 0U);
}

TEST(Facade, TellsErrorsOnTheStandardErrorStreamOnly) {
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    Parsed(u"UPDATE t;");
    const std::string errors = testing::internal::GetCapturedStderr();
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_NE(errors.find("UPDATE"), std::string::npos) << errors;
    EXPECT_NE(errors.find(';'), std::string::npos) << errors;
}

TEST(Facade, SaysNothingAboutAGoodText) {
    const Messages messages;
    Parsed(u"SELECT a FROM t");
    Parsed(u"SELECT a b FROM t");  // what trails is no error
    EXPECT_TRUE(messages.Lines().empty());
}

TEST(Facade, RunsInParallelWithOthers) {
    std::vector<std::string> trees(4);
    std::vector<std::thread> threads;
    for (std::string& tree : trees) {
        threads.emplace_back([&tree] {
            for (int i = 0; i < 50; ++i) tree = Parsed(u"SELECT a FROM t");
        });
    }
    for (std::thread& thread : threads) thread.join();
    for (const std::string& tree : trees) EXPECT_EQ(tree, kTree);
}

}  // namespace
