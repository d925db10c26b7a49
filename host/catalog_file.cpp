#include "host/catalog_file.h"

#include <fmt/format.h>

#include <utility>

namespace qzsql {

namespace {

constexpr const char16_t* kRoot = u"Catalog";
constexpr const char16_t* kKind = u"DBType";

/// From the open section.
std::unique_ptr<CatalogDatabase> Load(SettingsStore& store, const std::string& path) {
    const int number = store.ReadInt(kKind, DefaultKind().number);
    store.ThrowIfFailed();
    const auto* kind = FindKind(number);
    if (kind == nullptr) {
        throw StoreError(
            fmt::format("{}: a catalog of database kind {}, which this qzsql does not know", path, number));
    }
    auto database = std::make_unique<CatalogDatabase>(*kind);
    CatalogFactory factory;
    database->Load(&store, &factory);
    store.ThrowIfFailed();
    return database;
}

/// Into the open section, of which nothing stays.
void Save(SettingsStore& store, CatalogDatabase& database) {
    store.EmptySection();
    store.WriteInt(kKind, database.GetDBType());
    database.Save(&store);
}

}  // namespace

void CreateCatalog(const std::string& path, const DatabaseKind& kind) {
    SettingsStore::Create(path);
    CatalogDatabase database(kind);
    SettingsStore store(path, SettingsStore::Use::Write);
    {
        const QZOpenSection root(store, kRoot, 1);
        Save(store, database);
    }
    store.ThrowIfFailed();
}

std::unique_ptr<CatalogDatabase> LoadCatalog(const std::string& path) {
    SettingsStore store(path, SettingsStore::Use::Read);
    const QZOpenSection root(store, kRoot, 0);
    return Load(store, path);
}

CatalogEdit::CatalogEdit(const std::string& path) : store_(path, SettingsStore::Use::Write) {
    root_ = std::make_unique<QZOpenSection>(store_, kRoot, 1);
    database_ = Load(store_, path);
}

CatalogEdit::~CatalogEdit() {
    if (root_ != nullptr) store_.Discard();
}

void CatalogEdit::Save() {
    {
        const auto root = std::move(root_);
        qzsql::Save(store_, *database_);
    }
    store_.ThrowIfFailed();
}

}  // namespace qzsql
