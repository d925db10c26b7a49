// Texts out of a fuzzer's bytes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "QZParserSQL/platform/CString.h"

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
inline std::vector<std::string_view> LinesOf(const std::uint8_t* data, std::size_t size) {
    std::vector<std::string_view> lines;
    std::string_view rest(reinterpret_cast<const char*>(data), size);
    while (true) {
        const auto end = rest.find('\n');
        lines.push_back(rest.substr(0, end));
        if (end == std::string_view::npos) return lines;
        rest.remove_prefix(end + 1);
    }
}
