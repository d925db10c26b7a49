// Throughput of parsing, one facade a query as hosts do it, and growth with the size of the text.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include "QZParserSQL/MSAccess_v3/CQZMSAccessSQL_v3Parcer.h"
#include "QZParserSQL/platform/Console.h"

namespace {

void Parse(CString& sql) {
    CQZMSAccessSQL_v3Parcer parser;
    parser.SetSQL(sql);
    parser.ParseSQL();
    CQZSQLTree* tree = nullptr;
    parser.GetSQLTree(&tree);
    const std::unique_ptr<CQZSQLTree> owned(tree);
    benchmark::DoNotOptimize(owned->GetChildCount());
}

std::vector<CString> ReadCorpus() {
    std::vector<CString> queries;
    for (const auto& entry : std::filesystem::directory_iterator(QZ_SOURCE_FOLDER "/tests/corpus/access")) {
        if (entry.path().extension() != ".sql") continue;
        std::ifstream file(entry.path(), std::ios::binary);
        queries.push_back(CString::FromUtf8(std::string(std::istreambuf_iterator<char>(file), {})));
    }
    return queries;
}

std::string Repeat(const std::string& text, std::int64_t count) {
    std::string repeated;
    for (std::int64_t i = 0; i < count; ++i) repeated += text;
    return repeated;
}

void Silence() {
    QZSetErrorSink([](void*, std::string_view) {}, nullptr);
}

// A query of 186 characters and 44 tokens of the default channel.
void OneQuery(benchmark::State& state) {
    CString sql(
        u"SELECT Customers.[Company Name], Orders.Due AS DueDate FROM Customers INNER JOIN Orders ON Customers.ID = "
        u"Orders.CustomerID WHERE Orders.Due < #1/2/2020# AND Orders.Paid = False ORDER BY Orders.Due DESC");
    while (state.KeepRunning()) Parse(sql);
    state.SetItemsProcessed(state.iterations());
    state.SetBytesProcessed(state.iterations() * sql.GetLength());
}
BENCHMARK(OneQuery)->Unit(benchmark::kMicrosecond);

void Corpus(benchmark::State& state) {
    Silence();
    auto queries = ReadCorpus();
    std::int64_t units = 0;
    for (const CString& query : queries) units += query.GetLength();
    while (state.KeepRunning()) {
        for (CString& query : queries) Parse(query);
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(queries.size()));
    state.SetBytesProcessed(state.iterations() * units);
}
BENCHMARK(Corpus)->Unit(benchmark::kMicrosecond);

// Each shape as a function of its size; the reported complexity should be N.
void Growth(benchmark::State& state, const std::function<std::string(std::int64_t)>& shape) {
    CString sql = CString::FromUtf8(shape(state.range(0)));
    while (state.KeepRunning()) Parse(sql);
    state.SetBytesProcessed(state.iterations() * sql.GetLength());
    state.SetComplexityN(state.range(0));
}

struct Shape {
    const char* name;
    std::int64_t largest;
    std::function<std::string(std::int64_t)> make;
};

const std::vector<Shape> kShapes = {
    {"LargeText", 2400,  // 200 KB
     [](std::int64_t n) {
         return "SELECT " + Repeat("Left$([Unit Price],2) & t.[Name] AS x, ", n) + "1 FROM t WHERE " +
                Repeat("(t.Due < #1/2/2020# OR t.Paid = False) AND ", n) + "a = 1";
     }},
    {"NestedParentheses", 1000,
     [](std::int64_t n) { return "SELECT " + Repeat("(", n) + "a" + Repeat(")", n) + " FROM t"; }},
    {"UnclosedIif", 1000, [](std::int64_t n) { return "SELECT " + Repeat("IIF(a=1,2,", n) + " FROM t"; }},
    {"AndChain", 8000, [](std::int64_t n) { return "SELECT a FROM t WHERE a = 1" + Repeat(" AND b = 2", n); }},
    {"InList", 50000, [](std::int64_t n) { return "SELECT a FROM t WHERE a IN (1" + Repeat(", 2", n) + ")"; }},
    {"SelectList", 8000, [](std::int64_t n) { return "SELECT a" + Repeat(", b", n) + " FROM t"; }},
    {"Joins", 4000, [](std::int64_t n) { return "SELECT a FROM t" + Repeat(" INNER JOIN u ON t.a = u.b", n); }},
};

const bool kRegistered = [] {
    for (const Shape& shape : kShapes) {
        benchmark::RegisterBenchmark(shape.name,
                                     [&shape](benchmark::State& state) {
                                         Silence();
                                         Growth(state, shape.make);
                                     })
            ->Unit(benchmark::kMillisecond)
            ->RangeMultiplier(2)
            ->Range(shape.largest / 8, shape.largest)
            ->Complexity(benchmark::oN);
    }
    return true;
}();

}  // namespace
