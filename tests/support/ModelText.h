// Queries built into models, and models as text.
#pragma once

#include <string>
#include <string_view>

#include "QZParserSQL/front/BuildQueryInfo.h"
#include "QZParserSQL/platform/Console.h"
#include "host/model_text.h"
#include "tests/catalog/Concrete.h"

/// The outline of a query's model.
inline std::string OutlineOf(const CQZQueryInfo& query, const QZGrammar& grammar = QZGrammarMSAccessSQL_v3()) {
    std::string outline;
    qzsql::AppendModelText(outline, {grammar, query});
    return outline;
}

/// A query with a database of its own.
struct BuiltQuery {
    BuiltQuery() { query.SetDatabase(&database); }
    explicit BuiltQuery(const CString& sql) : BuiltQuery() { Build(sql); }

    /// Returns whether the model is whole.
    bool Build(const CString& sql) {
        query.SetSQL(sql);
        return Build();
    }
    bool Build() {
        QZSetConsoleSink([](void*, std::string_view) {}, nullptr);
        const bool isWhole = QZBuildQuery(&query, kDbMSAccess, nullptr);
        QZSetConsoleSink(nullptr, nullptr);
        return isWhole;
    }
    std::string Outline() const { return OutlineOf(query); }

    concrete::Database database;
    CQZQueryInfo query;
};
