#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "tests/MSAccess_v3/vocabulary.h"
#include "tests/support/Outline.h"
#include "tests/support/Recognition.h"

namespace {

// The families of function words, by token.

const std::vector<std::string_view> kDateTime = vocabulary::Words(
    "DATE DATEADD DATEDIFF DATEPART DATESERIAL DATEVALUE DATE_DOLLAR DAY DDB GETDATE GETUTCDATE HOUR ISDATE "
    "MINUTE MONTH NOW SECOND TIME TIMER TIMESERIAL TIMEVALUE TIME_DOLLAR WEEKDAY YEAR");

const std::vector<std::string_view> kNumber = vocabulary::Words(
    "ABS ACOS ASIN ATAN ATN2 AVG CEILING COS COT COUNT DEGREES EXP FLOOR INT ISNUMERIC LOG LOG10 MAX_KEYWORD MIN "
    "PI POWER RADIANS RAND ROUND SIGN SIN SQRT SUM TAN");

const std::vector<std::string_view> kString = vocabulary::Words(
    "ASCB ASCW ASC_KEYWORD CHR CHRB CHRB_DOLLAR CHRW CHRW_DOLLAR CHR_DOLLAR FORMAT FORMAT_DOLLAR INSTR INSTRREV "
    "LEFTB LEFTB_DOLLAR LEFT_KEYWORD LEFT_KEYWORD_DOLLAR LEN LENB LTRIM LTRIM_DOLLAR MID MIDB MIDB_DOLLAR "
    "MID_DOLLAR RIGHTB RIGHTB_DOLLAR RIGHT_KEYWORD RIGHT_KEYWORD_DOLLAR RTRIM RTRIM_DOLLAR SPACE SPACE_DOLLAR "
    "STR STRCOMP STRCONV STRING STRING_DOLLAR STR_DOLLAR TRIM TRIM_DOLLAR");

const std::vector<std::string_view> kOther = vocabulary::Words(
    "CHOOSE DCOUNT DLOOKUP ERROR ERROR_DOLLAR FIRST FIX FV HEX HEX_DOLLAR ICASE ICASE_DOLLAR IMESTATUS IPMT IRR "
    "ISEMPTY ISERROR ISNULL ISOBJECT LAST LCASE LCASE_DOLLAR MIRR NPER NPV OCT OCT_DOLLAR PARTITION PMT PPMT PV "
    "QBCOLOR RATE RGB SLN SWITCH SYD TYPENAME UCASE UCASE_DOLLAR VARTYPE");

const std::vector<std::string_view> kConfiguration =
    vocabulary::Words("CBOOL CBYTE CCUR CDATE CDBL CINT CLNG CSNG CSTR CVAR CVDATE CVERR VAL");

const std::vector<std::string_view> kDateParts =
    vocabulary::Words("count d day dd dw m mi mm month n week wk ww year yy yyyy");

const std::vector<std::string_view> kDataTypes = vocabulary::Words(
    "BIGINT BIT CHAR DATETIME DECIMAL FLOAT INT INTEGER MONEY NCHAR NTEXT NUMERIC NVARCHAR REAL SMALLDATETIME "
    "SMALLMONEY TIMESTAMP TINYINT VARCHAR");

// Keywords that stand for no function; CONVERT in capitals is another token.
const std::vector<std::string_view> kNoFunctions = vocabulary::Words(
    "CASE CONCAT CHECKSUM BYNARY_CHECKSUM COUNT_BIG GROUPING STDEV STDEVP VAR VARP DATENAME ASCII CHARINDEX "
    "COALESCE LOWER UPPER NCHAR PARINDEX QUOTENAME READTEXT REPLACE REPLICATE REVERSE SOUNDEX STUFF SUBSTRING "
    "TEXTVALID UNICODE UPDATETEXT WRITETEXT IDENT_CURRENT");

std::vector<std::string_view> Together(std::initializer_list<std::vector<std::string_view>> families) {
    std::vector<std::string_view> all;
    for (const auto& family : families) all.insert(all.end(), family.begin(), family.end());
    return all;
}

// The families whose words are names too, and with them all that are called with a parameter list.
const std::vector<std::string_view> kNames = Together({kDateTime, kNumber, kString, kOther});
const std::vector<std::string_view> kFunctions = Together({kNames, kConfiguration});

struct Spelling {
    std::string text;
    std::string node;  // what the token's node looks like
};

// A function word in capitals and as it is usually written, with a small letter at the end: Month, LeftB$.
std::vector<Spelling> SpellingsOf(std::string_view token) {
    const std::string capitals(vocabulary::TextOf(token));
    std::string usual = capitals.substr(0, 1) + vocabulary::Lower(capitals.substr(1));
    const std::string type(token);
    return {{capitals, type + ":\"" + capitals + '"'}, {usual, type + ":\"" + usual + '"'}};
}

std::string TreeOf(const std::string& text) {
    const Recognition recognition(FromUtf8(text));
    return Sexpr(recognition.Grammar(), recognition.Root());
}

std::string Column(const std::string& node) { return "(COLUMN_SPECIFICATION (COLUMN_NAME " + node + "))"; }

const std::string kA = Column("IDENTIFICATOR:\"a\"");
const std::string kFromT = "(FROM_DEF_ (ALIAS (TABLE_SPECIFICATION (TABLE_NAME IDENTIFICATOR:\"t\"))))";
const std::string kOpen = "LEFT_PAREN:\"(\"";
const std::string kClose = "RIGHT_PAREN:\")\"";

std::string Number(const std::string& digits) { return "(SQL_LITERAL (NUMBER_LITERAL DIGIT:\"" + digits + "\"))"; }
std::string QueryOf(const std::string& item) {
    return "(nil (SELECT_QUERY (SELECT_LIST " + item + ") " + kFromT + ") EOF)";
}
std::string TreeOfItem(const std::string& item) { return TreeOf("SELECT " + item + " FROM t"); }

// What comes of a text that cannot be a condition: its clause is not entered, and all of it trails.
std::string TrailingWhere(const std::string& nodes) {
    return "(nil (SELECT_QUERY (SELECT_LIST " + kA + ") " + kFromT + ") WHERE_KEYWORD:\"WHERE\" " + nodes + " EOF)";
}
std::string TreeOfWhere(const std::string& condition) { return TreeOf("SELECT a FROM t WHERE " + condition); }

TEST(AccessFunctions, CallEachWordOfEachFamilyWithAParameter) {
    ASSERT_EQ(kFunctions.size(), 24U + 29 + 41 + 41 + 13);
    for (const std::string_view token : kFunctions) {
        for (const Spelling& word : SpellingsOf(token)) {
            EXPECT_EQ(TreeOfItem(word.text + "(a)"),
                      QueryOf("(FUNCTION " + word.node + " (FUNC_PARAM (" + kOpen + " " + kA + ")))"));
        }
    }
}

TEST(AccessFunctions, CallEachWordOfEachFamilyWithoutAParameter) {
    for (const std::string_view token : kFunctions) {
        const Spelling word = SpellingsOf(token).front();
        EXPECT_EQ(TreeOfItem(word.text + "()"), QueryOf("(FUNCTION " + word.node + " (FUNC_PARAM " + kOpen + "))"));
    }
}

TEST(AccessFunctions, TakeTheirWordsForNamesWhereNoListFollows) {
    ASSERT_EQ(kNames.size(), 24U + 29 + 41 + 41);
    for (const std::string_view token : kNames) {
        for (const Spelling& word : SpellingsOf(token)) {
            EXPECT_EQ(TreeOfItem(word.text), QueryOf(Column(word.node)));
            EXPECT_EQ(TreeOfItem("a AS " + word.text),
                      QueryOf("(LITERAL_AS:\"AS\" " + kA + " (NEW_NAME " + word.node + "))"));
        }
    }
}

TEST(AccessFunctions, TakeNoConversionWordForAName) {
    for (const std::string_view token : kConfiguration) {
        const Spelling word = SpellingsOf(token).front();
        EXPECT_EQ(TreeOfWhere(word.text), TrailingWhere(word.node));
    }
    EXPECT_EQ(TreeOfWhere("CAST"), TrailingWhere("CAST:\"CAST\""));
    EXPECT_EQ(TreeOfWhere("CONVERT"), TrailingWhere("'CONVERT':\"CONVERT\""));
    EXPECT_EQ(TreeOfWhere("IIF"), TrailingWhere("IIF:\"IIF\""));
    EXPECT_EQ(TreeOfWhere("EXISTS"), TrailingWhere("EXISTS:\"EXISTS\""));
}

TEST(AccessFunctions, TakeEachDatePartForAName) {
    for (const std::string_view part : kDateParts) {
        const std::string text(part);
        const std::string name = Column("'" + text + "':\"" + text + "\"");
        EXPECT_EQ(TreeOfItem(text), QueryOf(name));
        EXPECT_EQ(TreeOfWhere(text + "(a)"), "(nil (SELECT_QUERY (SELECT_LIST " + kA + ") " + kFromT +
                                                 " (WHERE_CONDITION " + name + ")) " + kOpen + " IDENTIFICATOR:\"a\" " +
                                                 kClose + " EOF)");
    }
    EXPECT_EQ(TreeOf("SELECT count(*) FROM t"), "(nil (SELECT_QUERY (SELECT_LIST " + Column("'count':\"count\"") +
                                                    ")) " + kOpen + " ASTERISK:\"*\" " + kClose +
                                                    " FROM_KEYWORD:\"FROM\" IDENTIFICATOR:\"t\" EOF)");
}

TEST(AccessFunctions, CallNoKeywordThatNoFamilyHolds) {
    ASSERT_EQ(kNoFunctions.size(), 31U);
    for (const std::string_view token : kNoFunctions) {
        for (const Spelling& word : SpellingsOf(token)) {
            const std::string list = " " + kOpen + " IDENTIFICATOR:\"a\" " + kClose;
            EXPECT_EQ(TreeOfWhere(word.text + "(a)"), TrailingWhere(word.node + list));
        }
    }
}

TEST(AccessFunctions, CallNoWordThatIsOnlyADataType) {
    for (const std::string_view token : kDataTypes) {
        if (token == "INT") continue;  // a number function as well
        const Spelling word = SpellingsOf(token).front();
        EXPECT_EQ(TreeOfWhere(word.text + "(a)"),
                  TrailingWhere(word.node + " " + kOpen + " IDENTIFICATOR:\"a\" " + kClose));
    }
}

TEST(AccessFunctions, CallAnyOtherWordAsAUserFunction) {
    const std::string one = Number("1");
    const std::string two = Number("2");
    EXPECT_EQ(TreeOfItem("MyFunc(1, 2)"),
              QueryOf("(USER_FUNCTION IDENTIFICATOR:\"MyFunc\" (FUNC_PARAM (" + kOpen + " " + one + " " + two + ")))"));
    EXPECT_EQ(TreeOfItem("Größe()"), QueryOf("(USER_FUNCTION IDENTIFICATOR:\"Größe\" (FUNC_PARAM " + kOpen + "))"));
    EXPECT_EQ(TreeOfItem("1a(2)"),
              QueryOf("(USER_FUNCTION DIGIT:\"1\" IDENTIFICATOR:\"a\" (FUNC_PARAM (" + kOpen + " " + two + ")))"));
}

TEST(AccessFunctions, TakeTheEscapeInFrontOfTheDatesAndTimesOnly) {
    for (const std::string_view token : kDateTime) {
        const Spelling word = SpellingsOf(token).front();
        const std::string call = word.node + " (FUNC_PARAM (" + kOpen + " " + kA + "))";
        EXPECT_EQ(TreeOfItem("{fn " + word.text + "(a)"), QueryOf("(FUNCTION 'fn':\"fn\" " + call + ")"));
        EXPECT_EQ(TreeOfItem("fn " + word.text + "(a)"), QueryOf("(FUNCTION 'fn':\"fn\" " + call + ")"));
        EXPECT_EQ(TreeOfItem("{" + word.text + "(a)"), QueryOf("(FUNCTION " + call + ")"));
    }
    for (const std::string_view token : {"ABS", "LEN", "FIX", "VAL"}) {
        const Spelling word = SpellingsOf(token).front();
        EXPECT_EQ(TreeOfWhere("{fn " + word.text + "(a)"),
                  TrailingWhere("LEFT_BRACE:\"{\" 'fn':\"fn\" " + word.node + " " + kOpen + " IDENTIFICATOR:\"a\" " +
                                kClose));
    }
}

TEST(AccessFunctions, LetTheClosingBraceOfTheEscapeTrail) {
    EXPECT_EQ(TreeOf("SELECT {fn NOW()}"),
              "(nil (SELECT_QUERY (SELECT_LIST (FUNCTION 'fn':\"fn\" NOW:\"NOW\" (FUNC_PARAM " + kOpen +
                  ")))) RIGHT_BRACE:\"}\" EOF)");
}

TEST(AccessFunctions, CastToEachDataType) {
    for (const std::string_view type : kDataTypes) {
        const std::string text(type);
        const std::string datatype = "(DATATYPE " + text + ":\"" + text + "\")";
        EXPECT_EQ(TreeOfItem("CAST(a AS " + text + ")"),
                  QueryOf("(FUNCTION CAST:\"CAST\" (FUNC_PARAM (AS " + kA + " " + datatype + ")))"));
        EXPECT_EQ(TreeOfItem("CAST(" + text + ", a)"),
                  QueryOf("(FUNCTION CAST:\"CAST\" (FUNC_PARAM " + datatype + " " + kA + "))"));
        EXPECT_EQ(TreeOfItem("CONVERT(" + text + ", a)"),
                  QueryOf("(FUNCTION 'CONVERT':\"CONVERT\" (FUNC_PARAM " + datatype + " " + kA + "))"));
        EXPECT_EQ(TreeOfItem("CONVERT(a AS " + text + ")"),
                  QueryOf("(FUNCTION 'CONVERT':\"CONVERT\" (FUNC_PARAM (AS " + kA + " " + datatype + ")))"));
    }
}

TEST(AccessFunctions, CastToNoOtherWord) {
    for (const std::string word : {"VARBINARY", "DATE", "TEXT", "NOW"}) {
        const std::string type = vocabulary::TokenOfWord(word);
        EXPECT_EQ(TreeOfWhere("CAST(a AS " + word + ")"),
                  TrailingWhere("CAST:\"CAST\" " + kOpen + " IDENTIFICATOR:\"a\" LITERAL_AS:\"AS\" " + type + ":\"" +
                                word + "\" " + kClose));
    }
}

TEST(AccessFunctions, ReadSizesAndStylesOfConversions) {
    const struct {
        std::string call;
        std::string parameters;
    } rows[] = {
        {"CAST(a AS DECIMAL(10, 2))", "(AS " + kA +
                                          " (DATATYPE DECIMAL:\"DECIMAL\" (NUMBER_LITERAL DIGIT:\"10\") "
                                          "(NUMBER_LITERAL DIGIT:\"2\")))"},
        {"CAST(a AS VARCHAR(MAX))",
         "(AS " + kA + " (DATATYPE VARCHAR:\"VARCHAR\" (NUMBER_LITERAL MAX_KEYWORD:\"MAX\")))"},
        {"CAST(a AS VARCHAR(ALL))",
         "(AS " + kA + " (DATATYPE VARCHAR:\"VARCHAR\" (NUMBER_LITERAL ALL_KEYWORD:\"ALL\")))"},
        {"CAST(CHAR, a, 3)", "(DATATYPE CHAR:\"CHAR\") " + kA + " (STYLE DIGIT:\"3\")"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(TreeOfItem(row.call), QueryOf("(FUNCTION CAST:\"CAST\" (FUNC_PARAM " + row.parameters + "))"));
    }
}

TEST(AccessFunctions, ConvertInCapitalsOnly) {
    const std::string list = " " + kOpen + " INT:\"INT\" COMMA:\",\" IDENTIFICATOR:\"a\" " + kClose;
    for (const std::string word : {"convert", "Convert", "cONVERT", "CONVERt"}) {
        EXPECT_EQ(TreeOfWhere(word + "(INT, a)"), TrailingWhere("CONVERT:\"" + word + "\"" + list));
    }
    for (const std::string word : {"CAST", "cast", "Cast"}) {
        EXPECT_EQ(TreeOfItem(word + "(a AS INT)"),
                  QueryOf("(FUNCTION CAST:\"" + word + "\" (FUNC_PARAM (AS " + kA + " (DATATYPE INT:\"INT\"))))"));
    }
}

TEST(AccessFunctions, KeepTheCommasOfIif) {
    const std::string condition = "(SEARCH_CONDITION (EQ:\"=\" " + kA + " " + Number("1") + "))";
    EXPECT_EQ(TreeOfItem("IIF(a = 1, 2, 3)"),
              QueryOf("(FUNCTION IIF:\"IIF\" (FUNC_PARAM " + condition + " COMMA:\",\" " + Number("2") +
                      " COMMA:\",\" " + Number("3") + "))"));
}

TEST(AccessFunctions, TakeAQueryWithoutParenthesesBehindExists) {
    const std::string query = "(SELECT_QUERY (SELECT_LIST " + kA + ") " + kFromT + ")";
    const std::string start = "(nil (SELECT_QUERY (SELECT_LIST " + kA + ") " + kFromT + " (WHERE_CONDITION ";
    EXPECT_EQ(TreeOfWhere("EXISTS SELECT a FROM t"),
              start + "(FUNCTION EXISTS:\"EXISTS\" (FUNC_PARAM " + query + ")))) EOF)");
    EXPECT_EQ(TreeOfWhere("EXISTS (SELECT a)"),
              TrailingWhere("EXISTS:\"EXISTS\" " + kOpen + " SELECT_KEYWORD:\"SELECT\" IDENTIFICATOR:\"a\" " + kClose));
}

TEST(AccessFunctions, KeepTheAsteriskOfCount) {
    for (const std::string word : {"COUNT", "Count"}) {
        EXPECT_EQ(TreeOfItem(word + "(*)"),
                  QueryOf("(FUNCTION COUNT:\"" + word + "\" (FUNC_PARAM (" + kOpen + " ASTERISK:\"*\")))"));
    }
}

TEST(AccessFunctions, TakeTextsAsParameters) {
    EXPECT_EQ(TreeOfItem("DLookUp(\"a\", \"b\")"),
              QueryOf("(FUNCTION DLOOKUP:\"DLookUp\" (FUNC_PARAM (" + kOpen +
                      " (SQL_LITERAL (SQL_STRING MY_QUOTE_ATTRITION:\"\\\"a\\\"\")) "
                      "(SQL_LITERAL (SQL_STRING MY_QUOTE_ATTRITION:\"\\\"b\\\"\")))))"));
    EXPECT_EQ(TreeOfItem("DatePart('yyyy', d)"),
              QueryOf("(FUNCTION DATEPART:\"DatePart\" (FUNC_PARAM (" + kOpen +
                      " (SQL_LITERAL (SQL_STRING QUOTE_ATTRITION:\"'yyyy'\")) " + Column("'d':\"d\"") + ")))"));
}

}  // namespace
