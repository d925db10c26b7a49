#include <gtest/gtest.h>

#include <string>

#include "QZParserSQL/platform/CString.h"
#include "tests/platform/PrintText.h"

namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;

TEST(CStringUtf8, ConvertsBothWays) {
    const struct {
        std::u16string_view text;
        std::string_view utf8;
    } cases[] = {
        {u"", ""},
        {u"SELECT 1", "SELECT 1"},
        {u"a\0b"sv, "a\0b"sv},
        {u"\u007F\u0080\u07FF\u0800\uFFFF", "\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF"},
        {u"\uD7FF\uE000", "\xED\x9F\xBF\xEE\x80\x80"},
        {u"\U00010000\U0010FFFF", "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"},
        {u"\uFEFFa",
         "\xEF\xBB\xBF"
         "a"},
    };
    for (const auto& [text, utf8] : cases) {
        EXPECT_EQ(CString(text).ToUtf8(), utf8);
        EXPECT_EQ(CString::FromUtf8(utf8), text);
    }
}

TEST(CStringUtf8, AcceptsNoBytesAtAll) { EXPECT_TRUE(CString::FromUtf8(std::string_view()).IsEmpty()); }

TEST(CStringUtf8, ReplacesEachMaximalSubpartOfIllFormedBytes) {
    EXPECT_EQ(CString::FromUtf8("a\x80z"), u"a\uFFFDz");
    EXPECT_EQ(CString::FromUtf8("\xC0\xAF"), u"\uFFFD\uFFFD") << "overlong form of two bytes";
    EXPECT_EQ(CString::FromUtf8("\xE0\x80\xAF"), u"\uFFFD\uFFFD\uFFFD") << "overlong form of three bytes";
    EXPECT_EQ(CString::FromUtf8("\xED\xA0\x80"), u"\uFFFD\uFFFD\uFFFD") << "surrogate";
    EXPECT_EQ(CString::FromUtf8("\xF4\x91\x92\x93\xFF\x41"), u"\uFFFD\uFFFD\uFFFD\uFFFD\uFFFDA") << "beyond U+10FFFF";
    EXPECT_EQ(CString::FromUtf8("\xE1\x80\xE2\xF0\x91\x92\xF1\xBF\x41"), u"\uFFFD\uFFFD\uFFFD\uFFFDA") << "truncated";
    EXPECT_EQ(CString::FromUtf8("a\xF0\x9F\x98"), u"a\uFFFD") << "truncated by the end";
}

TEST(CStringUtf8, ReplacesLoneSurrogates) {
    const char16_t text[] = {u'a', 0xD83D, u'b', 0xDE00, 0xD83D, 0xD83D, 0xDE00, 0xD83D, 0};
    EXPECT_EQ(CString(text).ToUtf8(),
              "a\xEF\xBF\xBD"
              "b\xEF\xBF\xBD\xEF\xBF\xBD\xF0\x9F\x98\x80\xEF\xBF\xBD");
}

TEST(CStringUtf8, TellsLoneSurrogates) {
    EXPECT_TRUE(QZIsWellFormedUtf16(u""));
    EXPECT_TRUE(QZIsWellFormedUtf16(u"a\U0001F600\0b"sv));
    for (const std::u16string& text : {u"\xD83D"s, u"a\xDE00"s, u"\xDE00\xD83D"s, u"\xD83D\xD83D\xDE00"s}) {
        EXPECT_FALSE(QZIsWellFormedUtf16(text));
    }
}

TEST(CStringUtf8, ConvertsVeryLongTexts) {
    constexpr int count = 5'000'000;
    const CString text(u'Ж', count);
    const std::string utf8 = text.ToUtf8();
    EXPECT_EQ(utf8.size(), 2U * count);
    EXPECT_TRUE(CString::FromUtf8(utf8) == text);
}

}  // namespace
