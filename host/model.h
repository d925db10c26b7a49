// Building the model of a query.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "QZParserSQL/catalog/CQZDatabaseInfo.h"
#include "host/dialects.h"
#include "host/model_walk.h"

namespace qzsql {

class CatalogModels;

/// Whether models are made of queries of this dialect.
bool HasModels(const Dialect& dialect);
/// What to say where they are not.
std::string NoModels(const Dialect& dialect);

struct BuildOutcome {
    bool isWhole = true;  // the library's bound has not cut the model
    bool isNestedTooDeep = false;
};

/// For a dialect that has models. Throws std::bad_alloc.
BuildOutcome BuildModel(CQZQueryInfo& query, const Dialect& dialect);

/// What the model of a query is made with.
struct ModelContext {
    CatalogModels* catalog = nullptr;  // null for an empty database
    bool resolves = false;             // whether the query's items get their names in the target
};

/// A query and its model. Made and used on one thread; of those made with one catalog, one at a time.
class QueryModel {
 public:
    /// Builds; throws std::runtime_error where models of this dialect are not made.
    QueryModel(const Dialect& dialect, std::u16string_view text, const ModelContext& context);
    QueryModel(const QueryModel&) = delete;
    QueryModel& operator=(const QueryModel&) = delete;

    /// What the build has read; reports tell places of it.
    const CString& ReadText() const { return readText_; }
    const BuildOutcome& Outcome() const { return outcome_; }
    /// For showing; lives as long as this.
    Model Shown() const;

 private:
    /// Tells the kind of database, which the resolution asks for.
    class KindQuery final : public CQZQueryInfo {
     public:
        explicit KindQuery(DBTypes kind) : kind_(kind) {}
        int GetDBType() const override { return kind_; }
        KindQuery* Clone(int /*bSelectedOnly*/) const override { return new KindQuery(*this); }

     private:
        DBTypes kind_;
    };

    void Resolve();

    const Dialect& dialect_;
    CatalogModels* catalog_;
    std::unique_ptr<CQZDatabaseInfo> database_;  // the query's own
    KindQuery query_;
    CString readText_;
    BuildOutcome outcome_;
};

/// What to say of a model that the library's bound has cut.
constexpr std::string_view kModelIsCut = "the model is cut: it would have more than two million objects";
/// And of one that WalkModel has cut.
constexpr std::string_view kShownModelIsCut =
    "what is shown of the model is cut at expressions of aliases, where \"Cut\" stands: copies share them";

}  // namespace qzsql
