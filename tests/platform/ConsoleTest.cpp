#include <gtest/gtest.h>

#include <cwchar>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "QZParserSQL/platform/Console.h"

namespace {

using Lines = std::vector<std::string>;

void Keep(void* context, std::string_view line) { static_cast<Lines*>(context)->emplace_back(line); }

void Count(void* context, std::string_view) { ++*static_cast<int*>(context); }

class Console : public testing::Test {
 protected:
    ~Console() override {
        QZSetConsoleSink(nullptr, nullptr);
        QZSetErrorSink(nullptr, nullptr);
    }
};

TEST_F(Console, WritesUtf8LinesToStandardOutputAndLeavesTheStreamNarrow) {
    testing::internal::CaptureStdout();
    QZConsoleWriteLine(u"Output = SELECT Ж €\U0001F600");
    QZConsoleWriteLine(u"");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "Output = SELECT Ж €\xF0\x9F\x98\x80\n\n");
    EXPECT_LE(std::fwide(stdout, 0), 0);
}

TEST_F(Console, WritesMessagesToStandardError) {
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    QZErrorWriteLine("line 1:5: no viable alternative at 'ж'");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "line 1:5: no viable alternative at 'ж'\n");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_LE(std::fwide(stderr, 0), 0);
}

TEST_F(Console, ASinkGetsTheLinesOfItsStreamUntilItIsReplaced) {
    Lines output;
    Lines messages;
    QZSetConsoleSink(Keep, &output);
    QZSetErrorSink(Keep, &messages);
    QZConsoleWriteLine(std::u16string_view(u"a\0\xD800", 3));
    QZErrorWriteLine("m");
    Lines later;
    QZSetConsoleSink(Keep, &later);
    QZConsoleWriteLine(u"b");
    EXPECT_EQ(output, Lines({std::string("a\0\xEF\xBF\xBD", 5)}));
    EXPECT_EQ(later, Lines({"b"}));
    EXPECT_EQ(messages, Lines({"m"}));
}

TEST_F(Console, NullRestoresTheDefault) {
    Lines lines;
    QZSetConsoleSink(Keep, &lines);
    QZSetErrorSink(Keep, &lines);
    QZSetConsoleSink(nullptr, &lines);
    QZSetErrorSink(nullptr, &lines);
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    QZConsoleWriteLine(u"out");
    QZErrorWriteLine("err");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "out\n");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "err\n");
    EXPECT_EQ(lines, Lines());
}

TEST_F(Console, ASinkMayReplaceItself) {
    static Lines lines;
    lines.clear();
    QZSetConsoleSink(
        [](void* context, std::string_view line) {
            Keep(context, line);
            QZSetConsoleSink([](void*, std::string_view second) { lines.push_back("2:" + std::string(second)); },
                             nullptr);
        },
        &lines);
    QZConsoleWriteLine(u"a");
    QZConsoleWriteLine(u"b");
    EXPECT_EQ(lines, Lines({"a", "2:b"}));
}

TEST_F(Console, ASinkThatThrowsLeavesTheStreamUsable) {
    QZSetErrorSink([](void*, std::string_view) { throw std::runtime_error("full"); }, nullptr);
    EXPECT_THROW(QZErrorWriteLine("a"), std::runtime_error);
    Lines lines;
    std::thread other([&] {
        QZSetErrorSink(Keep, &lines);
        QZErrorWriteLine("b");
    });
    other.join();
    EXPECT_EQ(lines, Lines({"b"}));
}

TEST_F(Console, SinksChangeWhileThreadsWriteAndNoLineIsLost) {
    constexpr int rounds = 5'000;
    Lines kept;
    int counted = 0;
    QZSetConsoleSink(Keep, &kept);
    const auto write = [] {
        for (int round = 0; round < rounds; ++round) QZConsoleWriteLine(u"SELECT");
    };
    std::thread first(write);
    std::thread second(write);
    for (int round = 0; round < rounds; ++round) {
        QZSetConsoleSink(Count, &counted);
        QZSetConsoleSink(Keep, &kept);
    }
    first.join();
    second.join();
    EXPECT_EQ(kept.size() + static_cast<std::size_t>(counted), 2U * rounds);
    for (const std::string& line : kept) ASSERT_EQ(line, "SELECT");
}

TEST_F(Console, ParallelLinesStayWhole) {
    testing::internal::CaptureStderr();
    const auto write = [](char letter) {
        for (int round = 0; round < 500; ++round) QZErrorWriteLine(std::string(100, letter));
    };
    std::thread other(write, 'b');
    write('a');
    other.join();
    const std::string written = testing::internal::GetCapturedStderr();
    ASSERT_EQ(written.size(), 1000U * 101);
    for (std::size_t line = 0; line < written.size(); line += 101) {
        ASSERT_EQ(written.substr(line, 101), std::string(100, written[line]) + '\n');
    }
}

}  // namespace
