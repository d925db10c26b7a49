#include "QZParserSQL/platform/NumberText.h"

#include <locale.h>
#include <stdlib.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>

namespace qz {
namespace {

locale_t CLocale() {
    static const locale_t locale = newlocale(LC_ALL_MASK, "C", nullptr);
    return locale;
}

template <class Integer>
Integer ReadInteger(const char* text) {
    using Range = std::numeric_limits<Integer>;
    const long long number = strtoll_l(text, nullptr, 10, CLocale());
    return static_cast<Integer>(std::clamp<long long>(number, Range::min(), Range::max()));
}

}  // namespace

int ReadInt(const char* text) { return ReadInteger<int>(text); }
long ReadLong(const char* text) { return ReadInteger<long>(text); }
std::int64_t ReadInt64(const char* text) { return ReadInteger<std::int64_t>(text); }
double ReadDouble(const char* text) { return strtod_l(text, nullptr, CLocale()); }

std::string WriteDouble(double number) {
    constexpr int kDecimals = 6;
    // Sign and point besides the digits.
    std::array<char, std::numeric_limits<double>::max_exponent10 + 1 + kDecimals + 2> text;
    const auto written =
        std::to_chars(text.data(), text.data() + text.size(), number, std::chars_format::fixed, kDecimals);
    return {text.data(), written.ptr};
}

}  // namespace qz
