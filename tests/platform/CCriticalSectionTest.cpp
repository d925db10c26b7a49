#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <mutex>
#include <thread>
#include <type_traits>

#include "QZParserSQL/platform/CCriticalSection.h"

namespace {

static_assert(!std::is_copy_constructible_v<CCriticalSection>);
static_assert(!std::is_copy_assignable_v<CCriticalSection>);

TEST(CCriticalSection, LetsOneThreadInAtATime) {
    CCriticalSection section;
    int count = 0;
    const auto work = [&] {
        for (int round = 0; round < 50'000; ++round) {
            const std::lock_guard lock(section);
            ++count;
        }
    };
    std::thread other(work);
    work();
    other.join();
    EXPECT_EQ(count, 100'000);
}

TEST(CCriticalSection, ItsHolderMayEnterAgainAndOthersWaitForTheLastUnlock) {
    CCriticalSection section;
    section.Lock();
    section.Lock();
    std::atomic<bool> entered = false;
    std::thread other([&] {
        section.Lock();
        entered = true;
        section.Unlock();
    });
    section.Unlock();
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    EXPECT_FALSE(entered);
    section.Unlock();
    other.join();
    EXPECT_TRUE(entered);
}

}  // namespace
