"""What nests in the dialects: texts as deep as asked for."""

from typing import NamedTuple


class Nesting(NamedTuple):
    """A text is `before`, `open` as often as it is deep, `middle`, `close` as often, and `after`."""
    name: str
    before: str
    open: str
    middle: str
    close: str
    after: str = ""

    def closed(self, depth: int) -> str:
        return self.before + self.open * depth + self.middle + self.close * depth + self.after

    def cut(self, depth: int) -> str:
        return self.before + self.open * depth

    def broken(self, depth: int) -> str:
        half = self.open * (depth // 2)
        return self.before + half + " ; ] .. ) , " + half + self.middle + self.close * depth + self.after


FORMS = {"closed": Nesting.closed, "cut": Nesting.cut, "broken": Nesting.broken}


def in_expressions(name: str, open: str, middle: str, close: str) -> list[Nesting]:
    """An operand that nests, in the places where operands stand."""
    return [
        Nesting(name + " in a list", "SELECT ", open, middle, close, " FROM t"),
        Nesting(name + " in a condition", "SELECT a FROM t WHERE a = ", open, middle, close),
    ]


def in_conditions(name: str, open: str, middle: str, close: str) -> list[Nesting]:
    """A condition that nests."""
    return [Nesting(name, "SELECT a FROM t WHERE ", open, middle, close)]


QUERIES = [
    *in_expressions("parentheses", "(", "a", ")"),
    *in_conditions("parentheses around conditions", "(", "a = 1", ")"),
    *in_conditions("conditions in parentheses", "a = 1 AND (", "a = 2", ")"),
    *in_conditions("conditions before parentheses", "(", "a = 1", " OR a = 2)"),
    *in_conditions("denied conditions", "NOT (", "a = 1", ")"),
    *in_conditions("ranges", "a BETWEEN 1 AND (", "2", ")"),
    *in_conditions("queries behind IN", "a IN (SELECT a FROM t WHERE ", "a = 1", ")"),
    *in_conditions("queries behind EXISTS", "EXISTS (SELECT a FROM t WHERE ", "a = 1", ")"),
    *in_expressions("queries", "(SELECT ", "a", " FROM t)"),
    *in_expressions("sums in parentheses", "1 + (", "a", ")"),
    *in_expressions("lists", "(1, ", "a", ")"),
    *in_expressions("signs", "-", "a", ""),
    *in_expressions("signs of parentheses", "-(", "a", ")"),
    *in_expressions("NOT", "NOT ", "a", ""),
    *in_expressions("functions of the host", "f(", "a", ")"),
    *in_expressions("second parameters of functions", "f(1, ", "a", ")"),
    *in_expressions("numeric functions", "ABS(", "a", ")"),
    *in_expressions("group functions", "MAX(", "a", ")"),
    *in_expressions("conversions", "CAST(", "a", " AS int)"),
    *in_expressions("conversions from a type on", "CONVERT(int, ", "a", ")"),
    *in_expressions("sums", "a + ", "a", ""),
    *in_expressions("products", "a * ", "a", ""),
    *in_conditions("chains of AND", "a = 1 AND ", "a = 1", ""),
    *in_conditions("chains of OR", "a = 1 OR ", "a = 1", ""),
    *in_conditions("comparisons", "a = ", "a", ""),
    Nesting("parentheses behind HAVING", "SELECT a FROM t GROUP BY a HAVING ", "(", "a = 1", ")"),
    Nesting("parentheses in a grouping", "SELECT a FROM t GROUP BY ", "(", "a", ")"),
    Nesting("parentheses in an order", "SELECT a FROM t ORDER BY ", "(", "a", ")"),
    Nesting("columns", "SELECT ", "a, ", "a", "", " FROM t"),
    Nesting("tables", "SELECT a FROM ", "t, ", "t", ""),
    Nesting("derived tables", "SELECT a FROM ", "(SELECT a FROM ", "t", ") x"),
    Nesting("parentheses around tables", "SELECT a FROM ", "(", "t INNER JOIN u ON t.a = u.a", ")"),
    Nesting("joins to the left", "SELECT a FROM ", "(", "t", " INNER JOIN u ON t.a = u.a)"),
    Nesting("joins to the right", "SELECT a FROM ", "t INNER JOIN (", "u", " ON t.a = u.a)"),
    Nesting("joins within joins", "SELECT a FROM t", " INNER JOIN u", "", " ON t.a = u.a"),
    Nesting("joins in a row", "SELECT a FROM t", " INNER JOIN u ON t.a = u.a", "", ""),
    Nesting("parentheses behind ON", "SELECT a FROM t INNER JOIN u ON ", "(", "t.a = u.a", ")"),
    Nesting("conditions behind ON", "SELECT a FROM t INNER JOIN u ON t.a = u.a", " AND t.a = u.a", "", ""),
    Nesting("unions", "", "SELECT a UNION ", "SELECT a", ""),
    Nesting("queries in parentheses", "", "(", "SELECT a", ")"),
]

CASES = [
    *in_expressions("cases behind THEN", "CASE WHEN a = 1 THEN ", "a", " END"),
    *in_expressions("cases behind ELSE", "CASE WHEN a = 1 THEN 1 ELSE ", "a", " END"),
    *in_expressions("cases behind WHEN", "CASE WHEN ", "a = 1", " THEN 1 END = 1"),
    *in_expressions("cases of cases", "CASE ", "a", " WHEN 1 THEN 2 END"),
]

DATES = in_expressions("dates", "DATEADD(d, 1, ", "a", ")")
ESCAPES = in_expressions("functions in braces", "{fn UCASE(", "a", ")}")

NESTINGS = {
    "access": [
        *QUERIES, *DATES,
        *in_expressions("IIF", "IIF(a = 1, 2, ", "a", ")"),
        *in_expressions("IIF in its condition", "IIF(", "a", " = 1, 2, 3)"),
        *in_expressions("texts", "'a' & ", "a", ""),
        *in_conditions("EXISTS without parentheses", "EXISTS SELECT a FROM t WHERE ", "a = 1", ""),
    ],
    "mssql": [*QUERIES, *CASES, *DATES, *ESCAPES],
    "mysql": [
        *QUERIES, *CASES,
        *in_expressions("IF", "IF(a = 1, 2, ", "a", ")"),
        *in_expressions("functions in backticks", "`f`(", "a", ")"),
        *in_conditions("chains of &&", "a = 1 && ", "a = 1", ""),
    ],
    "oracle": [
        *QUERIES, *CASES,
        *in_expressions("DECODE", "DECODE(a, 1, ", "a", ")"),
        *in_expressions("texts", "a || ", "a", ""),
        *in_expressions("EXTRACT", "EXTRACT(DAY FROM ", "a", ")"),
        *in_expressions("MULTISET", "MULTISET (SELECT ", "a", " FROM t)"),
        Nesting("ROW_NUMBER", "SELECT ", "ROW_NUMBER() OVER (PARTITION BY (SELECT ", "a", " FROM t) ORDER BY a) x",
                " FROM t"),
    ],
    "mssql-from": [
        Nesting("parentheses", "", "(", "t INNER JOIN u ON t.a = u.a", ")"),
        Nesting("joins to the left", "", "(", "t", " INNER JOIN u ON t.a = u.a)"),
        Nesting("joins to the right", "", "t INNER JOIN (", "u", " ON t.a = u.a)"),
        Nesting("joins within joins", "t", " INNER JOIN u", "", " ON t.a = u.a"),
        Nesting("joins in a row", "t", " INNER JOIN u ON t.a = u.a", "", ""),
        Nesting("line ends", "t INNER JOIN ", "\r\n", "u", " ON t.a = u.a"),
        Nesting("conditions", "t INNER JOIN u ON t.a = u.a", " AND t.a = u.a", "", ""),
        Nesting("parentheses behind ON", "t INNER JOIN u ON ", "(", "t.a = u.a", ")"),
        Nesting("sums", "t INNER JOIN u ON t.a = ", "1 + ", "u.a", ""),
        Nesting("products", "t INNER JOIN u ON t.a = ", "1 * ", "u.a", ""),
    ],
}
