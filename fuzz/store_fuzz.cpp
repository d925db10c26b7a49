// Any bytes as the file of a store, and any sections and keys as a catalog.
#include <fuzzer/FuzzedDataProvider.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

#include "host/catalog_check.h"
#include "host/catalog_factory.h"
#include "host/catalog_file.h"
#include "tests/support/MemoryStore.h"

namespace {

constexpr const char* kSections[] = {"Options", "Common",      "Tables", "Queries",     "Fields",
                                     "Indexes", "ForeignKeys", "Filter", "Condition",   "Value",
                                     "Table0",  "Table1",      "Query0", "Query1",      "Field0",
                                     "Field1",  "Index0",      "Index1", "ForeignKey0", "Condition0"};
constexpr const char* kKeys[] = {
    "Name",         "SrcName",       "Type",       "Selected", "LowerCase",  "Length",         "DataType",
    "State",        "Version",       "DBType",     "CopyData", "SQLQuery",   "UseSQLQuery",    "SyncInsert",
    "SyncDrop",     "CopyStructure", "Field",      "FieldID",  "Condition",  "IsNULL",         "Value",
    "ConditionAdd", "CaseState",     "SchemaName", "Quant",    "MaxThreads", "GarbageSymbols", "ModifyFields",
    "Text",         "Dialect",       "Referenced", "Collation"};

void Fill(MemorySection& section, FuzzedDataProvider& input, int depth) {
    while (input.remaining_bytes() > 0) {
        switch (input.ConsumeIntegralInRange(0, 3)) {
            case 0:
                section.numbers[input.PickValueInArray(kKeys)] = input.ConsumeIntegral<int>();
                break;
            case 1:
                section.texts[input.PickValueInArray(kKeys)] = CString::FromUtf8(input.ConsumeRandomLengthString(40));
                break;
            case 2:
                if (depth < 8) Fill(section[input.PickValueInArray(kSections)], input, depth + 1);
                break;
            default:
                return;
        }
    }
}

void LoadSections(FuzzedDataProvider& input) {
    MemoryStore store;
    Fill(store.root, input, 0);
    qzsql::CatalogFactory factory;
    qzsql::CatalogDatabase database(*qzsql::FindKind(input.PickValueInArray({1, 2, 8, 16})));
    database.Load(&store, &factory);
    qzsql::CheckCatalog(database);
    MemoryStore again;
    database.Save(&again);
}

void LoadFile(const std::string& bytes) {
    const std::string path = std::filesystem::temp_directory_path() / ("qzstore" + std::to_string(::getpid()));
    std::ofstream(path, std::ios::binary) << bytes;
    try {
        const auto database = qzsql::LoadCatalog(path);
        qzsql::CheckCatalog(*database);
    } catch (const qzsql::StoreError& error) {
        if (error.what()[0] == '\0') __builtin_trap();
    }
    std::remove(path.c_str());
    std::remove((path + "-journal").c_str());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedDataProvider input(data, size);
    if (input.ConsumeBool()) {
        LoadSections(input);
    } else {
        LoadFile(input.ConsumeRemainingBytesAsString());
    }
    return 0;
}
