// Tables in a settings store.
#include <gtest/gtest.h>

#include <string>

#include "Concrete.h"
#include "TableOptions.h"
#include "tests/support/MemoryStore.h"

namespace {

using concrete::Factory;
using concrete::Field;
using concrete::Filter;
using concrete::FilterItem;
using concrete::Table;

void SetFilter(Table& table, int dbType) {
    Filter filter(dbType);
    filter.m_listItems.AddTail(new FilterItem(u"f2", 1, QZFieldValue(u"10", 4), 2));
    table.SetFilter(&filter);
}

void Fill(Table& table) {
    table.AddField(u"f1");
    table.AddField(u"f2").SetSelected(0);
    table.AddIndex(u"i1").SetCorrect(3);
    table.AddForeignKey(u"k1");
    table.AddForeignKey(u"k2");
    SetFilter(table, 7);
}

template <class List>
Log NamesOf(const List& list) {
    Log names;
    for (const auto* object : list) names.push_back(object->GetSrcName().ToUtf8());
    return names;
}

const Log kNoChildren = {"open Fields 1", "close", "open Indexes 1", "close", "open ForeignKeys 1", "close"};

TEST(TableStore, SavesTheOptionsBehindTheBase) {
    Table table;
    table.SetSyncInsert(2).SetSyncUpdate(3).SetSyncDrop(4);
    table.SetModifyFields(5);
    table.SetModifyIndexes(6);
    table.SetModifyForeignKeys(7);
    MemoryStore store;
    table.Save(&store);
    Log expected = {"open Options 0",
                    "CopyStructure=1",
                    "CopyIndexes=1",
                    "CopyForeignKeys=1",
                    "CopyData=1",
                    "OverwriteTable=0",
                    "ModifyFields=5",
                    "ModifyIndexes=6",
                    "ModifyForeignKeys=7",
                    "SyncInsert=2",
                    "SyncUpdate=3",
                    "SyncDrop=4",
                    "close"};
    expected.insert(expected.end(), kNoChildren.begin(), kNoChildren.end());
    EXPECT_EQ(BehindClose(store.log, 2), expected);
    EXPECT_EQ(store.root["Options"].numbers.count("Selected"), 1U);
    EXPECT_EQ(store.root["Options"].numbers.size(), 13U);
}

Log Opened(const Log& log) {
    Log sections;
    for (const std::string& call : log) {
        if (call.rfind("open ", 0) == 0) sections.push_back(call.substr(5));
    }
    return sections;
}

TEST(TableStore, SavesTheChildrenNumberedFrom1AndTheFilterWithItsKind) {
    Table table;
    Fill(table);
    MemoryStore store;
    table.Save(&store);
    EXPECT_EQ(Opened(store.log), Log({"Options 1",     "Common 1",      "Options 0",  //
                                      "Fields 1",      "Field1 1",      "Options 1", "Common 1",     "Field2 1",
                                      "Options 1",     "Common 1",                                //
                                      "Indexes 1",     "Index1 1",      "Options 1", "Common 1",  //
                                      "ForeignKeys 1", "ForeignKey1 1", "Options 1", "Common 1",     "ForeignKey2 1",
                                      "Options 1",     "Common 1",      "Filter 1",  "Condition1 1", "Value 1"}));
    EXPECT_EQ(From(store.log, "open Filter 1"),
              Log({"open Filter 1", "DBType=7", "SQLQuery=''", "UseSQLQuery=0", "open Condition1 1", "FieldID='f2'",
                   "Condition=1", "ConditionAdd=2", "open Value 1", "IsNULL=0", "Type=4", "Value='10'", "close",
                   "close", "close"}));
    EXPECT_EQ(store.root["ForeignKeys"]["ForeignKey2"]["Common"].texts["SrcName"], u"k2");
    EXPECT_EQ(store.Depth(), 0U);
}

TEST(TableStore, LoadsWhatItSaved) {
    Table saved;
    Fill(saved);
    saved.SetName(u"Target");
    saved.SetModifyIndexes(1);
    saved.SetCopyForeignKeys(0);
    saved.SetCopyData(0);
    MemoryStore store;
    saved.Save(&store);
    Factory factory;
    Table loaded;
    loaded.dbType = 16;
    loaded.Load(&store, &factory);
    EXPECT_EQ(OptionsOf(loaded), OptionsOf(saved));
    EXPECT_EQ(loaded.GetName(), u"Target");
    EXPECT_EQ(NamesOf(loaded.m_listFields), Log({"f1", "f2"}));
    EXPECT_EQ(NamesOf(loaded.m_listIndexes), Log({"i1"}));
    EXPECT_EQ(NamesOf(loaded.m_listForeignKeys), Log({"k1", "k2"}));
    EXPECT_EQ(loaded.m_listFields.GetTail()->GetSelected(), 0);
    EXPECT_EQ(loaded.m_listIndexes.GetHead()->GetCorrect(), 3);
    ASSERT_NE(loaded.GetFilter(), nullptr);
    EXPECT_EQ(loaded.GetFilter()->GetDBType(), 7);
    EXPECT_EQ(loaded.GetFilter()->m_listItems.GetHead()->GetFieldID(), u"f2");
    EXPECT_EQ(factory.made,
              Log({"Field 16", "Field 16", "Index 16", "ForeignKey 16", "ForeignKey 16", "Filter 7", "FilterItem 7"}));
}

TEST(TableStore, ReadsItsKeysWithTheirDefaults) {
    MemoryStore store;
    Factory factory;
    Table table;
    table.Load(&store, &factory);
    EXPECT_EQ(BehindClose(store.log, 2),
              Log({"open Options 0", "CopyStructure? 1", "CopyIndexes? 1", "CopyForeignKeys? 1", "CopyData? 1",
                   "OverwriteTable? 0", "ModifyFields? 0", "ModifyIndexes? 0", "ModifyForeignKeys? 0", "SyncInsert? 1",
                   "SyncUpdate? 1", "SyncDrop? 1", "close", "open Fields 0", "close", "open Indexes 0", "close",
                   "exists ForeignKeys", "exists Filter"}));
    EXPECT_TRUE(store.root.sections.empty());
}

TEST(TableStore, LoadsDefaultsInPlaceOfWhatItHeld) {
    Table table;
    Fill(table);
    table.SetModifyFields(1);
    table.SetSelected(0);
    table.AddIndex(u"primary").primaryIndex = 1;
    ASSERT_NE(table.GetPrimaryIndex(), nullptr);
    MemoryStore store;
    Factory factory;
    table.Load(&store, &factory);
    EXPECT_EQ(OptionsOf(table), kNewTable);
    EXPECT_TRUE(table.m_listFields.IsEmpty());
    EXPECT_TRUE(table.m_listIndexes.IsEmpty());
    EXPECT_TRUE(table.m_listForeignKeys.IsEmpty());
    EXPECT_EQ(table.GetFilter(), nullptr);
    EXPECT_EQ(table.GetPrimaryIndex(), nullptr);
    table.AddIndex(u"i");
    table.AddForeignKey(u"k");
    EXPECT_EQ(table.GetCopyIndexes(), 1);
    EXPECT_EQ(table.GetCopyForeignKeys(), 1);
}

TEST(TableStore, LoadsOptionsWithoutTheRulesOfTheSetters) {
    MemoryStore store;
    store.root["Options"].numbers = {{"Selected", 0}, {"CopyStructure", 0}, {"OverwriteTable", 1}, {"ModifyFields", 1}};
    Factory factory;
    Table table;
    table.Load(&store, &factory);
    EXPECT_EQ(table.GetSelected(), 0);
    EXPECT_EQ(table.GetCopyStructure(), 0);
    EXPECT_EQ(table.GetCopyData(), 1);
    EXPECT_EQ(table.GetOverwriteTable(), 1);
    EXPECT_EQ(table.GetModifyFields(), 1);
    EXPECT_EQ(table.GetSyncInsert(), 1);
}

TEST(TableStore, LoadsChildrenInTheOrderOfTheSubsections) {
    MemoryStore store;
    for (const char* name : {"Field10", "Field2", "Other"}) {
        store.root["Fields"][name]["Common"].texts["SrcName"] = CString::FromUtf8(name);
    }
    store.root["Indexes"]["Index7"]["Options"].texts["SrcName"] = u"i";
    Factory factory;
    Table table;
    table.Load(&store, &factory);
    EXPECT_EQ(NamesOf(table.m_listFields), Log({"Field10", "Field2", "Other"}));
    EXPECT_EQ(NamesOf(table.m_listIndexes), Log({"i"}));
}

TEST(TableStore, LoadsSectionsInAnyOrder) {
    MemoryStore store;
    store.root["Filter"].texts["SQLQuery"] = u"x > 1";
    store.root["ForeignKeys"]["ForeignKey1"]["Common"].texts["SrcName"] = u"k";
    store.root["Fields"]["Field1"]["Common"].texts["SrcName"] = u"f";
    store.root["Common"].texts["SrcName"] = u"t";
    Factory factory;
    Table table;
    table.Load(&store, &factory);
    EXPECT_EQ(table.GetSrcName(), u"t");
    EXPECT_EQ(NamesOf(table.m_listFields), Log({"f"}));
    EXPECT_EQ(NamesOf(table.m_listForeignKeys), Log({"k"}));
    ASSERT_NE(table.GetFilter(), nullptr);
    EXPECT_EQ(table.GetFilter()->GetSQLQuery(), u"x > 1");
    EXPECT_EQ(factory.made, Log({"Field 2", "ForeignKey 2", "Filter 0"}));
    EXPECT_EQ(From(store.log, "exists Filter"),
              Log({"exists Filter", "open Filter 0", "DBType? 0", "SQLQuery? ''", "UseSQLQuery? 0", "close"}));
}

TEST(TableStore, KeepsAFilterThatItLoadsAsItIs) {
    MemoryStore store;
    store.root["Filter"]["Condition1"].texts["FieldID"] = u"gone";
    Factory factory;
    Table table;
    table.Load(&store, &factory);
    ASSERT_NE(table.GetFilter(), nullptr);
    EXPECT_EQ(table.GetFilter()->m_listItems.GetCount(), 1);
}

TEST(TableStore, GivesLoadedChildrenNoOwner) {
    MemoryStore store;
    store.root["Fields"].sections.emplace_back("Field1", MemorySection());
    Factory factory;
    Table table;
    table.Load(&store, &factory);
    EXPECT_EQ(static_cast<Field*>(table.m_listFields.GetHead())->owner, nullptr);
}

TEST(TableStore, PassesOverWhatTheHostHasNoClassFor) {
    Table saved;
    Fill(saved);
    MemoryStore store;
    saved.Save(&store);
    for (const char* missing : {"Field", "Index", "ForeignKey", "Filter"}) {
        Factory factory;
        factory.missing = missing;
        Table table;
        table.Load(&store, &factory);
        const bool hasFilter = table.GetFilter() != nullptr;
        const int loaded = table.m_listFields.GetCount() + table.m_listIndexes.GetCount() +
                           table.m_listForeignKeys.GetCount() + (hasFilter ? 1 : 0);
        const int passedOver = missing == std::string("Index") || missing == std::string("Filter") ? 1 : 2;
        EXPECT_EQ(loaded, 6 - passedOver) << missing;
        EXPECT_EQ(store.Depth(), 0U);
    }
}

TEST(TableStore, FreesWhatItLoadedWhenTheStoreThrows) {
    Table saved;
    Fill(saved);
    MemoryStore store;
    saved.Save(&store);
    Factory factory;
    for (const char16_t* key : {u"Condition", u"Length", u"SyncDrop"}) {
        store.throwsAt = key;
        Table table;
        EXPECT_THROW(table.Load(&store, &factory), std::string);
        EXPECT_EQ(store.Depth(), 0U);
    }
}

}  // namespace
