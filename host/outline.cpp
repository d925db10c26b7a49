#include "host/outline.h"

#include <fmt/format.h>

#include <iterator>

namespace qzsql {

void AppendIndent(std::string& out, std::size_t depth) {
    if (depth <= kDeepestIndent) {
        out.append(2 * depth, ' ');
    } else {
        fmt::format_to(std::back_inserter(out), "{}> ", depth);
    }
}

}  // namespace qzsql
