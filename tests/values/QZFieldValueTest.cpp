#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <map>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "QZParserSQL/catalog/Encodings.h"
#include "QZParserSQL/catalog/QZFieldValue.h"
#include "QZParserSQL/catalog/QZSettingsStore.h"
#include "QZParserSQL/platform/StringResource.h"

namespace {

using namespace std::string_literals;

constexpr int kUtf8 = 1;
constexpr int kUtf16 = 1000;

static_assert(!std::is_polymorphic_v<QZFieldValue>);
static_assert(sizeof(QZFieldValue) == 48, "the fields and nothing else");

const unsigned char* Bytes(const std::string& bytes) { return reinterpret_cast<const unsigned char*>(bytes.data()); }

QZFieldValue Raw(const std::string& bytes, int type = 8) {
    return {Bytes(bytes), static_cast<std::uint32_t>(bytes.size()), type};
}

// A copy with a binary part, which would not survive being returned.
struct WithBinary : QZFieldValue {
    WithBinary(const QZFieldValue& value, const std::string& bytes) : QZFieldValue(value) {
        SetBinary(Bytes(bytes), static_cast<std::uint32_t>(bytes.size()));
    }
};

std::string Stored(const QZFieldValue& value) {
    std::uint32_t length = 0;
    const unsigned char* bytes = value.GetBytes(length);
    return bytes == nullptr ? "NULL" : std::string(reinterpret_cast<const char*>(bytes), length);
}

std::string Binary(const QZFieldValue& value) {
    std::uint32_t length = 99;
    const unsigned char* bytes = value.GetBinary(length);
    return bytes == nullptr ? "none " + std::to_string(length)
                            : std::string(reinterpret_cast<const char*>(bytes), length);
}

// The encoding shows in the text that is given without a conversion.
bool HasEncoding(const QZFieldValue& value, int encoding) {
    std::uint32_t length = 0;
    return static_cast<const void*>(value.GetText(encoding)) == value.GetBytes(length);
}

// ---- What a value is made of

TEST(QZFieldValue, IsNullAtFirst) {
    const QZFieldValue value;
    EXPECT_TRUE(value.IsNull());
    EXPECT_EQ(value.GetType(), -1);
    EXPECT_EQ(value.GetLength(), 0U);
    EXPECT_EQ(value.GetText(2), nullptr);
    EXPECT_EQ(value.GetText(kUtf8), nullptr);
    EXPECT_EQ(value.GetWideText(), nullptr);
    EXPECT_EQ(Stored(value), "NULL");
    EXPECT_EQ(Binary(value), "none 0");
}

TEST(QZFieldValue, KeepsBytesWithTwoTerminators) {
    const QZFieldValue value = Raw("a\0b"s, 9);
    EXPECT_EQ(Stored(value), "a\0b"s);
    EXPECT_EQ(value.GetLength(), 3U);
    EXPECT_EQ(value.GetType(), 9);
    EXPECT_TRUE(HasEncoding(value, 7));
    std::uint32_t length = 0;
    const unsigned char* bytes = value.GetBytes(length);
    EXPECT_EQ(bytes[3], 0);
    EXPECT_EQ(bytes[4], 0);
}

TEST(QZFieldValue, IsNotNullWithAnEmptyText) {
    EXPECT_FALSE(Raw("").IsNull());
    EXPECT_FALSE(QZFieldValue("", 3, 2).IsNull());
    EXPECT_FALSE(QZFieldValue(u"", 2).IsNull());
    EXPECT_STREQ(QZFieldValue(u"", 2).GetText(9), "");
    EXPECT_EQ(QZFieldValue("", 3, 2).GetLength(), 0U);
}

TEST(QZFieldValue, BecomesNullFromNullPointers) {
    QZFieldValue value("x", 3, 2);
    value.SetBytes(nullptr, 5, 6);
    EXPECT_TRUE(value.IsNull());
    EXPECT_EQ(value.GetLength(), 0U);
    EXPECT_EQ(value.GetType(), 6);
    value.SetString("x", 3, 2);
    value.SetString(nullptr, 3, 4);
    EXPECT_TRUE(value.IsNull());
    EXPECT_EQ(value.GetType(), 4);
    value.SetString("x", 3, 2);
    value.SetWideString(nullptr, 5);
    EXPECT_TRUE(value.IsNull());
    EXPECT_EQ(value.GetType(), 5);
    EXPECT_EQ(value.GetText(3), nullptr);
}

TEST(QZFieldValue, KeepsTextInItsEncoding) {
    const QZFieldValue narrow("\xE8\0z", 3, 2);
    EXPECT_EQ(Stored(narrow), "\xE8") << "up to the terminator";
    EXPECT_TRUE(HasEncoding(narrow, 3));
    const QZFieldValue wide(u"ač", 4);
    EXPECT_EQ(wide.GetLength(), 4U) << "twice the character count";
    EXPECT_TRUE(HasEncoding(wide, kUtf16));
    EXPECT_EQ(wide.GetWideText(), u"ač"s);
    EXPECT_EQ(wide.GetType(), 4);
}

TEST(QZFieldValue, ChangesItsTypeAlone) {
    QZFieldValue value("x", 3, 2);
    value.SetType(77);
    EXPECT_EQ(value.GetType(), 77);
    EXPECT_EQ(Stored(value), "x");
}

TEST(QZFieldValue, TakesItsOwnBuffers) {
    QZFieldValue value("\xE8", 3, 2);
    value.SetString(value.GetText(kUtf8), kUtf8, 2);
    EXPECT_STREQ(value.GetText(kUtf8), "č");
    value.SetString(value.GetText(kUtf8) + 1, kUtf8, 2);
    EXPECT_EQ(Stored(value), "\x8D");
    value.SetWideString(QZFieldValue(u"abc", 2).GetWideText(), 2);
    value.SetWideString(value.GetWideText() + 1, 2);
    EXPECT_EQ(value.GetWideText(), u"bc"s);
    std::uint32_t length = 0;
    value.SetBinary(Bytes("123"), 3);
    value.SetBinary(value.GetBinary(length) + 1, 2);
    EXPECT_EQ(Binary(value), "23");
    value.Assign(value);
    EXPECT_EQ(value.GetWideText(), u"bc"s);
    EXPECT_EQ(Binary(value), "23");
}

// ---- Numbers

TEST(QZFieldValue, PrintsIntegers) {
    QZFieldValue value;
    value.SetNumber(std::uint8_t{255}, 1);
    EXPECT_EQ(Stored(value), "255");
    value.SetNumber(std::int16_t{-32768}, 1);
    EXPECT_EQ(Stored(value), "-32768");
    value.SetNumber(std::numeric_limits<std::int32_t>::min(), 1);
    EXPECT_EQ(Stored(value), "-2147483648");
    value.SetNumber(std::uint32_t{4294967295U}, 1);
    EXPECT_EQ(Stored(value), "-1") << "as a signed number";
    value.SetNumber(std::uint32_t{2147483647U}, 1);
    EXPECT_EQ(Stored(value), "2147483647");
    value.SetNumber(-5L, 1);
    EXPECT_EQ(Stored(value), "-5");
    value.SetNumber(std::numeric_limits<long long>::min(), 12);
    EXPECT_EQ(Stored(value), "-9223372036854775808");
    EXPECT_EQ(value.GetType(), 12);
}

TEST(QZFieldValue, PrintsFloatingPointWithSixDecimals) {
    QZFieldValue value;
    value.SetNumber(1.5F, 3);
    EXPECT_EQ(Stored(value), "1.500000");
    value.SetNumber(-0.1, 3);
    EXPECT_EQ(Stored(value), "-0.100000");
    value.SetNumber(0.1F, 3);
    EXPECT_EQ(Stored(value), "0.100000");
    value.SetNumber(1e300, 3);
    EXPECT_EQ(value.GetLength(), 301U + 7);
}

TEST(QZFieldValue, IsMadeFromNumbers) {
    EXPECT_EQ(Stored(QZFieldValue(std::uint8_t{200}, 1)), "200");
    EXPECT_EQ(Stored(QZFieldValue(std::int16_t{-2}, 1)), "-2");
    EXPECT_EQ(Stored(QZFieldValue(-3, 1)), "-3");
    EXPECT_EQ(Stored(QZFieldValue(std::uint32_t{4294967294U}, 1)), "-2");
    EXPECT_EQ(Stored(QZFieldValue(2.5F, 3)), "2.500000");
    EXPECT_EQ(Stored(QZFieldValue(-2.25, 3)), "-2.250000");
    EXPECT_EQ(QZFieldValue(7, 11).GetType(), 11);
}

TEST(QZFieldValue, GivesNumbersInEncoding7WithoutConversion) {
    const QZFieldValue value(42, 1);
    EXPECT_TRUE(HasEncoding(value, 7));
    EXPECT_STREQ(value.GetText(7), "42");
    EXPECT_EQ(value.GetText(7), value.GetText(7));
}

TEST(QZFieldValue, ReadsNumbers) {
    for (const QZFieldValue& value : {QZFieldValue(" -42.75x", 7, 1), QZFieldValue(u" -42.75x", 1)}) {
        EXPECT_EQ(value.GetInt(), -42);
        EXPECT_EQ(value.GetLong(), -42);
        EXPECT_EQ(value.GetInt64(), -42);
        EXPECT_EQ(value.GetFloat(), -42.75F);
        EXPECT_EQ(value.GetDouble(), -42.75);
    }
    EXPECT_EQ(QZFieldValue("9223372036854775807", 2, 1).GetInt64(), 9223372036854775807);
    EXPECT_EQ(QZFieldValue(u"1e3", 1).GetDouble(), 1000);
    EXPECT_EQ(QZFieldValue(u"12č", 1).GetInt(), 12);
    EXPECT_EQ(QZFieldValue(u"1\x0131", 1).GetInt(), 1) << "whose low byte is a digit";
    EXPECT_EQ(QZFieldValue(u"", 1).GetInt(), 0);
    EXPECT_EQ(QZFieldValue("abc", kUtf8, 1).GetDouble(), 0);
    EXPECT_EQ(QZFieldValue("1e999", 7, 1).GetFloat(), std::numeric_limits<float>::infinity());
}

TEST(QZFieldValue, ReadsZeroFromNull) {
    const QZFieldValue value;
    EXPECT_EQ(value.GetInt(), 0);
    EXPECT_EQ(value.GetLong(), 0);
    EXPECT_EQ(value.GetInt64(), 0);
    EXPECT_EQ(value.GetFloat(), 0);
    EXPECT_EQ(value.GetDouble(), 0);
}

// ---- Dates

TEST(QZFieldValue, WritesDates) {
    QZFieldValue value;
    value.SetDate({45355.25, kDateValid}, 6);
    EXPECT_EQ(Stored(value), "2024-03-04 06:00:00");
    EXPECT_TRUE(HasEncoding(value, 7));
    EXPECT_EQ(value.GetType(), 6);
    EXPECT_EQ(Stored(QZFieldValue(QZDate{-1.25, kDateValid}, 6)), "1899-12-29 06:00:00");
}

TEST(QZFieldValue, WritesDatesThatAreNone) {
    EXPECT_EQ(Stored(QZFieldValue(QZDate{5, kDateInvalid}, 6)), "Invalid DateTime");
    EXPECT_EQ(Stored(QZFieldValue(QZDate{5, kDateNull}, 6)), "") << "an empty text, not NULL";
    EXPECT_EQ(Stored(QZFieldValue(QZDate{1e10, kDateValid}, 6)), "Invalid DateTime");
    QZSetStringLoader([](void*, unsigned, CString& text) { return !(text = u"neplatný").IsEmpty(); }, nullptr);
    EXPECT_EQ(Stored(QZFieldValue(QZDate{5, kDateInvalid}, 6)), "neplatn?") << "in encoding 7";
    QZSetStringLoader(nullptr, nullptr);
}

TEST(QZFieldValue, ReadsDates) {
    EXPECT_EQ(QZFieldValue().GetDate().m_dt, 0);
    EXPECT_EQ(QZFieldValue().GetDate().m_status, kDateNull);
    for (const QZFieldValue& value : {QZFieldValue("3/4/2024 6:00 AM", 7, 6), QZFieldValue(u"2024-03-04 06:00", 6)}) {
        EXPECT_EQ(value.GetDate().m_dt, 45355.25);
        EXPECT_EQ(value.GetDate().m_status, kDateValid);
    }
    EXPECT_EQ(QZFieldValue(u"soon", 6).GetDate().m_status, kDateInvalid);
    EXPECT_EQ(QZFieldValue(u"", 6).GetDate().m_status, kDateInvalid);
    EXPECT_EQ(QZFieldValue(QZDate{5.75, kDateValid}, 6).GetDate().m_dt, 5.75);
}

// ---- Text in other encodings

TEST(QZFieldValue, ConvertsItsText) {
    const QZFieldValue value("мир", kUtf8, 2);
    EXPECT_EQ(value.GetWideText(), u"мир"s);
    EXPECT_STREQ(value.GetText(21), "\xCD\xC9\xD2");
    EXPECT_STREQ(value.GetText(2), "???");
    EXPECT_STREQ(value.GetText(kUtf8), "мир");
    EXPECT_EQ(value.GetLength(), 6U) << "of the stored text";
}

TEST(QZFieldValue, KeepsItsLastConversion) {
    QZFieldValue value("мир", kUtf8, 2);
    const char* first = value.GetText(21);
    EXPECT_EQ(value.GetText(21), first);
    value.GetText(kUtf8);
    EXPECT_EQ(value.GetText(21), first) << "its own encoding needs no conversion";
    const char16_t* wide = value.GetWideText();
    EXPECT_EQ(value.GetWideText(), wide);
    EXPECT_EQ(static_cast<const void*>(value.GetText(kUtf16)), wide);
    value.SetString("да", kUtf8, 2);
    EXPECT_EQ(value.GetWideText(), u"да"s) << "and goes with a change";
}

TEST(QZFieldValue, IsNotConvertedAgainToWhatItWasConvertedToLast) {
    const QZFieldValue value("мир", kUtf8, 2);
    value.GetText(21);
    for (int encoding = 311; encoding <= 315; ++encoding) QZFieldValue("x", kUtf8, 2).GetText(encoding);
    const std::size_t built = qz::ReverseTablesBuilt();
    EXPECT_STREQ(value.GetText(21), "\xCD\xC9\xD2");
    EXPECT_EQ(qz::ReverseTablesBuilt(), built) << "whose table is gone";
}

TEST(QZFieldValue, EndsConvertedTextAtATerminator) {
    EXPECT_EQ(Raw("ab\0cd"s).GetWideText(), u"ab"s);
    EXPECT_STREQ(Raw("ab\0cd"s).GetText(kUtf8), "ab");
    EXPECT_STREQ(Raw("ab\0cd"s).GetText(7), "ab");
    EXPECT_EQ(Raw("1\0002"s).GetInt(), 1);
    EXPECT_STREQ(Raw("a\xFF").GetText(kUtf8), "a?");
}

TEST(QZFieldValue, BuildsATableOnceForAMillionValues) {
    for (int encoding = 301; encoding <= 305; ++encoding) QZFieldValue("x", kUtf8, 2).GetText(encoding);
    const std::size_t built = qz::ReverseTablesBuilt();
    std::size_t right = 0;
    for (int i = 0; i < 1000000; ++i) {
        const QZFieldValue value("Ж1", kUtf8, 2);
        right += value.GetText(9) ==
                         "\xC6"
                         "1"s
                     ? 1
                     : 0;
    }
    EXPECT_EQ(right, 1000000U);
    EXPECT_EQ(qz::ReverseTablesBuilt(), built + 1);
}

// ---- Comparison

TEST(QZFieldValueEquals, KnowsNull) {
    EXPECT_TRUE(QZFieldValue().Equals(QZFieldValue()));
    EXPECT_TRUE(QZFieldValue().EqualsStrict(QZFieldValue()));
    EXPECT_FALSE(QZFieldValue().Equals(Raw("", -1)));
    EXPECT_FALSE(Raw("", -1).Equals(QZFieldValue()));
    EXPECT_FALSE(Raw("", -1).EqualsStrict(QZFieldValue()));
    const QZFieldValue typed(static_cast<const char16_t*>(nullptr), 3);
    EXPECT_TRUE(typed.Equals(QZFieldValue())) << "whatever the types";
    EXPECT_FALSE(typed.EqualsStrict(QZFieldValue())) << "but strictly they differ";
}

TEST(QZFieldValueEquals, ComparesTheBytesOfOtherTypes) {
    for (const int type : {-1, 0, 1, 6, 8, 100}) {
        EXPECT_TRUE(Raw("a\0b"s, type).Equals(Raw("a\0b"s, 2))) << type;
        EXPECT_FALSE(Raw("a\0b"s, type).Equals(Raw("a\0c"s, type))) << type;
        EXPECT_FALSE(Raw("ab", type).Equals(Raw("abc", type))) << type;
        EXPECT_FALSE(QZFieldValue(u"a", type).Equals(QZFieldValue("a", kUtf8, type))) << "not converted, " << type;
        EXPECT_TRUE(QZFieldValue("\xE8", 3, type).Equals(QZFieldValue("\xE8", 9, type))) << type;
    }
}

TEST(QZFieldValueEquals, ComparesTextsInThisValuesEncoding) {
    for (const int type : {2, 4, 5}) {
        const QZFieldValue wide(u"č", type);
        const QZFieldValue utf8("č", kUtf8, type);
        const QZFieldValue latin("\xE8", 3, type);
        for (const QZFieldValue* left : {&wide, &utf8, &latin}) {
            for (const QZFieldValue* right : {&wide, &utf8, &latin}) {
                EXPECT_TRUE(left->Equals(*right));
                EXPECT_TRUE(left->EqualsStrict(*right));
                EXPECT_FALSE(left->NotEqual(*right));
            }
        }
        EXPECT_FALSE(wide.Equals(QZFieldValue("c", kUtf8, type)));
        EXPECT_FALSE(wide.Equals(QZFieldValue("čč", kUtf8, type)));
        EXPECT_TRUE(wide.Equals(QZFieldValue("\xE8", 3, 8))) << "this value's type counts";
        EXPECT_FALSE(wide.EqualsStrict(QZFieldValue("\xE8", 3, 8)));
        EXPECT_TRUE(QZFieldValue("?", 7, type).Equals(wide)) << "what the encoding lacks is a question mark";
        EXPECT_FALSE(wide.Equals(QZFieldValue("?", 7, type)));
        EXPECT_TRUE(Raw("a\0b"s, type).Equals(Raw("a\0b"s, type))) << "whole, where nothing is converted";
        EXPECT_FALSE(Raw("a\0b"s, type).Equals(Raw("a\0c"s, type)));
        EXPECT_FALSE(Raw("a\0b"s, type).Equals(QZFieldValue(u"a", type)));
    }
}

TEST(QZFieldValueEquals, ComparesType3AsNumbers) {
    EXPECT_TRUE(QZFieldValue("1.50", 7, 3).Equals(QZFieldValue("1.5", 7, 3)));
    EXPECT_TRUE(QZFieldValue("15e-1", 7, 3).Equals(QZFieldValue(u"1.5", 8))) << "in any encoding";
    EXPECT_TRUE(QZFieldValue("0", 7, 3).Equals(QZFieldValue("-0.0", 7, 3)));
    EXPECT_FALSE(QZFieldValue("1.5", 7, 3).Equals(QZFieldValue("1.6", 7, 3)));
    EXPECT_TRUE(QZFieldValue("abc", 7, 3).Equals(QZFieldValue("0", 7, 3)));
    EXPECT_FALSE(QZFieldValue("1.50", 7, 2).Equals(QZFieldValue("1.5", 7, 3))) << "this value's type counts";
    EXPECT_TRUE(QZFieldValue("1.50", 7, 3).EqualsStrict(QZFieldValue("1.5", 7, 3)));
    EXPECT_FALSE(QZFieldValue("1.5", 7, 3).EqualsStrict(QZFieldValue("1.5", 7, 4)));
}

TEST(QZFieldValueEquals, ChangesCommasToPointsInPlace) {
    const QZFieldValue comma("1,5", 7, 3);
    const QZFieldValue wide(u"1,5", 8);
    const QZFieldValue point("1.5", 7, 3);
    EXPECT_TRUE(comma.Equals(point));
    EXPECT_EQ(Stored(comma), "1.5");
    EXPECT_TRUE(point.Equals(wide));
    EXPECT_EQ(wide.GetWideText(), u"1.5"s);
    const QZFieldValue several("1,2,3", 7, 3);
    EXPECT_TRUE(several.EqualsStrict(QZFieldValue("1.2", 7, 3)));
    EXPECT_EQ(Stored(several), "1.2.3");
    const QZFieldValue text("1,5", 7, 2);
    EXPECT_FALSE(text.Equals(point));
    EXPECT_EQ(Stored(text), "1,5") << "only for numbers";
}

TEST(QZFieldValueEquals, ForgetsAConversionWhenItChangesCommas) {
    const QZFieldValue value("1,5", 7, 3);
    EXPECT_EQ(value.GetWideText(), u"1,5"s);
    value.Equals(value);
    EXPECT_EQ(value.GetWideText(), u"1.5"s);
}

TEST(QZFieldValueEquals, FindsNaNEqualToNothing) {
    const QZFieldValue nan("NaN", 7, 3);
    EXPECT_FALSE(nan.Equals(nan));
    EXPECT_FALSE(nan.EqualsStrict(nan));
    EXPECT_TRUE(nan.NotEqual(nan));
    EXPECT_FALSE(QZFieldValue("1", 7, 3).Equals(nan));
    EXPECT_TRUE(QZFieldValue("inf", 7, 3).Equals(QZFieldValue("1e999", 7, 3)));
}

TEST(QZFieldValueEquals, ComparesType3AsTextWithoutAMantissa) {
    EXPECT_TRUE(QZFieldValue("E5", 7, 3).Equals(QZFieldValue(u"E5", 3)));
    EXPECT_FALSE(QZFieldValue("E5", 7, 3).Equals(QZFieldValue("e5", 7, 3)));
    EXPECT_FALSE(QZFieldValue("E5", 7, 3).Equals(QZFieldValue("E6", 7, 3)));
    EXPECT_TRUE(QZFieldValue("", 7, 3).Equals(QZFieldValue(u"", 3)));
    EXPECT_FALSE(QZFieldValue("", 7, 3).Equals(QZFieldValue("e", 7, 3)));
    const QZFieldValue comma("E,", 7, 3);
    EXPECT_FALSE(comma.Equals(QZFieldValue("E.", 7, 3)));
    EXPECT_EQ(Stored(comma), "E,") << "which leaves commas alone";
    EXPECT_TRUE(QZFieldValue("E5", 7, 3).Equals(QZFieldValue("0", 7, 3))) << "one of them is a number: 0 and 0";
    EXPECT_TRUE(QZFieldValue("", 7, 3).Equals(QZFieldValue("0", 7, 3)));
    EXPECT_FALSE(QZFieldValue("1E5", 7, 3).Equals(QZFieldValue("1E6", 7, 3))) << "an E further on is an exponent";
}

TEST(QZFieldValueEquals, ComparesBinaryParts) {
    const QZFieldValue plain("x", 7, 8);
    EXPECT_TRUE(WithBinary(plain, "12").Equals(WithBinary(plain, "12")));
    EXPECT_FALSE(WithBinary(plain, "12").Equals(WithBinary(plain, "13")));
    EXPECT_FALSE(WithBinary(plain, "12").Equals(WithBinary(plain, "123")));
    EXPECT_TRUE(WithBinary(plain, "12").Equals(plain)) << "a missing one matches all";
    EXPECT_TRUE(plain.Equals(WithBinary(plain, "12")));
    EXPECT_TRUE(WithBinary(plain, "12").EqualsStrict(WithBinary(plain, "12")));
    EXPECT_FALSE(WithBinary(plain, "12").EqualsStrict(WithBinary(plain, "13")));
    EXPECT_FALSE(WithBinary(plain, "12").EqualsStrict(plain)) << "strictly only one without length";
    EXPECT_FALSE(plain.EqualsStrict(WithBinary(plain, "12")));
    EXPECT_TRUE(plain.EqualsStrict(WithBinary(plain, "")));
    EXPECT_TRUE(WithBinary(plain, "").EqualsStrict(plain));
    EXPECT_TRUE(plain.EqualsStrict(plain));
    const QZFieldValue number("1", 7, 3);
    EXPECT_TRUE(WithBinary(number, "12").Equals(WithBinary(number, "13"))) << "numbers have none to compare";
    EXPECT_FALSE(WithBinary(plain, "12").Equals(WithBinary(QZFieldValue("y", 7, 8), "12")));
}

TEST(QZFieldValueEquals, DiffersByTypeWhenStrict) {
    EXPECT_TRUE(Raw("a", 8).Equals(Raw("a", 9)));
    EXPECT_FALSE(Raw("a", 8).EqualsStrict(Raw("a", 9)));
    EXPECT_TRUE(Raw("a", 8).NotEqual(Raw("a", 9)));
    EXPECT_FALSE(Raw("a", 8).NotEqual(Raw("a", 8)));
    EXPECT_TRUE(Raw("a", 8).NotEqual(Raw("b", 8)));
}

// ---- Copies

TEST(QZFieldValue, LeavesTheBinaryPartOutOfACopy) {
    QZFieldValue original("č", kUtf8, 5);
    original.SetBinary(Bytes("123"), 3);
    const QZFieldValue copy(original);
    EXPECT_STREQ(copy.GetText(kUtf8), "č");
    EXPECT_TRUE(HasEncoding(copy, kUtf8));
    EXPECT_EQ(copy.GetType(), 5);
    EXPECT_EQ(Binary(copy), "none 0");
    EXPECT_EQ(Binary(original), "123");
}

TEST(QZFieldValue, AssignsTheBinaryPartToo) {
    QZFieldValue original("č", kUtf8, 5);
    original.SetBinary(Bytes("123"), 3);
    QZFieldValue assigned(u"before", 2);
    assigned.Assign(original);
    EXPECT_STREQ(assigned.GetText(kUtf8), "č");
    EXPECT_TRUE(HasEncoding(assigned, kUtf8));
    EXPECT_EQ(assigned.GetType(), 5);
    EXPECT_EQ(Binary(assigned), "123");
    QZFieldValue other;
    other = assigned;
    EXPECT_EQ(Binary(other), "123");
    other = QZFieldValue();
    EXPECT_TRUE(other.IsNull());
    EXPECT_EQ(other.GetType(), -1);
    EXPECT_EQ(Binary(other), "none 0");
}

TEST(QZFieldValue, CopiesAllItsBytes) {
    const QZFieldValue original = Raw("a\0b"s);
    EXPECT_EQ(Stored(QZFieldValue(original)), "a\0b"s);
    QZFieldValue assigned;
    assigned.Assign(original);
    EXPECT_EQ(Stored(assigned), "a\0b"s);
}

TEST(QZFieldValue, TakesAndDropsABinaryPart) {
    QZFieldValue value("x", 7, 8);
    value.SetBinary(Bytes("a\0b"s), 3);
    EXPECT_EQ(Binary(value), "a\0b"s);
    value.SetString("y", 7, 8);
    EXPECT_EQ(Binary(value), "a\0b"s) << "it stays when the text changes";
    value.SetBinary(Bytes("z"), 0);
    EXPECT_EQ(Binary(value), "");
    value.SetBinary(nullptr, 4);
    EXPECT_EQ(Binary(value), "none 0");
}

// ---- The settings store

// One section, with a record of what was asked.
class OneSection : public QZSettingsStore {
 public:
    OneSection() = default;
    virtual ~OneSection() = default;

    std::map<std::string, int> ints;
    std::map<std::string, std::u16string> strings;
    std::vector<std::string> calls;

    CList<CString> GetSubSections() override { throw std::logic_error("a value has no sections"); }
    int SectionExists(const CString&) override { throw std::logic_error("a value has no sections"); }
    int OpenSection(const CString&, int) override { throw std::logic_error("a value has no sections"); }
    void CloseSection() override { throw std::logic_error("a value has no sections"); }

    int ReadInt(const CString& key, int defaultValue) override {
        calls.push_back("ReadInt " + key.ToUtf8() + " " + std::to_string(defaultValue));
        const auto found = ints.find(key.ToUtf8());
        return found == ints.end() ? defaultValue : found->second;
    }

    CString ReadString(const CString& key, const CString& defaultValue, int reserved) override {
        calls.push_back("ReadString " + key.ToUtf8() + " '" + defaultValue.ToUtf8() + "' " + std::to_string(reserved));
        const auto found = strings.find(key.ToUtf8());
        return found == strings.end() ? defaultValue : CString(found->second);
    }

    void WriteInt(const CString& key, int value) override {
        calls.push_back("WriteInt " + key.ToUtf8() + " " + std::to_string(value));
        ints[key.ToUtf8()] = value;
    }

    void WriteString(const CString& key, const CString& value, int reserved) override {
        calls.push_back("WriteString " + key.ToUtf8() + " '" + value.ToUtf8() + "' " + std::to_string(reserved));
        strings[key.ToUtf8()] = value.View();
    }
};

using Calls = std::vector<std::string>;

TEST(QZFieldValueStore, SavesAValue) {
    OneSection store;
    QZFieldValue("\xE8", 3, 5).Save(&store);
    EXPECT_EQ(store.calls, (Calls{"WriteInt IsNULL 0", "WriteInt Type 5", "WriteString Value 'č' 0"}));
}

TEST(QZFieldValueStore, SavesNull) {
    OneSection store;
    QZFieldValue().Save(&store);
    EXPECT_EQ(store.calls, (Calls{"WriteInt IsNULL 1", "WriteInt Type -1"}));
}

TEST(QZFieldValueStore, LoadsAsWideText) {
    OneSection store;
    QZFieldValue("č1", kUtf8, 5).Save(&store);
    store.calls.clear();
    QZFieldValue value;
    value.Load(&store);
    EXPECT_EQ(store.calls, (Calls{"ReadInt IsNULL 0", "ReadInt Type -1", "ReadString Value '' 0"}));
    EXPECT_TRUE(HasEncoding(value, kUtf16));
    EXPECT_EQ(value.GetWideText(), u"č1"s);
    EXPECT_EQ(value.GetType(), 5);
}

TEST(QZFieldValueStore, LoadsNull) {
    OneSection store;
    QZFieldValue(static_cast<const char16_t*>(nullptr), 4).Save(&store);
    store.calls.clear();
    QZFieldValue value("x", 3, 2);
    value.Load(&store);
    EXPECT_EQ(store.calls, (Calls{"ReadInt IsNULL 0", "ReadInt Type -1"}));
    EXPECT_TRUE(value.IsNull());
    EXPECT_EQ(value.GetType(), 4);
}

TEST(QZFieldValueStore, LoadsType0AsNull) {
    OneSection store;
    QZFieldValue("x", 3, 0).Save(&store);
    QZFieldValue value("y", 3, 2);
    value.Load(&store);
    EXPECT_TRUE(value.IsNull());
    EXPECT_EQ(value.GetType(), -1);
    store.ints["IsNULL"] = 1;
    value.SetString("y", 3, 2);
    value.Load(&store);
    EXPECT_TRUE(value.IsNull());
    EXPECT_EQ(value.GetType(), -1);
}

TEST(QZFieldValueStore, LoadsAnEmptyTextFromAnEmptySection) {
    OneSection store;
    QZFieldValue value("y", 3, 2);
    value.Load(&store);
    EXPECT_FALSE(value.IsNull());
    EXPECT_EQ(value.GetType(), -1);
    EXPECT_EQ(value.GetLength(), 0U);
}

TEST(QZFieldValueStore, TakesAnyNonZeroNumberForNull) {
    OneSection store;
    store.ints["IsNULL"] = -7;
    store.ints["Type"] = 2;
    QZFieldValue value("y", 3, 2);
    value.Load(&store);
    EXPECT_TRUE(value.IsNull());
    EXPECT_EQ(value.GetType(), 2);
}

}  // namespace
