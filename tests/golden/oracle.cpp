#include <memory>

#include "QZParserSQL/Oracle/CQZOracleParser.h"
#include "tests/golden/Dialect.h"

namespace {

void Parse(CString& text, const std::function<void(CQZSQLTree&)>& use) {
    CQZOracleParser parser;
    parser.SetSQL(text);
    parser.ParseSQL();
    CQZSQLTree* view = nullptr;
    parser.GetSQLTree(&view);
    const std::unique_ptr<CQZSQLTree> owner(view);
    use(*view);
}

std::vector<std::string> DroppedTokens() {
    return {// the words that begin a clause or part of one
            "SELECT_KEYWORD", "FROM_KEYWORD", "WHERE_KEYWORD", "GROUP_KEYWORD", "ORDER_KEYWORD", "BY_KEYWORD",
            "HAVING_KEYWORD", "COMPUTE_KEYWORD", "FOR_KEYWORD", "OPTION_KEYWORD", "UNION_KEYWORD_", "PARTITION_KEYWORD",
            // AS but for that of CAST, NOT before a condition, the qualifier of a function
            "LITERAL_AS", "NOT_KEYWORD", "IDENTIFICATOR",
            // separators and parentheses, where the tree tells the same
            "COMMA", "DOT", "LEFT_PAREN", "RIGHT_PAREN", "LEFT_BRACE",
            // what may stand around an alias
            "'''", "RIGHT_COL_PAREN"};
}

std::vector<std::string> InnerKinds() {
    return {// made by the grammar
            "ALIAS", "ASTERISK_", "BY", "COLUMN_NAME", "COLUMN_SPECIFICATION", "COMPUTE", "DATATYPE", "DATE_PART",
            "DB_NAME", "FOR", "FROM_DEF_", "FUNCTION", "FUNC_PARAM", "GROUP_BY", "HAVING", "JOIN_DEF", "JOIN_POSTFIX",
            "JOIN_PREFIX", "NEW_NAME", "NOT_CONDITION", "NUMBER_LITERAL", "OPTION", "ORDER_BY", "PARTITION_BY",
            "PREDICATE", "SEARCH_CONDITION", "SELECT_LIST", "SELECT_QUERY_OR", "SQL_LITERAL", "SQL_STRING", "STYLE",
            "TABLE_NAME", "TABLE_SPECIFICATION", "UNION", "USER_FUNCTION", "WHERE_CONDITION", "WHERE_JOIN",
            // words and signs of the text
            "TOP_KEYWORD", "JOIN_KEYWORD", "ON_KEYWORD", "FROM_KEYWORD", "LITERAL_AS", "COMMA",
            // logical operators and comparisons
            "AND_KEYWORD", "AND_KEYWORD2", "OR_KEYWORD", "OR_KEYWORD2", "NOT_KEYWORD", "BETWEEN_KEYWORD", "EQ", "GE",
            "GOJ", "GT", "IN_KEYWORD", "IS_KEYWORD", "LE", "LIKE_KEYWORD", "LOJ", "L_T", "NOT_EQ",
            // arithmetic
            "PLUS", "MINUS", "ASTERISK", "DIVIDE", "MOD", "AMPERSAND"};
}

std::vector<std::string> KindsNeverMade() {
    return {// no rule calls the rule that would make it, or no text fits it
            "AND", "COMMA_KEYWORD", "FUNCTION_NAME", "TABLE_HINT",
            // no rule makes it
            "AS", "CONVERT_FUNCTION", "DATE_FUNCTION", "FUNCTION_SPECIFICATION", "GROUP_FUNCTION", "IN_", "ISNOT",
            "JOIN_CONDITION", "LITERALAS", "NESTED_JOIN", "NESTED_JOIN_POSTFIX", "NESTED_JOIN_PREFIX",
            "NESTED_JOIN_SERCH", "NUMBER_literal", "PARAMETER", "PROCEDURE", "PROCNAME", "SELECT_QUERY_IN"};
}

}  // namespace

const Dialect& OracleDialect() {
    static const Dialect dialect{"oracle",     QZGrammarOracle(), Parse, DroppedTokens(), {"EXPAND", "BYNATY", "SET"},
                                 InnerKinds(), KindsNeverMade()};
    return dialect;
}
