#include "host/unicode.h"

#include <fmt/format.h>

#include <iterator>

namespace qzsql {

namespace {

constexpr char32_t kBroken = 0xFFFFFFFF;
constexpr char32_t kReplacement = 0xFFFD;

bool IsLead(char32_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
bool IsTrail(char32_t unit) { return unit >= 0xDC00 && unit < 0xE000; }
bool IsSurrogate(char32_t unit) { return IsLead(unit) || IsTrail(unit); }

bool IsContinuation(unsigned char byte) { return (byte & 0xC0) == 0x80; }

/// How many bytes follow the first one of a character; -1 where none can begin so.
int FollowersOf(unsigned char lead) {
    if (lead < 0x80) return 0;
    if (lead >= 0xF0) return lead < 0xF5 ? 3 : -1;
    if (lead >= 0xE0) return 2;
    return lead >= 0xC2 ? 1 : -1;
}

bool IsWellFormed(char32_t character, int followers) {
    constexpr char32_t kLeast[] = {0, 0x80, 0x800, 0x10000};
    return character >= kLeast[followers] && character <= 0x10FFFF && !IsSurrogate(character);
}

/// Reads the character at `at` and moves behind it; kBroken for bytes that are not UTF-8.
char32_t NextCharacter(std::string_view utf8, std::size_t& at) {
    const auto lead = static_cast<unsigned char>(utf8[at++]);
    const int followers = FollowersOf(lead);
    if (followers <= 0) return followers == 0 ? lead : kBroken;
    char32_t character = lead & (0x3FU >> followers);
    for (int i = 0; i < followers; ++i) {
        if (at == utf8.size() || !IsContinuation(static_cast<unsigned char>(utf8[at]))) return kBroken;
        character = character << 6 | (static_cast<unsigned char>(utf8[at++]) & 0x3FU);
    }
    return IsWellFormed(character, followers) ? character : kBroken;
}

void AppendCharacter(std::string& out, char32_t character) {
    if (character < 0x80) {
        out += static_cast<char>(character);
        return;
    }
    constexpr char32_t kLeads[] = {0, 0xC0, 0xE0, 0xF0};
    const int followers = character < 0x800 ? 1 : character < 0x10000 ? 2 : 3;
    out += static_cast<char>(kLeads[followers] | character >> 6 * followers);
    for (int i = followers - 1; i >= 0; --i) out += static_cast<char>(0x80 | (character >> 6 * i & 0x3F));
}

void AppendEscape(std::string& out, char32_t unit) {
    fmt::format_to(std::back_inserter(out), "\\u{:04x}", static_cast<unsigned>(unit));
}

void AppendJsonCharacter(std::string& out, char32_t character) {
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
            if (character < 0x20 || IsSurrogate(character)) {
                AppendEscape(out, character);
            } else {
                AppendCharacter(out, character);
            }
    }
}

}  // namespace

NotUtf8::NotUtf8(std::size_t where) : std::runtime_error(fmt::format("byte {} is not UTF-8", where)), offset(where) {}

char32_t NextCharacter(std::u16string_view text, std::size_t& at) {
    const char32_t unit = text[at++];
    if (!IsLead(unit) || at == text.size() || !IsTrail(text[at])) return unit;
    return 0x10000 + ((unit - 0xD800) << 10) + (text[at++] - 0xDC00U);
}

std::size_t BeginOfCharacter(std::u16string_view text, std::size_t at) {
    const bool isPair = at > 1 && IsTrail(text[at - 1]) && IsLead(text[at - 2]);
    return at - (isPair ? 2 : 1);
}

void AppendCharacter(std::u16string& out, char32_t character) {
    if (character < 0x10000) {
        out += static_cast<char16_t>(character);
    } else {
        out += static_cast<char16_t>(0xD800 + ((character - 0x10000) >> 10));
        out += static_cast<char16_t>(0xDC00 + (character & 0x3FF));
    }
}

std::u16string FromUtf8(std::string_view utf8) {
    std::u16string text;
    text.reserve(utf8.size());
    for (std::size_t at = 0; at < utf8.size();) {
        const auto begin = at;
        const auto character = NextCharacter(utf8, at);
        if (character == kBroken) throw NotUtf8(begin);
        AppendCharacter(text, character);
    }
    return text;
}

void AppendUtf8(std::string& out, std::u16string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        const auto character = NextCharacter(text, at);
        if (IsSurrogate(character)) {
            AppendEscape(out, character);
        } else {
            AppendCharacter(out, character);
        }
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
    for (std::size_t at = 0; at < text.size();) AppendJsonCharacter(out, NextCharacter(text, at));
    out += '"';
}

void AppendJson(std::string& out, std::string_view utf8) {
    out += '"';
    for (std::size_t at = 0; at < utf8.size();) {
        const auto character = NextCharacter(utf8, at);
        AppendJsonCharacter(out, character == kBroken ? kReplacement : character);
    }
    out += '"';
}

void AppendAscii(std::u16string& out, std::string_view ascii) { out.append(ascii.begin(), ascii.end()); }

}  // namespace qzsql
