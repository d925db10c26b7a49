// What the single-byte character sets mean.
#pragma once

#include <array>

namespace qz {

/// The code point of each byte, 0 for an unmapped byte.
using CodePoints = std::array<char32_t, 256>;

/// The table of an encoding number; ISO 8859-1 for a number that has none of its own.
const CodePoints& ForwardTable(int encoding);

}  // namespace qz
