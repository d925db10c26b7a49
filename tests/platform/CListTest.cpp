#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <vector>

#include "QZParserSQL/platform/CList.h"

namespace {

static_assert(!std::is_copy_constructible_v<CList<int>>);
static_assert(std::is_move_constructible_v<CList<int>>);
static_assert(!std::is_convertible_v<int, CList<int>>);

std::vector<int> Elements(const CList<int>& list) {
    std::vector<int> elements;
    for (const int element : list) elements.push_back(element);
    return elements;
}

using Ints = std::vector<int>;

TEST(CList, IsEmptyAtFirst) {
    const CList<int> list(10);
    EXPECT_TRUE(list.IsEmpty());
    EXPECT_EQ(list.GetCount(), 0);
    EXPECT_EQ(list.GetHeadPosition(), nullptr);
    EXPECT_EQ(list.GetTailPosition(), nullptr);
    EXPECT_EQ(Elements(list), Ints());
}

TEST(CList, KeepsTheOrderOfPutting) {
    CList<int> list;
    list.AddTail(2);
    list.AddTail(3);
    const POSITION head = list.AddHead(1);
    EXPECT_EQ(list.GetHeadPosition(), head);
    EXPECT_EQ(Elements(list), Ints({1, 2, 3}));
    EXPECT_EQ(list.GetCount(), 3);
    EXPECT_EQ(list.GetHead(), 1);
    EXPECT_EQ(list.GetTail(), 3);
}

TEST(CList, InsertsBesideAPosition) {
    CList<int> list;
    const POSITION middle = list.AddTail(5);
    const POSITION before = list.InsertBefore(middle, 3);
    const POSITION after = list.InsertAfter(middle, 7);
    list.InsertAfter(before, 4);
    list.InsertBefore(after, 6);
    EXPECT_EQ(Elements(list), Ints({3, 4, 5, 6, 7}));
}

TEST(CList, AccessToAnEmptyListThrows) {
    CList<std::string> list;
    const CList<std::string>& constant = list;
    EXPECT_THROW(list.GetHead(), std::invalid_argument);
    EXPECT_THROW(list.GetTail(), std::invalid_argument);
    EXPECT_THROW(constant.GetHead(), std::invalid_argument);
    EXPECT_THROW(constant.GetTail(), std::invalid_argument);
    EXPECT_THROW(list.RemoveHead(), std::invalid_argument);
    EXPECT_THROW(list.RemoveTail(), std::invalid_argument);
    EXPECT_NO_THROW(list.RemoveAll());
}

TEST(CList, NullPositionsThrowAndChangeNothing) {
    CList<int> list;
    list.AddTail(1);
    const CList<int>& constant = list;
    POSITION none = nullptr;
    EXPECT_THROW(list.GetAt(none), std::invalid_argument);
    EXPECT_THROW(constant.GetAt(none), std::invalid_argument);
    EXPECT_THROW(list.SetAt(none, 2), std::invalid_argument);
    EXPECT_THROW(list.RemoveAt(none), std::invalid_argument);
    EXPECT_THROW(list.InsertBefore(none, 2), std::invalid_argument);
    EXPECT_THROW(list.InsertAfter(none, 2), std::invalid_argument);
    EXPECT_THROW(list.GetNext(none), std::invalid_argument);
    EXPECT_THROW(constant.GetNext(none), std::invalid_argument);
    EXPECT_THROW(list.GetPrev(none), std::invalid_argument);
    EXPECT_THROW(constant.GetPrev(none), std::invalid_argument);
    EXPECT_EQ(Elements(list), Ints({1}));
}

TEST(CList, WalksForwardsAndBackwards) {
    CList<int> list;
    for (const int element : {1, 2, 3}) list.AddTail(element);
    const CList<int>& constant = list;
    Ints walked;
    for (POSITION position = constant.GetHeadPosition(); position != nullptr;) {
        walked.push_back(constant.GetNext(position));
    }
    for (POSITION position = list.GetTailPosition(); position != nullptr;) walked.push_back(list.GetPrev(position));
    EXPECT_EQ(walked, Ints({1, 2, 3, 3, 2, 1}));
}

TEST(CList, PositionsOutliveTheRemovalOfTheirNeighbours) {
    CList<int> list;
    POSITION positions[5];
    for (int element = 0; element < 5; ++element) positions[element] = list.AddTail(element);
    list.RemoveAt(positions[1]);
    list.RemoveAt(positions[3]);
    list.RemoveHead();
    list.RemoveTail();
    EXPECT_EQ(list.GetAt(positions[2]), 2);
    EXPECT_EQ(list.GetHeadPosition(), positions[2]);
    EXPECT_EQ(list.GetTailPosition(), positions[2]);
    list.AddHead(-1);
    POSITION position = positions[2];
    EXPECT_EQ(list.GetPrev(position), 2);
    EXPECT_EQ(list.GetPrev(position), -1);
    EXPECT_EQ(position, nullptr);
}

TEST(CList, AWalkGoesOnAfterItsElementIsRemoved) {
    CList<int> list;
    for (int element = 0; element < 6; ++element) list.AddTail(element);
    for (POSITION position = list.GetHeadPosition(); position != nullptr;) {
        const POSITION present = position;
        if (list.GetNext(position) % 2 == 0) list.RemoveAt(present);
    }
    EXPECT_EQ(Elements(list), Ints({1, 3, 5}));
}

TEST(CList, RemovingAnEndReturnsItsElement) {
    CList<std::string> list;
    list.AddTail("a");
    list.AddTail("b");
    list.AddTail("c");
    EXPECT_EQ(list.RemoveHead(), "a");
    EXPECT_EQ(list.RemoveTail(), "c");
    EXPECT_EQ(list.RemoveHead(), "b");
    EXPECT_TRUE(list.IsEmpty());
    EXPECT_THROW(list.RemoveHead(), std::invalid_argument);
}

TEST(CList, ElementsChangeInPlace) {
    CList<int> list;
    const POSITION position = list.AddTail(1);
    list.SetAt(position, 2);
    EXPECT_EQ(list.GetHead(), 2);
    list.GetAt(position) = 3;
    EXPECT_EQ(list.GetTail(), 3);
    for (int& element : list) ++element;
    list.GetHead() *= 10;
    EXPECT_EQ(Elements(list), Ints({40}));
}

TEST(CList, FindsEqualElementsBehindAPosition) {
    CList<int> list;
    const POSITION first = list.AddTail(7);
    list.AddTail(8);
    const POSITION second = list.AddTail(7);
    EXPECT_EQ(list.Find(7), first);
    EXPECT_EQ(list.Find(7, first), second);
    EXPECT_EQ(list.Find(7, second), nullptr);
    EXPECT_EQ(list.Find(9), nullptr);
    EXPECT_EQ(CList<int>().Find(7), nullptr);
}

TEST(CList, FindsElementsByNumber) {
    CList<int> list;
    const POSITION first = list.AddTail(1);
    list.AddTail(2);
    const POSITION last = list.AddTail(3);
    EXPECT_EQ(list.FindIndex(0), first);
    EXPECT_EQ(list.FindIndex(2), last);
    EXPECT_EQ(list.FindIndex(3), nullptr);
    EXPECT_EQ(list.FindIndex(-1), nullptr);
}

TEST(CList, RemoveAllLeavesAUsableList) {
    CList<int> list;
    list.AddTail(1);
    list.RemoveAll();
    EXPECT_TRUE(list.IsEmpty());
    list.AddTail(2);
    EXPECT_EQ(Elements(list), Ints({2}));
}

TEST(CList, MovingKeepsPositions) {
    CList<int> source;
    source.AddTail(1);
    const POSITION position = source.AddTail(2);
    CList<int> moved = std::move(source);
    moved.SetAt(position, 20);
    moved.InsertBefore(position, 15);
    CList<int> assigned;
    assigned.AddTail(99);
    assigned = std::move(moved);
    EXPECT_EQ(Elements(assigned), Ints({1, 15, 20}));
    assigned.RemoveAt(position);
    EXPECT_EQ(Elements(assigned), Ints({1, 15}));
}

TEST(CList, HoldsElementsThatOnlyMove) {
    CList<std::unique_ptr<int>, std::unique_ptr<int>> list;
    list.AddTail(std::make_unique<int>(1));
    const POSITION position = list.AddHead(std::make_unique<int>(0));
    list.SetAt(position, std::make_unique<int>(5));
    EXPECT_EQ(*list.RemoveHead(), 5);
    EXPECT_EQ(*list.GetHead(), 1);
}

TEST(CList, DoesNotOwnWhatItsPointersPointTo) {
    int number = 1;
    {
        CList<int*, int*> list(10);
        list.AddTail(&number);
        *list.GetHead() = 2;
    }
    EXPECT_EQ(number, 2);
}

TEST(CList, HoldsManyElements) {
    CList<int> list;
    for (int element = 0; element < 1'000'000; ++element) list.AddTail(element);
    EXPECT_EQ(list.GetCount(), 1'000'000);
    EXPECT_EQ(list.GetTail(), 999'999);
}

}  // namespace
