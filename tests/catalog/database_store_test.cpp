// Databases in a settings store.
#include <gtest/gtest.h>

#include <string>

#include "Concrete.h"
#include "DatabaseOptions.h"
#include "TableOptions.h"
#include "tests/support/MemoryStore.h"

namespace {

using concrete::Database;
using concrete::Factory;
using concrete::Filter;
using concrete::FilterItem;
using concrete::Query;
using concrete::Table;

template <class List>
Log NamesOf(const List& list) {
    Log names;
    for (const auto* object : list) names.push_back(object->GetSrcName().ToUtf8());
    return names;
}

TEST(DatabaseStore, SavesTheOptionsBehindTheBase) {
    Database database;
    SetAllOptions(database);
    MemoryStore store;
    database.Save(&store);
    EXPECT_EQ(BehindClose(store.log, 2), Log({"open Options 0",
                                              "OverwriteDatabase=11",
                                              "CloseExistingConnections=12",
                                              "OverwriteTables=13",
                                              "AutoStructureUpdate=14",
                                              "CreateLogsEnabled=15",
                                              "CreateDiff=16",
                                              "CreateUndiff=17",
                                              "BulkInsert=18",
                                              "Quant=19",
                                              "CaseState=20",
                                              "MaxThreads=21",
                                              "MaxQuant=22",
                                              "UseHistoryCopyData=23",
                                              "BidirectionalSync=24",
                                              "CleanHistoryAfterUse=25",
                                              "WithTriggers=26",
                                              "WithBidirectional=27",
                                              "HandleSelectedObjects=28",
                                              "close",
                                              "open Common 0",
                                              "GarbageSymbols='symbols'",
                                              "GarbageReplace='replace'",
                                              "Version='5.0.1 beta'",
                                              "SchemaName='schema'",
                                              "close",
                                              "open Queries 1",
                                              "close",
                                              "open Tables 1",
                                              "close"}));
}

/// What a query writes that persists by SaveQuery.
class SavedQuery final : public CQZQueryInfo {
 public:
    void SaveQuery(QZSettingsStore* pStore, int nUnused) override { pStore->WriteInt(u"SaveQuery", nUnused); }
};

TEST(DatabaseStore, SavesQueriesAndThenTablesNumberedFrom1) {
    Database database;
    database.AddTable(u"t1").AddField(u"f");
    database.AddTable(u"t2");
    database.m_listQueries.AddTail(new SavedQuery);
    database.m_listQueries.AddTail(new SavedQuery);
    MemoryStore store;
    database.Save(&store);
    Log sections;
    for (const std::string& call : From(store.log, "open Queries 1")) {
        if (call.rfind("open ", 0) == 0 || call.rfind("SaveQuery", 0) == 0) sections.push_back(call);
    }
    EXPECT_EQ(sections,
              Log({"open Queries 1",     "open Query1 1",     "SaveQuery=0",    "open Query2 1",  "SaveQuery=0",  //
                   "open Tables 1",      "open Table1 1",     "open Options 1", "open Common 1",  "open Options 0",
                   "open Fields 1",      "open Field1 1",     "open Options 1", "open Common 1",  "open Indexes 1",
                   "open ForeignKeys 1",  //
                   "open Table2 1",      "open Options 1",    "open Common 1",  "open Options 0", "open Fields 1",
                   "open Indexes 1",     "open ForeignKeys 1"}));
    EXPECT_EQ(store.root["Tables"]["Table2"]["Common"].texts["SrcName"], u"t2");
    EXPECT_EQ(store.Depth(), 0U);
}

TEST(DatabaseStore, ReadsItsKeysWithTheirDefaults) {
    MemoryStore store;
    Factory factory;
    Database database;
    SetAllOptions(database);
    database.Load(&store, &factory);
    EXPECT_EQ(BehindClose(store.log, 2), Log({"open Options 0",
                                              "OverwriteDatabase? 1",
                                              "CloseExistingConnections? 0",
                                              "OverwriteTables? 0",
                                              "AutoStructureUpdate? 1",
                                              "CreateLogsEnabled? 0",
                                              "CreateDiff? 0",
                                              "CreateUndiff? 0",
                                              "BulkInsert? 0",
                                              "Quant? 0",
                                              "CaseState? 0",
                                              "MaxThreads? 1",
                                              "MaxQuant? 1",
                                              "UseHistoryCopyData? 0",
                                              "BidirectionalSync? 0",
                                              "CleanHistoryAfterUse? 0",
                                              "WithTriggers? 0",
                                              "WithBidirectional? 0",
                                              "HandleSelectedObjects? 0",
                                              "close",
                                              "open Common 0",
                                              "GarbageSymbols? ''",
                                              "GarbageReplace? ''",
                                              "Version? ''",
                                              "SchemaName? ''",
                                              "close",
                                              "open Queries 1",
                                              "close",
                                              "open Tables 0",
                                              "close"}));
    EXPECT_EQ(OptionsOf(database), kDatabaseOfEmptyStore);
    EXPECT_EQ(database.GetGarbageSymbols(), u"");
    EXPECT_EQ(database.GetVersion(), u"");
    EXPECT_EQ(database.GetSchemaName(), u"");
    EXPECT_EQ(database.GetExtraText(), u"extra");
}

TEST(DatabaseStore, MakesTheSectionOfTheQueriesAndNoOtherWhileLoading) {
    MemoryStore store;
    Factory factory;
    Database database;
    database.Load(&store, &factory);
    EXPECT_NE(store.root.Find("Queries"), nullptr);
    EXPECT_EQ(store.root.sections.size(), 1U);
}

TEST(DatabaseStore, LoadsWhatItSaved) {
    Database saved;
    Table& table = saved.AddTable(u"t1");
    table.AddField(u"f1");
    table.AddIndex(u"i1");
    table.AddForeignKey(u"k1");
    Filter filter(2);
    filter.m_listItems.AddTail(new FilterItem(u"f1", 1, QZFieldValue(u"10", 4), 2));
    table.SetFilter(&filter);
    saved.AddTable(u"t2").SetSelected(0);
    saved.AddQuery(u"q1").SetSelected(0);
    saved.AddQuery(u"q2").SetName(u"Q");
    SetAllOptions(saved);
    MemoryStore store;
    saved.Save(&store);
    Factory factory;
    Database loaded;
    loaded.dbType = 16;
    loaded.Load(&store, &factory);
    EXPECT_EQ(OptionsOf(loaded), OptionsOf(saved));
    EXPECT_EQ(loaded.GetVersion(), u"5.0.1 beta");
    EXPECT_EQ(loaded.GetSchemaName(), u"schema");
    EXPECT_EQ(NamesOf(loaded.m_listTables), Log({"t1", "t2"}));
    EXPECT_EQ(NamesOf(loaded.m_listQueries), Log({"q1", "q2"}));
    EXPECT_EQ(OptionsOf(*loaded.m_listTables.GetHead()), OptionsOf(table));
    EXPECT_EQ(OptionsOf(*loaded.m_listTables.GetTail()), OptionsOf(*saved.m_listTables.GetTail()));
    EXPECT_EQ(loaded.m_listQueries.GetHead()->GetSelected(), 0);
    EXPECT_EQ(loaded.m_listQueries.GetTail()->GetName(), u"Q");
    EXPECT_EQ(loaded.m_listTables.GetHead()->GetFilter()->m_listItems.GetCount(), 1);
    EXPECT_EQ(factory.made, Log({"Query 16", "Query 16", "Table 16", "Field 2", "Index 2", "ForeignKey 2", "Filter 2",
                                 "FilterItem 2", "Table 16"}));
    EXPECT_EQ(store.Depth(), 0U);
}

TEST(DatabaseStore, LeavesWhatWasListedAlive) {
    Database database;
    const std::unique_ptr<Table> table(&database.AddTable(u"old"));
    const std::unique_ptr<Query> query(&database.AddQuery(u"old"));
    MemoryStore store;
    store.root["Tables"]["Table1"]["Common"].texts["SrcName"] = u"new";
    Factory factory;
    database.Load(&store, &factory);
    EXPECT_EQ(NamesOf(database.m_listTables), Log({"new"}));
    EXPECT_TRUE(database.m_listQueries.IsEmpty());
    EXPECT_EQ(table->GetSrcName(), u"old");
    EXPECT_EQ(query->GetSrcName(), u"old");
    // The options of the store have not gone through the rules of the old table.
    EXPECT_EQ(database.GetOverwriteDatabase(), 1);
    EXPECT_EQ(table->GetOverwriteTable(), 0);
}

TEST(DatabaseStore, FollowsTheSubsectionsNotTheirNumbers) {
    MemoryStore store;
    store.root["Tables"]["Table7"]["Common"].texts["SrcName"] = u"seven";
    store.root["Queries"]["Query9"]["Common"].texts["SrcName"] = u"nine";
    store.root["Queries"]["Query1"]["Common"].texts["SrcName"] = u"one";
    Factory factory;
    Database database;
    database.Load(&store, &factory);
    EXPECT_EQ(NamesOf(database.m_listTables), Log({"seven"}));
    EXPECT_EQ(NamesOf(database.m_listQueries), Log({"nine", "one"}));
}

TEST(DatabaseStore, KeepsEightBitsOfTheThreadsAndSixteenOfTheCaseState) {
    MemoryStore store;
    store.root["Options"].numbers = {{"MaxThreads", 257}, {"CaseState", 65537}};
    Factory factory;
    Database database;
    database.Load(&store, &factory);
    EXPECT_EQ(database.GetMaxThreads(), 1);
    EXPECT_EQ(database.GetCaseState(), 1);
    store.root["Options"].numbers = {{"MaxThreads", 255}, {"CaseState", -2}};
    database.Load(&store, &factory);
    EXPECT_EQ(database.GetMaxThreads(), 255);
    EXPECT_EQ(database.GetCaseState(), -2);
    database.Save(&store);
    EXPECT_EQ(store.root["Options"].numbers["MaxThreads"], 255);
    EXPECT_EQ(store.root["Options"].numbers["CaseState"], -2);
}

TEST(DatabaseStore, KeepsOptionsOfDatabaseAndTableApart) {
    Database saved;
    saved.AddTable(u"t");
    saved.SetSelected(0);
    MemoryStore store;
    saved.Save(&store);
    EXPECT_EQ(store.root["Options"].numbers.count("MaxQuant"), 1U);
    EXPECT_EQ(store.root["Options"].numbers.count("CopyData"), 0U);
    EXPECT_EQ(store.root["Tables"]["Table1"]["Options"].numbers.count("CopyData"), 1U);
    EXPECT_EQ(store.root["Tables"]["Table1"]["Options"].numbers.count("MaxQuant"), 0U);
}

TEST(DatabaseStore, PersistsNeitherUserFunctionsNorTheExtraText) {
    Database saved;
    saved.m_mapUserFunctions.SetAt(u"f", u"2");
    saved.SetExtraText(u"extra");
    MemoryStore store;
    saved.Save(&store);
    Factory factory;
    Database loaded;
    loaded.Load(&store, &factory);
    EXPECT_TRUE(loaded.m_mapUserFunctions.IsEmpty());
    EXPECT_EQ(loaded.GetExtraText(), u"");
}

TEST(DatabaseStore, GivesWhatItLoadsNoDatabase) {
    MemoryStore store;
    store.root["Tables"].sections.emplace_back("Table1", MemorySection());
    store.root["Queries"].sections.emplace_back("Query1", MemorySection());
    Factory factory;
    Database database;
    database.Load(&store, &factory);
    EXPECT_EQ(database.m_listTables.GetHead()->GetDatabase(), nullptr);
    EXPECT_EQ(database.m_listQueries.GetHead()->GetDatabase(), nullptr);
}

TEST(DatabaseStore, PassesOverWhatTheHostHasNoClassFor) {
    Database saved;
    saved.AddTable(u"t");
    saved.AddQuery(u"q");
    MemoryStore store;
    saved.Save(&store);
    Factory factory;
    factory.missing = "Table";
    Database withoutTables;
    withoutTables.Load(&store, &factory);
    EXPECT_TRUE(withoutTables.m_listTables.IsEmpty());
    EXPECT_EQ(withoutTables.m_listQueries.GetCount(), 1);
    factory.missing = "Query";
    Database withoutQueries;
    withoutQueries.Load(&store, &factory);
    EXPECT_EQ(withoutQueries.m_listTables.GetCount(), 1);
    EXPECT_TRUE(withoutQueries.m_listQueries.IsEmpty());
}

TEST(DatabaseStore, FreesWhatItLoadedWhenTheStoreThrows) {
    Database saved;
    saved.AddTable(u"t1").AddField(u"f");
    saved.AddQuery(u"q");
    MemoryStore store;
    saved.Save(&store);
    store.throwsAt = u"CopyData";
    Factory factory;
    Database database;
    EXPECT_THROW(database.Load(&store, &factory), std::string);
    EXPECT_EQ(database.m_listQueries.GetCount(), 1);
    EXPECT_TRUE(database.m_listTables.IsEmpty());
    EXPECT_EQ(store.Depth(), 0U);
}

}  // namespace
