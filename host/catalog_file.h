// Catalogs in their stores:
//
//     const auto database = LoadCatalog("shop.qzc");
//     for (const CatalogQuery* query : database->Queries()) Build(query->Text(), query->DialectName());
//     CatalogEdit edit("shop.qzc");
//     edit.Database().FindTable(u"Orders")->SetCopyData(0);
//     edit.Save();
#pragma once

#include <memory>
#include <string>

#include "host/catalog_factory.h"
#include "host/catalog_objects.h"
#include "host/settings_store.h"

namespace qzsql {

/// Makes a new store with an empty catalog. Throws StoreError, also where there is a file already.
void CreateCatalog(const std::string& path, const DatabaseKind& kind);

/// Throws StoreError where the store can't be read.
std::unique_ptr<CatalogDatabase> LoadCatalog(const std::string& path);

/// A catalog that nobody else can change until this ends. What is not saved changes nothing.
class CatalogEdit {
 public:
    /// Loads; throws StoreError.
    explicit CatalogEdit(const std::string& path);
    ~CatalogEdit();
    CatalogEdit(const CatalogEdit&) = delete;
    CatalogEdit& operator=(const CatalogEdit&) = delete;

    CatalogDatabase& Database() { return *database_; }
    /// Replaces what the store holds by the whole catalog, or throws StoreError and leaves the store as it was. The
    /// last thing to be done.
    void Save();

 private:
    SettingsStore store_;
    std::unique_ptr<QZOpenSection> root_;
    std::unique_ptr<CatalogDatabase> database_;
};

}  // namespace qzsql
