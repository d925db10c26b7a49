#include <gtest/gtest.h>

#include <clocale>
#include <ios>
#include <string>

#include "QZParserSQL/platform/CString.h"
#include "tests/platform/PrintText.h"

namespace {

CString Lower(const char16_t* text) { return CString(text).MakeLower(); }
CString Upper(const char16_t* text) { return CString(text).MakeUpper(); }

CString OfCodePoint(char32_t codePoint) {
    if (codePoint < 0x10000) return CString(static_cast<char16_t>(codePoint), 1);
    CString text(static_cast<char16_t>(0xD7C0 + (codePoint >> 10)), 1);
    return text += static_cast<char16_t>(0xDC00 + (codePoint & 0x3FF));
}

TEST(CStringCase, MapsLettersOfAllAlphabets) {
    EXPECT_EQ(Lower(u"SELECT a_B1"), u"select a_b1");
    EXPECT_EQ(Upper(u"select a_B1"), u"SELECT A_B1");
    EXPECT_EQ(Lower(u"ПРИВЕТ ЁЇ"), u"привет ёї");
    EXPECT_EQ(Upper(u"привет ёї"), u"ПРИВЕТ ЁЇ");
    EXPECT_EQ(Lower(u"ΑΒΓ ΌΣ"), u"αβγ όσ");
    EXPECT_EQ(Upper(u"αβγ όσς"), u"ΑΒΓ ΌΣΣ");
    EXPECT_EQ(Lower(u"ÄÖÜ"), u"äöü");
    EXPECT_EQ(Upper(u"äöü ÿ"), u"ÄÖÜ Ÿ");
}

TEST(CStringCase, KeepsLettersWithoutASingleCounterpart) {
    EXPECT_EQ(Upper(u"straße"), u"STRAßE");
    EXPECT_EQ(Upper(u"\uFB01"), u"\uFB01");
    EXPECT_EQ(Lower(u"\u1E9E"), u"ß");
}

TEST(CStringCase, MapsTheTurkishLettersOneToOne) {
    EXPECT_EQ(Lower(u"\u0130"), u"i");
    EXPECT_EQ(Upper(u"\u0131"), u"I");
    EXPECT_EQ(Lower(u"I"), u"i");
    EXPECT_EQ(Upper(u"i"), u"I");
}

TEST(CStringCase, MapsSurrogatePairsAndKeepsLoneSurrogates) {
    EXPECT_EQ(Lower(u"\U00010400x"), u"\U00010428x");
    EXPECT_EQ(Upper(u"\U00010428x"), u"\U00010400X");
    const char16_t lone[] = {0xD801, u'A', 0xDC00, u'B', 0xD801, 0};
    const char16_t lower[] = {0xD801, u'a', 0xDC00, u'b', 0xD801, 0};
    EXPECT_EQ(Lower(lone), lower);
    EXPECT_EQ(Upper(lower), lone);
}

TEST(CStringCase, NeverChangesTheLength) {
    for (char32_t codePoint = 0; codePoint <= 0x10FFFF; ++codePoint) {
        CString text = OfCodePoint(codePoint);
        const int length = text.GetLength();
        ASSERT_EQ(text.MakeLower().GetLength(), length) << std::hex << static_cast<unsigned>(codePoint);
        ASSERT_EQ(text.MakeUpper().GetLength(), length) << std::hex << static_cast<unsigned>(codePoint);
    }
}

TEST(CStringCase, DoesNotDependOnTheLocale) {
    const std::string before = std::setlocale(LC_ALL, nullptr);
    for (const char* name : {"C", "C.UTF-8", "tr_TR.UTF-8"}) {
        std::setlocale(LC_ALL, name);
        EXPECT_EQ(Lower(u"TITLE Ж"), u"title ж") << name;
        EXPECT_EQ(Upper(u"title ж"), u"TITLE Ж") << name;
        EXPECT_EQ(CString(u"TITLE Ж").CompareNoCase(u"title ж"), 0) << name;
    }
    std::setlocale(LC_ALL, before.c_str());
}

TEST(CStringCase, ComparesWithoutCase) {
    EXPECT_EQ(CString(u"Orders").CompareNoCase(u"ORDERS"), 0);
    EXPECT_EQ(CString(u"ЗАКАЗЫ").CompareNoCase(u"заказы"), 0);
    EXPECT_EQ(CString(u"ΣΑΣ").CompareNoCase(u"σας"), 0);
    EXPECT_EQ(CString(u"\U00010400").CompareNoCase(u"\U00010428"), 0);
    EXPECT_NE(CString(u"straße").CompareNoCase(u"STRASSE"), 0);
    EXPECT_EQ(CString().CompareNoCase(u""), 0);
}

TEST(CStringCase, OrdersByUnitsAfterFolding) {
    EXPECT_LT(CString(u"a").CompareNoCase(u"B"), 0);
    EXPECT_GT(CString(u"B").CompareNoCase(u"a"), 0);
    EXPECT_LT(CString(u"A").CompareNoCase(u"ab"), 0);
    EXPECT_GT(CString(u"ab").CompareNoCase(u"A"), 0);
    EXPECT_LT(CString().CompareNoCase(u"a"), 0);
    EXPECT_GT(CString(u"Z").CompareNoCase(u"_"), 0) << "folding is to small letters";
    EXPECT_LT(CString(u"\U0001F600").CompareNoCase(u"\uFFFD"), 0);
    EXPECT_LT(CString(std::u16string_view(u"a\0", 1)).CompareNoCase(std::u16string_view(u"a\0", 2)), 0);
}

TEST(CStringCase, ComparesLoneSurrogatesAsUnits) {
    const CString lead(char16_t{0xD801}, 1);
    const CString trail(char16_t{0xDC00}, 1);
    EXPECT_EQ(lead.CompareNoCase(lead), 0);
    EXPECT_LT(lead.CompareNoCase(trail), 0);
    EXPECT_LT(lead.CompareNoCase(u"\U00010428"), 0);
    EXPECT_LT((lead + u"a").CompareNoCase(u"\U00010428"), 0);
    EXPECT_GT((lead + u"\uFFFD").CompareNoCase(u"\U00010428"), 0);
}

}  // namespace
