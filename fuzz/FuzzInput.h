// Texts, lines and values out of a fuzzer's bytes.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "QZParserSQL/platform/CString.h"

/// What a fuzzer calls. Each target defines it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

inline std::string_view BytesOf(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

/// UTF-8, or 16-bit units behind a byte 0xFF, so that lone surrogates and zeros come too.
inline CString TextOf(std::string_view bytes) {
    if (bytes.empty() || bytes[0] != '\xFF') return CString::FromUtf8(bytes);
    std::u16string units;
    for (std::size_t at = 1; at + 1 < bytes.size(); at += 2)
        units += static_cast<char16_t>(static_cast<unsigned char>(bytes[at]) | static_cast<unsigned char>(bytes[at + 1])
                                                                                   << 8);
    return CString(units);
}

/// The parts between line ends.
inline std::vector<std::string_view> LinesOf(std::string_view bytes) {
    std::vector<std::string_view> lines;
    while (true) {
        const auto end = bytes.find('\n');
        lines.push_back(bytes.substr(0, end));
        if (end == std::string_view::npos) return lines;
        bytes.remove_prefix(end + 1);
    }
}

/// Takes values from the front of some bytes; behind their end there are zeros.
class FuzzInput {
 public:
    explicit FuzzInput(std::string_view bytes) : m_Rest(bytes) {}

    template <class Number>
    Number Take() {
        Number number = 0;
        const std::size_t size = std::min(sizeof number, m_Rest.size());
        std::memcpy(&number, m_Rest.data(), size);
        m_Rest.remove_prefix(size);
        return number;
    }

    /// From 0 to one less than `count`.
    int Below(int count) { return Take<std::uint8_t>() % count; }

    /// What is left.
    std::string_view Rest() const { return m_Rest; }

    /// The bytes before the next backslash, of which two stand for one; whatever follows a single one goes with it.
    std::string TakeText() {
        std::string text;
        while (!m_Rest.empty()) {
            const char byte = Take<char>();
            if (byte == '\\' && Take<char>() != '\\') break;
            text += byte;
        }
        return text;
    }

 private:
    std::string_view m_Rest;
};
