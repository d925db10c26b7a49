// Texts that grow, and the time that their recognition takes.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "QZParserSQL/dialect/QZRecognizers.h"

/// start, n times opening, middle, n times closing.
struct GrowingText {
    std::string_view name;
    std::size_t n;
    double seconds;  // that the larger text may take
    std::u16string_view start;
    std::u16string_view opening;
    std::u16string_view middle;
    std::u16string_view closing;
    bool understood = true;  // nothing trails and nothing is reported
};

/// The processor time of one recognition.
double SecondsFor(const QZGrammar& grammar, const std::u16string& text);

/// Four times the size takes at most six times the time, which leaves room for caches that grow too small. On a stack
/// that none of the nestings reaches the end of, so that all of a text is worked on.
void ExpectLinear(const QZGrammar& grammar, const std::vector<GrowingText>& texts);

/// Memory that was used once is kept: asking the system for its pages anew would tell nothing of the work.
class Growth : public testing::Test {
 protected:
    static void SetUpTestSuite();
};
