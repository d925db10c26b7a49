// Queries that read each other in a ring.
#include <gtest/gtest.h>

#include <algorithm>

#include "host/query_rings.h"

namespace qzsql {
namespace {

using Ring = std::vector<std::size_t>;

TEST(QueryRings, NothingReadsNothing) {
    EXPECT_TRUE(FindRings({}).rings.empty());
    const auto found = FindRings({{}, {}});
    EXPECT_TRUE(found.rings.empty());
    EXPECT_EQ(found.leadsToRing, std::vector<bool>({false, false}));
}

TEST(QueryRings, ReadingTheSameTwiceIsNoRing) {
    const auto found = FindRings({{1, 2, 2}, {3}, {3}, {}});
    EXPECT_TRUE(found.rings.empty());
    EXPECT_EQ(found.leadsToRing, std::vector<bool>(4, false));
}

TEST(QueryRings, AQueryThatReadsItself) {
    const auto found = FindRings({{}, {1}});
    EXPECT_EQ(found.rings, std::vector<Ring>({{1}}));
    EXPECT_EQ(found.leadsToRing, std::vector<bool>({false, true}));
}

TEST(QueryRings, ARingIsToldInTheOrderOfReading) {
    EXPECT_EQ(FindRings({{2}, {0}, {1}}).rings, std::vector<Ring>({{0, 2, 1}}));
}

// 0 leads to the ring of 1 and 2, which reads 3; 4 leads to it after it was found; 5 reads 3 only.
TEST(QueryRings, WhatLeadsToARingIsTold) {
    const auto found = FindRings({{1}, {2}, {3, 1}, {}, {3, 2}, {3}});
    EXPECT_EQ(found.rings, std::vector<Ring>({{1, 2}}));
    EXPECT_EQ(found.leadsToRing, std::vector<bool>({true, true, true, false, true, false}));
}

TEST(QueryRings, TwoRingsApart) {
    EXPECT_EQ(FindRings({{1}, {0}, {3}, {2}}).rings, std::vector<Ring>({{0, 1}, {2, 3}}));
}

TEST(QueryRings, OfRingsThatTouchOneIsTold) {
    const auto found = FindRings({{1, 2}, {0}, {0}});
    EXPECT_EQ(found.rings, std::vector<Ring>({{0, 1}}));
    EXPECT_EQ(found.leadsToRing, std::vector<bool>({true, true, true}));
}

TEST(QueryRings, SourcesComeFirst) {
    EXPECT_EQ(FindRings({{1, 2}, {2}, {}, {0}}).sourcesFirst, Ring({2, 1, 0, 3}));
    EXPECT_EQ(FindRings({{}, {0}}).sourcesFirst, Ring({0, 1}));
    auto inARing = FindRings({{1}, {0, 2}, {}}).sourcesFirst;
    std::sort(inARing.begin(), inARing.end());
    EXPECT_EQ(inARing, Ring({0, 1, 2}));
}

TEST(QueryRings, LongChainsAndLongRings) {
    constexpr std::size_t kMany = 1'000'000;
    Readings readings(kMany);
    for (std::size_t i = 0; i + 1 < kMany; ++i) readings[i] = {i + 1};
    EXPECT_TRUE(FindRings(readings).rings.empty());
    readings.back() = {0};
    const auto found = FindRings(readings);
    ASSERT_EQ(found.rings.size(), 1U);
    EXPECT_EQ(found.rings[0].size(), kMany);
}

}  // namespace
}  // namespace qzsql
