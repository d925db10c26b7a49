// The lines of an outline.
#pragma once

#include <cstddef>
#include <string>

namespace qzsql {

/// How deep an outline indents; a deeper line begins with its depth, "101> ".
constexpr std::size_t kDeepestIndent = 100;

void AppendIndent(std::string& out, std::size_t depth);

}  // namespace qzsql
