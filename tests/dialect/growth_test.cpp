// MS Access: time grows no faster than the text.
#include "tests/dialect/Growth.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/Outline.h"
#include "tests/support/Recognition.h"

namespace {

void ExpectLinear(const std::vector<GrowingText>& texts) { ExpectLinear(QZGrammarMSAccessSQL_v3(), texts); }

TEST_F(Growth, OfNestedParenthesesIsLinear) {
    ExpectLinear({
        {"parentheses in SELECT", 500, 0.5, u"SELECT ", u"(", u"a", u")"},
        {"parentheses in SELECT before FROM", 500, 0.5, u"SELECT ", u"(", u"a", u") "},
        {"parentheses around a sum", 500, 0.5, u"SELECT ", u"(", u"a + 1", u")"},
        {"parentheses around a condition", 500, 0.5, u"SELECT a FROM t WHERE ", u"(", u"a = 1", u")"},
        {"parentheses around conditions", 500, 0.5, u"SELECT a FROM t WHERE ", u"(", u"a = 1", u" AND b = 2)"},
        {"parentheses around a join", 500, 0.5, u"SELECT a FROM ", u"(", u"a INNER JOIN b ON x = y", u")"},
        {"functions", 4000, 1, u"SELECT ", u"f(", u"a", u")"},
        {"IIF", 500, 0.5, u"SELECT ", u"IIF(a = 1, 2, ", u"3", u")"},
        {"subqueries", 1000, 0.5, u"SELECT ", u"(SELECT ", u"a", u")"},
        {"IN subqueries", 500, 0.5, u"SELECT a FROM t", u" WHERE a IN (SELECT a FROM t", u"", u")"},
        {"derived tables", 500, 0.5, u"SELECT a FROM ", u"(SELECT a FROM ", u"t", u") AS x"},
    });
}

TEST_F(Growth, OfListsInListsIsLinear) {
    ExpectLinear({
        {"lists in lists", 500, 0.5, u"SELECT a FROM t WHERE a IN ", u"(a, ", u"a", u")"},
    });
}

TEST_F(Growth, OfJoinsIsLinear) {
    ExpectLinear({
        {"joins to the left", 500, 1, u"SELECT a FROM ", u"(", u"a INNER JOIN b ON a.x = b.x",
         u") INNER JOIN c ON a.x = c.x"},
        {"joins to the right", 500, 1, u"SELECT a FROM ", u"a LEFT JOIN (", u"b LEFT JOIN c ON x = y", u") ON x = y"},
        {"sources", 2500, 1, u"SELECT a FROM t", u", u AS x", u"", u""},
    });
}

TEST_F(Growth, OfChainsAndListsIsLinear) {
    ExpectLinear({
        {"AND of names", 2500, 1, u"SELECT a FROM t WHERE a", u" AND a", u"", u""},
        {"AND of comparisons", 2500, 1, u"SELECT a FROM t WHERE a = 1", u" AND b = 2", u"", u""},
        {"OR in a select item", 2500, 1, u"SELECT a = 1", u" OR b = 2", u" FROM t", u""},
        {"AND in ON", 2500, 1, u"SELECT a FROM t INNER JOIN u ON a = b", u" AND b = c", u"", u""},
        {"sums", 2500, 1, u"SELECT a", u" + b", u" FROM t", u""},
        {"IN list", 12500, 2, u"SELECT a FROM t WHERE a IN (0", u", 1", u")", u""},
        {"parameters", 12500, 2, u"SELECT f(0", u", 1", u") FROM t", u""},
        {"GROUP BY", 2500, 1, u"SELECT a FROM t GROUP BY a", u", b", u"", u""},
        {"ORDER BY", 2500, 1, u"SELECT a FROM t ORDER BY a", u", b DESC", u"", u""},
        {"unions", 500, 1, u"SELECT a FROM t", u" UNION ALL SELECT b FROM u", u"", u""},
    });
}

TEST_F(Growth, OfSelectListsIsLinear) {
    ExpectLinear({
        {"columns", 2500, 1, u"SELECT a", u", b", u" FROM t", u""},
        {"columns with alias", 2500, 1, u"SELECT a", u", t.b AS c", u" FROM t", u""},
        {"functions", 2500, 1, u"SELECT a", u", Left(b, 1)", u" FROM t", u""},
        {"user functions", 2500, 1, u"SELECT a", u", f(b)", u" FROM t", u""},
        {"IIFs", 1250, 1, u"SELECT a", u", IIF(a = 1, b, c)", u" FROM t", u""},
        {"items in parentheses", 1250, 1, u"SELECT a", u", (b)", u" FROM t", u""},
        {"conditions", 1250, 1, u"SELECT a", u", b = 1", u" FROM t", u""},
    });
}

TEST_F(Growth, OfUnclosedNestingIsLinear) {
    ExpectLinear({
        {"unclosed parentheses", 125, 0.2, u"SELECT ", u"(", u"a FROM t", u"", false},
        {"unclosed conditions", 125, 0.2, u"SELECT a FROM t WHERE ", u"(", u"a = 1", u""},
        {"unclosed joins", 125, 0.2, u"SELECT a FROM ", u"(", u"a INNER JOIN b ON x = y", u"", false},
        {"unclosed IIF", 125, 0.2, u"SELECT ", u"IIF(a=1,2,", u"3 FROM t", u"", false},
        {"unclosed functions", 125, 0.2, u"SELECT ", u"f(a, ", u"b FROM t", u"", false},
        {"unclosed subqueries", 125, 0.2, u"SELECT ", u"(SELECT a FROM ", u"t", u"", false},
    });
}

TEST_F(Growth, OfLongTokensIsLinear) {
    ExpectLinear({
        {"a long name", 250000, 0.5, u"SELECT ", u"x", u" FROM t", u""},
        {"a long name in brackets", 250000, 0.5, u"SELECT [", u"x", u"] FROM t", u""},
        {"a long string", 250000, 0.5, u"SELECT '", u"x", u"' FROM t", u""},
        {"a long number", 250000, 0.5, u"SELECT ", u"7", u" FROM t", u""},
        {"blanks", 50000, 1, u"SELECT a", u" ", u"FROM t", u""},
        {"line ends", 50000, 1, u"SELECT a", u"\r\n", u"FROM t", u""},
        {"trailing text", 50000, 2, u"SELECT a b", u" c, 'd'", u"", u"", false},
        {"an unclosed string", 250000, 0.5, u"SELECT a FROM t WHERE b = '", u"x", u"", u"", false},
    });
}

TEST_F(Growth, LeavesAMegabyteOfBlanksQuick) {
    const std::u16string text = u"SELECT a" + std::u16string(1000000, u' ') + u"FROM t";
    EXPECT_LT(SecondsFor(QZGrammarMSAccessSQL_v3(), text), 5);
    EXPECT_EQ(QZChildCount(Recognition(text).Root()), 2U);
}

// ------------------------------------------------------------------------------------------- a large, ordinary query

std::u16string LargeQuery() {
    std::u16string text = u"SELECT DISTINCTROW TOP 5 PERCENT c.Id";
    for (int i = 0; i < 2000; ++i) {
        const std::u16string number = FromUtf8(std::to_string(i));
        text += u", c.[Field " + number + u"] AS F" + number + u", IIF(c.A > " + number +
                u", Left$(c.B, 3), 'x') AS G" + number;
    }
    text +=
        u"\r\nFROM (Customers AS c INNER JOIN Orders AS o ON c.Id = o.CustomerId)"
        u" LEFT JOIN [Order Details] AS d ON o.Id = d.OrderId\r\nWHERE c.City = 'Köln'";
    for (int i = 0; i < 2000; ++i) text += u" AND o.Total <> " + FromUtf8(std::to_string(i)) + u".5";
    text += u" AND c.Id IN (0";
    for (int i = 1; i < 5000; ++i) text += u", " + FromUtf8(std::to_string(i));
    return text + u")\r\nGROUP BY c.Id, c.City HAVING Count(*) > 1 ORDER BY c.City DESC, c.Id;";
}

TEST(LargeQuery, HasTheTreeOfASmallOne) {
    const std::u16string text = LargeQuery();
    ASSERT_GT(text.size(), 200000U);
    const Recognition recognition(text);
    const QZGrammar& grammar = recognition.Grammar();
    const QZNode* root = recognition.Root();
    ASSERT_EQ(QZChildCount(root), 2U);
    EXPECT_EQ(recognition.ParserErrors(), 0U);
    EXPECT_EQ(recognition.LexerErrors(), 1U) << "the semicolon";

    const QZNode* query = QZChildAt(root, 0);
    std::string clauses;
    for (std::uint32_t i = 0; i < QZChildCount(query); ++i) clauses += NodeLabel(grammar, QZChildAt(query, i)) + " ";
    EXPECT_EQ(clauses, "PREDICATE SELECT_LIST FROM_DEF_ WHERE_CONDITION GROUP_BY HAVING ORDER_BY ");
    EXPECT_EQ(Sexpr(grammar, QZChildAt(query, 0)),
              "(PREDICATE DISTINCTROW_KEYWORD:\"DISTINCTROW\" (TOP_KEYWORD:\"TOP\" (NUMBER_LITERAL DIGIT:\"5\") "
              "PERCENT_KEYWORD:\"PERCENT\"))");

    const QZNode* list = QZChildAt(query, 1);
    ASSERT_EQ(QZChildCount(list), 4001U);
    EXPECT_EQ(Sexpr(grammar, QZChildAt(list, 3999)),
              "(LITERAL_AS:\"AS\" (COLUMN_SPECIFICATION (TABLE_NAME IDENTIFICATOR:\"c\") "
              "(COLUMN_NAME COL_PAREN_ATTRITION:\"[Field 1999]\")) (NEW_NAME IDENTIFICATOR:\"F1999\"))");
    EXPECT_EQ(Sexpr(grammar, QZChildAt(QZChildAt(list, 4000), 1)), "(NEW_NAME IDENTIFICATOR:\"G1999\")");

    const QZNode* and_ = QZChildAt(QZChildAt(query, 3), 0);
    const QZNode* in = QZChildAt(QZChildAt(and_, 1), 0);
    EXPECT_EQ(NodeLabel(grammar, in), "IN_KEYWORD:\"IN\"");
    ASSERT_EQ(QZChildCount(in), 5003U);
    EXPECT_EQ(Sexpr(grammar, QZChildAt(in, 5001)), "(SQL_LITERAL (NUMBER_LITERAL DIGIT:\"4999\"))");
    std::size_t depth = 0;
    while (QZTypeOf(and_) == QZTypeOf(QZChildAt(QZChildAt(query, 3), 0))) {
        ++depth;
        and_ = QZChildAt(and_, 0);
    }
    EXPECT_EQ(depth, 2001U);
    EXPECT_EQ(Sexpr(grammar, and_),
              "(SEARCH_CONDITION (EQ:\"=\" (COLUMN_SPECIFICATION (TABLE_NAME IDENTIFICATOR:\"c\") "
              "(COLUMN_NAME IDENTIFICATOR:\"City\")) (SQL_LITERAL (SQL_STRING QUOTE_ATTRITION:\"'Köln'\"))))");
    EXPECT_EQ(NodeLabel(grammar, QZChildAt(QZChildAt(query, 6), 1)), "DESC_KEYWORD:\"DESC\"");
    EXPECT_EQ(QZChildCount(QZChildAt(query, 6)), 3U);
}

}  // namespace
