#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <string>

#include "host/big_stack.h"
#include "host/dialects.h"
#include "host/recognition.h"
#include "host/token_formats.h"
#include "host/tree_formats.h"
#include "host/unicode.h"

namespace qzsql {
namespace {

using nlohmann::json;

/// A query with its tree.
class Parsed {
 public:
    explicit Parsed(std::u16string text)
        : text_(std::move(text)), recognition_(FindDialect("access")->grammar(), text_) {}

    Tree tree() { return {recognition_.Grammar(), recognition_.Tree()}; }
    Recognition& recognition() { return recognition_; }

 private:
    std::u16string text_;
    Recognition recognition_;
};

TEST(TreeFormats, SexprIsOneLine) {
    EXPECT_EQ(TreeAsSexpr(Parsed(u"SELECT a FROM t").tree()),
              u"(nil (SELECT_QUERY (SELECT_LIST (COLUMN_SPECIFICATION (COLUMN_NAME IDENTIFICATOR:\"a\"))) (FROM_DEF_ "
              u"(ALIAS (TABLE_SPECIFICATION (TABLE_NAME IDENTIFICATOR:\"t\"))))) EOF)");
    EXPECT_EQ(TreeAsSexpr(Parsed(u"x").tree()), u"(nil (SELECT_QUERY ERROR) IDENTIFICATOR:\"x\" EOF)");
}

TEST(TreeFormats, TextOfTokensIsEscaped) {
    const auto sexpr = TreeAsSexpr(Parsed(u"SELECT a FROM [\\\"\r\n\t]").tree());
    EXPECT_NE(sexpr.find(u":\"[\\\\\\\"\\r\\n\\t]\""), std::u16string::npos);
}

TEST(TreeFormats, OutlineIndentsAndPlacesTokens) {
    EXPECT_EQ(TreeAsText(Parsed(u"SELECT a\nx").tree()),
              "nil\n"
              "  SELECT_QUERY\n"
              "    SELECT_LIST\n"
              "      COLUMN_SPECIFICATION\n"
              "        COLUMN_NAME\n"
              "          IDENTIFICATOR:\"a\" 1:8\n"
              "  IDENTIFICATOR:\"x\" 2:1\n"
              "  EOF\n");
}

TEST(TreeFormats, JsonHoldsTypeTextPlaceAndChildren) {
    const auto root = json::parse(TreeAsJson(Parsed(u"SELECT a\nx").tree()));
    EXPECT_EQ(root["type"], "nil");
    EXPECT_EQ(root["text"], "nil");
    ASSERT_EQ(root["children"].size(), 3U);
    EXPECT_EQ(root["children"][0]["type"], "SELECT_QUERY");
    EXPECT_FALSE(root["children"][0].contains("line"));
    EXPECT_EQ(root["children"][1], json::parse(R"({"type":"IDENTIFICATOR","text":"x","line":2,"column":1,"offset":9,
                                                   "children":[]})"));
    EXPECT_EQ(root["children"][2], json::parse(R"({"type":"EOF","text":"<EOF>","children":[]})"));
}

TEST(TreeFormats, DotJoinsChildrenToParentsAndMarksTrailingTokens) {
    const auto dot = TreeAsDot(Parsed(u"SELECT a x").tree(), "a \"name\"");
    EXPECT_EQ(dot.rfind("digraph \"a \\\"name\\\"\" {\n", 0), 0U);
    EXPECT_NE(dot.find("  6 [label=\"IDENTIFICATOR:\\\"x\\\"\", style=filled, fillcolor=orange];\n  0 -> 6;\n"),
              std::string::npos);
    EXPECT_NE(dot.find("  5 [label=\"IDENTIFICATOR:\\\"a\\\"\"];\n  4 -> 5;\n"), std::string::npos);
    EXPECT_NE(dot.find("  7 [label=\"EOF\"];\n  0 -> 7;\n"), std::string::npos);
}

TEST(TreeFormats, DotEscapesWhatGraphvizWouldRead) {
    const auto dot = TreeAsDot(Parsed(u"SELECT a FROM [&lt; \\ \x01]").tree(), "x");
    EXPECT_NE(dot.find("\"COL_PAREN_ATTRITION:\\\"[&amp;lt; \\\\\\\\ \u2401]\\\"\""), std::string::npos) << dot;
}

TEST(TreeFormats, TokensAsLinesAndAsJson) {
    Parsed parsed(u"SELECT count");
    const auto tokens = parsed.recognition().Tokens();
    const auto& grammar = parsed.recognition().Grammar();
    EXPECT_EQ(TokensAsText(grammar, tokens), "SELECT_KEYWORD:\"SELECT\"\nWS:\" \" @hidden\n'count':\"count\"\n");
    const auto array = json::parse(TokensAsJson(grammar, tokens));
    ASSERT_EQ(array.size(), 3U);
    EXPECT_EQ(array[1], json::parse(R"({"type":"WS","text":" ","line":1,"column":7,"offset":6,"hidden":true})"));
    EXPECT_EQ(json::parse(TokensAsJson(grammar, {})), json::array());
}

std::u16string Conjunction(int operands) {
    std::u16string text = u"SELECT a FROM t WHERE x = 1";
    for (int i = 1; i < operands; ++i) text += u" AND x = 1";
    return text;
}

std::size_t DepthOf(const Tree& tree) {
    std::size_t deepest = 0;
    Walk(tree.root, [&deepest](const QZNode*, std::size_t depth) { deepest = std::max(deepest, depth); });
    return deepest;
}

TEST(TreeFormats, BelowDepth100TheOutlineWritesTheDepth) {
    Parsed parsed(Conjunction(300));
    ASSERT_GT(DepthOf(parsed.tree()), 101U);
    const auto outline = TreeAsText(parsed.tree());
    EXPECT_NE(outline.find("\n" + std::string(200, ' ') + "AND"), std::string::npos);
    EXPECT_NE(outline.find("\n101> AND"), std::string::npos);
    EXPECT_EQ(outline.find(std::string(201, ' ')), std::string::npos);
}

TEST(TreeFormats, ATreeMayBeAsDeepAsItsTextIsLong) {
    constexpr int kOperands = 20'000;
    BigStackThread([] {
        Parsed parsed(Conjunction(kOperands));
        ASSERT_GT(DepthOf(parsed.tree()), std::size_t{kOperands});
        const auto nodes = CountNodes(parsed.tree().root);
        for (const auto& text : {ToUtf8(TreeAsSexpr(parsed.tree())), TreeAsText(parsed.tree()),
                                 TreeAsJson(parsed.tree()), TreeAsDot(parsed.tree(), "x")}) {
            EXPECT_GT(text.size(), nodes);
            EXPECT_LT(text.size(), 220 * nodes);
        }
    }).Join();
}

}  // namespace
}  // namespace qzsql
