#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "tests/Oracle/vocabulary.h"
#include "tests/support/Outline.h"
#include "tests/support/Recognition.h"

namespace {

// The families of function words, by text.

const std::vector<std::string_view> kGroup =
    vocabulary::Words("AVG BYNARY_CHECKSUM CHECKSUM COUNT COUNT_BIG GROUPING MAX MIN STDEV STDEVP SUM VAR VARP");

const std::vector<std::string_view> kNumber = vocabulary::Words(
    "ABS ACOS ASIN ATAN ATN2 CEILING COS COT DEGREES EXP FLOOR ISNUMERIC LOG LOG10 PI POWER RADIANS RAND ROUND SIGN "
    "SIN SQRT TAN dbms_random.value");

const std::vector<std::string_view> kString = vocabulary::Words(
    "ASCII CHAR CHARINDEX COALESCE DIFFERENCE INSTR LEFT LEN LOWER LTRIM NCHAR PARINDEX QUOTENAME READTEXT REPLACE "
    "REPLICATE REVERSE RIGHT RTRIM SOUNDEX SPACE STR STUFF SUBSTR TEXTVALID UNICODE UPDATETEXT UPPER WRITETEXT");

const std::vector<std::string_view> kDateTime = vocabulary::Words(
    "DATEADD DATEDIFF DATENAME DATEPART DAY FROM_TZ GETDATE GETUTCDATE HOUR ISDATE MINUTE MONTH MONTHS_BETWEEN SECOND "
    "TRUNC WEEKDAY YEAR");

const std::vector<std::string_view> kSystem =
    vocabulary::Words("ADD_MONTHS BITAND DECODE MAKE_REF NULLIF NVL SYS_CONTEXT TO_CHAR TO_DATE USERENV");

const std::vector<std::string_view> kDataTypes = vocabulary::Words(
    "BIGINT BIT BYTE CHAR DATE DECIMAL FLOAT INT INTEGER MONEY NCHAR NTEXT NUMBER NUMERIC NVARCHAR RAW REAL "
    "SMALLDATETIME SMALLMONEY TIMESTAMP TINYINT VARCHAR VARCHAR2");

const std::vector<std::string_view> kDateParts = vocabulary::Words("mi mm wk yy yyyy");

// Keywords that stand for no function and no name.
const std::vector<std::string_view> kNeither = vocabulary::Words(
    "CONCAT LOOP REMOTE hash merge WHEN THEN ELSE END OVER TOP PERCENT WITHTIES CUBE ROLLUP INNER JOIN FULL OUTER "
    "CROSS "
    "ON BY ASC DESC");

std::vector<std::string_view> Together(std::initializer_list<std::vector<std::string_view>> families) {
    std::vector<std::string_view> all;
    for (const auto& family : families) all.insert(all.end(), family.begin(), family.end());
    return all;
}

// All that are called with a list of parameters.
const std::vector<std::string_view> kFunctions =
    Together({kNumber, kString, kDateTime, kSystem, vocabulary::kSystemNames, {"SET TEXTSIZE"}});

std::string NodeOf(std::string_view word) {
    const bool isLiteral = word.find_first_of("@. ") != std::string_view::npos;
    const std::string text(word);
    return (isLiteral ? "'" + text + "'" : vocabulary::TokenOfWord(word)) + ":\"" + text + '"';
}

// A word in capitals and in small letters; a literal only as it is.
std::vector<std::string> SpellingsOf(std::string_view word) {
    if (word.find_first_of("@. ") != std::string_view::npos) return {std::string(word)};
    return {std::string(word), vocabulary::Lower(word)};
}

std::string TreeOf(const std::string& text) {
    const Recognition recognition(FromUtf8(text), QZGrammarOracle());
    return Sexpr(recognition.Grammar(), recognition.Root());
}

std::string Column(const std::string& node) { return "(COLUMN_SPECIFICATION (COLUMN_NAME " + node + "))"; }

const std::string kA = Column("IDENTIFICATOR:\"a\"");
const std::string kFromT = "(FROM_DEF_ (TABLE_SPECIFICATION (TABLE_NAME IDENTIFICATOR:\"t\")))";
const std::string kOpen = "LEFT_PAREN:\"(\"";
const std::string kClose = "RIGHT_PAREN:\")\"";

std::string QueryOf(const std::string& item) {
    return "(nil (SELECT_QUERY_OR (SELECT_LIST " + item + ") " + kFromT + ") EOF)";
}
std::string TreeOfItem(const std::string& item) { return TreeOf("SELECT " + item + " FROM t"); }

std::string ConditionOf(const std::string& condition, const std::string& trailing = "") {
    return "(nil (SELECT_QUERY_OR (SELECT_LIST " + kA + ") " + kFromT + " (WHERE_CONDITION " + condition + ")) " +
           trailing + "EOF)";
}
// What comes of a text that cannot be a condition: its clause is not entered, and all of it trails.
std::string TrailingWhere(const std::string& nodes) {
    return "(nil (SELECT_QUERY_OR (SELECT_LIST " + kA + ") " + kFromT + ") WHERE_KEYWORD:\"WHERE\" " + nodes + " EOF)";
}
std::string TreeOfWhere(const std::string& condition) { return TreeOf("SELECT a FROM t WHERE " + condition); }

TEST(OracleFunctions, CallEachWordOfEachFamilyWithAParameter) {
    ASSERT_EQ(kFunctions.size(), 24U + 29 + 17 + 10 + 16 + 1);
    for (const std::string_view function : Together({kFunctions, kGroup})) {
        for (const std::string& word : SpellingsOf(function)) {
            EXPECT_EQ(TreeOfItem(word + "(a)"), QueryOf("(FUNCTION " + NodeOf(word) + " (FUNC_PARAM " + kA + "))"));
        }
    }
}

TEST(OracleFunctions, CallEachWordWithoutAParameterButThoseOfGroups) {
    for (const std::string_view word : kFunctions) {
        EXPECT_EQ(TreeOfItem(std::string(word) + "()"), QueryOf("(FUNCTION " + NodeOf(word) + " FUNC_PARAM)"));
    }
    for (const std::string_view word : kGroup) {
        if (word == "VAR") continue;  // a text function as well
        EXPECT_EQ(TreeOfWhere(std::string(word) + "()"), TrailingWhere(NodeOf(word) + " " + kOpen + " " + kClose));
    }
}

TEST(OracleFunctions, CallTheWordsOfGroupsWithAWordOrAnAsterisk) {
    ASSERT_EQ(kGroup.size(), 13U);
    for (const std::string_view function : kGroup) {
        const std::string word(function);
        EXPECT_EQ(TreeOfItem(word + "(*)"), QueryOf("(FUNCTION " + NodeOf(word) + " (FUNC_PARAM ASTERISK:\"*\"))"));
        EXPECT_EQ(TreeOfItem(word + "(DISTINCT a)"),
                  QueryOf("(FUNCTION " + NodeOf(word) + " (FUNC_PARAM DISTINCT_KEYWORD:\"DISTINCT\" " + kA + "))"));
        EXPECT_EQ(TreeOfItem("a " + word), QueryOf("(ALIAS " + kA + " (NEW_NAME " + NodeOf(word) + "))"));
    }
}

TEST(OracleFunctions, TakeTheirWordsForColumnsWhereNoParenthesisFollows) {
    for (const std::string_view function : Together({kFunctions, kGroup, {"CONVERT"}})) {
        if (function == "LEFT" || function == "RIGHT") continue;
        for (const std::string& word : SpellingsOf(function)) {
            EXPECT_EQ(TreeOfItem(word), QueryOf(Column(NodeOf(word))));
            EXPECT_EQ(TreeOfWhere(word), ConditionOf(Column(NodeOf(word))));
            EXPECT_EQ(TreeOfItem(word + " AS x"),
                      QueryOf("(ALIAS " + Column(NodeOf(word)) + " (NEW_NAME IDENTIFICATOR:\"x\"))"));
        }
    }
}

TEST(OracleFunctions, TakeNoOtherWordForAColumn) {
    for (const std::string_view word :
         Together({kNeither, {"LEFT", "RIGHT", "CASE", "CAST", "EXTRACT", "EXISTS", "MULTISET", "ROW_NUMBER"}})) {
        EXPECT_EQ(TreeOfWhere(std::string(word)), TrailingWhere(NodeOf(word)));
    }
}

TEST(OracleFunctions, CallNoWordThatNoFamilyHolds) {
    const std::string list = " " + kOpen + " IDENTIFICATOR:\"a\" " + kClose;
    for (const std::string_view word : kNeither) {
        EXPECT_EQ(TreeOfWhere(std::string(word) + "(a)"), TrailingWhere(NodeOf(word) + list));
    }
}

TEST(OracleFunctions, TakeTypesForColumnsEvenBeforeAParenthesis) {
    ASSERT_EQ(kDataTypes.size(), 23U);
    for (const std::string_view type : kDataTypes) {
        const std::string word(type);
        EXPECT_EQ(TreeOfItem(word), QueryOf(Column(NodeOf(word))));
        if (word == "CHAR" || word == "NCHAR") continue;  // functions as well
        EXPECT_EQ(TreeOfWhere(word + "(a)"),
                  ConditionOf(Column(NodeOf(word)), kOpen + " IDENTIFICATOR:\"a\" " + kClose + " "));
    }
}

TEST(OracleFunctions, TakeEachDatePartThatStandsFirst) {
    for (const std::string_view part : kDateParts) {
        const std::string word(part);
        EXPECT_EQ(TreeOfItem(word), QueryOf(Column(NodeOf(word))));
        EXPECT_EQ(TreeOfItem("DATEADD(" + word + ", a)"),
                  QueryOf("(FUNCTION DATEADD:\"DATEADD\" (FUNC_PARAM (DATE_PART " + NodeOf(word) + ") " + kA + "))"));
        EXPECT_EQ(TreeOfItem("f(a, " + word + ")"),
                  QueryOf("(USER_FUNCTION IDENTIFICATOR:\"f\" (FUNC_PARAM " + kA + " " + Column(NodeOf(word)) + "))"));
    }
}

TEST(OracleFunctions, ExtractEachPartOfADate) {
    for (const std::string_view part : kDateTime) {
        const std::string word(part);
        EXPECT_EQ(TreeOfItem("EXTRACT(" + word + " FROM a)"),
                  QueryOf("(FUNCTION EXTRACT:\"EXTRACT\" (FUNC_PARAM (FROM_KEYWORD:\"FROM\" (SQL_LITERAL "
                          "(NUMBER_LITERAL " +
                          NodeOf(word) + ")) " + kA + ")))"));
    }
    EXPECT_EQ(TreeOfWhere("EXTRACT(yyyy FROM a)"), TrailingWhere("EXTRACT:\"EXTRACT\" " + kOpen +
                                                                 " 'yyyy':\"yyyy\" FROM_KEYWORD:\"FROM\" "
                                                                 "IDENTIFICATOR:\"a\" " +
                                                                 kClose));
}

TEST(OracleFunctions, TakeTheEscapeInFrontOfTheDatesAndTimesOnly) {
    for (const std::string_view function : kDateTime) {
        const std::string word(function);
        const std::string call = NodeOf(word) + " (FUNC_PARAM " + kA + ")";
        EXPECT_EQ(TreeOfItem("{fn " + word + "(a)"), QueryOf("(FUNCTION 'fn':\"fn\" " + call + ")"));
        EXPECT_EQ(TreeOfItem("{" + word + "(a)"), QueryOf("(FUNCTION " + call + ")"));
    }
    for (const std::string_view word : {"ABS", "LEN", "NVL", "SUM"}) {
        EXPECT_EQ(TreeOfWhere("{fn " + std::string(word) + "(a)"),
                  TrailingWhere("LEFT_BRACE:\"{\" 'fn':\"fn\" " + NodeOf(word) + " " + kOpen + " IDENTIFICATOR:\"a\" " +
                                kClose));
    }
}

TEST(OracleFunctions, CastAndConvertToEachDataType) {
    for (const std::string_view type : kDataTypes) {
        const std::string text(type);
        const std::string datatype = "(DATATYPE " + NodeOf(text) + ")";
        for (const std::string word : {"CAST", "CONVERT"}) {
            EXPECT_EQ(TreeOfItem(word + "(a AS " + text + ")"),
                      QueryOf("(FUNCTION " + NodeOf(word) + " (FUNC_PARAM (LITERAL_AS:\"AS\" " + kA + " " + datatype +
                              ")))"));
            EXPECT_EQ(TreeOfItem(word + "(" + text + ", a)"),
                      QueryOf("(FUNCTION " + NodeOf(word) + " (FUNC_PARAM " + datatype + " " + kA + "))"));
        }
        EXPECT_EQ(TreeOfItem("CAST(a AS VARCHAR2(10 " + text + "))"),
                  QueryOf("(FUNCTION CAST:\"CAST\" (FUNC_PARAM (LITERAL_AS:\"AS\" " + kA +
                          " (DATATYPE VARCHAR2:\"VARCHAR2\" (NUMBER_LITERAL DIGIT:\"10\") " + datatype + "))))"));
    }
}

TEST(OracleFunctions, StandAloneForTheCurrentDateAndTime) {
    for (const std::string word : {"CURRENT_DATE", "CURRENT_TIMESTAMP", "current_date"}) {
        EXPECT_EQ(TreeOfItem(word), QueryOf("(FUNCTION " + NodeOf(word) + ")"));
    }
}

TEST(OracleFunctions, TakeAQueryBehindExistsAndMultiset) {
    const std::string query = "(SELECT_QUERY_OR (SELECT_LIST " + kA + ") " + kFromT + ")";
    for (const std::string word : {"EXISTS", "MULTISET", "exists"}) {
        const std::string tree = ConditionOf("(FUNCTION " + NodeOf(word) + " (FUNC_PARAM " + query + "))");
        EXPECT_EQ(TreeOfWhere(word + " (SELECT a FROM t)"), tree);
        EXPECT_EQ(TreeOfWhere(word + " SELECT a FROM t"), tree);
    }
}

}  // namespace
