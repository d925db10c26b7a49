// Queries in the order in which they read each other.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "Concrete.h"
#include "QZParserSQL/model/SelectItemUnion.h"

namespace {

using concrete::Database;
using concrete::Query;

using Names = std::vector<std::string>;

class SortQueries : public testing::Test {
 protected:
    /// Adds queries of these one-letter names, in this order.
    void Add(const std::string& names) {
        for (const char name : names) queries[name] = &database.AddQuery(CString(static_cast<char16_t>(name), 1));
    }

    void Reads(char reader, char query) { AddSource(*queries.at(reader), *queries.at(query)); }

    static void AddSource(CQZQueryInfo& reader, const CQZQueryInfo& query) {
        reader.m_mapSources.SetAt(query.GetName(), query.GetGUID());
    }

    /// Adds a member of a union to a query, which the query owns.
    static CQZQueryInfo& AddMember(CQZQueryInfo& query) {
        auto* item = new SelectItemUnion;
        item->Query = new Query;
        query.m_listUnion.AddTail(item);
        return *item->Query;
    }

    std::string Sorted() {
        database.SortQueries();
        std::string names;
        for (const CQZQueryInfo* query : database.m_listQueries) names += query->GetName().ToUtf8();
        return names;
    }

    Database database;
    std::map<char, Query*> queries;
};

TEST_F(SortQueries, LeavesQueriesThatReadNoneAsTheyAre) {
    EXPECT_EQ(Sorted(), "");
    Add("a");
    EXPECT_EQ(Sorted(), "a");
    Add("bc");
    queries['a']->m_mapSources.SetAt(u"table", u"{no query}");
    EXPECT_EQ(Sorted(), "abc");
}

TEST_F(SortQueries, LeavesAnOrderThatIsRight) {
    Add("abc");
    Reads('b', 'a');
    Reads('c', 'b');
    EXPECT_EQ(Sorted(), "abc");
}

TEST_F(SortQueries, ExchangesAQueryForTheFirstOneThatItReads) {
    Add("abcd");
    Reads('a', 'c');
    EXPECT_EQ(Sorted(), "cbad");
}

TEST_F(SortQueries, FollowsAChainToItsEnd) {
    Add("abcd");
    Reads('a', 'b');
    Reads('b', 'c');
    Reads('c', 'd');
    // First place: bacd, cabd, dabc; second place: dbac, dcab; third place: dcba.
    EXPECT_EQ(Sorted(), "dcba");
}

TEST_F(SortQueries, StartsTheWalkAgainBehindTheExchange) {
    // a is exchanged for c, c for b, which stands before the place where c stood.
    Add("abc");
    Reads('a', 'c');
    Reads('c', 'b');
    EXPECT_EQ(Sorted(), "bca");
}

TEST_F(SortQueries, ComparesGUIDsInAnyCase) {
    Add("ab");
    queries['b']->SetGUID(u"{ABC}");
    queries['a']->m_mapSources.SetAt(u"x", u"{abc}");
    EXPECT_EQ(Sorted(), "ba");
}

TEST_F(SortQueries, LooksAtTheValueOfASourceNotAtItsName) {
    Add("ab");
    queries['a']->m_mapSources.SetAt(queries['b']->GetGUID(), u"b");
    EXPECT_EQ(Sorted(), "ab");
}

TEST_F(SortQueries, LooksIntoTheMembersOfUnions) {
    Add("abc");
    AddMember(*queries['a']);
    AddSource(AddMember(AddMember(*queries['a'])), *queries['c']);
    EXPECT_EQ(Sorted(), "cba");
}

TEST_F(SortQueries, LooksIntoNoUnionsOfDatabaseKind16) {
    Add("abc");
    AddSource(AddMember(*queries['a']), *queries['c']);
    database.dbType = 16;
    EXPECT_EQ(Sorted(), "abc");
    Reads('a', 'b');
    EXPECT_EQ(Sorted(), "bac");
}

TEST_F(SortQueries, PassesOverMembersWithoutAQuery) {
    Add("ab");
    queries['a']->m_listUnion.AddTail(new SelectItemUnion);
    queries['a']->m_listUnion.AddTail(new SelectItem);
    AddSource(AddMember(*queries['a']), *queries['b']);
    EXPECT_EQ(Sorted(), "ba");
}

TEST_F(SortQueries, LooksIntoUnionsAsDeepAsMemoryAllows) {
    Add("ab");
    CQZQueryInfo* innermost = queries['a'];
    for (int depth = 0; depth < 100000; ++depth) innermost = &AddMember(*innermost);
    AddSource(*innermost, *queries['b']);
    EXPECT_EQ(Sorted(), "ba");
}

TEST_F(SortQueries, EndsWhenQueriesReadEachOther) {
    Add("ab");
    Reads('a', 'b');
    Reads('b', 'a');
    EXPECT_EQ(Sorted().size(), 2U);
    Reads('a', 'a');
    EXPECT_EQ(Sorted().size(), 2U);
}

TEST_F(SortQueries, KeepsTheOrderOfOthersAroundACircle) {
    // r reads the circle of a, b and c, of which each also reads d.
    Add("rabcd");
    Reads('a', 'b');
    Reads('b', 'c');
    Reads('c', 'a');
    for (const char member : {'a', 'b', 'c'}) {
        Reads('r', member);
        Reads(member, 'd');
    }
    const std::string sorted = Sorted();
    EXPECT_EQ(sorted.front(), 'd') << sorted;
    EXPECT_EQ(sorted.back(), 'r') << sorted;
    EXPECT_EQ(sorted.size(), 5U);
}

/// Which queries lead to which, directly or by way of others.
using Graph = std::vector<std::vector<bool>>;

Graph Closed(Graph reads) {
    const std::size_t count = reads.size();
    for (std::size_t via = 0; via < count; ++via) {
        for (std::size_t a = 0; a < count; ++a) {
            for (std::size_t b = 0; b < count; ++b) {
                if (reads[a][via] && reads[via][b]) reads[a][b] = true;
            }
        }
    }
    return reads;
}

TEST(SortRandomQueries, StandBehindThoseTheyReadUnlessTheyReadEachOther) {
    std::mt19937 random(1);
    for (int round = 0; round < 500; ++round) {
        const std::size_t count = 1 + random() % 12;
        Database database;
        std::vector<Query*> queries;
        for (std::size_t i = 0; i < count; ++i)
            queries.push_back(&database.AddQuery(CString::FromInt(static_cast<int>(i))));
        Graph reads(count, std::vector<bool>(count));
        for (std::size_t edges = random() % (2 * count); edges > 0; --edges) {
            const std::size_t reader = random() % count;
            const std::size_t query = random() % count;
            reads[reader][query] = true;
            queries[reader]->m_mapSources.SetAt(queries[query]->GetName(), queries[query]->GetGUID());
        }
        database.SortQueries();
        std::vector<const CQZQueryInfo*> sorted;
        for (const CQZQueryInfo* query : database.m_listQueries) sorted.push_back(query);
        const auto placeOf = [&](std::size_t i) { return std::find(sorted.begin(), sorted.end(), queries[i]); };
        const Graph leads = Closed(reads);
        ASSERT_EQ(sorted.size(), count);
        for (std::size_t a = 0; a < count; ++a) {
            ASSERT_NE(placeOf(a), sorted.end());
            for (std::size_t b = 0; b < count; ++b) {
                if (!reads[a][b] || leads[b][a]) continue;
                ASSERT_LT(placeOf(b), placeOf(a)) << "round " << round << ": " << a << " reads " << b;
            }
        }
    }
}

}  // namespace
