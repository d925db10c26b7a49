// Oracle: texts that nest deeper than any stack holds, and trees as deep as their text is long.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "QZParserSQL/Oracle/CQZOracleParser.h"
#include "tests/dialect/DeepTexts.h"
#include "tests/dialect/OnStack.h"
#include "tests/dialect/Views.h"

namespace {

std::vector<Nesting> Nestings() {
    return {
        {"parentheses", u"SELECT " + AMegabyteOf(u"(")},
        {"parentheses in a condition", u"SELECT a FROM t WHERE " + AMegabyteOf(u"(")},
        {"parentheses behind NOT", u"SELECT a FROM t WHERE NOT " + AMegabyteOf(u"(")},
        {"parentheses in a FROM clause", u"SELECT a FROM " + AMegabyteOf(u"(SELECT a FROM ")},
        {"CASE", u"SELECT " + AMegabyteOf(u"CASE WHEN a=1 THEN ")},
        {"subqueries", u"SELECT " + AMegabyteOf(u"(SELECT a FROM ")},
        {"IN subqueries", u"SELECT a FROM t" + AMegabyteOf(u" WHERE a IN (SELECT a FROM t")},
        {"functions", u"SELECT " + AMegabyteOf(u"NVL(")},
        {"user functions", u"SELECT " + AMegabyteOf(u"f(")},
        {"unions", Repeated(u"SELECT a UNION ", 20000) + u"SELECT a"},
        {"joins", u"SELECT a FROM " + AMegabyteOf(u"a INNER JOIN (")},
        {"joins in a row", u"SELECT a FROM t" + Repeated(u" JOIN u ON a = b", 100000)},
    };
}

void ExpectTreesAndReports() {
    for (const Nesting& nesting : Nestings()) ExpectTreeAndReport(QZGrammarOracle(), nesting);
}

void ExpectTrees() {
    for (const Nesting& nesting : Nestings()) ExpectTree(Recognition(nesting.text, QZGrammarOracle()), nesting);
}

TEST(OracleDeepNesting, IsToldOnceAndEndsNoProcessOnASmallStack) { RunOnStack(128 * 1024, ExpectTreesAndReports); }

TEST(OracleDeepNesting, IsToldOnceAndEndsNoProcessOnAStackOfAMegabyte) { RunOnStack(1 << 20, ExpectTreesAndReports); }

TEST(OracleDeepNesting, EndsNoProcessOnACommonStack) { RunOnStack(8 << 20, ExpectTrees); }

TEST(OracleDeepNesting, OfAThousandIsUnderstoodOnACommonStack) {
    const std::u16string open = Repeated(u"(", 1000);
    const std::u16string close = Repeated(u")", 1000);
    for (const std::u16string& text : {
             u"SELECT " + open + u"a" + close + u" FROM t",
             u"SELECT a FROM t WHERE " + open + u"a" + close,
             u"SELECT a FROM t WHERE b = " + open + u"a" + close,
             u"SELECT " + Repeated(u"NVL(", 1000) + u"a" + close,
             u"SELECT a FROM " + open + u"a INNER JOIN b ON x = y",
         }) {
        const Recognition recognition(text, QZGrammarOracle());
        EXPECT_EQ(QZChildCount(recognition.Root()), 2U) << ToUtf8(text.substr(0, 30));
        EXPECT_TRUE(recognition.Reports().empty()) << ToUtf8(text.substr(0, 30));
    }
}

std::unique_ptr<CQZSQLTree> Parsed(CQZOracleParser& parser, CString& text) {
    const Messages messages;
    parser.SetSQL(text);
    parser.ParseSQL();
    CQZSQLTree* view = nullptr;
    parser.GetSQLTree(&view);
    return std::unique_ptr<CQZSQLTree>(view);
}

void ExpectViewsOfTheBareFacade() {
    for (const std::u16string_view part : {u"(", u"CASE WHEN ", u"f("}) {
        CString text(u"SELECT " + AMegabyteOf(part));
        CQZOracleParser parser;
        const auto view = Parsed(parser, text);
        ASSERT_GT(view->GetChildCount(), 2U);
        EXPECT_EQ(view->GetChild(0)->GetText(), u"SELECT_QUERY_OR");
        EXPECT_EQ(view->GetChild(view->GetChildCount() - 1)->GetText(), u"<EOF>");
    }
}

TEST(OracleDeepNesting, ComesThroughTheBareFacade) { RunOnStack(8 << 20, ExpectViewsOfTheBareFacade); }

struct LeaningTree {
    std::u16string_view start;
    std::u16string_view part;
    std::u16string_view operation;
    std::uint32_t clause;
};

// Each operator is the root over all that stands before it.
TEST(OracleDeepTree, IsWalkedAndFreedOnASmallStack) {
    constexpr std::size_t kDepth = 20000;
    for (const LeaningTree& tree :
         {LeaningTree{u"SELECT a", u"||a", u"||", 0}, LeaningTree{u"SELECT a FROM t WHERE a", u" AND a", u"AND", 2},
          LeaningTree{u"SELECT a FROM a", u",a", u",", 1}}) {
        CString sql(std::u16string(tree.start) + Repeated(tree.part, kDepth));
        RunOnStack(256 * 1024, [&] {
            CQZOracleParser parser;
            const auto view = Parsed(parser, sql);
            std::size_t depth = 0;
            CQZSQLTree* node = view->GetChild(0)->GetChild(tree.clause)->GetChild(0);
            for (; node->GetText().View() == tree.operation; node = node->GetChild(0)) {
                ++depth;
                EXPECT_EQ(node->GetChildCount(), 2U);
            }
            EXPECT_EQ(depth, kDepth);
        });
    }
}

}  // namespace
