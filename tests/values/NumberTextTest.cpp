#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <limits>
#include <random>
#include <string>

#include "QZParserSQL/platform/NumberText.h"

namespace {

TEST(NumberText, ReadsIntegers) {
    EXPECT_EQ(qz::ReadInt("42"), 42);
    EXPECT_EQ(qz::ReadInt(" \t\n\v\f\r-42abc"), -42);
    EXPECT_EQ(qz::ReadInt("+7"), 7);
    EXPECT_EQ(qz::ReadInt("+-7"), 0);
    EXPECT_EQ(qz::ReadInt(""), 0);
    EXPECT_EQ(qz::ReadInt("x1"), 0);
    EXPECT_EQ(qz::ReadInt("1.9"), 1);
    EXPECT_EQ(qz::ReadInt("0x10"), 0);
    EXPECT_EQ(qz::ReadLong("-123456789"), -123456789L);
    EXPECT_EQ(qz::ReadInt64("-9223372036854775808"), std::numeric_limits<std::int64_t>::min());
}

TEST(NumberText, StopsAtTheEndsOfTheIntegerTypes) {
    EXPECT_EQ(qz::ReadInt("2147483648"), std::numeric_limits<int>::max());
    EXPECT_EQ(qz::ReadInt("-2147483649"), std::numeric_limits<int>::min());
    EXPECT_EQ(qz::ReadInt("99999999999999999999999"), std::numeric_limits<int>::max());
    EXPECT_EQ(qz::ReadLong("99999999999999999999999"), std::numeric_limits<long>::max());
    EXPECT_EQ(qz::ReadInt64("-99999999999999999999999"), std::numeric_limits<std::int64_t>::min());
}

TEST(NumberText, ReadsDoubles) {
    EXPECT_EQ(qz::ReadDouble(" -1.5e3 km"), -1500);
    EXPECT_EQ(qz::ReadDouble("1,5"), 1) << "a comma ends the number";
    EXPECT_EQ(qz::ReadDouble("+.25"), 0.25);
    EXPECT_EQ(qz::ReadDouble("1e999"), std::numeric_limits<double>::infinity());
    EXPECT_EQ(qz::ReadDouble("-1e-999"), 0);
    EXPECT_EQ(qz::ReadDouble(""), 0);
    EXPECT_EQ(qz::ReadDouble("E5"), 0);
    EXPECT_TRUE(std::isnan(qz::ReadDouble("NaN")));
    EXPECT_EQ(qz::ReadDouble("-inf"), -std::numeric_limits<double>::infinity());
}

TEST(NumberText, WritesSixDecimals) {
    EXPECT_EQ(qz::WriteDouble(0), "0.000000");
    EXPECT_EQ(qz::WriteDouble(-0.0), "-0.000000");
    EXPECT_EQ(qz::WriteDouble(-1234.5), "-1234.500000");
    EXPECT_EQ(qz::WriteDouble(1e-7), "0.000000");
    EXPECT_EQ(qz::WriteDouble(2.0000005), "2.000001") << "rounded to the nearest";
    EXPECT_EQ(qz::WriteDouble(std::numeric_limits<double>::infinity()), "inf");
    EXPECT_EQ(qz::WriteDouble(std::numeric_limits<double>::quiet_NaN()), "nan");
    EXPECT_EQ(qz::WriteDouble(std::numeric_limits<double>::lowest()).size(), 1U + 309 + 1 + 6);
}

// The tests run in the "C" locale, where printf is the model.
TEST(NumberText, WritesWhatPrintfWrites) {
    std::mt19937_64 random(1);
    for (int round = 0; round < 20000; ++round) {
        const std::uint64_t bits = random();
        double number = 0;
        std::memcpy(&number, &bits, sizeof number);
        if (std::isnan(number)) continue;
        char expected[400];
        ASSERT_GT(std::snprintf(expected, sizeof expected, "%f", number), 0);
        ASSERT_EQ(qz::WriteDouble(number), expected);
    }
}

}  // namespace
