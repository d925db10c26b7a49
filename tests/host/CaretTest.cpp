#include <gtest/gtest.h>

#include <algorithm>

#include "host/caret.h"

namespace qzsql {
namespace {

TEST(Caret, StandsUnderTheCharacter) {
    EXPECT_EQ(CaretLines(u"SELECT a b", 9), "    SELECT a b\n             ^\n");
    EXPECT_EQ(CaretLines(u"a", 0), "    a\n    ^\n");
}

TEST(Caret, ShowsOneLineOnly) {
    EXPECT_EQ(CaretLines(u"a\nbc\nd", 3), "    bc\n     ^\n");
    EXPECT_EQ(CaretLines(u"a\r\nbc\r\nd", 3), "    bc\n    ^\n");
}

TEST(Caret, StandsBehindTheEnd) {
    EXPECT_EQ(CaretLines(u"ab", 2), "    ab\n      ^\n");
    EXPECT_EQ(CaretLines(u"", 0), "    \n    ^\n");
    EXPECT_EQ(CaretLines(u"ab\n", 3), "    \n    ^\n");
}

TEST(Caret, KeepsItsPlaceBehindUnevenCharacters) {
    EXPECT_EQ(CaretLines(u"\ta b", 3), "    \ta b\n    \t  ^\n");                     // tab
    EXPECT_EQ(CaretLines(u"\u6f22x", 1), "    \u6f22x\n      ^\n");                   // wide
    EXPECT_EQ(CaretLines(u"e\u0301x", 2), "    e\u0301x\n     ^\n");                  // combining
    EXPECT_EQ(CaretLines(u"\U0001F600x", 2), "    \U0001F600x\n      ^\n");           // a pair of units
    EXPECT_EQ(CaretLines(u"\x1b[1mx", 4), "    \u241b[1mx\n        ^\n");             // control
    EXPECT_EQ(CaretLines(std::u16string{0xD800, u'x'}, 1), "    \uFFFDx\n     ^\n");  // lone surrogate
}

TEST(Caret, CutsLongLinesAtBothEnds) {
    const std::u16string text = std::u16string(5000, u'a') + u"X" + std::u16string(5000, u'b');
    EXPECT_EQ(CaretLines(text, 5000),
              "    …" + std::string(100, 'a') + "X" + std::string(59, 'b') + "…\n" + std::string(105, ' ') + "^\n");
}

TEST(Caret, CutsRowsOfCombiningCharactersToo) {
    EXPECT_LT(CaretLines(std::u16string(5000, u'\u0301'), 2500).size(), 1000U);
}

}  // namespace
}  // namespace qzsql
