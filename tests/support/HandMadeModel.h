// What a walker makes of trees put together by hand.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "tests/support/HandMadeTree.h"
#include "tests/support/ModelText.h"

/// What stands in a clause of an outline, at the left border.
inline std::string Clause(const std::string& outline, const std::string& name) {
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

/// Models by the walker State, as outlines.
template <class State, const QZGrammar& (*Grammar)()>
class HandMadeModels {
 public:
    using Node = HandMadeTree<Grammar>;
    using Nodes = std::vector<Node>;

    /// `select` is the type of a SELECT's node.
    explicit HandMadeModels(const char* select) : m_Select(select) {}

    /// The model of a SELECT with these clauses.
    std::string Built(Nodes clauses) const {
        concrete::Database database;
        CQZQueryInfo query;
        query.SetDatabase(&database);
        Node select(m_Select, std::move(clauses));
        State state(&select);
        state.m_pQuery = &query;
        state.Build();
        return OutlineOf(query, Grammar());
    }

    /// The items that a select list makes of a node.
    std::string Selected(const Node& node) const { return Clause(Built({{"SELECT_LIST", Nodes{node}}}), "Select"); }

    std::string From(const Node& node) const { return Clause(Built({{"FROM_DEF_", Nodes{node}}}), "From"); }

    /// The items that become operands of an operator.
    std::string Operands(const Nodes& nodes) const {
        const std::string outline = Selected({"PLUS", u"+", nodes});
        const std::string first = "ItemKind=4 FuncName=\"+\" TokenType=PLUS IsOperator=1\n";
        EXPECT_EQ(outline.substr(0, first.size()), first);
        std::string text;
        for (auto at = first.size(); at < outline.size(); at = outline.find('\n', at) + 1)
            text += outline.substr(at + 2, outline.find('\n', at) + 1 - at - 2);
        return text;
    }
    std::string Operand(const Node& node) const { return Operands({node}); }

 private:
    const char* m_Select;
};
