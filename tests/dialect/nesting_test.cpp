// MS Access: texts that nest deeper than any stack holds, and trees as deep as their text is long.
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "tests/dialect/DeepTexts.h"
#include "tests/dialect/OnStack.h"
#include "tests/dialect/Views.h"
#include "tests/support/Recognition.h"

namespace {

std::vector<Nesting> Nestings() {
    return {
        {"parentheses", u"SELECT " + AMegabyteOf(u"(")},
        {"parentheses in a condition", u"SELECT a FROM t WHERE " + AMegabyteOf(u"(")},
        {"parentheses in a FROM clause", u"SELECT a FROM " + AMegabyteOf(u"(")},
        {"IIF", u"SELECT " + AMegabyteOf(u"IIF(a=1,2,")},
        {"subqueries", u"SELECT " + AMegabyteOf(u"(SELECT a FROM ")},
        {"functions", u"SELECT " + AMegabyteOf(u"f(")},
        {"unions", Repeated(u"SELECT a UNION ", 20000) + u"SELECT a"},
        {"joins", u"SELECT a FROM " + AMegabyteOf(u"a INNER JOIN (")},
    };
}

TEST(DeepNesting, IsToldOnceAndEndsNoProcessOnASmallStack) {
    for (const Nesting& nesting : Nestings())
        RunOnStack(128 * 1024, [&] { ExpectTreeAndReport(QZGrammarMSAccessSQL_v3(), nesting); });
}

TEST(DeepNesting, IsToldOnceAndEndsNoProcessOnAStackOfAMegabyte) {
    for (const Nesting& nesting : Nestings())
        RunOnStack(1024 * 1024, [&] { ExpectTreeAndReport(QZGrammarMSAccessSQL_v3(), nesting); });
}

TEST(DeepNesting, EndsNoProcessOnACommonStack) {
    for (const Nesting& nesting : Nestings()) ExpectTree(Recognition(nesting.text), nesting);
}

TEST(DeepNesting, OfAThousandParenthesesIsUnderstoodOnACommonStack) {
    const std::u16string open = Repeated(u"(", 1000);
    const std::u16string close = Repeated(u")", 1000);
    for (const std::u16string& text :
         {u"SELECT " + open + u"a" + close + u" FROM t", u"SELECT a FROM t WHERE " + open + u"a = 1" + close,
          u"SELECT a FROM " + open + u"a INNER JOIN b ON x = y" + close}) {
        const Recognition recognition(text);
        EXPECT_EQ(QZChildCount(recognition.Root()), 2U);
        EXPECT_TRUE(recognition.Reports().empty());
    }
}

TEST(DeepNesting, ReachesFurtherOnALargerStack) {
    std::size_t small = 0;
    std::size_t large = 0;
    const auto placeOf = [](std::size_t& place) {
        const Recognition recognition(u"SELECT " + Repeated(u"(", 20000));
        place = recognition.Reports().at(0).position.offset;
    };
    RunOnStack(256 * 1024, [&] { placeOf(small); });
    RunOnStack(1024 * 1024, [&] { placeOf(large); });
    EXPECT_GT(large, 3 * small);
    EXPECT_LT(large, 6 * small);
}

// A prefix is taken once: the second NOT does not nest.
TEST(DeepNesting, IsNotSeenInAMegabyteOfNot) {
    for (const std::size_t stack : {std::size_t{128} << 10, std::size_t{1} << 20}) {
        RunOnStack(stack, [] {
            const Recognition recognition(u"SELECT " + AMegabyteOf(u"NOT "));
            EXPECT_GT(QZChildCount(recognition.Root()), 200000U);
            EXPECT_TRUE(recognition.Reports().empty());
        });
    }
}

void ExpectViewsOfTheBareFacade() {
    for (const std::u16string_view part : {u"(", u"IIF(a=1,2,", u"f("}) {
        const Messages messages;
        CString text(u"SELECT " + AMegabyteOf(part));
        CQZMSAccessSQL_v3Parcer parser;
        parser.SetSQL(text);
        parser.ParseSQL();
        const auto view = ViewOf(parser);
        ASSERT_GT(view->GetChildCount(), 2U);
        EXPECT_EQ(view->GetChild(0)->GetText(), u"SELECT_QUERY");
        EXPECT_EQ(view->GetChild(view->GetChildCount() - 1)->GetText(), u"<EOF>");
        EXPECT_GE(messages.Lines().size(), 1U);
        EXPECT_LE(messages.Lines().size(), 2U);
        EXPECT_TRUE(std::any_of(messages.Lines().begin(), messages.Lines().end(),
                                [](const std::string& line) { return line.find("deep") != std::string::npos; }));
    }
}

TEST(DeepNesting, ComesThroughTheBareFacade) { RunOnStack(8 << 20, ExpectViewsOfTheBareFacade); }

// 'a' & 'a' & ... leans to the left: each operator is the root over all that stands before it.
TEST(DeepTree, IsWalkedAndFreedOnASmallStack) {
    constexpr std::size_t kDepth = 200000;
    CString text(u"SELECT 'a'" + Repeated(u" & 'a'", kDepth));
    CQZMSAccessSQL_v3Parcer parser;
    parser.SetSQL(text);
    RunOnStack(256 * 1024, [&] {
        parser.ParseSQL();
        auto view = ViewOf(parser);
        std::size_t depth = 0;
        CQZSQLTree* node = view->GetChild(0)->GetChild(0)->GetChild(0);
        for (; node->GetText() == u"&"; node = node->GetChild(0)) {
            ++depth;
            EXPECT_EQ(node->GetChildCount(), 2U);
            node->GetChild(1)->GetChild(0)->GetChild(0)->GetText();
        }
        EXPECT_EQ(depth, kDepth);
        EXPECT_EQ(node->GetText(), u"SQL_LITERAL");
        view.reset();
    });
}

TEST(DeepTree, OfAConditionIsWalkedAndFreedOnASmallStack) {
    constexpr std::size_t kDepth = 20000;
    CString text(u"SELECT a FROM t WHERE a" + Repeated(u" AND a", kDepth));
    RunOnStack(256 * 1024, [&] {
        CQZMSAccessSQL_v3Parcer parser;
        parser.SetSQL(text);
        parser.ParseSQL();
        const auto view = ViewOf(parser);
        std::size_t depth = 0;
        for (CQZSQLTree* node = view->GetChild(0)->GetChild(2)->GetChild(0); node->GetText() == u"AND";
             node = node->GetChild(0)) {
            ++depth;
        }
        EXPECT_EQ(depth, kDepth);
    });
}

}  // namespace
