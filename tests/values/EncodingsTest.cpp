#include <gtest/gtest.h>

#include <cstddef>
#include <random>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "QZParserSQL/catalog/EncodingTables.h"
#include "QZParserSQL/catalog/Encodings.h"

namespace {

using namespace std::string_literals;
using qz::ConvertText;
using qz::kUtf16;
using qz::kUtf8;
using qz::ReverseTablesBuilt;

constexpr int kKoi8R = 21;

std::string_view Bytes(std::u16string_view text) {
    return {reinterpret_cast<const char*>(text.data()), text.size() * sizeof(char16_t)};
}

std::string Convert(std::string_view text, int from, int to) { return ConvertText(text, from, to).get(); }
std::string Narrow(std::u16string_view text, int to) { return Convert(Bytes(text), kUtf16, to); }
std::u16string Wide(std::string_view text, int from) {
    return reinterpret_cast<const char16_t*>(ConvertText(text, from, kUtf16).get());
}

// Makes the slots forget every other encoding.
void FillSlots() {
    for (int encoding = 201; encoding <= 205; ++encoding) Convert("x", kUtf8, encoding);
}

TEST(Encodings, ConvertEachWay) {
    EXPECT_EQ(Wide("Grüße €", kUtf8), u"Grüße €");
    EXPECT_EQ(Convert("мир", kUtf8, kKoi8R), "\xCD\xC9\xD2");
    EXPECT_EQ(Narrow(u"Grüße €", kUtf8), "Grüße €");
    EXPECT_EQ(Narrow(u"мир", kKoi8R), "\xCD\xC9\xD2");
    EXPECT_EQ(Convert("\xCD\xC9\xD2", kKoi8R, kUtf8), "мир");
    EXPECT_EQ(Wide("\xCD\xC9\xD2", kKoi8R), u"мир");
    EXPECT_EQ(Convert("\xCD\xC9\xD2", kKoi8R, 14), "\xAC\xA8\xE0");
    EXPECT_EQ(Convert("\xCD\xC9\xD2", kKoi8R, 22), "\xCD\xC9\xD2");
}

TEST(Encodings, ConvertEmptyText) {
    for (const int from : {kUtf8, kUtf16, 2, 9}) {
        for (const int to : {kUtf8, kUtf16, 2, 9}) {
            const auto text = ConvertText("", from, to);
            ASSERT_NE(text, nullptr);
            EXPECT_EQ(text[0], '\0');
            EXPECT_EQ(text[1], '\0');
        }
    }
}

TEST(Encodings, PutQuestionMarksForWhatTheTargetLacks) {
    EXPECT_EQ(Convert("aЖ€z", kUtf8, 2), "a??z");
    EXPECT_EQ(Narrow(u"aЖ€z", 7), "a??z");
    EXPECT_EQ(Convert("\xCD\x41", kKoi8R, 2), "?A");
    EXPECT_EQ(Narrow(u"\xD83D\xDE00", 2), "??") << "both halves of a pair";
}

TEST(Encodings, PutQuestionMarksForUnmappedBytes) {
    EXPECT_EQ(Convert("a\xE9z", 7, kUtf8), "a?z");
    EXPECT_EQ(Convert("a\xE9z", 7, 2), "a?z");
    EXPECT_EQ(Wide("a\xE9z", 7), u"a") << "0 in wide text, which ends there";
    const auto wide = ConvertText("a\xE9z", 7, kUtf16);
    EXPECT_EQ(std::string(wide.get(), 8), "a\0\0\0z\0\0\0"s);
}

TEST(Encodings, TakeEncoding2AsWindows1252InWideTextOnly) {
    EXPECT_EQ(Wide("\x80\x93\xE9\x81", 2), u"€“é\x81");
    EXPECT_EQ(Convert("\x80", 2, 9), "?") << "U+0080";
    EXPECT_EQ(Convert("\xE9", 2, kUtf8), "é");
    EXPECT_EQ(Narrow(u"€", 2), "?");
    EXPECT_EQ(Wide("\x80", 99), u"\x80") << "other numbers are ISO 8859-1";
    EXPECT_EQ(Wide("\x80", -3), u"\x80");
    EXPECT_EQ(Narrow(u"é", 1001), "\xE9");
}

TEST(Utf8Decoder, TakesAllLeadBytesUpTo247) {
    EXPECT_EQ(Wide("\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF", kUtf8), u"\x7F\x80\x07FF\x0800\xFFFF");
    EXPECT_EQ(Wide("\xC1\x81", kUtf8), u"A") << "overlong";
    EXPECT_EQ(Wide("\xED\xA0\xBD", kUtf8), u"\xD83D") << "a surrogate";
    EXPECT_EQ(Wide("\xF0\x9F\x98\x80", kUtf8), u"\xF600") << "U+1F600 cut to 16 bits";
    EXPECT_EQ(Wide("\xF7\xBF\xBF\xBF", kUtf8), u"\xFFFF");
    EXPECT_EQ(Wide("a\xF8\x88\x80\x80\x80z", kUtf8), u"az") << "248 is no lead byte";
}

TEST(Utf8Decoder, SkipsStrayBytesInWideText) {
    EXPECT_EQ(Wide("\x80"
                   "a\xBF\xBF"
                   "b\xFF\xFE",
                   kUtf8),
              u"ab");
    EXPECT_EQ(Wide("a\xC3", kUtf8), u"a") << "cut at the end";
    EXPECT_EQ(Wide("a\xE2\x82", kUtf8), u"a");
    EXPECT_EQ(Wide("a\xF0\x9F\x98", kUtf8), u"a");
    EXPECT_EQ(Wide("\xE2"
                   "ab",
                   kUtf8),
              u"ab")
        << "a lead byte without its sequence leaves what follows alone";
    EXPECT_EQ(Wide("\xE2\x82"
                   "ab",
                   kUtf8),
              u"ab");
}

TEST(Utf8Decoder, RepeatsTheCharacterBeforeStrayBytesInSets) {
    EXPECT_EQ(Convert("a\xFF"
                      "b\x80\x80",
                      kUtf8, 2),
              "aabbb");
    EXPECT_EQ(Convert("\xFF\x80"
                      "a",
                      kUtf8, 2),
              "a")
        << "there is none before";
    EXPECT_EQ(Convert("é\xFF", kUtf8, 2), "\xE9\xE9");
    EXPECT_EQ(Convert("Ж\xFF", kUtf8, 2), "??");
    EXPECT_EQ(Convert("a\xE2\x82", kUtf8, 2), "aaa");
}

TEST(Utf8Decoder, CutsCharactersForSetsToo) {
    EXPECT_EQ(Convert("\xF0\x90\x81\x81", kUtf8, 2), "A") << "U+10041";
    EXPECT_EQ(Convert("a\xC0\x80z", kUtf8, 2), "a?z") << "an overlong NUL is no character of a set";
    EXPECT_EQ(Wide("a\xC0\x80z", kUtf8), u"a");
}

TEST(Utf8Encoder, LeavesOut128And2048) {
    EXPECT_EQ(Narrow(u"a\x80"
                     u"b\x0800"
                     u"c",
                     kUtf8),
              "abc");
    EXPECT_EQ(Narrow(u"\x7F\x81\x07FF\x0801\xFFFF", kUtf8), "\x7F\xC2\x81\xDF\xBF\xE0\xA0\x81\xEF\xBF\xBF");
    EXPECT_EQ(Convert("a\x80z", 2, kUtf8), "az");
    EXPECT_EQ(Narrow(u"\x80", kUtf8), "");
}

TEST(Utf8Encoder, WritesSurrogatesOneByOne) {
    EXPECT_EQ(Narrow(u"\U0001F600", kUtf8), "\xED\xA0\xBD\xED\xB8\x80");
    EXPECT_EQ(Wide(Narrow(u"\U0001F600", kUtf8), kUtf8), u"\U0001F600");
}

TEST(Utf8Encoder, WritesEveryUnit) {
    for (unsigned unit = 1; unit < 0x10000; ++unit) {
        const std::u16string text(1, static_cast<char16_t>(unit));
        const std::u16string expected = unit == 128 || unit == 2048 ? u"" : text;
        ASSERT_EQ(Wide(Narrow(text, kUtf8), kUtf8), expected) << unit;
    }
}

TEST(ReverseTables, InvertTheForwardTables) {
    for (int encoding = 2; encoding <= 26; ++encoding) {
        std::string every;
        std::u16string characters;
        for (unsigned byte = 1; byte < 256; ++byte) {
            const char32_t point = qz::ForwardTable(encoding)[byte];
            if (point == 0) continue;
            every += static_cast<char>(byte);
            characters += static_cast<char16_t>(point);
        }
        std::string expected = every;
        if (encoding == 6) {  // punctuation that stands in ASCII and above
            for (const std::string_view pair : {"\xA4)", "\xA5(", "\xA9.", "\xAB,", "\xAC-"}) {
                expected[expected.find(pair[0])] = pair[1];
            }
        }
        EXPECT_EQ(Narrow(characters, encoding), expected) << encoding;
    }
}

TEST(ReverseTables, LeaveAsciiAlone) {
    std::string ascii;
    for (char byte = 1; byte < 127; ++byte) ascii += byte;
    for (int encoding = 2; encoding <= 26; ++encoding) {
        if (encoding == 25) continue;
        EXPECT_EQ(Convert(ascii, kUtf8, encoding), ascii) << encoding;
    }
    EXPECT_EQ(Convert("[$@]", kUtf8, 25), "????") << "the national characters' places";
}

TEST(ReverseTables, AreKeptForFiveEncodings) {
    FillSlots();
    const std::size_t built = ReverseTablesBuilt();
    FillSlots();
    EXPECT_EQ(ReverseTablesBuilt(), built) << "five are there";
    Convert("x", kUtf8, 206);
    EXPECT_EQ(ReverseTablesBuilt(), built + 1);
    for (int encoding = 202; encoding <= 206; ++encoding) Convert("x", kUtf8, encoding);
    EXPECT_EQ(ReverseTablesBuilt(), built + 1) << "the slot that was filled first gave way";
    Convert("x", kUtf8, 201);
    Convert("x", kUtf8, 203);
    EXPECT_EQ(ReverseTablesBuilt(), built + 2);
    Convert("x", kUtf8, 202);
    EXPECT_EQ(ReverseTablesBuilt(), built + 3) << "and then the next in turn, however recently it was used";
}

TEST(ReverseTables, AreNotNeededToDecode) {
    FillSlots();
    const std::size_t built = ReverseTablesBuilt();
    Convert("\xE9", 3, kUtf8);
    Wide("\xE9", 4);
    Wide("é", kUtf8);
    Narrow(u"é", kUtf8);
    EXPECT_EQ(ReverseTablesBuilt(), built);
}

TEST(ReverseTables, ServeSeveralThreads) {
    std::vector<std::thread> threads(4);
    for (int number = 0; number < 4; ++number) {
        threads[static_cast<std::size_t>(number)] = std::thread([number] {
            for (int round = 0; round < 400; ++round) {
                const int encoding = 2 + (round + number * 5) % 25;
                ASSERT_EQ(Convert("number 12", kUtf8, encoding), "number 12");
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(Convert("мир", kUtf8, kKoi8R), "\xCD\xC9\xD2");
}

TEST(HostileText, EndsAtItsFirstTerminator) {
    EXPECT_EQ(Narrow(u"ab\0cd"s, kUtf8), "ab");
    EXPECT_EQ(Wide("ab\0cd"s, 2), u"ab");
    EXPECT_EQ(Convert("ab\0cd"s, kUtf8, 9), "ab");
    EXPECT_EQ(Convert("\xE2\0\x82"s, kUtf8, 9), "");
}

TEST(HostileText, MayHaveAnOddLength) {
    EXPECT_EQ(Convert("a\0b\0c"s, kUtf16, kUtf8), "ab");
    EXPECT_EQ(Convert("a", kUtf16, kUtf8), "");
    EXPECT_EQ(qz::TextOf("a\0b\0c"s, kUtf16).size(), 4U);
}

// Random bytes without a terminator behind them, in a block of their own, so that a sanitizer sees each step beyond.
TEST(HostileText, IsNeverReadBeyondItsEnd) {
    std::mt19937 random(1);
    for (int round = 0; round < 20000; ++round) {
        std::vector<char> bytes(random() % 9);
        for (char& byte : bytes) byte = static_cast<char>(random() % 4 == 0 ? random() % 256 : 0xC0 + random() % 64);
        const std::string_view text(bytes.data(), bytes.size());
        for (const int from : {kUtf8, kUtf16, 2, 7}) {
            for (const int to : {kUtf8, kUtf16, 2, 7}) {
                const auto converted = ConvertText(text, from, to);
                ASSERT_NE(converted, nullptr);
                if (to != kUtf8 && to != kUtf16) {
                    ASSERT_LE(std::string(converted.get()).size(), bytes.size());
                }
            }
        }
    }
}

}  // namespace
