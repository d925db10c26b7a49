// Pointing at a place in a text.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace qzsql {

/// The line around `offset`, at most about 160 columns of it, and below it a caret under the character there; each with
/// an indent and a newline. The caret stays in place behind tabs, wide and combining characters.
std::string CaretLines(std::u16string_view text, std::size_t offset);

}  // namespace qzsql
