// Every kind of node that stands over others in a dialect's trees has a place in its walker, or docs/dialects.md says
// that it has none. A kind has a place when the walker treats it, somewhere, unlike a kind that it doesn't know.
#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "QZParserSQL/Grammar/MySQLStateSelectQuery.h"
#include "QZParserSQL/MSAccess_v3/MSAccessSQL_v3StateSelectQuery.h"
#include "QZParserSQL/MSSQLStateSelectQuery.h"
#include "QZParserSQL/Oracle/OracleStateSelectQuery.h"
#include "tests/golden/Dialect.h"
#include "tests/support/HandMadeTree.h"
#include "tests/support/ModelText.h"

namespace {

using Kinds = std::set<std::string>;

/// What docs/dialects.md tells in the section "Kinds without a place".
struct WithoutPlace {
    Kinds byPosition;
    Kinds lost;
};

Kinds SplitAtCommas(const std::string& cell) {
    Kinds kinds;
    std::istringstream parts(cell);
    for (std::string part; std::getline(parts, part, ',');) {
        const auto first = part.find_first_not_of(' ');
        if (first != std::string::npos) kinds.insert(part.substr(first, part.find_last_not_of(' ') - first + 1));
    }
    return kinds;
}

WithoutPlace Documented(const std::string& dialect) {
    std::ifstream page(QZ_SOURCE_FOLDER "/docs/dialects.md");
    bool inSection = false;
    for (std::string line; std::getline(page, line);) {
        if (line.rfind("## ", 0) == 0) inSection = line == "## Kinds without a place";
        if (!inSection || line.rfind("| " + dialect + " |", 0) != 0) continue;
        std::istringstream row(line);
        std::vector<std::string> cells;
        for (std::string cell; std::getline(row, cell, '|');) cells.push_back(cell);
        return {SplitAtCommas(cells.at(2)), SplitAtCommas(cells.at(3))};
    }
    ADD_FAILURE() << "docs/dialects.md has no row for " << dialect;
    return {};
}

/// The models of trees in which a node of one kind stands in all places that the walkers look at.
template <class State, const QZGrammar& (*Grammar)()>
class Walker {
    using N = HandMadeTree<Grammar>;
    using Nodes = std::vector<N>;

 public:
    explicit Walker(const char* function) : m_Function(function) {}

    std::string ModelsWith(const std::string& kind) const {
        std::string models;
        for (const Nodes& below : ChildrenToTry())
            for (const Nodes& clauses : Around(N(kind, u"word", below))) models += Model(clauses);
        return models;
    }

 private:
    static N Name(const char* kind, const CString& name) { return {kind, Nodes{{"IDENTIFICATOR", name}}}; }
    static N Column(const CString& name) { return {"COLUMN_SPECIFICATION", Nodes{Name("COLUMN_NAME", name)}}; }

    std::vector<Nodes> ChildrenToTry() const {
        const N condition("SEARCH_CONDITION", Nodes{{"EQ", u"=", Nodes{Column(u"p"), Column(u"q")}}});
        return {{},
                {{"IDENTIFICATOR", u"name"}},
                {{"IDENTIFICATOR", u"name"}, {"IDENTIFICATOR", u"name"}, {"IDENTIFICATOR", u"name"}},
                {Name("TABLE_NAME", u"t"), Name("COLUMN_NAME", u"c")},
                {{"DISTINCT_KEYWORD", u"DISTINCT"}},
                {{"TOP_KEYWORD", u"TOP"}, Column(u"x")},
                {Column(u"x"), Column(u"y"), Name("NEW_NAME", u"z")},
                {{"LEFT_PAREN", u"(", Nodes{Column(u"x")}}, Column(u"y")},
                {{"SQL_LITERAL", Nodes{{"NUMBER_LITERAL", Nodes{{"DIGIT", u"5"}}}}}},
                {{"TABLE_SPECIFICATION", Nodes{Name("TABLE_NAME", u"t")}}},
                {condition, condition}};
    }

    std::vector<Nodes> Around(const N& node) const {
        const N table("TABLE_SPECIFICATION", Nodes{Name("TABLE_NAME", u"t")});
        return {
            {node},
            {{"PREDICATE", Nodes{node}}},
            {{"SELECT_LIST", Nodes{Column(u"a"), node}}},
            {{"SELECT_LIST", Nodes{{"PLUS", u"+", Nodes{Column(u"a"), node}}}}},
            {{"SELECT_LIST", Nodes{{"COLUMN_SPECIFICATION", Nodes{node, Name("COLUMN_NAME", u"c")}}}}},
            {{"SELECT_LIST", Nodes{{"COLUMN_SPECIFICATION", Nodes{node}}}}},
            {{"SELECT_LIST", Nodes{{m_Function, Nodes{node, Column(u"a")}}}}},
            {{"SELECT_LIST", Nodes{{m_Function, Nodes{{"IDENTIFICATOR", u"f"}, node}}}}},
            {{"SELECT_LIST", Nodes{{"SQL_LITERAL", Nodes{node}}}}},
            {{"FROM_DEF_", Nodes{node}}},
            {{"FROM_DEF_", Nodes{{"ALIAS", Nodes{{"TABLE_SPECIFICATION", Nodes{node, Name("TABLE_NAME", u"t")}}}}}}},
            {{"FROM_DEF_", Nodes{{"JOIN_KEYWORD", u"JOIN", Nodes{node, table}}}}},
            {{"FROM_DEF_", Nodes{{"JOIN_KEYWORD", u"JOIN", Nodes{{"JOIN_POSTFIX", Nodes{node}}}}}}},
            {{"FROM_DEF_", Nodes{{"ALIAS", Nodes{table, node}}}}}};
    }

    static std::string Model(const Nodes& clauses) {
        concrete::Database database;
        CQZQueryInfo query;
        query.SetDatabase(&database);
        N select("SELECT_LIST", clauses);
        State state(&select);
        state.m_pQuery = &query;
        state.Build();
        return WithoutTokenTypes(OutlineOf(query, Grammar()));
    }

    /// The token type of an item is that of its node, whether the walker knows it or not.
    static std::string WithoutTokenTypes(std::string outline) {
        const std::string key = " TokenType=";
        for (auto at = outline.find(key); at != std::string::npos; at = outline.find(key, at))
            outline.erase(at, outline.find_first_of(" \n", at + 1) - at);
        return outline;
    }

    const char* m_Function;
};

struct DialectWalker {
    const Dialect& dialect;
    std::function<std::string(const std::string& kind)> modelsWith;
};

template <class State, const QZGrammar& (*Grammar)()>
std::function<std::string(const std::string&)> Models(const char* function = "FUNCTION") {
    return [walker = Walker<State, Grammar>(function)](const std::string& kind) { return walker.ModelsWith(kind); };
}

void PrintTo(const DialectWalker& walker, std::ostream* out) { *out << walker.dialect.folder; }

class NodePlaces : public testing::TestWithParam<DialectWalker> {};

TEST_P(NodePlaces, AreThoseThatTheDocumentationTells) {
    const auto& [dialect, modelsWith] = GetParam();
    const WithoutPlace documented = Documented(dialect.folder);
    Kinds told = documented.lost;
    told.insert(documented.byPosition.begin(), documented.byPosition.end());
    EXPECT_EQ(told.size(), documented.lost.size() + documented.byPosition.size()) << "a kind stands in both columns";

    const std::string unknown = modelsWith("PROCEDURE");
    Kinds without;
    for (const std::string& kind : dialect.innerKinds)
        if (modelsWith(kind) == unknown) without.insert(kind);
    EXPECT_EQ(without, told);
}

INSTANTIATE_TEST_SUITE_P(
    Dialects, NodePlaces,
    testing::Values(DialectWalker{AccessDialect(), Models<MSAccessSQL_v3StateSelectQuery, QZGrammarMSAccessSQL_v3>()},
                    DialectWalker{MSSQLDialect(), Models<MSSQLStateSelectQuery, QZGrammarMSSQL>()},
                    DialectWalker{MySQLDialect(), Models<MySQLStateSelectQuery, QZGrammarMySQLSelect>("FUNCTION_MY")},
                    DialectWalker{OracleDialect(), Models<OracleStateSelectQuery, QZGrammarOracle>()}),
    [](const auto& walker) { return walker.param.dialect.folder; });

}  // namespace
