#include "host/tree_formats.h"

#include <fmt/format.h>

#include <iterator>

#include "host/notation.h"
#include "host/outline.h"
#include "host/unicode.h"

namespace qzsql {

namespace {

void AppendJsonNode(std::string& out, const QZGrammar& grammar, const QZNode* node) {
    out += "{\"type\":";
    AppendJson(out, TypeName(grammar, node));
    out += ",\"text\":";
    AppendJson(out, QZTextOf(grammar, node));
    if (QZKindOf(node) == QZNodeKind::Token) {
        const auto position = QZTokenOf(node).position;
        fmt::format_to(std::back_inserter(out), R"(,"line":{},"column":{},"offset":{})", position.line, position.column,
                       position.offset);
    }
    out += ",\"children\":[";
}

// In Graphviz a backslash begins an escape and an ampersand a character reference.
std::string Quoted(std::string_view utf8) {
    std::string out = "\"";
    for (const char byte : utf8) {
        if (byte == '"' || byte == '\\') out += '\\';
        out += byte;
        if (byte == '&') out += "amp;";
    }
    return out + '"';
}

// What an XML file can't hold is shown by its picture.
std::u16string Visible(std::u16string text) {
    for (auto& unit : text) {
        if (unit < 0x20) unit = static_cast<char16_t>(0x2400 + unit);
        if (unit >= 0xFFFE) unit = 0xFFFD;
    }
    return text;
}

std::string Label(const QZGrammar& grammar, const QZNode* node) {
    std::u16string label;
    AppendNode(label, grammar, node);
    return Quoted(ToUtf8(Visible(std::move(label))));
}

}  // namespace

std::u16string TreeAsSexpr(const Tree& tree) {
    std::u16string out;
    const auto enter = [&](const QZNode* node, std::size_t depth) {
        if (depth > 0) out += u' ';
        if (QZChildCount(node) > 0) out += u'(';
        AppendNode(out, tree.grammar, node);
    };
    const auto leave = [&](const QZNode* node) {
        if (QZChildCount(node) > 0) out += u')';
    };
    Walk(tree.root, enter, leave);
    return out;
}

std::string TreeAsText(const Tree& tree) {
    std::string out;
    Walk(tree.root, [&](const QZNode* node, std::size_t depth) {
        std::u16string line;
        AppendNode(line, tree.grammar, node);
        AppendIndent(out, depth);
        AppendUtf8(out, line);
        if (QZKindOf(node) == QZNodeKind::Token) {
            const auto position = QZTokenOf(node).position;
            fmt::format_to(std::back_inserter(out), " {}:{}", position.line, position.column);
        }
        out += '\n';
    });
    return out;
}

std::string TreeAsJson(const Tree& tree) {
    std::string out;
    const auto enter = [&](const QZNode* node, std::size_t depth) {
        const bool behindSibling = depth > 0 && out.back() == '}';
        if (behindSibling) out += ',';
        AppendJsonNode(out, tree.grammar, node);
    };
    Walk(tree.root, enter, [&out](const QZNode*) { out += "]}"; });
    return out + '\n';
}

std::string TreeAsDot(const Tree& tree, std::string_view name) {
    std::string out = fmt::format("digraph {} {{\n  node [shape=box, fontname=\"sans-serif\"];\n", Quoted(name));
    const auto trailing = TrailingNodes(tree.root);
    auto nextTrailing = trailing.begin();
    std::vector<std::size_t> path;
    std::size_t number = 0;
    Walk(tree.root, [&](const QZNode* node, std::size_t depth) {
        const bool trails = nextTrailing != trailing.end() && *nextTrailing == node;
        if (trails) ++nextTrailing;
        fmt::format_to(std::back_inserter(out), "  {} [label={}{}];\n", number, Label(tree.grammar, node),
                       trails ? ", style=filled, fillcolor=orange" : "");
        path.resize(depth);
        if (depth > 0) fmt::format_to(std::back_inserter(out), "  {} -> {};\n", path.back(), number);
        path.push_back(number++);
    });
    return out + "}\n";
}

}  // namespace qzsql
