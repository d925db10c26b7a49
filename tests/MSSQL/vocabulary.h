// The words and signs of MS SQL, written down by hand: what the tests of the lexer and of the functions expect.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/Words.h"

namespace vocabulary {

// Words that are a token of their own in the case shown only.
inline const std::vector<std::string_view> kLiteralWords = Words(
    "UCASE LCASE NOW n m mi yy ww wk mm yyyy d dw dd day hh h fn BROWSE XML RAW AUTO EXPLICIT XMLDATA ELEMENTS HASH "
    "MERGE FAST FORCE MAXDOP ROBUST KEEP KEEPFIXED PLAN WITH IDENTIFYCOL ROWGUIDCOL INTO INDEX FASTFIRSTROW HOLDLOCK "
    "NOLOCK PAGLOCK READCOMMITTED READPAST READUNCOMMITTED REPEATABLEREAD ROWLOCK SERIALIZABLE TABLOCK TABLOCKX "
    "UPDLOCK XLOCK");

// Such words with a blank within, and those that begin with two at signs.
inline const std::vector<std::string_view> kWordsWithBlank = {"SET TEXTSIZE", "EXPAND VIEWS", "BYNATY base64"};
inline const std::vector<std::string_view> kSystemNames = Words(
    "@@CONNECTION @@DATEFIRST @@DBTS @@LANGID @@LANGUAGE @@LOCK_TIMEOUT @@MAX_CONNECTIONS @@MAX_PRECISION @@NESTLEVEL "
    "@@OPTIONS @@REMSERVER @@SERVERNAME @@SERVICENAME @@SPID @@TEXTSIZE @@VERSION");

// Keywords whose token has the name of the word.
inline const std::vector<std::string_view> kPlainKeywords = Words(
    "EXISTS WHEN THEN ELSE END CASE DATETIME VARCHAR CHAR INT NUMERIC CONCAT FLOAT MONEY DECIMAL SMALLMONEY BIGINT BIT "
    "REAL SMALLDATETIME NVARCHAR TINYINT NTEXT TIMESTAMP INTEGER GETDATE WEEKDAY WEEK NOW DATEADD DATEDIFF DATENAME "
    "DATEPART DAY GETUTCDATE HOUR ISDATE MONTH MINUTE YEAR SECOND CONVERT CAST AVG BYNARY_CHECKSUM CHECKSUM COUNT "
    "COUNT_BIG GROUPING MIN SUM STDEV STDEVP VAR VARP ABS ACOS ASIN ATAN ATN2 CEILING COS COT DEGREES EXP FLOOR "
    "ISNUMERIC LOG LOG10 PI POWER RADIANS RAND ROUND SIGN SIN SQRT TAN ISNULL ASCII CHARINDEX COALESCE DIFFERENCE LEN "
    "LOWER LTRIM NCHAR PARINDEX QUOTENAME READTEXT REPLACE REPLICATE REVERSE RTRIM SOUNDEX SPACE STR STUFF SUBSTRING "
    "TEXTVALID UNICODE UPDATETEXT UPPER WRITETEXT LOOP HASH MERGE REMOTE IDENT_CURRENT");

// Keywords whose token has another name.
inline constexpr Entry kRenamedKeywords[] = {{"SELECT_KEYWORD", "SELECT"},   {"TOP_KEYWORD", "TOP"},
                                             {"ALL_KEYWORD", "ALL"},         {"DISTINCT_KEYWORD", "DISTINCT"},
                                             {"PERCENT_KEYWORD", "PERCENT"}, {"WITHTIES_KEYWORD", "WITHTIES"},
                                             {"FROM_KEYWORD", "FROM"},       {"LITERAL_AS", "AS"},
                                             {"INNER_KEYWORD", "INNER"},     {"JOIN_KEYWORD", "JOIN"},
                                             {"LEFT_KEYWORD", "LEFT"},       {"RIGHT_KEYWORD", "RIGHT"},
                                             {"FULL_KEYWORD", "FULL"},       {"OUTER_KEYWORD", "OUTER"},
                                             {"CROSS_KEYWORD", "CROSS"},     {"WITH_KEYWORD", "WITH"},
                                             {"ON_KEYWORD", "ON"},           {"NULL_KEYWORD", "NULL"},
                                             {"WHERE_KEYWORD", "WHERE"},     {"CUBE_KEYWORD", "CUBE"},
                                             {"ROLLUP_KEYWORD", "ROLLUP"},   {"HAVING_KEYWORD", "HAVING"},
                                             {"UNION_KEYWORD_", "UNION"},    {"GROUP_KEYWORD", "GROUP"},
                                             {"ORDER_KEYWORD", "ORDER"},     {"ASC_KEYWORD", "ASC"},
                                             {"DESC_KEYWORD", "DESC"},       {"COMPUTE_KEYWORD", "COMPUTE"},
                                             {"BY_KEYWORD", "BY"},           {"FOR_KEYWORD", "FOR"},
                                             {"OPTION_KEYWORD", "OPTION"},   {"AND_KEYWORD", "AND"},
                                             {"OR_KEYWORD", "OR"},           {"BETWEEN_KEYWORD", "BETWEEN"},
                                             {"LIKE_KEYWORD", "LIKE"},       {"IS_KEYWORD", "IS"},
                                             {"NOT_KEYWORD", "NOT"},         {"IN_KEYWORD", "IN"},
                                             {"MAX_KEYWORD", "MAX"},         {"NSTR", "N"}};

// Signs of one character; the exclamation mark begins names.
inline constexpr Entry kSigns[] = {
    {"'#'", "#"},         {"'@'", "@"},          {"'''", "'"},         {"LEFT_COL_PAREN", "["},
    {"MY_QUOTE", "\""},   {"MY_ONE_QUOTE", "`"}, {"LEFT_BRACE", "{"},  {"RIGHT_COL_PAREN", "]"},
    {"RIGHT_BRACE", "}"}, {"LEFT_PAREN", "("},   {"RIGHT_PAREN", ")"}, {"PLUS", "+"},
    {"MINUS", "-"},       {"AMPERSAND", "&"},    {"DIVIDE", "/"},      {"DOT", "."},
    {"ASTERISK", "*"},    {"COMMA", ","},        {"VERTBAR", "|"},     {"MOD", "%"},
    {"EQ", "="},          {"L_T", "<"},          {"GT", ">"}};

inline constexpr Entry kCompoundSigns[] = {{"'##'", "##"},   {"AND_KEYWORD2", "&&"}, {"OR_KEYWORD2", "||"},
                                           {"NOT_EQ", "<>"}, {"LE", "<="},           {"GE", ">="},
                                           {"LOJ", "*="},    {"GOJ", "=*"}};

// Nodes made by the grammar, which no text produces.
inline const std::vector<std::string_view> kImaginary = Words(
    "PROCEDURE PROCNAME PARAMETER SELECT_QUERY_ SELECT_QUERY_IN PREDICATE SELECT_LIST COLUMN_SPECIFICATION "
    "TABLE_SPECIFICATION FUNCTION_SPECIFICATION DB_NAME TABLE_NAME COLUMN_NAME FUNCTION_NAME NEW_NAME ALIAS TABLE_HINT "
    "JOIN_DEF SQL_STRING JOIN_PREFIX JOIN_POSTFIX JOIN_CONDITION NESTED_JOIN FUNCTION FUNC_PARAM GROUP_FUNCTION "
    "SQL_LITERAL NUMBER_literal SEARCH_CONDITION WHERE_CONDITION GROUP_BY HAVING UNION ORDER_BY COMPUTE BY FOR OPTION "
    "NUMBER_LITERAL DATE LITERALAS STYLE DATATYPE CONVERT_FUNCTION USER_FUNCTION DATE_FUNCTION AS FROM_DEF_ AND ISNOT "
    "IN_ UNION_ DATE_PART ASTERISK_ NESTED_JOIN_PREFIX NESTED_JOIN_POSTFIX NESTED_JOIN_SERCH COMMA_KEYWORD");

/// All keywords, in capitals.
inline std::vector<Entry> Keywords() {
    std::vector<Entry> all;
    for (const std::string_view word : kPlainKeywords) all.push_back({word, word});
    all.insert(all.end(), std::begin(kRenamedKeywords), std::end(kRenamedKeywords));
    return all;
}

/// The token of a word of letters, digits and underscores that stands by itself: the literal in the case shown, else
/// the keyword in any case, else a name.
inline std::string TokenOfWord(std::string_view word) {
    if (std::find(kLiteralWords.begin(), kLiteralWords.end(), word) != kLiteralWords.end()) {
        return "'" + std::string(word) + "'";
    }
    static const std::vector<Entry> keywords = Keywords();
    const std::string upper = Upper(word);
    for (const Entry& keyword : keywords) {
        if (keyword.text == upper) return std::string(keyword.token);
    }
    return "IDENTIFICATOR";
}

}  // namespace vocabulary
