// Sequences of calls followed by hand: behind each call stand all fields and getters that it changes, above it the rule
// that makes it so. The library's classes and the plain model must both agree.
#include <gtest/gtest.h>

#include "tests/catalog_rules/Trace.h"

namespace {

TEST(SetterRules, TableIsDeselectedAndSelectedAgain) {
    Trace trace;
    trace.Table("t0", "f0 i0 k0");
    // A table's selection goes to structure and data, theirs to the children; without data nothing is synchronised.
    trace.Step("t0.SetSelected(0)",
               "t0: Selected=0 CopyStructure=0 CopyIndexes=0 GetCopyIndexes=0 CopyForeignKeys=0 GetCopyForeignKeys=0 "
               "CopyData=0 SyncInsert=0 SyncUpdate=0 SyncDrop=0 f0=0 i0=0 k0=0 db: Selected=0");
    // The way back restores all but the synchronising, which only its own setters turn on.
    trace.Step("t0.SetSelected(1)",
               "t0: Selected=1 CopyStructure=1 CopyIndexes=1 GetCopyIndexes=1 CopyForeignKeys=1 GetCopyForeignKeys=1 "
               "CopyData=1 f0=1 i0=1 k0=1 db: Selected=1");
    // The present value changes nothing.
    trace.Step("t0.SetSelected(1)", "");
}

TEST(SetterRules, DataAloneKeepsTheFields) {
    Trace trace;
    trace.Table("t0", "f0 f1 i0");
    // Without structure there are no indexes and keys; with data left the table and its fields stay selected.
    trace.Step("t0.SetCopyStructure(0)", "t0: CopyStructure=0 CopyIndexes=0 GetCopyIndexes=0 CopyForeignKeys=0 i0=0");
    // Indexes are refused without structure.
    trace.Step("t0.SetCopyIndexes(1)", "");
    // Keys are refused likewise.
    trace.Step("t0.SetCopyForeignKeys(1)", "");
    // With neither structure nor data the fields go, the table and the database with them.
    trace.Step("t0.SetCopyData(0)",
               "t0: CopyData=0 Selected=0 f0=0 f1=0 SyncInsert=0 SyncUpdate=0 SyncDrop=0 db: Selected=0");
    // Data alone selects the fields and the table; a database that does not overwrite forces no structure.
    trace.Step("t0.SetCopyData(1)", "t0: CopyData=1 Selected=1 f0=1 f1=1 db: Selected=1");
}

TEST(SetterRules, StructureAloneKeepsTheFields) {
    Trace trace;
    trace.Table("t0", "f0 i0 k0");
    // Without data nothing is synchronised; with structure left the fields and the table stay selected.
    trace.Step("t0.SetCopyData(0)", "t0: CopyData=0 SyncInsert=0 SyncUpdate=0 SyncDrop=0");
    // Without data the structure's value goes to the fields, and always to indexes and keys.
    trace.Step("t0.SetCopyStructure(0)",
               "t0: CopyStructure=0 Selected=0 f0=0 CopyIndexes=0 GetCopyIndexes=0 i0=0 CopyForeignKeys=0 "
               "GetCopyForeignKeys=0 k0=0 db: Selected=0");
    // The same way back.
    trace.Step("t0.SetCopyStructure(1)",
               "t0: CopyStructure=1 Selected=1 f0=1 CopyIndexes=1 GetCopyIndexes=1 i0=1 CopyForeignKeys=1 "
               "GetCopyForeignKeys=1 k0=1 db: Selected=1");
}

TEST(SetterRules, FieldsKeepTheirOwnSelectionWhileDataStays) {
    Trace trace;
    trace.Table("t0", "f0 f1");
    // A field's own setter touches nothing else.
    trace.Step("t0.f1.SetSelected(0)", "t0: f1=0");
    // With data left the fields are not touched.
    trace.Step("t0.SetCopyStructure(0)", "t0: CopyStructure=0 CopyIndexes=0 CopyForeignKeys=0");
    // Nor are they on the way back.
    trace.Step("t0.SetCopyStructure(1)", "t0: CopyStructure=1 CopyIndexes=1 CopyForeignKeys=1");
    // With structure left the fields are not touched either.
    trace.Step("t0.SetCopyData(0)", "t0: CopyData=0 SyncInsert=0 SyncUpdate=0 SyncDrop=0");
    // Without both all fields go.
    trace.Step("t0.SetCopyStructure(0)",
               "t0: CopyStructure=0 CopyIndexes=0 CopyForeignKeys=0 Selected=0 f0=0 db: Selected=0");
    // And all fields come.
    trace.Step("t0.SetCopyData(1)", "t0: CopyData=1 Selected=1 f0=1 f1=1 db: Selected=1");
}

TEST(SetterRules, OverwritingDatabaseOverwritesItsTables) {
    Trace trace;
    trace.Table("t0", "f0");
    // The database's flag goes to the tables, and a table that is overwritten is not synchronised.
    trace.Step("db.SetOverwriteDatabase(1)",
               "db: OverwriteDatabase=1 t0: OverwriteTable=1 SyncInsert=0 SyncUpdate=0 SyncDrop=0");
    // While the database overwrites a table cannot leave.
    trace.Step("t0.SetOverwriteTable(0)", "");
    // The flag goes down only when it comes on.
    trace.Step("db.SetOverwriteDatabase(0)", "db: OverwriteDatabase=0");
    // Now the table may leave; what was synchronised does not come back.
    trace.Step("t0.SetOverwriteTable(0)", "t0: OverwriteTable=0");
}

TEST(SetterRules, StructureUnderAnOverwritingDatabaseOverwrites) {
    Trace trace;
    trace.Table("t0", "f0 i0");
    // Indexes and keys go with the structure.
    trace.Step("t0.SetCopyStructure(0)", "t0: CopyStructure=0 CopyIndexes=0 GetCopyIndexes=0 CopyForeignKeys=0 i0=0");
    // A table without structure refuses to be overwritten.
    trace.Step("db.SetOverwriteDatabase(1)", "db: OverwriteDatabase=1");
    // Structure under an overwriting database brings the overwriting, which ends the synchronising.
    trace.Step("t0.SetCopyStructure(1)",
               "t0: CopyStructure=1 CopyIndexes=1 GetCopyIndexes=1 CopyForeignKeys=1 i0=1 OverwriteTable=1 "
               "SyncInsert=0 SyncUpdate=0 SyncDrop=0");
}

TEST(SetterRules, NoDataWithoutStructureUnderAnOverwritingDatabase) {
    Trace trace;
    trace.Table("t0", "f0 f1 i0 k0");
    // The flag goes down to the table.
    trace.Step("db.SetOverwriteDatabase(1)",
               "db: OverwriteDatabase=1 t0: OverwriteTable=1 SyncInsert=0 SyncUpdate=0 SyncDrop=0");
    // Structure takes the data with it, and the overwriting goes although a call for it would be refused.
    trace.Step("t0.SetCopyStructure(0)",
               "t0: CopyStructure=0 CopyIndexes=0 GetCopyIndexes=0 i0=0 CopyForeignKeys=0 GetCopyForeignKeys=0 k0=0 "
               "CopyData=0 Selected=0 f0=0 f1=0 OverwriteTable=0 db: Selected=0");
    // Data brings the structure, and this the overwriting.
    trace.Step("t0.SetCopyData(1)",
               "t0: CopyData=1 Selected=1 f0=1 f1=1 CopyStructure=1 CopyIndexes=1 GetCopyIndexes=1 i0=1 "
               "CopyForeignKeys=1 GetCopyForeignKeys=1 k0=1 OverwriteTable=1 db: Selected=1");
}

TEST(SetterRules, StructureWithoutDataUnderAnOverwritingDatabase) {
    Trace trace;
    trace.Table("t0", "f0");
    // The flag goes down to the table.
    trace.Step("db.SetOverwriteDatabase(1)",
               "db: OverwriteDatabase=1 t0: OverwriteTable=1 SyncInsert=0 SyncUpdate=0 SyncDrop=0");
    // Data may go alone; the synchronising is off already.
    trace.Step("t0.SetCopyData(0)", "t0: CopyData=0");
    // And come back alone, since the structure is there.
    trace.Step("t0.SetCopyData(1)", "t0: CopyData=1");
}

TEST(SetterRules, OverwritingExcludesModifying) {
    Trace trace;
    trace.Table("t0", "f0 i0 k0");
    // Structure is there and the table is not overwritten.
    trace.Step("t0.SetModifyFields(1)", "t0: ModifyFields=1");
    // Indexes are copied.
    trace.Step("t0.SetModifyIndexes(1)", "t0: ModifyIndexes=1");
    // Keys are copied.
    trace.Step("t0.SetModifyForeignKeys(1)", "t0: ModifyForeignKeys=1");
    // Overwriting clears all that changes a table in place.
    trace.Step("t0.SetOverwriteTable(1)",
               "t0: OverwriteTable=1 ModifyFields=0 ModifyIndexes=0 ModifyForeignKeys=0 SyncInsert=0 SyncUpdate=0 "
               "SyncDrop=0");
    // A table that is overwritten is not modified.
    trace.Step("t0.SetModifyFields(1)", "");
    // Nor are its indexes.
    trace.Step("t0.SetModifyIndexes(1)", "");
    // Nor its keys.
    trace.Step("t0.SetModifyForeignKeys(1)", "");
    // Without an overwriting database the table may leave.
    trace.Step("t0.SetOverwriteTable(0)", "t0: OverwriteTable=0");
    // The way is free again.
    trace.Step("t0.SetModifyFields(1)", "t0: ModifyFields=1");
}

TEST(SetterRules, ModifyingNeedsCopying) {
    Trace trace;
    trace.Table("t0", "f0 i0 k0");
    // The value goes to the indexes.
    trace.Step("t0.SetCopyIndexes(0)", "t0: CopyIndexes=0 GetCopyIndexes=0 i0=0");
    // Indexes that are not copied are not modified.
    trace.Step("t0.SetModifyIndexes(1)", "");
    // The fields ask for structure only.
    trace.Step("t0.SetModifyFields(1)", "t0: ModifyFields=1");
    // The value goes to the keys.
    trace.Step("t0.SetCopyForeignKeys(0)", "t0: CopyForeignKeys=0 GetCopyForeignKeys=0 k0=0");
    // Keys that are not copied are not modified.
    trace.Step("t0.SetModifyForeignKeys(1)", "");
    // Structure takes the modifying of fields with it.
    trace.Step("t0.SetCopyStructure(0)", "t0: CopyStructure=0 ModifyFields=0");
    // Fields without structure are not modified.
    trace.Step("t0.SetModifyFields(1)", "");
}

TEST(SetterRules, CopyingTakesModifyingWithIt) {
    Trace trace;
    trace.Table("t0", "i0 i1 k0");
    // Indexes are copied.
    trace.Step("t0.SetModifyIndexes(1)", "t0: ModifyIndexes=1");
    // All indexes are deselected, and none is modified.
    trace.Step("t0.SetCopyIndexes(0)", "t0: CopyIndexes=0 GetCopyIndexes=0 ModifyIndexes=0 i0=0 i1=0");
    // Keys are copied.
    trace.Step("t0.SetModifyForeignKeys(1)", "t0: ModifyForeignKeys=1");
    // The same with the keys.
    trace.Step("t0.SetCopyForeignKeys(0)", "t0: CopyForeignKeys=0 GetCopyForeignKeys=0 ModifyForeignKeys=0 k0=0");
    // The way back selects the keys and leaves the modifying off.
    trace.Step("t0.SetCopyForeignKeys(1)", "t0: CopyForeignKeys=1 GetCopyForeignKeys=1 k0=1");
}

TEST(SetterRules, StructureTakesTheModifyingOfItsListsWithIt) {
    Trace trace;
    trace.Table("t0", "f0 i0 k0");
    // Indexes are copied.
    trace.Step("t0.SetModifyIndexes(1)", "t0: ModifyIndexes=1");
    // Keys are copied.
    trace.Step("t0.SetModifyForeignKeys(1)", "t0: ModifyForeignKeys=1");
    // Structure ends the copying of both lists, and this their modifying.
    trace.Step("t0.SetCopyStructure(0)",
               "t0: CopyStructure=0 CopyIndexes=0 GetCopyIndexes=0 i0=0 ModifyIndexes=0 CopyForeignKeys=0 "
               "GetCopyForeignKeys=0 k0=0 ModifyForeignKeys=0");
}

TEST(SetterRules, EmptyListsHideTheOption) {
    Trace trace;
    trace.Table("t0", "f0");
    // The option is stored; its getter is 0 already, since there are no indexes.
    trace.Step("t0.SetCopyIndexes(0)", "t0: CopyIndexes=0");
    // Modifying asks for the stored option.
    trace.Step("t0.SetModifyIndexes(1)", "");
    // Stored again, and still hidden by the getter.
    trace.Step("t0.SetCopyIndexes(1)", "t0: CopyIndexes=1");
    // The stored option is enough for modifying.
    trace.Step("t0.SetModifyIndexes(1)", "t0: ModifyIndexes=1");
}

TEST(SetterRules, RefreshOfATableWithoutChildren) {
    Trace trace;
    trace.Table("t0", "");
    // No child is selected: no selection, no copying; synchronising and overwriting are not looked at.
    trace.Step("t0.RefreshSelection(0)",
               "t0: Selected=0 CopyStructure=0 CopyData=0 CopyIndexes=0 CopyForeignKeys=0 db: Selected=0");
    // The same again changes nothing.
    trace.Step("t0.RefreshSelection(1)", "");
}

TEST(SetterRules, RefreshFollowsTheChildren) {
    Trace trace;
    trace.Table("t0", "f0 i0 k0");
    // A field's own setter touches nothing else.
    trace.Step("t0.f0.SetSelected(0)", "t0: f0=0");
    // No field, no data; the synchronising is not looked at.
    trace.Step("t0.RefreshSelection(0)", "t0: CopyData=0");
    // An index's own setter touches nothing else.
    trace.Step("t0.i0.SetSelected(0)", "t0: i0=0");
    // No index, no copying of indexes.
    trace.Step("t0.RefreshSelection(0)", "t0: CopyIndexes=0 GetCopyIndexes=0");
    // A key's own setter touches nothing else.
    trace.Step("t0.k0.SetSelected(0)", "t0: k0=0");
    // No child, no selection, no structure.
    trace.Step("t0.RefreshSelection(0)",
               "t0: Selected=0 CopyStructure=0 CopyForeignKeys=0 GetCopyForeignKeys=0 db: Selected=0");
    // The field's own setter again.
    trace.Step("t0.f0.SetSelected(1)", "t0: f0=1");
    // A child with neither structure nor data brings both.
    trace.Step("t0.RefreshSelection(0)", "t0: Selected=1 CopyStructure=1 CopyData=1 db: Selected=1");
}

TEST(SetterRules, RefreshWithAnIndexAlone) {
    Trace trace;
    trace.Table("t0", "f0 i0");
    // The table's selection goes to all its children.
    trace.Step("t0.SetSelected(0)",
               "t0: Selected=0 CopyStructure=0 CopyIndexes=0 GetCopyIndexes=0 CopyForeignKeys=0 CopyData=0 "
               "SyncInsert=0 SyncUpdate=0 SyncDrop=0 f0=0 i0=0 db: Selected=0");
    // The index's own setter.
    trace.Step("t0.i0.SetSelected(1)", "t0: i0=1");
    // Structure and data come, and the data goes at once for want of a field.
    trace.Step("t0.RefreshSelection(0)",
               "t0: Selected=1 CopyStructure=1 CopyIndexes=1 GetCopyIndexes=1 db: Selected=1");
}

TEST(SetterRules, RefreshEndsTheModifyingOfDeselectedLists) {
    Trace trace;
    trace.Table("t0", "f0 i0 k0");
    // Structure is there.
    trace.Step("t0.SetModifyFields(1)", "t0: ModifyFields=1");
    // Indexes are copied.
    trace.Step("t0.SetModifyIndexes(1)", "t0: ModifyIndexes=1");
    // Keys are copied.
    trace.Step("t0.SetModifyForeignKeys(1)", "t0: ModifyForeignKeys=1");
    // The index's own setter.
    trace.Step("t0.i0.SetSelected(0)", "t0: i0=0");
    // No index: neither copied nor modified.
    trace.Step("t0.RefreshSelection(0)", "t0: CopyIndexes=0 GetCopyIndexes=0 ModifyIndexes=0");
    // The key's own setter.
    trace.Step("t0.k0.SetSelected(0)", "t0: k0=0");
    // No key: neither copied nor modified.
    trace.Step("t0.RefreshSelection(0)", "t0: CopyForeignKeys=0 GetCopyForeignKeys=0 ModifyForeignKeys=0");
    // The field's own setter.
    trace.Step("t0.f0.SetSelected(0)", "t0: f0=0");
    // No child at all.
    trace.Step("t0.RefreshSelection(0)", "t0: Selected=0 CopyStructure=0 CopyData=0 ModifyFields=0 db: Selected=0");
}

TEST(SetterRules, RefreshCopiesIndexesWithoutStructure) {
    Trace trace;
    trace.Table("t0", "f0 i0");
    // Indexes and keys go with the structure.
    trace.Step("t0.SetCopyStructure(0)", "t0: CopyStructure=0 CopyIndexes=0 GetCopyIndexes=0 CopyForeignKeys=0 i0=0");
    // Data is there, so that no structure comes.
    trace.Step("t0.RefreshSelection(0)", "");
    // The index's own setter.
    trace.Step("t0.i0.SetSelected(1)", "t0: i0=1");
    // The option follows the list, whatever the structure says.
    trace.Step("t0.RefreshSelection(0)", "t0: CopyIndexes=1 GetCopyIndexes=1");
    // With the stored option the indexes may be modified.
    trace.Step("t0.SetModifyIndexes(1)", "t0: ModifyIndexes=1");
}

TEST(SetterRules, RefreshLeavesTheOverwritingAlone) {
    Trace trace;
    trace.Table("t0", "f0");
    // Overwriting ends the synchronising.
    trace.Step("t0.SetOverwriteTable(1)", "t0: OverwriteTable=1 SyncInsert=0 SyncUpdate=0 SyncDrop=0");
    // The field's own setter.
    trace.Step("t0.f0.SetSelected(0)", "t0: f0=0");
    // No child: everything but the overwriting goes.
    trace.Step("t0.RefreshSelection(0)",
               "t0: Selected=0 CopyStructure=0 CopyData=0 CopyIndexes=0 CopyForeignKeys=0 db: Selected=0");
    // Without an overwriting database it may go by its own setter.
    trace.Step("t0.SetOverwriteTable(0)", "t0: OverwriteTable=0");
    // And does not come back without structure.
    trace.Step("t0.SetOverwriteTable(1)", "");
}

TEST(SetterRules, DatabaseSelectsItsTables) {
    Trace trace;
    trace.Table("t0", "f0");
    trace.Table("t1", "i0");
    // The database's selection goes to each table.
    trace.Step("db.SetSelected(0)",
               "db: Selected=0 t0: Selected=0 CopyStructure=0 CopyIndexes=0 CopyForeignKeys=0 CopyData=0 SyncInsert=0 "
               "SyncUpdate=0 SyncDrop=0 f0=0 t1: Selected=0 CopyStructure=0 CopyIndexes=0 GetCopyIndexes=0 "
               "CopyForeignKeys=0 CopyData=0 SyncInsert=0 SyncUpdate=0 SyncDrop=0 i0=0");
    // The present value changes nothing.
    trace.Step("db.SetSelected(0)", "");
    // One selected table selects the database.
    trace.Step("t1.SetSelected(1)",
               "t1: Selected=1 CopyStructure=1 CopyIndexes=1 GetCopyIndexes=1 CopyForeignKeys=1 CopyData=1 i0=1 "
               "db: Selected=1");
    // The present value again: the other table stays deselected.
    trace.Step("db.SetSelected(1)", "");
}

TEST(SetterRules, LastTableDeselectsTheDatabase) {
    Trace trace;
    trace.Table("t0", "");
    trace.Table("t1", "");
    // The other table is still selected.
    trace.Step("t0.SetSelected(0)",
               "t0: Selected=0 CopyStructure=0 CopyIndexes=0 CopyForeignKeys=0 CopyData=0 SyncInsert=0 SyncUpdate=0 "
               "SyncDrop=0");
    // Structure keeps the table selected.
    trace.Step("t1.SetCopyData(0)", "t1: CopyData=0 SyncInsert=0 SyncUpdate=0 SyncDrop=0");
    // Structure was the last thing that this table was selected for.
    trace.Step("t1.SetCopyStructure(0)",
               "t1: CopyStructure=0 CopyIndexes=0 CopyForeignKeys=0 Selected=0 db: Selected=0");
}

TEST(SetterRules, TableWithoutADatabase) {
    Trace trace;
    trace.Table("t0", "f0");
    // The pointer alone.
    trace.Step("t0.SetDatabase(none)", "t0: Database=0");
    // The database hears nothing.
    trace.Step("t0.SetSelected(0)",
               "t0: Selected=0 CopyStructure=0 CopyIndexes=0 CopyForeignKeys=0 CopyData=0 SyncInsert=0 SyncUpdate=0 "
               "SyncDrop=0 f0=0");
    // Asked itself, it sees the table in its list.
    trace.Step("db.RefreshSelection(0)", "db: Selected=0");
    // A table without structure refuses to be overwritten.
    trace.Step("db.SetOverwriteDatabase(1)", "db: OverwriteDatabase=1");
    // No database of the table overwrites, so that data forces no structure.
    trace.Step("t0.SetCopyData(1)", "t0: CopyData=1 Selected=1 f0=1");
    // Nor does structure force the overwriting.
    trace.Step("t0.SetCopyStructure(1)", "t0: CopyStructure=1 CopyIndexes=1 CopyForeignKeys=1");
    // With structure the table may be overwritten; the synchronising is off already.
    trace.Step("t0.SetOverwriteTable(1)", "t0: OverwriteTable=1");
    // And nothing keeps it there.
    trace.Step("t0.SetOverwriteTable(0)", "t0: OverwriteTable=0");
}

TEST(SetterRules, SynchronisingIsPlain) {
    Trace trace;
    trace.Table("t0", "f0");
    // Indexes and keys go with the structure.
    trace.Step("t0.SetCopyStructure(0)", "t0: CopyStructure=0 CopyIndexes=0 CopyForeignKeys=0");
    // A table without structure refuses to be overwritten, and stays synchronised.
    trace.Step("t0.SetOverwriteTable(1)", "");
    // Stored as it is.
    trace.Step("t0.SetSyncInsert(0)", "t0: SyncInsert=0");
    // Data takes the rest with it.
    trace.Step("t0.SetCopyData(0)", "t0: CopyData=0 Selected=0 f0=0 SyncUpdate=0 SyncDrop=0 db: Selected=0");
    // Stored as it is, even without data.
    trace.Step("t0.SetSyncUpdate(2)", "t0: SyncUpdate=2");
    // The last of the three.
    trace.Step("t0.SetSyncDrop(-1)", "t0: SyncDrop=-1");
}

TEST(SetterRules, OverwrittenTableMayBeSynchronisedByHand) {
    Trace trace;
    trace.Table("t0", "f0");
    // Overwriting ends the synchronising.
    trace.Step("t0.SetOverwriteTable(1)", "t0: OverwriteTable=1 SyncInsert=0 SyncUpdate=0 SyncDrop=0");
    // Stored as it is.
    trace.Step("t0.SetSyncDrop(1)", "t0: SyncDrop=1");
    // The present value does not end it again.
    trace.Step("t0.SetOverwriteTable(1)", "");
    // Another value does.
    trace.Step("t0.SetOverwriteTable(2)", "t0: OverwriteTable=2 SyncDrop=0");
}

TEST(SetterRules, OverwritingValueGoesDownAsItIs) {
    Trace trace;
    trace.Table("t0", "f0");
    // The value itself goes to the tables.
    trace.Step("db.SetOverwriteDatabase(2)",
               "db: OverwriteDatabase=2 t0: OverwriteTable=2 SyncInsert=0 SyncUpdate=0 SyncDrop=0");
    // The database overwrote before: the value is stored and goes nowhere.
    trace.Step("db.SetOverwriteDatabase(1)", "db: OverwriteDatabase=1");
    // The table takes it by its own setter.
    trace.Step("t0.SetOverwriteTable(1)", "t0: OverwriteTable=1");
}

TEST(SetterRules, ListOptionsOfOtherValues) {
    Trace trace;
    trace.Table("t0", "i0 k0");
    // The getter keeps the lowest bit only.
    trace.Step("t0.SetCopyIndexes(2)", "t0: CopyIndexes=2 GetCopyIndexes=0 i0=2");
    // Which is set in -1.
    trace.Step("t0.SetCopyForeignKeys(-1)", "t0: CopyForeignKeys=-1 k0=-1");
    // Any value selects; the options become plain truths, and the data goes for want of a field.
    trace.Step("t0.RefreshSelection(0)", "t0: CopyIndexes=1 GetCopyIndexes=1 CopyForeignKeys=1 CopyData=0");
}

TEST(SetterRules, OptionsOfAnotherCatalog) {
    Trace trace;
    trace.Table("t0", "f0 i0");
    trace.Table("t1", "f0");
    trace.OtherTable("u0", "f0 i0", "T0");
    // Plain.
    trace.Step("other.SetAutoStructureUpdate(1)", "other: AutoStructureUpdate=1");
    // Without data nothing is synchronised.
    trace.Step("u0.SetCopyData(0)", "u0: CopyData=0 SyncInsert=0 SyncUpdate=0 SyncDrop=0");
    // The known table takes what the other's getters say, the new one what the other catalog is copied for.
    trace.Step("db.ApplyOptions(other)",
               "db: AutoStructureUpdate=1 t0: CopyData=0 SyncInsert=0 SyncUpdate=0 SyncDrop=0 CopyForeignKeys=0 "
               "t1: CopyData=0 SyncInsert=0 SyncUpdate=0 SyncDrop=0");
}

TEST(SetterRules, NewTableIsDeselectedWithoutStructureUpdate) {
    Trace trace;
    trace.Table("t0", "f0");
    // Plain.
    trace.Step("db.SetAutoStructureUpdate(1)", "db: AutoStructureUpdate=1");
    // The other catalog's option comes first, and it says that what is new is left out.
    trace.Step("db.ApplyOptions(other)",
               "db: AutoStructureUpdate=0 Selected=0 t0: Selected=0 CopyStructure=0 CopyIndexes=0 CopyForeignKeys=0 "
               "CopyData=0 SyncInsert=0 SyncUpdate=0 SyncDrop=0 f0=0");
}

TEST(SetterRules, NewTableIsCopiedLikeTheOthers) {
    Trace trace;
    trace.Table("t0", "f0");
    trace.OtherTable("u0", "f0", "a");
    trace.OtherTable("u1", "f0", "b");
    // Plain.
    trace.Step("other.SetAutoStructureUpdate(1)", "other: AutoStructureUpdate=1");
    // Indexes and keys go with the structure.
    trace.Step("u0.SetCopyStructure(0)", "u0: CopyStructure=0 CopyIndexes=0 CopyForeignKeys=0");
    // The table's selection goes to all its children.
    trace.Step("u1.SetSelected(0)",
               "u1: Selected=0 CopyStructure=0 CopyIndexes=0 CopyForeignKeys=0 CopyData=0 SyncInsert=0 SyncUpdate=0 "
               "SyncDrop=0 f0=0");
    // The tables that are selected there are copied for their data alone, and so is the new one.
    trace.Step("db.ApplyOptions(other)",
               "db: AutoStructureUpdate=1 t0: CopyStructure=0 CopyIndexes=0 CopyForeignKeys=0");
    // Data was the last thing that this table was selected for.
    trace.Step("u0.SetSelected(0)",
               "u0: Selected=0 CopyData=0 SyncInsert=0 SyncUpdate=0 SyncDrop=0 f0=0 other: Selected=0");
    // Nothing is selected there any more: the new table is neither copied nor selected.
    trace.Step("db.ApplyOptions(other)",
               "t0: Selected=0 CopyData=0 SyncInsert=0 SyncUpdate=0 SyncDrop=0 f0=0 db: Selected=0");
    // Selected first and robbed of both at once, it ends where it was.
    trace.Step("db.ApplyOptions(other)", "");
}

TEST(SetterRules, NewTableIsOverwrittenWithTheOthers) {
    Trace trace;
    trace.Table("t0", "f0 i0 k0");
    trace.Table("t1", "f0");
    trace.OtherTable("u1", "f0", "t1");
    // Plain.
    trace.Step("other.SetAutoStructureUpdate(1)", "other: AutoStructureUpdate=1");
    // Plain: the tables there do not follow.
    trace.Step("other.SetOverwriteTables(1)", "other: OverwriteTables=1");
    // The new table is overwritten; the known one takes the other's options, its empty lists' among them.
    trace.Step("db.ApplyOptions(other)",
               "db: AutoStructureUpdate=1 OverwriteTables=1 t0: OverwriteTable=1 SyncInsert=0 SyncUpdate=0 SyncDrop=0 "
               "t1: CopyIndexes=0 CopyForeignKeys=0");
}

TEST(SetterRules, CopiedOverwriteDatabaseIsNotPassedDown) {
    Trace trace;
    trace.Table("t0", "f0");
    trace.Table("t1", "f0");
    trace.OtherTable("u0", "f0", "t0");
    // Plain.
    trace.Step("other.SetAutoStructureUpdate(1)", "other: AutoStructureUpdate=1");
    // The flag goes to the other catalog's own table.
    trace.Step("other.SetOverwriteDatabase(1)",
               "other: OverwriteDatabase=1 u0: OverwriteTable=1 SyncInsert=0 SyncUpdate=0 SyncDrop=0");
    // The known table takes its twin's options; the new one keeps its own, since nothing of it changes.
    trace.Step("db.ApplyOptions(other)",
               "db: AutoStructureUpdate=1 OverwriteDatabase=1 t0: OverwriteTable=1 SyncInsert=0 SyncUpdate=0 "
               "SyncDrop=0 CopyIndexes=0 CopyForeignKeys=0");
}

TEST(SetterRules, CopiedTableTellsNobody) {
    Trace trace;
    trace.Table("t0", "f0 f1 i0 k0");
    trace.OtherTable("u0", "F0", "t0");
    // A new child follows the table's own database, which updates no structure.
    trace.Step("t0.CopyTable(u0)",
               "t0: CopyIndexes=0 GetCopyIndexes=0 CopyForeignKeys=0 GetCopyForeignKeys=0 f1=0 i0=0 k0=0");
    // Plain.
    trace.Step("db.SetAutoStructureUpdate(1)", "db: AutoStructureUpdate=1");
    // Now new children come; the options stay as the other's getters have them.
    trace.Step("t0.CopyTable(u0)", "t0: f1=1 i0=1 k0=1");
    // The table's selection goes to all its children.
    trace.Step("u0.SetSelected(0)",
               "u0: Selected=0 CopyStructure=0 CopyIndexes=0 CopyForeignKeys=0 CopyData=0 SyncInsert=0 SyncUpdate=0 "
               "SyncDrop=0 F0=0 other: Selected=0");
    // Written past the setters: the database is not told, and other children keep what the option gave them.
    trace.Step("t0.CopyTable(u0)",
               "t0: Selected=0 CopyStructure=0 CopyData=0 SyncInsert=0 SyncUpdate=0 SyncDrop=0 f0=0");
    // Asked itself, the database sees it.
    trace.Step("db.RefreshSelection(0)", "db: Selected=0");
}

TEST(SetterRules, CopiedTableTakesTheModifying) {
    Trace trace;
    trace.Table("t0", "f0 i0 k0");
    trace.OtherTable("u0", "f0 i0 k0", "t0");
    // Structure is there.
    trace.Step("u0.SetModifyFields(1)", "u0: ModifyFields=1");
    // Indexes are copied.
    trace.Step("u0.SetModifyIndexes(1)", "u0: ModifyIndexes=1");
    // Keys are copied.
    trace.Step("u0.SetModifyForeignKeys(1)", "u0: ModifyForeignKeys=1");
    // Overwriting ends the synchronising.
    trace.Step("t0.SetOverwriteTable(1)", "t0: OverwriteTable=1 SyncInsert=0 SyncUpdate=0 SyncDrop=0");
    // All options are the other's, past the rules of their setters.
    trace.Step("t0.CopyTable(u0)",
               "t0: OverwriteTable=0 ModifyFields=1 ModifyIndexes=1 ModifyForeignKeys=1 SyncInsert=1 SyncUpdate=1 "
               "SyncDrop=1");
}

TEST(SetterRules, QueriesAreMatchedByTheirNameInTheTarget) {
    Trace trace;
    trace.Query("db", "q0", "a");
    trace.Query("other", "p0", "a");
    trace.Query("other", "p1", "b");
    // A query's selection is plain.
    trace.Step("p1.SetSelected(0)", "p1=0");
    // The twin is p0, which is selected as well.
    trace.Step("db.ApplyOptions(other)", "");
    // Renamed for the target.
    trace.Step("q0.SetName(B)", "");
    // The name in the target is looked up among the other catalog's source names: now the twin is p1.
    trace.Step("db.ApplyOptions(other)", "q0=0");
    // Plain.
    trace.Step("q0.SetSelected(1)", "q0=1");
    // Renamed again.
    trace.Step("q0.SetName(c)", "");
    // A query without a twin is left out, whatever the options say.
    trace.Step("db.ApplyOptions(other)", "q0=0");
}

TEST(SetterRules, TellingFieldRefreshesItsTable) {
    Trace trace(ChildrenTell::kYes);
    trace.Table("t0", "f0");
    // The last child takes everything with it; the synchronising is not looked at.
    trace.Step("t0.f0.SetSelected(0)",
               "t0: f0=0 Selected=0 CopyStructure=0 CopyData=0 CopyIndexes=0 CopyForeignKeys=0 db: Selected=0");
    // The first child brings structure and data; indexes and keys follow their empty lists.
    trace.Step("t0.f0.SetSelected(1)", "t0: f0=1 Selected=1 CopyStructure=1 CopyData=1 db: Selected=1");
    // Nothing of it is told, since no child changes.
    trace.Step("t0.SetCopyStructure(0)", "t0: CopyStructure=0");
    // The field tells in vain while the setter is at work.
    trace.Step("t0.SetCopyData(0)",
               "t0: CopyData=0 Selected=0 f0=0 SyncInsert=0 SyncUpdate=0 SyncDrop=0 db: Selected=0");
    // Else it would have brought structure and data together.
    trace.Step("t0.SetCopyData(1)", "t0: CopyData=1 Selected=1 f0=1 db: Selected=1");
}

TEST(SetterRules, TellingIndexesAreHeldOffAndHeard) {
    Trace trace(ChildrenTell::kYes);
    trace.Table("t0", "f0 i0 i1");
    // Heard between the two indexes, the first of them would bring the option back to 1.
    trace.Step("t0.SetCopyIndexes(-1)", "t0: CopyIndexes=-1 i0=-1 i1=-1");
    // All indexes go.
    trace.Step("t0.SetCopyIndexes(0)", "t0: CopyIndexes=0 GetCopyIndexes=0 i0=0 i1=0");
    // One index brings the option back, and the keys follow their empty list.
    trace.Step("t0.i1.SetSelected(1)", "t0: i1=1 CopyIndexes=1 GetCopyIndexes=1 CopyForeignKeys=0");
    // The option is 1 already.
    trace.Step("t0.SetCopyIndexes(1)", "");
}

}  // namespace
