// The words and signs of Oracle, written down by hand: what the tests of the lexer and of the functions expect.
#pragma once

#include <algorithm>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/Words.h"

namespace vocabulary {

// Words of letters that are a token of their own in the case shown only.
inline const std::vector<std::string_view> kLiteralWords = Words(
    "AUTO BROWSE ELEMENTS EXPLICIT FAST FASTFIRSTROW FORCE HASH HOLDLOCK IDENTIFYCOL INDEX INTO KEEP KEEPFIXED "
    "MAXDOP MERGE NOLOCK PAGLOCK PLAN READCOMMITTED READPAST READUNCOMMITTED REPEATABLEREAD ROBUST ROWGUIDCOL "
    "ROWLOCK SERIALIZABLE TABLOCK TABLOCKX UPDLOCK WITH XLOCK XML XMLDATA fn mi mm wk yy yyyy");

// The system's names, in the case shown only.
inline const std::vector<std::string_view> kSystemNames = Words(
    "@@CONNECTION @@DATEFIRST @@DBTS @@LANGID @@LANGUAGE @@LOCK_TIMEOUT @@MAX_CONNECTIONS @@MAX_PRECISION "
    "@@NESTLEVEL @@OPTIONS @@REMSERVER @@SERVERNAME @@SERVICENAME @@SPID @@TEXTSIZE @@VERSION");

// Words with a blank or a point in the middle, in the case shown only.
inline constexpr std::string_view kLiteralsOfTwoWords[] = {"BYNATY base64", "EXPAND VIEWS", "SET TEXTSIZE",
                                                           "dbms_random.value"};

// Keywords whose token has the name of the word.
inline const std::vector<std::string_view> kPlainKeywords = Words(
    "EXISTS MULTISET WHEN THEN ELSE END CASE DATE VARCHAR VARCHAR2 CHAR INT NUMERIC CONCAT FLOAT MONEY DECIMAL "
    "SMALLMONEY BIGINT BIT REAL SMALLDATETIME NVARCHAR TINYINT NTEXT TIMESTAMP INTEGER NUMBER RAW BYTE GETDATE "
    "WEEKDAY DATEADD DATEDIFF DATENAME DATEPART DAY GETUTCDATE HOUR ISDATE MONTH MINUTE YEAR SECOND FROM_TZ EXTRACT "
    "TRUNC MONTHS_BETWEEN CURRENT_DATE CURRENT_TIMESTAMP TO_CHAR TO_DATE ADD_MONTHS CONVERT CAST AVG BYNARY_CHECKSUM "
    "CHECKSUM COUNT COUNT_BIG GROUPING MIN SUM STDEV STDEVP VAR VARP ABS ACOS ASIN ATAN ATN2 CEILING COS COT DEGREES "
    "EXP FLOOR ISNUMERIC LOG LOG10 PI POWER RADIANS RAND ROUND SIGN SIN SQRT TAN BITAND NVL NULLIF ASCII CHARINDEX "
    "COALESCE DIFFERENCE LEN LOWER LTRIM NCHAR PARINDEX QUOTENAME READTEXT REPLACE REPLICATE REVERSE RTRIM SOUNDEX "
    "SPACE STR STUFF SUBSTR INSTR TEXTVALID UNICODE UPDATETEXT UPPER WRITETEXT LOOP HASH MERGE REMOTE DECODE USERENV "
    "SYS_CONTEXT MAKE_REF ROW_NUMBER OVER");

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
                                             {"ORDER_KEYWORD", "ORDER"},     {"PARTITION_KEYWORD", "PARTITION"},
                                             {"ASC_KEYWORD", "ASC"},         {"DESC_KEYWORD", "DESC"},
                                             {"COMPUTE_KEYWORD", "COMPUTE"}, {"BY_KEYWORD", "BY"},
                                             {"FOR_KEYWORD", "FOR"},         {"OPTION_KEYWORD", "OPTION"},
                                             {"AND_KEYWORD", "AND"},         {"OR_KEYWORD", "OR"},
                                             {"BETWEEN_KEYWORD", "BETWEEN"}, {"LIKE_KEYWORD", "LIKE"},
                                             {"IS_KEYWORD", "IS"},           {"NOT_KEYWORD", "NOT"},
                                             {"IN_KEYWORD", "IN"},           {"MAX_KEYWORD", "MAX"}};

// Signs of one character that need no look at what follows; brackets, quotes and the exclamation mark stand apart.
inline constexpr Entry kSigns[] = {{"'#'", "#"},          {"'@'", "@"},         {"RIGHT_COL_PAREN", "]"},
                                   {"MY_ONE_QUOTE", "`"}, {"LEFT_BRACE", "{"},  {"RIGHT_BRACE", "}"},
                                   {"LEFT_PAREN", "("},   {"RIGHT_PAREN", ")"}, {"PLUS", "+"},
                                   {"MINUS", "-"},        {"AMPERSAND", "&"},   {"DIVIDE", "/"},
                                   {"DOT", "."},          {"ASTERISK", "*"},    {"COMMA", ","},
                                   {"VERTBAR", "|"},      {"MOD", "%"},         {"EQ", "="},
                                   {"L_T", "<"},          {"GT", ">"}};

inline constexpr Entry kCompoundSigns[] = {{"'##'", "##"},   {"AND_KEYWORD2", "&&"}, {"OR_KEYWORD2", "||"},
                                           {"NOT_EQ", "!="}, {"NOT_EQ", "<>"},       {"LE", "<="},
                                           {"GE", ">="},     {"LOJ", "*="},          {"GOJ", "=*"}};

// Nodes made by the grammar, which no text produces; DATE is a word as well.
inline const std::vector<std::string_view> kImaginary = Words(
    "ALIAS AND AS ASTERISK_ BY COLUMN_NAME COLUMN_SPECIFICATION COMMA_KEYWORD COMPUTE CONVERT_FUNCTION DATATYPE "
    "DATE_FUNCTION DATE_PART DB_NAME FOR FROM_DEF_ FUNCTION FUNCTION_NAME FUNCTION_SPECIFICATION FUNC_PARAM GROUP_BY "
    "GROUP_FUNCTION HAVING IN_ ISNOT JOIN_CONDITION JOIN_DEF JOIN_POSTFIX JOIN_PREFIX LITERALAS NESTED_JOIN "
    "NESTED_JOIN_POSTFIX NESTED_JOIN_PREFIX NESTED_JOIN_SERCH NEW_NAME NOT_CONDITION NUMBER_LITERAL NUMBER_literal "
    "OPTION ORDER_BY PARAMETER PARTITION_BY PREDICATE PROCEDURE PROCNAME SEARCH_CONDITION SELECT_LIST "
    "SELECT_QUERY_IN SELECT_QUERY_OR SQL_LITERAL SQL_STRING STYLE TABLE_HINT TABLE_NAME TABLE_SPECIFICATION UNION "
    "USER_FUNCTION WHERE_CONDITION WHERE_JOIN");

/// All keywords, in capitals.
inline std::vector<Entry> Keywords() {
    std::vector<Entry> all;
    for (const std::string_view word : kPlainKeywords) all.push_back({word, word});
    all.insert(all.end(), std::begin(kRenamedKeywords), std::end(kRenamedKeywords));
    return all;
}

/// The token of a word of letters, digits and underscores that stands by itself: the literal in the case shown, else
/// the keyword in any case, else an identifier.
inline std::string TokenOfWord(std::string_view word) {
    for (const std::string_view literal : kLiteralWords) {
        if (literal == word) return "'" + std::string(literal) + "'";
    }
    static const std::vector<Entry> keywords = Keywords();
    const std::string upper = Upper(word);
    for (const Entry& keyword : keywords) {
        if (keyword.text == upper) return std::string(keyword.token);
    }
    return "IDENTIFICATOR";
}

}  // namespace vocabulary
