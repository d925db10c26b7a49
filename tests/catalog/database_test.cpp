// A database's options, look-ups, rules and copies.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <type_traits>

#include "Concrete.h"
#include "DatabaseOptions.h"
#include "Slots.h"
#include "TableOptions.h"

namespace {

using concrete::Database;
using concrete::Field;
using concrete::Filter;
using concrete::ForeignKey;
using concrete::Index;
using concrete::Query;
using concrete::Table;

using Names = std::vector<std::string>;

static_assert(std::is_abstract_v<CQZDatabaseInfo> && std::has_virtual_destructor_v<CQZDatabaseInfo>);

TEST(CQZDatabaseInfo, AddsItsOperationsBehindTheInheritedOnes) {
    using D = CQZDatabaseInfo;
    EXPECT_EQ(SlotsOf(&D::RefreshSelection, &D::GetExtraFlag, &D::GetExtraValue1, &D::GetExtraValue2,
                      &D::CheckReferences, &D::ApplyOptions),
              SlotsFrom(SlotOf(&CQZObjectInfo::HasQuerySource) + 1, 6));
}

TEST(CQZDatabaseInfo, OverridesInThePlacesOfItsBase) {
    using D = CQZDatabaseInfo;
    using O = CQZObjectInfo;
    EXPECT_EQ(SlotsOf(&D::SetSelected, &D::Save, &D::Load, &D::Clone, &D::IsVirtualObject, &D::IsRealObject),
              SlotsOf(&O::SetSelected, &O::Save, &O::Load, &O::Clone, &O::IsVirtualObject, &O::IsRealObject));
}

TEST(CQZDatabaseInfo, IsMadeWithItsDefaults) {
    const Database database;
    EXPECT_EQ(OptionsOf(database), kNewDatabase);
    EXPECT_EQ(database.GetSelected(), 1);
    EXPECT_EQ(database.GetSchemaName(), u"");
    EXPECT_EQ(database.GetGarbageSymbols(), u"");
    EXPECT_EQ(database.GetGarbageReplace(), u"");
    EXPECT_EQ(database.GetVersion(), u"");
    EXPECT_EQ(database.GetExtraText(), u"");
    EXPECT_TRUE(database.m_listTables.IsEmpty());
    EXPECT_TRUE(database.m_listQueries.IsEmpty());
    EXPECT_TRUE(database.m_mapUserFunctions.IsEmpty());
}

TEST(CQZDatabaseInfo, IsVirtualAndHasPlainHooks) {
    const Database database;
    for (const int ignored : {0, 1}) {
        EXPECT_TRUE(database.IsVirtualObject(ignored));
        EXPECT_FALSE(database.IsRealObject(ignored));
    }
    EXPECT_FALSE(database.GetExtraFlag());
    EXPECT_EQ(database.GetExtraValue1(), 0);
    EXPECT_EQ(database.GetExtraValue2(), 0);
}

TEST(CQZDatabaseInfo, HasASetterForEachOption) {
    Database database;
    SetAllOptions(database);
    EXPECT_EQ(OptionsOf(database), DatabaseOptions({{"OverwriteDatabase", 11},
                                                    {"CloseExistingConnections", 12},
                                                    {"OverwriteTables", 13},
                                                    {"AutoStructureUpdate", 14},
                                                    {"CreateLogsEnabled", 15},
                                                    {"CreateDiff", 16},
                                                    {"CreateUndiff", 17},
                                                    {"BulkInsert", 18},
                                                    {"Quant", 19},
                                                    {"CaseState", 20},
                                                    {"MaxThreads", 21},
                                                    {"MaxQuant", 22},
                                                    {"UseHistoryCopyData", 23},
                                                    {"BidirectionalSync", 24},
                                                    {"CleanHistoryAfterUse", 25},
                                                    {"WithTriggers", 26},
                                                    {"WithBidirectional", 27},
                                                    {"HandleSelectedObjects", 28}}));
    EXPECT_EQ(database.GetGarbageSymbols(), u"symbols");
    EXPECT_EQ(database.GetGarbageReplace(), u"replace");
    EXPECT_EQ(database.GetVersion(), u"5.0.1 beta");
    EXPECT_EQ(database.GetSchemaName(), u"schema");
    EXPECT_EQ(database.GetExtraText(), u"extra");
}

TEST(CQZDatabaseInfo, KeepsEightBitsOfTheNumberOfThreads) {
    Database database;
    database.SetMaxThreads(255);
    EXPECT_EQ(database.GetMaxThreads(), 255);
    database.SetMaxThreads(256);
    EXPECT_EQ(database.GetMaxThreads(), 0);
    database.SetMaxThreads(300);
    EXPECT_EQ(database.GetMaxThreads(), 44);
    database.SetMaxThreads(-1);
    EXPECT_EQ(database.GetMaxThreads(), 255);
}

// Look-ups.

template <class Object>
void NameTwo(Object& first, Object& second) {
    first.SetName(u"Name");
    first.SetSrcName(u"Source");
    first.SetGUID(u"{ab}");
    second.SetName(u"NAME");
    second.SetSrcName(u"SOURCE");
    second.SetGUID(u"{AB}");
}

TEST(CQZDatabaseInfo, FindsTablesInAnyCase) {
    Database database;
    Table& first = database.AddTable(u"");
    NameTwo(first, database.AddTable(u""));
    EXPECT_EQ(database.FindTableByGUID(u"{AB}"), &first);
    EXPECT_EQ(database.FindTableByName(u"nAME"), &first);
    EXPECT_EQ(database.FindTableBySrcName(u"sOURCE"), &first);
    EXPECT_EQ(database.FindTableByGUID(u"ab"), nullptr);
    EXPECT_EQ(database.FindTableByName(u"source"), nullptr);
    EXPECT_EQ(database.FindTableBySrcName(u"name"), nullptr);
    EXPECT_EQ(database.FindQueryBySrcName(u"source"), nullptr);
}

TEST(CQZDatabaseInfo, FindsQueriesInAnyCase) {
    Database database;
    Query& first = database.AddQuery(u"");
    NameTwo(first, database.AddQuery(u""));
    EXPECT_EQ(database.FindQueryByGUID(u"{AB}"), &first);
    EXPECT_EQ(database.FindQueryBySrcName(u"sOURCE"), &first);
    EXPECT_EQ(database.FindQueryByGUID(u"ab"), nullptr);
    EXPECT_EQ(database.FindQueryBySrcName(u"name"), nullptr);
    EXPECT_EQ(database.FindTableBySrcName(u"source"), nullptr);
}

TEST(CQZDatabaseInfo, FindsTablesByTheNameThatTheCaseRuleGives) {
    Database database;
    Table& table = database.AddTable(u"");
    table.SetName(u"OrderDetails");
    table.SetLowerCase(3);
    EXPECT_EQ(database.FindTableByName(u"ORDER_DETAILS"), &table);
    EXPECT_EQ(database.FindTableByName(u"OrderDetails"), nullptr);
}

// Selection and overwriting.

TEST(CQZDatabaseInfo, PassesItsSelectionToTheTables) {
    Database database;
    Table& first = database.AddTable(u"a");
    Table& second = database.AddTable(u"b");
    database.SetSelected(0);
    EXPECT_EQ(database.GetSelected(), 0);
    EXPECT_EQ(first.GetSelected(), 0);
    EXPECT_EQ(second.GetCopyData(), 0);
    database.SetSelected(1);
    EXPECT_EQ(database.GetSelected(), 1);
    EXPECT_EQ(first.GetSelected(), 1);
    EXPECT_EQ(second.GetCopyData(), 1);
}

TEST(CQZDatabaseInfo, LeavesTheTablesAloneWhenItsSelectionStays) {
    Database database;
    database.AddTable(u"a");
    Table& second = database.AddTable(u"b");
    second.SetSelected(0);
    database.SetSelected(1);
    EXPECT_EQ(second.GetSelected(), 0);
}

TEST(CQZDatabaseInfo, StoresTheSelectionThatItIsGiven) {
    Database database;
    Table& table = database.AddTable(u"a");
    database.SetSelected(5);
    EXPECT_EQ(database.GetSelected(), 5);
    EXPECT_EQ(table.GetSelected(), 1);
}

TEST(CQZDatabaseInfo, RefreshesItsSelectionFromTheTables) {
    Database database;
    database.RefreshSelection();
    EXPECT_EQ(database.GetSelected(), 0);
    Table& first = database.AddTable(u"a");
    Table& second = database.AddTable(u"b");
    database.RefreshSelection();
    EXPECT_EQ(database.GetSelected(), 1);
    first.SetSelected(0);
    EXPECT_EQ(database.GetSelected(), 1);
    second.SetSelected(0);
    EXPECT_EQ(database.GetSelected(), 0);
    second.SetSelected(1);
    EXPECT_EQ(database.GetSelected(), 1);
}

/// Notes the database's selection each time that a table asks for a refresh.
class WatchedDatabase final : public Database {
 public:
    void RefreshSelection() override {
        Database::RefreshSelection();
        seen.push_back(GetSelected());
    }

    std::vector<int> seen;
};

TEST(CQZDatabaseInfo, IsNotRefreshedWhileItPassesItsSelectionDown) {
    WatchedDatabase database;
    database.AddTable(u"a");
    database.AddTable(u"b");
    database.SetSelected(0);
    // Three requests of each table, all of them while the old value still stands.
    EXPECT_EQ(database.seen, std::vector<int>({1, 1, 1, 1, 1, 1}));
    database.seen.clear();
    database.SetSelected(1);
    EXPECT_EQ(database.seen, std::vector<int>({0, 0, 0, 0, 0, 0}));
}

TEST(CQZDatabaseInfo, IsRefreshedAgainBehindItsSetters) {
    Database database;
    Table& table = database.AddTable(u"a");
    database.SetSelected(0);
    table.SetSelected(1);
    EXPECT_EQ(database.GetSelected(), 1);
    database.SetOverwriteDatabase(1);
    table.SetSelected(0);
    EXPECT_EQ(database.GetSelected(), 0);
}

TEST(CQZDatabaseInfo, OverwritesItsTablesWhenOverwritingIsTurnedOn) {
    Database database;
    Table& whole = database.AddTable(u"a");
    Table& dataOnly = database.AddTable(u"b");
    dataOnly.SetCopyStructure(0);
    database.SetOverwriteDatabase(3);
    EXPECT_EQ(database.GetOverwriteDatabase(), 3);
    EXPECT_EQ(whole.GetOverwriteTable(), 3);
    EXPECT_EQ(whole.GetSyncInsert(), 0);
    EXPECT_EQ(dataOnly.GetOverwriteTable(), 0);
    EXPECT_EQ(dataOnly.GetSyncInsert(), 1);
}

TEST(CQZDatabaseInfo, LeavesTablesAloneWhenOverwritingChangesOtherwise) {
    Database database;
    database.SetOverwriteDatabase(1);
    Table& table = database.AddTable(u"a");
    database.SetOverwriteDatabase(2);
    EXPECT_EQ(database.GetOverwriteDatabase(), 2);
    EXPECT_EQ(table.GetOverwriteTable(), 0);
    table.SetOverwriteTable(1);
    database.SetOverwriteDatabase(0);
    EXPECT_EQ(database.GetOverwriteDatabase(), 0);
    EXPECT_EQ(table.GetOverwriteTable(), 1);
    database.SetOverwriteDatabase(0);
    EXPECT_EQ(database.GetOverwriteDatabase(), 0);
}

/// Asks for a refresh of the database from within SetOverwriteTable.
class RefreshingTable final : public Table {
 public:
    void SetOverwriteTable(int nValue) override {
        Table::SetOverwriteTable(nValue);
        seenOverwriting = GetDatabase()->GetOverwriteDatabase();
        GetDatabase()->RefreshSelection();
    }

    int seenOverwriting = -1;
};

TEST(CQZDatabaseInfo, StoresOverwritingBehindTheTablesAndIsNotRefreshedMeanwhile) {
    WatchedDatabase database;
    auto& table = database.AddTable<RefreshingTable>(u"a");
    database.AddTable(u"b");
    database.m_listTables.GetTail()->SetSelected(0);
    database.CQZObjectInfo::SetSelected(7);
    database.SetOverwriteDatabase(1);
    EXPECT_EQ(table.seenOverwriting, 0);
    EXPECT_EQ(database.GetSelected(), 7);
}

TEST(CQZDatabaseInfo, ChecksTheReferencesOfAllTables) {
    Database database;
    Index& index = database.AddTable(u"a").AddIndex(u"i");
    ForeignKey& key = database.AddTable(u"b").AddForeignKey(u"k");
    database.CheckReferences();
    EXPECT_EQ(index.checks, std::vector<int>({0}));
    EXPECT_EQ(key.checks, std::vector<int>({0}));
}

// Copies.

template <class List>
Names NamesOf(const List& list) {
    Names names;
    for (const auto* object : list) names.push_back(object->GetSrcName().ToUtf8());
    return names;
}

TEST(CQZDatabaseInfo, ClonesItsOptionsAndTexts) {
    Database database;
    SetAllOptions(database);
    database.SetName(u"name");
    const std::unique_ptr<Database> copy(database.Clone(0));
    EXPECT_EQ(OptionsOf(*copy), OptionsOf(database));
    EXPECT_EQ(copy->GetGarbageSymbols(), u"symbols");
    EXPECT_EQ(copy->GetGarbageReplace(), u"replace");
    EXPECT_EQ(copy->GetVersion(), u"5.0.1 beta");
    EXPECT_EQ(copy->GetSchemaName(), u"schema");
    EXPECT_EQ(copy->GetExtraText(), u"extra");
    EXPECT_EQ(copy->GetName(), u"name");
    EXPECT_EQ(copy->GetGUID(), database.GetGUID());
}

void FillWithSelectedAndOthers(Database& database) {
    database.AddTable(u"t1").AddField(u"f").SetSelected(0);
    database.AddTable(u"t2").SetSelected(0);
    database.AddTable(u"t3");
    database.AddQuery(u"q1").SetSelected(0);
    database.AddQuery(u"q2");
}

TEST(CQZDatabaseInfo, ClonesItsTablesAndQueries) {
    Database database;
    FillWithSelectedAndOthers(database);
    const std::unique_ptr<Database> copy(database.Clone(0));
    EXPECT_EQ(NamesOf(copy->m_listTables), Names({"t1", "t2", "t3"}));
    EXPECT_EQ(NamesOf(copy->m_listQueries), Names({"q1", "q2"}));
    EXPECT_NE(copy->m_listTables.GetHead(), database.m_listTables.GetHead());
    EXPECT_EQ(copy->m_listTables.GetHead()->GetGUID(), database.m_listTables.GetHead()->GetGUID());
    for (const auto* table : copy->m_listTables) EXPECT_EQ(table->GetDatabase(), copy.get());
    for (const auto* query : copy->m_listQueries) {
        EXPECT_EQ(query->GetDatabase(), copy.get());
        EXPECT_EQ(static_cast<const Query*>(query)->clonedWith, 0);
    }
}

TEST(CQZDatabaseInfo, ClonesSelectedTablesWholeAndSelectedQueriesWithTheFlag) {
    Database database;
    FillWithSelectedAndOthers(database);
    const std::unique_ptr<Database> copy(database.Clone(2));
    EXPECT_EQ(NamesOf(copy->m_listTables), Names({"t1", "t3"}));
    EXPECT_EQ(copy->m_listTables.GetHead()->m_listFields.GetCount(), 1);
    EXPECT_EQ(NamesOf(copy->m_listQueries), Names({"q2"}));
    EXPECT_EQ(static_cast<Query*>(copy->m_listQueries.GetHead())->clonedWith, 2);
}

TEST(CQZDatabaseInfo, IsTheDatabaseOfTheSplitPartsOfItsClonedQueries) {
    Database database;
    Query& query = database.AddQuery(u"q");
    CQZQueryUnionInfo member;
    member.Query = new Query;
    CQZQueryUnionInfo empty;
    query.m_listUnions.AddTail(&member);
    query.m_listUnions.AddTail(&empty);
    const std::unique_ptr<Database> copy(database.Clone(0));
    auto& members = copy->m_listQueries.GetHead()->m_listUnions;
    ASSERT_EQ(members.GetCount(), 2);
    EXPECT_EQ(members.GetHead()->Query->GetDatabase(), copy.get());
    EXPECT_EQ(member.Query->GetDatabase(), nullptr);
    while (!members.IsEmpty()) delete members.RemoveHead();
}

TEST(CQZDatabaseInfo, ClonesUserFunctionsThatHaveACount) {
    Database database;
    database.m_mapUserFunctions.SetAt(u"f", u"2");
    database.m_mapUserFunctions[u"g"];
    const std::unique_ptr<Database> copy(database.Clone(0));
    CString count;
    EXPECT_EQ(copy->m_mapUserFunctions.GetCount(), 1);
    EXPECT_TRUE(copy->m_mapUserFunctions.Lookup(u"f", count));
    EXPECT_EQ(count, u"2");
}

class UnclonableTable final : public Table {
 public:
    UnclonableTable* Clone(int) const override { throw std::string("no"); }
};

TEST(CQZDatabaseInfo, FreesWhatItClonedWhenATableThrows) {
    Database database;
    database.AddTable(u"t1");
    database.AddTable<UnclonableTable>(u"t2");
    EXPECT_THROW(delete database.Clone(0), std::string);
}

// ApplyOptions

class Applying : public testing::Test {
 protected:
    Database database;
    Database other;
};

TEST_F(Applying, TakesOverTheOptionsButNotTheSchema) {
    SetAllOptions(other);
    other.SetSelected(0);
    database.SetSchemaName(u"mine");
    database.ApplyOptions(&other, 0);
    EXPECT_EQ(OptionsOf(database), OptionsOf(other));
    EXPECT_EQ(database.GetGarbageSymbols(), u"symbols");
    EXPECT_EQ(database.GetGarbageReplace(), u"replace");
    EXPECT_EQ(database.GetVersion(), u"5.0.1 beta");
    EXPECT_EQ(database.GetSchemaName(), u"mine");
    EXPECT_EQ(database.GetExtraText(), u"");
    EXPECT_EQ(database.GetSelected(), 1);
}

TEST_F(Applying, TakesOverOverwritingWithoutOverwritingTheTables) {
    Table& table = database.AddTable(u"t");
    other.AddTable(u"t");
    other.SetAutoStructureUpdate(1);
    other.CQZDatabaseInfo::SetOverwriteDatabase(1);
    other.m_listTables.GetHead()->SetSyncInsert(1);
    database.ApplyOptions(&other, 0);
    EXPECT_EQ(database.GetOverwriteDatabase(), 1);
    EXPECT_EQ(table.GetOverwriteTable(), 1);
    EXPECT_EQ(table.GetSyncInsert(), 1);
}

TEST_F(Applying, MatchesTheNameOfAQueryWithTheSourceNameOfTheOther) {
    Query& found = database.AddQuery(u"old");
    found.SetName(u"Sales");
    Query& lost = database.AddQuery(u"Costs");
    lost.SetName(u"new");
    Query& sales = other.AddQuery(u"SALES");
    sales.SetName(u"Revenue");
    sales.SetSelected(0);
    other.AddQuery(u"costs");
    database.ApplyOptions(&other, 0);
    EXPECT_EQ(found.GetName(), u"Revenue");
    EXPECT_EQ(found.GetSrcName(), u"old");
    EXPECT_EQ(found.GetSelected(), 0);
    EXPECT_EQ(lost.GetName(), u"new");
    EXPECT_EQ(lost.GetSelected(), 0);
}

TEST_F(Applying, CopiesTablesWithTheSameSourceName) {
    Table& table = database.AddTable(u"Orders");
    table.SetName(u"mine");
    table.AddField(u"f");
    Table& theirs = other.AddTable(u"ORDERS");
    theirs.SetName(u"theirs");
    theirs.SetModifyFields(1);
    theirs.SetCopyData(0);
    theirs.AddField(u"F").SetSelected(0);
    Filter filter(7);
    filter.SetSQLQuery(u"x > 1");
    theirs.SetFilter(&filter);
    database.ApplyOptions(&other, 7);
    EXPECT_EQ(OptionsOf(table), OptionsOf(theirs));
    EXPECT_EQ(table.GetName(), u"theirs");
    EXPECT_EQ(table.m_listFields.GetHead()->GetSelected(), 0);
    ASSERT_NE(table.GetFilter(), nullptr);
    EXPECT_EQ(table.GetFilter()->GetSQLQuery(), u"x > 1");
    database.ApplyOptions(&other, 8);
    EXPECT_EQ(table.GetFilter(), nullptr);
}

TEST_F(Applying, DeselectsAnUnknownTableUnlessStructuresAreUpdated) {
    Table& table = database.AddTable(u"new");
    other.AddTable(u"old");
    other.SetOverwriteTables(1);
    database.ApplyOptions(&other, 0);
    EXPECT_EQ(table.GetSelected(), 0);
    EXPECT_EQ(table.GetCopyStructure(), 0);
    EXPECT_EQ(table.GetCopyData(), 0);
    EXPECT_EQ(table.GetOverwriteTable(), 0);
}

TEST_F(Applying, GivesAnUnknownTableWhatAnySelectedTableHas) {
    Table& table = database.AddTable(u"new");
    Table& structure = other.AddTable(u"structure");
    Table& data = other.AddTable(u"data");
    other.SetAutoStructureUpdate(1);
    structure.SetCopyData(0);
    data.SetCopyStructure(0);
    database.ApplyOptions(&other, 0);
    EXPECT_EQ(OptionsOf(table), kNewTable);
    data.SetSelected(0);
    database.ApplyOptions(&other, 0);
    EXPECT_EQ(table.GetCopyStructure(), 1);
    EXPECT_EQ(table.GetCopyData(), 0);
    data.SetCopyData(1);
    structure.SetSelected(0);
    database.ApplyOptions(&other, 0);
    EXPECT_EQ(table.GetCopyStructure(), 0);
    EXPECT_EQ(table.GetCopyData(), 1);
    EXPECT_EQ(table.GetSelected(), 1);
}

TEST_F(Applying, TurnsAnUnknownTableOffWhenNoTableIsSelected) {
    Table& table = database.AddTable(u"new");
    other.SetAutoStructureUpdate(1);
    database.ApplyOptions(&other, 0);
    EXPECT_EQ(table.GetSelected(), 0);
    EXPECT_EQ(table.GetCopyData(), 0);
    EXPECT_EQ(table.GetCopyStructure(), 0);
}

TEST_F(Applying, LooksAtSelectedTablesOfTheOtherOnly) {
    Table& table = database.AddTable(u"new");
    other.SetAutoStructureUpdate(1);
    Table& theirs = other.AddTable(u"old");
    theirs.CQZObjectInfo::SetSelected(0);
    ASSERT_EQ(theirs.GetCopyData() + theirs.GetCopyStructure(), 2);
    database.ApplyOptions(&other, 0);
    EXPECT_EQ(table.GetCopyData(), 0);
    EXPECT_EQ(table.GetCopyStructure(), 0);
}

TEST_F(Applying, OverwritesAnUnknownTableWhereTablesAreOverwritten) {
    Table& table = database.AddTable(u"new");
    other.AddTable(u"old");
    other.SetAutoStructureUpdate(1);
    other.SetOverwriteTables(1);
    database.ApplyOptions(&other, 0);
    EXPECT_EQ(table.GetOverwriteTable(), 1);
    EXPECT_EQ(table.GetSyncInsert(), 0);
    table.SetSyncInsert(1);
    database.ApplyOptions(&other, 0);
    EXPECT_EQ(table.GetSyncInsert(), 1);
}

TEST_F(Applying, KeepsTheOverwritingThatAnUnknownTableHas) {
    Table& table = database.AddTable(u"new");
    table.SetOverwriteTable(2);
    other.AddTable(u"old");
    other.SetAutoStructureUpdate(1);
    other.SetOverwriteTables(1);
    database.ApplyOptions(&other, 0);
    EXPECT_EQ(table.GetOverwriteTable(), 2);
}

TEST_F(Applying, AddsTheUserFunctionsThatHaveACount) {
    database.m_mapUserFunctions.SetAt(u"mine", u"1");
    database.m_mapUserFunctions.SetAt(u"both", u"1");
    other.m_mapUserFunctions.SetAt(u"both", u"2");
    other.m_mapUserFunctions.SetAt(u"theirs", u"3");
    other.m_mapUserFunctions[u"none"];
    database.ApplyOptions(&other, 0);
    Names functions;
    for (const auto& [name, count] : database.m_mapUserFunctions) {
        functions.push_back(name.ToUtf8() + "=" + count.ToUtf8());
    }
    EXPECT_EQ(functions, Names({"mine=1", "both=2", "theirs=3"}));
}

TEST_F(Applying, ItsOwnOptionsChangesNothing) {
    FillWithSelectedAndOthers(database);
    SetAllOptions(database);
    const DatabaseOptions before = OptionsOf(database);
    database.ApplyOptions(&database, 0);
    EXPECT_EQ(OptionsOf(database), before);
    EXPECT_EQ(database.m_listTables.GetHead()->GetSelected(), 1);
    EXPECT_EQ(database.m_listQueries.GetHead()->GetSelected(), 0);
}

}  // namespace
