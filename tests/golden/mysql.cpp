#include <memory>

#include "QZParserSQL/Grammar/CQZMySQLParcer.h"
#include "tests/golden/Dialect.h"

namespace {

void Parse(CString& text, const std::function<void(CQZSQLTree&)>& use) {
    CQZMySQLParcer parser;
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
            "HAVING_KEYWORD", "LIMIT_KEYWORD", "COMPUTE_KEYWORD", "FOR_KEYWORD", "OPTION_KEYWORD", "UNION_KEYWORD",
            "WITH_KEYWORD", "LITERAL_AS",
            // separators, parentheses and marks, where the tree tells the same
            "COMMA", "DOT", "LEFT_PAREN", "RIGHT_PAREN", "LEFT_BRACE", "RIGHT_BRACE", "MY_ONE_QUOTE", "'''"};
}

std::vector<std::string> InnerKinds() {
    return {// made by the grammar
            "ALIAS", "AS", "ASTERISK_", "BY", "COLUMN_NAME", "COLUMN_SPECIFICATION", "COMPUTE", "DATATYPE", "DATE",
            "DATE_PART", "DB_NAME", "FOR", "FROM_DEF_", "FUNCTION_MY", "FUNC_PARAM", "GROUP_BY", "HAVING", "JOIN_DEF",
            "JOIN_POSTFIX", "JOIN_PREFIX", "LIMIT", "NEW_NAME", "NUMBER_LITERAL", "OPTION", "ORDER_BY", "PREDICATE",
            "SEARCH_CONDITION", "SELECT_LIST", "SELECT_QUERY_MY", "SQL_LITERAL", "SQL_STRING", "STYLE", "TABLE_NAME",
            "TABLE_SPECIFICATION", "UNION", "USER_FUNCTION", "WHERE_CONDITION",
            // words of the text
            "TOP_KEYWORD", "JOIN_KEYWORD", "ON_KEYWORD",
            // logical operators and comparisons
            "AND_KEYWORD", "AND_KEYWORD2", "OR_KEYWORD", "OR_KEYWORD2", "BETWEEN_KEYWORD", "NOT", "NOT_IN_KEYWORD",
            "EQ", "GE", "GOJ", "GT", "IN_KEYWORD", "IS_KEYWORD", "LE", "LIKE_KEYWORD", "LOJ", "L_T", "NOT_EQ",
            // arithmetic
            "PLUS", "MINUS", "ASTERISK", "DIVIDE", "MOD1", "AMPERSAND"};
}

std::vector<std::string> KindsNeverMade() {
    return {// no rule calls the rule that would make it
            "AND", "FUNCTION_NAME", "TABLE_HINT",
            // no rule makes it
            "CONVERT_FUNCTION", "DATE_FUNCTION", "FUNCTION_SPECIFICATION", "GROUP_FUNCTION", "IN_", "JOIN_CONDITION",
            "LITERALAS", "NESTED_JOIN", "NESTED_JOIN_POSTFIX", "NESTED_JOIN_PREFIX", "NESTED_JOIN_SERCH",
            "NUMBER_literal", "PARAMETER", "PROCEDURE", "PROCNAME", "SELECT_QUERY_IN"};
}

}  // namespace

const Dialect& MySQLDialect() {
    static const Dialect dialect{
        "mysql",      QZGrammarMySQLSelect(), Parse, DroppedTokens(), {"NOT", "Not", "not", "EXPAND", "BYNATY"},
        InnerKinds(), KindsNeverMade()};
    return dialect;
}
