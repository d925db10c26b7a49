// MySQL: time grows no faster than the text.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/dialect/Growth.h"
#include "tests/support/Recognition.h"

namespace {

void ExpectLinear(const std::vector<GrowingText>& texts) { ExpectLinear(QZGrammarMySQLSelect(), texts); }

TEST_F(Growth, OfNestedParenthesesIsLinear) {
    ExpectLinear({
        {"parentheses in SELECT", 500, 0.5, u"SELECT ", u"(", u"a", u")"},
        {"parentheses in SELECT before FROM", 500, 0.5, u"SELECT ", u"(", u"a", u") "},
        {"parentheses around a sum", 500, 0.5, u"SELECT ", u"(", u"a + 1", u")"},
        {"parentheses in a sum", 500, 0.5, u"SELECT a", u" + (a", u"", u")"},
        {"parentheses around a condition", 500, 0.5, u"SELECT a FROM t WHERE ", u"(", u"a = 1", u")", false},
        {"chains in chains", 500, 0.5, u"SELECT a FROM t WHERE a = 1", u" AND (a = 1 OR b = 2", u"", u")"},
        {"chains behind chains", 500, 0.5, u"SELECT a FROM t WHERE a", u" AND (a OR b", u"", u") AND c"},
        {"functions", 500, 0.5, u"SELECT ", u"ABS(", u"a", u")"},
        {"user functions", 500, 0.5, u"SELECT ", u"`f`(", u"a", u")"},
        {"aggregates", 500, 0.5, u"SELECT ", u"IFNULL(a, ", u"a", u")"},
        {"CASE", 500, 0.5, u"SELECT ", u"CASE WHEN a = 1 THEN ", u"2", u" END"},
        {"CASE in conditions", 500, 0.5, u"SELECT ", u"CASE WHEN ", u"a = 1", u" THEN 2 END"},
        {"subqueries", 500, 0.5, u"SELECT ", u"(SELECT ", u"a", u")"},
        {"IN subqueries", 500, 0.5, u"SELECT a FROM t", u" WHERE a IN (SELECT a FROM t", u"", u")"},
        {"EXISTS", 500, 0.5, u"SELECT a FROM t", u" WHERE a AND EXISTS (SELECT a FROM t", u"", u")"},
        {"derived tables", 500, 0.5, u"SELECT a FROM ", u"(SELECT a FROM ", u"t", u") AS x"},
        {"lists in lists", 500, 0.5, u"SELECT a FROM t WHERE a IN ", u"(a, ", u"a", u")"},
    });
}

TEST_F(Growth, OfJoinsIsLinear) {
    ExpectLinear({
        {"joins", 500, 1, u"SELECT a FROM t", u" JOIN u ON t.a = u.a", u"", u""},
        {"joins with aliases", 500, 1, u"SELECT a FROM t x", u" LEFT JOIN u AS y ON x.a = y.a AND x.b = y.b", u"", u""},
        {"joins without conditions", 500, 1, u"SELECT a FROM t", u" CROSS JOIN u", u"", u""},
        {"joins to the right", 500, 1, u"SELECT a FROM ", u"a LEFT JOIN (", u"b LEFT JOIN c ON x = y", u") ON x = y"},
        {"joins to the left", 500, 1, u"SELECT a FROM ", u"(", u"a JOIN b ON x = y", u") JOIN c ON x = y"},
        {"sources", 2500, 1, u"SELECT a FROM t", u", u AS x", u"", u""},
    });
}

TEST_F(Growth, OfChainsAndListsIsLinear) {
    ExpectLinear({
        {"AND of names", 2500, 1, u"SELECT a FROM t WHERE a", u" AND a", u"", u""},
        {"AND of comparisons", 2500, 1, u"SELECT a FROM t WHERE a = 1", u" AND b = 2", u"", u""},
        {"AND of chains", 1250, 1, u"SELECT a FROM t WHERE a = 1", u" AND (b = 2 OR c = 3)", u"", u""},
        {"AND in ON", 2500, 1, u"SELECT a FROM t JOIN u ON a = b", u" AND b = c", u"", u""},
        {"sums", 2500, 1, u"SELECT a", u" + b", u" FROM t", u""},
        {"products", 2500, 1, u"SELECT a", u" * b", u" FROM t", u""},
        {"bars apart", 2500, 1, u"SELECT a", u" | | b", u" FROM t", u""},
        {"IN list", 12500, 2, u"SELECT a FROM t WHERE a IN (0", u", 1", u")", u""},
        {"row", 12500, 2, u"SELECT a FROM t WHERE (a", u", b", u") = (1, 2)", u""},
        {"parameters", 12500, 2, u"SELECT CONCAT(0", u", 1", u") FROM t", u""},
        {"parameters without commas", 12500, 2, u"SELECT CONCAT(0", u" 1", u") FROM t", u""},
        {"branches", 2500, 2, u"SELECT CASE", u" WHEN a = 1 THEN 2", u" END FROM t", u""},
        {"GROUP BY", 2500, 1, u"SELECT a FROM t GROUP BY a", u", b", u"", u""},
        {"ORDER BY", 2500, 1, u"SELECT a FROM t ORDER BY a", u", b DESC", u"", u""},
        {"unions", 500, 1, u"SELECT a FROM t", u" UNION ALL SELECT b FROM u", u"", u""},
        {"unions in parentheses", 500, 1, u"(SELECT a FROM t", u" UNION (SELECT b FROM u", u"", u")"},
    });
}

TEST_F(Growth, OfSelectListsIsLinear) {
    ExpectLinear({
        {"columns", 2500, 1, u"SELECT a", u", b", u" FROM t", u""},
        {"columns with alias", 2500, 1, u"SELECT a", u", t.b AS c", u" FROM t", u""},
        {"quoted columns", 2500, 1, u"SELECT `a`", u", `b c`", u" FROM t", u""},
        {"functions", 2500, 1, u"SELECT a", u", LEFT(b, 1)", u" FROM t", u""},
        {"CASEs", 1250, 1, u"SELECT a", u", CASE WHEN a = 1 THEN b ELSE c = 1 END", u" FROM t", u""},
        {"items in parentheses", 1250, 1, u"SELECT a", u", (b)", u" FROM t", u""},
        {"comparisons", 1250, 1, u"SELECT a", u", b = 1", u" FROM t", u""},
        {"strings", 2500, 1, u"SELECT a", u", 'b'", u" FROM t", u""},
    });
}

TEST_F(Growth, OfUnclosedNestingIsLinear) {
    ExpectLinear({
        {"unclosed parentheses", 500, 1, u"SELECT ", u"(", u"a FROM t", u"", false},
        {"unclosed conditions", 500, 1, u"SELECT a FROM t WHERE ", u"(", u"a = 1", u"", false},
        {"unclosed chains", 500, 1, u"SELECT a FROM t WHERE a", u" AND (b OR c", u"", u""},
        {"unclosed joins", 500, 1, u"SELECT a FROM ", u"(", u"a INNER JOIN b ON x = y", u""},
        {"unclosed CASE", 500, 1, u"SELECT ", u"CASE WHEN a = 1 THEN ", u"2 FROM t", u"", false},
        {"CASE cut at its end", 1000, 1, u"SELECT ", u"CASE WHEN a = 1 THEN ", u"", u"", false},
        {"unclosed functions", 500, 1, u"SELECT ", u"CONCAT(a, ", u"b FROM t", u""},
        {"unclosed subqueries", 500, 1, u"SELECT ", u"(SELECT a FROM ", u"t", u""},
        {"unclosed names", 500, 1, u"SELECT ", u"`a b` ", u"` FROM t", u"", false},
        {"unclosed strings", 500, 1, u"SELECT ", u"'a b' ", u"' FROM t", u"", false},
    });
}

TEST_F(Growth, OfLongTokensIsLinear) {
    ExpectLinear({
        {"a long name", 250000, 0.5, u"SELECT ", u"x", u" FROM t", u""},
        {"a name of many tokens", 12500, 1, u"SELECT `", u"x ", u"` FROM t", u""},
        {"a string of many tokens", 12500, 1, u"SELECT '", u"x ", u"' FROM t", u""},
        {"a long number", 250000, 0.5, u"SELECT ", u"7", u" FROM t", u""},
        {"blanks", 50000, 1, u"SELECT a ", u" ", u"FROM t", u""},
        {"stray characters", 50000, 1, u"SELECT a FROM t", u"#", u"", u"", false},
        {"trailing text", 50000, 2, u"SELECT a b", u" c, 'd'", u"", u"", false},
        {"at signs", 50000, 1, u"SELECT a FROM t ", u"@@", u"", u"", false},
        {"NOT and a blank", 50000, 1, u"SELECT a FROM t x ", u"NOT ", u"", u"", false},
    });
}

TEST_F(Growth, LeavesAMegabyteOfBlanksQuick) {
    const std::u16string text = u"SELECT a" + std::u16string(1000000, u' ') + u"FROM t";
    EXPECT_LT(SecondsFor(QZGrammarMySQLSelect(), text), 5);
    EXPECT_EQ(QZChildCount(Recognition(text, QZGrammarMySQLSelect()).Root()), 2U);
}

}  // namespace
