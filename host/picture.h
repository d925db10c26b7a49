// Pictures of graphs, drawn by Graphviz within the process.
#pragma once

#include <string>

namespace qzsql {

/// Lays a graph in Graphviz's language out as SVG. Throws std::runtime_error where it can't. One thread at a time.
std::string DrawSvg(const std::string& dot);

}  // namespace qzsql
