#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "QZParserSQL/platform/CMap.h"
#include "tests/platform/PrintText.h"

namespace {

using Texts = std::vector<CString>;

Texts Keys(const CMapStringToString& map) {
    Texts keys;
    CString key;
    CString value;
    for (POSITION position = map.GetStartPosition(); position != nullptr;) {
        map.GetNextAssoc(position, key, value);
        keys.push_back(key);
    }
    return keys;
}

CMapStringToString Abc() {
    CMapStringToString map(10);
    map.SetAt(u"b", u"2");
    map.SetAt(u"a", u"1");
    map.SetAt(u"c", u"3");
    return map;
}

TEST(CMap, IsEmptyAtFirst) {
    const CMapStringToOb map(10);
    EXPECT_TRUE(map.IsEmpty());
    EXPECT_EQ(map.GetCount(), 0);
    EXPECT_EQ(map.GetStartPosition(), nullptr);
    void* value = nullptr;
    EXPECT_FALSE(map.Lookup(u"a", value));
}

TEST(CMap, LooksUpWhatWasSet) {
    int number = 0;
    CMapStringToOb map;
    map.SetAt(u"0", &number);
    map.SetAt(u"1", nullptr);
    void* value = nullptr;
    EXPECT_TRUE(map.Lookup(u"0", value));
    EXPECT_EQ(value, &number);
    EXPECT_FALSE(map.Lookup(u"2", value));
    EXPECT_EQ(value, &number) << "a failed look-up leaves the value";
    EXPECT_TRUE(map.Lookup(u"1", value));
    EXPECT_EQ(value, nullptr);
    EXPECT_EQ(map.GetCount(), 2);
}

TEST(CMap, TypedPointersNeedNoCast) {
    int number = 5;
    CTypedMapStringToPtr<int> map(10);
    map.SetAt(u"n", &number);
    int* value = nullptr;
    ASSERT_TRUE(map.Lookup(u"n", value));
    EXPECT_EQ(*value, 5);
    EXPECT_EQ(map[u"none"], nullptr);
    EXPECT_EQ(map.GetCount(), 2);
}

TEST(CMap, KeysDifferByCaseAndByEveryUnit) {
    using namespace std::string_view_literals;
    CMapStringToString map;
    map.SetAt(u"a", u"1");
    map.SetAt(u"A", u"2");
    map.SetAt(u"a\0"sv, u"3");
    map.SetAt(u"", u"4");
    map.SetAt(u"\U00010400", u"5");
    map.SetAt(u"\xD801", u"6");
    EXPECT_EQ(map.GetCount(), 6);
    EXPECT_EQ(map[u"A"], u"2");
    EXPECT_EQ(map[u"a\0"sv], u"3");
    EXPECT_EQ(map[CString()], u"4");
    EXPECT_EQ(map[u"\xD801"], u"6");
}

TEST(CMap, WalksInTheOrderOfSetting) {
    CMapStringToString map = Abc();
    EXPECT_EQ(Keys(map), Texts({u"b", u"a", u"c"}));
    map.SetAt(u"b", u"anew");
    EXPECT_EQ(Keys(map), Texts({u"b", u"a", u"c"})) << "a key set anew keeps its place";
    map.RemoveKey(u"b");
    map.SetAt(u"b", u"2");
    EXPECT_EQ(Keys(map), Texts({u"a", u"c", u"b"}));
}

TEST(CMap, WalksManyEntriesInOrder) {
    CMapStringToString map;
    for (int number = 0; number < 10'000; ++number) map.SetAt(CString::FromInt(number), CString::FromInt(-number));
    int expected = 0;
    for (const auto& [key, value] : map) {
        ASSERT_EQ(key, CString::FromInt(expected));
        ASSERT_EQ(value, CString::FromInt(-expected));
        ++expected;
    }
    EXPECT_EQ(expected, 10'000);
}

TEST(CMap, AWalkGoesOnAfterItsEntryIsRemoved) {
    CMapStringToString map = Abc();
    CString key;
    CString value;
    for (POSITION position = map.GetStartPosition(); position != nullptr;) {
        map.GetNextAssoc(position, key, value);
        if (value != u"1") {
            EXPECT_TRUE(map.RemoveKey(key));
        }
    }
    EXPECT_EQ(Keys(map), Texts({u"a"}));
}

TEST(CMap, AWalkBehindTheEndThrows) {
    const CMapStringToString map;
    POSITION position = map.GetStartPosition();
    CString key;
    CString value;
    EXPECT_THROW(map.GetNextAssoc(position, key, value), std::invalid_argument);
}

TEST(CMap, IndexingMakesAnEmptyValueOnce) {
    CMapStringToString map;
    EXPECT_EQ(map[u"a"], u"");
    map[u"a"] += u"x";
    map[u"a"] += u"y";
    EXPECT_EQ(map.GetCount(), 1);
    EXPECT_EQ(map[u"a"], u"xy");
}

TEST(CMap, RemoveKeyTellsWhetherThereWasOne) {
    CMapStringToString map = Abc();
    EXPECT_TRUE(map.RemoveKey(u"a"));
    EXPECT_FALSE(map.RemoveKey(u"a"));
    EXPECT_EQ(map.GetCount(), 2);
    CString value;
    EXPECT_FALSE(map.Lookup(u"a", value));
    EXPECT_TRUE(map.Lookup(u"c", value));
}

TEST(CMap, RemovesByAKeyOfItsOwn) {
    CMapStringToString map = Abc();
    const auto& entry = *map.begin();
    EXPECT_TRUE(map.RemoveKey(entry.key));
    EXPECT_EQ(Keys(map), Texts({u"a", u"c"}));
}

TEST(CMap, RemoveAllLeavesAUsableMap) {
    CMapStringToString map = Abc();
    map.RemoveAll();
    EXPECT_TRUE(map.IsEmpty());
    EXPECT_EQ(map.GetStartPosition(), nullptr);
    map.SetAt(u"z", u"26");
    EXPECT_EQ(Keys(map), Texts({u"z"}));
}

TEST(CMap, CopiesAreIndependent) {
    CMapStringToString map = Abc();
    CMapStringToString copy = map;
    map.SetAt(u"a", u"changed");
    map.RemoveKey(u"b");
    EXPECT_EQ(Keys(copy), Texts({u"b", u"a", u"c"}));
    EXPECT_EQ(copy[u"a"], u"1");
    map = copy;
    copy.RemoveAll();
    EXPECT_EQ(Keys(map), Texts({u"b", u"a", u"c"}));
    const CMapStringToString& same = map;
    map = same;
    EXPECT_EQ(map[u"c"], u"3");
}

TEST(CMap, CopiesPointToTheSameObjects) {
    int number = 0;
    CMapStringToOb map(10);
    map.SetAt(u"n", &number);
    const CMapStringToOb copy = map;
    void* value = nullptr;
    EXPECT_TRUE(copy.Lookup(u"n", value));
    EXPECT_EQ(value, &number);
}

TEST(CMap, MovesKeepKeysThatAreShortAndLong) {
    const CString longKey(u'k', 1000);
    CMapStringToString map = Abc();
    map.SetAt(longKey, u"long");
    CMapStringToString moved = std::move(map);
    CMapStringToString assigned = Abc();
    assigned = std::move(moved);
    EXPECT_EQ(assigned[u"b"], u"2");
    EXPECT_EQ(assigned[longKey], u"long");
    EXPECT_EQ(assigned.GetCount(), 4);
}

}  // namespace
