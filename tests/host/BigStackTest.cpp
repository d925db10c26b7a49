#include <gtest/gtest.h>

#include <stdexcept>

#include "host/big_stack.h"

namespace qzsql {
namespace {

// Each level takes 4 KiB, so that the whole is far more than a common stack holds.
int Depth(int levels) {
    volatile char frame[4096];
    frame[0] = 1;
    return levels == 0 ? 0 : frame[0] + Depth(levels - 1);
}

TEST(BigStackThread, HoldsDeepRecursion) {
    int depth = 0;
    BigStackThread([&depth] { depth = Depth(20'000); }).Join();
    EXPECT_EQ(depth, 20'000);
}

TEST(BigStackThread, RethrowsWhatItsWorkThrows) {
    BigStackThread thread([] { throw std::runtime_error("reason"); });
    EXPECT_THROW(thread.Join(), std::runtime_error);
}

TEST(BigStackThread, IsWaitedForWhenItGoes) {
    bool isDone = false;
    {
        const BigStackThread thread([&isDone] { isDone = true; });
    }
    EXPECT_TRUE(isDone);
}

}  // namespace
}  // namespace qzsql
