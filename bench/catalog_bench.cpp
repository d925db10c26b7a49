// Saving, loading and checking whole catalogs of 20 fields a table.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <filesystem>
#include <string>

#include "host/catalog_file.h"

namespace {

void Fill(qzsql::CatalogDatabase& database, std::int64_t tables) {
    for (std::int64_t number = 1; number <= tables; ++number) {
        auto& table = database.AddTable(u"Table" + CString::FromInt(number));
        for (int field = 1; field <= 20; ++field) {
            auto& added = table.AddField(u"Field" + CString::FromInt(field));
            added.SetType(u"VARCHAR");
            added.SetLength(field);
        }
        auto& primary = table.AddIndex(u"PRIMARY");
        primary.columns = {{u"Field1", {}}};
        primary.Primary = primary.Unique = 1;
        auto& key = table.AddForeignKey(u"Parent");
        key.ReferencedTable = u"Table" + CString::FromInt((number + 1) / 2);
        key.columns = {{u"Field2", u"Field1"}};
    }
    database.Connect();
}

/// A store of a catalog, gone at the end.
class Store {
 public:
    explicit Store(std::int64_t tables) : path_((std::filesystem::temp_directory_path() / "qz_bench.qzc").string()) {
        std::filesystem::remove(path_);
        qzsql::CreateCatalog(path_, qzsql::DefaultKind());
        qzsql::CatalogEdit edit(path_);
        Fill(edit.Database(), tables);
        edit.Save();
    }
    ~Store() { std::filesystem::remove(path_); }
    Store(const Store&) = delete;
    Store& operator=(const Store&) = delete;

    const std::string& Path() const { return path_; }

 private:
    std::string path_;
};

void SaveCatalog(benchmark::State& state) {
    const Store store(state.range(0));
    for ([[maybe_unused]] auto _ : state) {
        state.PauseTiming();
        qzsql::CatalogEdit edit(store.Path());
        state.ResumeTiming();
        edit.Save();
    }
    state.counters["MB"] = static_cast<double>(std::filesystem::file_size(store.Path())) / 1e6;
    state.SetComplexityN(state.range(0));
}

void LoadCatalog(benchmark::State& state) {
    const Store store(state.range(0));
    for ([[maybe_unused]] auto _ : state) benchmark::DoNotOptimize(qzsql::LoadCatalog(store.Path()));
    state.SetComplexityN(state.range(0));
}

void CheckCatalog(benchmark::State& state) {
    const Store store(state.range(0));
    const auto database = qzsql::LoadCatalog(store.Path());
    for ([[maybe_unused]] auto _ : state) {
        database->CheckReferences();
        for (auto* table : database->Tables()) benchmark::DoNotOptimize(table->CheckChildren(0));
    }
    state.SetComplexityN(state.range(0));
}

BENCHMARK(SaveCatalog)
    ->Arg(1'000)
    ->Arg(10'000)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1)
    ->Complexity(benchmark::oN);
BENCHMARK(LoadCatalog)
    ->Arg(1'000)
    ->Arg(10'000)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1)
    ->Complexity(benchmark::oN);
BENCHMARK(CheckCatalog)->Arg(1'000)->Arg(10'000)->Unit(benchmark::kMillisecond)->Complexity(benchmark::oN);

}  // namespace
