// The node kinds that the walkers speak of. Token types are numbered by each grammar; a walker maps them onto these.
#pragma once

#include <bitset>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string_view>
#include <vector>

struct QZGrammar;

/// Named like the tokens of the grammars. Kinds that no walker asks for are None, like the nil root, an error node and
/// an empty view.
enum class NodeKind : std::uint8_t {
    None,
    ALIAS,
    ALL_KEYWORD,
    AMPERSAND,
    AND,
    AND_KEYWORD,
    AND_KEYWORD2,
    AS,
    ASC_KEYWORD,
    ASTERISK,
    ASTERISK_,
    BETWEEN_KEYWORD,
    COLUMN_NAME,
    COLUMN_SPECIFICATION,
    COMMA,
    CONVERT_FUNCTION,
    CROSS_KEYWORD,
    DATATYPE,
    DATE,
    DATE_PART,
    DB_NAME,
    DESC_KEYWORD,
    DISTINCTROW_KEYWORD,
    DISTINCT_KEYWORD,
    DIVIDE,
    EQ,
    FROM_DEF_,
    FROM_KEYWORD,
    FUNCTION,
    FUNC_PARAM,
    GE,
    GOJ,
    GROUP_BY,
    GROUP_FUNCTION,
    GT,
    HAVING,
    IDENTIFICATOR,
    INNER_KEYWORD,
    IN_KEYWORD,
    IS_KEYWORD,
    JOIN_DEF,
    JOIN_KEYWORD,
    JOIN_POSTFIX,
    JOIN_PREFIX,
    JOIN_TYPE,
    LE,
    LEFT_KEYWORD,
    LEFT_PAREN,
    LIKE_KEYWORD,
    LITERAL_AS,
    LOJ,
    L_T,
    MINUS,
    NESTED_JOIN,
    NEW_NAME,
    NOT_CONDITION,
    NOT_EQ,
    NOT_IN_KEYWORD,
    NOT_KEYWORD,
    NUMBER_LITERAL,
    ON_KEYWORD,
    ORDER_BY,
    OR_KEYWORD,
    OR_KEYWORD2,
    OUTER_KEYWORD,
    PLUS,
    PREDICATE,
    QUERY_NAME,
    RIGHT_KEYWORD,
    RIGHT_PAREN,
    SEARCH_CONDITION,
    SELECT_LIST,
    SELECT_QUERY,
    SQL_LITERAL,
    SQL_STRING,
    STYLE,
    TABLE_NAME,
    TABLE_SPECIFICATION,
    TOP_KEYWORD,
    UNION,
    UNION_KEYWORD,
    USER_FUNCTION,
    WHERE_CONDITION,
    Count
};

using NodeKindSet = std::bitset<static_cast<std::size_t>(NodeKind::Count)>;

NodeKindSet SetOf(std::initializer_list<NodeKind> kinds);
bool Has(const NodeKindSet& set, NodeKind kind);

/// From the token types of one grammar to node kinds: each token has the kind of its name, but for those that the
/// dialect names itself.
class NodeKinds {
 public:
    struct OwnName {
        std::string_view token;
        NodeKind kind;
    };

    NodeKinds(const QZGrammar& grammar, std::initializer_list<OwnName> own);

    NodeKind operator[](std::uint32_t tokenType) const {
        return tokenType < m_Kinds.size() ? m_Kinds[tokenType] : NodeKind::None;
    }

 private:
    std::vector<NodeKind> m_Kinds;  // by token type
};
