// Oracle: time grows no faster than the text.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/dialect/Growth.h"
#include "tests/support/Recognition.h"

namespace {

void ExpectLinear(const std::vector<GrowingText>& texts) { ExpectLinear(QZGrammarOracle(), texts); }

TEST_F(Growth, OfNestedParenthesesIsLinear) {
    ExpectLinear({
        {"parentheses in SELECT", 500, 0.5, u"SELECT ", u"(", u"a", u")"},
        {"parentheses in SELECT before FROM", 500, 0.5, u"SELECT ", u"(", u"a", u") "},
        {"parentheses around a sum", 500, 0.5, u"SELECT ", u"(", u"a + 1", u")"},
        {"parentheses in a sum", 500, 0.5, u"SELECT a", u" + (a", u"", u")"},
        {"parentheses around a condition", 500, 0.5, u"SELECT a FROM t WHERE ", u"(", u"a = 1", u")", false},
        {"parentheses behind NOT", 500, 0.5, u"SELECT a FROM t WHERE NOT ", u"(", u"a = 1", u")", false},
        {"parentheses before BETWEEN", 500, 0.5, u"SELECT a FROM t WHERE ", u"(", u"a", u") BETWEEN 1 AND 2", false},
        {"chains in chains", 500, 0.5, u"SELECT a FROM t WHERE a = 1", u" AND (a = 1 OR b = 2", u"", u")", false},
        {"functions", 4000, 1, u"SELECT ", u"NVL(", u"a", u")"},
        {"user functions", 4000, 1, u"SELECT ", u"f(", u"a", u")"},
        {"aggregates", 500, 0.5, u"SELECT ", u"SUM(a, ", u"a", u")"},
        {"casts", 500, 0.5, u"SELECT ", u"CAST(", u"a", u" AS INT)"},
        {"extracts", 500, 0.5, u"SELECT ", u"EXTRACT(YEAR FROM ", u"a", u")"},
        {"CASE", 500, 0.5, u"SELECT ", u"CASE WHEN a = 1 THEN ", u"2", u" END"},
        {"CASE in conditions", 500, 0.5, u"SELECT ", u"CASE WHEN ", u"a = 1", u" THEN 2 END"},
        {"subqueries", 500, 0.5, u"SELECT ", u"(SELECT ", u"a", u")"},
        {"IN subqueries", 500, 0.5, u"SELECT a FROM t", u" WHERE a IN (SELECT a FROM t", u"", u")"},
        {"EXISTS", 500, 0.5, u"SELECT a FROM t", u" WHERE EXISTS (SELECT a FROM t", u"", u")"},
        {"derived tables", 500, 0.5, u"SELECT a FROM ", u"(SELECT a FROM ", u"t", u") x"},
        {"lists in lists", 500, 0.5, u"SELECT a FROM t WHERE a IN ", u"(a, ", u"a", u")"},
    });
}

TEST_F(Growth, OfJoinsIsLinear) {
    ExpectLinear({
        {"joins", 500, 1, u"SELECT a FROM t", u" JOIN u ON t.a = u.a", u"", u""},
        {"joins with aliases", 500, 1, u"SELECT a FROM t x", u" LEFT JOIN u AS y ON x.a = y.a AND x.b = y.b", u"", u""},
        {"joins without conditions", 500, 1, u"SELECT a FROM t", u" CROSS JOIN u", u"", u""},
        {"joins with conditions behind", 500, 1, u"SELECT a FROM t", u" JOIN u", u"", u" ON a = b"},
        {"joins to the right", 500, 1, u"SELECT a FROM ", u"a LEFT JOIN (", u"b LEFT JOIN c ON x = y", u") ON x = y"},
        {"joins to the left", 500, 1, u"SELECT a FROM ", u"(", u"a JOIN b ON x = y", u") JOIN c ON x = y"},
        {"sources", 2500, 1, u"SELECT a FROM t", u", u x", u"", u""},
        {"sources and marks", 1250, 1, u"SELECT a FROM t, u WHERE t.a = u.a(+)", u" AND t.b(+) = u.b", u"", u""},
        {"tables in a row", 1250, 1, u"SELECT a FROM t", u" x u", u" JOIN v", u""},
    });
}

TEST_F(Growth, OfChainsAndListsIsLinear) {
    ExpectLinear({
        {"AND of names", 2500, 1, u"SELECT a FROM t WHERE a", u" AND a", u"", u""},
        {"AND of comparisons", 2500, 1, u"SELECT a FROM t WHERE a = 1", u" AND b = 2", u"", u""},
        {"AND of chains", 1250, 1, u"SELECT a FROM t WHERE a = 1", u" AND (b = 2 OR c = 3)", u"", u""},
        {"AND of NOT", 1250, 1, u"SELECT a FROM t WHERE a = 1", u" AND NOT (b = 2)", u"", u""},
        {"AND of BETWEEN", 1250, 1, u"SELECT a FROM t WHERE a = 1", u" AND b BETWEEN 1 AND 2", u"", u""},
        {"AND in ON", 2500, 1, u"SELECT a FROM t JOIN u ON a = b", u" AND b = c", u"", u""},
        {"sums", 2500, 1, u"SELECT a", u" + b", u" FROM t", u""},
        {"products", 2500, 1, u"SELECT a", u" * b", u" FROM t", u""},
        {"concatenations", 2500, 1, u"SELECT a", u" || b", u" FROM t", u""},
        {"signs", 2500, 1, u"SELECT ", u"- ", u"a FROM t", u""},
        {"IN list", 12500, 2, u"SELECT a FROM t WHERE a IN (0", u", 1", u")", u""},
        {"row", 12500, 2, u"SELECT a FROM t WHERE (a", u", b", u") = (1, 2)", u""},
        {"parameters", 12500, 2, u"SELECT DECODE(0", u", 1", u") FROM t", u""},
        {"parameters without commas", 12500, 2, u"SELECT DECODE(0", u" 1", u") FROM t", u""},
        {"parameters of an aggregate", 12500, 2, u"SELECT COUNT(0", u", 1", u") FROM t", u""},
        {"branches", 2500, 2, u"SELECT CASE", u" WHEN a = 1 THEN 2", u" END FROM t", u""},
        {"PARTITION BY", 2500, 1, u"SELECT ROW_NUMBER() OVER (PARTITION BY a", u", b", u" ORDER BY a) FROM t", u""},
        {"GROUP BY", 2500, 1, u"SELECT a FROM t GROUP BY a", u", b", u"", u""},
        {"ORDER BY", 2500, 1, u"SELECT a FROM t ORDER BY a", u", b DESC", u"", u""},
        {"unions", 500, 1, u"SELECT a FROM t", u" UNION ALL SELECT b FROM u", u"", u""},
    });
}

TEST_F(Growth, OfSelectListsIsLinear) {
    ExpectLinear({
        {"columns", 2500, 1, u"SELECT a", u", b", u" FROM t", u""},
        {"columns with alias", 2500, 1, u"SELECT a", u", t.b AS c", u" FROM t", u""},
        {"columns, an alias last", 2500, 1, u"SELECT a", u", b", u" x FROM t", u""},
        {"columns, a comparison last", 2500, 1, u"SELECT a", u", b", u" = 1 FROM t", u""},
        {"quoted columns", 2500, 1, u"SELECT \"a\"", u", \"b c\"", u" FROM t", u""},
        {"functions", 2500, 1, u"SELECT a", u", NVL(b, 1)", u" FROM t", u""},
        {"CASEs", 1250, 1, u"SELECT a", u", CASE WHEN a = 1 THEN b ELSE c = 1 END", u" FROM t", u""},
        {"items in parentheses", 1250, 1, u"SELECT a", u", (b)", u" FROM t", u""},
        {"subqueries", 1250, 1, u"SELECT a", u", (SELECT b FROM u)", u" FROM t", u""},
        {"comparisons", 1250, 1, u"SELECT a = 1", u", b", u" FROM t", u""},
        {"comparisons with alias", 1250, 1, u"SELECT a", u", b = 1 x", u" FROM t", u""},
        {"row numbers", 1250, 1, u"SELECT a", u", ROW_NUMBER() OVER (ORDER BY a) x", u" FROM t", u""},
    });
}

TEST_F(Growth, OfUnclosedNestingIsLinear) {
    ExpectLinear({
        {"unclosed parentheses", 125, 0.2, u"SELECT ", u"(", u"a FROM t", u"", false},
        {"unclosed conditions", 125, 0.2, u"SELECT a FROM t WHERE ", u"(", u"a = 1", u"", false},
        {"unclosed NOT", 125, 0.2, u"SELECT a FROM t WHERE ", u"NOT (", u"a = 1 AND b = 2", u"", false},
        {"unclosed joins", 125, 0.2, u"SELECT a FROM ", u"(", u"a INNER JOIN b ON x = y", u""},
        {"unclosed CASE", 125, 0.2, u"SELECT ", u"CASE WHEN a = 1 THEN ", u"2 FROM t", u"", false},
        {"unclosed functions", 125, 0.2, u"SELECT ", u"NVL(a, ", u"b FROM t", u""},
        {"unclosed subqueries", 125, 0.2, u"SELECT ", u"(SELECT a FROM ", u"t", u""},
        {"unclosed row numbers", 125, 0.2, u"SELECT ", u"ROW_NUMBER() OVER (", u"ORDER BY a", u"", false},
    });
}

TEST_F(Growth, OfLongTokensIsLinear) {
    ExpectLinear({
        {"a long name", 250000, 0.5, u"SELECT ", u"x", u" FROM t", u""},
        {"a long quoted name", 250000, 0.5, u"SELECT \"", u"x", u"\" FROM t", u""},
        {"a long string", 250000, 0.5, u"SELECT '", u"x", u"' FROM t", u""},
        {"a long number", 250000, 0.5, u"SELECT ", u"7", u" FROM t", u""},
        {"blanks", 50000, 1, u"SELECT a", u" ", u"FROM t", u""},
        {"stray characters", 50000, 1, u"SELECT a FROM t", u";", u"", u"", false},
        {"trailing text", 50000, 2, u"SELECT a FROM t LIMIT 5", u" c, 'd'", u"", u"", false},
        {"at signs", 50000, 1, u"SELECT a FROM t ", u"@@", u"", u"", false},
        {"SET and a blank", 50000, 1, u"SELECT a FROM t x ", u"SET ", u"", u"", false},
        {"an unclosed string", 250000, 0.5, u"SELECT a FROM t WHERE b = '", u"x", u"", u"", false},
    });
}

}  // namespace
