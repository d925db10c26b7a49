// Texts that nest deeper than any stack holds.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "tests/support/Recognition.h"

inline std::u16string Repeated(std::u16string_view part, std::size_t count) {
    std::u16string text;
    text.reserve(part.size() * count);
    for (std::size_t i = 0; i < count; ++i) text += part;
    return text;
}

inline std::u16string AMegabyteOf(std::u16string_view part) { return Repeated(part, 1000000 / part.size()); }

struct Nesting {
    std::string_view name;
    std::u16string text;
};

/// What every text gives: a root that ends with the end of the text.
inline void ExpectTree(const Recognition& recognition, const Nesting& nesting) {
    const QZNode* root = recognition.Root();
    ASSERT_NE(root, nullptr) << nesting.name;
    const std::uint32_t count = QZChildCount(root);
    ASSERT_GE(count, 2U) << nesting.name;
    EXPECT_EQ(QZKindOf(QZChildAt(root, 0)), QZNodeKind::Imaginary) << nesting.name;
    EXPECT_EQ(QZKindOf(QZChildAt(root, count - 1)), QZNodeKind::EndOfText) << nesting.name;
}

/// What a recognizer makes of such a text on a stack that is too small for it: a tree, and one report with a place.
inline void ExpectTreeAndReport(const QZGrammar& grammar, const Nesting& nesting) {
    const Recognition recognition(nesting.text, grammar);
    ExpectTree(recognition, nesting);
    std::vector<QZReport> tooDeep;
    for (const QZReport& report : recognition.Reports()) {
        if (report.kind == QZReportKind::NestedTooDeep) tooDeep.push_back(report);
    }
    ASSERT_EQ(tooDeep.size(), 1U) << nesting.name;
    const QZPosition place = tooDeep[0].position;
    EXPECT_EQ(tooDeep[0].phase, QZPhase::Parser);
    EXPECT_EQ(place.line, 1U) << nesting.name;
    EXPECT_EQ(place.column, place.offset + 1) << nesting.name;
    EXPECT_GT(place.offset, 30U) << nesting.name;
    EXPECT_LT(place.offset, nesting.text.size() / 2) << nesting.name;
    EXPECT_FALSE(tooDeep[0].message.empty());
}
