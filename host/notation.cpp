#include "host/notation.h"

#include "host/unicode.h"

namespace qzsql {

void AppendQuoted(std::u16string& out, std::u16string_view text) {
    constexpr std::u16string_view kSpecial = u"\\\"\n\r\t";
    constexpr std::u16string_view kLetters = u"\\\"nrt";
    out += u'"';
    for (const char16_t unit : text) {
        const auto special = kSpecial.find(unit);
        if (special == std::u16string_view::npos) {
            out += unit;
        } else {
            out += u'\\';
            out += kLetters[special];
        }
    }
    out += u'"';
}

void AppendToken(std::u16string& out, std::string_view type, std::u16string_view text) {
    AppendAscii(out, type);
    out += u':';
    AppendQuoted(out, text);
}

std::string_view TypeName(const QZGrammar& grammar, const QZNode* node) {
    switch (QZKindOf(node)) {
        case QZNodeKind::Nil:
            return "nil";
        case QZNodeKind::Error:
            return "ERROR";
        default:
            return QZTokenName(grammar, QZTypeOf(node));
    }
}

void AppendNode(std::u16string& out, const QZGrammar& grammar, const QZNode* node) {
    const auto kind = QZKindOf(node);
    const auto type = TypeName(grammar, node);
    if (kind == QZNodeKind::Token || kind == QZNodeKind::Missing) {
        AppendToken(out, type, QZTextOf(grammar, node));
    } else {
        AppendAscii(out, type);
    }
}

}  // namespace qzsql
