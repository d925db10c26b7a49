#include "tests/golden/Dialect.h"

namespace {

std::vector<std::string> DroppedTokens() {
    return {"DOT_",     "AND_KEYWORD_", "LEFT_PAREN_", "RIGHT_PAREN_", "LEFT_COL_PAREN_", "RIGHT_COL_PAREN_",
            "MY_QUOTE", "'\\r'",        "'\\n'"};
}

std::vector<std::string> InnerKinds() {
    return {"ALIAS_", "AND", "COLUMN_NAME_", "COLUMN_SPECIFICATION_", "DB_NAME_", "FROM_DEF_", "JOIN_DEF_",
            "JOIN_POSTFIX_", "JOIN_PREFIX_", "NESTED_JOIN_", "NEW_NAME_", "NUMBER_LITERAL_", "SEARCH_CONDITION_",
            "TABLE_NAME_", "TABLE_SPECIFICATION_",
            // words and signs of the text
            "JOIN_KEYWORD_", "ON_KEYWORD_", "EQ_", "L_T_", "GT_", "LE_", "GE_", "NOT_EQ_", "LOJ_", "GOJ_", "PLUS_",
            "MINUS_", "ASTERISK_", "DIVIDE_"};
}

}  // namespace

// Line ends are tokens here.
const Dialect& MSSQLFromDialect() {
    static const Dialect dialect{
        "mssql-from",  QZGrammarMSSQLfrom(), {}, DroppedTokens(), {}, InnerKinds(), {"ON_", "TEST_", "TEST_2"},
        {u"\t", u"  "}};
    return dialect;
}
