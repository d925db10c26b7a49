#include <gtest/gtest.h>

#include <type_traits>

#include "QZParserSQL/model/CQZAliasInfo.h"
#include "QZParserSQL/model/CQZQueryInfo.h"
#include "QZParserSQL/model/SelectItemSubQuery.h"
#include "tests/model/Samples.h"

namespace {

using sample::Item;
using sample::Log;

static_assert(std::is_base_of_v<CQZSourceFildInfo, CQZAliasInfo>);
static_assert(std::is_base_of_v<CQZObjectInfo, CQZSourceFildInfo>);
static_assert(std::is_abstract_v<CQZSourceFildInfo>);

TEST(CQZAliasInfo, StandsForAnExpression) {
    CQZAliasInfo alias;
    EXPECT_EQ(alias.Calculated, 1);
    EXPECT_EQ(alias.GetAliasTable(), u"");
    EXPECT_EQ(alias.GetAliasField(), u"");
    EXPECT_EQ(alias.Reserved, u"");
    EXPECT_EQ(alias.Expression.Peek(), nullptr);
    EXPECT_TRUE(alias.IsVirtualObject(0));
    EXPECT_TRUE(alias.IsVirtualObject(1));
    EXPECT_FALSE(alias.IsRealObject(0));
    EXPECT_FALSE(alias.IsRealObject(1));
    EXPECT_EQ(alias.CheckAlias(u"any text"), 0);
}

TEST(CQZAliasInfo, KeepsTheNamesOfWhatItStandsFor) {
    CQZAliasInfo alias;
    alias.SetAliasTable(u" T ");
    alias.SetAliasField(u" F ");
    EXPECT_EQ(alias.GetAliasTable(), u" T ");
    EXPECT_EQ(alias.GetAliasField(), u" F ");
}

TEST(CQZAliasInfo, ACloneHasAnExpressionOfItsOwn) {
    CQZAliasInfo alias;
    alias.SetName(u"Total");
    alias.SetSrcName(u"Total");
    alias.SetAliasTable(u"Orders");
    alias.SetAliasField(u"Price");
    alias.Reserved = u"not copied";
    alias.Expression = Item(u"root", {Item(u"a"), Item(u"b")});
    const std::unique_ptr<CQZAliasInfo> clone(alias.Clone(0));
    EXPECT_EQ(clone->GetGUID(), alias.GetGUID());
    EXPECT_EQ(clone->GetName(), u"Total");
    EXPECT_EQ(clone->GetSrcName(), u"Total");
    EXPECT_EQ(clone->GetAliasTable(), u"Orders");
    EXPECT_EQ(clone->GetAliasField(), u"Price");
    EXPECT_EQ(clone->Calculated, 1);
    EXPECT_EQ(clone->Reserved, u"");
    ASSERT_NE(clone->Expression.Get(), nullptr);
    EXPECT_NE(clone->Expression.Get(), alias.Expression.Get());
    EXPECT_EQ(clone->Expression->Text, u"root");
    EXPECT_EQ(clone->Expression->JoinChildren(), u"a,b");
}

TEST(CQZAliasInfo, AnExpressionIsCopiedWhenSomebodyTakesHoldOfIt) {
    CQZAliasInfo alias;
    alias.Expression = Item(u"root", {Item(u"a")});
    const std::unique_ptr<CQZAliasInfo> clone(alias.Clone(0));
    const SelectItem* shared = alias.Expression.Peek();
    EXPECT_EQ(clone->Expression.Peek(), shared);
    EXPECT_TRUE(clone->Expression.IsSharedWith(alias.Expression));
    clone->Expression->Text = u"changed";
    EXPECT_FALSE(clone->Expression.IsSharedWith(alias.Expression));
    EXPECT_EQ(clone->Expression.Peek()->Text, u"changed");
    EXPECT_EQ(alias.Expression.Get(), shared);
    EXPECT_EQ(shared->Text, u"root");
}

// A copied query has no query kind; the original keeps its own whoever takes hold of the expression.
TEST(CQZAliasInfo, OnlyCopiesLoseTheQueryKindOfNestedQueries) {
    CQZAliasInfo alias;
    auto subQuery = std::make_unique<SelectItemSubQuery>();
    subQuery->Query = new CQZQueryInfo;
    subQuery->Query->SetQueryKind(2);
    SelectItem* root = Item(u"root");
    root->Children.AddTail(subQuery.release());
    alias.Expression = root;
    const std::unique_ptr<CQZAliasInfo> clone(alias.Clone(0));
    EXPECT_FALSE(alias.Expression.IsCopy());
    EXPECT_TRUE(clone->Expression.IsCopy());
    const auto kindIn = [](SelectItem* expression) {
        return dynamic_cast<SelectItemSubQuery&>(*expression->Children.GetHead()).Query->GetQueryKind();
    };
    EXPECT_EQ(kindIn(alias.Expression.Get()), 2);
    EXPECT_EQ(kindIn(clone->Expression.Get()), 0);
    EXPECT_FALSE(clone->Expression.IsCopy());
}

TEST(CQZAliasInfo, AliasesWithoutAnExpressionShareNone) {
    CQZAliasInfo alias;
    const std::unique_ptr<CQZAliasInfo> clone(alias.Clone(0));
    EXPECT_FALSE(clone->Expression.IsSharedWith(alias.Expression));
}

TEST(CQZAliasInfo, ACloneKeepsWhatCalculatedWasSetTo) {
    CQZAliasInfo alias;
    alias.Calculated = 0;
    const std::unique_ptr<CQZAliasInfo> clone(alias.Clone(0));
    EXPECT_EQ(clone->Calculated, 0);
    EXPECT_EQ(clone->Expression.Get(), nullptr);
}

TEST(CQZAliasInfo, ClonesItsExpressionByTheExpressionsClass) {
    Log log;
    {
        CQZAliasInfo alias;
        alias.Expression = Item(log, "expression");
        const std::unique_ptr<CQZAliasInfo> clone(alias.Clone(0));
        EXPECT_NE(dynamic_cast<sample::LoggedItem*>(clone->Expression.Get()), nullptr);
    }
    EXPECT_EQ(log, Log({"expression", "expression"}));
}

TEST(CQZAliasInfo, DeletesItsExpression) {
    Log log;
    {
        CQZAliasInfo alias;
        alias.Expression = Item(log, "root", {Item(log, "child")});
    }
    EXPECT_EQ(log, Log({"root", "child"}));
}

}  // namespace
