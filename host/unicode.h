// Between UTF-8 at the edges and the 16-bit texts that queries are. Lone surrogates survive.
#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>

namespace qzsql {

/// Bytes that are not UTF-8, at this place.
struct NotUtf8 : std::runtime_error {
    explicit NotUtf8(std::size_t offset);
    std::size_t offset;
};

/// Throws NotUtf8. A byte-order mark is a character like any other.
std::u16string FromUtf8(std::string_view utf8);

/// Appends as UTF-8, a lone surrogate as an escape: \ud800.
void AppendUtf8(std::string& out, std::u16string_view text);
std::string ToUtf8(std::u16string_view text);

/// Appends a JSON string with its quotes, a lone surrogate as an escape.
void AppendJson(std::string& out, std::u16string_view text);
/// The same from UTF-8; bytes that are not UTF-8 become U+FFFD.
void AppendJson(std::string& out, std::string_view utf8);

/// Reads the character at `at`, which must be in the text, and moves behind it. A lone surrogate is one.
char32_t NextCharacter(std::u16string_view text, std::size_t& at);
/// Where the character that ends at `at` begins.
std::size_t BeginOfCharacter(std::u16string_view text, std::size_t at);
void AppendCharacter(std::u16string& out, char32_t character);

/// Appends text that is known to be ASCII.
void AppendAscii(std::u16string& out, std::string_view ascii);

}  // namespace qzsql
