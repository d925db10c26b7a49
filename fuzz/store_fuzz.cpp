// Any bytes as the file of a store, where they begin like one; and else any sections and keys as a catalog. These are
// written in lines: `[Name` opens a section, `]` closes it, `Key=12` is a number, `Key:text` a text; others are
// nothing.
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "fuzz/FuzzInput.h"
#include "host/catalog_check.h"
#include "host/catalog_factory.h"
#include "host/catalog_file.h"
#include "tests/support/MemoryStore.h"

namespace {

constexpr std::string_view kFileHead = "SQLite format 3";

void Fill(MemorySection& root, std::string_view bytes) {
    std::vector<MemorySection*> open = {&root};
    for (const std::string_view line : LinesOf(bytes)) {
        const auto sign = line.find_first_of("=:");
        if (!line.empty() && line[0] == '[') {
            open.push_back(&(*open.back())[std::string(line.substr(1))]);
        } else if (line == "]" && open.size() > 1) {
            open.pop_back();
        } else if (sign != std::string_view::npos) {
            const std::string key(line.substr(0, sign));
            const std::string value(line.substr(sign + 1));
            if (line[sign] == ':') open.back()->texts[key] = TextOf(value);
            if (line[sign] == '=')
                open.back()->numbers[key] = static_cast<int>(std::strtol(value.c_str(), nullptr, 10));
        }
    }
}

void LoadSections(std::string_view bytes) {
    MemoryStore store;
    Fill(store.root, bytes);
    qzsql::CatalogFactory factory;
    const auto* kind = qzsql::FindKind(store.root.numbers["DBType"]);
    qzsql::CatalogDatabase database(kind != nullptr ? *kind : qzsql::DefaultKind());
    database.Load(&store, &factory);
    qzsql::CheckCatalog(database);
    MemoryStore again;
    database.Save(&again);
}

void LoadFile(std::string_view bytes) {
    const std::string path = std::filesystem::temp_directory_path() / ("qzstore" + std::to_string(::getpid()));
    std::ofstream(path, std::ios::binary) << bytes;
    try {
        const auto database = qzsql::LoadCatalog(path);
        qzsql::CheckCatalog(*database);
        qzsql::CatalogEdit edit(path);
        edit.Save();
    } catch (const qzsql::StoreError& error) {
        if (error.what()[0] == '\0') std::abort();
    }
    std::filesystem::remove(path);
    std::filesystem::remove(path + "-journal");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes = BytesOf(data, size);
    if (bytes.substr(0, kFileHead.size()) == kFileHead) {
        LoadFile(bytes);
    } else {
        LoadSections(bytes);
    }
    return 0;
}
