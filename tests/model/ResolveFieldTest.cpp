// The names in the target that the fields of a query get.
#include <gtest/gtest.h>

#include <string>
#include <vector>

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

class ResolveField : public sample::Models {
 protected:
    ResolveField() { Read(query, table); }

    // Whether the children of an item are resolved with it.
    bool ReachesChildren(SelectItemField& item) {
        const SelectItemField& child = Put(item.Children, Field(u"t", u"a"));
        query.ResolveField(item);
        return Resolved(child) == u"T.A";
    }

    // A query that selects a field a, as a source of the query.
    concrete::Query& Inner() {
        concrete::Query& inner = Stored(u"q", {&table}, {Field(u"t", u"a")});
        Read(query, inner);
        return inner;
    }
};

// --------------------------------------------------------------------------------------------------- table and star

TEST_F(ResolveField, TableAndStarIsTheTableInTheTarget) {
    SelectItemField& item = Selected(u"T", u"*");
    query.ResolveAllItems();
    EXPECT_EQ(Resolved(item), u"T.");
    EXPECT_EQ(item.Text, u"*");
    EXPECT_EQ(item.GetSchemaName(), u"");
}

TEST_F(ResolveField, TableAndStarIsTheQueryInTheTarget) {
    Inner();
    SelectItemField& item = Selected(u"q", u"*");
    query.ResolveAllItems();
    EXPECT_EQ(Resolved(item), u"q_target.");
    EXPECT_EQ(item.Text, u"*");
}

TEST_F(ResolveField, TableAndStarMayBeOfNoSource) {
    SelectItemField& item = Selected(u"nowhere", u"*");
    EXPECT_FALSE(ReachesChildren(item));
    EXPECT_EQ(Resolved(item), u".");
    EXPECT_EQ(item.Text, u"*");
    EXPECT_EQ(StoredCorrect(), 0);
}

// -------------------------------------------------------------------------------------------------- table and field

TEST_F(ResolveField, TableAndFieldAreThoseInTheTarget) {
    SelectItemField& item = Selected(u"T", u"A");
    EXPECT_TRUE(ReachesChildren(item));
    EXPECT_EQ(Resolved(item), u"T.A");
    EXPECT_EQ(item.GetSchemaName(), u"schema");
    EXPECT_EQ(item.HasCalculatedField, 0);
    EXPECT_EQ(table.Resolved, 1);
    EXPECT_EQ(StoredCorrect(), 0);
}

TEST_F(ResolveField, NamesFollowTheCaseRule) {
    table.SetLowerCase(2);
    a.SetName(u"OrderDate");
    a.SetLowerCase(3);
    const SelectItemField& item = Selected(u"t", u"a");
    query.ResolveAllItems();
    EXPECT_EQ(Resolved(item), u"t.order_date");
}

TEST_F(ResolveField, AFieldThatTheTableLacksIsAnError) {
    table.Resolved = 1;
    SelectItemField& item = Selected(u"t", u"b");
    EXPECT_FALSE(ReachesChildren(item));
    EXPECT_EQ(Resolved(item), u".");
    EXPECT_EQ(item.GetSchemaName(), u"");
    EXPECT_EQ(StoredCorrect(), 1);
    EXPECT_EQ(table.Resolved, 0);
}

TEST_F(ResolveField, ATableThatIsUnknownIsAnErrorAndNothingElse) {
    SelectItemField& item = Selected(u"nowhere", u"a");
    EXPECT_FALSE(ReachesChildren(item));
    EXPECT_EQ(Resolved(item), u".");
    EXPECT_EQ(item.GetTableName(), u"nowhere");
    EXPECT_EQ(item.GetFieldName(), u"a");
    EXPECT_EQ(item.GetSchemaName(), u"");
    EXPECT_EQ(item.Text, u"");
    EXPECT_EQ(StoredCorrect(), 1);
}

TEST_F(ResolveField, OtherItemsAreResolvedAfterAnError) {
    Selected(u"nowhere", u"a");
    const SelectItemField& item = Selected(u"t", u"a");
    query.ResolveAllItems();
    EXPECT_EQ(Resolved(item), u"T.A");
}

TEST_F(ResolveField, AnAliasAsTheTableLeadsToAnySource) {
    AddAlias(query, u"x");
    SelectItemField& item = Selected(u"X", u"a");
    EXPECT_FALSE(ReachesChildren(item));
    EXPECT_EQ(Resolved(item), u".A");
    EXPECT_EQ(item.GetSchemaName(), u"");
    EXPECT_EQ(StoredCorrect(), 0);
}

TEST_F(ResolveField, AnAliasOfAQueryMayBeTheTable) {
    AddAlias(Inner(), u"x");
    const SelectItemField& item = Selected(u"x", u"b");
    table.AddField(u"b").SetName(u"B");
    query.ResolveAllItems();
    EXPECT_EQ(Resolved(item), u".B");
}

// An alias of the source query answers for itself and stands for an expression.
TEST_F(ResolveField, AnAliasOfTheSourceIsACalculatedField) {
    concrete::Query& inner = Inner();
    AddAlias(inner, u"Total").SetName(u"Sum");
    SelectItemField& item = Selected(u"q", u"total");
    query.ResolveAllItems();
    EXPECT_EQ(Resolved(item), u"q_target.Sum");
    EXPECT_EQ(item.GetSchemaName(), u"schema");
    EXPECT_EQ(item.HasCalculatedField, 1);
    EXPECT_EQ(inner.Resolved, 1);
}

TEST_F(ResolveField, ATableComesBeforeAQueryOfTheName) {
    Stored(u"t", {}, {Field(u"", u"b")});
    const SelectItemField& item = Selected(u"t", u"a");
    query.ResolveAllItems();
    EXPECT_EQ(Resolved(item), u"T.A");
}

// ------------------------------------------------------------------------------------------------- through a query

TEST_F(ResolveField, AFieldOfAQueryIsThatOfItsSelectList) {
    const concrete::Query& inner = Inner();
    SelectItemField& item = Selected(u"Q", u"a");
    EXPECT_FALSE(ReachesChildren(item));
    EXPECT_EQ(Resolved(item), u"q.A") << "the query by its source name, the field as it was resolved there";
    EXPECT_EQ(item.GetSchemaName(), u"schema");
    EXPECT_EQ(Resolved(*dynamic_cast<SelectItemField*>(inner.m_listSelect.GetHead())), u"T.A");
}

TEST_F(ResolveField, AnOutputNameComesBeforeTheResolvedFieldAndThatBeforeTheWritten) {
    const concrete::Query& inner = Inner();
    auto& selected = dynamic_cast<SelectItemField&>(*inner.m_listSelect.GetHead());
    SelectItemField& item = Selected(u"q", u"a");
    query.ResolveAllItems();
    EXPECT_EQ(Resolved(item), u"q.A");
    selected.SetOutputName(u"Output");
    query.ResolveAllItems();
    EXPECT_EQ(Resolved(item), u"q.Output");
    selected.SetOutputName(u"");
    selected.SetResolvedField(u"");
    selected.SetTableName(u"nowhere");
    query.ResolveAllItems();
    EXPECT_EQ(Resolved(item), u"q.a");
}

TEST_F(ResolveField, AQueryAmongTheSourcesAnswersForAnyTableThatLacksTheField) {
    table.AddField(u"b").SetName(u"B");
    Stored(u"q", {&table}, {Field(u"t", u"b")});
    Read(query, *query.FindSourceByName(u"q"));
    concrete::Table& other = Table(u"u", u"c", u"C");
    Read(query, other);
    const SelectItemField& missing = Selected(u"u", u"b");
    const SelectItemField& present = Selected(u"t", u"b");
    const SelectItemField& unknown = Selected(u"nowhere", u"b");
    query.ResolveAllItems();
    EXPECT_EQ(Resolved(missing), u"q.B");
    EXPECT_EQ(Resolved(unknown), u"q.B");
    EXPECT_EQ(Resolved(present), u"T.B");
    EXPECT_EQ(StoredCorrect(), 0);
}

TEST_F(ResolveField, TheNamedQueryComesBeforeOthers) {
    Inner();
    concrete::Query& second = Stored(u"r", {&table}, {Field(u"t", u"a")});
    Read(query, second);
    const SelectItemField& item = Selected(u"r", u"a");
    query.ResolveAllItems();
    EXPECT_EQ(Resolved(item), u"r.A");
}

TEST_F(ResolveField, ResolveThroughSubQueryTellsWhetherItDid) {
    concrete::Query& inner = Inner();
    SelectItemField& present = Selected(u"t", u"a");
    EXPECT_EQ(query.ResolveThroughSubQuery(present, &table), 0);
    EXPECT_EQ(Resolved(present), u".");
    SelectItemField& ofQuery = Selected(u"q", u"a");
    EXPECT_EQ(query.ResolveThroughSubQuery(ofQuery, &inner), 1);
    EXPECT_EQ(Resolved(ofQuery), u"q.A");
    SelectItemField& missing = Selected(u"q", u"b");
    EXPECT_EQ(query.ResolveThroughSubQuery(missing, &inner), 0);
    SelectItemField& ofNone = Selected(u"nowhere", u"a");
    EXPECT_EQ(query.ResolveThroughSubQuery(ofNone, nullptr), 1);
}

// ------------------------------------------------------------------------------------------------------- table only

TEST_F(ResolveField, ATableAloneIsThatInTheTarget) {
    table.Resolved = 0;
    SelectItemField& item = Selected(u"T", u"");
    EXPECT_TRUE(ReachesChildren(item));
    EXPECT_EQ(Resolved(item), u"T.");
    EXPECT_EQ(item.GetSchemaName(), u"schema");
    EXPECT_EQ(table.Resolved, 1);
}

TEST_F(ResolveField, ATableAloneThatIsUnknownIsAnError) {
    SelectItemField& item = Selected(u"nowhere", u"");
    EXPECT_FALSE(ReachesChildren(item));
    EXPECT_EQ(Resolved(item), u".");
    EXPECT_EQ(StoredCorrect(), 1);
}

// ------------------------------------------------------------------------------------------------------- field only

TEST_F(ResolveField, AFieldAloneTakesTheNameInTheTarget) {
    SelectItemField& item = Selected(u"", u"a");
    EXPECT_TRUE(ReachesChildren(item));
    EXPECT_EQ(Resolved(item), u".A");
    EXPECT_EQ(item.GetFieldName(), u"A");
    EXPECT_EQ(item.GetSchemaName(), u"");
}

TEST_F(ResolveField, AFieldAloneOfATableAliasKeepsBothNames) {
    SelectItemField& item = Selected(u"", u"a");
    item.SetTableAlias(u"x");
    EXPECT_TRUE(ReachesChildren(item));
    EXPECT_EQ(Resolved(item), u"x.a");
    EXPECT_EQ(item.GetFieldName(), u"a");
}

TEST_F(ResolveField, AFieldAloneThatIsNotFoundKeepsItsName) {
    SelectItemField& item = Selected(u"", u"b");
    EXPECT_TRUE(ReachesChildren(item));
    EXPECT_EQ(Resolved(item), u".b");
    SelectItemField& ofAlias = Selected(u"", u"b");
    ofAlias.SetTableAlias(u"x");
    query.ResolveAllItems();
    EXPECT_EQ(Resolved(ofAlias), u"x.b");
    EXPECT_EQ(StoredCorrect(), 0);
}

TEST_F(ResolveField, AFieldAloneIsThatOfTheFirstSource) {
    Read(query, Table(u"u", u"a", u"Second"));
    const SelectItemField& item = Selected(u"", u"a");
    query.ResolveAllItems();
    EXPECT_EQ(Resolved(item), u".A");

    CQZQueryInfo other;
    other.SetDatabase(&database);
    Read(other, *query.FindSourceByName(u"u"));
    Read(other, table);
    const SelectItemField& reversed = Put(other.m_listSelect, Field(u"", u"a"));
    other.ResolveAllItems();
    EXPECT_EQ(Resolved(reversed), u".Second");
}

TEST_F(ResolveField, AFieldAloneOfAQueryIsNamedWithTheQuery) {
    const concrete::Query& inner = Inner();
    SelectItemField& item = Selected(u"", u"A");
    EXPECT_FALSE(ReachesChildren(item));
    EXPECT_EQ(Resolved(item), u"q.a") << "the query by its source name, the field as written there";
    EXPECT_EQ(item.GetFieldName(), u"A");
    EXPECT_EQ(item.GetSchemaName(), u"");
    dynamic_cast<SelectItemField*>(inner.m_listSelect.GetHead())->SetOutputName(u"Output");
    query.ResolveAllItems();
    EXPECT_EQ(Resolved(item), u"q.Output");
}

TEST_F(ResolveField, AFieldAloneIsThatOfTheFirstQueryThatHasIt) {
    Read(query, Stored(u"none", {&table}, {Field(u"t", u"b")}));
    Read(query, Stored(u"one", {&table}, {Field(u"t", u"a")}));
    Inner();
    const SelectItemField& item = Selected(u"", u"a");
    query.ResolveAllItems();
    EXPECT_EQ(Resolved(item), u"one.a");
}

class OfKind final : public CQZQueryInfo {
 public:
    explicit OfKind(int kind) : m_nKind(kind) {}
    int GetDBType() const override { return m_nKind; }

 private:
    int m_nKind;
};

TEST_F(ResolveField, AFieldAloneIsNotLookedForInQueriesOfTwoKindsOfDatabase) {
    const concrete::Query& inner = Inner();
    for (const int kind : {0, 1, 2, 8, 9, 16}) {
        OfKind reader(kind);
        reader.SetDatabase(&database);
        Read(reader, inner);
        const SelectItemField& item = Put(reader.m_listSelect, Field(u"", u"a"));
        reader.ResolveAllItems();
        EXPECT_EQ(Resolved(item), kind == 8 || kind == 9 ? u".A" : u"q.a") << kind;
    }
}

TEST_F(ResolveField, AStarAloneIsNotLookedForInQueries) {
    Read(query, Stored(u"q", {&table}, {Field(u"", u"*")}));
    const SelectItemField& item = Selected(u"", u"*");
    query.ResolveAllItems();
    EXPECT_EQ(Resolved(item), u".*");
}

// An alias of a query hides what it stands for and is found itself.
TEST_F(ResolveField, AliasesHideFields) {
    concrete::Query& inner = Stored(u"q", {&table}, {Operator(u"AS", {Field(u"t", u"a"), Item(u"x")})});
    AddAlias(inner, u"x").SetName(u"X");
    CQZQueryInfo reader;
    reader.SetDatabase(&database);
    Read(reader, inner);
    const SelectItemField& hidden = Put(reader.m_listSelect, Field(u"", u"a"));
    const SelectItemField& alias = Put(reader.m_listSelect, Field(u"", u"x"));
    const SelectItemField& qualified = Put(reader.m_listSelect, Field(u"q", u"x"));
    reader.ResolveAllItems();
    EXPECT_EQ(Resolved(hidden), u".A") << "through the sources of the query";
    EXPECT_EQ(Resolved(alias), u".X");
    EXPECT_EQ(Resolved(qualified), u"q_target.X");
    EXPECT_EQ(qualified.HasCalculatedField, 1);
    EXPECT_EQ(alias.HasCalculatedField, 0);
}

// ------------------------------------------------------------------------------------------------- aliases, others

TEST_F(ResolveField, WhatAnAliasStandsForIsResolved) {
    SelectItemField* meaning = Field(u"t", u"a");
    SelectItemField& item = Put(query.m_listSelect, AliasReference(u"x", meaning));
    query.ResolveAllItems();
    EXPECT_EQ(Resolved(*meaning), u"T.A");
    EXPECT_EQ(Resolved(item), u".");
}

TEST_F(ResolveField, AFieldWithTheAliasesNameReplacesItWhereATableAliasIsNamed) {
    SelectItemField& item = Put(query.m_listSelect, AliasReference(u"A", Field(u"t", u"a")));
    query.ResolveAllItems();
    EXPECT_EQ(item.Children.GetCount(), 1) << "no table alias";
    item.SetTableAlias(u"y");
    item.SetFieldAlias(u"b");
    query.ResolveAllItems();
    EXPECT_EQ(item.Children.GetCount(), 1) << "no such field";
    item.SetFieldAlias(u"A");
    query.ResolveAllItems();
    EXPECT_EQ(item.Children.GetCount(), 0);
    EXPECT_EQ(Resolved(item), u".");
    EXPECT_EQ(item.ItemKind, SelectItem::kAliasReference);
}

TEST_F(ResolveField, AllChildrenOfAReplacedAliasGo) {
    SelectItemField& item = Put(query.m_listSelect, AliasReference(u"a", Field(u"t", u"a")));
    item.Children.AddTail(Field(u"t", u"a"));
    item.SetTableAlias(u"y");
    query.ResolveField(item);
    EXPECT_TRUE(item.Children.IsEmpty());
}

TEST_F(ResolveField, OfOtherItemsTheChildrenAreResolved) {
    SelectItemField* inner = Field(u"t", u"a");
    SelectItemField* deeper = Field(u"", u"a");
    Put(query.m_listSelect, Item(u"", {Operator(u"+", {inner, Item(u"1", {deeper})})}));
    SelectItemField& nameless = Selected(u"", u"");
    query.ResolveAllItems();
    EXPECT_EQ(Resolved(*inner), u"T.A");
    EXPECT_EQ(Resolved(*deeper), u".A");
    EXPECT_TRUE(ReachesChildren(nameless));
    EXPECT_EQ(Resolved(nameless), u".");
}

TEST_F(ResolveField, AnItemOfAFieldsKindMayBeNone) {
    SelectItemField* inner = Field(u"t", u"a");
    SelectItem& item = Put(query.m_listSelect, Item(u"", {inner}));
    item.ItemKind = SelectItem::kField;
    query.ResolveAllItems();
    EXPECT_EQ(Resolved(*inner), u"T.A");
}

TEST_F(ResolveField, QueriesOfItemsStayAsTheyAre) {
    auto* subQuery = new SelectItemSubQuery;
    auto* member = new SelectItemUnion;
    Put(query.m_listSelect, subQuery).Query = new CQZQueryInfo(query);
    Put(query.m_listUnion, member).Query = new CQZQueryInfo(query);
    std::vector<SelectItemField*> inside;
    for (CQZQueryInfo* nested : {subQuery->Query, member->Query})
        inside.push_back(&Put(nested->m_listSelect, Field(u"t", u"a")));
    query.ResolveAllItems();
    for (const SelectItemField* item : inside) EXPECT_EQ(Resolved(*item), u".");
}

// --------------------------------------------------------------------------------------------------- all the clauses

// Notes its name when it is asked for it.
class Noted : public concrete::Table {
 public:
    CString GetName() const override {
        names += GetSrcName() + u" ";
        return GetSrcName();
    }

    static inline CString names;
};

TEST_F(ResolveField, TheClausesComeInTheirOrder) {
    const auto noted = [this](const CString& name) {
        database.AddTable<Noted>(name);
        return Field(name, u"");
    };
    delete query.m_listFrom.RemoveHead();
    query.m_listUnion.AddTail(noted(u"union"));
    query.m_listHaving.AddTail(noted(u"having"));
    query.m_listGroupBy.AddTail(noted(u"group"));
    query.m_pWhere = Item(u"", {Operator(u"AND", {noted(u"where1"), noted(u"where2")}), noted(u"where3")});
    query.m_listOrderBy.AddTail(noted(u"order"));
    query.m_listFrom.AddTail(noted(u"from"));
    query.m_listSelect.AddTail(noted(u"select1"));
    query.m_listSelect.AddTail(noted(u"select2"));
    Noted::names.Empty();
    query.ResolveAllItems();
    EXPECT_EQ(Noted::names, u"select1 select2 from order where1 where2 where3 group having union ");
}

TEST_F(ResolveField, AResolutionTakesBackTheMarkOfTheQuery) {
    CQZQueryInfo empty;
    empty.Resolved = 1;
    empty.ResolveAllItems();
    EXPECT_EQ(empty.Resolved, 1) << "no list has an item";
    empty.ResolveItems(empty.m_listSelect);
    EXPECT_EQ(empty.Resolved, 0);
    Selected(u"", u"b");
    query.Resolved = 1;
    query.ResolveAllItems();
    EXPECT_EQ(query.Resolved, 0);
}

// An alias of a source marks the query that asked; the children of the next item take the mark back.
TEST_F(ResolveField, AnItemsChildrenTakeBackTheMarkToo) {
    AddAlias(Inner(), u"x");
    Selected(u"", u"x");
    query.ResolveItems(query.m_listSelect);
    EXPECT_EQ(query.Resolved, 1);
    Put(query.m_listSelect, Item(u""));
    query.ResolveItems(query.m_listSelect);
    EXPECT_EQ(query.Resolved, 1);
    Put(query.m_listSelect, Item(u"", {Item(u"1")}));
    query.ResolveItems(query.m_listSelect);
    EXPECT_EQ(query.Resolved, 0);
}

TEST_F(ResolveField, WorksWithoutADatabase) {
    CQZQueryInfo alone;
    alone.m_mapSources.SetAt(u"t", u"t");
    Put(alone.m_listFrom, Field(u"t", u""));
    const SelectItemField& qualified = Put(alone.m_listSelect, Field(u"t", u"a"));
    const SelectItemField& plain = Put(alone.m_listSelect, Field(u"", u"a"));
    alone.ResolveAllItems();
    EXPECT_EQ(Resolved(qualified), u".");
    EXPECT_EQ(Resolved(plain), u".a");
    EXPECT_EQ(alone.CQZObjectInfo::GetCorrect(), 1);
}

TEST_F(ResolveField, IsFieldOfSourcesTellsWhetherSomeSourceHasIt) {
    EXPECT_EQ(query.IsFieldOfSources(u"A"), 1);
    EXPECT_EQ(query.IsFieldOfSources(u"b"), 0);
    AddAlias(Inner(), u"x");
    EXPECT_EQ(query.IsFieldOfSources(u"x"), 1);
}

// ------------------------------------------------------------------------------------------ queries on queries

TEST_F(ResolveField, QueriesThreeDeepLeadToTheTable) {
    concrete::Query& q1 = Stored(u"q1", {&table}, {Field(u"t", u"a")});
    concrete::Query& q2 = Stored(u"q2", {&q1}, {Field(u"q1", u"a")});
    concrete::Query& q3 = Stored(u"q3", {&q2}, {Field(u"q2", u"a")});
    CQZQueryInfo top;
    top.SetDatabase(&database);
    Read(top, q3);
    const SelectItemField& qualified = Put(top.m_listSelect, Field(u"q3", u"a"));
    const SelectItemField& plain = Put(top.m_listSelect, Field(u"", u"a"));
    const SelectItemField& missing = Put(top.m_listSelect, Field(u"", u"b"));
    top.ResolveAllItems();
    EXPECT_EQ(Resolved(qualified), u"q3.A");
    EXPECT_EQ(Resolved(plain), u"q3.a");
    EXPECT_EQ(Resolved(missing), u".b");
    const auto only = [](const CQZQueryInfo& stored) {
        return Resolved(*dynamic_cast<SelectItemField*>(stored.m_listSelect.GetHead()));
    };
    EXPECT_EQ(only(q3), u"q2.A");
    EXPECT_EQ(only(q2), u"q1.A");
    EXPECT_EQ(only(q1), u"T.A");
}

TEST_F(ResolveField, StarsOfQueriesThreeDeepLeadToTheItem) {
    concrete::Query& q1 = Stored(u"q1", {&table}, {Field(u"t", u"a")});
    concrete::Query& q2 = Stored(u"q2", {&q1}, {Field(u"q1", u"*")});
    concrete::Query& q3 = Stored(u"q3", {&q2}, {Field(u"", u"*")});
    CQZQueryInfo top;
    top.SetDatabase(&database);
    Read(top, q3);
    const SelectItemField& qualified = Put(top.m_listSelect, Field(u"q3", u"a"));
    const SelectItemField& plain = Put(top.m_listSelect, Field(u"", u"a"));
    top.ResolveAllItems();
    EXPECT_EQ(Resolved(qualified), u"q3.A") << "the item of q1 is resolved on q1";
    EXPECT_EQ(Resolved(plain), u"q3.a");
}

// A stored star over a table names no field; the sources lead to the table's.
TEST_F(ResolveField, AStoredStarOverATableLeadsThroughTheSources) {
    concrete::Query& stored = Stored(u"q", {&table}, {Field(u"t", u"*")});
    CQZQueryInfo top;
    top.SetDatabase(&database);
    Read(top, stored);
    const SelectItemField& plain = Put(top.m_listSelect, Field(u"", u"a"));
    const SelectItemField& qualified = Put(top.m_listSelect, Field(u"q", u"a"));
    AddRecord(stored, u"t", u"*");
    top.ResolveAllItems();
    EXPECT_EQ(Resolved(plain), u".A");
    EXPECT_EQ(Resolved(qualified), u"q_target.A");
}

TEST_F(ResolveField, TheSearchedItemIsResolvedOnItsOwnQuery) {
    concrete::Table& hidden = Table(u"u", u"a", u"Hidden");
    concrete::Query& stored = Stored(u"q", {&hidden}, {Field(u"", u"a")});
    Read(query, stored);
    const SelectItemField& item = Selected(u"q", u"a");
    query.ResolveAllItems();
    EXPECT_EQ(Resolved(item), u"q.Hidden") << "not by the sources of the query that asks, whose a is A";
}

}  // namespace
