// Builds of what is long, deep or manifold: on a common stack, in time, in bounded memory.
#include <gtest/gtest.h>
#include <malloc.h>

#include <ctime>
#include <memory>
#include <string>
#include <vector>

#include "QZParserSQL/model/SelectItemField.h"
#include "QZParserSQL/model/SelectItemSubQuery.h"
#include "QZParserSQL/model/SelectItemUnion.h"
#include "tests/dialect/OnStack.h"
#include "tests/platform/PrintText.h"
#include "tests/support/ModelText.h"

namespace {

constexpr std::size_t kCommonStack = std::size_t{8} << 20;

std::u16string Repeated(std::u16string_view part, int count) {
    std::u16string text;
    for (int i = 0; i < count; ++i) text += part;
    return text;
}

CString Number(int number) { return CString::FromInt(number); }

double ProcessorSeconds() { return static_cast<double>(std::clock()) / CLOCKS_PER_SEC; }

int DepthOf(const SelectItem& item) {
    int depth = 1;
    const SelectItem* deepest = &item;
    for (; !deepest->Children.IsEmpty(); ++depth) deepest = deepest->Children.GetHead();
    return depth;
}

int CountOf(const CList<SelectItem*>& list) {
    int count = 0;
    std::vector<const SelectItem*> waiting;
    for (const SelectItem* item : list) waiting.push_back(item);
    for (; !waiting.empty(); ++count) {
        const SelectItem* item = waiting.back();
        waiting.pop_back();
        for (const SelectItem* child : item->Children) waiting.push_back(child);
    }
    return count;
}

TEST(LargeBuild, ANameOfAMillionCharacters) {
    const std::u16string name(1'000'000, u'x');
    const BuiltQuery bare(u"SELECT " + name + u" FROM t");
    EXPECT_EQ(dynamic_cast<const SelectItemField&>(*bare.query.m_listSelect.GetHead()).GetFieldName(), CString(name));
    const BuiltQuery pair(u"SELECT [" + name + u"." + name + u"] FROM t");
    EXPECT_EQ(dynamic_cast<const SelectItemField&>(*pair.query.m_listSelect.GetHead()).GetTableName(),
              CString(u"[" + name + u"]"));
}

TEST(LargeBuild, AChainOfConditionsIsBuiltClonedAndFreed) {
    RunOnStack(kCommonStack, [] {
        BuiltQuery built(u"SELECT a FROM t WHERE a = 1" + Repeated(u" AND a = 1", 19'999));
        ASSERT_NE(built.query.m_pWhere, nullptr);
        EXPECT_EQ(DepthOf(*built.query.m_pWhere), 20'002);  // the root, the chain to the left, a comparison, its field
        const std::unique_ptr<CQZQueryInfo> clone(built.query.Clone(0));
        EXPECT_EQ(DepthOf(*clone->m_pWhere), 20'002);
    });
}

int MembersOf(const CQZQueryInfo& query) {
    int members = 0;
    const CQZQueryInfo* member = &query;
    for (; member->m_listUnion.GetCount() == 1; ++members)
        member = dynamic_cast<const SelectItemUnion&>(*member->m_listUnion.GetHead()).Query;
    return members;
}

TEST(LargeBuild, ALongUnionIsBuiltClonedAndFreed) {
    RunOnStack(kCommonStack, [] {
        BuiltQuery built(u"SELECT a FROM t" + Repeated(u" UNION SELECT a FROM t", 4'999));
        EXPECT_EQ(MembersOf(built.query), 4'999);
        const std::unique_ptr<CQZQueryInfo> clone(built.query.Clone(0));
        EXPECT_EQ(MembersOf(*clone), 4'999);
    });
}

TEST(LargeBuild, ThirtyNestedDerivedTables) {
    CString sql = u"SELECT a FROM t";
    for (int i = 0; i < 30; ++i) sql = u"SELECT a FROM (" + sql + u") AS d" + Number(i);
    const double start = ProcessorSeconds();
    BuiltQuery built;
    EXPECT_TRUE(built.Build(sql));
    EXPECT_LT(ProcessorSeconds() - start, 1);
    const CQZQueryInfo* query = &built.query;
    int depth = 0;
    for (; depth < 30; ++depth) {
        const auto* item = query->m_listFrom.GetHead()->Children.GetHead();
        query = dynamic_cast<const SelectItemSubQuery&>(*item).Query;
        EXPECT_EQ(query->m_mapAliases.GetCount(), 31) << depth;  // those of all levels, and the one of the bare table
    }
    EXPECT_EQ(query->m_listFrom.GetCount(), 1);
}

TEST(LargeBuild, UnionsInDerivedTablesTenDeep) {
    CString sql = u"SELECT a FROM t";
    for (int i = 0; i < 10; ++i) sql = u"SELECT a FROM (" + sql + u" UNION SELECT b FROM u) AS d" + Number(i);
    const double start = ProcessorSeconds();
    BuiltQuery built;
    EXPECT_TRUE(built.Build(sql));
    EXPECT_LT(ProcessorSeconds() - start, 1);
}

TEST(LargeBuild, AnAliasOfItselfEnds) {
    const BuiltQuery built(u"SELECT x + x AS x FROM t");
    EXPECT_EQ(CountOf(built.query.m_listSelect), 1 + 1 + 2 * (1 + 3) + 1);
}

TEST(LargeBuild, AChainOfAliasesThatDoublesIsBounded) {
    CString sql = u"SELECT a + a AS x0";
    for (int i = 1; i < 60; ++i) sql += u", x" + Number(i - 1) + u" + x" + Number(i - 1) + u" AS x" + Number(i);
    const double start = ProcessorSeconds();
    BuiltQuery built;
    EXPECT_TRUE(built.Build(sql + u" FROM t"));
    EXPECT_LT(ProcessorSeconds() - start, 1);
    EXPECT_EQ(built.query.m_listSelect.GetCount(), 60);
    EXPECT_LT(CountOf(built.query.m_listSelect), 60 * 10'000);
}

TEST(LargeBuild, AModelOfMoreThanTwoMillionObjectsIsCut) {
    CString sql = u"SELECT f0";
    for (int i = 1; i < 1'500; ++i) sql += u", f" + Number(i);
    sql += u" FROM t WHERE a IN (SELECT 1)" + Repeated(u" AND a IN (SELECT 1)", 1'499);
    BuiltQuery built;  // each subquery has the records of all fields
    EXPECT_FALSE(built.Build(sql + u" ORDER BY a"));
    EXPECT_EQ(built.query.m_listSelect.GetCount(), 1'500);
    EXPECT_EQ(built.query.m_pWhere->Children.GetCount(), 1);
    EXPECT_EQ(built.query.m_listOrderBy.GetCount(), 0);
    EXPECT_TRUE(built.Build(u"SELECT a FROM t WHERE a = 1"));
    EXPECT_EQ(built.query.m_listSelect.GetCount(), 1);
}

TEST(LargeBuild, ManyBuildsLeaveTheMemoryWhereItWas) {
    const auto build = [](int count) {
        for (int i = 0; i < count; ++i) {
            const BuiltQuery built(
                u"SELECT a AS x, x + 1 AS y, F(b) FROM (SELECT [t.a] FROM t) AS d INNER JOIN u ON d.i "
                u"= u.i WHERE a BETWEEN 1 AND 2 UNION ALL SELECT c, #1/2/2000#, 'z' FROM v");
            EXPECT_EQ(built.query.m_listUnion.GetCount(), 1);
        }
    };
    build(100);
    const auto before = mallinfo2().uordblks;
    build(9'900);
    EXPECT_LE(mallinfo2().uordblks, before + 10'000);
}

}  // namespace
