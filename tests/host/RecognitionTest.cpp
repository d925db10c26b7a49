#include <gtest/gtest.h>

#include <string>

#include "host/dialects.h"
#include "host/recognition.h"

namespace qzsql {
namespace {

const QZGrammar& Access() { return FindDialect("access")->grammar(); }

TEST(Dialects, AreFoundByTheirNamesOnly) {
    EXPECT_EQ(FindDialect("Access"), nullptr);
    EXPECT_EQ(FindDialect(""), nullptr);
    EXPECT_NE(UnknownDialect("x").find("access"), std::string::npos);
}

TEST(Recognition, GivesTokensWithTheirPlaces) {
    const std::u16string text = u"SELECT\n a";
    Recognition recognition(Access(), text);
    const auto tokens = recognition.Tokens();
    ASSERT_EQ(tokens.size(), 4U);
    EXPECT_EQ(tokens[3].text, u"a");
    EXPECT_EQ(tokens[3].position.line, 2U);
    EXPECT_EQ(tokens[3].position.column, 2U);
    EXPECT_EQ(tokens[3].position.offset, 8U);
    EXPECT_TRUE(tokens[1].hidden);
    EXPECT_FALSE(tokens[3].hidden);
}

TEST(Recognition, ParsesOnceAndKeepsTheTree) {
    const std::u16string text = u"SELECT a FROM t";
    Recognition recognition(Access(), text);
    const QZNode* root = recognition.Tree();
    EXPECT_EQ(QZKindOf(root), QZNodeKind::Nil);
    EXPECT_EQ(recognition.Tree(), root);
    EXPECT_EQ(recognition.Tokens().size(), 7U);
    EXPECT_TRUE(recognition.Reports().empty());
}

TEST(Recognition, TellsDroppedCharactersButNoWhiteSpace) {
    const std::u16string text = u"SELECT\f a;\v";
    Recognition recognition(Access(), text);
    recognition.Tokens();
    ASSERT_EQ(recognition.Reports().size(), 1U);
    EXPECT_EQ(recognition.Reports()[0].kind, QZReportKind::DroppedCharacter);
    EXPECT_EQ(recognition.Reports()[0].position.offset, 9U);
}

TEST(Recognition, TakesWhiteSpaceThatMakesNoTokenForNothing) {
    const std::u16string text = u"SELECT\t a\r\nFROM  t" + std::u16string(10'000, u' ');
    Recognition recognition(FindDialect("mssql")->grammar(), text);
    EXPECT_EQ(QZChildCount(recognition.Tree()), 2U);
    EXPECT_EQ(recognition.Tokens().size(), 4U);
    EXPECT_TRUE(recognition.Reports().empty());
}

TEST(Recognition, TellsTheFirstOfVeryManyDroppedCharacters) {
    const std::u16string text(100'000, u';');
    Recognition recognition(Access(), text);
    recognition.Tokens();
    ASSERT_EQ(recognition.Reports().size(), 1001U);
    EXPECT_EQ(recognition.Reports().back().message, "more characters are left out from here on");
    EXPECT_EQ(recognition.Reports().back().position.offset, 1000U);
}

TEST(Recognition, CanGoUnused) {
    const std::u16string text = u"SELECT a";
    const Recognition recognition(Access(), text);
    EXPECT_TRUE(recognition.Reports().empty());
}

}  // namespace
}  // namespace qzsql
