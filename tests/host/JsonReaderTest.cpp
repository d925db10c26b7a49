#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string>

#include "host/json_reader.h"

namespace qzsql {
namespace {

std::string RawOf(const std::string& text) {
    JsonReader reader(text);
    std::string raw(reader.ReadRaw());
    if (!reader.AtEnd()) reader.Fail("more");
    return raw;
}

bool IsValue(const std::string& text) {
    try {
        RawOf(text);
        return true;
    } catch (const std::runtime_error&) {
        return false;
    }
}

constexpr const char* kGood[] = {
    "0",
    "-0",
    "12",
    "1.0",
    "1e400",
    "-1.5E-7",
    "1e+5",
    "12345678901234567890123",
    "true",
    "false",
    "null",
    "\"\"",
    R"("a\"\\\/\b\f\n\r\tä")",
    R"("ä")",
    "[]",
    "{}",
    "[[]]",
    "[1,[2,{}],{\"a\":[]}]",
    " [ 1 , 2 ] ",
    R"({"a":{"b":[{"c":null}]},"a":2})",
    "\t1\r",
};

constexpr const char* kBad[] = {
    "",
    " ",
    "01",
    "-",
    "+1",
    ".5",
    "1.",
    "1e",
    "1e+",
    "tru",
    "nul",
    "True",
    "'a'",
    "\"",
    "\"a",
    "\"\\x\"",
    "\"\\u12\"",
    "\"\\u12g4\"",
    "\"a\tb\"",
    "[",
    "]",
    "[1",
    "[1,",
    "[1,]",
    "[,1]",
    "[1 2]",
    "{",
    "}",
    "{1:2}",
    "{\"a\"}",
    "{\"a\":}",
    "{\"a\":1,}",
    "{\"a\":1",
    "{\"a\" 1}",
    "{\"a\":1]",
    "[1}",
    "1 2",
    "nullx",
    "\"\\",
    "\"\xFF\"",
    "\"\xED\xA0\x80\"",
};

TEST(JsonReader, TakesWhatIsJson) {
    for (const std::string text : kGood) {
        EXPECT_TRUE(IsValue(text)) << text;
        EXPECT_TRUE(nlohmann::json::accept(text) || text == "1e400") << text;
    }
}

TEST(JsonReader, RefusesWhatIsNot) {
    for (const std::string text : kBad) {
        EXPECT_FALSE(IsValue(text)) << text;
        EXPECT_FALSE(nlohmann::json::accept(text)) << text;
    }
}

TEST(JsonReader, RefusesEveryBeginningOfAValue) {
    const std::string text = R"({"a":[1,{"b":"cä"},null,-2.5e7],"d":{}})";
    for (std::size_t size = 0; size < text.size(); ++size) EXPECT_FALSE(IsValue(text.substr(0, size))) << size;
    EXPECT_TRUE(IsValue(text));
}

TEST(JsonReader, ReturnsValuesAsTheyAreWritten) {
    EXPECT_EQ(RawOf("  1.0 "), "1.0");
    EXPECT_EQ(RawOf(R"( { "a" : [ 1 , "\u0061" ] } )"), R"({ "a" : [ 1 , "\u0061" ] })");
}

TEST(JsonReader, ReadsOverAnyDepth) {
    const std::size_t depth = 1'000'000;
    std::string text;
    for (std::size_t i = 0; i < depth; ++i) text += "[{\"a\":";
    EXPECT_FALSE(IsValue(text));
    text += '1';
    for (std::size_t i = 0; i < depth; ++i) text += "}]";
    EXPECT_EQ(RawOf(text), text);
}

std::u16string StringOf(std::string_view text) { return JsonReader(text).ReadString(); }

TEST(JsonReader, UndoesEscapes) {
    EXPECT_EQ(StringOf(R"("\"\\\/\b\f\n\r\tA")"), u"\"\\/\b\f\n\r\tA");
    EXPECT_EQ(StringOf(R"("\u00E4\u00e4ä")"), u"\u00e4\u00e4\u00e4");
    EXPECT_EQ(StringOf(R"("\ud83d\ude00")"), u"\U0001F600");
}

TEST(JsonReader, KeepsLoneSurrogatesAndNul) {
    const std::u16string expected{0xDC00, 0xD800, u'\0', 0xD800};
    EXPECT_EQ(StringOf(R"("\udc00\ud800\u0000\uD800")"), expected);
}

TEST(JsonReader, NamesTheByteFromOne) {
    try {
        RawOf("[1,x]");
        FAIL();
    } catch (const std::runtime_error& error) {
        EXPECT_STREQ(error.what(), "byte 4: a value expected");
    }
}

}  // namespace
}  // namespace qzsql
