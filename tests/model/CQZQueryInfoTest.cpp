#include <gtest/gtest.h>

#include <type_traits>

#include "QZParserSQL/model/CQZQueryInfo.h"
#include "tests/catalog/Concrete.h"
#include "tests/model/Samples.h"

namespace {

using sample::AddAlias;
using sample::AddRecord;
using sample::Item;
using sample::Log;

static_assert(std::is_base_of_v<CQZSourceInfo, CQZQueryInfo>);
static_assert(std::is_base_of_v<CQZObjectInfo, CQZSourceInfo>);
static_assert(std::is_abstract_v<CQZSourceInfo>);

TEST(CQZQueryInfo, IsEmptyAtFirst) {
    const CQZQueryInfo query;
    EXPECT_EQ(query.m_nQuerySerial, 0);
    EXPECT_TRUE(query.m_mapAliases.IsEmpty());
    EXPECT_TRUE(query.m_mapSources.IsEmpty());
    EXPECT_TRUE(query.m_mapFields.IsEmpty());
    for (const auto* list : {&query.m_listSelect, &query.m_listFrom, &query.m_listOrderBy, &query.m_listGroupBy,
                             &query.m_listUnion, &query.m_listHaving})
        EXPECT_TRUE(list->IsEmpty());
    EXPECT_TRUE(query.m_listSubQueries.IsEmpty());
    EXPECT_TRUE(query.m_listUnions.IsEmpty());
    EXPECT_EQ(query.m_pWhere, nullptr);
    EXPECT_EQ(query.GetDatabase(), nullptr);
    EXPECT_EQ(query.GetSQL(), u"");
    EXPECT_EQ(query.GetQueryKind(), 0);
    EXPECT_EQ(query.HasLimit(), 0);
    EXPECT_EQ(query.GetQueryFlag(), 0);
    EXPECT_EQ(query.GetSelectQuantifier(), 0);
    EXPECT_EQ(query.GetQueryMark(), 0);
    EXPECT_EQ(query.GetQueryOption(), 0);
    int first = -1;
    int second = -1;
    query.GetLimit(first, second);
    EXPECT_EQ(first, 0);
    EXPECT_EQ(second, 0);
}

TEST(CQZQueryInfo, HoldsPlainNumbers) {
    CQZQueryInfo query;
    query.SetQueryKind(1);
    EXPECT_EQ(&query.SetQueryFlag(2), &query);
    query.SetQueryMark(3);
    query.SetQueryOption(4);
    query.SetSelectQuantifier(3);
    EXPECT_EQ(query.GetQueryKind(), 1);
    EXPECT_EQ(query.GetQueryFlag(), 2);
    EXPECT_EQ(query.GetQueryMark(), 3);
    EXPECT_EQ(query.GetQueryOption(), 4);
    EXPECT_EQ(query.GetSelectQuantifier(), 3);
}

TEST(CQZQueryInfo, StatingALimitSetsTheFlag) {
    CQZQueryInfo query;
    query.SetLimit(0, 10);
    int first = -1;
    int second = -1;
    query.GetLimit(first, second);
    EXPECT_EQ(query.HasLimit(), 1);
    EXPECT_EQ(first, 0);
    EXPECT_EQ(second, 10);
}

struct SqlRow {
    const char16_t* given;
    const char16_t* stored;
};

class QueryText : public testing::TestWithParam<SqlRow> {};

TEST_P(QueryText, IsOneLineWithoutBlanksBehind) {
    CQZQueryInfo query;
    query.SetSQL(GetParam().given);
    EXPECT_EQ(query.GetSQL(), GetParam().stored);
}

INSTANTIATE_TEST_SUITE_P(Texts, QueryText,
                         testing::Values(SqlRow{u"SELECT a\r\nFROM t  \r\n", u"SELECT a FROM t"},
                                         SqlRow{u"a\nb", u"a\nb"}, SqlRow{u"a\rb", u"a\rb"},
                                         SqlRow{u"a\r\n\r\nb", u"a  b"}, SqlRow{u"  a \t\n", u"  a"},
                                         SqlRow{u"\r\n", u""}, SqlRow{u"", u""}, SqlRow{u"a\r\r\nb", u"a\r b"}));

TEST(CQZQueryInfo, IsVirtual) {
    CQZQueryInfo query;
    EXPECT_TRUE(query.IsVirtualObject(0));
    EXPECT_TRUE(query.IsVirtualObject(1));
    EXPECT_FALSE(query.IsRealObject(0));
    EXPECT_FALSE(query.IsRealObject(1));
    EXPECT_EQ(query.GetExtraText1(), u"");
    EXPECT_EQ(query.GetExtraText2(), u"");
}

TEST(CQZQueryInfo, HasNoFieldsByGuidOrName) {
    CQZQueryInfo query;
    const CQZAliasInfo& alias = AddAlias(query, u"Total");
    EXPECT_EQ(query.FindFieldByGUID(alias.GetGUID()), nullptr);
    EXPECT_EQ(query.FindFieldByName(u"Total"), nullptr);
}

TEST(CQZQueryInfo, CopyQueryTakesIdentityAndOptions) {
    CQZQueryInfo other;
    other.SetName(u"Other");
    other.SetSQL(u"SELECT 1");
    other.SetSelected(0);
    CQZQueryInfo query;
    query.CopyQuery(&other);
    EXPECT_EQ(query.GetName(), u"Other");
    EXPECT_EQ(query.GetSelected(), 0);
    EXPECT_EQ(query.GetSQL(), u"");
    EXPECT_NE(query.GetGUID(), other.GetGUID());
}

class RecordKey : public testing::Test {
 protected:
    CFieldObject record;
};

TEST_F(RecordKey, JoinsTheNamesAndTheFlag) {
    EXPECT_EQ(record.GetKey(), u"_0");
    record.TableName = u"Orders";
    record.FieldName = u"Price";
    EXPECT_EQ(record.GetKey(), u"OrdersPrice_0");
    record.UnderAs = 1;
    EXPECT_EQ(record.GetKey(), u"OrdersPrice_1");
    record.TableName = u"";
    EXPECT_EQ(record.GetKey(), u"Price_1");
}

TEST_F(RecordKey, ARecordIsEmptyAtFirstAndCopiedWhole) {
    EXPECT_EQ(record.TableName + record.FieldName + record.ExtraText + record.OutputName, u"");
    EXPECT_EQ(record.ExtraNumber, 0);
    EXPECT_EQ(record.UnderAs, 0);
    record.TableName = u"1";
    record.FieldName = u"2";
    record.ExtraText = u"3";
    record.ExtraNumber = 4;
    record.UnderAs = 5;
    record.OutputName = u"6";
    const CFieldObject copy(record);
    EXPECT_EQ(copy.TableName, u"1");
    EXPECT_EQ(copy.FieldName, u"2");
    EXPECT_EQ(copy.ExtraText, u"3");
    EXPECT_EQ(copy.ExtraNumber, 4);
    EXPECT_EQ(copy.UnderAs, 5);
    EXPECT_EQ(copy.OutputName, u"6");
    static_assert(std::is_base_of_v<CObject, CFieldObject>);
    static_assert(std::has_virtual_destructor_v<CObject>);
}

class Sources : public testing::Test {
 protected:
    concrete::Database database;
};

TEST_F(Sources, ATableIsFoundBeforeAQueryOfTheSameName) {
    concrete::Query& query = database.AddQuery(u"Orders");
    EXPECT_EQ(query.FindSourceByName(u"Orders"), &query);
    concrete::Table& table = database.AddTable(u"ORDERS");
    EXPECT_EQ(query.FindSourceByName(u"orders"), &table);
    EXPECT_EQ(query.FindSourceByName(u"Order"), nullptr);
    table.SetGUID(u"{g}");
    query.SetGUID(u"{G}");
    EXPECT_EQ(query.FindSourceByGUID(u"{g}"), &table);
    table.SetGUID(u"{t}");
    EXPECT_EQ(query.FindSourceByGUID(u"{g}"), &query);
    EXPECT_EQ(query.FindSourceByGUID(u"{T}"), &table);
    EXPECT_EQ(query.FindSourceByGUID(u"{x}"), nullptr);
}

TEST_F(Sources, AreFoundByTheirSourceName) {
    concrete::Query& query = database.AddQuery(u"q");
    concrete::Table& table = database.AddTable(u"Orders");
    table.SetName(u"t_orders");
    EXPECT_EQ(query.FindSourceByName(u"Orders"), &table);
    EXPECT_EQ(query.FindSourceByName(u"t_orders"), nullptr);
}

TEST_F(Sources, AreNotFoundWithoutADatabase) {
    CQZQueryInfo query;
    EXPECT_EQ(query.FindSourceByName(u""), nullptr);
    EXPECT_EQ(query.FindSourceByGUID(u""), nullptr);
    query.m_mapSources.SetAt(u"t", u"t");
    query.ResolveSourceGUIDs();
    query.SetUserFunction(u"f", 1);
    EXPECT_EQ(query.FindFieldInAnySource(u"a"), nullptr);
    EXPECT_EQ(query.CheckQuery(), 1);
}

TEST_F(Sources, AreTiedToTheCatalogByTheirGuids) {
    concrete::Table& table = database.AddTable(u"Orders");
    concrete::Query& stored = database.AddQuery(u"Sums");
    CQZQueryInfo query;
    EXPECT_EQ(&query.SetDatabase(&database), &query);
    EXPECT_EQ(query.GetDatabase(), &database);
    for (const char16_t* name : {u"orders", u"SUMS", u"nowhere"}) query.m_mapSources.SetAt(name, name);
    query.ResolveSourceGUIDs();
    CString value;
    EXPECT_TRUE(query.m_mapSources.Lookup(u"orders", value));
    EXPECT_EQ(value, table.GetGUID());
    EXPECT_TRUE(query.m_mapSources.Lookup(u"SUMS", value));
    EXPECT_EQ(value, stored.GetGUID());
    EXPECT_TRUE(query.m_mapSources.Lookup(u"nowhere", value));
    EXPECT_EQ(value, u"nowhere");
    EXPECT_EQ(query.m_mapSources.GetCount(), 3);
}

CQZQueryInfo* Nested(CQZQueryInfo& outer, concrete::Database& database, const CString& source) {
    auto* query = new CQZQueryInfo;
    query->SetDatabase(&database);
    query->m_mapSources.SetAt(source, source);
    outer.m_listSubQueries.AddTail(query);
    return query;
}

// Notes when its GUID is taken.
class AskedTable final : public concrete::Table {
 public:
    CString GetGUID() const override {
        if (log != nullptr) log->push_back(GetSrcName().ToUtf8());
        return Table::GetGUID();
    }

    Log* log = nullptr;
};

TEST_F(Sources, OfNestedQueriesAreTiedFirst) {
    Log log;
    for (const char16_t* name : {u"outer", u"first", u"within the first", u"second"})
        database.AddTable<AskedTable>(name).log = &log;
    CQZQueryInfo query;
    query.SetDatabase(&database);
    query.m_mapSources.SetAt(u"outer", u"outer");
    Nested(*Nested(query, database, u"first"), database, u"within the first");
    Nested(query, database, u"second");
    query.ResolveSourceGUIDs();
    EXPECT_EQ(log, Log({"within the first", "first", "second", "outer"}));
}

TEST_F(Sources, OfNestedQueriesAreTiedToo) {
    concrete::Table& table = database.AddTable(u"t");
    CQZQueryInfo query;
    CQZQueryInfo* inner = Nested(*Nested(query, database, u"t"), database, u"t");
    CQZQueryInfo* second = Nested(query, database, u"t");
    query.ResolveSourceGUIDs();
    for (CQZQueryInfo* nested : {query.m_listSubQueries.GetHead(), inner, second}) {
        CString value;
        EXPECT_TRUE(nested->m_mapSources.Lookup(u"t", value));
        EXPECT_EQ(value, table.GetGUID());
    }
}

TEST_F(Sources, AQueryIsNotedAsReadWhenAFieldNamesIt) {
    database.AddTable(u"Orders");
    database.AddQuery(u"Sums");
    database.AddQuery(u"Both");
    database.AddTable(u"Both");
    database.AddQuery(u"");
    CQZQueryInfo query;
    query.SetDatabase(&database);
    EXPECT_EQ(query.HasQuerySource(), 0);
    AddRecord(query, u"", u"Sums");
    AddRecord(query, u"Orders", u"a");
    AddRecord(query, u"Both", u"a");
    AddRecord(query, u"nowhere", u"a");
    EXPECT_EQ(query.HasQuerySource(), 0);
    AddRecord(query, u"SUMS", u"a");
    EXPECT_EQ(query.HasQuerySource(), 1);
}

TEST_F(Sources, UserFunctionsAreRecordedInTheDatabase) {
    CQZQueryInfo query;
    query.SetDatabase(&database);
    query.SetUserFunction(u"Tax", 2);
    query.SetUserFunction(u"Now2", 0);
    query.SetUserFunction(u"Tax", 13);
    CString count;
    EXPECT_TRUE(database.m_mapUserFunctions.Lookup(u"Tax", count));
    EXPECT_EQ(count, u"13");
    EXPECT_TRUE(database.m_mapUserFunctions.Lookup(u"Now2", count));
    EXPECT_EQ(count, u"0");
    EXPECT_EQ(database.m_mapUserFunctions.GetCount(), 2);
}

// A query that notes when it is given a database.
class Given final : public CQZQueryInfo {
 public:
    Given(Log& log, std::string name) : m_Log(log), m_Name(std::move(name)) {}
    Given& SetDatabase(CQZDatabaseInfo* pDatabase) override {
        m_Log.push_back(m_Name);
        CQZQueryInfo::SetDatabase(pDatabase);
        return *this;
    }

 private:
    Log& m_Log;
    std::string m_Name;
};

template <class Holder>
Holder* HolderOf(CQZQueryInfo* query, std::initializer_list<SelectItem*> children = {}) {
    auto* item = new Holder;
    item->Query = query;
    for (SelectItem* child : children) item->Children.AddTail(child);
    return item;
}

class Propagation : public Sources {
 protected:
    Given* Query(const char* name) { return new Given(log, name); }
    SelectItem* SubQuery(const char* name) { return HolderOf<SelectItemSubQuery>(Query(name)); }

    Log log;
};

TEST_F(Propagation, ReachesTheItemsOfAllClausesInOrder) {
    CQZQueryInfo query;
    query.SetDatabase(&database);
    query.m_listUnion.AddTail(SubQuery("union"));
    query.m_listHaving.AddTail(SubQuery("having"));
    query.m_listGroupBy.AddTail(SubQuery("group"));
    query.m_pWhere = HolderOf<SelectItemSubQuery>(Query("where itself"), {SubQuery("where")});
    query.m_listOrderBy.AddTail(SubQuery("order"));
    query.m_listFrom.AddTail(SubQuery("from"));
    query.m_listSelect.AddTail(Item(u"", {SubQuery("select 1"), Item(u"", {SubQuery("select 2")})}));
    query.m_listSelect.AddTail(SubQuery("select 3"));
    query.PropagateDatabase();
    EXPECT_EQ(log, Log({"select 1", "select 2", "select 3", "from", "order", "where", "group", "having", "union"}));
}

TEST_F(Propagation, ReachesTheChildrenOfItemsThatHoldQueries) {
    CQZQueryInfo query;
    query.m_listSelect.AddTail(HolderOf<SelectItemSubQuery>(Query("outer"), {SubQuery("child")}));
    query.PropagateDatabase();
    EXPECT_EQ(log, Log({"outer", "child"}));
}

TEST_F(Propagation, GoesOnWithinUnionsButNotWithinSubQueries) {
    CQZQueryInfo query;
    query.SetDatabase(&database);
    Given* member = Query("member");
    member->m_listFrom.AddTail(SubQuery("within the member"));
    member->m_listUnion.AddTail(HolderOf<SelectItemUnion>(Query("next member")));
    query.m_listUnion.AddTail(HolderOf<SelectItemUnion>(member, {SubQuery("child of the union")}));
    Given* nested = Query("nested");
    nested->m_listFrom.AddTail(SubQuery("within the nested"));
    query.m_listSelect.AddTail(HolderOf<SelectItemSubQuery>(nested));
    auto* listed = Query("listed");
    query.m_listSubQueries.AddTail(listed);
    query.PropagateDatabase();
    EXPECT_EQ(log, Log({"nested", "member", "within the member", "next member", "child of the union"}));
    EXPECT_EQ(member->GetDatabase(), &database);
    EXPECT_EQ(nested->GetDatabase(), &database);
    EXPECT_EQ(listed->GetDatabase(), nullptr);
}

TEST_F(Propagation, GoesByTheKindOfItem) {
    CQZQueryInfo query;
    SelectItem* plain = SubQuery("not of its kind");
    plain->ItemKind = SelectItem::kPlain;
    query.m_listSelect.AddTail(plain);
    query.m_listSelect.AddTail(HolderOf<SelectItemSubQuery>(nullptr));
    auto* impostor = new SelectItem;
    impostor->ItemKind = SelectItem::kUnion;
    query.m_listSelect.AddTail(impostor);
    query.PropagateDatabase();
    EXPECT_EQ(log, Log());
}

class LoggedAlias final : public sample::Logged<CQZAliasInfo> {
 public:
    using Logged::Logged;
};

class LoggedRecord final : public sample::Logged<CFieldObject> {
 public:
    using Logged::Logged;
};

class LoggedQuery final : public sample::Logged<CQZQueryInfo> {
 public:
    using Logged::Logged;
};

void FillLogged(CQZQueryInfo& query, Log& log) {
    query.m_listHaving.AddTail(Item(log, "having"));
    query.m_listUnion.AddTail(Item(log, "union"));
    query.m_mapAliases.SetAt(u"a", new LoggedAlias(log, "alias"));
    query.m_mapFields.SetAt(u"f", new LoggedRecord(log, "field"));
    query.m_listGroupBy.AddTail(Item(log, "group"));
    query.m_listOrderBy.AddTail(Item(log, "order"));
    query.m_listSubQueries.AddTail(new LoggedQuery(log, "nested"));
    query.m_listSubQueries.GetHead()->m_listFrom.AddTail(Item(log, "within the nested"));
    query.m_pWhere = Item(log, "where");
    query.m_listFrom.AddTail(Item(log, "from"));
    query.m_listSelect.AddTail(Item(log, "select 1"));
    query.m_listSelect.AddTail(Item(log, "select 2"));
}

const Log kOrderOfDeletion = {"select 1", "select 2", "from",  "where", "nested", "within the nested",
                              "order",    "group",    "field", "alias", "union",  "having"};

TEST(CQZQueryInfo, DeletesWhatItOwnsInOrder) {
    Log log;
    {
        CQZQueryInfo query;
        FillLogged(query, log);
    }
    EXPECT_EQ(log, kOrderOfDeletion);
}

TEST(CQZQueryInfo, TheOrderOfDeletionIsTheSameWithinAnItem) {
    Log log;
    {
        SelectItem root;
        auto* query = new CQZQueryInfo;
        FillLogged(*query, log);
        root.Children.AddTail(HolderOf<SelectItemSubQuery>(query));
    }
    EXPECT_EQ(log, kOrderOfDeletion);
}

TEST(CQZQueryInfo, LeavesTheSelectsOfASplitTextAlive) {
    Log log;
    auto* select = new CQZQueryUnionInfo;
    EXPECT_EQ(select->Query, nullptr);
    EXPECT_EQ(select->UnionAll, 0);
    EXPECT_EQ(select->Reserved, u"");
    select->Query = new LoggedQuery(log, "select");
    {
        CQZQueryInfo query;
        query.m_listUnions.AddTail(select);
    }
    EXPECT_EQ(log, Log());
    delete select;
    EXPECT_EQ(log, Log({"select"}));
}

}  // namespace
