#include <gtest/gtest.h>

#include <initializer_list>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "tests/MSSQL/vocabulary.h"
#include "tests/support/Outline.h"
#include "tests/support/Recognition.h"

namespace {

using vocabulary::Entry;
using Words = std::vector<std::string_view>;

// The families of function words, by their text in capitals.
const Words kGroup =
    vocabulary::Words("AVG BYNARY_CHECKSUM CHECKSUM COUNT COUNT_BIG GROUPING MAX MIN SUM STDEV STDEVP VAR VARP");
const Words kNumber = vocabulary::Words(
    "ABS ACOS ASIN ATAN ATN2 CEILING COS COT DEGREES EXP FLOOR ISNUMERIC LOG LOG10 PI POWER RADIANS RAND ROUND SIGN "
    "SIN "
    "SQRT TAN");
const Words kString = vocabulary::Words(
    "LEFT RIGHT CHAR ASCII CHARINDEX COALESCE DIFFERENCE LEN LOWER LTRIM NCHAR PARINDEX QUOTENAME READTEXT REPLACE "
    "REPLICATE REVERSE RTRIM SOUNDEX SPACE STR STUFF SUBSTRING TEXTVALID UNICODE UPDATETEXT UPPER WRITETEXT");
const Words kDateTime = vocabulary::Words(
    "GETDATE WEEKDAY DATEADD DATEDIFF DATENAME DATEPART DAY GETUTCDATE HOUR ISDATE MONTH MINUTE YEAR SECOND");
const Words kOther = vocabulary::Words("IDENT_CURRENT ISNULL");

std::string TreeOf(const std::string& sql) {
    const Recognition recognition(FromUtf8(sql), QZGrammarMSSQL());
    return Sexpr(recognition.Grammar(), recognition.Root());
}

std::string Query(const std::string& item) {
    return "(nil (SELECT_QUERY_ PREDICATE (SELECT_LIST (ALIAS " + item + "))) EOF)";
}

const std::string kColumn = "(COLUMN_SPECIFICATION (COLUMN_NAME IDENTIFICATOR:\"a\"))";

std::string Node(const std::string& word) { return vocabulary::TokenOfWord(word) + ":\"" + word + '"'; }
std::string Call(const std::string& word) { return "(FUNCTION " + Node(word) + " (FUNC_PARAM " + kColumn + "))"; }

std::string Capitalized(std::string_view word) {
    return std::string(word.substr(0, 1)) + vocabulary::Lower(word.substr(1));
}

// In capitals, with a capital at the start, and in small letters, which make another token of "day".
std::vector<std::string> SpellingsOf(std::string_view word) {
    std::vector<std::string> spellings{std::string(word), Capitalized(word)};
    if (word != "DAY") spellings.push_back(vocabulary::Lower(word));
    return spellings;
}

TEST(MSSQLFunctions, AreCalledWithParametersInAnyCase) {
    for (const auto* family : {&kGroup, &kNumber, &kString, &kDateTime, &kOther}) {
        for (const std::string_view word : *family) {
            for (const std::string& text : SpellingsOf(word)) {
                EXPECT_EQ(TreeOf("SELECT " + text + "(a)"), Query(Call(text)));
            }
        }
    }
    EXPECT_EQ(TreeOf("SELECT now(a)"), Query(Call("now")));
    for (const std::string_view name : vocabulary::kSystemNames) {
        const std::string text(name);
        const std::string node = "'" + text + "':\"" + text + '"';
        EXPECT_EQ(TreeOf("SELECT " + text + "(a)"), Query("(FUNCTION " + node + " (FUNC_PARAM " + kColumn + "))"));
        EXPECT_EQ(TreeOf("SELECT " + text), Query("(FUNCTION " + node + ')'));
    }
}

TEST(MSSQLFunctions, NeedNoParametersUnlessTheyAreOfGroupsOrDates) {
    for (const auto* family : {&kNumber, &kString, &kOther}) {
        for (const std::string_view word : *family) {
            const std::string text(word);
            EXPECT_EQ(TreeOf("SELECT " + text), Query("(FUNCTION " + Node(text) + ')'));
            EXPECT_EQ(TreeOf("SELECT " + text + "()"), Query("(FUNCTION " + Node(text) + " FUNC_PARAM)"));
        }
    }
    for (const std::string_view word : kDateTime) {
        const std::string text(word);
        EXPECT_EQ(TreeOf("SELECT " + text), Query("(COLUMN_SPECIFICATION (COLUMN_NAME " + Node(text) + "))"));
        EXPECT_EQ(TreeOf("SELECT " + text + "()"), Query("(FUNCTION " + Node(text) + " FUNC_PARAM)"));
    }
    for (const std::string_view word : kGroup) {
        if (word == "VAR") continue;  // one of the string functions too
        const std::string text(word);
        EXPECT_EQ(TreeOf("SELECT " + text + " FROM"),
                  "(nil (SELECT_QUERY_ PREDICATE (SELECT_LIST ERROR)) " + Node(text) + " FROM_KEYWORD:\"FROM\" EOF)");
    }
    EXPECT_EQ(TreeOf("SELECT VAR"), Query("(FUNCTION " + Node("VAR") + ')'));
}

TEST(MSSQLFunctions, AreNoOtherKeywords) {
    std::set<std::string_view> functions{"NOW"};
    for (const auto* family : {&kGroup, &kNumber, &kString, &kDateTime, &kOther}) {
        functions.insert(family->begin(), family->end());
    }
    for (const Entry& keyword : vocabulary::Keywords()) {
        const bool isCalled =
            TreeOf("SELECT " + Capitalized(keyword.text) + "(a)").find("FUNCTION") != std::string::npos;
        EXPECT_EQ(isCalled, functions.count(keyword.text) == 1) << keyword.text;
    }
}

TEST(MSSQLFunctions, TakeTheWordsOfDatePartsBeforeExpressions) {
    const Words parts = vocabulary::Words("WEEK MONTH YEAR n m mi yy ww wk mm yyyy d dw dd day hh h");
    for (const std::string_view part : parts) {
        const std::string text(part);
        const std::string params = " (FUNC_PARAM (DATE_PART " + Node(text) + ") " + kColumn + ")";
        EXPECT_EQ(TreeOf("SELECT DATENAME(" + text + ", a)"), Query("(FUNCTION " + Node("DATENAME") + params + ')'));
        EXPECT_EQ(TreeOf("SELECT f(" + text + ", a)"), Query("(USER_FUNCTION" + params + ')'));
        EXPECT_EQ(TreeOf("SELECT " + text), Query("(COLUMN_SPECIFICATION (COLUMN_NAME " + Node(text) + "))"));
    }
    for (const std::string_view none : {"hour", "quarter", "N", "MM"}) {
        EXPECT_EQ(TreeOf("SELECT DATENAME(" + std::string(none) + ", a)").find("DATE_PART"), std::string::npos) << none;
    }
}

}  // namespace
