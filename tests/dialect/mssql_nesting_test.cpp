// MS SQL: texts that nest deeper than any stack holds, and trees as deep as their text is long.
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "QZParserSQL/CQZMSSQLParser.h"
#include "tests/dialect/DeepTexts.h"
#include "tests/dialect/OnStack.h"
#include "tests/dialect/Views.h"

namespace {

std::vector<Nesting> Nestings() {
    return {
        {"parentheses", u"SELECT " + AMegabyteOf(u"(")},
        {"parentheses in a condition", u"SELECT a FROM t WHERE " + AMegabyteOf(u"(")},
        {"CASE", u"SELECT " + AMegabyteOf(u"CASE WHEN a=1 THEN ")},
        {"subqueries", u"SELECT " + AMegabyteOf(u"(SELECT a FROM ")},
        {"functions", u"SELECT " + AMegabyteOf(u"f(")},
        {"unions", Repeated(u"SELECT a UNION ", 20000) + u"SELECT a"},
        {"joins", u"SELECT a FROM " + AMegabyteOf(u"a INNER JOIN (")},
    };
}

void ExpectTreesAndReports() {
    for (const Nesting& nesting : Nestings()) ExpectTreeAndReport(QZGrammarMSSQL(), nesting);
    ExpectTreeAndReport(QZGrammarMSSQLfrom(), {"list of sources", AMegabyteOf(u"a INNER JOIN (")});
}

void ExpectTrees() {
    for (const Nesting& nesting : Nestings()) ExpectTree(Recognition(nesting.text, QZGrammarMSSQL()), nesting);
}

TEST(MSSQLDeepNesting, IsToldOnceAndEndsNoProcessOnASmallStack) { RunOnStack(128 * 1024, ExpectTreesAndReports); }

TEST(MSSQLDeepNesting, IsToldOnceAndEndsNoProcessOnAStackOfAMegabyte) { RunOnStack(1 << 20, ExpectTreesAndReports); }

TEST(MSSQLDeepNesting, EndsNoProcessOnACommonStack) { RunOnStack(8 << 20, ExpectTrees); }

TEST(MSSQLDeepNesting, OfAThousandParenthesesIsUnderstoodOnACommonStack) {
    const std::u16string open = Repeated(u"(", 1000);
    const std::u16string close = Repeated(u")", 1000);
    for (const std::u16string& text :
         {u"SELECT " + open + u"a" + close + u" FROM t", u"SELECT a FROM t WHERE " + open + u"a" + close + u" = 1",
          u"SELECT a FROM " + open + u"a INNER JOIN b ON x = y"}) {
        const Recognition recognition(text, QZGrammarMSSQL());
        EXPECT_EQ(QZChildCount(recognition.Root()), 2U) << ToUtf8(text.substr(0, 30));
        EXPECT_TRUE(recognition.Reports().empty()) << ToUtf8(text.substr(0, 30));
    }
}

void ExpectViewsOfTheBareFacade() {
    for (const std::u16string_view part : {u"(", u"CASE WHEN a=1 THEN ", u"f("}) {
        const Messages messages;
        CString text(u"SELECT " + AMegabyteOf(part));
        CQZMSSQLParser parser;
        parser.SetSQL(text);
        parser.ParseSQL();
        const auto view = ViewOf(parser);
        ASSERT_GT(view->GetChildCount(), 2U);
        EXPECT_EQ(view->GetChild(0)->GetText(), u"SELECT_QUERY_");
        EXPECT_EQ(view->GetChild(view->GetChildCount() - 1)->GetText(), u"<EOF>");
    }
}

TEST(MSSQLDeepNesting, ComesThroughTheBareFacade) { RunOnStack(8 << 20, ExpectViewsOfTheBareFacade); }

// Each operator is the root over all that stands before it.
TEST(MSSQLDeepTree, IsWalkedAndFreedOnASmallStack) {
    static constexpr std::size_t kDepth = 20000;
    CString text(u"SELECT a" + Repeated(u"+a", kDepth));
    RunOnStack(256 * 1024, [&text] {
        CQZMSSQLParser parser;
        parser.SetSQL(text);
        parser.ParseSQL();
        const Messages messages;
        const auto view = ViewOf(parser);
        std::size_t depth = 0;
        CQZSQLTree* node = view->GetChild(0)->GetChild(1)->GetChild(0)->GetChild(0);
        for (; node->GetText() == u"+"; node = node->GetChild(0)) {
            ++depth;
            EXPECT_EQ(node->GetChildCount(), 2U);
        }
        EXPECT_EQ(depth, kDepth);
        EXPECT_EQ(node->GetText(), u"COLUMN_SPECIFICATION");
    });
}

}  // namespace
