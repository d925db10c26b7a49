#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <string>

#include "QZParserSQL/platform/CString.h"
#include "QZParserSQL/platform/TextConversion.h"

namespace {

using namespace std::string_literals;

constexpr unsigned kUtf8 = 65001;
constexpr unsigned kWindowsLatin1 = 1252;

std::string Encode(unsigned codePage, const std::u16string& text) {
    const int length = static_cast<int>(text.size());
    std::string bytes(static_cast<std::size_t>(WideCharToMultiByte(codePage, text.data(), length, nullptr, 0)), '#');
    const int size = static_cast<int>(bytes.size());
    EXPECT_EQ(WideCharToMultiByte(codePage, text.data(), length, bytes.data(), size), size);
    return bytes;
}

std::u16string Decode(unsigned codePage, const std::string& bytes) {
    const int length = static_cast<int>(bytes.size());
    std::u16string text(static_cast<std::size_t>(MultiByteToWideChar(codePage, bytes.data(), length, nullptr, 0)),
                        u'#');
    const int size = static_cast<int>(text.size());
    EXPECT_EQ(MultiByteToWideChar(codePage, bytes.data(), length, text.data(), size), size);
    return text;
}

TEST(TextConversion, CountsTheTerminatorWhenTheLengthIsLeftOpen) {
    char bytes[16] = {};
    EXPECT_EQ(WideCharToMultiByte(kUtf8, u"aé€", -1, bytes, 16), 7);
    EXPECT_EQ(std::string(bytes, 7), "a\xC3\xA9\xE2\x82\xAC\0"s);
    char16_t text[8] = {};
    EXPECT_EQ(MultiByteToWideChar(kUtf8, "a\xC3\xA9\xE2\x82\xAC", -1, text, 8), 4);
    EXPECT_EQ(std::u16string(text, 4), u"aé€\0"s);
    EXPECT_EQ(WideCharToMultiByte(kUtf8, u"", -1, bytes, 16), 1);
    EXPECT_EQ(MultiByteToWideChar(kUtf8, "", -1, text, 8), 1);
}

TEST(TextConversion, ConvertsExactlyTheLengthGiven) {
    EXPECT_EQ(Encode(kUtf8, u"a\0€"s), "a\0\xE2\x82\xAC"s);
    EXPECT_EQ(Decode(kUtf8, "a\0\xE2\x82\xAC"s), u"a\0€"s);
    EXPECT_EQ(Encode(kUtf8, u"\U0001F600"), "\xF0\x9F\x98\x80");
    EXPECT_EQ(Decode(kUtf8, "\xEF\xBB\xBF"), u"\uFEFF") << "a byte-order mark stays";
    EXPECT_EQ(Encode(kUtf8, u""), "");
    EXPECT_EQ(Decode(kUtf8, ""), u"");
}

TEST(TextConversion, ConvertsWindowsLatin1) {
    EXPECT_EQ(Encode(kWindowsLatin1, u"Aé€\u201E\u0178"), "A\xE9\x80\x84\x9F");
    EXPECT_EQ(Decode(kWindowsLatin1, "A\xE9\x80\x84\x9F"), u"Aé€\u201E\u0178");
    EXPECT_EQ(Encode(kWindowsLatin1, u"Жa\U0001F600"), "?a?") << "what the page lacks";
    std::string every;
    for (int byte = 0; byte < 256; ++byte) every += static_cast<char>(byte);
    EXPECT_EQ(Encode(kWindowsLatin1, Decode(kWindowsLatin1, every)), every);
}

TEST(TextConversion, FailsWithZero) {
    char bytes[4] = {};
    char16_t text[4] = {};
    EXPECT_EQ(WideCharToMultiByte(0, u"a", 1, bytes, 4), 0) << "unknown code page";
    EXPECT_EQ(MultiByteToWideChar(437, "a", 1, text, 4), 0);
    EXPECT_EQ(WideCharToMultiByte(kUtf8, nullptr, 1, bytes, 4), 0) << "no text";
    EXPECT_EQ(MultiByteToWideChar(kUtf8, nullptr, -1, text, 4), 0);
    EXPECT_EQ(WideCharToMultiByte(kUtf8, u"a", -2, bytes, 4), 0) << "negative length";
    EXPECT_EQ(MultiByteToWideChar(kUtf8, "a", std::numeric_limits<int>::min(), text, 4), 0);
    EXPECT_EQ(WideCharToMultiByte(kUtf8, u"a", 1, nullptr, 4), 0) << "no buffer";
    EXPECT_EQ(WideCharToMultiByte(kUtf8, u"a", 1, bytes, -1), 0) << "negative size";
    EXPECT_EQ(WideCharToMultiByte(kUtf8, u"abcd", -1, bytes, 4), 0) << "no room for the terminator";
    EXPECT_EQ(MultiByteToWideChar(kUtf8, "abcd", -1, text, 4), 0);
    EXPECT_EQ(WideCharToMultiByte(kUtf8, u"ab€", 3, bytes, 4), 0) << "no room for the last character";
}

TEST(TextConversion, FillsABufferToItsLastByte) {
    char bytes[5] = {0, 0, 0, 0, '#'};
    EXPECT_EQ(WideCharToMultiByte(kUtf8, u"a€", 2, bytes, 4), 4);
    EXPECT_EQ(std::string(bytes, 5), "a\xE2\x82\xAC#");
}

TEST(TextConversion, TreatsUtf8AsTheTextClassDoes) {
    std::mt19937 random(1);
    std::uniform_int_distribution<int> unit(0, 15);
    constexpr char16_t units[] = {u'a',   0,      0x80,   0x7FF,  0x800,  0xD7FF, 0xD800, 0xD83D,
                                  0xDBFF, 0xDC00, 0xDE00, 0xDFFF, 0xE000, 0xFEFF, 0xFFFE, 0xFFFF};
    constexpr unsigned char leads[] = {0x41, 0x00, 0x80, 0x9F, 0xA0, 0xBF, 0xC0, 0xC2,
                                       0xE0, 0xED, 0xEF, 0xF0, 0xF1, 0xF4, 0xF5, 0xFF};
    for (int round = 0; round < 20'000; ++round) {
        std::u16string text;
        std::string bytes;
        for (int count = unit(random); count >= 0; --count) {
            text += units[unit(random)];
            bytes += static_cast<char>(leads[unit(random)]);
        }
        ASSERT_EQ(Encode(kUtf8, text), CString(text).ToUtf8());
        ASSERT_EQ(Decode(kUtf8, bytes), CString::FromUtf8(bytes).View());
    }
}

TEST(TextConversion, ConvertsVeryLongTexts) {
    const std::u16string text(5'000'000, u'Ж');
    const std::string bytes = Encode(kUtf8, text);
    EXPECT_EQ(bytes.size(), 10'000'000U);
    EXPECT_TRUE(Decode(kUtf8, bytes) == text);
}

}  // namespace
