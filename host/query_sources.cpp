#include "host/query_sources.h"

#include <string_view>

#include "host/check.h"
#include "host/dialects.h"
#include "host/notation.h"
#include "host/recognition.h"
#include "host/tree.h"

namespace qzsql {

namespace {

CString TextBelow(const QZGrammar& grammar, const QZNode* node) {
    CString text;
    for (std::uint32_t i = 0; i < QZChildCount(node); ++i) text += QZTextOf(grammar, QZChildAt(node, i));
    return text;
}

/// The name in a TABLE_SPECIFICATION, what qualifies it left out.
void AddName(const CatalogQuery& query, const QZGrammar& grammar, const QZNode* node, std::vector<CString>& names) {
    for (std::uint32_t i = 0; i < QZChildCount(node); ++i) {
        const QZNode* part = QZChildAt(node, i);
        if (TypeName(grammar, part) != "TABLE_NAME") continue;
        names.push_back(UnquoteName(query.Dialect(), TextBelow(grammar, part)));
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

}  // namespace qzsql
