#include <gtest/gtest.h>

#include <stdexcept>

#include "tests/golden/GoldenFile.h"

namespace {

const char* const TWO_CASES =
    "# a file's own heading\n"
    "\n"
    "# why\n"
    "first\n"
    "SELECT a\n"
    "FROM t\n"
    "--\n"
    "nil\n"
    "  EOF\n"
    "==\n"
    "\n"
    "# why\n"
    "second\n"
    ":error\n"
    "--\n"
    "nil\n"
    "! 1:1 message\n"
    "==\n";

GoldenCase Marked(bool error) { return {"# why\n", "title", error, "SELECT", "old\n", {}, ""}; }

TEST(GoldenFile, ReadsCases) {
    const std::vector<GoldenCase> cases = ParseCases(TWO_CASES);
    ASSERT_EQ(cases.size(), 2U);
    EXPECT_EQ(cases[0].title, "first");
    EXPECT_FALSE(cases[0].error);
    EXPECT_EQ(cases[0].sql, "SELECT a\nFROM t");
    EXPECT_EQ(cases[0].tree, "nil\n  EOF\n");
    EXPECT_TRUE(cases[1].error);
    EXPECT_EQ(cases[1].sql, "");
    EXPECT_EQ(cases[1].tree, "nil\n! 1:1 message\n");
}

TEST(GoldenFile, WritesCasesAsTheyWereRead) { EXPECT_EQ(FormatCases(ParseCases(TWO_CASES)), TWO_CASES); }

TEST(GoldenFile, WritesTreesOfTheCorpusAsTheyWereRead) {
    const std::string text = "# why\n:error\nnil\n  EOF\n";
    EXPECT_EQ(ParseTree(text).tree, "nil\n  EOF\n");
    EXPECT_EQ(FormatTree(ParseTree(text)), text);
}

TEST(GoldenFile, ReadsAndWritesModels) {
    const std::string text = "title\nSELECT a\n--\nnil\n--\nQuery\n  Select\n==\n";
    EXPECT_EQ(ParseCases(text)[0].tree, "nil\n");
    EXPECT_EQ(ParseCases(text)[0].model, "Query\n  Select\n");
    EXPECT_EQ(FormatCases(ParseCases(text)), text);
    EXPECT_FALSE(ParseCases(TWO_CASES)[0].model);
    GoldenCase golden;
    ParseModel("# why\nQuery\n", golden);
    EXPECT_EQ(golden.model, "Query\n");
    EXPECT_EQ(FormatModel(golden), "# why\nQuery\n");
}

TEST(GoldenFile, RefusesWhatIsNoCase) {
    EXPECT_THROW(ParseCases("title\nSELECT a\n"), std::runtime_error);
    EXPECT_THROW(ParseCases("title\nSELECT a\n--\nnil\n"), std::runtime_error);
    EXPECT_THROW(ParseCases("title\nSELECT a\n--\nnil\n--\nQuery\n"), std::runtime_error);
    EXPECT_THROW(ParseCases("title\n:eror\nSELECT a\n--\n==\n"), std::runtime_error);
}

TEST(GoldenFile, AdoptsATreeOnlyIfItsErrorsAreMarked) {
    for (const bool error : {false, true}) {
        GoldenCase expected = Marked(error);
        Adopt(expected, {error, "new\n"});
        EXPECT_EQ(expected.tree, "new\n");
        GoldenCase unexpected = Marked(error);
        Adopt(unexpected, {!error, "new\n"});
        EXPECT_EQ(unexpected.tree, "old\n");
    }
}

TEST(GoldenFile, IsRewrittenOnDemandButNeverOnCi) {
    EXPECT_EQ(RewritingFor(nullptr, nullptr), Rewriting::Off);
    EXPECT_EQ(RewritingFor("0", nullptr), Rewriting::Off);
    EXPECT_EQ(RewritingFor("1", nullptr), Rewriting::On);
    EXPECT_EQ(RewritingFor("1", "true"), Rewriting::Refused);
    EXPECT_EQ(RewritingFor(nullptr, "true"), Rewriting::Off);
}

}  // namespace
