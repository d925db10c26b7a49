#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <string>

#include "host/unicode.h"

namespace qzsql {
namespace {

std::string Json(std::u16string_view text) {
    std::string out;
    AppendJson(out, text);
    return out;
}

std::string JsonOfUtf8(std::string_view utf8) {
    std::string out;
    AppendJson(out, utf8);
    return out;
}

TEST(Unicode, EveryCharacterComesBack) {
    for (char32_t character = 0; character <= 0x10FFFF; ++character) {
        if (character == 0xD800) character = 0xE000;
        std::u16string text;
        AppendCharacter(text, character);
        ASSERT_EQ(FromUtf8(ToUtf8(text)), text) << static_cast<unsigned>(character);
        ASSERT_EQ(FromUtf8(nlohmann::json::parse(Json(text)).get<std::string>()), text);
    }
}

TEST(Unicode, WritesTheBytesThatUtf8Has) {
    EXPECT_EQ(ToUtf8(u"a\u00e4\u20ac\U0001F600"), "a\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80");
}

TEST(Unicode, NamesThePlaceOfBytesThatAreNotUtf8) {
    const struct {
        std::string bytes;
        std::size_t offset;
    } cases[] = {
        {"ab\xFF", 2},            // no character begins so
        {"\x80", 0},              // a continuation alone
        {"a\xC3", 1},             // cut off
        {"a\xE2\x82", 1},         // cut off
        {"a\xC3(", 1},            // no continuation
        {"\xC0\x80", 0},          // longer than needed
        {"\xE0\x9F\xBF", 0},      // longer than needed
        {"\xF0\x8F\xBF\xBF", 0},  // longer than needed
        {"\xED\xA0\x80", 0},      // a surrogate
        {"\xF4\x90\x80\x80", 0},  // above the last character
        {"\xF5\x80\x80\x80", 0},
    };
    for (const auto& bad : cases) {
        try {
            FromUtf8(bad.bytes);
            FAIL() << nlohmann::json::binary({bad.bytes.begin(), bad.bytes.end()});
        } catch (const NotUtf8& error) {
            EXPECT_EQ(error.offset, bad.offset);
        }
    }
}

TEST(Unicode, LoneSurrogatesBecomeEscapes) {
    const std::u16string text{u'a', 0xDC00, 0xD800, u'b', 0xD83D, 0xDE00, 0xD800};
    EXPECT_EQ(ToUtf8(text), "a\\udc00\\ud800b\xF0\x9F\x98\x80\\ud800");
    EXPECT_EQ(Json(text), "\"a\\udc00\\ud800b\xF0\x9F\x98\x80\\ud800\"");
}

TEST(Unicode, JsonEscapesWhatJsonMust) {
    EXPECT_EQ(Json(std::u16string(u"\"\\\n\r\t\x01\x1f\x7f/", 9)), "\"\\\"\\\\\\n\\r\\t\\u0001\\u001f\x7f/\"");
    EXPECT_EQ(Json(std::u16string(1, u'\0')), "\"\\u0000\"");
}

TEST(Unicode, JsonReplacesBytesThatAreNotUtf8) { EXPECT_EQ(JsonOfUtf8("a\xFF\xC3\xA4"), "\"a\xEF\xBF\xBD\xC3\xA4\""); }

TEST(Unicode, StepsBackOverPairsAsOne) {
    const std::u16string text{u'a', 0xD83D, 0xDE00, 0xDE00};
    EXPECT_EQ(BeginOfCharacter(text, 4), 3U);
    EXPECT_EQ(BeginOfCharacter(text, 3), 1U);
    EXPECT_EQ(BeginOfCharacter(text, 1), 0U);
}

}  // namespace
}  // namespace qzsql
