// MS SQL: time grows no faster than the text.
#include <gtest/gtest.h>

#include "tests/dialect/Growth.h"

namespace {

TEST_F(Growth, OfNestingIsLinear) {
    ExpectLinear(
        QZGrammarMSSQL(),
        {
            {"parentheses", 500, 0.5, u"SELECT ", u"(", u"a", u")"},
            {"parentheses around a sum", 500, 0.5, u"SELECT ", u"(", u"a", u" + 1)"},
            {"parentheses around a condition", 1000, 0.5, u"SELECT a FROM t WHERE ", u"(", u"a = 1", u")", false},
            {"parentheses around conditions", 1000, 0.5, u"SELECT a FROM t WHERE ", u"(", u"a = 1", u" AND b = 2)",
             false},
            {"functions", 2000, 1, u"SELECT ", u"f(", u"a", u")"},
            {"CASE in THEN", 500, 0.5, u"SELECT ", u"CASE WHEN a = 1 THEN ", u"a", u" ELSE b END"},
            {"CASE in WHEN", 500, 0.5, u"SELECT ", u"CASE WHEN ", u"a", u" = 1 THEN b END"},
            {"CONVERT", 1000, 0.5, u"SELECT ", u"CONVERT(int, ", u"a", u")"},
            {"CAST", 1000, 0.5, u"SELECT ", u"CAST(", u"a", u" AS int)"},
            {"escapes", 500, 0.5, u"SELECT ", u"{fn UCASE(", u"a", u")}"},
            {"subqueries", 1000, 0.5, u"SELECT ", u"(SELECT ", u"a", u")"},
            {"IN subqueries", 500, 0.5, u"SELECT a FROM t", u" WHERE a IN (SELECT a FROM t", u"", u")"},
            {"EXISTS", 500, 0.5, u"SELECT ", u"EXISTS (SELECT ", u"a", u")"},
            {"derived tables", 500, 0.5, u"SELECT a FROM ", u"(SELECT a FROM ", u"t", u") AS x"},
            {"joins to the left", 500, 1, u"SELECT a FROM ", u"(", u"a INNER JOIN b ON a.x = b.x",
             u") INNER JOIN c ON a.x = c.x"},
            {"joins to the right", 500, 1, u"SELECT a FROM ", u"a LEFT JOIN (", u"b LEFT JOIN c ON x = y",
             u") ON x = y"},
            {"unclosed parentheses", 125, 0.2, u"SELECT ", u"(", u"a FROM t", u""},
            {"unclosed conditions", 125, 0.2, u"SELECT a FROM t WHERE ", u"(", u"a = 1", u""},
            {"unclosed joins", 125, 0.2, u"SELECT a FROM ", u"(", u"a INNER JOIN b ON x = y", u""},
            {"unclosed functions", 125, 0.2, u"SELECT ", u"f(a, ", u"b FROM t", u""},
            {"unclosed CASE", 125, 0.2, u"SELECT ", u"CASE WHEN a = 1 THEN ", u"a", u"", false},
        });
}

TEST_F(Growth, OfChainsAndListsIsLinear) {
    ExpectLinear(QZGrammarMSSQL(),
                 {
                     {"columns", 2500, 1, u"SELECT a", u", b", u" FROM t", u""},
                     {"CASE items", 500, 1, u"SELECT a", u", CASE WHEN a = 1 THEN 2 END AS x", u" FROM t", u""},
                     {"sums", 2500, 1, u"SELECT a", u" + b", u" FROM t", u""},
                     {"AND", 2500, 1, u"SELECT a FROM t WHERE a = 1", u" AND b = 2", u"", u""},
                     {"AND of BETWEEN", 1250, 1, u"SELECT a FROM t WHERE a = 1", u" AND b BETWEEN 1 AND 2", u"", u""},
                     {"AND in ON", 2500, 1, u"SELECT a FROM t JOIN u ON a = b", u" AND b = c", u"", u""},
                     {"IN list", 12500, 2, u"SELECT a FROM t WHERE a IN (0", u", 1", u")", u""},
                     {"lists in lists", 500, 0.5, u"SELECT a FROM t WHERE a IN ", u"(a, ", u"a", u")", false},
                     {"list without comparison", 2500, 1, u"SELECT a FROM t WHERE a", u", b", u"", u"", false},
                     {"parameters", 12500, 2, u"SELECT f(0", u", 1", u") FROM t", u""},
                     {"parameters without commas", 2500, 1, u"SELECT f(a", u" b", u") FROM t", u""},
                     {"sources", 2500, 1, u"SELECT a FROM t", u", u AS x", u"", u""},
                     {"joins", 500, 1, u"SELECT a FROM a", u" INNER JOIN b ON a.x = b.x", u"", u""},
                     {"joins without ON", 500, 1, u"SELECT a FROM a", u" JOIN b", u"", u""},
                     {"joins before their ON", 500, 1, u"SELECT a FROM a", u" JOIN b", u"", u" ON x = y"},
                     {"GROUP BY", 2500, 1, u"SELECT a FROM t GROUP BY a", u", b", u"", u""},
                     {"ORDER BY", 2500, 1, u"SELECT a FROM t ORDER BY a", u", b DESC", u"", u""},
                     {"unions", 500, 1, u"SELECT a FROM t", u" UNION ALL SELECT b FROM u", u"", u""},
                     {"words in brackets", 12500, 1, u"SELECT [a", u" b", u"]", u""},
                     {"brackets in brackets", 12500, 1, u"SELECT [a", u"]]", u"]", u""},
                     {"words in a string", 12500, 1, u"SELECT 'a", u" b", u"'", u""},
                     {"blanks", 50000, 1, u"SELECT a", u" ", u"FROM t", u""},
                     {"trailing text", 12500, 2, u"SELECT a b", u" c, 'd'", u"", u"", false},
                 });
}

TEST_F(Growth, OfFromListsIsLinear) {
    ExpectLinear(QZGrammarMSSQLfrom(),
                 {
                     {"joins", 500, 1, u"a", u" INNER JOIN b ON a.x = b.x", u"", u""},
                     {"joins without ON", 500, 1, u"a", u" JOIN b", u"", u""},
                     {"joins before their ON", 500, 1, u"a", u" JOIN b", u"", u" ON x = y"},
                     {"joins to the left", 500, 1, u"", u"(", u"a JOIN b ON x = y", u") JOIN c ON z = w", false},
                     {"joins to the right", 500, 1, u"", u"a JOIN (", u"b JOIN c ON x = y", u") ON z = w"},
                     {"conditions", 2500, 1, u"a JOIN b ON x = y", u" AND z = w", u"", u""},
                     {"sums", 2500, 1, u"a JOIN b ON x = y", u" + z", u"", u""},
                     {"unclosed joins", 125, 0.2, u"", u"(", u"a JOIN b", u"", false},
                 });
}

}  // namespace
