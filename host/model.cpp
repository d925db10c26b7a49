#include "host/model.h"

#include <fmt/format.h>

#include <new>
#include <stdexcept>

#include "host/catalog_models.h"
#include "host/static_walkers.h"

namespace qzsql {

namespace {

class EmptyDatabase final : public CQZDatabaseInfo {
 public:
    EmptyDatabase() = default;
    EmptyDatabase(const EmptyDatabase& other, int bSelectedOnly) : CQZDatabaseInfo(other, bSelectedOnly) {}
    EmptyDatabase* Clone(int bSelectedOnly) const override { return new EmptyDatabase(*this, bSelectedOnly); }
};

struct Noted {
    bool isNestedTooDeep = false;
    bool isOutOfMemory = false;
};

// The other reports are those of a recognition of the text that was read.
void Note(void* to, const QZReport& report) {
    auto& noted = *static_cast<Noted*>(to);
    noted.isNestedTooDeep |= report.kind == QZReportKind::NestedTooDeep;
    noted.isOutOfMemory |= report.kind == QZReportKind::OutOfMemory;
}

}  // namespace

bool HasModels(const Dialect& dialect) {
    return dialect.kind == kDbMSAccess || FindStaticWalker(dialect.kind) != nullptr;
}

std::string NoModels(const Dialect& dialect) { return fmt::format("no models are made of {} queries", dialect.name); }

BuildOutcome BuildModel(CQZQueryInfo& query, const Dialect& dialect) {
    Noted noted;
    const QZReporter reporter{Note, &noted};
    const bool isWhole = dialect.kind == kDbMSAccess ? QZBuildQuery(&query, dialect.kind, &reporter)
                                                     : FindStaticWalker(dialect.kind)(query, &reporter);
    if (noted.isOutOfMemory) throw std::bad_alloc();
    return {isWhole, noted.isNestedTooDeep};
}

QueryModel::QueryModel(const Dialect& dialect, std::u16string_view text, const ModelContext& context)
    : dialect_(dialect), catalog_(context.catalog), query_(dialect.kind) {
    if (!HasModels(dialect)) throw std::runtime_error(NoModels(dialect));
    if (catalog_ == nullptr) database_ = std::make_unique<EmptyDatabase>();
    CQZDatabaseInfo& database = catalog_ == nullptr ? *database_ : catalog_->Database();
    database.m_mapUserFunctions.RemoveAll();  // those of other queries
    query_.SetSQL(text);
    query_.SetDatabase(&database);
    readText_ = QZBuildText(query_, dialect.kind);
    outcome_ = BuildModel(query_, dialect);
    if (context.resolves) Resolve();
}

void QueryModel::Resolve() {
    if (catalog_ != nullptr && !catalog_->Database().m_listQueries.IsEmpty()) {
        database_ = catalog_->Copy();
        query_.SetDatabase(database_.get());
        query_.PropagateDatabase();
    }
    query_.ResolveAllItems();
}

Model QueryModel::Shown() const {
    return {dialect_.grammar(), query_, outcome_.isWhole, catalog_ == nullptr ? nullptr : &catalog_->Labels()};
}

}  // namespace qzsql
