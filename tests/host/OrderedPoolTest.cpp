#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>

#include "host/ordered_pool.h"

namespace qzsql {
namespace {

// Later lines are answered sooner, and still wait for the earlier ones.
TEST(OrderedPool, WritesInTheOrderOfTheLines) {
    std::string written;
    std::string expected;
    {
        const auto work = [](const Line& line) {
            std::this_thread::sleep_for(std::chrono::microseconds(line.number % 7 * 100));
            return Answer{line.text, kDone};
        };
        OrderedPool pool(4, work, [&written](const Answer& answer, bool) { written += answer.text + ","; });
        for (std::size_t number = 1; number <= 1000; ++number) {
            pool.Add({number, std::to_string(number)});
            expected += std::to_string(number) + ",";
        }
    }
    EXPECT_EQ(written, expected);
}

TEST(OrderedPool, WorksOnSeveralLinesAtOnce) {
    std::mutex mutex;
    std::condition_variable met;
    int present = 0;
    const auto meetTheOther = [&](const Line&) {
        std::unique_lock lock(mutex);
        ++present;
        met.notify_all();
        const bool both = met.wait_for(lock, std::chrono::seconds(60), [&present] { return present == 2; });
        return Answer{both ? "met" : "alone", kDone};
    };
    std::string written;
    OrderedPool pool(2, meetTheOther, [&written](const Answer& answer, bool) { written += answer.text; });
    pool.Add({1, ""});
    pool.Add({2, ""});
    pool.Finish();
    EXPECT_EQ(written, "metmet");
}

TEST(OrderedPool, SaysWhenNothingMoreIsReady) {
    std::atomic<int> last = 0;
    OrderedPool pool(
        1, [](const Line&) { return Answer{}; }, [&last](const Answer&, bool isLast) { last += isLast; });
    for (std::size_t number = 1; number <= 3; ++number) {
        pool.Add({number, ""});
        while (last < static_cast<int>(number)) std::this_thread::yield();
    }
    EXPECT_EQ(last, 3);
}

/// How many lines are taken while no answer comes: waits for so many, then whether there are more.
std::size_t TakenUnanswered(std::size_t lineSize, std::size_t expected) {
    std::mutex gate;
    std::atomic<std::size_t> taken = 0;
    std::unique_lock closed(gate);
    OrderedPool pool(
        1,
        [&gate](const Line&) {
            const std::lock_guard open(gate);
            return Answer{};
        },
        [](const Answer&, bool) {});
    std::thread reader([&] {
        for (; taken < 2 * expected; ++taken) pool.Add({taken + 1, std::string(lineSize, 'x')});
    });
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::minutes(1);
    while (taken < expected && std::chrono::steady_clock::now() < deadline) std::this_thread::yield();
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    const std::size_t unanswered = taken;
    closed.unlock();
    reader.join();
    return unanswered;
}

TEST(OrderedPool, HoldsSoManyLines) { EXPECT_EQ(TakenUnanswered(1, 64), 64U); }

TEST(OrderedPool, HoldsLessOfLongLines) { EXPECT_EQ(TakenUnanswered(std::size_t{40} << 20, 2), 2U); }

}  // namespace
}  // namespace qzsql
