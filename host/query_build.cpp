#include "host/query_build.h"

#include <string_view>

#include "QZParserSQL/platform/Console.h"
#include "host/model.h"

namespace qzsql {

namespace {

/// Keeps the library's lines out of the results.
class QuietConsole {
 public:
    QuietConsole() {
        QZSetConsoleSink([](void*, std::string_view) {}, nullptr);
    }
    ~QuietConsole() { QZSetConsoleSink(nullptr, nullptr); }
    QuietConsole(const QuietConsole&) = delete;
    QuietConsole& operator=(const QuietConsole&) = delete;
};

void BuildByLibrary(CatalogQuery& query) {
    const QuietConsole quiet;
    BuildModel(query, *FindDialect("access"));
}

void Unquote(const DatabaseKind& kind, CQZQueryInfo& query) {
    CMapStringToString sources;
    for (const auto& source : query.m_mapSources) {
        const CString name = UnquoteName(kind, source.key);
        sources.SetAt(name, name);
    }
    query.m_mapSources = sources;
    for (const auto& record : query.m_mapFields) {
        record.value->TableName = UnquoteName(kind, record.value->TableName);
        record.value->FieldName = UnquoteName(kind, record.value->FieldName);
    }
}

}  // namespace

void BuildForCheck(CatalogQuery& query, const std::vector<CString>& sources) {
    if (query.GetDBType() == kDbMSAccess) {
        BuildByLibrary(query);
    } else {
        for (const auto& name : sources) query.m_mapSources.SetAt(name, name);
    }
    std::vector<CQZQueryInfo*> waiting = {&query};
    while (!waiting.empty()) {
        auto* next = waiting.back();
        waiting.pop_back();
        Unquote(query.Dialect(), *next);
        for (auto* nested : next->m_listSubQueries) waiting.push_back(nested);
    }
    query.ResolveSourceGUIDs();
}

}  // namespace qzsql
