// Catalogs whose stored queries have their models.
#pragma once

#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "host/catalog_objects.h"
#include "host/model_walk.h"

namespace qzsql {

/// A catalog with the models of its queries, and how its objects are shown. One thread at a time.
class CatalogModels {
 public:
    /// Loads the store and builds all its queries; throws StoreError.
    explicit CatalogModels(const std::string& store);

    CatalogDatabase& Database() { return *database_; }
    const ObjectLabels& Labels() const { return labels_; }
    /// What there is to say of the stored queries: rings, models that were cut or are not made.
    const std::vector<std::string>& Notes() const { return notes_; }

    /// A copy that a resolution may change, since it leaves traces in the queries that it goes through. This catalog
    /// must outlive it.
    std::unique_ptr<CatalogDatabase> Copy() const;

 private:
    void Build(CatalogQuery& query);
    void Label(std::u16string_view kind, const CQZObjectInfo& object);
    void TellRings();
    void Note(const CQZObjectInfo& query, std::string_view what);

    std::unique_ptr<CatalogDatabase> database_;
    ObjectLabels labels_;
    std::vector<std::string> notes_;
};

/// Catalogs of one store, one for each thread that asks at the same time. Safe for concurrent use.
class CatalogModelsPool {
 public:
    /// Makes the first one; throws StoreError.
    explicit CatalogModelsPool(std::string store);

    const std::vector<std::string>& Notes() const { return notes_; }

    /// A catalog for as long as the lease lives.
    class Lease {
     public:
        explicit Lease(CatalogModelsPool& pool) : pool_(pool), models_(pool.Take()) {}
        ~Lease() { pool_.GiveBack(std::move(models_)); }
        Lease(const Lease&) = delete;
        Lease& operator=(const Lease&) = delete;

        CatalogModels& operator*() const { return *models_; }

     private:
        CatalogModelsPool& pool_;
        std::unique_ptr<CatalogModels> models_;
    };

 private:
    std::unique_ptr<CatalogModels> Take();
    void GiveBack(std::unique_ptr<CatalogModels> models);

    const std::string store_;
    std::vector<std::string> notes_;
    std::mutex mutex_;
    std::vector<std::unique_ptr<CatalogModels>> idle_;
};

}  // namespace qzsql
