// The words and signs of MS Access, written down by hand: what the tests of the lexer and of the functions expect.
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
    "AUTO BROWSE CONVERT ELEMENTS EXPLICIT FAST FASTFIRSTROW FORCE HASH HOLDLOCK IDENTIFYCOL INDEX INTO KEEP "
    "KEEPFIXED LOOP MAXDOP MERGE NOLOCK PAGLOCK PLAN RAW READCOMMITTED READPAST READUNCOMMITTED REMOTE "
    "REPEATABLEREAD ROBUST ROWGUIDCOL ROWLOCK SERIALIZABLE TABLOCK TABLOCKX UPDLOCK WITH XLOCK XML XMLDATA count "
    "d day dd dw fn m mi mm month n week wk ww year yy yyyy");

// Keywords whose token has the name of the word.
inline const std::vector<std::string_view> kPlainKeywords = Words(
    "EXISTS CASE DATETIME VARCHAR CHAR INT NUMERIC CONCAT FLOAT MONEY DECIMAL SMALLMONEY BIGINT BIT REAL "
    "SMALLDATETIME NVARCHAR TINYINT NTEXT TIMESTAMP INTEGER GETDATE WEEKDAY NOW DATEADD DATEDIFF DATENAME "
    "DATEPART DAY GETUTCDATE HOUR ISDATE MONTH MINUTE YEAR SECOND DATE DATESERIAL DATEVALUE DDB TIME TIMER "
    "TIMESERIAL TIMEVALUE CONVERT CAST AVG BYNARY_CHECKSUM CHECKSUM COUNT COUNT_BIG GROUPING MIN SUM STDEV "
    "STDEVP VAR VARP ABS ACOS ASIN ATAN ATN2 CEILING COS COT DEGREES EXP FLOOR ISNUMERIC LOG LOG10 PI POWER "
    "RADIANS RAND ROUND SIGN SIN SQRT TAN ISNULL ASCII CHARINDEX COALESCE LEN LOWER LTRIM NCHAR PARINDEX "
    "QUOTENAME READTEXT REPLACE REPLICATE REVERSE RTRIM SOUNDEX SPACE STR STUFF SUBSTRING TEXTVALID UNICODE "
    "UPDATETEXT UPPER ASCB ASCW CHR CHRB CHRW FORMAT INSTR INSTRREV LEFTB LENB MID MIDB RIGHTB STRCOMP STRCONV "
    "STRING TRIM WRITETEXT LOOP HASH MERGE REMOTE IDENT_CURRENT ERROR FIX FV HEX ICASE IIF CHOOSE IMESTATUS IPMT "
    "IRR ISEMPTY ISERROR ISOBJECT MIRR NPER NPV OCT PARTITION PMT PPMT PV QBCOLOR RATE RGB SLN SWITCH SYD "
    "TYPENAME UCASE LCASE VARTYPE DLOOKUP LAST FIRST DCOUNT CBOOL CCUR CDBL CINT CSTR CVDATE CBYTE CDATE CLNG "
    "CSNG CVAR CVERR VAL");

// Keywords whose token has another name.
inline constexpr Entry kRenamedKeywords[] = {{"SELECT_KEYWORD", "SELECT"},
                                             {"TOP_KEYWORD", "TOP"},
                                             {"ALL_KEYWORD", "ALL"},
                                             {"DISTINCT_KEYWORD", "DISTINCT"},
                                             {"DISTINCTROW_KEYWORD", "DISTINCTROW"},
                                             {"PERCENT_KEYWORD", "PERCENT"},
                                             {"WITHTIES_KEYWORD", "WITHTIES"},
                                             {"FROM_KEYWORD", "FROM"},
                                             {"LITERAL_AS", "AS"},
                                             {"INNER_KEYWORD", "INNER"},
                                             {"JOIN_KEYWORD", "JOIN"},
                                             {"LEFT_KEYWORD", "LEFT"},
                                             {"RIGHT_KEYWORD", "RIGHT"},
                                             {"FULL_KEYWORD", "FULL"},
                                             {"OUTER_KEYWORD", "OUTER"},
                                             {"NATURAL_KEYWORD", "NATURAL"},
                                             {"CROSS_KEYWORD", "CROSS"},
                                             {"WITH_KEYWORD", "WITH"},
                                             {"ON_KEYWORD", "ON"},
                                             {"NULL_KEYWORD", "NULL"},
                                             {"NOT_NULL_KEYWORD", "NOTNULL"},
                                             {"WHERE_KEYWORD", "WHERE"},
                                             {"CUBE_KEYWORD", "CUBE"},
                                             {"ROLLUP_KEYWORD", "ROLLUP"},
                                             {"HAVING_KEYWORD", "HAVING"},
                                             {"UNION_KEYWORD", "UNION"},
                                             {"GROUP_KEYWORD", "GROUP"},
                                             {"ORDER_KEYWORD", "ORDER"},
                                             {"ASC_KEYWORD", "ASC"},
                                             {"DESC_KEYWORD", "DESC"},
                                             {"COMPUTE_KEYWORD", "COMPUTE"},
                                             {"BY_KEYWORD", "BY"},
                                             {"FOR_KEYWORD", "FOR"},
                                             {"OPTION_KEYWORD", "OPTION"},
                                             {"AND_KEYWORD", "AND"},
                                             {"OR_KEYWORD", "OR"},
                                             {"BETWEEN_KEYWORD", "BETWEEN"},
                                             {"LIKE_KEYWORD", "LIKE"},
                                             {"IS_KEYWORD", "IS"},
                                             {"NOT_KEYWORD", "NOT"},
                                             {"IN_KEYWORD", "IN"},
                                             {"MAX_KEYWORD", "MAX"},
                                             {"MOD_KEYWORD", "MOD"},
                                             {"FALSE_KEYWORD", "FALSE"},
                                             {"TRUE_KEYWORD", "TRUE"}};

// Keywords that take a dollar sign into their own token.
inline constexpr Entry kDollarKeywords[] = {{"LEFT_KEYWORD_DOLLAR", "LEFT$"}, {"RIGHT_KEYWORD_DOLLAR", "RIGHT$"},
                                            {"DATE_DOLLAR", "DATE$"},         {"TIME_DOLLAR", "TIME$"},
                                            {"LTRIM_DOLLAR", "LTRIM$"},       {"RTRIM_DOLLAR", "RTRIM$"},
                                            {"SPACE_DOLLAR", "SPACE$"},       {"STR_DOLLAR", "STR$"},
                                            {"CHR_DOLLAR", "CHR$"},           {"CHRB_DOLLAR", "CHRB$"},
                                            {"CHRW_DOLLAR", "CHRW$"},         {"FORMAT_DOLLAR", "FORMAT$"},
                                            {"LEFTB_DOLLAR", "LEFTB$"},       {"MID_DOLLAR", "MID$"},
                                            {"MIDB_DOLLAR", "MIDB$"},         {"RIGHTB_DOLLAR", "RIGHTB$"},
                                            {"STRING_DOLLAR", "STRING$"},     {"TRIM_DOLLAR", "TRIM$"},
                                            {"ERROR_DOLLAR", "ERROR$"},       {"HEX_DOLLAR", "HEX$"},
                                            {"ICASE_DOLLAR", "ICASE$"},       {"OCT_DOLLAR", "OCT$"},
                                            {"UCASE_DOLLAR", "UCASE$"},       {"LCASE_DOLLAR", "LCASE$"}};

// Signs of one character that need no look at what follows; brackets and quotes stand apart.
inline constexpr Entry kSigns[] = {{"'#'", "#"},
                                   {"':'", ":"},
                                   {"'@'", "@"},
                                   {"RIGHT_COL_PAREN", "]"},
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
                                   {"MOD", "^"},
                                   {"DOLLAR", "$"},
                                   {"EXCLAMATION_MARK", "!"},
                                   {"EQ", "="},
                                   {"L_T", "<"},
                                   {"GT", ">"}};

inline constexpr Entry kCompoundSigns[] = {{"AND_KEYWORD2", "&&"}, {"OR_KEYWORD2", "||"}, {"NOT_EQ", "!="},
                                           {"NOT_EQ", "<>"},       {"LE", "<="},          {"GE", ">="},
                                           {"LOJ", "*="},          {"GOJ", "=*"}};

// Nodes made by the grammar, which no text produces.
inline const std::vector<std::string_view> kImaginary = Words(
    "ALIAS AND AS ASTERISK_ BY COLUMN_NAME COLUMN_SPECIFICATION COMPUTE CONVERT_FUNCTION DATATYPE DATE_FUNCTION "
    "DATE_PART DB_NAME FOR FROM_DEF_ FUNCTION FUNCTION_NAME FUNCTION_SPECIFICATION FUNC_PARAM GROUP_BY "
    "GROUP_FUNCTION HAVING IN_ JOIN_CONDITION JOIN_DEF JOIN_POSTFIX JOIN_PREFIX JOIN_TYPE LIMIT LITERALAS "
    "NESTED_JOIN NESTED_JOIN_POSTFIX NESTED_JOIN_PREFIX NESTED_JOIN_SERCH NEW_NAME NUMBER_LITERAL NUMBER_literal "
    "OPTION ORDER_BY PARAMETER PREDICATE PROCEDURE PROCNAME QUERY_NAME SEARCH_CONDITION SELECT_LIST SELECT_QUERY "
    "SQL_LITERAL SQL_STRING STYLE TABLE_HINT TABLE_NAME TABLE_SPECIFICATION UNION USER_FUNCTION WHERE_CONDITION");

/// All keywords, in capitals.
inline std::vector<Entry> Keywords() {
    std::vector<Entry> all;
    for (const std::string_view word : kPlainKeywords) all.push_back({word, word});
    all.insert(all.end(), std::begin(kRenamedKeywords), std::end(kRenamedKeywords));
    all.insert(all.end(), std::begin(kDollarKeywords), std::end(kDollarKeywords));
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

/// What a keyword's token is spelled like, in capitals: "LEFT$" for LEFT_KEYWORD_DOLLAR.
inline std::string_view TextOf(std::string_view token) {
    static const std::vector<Entry> keywords = Keywords();
    const auto found =
        std::find_if(keywords.begin(), keywords.end(), [&](const Entry& entry) { return entry.token == token; });
    return found == keywords.end() ? std::string_view() : found->text;
}

}  // namespace vocabulary
