// Texts of many megabytes.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

#include "QZParserSQL/catalog/QZFieldValue.h"

namespace {

constexpr std::size_t kHundredMegabytes = 100'000'000;
constexpr int kUtf8 = 1;

TEST(LargeValue, IsConvertedWhole) {
    std::string text(kHundredMegabytes, 'a');
    text[kHundredMegabytes / 2] = '\xFF';
    const QZFieldValue value(text.c_str(), kUtf8, 2);
    EXPECT_EQ(value.GetLength(), kHundredMegabytes);
    const std::u16string_view wide = value.GetWideText();
    EXPECT_EQ(wide.size(), kHundredMegabytes - 1) << "without the byte that is none of UTF-8";
    EXPECT_EQ(wide.find_first_not_of(u'a'), std::u16string_view::npos);
    EXPECT_EQ(std::strlen(value.GetText(9)), kHundredMegabytes) << "with the character before it once more";
}

TEST(LargeValue, IsStrayBytesToTheEnd) {
    const std::string text(kHundredMegabytes, '\xBF');
    const QZFieldValue value(text.c_str(), kUtf8, 2);
    EXPECT_EQ(std::strlen(value.GetText(2)), 0U);
    EXPECT_EQ(value.GetWideText()[0], 0);
}

TEST(LargeValue, IsMeasuredAbove20MillionCharacters) {
    for (const std::size_t length : {std::size_t{19'999'999}, std::size_t{20'000'000}, std::size_t{20'000'001}}) {
        std::u16string text(length, u'ж');
        text.back() = u'€';
        text.front() = u'\x80';
        const QZFieldValue value(text.c_str(), 2);
        const std::string_view utf8 = value.GetText(kUtf8);
        ASSERT_EQ(utf8.size(), 2 * (length - 2) + 3);
        EXPECT_EQ(utf8.substr(0, 4), "жж");
        EXPECT_EQ(utf8.substr(utf8.size() - 5), "ж€");
    }
}

TEST(LargeValue, IsANumberAtMost) {
    std::string digits(kHundredMegabytes, '0');
    digits.back() = '1';
    digits[10] = ',';
    const QZFieldValue value(digits.c_str(), 7, 3);
    EXPECT_EQ(value.GetInt64(), 0);
    EXPECT_TRUE(value.Equals(QZFieldValue("0", 7, 3)));
    EXPECT_EQ(value.GetText(7)[10], '.');
    EXPECT_EQ(value.GetDate().m_status, kDateInvalid);
}

TEST(LargeValue, IsCopiedWithItsBinaryPart) {
    const std::string bytes(kHundredMegabytes, '\0');
    QZFieldValue value;
    value.SetBytes(reinterpret_cast<const unsigned char*>(bytes.data()), kHundredMegabytes, 8);
    value.SetBinary(reinterpret_cast<const unsigned char*>(bytes.data()), kHundredMegabytes);
    QZFieldValue other;
    other.Assign(value);
    EXPECT_TRUE(other.EqualsStrict(value));
    std::uint32_t length = 0;
    EXPECT_NE(other.GetBinary(length), nullptr);
    EXPECT_EQ(length, kHundredMegabytes);
    EXPECT_EQ(other.GetWideText()[0], 0);
}

}  // namespace
