#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <string>

#include "host/check.h"
#include "host/dialects.h"
#include "tests/dialect/OnStack.h"

namespace qzsql {
namespace {

using nlohmann::json;

json JsonOf(const std::u16string& text) {
    Recognition recognition(FindDialect("access")->grammar(), text);
    return json::parse(VerdictAsJson(Judge(recognition), "in"));
}

std::string TextOf(const std::u16string& text) {
    Recognition recognition(FindDialect("access")->grammar(), text);
    return VerdictAsText(Judge(recognition), text);
}

TEST(Check, ACleanQueryHasNothingToTell) {
    EXPECT_EQ(TextOf(u"SELECT a\n FROM t"), "clean\n");
    EXPECT_EQ(JsonOf(u"SELECT a FROM t"),
              json::parse(R"({"input":"in","status":"clean","trailing":null,"diagnostics":[]})"));
}

TEST(Check, TrailingTextIsPlacedAndMeasured) {
    EXPECT_EQ(JsonOf(u"SELECT a\n\tFROM t x  y z "), json::parse(R"({
        "input":"in","status":"trailing","diagnostics":[],
        "trailing":{"line":2,"column":9,"offset":17,"count":3,"text":"x  y z"}})"));
    EXPECT_EQ(TextOf(u"SELECT a\n\tFROM t x  y z "),
              "trailing\n"
              "2:9: not understood from here on: 3 tokens, 6 characters\n"
              "    \tFROM t x  y z \n"
              "    \t       ^\n");
}

TEST(Check, WhatIsNoQueryIsAnErrorAndTrails) {
    const auto verdict = JsonOf(u"UPDATE t");
    EXPECT_EQ(verdict["status"], "error");
    EXPECT_EQ(verdict["trailing"]["count"], 2);
    ASSERT_EQ(verdict["diagnostics"].size(), 1U);
    EXPECT_EQ(verdict["diagnostics"][0]["severity"], "error");
    EXPECT_EQ(verdict["diagnostics"][0]["phase"], "parser");
    EXPECT_EQ(verdict["diagnostics"][0]["line"], 1);
    EXPECT_EQ(verdict["diagnostics"][0]["column"], 1);
    EXPECT_EQ(TextOf(u"UPDATE t").rfind("error\n1:1: error: ", 0), 0U);
}

TEST(Check, TheEmptyTextIsAnError) { EXPECT_EQ(JsonOf(u"")["status"], "error"); }

TEST(Check, DroppedCharactersAreWarnings) {
    const auto verdict = JsonOf(u"SELECT a;\f FROM t");
    EXPECT_EQ(verdict["status"], "clean");
    ASSERT_EQ(verdict["diagnostics"].size(), 1U);
    EXPECT_EQ(verdict["diagnostics"][0]["severity"], "warning");
    EXPECT_EQ(verdict["diagnostics"][0]["phase"], "lexer");
    EXPECT_EQ(verdict["diagnostics"][0]["column"], 9);
}

TEST(Check, TooDeepNestingIsAnErrorWithItsPlace) {
    RunOnStack(8 << 20, [] {
        const auto verdict = JsonOf(u"SELECT " + std::u16string(200'000, u'('));
        EXPECT_EQ(verdict["status"], "error");
        const auto& told = verdict["diagnostics"][0];
        EXPECT_EQ(told["severity"], "error");
        EXPECT_NE(told["message"].get<std::string>().find("nested too deep"), std::string::npos);
        EXPECT_GT(told["column"], 100);
    });
}

TEST(Check, LoneSurrogatesOfTrailingTextSurvive) {
    Recognition recognition(FindDialect("access")->grammar(), u"SELECT a FROM t [\xD800]");
    EXPECT_NE(VerdictAsJson(Judge(recognition), "in").find(R"("text":"[\ud800]")"), std::string::npos);
}

}  // namespace
}  // namespace qzsql
