#include "bench/Texts.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "QZParserSQL/platform/CString.h"

namespace {

std::string Repeat(const std::string& text, std::int64_t count) {
    std::string repeated;
    for (std::int64_t i = 0; i < count; ++i) repeated += text;
    return repeated;
}

std::string LeftNestedJoins(std::int64_t count, const std::string& close) {
    return "SELECT a FROM " + Repeat("(", count) + "t" + Repeat(" INNER JOIN u ON t.a = u.b" + close, count);
}

}  // namespace

std::u16string Widened(const std::string& utf8) { return std::u16string(CString::FromUtf8(utf8).View()); }

std::vector<Query> Corpus(const std::string& dialect) {
    std::vector<Query> queries;
    for (const auto& entry : std::filesystem::directory_iterator(QZ_SOURCE_FOLDER "/tests/corpus/" + dialect)) {
        if (entry.path().extension() != ".sql") continue;
        std::ifstream file(entry.path(), std::ios::binary);
        const std::string utf8(std::istreambuf_iterator<char>(file), {});
        queries.push_back({entry.path().stem().string(), utf8, Widened(utf8)});
    }
    std::sort(queries.begin(), queries.end(), [](const Query& a, const Query& b) { return a.name < b.name; });
    return queries;
}

const Query& CommonQuery() {
    static const Query query = [] {
        const std::string utf8 =
            "SELECT c.CompanyName, o.Due AS DueDate FROM Customers AS c INNER JOIN Orders AS o ON c.ID = o.CustomerID "
            "WHERE o.Due < 20200102 AND o.Paid = 0 AND o.Total > 12.5 ORDER BY o.Due DESC";
        return Query{"common", utf8, Widened(utf8)};
    }();
    return query;
}

std::u16string LargeText() {
    return Widened("SELECT " + Repeat("ABS(t.UnitPrice + 2) AS x, t.OrderName, ", 2600) + "a FROM t WHERE " +
                   Repeat("t.Due < 20200102 AND t.Paid = 0 AND ", 2800) + "a = 1");
}

const std::vector<Shape>& Shapes() {
    static const std::vector<Shape> shapes = {
        {"Parentheses", 2000,
         [](std::int64_t n) { return "SELECT " + Repeat("(", n) + "a" + Repeat(")", n) + " FROM t"; }},
        {"ParenthesesUnclosed", 2000, [](std::int64_t n) { return "SELECT " + Repeat("(", n) + "a FROM t"; }},
        {"Functions", 2000,
         [](std::int64_t n) { return "SELECT " + Repeat("ABS(", n) + "a" + Repeat(")", n) + " FROM t"; }},
        {"FunctionsUnclosed", 2000, [](std::int64_t n) { return "SELECT " + Repeat("ABS(", n) + "a FROM t"; }},
        {"Conditions", 2000,
         [](std::int64_t n) { return "SELECT a FROM t WHERE " + Repeat("(", n) + "a = 1" + Repeat(")", n); }},
        {"ConditionsUnclosed", 2000,
         [](std::int64_t n) { return "SELECT a FROM t WHERE " + Repeat("(", n) + "a = 1"; }},
        {"LeftNestedJoins", 200, [](std::int64_t n) { return LeftNestedJoins(n, ")"); }},
        {"LeftNestedJoinsUnclosed", 200, [](std::int64_t n) { return LeftNestedJoins(n, ""); }},
        {"Joins", 2000, [](std::int64_t n) { return "SELECT a FROM t" + Repeat(" INNER JOIN u ON t.a = u.b", n); }},
        {"AndChain", 20000, [](std::int64_t n) { return "SELECT a FROM t WHERE a = 1" + Repeat(" AND b = 2", n); }},
        {"InList", 50000, [](std::int64_t n) { return "SELECT a FROM t WHERE a IN (1" + Repeat(", 2", n) + ")"; }},
        {"InListUnclosed", 50000, [](std::int64_t n) { return "SELECT a FROM t WHERE a IN (1" + Repeat(", 2", n); }},
        {"SelectList", 10000, [](std::int64_t n) { return "SELECT a" + Repeat(", b", n) + " FROM t"; }},
        {"SelectListUnclosed", 10000, [](std::int64_t n) { return "SELECT a" + Repeat(", b", n) + ","; }},
        {"Unions", 500, [](std::int64_t n) { return "SELECT a FROM t" + Repeat(" UNION SELECT b FROM u", n); }},
        {"Blanks", 100000, [](std::int64_t n) { return "SELECT" + Repeat(" ", n) + "a FROM t"; }},
    };
    return shapes;
}
