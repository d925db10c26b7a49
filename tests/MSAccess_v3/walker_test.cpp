// Steps of the walker over trees put together by hand: what the golden models don't show, and what no text gives.
#include <gtest/gtest.h>

#include <string>

#include "QZParserSQL/MSAccess_v3/MSAccessSQL_v3StateSelectQuery.h"
#include "tests/support/HandMadeModel.h"

namespace {

using Models = HandMadeModels<MSAccessSQL_v3StateSelectQuery, QZGrammarMSAccessSQL_v3>;
using N = Models::Node;
using Nodes = Models::Nodes;

N Name(const CString& text) { return {"IDENTIFICATOR", text}; }
N Column(const CString& text) { return {"COLUMN_SPECIFICATION", Nodes{{"COLUMN_NAME", Nodes{Name(text)}}}}; }
N Table(const CString& text) { return {"TABLE_NAME", Nodes{Name(text)}}; }
N Digits(const CString& text) { return {"NUMBER_LITERAL", Nodes{{"DIGIT", text}}}; }
N Number(const CString& text) { return {"SQL_LITERAL", Nodes{Digits(text)}}; }

const Models models("SELECT_QUERY");

std::string Built(Nodes clauses) { return models.Built(std::move(clauses)); }
std::string Selected(const N& node) { return models.Selected(node); }
std::string Operands(const Nodes& nodes) { return models.Operands(nodes); }
std::string Operand(const N& node) { return models.Operand(node); }
std::string From(const N& node) { return models.From(node); }

// ------------------------------------------------------------------------------------------------------- clauses

TEST(AccessWalker, OnlyTheFirstWordOfAPredicateCounts) {
    EXPECT_EQ(Built({{"PREDICATE", Nodes{{"DISTINCT_KEYWORD", u"DISTINCT"}, {"ALL_KEYWORD", u"ALL"}}}}),
              "Query SelectQuantifier=2\n");
    EXPECT_EQ(Built({{"PREDICATE", Nodes{{"TOP_KEYWORD", u"TOP"}, {"ALL_KEYWORD", u"ALL"}}}}), "Query\n");
    EXPECT_EQ(Built({{"PREDICATE"}}), "Query\n");
}

TEST(AccessWalker, ClausesWithoutAPlaceInTheModelAddNothing) {
    for (const char* clause : {"OPTION", "COMPUTE", "FOR", "TABLE_HINT"})
        EXPECT_EQ(Clause(Built({{clause, Nodes{Column(u"a")}}}), "Select"), "") << clause;
}

TEST(AccessWalker, EachOperatorIsInfixInEveryClause) {
    for (const char* type :
         {"ALIAS",           "AMPERSAND", "AND",         "AND_KEYWORD",  "AND_KEYWORD2", "AS",          "ASTERISK",
          "BETWEEN_KEYWORD", "DIVIDE",    "EQ",          "GE",           "GOJ",          "GT",          "IN_KEYWORD",
          "IS_KEYWORD",      "LE",        "LEFT_PAREN",  "LIKE_KEYWORD", "LITERAL_AS",   "LOJ",         "L_T",
          "MINUS",           "NOT_EQ",    "NOT_KEYWORD", "ON_KEYWORD",   "OR_KEYWORD",   "OR_KEYWORD2", "PLUS",
          "UNION_KEYWORD"}) {
        const std::string expected = std::string("ItemKind=4 FuncName=\"op\" TokenType=") + type + " IsOperator=1\n";
        EXPECT_EQ(Selected({type, u"\t op"}), expected);
        EXPECT_EQ(Operand({type, u"op"}), expected);
        EXPECT_EQ(From({type, u"op"}), expected);
    }
}

TEST(AccessWalker, OfOtherOperatorsTheFirstOperandStays) {
    for (const char* type : {"MOD", "MOD1", "MOD_KEYWORD", "VERTBAR"}) {
        const N node(type, u"op", {Column(u"a"), Column(u"b")});
        EXPECT_EQ(Selected(node), "Class=Field ItemKind=5 FieldName=\"a\"\n") << type;
        EXPECT_EQ(Operand(node), "Class=Field ItemKind=5 FieldName=\"a\"\n") << type;
        EXPECT_EQ(From(node), "") << type;
    }
}

TEST(AccessWalker, AJoinWithoutAPrefixHasABlankInItsPlace) {
    EXPECT_EQ(Selected({"JOIN_KEYWORD", u"Join"}),
              "ItemKind=4 FuncName=\"Join\" TokenType=JOIN_KEYWORD IsOperator=1\n"
              "  ItemKind=0 FuncName=\" \"\n");
    EXPECT_EQ(Selected({"JOIN_KEYWORD", u"JOIN", {{"JOIN_PREFIX"}}}),
              "ItemKind=4 FuncName=\"JOIN\" TokenType=JOIN_KEYWORD IsOperator=1\n"
              "  ItemKind=0 FuncName=\" \" IsOperator=1\n");
    EXPECT_EQ(Selected({"JOIN_KEYWORD", u"JOINT"}),
              "ItemKind=4 FuncName=\"JOINT\" TokenType=JOIN_KEYWORD IsOperator=1\n");
}

TEST(AccessWalker, AnOperatorBelowANestedJoinIsNested) {
    EXPECT_EQ(Operand({"NESTED_JOIN", Nodes{{"EQ", u"="}}}),
              "ItemKind=4 FuncName=\"=\" TokenType=EQ IsOperator=1 IsNested=1\n");
}

// -------------------------------------------------------------------------------------------------- AddClauseItem

TEST(AccessWalker, InAClauseATableNameAndALeafAddNothing) {
    EXPECT_EQ(Selected(Table(u"t")), "");
    EXPECT_EQ(Selected({"RIGHT_PAREN", u")"}), "");
    EXPECT_EQ(Selected({"ERROR"}), "");
    EXPECT_EQ(Selected({"SQL_LITERAL"}), "");
    EXPECT_EQ(Selected({"FUNCTION"}), "");
}

TEST(AccessWalker, InAClauseOtherNodesLeadToTheirFirstChild) {
    EXPECT_EQ(Selected({"FUNC_PARAM", Nodes{{"FUNC_PARAM", Nodes{Column(u"a"), Column(u"b")}}}}),
              "Class=Field ItemKind=5 FieldName=\"a\"\n");
    EXPECT_EQ(Selected({"ERROR", u"Tree Error Node", {Column(u"a")}}), "Class=Field ItemKind=5 FieldName=\"a\"\n");
}

TEST(AccessWalker, TheStarNodeIsAFieldItem) {
    EXPECT_EQ(Selected({"ASTERISK_"}), "Class=Field ItemKind=5\n");
    EXPECT_EQ(Selected({"ASTERISK_", Nodes{{"COLUMN_NAME", Nodes{{"ASTERISK", u"*"}}}}}),
              "Class=Field ItemKind=5 FieldName=\"*\"\n");
}

// ------------------------------------------------------------------------------------------------------------ FROM

TEST(AccessWalker, FromTakesFewNodes) {
    EXPECT_EQ(From({"SELECT_QUERY"}), "ItemKind=0 FuncName=\"select\"\n");
    EXPECT_EQ(From({"TABLE_SPECIFICATION", Nodes{Table(u"t")}}), "Class=Field ItemKind=5 TableName=\"t\"\n");
    EXPECT_EQ(From({"TABLE_SPECIFICATION", Nodes{{"QUERY_NAME", Nodes{Name(u"q")}}, Table(u"t")}}),
              "Class=Field ItemKind=5 TableName=\"QUERY_NAMETABLE_NAME\"\n");
    EXPECT_EQ(From(Column(u"a")), "");
    EXPECT_EQ(From({"FUNCTION", Nodes{{"NOW", u"Now"}}}), "");
    EXPECT_EQ(From({"JOIN_DEF", Nodes{Column(u"a"), {"EQ", u"="}}}),
              "ItemKind=4 FuncName=\"DEF_JOIN\" IsOperator=1\n"
              "  ItemKind=4 FuncName=\"=\" TokenType=EQ IsOperator=1\n");
}

// -------------------------------------------------------------------------------------------------------- WalkNode

TEST(AccessWalker, ATableSpecificationIsNamedByItsFirstChild) {
    EXPECT_EQ(Operand({"TABLE_SPECIFICATION", Nodes{Table(u"`t`"), Table(u"u")}}),
              "Class=Field ItemKind=5 TableName=\"t\"\n");
    EXPECT_EQ(Operand({"TABLE_SPECIFICATION"}), "");
}

TEST(AccessWalker, EachKindOfFunctionIsAFunction) {
    for (const char* type : {"CONVERT_FUNCTION", "FUNCTION", "GROUP_FUNCTION"}) {
        EXPECT_EQ(Operand({type, Nodes{{"NOW", u"` Now`"}, {"FUNC_PARAM", Nodes{Column(u"a"), Number(u"1")}}}}),
                  "ItemKind=4 FuncName=\"Now\" TokenType=NOW\n"
                  "  Class=Field ItemKind=5 FieldName=\"a\"\n"
                  "  ItemKind=1 Text=\"1\"\n")
            << type;
        EXPECT_EQ(Operand({type}), "") << type;
    }
}

TEST(AccessWalker, AUserFunctionIsRecordedWithTheCountOfItsParameterNode) {
    const std::string outline = Built({{"SELECT_LIST", Nodes{{"USER_FUNCTION", Nodes{Name(u"f"), {"FUNC_PARAM"}}},
                                                             {"USER_FUNCTION", Nodes{Name(u"g")}}}}});
    EXPECT_EQ(Clause(outline, "Select"),
              "ItemKind=7 FuncName=\"f\" TokenType=IDENTIFICATOR\n"
              "ItemKind=7 FuncName=\"g\" TokenType=IDENTIFICATOR\n");
    EXPECT_EQ(Clause(outline, "UserFunctions"), "\"f\"=0\n\"g\"=0\n");
}

TEST(AccessWalker, TheOperandsOfBetweenAndLikeStandBelowTheirWord) {
    const Nodes operands{Column(u"a"), Number(u"1")};
    const std::string shown = "  Class=Field ItemKind=5 FieldName=\"a\"\n  ItemKind=1 Text=\"1\"\n";
    EXPECT_EQ(Operand({"FUNCTION", Nodes{{"BETWEEN_KEYWORD", u"Between", operands}, Number(u"2")}}),
              "ItemKind=4 FuncName=\"Between\" TokenType=BETWEEN_KEYWORD IsOperator=1\n" + shown);
    EXPECT_EQ(Operand({"FUNCTION", Nodes{{"LIKE_KEYWORD", u"Like", operands}, Number(u"2")}}),
              "ItemKind=4 FuncName=\"Like\" TokenType=LIKE_KEYWORD IsOperator=1\n" + shown);
}

TEST(AccessWalker, WhatStandsBehindAClosingParenthesisIsNotWalked) {
    EXPECT_EQ(Operands({Number(u"1"), {"RIGHT_PAREN", u")"}, Number(u"2")}), "ItemKind=1 Text=\"1\"\n");
}

TEST(AccessWalker, ParametersStandBelowTheParenthesisOrTheNodeBehindIt) {
    const N opened("LEFT_PAREN", u"(", {Number(u"1")});
    const N bare("LEFT_PAREN", u"(");
    const auto parameters = [](const Nodes& nodes) {
        const std::string outline = Operand({"FUNCTION", Nodes{{"NOW", u"f"}, {"FUNC_PARAM", nodes}}});
        return outline.substr(outline.find('\n') + 1);
    };
    EXPECT_EQ(parameters({opened, Number(u"2")}), "  ItemKind=1 Text=\"1\"\n");
    EXPECT_EQ(parameters({bare, {"FUNC_PARAM", Nodes{Number(u"2"), Number(u"3")}}}),
              "  ItemKind=1 Text=\"2\"\n  ItemKind=1 Text=\"3\"\n");
    EXPECT_EQ(parameters({bare, {"RIGHT_PAREN", u")"}}), "");
    EXPECT_EQ(parameters({bare}), "  ItemKind=4 FuncName=\"(\" TokenType=LEFT_PAREN IsOperator=1\n");
    EXPECT_EQ(parameters({Number(u"1"), bare}),
              "  ItemKind=1 Text=\"1\"\n  ItemKind=4 FuncName=\"(\" TokenType=LEFT_PAREN IsOperator=1\n");
}

TEST(AccessWalker, LiteralsByTheirNode) {
    EXPECT_EQ(Operand({"STYLE", Nodes{Digits(u"101")}}), "ItemKind=1 Text=\"101\"\n");
    EXPECT_EQ(Operand({"DATE_PART", Nodes{{"YEAR", u"`yyyy`"}}}), "ItemKind=0 Text=\"yyyy\"\n");
    EXPECT_EQ(Operand({"SQL_LITERAL", Nodes{{"SQL_STRING"}}}), "ItemKind=2 Text=\" \"\n");
    EXPECT_EQ(Operand({"SQL_LITERAL", Nodes{{"DATE"}}}), "ItemKind=3 Text=\" \"\n");
    EXPECT_EQ(Operand({"SQL_LITERAL", Nodes{{"NUMBER_LITERAL"}}}), "ItemKind=1\n");
    EXPECT_EQ(Operand({"SQL_LITERAL"}), "");
    EXPECT_EQ(Operand({"DATATYPE"}), "ItemKind=1\n");
    EXPECT_EQ(Operand({"DATATYPE", Nodes{{"INT", u"INT"}, {"DIGIT", u"4"}}}), "ItemKind=1 Text=\"INT4\"\n");
}

TEST(AccessWalker, ABareNameIsAnItemOfItsChildren) {
    EXPECT_EQ(Operand(Name(u"a")), "ItemKind=0\n");
    EXPECT_EQ(Operand({"IDENTIFICATOR", u"a", {Name(u"b"), Name(u"c")}}), "ItemKind=0 Text=\"bc\"\n");
    EXPECT_EQ(Operand({"NEW_NAME", Nodes{Name(u" b"), Name(u"c ")}}), "ItemKind=1 Text=\"bc\"\n");
}

TEST(AccessWalker, WordsOfJoins) {
    for (const char* type : {"INNER_KEYWORD", "RIGHT_KEYWORD", "LEFT_KEYWORD", "CROSS_KEYWORD", "OUTER_KEYWORD"}) {
        EXPECT_EQ(Operand({"JOIN_TYPE", Nodes{{type, u"Word"}}}), "ItemKind=1 Text=\"Word\"\n");
        EXPECT_EQ(Operand({type, u"Word"}), "") << "by itself";
    }
    EXPECT_EQ(Operand({"JOIN_TYPE", Nodes{Name(u"NATURAL")}}), "ItemKind=0 Text=\"NATURAL\"\n");
    EXPECT_EQ(Operand({"JOIN_TYPE", Nodes{Digits(u"7")}}), "ItemKind=1 Text=\"7\"\n");
    EXPECT_EQ(Operand({"JOIN_TYPE", Nodes{{"LEFT_KEYWORD", u"LEFT"}, {"OUTER_KEYWORD", u"OUTER"}}}),
              "ItemKind=1 Text=\"LEFT\"\n");
    EXPECT_EQ(Operand({"JOIN_TYPE"}), "");
}

TEST(AccessWalker, PartsOfAJoin) {
    EXPECT_EQ(Operand({"JOIN_PREFIX", Nodes{Number(u"1")}}),
              "ItemKind=0 FuncName=\" \" IsOperator=1\n  ItemKind=1 Text=\"1\"\n");
    EXPECT_EQ(Operand({"JOIN_POSTFIX", Nodes{Number(u"1"), {"JOIN_DEF"}, Number(u"2")}}),
              "ItemKind=1 Text=\"1\"\n"
              "ItemKind=0 FuncName=\" \" IsOperator=1\n"
              "  ItemKind=4 FuncName=\"DEF_JOIN\" IsOperator=1\n"
              "ItemKind=1 Text=\"2\"\n");
    EXPECT_EQ(Operand({"JOIN_DEF"}), "ItemKind=4 FuncName=\"DEF_JOIN\" IsOperator=1\n");
}

TEST(AccessWalker, OtherNodesLeadToTheirFirstChild) {
    EXPECT_EQ(Operand({"TABLE_HINT", Nodes{{"BY", Nodes{Number(u"1"), Number(u"2")}}, Number(u"3")}}),
              "ItemKind=1 Text=\"1\"\n");
    EXPECT_EQ(Operand({"COMMA", u","}), "");
}

// --------------------------------------------------------------------------------------------------------- columns

TEST(AccessWalker, QualifiersOfColumns) {
    const N query("QUERY_NAME", Nodes{Name(u"[q]")});
    const N column("COLUMN_NAME", Nodes{Name(u"`c`")});
    EXPECT_EQ(Selected({"COLUMN_SPECIFICATION", Nodes{query, column}}),
              "Class=Field ItemKind=5 TableName=\"q\" FieldName=\"c\"\n");
    EXPECT_EQ(Selected({"COLUMN_SPECIFICATION", Nodes{query, {"QUERY_NAME", Nodes{Name(u"r")}}, column}}),
              "Class=Field ItemKind=5 TableName=\"q\" FieldName=\"c\"\n");
    EXPECT_EQ(Selected({"COLUMN_SPECIFICATION", Nodes{query, Table(u"[t]"), column}}),
              "Class=Field ItemKind=5 TableName=\"[t]\" FieldName=\"c\"\n");
    EXPECT_EQ(Selected({"COLUMN_SPECIFICATION", Nodes{Table(u"t")}}), "Class=Field ItemKind=5 TableName=\"t\"\n");
    EXPECT_EQ(Selected({"COLUMN_SPECIFICATION"}), "Class=Field ItemKind=5\n");
}

TEST(AccessWalker, ADottedNameIsAQualifierAndAName) {
    EXPECT_EQ(Selected(Column(u"t..c.d")), "Class=Field ItemKind=5 TableName=\"t\" FieldName=\"c.d\"\n");
    EXPECT_EQ(Selected(Column(u".c")), "Class=Field ItemKind=5 FieldName=\".c\"\n");
}

/// ALIAS over a table and a new name.
N Renamed(const CString& table, const CString& name) {
    return {"ALIAS", Nodes{{"TABLE_SPECIFICATION", Nodes{Table(table)}}, {"NEW_NAME", Nodes{Name(name)}}}};
}

std::string SelectedBeside(const N& column, const N& source) {
    return Clause(Built({{"SELECT_LIST", Nodes{column}}, {"FROM_DEF_", Nodes{source}}}), "Select");
}

TEST(AccessWalker, AQualifierThatIsAnAliasIsNoTable) {
    const N column("COLUMN_NAME", Nodes{Name(u"c")});
    const std::string expected = "Class=Field ItemKind=5 Text=\"X\" FieldName=\"c\" TableAlias=\"X\"\n";
    EXPECT_EQ(SelectedBeside({"COLUMN_SPECIFICATION", Nodes{Table(u"X"), column}}, Renamed(u"t", u"x")), expected);
    EXPECT_EQ(
        SelectedBeside({"COLUMN_SPECIFICATION", Nodes{{"QUERY_NAME", Nodes{Name(u"X")}}, column}}, Renamed(u"t", u"x")),
        expected);
    EXPECT_EQ(SelectedBeside(Column(u"X.c"), Renamed(u"t", u"x")), expected);
}

TEST(AccessWalker, AQualifiedNameOfAnAliasIsAField) {
    EXPECT_EQ(SelectedBeside({"COLUMN_SPECIFICATION", Nodes{Table(u"t"), {"COLUMN_NAME", Nodes{Name(u"x")}}}},
                             Renamed(u"t", u"x")),
              "Class=Field ItemKind=5 TableName=\"t\" FieldName=\"x\"\n");
}

TEST(AccessWalker, ATableWhoseNameIsAnAliasIsTurnedRoundInTheExpressionToo) {
    EXPECT_EQ(SelectedBeside(Column(u"X"), Renamed(u"x", u"x")),
              "Class=Field ItemKind=10 FieldAlias=\"X\"\n"
              "  Class=Field ItemKind=10 TableAlias=\"x\"\n");
}

// ----------------------------------------------------------------------------------------------- aliases and sources

TEST(AccessWalker, KeysOfAliasesAreInLowerCaseWithoutBackticks) {
    EXPECT_EQ(Clause(Built({{"FROM_DEF_", Nodes{Renamed(u"t", u"`Ä b`"), Renamed(u"u", u"ä B")}}}), "Aliases"),
              "\"ä b\" SrcName=\"`Ä b`\" Name=\"`Ä b`\"\n"
              "  Expression ItemKind=0\n"
              "    Class=Field ItemKind=5 TableName=\"t\"\n"
              "    ItemKind=1 Text=\"`Ä b`\"\n");
}

TEST(AccessWalker, ATableNamedLikeAnAliasIsNoSource) {
    const std::string outline =
        Built({{"FROM_DEF_", Nodes{Renamed(u"t", u"x"), Renamed(u"X", u"y"), Renamed(u"`u`", u"z")}}});
    EXPECT_EQ(Clause(outline, "Sources"), "\"t\"=\"t\"\n\"u\"=\"u\"\n");
}

TEST(AccessWalker, AnAliasNodeWithoutChildrenDeclaresNothing) {
    EXPECT_EQ(Clause(Built({{"FROM_DEF_", Nodes{{"ALIAS"}}}}), "Aliases"), "");
}

// ---------------------------------------------------------------------------------------------------- nested queries

TEST(AccessWalker, AUnionWithoutASelectIsAMemberWithAnEmptyQuery) {
    EXPECT_EQ(Clause(Built({{"UNION"}}), "Union"), "");
    EXPECT_EQ(Clause(Built({{"UNION", Nodes{{"ERROR"}}}}), "Union"),
              "Class=Union ItemKind=8 FuncName=\"UNION\"\n  Query DataType=2 QueryKind=2\n");
}

TEST(AccessWalker, AUnionIsFollowedDownItsFirstChildren) {
    const N select("SELECT_QUERY", Nodes{{"SELECT_LIST", Nodes{Number(u"1")}}});
    const std::string expected =
        "Class=Union ItemKind=8 FuncName=\"UNION\"\n"
        "  Query DataType=2 QueryKind=2\n"
        "    Select\n"
        "      ItemKind=1 Text=\"1\"\n";
    EXPECT_EQ(Clause(Built({{"UNION", Nodes{{"BY", Nodes{select, Number(u"2")}}}}}), "Union"), expected);
    EXPECT_EQ(Clause(Built({{"UNION", Nodes{{"ALL_KEYWORD", u"ALL"}, {"BY", Nodes{select}}}}}), "Union"), expected);
}

}  // namespace
