#include "host/unicode.h"

#include <fmt/format.h>
#include <unicode/utf16.h>
#include <unicode/utf8.h>

#include <iterator>

namespace qzsql {

namespace {

constexpr UChar32 kBroken = -1;
constexpr UChar32 kReplacement = 0xFFFD;

/// Reads the character at `at` and moves behind it; kBroken for bytes that are not UTF-8.
UChar32 NextOf(std::string_view utf8, std::size_t& at) {
    UChar32 character = 0;
    U8_NEXT(utf8.data(), at, utf8.size(), character);
    return character;
}

/// A lone surrogate is returned as it is.
UChar32 NextOf(std::u16string_view text, std::size_t& at) {
    UChar32 character = 0;
    U16_NEXT(text.data(), at, text.size(), character);
    return character;
}

void AppendTo(std::u16string& out, UChar32 character) {
    if (U_IS_BMP(character)) {
        out += static_cast<char16_t>(character);
    } else {
        out += {U16_LEAD(character), U16_TRAIL(character)};
    }
}

void AppendCharacter(std::string& out, UChar32 character) {
    char bytes[U8_MAX_LENGTH];
    std::size_t length = 0;
    U8_APPEND_UNSAFE(bytes, length, character);
    out.append(bytes, length);
}

void AppendEscape(std::string& out, UChar32 unit) {
    fmt::format_to(std::back_inserter(out), "\\u{:04x}", static_cast<unsigned>(unit));
}

void AppendJsonCharacter(std::string& out, UChar32 character) {
    switch (character) {
        case '"':
            out += "\\\"";
            break;
        case '\\':
            out += "\\\\";
            break;
        case '\n':
            out += "\\n";
            break;
        case '\r':
            out += "\\r";
            break;
        case '\t':
            out += "\\t";
            break;
        default:
            if (character < 0x20 || U_IS_SURROGATE(character)) {
                AppendEscape(out, character);
            } else {
                AppendCharacter(out, character);
            }
    }
}

}  // namespace

NotUtf8::NotUtf8(std::size_t where) : std::runtime_error(fmt::format("byte {} is not UTF-8", where)), offset(where) {}

std::u16string FromUtf8(std::string_view utf8) {
    std::u16string text;
    text.reserve(utf8.size());
    for (std::size_t at = 0; at < utf8.size();) {
        const auto begin = at;
        const auto character = NextOf(utf8, at);
        if (character == kBroken) throw NotUtf8(begin);
        AppendTo(text, character);
    }
    return text;
}

void AppendUtf8(std::string& out, std::u16string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        const auto character = NextOf(text, at);
        U_IS_SURROGATE(character) ? AppendEscape(out, character) : AppendCharacter(out, character);
    }
}

std::string ToUtf8(std::u16string_view text) {
    std::string out;
    out.reserve(text.size());
    AppendUtf8(out, text);
    return out;
}

void AppendJson(std::string& out, std::u16string_view text) {
    out += '"';
    for (std::size_t at = 0; at < text.size();) AppendJsonCharacter(out, NextOf(text, at));
    out += '"';
}

void AppendJson(std::string& out, std::string_view utf8) {
    out += '"';
    for (std::size_t at = 0; at < utf8.size();) {
        const auto character = NextOf(utf8, at);
        AppendJsonCharacter(out, character == kBroken ? kReplacement : character);
    }
    out += '"';
}

void AppendAscii(std::u16string& out, std::string_view ascii) { out.append(ascii.begin(), ascii.end()); }

}  // namespace qzsql
