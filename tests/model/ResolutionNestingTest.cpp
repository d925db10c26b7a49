// Resolution of what is deep, long, in many layers or in a circle.
#include <gtest/gtest.h>

#include <algorithm>
#include <ctime>
#include <memory>

#include "tests/dialect/OnStack.h"
#include "tests/model/Models.h"

namespace {

using sample::AddAlias;
using sample::AddRecord;
using sample::AliasReference;
using sample::Field;
using sample::Item;
using sample::Operator;
using sample::Put;
using sample::Read;
using sample::Resolved;

constexpr std::size_t kUsualStack = std::size_t{8} << 20;
constexpr std::size_t kSmallStack = 0x80000;

class Nested : public sample::Models {
 protected:
    Nested() { Read(query, table); }

    static double Seconds(CQZQueryInfo& resolved) {
        const std::clock_t start = std::clock();
        resolved.ResolveAllItems();
        return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
    }

    static CString Number(int number) { return CString::FromInt(number); }
};

// "a = 1 AND a = 2 ..." as a parser builds it, to the left.
SelectItem* Chain(int length, const CString& tableName, const CString& field) {
    SelectItem* chain = Operator(u"=", {Field(tableName, field), Item(u"0")});
    for (int i = 1; i < length; ++i)
        chain = Operator(u"AND", {chain, Operator(u"=", {Field(tableName, field), Item(u"1")})});
    return chain;
}

const SelectItemField& DeepestField(const SelectItem& item) {
    const SelectItem* deepest = &item;
    while (!deepest->Children.IsEmpty()) deepest = deepest->Children.GetHead();
    return dynamic_cast<const SelectItemField&>(*deepest);
}

TEST_F(Nested, ALongChainOfConditionsIsResolvedToItsEnd) {
    query.m_pWhere = Item(u"", {Chain(20000, u"t", u"a")});
    query.m_listHaving.AddTail(Chain(100000, u"", u"a"));
    RunOnStack(kSmallStack, [this] { query.ResolveAllItems(); });
    EXPECT_EQ(Resolved(DeepestField(*query.m_pWhere)), u"T.A");
    EXPECT_EQ(Resolved(DeepestField(*query.m_listHaving.GetHead())), u".A");
}

TEST_F(Nested, ALongChainIsSearchedToItsEnd) {
    query.m_mapSources.SetAt(u"t", table.GetGUID());
    query.m_listFrom.AddHead(Operator(u"JOIN", {Chain(100000, u"u", u"b")}));
    const SelectItemField& item = Selected(u"t", u"a");
    RunOnStack(kSmallStack, [this] { query.ResolveAllItems(); });
    EXPECT_EQ(Resolved(item), u"T.A");
}

TEST_F(Nested, ALongUnionIsResolvedInItsFirstMember) {
    SelectItemField& item = Selected(u"t", u"a");
    CQZQueryInfo* last = &query;
    for (int i = 0; i < 5000; ++i) {
        auto& member = Put(last->m_listUnion, new SelectItemUnion);
        last = member.Query = new CQZQueryInfo;
    }
    RunOnStack(kUsualStack, [this] {
        query.PropagateDatabase();
        query.ResolveAllItems();
        const std::unique_ptr<CQZQueryInfo> clone(query.Clone(0));
        EXPECT_EQ(clone->m_listUnion.GetCount(), 1);
    });
    EXPECT_EQ(Resolved(item), u"T.A");
}

// Each layer reads the one below twice: along every path that leads down these are 2^40 searches.
TEST_F(Nested, ManyLayersOfStarsAreSearchedOnce) {
    const CQZSourceInfo* one = &table;
    const CQZSourceInfo* two = &table;
    for (int layer = 0; layer < 40; ++layer) {
        const concrete::Query& left = Stored(u"left" + Number(layer), {one, two}, {Field(u"", u"*"), Field(u"", u"*")});
        two = &Stored(u"right" + Number(layer), {one, two}, {Field(u"", u"*")});
        one = &left;
    }
    Read(query, *one);
    const SelectItemField& missing = Selected(u"", u"nothing");
    const SelectItemField& ofTable = Selected(u"nowhere", u"nothing");
    query.ResolveAllItems();
    EXPECT_EQ(Resolved(missing), u".nothing");
    EXPECT_EQ(Resolved(ofTable), u".");
    EXPECT_EQ(StoredCorrect(), 1);
}

TEST_F(Nested, ManyLayersAreFollowedToTheTable) {
    const CQZSourceInfo* below = &table;
    for (int layer = 0; layer < 60; ++layer)
        below = &Stored(u"layer" + Number(layer), {below}, {Field(below->GetSrcName(), u"a"), Field(u"", u"*")});
    Read(query, *below);
    const SelectItemField& item = Selected(u"layer59", u"a");
    RunOnStack(kUsualStack, [this] { query.ResolveAllItems(); });
    EXPECT_EQ(Resolved(item), u"layer59.A");
}

TEST_F(Nested, TooManyLayersForTheStackEndTheSearch) {
    for (const bool byStar : {false, true}) {
        const CQZSourceInfo* below = &table;
        for (int layer = 0; layer < 2000; ++layer) {
            const CString name = (byStar ? u"star" : u"layer") + Number(layer);
            below = &Stored(name, {below}, {Field(byStar ? CString() : below->GetSrcName(), byStar ? u"*" : u"a")});
        }
        Read(query, *below);
    }
    const SelectItemField& item = Selected(u"layer1999", u"a");
    const SelectItemField& behindStar = Selected(u"star1999", u"b");
    RunOnStack(kSmallStack, [this] { query.ResolveAllItems(); });
    EXPECT_EQ(item.GetResolvedTable(), u"layer1999");
    EXPECT_EQ(Resolved(behindStar), u".");
}

class Circle : public Nested {
 protected:
    // Two stored queries that read each other.
    void Make(std::initializer_list<SelectItem*> ofOne, std::initializer_list<SelectItem*> ofTwo) {
        one = &Stored(u"one", {}, ofOne);
        two = &Stored(u"two", {one}, ofTwo);
        Read(*one, *two);
        Read(query, *one);
    }

    concrete::Query* one = nullptr;
    concrete::Query* two = nullptr;
};

TEST_F(Circle, OfFieldsEnds) {
    Make({Field(u"two", u"a")}, {Field(u"one", u"a")});
    const SelectItemField& item = Selected(u"one", u"a");
    const SelectItemField& missing = Selected(u"one", u"b");
    query.ResolveAllItems();
    EXPECT_EQ(Resolved(item), u"one.a");
    EXPECT_EQ(Resolved(missing), u".");
    one->ResolveAllItems();
    two->ResolveAllItems();
}

TEST_F(Circle, OfStarsEnds) {
    Make({Field(u"two", u"*"), Field(u"", u"*")}, {Field(u"one", u"*"), Field(u"", u"c")});
    const SelectItemField& missing = Selected(u"", u"b");
    const SelectItemField& present = Selected(u"", u"c");
    query.ResolveAllItems();
    EXPECT_EQ(Resolved(missing), u".b");
    EXPECT_EQ(Resolved(present), u"one.c");
    one->ResolveAllItems();
    two->ResolveAllItems();
}

TEST_F(Circle, OfAQueryThatReadsItselfEnds) {
    concrete::Query& self = Stored(u"self", {}, {Field(u"self", u"a"), Field(u"", u"*"), Field(u"", u"b")});
    Read(self, self);
    AddAlias(self, u"x");
    AddRecord(self, u"self", u"a");
    self.ResolveAllItems();
    EXPECT_EQ(Resolved(dynamic_cast<SelectItemField&>(*self.m_listSelect.GetTail())), u"self.b");
}

TEST_F(Circle, WithAliasesAndChildrenEnds) {
    Make({Field(u"two", u"a")}, {Field(u"one", u"a")});
    for (concrete::Query* member : {one, two}) {
        SelectItemField* reference = AliasReference(u"a", Field(u"one", u"a"));
        reference->SetTableAlias(u"x");
        Read(*member, table);
        member->m_listSelect.GetHead()->Children.AddTail(reference);
    }
    const SelectItemField& item = Selected(u"two", u"a");
    query.ResolveAllItems();
    one->ResolveAllItems();
    two->ResolveAllItems();
    EXPECT_EQ(item.GetResolvedTable(), u"two");
}

// Four times the items may take eight times as long, for the sake of caches. Both are measured next to each other, and
// again where the machine was busy with something else.
class Growth : public Nested {
 protected:
    template <class Fill>
    void ExpectLinear(int size, Fill fill) {
        const auto secondsFor = [&](int count) {
            CQZQueryInfo measured;
            measured.SetDatabase(&database);
            Read(measured, table);
            fill(measured, count);
            return Seconds(measured);
        };
        double small = 0;
        double large = 1e9;
        for (int i = 0; i < 6 && large > 8 * small; ++i) {
            small = secondsFor(size);
            large = secondsFor(4 * size);
        }
        std::printf("%6d: %7.2f ms   %6d: %7.2f ms\n", size, small * 1e3, 4 * size, large * 1e3);
        EXPECT_LT(large, 8 * std::max(small, 0.002));
        EXPECT_LT(large, 2);
    }
};

TEST_F(Growth, OfSelectListsIsLinear) {
    for (const CString tableName : {u"", u"t", u"nowhere"}) {
        ExpectLinear(10000, [&](CQZQueryInfo& filled, int count) {
            for (int i = 0; i < count; ++i) Put(filled.m_listSelect, Field(tableName, u"a"));
        });
    }
}

TEST_F(Growth, OfConditionsIsLinear) {
    ExpectLinear(10000, [](CQZQueryInfo& filled, int count) { filled.m_listHaving.AddTail(Chain(count, u"t", u"a")); });
}

TEST_F(Growth, OfConditionsOfAJoinIsLinear) {
    ExpectLinear(10000,
                 [](CQZQueryInfo& filled, int count) { filled.m_listFrom.AddTail(Chain(count, u"nowhere", u"a")); });
}

TEST_F(Growth, OfFieldsOfAQueryIsLinear) {
    Read(query, Stored(u"q", {&table}, {Field(u"t", u"b"), Field(u"t", u"*"), Field(u"t", u"a")}));
    for (const CString tableName : {u"", u"q"}) {
        ExpectLinear(5000, [&](CQZQueryInfo& filled, int count) {
            Read(filled, *query.FindSourceByName(u"q"));
            for (int i = 0; i < count; ++i) Put(filled.m_listSelect, Field(tableName, u"a"));
        });
    }
}

TEST_F(Growth, OfAliasReferencesIsLinear) {
    ExpectLinear(5000, [](CQZQueryInfo& filled, int count) {
        for (int i = 0; i < count; ++i) {
            SelectItemField& item = Put(filled.m_listSelect, AliasReference(u"a", Field(u"t", u"a")));
            item.SetTableAlias(u"x");
        }
    });
}

}  // namespace
