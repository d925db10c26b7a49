#include "tests/dialect/Growth.h"

#include <malloc.h>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <limits>

#include "tests/dialect/OnStack.h"
#include "tests/support/Recognition.h"

namespace {

constexpr std::size_t kFactor = 4;
constexpr double kMostGrowth = 9;  // a linear walk takes 4 times as long, and more where caches end; a quadratic one 16

std::u16string TextOf(const GrowingText& growth, std::size_t n) {
    std::u16string text(growth.start);
    for (std::size_t i = 0; i < n; ++i) text += growth.opening;
    text += growth.middle;
    for (std::size_t i = 0; i < n; ++i) text += growth.closing;
    return text;
}

double ProcessorSeconds() {
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

void ExpectUnderstood(const QZGrammar& grammar, const GrowingText& growth, const std::u16string& text) {
    const Recognition recognition(text, grammar);
    const bool clean = QZChildCount(recognition.Root()) == 2 && recognition.Reports().empty();
    EXPECT_EQ(clean, growth.understood) << growth.name;
    for (const QZReport& report : recognition.Reports()) {
        EXPECT_NE(report.kind, QZReportKind::NestedTooDeep) << growth.name;
    }
}

void ExpectLinear(const QZGrammar& grammar, const GrowingText& growth) {
    const std::u16string small = TextOf(growth, growth.n);
    const std::u16string large = TextOf(growth, growth.n * kFactor);
    ExpectUnderstood(grammar, growth, large);
    // The two are measured next to each other, and again where the machine was busy with something else.
    double smallSeconds = 1;
    double largeSeconds = 1e9;
    for (int i = 0; i < 6 && largeSeconds > kMostGrowth * smallSeconds; ++i) {
        smallSeconds = SecondsFor(grammar, small);
        largeSeconds = SecondsFor(grammar, large);
    }
    std::printf("%-34.*s %7zu: %8.3f ms   %7zu: %8.3f ms   x%.1f\n", static_cast<int>(growth.name.size()),
                growth.name.data(), growth.n, smallSeconds * 1e3, growth.n * kFactor, largeSeconds * 1e3,
                largeSeconds / smallSeconds);
    EXPECT_LT(largeSeconds, kMostGrowth * smallSeconds) << growth.name;
    EXPECT_LT(largeSeconds, growth.seconds) << growth.name;
}

}  // namespace

// Taken over enough recognitions to be measured; a first one fetches the memory that they share.
double SecondsFor(const QZGrammar& grammar, const std::u16string& text) {
    static_cast<void>(Recognition(text, grammar));
    const double begin = ProcessorSeconds();
    double passed = 0;
    int runs = 0;
    while (passed < 0.01) {
        const Recognition recognition(text, grammar);
        passed = ProcessorSeconds() - begin;
        ++runs;
    }
    return passed / runs;
}

void ExpectLinear(const QZGrammar& grammar, const std::vector<GrowingText>& texts) {
    RunOnStack(std::size_t{256} << 20, [&] {
        for (const GrowingText& growth : texts) ExpectLinear(grammar, growth);
    });
}

void Growth::SetUpTestSuite() {
    mallopt(M_ARENA_MAX, 1);
    mallopt(M_MMAP_THRESHOLD, 1 << 30);
    mallopt(M_TRIM_THRESHOLD, std::numeric_limits<int>::max());
}
