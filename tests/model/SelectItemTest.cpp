#include <gtest/gtest.h>

#include <memory>
#include <type_traits>

#include "QZParserSQL/model/SelectItem.h"
#include "tests/model/Samples.h"

namespace {

using sample::CloneOf;
using sample::Item;
using sample::Log;

static_assert(!std::is_copy_assignable_v<SelectItem>);
static_assert(std::has_virtual_destructor_v<SelectItem>);

TEST(SelectItem, HasTheDefaultsOfAPlainNode) {
    const SelectItem item;
    EXPECT_EQ(item.IsNested, 0);
    EXPECT_EQ(item.FuncName, u"");
    EXPECT_EQ(item.TokenType, 0);
    EXPECT_EQ(item.Text, u"");
    EXPECT_EQ(item.ItemKind, 0);
    EXPECT_EQ(item.IsOperator, 0);
    EXPECT_EQ(item.QuoteOpen, u"");
    EXPECT_EQ(item.QuoteClose, u"");
    EXPECT_EQ(item.HasCalculatedField, 0);
    EXPECT_TRUE(item.Children.IsEmpty());
}

TEST(SelectItem, DerivedItemsHaveTheirKind) {
    EXPECT_EQ(SelectItemField().ItemKind, 5);
    EXPECT_EQ(SelectItemSubQuery().ItemKind, 6);
    EXPECT_EQ(SelectItemUnion().ItemKind, 8);
    EXPECT_EQ(SelectItemSubQuery().Query, nullptr);
    EXPECT_EQ(SelectItemUnion().Query, nullptr);
    EXPECT_EQ(SelectItemSubQuery().FuncName, u"");
    EXPECT_EQ(SelectItemUnion().FuncName, u"");
}

TEST(SelectItem, KindsHaveTheirNumbers) {
    EXPECT_EQ(SelectItem::kPlain, 0);
    EXPECT_EQ(SelectItem::kConstant, 1);
    EXPECT_EQ(SelectItem::kString, 2);
    EXPECT_EQ(SelectItem::kDate, 3);
    EXPECT_EQ(SelectItem::kOperator, 4);
    EXPECT_EQ(SelectItem::kField, 5);
    EXPECT_EQ(SelectItem::kSubQuery, 6);
    EXPECT_EQ(SelectItem::kUserFunction, 7);
    EXPECT_EQ(SelectItem::kUnion, 8);
    EXPECT_EQ(SelectItem::kTextOperand, 9);
    EXPECT_EQ(SelectItem::kAliasReference, 10);
}

void Fill(SelectItem& item) {
    item.IsNested = 1;
    item.FuncName = u"Sum";
    item.TokenType = 77;
    item.Text = u"text";
    item.ItemKind = 4;
    item.IsOperator = 1;
    item.SetQuoteOpen(u"[");
    item.SetQuoteClose(u"]");
    item.HasCalculatedField = 1;
}

void ExpectFilled(const SelectItem& item) {
    EXPECT_EQ(item.IsNested, 1);
    EXPECT_EQ(item.FuncName, u"Sum");
    EXPECT_EQ(item.TokenType, 77);
    EXPECT_EQ(item.Text, u"text");
    EXPECT_EQ(item.IsOperator, 1);
    EXPECT_EQ(item.QuoteOpen, u"[");
    EXPECT_EQ(item.QuoteClose, u"]");
    EXPECT_EQ(item.HasCalculatedField, 1);
}

TEST(SelectItem, AnItemsCloneIsWhole) {
    SelectItem item;
    Fill(item);
    item.Children.AddTail(Item(u"a", {Item(u"a1"), Item(u"a2")}));
    item.Children.AddTail(Item(u"b"));
    const auto clone = CloneOf(item);
    ExpectFilled(*clone);
    EXPECT_EQ(clone->ItemKind, 4);
    EXPECT_EQ(clone->JoinChildren(), u"a,b");
    EXPECT_EQ(clone->Children.GetHead()->JoinChildren(), u"a1,a2");
    EXPECT_NE(clone->Children.GetHead(), item.Children.GetHead());
    EXPECT_EQ(item.JoinChildren(), u"a,b");
}

TEST(SelectItem, NullChildrenAreLeftOutOfAClone) {
    SelectItem item;
    item.Children.AddTail(nullptr);
    item.Children.AddTail(Item(u"a"));
    item.Children.AddTail(nullptr);
    const auto clone = CloneOf(item);
    EXPECT_EQ(clone->Children.GetCount(), 1);
    EXPECT_EQ(clone->JoinChildren(), u"a");
}

TEST(SelectItem, ClonesKeepTheClassesOfChildren) {
    SelectItem item;
    item.Children.AddTail(new SelectItemField);
    item.Children.AddTail(new SelectItemSubQuery);
    item.Children.AddTail(new SelectItemUnion);
    item.Children.AddTail(new SelectItem);
    const auto clone = CloneOf(item);
    POSITION position = clone->Children.GetHeadPosition();
    EXPECT_NE(dynamic_cast<SelectItemField*>(clone->Children.GetNext(position)), nullptr);
    EXPECT_NE(dynamic_cast<SelectItemSubQuery*>(clone->Children.GetNext(position)), nullptr);
    EXPECT_NE(dynamic_cast<SelectItemUnion*>(clone->Children.GetNext(position)), nullptr);
    const SelectItem* plain = clone->Children.GetNext(position);
    EXPECT_EQ(typeid(*plain), typeid(SelectItem));
}

// A host's item whose copy constructor looks at what the copy owns, and whose Clone makes one more copy on the way.
class Counting final : public SelectItem {
 public:
    Counting() = default;
    Counting(const Counting& other) : SelectItem(other), childrenWhenCopied(Children.GetCount()) {
        if (childrenWhenCopied != 0) grandchildrenWhenCopied = Children.GetHead()->Children.GetCount();
    }
    Counting* Clone() const override {
        const Counting passing(*this);
        return new Counting(passing);
    }

    int childrenWhenCopied = -1;
    int grandchildrenWhenCopied = -1;
};

TEST(SelectItem, ItemsOfHostsAreWholeWhenTheyAreCopied) {
    SelectItem root;
    root.Children.AddTail(new SelectItem);
    auto* counting = new Counting;
    root.Children.GetHead()->Children.AddTail(counting);
    counting->Children.AddTail(Item(u"a", {Item(u"b"), Item(u"c", {Item(u"d")})}));
    const auto clone = CloneOf(root);
    const auto* copy = dynamic_cast<Counting*>(clone->Children.GetHead()->Children.GetHead());
    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(copy->childrenWhenCopied, 1);
    EXPECT_EQ(copy->grandchildrenWhenCopied, 2);
    EXPECT_EQ(copy->Children.GetHead()->Children.GetTail()->JoinChildren(), u"d");
}

struct KindRow {
    int original;
    int copy;
};

class FieldKind : public testing::TestWithParam<KindRow> {};

TEST_P(FieldKind, SurvivesACloneOnlyAsAnAliasReference) {
    SelectItemField field;
    field.ItemKind = GetParam().original;
    EXPECT_EQ(CloneOf(field)->ItemKind, GetParam().copy);
}

INSTANTIATE_TEST_SUITE_P(Kinds, FieldKind,
                         testing::Values(KindRow{10, 10}, KindRow{5, 5}, KindRow{0, 5}, KindRow{4, 5}, KindRow{9, 5},
                                         KindRow{11, 5}));

TEST(SelectItemField, KeepsItsNamesAsGivenAndCopiesThem) {
    SelectItemField field;
    EXPECT_EQ(field.GetTableName() + field.GetFieldName() + field.GetResolvedTable() + field.GetResolvedField(), u"");
    EXPECT_EQ(field.GetTableAlias() + field.GetFieldAlias() + field.GetOutputName() + field.GetSchemaName(), u"");
    Fill(field);
    field.SetTableName(u" 1 ");
    field.SetFieldName(u" 2 ");
    field.SetResolvedTable(u" 3 ");
    field.SetResolvedField(u" 4 ");
    field.SetTableAlias(u" 5 ");
    field.SetFieldAlias(u" 6 ");
    field.SetOutputName(u" 7 ");
    field.SetSchemaName(u" 8 ");
    field.Children.AddTail(Item(u"a"));
    const auto clone = CloneOf(field);
    ExpectFilled(*clone);
    EXPECT_EQ(clone->GetTableName(), u" 1 ");
    EXPECT_EQ(clone->GetFieldName(), u" 2 ");
    EXPECT_EQ(clone->GetResolvedTable(), u" 3 ");
    EXPECT_EQ(clone->GetResolvedField(), u" 4 ");
    EXPECT_EQ(clone->GetTableAlias(), u" 5 ");
    EXPECT_EQ(clone->GetFieldAlias(), u" 6 ");
    EXPECT_EQ(clone->GetOutputName(), u" 7 ");
    EXPECT_EQ(clone->GetSchemaName(), u" 8 ");
    EXPECT_EQ(clone->JoinChildren(), u"a");
}

template <class T>
class QueryHolder : public testing::Test {};

using QueryHolders = testing::Types<SelectItemSubQuery, SelectItemUnion>;
TYPED_TEST_SUITE(QueryHolder, QueryHolders, );

TYPED_TEST(QueryHolder, ClonesItsQuery) {
    TypeParam item;
    item.Children.AddTail(Item(u"a"));
    EXPECT_EQ(CloneOf(item)->Query, nullptr);
    item.Query = new CQZQueryInfo;
    item.Query->SetSQL(u"SELECT 1");
    item.Query->m_listSelect.AddTail(Item(u"b"));
    const auto clone = CloneOf(item);
    ASSERT_NE(clone->Query, nullptr);
    EXPECT_NE(clone->Query, item.Query);
    EXPECT_EQ(clone->ItemKind, item.ItemKind);
    EXPECT_EQ(clone->JoinChildren(), u"a");
    EXPECT_EQ(clone->Query->GetSQL(), u"SELECT 1");
    EXPECT_EQ(clone->Query->GetGUID(), item.Query->GetGUID());
    EXPECT_EQ(clone->Query->m_listSelect.GetHead()->Text, u"b");
}

class HostQuery final : public sample::Logged<CQZQueryInfo> {
 public:
    using Logged::Logged;
    HostQuery* Clone(int bSelectedOnly) const override {
        EXPECT_EQ(bSelectedOnly, 0);
        return new HostQuery(*this);
    }
};

TYPED_TEST(QueryHolder, ClonesAndDeletesItsQueryByTheQuerysClass) {
    Log log;
    {
        TypeParam item;
        item.Query = new HostQuery(log, "query");
        const auto clone = CloneOf(item);
        EXPECT_NE(dynamic_cast<HostQuery*>(clone->Query), nullptr);
    }
    EXPECT_EQ(log, Log({"query", "query"}));
}

TYPED_TEST(QueryHolder, DeletesItsQueryBeforeItsChildren) {
    Log log;
    {
        TypeParam item;
        item.Query = new HostQuery(log, "query");
        item.Query->m_listSelect.AddTail(Item(log, "selected"));
        item.Children.AddTail(Item(log, "child"));
    }
    EXPECT_EQ(log, Log({"query", "selected", "child"}));
}

// Children of a child go before it, deeper ones behind their parent.
TEST(SelectItem, DeletesItsChildrenInOrder) {
    Log log;
    {
        SelectItem root;
        root.Children.AddTail(Item(log, "a", {Item(log, "a1", {Item(log, "a1x"), Item(log, "a1y")}), Item(log, "a2")}));
        root.Children.AddTail(nullptr);
        root.Children.AddTail(Item(log, "b", {Item(log, "b1")}));
    }
    EXPECT_EQ(log, Log({"a1", "a1x", "a1y", "a2", "a", "b1", "b"}));
}

TEST(SelectItem, ClearingLeavesNoChildren) {
    Log log;
    SelectItem root;
    root.ClearChildren();
    root.Children.AddTail(Item(log, "a", {Item(log, "a1")}));
    root.ClearChildren();
    EXPECT_TRUE(root.Children.IsEmpty());
    EXPECT_EQ(log, Log({"a1", "a"}));
    root.Children.AddTail(Item(u"b"));
    EXPECT_EQ(root.JoinChildren(), u"b");
}

// A deletion within a deletion: the item that a host's destructor deletes goes with all that it owns.
class Owning final : public SelectItem {
 public:
    explicit Owning(SelectItem* item) : m_pItem(item) {}
    ~Owning() override { delete m_pItem; }

 private:
    SelectItem* m_pItem;
};

TEST(SelectItem, ItemsOfHostsDeleteWhatTheyOwn) {
    Log log;
    {
        SelectItem root;
        root.Children.AddTail(new Owning(Item(log, "owned", {Item(log, "child", {Item(log, "grandchild")})})));
        root.Children.AddTail(Item(log, "sibling"));
    }
    EXPECT_EQ(log, Log({"owned", "grandchild", "child", "sibling"}));
}

}  // namespace
