#include "host/token_formats.h"

#include <fmt/format.h>

#include <iterator>

#include "host/notation.h"
#include "host/unicode.h"

namespace qzsql {

std::u16string TokenLine(const QZGrammar& grammar, const QZToken& token) {
    std::u16string line;
    AppendToken(line, QZTokenName(grammar, token.type), token.text);
    if (token.hidden) line += u" @hidden";
    return line;
}

std::string TokensAsText(const QZGrammar& grammar, const std::vector<QZToken>& tokens) {
    std::string out;
    for (const auto& token : tokens) {
        AppendUtf8(out, TokenLine(grammar, token));
        out += '\n';
    }
    return out;
}

std::string TokensAsJson(const QZGrammar& grammar, const std::vector<QZToken>& tokens) {
    std::string out = "[";
    for (const auto& token : tokens) {
        out += out.size() > 1 ? ",{\"type\":" : "{\"type\":";
        AppendJson(out, QZTokenName(grammar, token.type));
        out += ",\"text\":";
        AppendJson(out, token.text);
        fmt::format_to(std::back_inserter(out), R"(,"line":{},"column":{},"offset":{},"hidden":{}}})",
                       token.position.line, token.position.column, token.position.offset, token.hidden);
    }
    return out + "]\n";
}

}  // namespace qzsql
