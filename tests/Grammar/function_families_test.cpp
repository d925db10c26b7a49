#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "tests/Grammar/vocabulary.h"
#include "tests/support/Outline.h"
#include "tests/support/Recognition.h"

namespace {

std::string TreeOf(const std::string& text) {
    const Recognition recognition(FromUtf8(text), QZGrammarMySQLSelect());
    return Sexpr(recognition.Grammar(), recognition.Root());
}

std::string TreeOfItem(const std::string& item) { return TreeOf("SELECT " + item + " FROM t"); }

const std::string kA = "(COLUMN_SPECIFICATION (COLUMN_NAME IDENTIFICATOR:\"a\"))";
const std::string kFromT = "(FROM_DEF_ (TABLE_SPECIFICATION (TABLE_NAME IDENTIFICATOR:\"t\")))";
const std::string kTrailingFrom = "FROM_KEYWORD:\"FROM\" IDENTIFICATOR:\"t\"";

std::string QueryOf(const std::string& item) {
    return "(nil (SELECT_QUERY_MY PREDICATE (SELECT_LIST " + item + ") " + kFromT + ") EOF)";
}

// A call of a word of these families as a node, without its parameters and with them.
struct Word {
    std::string text;
    std::string node;
};

// In capitals and as it is often written, with small letters behind the first: Date_add.
std::vector<Word> SpellingsOf(std::string_view token) {
    const std::string type(token);
    const std::string capitals(vocabulary::TextOf(token));
    const std::string usual = capitals.substr(0, 1) + vocabulary::Lower(capitals.substr(1));
    return {{capitals, type + ":\"" + capitals + '"'}, {usual, type + ":\"" + usual + '"'}};
}

std::vector<Word> WordsOf(std::initializer_list<const std::vector<std::string_view>*> families) {
    std::vector<Word> words;
    for (const auto* family : families) {
        for (const std::string_view token : *family) {
            for (const Word& word : SpellingsOf(token)) words.push_back(word);
        }
    }
    return words;
}

std::vector<Word> SystemNames() {
    std::vector<Word> words;
    for (const std::string_view name : vocabulary::kSystemNames) {
        words.push_back({std::string(name), "'" + std::string(name) + "':\"" + std::string(name) + '"'});
    }
    return words;
}

std::vector<Word> WordsWithOptionalParameters() {
    std::vector<Word> words =
        WordsOf({&vocabulary::kNumberFunctions, &vocabulary::kStringFunctions, &vocabulary::kDatetimeFunctions});
    for (const Word& name : SystemNames()) words.push_back(name);
    return words;
}

TEST(MySQLFunctions, AreSoManyInEachFamily) {
    EXPECT_EQ(vocabulary::kOtherFunctions.size(), 7U);
    EXPECT_EQ(vocabulary::kNumberFunctions.size(), 29U);
    EXPECT_EQ(vocabulary::kStringFunctions.size(), 55U);
    EXPECT_EQ(vocabulary::kDatetimeFunctions.size(), 59U);
    EXPECT_EQ(vocabulary::kSystemNames.size(), 16U);
    EXPECT_EQ(vocabulary::kDataTypes.size(), 19U);
}

TEST(MySQLFunctions, CallEachWordWithParameters) {
    std::vector<Word> words = WordsWithOptionalParameters();
    for (const Word& word : WordsOf({&vocabulary::kOtherFunctions})) words.push_back(word);
    for (const Word& word : words) {
        EXPECT_EQ(TreeOfItem(word.text + "(a)"), QueryOf("(FUNCTION_MY " + word.node + " (FUNC_PARAM " + kA + "))"));
        EXPECT_EQ(TreeOfItem(word.text + "(a, a)"),
                  QueryOf("(FUNCTION_MY " + word.node + " (FUNC_PARAM " + kA + " " + kA + "))"));
    }
}

TEST(MySQLFunctions, CallAWordWithoutParametersWhereTheyAreOptional) {
    for (const Word& word : WordsWithOptionalParameters()) {
        EXPECT_EQ(TreeOfItem(word.text), QueryOf("(FUNCTION_MY " + word.node + ")"));
        EXPECT_EQ(TreeOfItem(word.text + "()"), QueryOf("(FUNCTION_MY " + word.node + " FUNC_PARAM)"));
    }
}

TEST(MySQLFunctions, TakeDistinctAndTheAsteriskInOneFamilyOnly) {
    for (const Word& word : WordsOf({&vocabulary::kOtherFunctions})) {
        EXPECT_EQ(TreeOfItem(word.text + "(DISTINCT a)"),
                  QueryOf("(FUNCTION_MY " + word.node + " (FUNC_PARAM DISTINCT_KEYWORD:\"DISTINCT\" " + kA + "))"));
        EXPECT_EQ(TreeOfItem(word.text + "(*)"),
                  QueryOf("(FUNCTION_MY " + word.node + " (FUNC_PARAM ASTERISK:\"*\"))"));
    }
    for (const Word& word : WordsWithOptionalParameters()) {
        const std::string query =
            "(SELECT_QUERY_MY PREDICATE (SELECT_LIST (FUNCTION_MY " + word.node + " FUNC_PARAM)))";
        EXPECT_EQ(TreeOfItem(word.text + "(DISTINCT a)"),
                  "(nil " + query + " DISTINCT_KEYWORD:\"DISTINCT\" IDENTIFICATOR:\"a\" RIGHT_PAREN:\")\" " +
                      kTrailingFrom + " EOF)");
        EXPECT_EQ(TreeOfItem(word.text + "(*)"),
                  "(nil " + query + " ASTERISK:\"*\" RIGHT_PAREN:\")\" " + kTrailingFrom + " EOF)");
    }
}

TEST(MySQLFunctions, TakeTheEscapeInFrontOfTheDatesAndTimesOnly) {
    for (const Word& word : WordsOf({&vocabulary::kDatetimeFunctions})) {
        const std::string call = word.node + " (FUNC_PARAM " + kA + "))";
        EXPECT_EQ(TreeOfItem("{fn " + word.text + "(a)}"), QueryOf("(FUNCTION_MY 'fn':\"fn\" " + call));
        EXPECT_EQ(TreeOfItem("fn " + word.text + "(a)"), QueryOf("(FUNCTION_MY 'fn':\"fn\" " + call));
        EXPECT_EQ(TreeOfItem("{" + word.text + "(a)"), QueryOf("(FUNCTION_MY " + call));
    }
    for (const std::string text : {"ABS", "UPPER", "COUNT", "@@SPID"}) {
        const Recognition recognition(FromUtf8("SELECT {fn " + text + "(a)} FROM t"), QZGrammarMySQLSelect());
        EXPECT_EQ(recognition.ParserErrors(), 1U) << text;
    }
}

TEST(MySQLFunctions, CastToEachDataType) {
    for (const std::string_view type : vocabulary::kDataTypes) {
        const std::string text(type);
        const std::string datatype = "(DATATYPE " + text + ":\"" + text + "\")";
        EXPECT_EQ(TreeOfItem("CAST(a AS " + text + ")"),
                  QueryOf("(FUNCTION_MY CAST:\"CAST\" (FUNC_PARAM (AS " + kA + " " + datatype + ")))"));
        EXPECT_EQ(TreeOfItem("CAST(" + text + ", a)"),
                  QueryOf("(FUNCTION_MY CAST:\"CAST\" (FUNC_PARAM " + datatype + " " + kA + "))"));
        EXPECT_EQ(TreeOfItem("CONVERT(" + text + ", a)"),
                  QueryOf("(FUNCTION_MY 'CONVERT':\"CONVERT\" (FUNC_PARAM " + datatype + " " + kA + "))"));
        EXPECT_EQ(TreeOfItem("CONVERT(a AS " + text + ")"),
                  QueryOf("(FUNCTION_MY 'CONVERT':\"CONVERT\" (FUNC_PARAM (AS " + kA + " " + datatype + ")))"));
    }
}

TEST(MySQLFunctions, CastToNoOtherWord) {
    for (const std::string word : {"TIMESTAMP", "DATE", "TIME", "TEXT", "SIGNED", "BINARY", "NOW"}) {
        const std::string type = vocabulary::TokenOfWord(word);
        EXPECT_EQ(
            TreeOf("SELECT a FROM t WHERE CAST(a AS " + word + ")"),
            "(nil (SELECT_QUERY_MY PREDICATE (SELECT_LIST " + kA + ") " + kFromT +
                ") WHERE_KEYWORD:\"WHERE\" CAST:\"CAST\" LEFT_PAREN:\"(\" IDENTIFICATOR:\"a\" LITERAL_AS:\"AS\" " +
                type + ":\"" + word + "\" RIGHT_PAREN:\")\" EOF)");
    }
}

}  // namespace
