// MySQL: texts that nest deeper than any stack holds, and trees as deep as their text is long.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "QZParserSQL/Grammar/CQZMySQLParcer.h"
#include "tests/dialect/DeepTexts.h"
#include "tests/dialect/OnStack.h"
#include "tests/dialect/Views.h"

namespace {

std::vector<Nesting> Nestings() {
    return {
        {"parentheses", u"SELECT " + AMegabyteOf(u"(")},
        {"parentheses in a condition", u"SELECT a FROM t WHERE " + AMegabyteOf(u"(")},
        {"chains in parentheses", u"SELECT a FROM t WHERE a" + AMegabyteOf(u" AND (b OR c") + AMegabyteOf(u")")},
        {"CASE", u"SELECT " + AMegabyteOf(u"CASE WHEN a=1 THEN ")},
        {"subqueries", u"SELECT " + AMegabyteOf(u"(SELECT a FROM ")},
        {"derived tables", u"SELECT a FROM " + AMegabyteOf(u"(SELECT a FROM ")},
        {"functions", u"SELECT " + AMegabyteOf(u"ABS(")},
        {"unions", Repeated(u"SELECT a UNION ", 20000) + u"SELECT a"},
        {"joins", u"SELECT a FROM " + AMegabyteOf(u"a INNER JOIN (")},
        {"joins in a row", u"SELECT a FROM t" + Repeated(u" JOIN u ON a = b", 100000)},
    };
}

void ExpectTreesAndReports() {
    for (const Nesting& nesting : Nestings()) ExpectTreeAndReport(QZGrammarMySQLSelect(), nesting);
}

void ExpectTrees() {
    for (const Nesting& nesting : Nestings()) ExpectTree(Recognition(nesting.text, QZGrammarMySQLSelect()), nesting);
}

TEST(MySQLDeepNesting, IsToldOnceAndEndsNoProcessOnASmallStack) { RunOnStack(128 * 1024, ExpectTreesAndReports); }

TEST(MySQLDeepNesting, IsToldOnceAndEndsNoProcessOnAStackOfAMegabyte) { RunOnStack(1 << 20, ExpectTreesAndReports); }

TEST(MySQLDeepNesting, EndsNoProcessOnACommonStack) { RunOnStack(8 << 20, ExpectTrees); }

TEST(MySQLDeepNesting, OfAThousandParenthesesIsUnderstoodOnACommonStack) {
    const std::u16string open = Repeated(u"(", 1000);
    const std::u16string close = Repeated(u")", 1000);
    for (const std::u16string& text : {
             u"SELECT " + open + u"a" + close + u" FROM t",
             u"SELECT a FROM t WHERE " + open + u"a" + close,
             u"SELECT a FROM t WHERE a" + Repeated(u" AND (b = 1 OR c = 2", 1000) + close,
             u"SELECT a FROM " + open + u"a INNER JOIN b ON x = y" + close,
         }) {
        const Recognition recognition(text, QZGrammarMySQLSelect());
        EXPECT_EQ(QZChildCount(recognition.Root()), 2U) << ToUtf8(text.substr(0, 30));
        EXPECT_TRUE(recognition.Reports().empty()) << ToUtf8(text.substr(0, 30));
    }
}

std::unique_ptr<CQZSQLTree> Parsed(CQZMySQLParcer& parser, CString& text) {
    const Messages messages;
    parser.SetSQL(text);
    parser.ParseSQL();
    CQZSQLTree* view = nullptr;
    parser.GetSQLTree(&view);
    return std::unique_ptr<CQZSQLTree>(view);
}

void ExpectViewsOfTheBareFacade() {
    for (const std::u16string_view part : {u"(", u"CASE WHEN ", u"ABS("}) {
        CString text(u"SELECT " + AMegabyteOf(part));
        CQZMySQLParcer parser;
        const auto view = Parsed(parser, text);
        ASSERT_GT(view->GetChildCount(), 2U);
        EXPECT_EQ(view->GetChild(0)->GetText(), u"SELECT_QUERY_MY");
        EXPECT_EQ(view->GetChild(view->GetChildCount() - 1)->GetText(), u"<EOF>");
    }
}

TEST(MySQLDeepNesting, ComesThroughTheBareFacade) { RunOnStack(8 << 20, ExpectViewsOfTheBareFacade); }

// Each operator is the root over all that stands before it.
TEST(MySQLDeepTree, IsWalkedAndFreedOnASmallStack) {
    static constexpr std::size_t kDepth = 20000;
    for (const auto& [text, clause] : {std::pair(u"SELECT a" + Repeated(u"&a", kDepth), 1U),
                                       std::pair(u"SELECT a FROM t WHERE a" + Repeated(u"&&a", kDepth), 3U)}) {
        CString sql(text);
        RunOnStack(256 * 1024, [&sql, clause = clause] {
            CQZMySQLParcer parser;
            const auto view = Parsed(parser, sql);
            std::size_t depth = 0;
            CQZSQLTree* node = view->GetChild(0)->GetChild(clause)->GetChild(0);
            for (; node->GetText().View().substr(0, 1) == u"&"; node = node->GetChild(0)) {
                ++depth;
                EXPECT_EQ(node->GetChildCount(), 2U);
            }
            EXPECT_EQ(depth, kDepth);
            EXPECT_EQ(node->GetText(), u"COLUMN_SPECIFICATION");
        });
    }
}

}  // namespace
