// The words and signs of MySQL, written down by hand: what the tests of the lexer and of the functions expect.
#pragma once

#include <algorithm>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/Words.h"

namespace vocabulary {

// Words that are a token of their own in the case shown only.
inline const std::vector<std::string_view> kLiteralWords = Words(
    "LOOP HASH MERGE REMOTE CONVERT mi yy wk mm fn BROWSE XML RAW AUTO EXPLICIT XMLDATA ELEMENTS FAST FORCE MAXDOP "
    "ROBUST KEEP KEEPFIXED PLAN WITH IDENTIFYCOL ROWGUIDCOL INTO INDEX FASTFIRSTROW HOLDLOCK NOLOCK PAGLOCK "
    "READCOMMITTED READPAST READUNCOMMITTED REPEATABLEREAD ROWLOCK SERIALIZABLE TABLOCK TABLOCKX UPDLOCK XLOCK");

// The system's names, in the case shown only.
inline const std::vector<std::string_view> kSystemNames = Words(
    "@@CONNECTION @@DATEFIRST @@DBTS @@LANGID @@LANGUAGE @@LOCK_TIMEOUT @@MAX_CONNECTIONS @@MAX_PRECISION "
    "@@NESTLEVEL @@OPTIONS @@REMSERVER @@SERVERNAME @@SERVICENAME @@SPID @@TEXTSIZE @@VERSION");

// Keywords whose token has the name of the word.
inline const std::vector<std::string_view> kPlainKeywords = Words(
    "DISTINCTROW EXISTS NOT ABS ACOS ASIN ATAN2 ATAN CEILING CEIL COS COT CRC32 DEGREES EXP FLOOR LN LOG10 LOG2 LOG "
    "MOD PI POW POWER RADIANS RAND ROUND SIGN SIN SQRT TAN TRUNCATE ADDDATE ADDTIME CURDATE CURTIME DATE DATEDIFF "
    "DAY DAYNAME DAYOFMONTH DAYOFWEEK DAYOFYEAR EXTRACT HOUR LOCALTIME LOCALTIMESTAMP MAKEDATE MAKETME MICROSECOND "
    "MINUTE MONTH MONTHNAME NOW QUARTER SECOND SUBDATE SUBTIME SYSDATE TIME TIMEDIFF TIMESTAMP TIMESTAMPADD "
    "TIMESTAMPDIFF WEEK WEEKDAY WEEKOFDATE YEAR YEARWEEK ASCII BIN CHAR CONCAT CONV ELT FIELD FORMAT HEX INSERT "
    "INSTR ISNULL LCASE LENGTH LOCATE LOWER LPAD LTRIM MID OCT ORD QUOTE REGEXP REPEAT REPLACE REVERSE RLIKE RPAD "
    "RTRIM SOUNDEX SPACE STRCMP SUBSTRING SUBSTR TRIM UCASE UNHEX UPPER CASE WHEN THEN ELSE END DATETIME VARCHAR "
    "INT NUMERIC FLOAT NCHAR MONEY DECIMAL SMALLMONEY BIGINT BIT REAL SMALLDATETIME NVARCHAR TINYINT NTEXT "
    "TIMESHTAMP INTEGER IFNULL CAST AVG COUNT MAX MIN SUM");

// Keywords whose token has another name.
inline constexpr Entry kRenamedKeywords[] = {
    {"SELECT_KEYWORD", "SELECT"},
    {"TOP_KEYWORD", "TOP"},
    {"ALL_KEYWORD", "ALL"},
    {"DISTINCT_KEYWORD", "DISTINCT"},
    {"PERCENT_KEYWORD", "PERCENT"},
    {"WITHTIES_KEYWORD", "WITHTIES"},
    {"FROM_KEYWORD", "FROM"},
    {"LIMIT_KEYWORD", "LIMIT"},
    {"INNER_KEYWORD", "INNER"},
    {"JOIN_KEYWORD", "JOIN"},
    {"LEFT_KEYWORD", "LEFT"},
    {"RIGHT_KEYWORD", "RIGHT"},
    {"FULL_KEYWORD", "FULL"},
    {"OUTER_KEYWORD", "OUTER"},
    {"CROSS_KEYWORD", "CROSS"},
    {"STRAIGHT_KEYWORD", "STRAIGHT"},
    {"NATURAL_KEYWORD", "NATURAL"},
    {"WITH_KEYWORD", "WITH"},
    {"ON_KEYWORD", "ON"},
    {"NULL_KEYWORD", "NULL"},
    {"WHERE_KEYWORD", "WHERE"},
    {"HAVING_KEYWORD", "HAVING"},
    {"GROUP_KEYWORD", "GROUP"},
    {"ORDER_KEYWORD", "ORDER"},
    {"BY_KEYWORD", "BY"},
    {"UNION_KEYWORD", "UNION"},
    {"CUBE_KEYWORD", "CUBE"},
    {"ROLLUP_KEYWORD", "ROLLUP"},
    {"ASC_KEYWORD", "ASC"},
    {"DESC_KEYWORD", "DESC"},
    {"COMPUTE_KEYWORD", "COMPUTE"},
    {"FOR_KEYWORD", "FOR"},
    {"OPTION_KEYWORD", "OPTION"},
    {"AND_KEYWORD", "AND"},
    {"OR_KEYWORD", "OR"},
    {"BETWEEN_KEYWORD", "BETWEEN"},
    {"CONVERT_KEYWORD", "CONVERT"},
    {"IN_KEYWORD", "IN"},
    {"LITERAL_AS", "AS"},
    {"CONVERTTZ", "CONVERT_TZ"},
    {"CURRENTDATE", "CURRENT_DATE"},
    {"CURRENTTIME", "CURRENT_TIME"},
    {"CURRENTTIMESTAMP", "CURRENT_TIMESTAMP"},
    {"DATEADD", "DATE_ADD"},
    {"DATEFORMAT", "DATE_FORMAT"},
    {"DATESUB", "DATE_SUB"},
    {"FROMDAYS", "FROM_DAYS"},
    {"FROMUNIXTIME", "FROM_UNIXTIME"},
    {"GETFORMAT", "GET_FORMAT"},
    {"LASTDAY", "LAST_DAY"},
    {"PERIODADD", "PERIOD_ADD"},
    {"PEDIODDIFF", "PEDIOD_DIFF"},
    {"SECTOTIME", "SEC_TO_TIME"},
    {"STRTODATE", "STR_TO_DATE"},
    {"TIMEFORMAT", "TIME_FORMAT"},
    {"TIMETOSEC", "TIME_TO_SEC"},
    {"TODAYS", "TO_DAYS"},
    {"UNIXTIMESTAMP", "UNIX_TIMESTAMP"},
    {"UTCDATE", "UTC_DATE"},
    {"UTCTIME", "UTC_TIME"},
    {"UTCTIMESTAMP", "UTC_TIMESTAMP"},
    {"BITLENGTH", "BIT_LENGTH"},
    {"CHARLENGTH", "CHAR_LENGTH"},
    {"CHARACTERLENGTH", "CHARACTER_LENGTH"},
    {"CONCATWS", "CONCAT_WS"},
    {"EXPORTSET", "EXPORT_SET"},
    {"FINDINSET", "FIND_IN_SET"},
    {"IS_KEYWORD", "IS"},
    {"LIKE_KEYWORD", "LIKE"},
    {"LOADFILE", "LOAD_FILE"},
    {"MAKESET", "MAKE_SET"},
    {"NOTLIKE", "NOT_LIKE"},
    {"NOTREGEXP", "NOT_REGEXP"},
    {"OCTETLENGTH", "OCTET_LENGTH"},
    {"POSITION_FUNCTION", "POSITION"},
    {"SUBSTRINGINDEX", "SUBSTRING_INDEX"},
    {"AESDECRYPT", "AES_DECRYPT"},
};

// Keywords of two words and exactly one blank.
inline constexpr Entry kKeywordsWithBlank[] = {
    {"NOT_EXISTS", "NOT EXISTS"},
    {"NOT_IN_KEYWORD", "NOT IN"},
    {"NOT_NULL_KEYWORD", "NOT NULL"},
};

// Signs of one character; an exclamation mark alone is none.
inline constexpr Entry kSigns[] = {
    {"LEFT_COL_PAREN", "["},
    {"RIGHT_COL_PAREN", "]"},
    {"MY_QUOTE", "\""},
    {"MY_ONE_QUOTE", "`"},
    {"LEFT_BRACE", "{"},
    {"RIGHT_BRACE", "}"},
    {"LEFT_PAREN", "("},
    {"RIGHT_PAREN", ")"},
    {"PLUS", "+"},
    {"MINUS", "-"},
    {"AMPERSAND", "&"},
    {"DIVIDE", "/"},
    {"DOT", "."},
    {"ASTERISK", "*"},
    {"COMMA", ","},
    {"VERTBAR", "|"},
    {"MOD1", "%"},
    {"EQ", "="},
    {"L_T", "<"},
    {"GT", ">"},
    {"'''", "'"},
    {"'@'", "@"},
};

// Signs of two characters.
inline constexpr Entry kCompoundSigns[] = {
    {"AND_KEYWORD2", "&&"}, {"OR_KEYWORD2", "||"}, {"NOT_EQ", "!="}, {"NOT_EQ", "<>"},
    {"LE", "<="},           {"GE", ">="},          {"LOJ", "*="},    {"GOJ", "=*"},
};

// Nodes made by the grammar, which no text produces; the node DATE is the token of the word too.
inline const std::vector<std::string_view> kImaginary = Words(
    "SELECT_QUERY_MY SELECT_QUERY_IN PREDICATE SELECT_LIST PROCEDURE PROCNAME PARAMETER COLUMN_SPECIFICATION "
    "TABLE_SPECIFICATION FUNCTION_SPECIFICATION DB_NAME TABLE_NAME COLUMN_NAME FUNCTION_NAME NEW_NAME ALIAS "
    "TABLE_HINT JOIN_DEF SQL_STRING JOIN_PREFIX JOIN_POSTFIX JOIN_CONDITION NESTED_JOIN FUNCTION_MY FUNC_PARAM "
    "GROUP_FUNCTION SQL_LITERAL NUMBER_literal SEARCH_CONDITION WHERE_CONDITION GROUP_BY HAVING UNION ORDER_BY "
    "COMPUTE BY FOR OPTION NUMBER_LITERAL LITERALAS STYLE DATATYPE CONVERT_FUNCTION USER_FUNCTION DATE_FUNCTION AS "
    "FROM_DEF_ AND LIMIT IN_ DATE_PART ASTERISK_ NESTED_JOIN_PREFIX NESTED_JOIN_POSTFIX NESTED_JOIN_SERCH");

// The families of function words, by token.
inline const std::vector<std::string_view> kOtherFunctions = Words("AESDECRYPT IFNULL AVG COUNT MAX MIN SUM");

inline const std::vector<std::string_view> kNumberFunctions = Words(
    "ABS ACOS ASIN ATAN2 ATAN CEILING CEIL COS COT CRC32 DEGREES EXP FLOOR LN LOG10 LOG2 LOG MOD PI POW POWER "
    "RADIANS RAND ROUND SIGN SIN SQRT TAN TRUNCATE");

inline const std::vector<std::string_view> kStringFunctions = Words(
    "LEFT_KEYWORD RIGHT_KEYWORD ASCII BIN BITLENGTH CHARLENGTH CHAR CHARACTERLENGTH CONCATWS CONCAT CONV ELT "
    "EXPORTSET FIELD FINDINSET FORMAT HEX INSERT INSTR ISNULL IS_KEYWORD LCASE LENGTH LIKE_KEYWORD LOADFILE LOCATE "
    "LOWER LPAD LTRIM MAKESET MID NOTLIKE NOTREGEXP OCT OCTETLENGTH ORD POSITION_FUNCTION QUOTE REGEXP REPEAT "
    "REPLACE REVERSE RLIKE RPAD RTRIM SOUNDEX SPACE STRCMP SUBSTRINGINDEX SUBSTRING SUBSTR TRIM UCASE UNHEX UPPER");

inline const std::vector<std::string_view> kDatetimeFunctions = Words(
    "DATE ADDDATE ADDTIME CONVERTTZ CURDATE CURRENTDATE CURRENTTIME CURRENTTIMESTAMP CURTIME DATEADD DATEFORMAT "
    "DATESUB DATEDIFF DAY DAYNAME DAYOFMONTH DAYOFWEEK DAYOFYEAR EXTRACT FROMDAYS FROMUNIXTIME GETFORMAT HOUR "
    "LASTDAY LOCALTIME LOCALTIMESTAMP MAKEDATE MAKETME MICROSECOND MINUTE MONTH MONTHNAME NOW PERIODADD PEDIODDIFF "
    "QUARTER SECTOTIME SECOND STRTODATE SUBDATE SUBTIME SYSDATE TIMEFORMAT TIMETOSEC TIME TIMEDIFF TIMESTAMP "
    "TIMESTAMPADD TIMESTAMPDIFF TODAYS UNIXTIMESTAMP UTCDATE UTCTIME UTCTIMESTAMP WEEK WEEKDAY WEEKOFDATE YEAR "
    "YEARWEEK");

// Types of CAST and CONVERT.
inline const std::vector<std::string_view> kDataTypes = Words(
    "DATETIME VARCHAR CHAR INT NUMERIC FLOAT NCHAR MONEY DECIMAL SMALLMONEY BIGINT BIT REAL SMALLDATETIME NVARCHAR "
    "TINYINT NTEXT TIMESHTAMP INTEGER");

/// All keywords of one word, in capitals.
inline std::vector<Entry> Keywords() {
    std::vector<Entry> all;
    for (const std::string_view word : kPlainKeywords) all.push_back({word, word});
    all.insert(all.end(), std::begin(kRenamedKeywords), std::end(kRenamedKeywords));
    return all;
}

/// The token of a word of letters, digits and underscores that stands by itself: the literal in the case shown, else
/// the keyword in any case, else an identifier.
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

/// What a keyword's token is spelled like, in capitals: "DATE_ADD" for DATEADD.
inline std::string_view TextOf(std::string_view token) {
    static const std::vector<Entry> keywords = Keywords();
    const auto found =
        std::find_if(keywords.begin(), keywords.end(), [&](const Entry& entry) { return entry.token == token; });
    return found == keywords.end() ? std::string_view() : found->text;
}

}  // namespace vocabulary
