#include <memory>

#include "QZParserSQL/CQZMSSQLParser.h"
#include "tests/golden/Dialect.h"

namespace {

void Parse(CString& text, const std::function<void(CQZSQLTree&)>& use) {
    CQZMSSQLParser parser;
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
            "HAVING_KEYWORD", "FOR_KEYWORD", "UNION_KEYWORD_",
            // AS of a select item; that of a source and of CAST is kept
            "LITERAL_AS",
            // WITH of a table hint
            "'WITH'",
            // separators, parentheses and quotes
            "COMMA", "DOT", "LEFT_PAREN", "RIGHT_PAREN", "LEFT_BRACE", "RIGHT_BRACE", "LEFT_COL_PAREN",
            "RIGHT_COL_PAREN", "MY_QUOTE", "MY_ONE_QUOTE", "'''", "NSTR",
            // the name of a user function
            "IDENTIFICATOR LEFT_PAREN"};
}

std::vector<std::string> InnerKinds() {
    return {// made by the grammar
            "ALIAS", "ASTERISK_", "BY", "COLUMN_NAME", "COLUMN_SPECIFICATION", "COMPUTE", "DATATYPE", "DATE",
            "DATE_PART", "DB_NAME", "FOR", "FROM_DEF_", "FUNCTION", "FUNC_PARAM", "GROUP_BY", "HAVING", "JOIN_DEF",
            "JOIN_POSTFIX", "JOIN_PREFIX", "NEW_NAME", "NUMBER_LITERAL", "OPTION", "ORDER_BY", "PREDICATE",
            "SEARCH_CONDITION", "SELECT_LIST", "SELECT_QUERY_", "SQL_LITERAL", "SQL_STRING", "STYLE", "TABLE_HINT",
            "TABLE_NAME", "TABLE_SPECIFICATION", "UNION", "USER_FUNCTION", "WHERE_CONDITION",
            // words and signs of the text
            "TOP_KEYWORD", "LITERAL_AS", "JOIN_KEYWORD", "ON_KEYWORD", "COMMA", "'fn'",
            // logical operators and comparisons
            "AND_KEYWORD", "AND_KEYWORD2", "OR_KEYWORD", "OR_KEYWORD2", "NOT_KEYWORD", "BETWEEN_KEYWORD", "EQ", "GE",
            "GOJ", "GT", "IN_KEYWORD", "IS_KEYWORD", "LE", "LIKE_KEYWORD", "LOJ", "L_T", "NOT_EQ",
            // arithmetic
            "PLUS", "MINUS", "ASTERISK", "DIVIDE", "MOD", "AMPERSAND", "VERTBAR"};
}

std::vector<std::string> KindsNeverMade() {
    return {// no rule calls the rule that would make it
            "AND", "COMMA_KEYWORD", "FUNCTION_NAME",
            // no rule makes it
            "PROCEDURE", "PROCNAME", "PARAMETER", "SELECT_QUERY_IN", "FUNCTION_SPECIFICATION", "JOIN_CONDITION",
            "NESTED_JOIN", "GROUP_FUNCTION", "NUMBER_literal", "LITERALAS", "CONVERT_FUNCTION", "DATE_FUNCTION", "AS",
            "ISNOT", "IN_", "UNION_", "NESTED_JOIN_PREFIX", "NESTED_JOIN_POSTFIX", "NESTED_JOIN_SERCH"};
}

}  // namespace

const Dialect& MSSQLDialect() {
    static const Dialect dialect{"mssql",      QZGrammarMSSQL(), Parse, DroppedTokens(), {"SET", "EXPAND", "BYNATY"},
                                 InnerKinds(), KindsNeverMade()};
    return dialect;
}
