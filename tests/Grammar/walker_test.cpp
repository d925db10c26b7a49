// Steps of the walker over trees put together by hand: what the golden models don't show, and what no text gives.
#include <gtest/gtest.h>

#include <string>

#include "QZParserSQL/Grammar/MySQLStateSelectQuery.h"
#include "tests/support/HandMadeModel.h"

namespace {

using Models = HandMadeModels<MySQLStateSelectQuery, QZGrammarMySQLSelect>;
using N = Models::Node;
using Nodes = Models::Nodes;

N Name(const CString& text) { return {"IDENTIFICATOR", text}; }
N Named(const char* type, const CString& text) { return {type, Nodes{Name(text)}}; }
N Column(const CString& text) { return {"COLUMN_SPECIFICATION", Nodes{Named("COLUMN_NAME", text)}}; }
N Table(const CString& text) { return Named("TABLE_NAME", text); }
N Digits(const CString& text) { return {"NUMBER_LITERAL", Nodes{{"DIGIT", text}}}; }
N Number(const CString& text) { return {"SQL_LITERAL", Nodes{Digits(text)}}; }

const Models models("SELECT_QUERY_MY");

std::string Built(Nodes clauses) { return models.Built(std::move(clauses)); }
std::string Selected(const N& node) { return models.Selected(node); }
std::string Operands(const Nodes& nodes) { return models.Operands(nodes); }
std::string Operand(const N& node) { return models.Operand(node); }
std::string From(const N& node) { return models.From(node); }

std::string Constant(const std::string& text) { return "ItemKind=1 Text=\"" + text + "\"\n"; }
std::string Field(const std::string& name) { return "Class=Field ItemKind=5 FieldName=\"" + name + "\"\n"; }

/// Each line two deeper.
std::string Below(const std::string& lines) {
    std::string text;
    for (std::size_t at = 0; at < lines.size(); at = lines.find('\n', at) + 1)
        text += "  " + lines.substr(at, lines.find('\n', at) + 1 - at);
    return text;
}

// ------------------------------------------------------------------------------------------------------- clauses

TEST(MySQLWalker, OnlyTheFirstWordOfAPredicateCounts) {
    const N all("ALL_KEYWORD", u"all");
    EXPECT_EQ(Built({{"PREDICATE", Nodes{all, {"DISTINCT_KEYWORD", u"distinct"}}}}), "Query SelectQuantifier=1\n");
    EXPECT_EQ(Built({{"PREDICATE", Nodes{{"DISTINCTROW", u"distinctrow"}, all}}}), "Query SelectQuantifier=3\n");
    EXPECT_EQ(Built({{"PREDICATE", Nodes{{"TOP_KEYWORD", u"top"}, all}}}), "Query\n");
    EXPECT_EQ(Built({{"PREDICATE", Nodes{all}}, {"PREDICATE", Nodes{{"TOP_KEYWORD", u"top"}}}}), "Query\n");
    EXPECT_EQ(Built({{"PREDICATE", Nodes{all}}, {"PREDICATE"}}), "Query SelectQuantifier=1\n");
}

TEST(MySQLWalker, ClausesWithoutAPlaceInTheModelAddNothing) {
    for (const char* clause : {"COMPUTE", "FOR", "LIMIT", "OPTION", "TABLE_HINT", "TOP_KEYWORD"})
        EXPECT_EQ(Built({{clause, Nodes{Number(u"1")}}}), "Query\n") << clause;
}

TEST(MySQLWalker, EachClauseEmptiesItsListFirst) {
    for (const auto& [clause, list] : {std::pair{"SELECT_LIST", "Select"},
                                       {"WHERE_CONDITION", "Where"},
                                       {"ORDER_BY", "OrderBy"},
                                       {"GROUP_BY", "GroupBy"},
                                       {"HAVING", "Having"}}) {
        const N once(clause, Nodes{Number(u"1")});
        const N again(clause, Nodes{Number(u"2"), Number(u"3")});
        EXPECT_EQ(Clause(Built({once, again}), list), Constant("2") + Constant("3")) << clause;
    }
    const N table("TABLE_SPECIFICATION", Nodes{Table(u"t")});
    EXPECT_EQ(Clause(Built({{"FROM_DEF_", Nodes{table, table}}, {"FROM_DEF_"}}), "From"), "");
    const N select("SELECT_QUERY_MY");
    EXPECT_EQ(Clause(Built({{"UNION", Nodes{select}}, {"UNION", Nodes{select}}}), "Union"),
              "Class=Union ItemKind=8 FuncName=\"UNION\"\n  Query DataType=1 QueryKind=1\n");
}

TEST(MySQLWalker, EachOperatorIsInfixInEveryPlace) {
    for (const char* type :
         {"ALIAS",           "AMPERSAND",  "AND",          "AND_KEYWORD", "AND_KEYWORD2", "AS",           "ASTERISK",
          "BETWEEN_KEYWORD", "DIVIDE",     "EQ",           "GE",          "GOJ",          "GT",           "IN_KEYWORD",
          "IS_KEYWORD",      "LE",         "LIKE_KEYWORD", "LOJ",         "L_T",          "MINUS",        "NOT_EQ",
          "NOT_IN_KEYWORD",  "ON_KEYWORD", "OR_KEYWORD",   "OR_KEYWORD2", "PLUS",         "UNION_KEYWORD"}) {
        const N node(type, u"\t op", {Number(u"1")});
        const std::string expected =
            std::string("ItemKind=4 FuncName=\"op\" TokenType=") + type + " IsOperator=1\n" + Below(Constant("1"));
        EXPECT_EQ(Selected(node), expected);
        EXPECT_EQ(Operand(node), expected);
        EXPECT_EQ(From(node), expected);
    }
}

TEST(MySQLWalker, OfOtherOperatorsTheFirstOperandStays) {
    for (const char* type : {"COMMA", "MOD", "MOD1", "NOT", "VERTBAR"}) {
        const N node(type, u"op", {Column(u"a"), Column(u"b")});
        EXPECT_EQ(Selected(node), Field("a")) << type;
        EXPECT_EQ(Operand(node), Field("a")) << type;
        EXPECT_EQ(From(node), "") << type;
    }
}

TEST(MySQLWalker, AJoinWithoutAPrefixHasABlankInItsPlace) {
    const std::string join = "ItemKind=4 FuncName=\"Join\" TokenType=JOIN_KEYWORD IsOperator=1\n";
    EXPECT_EQ(Selected({"JOIN_KEYWORD", u"Join"}), join + "  ItemKind=0 Text=\" \"\n");
    EXPECT_EQ(Selected({"JOIN_KEYWORD", u"Join", {Number(u"1")}}),
              join + "  ItemKind=0 Text=\" \"\n  " + Constant("1"));
    EXPECT_EQ(Selected({"JOIN_KEYWORD", u"Join", {{"JOIN_PREFIX", Nodes{{"INNER_KEYWORD", u"INNER"}}}}}),
              join + "  ItemKind=0 FuncName=\" \" IsOperator=1\n");
    EXPECT_EQ(Selected({"JOIN_KEYWORD", u"Join", {{"JOIN_PREFIX"}}}), join) << "an empty prefix is a leaf";
    EXPECT_EQ(Selected({"JOIN_KEYWORD", u"JOINT"}),
              "ItemKind=4 FuncName=\"JOINT\" TokenType=JOIN_KEYWORD IsOperator=1\n");
}

TEST(MySQLWalker, AnOperatorBelowANestedJoinIsNested) {
    EXPECT_EQ(Operand({"NESTED_JOIN", Nodes{{"EQ", u"=", {Number(u"1")}}}}),
              "ItemKind=4 FuncName=\"=\" TokenType=EQ IsOperator=1 IsNested=1\n  " + Constant("1"));
}

// -------------------------------------------------------------------------------------------------- AddClauseItem

TEST(MySQLWalker, InAClauseATableNameAndALeafAddNothing) {
    EXPECT_EQ(Selected(Table(u"t")), "");
    for (const char* leaf : {"ERROR", "FUNCTION_MY", "IDENTIFICATOR", "RIGHT_PAREN", "SEARCH_CONDITION", "SQL_LITERAL"})
        EXPECT_EQ(Selected({leaf}), "") << leaf;
}

TEST(MySQLWalker, InAClauseOtherNodesLeadToTheirFirstChild) {
    for (const char* type : {"CONVERT_FUNCTION", "DATATYPE", "ERROR", "FUNC_PARAM", "GROUP_FUNCTION", "NUMBER_LITERAL",
                             "SELECT_QUERY_MY", "TABLE_SPECIFICATION", "USER_FUNCTION"}) {
        EXPECT_EQ(Selected({type, Nodes{{"FUNC_PARAM", Nodes{Column(u"a"), Column(u"b")}}, Column(u"c")}}), Field("a"))
            << type;
    }
}

TEST(MySQLWalker, TheStarNodeLeadsToItsStar) {
    EXPECT_EQ(Selected({"ASTERISK_", Nodes{{"ASTERISK", u"*"}}}),
              "ItemKind=4 FuncName=\"*\" TokenType=ASTERISK IsOperator=1\n");
    EXPECT_EQ(Selected({"ASTERISK_"}), "");
    EXPECT_EQ(Operand({"ASTERISK_", Nodes{{"ASTERISK", u"*"}}}), "") << "a leaf";
}

TEST(MySQLWalker, ASortWordStandsBelowTheItemBeforeItWithoutText) {
    for (const char* word : {"ASC_KEYWORD", "DESC_KEYWORD"}) {
        EXPECT_EQ(Clause(Built({{"ORDER_BY", Nodes{Column(u"a"), {word, u"w"}, {word, u"w"}}}}), "OrderBy"),
                  Field("a") + "  ItemKind=0\n  ItemKind=0\n");
        EXPECT_EQ(Built({{"ORDER_BY", Nodes{{word, u"w"}}}}), "Query\n") << "nothing before it";
    }
}

// ------------------------------------------------------------------------------------------------------------ FROM

TEST(MySQLWalker, FromTakesFewNodes) {
    EXPECT_EQ(From({"SELECT_QUERY_MY"}), "ItemKind=0 FuncName=\"select\"\n");
    EXPECT_EQ(From({"TABLE_SPECIFICATION", Nodes{Table(u"`t`")}}), "Class=Field ItemKind=5 TableName=\"t\"\n");
    EXPECT_EQ(From({"TABLE_SPECIFICATION", Nodes{Named("DB_NAME", u"d"), Table(u"t")}}),
              "Class=Field ItemKind=5 TableName=\"DB_NAMETABLE_NAME\"\n");
    EXPECT_EQ(From({"TABLE_SPECIFICATION"}), "Class=Field ItemKind=5\n");
    for (const N& node : {Column(u"a"), Number(u"1"), N("FUNCTION_MY", Nodes{{"NOW", u"NOW"}}), Table(u"t")})
        EXPECT_EQ(From(node), "");
}

TEST(MySQLWalker, InFromEachPartOfAJoinDefinitionStandsForItself) {
    EXPECT_EQ(
        From({"JOIN_DEF",
              Nodes{{"TABLE_SPECIFICATION", Nodes{Table(u"t")}}, Column(u"a"), {"JOIN_DEF", Nodes{{"EQ", u"="}}}}}),
        "Class=Field ItemKind=5 TableName=\"t\"\n"
        "ItemKind=4 FuncName=\"=\" TokenType=EQ IsOperator=1\n");
    EXPECT_EQ(From({"JOIN_DEF"}), "");
}

// -------------------------------------------------------------------------------------------------------- WalkNode

TEST(MySQLWalker, ALeafIsDroppedWhateverItIs) {
    for (const char* type :
         {"ALIAS", "COLUMN_SPECIFICATION", "CROSS_KEYWORD", "DATATYPE", "EQ", "FUNCTION_MY", "IDENTIFICATOR",
          "INNER_KEYWORD", "JOIN_PREFIX", "JOIN_POSTFIX", "LEFT_KEYWORD", "NEW_NAME", "PLUS", "RIGHT_KEYWORD",
          "SELECT_QUERY_MY", "SQL_LITERAL", "TABLE_SPECIFICATION", "USER_FUNCTION"})
        EXPECT_EQ(Operand({type}), "") << type;
}

TEST(MySQLWalker, ATableSpecificationIsNamedByItsFirstChild) {
    EXPECT_EQ(Operand({"TABLE_SPECIFICATION", Nodes{Table(u"`t`"), Table(u"u")}}),
              "Class=Field ItemKind=5 TableName=\"t\"\n");
    EXPECT_EQ(Operand({"TABLE_SPECIFICATION", Nodes{Named("DB_NAME", u"d"), Table(u"t")}}),
              "Class=Field ItemKind=5 TableName=\"d\"\n");
    EXPECT_EQ(Operand({"TABLE_SPECIFICATION", Nodes{{"DB_NAME", Nodes{Table(u"t")}}}}),
              "Class=Field ItemKind=5 TableName=\"t\"\n");
}

TEST(MySQLWalker, EachKindOfFunctionIsAFunction) {
    for (const char* type : {"CONVERT_FUNCTION", "FUNCTION_MY", "GROUP_FUNCTION"}) {
        EXPECT_EQ(Operand({type, Nodes{{"NOW", u"\t `Now`"},
                                       {"FUNC_PARAM", Nodes{Column(u"a"), Number(u"1")}},
                                       {"FUNC_PARAM", Nodes{Column(u"b")}}}}),
                  "ItemKind=4 FuncName=\"`Now`\" TokenType=NOW\n" + Below(Field("a") + Constant("1")))
            << type;
        EXPECT_EQ(Operand({type, Nodes{{"NOW", u"Now"}}}), "ItemKind=4 FuncName=\"Now\" TokenType=NOW\n") << type;
    }
}

TEST(MySQLWalker, ADateFunctionIsNone) {
    EXPECT_EQ(Operand({"DATE_FUNCTION", Nodes{{"NOW", u"Now"}, {"FUNC_PARAM", Nodes{Column(u"a")}}}}), "");
}

TEST(MySQLWalker, AUserFunctionIsRecordedWithTheCountOfItsSecondChild) {
    const N function("USER_FUNCTION", Nodes{Name(u"f"), {"FUNC_PARAM", Nodes{Number(u"1"), Number(u"2")}}});
    const std::string outline =
        Built({{"SELECT_LIST", Nodes{{"PLUS", u"+", {function, {"USER_FUNCTION", Nodes{Name(u"g")}}}}, function}}});
    EXPECT_EQ(Clause(outline, "Select"),
              "ItemKind=4 FuncName=\"+\" TokenType=PLUS IsOperator=1\n"
              "  ItemKind=7 FuncName=\"f\" TokenType=IDENTIFICATOR\n" +
                  Below(Below(Constant("1") + Constant("2"))) +
                  "  ItemKind=7 FuncName=\"g\" TokenType=IDENTIFICATOR\n");
    EXPECT_EQ(Clause(outline, "UserFunctions"), "\"f\"=2\n\"g\"=0\n");
    EXPECT_EQ(Built({{"SELECT_LIST", Nodes{function}}}), "Query\n") << "by itself";
}

TEST(MySQLWalker, TheOperandsOfBetweenAndLikeStandBelowTheirWord) {
    const Nodes operands{Column(u"a"), Number(u"1")};
    const std::string shown = Below(Field("a") + Constant("1"));
    for (const char* type : {"BETWEEN_KEYWORD", "LIKE_KEYWORD"}) {
        EXPECT_EQ(Operand({"FUNCTION_MY", Nodes{{type, u"word", operands}, {"FUNC_PARAM", Nodes{Number(u"2")}}}}),
                  std::string("ItemKind=4 FuncName=\"word\" TokenType=") + type + " IsOperator=1\n" + shown);
    }
}

TEST(MySQLWalker, ASearchConditionHasTheNameAndTheOperandsOfItsFirstChild) {
    const N second("EQ", u"=", {Number(u"2")});
    EXPECT_EQ(Selected({"SEARCH_CONDITION", Nodes{{"GT", u">", {Column(u"a"), Number(u"1")}}, second}}),
              "ItemKind=4 FuncName=\">\" TokenType=GT IsOperator=1\n" + Below(Field("a") + Constant("1")));
    EXPECT_EQ(Operand({"SEARCH_CONDITION", Nodes{{"MOD1", u"%", {Column(u"a"), Number(u"1")}}, second}}),
              "ItemKind=4 FuncName=\"%\" TokenType=MOD1\n" + Below(Field("a") + Constant("1")));
}

TEST(MySQLWalker, WhatStandsBehindAClosingParenthesisIsNotWalked) {
    EXPECT_EQ(Operands({Number(u"1"), {"RIGHT_PAREN", u")"}, Number(u"2")}), Constant("1"));
    EXPECT_EQ(Operands({{"RIGHT_PAREN", u")"}, Number(u"2")}), "");
}

TEST(MySQLWalker, LiteralsByTheirNode) {
    const N many("NUMBER_LITERAL", Nodes{{"MINUS", u"-"}, {"DIGIT", u"1"}, {"DOT", u"."}, {"DIGIT", u"5"}});
    for (const char* type : {"DATE_PART", "SQL_LITERAL", "STYLE"}) {
        EXPECT_EQ(Operand({type, Nodes{many, Number(u"2")}}), Constant("-1")) << type;
        EXPECT_EQ(Operand({type, Nodes{{"NUMBER_LITERAL"}}}), "ItemKind=1\n") << type;
        EXPECT_EQ(Operand({type, Nodes{{"SQL_STRING"}}}), "ItemKind=2 Text=\" \"\n") << type;
        EXPECT_EQ(Operand({type, Nodes{{"DATE"}}}), "ItemKind=3 Text=\" \"\n") << type;
        EXPECT_EQ(Operand({type, Nodes{{"YEAR", u"year"}}}), "ItemKind=0\n") << type;
        EXPECT_EQ(Operand({type, Nodes{{"YEAR", u"year", {Name(u"`"), Name(u"a"), Name(u"b`")}}}}),
                  "ItemKind=0 Text=\"ab\"\n")
            << type;
    }
    EXPECT_EQ(Operand({"SQL_LITERAL", Nodes{{"SQL_STRING", Nodes{Name(u" a"), Name(u"b ")}}}}),
              "ItemKind=2 Text=\" ab \"\n");
    EXPECT_EQ(Operand({"SQL_LITERAL", Nodes{{"DATE", Nodes{Name(u"1"), Name(u"/"), Name(u"2")}}}}),
              "ItemKind=3 Text=\"1/2\"\n");
    EXPECT_EQ(Operand({"DATATYPE", Nodes{{"INT", u"INT"}, {"DIGIT", u"4"}}}), Constant("INT4"));
    EXPECT_EQ(Selected({"DATATYPE", Nodes{{"INT", u"INT"}}}), "") << "only as an operand";
}

TEST(MySQLWalker, NamesWithChildren) {
    EXPECT_EQ(Operand({"IDENTIFICATOR", u"a", {Name(u" b"), Name(u"c ")}}), "ItemKind=0 Text=\"bc\"\n");
    EXPECT_EQ(Operand({"NEW_NAME", Nodes{Name(u" `b"), Name(u"c` ")}}), Constant("`bc`"));
}

TEST(MySQLWalker, AWordOfAJoinHasTheTextOfItsChildren) {
    for (const char* type : {"CROSS_KEYWORD", "INNER_KEYWORD", "LEFT_KEYWORD", "RIGHT_KEYWORD"})
        EXPECT_EQ(Operand({type, u"word", {Name(u" a"), Name(u"b")}}), Constant("ab")) << type;
    for (const char* type : {"NATURAL_KEYWORD", "OUTER_KEYWORD", "STRAIGHT_KEYWORD"})
        EXPECT_EQ(Operand({type, u"word", {Number(u"1"), Number(u"2")}}), Constant("1")) << type << " is none";
}

TEST(MySQLWalker, PartsOfAJoin) {
    const std::string slot = "ItemKind=0 FuncName=\" \" IsOperator=1\n";
    EXPECT_EQ(Operand({"JOIN_PREFIX", Nodes{Number(u"1"), {"LEFT_KEYWORD", u"LEFT"}}}), slot + Below(Constant("1")));
    EXPECT_EQ(Operand({"JOIN_POSTFIX", Nodes{Number(u"1"),
                                             {"JOIN_DEF"},
                                             {"JOIN_DEF", Nodes{{"TABLE_SPECIFICATION", Nodes{Table(u"t")}}}},
                                             Number(u"2")}}),
              Constant("1") + slot + slot + "  Class=Field ItemKind=5 TableName=\"t\"\n" + Constant("2"));
    EXPECT_EQ(Operand({"JOIN_DEF", Nodes{Number(u"1"), Number(u"2")}}), Constant("1"))
        << "beside FROM and JOIN_POSTFIX";
}

TEST(MySQLWalker, OtherNodesLeadToTheirFirstChild) {
    for (const char* type :
         {"ASTERISK_", "BY", "COLUMN_NAME", "COMMA", "ERROR", "FUNC_PARAM", "NUMBER_LITERAL", "TABLE_NAME"}) {
        EXPECT_EQ(Operand({type, Nodes{{"BY", Nodes{Number(u"1"), Number(u"2")}}, Number(u"3")}}), Constant("1"))
            << type;
    }
}

// --------------------------------------------------------------------------------------------------------- columns

TEST(MySQLWalker, QualifiersOfColumns) {
    const N column = Named("COLUMN_NAME", u"`c`");
    const N database = Named("DB_NAME", u"d");
    EXPECT_EQ(Selected({"COLUMN_SPECIFICATION", Nodes{Table(u" `t`"), column}}),
              "Class=Field ItemKind=5 TableName=\"t\" FieldName=\"c\"\n");
    EXPECT_EQ(Selected({"COLUMN_SPECIFICATION", Nodes{Named("COLUMN_NAME", u"a`b`")}}), Field("a`b`"));
    EXPECT_EQ(Selected({"COLUMN_SPECIFICATION", Nodes{Table(u"t")}}), "Class=Field ItemKind=5 TableName=\"t\"\n");
    EXPECT_EQ(Selected({"COLUMN_SPECIFICATION", Nodes{database, Table(u"t"), column}}), "Class=Field ItemKind=5\n");
    EXPECT_EQ(Selected({"COLUMN_SPECIFICATION"}), "Class=Field ItemKind=5\n");
}

TEST(MySQLWalker, AStarInAColumnsPlaceHasAnItemBelowIt) {
    const N star("ASTERISK", u"*");
    const std::string below = "  ItemKind=0 Text=\"*\"\n";
    const std::string outline = Built({{"SELECT_LIST", Nodes{{"COLUMN_SPECIFICATION", Nodes{Table(u"t"), star}}}}});
    EXPECT_EQ(Clause(outline, "Select"), "Class=Field ItemKind=5 TableName=\"t\"\n" + below);
    EXPECT_EQ(Clause(outline, "Fields"), "\"t*_0\" TableName=\"t\" FieldName=\"*\"\n\"t_0\" TableName=\"t\"\n");
    EXPECT_EQ(Selected({"COLUMN_SPECIFICATION", Nodes{star}}), "Class=Field ItemKind=5\n" + below);
    const N named("COLUMN_NAME", u"*", {Name(u"c")});
    const std::string both = Built({{"SELECT_LIST", Nodes{{"COLUMN_SPECIFICATION", Nodes{named}}}}});
    EXPECT_EQ(Clause(both, "Select"), Field("c") + below);
    EXPECT_EQ(Clause(both, "Fields"), "\"c_0\" FieldName=\"c\"\n");
}

/// ALIAS over a table and a new name.
N Renamed(const CString& table, const CString& name) {
    return {"ALIAS", Nodes{{"TABLE_SPECIFICATION", Nodes{Table(table)}}, Named("NEW_NAME", name)}};
}

std::string BuiltBeside(const N& column, const N& source) {
    return Built({{"SELECT_LIST", Nodes{column}}, {"FROM_DEF_", Nodes{source}}});
}

TEST(MySQLWalker, AQualifierThatIsAnAliasIsNoTable) {
    const N column("COLUMN_SPECIFICATION", Nodes{Table(u"`x`"), Named("COLUMN_NAME", u"c")});
    const std::string outline = BuiltBeside(column, Renamed(u"t", u"X"));
    EXPECT_EQ(Clause(outline, "Select"), "Class=Field ItemKind=5 Text=\"x\" FieldName=\"c\" TableAlias=\"x\"\n");
    EXPECT_EQ(Clause(outline, "Fields"), "\"c_0\" FieldName=\"c\"\n");
    EXPECT_EQ(Clause(outline, "Sources"), "\"t\"=\"t\"\n");
    const N star("COLUMN_SPECIFICATION", Nodes{Table(u"x"), {"ASTERISK", u"*"}});
    EXPECT_EQ(Clause(BuiltBeside(star, Renamed(u"t", u"x")), "Fields"), "\"*_0\" FieldName=\"*\"\n");
}

TEST(MySQLWalker, ANameNotInLowerCaseIsNoAliasAsWanted) {
    const N column("COLUMN_SPECIFICATION", Nodes{Table(u"X"), Named("COLUMN_NAME", u"c")});
    const std::string outline = BuiltBeside(column, Renamed(u"t", u"X"));
    EXPECT_EQ(Clause(outline, "Select"), "Class=Field ItemKind=5 TableName=\"X\" FieldName=\"c\"\n");
    EXPECT_EQ(Clause(outline, "Sources"), "\"X\"=\"X\"\n\"t\"=\"t\"\n");
}

TEST(MySQLWalker, AColumnIsNoAlias) {
    const std::string outline = Built({{"FROM_DEF_", Nodes{Renamed(u"t", u"x")}}, {"ORDER_BY", Nodes{Column(u"x")}}});
    EXPECT_EQ(Clause(outline, "OrderBy"), Field("x"));
    EXPECT_EQ(Clause(outline, "Fields"), "\"x_0\" FieldName=\"x\"\n");
}

// ----------------------------------------------------------------------------------------------- aliases and sources

TEST(MySQLWalker, KeysOfAliasesAreInLowerCaseWithoutBackticks) {
    EXPECT_EQ(Clause(Built({{"FROM_DEF_", Nodes{Renamed(u"t", u"`Ä b`"), Renamed(u"u", u"ä B")}}}), "Aliases"),
              "\"ä b\" SrcName=\"`Ä b`\" Name=\"`Ä b`\"\n"
              "  Expression ItemKind=0\n");
    EXPECT_EQ(Clause(Built({{"FROM_DEF_", Nodes{Renamed(u"t", u"a`B`")}}}), "Aliases"),
              "\"a`b`\" SrcName=\"a`B`\" Name=\"a`B`\"\n"
              "  Expression ItemKind=0\n");
}

TEST(MySQLWalker, AnAliasIsNamedByItsLastChild) {
    EXPECT_EQ(
        Clause(Built({{"BY", Nodes{{"ALIAS", Nodes{Named("NEW_NAME", u"x"), {"BY", Nodes{Name(u"y"), Name(u"z")}}}}}}}),
               "Aliases"),
        "\"yz\" SrcName=\"yz\" Name=\"yz\"\n"
        "  Expression ItemKind=0\n");
    EXPECT_EQ(Clause(Built({{"FROM_DEF_", Nodes{{"ALIAS"}}}}), "Aliases"), "");
    EXPECT_EQ(Clause(Built({{"FROM_DEF_", Nodes{{"AS", Nodes{Named("NEW_NAME", u"x")}}}}}), "Aliases"), "");
}

TEST(MySQLWalker, ATableNamedLikeAnAliasIsNoSource) {
    const std::string outline = Built({{"FROM_DEF_", Nodes{Renamed(u"t", u"x"),
                                                           Renamed(u"x", u"y"),
                                                           Renamed(u"`u`", u"z"),
                                                           Renamed(u"X", u"w"),
                                                           {"DB_NAME", Nodes{Table(u"v")}}}}});
    EXPECT_EQ(Clause(outline, "Sources"), "\"X\"=\"X\"\n\"t\"=\"t\"\n\"u\"=\"u\"\n\"v\"=\"v\"\n");
}

// ---------------------------------------------------------------------------------------------------- nested queries

TEST(MySQLWalker, OfANestedQueryOnlyTheFirstChildIsScannedForFields) {
    const N nested("SELECT_QUERY_MY", Nodes{{"PREDICATE", Nodes{Column(u"a")}}, {"SELECT_LIST", Nodes{Column(u"b")}}});
    const std::string outline = Built({{"LIMIT", Nodes{nested, Column(u"c")}}});
    EXPECT_EQ(Clause(outline, "Fields"), "\"a_0\" FieldName=\"a\"\n\"c_0\" FieldName=\"c\"\n");
    EXPECT_EQ(Clause(outline, "SubQueries"),
              "DataType=1 QueryKind=1\n"
              "  Select\n" +
                  Below(Below(Field("b"))) +
                  "  Fields\n"
                  "    \"a_0\" FieldName=\"a\"\n"
                  "    \"b_0\" FieldName=\"b\"\n");
}

TEST(MySQLWalker, AUnionWithoutASelectIsAMemberWithAnEmptyQuery) {
    EXPECT_EQ(Built({{"UNION"}}), "Query\n");
    for (const Nodes& children : {Nodes{{"ERROR"}}, Nodes{{"ALL_KEYWORD", u"ALL"}}}) {
        EXPECT_EQ(Clause(Built({{"UNION", children}}), "Union"),
                  "Class=Union ItemKind=8 FuncName=\"UNION\"\n  Query DataType=1 QueryKind=1\n");
    }
}

TEST(MySQLWalker, AUnionIsFollowedDownItsFirstChildren) {
    const N select("SELECT_QUERY_MY", Nodes{{"SELECT_LIST", Nodes{Number(u"1")}}});
    const N way("BY", Nodes{{"ERROR", Nodes{select, Number(u"2")}}, select});
    const std::string expected =
        "Class=Union ItemKind=8 FuncName=\"UNION\"\n"
        "  Query DataType=1 QueryKind=1\n"
        "    Select\n" +
        Below(Below(Below(Constant("1"))));
    EXPECT_EQ(Clause(Built({{"UNION", Nodes{way}}}), "Union"), expected);
    EXPECT_EQ(Clause(Built({{"UNION", Nodes{{"ALL_KEYWORD", u"ALL"}, way}}}), "Union"), expected);
}

TEST(MySQLWalker, AQueryRightBelowAQueryAddsNothing) {
    const N select("SELECT_QUERY_MY", Nodes{{"SELECT_LIST", Nodes{Number(u"1")}}});
    EXPECT_EQ(Operand({"SELECT_QUERY_MY", Nodes{select}}),
              "Class=SubQuery ItemKind=6 FuncName=\"SUB_QUERY\"\n  Query DataType=1 QueryKind=1\n");
}

}  // namespace
