// Steps of the walker over trees put together by hand: what the golden models don't show, and what no text gives.
#include <gtest/gtest.h>

#include <string>

#include "QZParserSQL/MSSQLStateSelectQuery.h"
#include "tests/support/HandMadeModel.h"

namespace {

using Models = HandMadeModels<MSSQLStateSelectQuery, QZGrammarMSSQL>;
using N = Models::Node;
using Nodes = Models::Nodes;

N Name(const CString& text) { return {"IDENTIFICATOR", text}; }
N Named(const char* type, const CString& text) { return {type, Nodes{Name(text)}}; }
N Column(const CString& text) { return {"COLUMN_SPECIFICATION", Nodes{Named("COLUMN_NAME", text)}}; }
N ColumnOf(const CString& table, const CString& text) {
    return {"COLUMN_SPECIFICATION", Nodes{Named("TABLE_NAME", table), Named("COLUMN_NAME", text)}};
}
N Table(const CString& text) { return {"TABLE_SPECIFICATION", Nodes{Named("TABLE_NAME", text)}}; }
N Renamed(const CString& table, const CString& name) {
    return {"ALIAS", Nodes{Table(table), {"LITERAL_AS", u"AS"}, Named("NEW_NAME", name)}};
}
N Digits(const CString& text) { return {"NUMBER_LITERAL", Nodes{{"DIGIT", text}}}; }
N Number(const CString& text) { return {"SQL_LITERAL", Nodes{Digits(text)}}; }
N Parameters(const Nodes& nodes) { return {"FUNC_PARAM", nodes}; }

const Models models("SELECT_QUERY_");

std::string Built(Nodes clauses) { return models.Built(std::move(clauses)); }
std::string Selected(const N& node) { return models.Selected(node); }
std::string Operands(const Nodes& nodes) { return models.Operands(nodes); }
std::string Operand(const N& node) { return models.Operand(node); }
std::string From(const N& node) { return models.From(node); }

std::string SourcesOf(const Nodes& selected, const Nodes& from) {
    return Clause(Built({{"SELECT_LIST", selected}, {"FROM_DEF_", from}}), "Sources");
}

const std::string kFieldA = "Class=Field ItemKind=5 FieldName=\"a\"\n";
const std::string kOne = "ItemKind=1 Text=\"1\"\n";

// ------------------------------------------------------------------------------------------------------- clauses

TEST(MSSQLWalker, OnlyTheFirstWordOfAPredicateCounts) {
    const N top("TOP_KEYWORD", u"TOP", {Digits(u"5")});
    EXPECT_EQ(Built({{"PREDICATE", Nodes{{"DISTINCT_KEYWORD", u"distinct"}, {"ALL_KEYWORD", u"all"}}}}),
              "Query SelectQuantifier=2\n");
    EXPECT_EQ(Built({{"PREDICATE", Nodes{{"ALL_KEYWORD", u"all"}, top}}}), "Query SelectQuantifier=1\n");
    EXPECT_EQ(Built({{"PREDICATE", Nodes{top, {"ALL_KEYWORD", u"all"}}}}), "Query HasLimit=1 LimitSecond=5\n");
    EXPECT_EQ(Built({{"PREDICATE"}}), "Query\n");
}

TEST(MSSQLWalker, TopWithoutANumberIsNoLimit) {
    EXPECT_EQ(Built({{"PREDICATE", Nodes{{"TOP_KEYWORD", u"TOP"}}}}), "Query\n");
    EXPECT_EQ(Built({{"PREDICATE", Nodes{{"TOP_KEYWORD", u"TOP", {{"NUMBER_LITERAL"}}}}}}), "Query\n");
}

TEST(MSSQLWalker, TopReadsTheFirstTokenOfItsNumber) {
    const N number("NUMBER_LITERAL", Nodes{{"DIGIT", u"12x3"}, {"DIGIT", u"4"}});
    EXPECT_EQ(Built({{"PREDICATE", Nodes{{"TOP_KEYWORD", u"TOP", {number}}}}}), "Query HasLimit=1 LimitSecond=12\n");
    const N word("NUMBER_LITERAL", Nodes{{"NULL_KEYWORD", u"NULL"}});
    EXPECT_EQ(Built({{"PREDICATE", Nodes{{"TOP_KEYWORD", u"TOP", {word}}}}}), "Query HasLimit=1\n");
}

TEST(MSSQLWalker, TopWithAnyTwoChildrenIsNoLimitAsWanted) {
    for (const char* word : {"PERCENT_KEYWORD", "WITHTIES_KEYWORD", "NULL_KEYWORD"}) {
        const N top("TOP_KEYWORD", u"TOP", {Digits(u"100"), {word, u"word"}});
        EXPECT_EQ(Built({{"PREDICATE", Nodes{top}}}), "Query\n") << word;
    }
}

TEST(MSSQLWalker, ClausesWithoutAPlaceInTheModelAddNothing) {
    for (const char* clause : {"BY", "COMPUTE", "FOR", "OPTION", "TABLE_HINT"})
        EXPECT_EQ(Built({{clause, Nodes{Number(u"1")}}}), "Query\n") << clause;
}

TEST(MSSQLWalker, EachClauseEmptiesItsListFirst) {
    for (const auto& [clause, list] : {std::pair{"SELECT_LIST", "Select"},
                                       {"WHERE_CONDITION", "Where"},
                                       {"ORDER_BY", "OrderBy"},
                                       {"GROUP_BY", "GroupBy"},
                                       {"HAVING", "Having"}}) {
        const N once(clause, Nodes{Number(u"1"), Number(u"2")});
        const N again(clause, Nodes{Number(u"1")});
        EXPECT_EQ(Clause(Built({once, again}), list), kOne) << clause;
    }
    EXPECT_EQ(Clause(Built({{"FROM_DEF_", Nodes{Table(u"t")}}, {"FROM_DEF_"}}), "From"), "");
    const N member("UNION", Nodes{{"SELECT_QUERY_"}});
    EXPECT_EQ(Clause(Built({member, member}), "Union"),
              "Class=Union ItemKind=8 FuncName=\"UNION\"\n  Query DataType=8 QueryKind=8\n");
}

TEST(MSSQLWalker, EachOperatorIsInfixInEveryPlace) {
    for (const char* type : {"ALIAS",
                             "AMPERSAND",
                             "AND",
                             "AND_KEYWORD",
                             "AND_KEYWORD2",
                             "ASTERISK",
                             "COMMA",
                             "DIVIDE",
                             "EQ",
                             "GE",
                             "GOJ",
                             "GT",
                             "IN_KEYWORD",
                             "IS_KEYWORD",
                             "JOIN_KEYWORD",
                             "LE",
                             "LIKE_KEYWORD",
                             "LITERAL_AS",
                             "LOJ",
                             "L_T",
                             "MINUS",
                             "NOT_EQ",
                             "ON_KEYWORD",
                             "OR_KEYWORD",
                             "OR_KEYWORD2",
                             "PLUS",
                             "UNION_KEYWORD_",
                             "BETWEEN_KEYWORD"}) {
        const N node(type, u"\t op", {Number(u"1")});
        const std::string expected =
            std::string("ItemKind=4 FuncName=\"op\" TokenType=") + type + " IsOperator=1\n  " + kOne;
        EXPECT_EQ(Selected(node), expected);
        EXPECT_EQ(Operand(node), expected);
        EXPECT_EQ(From(node), expected);
    }
}

TEST(MSSQLWalker, OfOtherOperatorsTheFirstOperandStaysAsWanted) {
    for (const char* type : {"FULL_KEYWORD", "MOD", "NOT_KEYWORD", "VERTBAR"}) {
        const N node(type, u"op", {Column(u"a"), Column(u"b")});
        EXPECT_EQ(Selected(node), kFieldA) << type;
        EXPECT_EQ(Operand(node), kFieldA) << type;
        EXPECT_EQ(From(node), "") << type;
    }
}

TEST(MSSQLWalker, AJoinWithoutAPrefixHasNothingInItsPlace) {
    EXPECT_EQ(Selected({"JOIN_KEYWORD", u"JOIN", {Table(u"t")}}),
              "ItemKind=4 FuncName=\"JOIN\" TokenType=JOIN_KEYWORD IsOperator=1\n"
              "  Class=Field ItemKind=5 TableName=\"t\"\n");
}

TEST(MSSQLWalker, AnOperatorBelowANestedJoinIsNested) {
    EXPECT_EQ(Operand({"NESTED_JOIN", Nodes{{"EQ", u"="}}}),
              "ItemKind=4 FuncName=\"=\" TokenType=EQ IsOperator=1 IsNested=1\n");
    EXPECT_EQ(Selected({"NESTED_JOIN", Nodes{{"EQ", u"="}}}), "ItemKind=4 FuncName=\"=\" TokenType=EQ IsOperator=1\n")
        << "a clause hands no parent on";
}

// -------------------------------------------------------------------------------------------------- AddClauseItem

TEST(MSSQLWalker, InAClauseATableNameAndALeafAddNothing) {
    EXPECT_EQ(Selected(Named("TABLE_NAME", u"t")), "");
    for (const char* leaf : {"ERROR", "FUNCTION", "IDENTIFICATOR", "LEFT_PAREN", "SEARCH_CONDITION", "SQL_LITERAL"})
        EXPECT_EQ(Selected({leaf}), "") << leaf;
}

TEST(MSSQLWalker, InAClauseOtherNodesLeadToTheirFirstChild) {
    EXPECT_EQ(Selected(Parameters({Parameters({Column(u"a"), Column(u"b")})})), kFieldA);
    EXPECT_EQ(Selected({"ERROR", u"Tree Error Node", {Column(u"a")}}), kFieldA);
    for (const char* type : {"DATATYPE", "DATE_PART", "NEW_NAME", "STYLE", "TABLE_SPECIFICATION"})
        EXPECT_EQ(Selected({type, Nodes{Column(u"a")}}), kFieldA) << type;
}

TEST(MSSQLWalker, InAClauseTheStarNodeIsAConstant) {
    EXPECT_EQ(Selected({"ASTERISK_", Nodes{{"ASTERISK", u"*"}}}), "ItemKind=1 Text=\"*\"\n");
    EXPECT_EQ(Operand({"ASTERISK_", Nodes{{"ASTERISK", u"*"}}}),
              "ItemKind=4 FuncName=\"*\" TokenType=ASTERISK IsOperator=1\n")
        << "elsewhere it leads to its first child";
}

TEST(MSSQLWalker, ASortWordStandsBelowTheLastItem) {
    const auto ordered = [](const Nodes& nodes) { return Clause(Built({{"ORDER_BY", nodes}}), "OrderBy"); };
    const N descending("DESC_KEYWORD", u"Desc");
    const N ascending("ASC_KEYWORD", u"Asc");
    EXPECT_EQ(ordered({Column(u"a"), descending, ascending, Number(u"1")}),
              kFieldA + "  ItemKind=0 Text=\"DESC\"\n  ItemKind=0 Text=\"ASC\"\n" + kOne);
    EXPECT_EQ(ordered({descending}), "");
}

// ------------------------------------------------------------------------------------------------------------ FROM

TEST(MSSQLWalker, FromTakesFewNodes) {
    EXPECT_EQ(From({"SELECT_QUERY_"}), "ItemKind=0 FuncName=\"select\"\n");
    EXPECT_EQ(From(Table(u"t")), "Class=Field ItemKind=5 TableName=\"t\"\n");
    for (const char* type : {"COLUMN_SPECIFICATION", "FUNCTION", "TABLE_HINT", "TABLE_NAME", "ERROR"})
        EXPECT_EQ(From({type, Nodes{Column(u"a")}}), "") << type;
}

TEST(MSSQLWalker, EachPartOfAJoinDefinitionIsAnItemForItself) {
    const N join("JOIN_KEYWORD", u"JOIN");
    const std::string shown = "ItemKind=4 FuncName=\"JOIN\" TokenType=JOIN_KEYWORD IsOperator=1\n";
    EXPECT_EQ(From({"JOIN_DEF", Nodes{join, Column(u"a"), {"JOIN_DEF", Nodes{join}}}}), shown + shown);
    EXPECT_EQ(Operand({"JOIN_DEF", Nodes{join, join}}), shown) << "elsewhere it leads to its first child";
}

// -------------------------------------------------------------------------------------------------------- WalkNode

TEST(MSSQLWalker, ATableIsNamedBehindADatabase) {
    const std::string shown = "Class=Field ItemKind=5 TableName=\"t\"\n";
    EXPECT_EQ(Operand(Table(u"[t]")), shown);
    EXPECT_EQ(Operand({"TABLE_SPECIFICATION", Nodes{Named("DB_NAME", u"d"), Named("TABLE_NAME", u"t")}}), shown);
}

TEST(MSSQLWalker, EachKindOfFunctionIsAFunctionInEveryPlace) {
    const std::string expected = "ItemKind=4 FuncName=\"Len\" TokenType=LEN\n  " + kFieldA + "  " + kOne;
    for (const char* type : {"CONVERT_FUNCTION", "FUNCTION", "GROUP_FUNCTION"}) {
        const N function(type, Nodes{{"LEN", u" Len"}, Parameters({Column(u"a"), Number(u"1")})});
        EXPECT_EQ(Operand(function), expected) << type;
        EXPECT_EQ(Selected(function), expected) << type;
        EXPECT_EQ(Operand({type}), "") << type;
    }
}

TEST(MSSQLWalker, AUserFunctionIsRecordedWithTheCountBelowItsSecondChild) {
    const N many("USER_FUNCTION", Nodes{Name(u"f"), Parameters({Number(u"1"), Number(u"1")})});
    const N none("USER_FUNCTION", Nodes{Name(u"g")});
    const std::string outline = Built({{"SELECT_LIST", Nodes{many, none}}});
    EXPECT_EQ(Clause(outline, "Select"), "ItemKind=7 FuncName=\"f\" TokenType=IDENTIFICATOR\n  " + kOne + "  " + kOne +
                                             "ItemKind=7 FuncName=\"g\" TokenType=IDENTIFICATOR\n");
    EXPECT_EQ(Clause(outline, "UserFunctions"), "\"f\"=2\n\"g\"=0\n");
}

TEST(MSSQLWalker, AColumnInThePlaceOfANameIsAnItemBefore) {
    const std::string expected =
        kFieldA + "ItemKind=4 FuncName=\"COLUMN_SPECIFICATION\" TokenType=COLUMN_SPECIFICATION\n";
    EXPECT_EQ(Operand({"SEARCH_CONDITION", Nodes{Column(u"a")}}), expected + "  ItemKind=0 Text=\"a\"\n");
    EXPECT_EQ(Operand({"FUNCTION", Nodes{Column(u"a"), Parameters({Number(u"1")})}}), expected + "  " + kOne);
}

TEST(MSSQLWalker, TheArgumentsOfBetweenStandBelowTheFunctionItself) {
    const N between("BETWEEN_KEYWORD", u"Between", {Column(u"a")});
    const std::string word = "ItemKind=4 FuncName=\"Between\" TokenType=BETWEEN_KEYWORD IsOperator=1\n";
    EXPECT_EQ(Operand({"FUNCTION", Nodes{between, Number(u"1")}}), word + "  " + word + "    " + kFieldA + "  " + kOne);
    EXPECT_EQ(Operand({"SEARCH_CONDITION", Nodes{between, Number(u"1")}}), word + "  " + kFieldA);
}

TEST(MSSQLWalker, TheArgumentsOfLikeStandBelowTheSecondChild) {
    const N like("LIKE_KEYWORD", u"Like", {Column(u"a")});
    EXPECT_EQ(Operand({"FUNCTION", Nodes{like, Parameters({Number(u"1")})}}),
              "ItemKind=4 FuncName=\"Like\" TokenType=LIKE_KEYWORD IsOperator=1\n  " + kOne);
}

TEST(MSSQLWalker, TheFunctionOfAnEscapeStandsBeforeItAndBelowIt) {
    const N inner("FUNCTION", Nodes{{"LEN", u"len"}, Parameters({Number(u"1")})});
    const std::string shown = "ItemKind=4 FuncName=\"len\" TokenType=LEN\n";
    EXPECT_EQ(Operand({"FUNCTION", Nodes{{"'fn'", u"Fn", {inner}}}}),
              shown + "  " + kOne + "ItemKind=4 FuncName=\"Fn\" TokenType='fn'\n  " + shown + "    " + kOne);
    EXPECT_EQ(Operand({"FUNCTION", Nodes{{"'fn'", u"fn"}, Parameters({Number(u"1")})}}),
              "ItemKind=4 FuncName=\"fn\" TokenType='fn'\n");
}

TEST(MSSQLWalker, WhatStandsBehindAClosingParenthesisIsNotWalkedAsWanted) {
    EXPECT_EQ(Operands({Number(u"1"), {"RIGHT_PAREN", u")"}, Column(u"a")}), kOne);
}

TEST(MSSQLWalker, AnOpeningParenthesisLeadsToItsFirstChild) {
    const N opened("LEFT_PAREN", u"(", {Number(u"1"), Column(u"b")});
    EXPECT_EQ(Operands({opened, Column(u"a")}), kOne + kFieldA);
    EXPECT_EQ(Operand({"FUNCTION", Nodes{{"LEN", u"len"}, Parameters({opened, Column(u"a")})}}),
              "ItemKind=4 FuncName=\"len\" TokenType=LEN\n  " + kOne + "  " + kFieldA);
    EXPECT_EQ(Operand({"LEFT_PAREN", u"("}), "");
}

TEST(MSSQLWalker, LiteralsByTheirNode) {
    EXPECT_EQ(Operand({"STYLE", Nodes{{"DIGIT", u"101"}, {"DIGIT", u"2"}}}), "ItemKind=0 FuncName=\"101\"\n");
    EXPECT_EQ(Operand({"DATE_PART", Nodes{{"YEAR", u" [yyyy]"}}}), "ItemKind=0 FuncName=\" [yyyy]\"\n");
    EXPECT_EQ(Operand({"SQL_LITERAL", Nodes{{"SQL_STRING"}}}), "ItemKind=2 Text=\" \"\n");
    EXPECT_EQ(Operand({"SQL_LITERAL", Nodes{{"DATE"}}}), "ItemKind=3\n");
    EXPECT_EQ(Operand({"SQL_LITERAL", Nodes{{"NUMBER_LITERAL"}}}), "ItemKind=1\n");
    EXPECT_EQ(Operand({"SQL_LITERAL", Nodes{{"ASTERISK_", Nodes{{"ASTERISK", u"*"}, {"ASTERISK", u"*"}}}}}),
              "ItemKind=1 Text=\"**\"\n");
    for (const char* type : {"DATE_PART", "SQL_LITERAL", "STYLE"}) EXPECT_EQ(Operand({type}), "") << type;
}

TEST(MSSQLWalker, TheWordsOfNotNullHaveTheirBlank) {
    const auto number = [](const Nodes& parts) { return Operand({"SQL_LITERAL", Nodes{{"NUMBER_LITERAL", parts}}}); };
    EXPECT_EQ(number({{"NOT_KEYWORD", u"nOt"}, {"NULL_KEYWORD", u"nUll"}}), "ItemKind=1 Text=\"NOT NULL\"\n");
    EXPECT_EQ(number({{"NULL_KEYWORD", u"nUll"}}), "ItemKind=1 Text=\"nUll\"\n");
    EXPECT_EQ(number({{"MINUS", u"-"}, {"NOT_KEYWORD", u"not"}, {"NULL_KEYWORD", u"null"}}),
              "ItemKind=1 Text=\"-notnull\"\n");
}

TEST(MSSQLWalker, ADataTypeHasItsNameAndEachArgumentBelow) {
    EXPECT_EQ(Operand({"DATATYPE", Nodes{{"DECIMAL", u" decimal"}, Digits(u"1"), {"DIGIT", u"2"}}}),
              "ItemKind=9 Text=\"decimal\"\n  " + kOne + "  ItemKind=0 FuncName=\"2\"\n");
    EXPECT_EQ(Operand({"DATATYPE"}), "ItemKind=9\n");
}

TEST(MSSQLWalker, ABareNameIsAnItemOfItsText) {
    EXPECT_EQ(Operand({"IDENTIFICATOR", u"[a]", {Name(u"b")}}), "ItemKind=0 Text=\"[a]\"\n");
    EXPECT_EQ(Operand({"NEW_NAME", Nodes{Name(u" b"), Name(u"c ")}}), "ItemKind=1 Text=\"bc\"\n");
    EXPECT_EQ(Operand({"NEW_NAME", Nodes{Name(u"[b"), Name(u"c]")}}), "ItemKind=1 Text=\"bc\"\n");
}

TEST(MSSQLWalker, WordsOfJoins) {
    for (const char* type : {"INNER_KEYWORD", "RIGHT_KEYWORD", "LEFT_KEYWORD", "CROSS_KEYWORD"}) {
        EXPECT_EQ(Operand({type, u"Word"}), "ItemKind=1 Text=\"Word\"\n");
        EXPECT_EQ(Selected({type, u"Word"}), "") << "in a clause";
    }
}

TEST(MSSQLWalker, OtherWordsOfJoinsAreLostAsWanted) {
    for (const char* type : {"FULL_KEYWORD", "OUTER_KEYWORD", "LOOP", "HASH", "MERGE", "REMOTE"})
        EXPECT_EQ(Operand({type, u"Word"}), "") << type;
}

TEST(MSSQLWalker, PartsOfAJoin) {
    EXPECT_EQ(Operand({"JOIN_PREFIX", Nodes{Number(u"1"), {"RIGHT_PAREN", u")"}, Column(u"a")}}),
              "ItemKind=0 FuncName=\" \" IsOperator=1\n  " + kOne);
    EXPECT_EQ(Operand({"JOIN_PREFIX"}), "ItemKind=0 FuncName=\" \" IsOperator=1\n");
    EXPECT_EQ(Operand({"JOIN_POSTFIX",
                       Nodes{Number(u"1"), {"JOIN_DEF", Nodes{Table(u"t")}}, {"RIGHT_PAREN", u")"}, Column(u"a")}}),
              kOne + "ItemKind=0 FuncName=\" \" IsOperator=1\n  Class=Field ItemKind=5 TableName=\"t\"\n" + kFieldA);
}

TEST(MSSQLWalker, OtherNodesLeadToTheirFirstChildAsWanted) {
    EXPECT_EQ(Operand({"TABLE_HINT", Nodes{{"BY", Nodes{Number(u"1"), Column(u"a")}}, Column(u"b")}}), kOne);
    EXPECT_EQ(Operand({"RIGHT_BRACE", u"}"}), "");
}

// --------------------------------------------------------------------------------------------------------- columns

TEST(MSSQLWalker, PartsOfColumns) {
    const N table = Named("TABLE_NAME", u"[t]");
    const N column = Named("COLUMN_NAME", u"[c]");
    const std::string whole = "Class=Field ItemKind=5 TableName=\"t\" FieldName=\"c\"\n";
    const std::string tableAlone = "Class=Field ItemKind=5 TableName=\"t\"\n";
    const auto selected = [](const Nodes& parts) { return Selected({"COLUMN_SPECIFICATION", parts}); };
    EXPECT_EQ(selected({table, column}), whole);
    EXPECT_EQ(selected({Named("DB_NAME", u"d"), table, column}), whole);
    EXPECT_EQ(selected({Named("DB_NAME", u"d"), table, {"ASTERISK_", Nodes{{"ASTERISK", u"*"}}}}), tableAlone);
    EXPECT_EQ(selected({table}), tableAlone);
    EXPECT_EQ(selected({table, table, column}), tableAlone);
    EXPECT_EQ(selected({column, table}), "Class=Field ItemKind=5 FieldName=\"c\"\n");
    EXPECT_EQ(selected({Named("DB_NAME", u"d")}), "Class=Field ItemKind=5\n");
    EXPECT_EQ(selected({}), "Class=Field ItemKind=5\n");
}

TEST(MSSQLWalker, AColumnWithoutNamesLeavesNoRecord) {
    EXPECT_EQ(Clause(Built({{"SELECT_LIST", Nodes{{"COLUMN_SPECIFICATION"}, Column(u"")}}}), "Fields"), "");
}

TEST(MSSQLWalker, NamesThatAreAliases) {
    const N source = Renamed(u"t", u"[X]");
    const auto selected = [&source](const N& column) {
        const std::string outline = Built({{"SELECT_LIST", Nodes{column}}, {"FROM_DEF_", Nodes{source}}});
        return Clause(outline, "Select") + Clause(outline, "Fields");
    };
    EXPECT_EQ(selected(Column(u"x")), "Class=Field ItemKind=5 Text=\"x\"\n");
    EXPECT_EQ(selected(ColumnOf(u"x", u"X")),
              "Class=Field ItemKind=5 Text=\"x\" FieldName=\"X\" TableAlias=\"x\"\n"
              "\"xX_0\" TableName=\"x\" FieldName=\"X\"\n");
    const N behindDatabase("COLUMN_SPECIFICATION", Nodes{Named("DB_NAME", u"d"), Named("COLUMN_NAME", u"x")});
    EXPECT_EQ(selected(behindDatabase), "Class=Field ItemKind=5 FieldName=\"x\"\n\"x_0\" FieldName=\"x\"\n");
}

// ----------------------------------------------------------------------------------------------- aliases and sources

TEST(MSSQLWalker, KeysOfAliasesAreInLowerCaseWithoutBrackets) {
    EXPECT_EQ(Clause(Built({{"FROM_DEF_", Nodes{Renamed(u"t", u"[Ä b]"), Renamed(u"u", u"ä B")}}}), "Aliases"),
              "\"ä b\" SrcName=\"Ä b\" Name=\"Ä b\"\n"
              "  Expression ItemKind=0\n");
}

TEST(MSSQLWalker, OnlyAnAliasNodeDeclares) {
    const N named("LITERAL_AS", u"AS", {Column(u"a"), Named("NEW_NAME", u"x")});
    EXPECT_EQ(Clause(Built({{"SELECT_LIST", Nodes{named, {"ALIAS"}}}}), "Aliases"), "");
}

TEST(MSSQLWalker, AliasesAreDeclaredAtEveryDepth) {
    const N inner = Renamed(u"t", u"y");
    EXPECT_EQ(Clause(Built({{"COMPUTE", Nodes{{"ALIAS", Nodes{inner, Named("NEW_NAME", u"x")}}}}}), "Aliases"),
              "\"x\" SrcName=\"x\" Name=\"x\"\n  Expression ItemKind=0\n"
              "\"y\" SrcName=\"y\" Name=\"y\"\n  Expression ItemKind=0\n");
}

TEST(MSSQLWalker, ATableNamedLikeAnAliasIsASourceBehindADatabaseOnly) {
    const N database = Named("DB_NAME", u"d");
    const Nodes from{Renamed(u"t", u"x")};
    EXPECT_EQ(SourcesOf({ColumnOf(u"X", u"a")}, from), "\"t\"=\"t\"\n");
    EXPECT_EQ(SourcesOf({database, ColumnOf(u"X", u"a"), ColumnOf(u"x", u"a")}, from), "\"X\"=\"X\"\n\"t\"=\"t\"\n");
    EXPECT_EQ(SourcesOf({database, ColumnOf(u"u", u"a"), ColumnOf(u"x", u"a")}, from), "\"t\"=\"t\"\n\"u\"=\"u\"\n");
}

std::string SourcesOfNested(const Nodes& selected, const N& nested) {
    const std::string outline = Built({{"SELECT_LIST", selected}, {"FROM_DEF_", Nodes{nested, Renamed(u"t", u"x")}}});
    const std::string queries = Clause(outline, "SubQueries");
    return Clause(outline, "Sources") + "nested\n" + Clause("\n" + queries, "Sources");
}

TEST(MSSQLWalker, ADatabaseBeforeANestedSelectIsNoneOfItsOwn) {
    const N column = ColumnOf(u"x", u"a");
    const N nested("SELECT_QUERY_", Nodes{{"SELECT_LIST", Nodes{column}}, {"FROM_DEF_", Nodes{Renamed(u"t", u"x")}}});
    EXPECT_EQ(SourcesOfNested({Named("DB_NAME", u"d")}, nested), "\"t\"=\"t\"\n\"x\"=\"x\"\nnested\n\"t\"=\"t\"\n");
    const N empty("SELECT_QUERY_", Nodes{{"SELECT_LIST"}});
    EXPECT_EQ(SourcesOfNested({Named("DB_NAME", u"d"), empty, ColumnOf(u"x", u"a")}, empty),
              "\"t\"=\"t\"\n\"x\"=\"x\"\nnested\n");
}

TEST(MSSQLWalker, ADatabaseWithinANestedSelectIsStillOpenBehindIt) {
    const N nested("SELECT_QUERY_", Nodes{{"SELECT_LIST", Nodes{Named("DB_NAME", u"d")}}});
    EXPECT_EQ(SourcesOf({nested, ColumnOf(u"x", u"a"), ColumnOf(u"X", u"a")}, {Renamed(u"t", u"x")}),
              "\"t\"=\"t\"\n\"x\"=\"x\"\n");
}

// ---------------------------------------------------------------------------------------------------- nested queries

TEST(MSSQLWalker, SelectsAtAnyDepthAreSubqueriesOfTheTopOneAndItIsNone) {
    const N deepest("SELECT_QUERY_", Nodes{{"SELECT_LIST", Nodes{Number(u"3")}}});
    const N deeper("SELECT_QUERY_", Nodes{{"SELECT_LIST", Nodes{Number(u"2")}}, {"BY", Nodes{deepest}}});
    const N beside("SELECT_QUERY_", Nodes{{"SELECT_LIST", Nodes{Number(u"4")}}});
    const auto query = [](const char* number) {
        return std::string("DataType=8 QueryKind=8\n  Select\n    ItemKind=1 Text=\"") + number + "\"\n";
    };
    EXPECT_EQ(Clause(Built({{"BY", Nodes{deeper}}, beside}), "SubQueries"), query("2") + query("3") + query("4"));
    EXPECT_EQ(Clause(Built({{"SELECT_LIST", Nodes{Number(u"1")}}}), "SubQueries"), "");
}

TEST(MSSQLWalker, OfANestedSelectTheColumnsOfTheFirstClauseAreRecorded) {
    const N nested("SELECT_QUERY_", Nodes{{"PREDICATE", Nodes{Column(u"a"), Column(u"b")}},
                                          {"SELECT_LIST", Nodes{Column(u"c")}},
                                          {"FROM_DEF_", Nodes{Column(u"d")}}});
    const std::string outline = Built({{"OPTION", Nodes{nested, Column(u"e")}}});
    EXPECT_EQ(Clause(outline, "Fields"), "\"a_0\" FieldName=\"a\"\n\"b_0\" FieldName=\"b\"\n\"e_0\" FieldName=\"e\"\n");
    EXPECT_EQ(Clause("\n" + Clause(outline, "SubQueries"), "Fields"),
              "\"a_0\" FieldName=\"a\"\n\"b_0\" FieldName=\"b\"\n\"c_0\" FieldName=\"c\"\n\"d_0\" FieldName=\"d\"\n");
}

TEST(MSSQLWalker, AUnionWithoutASelectIsAMemberWithAnEmptyQuery) {
    const std::string member = "Class=Union ItemKind=8 FuncName=\"UNION\"\n  Query DataType=8 QueryKind=8\n";
    EXPECT_EQ(Clause(Built({{"UNION"}}), "Union"), "");
    EXPECT_EQ(Clause(Built({{"UNION", Nodes{{"ERROR"}}}}), "Union"), member);
    EXPECT_EQ(Clause(Built({{"UNION", Nodes{{"ALL_KEYWORD", u"ALL"}}}}), "Union"), member);
}

TEST(MSSQLWalker, AUnionIsFollowedDownItsFirstChildren) {
    const N select("SELECT_QUERY_", Nodes{{"SELECT_LIST", Nodes{Number(u"1")}}});
    const std::string expected =
        "Class=Union ItemKind=8 FuncName=\"UNION\"\n"
        "  Query DataType=8 QueryKind=8\n"
        "    Select\n      " +
        kOne;
    EXPECT_EQ(Clause(Built({{"UNION", Nodes{{"BY", Nodes{select, Number(u"2")}}}}}), "Union"), expected);
    EXPECT_EQ(Clause(Built({{"UNION", Nodes{{"ALL_KEYWORD", u"ALL"}, {"BY", Nodes{select}}}}}), "Union"), expected);
}

TEST(MSSQLWalker, UnionAllTakesTheQuantifierBackAndUnionDoesNotAsWanted) {
    const N distinct("PREDICATE", Nodes{{"DISTINCT_KEYWORD", u"DISTINCT"}});
    const auto head = [&distinct](const Nodes& member) {
        const std::string outline = Built({distinct, {"UNION", member}});
        return outline.substr(0, outline.find('\n'));
    };
    EXPECT_EQ(head({{"ALL_KEYWORD", u"ALL"}, {"SELECT_QUERY_"}}), "Query");
    EXPECT_EQ(head({{"SELECT_QUERY_"}}), "Query SelectQuantifier=2");
}

}  // namespace
