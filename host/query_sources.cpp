#include "host/query_sources.h"

#include <map>
#include <string_view>

#include "host/check.h"
#include "host/dialects.h"
#include "host/notation.h"
#include "host/recognition.h"
#include "host/tree.h"
#include "host/unicode.h"

namespace qzsql {

namespace {

/// From the first token below the node to the last, as the text has it: a grammar may drop blanks within a name.
CString TextBelow(std::u16string_view text, const QZNode* node) {
    const auto count = QZChildCount(node);
    if (count == 0) return {};
    const auto first = QZTokenOf(QZChildAt(node, 0));
    const auto last = QZTokenOf(QZChildAt(node, count - 1));
    const auto end = last.position.offset + last.text.size();
    return end > first.position.offset ? CString(text.substr(first.position.offset, end - first.position.offset))
                                       : CString();
}

/// The name in a TABLE_SPECIFICATION, what qualifies it left out.
void AddName(const CatalogQuery& query, const QZGrammar& grammar, const QZNode* node, std::vector<CString>& names) {
    for (std::uint32_t i = 0; i < QZChildCount(node); ++i) {
        const QZNode* part = QZChildAt(node, i);
        if (TypeName(grammar, part) != "TABLE_NAME") continue;
        const CString name = UnquoteName(query.Dialect(), TextBelow(query.Text(), part));
        if (!name.IsEmpty()) names.push_back(name);
    }
}

}  // namespace

QuerySources ReadSources(const CatalogQuery& query) {
    QuerySources sources;
    Recognition recognition(FindDialect(query.DialectName())->grammar(), query.Text().View());
    Walk(recognition.Tree(), [&](const QZNode* node, std::size_t) {
        if (TypeName(recognition.Grammar(), node) == "TABLE_SPECIFICATION") {
            AddName(query, recognition.Grammar(), node, sources.names);
        }
    });
    sources.isUnderstood = Judge(recognition).status == Status::Clean;
    return sources;
}

Readings FollowSources(const CatalogDatabase& database, const std::vector<std::vector<CString>>& sources) {
    const auto queries = database.Queries();
    std::map<const CatalogQuery*, std::size_t> numbers;
    for (std::size_t i = 0; i < queries.size(); ++i) numbers.emplace(queries[i], i);
    Readings readings(queries.size());
    for (std::size_t i = 0; i < queries.size(); ++i) {
        for (const auto& name : sources[i]) {
            const auto* read = database.FindTable(name) != nullptr ? nullptr : database.FindQuery(name);
            if (read != nullptr) readings[i].push_back(numbers.at(read));
        }
    }
    return readings;
}

std::string RingPath(const CatalogDatabase& database, const std::vector<std::size_t>& ring) {
    const auto queries = database.Queries();
    std::string path;
    for (const auto query : ring) path += ToUtf8(queries[query]->GetSrcName()) + " -> ";
    return path + ToUtf8(queries[ring.front()]->GetSrcName());
}

}  // namespace qzsql
