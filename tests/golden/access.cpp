#include <memory>

#include "QZParserSQL/MSAccess_v3/CQZMSAccessSQL_v3Parcer.h"
#include "tests/golden/Dialect.h"

namespace {

void Parse(CString& text, const std::function<void(CQZSQLTree&)>& use) {
    CQZMSAccessSQL_v3Parcer parser;
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
            "HAVING_KEYWORD", "COMPUTE_KEYWORD", "FOR_KEYWORD", "OPTION_KEYWORD", "UNION_KEYWORD", "WITH_KEYWORD",
            // AS of a source and of CAST; that of a select item is kept
            "LITERAL_AS",
            // separators and parentheses, where the tree tells the same
            "COMMA", "DOT", "EXCLAMATION_MARK", "LEFT_PAREN", "RIGHT_PAREN", "LEFT_BRACE"};
}

std::vector<std::string> InnerKinds() {
    return {// made by the grammar
            "ALIAS", "AS", "ASTERISK_", "BY", "COLUMN_NAME", "COLUMN_SPECIFICATION", "COMPUTE", "DATATYPE", "DATE",
            "FOR", "FROM_DEF_", "FUNCTION", "FUNC_PARAM", "GROUP_BY", "HAVING", "JOIN_DEF", "JOIN_POSTFIX",
            "JOIN_PREFIX", "JOIN_TYPE", "NEW_NAME", "NUMBER_LITERAL", "OPTION", "ORDER_BY", "PREDICATE", "QUERY_NAME",
            "SEARCH_CONDITION", "SELECT_LIST", "SELECT_QUERY", "SQL_LITERAL", "SQL_STRING", "STYLE", "TABLE_HINT",
            "TABLE_NAME", "TABLE_SPECIFICATION", "UNION", "USER_FUNCTION", "WHERE_CONDITION",
            // words and parentheses of the text
            "TOP_KEYWORD", "LITERAL_AS", "JOIN_KEYWORD", "ON_KEYWORD", "LEFT_PAREN",
            // logical operators and comparisons
            "AND_KEYWORD", "AND_KEYWORD2", "OR_KEYWORD", "OR_KEYWORD2", "NOT_KEYWORD", "BETWEEN_KEYWORD", "EQ", "GE",
            "GOJ", "GT", "IN_KEYWORD", "IS_KEYWORD", "LE", "LIKE_KEYWORD", "LOJ", "L_T", "NOT_EQ",
            // arithmetic
            "PLUS", "MINUS", "ASTERISK", "DIVIDE", "MOD1", "MOD", "MOD_KEYWORD", "AMPERSAND"};
}

std::vector<std::string> KindsNeverMade() {
    return {// no rule calls the rule that would make it
            "AND", "DATE_PART", "FUNCTION_NAME",
            // no rule makes it
            "CONVERT_FUNCTION", "DATE_FUNCTION", "DB_NAME", "FUNCTION_SPECIFICATION", "GROUP_FUNCTION", "IN_",
            "JOIN_CONDITION", "LIMIT", "LITERALAS", "NESTED_JOIN", "NESTED_JOIN_POSTFIX", "NESTED_JOIN_PREFIX",
            "NESTED_JOIN_SERCH", "NUMBER_literal", "PARAMETER", "PROCEDURE", "PROCNAME"};
}

}  // namespace

const Dialect& AccessDialect() {
    static const Dialect dialect{"access",     QZGrammarMSAccessSQL_v3(), Parse, DroppedTokens(), {"EXPAND", "BYNATY"},
                                 InnerKinds(), KindsNeverMade()};
    return dialect;
}
