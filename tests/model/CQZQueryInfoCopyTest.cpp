// What a copy of a query takes over and what it leaves out.
#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <typeinfo>

#include "tests/catalog/Concrete.h"
#include "tests/model/Samples.h"

namespace {

using sample::AddAlias;
using sample::AddRecord;
using sample::Item;

using QueryPointer = std::unique_ptr<CQZQueryInfo>;

QueryPointer Clone(const CQZQueryInfo& query) { return QueryPointer(query.Clone(0)); }

TEST(CQZQueryInfoCopy, TakesOverTextDatabaseAndNumbers) {
    concrete::Database database;
    CQZQueryInfo query;
    query.SetName(u"q");
    query.SetSrcName(u"source");
    query.SetDatabase(&database);
    query.SetSQL(u"SELECT 1");
    query.SetDataType(2);
    query.Resolved = 1;
    query.m_nQuerySerial = 65535;
    query.SetLimit(3, 4);
    query.SetQueryFlag(5);
    query.SetSelectQuantifier(2);
    query.SetQueryMark(6);
    const QueryPointer copy = Clone(query);
    EXPECT_EQ(copy->GetGUID(), query.GetGUID());
    EXPECT_EQ(copy->GetName(), u"q");
    EXPECT_EQ(copy->GetSrcName(), u"source");
    EXPECT_EQ(copy->GetDatabase(), &database);
    EXPECT_EQ(copy->GetSQL(), u"SELECT 1");
    EXPECT_EQ(copy->GetDataType(), 2);
    EXPECT_EQ(copy->Resolved, 1);
    EXPECT_EQ(copy->m_nQuerySerial, 65535);
    EXPECT_EQ(copy->HasLimit(), 1);
    int first = 0;
    int second = 0;
    copy->GetLimit(first, second);
    EXPECT_EQ(first, 3);
    EXPECT_EQ(second, 4);
    EXPECT_EQ(copy->GetQueryFlag(), 5);
    EXPECT_EQ(copy->GetSelectQuantifier(), 2);
    EXPECT_EQ(copy->GetQueryMark(), 6);
}

TEST(CQZQueryInfoCopy, LeavesOutKindAndOption) {
    CQZQueryInfo query;
    query.SetQueryKind(2);
    query.SetQueryOption(3);
    const QueryPointer copy = Clone(query);
    EXPECT_EQ(copy->GetQueryKind(), 0);
    EXPECT_EQ(copy->GetQueryOption(), 0);
}

TEST(CQZQueryInfoCopy, HasTheClausesOnceMore) {
    CQZQueryInfo query;
    query.m_listSelect.AddTail(Item(u"select 1", {Item(u"child")}));
    query.m_listSelect.AddTail(Item(u"select 2"));
    query.m_listFrom.AddTail(Item(u"from"));
    query.m_listOrderBy.AddTail(Item(u"order"));
    query.m_listGroupBy.AddTail(Item(u"group"));
    query.m_listHaving.AddTail(Item(u"having"));
    query.m_listUnion.AddTail(Item(u"union"));
    const QueryPointer copy = Clone(query);
    ASSERT_EQ(copy->m_listSelect.GetCount(), 2);
    EXPECT_NE(copy->m_listSelect.GetHead(), query.m_listSelect.GetHead());
    EXPECT_EQ(copy->m_listSelect.GetHead()->Text, u"select 1");
    EXPECT_EQ(copy->m_listSelect.GetHead()->JoinChildren(), u"child");
    EXPECT_EQ(copy->m_listSelect.GetTail()->Text, u"select 2");
    EXPECT_EQ(copy->m_listFrom.GetHead()->Text, u"from");
    EXPECT_EQ(copy->m_listOrderBy.GetHead()->Text, u"order");
    EXPECT_EQ(copy->m_listGroupBy.GetHead()->Text, u"group");
    EXPECT_EQ(copy->m_listHaving.GetHead()->Text, u"having");
    EXPECT_EQ(copy->m_listUnion.GetHead()->Text, u"union");
    EXPECT_EQ(copy->m_pWhere, nullptr);
}

TEST(CQZQueryInfoCopy, HasAPlainItemForItsCondition) {
    CQZQueryInfo query;
    auto* where = new SelectItemSubQuery;
    where->Text = u"where";
    where->Children.AddTail(Item(u"a", {Item(u"b")}));
    where->Query = new CQZQueryInfo;
    query.m_pWhere = where;
    const QueryPointer copy = Clone(query);
    ASSERT_NE(copy->m_pWhere, nullptr);
    const SelectItem& condition = *copy->m_pWhere;
    EXPECT_EQ(typeid(condition), typeid(SelectItem));
    EXPECT_EQ(condition.Text, u"where");
    EXPECT_EQ(condition.Children.GetHead()->JoinChildren(), u"b");
}

TEST(CQZQueryInfoCopy, HasSourcesAliasesAndRecordsOnceMore) {
    CQZQueryInfo query;
    query.m_mapSources.SetAt(u"t", u"{guid}");
    query.m_mapSources.SetAt(u"s", u"s");
    CQZAliasInfo& alias = AddAlias(query, u"Total");
    alias.Expression = Item(u"", {Item(u"a")});
    AddRecord(query, u"t", u"a").UnderAs = 1;
    const QueryPointer copy = Clone(query);
    CString value;
    EXPECT_EQ(copy->m_mapSources.GetCount(), 2);
    EXPECT_TRUE(copy->m_mapSources.Lookup(u"t", value));
    EXPECT_EQ(value, u"{guid}");
    CQZAliasInfo* copiedAlias = nullptr;
    ASSERT_TRUE(copy->m_mapAliases.Lookup(u"total", copiedAlias));
    EXPECT_NE(copiedAlias, &alias);
    EXPECT_EQ(copiedAlias->GetGUID(), alias.GetGUID());
    EXPECT_EQ(copiedAlias->Expression->JoinChildren(), u"a");
    CFieldObject* record = nullptr;
    ASSERT_TRUE(copy->m_mapFields.Lookup(u"ta_0", record));
    EXPECT_EQ(record->TableName, u"t");
    EXPECT_EQ(record->FieldName, u"a");
    EXPECT_EQ(record->UnderAs, 1);
}

TEST(CQZQueryInfoCopy, HasNestedQueriesOnceMore) {
    concrete::Database database;
    CQZQueryInfo query;
    auto* nested = new CQZQueryInfo;
    nested->SetSQL(u"SELECT 2");
    nested->SetQueryKind(2);
    nested->SetDatabase(&database);
    nested->m_listSelect.AddTail(Item(u"2"));
    query.m_listSubQueries.AddTail(nested);
    const QueryPointer copy = Clone(query);
    ASSERT_EQ(copy->m_listSubQueries.GetCount(), 1);
    const CQZQueryInfo& copied = *copy->m_listSubQueries.GetHead();
    EXPECT_NE(&copied, nested);
    EXPECT_EQ(copied.GetGUID(), nested->GetGUID());
    EXPECT_EQ(copied.GetSQL(), u"SELECT 2");
    EXPECT_EQ(copied.GetQueryKind(), 0);
    EXPECT_EQ(copied.GetDatabase(), &database);
    EXPECT_EQ(copied.m_listSelect.GetHead()->Text, u"2");
}

TEST(CQZQueryInfoCopy, HasTheSelectsOfASplitTextOnceMore) {
    CQZQueryInfo query;
    const auto select = std::make_unique<CQZQueryUnionInfo>();
    select->Query = new CQZQueryInfo;
    select->Query->SetSQL(u"SELECT 3");
    select->UnionAll = 1;
    select->Reserved = u"not copied";
    query.m_listUnions.AddTail(select.get());
    const QueryPointer copy = Clone(query);
    ASSERT_EQ(copy->m_listUnions.GetCount(), 1);
    const std::unique_ptr<CQZQueryUnionInfo> copied(copy->m_listUnions.GetHead());
    EXPECT_NE(copied.get(), select.get());
    EXPECT_NE(copied->Query, select->Query);
    EXPECT_EQ(copied->Query->GetSQL(), u"SELECT 3");
    EXPECT_EQ(copied->UnionAll, 1);
    EXPECT_EQ(copied->Reserved, u"");
}

TEST(CQZQueryInfoCopy, OfASelectWithoutAQueryHasNone) {
    const CQZQueryUnionInfo select;
    EXPECT_EQ(CQZQueryUnionInfo(select).Query, nullptr);
}

// Sources of other queries that hold the GUID lead to the copy.
TEST(CQZQueryInfoCopy, IsFoundUnderTheGuidOfTheOriginal) {
    concrete::Database database;
    concrete::Query original;
    original.SetName(u"original");
    const CString guid = original.GetGUID();
    concrete::Query* copy = original.Clone(0);
    database.m_listQueries.AddTail(copy);
    CQZQueryInfo reader;
    reader.SetDatabase(&database);
    reader.m_mapSources.SetAt(u"original", guid);
    EXPECT_EQ(reader.FindSourceByGUID(guid), copy);
}

// A host's nested query is cloned by its own class and is whole when its copy constructor is done.
class HostQuery final : public CQZQueryInfo {
 public:
    HostQuery() = default;
    HostQuery(const HostQuery& other) : CQZQueryInfo(other), selectedWhenCopied(m_listSelect.GetCount()) {}
    HostQuery* Clone(int bSelectedOnly) const override {
        const HostQuery passing(*this);
        auto* clone = new HostQuery(passing);
        clone->clonedWith = bSelectedOnly;
        return clone;
    }

    int selectedWhenCopied = -1;
    int clonedWith = -1;
};

TEST(CQZQueryInfoCopy, ClonesNestedQueriesOfHostsByTheirClass) {
    CQZQueryInfo query;
    auto* nested = new HostQuery;
    nested->m_listSelect.AddTail(Item(u"a", {Item(u"b")}));
    query.m_listSubQueries.AddTail(nested);
    const QueryPointer copy = Clone(query);
    const auto* copied = dynamic_cast<HostQuery*>(copy->m_listSubQueries.GetHead());
    ASSERT_NE(copied, nullptr);
    EXPECT_EQ(copied->clonedWith, 0);
    EXPECT_EQ(copied->selectedWhenCopied, 1);
    EXPECT_EQ(copied->m_listSelect.GetHead()->JoinChildren(), u"b");
}

class HostAlias final : public CQZAliasInfo {
 public:
    HostAlias* Clone(int) const override { return new HostAlias(*this); }
};

TEST(CQZQueryInfoCopy, ClonesAliasesOfHostsByTheirClass) {
    CQZQueryInfo query;
    query.m_mapAliases.SetAt(u"a", new HostAlias);
    const QueryPointer copy = Clone(query);
    EXPECT_NE(dynamic_cast<HostAlias*>(copy->m_mapAliases[u"a"]), nullptr);
}

class Throwing final : public SelectItem {
 public:
    SelectItem* Clone() const override { throw std::runtime_error("no clone"); }
};

// What was copied before the failure is deleted, which the leak checkers see.
TEST(CQZQueryInfoCopy, AFailedCopyLeavesNothing) {
    CQZQueryInfo query;
    AddAlias(query, u"a").Expression = Item(u"b");
    AddRecord(query, u"t", u"f");
    auto* subQuery = new SelectItemSubQuery;
    subQuery->Query = new CQZQueryInfo;
    subQuery->Query->m_listFrom.AddTail(Item(u"x", {Item(u"y"), new Throwing, Item(u"z")}));
    query.m_listSelect.AddTail(Item(u"c", {subQuery}));
    EXPECT_THROW(Clone(query), std::runtime_error);
    EXPECT_THROW(sample::CloneOf<SelectItem>(*query.m_listSelect.GetHead()), std::runtime_error);
    EXPECT_THROW(sample::CloneOf(*subQuery), std::runtime_error);
    const QueryPointer inner = std::make_unique<CQZQueryInfo>();
    EXPECT_NO_THROW(Clone(*inner));
}

}  // namespace
