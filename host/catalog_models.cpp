#include "host/catalog_models.h"

#include <fmt/format.h>

#include <utility>

#include "host/catalog_file.h"
#include "host/model.h"
#include "host/query_rings.h"
#include "host/query_sources.h"
#include "host/unicode.h"

namespace qzsql {

// A build looks no further than at the fields of tables, so that the order of the queries has no say.
CatalogModels::CatalogModels(const std::string& store) : database_(LoadCatalog(store)) {
    for (auto* query : database_->Queries()) Build(*query);
    for (const auto* query : database_->Queries()) Label(u"query:", *query);
    for (const auto* table : database_->Tables()) Label(u"table:", *table);
    TellRings();
}

void CatalogModels::Build(CatalogQuery& query) {
    const auto& dialect = *FindDialect(query.DialectName());
    if (!HasModels(dialect)) return Note(query, NoModels(dialect));
    const auto outcome = BuildModel(query, dialect);
    if (!outcome.isWhole) Note(query, kModelIsCut);
    if (outcome.isNestedTooDeep) Note(query, "nested too deep");
}

void CatalogModels::Label(std::u16string_view kind, const CQZObjectInfo& object) {
    labels_[object.GetGUID()] = kind + object.GetSrcName();
}

void CatalogModels::TellRings() {
    std::vector<std::vector<CString>> sources;
    for (const auto* query : database_->Queries()) {
        auto& names = sources.emplace_back();
        for (const auto& source : query->m_mapSources) names.push_back(source.key);
    }
    for (const auto& ring : FindRings(FollowSources(*database_, sources)).rings) {
        Note(*database_->Queries()[ring.front()], "reads itself in a ring of queries: " + RingPath(*database_, ring));
    }
}

void CatalogModels::Note(const CQZObjectInfo& query, std::string_view what) {
    notes_.push_back(fmt::format("query {}: {}", ToUtf8(query.GetSrcName()), what));
}

std::unique_ptr<CatalogDatabase> CatalogModels::Copy() const {
    std::unique_ptr<CatalogDatabase> copy(database_->Clone(0));
    for (auto* query : copy->Queries()) query->PropagateDatabase();
    return copy;
}

CatalogModelsPool::CatalogModelsPool(std::string store) : store_(std::move(store)) {
    idle_.push_back(std::make_unique<CatalogModels>(store_));
    notes_ = idle_.front()->Notes();
}

std::unique_ptr<CatalogModels> CatalogModelsPool::Take() {
    {
        const std::lock_guard lock(mutex_);
        if (!idle_.empty()) {
            auto models = std::move(idle_.back());
            idle_.pop_back();
            return models;
        }
    }
    return std::make_unique<CatalogModels>(store_);
}

void CatalogModelsPool::GiveBack(std::unique_ptr<CatalogModels> models) {
    const std::lock_guard lock(mutex_);
    idle_.push_back(std::move(models));
}

}  // namespace qzsql
