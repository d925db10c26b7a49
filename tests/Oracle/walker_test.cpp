// Steps of the walker over trees put together by hand: what the golden models don't show, and what no text gives.
#include <gtest/gtest.h>

#include <string>

#include "QZParserSQL/Oracle/OracleStateSelectQuery.h"
#include "tests/support/HandMadeTree.h"
#include "tests/support/ModelText.h"

namespace {

using N = HandMadeTree<QZGrammarOracle>;
using Nodes = std::vector<N>;

N Name(const CString& text) { return {"IDENTIFICATOR", text}; }
N Named(const char* kind, const CString& text) { return {kind, Nodes{Name(text)}}; }
N Column(const CString& text) { return {"COLUMN_SPECIFICATION", Nodes{Named("COLUMN_NAME", text)}}; }
N ColumnOf(const CString& table, const CString& text) {
    return {"COLUMN_SPECIFICATION", Nodes{Named("TABLE_NAME", table), Named("COLUMN_NAME", text)}};
}
N Table(const CString& text) { return {"TABLE_SPECIFICATION", Nodes{Named("TABLE_NAME", text)}}; }
N TableOf(const CString& database, const CString& text) {
    return {"TABLE_SPECIFICATION", Nodes{Named("DB_NAME", database), Named("TABLE_NAME", text)}};
}
N Digits(const CString& text) { return {"NUMBER_LITERAL", Nodes{{"DIGIT", text}}}; }
N Number(const CString& text) { return {"SQL_LITERAL", Nodes{Digits(text)}}; }
N Renamed(const N& node, const CString& name) { return {"ALIAS", Nodes{node, Named("NEW_NAME", name)}}; }

/// The model of a SELECT with these clauses.
std::string Built(Nodes clauses) {
    concrete::Database database;
    CQZQueryInfo query;
    query.SetDatabase(&database);
    N select("SELECT_QUERY_OR", std::move(clauses));
    OracleStateSelectQuery state(&select);
    state.m_pQuery = &query;
    state.Build();
    return OutlineOf(query, QZGrammarOracle());
}

/// What stands in a clause, at the left border.
std::string Clause(const std::string& outline, const std::string& name) {
    std::string text;
    const std::string heading = "\n  " + name;
    auto at = outline.find(heading + '\n');
    if (at == std::string::npos) at = outline.find(heading + ' ');
    if (at == std::string::npos) return "";
    at = outline.find('\n', at + 1) + 1;
    for (; outline.compare(at, 4, "    ") == 0; at = outline.find('\n', at) + 1)
        text += outline.substr(at + 4, outline.find('\n', at) + 1 - at - 4);
    return text;
}

/// The items that a clause makes of nodes.
std::string Items(const char* clause, const char* shown, const Nodes& nodes) {
    return Clause(Built({{clause, nodes}}), shown);
}
std::string Selected(const N& node) { return Items("SELECT_LIST", "Select", {node}); }
std::string From(const N& node) { return Items("FROM_DEF_", "From", {node}); }
std::string Where(const N& node) { return Items("WHERE_CONDITION", "Where", {node}); }
std::string Ordered(const Nodes& nodes) { return Items("ORDER_BY", "OrderBy", nodes); }

/// The items that become operands of an operator.
std::string Operands(const Nodes& nodes) {
    const std::string outline = Selected({"PLUS", u"+", nodes});
    const std::string first = "ItemKind=4 FuncName=\"+\" TokenType=PLUS IsOperator=1\n";
    EXPECT_EQ(outline.substr(0, first.size()), first);
    std::string text;
    for (auto at = first.size(); at < outline.size(); at = outline.find('\n', at) + 1)
        text += outline.substr(at + 2, outline.find('\n', at) + 1 - at - 2);
    return text;
}
std::string Operand(const N& node) { return Operands({node}); }

const std::string kFieldA = "Class=Field ItemKind=5 FieldName=\"a\"\n";
const std::string kOne = "ItemKind=1 Text=\"1\"\n";

// ------------------------------------------------------------------------------------------------------- clauses

TEST(OracleWalker, OnlyTheFirstWordOfAPredicateCounts) {
    const N all("ALL_KEYWORD", u"ALL");
    const N distinct("DISTINCT_KEYWORD", u"DISTINCT");
    const N top("TOP_KEYWORD", u"TOP", {Digits(u"5")});
    EXPECT_EQ(Built({{"PREDICATE", Nodes{all}}}), "Query SelectQuantifier=1\n");
    EXPECT_EQ(Built({{"PREDICATE", Nodes{distinct, all}}}), "Query SelectQuantifier=2\n");
    EXPECT_EQ(Built({{"PREDICATE", Nodes{distinct, top}}}), "Query SelectQuantifier=2\n");
    EXPECT_EQ(Built({{"PREDICATE", Nodes{top, distinct}}}), "Query HasLimit=1 LimitSecond=5\n");
    EXPECT_EQ(Built({{"PREDICATE", Nodes{{"WITHTIES_KEYWORD", u"WITHTIES"}}}}), "Query\n");
    EXPECT_EQ(Built({{"PREDICATE"}}), "Query\n");
}

TEST(OracleWalker, ALimitIsTheLeadingDigitsOfTheFirstPartOfItsNumber) {
    const auto limit = [](const Nodes& nodes) { return Built({{"PREDICATE", Nodes{{"TOP_KEYWORD", u"TOP", nodes}}}}); };
    EXPECT_EQ(limit({Digits(u"10")}), "Query HasLimit=1 LimitSecond=10\n");
    EXPECT_EQ(limit({Digits(u"7up")}), "Query HasLimit=1 LimitSecond=7\n");
    EXPECT_EQ(limit({{"NUMBER_LITERAL", Nodes{{"MINUS", u"-"}, {"DIGIT", u"5"}}}}), "Query HasLimit=1\n");
    EXPECT_EQ(limit({Digits(u"10"), {"WITHTIES_KEYWORD", u"WITHTIES"}}), "Query\n");
    EXPECT_EQ(limit({{"NUMBER_LITERAL"}}), "Query\n");
    EXPECT_EQ(limit({}), "Query\n");
}

TEST(OracleWalker, ClausesWithoutAPlaceInTheModelAddNothing) {
    for (const char* clause : {"COMPUTE", "FOR", "OPTION", "TABLE_HINT"}) {
        const std::string expected = "Query\n  Fields\n    \"a_0\" FieldName=\"a\"\n";
        EXPECT_EQ(Built({{clause, Nodes{Column(u"a")}}}), expected) << clause;
    }
}

TEST(OracleWalker, AListIsEmptiedBeforeItIsFilled) {
    const Nodes a{Column(u"a")};
    for (const auto& [clause, shown] :
         {std::pair("SELECT_LIST", "Select"), {"GROUP_BY", "GroupBy"}, {"HAVING", "Having"}, {"ORDER_BY", "OrderBy"}})
        EXPECT_EQ(Clause(Built({{clause, Nodes{Column(u"b")}}, {clause, a}}), shown), kFieldA) << clause;
    EXPECT_EQ(Clause(Built({{"WHERE_CONDITION", Nodes{Column(u"b")}}, {"WHERE_CONDITION", a}}), "Where"), kFieldA);
    EXPECT_EQ(Clause(Built({{"FROM_DEF_", Nodes{Table(u"u")}}, {"FROM_DEF_", Nodes{Table(u"t")}}}), "From"),
              "Class=Field ItemKind=5 TableName=\"t\"\n");
}

TEST(OracleWalker, EachOperatorIsInfixInEveryClause) {
    for (const char* type : {"ALIAS",
                             "AMPERSAND",
                             "AND",
                             "AND_KEYWORD",
                             "AND_KEYWORD2",
                             "ASTERISK",
                             "COMMA",
                             "DIVIDE",
                             "EQ",
                             "FROM_KEYWORD",
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
                             "PLUS",
                             "UNION_KEYWORD_",
                             "BETWEEN_KEYWORD"}) {
        const std::string expected = std::string("ItemKind=4 FuncName=\"op\" TokenType=") + type + " IsOperator=1\n";
        EXPECT_EQ(Selected({type, u"op"}), expected);
        EXPECT_EQ(Operand({type, u"op"}), expected);
        EXPECT_EQ(From({type, u"op"}), expected);
    }
}

TEST(OracleWalker, OfOtherOperatorsTheFirstOperandStays) {
    for (const char* type : {"MOD", "VERTBAR", "NOT_KEYWORD", "FULL_KEYWORD", "OUTER_KEYWORD", "IN_", "ISNOT"}) {
        const N node(type, u"op", {Column(u"a"), Column(u"b")});
        EXPECT_EQ(Selected(node), kFieldA) << type;
        EXPECT_EQ(Operand(node), kFieldA) << type;
        EXPECT_EQ(From(node), "") << type;
    }
}

TEST(OracleWalker, TwoBarsAreAnOperatorWhereTheyJoinConditions) {
    const auto bars = [](const Nodes& operands) { return N("OR_KEYWORD2", u"||", operands); };
    const N a = Column(u"a");
    const N b = Column(u"b");
    const auto isOperator = [](const N& node) {
        const std::string infix = "ItemKind=4 FuncName=\"||\" TokenType=OR_KEYWORD2 IsOperator=1\n";
        return Where(node).rfind(infix, 0) == 0;
    };
    for (const char* condition :
         {"SEARCH_CONDITION", "NOT_CONDITION", "BETWEEN_KEYWORD", "AND_KEYWORD", "AND_KEYWORD2", "OR_KEYWORD"}) {
        EXPECT_TRUE(isOperator(bars({{condition, Nodes{a}}, {condition, Nodes{b}}}))) << condition;
        EXPECT_TRUE(isOperator(bars({a, {condition, Nodes{b}}}))) << condition;
        EXPECT_TRUE(isOperator(bars({{condition, Nodes{a}}, b}))) << condition;
        EXPECT_TRUE(isOperator(bars({bars({a, {condition, Nodes{b}}}), Column(u"c")}))) << condition;
    }
    EXPECT_EQ(Where(bars({a, b})), kFieldA);
    EXPECT_EQ(Where(bars({a, bars({b, b})})), kFieldA);
    EXPECT_EQ(Where(bars({bars({a, b}), b})), kFieldA);
    EXPECT_EQ(Where(bars({a})), kFieldA);
    EXPECT_EQ(Where(bars({})), "");
    EXPECT_EQ(From(bars({a, b})), "");
}

TEST(OracleWalker, AJoinWithoutAPrefixHasABlankInItsPlace) {
    EXPECT_EQ(From({"JOIN_KEYWORD", u"Join"}),
              "ItemKind=4 FuncName=\"Join\" TokenType=JOIN_KEYWORD IsOperator=1\n"
              "  ItemKind=0 Text=\" \"\n");
    EXPECT_EQ(From({"JOIN_KEYWORD", u"JOIN", {{"JOIN_PREFIX"}}}),
              "ItemKind=4 FuncName=\"JOIN\" TokenType=JOIN_KEYWORD IsOperator=1\n"
              "  ItemKind=0 FuncName=\" \" IsOperator=1\n");
}

TEST(OracleWalker, AnOperatorBelowANestedJoinIsNested) {
    EXPECT_EQ(Operand({"NESTED_JOIN", Nodes{{"EQ", u"="}}}),
              "ItemKind=4 FuncName=\"=\" TokenType=EQ IsOperator=1 IsNested=1\n");
}

// -------------------------------------------------------------------------------------------------- AddClauseItem

TEST(OracleWalker, InAClauseATableNameAndALeafAddNothing) {
    EXPECT_EQ(Selected(Named("TABLE_NAME", u"t")), "");
    EXPECT_EQ(Selected({"RIGHT_PAREN", u")"}), "");
    EXPECT_EQ(Selected(Name(u"a")), "");
    EXPECT_EQ(Selected({"SQL_LITERAL"}), "");
}

TEST(OracleWalker, AConstantByItselfIsKeptInTheSelectListOnly) {
    EXPECT_EQ(Selected(Number(u"1")), kOne);
    EXPECT_EQ(Selected({"MOD", u"%", {Number(u"1"), Number(u"2")}}), kOne);
    EXPECT_EQ(Where(Number(u"1")), "");
    EXPECT_EQ(Items("GROUP_BY", "GroupBy", {Number(u"1")}), "");
    EXPECT_EQ(Items("HAVING", "Having", {Number(u"1")}), "");
    EXPECT_EQ(Ordered({Number(u"1")}), "");
}

TEST(OracleWalker, InAClauseOtherNodesLeadToTheirFirstChild) {
    EXPECT_EQ(Selected({"NOT_CONDITION", Nodes{{"FUNC_PARAM", Nodes{Column(u"a"), Column(u"b")}}}}), kFieldA);
    EXPECT_EQ(Selected(Table(u"t")), "");
    EXPECT_EQ(Selected({"SELECT_QUERY_OR", Nodes{{"SELECT_LIST", Nodes{Column(u"a"), Column(u"b")}}}}), kFieldA);
}

TEST(OracleWalker, AnErrorNodeEndsTheDescentInAClause) {
    EXPECT_EQ(Selected({"ERROR", u"Tree Error Node", {Column(u"a")}}), "");
    EXPECT_EQ(Selected({"FUNC_PARAM", u"tree error NODE", {Column(u"a")}}), "");
    EXPECT_EQ(Operand({"ERROR", u"Tree Error Node", {Column(u"a")}}), kFieldA) << "not below an item";
}

TEST(OracleWalker, TheStarOfASelectListIsAConstant) {
    EXPECT_EQ(Selected({"ASTERISK_", Nodes{{"ASTERISK", u"*"}}}), "ItemKind=1 Text=\"*\"\n");
    EXPECT_EQ(Selected({"ASTERISK_"}), "ItemKind=1\n");
}

TEST(OracleWalker, ADirectionStandsBelowTheItemBeforeIt) {
    const N ascending("ASC_KEYWORD", u"asc");
    const N descending("DESC_KEYWORD", u"desc");
    EXPECT_EQ(Ordered({Column(u"a"), descending}), kFieldA + "  ItemKind=0 Text=\"DESC\"\n");
    EXPECT_EQ(Ordered({Column(u"a"), ascending, descending}),
              kFieldA + "  ItemKind=0 Text=\"ASC\"\n  ItemKind=0 Text=\"DESC\"\n");
    EXPECT_EQ(Ordered({Column(u"a"), Number(u"1"), descending}), kFieldA + "  ItemKind=0 Text=\"DESC\"\n");
    EXPECT_EQ(Ordered({descending, Column(u"a")}), kFieldA);
}

// ------------------------------------------------------------------------------------------------------------ FROM

TEST(OracleWalker, FromTakesFewNodes) {
    EXPECT_EQ(From({"SELECT_QUERY_OR"}), "ItemKind=0 FuncName=\"select\"\n");
    EXPECT_EQ(From(Table(u"[t]")), "Class=Field ItemKind=5 TableName=\"t\"\n");
    EXPECT_EQ(From({"JOIN_DEF", Nodes{Table(u"t"), Column(u"a"), {"EQ", u"="}, {"JOIN_DEF", Nodes{Table(u"u")}}}}),
              "Class=Field ItemKind=5 TableName=\"t\"\n"
              "ItemKind=4 FuncName=\"=\" TokenType=EQ IsOperator=1\n"
              "Class=Field ItemKind=5 TableName=\"u\"\n");
    for (const N& node : {Column(u"a"), Number(u"1"), Named("NEW_NAME", u"x"), N("JOIN_PREFIX", Nodes{Table(u"t")}),
                          N("FUNCTION", Nodes{{"NVL", u"NVL"}})})
        EXPECT_EQ(From(node), "");
}

TEST(OracleWalker, ATableBehindADatabaseIsNamedByItself) {
    const std::string expected = "Class=Field ItemKind=5 TableName=\"t\"\n";
    EXPECT_EQ(From(TableOf(u"s", u"t")), expected);
    EXPECT_EQ(Operand(TableOf(u"s", u"t")), expected);
    EXPECT_EQ(Operand({"TABLE_SPECIFICATION", Nodes{Named("DB_NAME", u"s")}}), "Class=Field ItemKind=5\n");
    EXPECT_EQ(Operand({"TABLE_SPECIFICATION"}), "Class=Field ItemKind=5\n");
}

// -------------------------------------------------------------------------------------------------------- WalkNode

TEST(OracleWalker, EachKindOfFunctionIsAFunctionInClausesAndBelow) {
    const Nodes parts{{"NVL", u"Nvl"}, {"FUNC_PARAM", Nodes{Column(u"a"), Number(u"1")}}};
    const std::string expected = "ItemKind=4 FuncName=\"Nvl\" TokenType=NVL\n  " + kFieldA + "  " + kOne;
    for (const char* type : {"CONVERT_FUNCTION", "FUNCTION", "GROUP_FUNCTION"}) {
        EXPECT_EQ(Selected({type, parts}), expected) << type;
        EXPECT_EQ(Operand({type, parts}), expected) << type;
        EXPECT_EQ(Operand({type, Nodes{{"NVL", u"Nvl"}}}), "ItemKind=4 FuncName=\"Nvl\" TokenType=NVL\n") << type;
        EXPECT_EQ(Operand({type}), "") << type;
    }
}

TEST(OracleWalker, AUserFunctionIsRecordedWithTheCountOfItsSecondNode) {
    const std::string outline =
        Built({{"SELECT_LIST", Nodes{{"USER_FUNCTION", Nodes{Name(u"f"), {"FUNC_PARAM", Nodes{Number(u"1")}}}},
                                     {"USER_FUNCTION", Nodes{Name(u"g")}}}}});
    EXPECT_EQ(Clause(outline, "Select"), "ItemKind=7 FuncName=\"f\" TokenType=IDENTIFICATOR\n  " + kOne +
                                             "ItemKind=7 FuncName=\"g\" TokenType=IDENTIFICATOR\n");
    EXPECT_EQ(Clause(outline, "UserFunctions"), "\"f\"=1\n\"g\"=0\n");
}

TEST(OracleWalker, TheOperandsOfAComparisonAreArgumentsOfItsOperator) {
    const Nodes operands{Column(u"a"), Number(u"1")};
    EXPECT_EQ(Operand({"SEARCH_CONDITION", Nodes{{"EQ", u"=", operands}, Number(u"2")}}),
              "ItemKind=4 FuncName=\"=\" TokenType=EQ IsOperator=1\n  " + kFieldA + "  " + kOne);
    EXPECT_EQ(Operand({"SEARCH_CONDITION", Nodes{{"NOT_KEYWORD", u"NOT", operands}}}),
              "ItemKind=4 FuncName=\"NOT\" TokenType=NOT_KEYWORD\n  " + kFieldA + "  " + kOne);
    EXPECT_EQ(Operand({"SEARCH_CONDITION"}), "");
}

TEST(OracleWalker, TheArgumentsOfBetweenStandBelowTheFunctionItself) {
    const N between("BETWEEN_KEYWORD", u"BETWEEN", {Column(u"a")});
    const std::string word = "ItemKind=4 FuncName=\"BETWEEN\" TokenType=BETWEEN_KEYWORD IsOperator=1\n";
    EXPECT_EQ(Operand({"FUNCTION", Nodes{between, Number(u"1")}}), word + "  " + word + "    " + kFieldA + "  " + kOne);
    EXPECT_EQ(Operand({"SEARCH_CONDITION", Nodes{between, Number(u"1")}}), word + "  " + kFieldA);
}

TEST(OracleWalker, WhatStandsBehindAClosingParenthesisIsNotWalked) {
    EXPECT_EQ(Operands({Number(u"1"), {"RIGHT_PAREN", u")"}, Number(u"2")}), kOne);
    EXPECT_EQ(Operands({{"RIGHT_PAREN", u")"}, Number(u"2")}), "");
}

TEST(OracleWalker, LiteralsByTheirNode) {
    EXPECT_EQ(
        Operand({"SQL_LITERAL", Nodes{{"NUMBER_LITERAL", Nodes{{"DIGIT", u"1"}, {"DOT", u"."}, {"DIGIT", u"5"}}}}}),
        "ItemKind=1 Text=\"1.5\"\n");
    EXPECT_EQ(Operand({"SQL_LITERAL", Nodes{{"NUMBER_LITERAL"}}}), "ItemKind=1\n");
    EXPECT_EQ(Operand({"SQL_LITERAL", Nodes{{"SQL_STRING", Nodes{{"QUOTE_ATTRITION", u"'a b'"}}}}}),
              "ItemKind=2 Text=\"'a b'\"\n");
    EXPECT_EQ(Operand({"SQL_LITERAL", Nodes{{"SQL_STRING"}}}), "ItemKind=2 Text=\" \"\n");
    EXPECT_EQ(Operand({"SQL_LITERAL", Nodes{{"DATE", Nodes{{"DIGIT", u"1"}, {"DIVIDE", u"/"}, {"DIGIT", u"2"}}}}}),
              "ItemKind=3 Text=\"1/2\"\n");
    EXPECT_EQ(Operand({"SQL_LITERAL", Nodes{{"DATE"}}}), "ItemKind=3\n");
    EXPECT_EQ(Operand({"SQL_LITERAL", Nodes{Digits(u"1"), Digits(u"2")}}), kOne);
    EXPECT_EQ(Operand({"SQL_LITERAL"}), "");
    EXPECT_EQ(Operand({"STYLE", Nodes{{"DIGIT", u"101"}}}), "ItemKind=0 FuncName=\"101\"\n");
    EXPECT_EQ(Operand({"STYLE"}), "");
    EXPECT_EQ(Operand({"DATE_PART", Nodes{{"'mm'", u"mm"}}}), "ItemKind=0 FuncName=\"mm\"\n");
    EXPECT_EQ(Operand({"DATE_PART"}), "");
}

TEST(OracleWalker, ADataTypeHasItsArgumentsBelowIt) {
    EXPECT_EQ(
        Operand({"DATATYPE", Nodes{{"VARCHAR2", u"Varchar2"}, Digits(u"10"), {"DATATYPE", Nodes{{"BYTE", u"BYTE"}}}}}),
        "ItemKind=9 Text=\"Varchar2\"\n  ItemKind=1 Text=\"10\"\n  ItemKind=9 Text=\"BYTE\"\n");
    EXPECT_EQ(Operand({"DATATYPE", Nodes{{"CHAR", u"CHAR"}, {"BYTE", u"BYTE"}}}),
              "ItemKind=9 Text=\"CHAR\"\n  ItemKind=0 FuncName=\"BYTE\"\n");
    EXPECT_EQ(Operand({"DATATYPE"}), "ItemKind=9\n");
    EXPECT_EQ(Selected({"DATATYPE", Nodes{Column(u"a")}}), kFieldA) << "in a clause it is one of the other nodes";
}

TEST(OracleWalker, ABareNameIsItsText) {
    EXPECT_EQ(Operand(Name(u"a")), "ItemKind=0 Text=\"a\"\n");
    EXPECT_EQ(Operand({"IDENTIFICATOR", u"a", {Name(u"b")}}), "ItemKind=0 Text=\"a\"\n");
}

TEST(OracleWalker, ANewNameIsItsFirstChildOnly) {
    EXPECT_EQ(Operand(Named("NEW_NAME", u"  b ")), "ItemKind=1 Text=\"b \"\n");
    EXPECT_EQ(Operand({"NEW_NAME", Nodes{{"'#'", u"#"}, Name(u"b")}}), "ItemKind=1 Text=\"#\"\n");
    EXPECT_EQ(Operand(Named("NEW_NAME", u"[b]")), "ItemKind=1 Text=\"[b]\"\n");
    EXPECT_EQ(Operand({"NEW_NAME"}), "ItemKind=1\n");
}

TEST(OracleWalker, WordsOfJoins) {
    for (const char* type : {"INNER_KEYWORD", "RIGHT_KEYWORD", "LEFT_KEYWORD", "CROSS_KEYWORD"}) {
        EXPECT_EQ(Operand({type, u"Word"}), "ItemKind=1 Text=\"Word\"\n") << type;
        EXPECT_EQ(Operand({type, u"Word", {Name(u"a")}}), "ItemKind=1 Text=\"Word\"\n") << type;
    }
    for (const char* type : {"OUTER_KEYWORD", "FULL_KEYWORD", "HASH", "LOOP", "MERGE", "REMOTE"})
        EXPECT_EQ(Operand({type, u"Word"}), "") << type << " is lost";
}

TEST(OracleWalker, PartsOfAJoin) {
    EXPECT_EQ(Operand({"JOIN_PREFIX", Nodes{Number(u"1"), Number(u"2")}}),
              "ItemKind=0 FuncName=\" \" IsOperator=1\n  " + kOne + "  ItemKind=1 Text=\"2\"\n");
    EXPECT_EQ(Operand({"JOIN_POSTFIX", Nodes{Number(u"1"), {"JOIN_DEF", Nodes{Table(u"t")}}, Number(u"2")}}),
              kOne +
                  "ItemKind=0 FuncName=\" \" IsOperator=1\n"
                  "  Class=Field ItemKind=5 TableName=\"t\"\n"
                  "ItemKind=1 Text=\"2\"\n");
    EXPECT_EQ(Operand({"JOIN_POSTFIX"}), "");
    EXPECT_EQ(Operand({"JOIN_DEF", Nodes{Number(u"1"), Number(u"2")}}), kOne) << "by itself one of the other nodes";
}

TEST(OracleWalker, OtherNodesLeadToTheirFirstChild) {
    for (const char* type : {"ORDER_BY", "PARTITION_BY", "NOT_CONDITION", "WHERE_JOIN", "FUNC_PARAM", "TABLE_HINT"})
        EXPECT_EQ(Operand({type, Nodes{{"BY", Nodes{Number(u"1"), Number(u"2")}}, Number(u"3")}}), kOne) << type;
    EXPECT_EQ(Operand({"WHERE_JOIN", Nodes{{"LEFT_PAREN", u"("}, {"PLUS", u"+"}, {"RIGHT_PAREN", u")"}}}), "");
    EXPECT_EQ(Operand({"ASC_KEYWORD", u"ASC"}), "");
}

// --------------------------------------------------------------------------------------------------------- columns

TEST(OracleWalker, PartsOfAColumn) {
    const N database = Named("DB_NAME", u"s");
    const N table = Named("TABLE_NAME", u"[t]");
    const N column = Named("COLUMN_NAME", u"[ c ]");
    const auto item = [](const Nodes& parts) { return Selected({"COLUMN_SPECIFICATION", parts}); };
    EXPECT_EQ(item({column}), "Class=Field ItemKind=5 FieldName=\"c\"\n");
    EXPECT_EQ(item({table, column}), "Class=Field ItemKind=5 TableName=\"t\" FieldName=\"c\"\n");
    EXPECT_EQ(item({database, table, column}), "Class=Field ItemKind=5 TableName=\"t\" FieldName=\"c\"\n");
    EXPECT_EQ(item({database, table, {"ASTERISK_", Nodes{{"ASTERISK", u"*"}}}}),
              "Class=Field ItemKind=5 TableName=\"t\"\n");
    EXPECT_EQ(item({database, column}), "Class=Field ItemKind=5 FieldName=\"c\"\n");
    EXPECT_EQ(item({column, table}), "Class=Field ItemKind=5 FieldName=\"c\"\n");
    EXPECT_EQ(item({}), "Class=Field ItemKind=5\n");
}

std::string SelectedBeside(const N& column, const N& other) {
    return Clause(Built({{"SELECT_LIST", Nodes{column}}, {"FROM_DEF_", Nodes{other}}}), "Select");
}

TEST(OracleWalker, AQualifierThatIsAnAliasIsNoTableButBehindADatabase) {
    const N column("COLUMN_SPECIFICATION",
                   Nodes{Named("DB_NAME", u"s"), Named("TABLE_NAME", u"X"), Named("COLUMN_NAME", u"c")});
    EXPECT_EQ(SelectedBeside(ColumnOf(u"X", u"c"), Renamed(Table(u"t"), u"x")),
              "Class=Field ItemKind=5 Text=\"X\" FieldName=\"c\" TableAlias=\"X\"\n");
    EXPECT_EQ(SelectedBeside(column, Renamed(Table(u"t"), u"x")),
              "Class=Field ItemKind=5 TableName=\"X\" FieldName=\"c\"\n");
}

TEST(OracleWalker, ABareNameOfAnAliasIsTheTextOfItsItem) {
    const std::string alias = "Class=Field ItemKind=5 Text=\"X\"\n";
    EXPECT_EQ(SelectedBeside(Column(u"X"), Renamed(Column(u"a"), u"x")), alias);
    EXPECT_EQ(SelectedBeside(Column(u"X"), Renamed(Number(u"1"), u"x")), alias);
    EXPECT_EQ(SelectedBeside(Column(u"X"), Renamed(Table(u"t"), u"x")), "Class=Field ItemKind=5 FieldName=\"X\"\n");
    EXPECT_EQ(SelectedBeside(ColumnOf(u"t", u"x"), Renamed(Column(u"a"), u"x")),
              "Class=Field ItemKind=5 TableName=\"t\" FieldName=\"x\"\n");
    EXPECT_EQ(SelectedBeside(ColumnOf(u"x", u"c"), Renamed(Column(u"a"), u"x")),
              "Class=Field ItemKind=5 TableName=\"x\" FieldName=\"c\"\n");
}

// --------------------------------------------------------------------------------------------------------- aliases

std::string AliasesOf(const Nodes& nodes) { return Clause(Built({{"FROM_DEF_", nodes}}), "Aliases"); }

TEST(OracleWalker, TheKeyOfAnAliasTellsWhatItNames) {
    const std::string expression = "  Expression ItemKind=0\n";
    EXPECT_EQ(AliasesOf({Renamed(Table(u"[Tab]"), u"X")}),
              "\"x_table\" SrcName=\"X\" Name=\"X\" AliasTable=\"Tab\"\n" + expression);
    EXPECT_EQ(AliasesOf({Renamed(TableOf(u"s", u"Tab"), u"X")}),
              "\"x_table\" SrcName=\"X\" Name=\"X\" AliasTable=\"Tab\"\n" + expression);
    EXPECT_EQ(AliasesOf({Renamed(ColumnOf(u"t", u"Col"), u"[Ä b]")}),
              "\"ä b_field\" SrcName=\"Ä b\" Name=\"Ä b\" AliasField=\"Col\"\n" + expression);
    for (const N& other : {Number(u"1"), N("PLUS", u"+"), N("SELECT_QUERY_OR"), N("FUNCTION")})
        EXPECT_EQ(AliasesOf({Renamed(other, u"X")}), "\"x\" SrcName=\"X\" Name=\"X\"\n" + expression);
}

TEST(OracleWalker, AnAliasOfANodeWithoutItsNameRemembersNone) {
    const auto first = [](const Nodes& nodes) {
        const std::string aliases = AliasesOf(nodes);
        return aliases.substr(0, aliases.find('\n'));
    };
    EXPECT_EQ(first({Renamed({"TABLE_SPECIFICATION"}, u"x")}), "\"x_table\" SrcName=\"x\" Name=\"x\"");
    EXPECT_EQ(first({Renamed({"TABLE_SPECIFICATION", Nodes{Named("DB_NAME", u"s")}}, u"x")}),
              "\"x_table\" SrcName=\"x\" Name=\"x\"");
    EXPECT_EQ(
        first({Renamed({"COLUMN_SPECIFICATION", Nodes{Named("DB_NAME", u"s"), Named("TABLE_NAME", u"t")}}, u"x")}),
        "\"x_field\" SrcName=\"x\" Name=\"x\"");
    EXPECT_EQ(first({{"ALIAS"}}), "");
    EXPECT_EQ(first({{"ALIAS", Nodes{Named("NEW_NAME", u"x")}}}), "\"x\" SrcName=\"x\" Name=\"x\"");
}

TEST(OracleWalker, TheFirstAliasOfAKeyStays) {
    EXPECT_EQ(AliasesOf({Renamed(Table(u"t"), u"x"), Renamed(Table(u"u"), u"X"), Renamed(Number(u"1"), u"x_Table")}),
              "\"x_table\" SrcName=\"x\" Name=\"x\" AliasTable=\"t\"\n  Expression ItemKind=0\n");
}

/// A state whose query has aliases, in the order of their declaration.
struct Aliases {
    explicit Aliases(const std::vector<std::pair<CString, CString>>& declared) {
        for (const auto& [key, name] : declared) {
            auto* alias = new CQZAliasInfo;
            alias->SetAliasTable(name);
            alias->SetAliasField(name);
            query.m_mapAliases[key] = alias;
        }
        state.m_pQuery = &query;
    }

    CQZQueryInfo query;
    OracleStateSelectQuery state;
};

TEST(OracleWalker, AKeyIsTheNameOrTheNameWithTheSuffixInAnyCase) {
    const Aliases aliases({{u"x", u""}, {u"t_table", u"tab"}, {u"c_field", u"col"}});
    for (const char16_t* suffix : {u"_TABLE", u"_FIELD"}) EXPECT_TRUE(aliases.state.IsAliasKey(u"X", suffix));
    EXPECT_TRUE(aliases.state.IsAliasKey(u"T", u"_TABLE"));
    EXPECT_FALSE(aliases.state.IsAliasKey(u"T", u"_FIELD"));
    EXPECT_TRUE(aliases.state.IsAliasKey(u"c", u"_field"));
    EXPECT_FALSE(aliases.state.IsAliasKey(u"c", u"_TABLE"));
    EXPECT_TRUE(aliases.state.IsAliasKey(u"T_Table", u"_TABLE")) << "the whole key is a name as well";
    EXPECT_FALSE(aliases.state.IsAliasKey(u"", u"_TABLE"));
}

TEST(OracleWalker, TheTableBehindAName) {
    const Aliases aliases({{u"x", u""}, {u"t_table", u"tab"}, {u"c_field", u"col"}});
    EXPECT_EQ(aliases.state.AliasRealTable(u"T"), u"tab");
    EXPECT_EQ(aliases.state.AliasRealTable(u"X"), u"") << "an alias of something else";
    EXPECT_EQ(aliases.state.AliasRealTable(u"c"), u"c");
    EXPECT_EQ(aliases.state.AliasRealTable(u"U"), u"U");
}

TEST(OracleWalker, OfTwoKeysOfATableTheFirstDecides) {
    EXPECT_EQ(Aliases({{u"t", u""}, {u"t_table", u"tab"}}).state.AliasRealTable(u"T"), u"");
    EXPECT_EQ(Aliases({{u"t_table", u"tab"}, {u"t", u""}}).state.AliasRealTable(u"T"), u"tab");
}

TEST(OracleWalker, TheFieldBehindAName) {
    const Aliases aliases({{u"c", u""}, {u"c_table", u"tab"}, {u"c_field", u"col"}, {u"d", u""}});
    EXPECT_EQ(aliases.state.AliasRealField(u"C"), u"col");
    EXPECT_EQ(aliases.state.AliasRealField(u"D"), u"D") << "the name alone is no column";
    EXPECT_EQ(aliases.state.AliasRealField(u"E"), u"E");
}

// ---------------------------------------------------------------------------------------------- sources and fields

TEST(OracleWalker, ATableNamedLikeAnAliasIsASourceOnlyBehindADatabase) {
    const auto sources = [](const Nodes& nodes) { return Clause(Built({{"FROM_DEF_", nodes}}), "Sources"); };
    const N alias = Renamed(Table(u"t"), u"x");
    EXPECT_EQ(sources({alias, Table(u"X")}), "\"t\"=\"t\"\n");
    EXPECT_EQ(sources({alias, TableOf(u"s", u"X")}), "\"X\"=\"X\"\n\"t\"=\"t\"\n");
    EXPECT_EQ(sources({alias, Named("DB_NAME", u"s"), Table(u"X")}), "\"X\"=\"X\"\n\"t\"=\"t\"\n");
    EXPECT_EQ(sources({alias, TableOf(u"s", u"v"), Table(u"X")}), "\"t\"=\"t\"\n\"v\"=\"v\"\n") << "of one table only";
}

std::string FieldsOf(const Nodes& clauses) { return Clause(Built(clauses), "Fields"); }

TEST(OracleWalker, ARecordHasWhatTheAliasesStandFor) {
    // The scan records what an alias stands for, the item what is no alias.
    const N from("FROM_DEF_", Nodes{Renamed(Table(u"tab"), u"t"), Renamed(Column(u"a"), u"b")});
    const auto fields = [&from](const N& column) { return FieldsOf({from, {"HAVING", Nodes{column}}}); };
    const std::string a = "\"a_0\" FieldName=\"a\"\n";
    EXPECT_EQ(fields(ColumnOf(u"t", u"c")),
              a + "\"c_0\" FieldName=\"c\"\n\"tabc_0\" TableName=\"tab\" FieldName=\"c\"\n");
    EXPECT_EQ(fields(Column(u"b")), a);
    EXPECT_EQ(fields(ColumnOf(u"u", u"b")), a + "\"ub_0\" TableName=\"u\" FieldName=\"b\"\n");
}

TEST(OracleWalker, AColumnWithoutANameIsNotRecorded) {
    EXPECT_EQ(FieldsOf({{"FOR", Nodes{{"COLUMN_SPECIFICATION", Nodes{Named("DB_NAME", u"s")}}}}}), "");
    EXPECT_EQ(FieldsOf({{"FOR", Nodes{{"COLUMN_SPECIFICATION", Nodes{Named("TABLE_NAME", u"t")}}}}}),
              "\"t_0\" TableName=\"t\"\n");
}

TEST(OracleWalker, OfANestedSelectTheFieldsOfTheFirstChildAreRecorded) {
    const N select("SELECT_QUERY_OR", Nodes{{"SELECT_LIST", Nodes{Column(u"a")}}, {"GROUP_BY", Nodes{Column(u"b")}}});
    EXPECT_EQ(FieldsOf({{"FROM_DEF_", Nodes{select}}}), "\"a_0\" FieldName=\"a\"\n");
}

// ---------------------------------------------------------------------------------------------------- nested queries

TEST(OracleWalker, EachSelectBelowIsASubqueryOfTheTopOne) {
    const N inner("SELECT_QUERY_OR", Nodes{{"SELECT_LIST", Nodes{Number(u"2")}}});
    const N outer("SELECT_QUERY_OR", Nodes{{"SELECT_LIST", Nodes{Number(u"1")}}, {"FROM_DEF_", Nodes{inner}}});
    const std::string outline = Clause(Built({{"FROM_DEF_", Nodes{outer}}}), "SubQueries");
    EXPECT_EQ(outline,
              "DataType=16 QueryKind=16\n"
              "  Select\n"
              "    ItemKind=1 Text=\"1\"\n"
              "  From\n"
              "    ItemKind=0 FuncName=\"select\"\n"
              "DataType=16 QueryKind=16\n"
              "  Select\n"
              "    ItemKind=1 Text=\"2\"\n");
}

TEST(OracleWalker, AUnionWithoutASelectIsAMemberWithAnEmptyQuery) {
    EXPECT_EQ(Clause(Built({{"UNION"}}), "Union"), "");
    const std::string empty = "Class=Union ItemKind=8 FuncName=\"UNION\"\n  Query DataType=16 QueryKind=16\n";
    EXPECT_EQ(Clause(Built({{"UNION", Nodes{{"ERROR"}}}}), "Union"), empty);
    EXPECT_EQ(Clause(Built({{"UNION", Nodes{{"ALL_KEYWORD", u"ALL"}}}}), "Union"), empty);
}

TEST(OracleWalker, AUnionIsFollowedDownItsFirstChildren) {
    const N select("SELECT_QUERY_OR", Nodes{{"SELECT_LIST", Nodes{Number(u"1")}}});
    const std::string expected =
        "Class=Union ItemKind=8 FuncName=\"UNION\"\n"
        "  Query DataType=16 QueryKind=16\n"
        "    Select\n"
        "      ItemKind=1 Text=\"1\"\n";
    EXPECT_EQ(Clause(Built({{"UNION", Nodes{{"BY", Nodes{select, Number(u"2")}}}}}), "Union"), expected);
    EXPECT_EQ(Clause(Built({{"UNION", Nodes{{"ALL_KEYWORD", u"ALL"}, {"BY", Nodes{select}}}}}), "Union"), expected);
}

TEST(OracleWalker, UnionAllTakesTheQuantifierBack) {
    const N predicate("PREDICATE", Nodes{{"DISTINCT_KEYWORD", u"DISTINCT"}});
    const auto quantifier = [&predicate](const Nodes& nodes) {
        const std::string outline = Built({predicate, {"UNION", nodes}});
        return outline.substr(0, outline.find('\n'));
    };
    EXPECT_EQ(quantifier({{"SELECT_QUERY_OR"}}), "Query SelectQuantifier=2");
    EXPECT_EQ(quantifier({{"ALL_KEYWORD", u"ALL"}, {"SELECT_QUERY_OR"}}), "Query");
}

}  // namespace
