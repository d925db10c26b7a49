#include "tests/support/Outline.h"

#include "tests/support/Recognition.h"

namespace {

std::string Escaped(const std::string& text) {
    static const std::string special = "\\\"\n\r\t";
    static const char* const shown[] = {"\\\\", "\\\"", "\\n", "\\r", "\\t"};
    std::string escaped;
    for (const char character : text) {
        const auto at = special.find(character);
        if (at == std::string::npos) {
            escaped += character;
        } else {
            escaped += shown[at];
        }
    }
    return escaped;
}

std::string TokenLabel(const QZGrammar& grammar, const QZNode* node) {
    return QZTokenName(grammar, QZTypeOf(node)) + (":\"" + Escaped(ToUtf8(QZTextOf(grammar, node))) + '"');
}

}  // namespace

std::vector<TreeLine> TreeLines(const QZNode* root) {
    std::vector<TreeLine> lines;
    std::vector<TreeLine> pending{{root, 0}};
    while (!pending.empty()) {
        const TreeLine line = pending.back();
        pending.pop_back();
        lines.push_back(line);
        for (auto i = QZChildCount(line.node); i > 0; --i) {
            pending.push_back({QZChildAt(line.node, i - 1), line.depth + 1});
        }
    }
    return lines;
}

std::string NodeLabel(const QZGrammar& grammar, const QZNode* node) {
    switch (QZKindOf(node)) {
        case QZNodeKind::Nil:
            return "nil";
        case QZNodeKind::Error:
            return "ERROR";
        case QZNodeKind::EndOfText:
            return "EOF";
        case QZNodeKind::Imaginary:
            return QZTokenName(grammar, QZTypeOf(node));
        case QZNodeKind::Token:
        case QZNodeKind::Missing:
            return TokenLabel(grammar, node);
    }
    return {};
}

std::string Outline(const QZGrammar& grammar, const QZNode* root) {
    std::string outline;
    for (const TreeLine& line : TreeLines(root)) {
        outline += std::string(2 * line.depth, ' ') + NodeLabel(grammar, line.node) + '\n';
    }
    return outline;
}

std::string Sexpr(const QZGrammar& grammar, const QZNode* root) {
    const std::vector<TreeLine> lines = TreeLines(root);
    std::string sexpr;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const std::size_t depth = lines[i].depth;
        const std::size_t next = i + 1 < lines.size() ? lines[i + 1].depth : 0;
        if (i > 0) sexpr += ' ';
        if (next > depth) sexpr += '(';
        sexpr += NodeLabel(grammar, lines[i].node);
        if (next < depth) sexpr.append(depth - next, ')');
    }
    return sexpr;
}
