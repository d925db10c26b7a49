// Structures nested so deep that a recursion would run out of stack.
#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <vector>

#include "tests/catalog/Concrete.h"
#include "tests/dialect/OnStack.h"
#include "tests/model/Samples.h"

namespace {

using sample::AddRecord;
using sample::CloneOf;

constexpr int kDepth = 100000;
constexpr std::size_t kSmallStack = 0x80000;

class DeepItem : public testing::Test {
 protected:
    DeepItem() {
        SelectItem* deepest = &root;
        for (int depth = 0; depth < kDepth; ++depth) {
            SelectItem* next = depth % 2 == 0 ? new SelectItem : new SelectItemField;
            deepest->Children.AddTail(next);
            deepest = next;
        }
    }

    static int DepthOf(const SelectItem& item) {
        int depth = 0;
        for (const SelectItem* next = &item; !next->Children.IsEmpty(); next = next->Children.GetHead()) ++depth;
        return depth;
    }

    SelectItem root;
};

TEST_F(DeepItem, IsClonedAndDeleted) {
    RunOnStack(kSmallStack, [this] { EXPECT_EQ(DepthOf(*CloneOf(root)), kDepth); });
}

TEST_F(DeepItem, IsClearedAndLeavesNothing) {
    RunOnStack(kSmallStack, [this] { root.ClearChildren(); });
    EXPECT_EQ(DepthOf(root), 0);
}

TEST_F(DeepItem, IsTheExpressionOfAnAlias) {
    RunOnStack(kSmallStack, [this] {
        CQZAliasInfo alias;
        alias.Expression = root.Clone();
        const std::unique_ptr<CQZAliasInfo> clone(alias.Clone(0));
        EXPECT_EQ(DepthOf(*clone->Expression), kDepth);
    });
}

TEST_F(DeepItem, IsTheConditionOfAQuery) {
    RunOnStack(kSmallStack, [this] {
        CQZQueryInfo query;
        query.m_pWhere = root.Clone();
        const std::unique_ptr<CQZQueryInfo> clone(query.Clone(0));
        EXPECT_EQ(DepthOf(*clone->m_pWhere), kDepth);
    });
}

// How one query of a chain holds the next.
using Attach = void (*)(CQZQueryInfo& outer, CQZQueryInfo* inner);
using Inner = CQZQueryInfo* (*)(const CQZQueryInfo& outer);

template <class Holder>
void HoldBy(CList<SelectItem*>& list, CQZQueryInfo* inner) {
    auto* item = new Holder;
    item->Query = inner;
    list.AddTail(item);
}

template <class Holder>
CQZQueryInfo* HeldBy(const CList<SelectItem*>& list) {
    return list.IsEmpty() ? nullptr : dynamic_cast<Holder*>(list.GetHead())->Query;
}

struct Link {
    Attach attach;
    Inner inner;
};

// Attaches a chain of queries below another one and returns the innermost.
CQZQueryInfo& Deepen(CQZQueryInfo& root, Attach attach, int depth = kDepth) {
    CQZQueryInfo* deepest = &root;
    for (int level = 0; level < depth; ++level) {
        auto* next = new CQZQueryInfo;
        attach(*deepest, next);
        deepest = next;
    }
    return *deepest;
}

void AttachSubQuery(CQZQueryInfo& outer, CQZQueryInfo* inner) { outer.m_listSubQueries.AddTail(inner); }

void AttachUnion(CQZQueryInfo& outer, CQZQueryInfo* inner) { HoldBy<SelectItemUnion>(outer.m_listUnion, inner); }

class DeepQuery : public testing::TestWithParam<Link> {
 protected:
    DeepQuery() { Deepen(root, GetParam().attach); }

    // The queries of a chain, outermost first.
    static std::vector<CQZQueryInfo*> Chain(CQZQueryInfo& outermost) {
        std::vector<CQZQueryInfo*> chain;
        for (CQZQueryInfo* query = &outermost; query != nullptr; query = GetParam().inner(*query))
            chain.push_back(query);
        return chain;
    }

    CQZQueryInfo root;
};

TEST_P(DeepQuery, IsClonedAndDeleted) {
    RunOnStack(kSmallStack, [this] {
        const std::unique_ptr<CQZQueryInfo> clone(root.Clone(0));
        EXPECT_EQ(Chain(*clone).size(), kDepth + 1U);
    });
}

INSTANTIATE_TEST_SUITE_P(
    Links, DeepQuery,
    testing::Values(
        Link{[](CQZQueryInfo& outer, CQZQueryInfo* inner) { outer.m_listSubQueries.AddTail(inner); },
             [](const CQZQueryInfo& outer) {
                 return outer.m_listSubQueries.IsEmpty() ? nullptr : outer.m_listSubQueries.GetHead();
             }},
        Link{AttachUnion, [](const CQZQueryInfo& outer) { return HeldBy<SelectItemUnion>(outer.m_listUnion); }},
        Link{[](CQZQueryInfo& outer, CQZQueryInfo* inner) { HoldBy<SelectItemSubQuery>(outer.m_listSelect, inner); },
             [](const CQZQueryInfo& outer) { return HeldBy<SelectItemSubQuery>(outer.m_listSelect); }}));

TEST(Nesting, TheLastMemberOfALongUnionGetsTheDatabase) {
    RunOnStack(kSmallStack, [] {
        concrete::Database database;
        CQZQueryInfo root;
        root.SetDatabase(&database);
        const CQZQueryInfo& deepest = Deepen(root, AttachUnion);
        root.PropagateDatabase();
        EXPECT_EQ(deepest.GetDatabase(), &database);
    });
}

TEST(Nesting, TheInnermostQueryIsTiedToTheCatalog) {
    RunOnStack(kSmallStack, [] {
        concrete::Database database;
        const concrete::Table& table = database.AddTable(u"t");
        CQZQueryInfo root;
        CQZQueryInfo& deepest = Deepen(root, AttachSubQuery);
        deepest.SetDatabase(&database);
        deepest.m_mapSources.SetAt(u"t", u"t");
        root.ResolveSourceGUIDs();
        EXPECT_EQ(deepest.m_mapSources[u"t"], table.GetGUID());
    });
}

TEST(Nesting, AQueryTooDeepForTheStackFailsItsCheck) {
    RunOnStack(kSmallStack, [] {
        CQZQueryInfo root;
        CQZQueryInfo& inner = Deepen(root, AttachSubQuery, 100);
        EXPECT_EQ(root.CheckQuery(), 0);
        Deepen(inner, AttachSubQuery);
        EXPECT_EQ(root.CheckQuery(), 1);
    });
}

// Stored queries, each of which reads the one before it.
class Layers {
 public:
    explicit Layers(int count) {
        const CQZSourceInfo* below = &table;
        for (int layer = 0; layer < count; ++layer) {
            concrete::Query& above = database.AddQuery(u"layer" + CString::FromInt(layer));
            above.m_mapSources.SetAt(below->GetSrcName(), below->GetGUID());
            AddRecord(above, below->GetSrcName(), u"a");
            below = top = &above;
        }
    }

    concrete::Database database;
    concrete::Table& table = database.AddTable(u"t");
    concrete::Field& field = table.AddField(u"a");
    concrete::Query* top = nullptr;
};

TEST(Nesting, AFieldIsFoundBelowLayersOfQueries) {
    RunOnStack(kSmallStack, [] {
        Layers layers(30);
        EXPECT_EQ(layers.top->FindFieldBySrcName(u"a"), &layers.field);
        EXPECT_EQ(layers.top->FindFieldInSources(u"", u"a"), &layers.field);
        EXPECT_EQ(layers.top->CheckQuery(), 0);
    });
}

TEST(Nesting, AFieldBelowTooManyLayersIsNotFound) {
    RunOnStack(kSmallStack, [] {
        Layers layers(1500);
        EXPECT_EQ(layers.top->FindFieldBySrcName(u"a"), nullptr);
        EXPECT_EQ(layers.top->FindFieldInSources(u"", u"a"), nullptr);
        EXPECT_EQ(layers.top->CheckQuery(), 1);
        CQZQueryInfo* declaring = nullptr;
        EXPECT_EQ(layers.top->HasAlias(u"x", u"", declaring), 0);
    });
}

}  // namespace
