// How a table's setters keep its options, its children's selections and its database in line.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "Concrete.h"
#include "TableOptions.h"

namespace {

using concrete::Database;
using concrete::Field;
using concrete::ForeignKey;
using concrete::Index;
using concrete::Table;

using Selections = std::vector<int>;

class TableRules : public testing::Test {
 protected:
    /// The options that the call changes, with their new values.
    Options ChangedBy(const std::function<void()>& call) const {
        const Options before = OptionsOf(table);
        call();
        Options changed;
        for (const auto& [name, value] : OptionsOf(table)) {
            if (value != before.at(name)) changed[name] = value;
        }
        return changed;
    }

    void ForgetSelections() {
        field.selections.clear();
        index.selections.clear();
        key.selections.clear();
    }

    Database database;
    Table& table = database.AddTable(u"t");
    Field& field = table.AddField(u"f");
    Index& index = table.AddIndex(u"i");
    ForeignKey& key = table.AddForeignKey(u"k");
};

const Options kNothing;

// SetSelected

TEST_F(TableRules, DeselectingATableTurnsAllOff) {
    EXPECT_EQ(ChangedBy([&] { table.SetSelected(0); }), Options({{"Selected", 0},
                                                                 {"CopyStructure", 0},
                                                                 {"CopyIndexes", 0},
                                                                 {"CopyForeignKeys", 0},
                                                                 {"CopyData", 0},
                                                                 {"SyncInsert", 0},
                                                                 {"SyncUpdate", 0},
                                                                 {"SyncDrop", 0}}));
    EXPECT_EQ(field.selections, Selections({0}));
    EXPECT_EQ(index.selections, Selections({0}));
    EXPECT_EQ(key.selections, Selections({0}));
    EXPECT_EQ(database.GetSelected(), 0);
}

TEST_F(TableRules, SelectingATableAgainLeavesSynchronisingOff) {
    table.SetSelected(0);
    ForgetSelections();
    EXPECT_EQ(
        ChangedBy([&] { table.SetSelected(1); }),
        Options({{"Selected", 1}, {"CopyStructure", 1}, {"CopyIndexes", 1}, {"CopyForeignKeys", 1}, {"CopyData", 1}}));
    EXPECT_EQ(field.selections, Selections({1}));
    EXPECT_EQ(index.selections, Selections({1}));
    EXPECT_EQ(key.selections, Selections({1}));
    EXPECT_EQ(database.GetSelected(), 1);
}

TEST_F(TableRules, SettingThePresentSelectionDoesNothing) {
    table.SetCopyStructure(0);
    ForgetSelections();
    EXPECT_EQ(ChangedBy([&] { table.SetSelected(1); }), kNothing);
    EXPECT_EQ(field.selections, Selections());
}

TEST_F(TableRules, SelectionIsOneForAnyStructureOrData) {
    EXPECT_EQ(ChangedBy([&] { table.SetSelected(2); }),
              Options({{"CopyStructure", 2}, {"CopyIndexes", 0}, {"CopyForeignKeys", 0}, {"CopyData", 2}}));
    EXPECT_EQ(table.GetSelected(), 1);
}

// SetCopyStructure

TEST_F(TableRules, WithoutStructureThereAreNoIndexesAndKeysButData) {
    EXPECT_EQ(ChangedBy([&] { table.SetCopyStructure(0); }),
              Options({{"CopyStructure", 0}, {"CopyIndexes", 0}, {"CopyForeignKeys", 0}}));
    EXPECT_EQ(field.selections, Selections());
    EXPECT_EQ(index.selections, Selections({0}));
    EXPECT_EQ(key.selections, Selections({0}));
}

TEST_F(TableRules, WithoutDataTheStructureDecidesOnFieldsAndSelection) {
    table.SetCopyData(0);
    EXPECT_EQ(ChangedBy([&] { table.SetCopyStructure(0); }),
              Options({{"Selected", 0}, {"CopyStructure", 0}, {"CopyIndexes", 0}, {"CopyForeignKeys", 0}}));
    EXPECT_EQ(field.selections, Selections({0}));
    EXPECT_EQ(database.GetSelected(), 0);
    EXPECT_EQ(ChangedBy([&] { table.SetCopyStructure(1); }),
              Options({{"Selected", 1}, {"CopyStructure", 1}, {"CopyIndexes", 1}, {"CopyForeignKeys", 1}}));
    EXPECT_EQ(field.selections, Selections({0, 1}));
    EXPECT_EQ(database.GetSelected(), 1);
}

TEST_F(TableRules, WithoutStructureNothingIsOverwrittenOrModified) {
    table.SetModifyFields(1);
    table.SetModifyIndexes(1);
    table.SetModifyForeignKeys(1);
    EXPECT_EQ(ChangedBy([&] { table.SetCopyStructure(0); }), Options({{"CopyStructure", 0},
                                                                      {"CopyIndexes", 0},
                                                                      {"CopyForeignKeys", 0},
                                                                      {"ModifyFields", 0},
                                                                      {"ModifyIndexes", 0},
                                                                      {"ModifyForeignKeys", 0}}));
    table.SetCopyStructure(1);
    table.SetOverwriteTable(1);
    EXPECT_EQ(ChangedBy([&] { table.SetCopyStructure(0); }),
              Options({{"CopyStructure", 0}, {"CopyIndexes", 0}, {"CopyForeignKeys", 0}, {"OverwriteTable", 0}}));
}

TEST_F(TableRules, WhereTheDatabaseIsOverwrittenDataGoesWithTheStructure) {
    database.SetOverwriteDatabase(1);
    EXPECT_EQ(ChangedBy([&] { table.SetCopyStructure(0); }), Options({{"Selected", 0},
                                                                      {"CopyStructure", 0},
                                                                      {"CopyIndexes", 0},
                                                                      {"CopyForeignKeys", 0},
                                                                      {"CopyData", 0},
                                                                      {"OverwriteTable", 0}}));
    EXPECT_EQ(field.selections, Selections({0}));
}

TEST_F(TableRules, WhereTheDatabaseIsOverwrittenStructureOverwritesTheTable) {
    table.SetSelected(0);
    database.SetOverwriteDatabase(1);
    EXPECT_EQ(ChangedBy([&] { table.SetCopyStructure(1); }), Options({{"Selected", 1},
                                                                      {"CopyStructure", 1},
                                                                      {"CopyIndexes", 1},
                                                                      {"CopyForeignKeys", 1},
                                                                      {"OverwriteTable", 1}}));
}

TEST_F(TableRules, SettingThePresentStructureDoesNothing) {
    table.SetCopyIndexes(0);
    ForgetSelections();
    EXPECT_EQ(ChangedBy([&] { table.SetCopyStructure(1); }), kNothing);
    EXPECT_EQ(index.selections, Selections());
}

// SetCopyData

TEST_F(TableRules, WithoutDataNothingIsSynchronised) {
    EXPECT_EQ(ChangedBy([&] { table.SetCopyData(0); }),
              Options({{"CopyData", 0}, {"SyncInsert", 0}, {"SyncUpdate", 0}, {"SyncDrop", 0}}));
    EXPECT_EQ(field.selections, Selections());
    EXPECT_EQ(ChangedBy([&] { table.SetCopyData(1); }), Options({{"CopyData", 1}}));
    EXPECT_EQ(field.selections, Selections());
}

TEST_F(TableRules, WithoutStructureTheDataDecidesOnFieldsAndSelection) {
    table.SetCopyStructure(0);
    ForgetSelections();
    EXPECT_EQ(ChangedBy([&] { table.SetCopyData(0); }),
              Options({{"Selected", 0}, {"CopyData", 0}, {"SyncInsert", 0}, {"SyncUpdate", 0}, {"SyncDrop", 0}}));
    EXPECT_EQ(field.selections, Selections({0}));
    EXPECT_EQ(database.GetSelected(), 0);
    EXPECT_EQ(ChangedBy([&] { table.SetCopyData(1); }), Options({{"Selected", 1}, {"CopyData", 1}}));
    EXPECT_EQ(field.selections, Selections({0, 1}));
    EXPECT_EQ(index.selections, Selections());
    EXPECT_EQ(database.GetSelected(), 1);
}

TEST_F(TableRules, WhereTheDatabaseIsOverwrittenStructureComesWithTheData) {
    table.SetSelected(0);
    database.SetOverwriteDatabase(1);
    ForgetSelections();
    EXPECT_EQ(ChangedBy([&] { table.SetCopyData(1); }), Options({{"Selected", 1},
                                                                 {"CopyData", 1},
                                                                 {"CopyStructure", 1},
                                                                 {"CopyIndexes", 1},
                                                                 {"CopyForeignKeys", 1},
                                                                 {"OverwriteTable", 1}}));
    EXPECT_EQ(field.selections, Selections({1}));
}

TEST_F(TableRules, SettingThePresentDataDoesNothing) {
    table.SetCopyStructure(0);
    EXPECT_EQ(ChangedBy([&] { table.SetCopyData(1); }), kNothing);
    EXPECT_EQ(field.selections, Selections());
}

// SetCopyIndexes and SetCopyForeignKeys

TEST_F(TableRules, IndexesAreSelectedAsTheyAreCopied) {
    table.SetModifyIndexes(1);
    EXPECT_EQ(ChangedBy([&] { table.SetCopyIndexes(0); }), Options({{"CopyIndexes", 0}, {"ModifyIndexes", 0}}));
    EXPECT_EQ(ChangedBy([&] { table.SetCopyIndexes(1); }), Options({{"CopyIndexes", 1}}));
    EXPECT_EQ(index.selections, Selections({0, 1}));
    EXPECT_EQ(key.selections, Selections());
    table.SetCopyIndexes(1);
    EXPECT_EQ(index.selections, Selections({0, 1}));
}

TEST_F(TableRules, KeysAreSelectedAsTheyAreCopied) {
    table.SetModifyForeignKeys(1);
    EXPECT_EQ(ChangedBy([&] { table.SetCopyForeignKeys(0); }),
              Options({{"CopyForeignKeys", 0}, {"ModifyForeignKeys", 0}}));
    EXPECT_EQ(ChangedBy([&] { table.SetCopyForeignKeys(1); }), Options({{"CopyForeignKeys", 1}}));
    EXPECT_EQ(key.selections, Selections({0, 1}));
    EXPECT_EQ(index.selections, Selections());
    table.SetCopyForeignKeys(1);
    EXPECT_EQ(key.selections, Selections({0, 1}));
}

TEST_F(TableRules, IndexesAndKeysAreRefusedWithoutStructure) {
    table.SetCopyStructure(0);
    ForgetSelections();
    EXPECT_EQ(ChangedBy([&] { table.SetCopyIndexes(1); }), kNothing);
    EXPECT_EQ(ChangedBy([&] { table.SetCopyForeignKeys(1); }), kNothing);
    EXPECT_EQ(index.selections, Selections());
    EXPECT_EQ(key.selections, Selections());
}

// SetOverwriteTable

TEST_F(TableRules, ATableThatIsOverwrittenIsNeitherModifiedNorSynchronised) {
    table.SetModifyFields(1);
    table.SetModifyIndexes(1);
    table.SetModifyForeignKeys(1);
    EXPECT_EQ(ChangedBy([&] { table.SetOverwriteTable(1); }), Options({{"OverwriteTable", 1},
                                                                       {"ModifyFields", 0},
                                                                       {"ModifyIndexes", 0},
                                                                       {"ModifyForeignKeys", 0},
                                                                       {"SyncInsert", 0},
                                                                       {"SyncUpdate", 0},
                                                                       {"SyncDrop", 0}}));
    EXPECT_EQ(ChangedBy([&] { table.SetOverwriteTable(0); }), Options({{"OverwriteTable", 0}}));
}

TEST_F(TableRules, OverwritingIsRefusedWithoutStructure) {
    table.SetCopyStructure(0);
    EXPECT_EQ(ChangedBy([&] { table.SetOverwriteTable(1); }), kNothing);
}

TEST_F(TableRules, NotOverwritingIsRefusedWhereTheDatabaseIsOverwritten) {
    database.SetOverwriteDatabase(1);
    EXPECT_EQ(ChangedBy([&] { table.SetOverwriteTable(0); }), kNothing);
    EXPECT_EQ(table.GetOverwriteTable(), 1);
    database.SetOverwriteDatabase(0);
    EXPECT_EQ(ChangedBy([&] { table.SetOverwriteTable(0); }), Options({{"OverwriteTable", 0}}));
}

TEST_F(TableRules, SettingThePresentOverwritingDoesNothing) {
    table.SetOverwriteTable(1);
    table.SetSyncInsert(1);
    EXPECT_EQ(ChangedBy([&] { table.SetOverwriteTable(1); }), kNothing);
    EXPECT_EQ(ChangedBy([&] { table.SetOverwriteTable(2); }), Options({{"OverwriteTable", 2}, {"SyncInsert", 0}}));
}

// SetModifyFields, SetModifyIndexes, SetModifyForeignKeys

TEST_F(TableRules, WhatIsCopiedMayBeModified) {
    EXPECT_EQ(ChangedBy([&] { table.SetModifyFields(1); }), Options({{"ModifyFields", 1}}));
    EXPECT_EQ(ChangedBy([&] { table.SetModifyIndexes(1); }), Options({{"ModifyIndexes", 1}}));
    EXPECT_EQ(ChangedBy([&] { table.SetModifyForeignKeys(1); }), Options({{"ModifyForeignKeys", 1}}));
    EXPECT_EQ(ChangedBy([&] { table.SetModifyFields(0); }), Options({{"ModifyFields", 0}}));
    EXPECT_EQ(ChangedBy([&] { table.SetModifyIndexes(0); }), Options({{"ModifyIndexes", 0}}));
    EXPECT_EQ(ChangedBy([&] { table.SetModifyForeignKeys(0); }), Options({{"ModifyForeignKeys", 0}}));
}

TEST_F(TableRules, ModifyingIsRefusedForWhatIsNotCopied) {
    table.SetCopyIndexes(0);
    EXPECT_EQ(ChangedBy([&] { table.SetModifyIndexes(1); }), kNothing);
    EXPECT_EQ(ChangedBy([&] { table.SetModifyForeignKeys(1); }), Options({{"ModifyForeignKeys", 1}}));
    table.SetCopyForeignKeys(0);
    EXPECT_EQ(ChangedBy([&] { table.SetModifyForeignKeys(1); }), kNothing);
    table.SetCopyStructure(0);
    EXPECT_EQ(ChangedBy([&] { table.SetModifyFields(1); }), kNothing);
}

TEST_F(TableRules, ModifyingIsRefusedForATableThatIsOverwritten) {
    table.SetOverwriteTable(1);
    EXPECT_EQ(ChangedBy([&] { table.SetModifyFields(1); }), kNothing);
    EXPECT_EQ(ChangedBy([&] { table.SetModifyIndexes(1); }), kNothing);
    EXPECT_EQ(ChangedBy([&] { table.SetModifyForeignKeys(1); }), kNothing);
}

TEST_F(TableRules, ModifyingAsksForTheStoredOptionNotForIndexesAndKeys) {
    Table bare;
    bare.SetModifyIndexes(1);
    bare.SetModifyForeignKeys(1);
    EXPECT_EQ(bare.GetModifyIndexes(), 1);
    EXPECT_EQ(bare.GetModifyForeignKeys(), 1);
}

// SetSyncInsert, SetSyncUpdate, SetSyncDrop

TEST_F(TableRules, SynchronisingIsPlainAndChains) {
    table.SetOverwriteTable(1);
    EXPECT_EQ(ChangedBy([&] { EXPECT_EQ(&table.SetSyncInsert(2).SetSyncUpdate(3).SetSyncDrop(4), &table); }),
              Options({{"SyncInsert", 2}, {"SyncUpdate", 3}, {"SyncDrop", 4}}));
}

// RefreshSelection

TEST_F(TableRules, RefreshingWithoutSelectedChildrenTurnsAllOff) {
    table.SetModifyFields(1);
    table.SetModifyIndexes(1);
    table.SetModifyForeignKeys(1);
    field.SetSelected(0);
    index.SetSelected(0);
    key.SetSelected(0);
    EXPECT_EQ(ChangedBy([&] { table.RefreshSelection(0); }), Options({{"Selected", 0},
                                                                      {"CopyStructure", 0},
                                                                      {"CopyData", 0},
                                                                      {"CopyIndexes", 0},
                                                                      {"CopyForeignKeys", 0},
                                                                      {"ModifyFields", 0},
                                                                      {"ModifyIndexes", 0},
                                                                      {"ModifyForeignKeys", 0}}));
    EXPECT_EQ(database.GetSelected(), 0);
}

TEST_F(TableRules, RefreshingASelectedTableTurnsStructureAndDataOn) {
    table.SetSelected(0);
    field.SetSelected(1);
    EXPECT_EQ(ChangedBy([&] { table.RefreshSelection(7); }),
              Options({{"Selected", 1}, {"CopyStructure", 1}, {"CopyData", 1}}));
    EXPECT_EQ(database.GetSelected(), 1);
}

TEST_F(TableRules, RefreshingKeepsStructureOrDataThatIsOnAlone) {
    table.SetCopyStructure(0);
    EXPECT_EQ(ChangedBy([&] { table.RefreshSelection(0); }), kNothing);
    table.SetCopyStructure(1);
    table.SetCopyData(0);
    EXPECT_EQ(ChangedBy([&] { table.RefreshSelection(0); }), kNothing);
}

TEST_F(TableRules, RefreshingWithAnIndexAloneLeavesNoData) {
    table.SetSelected(0);
    index.SetSelected(1);
    EXPECT_EQ(ChangedBy([&] { table.RefreshSelection(0); }),
              Options({{"Selected", 1}, {"CopyStructure", 1}, {"CopyIndexes", 1}}));
}

TEST_F(TableRules, RefreshingFollowsEachKindOfChild) {
    table.SetModifyFields(1);
    table.SetModifyIndexes(1);
    table.SetModifyForeignKeys(1);
    index.SetSelected(0);
    EXPECT_EQ(ChangedBy([&] { table.RefreshSelection(0); }), Options({{"CopyIndexes", 0}, {"ModifyIndexes", 0}}));
    key.SetSelected(0);
    EXPECT_EQ(ChangedBy([&] { table.RefreshSelection(0); }),
              Options({{"CopyForeignKeys", 0}, {"ModifyForeignKeys", 0}}));
    index.SetSelected(1);
    field.SetSelected(0);
    EXPECT_EQ(ChangedBy([&] { table.RefreshSelection(0); }),
              Options({{"CopyData", 0}, {"ModifyFields", 0}, {"CopyIndexes", 1}}));
}

TEST_F(TableRules, RefreshingLeavesTheOptionOfEmptyListsOff) {
    Table bare;
    bare.RefreshSelection(0);
    bare.AddIndex(u"i");
    bare.AddForeignKey(u"k");
    EXPECT_EQ(bare.GetCopyIndexes(), 0);
    EXPECT_EQ(bare.GetCopyForeignKeys(), 0);
    EXPECT_EQ(bare.GetSelected(), 0);
}

TEST_F(TableRules, RefreshingKeepsOverwritingAndSynchronising) {
    table.SetOverwriteTable(1);
    table.SetSyncInsert(1);
    field.SetSelected(0);
    index.SetSelected(0);
    key.SetSelected(0);
    table.RefreshSelection(0);
    EXPECT_EQ(table.GetOverwriteTable(), 1);
    EXPECT_EQ(table.GetSyncInsert(), 1);
}

/// Children that have their table refresh itself while the table's setters change them.
class TellingChildren : public TableRules {
 protected:
    TellingChildren() {
        field.tells = index.tells = key.tells = true;
        table.AddField(u"f2").tells = true;
        table.AddIndex(u"i2").tells = true;
        table.AddForeignKey(u"k2").tells = true;
    }
};

TEST_F(TellingChildren, CannotDisturbASetter) {
    // Had the first index of two the table refreshed, the option would be on again for the second one's sake.
    EXPECT_EQ(ChangedBy([&] { table.SetCopyIndexes(0); }), Options({{"CopyIndexes", 0}}));
    EXPECT_EQ(ChangedBy([&] { table.SetCopyForeignKeys(0); }), Options({{"CopyForeignKeys", 0}}));
    EXPECT_EQ(ChangedBy([&] { table.SetCopyIndexes(1); }), Options({{"CopyIndexes", 1}}));
    EXPECT_EQ(ChangedBy([&] { table.SetCopyForeignKeys(1); }), Options({{"CopyForeignKeys", 1}}));
    EXPECT_EQ(ChangedBy([&] { table.SetSelected(0); }).size(), 8U);
    EXPECT_EQ(ChangedBy([&] { table.SetCopyData(1); }), Options({{"Selected", 1}, {"CopyData", 1}}));
    EXPECT_EQ(ChangedBy([&] { table.SetCopyData(0); }), Options({{"Selected", 0}, {"CopyData", 0}}));
}

/// The first child of each list tells, the second does not: what the first one disturbed would stay.
class FirstChildrenTell : public TableRules {
 protected:
    FirstChildrenTell() {
        field.tells = index.tells = key.tells = true;
        table.AddField(u"f2");
        table.AddIndex(u"i2");
        table.AddForeignKey(u"k2");
    }
};

TEST_F(FirstChildrenTell, CannotDisturbASetter) {
    EXPECT_EQ(ChangedBy([&] { table.SetCopyIndexes(0); }), Options({{"CopyIndexes", 0}}));
    EXPECT_EQ(ChangedBy([&] { table.SetCopyForeignKeys(0); }), Options({{"CopyForeignKeys", 0}}));
    table.SetCopyData(0);
    EXPECT_EQ(ChangedBy([&] { table.SetCopyStructure(0); }), Options({{"Selected", 0}, {"CopyStructure", 0}}));
    table.SetCopyData(1);
    EXPECT_EQ(ChangedBy([&] { table.SetCopyData(0); }), Options({{"Selected", 0}, {"CopyData", 0}}));
}

/// Asks for a refresh before it passes a change of its structure on.
class HastyTable final : public Table {
 public:
    void SetCopyStructure(int nValue) override {
        RefreshSelection(0);
        selectedBefore = GetSelected();
        Table::SetCopyStructure(nValue);
    }

    int selectedBefore = -1;
};

TEST(HastyTables, CannotDisturbTheirSelection) {
    HastyTable table;
    table.AddField(u"f");
    table.SetSelected(0);
    EXPECT_EQ(table.selectedBefore, 0);
    EXPECT_EQ(table.GetSelected(), 0);
}

/// Has its tables refresh themselves whenever one of them has it refreshed.
class HastyDatabase final : public Database {
 public:
    void RefreshSelection() override {
        Database::RefreshSelection();
        for (auto* table : m_listTables) table->RefreshSelection(0);
    }
};

TEST(HastyDatabases, CannotDisturbASetterWithinAnother) {
    HastyDatabase database;
    Table& table = database.AddTable(u"t");
    table.SetSelected(0);
    table.SetSelected(1);
    table.AddIndex(u"i");  // for which a refresh before would have turned the option off
    EXPECT_EQ(table.GetCopyIndexes(), 1);
}

TEST_F(TellingChildren, AreHeardBehindASetter) {
    table.SetCopyIndexes(0);
    table.SetSelected(0);
    EXPECT_EQ(ChangedBy([&] { index.SetSelected(1); }),
              Options({{"Selected", 1}, {"CopyStructure", 1}, {"CopyIndexes", 1}}));
}

class ThrowingIndex final : public concrete::Child<CQZIndexInfo> {
 public:
    ThrowingIndex* Clone(int) const override { return new ThrowingIndex(*this); }
    void SetSelected(int) override { throw std::string("no"); }
    void CheckReference(int) override {}
    int IsPrimaryKey() const override { return 0; }
    int IsPrimaryIndex() const override { return 0; }
};

TEST_F(TellingChildren, AreHeardBehindASetterThatFailed) {
    table.m_listIndexes.AddTail(new ThrowingIndex);
    EXPECT_THROW(table.SetCopyIndexes(0), std::string);
    EXPECT_EQ(ChangedBy([&] { index.SetSelected(1); }), Options({{"CopyIndexes", 1}}));
}

// The order of calls.

class LoggingTable final : public Table {
 public:
    void SetCopyStructure(int nValue) override {
        Note("SetCopyStructure", nValue);
        Table::SetCopyStructure(nValue);
    }
    void SetCopyIndexes(int nValue) override {
        Note("SetCopyIndexes", nValue);
        Table::SetCopyIndexes(nValue);
    }
    void SetCopyForeignKeys(int nValue) override {
        Note("SetCopyForeignKeys", nValue);
        Table::SetCopyForeignKeys(nValue);
    }
    void SetCopyData(int nValue) override {
        Note("SetCopyData", nValue);
        Table::SetCopyData(nValue);
    }
    void SetOverwriteTable(int nValue) override {
        Note("SetOverwriteTable", nValue);
        Table::SetOverwriteTable(nValue);
    }

    std::vector<std::string>* log = nullptr;

 private:
    void Note(const std::string& name, int nValue) { log->push_back(name + " " + std::to_string(nValue)); }
};

class LoggingDatabase final : public Database {
 public:
    void RefreshSelection() override {
        log.emplace_back("RefreshSelection");
        Database::RefreshSelection();
    }

    std::vector<std::string> log;
};

class CallOrder : public testing::Test {
 protected:
    CallOrder() { table.log = &database.log; }

    std::vector<std::string> LogOf(const std::function<void()>& call) {
        database.log.clear();
        call();
        return database.log;
    }

    using Log = std::vector<std::string>;
    LoggingDatabase database;
    LoggingTable& table = database.AddTable<LoggingTable>(u"t");
};

TEST_F(CallOrder, OfSelecting) {
    EXPECT_EQ(LogOf([&] { table.SetSelected(0); }),
              Log({"SetCopyStructure 0", "SetCopyIndexes 0", "SetCopyForeignKeys 0", "RefreshSelection",
                   "SetCopyData 0", "RefreshSelection", "RefreshSelection"}));
    EXPECT_EQ(LogOf([&] { table.SetSelected(0); }), Log());
}

TEST_F(CallOrder, OfStructure) {
    EXPECT_EQ(LogOf([&] { table.CQZTableInfo::SetCopyStructure(0); }),
              Log({"SetCopyIndexes 0", "SetCopyForeignKeys 0", "RefreshSelection"}));
    database.SetOverwriteDatabase(1);
    EXPECT_EQ(LogOf([&] { table.CQZTableInfo::SetCopyStructure(1); }),
              Log({"SetCopyIndexes 1", "SetCopyForeignKeys 1", "SetOverwriteTable 1", "RefreshSelection"}));
    EXPECT_EQ(
        LogOf([&] { table.CQZTableInfo::SetCopyStructure(0); }),
        Log({"SetCopyIndexes 0", "SetCopyForeignKeys 0", "SetCopyData 0", "RefreshSelection", "RefreshSelection"}));
    EXPECT_EQ(LogOf([&] { table.CQZTableInfo::SetCopyStructure(0); }), Log());
    table.SetCopyStructure(1);
    EXPECT_EQ(LogOf([&] { table.CQZTableInfo::SetCopyStructure(0); }),
              Log({"SetCopyIndexes 0", "SetCopyForeignKeys 0", "RefreshSelection"}));
}

/// What stands at the time of a call.
class WatchingTable final : public Table {
 public:
    void SetCopyIndexes(int nValue) override {
        fieldSeen = m_listFields.GetHead()->GetSelected();
        Table::SetCopyIndexes(nValue);
    }
    void SetCopyData(int nValue) override {
        overwritingSeen = GetOverwriteTable();
        Table::SetCopyData(nValue);
    }

    int fieldSeen = -1;
    int overwritingSeen = -1;
};

TEST(WatchingTables, SeeFieldsGoBeforeIndexes) {
    WatchingTable table;
    table.AddField(u"f");
    table.SetCopyData(0);
    table.SetCopyStructure(0);
    EXPECT_EQ(table.fieldSeen, 0);
}

TEST(WatchingTables, SeeDataGoBeforeOverwriting) {
    Database database;
    auto& table = database.AddTable<WatchingTable>(u"t");
    table.AddField(u"f");
    database.SetOverwriteDatabase(1);
    table.SetCopyStructure(0);
    EXPECT_EQ(table.overwritingSeen, 1);
    EXPECT_EQ(table.GetOverwriteTable(), 0);
}

TEST_F(CallOrder, OfData) {
    EXPECT_EQ(LogOf([&] { table.CQZTableInfo::SetCopyData(0); }), Log({"RefreshSelection"}));
    table.SetCopyStructure(0);
    database.SetOverwriteDatabase(1);
    EXPECT_EQ(LogOf([&] { table.CQZTableInfo::SetCopyData(1); }),
              Log({"SetCopyStructure 1", "SetCopyIndexes 1", "SetCopyForeignKeys 1", "SetOverwriteTable 1",
                   "RefreshSelection", "RefreshSelection"}));
}

TEST_F(CallOrder, OfRefreshing) {
    EXPECT_EQ(LogOf([&] { table.RefreshSelection(0); }), Log({"RefreshSelection"}));
    EXPECT_EQ(LogOf([&] { table.CQZTableInfo::SetOverwriteTable(1); }), Log());
}

// A table without a database.

TEST(LoneTable, FollowsTheRulesAsInADatabaseWithoutOptions) {
    Table table;
    Field& field = table.AddField(u"f");
    table.SetSelected(0);
    EXPECT_EQ(field.GetSelected(), 0);
    table.SetCopyData(1);
    EXPECT_EQ(table.GetCopyStructure(), 0);
    table.SetCopyStructure(1);
    EXPECT_EQ(table.GetOverwriteTable(), 0);
    table.SetOverwriteTable(1);
    table.SetOverwriteTable(0);
    EXPECT_EQ(table.GetOverwriteTable(), 0);
    table.SetCopyStructure(0);
    EXPECT_EQ(table.GetCopyData(), 1);
    table.RefreshSelection(0);
    EXPECT_EQ(table.GetSelected(), 1);
}

}  // namespace
