#include "host/input.h"

#include <fmt/format.h>

#include <algorithm>
#include <exception>
#include <new>
#include <stdexcept>

#include "host/file.h"
#include "host/output.h"
#include "host/unicode.h"

namespace qzsql {

namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kLittleEndianMark = "\xFF\xFE";
constexpr std::string_view kBigEndianMark = "\xFE\xFF";

bool StartsWith(std::string_view bytes, std::string_view mark) { return bytes.substr(0, mark.size()) == mark; }

char16_t Unit(char high, char low) {
    return static_cast<char16_t>(static_cast<unsigned char>(high) << 8 | static_cast<unsigned char>(low));
}

std::u16string DecodeUtf16(std::string_view bytes, bool bigEndian) {
    if (bytes.size() % 2 != 0) {
        throw std::runtime_error(fmt::format(
            "byte {} is half a UTF-16 unit, the file is cut off; save it again as UTF-8 or UTF-16", bytes.size() - 1));
    }
    std::u16string text;
    text.reserve(bytes.size() / 2);
    for (std::size_t at = kBigEndianMark.size(); at < bytes.size(); at += 2) {
        text += bigEndian ? Unit(bytes[at], bytes[at + 1]) : Unit(bytes[at + 1], bytes[at]);
    }
    return text;
}

std::u16string DecodeUtf8(std::string_view bytes) {
    const auto mark = StartsWith(bytes, kUtf8Mark) ? kUtf8Mark.size() : 0;
    try {
        return FromUtf8(bytes.substr(mark));
    } catch (const NotUtf8& error) {
        throw std::runtime_error(
            fmt::format("byte {} is not UTF-8; convert the text to UTF-8, or to UTF-16 with a byte-order mark",
                        error.offset + mark));
    }
}

/// No failure keeps the inputs that follow from being handled.
ExitCode Use(const std::string& name, const std::function<std::string()>& read,
             const std::function<ExitCode(const Input&)>& use) {
    Input input{name, {}};
    try {
        input.text = DecodeText(read());
        return use(input);
    } catch (const std::bad_alloc&) {
        return TellOutOfMemory(name);
    } catch (const std::exception& error) {
        Tell(fmt::format("qzsql: {}: {}\n", name, error.what()));
        return kUnreadable;
    }
}

}  // namespace

std::u16string DecodeText(std::string_view bytes) {
    if (StartsWith(bytes, kLittleEndianMark)) return DecodeUtf16(bytes, false);
    if (StartsWith(bytes, kBigEndianMark)) return DecodeUtf16(bytes, true);
    return DecodeUtf8(bytes);
}

std::u16string ReadText(const std::string& name) {
    try {
        return DecodeText(File(name).ReadAll());
    } catch (const std::runtime_error& error) {
        throw std::runtime_error(fmt::format("{}: {}", name, error.what()));
    }
}

ExitCode ForEachInput(const InputNames& names, const std::function<ExitCode(const Input&)>& use) {
    ExitCode worst = kDone;
    std::size_t number = 0;
    for (const auto& text : names.texts) {
        worst = std::max(worst, Use(
                                    fmt::format("-e {}", ++number), [&text] { return text; }, use));
    }
    for (const auto& name : names.files) {
        worst = std::max(worst, Use(
                                    name, [&name] { return File(name).ReadAll(); }, use));
    }
    return worst;
}

}  // namespace qzsql
