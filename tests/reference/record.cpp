// What the recognizers make of texts, one line a text, for two builds to be compared byte by byte:
//
//     record GRAMMAR [full] < texts, each ended by NUL
//
// A line is the text's number and a digest of what tests/support/Record.h makes of it; with `full` this itself follows.
#include "tests/support/Record.h"

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <iostream>
#include <string>
#include <string_view>

#include "tests/support/Recognition.h"

namespace {

// FNV-1a, 64 bits.
std::uint64_t Digest(std::string_view made) {
    std::uint64_t digest = 0xCBF29CE484222325U;
    for (const char character : made) digest = (digest ^ static_cast<unsigned char>(character)) * 0x100000001B3U;
    return digest;
}

}  // namespace

int main(int count, char** arguments) {
    const QZGrammar* grammar = count > 1 ? GrammarOf(arguments[1]) : nullptr;
    if (grammar == nullptr) {
        std::cerr << "record GRAMMAR [full] < texts\n";
        return 2;
    }
    const bool full = count > 2 && std::strcmp(arguments[2], "full") == 0;
    std::string text;
    for (int number = 0; std::getline(std::cin, text, '\0'); ++number) {
        const std::string made = RecordOf(*grammar, FromUtf8(text));
        std::printf("%d %016llx\n", number, static_cast<unsigned long long>(Digest(made)));
        if (full) std::printf("%s\n%s", text.c_str(), made.c_str());
    }
    return 0;
}
