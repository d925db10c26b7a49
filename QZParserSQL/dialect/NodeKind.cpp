#include "QZParserSQL/dialect/NodeKind.h"

#include <algorithm>
#include <iterator>

#include "QZParserSQL/dialect/QZRecognizers.h"

namespace {

// In the order of NodeKind, which is the alphabet's; None is left out.
constexpr std::string_view kNames[] = {
    "ALIAS",
    "ALL_KEYWORD",
    "AMPERSAND",
    "AND",
    "AND_KEYWORD",
    "AND_KEYWORD2",
    "AS",
    "ASC_KEYWORD",
    "ASTERISK",
    "ASTERISK_",
    "BETWEEN_KEYWORD",
    "COLUMN_NAME",
    "COLUMN_SPECIFICATION",
    "COMMA",
    "CONVERT_FUNCTION",
    "CROSS_KEYWORD",
    "DATATYPE",
    "DATE",
    "DATE_PART",
    "DB_NAME",
    "DESC_KEYWORD",
    "DISTINCTROW_KEYWORD",
    "DISTINCT_KEYWORD",
    "DIVIDE",
    "EQ",
    "FROM_DEF_",
    "FROM_KEYWORD",
    "FUNCTION",
    "FUNC_PARAM",
    "GE",
    "GOJ",
    "GROUP_BY",
    "GROUP_FUNCTION",
    "GT",
    "HAVING",
    "IDENTIFICATOR",
    "INNER_KEYWORD",
    "IN_KEYWORD",
    "IS_KEYWORD",
    "JOIN_DEF",
    "JOIN_KEYWORD",
    "JOIN_POSTFIX",
    "JOIN_PREFIX",
    "JOIN_TYPE",
    "LE",
    "LEFT_KEYWORD",
    "LEFT_PAREN",
    "LIKE_KEYWORD",
    "LITERAL_AS",
    "LOJ",
    "L_T",
    "MINUS",
    "NESTED_JOIN",
    "NEW_NAME",
    "NOT_CONDITION",
    "NOT_EQ",
    "NOT_IN_KEYWORD",
    "NOT_KEYWORD",
    "NUMBER_LITERAL",
    "ON_KEYWORD",
    "ORDER_BY",
    "OR_KEYWORD",
    "OR_KEYWORD2",
    "OUTER_KEYWORD",
    "PLUS",
    "PREDICATE",
    "QUERY_NAME",
    "RIGHT_KEYWORD",
    "RIGHT_PAREN",
    "SEARCH_CONDITION",
    "SELECT_LIST",
    "SELECT_QUERY",
    "SQL_LITERAL",
    "SQL_STRING",
    "STYLE",
    "TABLE_NAME",
    "TABLE_SPECIFICATION",
    "TOP_KEYWORD",
    "UNION",
    "UNION_KEYWORD",
    "USER_FUNCTION",
    "WHERE_CONDITION",
};
static_assert(std::size(kNames) + 1 == static_cast<std::size_t>(NodeKind::Count));

NodeKind KindNamed(std::string_view name) {
    const auto* found = std::lower_bound(std::begin(kNames), std::end(kNames), name);
    if (found == std::end(kNames) || *found != name) return NodeKind::None;
    return static_cast<NodeKind>(found - std::begin(kNames) + 1);
}

}  // namespace

NodeKindSet SetOf(std::initializer_list<NodeKind> kinds) {
    NodeKindSet set;
    for (const NodeKind kind : kinds) set.set(static_cast<std::size_t>(kind));
    return set;
}

bool Has(const NodeKindSet& set, NodeKind kind) { return set.test(static_cast<std::size_t>(kind)); }

NodeKinds::NodeKinds(const QZGrammar& grammar, std::initializer_list<OwnName> own) {
    const std::uint32_t count = QZTokenTypeCount(grammar);
    m_Kinds.reserve(count);
    for (std::uint32_t type = 0; type < count; ++type) {
        const char* name = QZTokenName(grammar, type);
        const std::string_view token = name == nullptr ? "" : name;
        const auto* renamed =
            std::find_if(own.begin(), own.end(), [token](const OwnName& row) { return row.token == token; });
        m_Kinds.push_back(renamed == own.end() ? KindNamed(token) : renamed->kind);
    }
}
