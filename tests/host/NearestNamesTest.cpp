// What somebody may have meant.
#include <gtest/gtest.h>

#include "host/nearest_names.h"
#include "tests/platform/PrintText.h"

namespace qzsql {
namespace {

using Names = std::vector<CString>;

TEST(NearestNames, TheMostLikeComesFirstAndCaseCountsForNothing) {
    EXPECT_EQ(NearestNames(u"CUSTMERS", {u"Customer", u"Costumers", u"Customers", u"Orders"}),
              Names({u"Customers", u"Customer", u"Costumers"}));
}

TEST(NearestNames, AThirdOfTheNameMayDiffer) {
    EXPECT_EQ(NearestNames(u"abc", {u"abd", u"add", u"abcd", u"ab"}), Names({u"abd", u"abcd", u"ab"}));
    EXPECT_EQ(NearestNames(u"abcdef", {u"abcdxy", u"abcxyz"}), Names({u"abcdxy"}));
    EXPECT_EQ(NearestNames(u"a", {u"b", u"bc"}), Names({u"b"}));
    EXPECT_EQ(NearestNames(u"", {u"b", u"bc"}), Names({u"b"}));
}

TEST(NearestNames, ThreeAtMost) {
    EXPECT_EQ(NearestNames(u"name", {u"name1", u"name2", u"name3", u"name4"}), Names({u"name1", u"name2", u"name3"}));
}

TEST(NearestNames, TheMessage) {
    EXPECT_EQ(UnknownName("table", u"Oders", {u"Orders", u"Odors", u"Customers"}),
              "unknown table 'Oders'. Did you mean Orders or Odors?");
    EXPECT_EQ(UnknownName("table", u"Oders", {u"Customers"}), "unknown table 'Oders'.");
}

}  // namespace
}  // namespace qzsql
