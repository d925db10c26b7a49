#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <unordered_set>
#include <utility>

#include "QZParserSQL/platform/CString.h"
#include "tests/platform/PrintText.h"

namespace {

using namespace std::string_view_literals;

constexpr int kLowest = std::numeric_limits<int>::min();
constexpr int kHighest = std::numeric_limits<int>::max();
constexpr int kTenMillion = 10'000'000;

static_assert(!std::is_constructible_v<CString, int>);
static_assert(!std::is_constructible_v<CString, char16_t>);
static_assert(!std::is_constructible_v<CString, const char*>);
static_assert(!std::is_constructible_v<CString, std::string>);
static_assert(!std::is_constructible_v<CString, const wchar_t*>);
static_assert(!std::is_constructible_v<CString, int, char16_t>);
static_assert(!std::is_convertible_v<CString, std::string>);
static_assert(std::is_nothrow_move_constructible_v<CString>);

TEST(CString, IsEmptyWhenMadeFromNothing) {
    const CString text;
    EXPECT_TRUE(text.IsEmpty());
    EXPECT_EQ(text.GetLength(), 0);
    ASSERT_NE(text.GetString(), nullptr);
    EXPECT_EQ(text.GetString()[0], u'\0');
    EXPECT_EQ(CString(static_cast<const char16_t*>(nullptr)), u"");
}

TEST(CString, IsMadeFromEverySixteenBitText) {
    EXPECT_EQ(CString(u"abc").View(), u"abc"sv);
    EXPECT_EQ(CString(u"abcdef"sv.substr(1, 2)).View(), u"bc"sv);
    EXPECT_EQ(CString(std::u16string(3, u'x')).View(), u"xxx"sv);
    EXPECT_EQ(CString(u'-', 4).View(), u"----"sv);
    EXPECT_TRUE(CString(u'-', 0).IsEmpty());
    EXPECT_TRUE(CString(u'-', -1).IsEmpty());
}

TEST(CString, KeepsNulInsideAndEndsAPointersTextAtIt) {
    const CString text(u"a\0b"sv);
    EXPECT_EQ(text.GetLength(), 3);
    EXPECT_EQ(text[1], u'\0');
    EXPECT_EQ(text[2], u'b');
    EXPECT_EQ(text.GetString()[3], u'\0');
    EXPECT_EQ(text.Find(u'b'), 2);
    EXPECT_EQ(text.Find(u"\0b"sv), 1);
    EXPECT_NE(text, u"a");
    EXPECT_EQ(CString(u"a\0b"), u"a");
}

TEST(CString, CopiesAreIndependentAndMovesTakeTheUnits) {
    CString source(u"a text that is longer than any small buffer");
    CString copy = source;
    copy += u'!';
    EXPECT_EQ(source, u"a text that is longer than any small buffer");
    const char16_t* units = source.GetString();
    const CString moved = std::move(source);
    EXPECT_EQ(moved.GetString(), units);
}

TEST(CString, EmptyMakesEmpty) {
    CString text(u"abc");
    text.Empty();
    EXPECT_TRUE(text.IsEmpty());
    EXPECT_EQ(text, CString());
}

TEST(CString, CountsASurrogatePairAsTwoUnits) {
    const CString text(u"a\U0001F600b");
    EXPECT_EQ(text.GetLength(), 4);
    EXPECT_EQ(text[1], 0xD83D);
    EXPECT_EQ(text[2], 0xDE00);
    EXPECT_EQ(text.Mid(1, 1).GetLength(), 1);
}

TEST(CString, AccessOutsideTheTextThrows) {
    const CString text(u"ab");
    EXPECT_EQ(text[0], u'a');
    EXPECT_EQ(text.GetAt(1), u'b');
    for (const int outside : {2, 3, -1, kLowest, kHighest}) {
        EXPECT_THROW(static_cast<void>(text[outside]), std::out_of_range) << outside;
        EXPECT_THROW(static_cast<void>(text.GetAt(outside)), std::out_of_range) << outside;
    }
    EXPECT_THROW(static_cast<void>(CString()[0]), std::out_of_range);
}

TEST(CString, FindsTextsAndUnitsFromAStart) {
    const CString text(u"abcabc");
    EXPECT_EQ(text.Find(u"bc"), 1);
    EXPECT_EQ(text.Find(u"bc", 1), 1);
    EXPECT_EQ(text.Find(u"bc", 2), 4);
    EXPECT_EQ(text.Find(u"bc", 5), -1);
    EXPECT_EQ(text.Find(u'c', 3), 5);
    EXPECT_EQ(text.Find(u'd'), -1);
    EXPECT_EQ(text.Find(u'a', -5), 0);
    EXPECT_EQ(text.Find(u'a', 6), -1);
    EXPECT_EQ(text.Find(u'a', kHighest), -1);
    EXPECT_EQ(text.Find(u"", 6), 6);
    EXPECT_EQ(text.Find(u"", 7), -1);
    EXPECT_EQ(CString().Find(u'a'), -1);
}

TEST(CString, FindsTheLastUnit) {
    EXPECT_EQ(CString(u"a.b.c").ReverseFind(u'.'), 3);
    EXPECT_EQ(CString(u"abc").ReverseFind(u'.'), -1);
    EXPECT_EQ(CString().ReverseFind(u'.'), -1);
}

TEST(CString, LeftAndRightCutWhatLiesOutside) {
    const CString text(u"abc");
    EXPECT_EQ(text.Left(2), u"ab");
    EXPECT_EQ(text.Right(2), u"bc");
    for (const int all : {3, 4, kHighest}) {
        EXPECT_EQ(text.Left(all), u"abc") << all;
        EXPECT_EQ(text.Right(all), u"abc") << all;
    }
    for (const int none : {0, -1, kLowest}) {
        EXPECT_EQ(text.Left(none), u"") << none;
        EXPECT_EQ(text.Right(none), u"") << none;
    }
    EXPECT_EQ(CString().Left(1), u"");
    EXPECT_EQ(CString().Right(1), u"");
}

TEST(CString, MidCutsWhatLiesOutside) {
    const CString text(u"abcd");
    EXPECT_EQ(text.Mid(1), u"bcd");
    EXPECT_EQ(text.Mid(0), u"abcd");
    EXPECT_EQ(text.Mid(4), u"");
    EXPECT_EQ(text.Mid(kHighest), u"");
    EXPECT_EQ(text.Mid(-1), u"abcd");
    EXPECT_EQ(text.Mid(1, 2), u"bc");
    EXPECT_EQ(text.Mid(1, 0), u"");
    EXPECT_EQ(text.Mid(1, -1), u"");
    EXPECT_EQ(text.Mid(3, kHighest), u"d");
    EXPECT_EQ(text.Mid(5, 1), u"");
    EXPECT_EQ(text.Mid(kLowest, 2), u"ab");
}

TEST(CString, DeleteCutsWhatLiesOutsideAndReturnsTheLength) {
    const auto afterDelete = [](int index, int count) {
        CString text(u"abcd");
        const int length = text.Delete(index, count);
        EXPECT_EQ(length, text.GetLength());
        return text;
    };
    EXPECT_EQ(afterDelete(1, 2), u"ad");
    EXPECT_EQ(afterDelete(0, 4), u"");
    EXPECT_EQ(afterDelete(3, kHighest), u"abc");
    EXPECT_EQ(afterDelete(4, 1), u"abcd");
    EXPECT_EQ(afterDelete(kHighest, kHighest), u"abcd");
    EXPECT_EQ(afterDelete(-1, 1), u"bcd");
    EXPECT_EQ(afterDelete(1, 0), u"abcd");
    EXPECT_EQ(afterDelete(1, kLowest), u"abcd");
    CString text(u"abc");
    EXPECT_EQ(text.Delete(0), 2);
    EXPECT_EQ(CString().Delete(0), 0);
}

TEST(CString, InsertMovesItsPlaceIntoTheTextAndReturnsTheLength) {
    CString text(u"bd");
    EXPECT_EQ(text.Insert(1, u"c"), 3);
    EXPECT_EQ(text.Insert(-3, u"a"), 4);
    EXPECT_EQ(text.Insert(kHighest, u"e"), 5);
    EXPECT_EQ(text, u"abcde");
    text.Insert(2, text);
    EXPECT_EQ(text, u"ababcdecde");
}

TEST(CString, ReplaceCountsOccurrencesThatDoNotOverlap) {
    CString text(u"a\r\nb\r\n\r\nc");
    EXPECT_EQ(text.Replace(u"\r\n", u" "), 3);
    EXPECT_EQ(text, u"a b  c");
    EXPECT_EQ(text.Replace(u"x", u"y"), 0);
    EXPECT_EQ(text.Replace(u"", u"y"), 0);
    EXPECT_EQ(text, u"a b  c");
    CString letters(u"aaaaa");
    EXPECT_EQ(letters.Replace(u"aa", u"a"), 2);
    EXPECT_EQ(letters, u"aaa");
    EXPECT_EQ(letters.Replace(letters, u"aaa+aaa"), 1);
    EXPECT_EQ(letters, u"aaa+aaa");
    EXPECT_EQ(letters.Replace(u"a", u""), 6);
    EXPECT_EQ(letters, u"+");
}

TEST(CString, TrimsWhiteSpaceOfAllKindsAtTheSideAskedFor) {
    const CString text(u" \t\r\n\v\f\u00A0\u2003\u3000a b\u3000\u2028\u0085 ");
    EXPECT_EQ(CString(text).Trim(), u"a b");
    EXPECT_EQ(CString(text).TrimLeft(), u"a b\u3000\u2028\u0085 ");
    EXPECT_EQ(CString(text).TrimRight(), u" \t\r\n\v\f\u00A0\u2003\u3000a b");
    EXPECT_EQ(CString(u" \t ").Trim(), u"");
    EXPECT_EQ(CString(u" \t ").TrimLeft(), u"");
    EXPECT_EQ(CString(u" \t ").TrimRight(), u"");
    EXPECT_EQ(CString().Trim(), u"");
    EXPECT_EQ(CString(u"\u200B\0"sv).Trim().GetLength(), 2);
}

TEST(CString, TrimsAUnitOrASetAtTheSideAskedFor) {
    EXPECT_EQ(CString(u"``a`b`").Trim(u'`'), u"a`b");
    EXPECT_EQ(CString(u"``a`b`").TrimLeft(u'`'), u"a`b`");
    EXPECT_EQ(CString(u"``a`b`").TrimRight(u'`'), u"``a`b");
    EXPECT_EQ(CString(u"[][a[b]]").Trim(u"[]"), u"a[b");
    EXPECT_EQ(CString(u"[][a[b]]").TrimLeft(u"[]"), u"a[b]]");
    EXPECT_EQ(CString(u"[][a[b]]").TrimRight(u"[]"), u"[][a[b");
    EXPECT_EQ(CString(u" a ").Trim(u""), u" a ");
    EXPECT_EQ(CString(u"```").Trim(u'`'), u"");
    CString ownSet(u"abc");
    EXPECT_EQ(ownSet.Trim(ownSet), u"");
}

TEST(CString, ComparesByCodeUnits) {
    EXPECT_EQ(CString(u"abc").Compare(u"abc"), 0);
    EXPECT_LT(CString(u"ab").Compare(u"abc"), 0);
    EXPECT_GT(CString(u"b").Compare(u"abc"), 0);
    EXPECT_GT(CString(u"a").Compare(u"A"), 0);
    EXPECT_LT(CString(u"\U0001F600"), u"\uFFFD");
    EXPECT_EQ(u"abc", CString(u"abc"));
    EXPECT_EQ(CString(u"abc"), CString(u"abc"));
    EXPECT_EQ(CString(u"abc"), std::u16string(u"abc"));
    EXPECT_NE(CString(u"abc"), u"abC"sv);
    EXPECT_LT(u"a", CString(u"b"));
    EXPECT_FALSE(CString(u"b") < CString(u"b"));
}

TEST(CString, AppendsTextsAndUnits) {
    CString text = u"Table" + CString::FromInt(7);
    text += u'.';
    text += CString(u"x");
    EXPECT_EQ(text, u"Table7.x");
    EXPECT_EQ(text + u"y" + text, u"Table7.xyTable7.x");
    EXPECT_EQ(text, u"Table7.x");
    text += text;
    EXPECT_EQ(text, u"Table7.xTable7.x");
}

TEST(CString, WritesNumbersInDecimal) {
    EXPECT_EQ(CString::FromInt(0), u"0");
    EXPECT_EQ(CString::FromInt(-15), u"-15");
    EXPECT_EQ(CString::FromInt(std::numeric_limits<std::int64_t>::max()), u"9223372036854775807");
    EXPECT_EQ(CString::FromInt(std::numeric_limits<std::int64_t>::min()), u"-9223372036854775808");
}

TEST(CString, HashesEqualTextsEqually) {
    std::unordered_set<CString> texts{u"a", u"b", CString(u"a")};
    EXPECT_EQ(texts.size(), 2U);
    EXPECT_EQ(texts.count(u"b"), 1U);
    EXPECT_EQ(texts.count(u"B"), 0U);
}

TEST(CString, HandlesVeryLongTexts) {
    CString text(u'a', kTenMillion);
    text += u'b';
    EXPECT_EQ(text.GetLength(), kTenMillion + 1);
    EXPECT_EQ(text.Find(u"ab"), kTenMillion - 1);
    EXPECT_EQ(text.ReverseFind(u'b'), kTenMillion);
    EXPECT_EQ(text.MakeUpper().Right(2), u"AB");
    EXPECT_EQ(text.Trim(u'A'), u"B");
    CString lines(u'\n', kTenMillion);
    EXPECT_EQ(lines.Replace(u"\n", u"\r\n"), kTenMillion);
    EXPECT_EQ(lines.GetLength(), 2 * kTenMillion);
    EXPECT_TRUE(lines.Trim().IsEmpty());
}

}  // namespace
