// Queries of MS Access through the build of their models and their resolution. Each line of the input is a query; those
// behind the first are stored as q1, q2, ... beside two tables. Queries that read each other in a ring are taken out by
// their names, as every host must.
#include <string>
#include <vector>

#include "QZParserSQL/dialect/QZRecognizers.h"
#include "QZParserSQL/front/BuildQueryInfo.h"
#include "QZParserSQL/platform/Console.h"
#include "fuzz/FuzzInput.h"
#include "host/catalog_objects.h"
#include "host/database_kinds.h"
#include "host/query_sources.h"
#include "tests/catalog/Concrete.h"

namespace {

void FillTables(concrete::Database& database) {
    concrete::Table& t = database.AddTable(u"t");
    for (const char16_t* name : {u"a", u"b", u"x"}) t.AddField(name);
    concrete::Table& u = database.AddTable(u"u");
    for (const char16_t* name : {u"a", u"c"}) u.AddField(name);
}

/// The queries of the catalog that no ring can be reached from, the first one among them if it is such a one.
std::vector<CQZQueryInfo*> WithoutRings(const concrete::Database& database) {
    std::vector<CQZQueryInfo*> queries;
    for (CQZQueryInfo* query : database.m_listQueries) queries.push_back(query);
    qzsql::Readings readings;
    for (const CQZQueryInfo* query : queries) {
        readings.emplace_back();
        const CString text = CString(query->GetSQL()).MakeLower();
        for (std::size_t other = 0; other < queries.size(); ++other) {
            const CString name = CString(queries[other]->GetSrcName()).MakeLower();
            if (text.View().find(name.View()) != std::u16string_view::npos) readings.back().push_back(other);
        }
    }
    const qzsql::Rings rings = qzsql::FindRings(readings);
    std::vector<CQZQueryInfo*> free;
    for (std::size_t at = 0; at < queries.size(); ++at)
        if (!rings.leadsToRing[at]) free.push_back(queries[at]);
    return free;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t kMostQueries = 6;
    const QZReporter silent{[](void*, const QZReport&) {}, nullptr, nullptr};
    QZSetConsoleSink([](void*, std::string_view) {}, nullptr);
    concrete::Database database;
    FillTables(database);
    std::vector<std::string_view> texts = LinesOf(BytesOf(data, size));
    if (texts.size() > kMostQueries) texts.resize(kMostQueries);
    for (std::size_t number = 0; number < texts.size(); ++number) {
        concrete::Query& query = database.AddQuery(CString::FromUtf8("q" + std::to_string(number)));
        query.SetSQL(TextOf(texts[number]));
        QZBuildQuery(&query, kDbMSAccess, &silent);
    }
    for (CQZQueryInfo* query : WithoutRings(database)) {
        query->GetCorrect();
        query->ResolveAllItems();
    }
    return 0;
}
