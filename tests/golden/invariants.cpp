#include "tests/golden/invariants.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <utility>

#include "tests/support/Outline.h"

namespace {

bool Contains(const std::vector<std::string>& names, const std::string& name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

std::string Tree(const Recognition& recognition) { return Sexpr(recognition.Grammar(), recognition.Root()); }

/// The offsets of the tokens that are nodes.
std::set<std::size_t> OffsetsInTree(const QZNode* root) {
    std::set<std::size_t> offsets;
    for (const TreeLine& line : TreeLines(root)) {
        if (QZKindOf(line.node) != QZNodeKind::Token) continue;
        const QZToken token = QZTokenOf(line.node);
        EXPECT_TRUE(offsets.insert(token.position.offset).second) << "twice in the tree: " << ToUtf8(token.text);
    }
    return offsets;
}

void ExpectLeavesInTextOrder(const QZNode* root) {
    std::size_t behind = 0;
    for (const TreeLine& line : TreeLines(root)) {
        if (QZKindOf(line.node) != QZNodeKind::Token || QZChildCount(line.node) > 0) continue;
        const QZToken token = QZTokenOf(line.node);
        EXPECT_GE(token.position.offset, behind) << "not in the text's order: " << ToUtf8(token.text);
        behind = token.position.offset + token.text.size();
    }
}

/// The text with each white space between tokens exchanged for `space`.
std::u16string Respaced(const Recognition& recognition, std::u16string_view space) {
    std::u16string text;
    std::size_t next = 0;
    const auto respaceUpTo = [&](std::size_t end) {
        for (; next < end; ++next) {
            const std::u16string_view unit(&recognition.Text()[next], 1);
            text += IsWhiteSpace(unit) ? space : unit;
        }
    };
    for (const QZToken& token : recognition.Tokens()) {
        if (token.hidden) continue;
        respaceUpTo(token.position.offset);
        text += token.text;
        next += token.text.size();
    }
    respaceUpTo(recognition.Text().size());
    return text;
}

bool HasWordWithBlank(const Dialect& dialect, const Recognition& recognition) {
    return std::any_of(dialect.wordsWithBlank.begin(), dialect.wordsWithBlank.end(), [&](const std::string& word) {
        return recognition.Text().find(FromUtf8(word)) != std::u16string::npos;
    });
}

std::vector<std::string> Messages(const Recognition& recognition) {
    std::vector<std::string> messages;
    for (const QZReport& report : recognition.Reports()) {
        messages.push_back(std::to_string(report.position.offset) + ' ' + report.message);
    }
    return messages;
}

void ExpectSameNodes(const QZGrammar& grammar, const QZNode* root, CQZSQLTree& view) {
    std::vector<std::pair<const QZNode*, CQZSQLTree*>> pending{{root, &view}};
    while (!pending.empty()) {
        const auto [node, seen] = pending.back();
        pending.pop_back();
        ASSERT_EQ(seen->GetChildCount(), QZChildCount(node));
        EXPECT_EQ(seen->GetType(), QZTypeOf(node));
        EXPECT_EQ(seen->GetText().View(), QZTextOf(grammar, node));
        for (std::uint32_t i = 0; i < QZChildCount(node); ++i) {
            pending.emplace_back(QZChildAt(node, i), seen->GetChild(i));
        }
    }
}

}  // namespace

void ExpectTokensInTree(const Dialect& dialect, const Recognition& recognition) {
    ExpectLeavesInTextOrder(recognition.Root());
    const std::set<std::size_t> kept = OffsetsInTree(recognition.Root());
    if (recognition.ParserErrors() > 0) return;
    const std::vector<QZToken> tokens = recognition.Tokens();
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        if (tokens[i].hidden || kept.count(tokens[i].position.offset) > 0) continue;
        const std::string name = QZTokenName(dialect.grammar, tokens[i].type);
        const std::string next = i + 1 < tokens.size() ? QZTokenName(dialect.grammar, tokens[i + 1].type) : "";
        EXPECT_TRUE(Contains(dialect.droppedTokens, name) || Contains(dialect.droppedTokens, name + ' ' + next))
            << "lost: " << name << ' ' << ToUtf8(tokens[i].text);
    }
}

void ExpectSameTreeWithOtherSpace(const Dialect& dialect, const Recognition& recognition) {
    if (HasWordWithBlank(dialect, recognition)) return;
    for (const std::u16string& space : dialect.whiteSpace) {
        const Recognition other(Respaced(recognition, space), dialect.grammar);
        EXPECT_EQ(Tree(other), Tree(recognition)) << ToUtf8(other.Text());
    }
}

void ExpectSameInSecondRun(const Recognition& recognition) {
    const Recognition second(recognition.Text(), recognition.Grammar());
    EXPECT_EQ(Tree(second), Tree(recognition));
    EXPECT_EQ(Messages(second), Messages(recognition));
}

void ExpectReportsInText(const Recognition& recognition) {
    for (const QZReport& report : recognition.Reports()) {
        EXPECT_LE(report.position.offset, recognition.Text().size()) << report.message;
    }
}

void ExpectSameThroughView(const Dialect& dialect, const Recognition& recognition) {
    if (!dialect.parse) return;
    CString text(std::u16string_view(recognition.Text()));
    dialect.parse(text, [&](CQZSQLTree& view) { ExpectSameNodes(dialect.grammar, recognition.Root(), view); });
}
