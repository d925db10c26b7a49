// The ways to show a tree. Each is linear in the tree and ends with a newline, but for the bare sexpr.
#pragma once

#include <string>
#include <string_view>

#include "host/tree.h"

namespace qzsql {

/// (NODE child child ...) on one line, a leaf without parentheses.
std::u16string TreeAsSexpr(const Tree& tree);
/// A line a node, indented by two blanks a level, line:column behind tokens.
std::string TreeAsText(const Tree& tree);
/// Nested objects on one line.
std::string TreeAsJson(const Tree& tree);
/// A graph for Graphviz under this name, trailing tokens in another colour.
std::string TreeAsDot(const Tree& tree, std::string_view name);

}  // namespace qzsql
