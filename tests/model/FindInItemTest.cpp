// Which item of a query a field means.
#include <gtest/gtest.h>

#include <memory>

#include "tests/model/Models.h"

namespace {

using sample::AddAlias;
using sample::AliasReference;
using sample::Field;
using sample::Item;
using sample::Operator;
using sample::Put;
using sample::Read;
using sample::Resolved;

class FindInItem : public sample::Models {
 protected:
    // What a search in one item gives.
    CString Find(SelectItem* item, const CString& tableName, const CString& field, int byField, int noGuard = 0) {
        items.ClearChildren();
        items.Children.AddTail(item);
        return FindInList(items.Children, tableName, field, byField, noGuard);
    }

    CString FindInList(const CList<SelectItem*>& list, const CString& tableName, const CString& field, int byField,
                       int noGuard = 0) {
        const std::unique_ptr<SelectItemField> target(Field(tableName, field));
        found = nullptr;
        return query.FindInItemList(list, *target, found, byField, noGuard);
    }

    SelectItem items;
    SelectItemField* found = nullptr;
};

TEST_F(FindInItem, ByTableComparesTablesAlone) {
    EXPECT_EQ(Find(Field(u"t", u"x"), u"T", u"a", 0), u"T");
    EXPECT_EQ(found, nullptr);
    EXPECT_EQ(Find(Field(u"u", u"a"), u"t", u"a", 0), u"");
    EXPECT_EQ(Find(Field(u"", u"a"), u"", u"a", 0), u"");
}

TEST_F(FindInItem, ByFieldComparesTablesWhereTheTargetHasNoField) {
    EXPECT_EQ(Find(Field(u"t", u"x"), u"T", u"", 1), u"T");
    EXPECT_EQ(found, nullptr);
}

TEST_F(FindInItem, ByFieldFindsTheFieldOfATargetWithoutATable) {
    SelectItemField* item = Field(u"u", u"a");
    EXPECT_EQ(Find(item, u"", u"A", 1), u"A");
    EXPECT_EQ(found, item);
    EXPECT_EQ(Find(Field(u"u", u"b"), u"", u"a", 1), u"");
    EXPECT_EQ(found, nullptr);
}

TEST_F(FindInItem, ByFieldAnswersWithTheTableWhereBothNamesAreEqual) {
    SelectItemField* item = Field(u"t", u"a");
    EXPECT_EQ(Find(item, u"T", u"A", 1), u"T");
    EXPECT_EQ(found, item);
    item = Field(u"u", u"a");
    EXPECT_EQ(Find(item, u"t", u"A", 1), u"A");
    EXPECT_EQ(found, item);
    EXPECT_EQ(Find(Field(u"t", u"b"), u"t", u"a", 1), u"");
    EXPECT_EQ(found, nullptr);
}

TEST_F(FindInItem, LooksAtFieldsOnly) {
    SelectItemField* reference = AliasReference(u"x", Item(u""));
    reference->SetFieldName(u"a");
    EXPECT_EQ(Find(reference, u"", u"a", 1), u"");
    SelectItem* plain = Item(u"a");
    plain->ItemKind = SelectItem::kField;
    EXPECT_EQ(Find(plain, u"", u"a", 1), u"");
}

TEST_F(FindInItem, ResolvesWhatItFinds) {
    Read(query, table);
    Find(Field(u"t", u"a"), u"", u"a", 1);
    EXPECT_EQ(Resolved(*found), u"T.A");
    SelectItemField* item = Field(u"t", u"a");
    EXPECT_EQ(Find(item, u"t", u"a", 0), u"t");
    EXPECT_EQ(Resolved(*item), u".") << "a table alone does not count as found";
}

TEST_F(FindInItem, OperatorsAndSubQueriesHideTheirChildren) {
    EXPECT_EQ(Find(Operator(u"AS", {Field(u"t", u"a"), Item(u"x")}), u"", u"a", 1), u"");
    EXPECT_EQ(Find(Operator(u"alias", {Field(u"t", u"a")}), u"", u"a", 1), u"");
    auto* subQuery = new SelectItemSubQuery;
    subQuery->Children.AddTail(Field(u"t", u"a"));
    EXPECT_EQ(Find(subQuery, u"", u"a", 1), u"");
}

TEST_F(FindInItem, OperatorsHideNothingFromASearchWithoutTheGuard) {
    EXPECT_EQ(Find(Operator(u"AS", {Field(u"t", u"a"), Item(u"x")}), u"", u"a", 1, 1), u"a");
    EXPECT_EQ(Find(Operator(u"INNER", {Operator(u"ALIAS", {Field(u"t", u"")})}), u"t", u"a", 0, 1), u"t");
}

TEST_F(FindInItem, AliasOperatorsAndOtherItemsShowTheirChildren) {
    EXPECT_EQ(Find(Operator(u"ALIAS", {Field(u"t", u"a")}), u"", u"a", 1), u"a");
    EXPECT_EQ(Find(Operator(u"ALIAS", {Operator(u"+", {Field(u"t", u"a")})}), u"", u"a", 1), u"");
    EXPECT_EQ(Find(Item(u"", {Item(u""), Field(u"t", u"a")}), u"", u"a", 1), u"a");
    SelectItem* function = Item(u"", {Field(u"t", u"a")});
    function->ItemKind = SelectItem::kUserFunction;
    EXPECT_EQ(Find(function, u"", u"a", 1), u"a");
}

TEST_F(FindInItem, ASingleItemIsSearchedLikeAList) {
    const std::unique_ptr<SelectItem> item(Operator(u"ALIAS", {Field(u"t", u"a")}));
    const std::unique_ptr<SelectItemField> target(Field(u"", u"a"));
    EXPECT_EQ(query.FindInItem(*item, *target, found, 1, 0), u"a");
    EXPECT_EQ(found, item->Children.GetHead());
}

TEST_F(FindInItem, TheFirstItemOfAListThatHasTheNameIsFound) {
    Selected(u"t", u"b");
    const SelectItemField& first = Selected(u"u", u"a");
    Selected(u"t", u"a");
    EXPECT_EQ(FindInList(query.m_listSelect, u"t", u"a", 1), u"a");
    EXPECT_EQ(found, &first);
}

TEST_F(FindInItem, AStarStandsForTheOutputsOfQueriesAmongTheSources) {
    concrete::Query& stored = Stored(u"q", {&table}, {Field(u"t", u"a")});
    Read(query, table);
    Read(query, stored);
    EXPECT_EQ(Find(Field(u"t", u"*"), u"t", u"A", 1), u"A") << "the name itself, whatever the table";
    EXPECT_EQ(found, stored.m_listSelect.GetHead());
    EXPECT_EQ(Resolved(*found), u"T.A") << "resolved on the query that it belongs to";
    EXPECT_EQ(Find(Field(u"q", u"*"), u"", u"b", 1), u"");
}

TEST_F(FindInItem, AStarStandsForNoFieldsOfTables) {
    Read(query, table);
    EXPECT_EQ(Find(Field(u"", u"*"), u"", u"a", 1), u"");
}

TEST_F(FindInItem, AStarItselfIsFoundByItsName) {
    SelectItemField* star = Field(u"t", u"*");
    EXPECT_EQ(Find(star, u"", u"*", 1), u"*");
    EXPECT_EQ(found, star);
}

TEST_F(FindInItem, TheFirstQueryAmongTheSourcesWinsBehindAStar) {
    concrete::Query& without = Stored(u"q1", {&table}, {Field(u"t", u"b")});
    concrete::Query& first = Stored(u"q2", {&table}, {Field(u"t", u"a")});
    concrete::Query& second = Stored(u"q3", {&table}, {Field(u"t", u"a")});
    for (const concrete::Query* stored : {&without, &first, &second}) Read(query, *stored);
    EXPECT_EQ(Find(Field(u"", u"*"), u"", u"a", 1), u"a");
    EXPECT_EQ(found, first.m_listSelect.GetHead());
}

TEST_F(FindInItem, StarsLeadDownThreeQueries) {
    concrete::Query& q1 = Stored(u"q1", {&table}, {Field(u"t", u"a")});
    concrete::Query& q2 = Stored(u"q2", {&q1}, {Field(u"", u"*")});
    concrete::Query& q3 = Stored(u"q3", {&q2}, {Field(u"q2", u"*")});
    Read(query, q3);
    EXPECT_EQ(Find(Field(u"", u"*"), u"", u"a", 1), u"a");
    EXPECT_EQ(found, q1.m_listSelect.GetHead());
}

// ------------------------------------------------------------------------------------------------- declared sources

class DeclaredSource : public sample::Models {
 protected:
    int Holds(const CString& tableName, const CString& field) {
        const std::unique_ptr<SelectItemField> item(Field(tableName, field));
        return query.IsFieldInDeclaredSource(*item);
    }
};

TEST_F(DeclaredSource, IsATableInFromThatHasTheField) {
    Read(query, table);
    EXPECT_EQ(Holds(u"T", u"A"), 1);
    EXPECT_EQ(Holds(u"t", u"b"), 0);
    EXPECT_EQ(Holds(u"u", u"a"), 0);
    EXPECT_EQ(Holds(u"", u"a"), 0);
    Table(u"u", u"a", u"A");
    EXPECT_EQ(Holds(u"u", u"a"), 0) << "it is not in FROM";
}

TEST_F(DeclaredSource, MayStandAnywhereInFrom) {
    query.m_mapSources.SetAt(u"t", table.GetGUID());
    Put(query.m_listFrom, Operator(u"JOIN", {Field(u"u", u""), Operator(u"ALIAS", {Field(u"t", u""), Item(u"x")})}));
    EXPECT_EQ(Holds(u"t", u"a"), 1);
}

TEST_F(DeclaredSource, NeedsSourcesInTheQuery) {
    Put(query.m_listFrom, Field(u"t", u""));
    EXPECT_EQ(Holds(u"t", u"a"), 0);
    query.m_mapSources.SetAt(u"anything", u"");
    EXPECT_EQ(Holds(u"t", u"a"), 1);
}

TEST_F(DeclaredSource, IsNotTheNameInTheTarget) {
    Read(query, table);
    Put(query.m_listFrom, Field(u"target", u""));
    table.SetName(u"target");
    EXPECT_EQ(Holds(u"target", u"a"), 0);
}

// Of a query the aliases count, and tables named like the query itself, but not its fields.
TEST_F(DeclaredSource, MayBeAQueryWithTheAlias) {
    concrete::Query& stored = Stored(u"q", {&table}, {Field(u"t", u"a")});
    Read(query, stored);
    EXPECT_EQ(Holds(u"q", u"a"), 0);
    AddAlias(stored, u"Total").SetName(u"another");
    EXPECT_EQ(Holds(u"q", u"total"), 1);
    EXPECT_EQ(Holds(u"q", u"another"), 0);
    Put(stored.m_listSelect, Field(u"Q", u"x"));
    EXPECT_EQ(Holds(u"q", u"a"), 1);
}

TEST_F(DeclaredSource, IsTheTableBeforeAQueryOfTheName) {
    AddAlias(Stored(u"t", {&table}, {}), u"Total");
    Read(query, table);
    EXPECT_EQ(Holds(u"t", u"Total"), 0);
    EXPECT_EQ(Holds(u"t", u"a"), 1);
}

}  // namespace
