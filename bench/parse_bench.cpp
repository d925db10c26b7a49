// What the recognizers take, see docs/performance.md. No result outlives its query and each text is fresh: a copy that
// no recognizer has seen.
#include <benchmark/benchmark.h>
#include <malloc.h>

#include <algorithm>
#include <chrono>
#include <iostream>
#include <iterator>
#include <memory>
#include <numeric>
#include <string>
#include <string_view>
#include <vector>

#ifdef QZ_WITH_PG_QUERY
#include <pg_query.h>
#endif

#include "QZParserSQL/front/BuildQueryInfo.h"
#include "QZParserSQL/platform/Console.h"
#include "bench/Road.h"
#include "bench/Texts.h"
#include "tests/catalog/Concrete.h"

namespace {

using Clock = std::chrono::steady_clock;
using State = benchmark::State;

double Microseconds(Clock::duration duration) { return std::chrono::duration<double, std::micro>(duration).count(); }

// The least time of each stage of one query: what other programs take from it in between does not count.
class Stages {
 public:
    enum Stage { kLex, kParse, kFree, kWalk, kFreeViews, kStages };

    Stages() { std::fill(std::begin(m_Least), std::end(m_Least), Clock::duration::max()); }

    void Run(const Dialect& dialect, const std::u16string& seen) {
        std::u16string text;
        text.assign(seen);
        auto road = std::make_unique<Road>(dialect, text);
        m_Last = Clock::now();
        road->Open();
        road->Lex();
        Note(kLex);
        road->Parse();
        Note(kParse);
        road->Walk();
        Note(kWalk);
        road->FreeViews();
        Note(kFreeViews);
        road.reset();
        Note(kFree);
    }

    double Microseconds(Stage stage) const { return ::Microseconds(m_Least[stage]); }

 private:
    void Note(Stage stage) {
        const auto now = Clock::now();
        m_Least[stage] = std::min(m_Least[stage], now - m_Last);
        m_Last = now;
    }

    Clock::time_point m_Last;
    Clock::duration m_Least[kStages];
};

// The mean of the queries.
void Report(State& state, const std::vector<Stages>& queries, double characters) {
    const struct {
        const char* name;
        Stages::Stage stage;
        bool counts;  // in the whole road from constructors to the freed tree
    } counters[] = {{"lex_us", Stages::kLex, true},
                    {"parse_us", Stages::kParse, true},
                    {"free_us", Stages::kFree, true},
                    {"walk_us", Stages::kWalk, false},
                    {"free_views_us", Stages::kFreeViews, false}};
    const auto count = static_cast<double>(queries.size());
    double whole = 0;
    for (const auto& counter : counters) {
        double sum = 0;
        for (const Stages& query : queries) sum += query.Microseconds(counter.stage);
        state.counters[counter.name] = sum / count;
        if (counter.counts) whole += sum;
    }
    state.counters["whole_us"] = whole / count;
    state.counters["characters_a_query"] = characters / count;
    state.counters["characters_a_second"] = characters / whole * 1e6;
}

void Corpora(State& state, const Dialect& dialect) {
    const auto queries = Corpus(dialect.name);
    std::vector<Stages> stages(queries.size());
    while (state.KeepRunning()) {
        for (std::size_t i = 0; i < queries.size(); ++i) stages[i].Run(dialect, queries[i].text);
    }
    double characters = 0;
    for (const Query& query : queries) characters += static_cast<double>(query.text.size());
    Report(state, stages, characters);
}

void Whole(const Dialect& dialect, const std::u16string& seen) {
    std::u16string text;
    text.assign(seen);
    Road road(dialect, text);
    road.Open();
    benchmark::DoNotOptimize(road.Parse());
}

void Large(State& state, const Dialect& dialect) {
    const std::u16string text = LargeText();
    std::vector<Stages> stages(1);
    Whole(dialect, text);
    while (state.KeepRunning()) stages[0].Run(dialect, text);
    Report(state, stages, static_cast<double>(text.size()));
}

void OneQuery(State& state, const Dialect& dialect, const Query& query) {
    while (state.KeepRunning()) Whole(dialect, query.text);
}

#ifdef QZ_WITH_PG_QUERY
bool PgQueryAccepts(const std::string& text) {
    const PgQueryParseResult result = pg_query_parse(text.c_str());
    const bool accepts = result.error == nullptr;
    pg_query_free_parse_result(result);
    return accepts;
}

void PgQuery(State& state, const Query& query) {
    while (state.KeepRunning()) {
        std::string text;
        text.assign(query.utf8);
        const PgQueryParseResult result = pg_query_parse(text.c_str());
        benchmark::DoNotOptimize(result.parse_tree);
        pg_query_free_parse_result(result);
    }
}
#endif

// What a query's recognizers hold when the tree is there, nothing being kept from before.
void Memory(State& state, const Dialect& dialect, const std::u16string& text) {
    std::size_t bytes = 0;
    std::size_t tokens = 0;
    while (state.KeepRunning()) {
        QZReleaseMemory();
        malloc_trim(0);
        const auto before = mallinfo2();
        Road road(dialect, text);
        road.Open();
        tokens = road.Lex();
        road.Parse();
        const auto after = mallinfo2();
        bytes = after.uordblks + after.hblkhd - before.uordblks - before.hblkhd;
    }
    state.counters["bytes"] = static_cast<double>(bytes);
    state.counters["bytes_a_token"] = static_cast<double>(bytes) / static_cast<double>(tokens);
}

// The model of MS Access: the parse alone, the build with its own parse and walks, and the resolution. Least times, as
// above.
void Model(State& state) {
    const auto queries = Corpus("access");
    const QZReporter reporter{[](void*, const QZReport&) {}, nullptr};
    std::vector<Clock::duration> parses(queries.size(), Clock::duration::max());
    std::vector<Clock::duration> builds(queries.size(), Clock::duration::max());
    std::vector<Clock::duration> resolutions(queries.size(), Clock::duration::max());
    while (state.KeepRunning()) {
        for (std::size_t i = 0; i < queries.size(); ++i) {
            concrete::Database database;
            CQZQueryInfo model;
            model.SetDatabase(&database);
            model.SetSQL(CString(queries[i].text));
            const std::u16string text(QZBuildText(model, kDbMSAccess).View());
            const auto parse = Clock::now();
            Whole(kDialects[0], text);
            const auto begin = Clock::now();
            QZBuildQuery(&model, kDbMSAccess, &reporter);
            const auto built = Clock::now();
            model.ResolveAllItems();
            parses[i] = std::min(parses[i], begin - parse);
            builds[i] = std::min(builds[i], built - begin);
            resolutions[i] = std::min(resolutions[i], Clock::now() - built);
        }
    }
    const auto mean = [](const std::vector<Clock::duration>& times) {
        return Microseconds(std::accumulate(times.begin(), times.end(), Clock::duration{})) /
               static_cast<double>(times.size());
    };
    state.counters["parse_us"] = mean(parses);
    state.counters["build_us"] = mean(builds);
    state.counters["resolution_us"] = mean(resolutions);
}

void Growth(State& state, const Dialect& dialect, const Shape& shape) {
    const std::u16string text = Widened(shape.make(state.range(0)));
    Whole(dialect, text);  // from here on the thread keeps the memory
    while (state.KeepRunning()) Whole(dialect, text);
    state.counters["characters"] = static_cast<double>(text.size());
}

bool IsClean(const Dialect& dialect, const std::u16string& text) {
    Road road(dialect, text);
    road.Open();
    road.Parse();
    return road.IsClean();
}

// One benchmark for each query that is clean, and for libpg_query right behind it where it accepts the text too.
void RegisterQueries(const Dialect& dialect) {
    auto queries = Corpus(dialect.name);
    queries.push_back(CommonQuery());
    for (const Query& query : queries) {
        if (!IsClean(dialect, query.text)) continue;
        const std::string name = std::string(dialect.name) + "/" + query.name;
        benchmark::RegisterBenchmark(("Query/" + name).c_str(),
                                     [&dialect, query](State& state) { OneQuery(state, dialect, query); })
            ->MinTime(0.02)
            ->Repetitions(3)
            ->Unit(benchmark::kMicrosecond);
#ifdef QZ_WITH_PG_QUERY
        if (!PgQueryAccepts(query.utf8)) continue;
        benchmark::RegisterBenchmark(("PgQuery/" + name).c_str(), [query](State& state) { PgQuery(state, query); })
            ->MinTime(0.02)
            ->Repetitions(3)
            ->Unit(benchmark::kMicrosecond);
#endif
    }
}

void RegisterGrowth(const Dialect& dialect) {
    for (const Shape& shape : Shapes()) {
        auto* growth =
            benchmark::RegisterBenchmark(("Growth/" + std::string(dialect.name) + "/" + shape.name).c_str(),
                                         [&dialect, &shape](State& state) { Growth(state, dialect, shape); });
        for (std::int64_t size = shape.largest; size > shape.largest / 64 && size > 1; size /= 2) growth->Arg(size);
        growth->MinTime(0.05)->Unit(benchmark::kMillisecond);
    }
}

void RegisterAll() {
    for (const Dialect& dialect : kDialects) {
        const std::string name = dialect.name;
        benchmark::RegisterBenchmark(("Corpus/" + name).c_str(), [&](State& state) {
            Corpora(state, dialect);
        })->Unit(benchmark::kMicrosecond);
        benchmark::RegisterBenchmark(("Large/" + name).c_str(), [&](State& state) {
            Large(state, dialect);
        })->Unit(benchmark::kMillisecond);
        benchmark::RegisterBenchmark(("Memory/query/" + name).c_str(), [&](State& state) {
            Memory(state, dialect, CommonQuery().text);
        })->Iterations(3);
        benchmark::RegisterBenchmark(("Memory/large/" + name).c_str(), [&](State& state) {
            Memory(state, dialect, LargeText());
        })->Iterations(3);
        RegisterQueries(dialect);
        RegisterGrowth(dialect);
    }
    benchmark::RegisterBenchmark("Model/access", Model)->Unit(benchmark::kMicrosecond);
}

}  // namespace

// The common stack of a program is used; deep texts fit on it.
int main(int count, char** arguments) {
    if (count == 2 && arguments[1] == std::string_view("--common-query")) {
        std::cout << CommonQuery().utf8;
        return 0;
    }
    QZSetErrorSink([](void*, std::string_view) {}, nullptr);
    QZSetConsoleSink([](void*, std::string_view) {}, nullptr);
    benchmark::Initialize(&count, arguments);
    if (benchmark::ReportUnrecognizedArguments(count, arguments)) return 2;
    RegisterAll();
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
