// Conversions between the encodings of values: 1 is UTF-8, 1000 is UTF-16, every other number a single-byte character
// set (EncodingTables.h).
#pragma once

#include <cstddef>
#include <memory>
#include <string_view>

namespace qz {

inline constexpr int kUtf8 = 1;
inline constexpr int kIso8859_1 = 2;
inline constexpr int kAscii = 7;
inline constexpr int kUtf16 = 1000;

/// Bytes with two zero bytes behind them; null is no text.
using OwnedText = std::unique_ptr<char[]>;

/// A copy of some bytes.
OwnedText CopyText(const void* bytes, std::size_t length);

/// The text that some bytes hold in an encoding: what stands before its first terminator.
std::string_view TextOf(std::string_view bytes, int encoding);

/// Converts the text that some bytes hold, aligned as their units need. What the target set lacks becomes "?", and so
/// does an unmapped byte, but in UTF-16, where it becomes 0. Encoding 2 to UTF-16 is Windows-1252; otherwise it is ISO
/// 8859-1.
///
/// UTF-8 is read in sequences of one to four bytes with lead bytes up to 247 (overlong ones too) and cut to 16 bits; a
/// byte that starts no whole sequence is skipped, or to a single-byte set repeats the character before it. UTF-8 is
/// written unit by unit, in one to three bytes, and the units 128 and 2048 are left out.
///
/// Safe for concurrent use.
OwnedText ConvertText(std::string_view bytes, int from, int to);

/// How many tables from characters to bytes were built since the process started; the last five are kept.
std::size_t ReverseTablesBuilt();

}  // namespace qz
