// The rules by which the options and selections of a database and its tables follow one another, written down a second
// time as plain structs and functions. It shares nothing with the library, whose classes are compared with it.
#pragma once

#include <deque>
#include <string>

namespace rules {

struct Database;

/// A field, an index or a foreign key.
struct Child {
    std::string SrcName;
    int Selected = 1;
};

struct Table {
    std::string SrcName;
    int Selected = 1;
    int Updating = 0;
    Database* Owner = nullptr;
    int CopyStructure = 1;
    int CopyIndexes = 1;
    int CopyForeignKeys = 1;
    int CopyData = 1;
    int OverwriteTable = 0;
    int ModifyFields = 0;
    int ModifyIndexes = 0;
    int ModifyForeignKeys = 0;
    int SyncInsert = 1;
    int SyncUpdate = 1;
    int SyncDrop = 1;
    std::deque<Child> Fields;
    std::deque<Child> Indexes;
    std::deque<Child> ForeignKeys;
    /// The children are of a host's class that has its table refresh itself after every change of a selection.
    bool ChildrenTell = false;
};

struct Query {
    std::string SrcName;
    std::string Name;
    int Selected = 1;
};

struct Database {
    int Selected = 1;
    int Updating = 0;
    /// How often RefreshSelection was called, and how often the database was selected behind that.
    int Refreshes = 0;
    int RefreshesSelected = 0;
    int SchemaName = 0;  // texts stand here as numbers
    int GarbageSymbols = 0;
    int GarbageReplace = 0;
    int Version = 0;
    int OverwriteDatabase = 0;
    int OverwriteTables = 0;
    int AutoStructureUpdate = 0;
    int HandleSelectedObjects = 0;
    int CreateLogsEnabled = 0;
    int CreateDiff = 0;
    int CreateUndiff = 0;
    int BulkInsert = 1;
    int Quant = 0;
    int CloseExistingConnections = 0;
    int CaseState = 0;
    int MaxThreads = 1;
    int MaxQuant = 100;
    int WithTriggers = 0;
    int WithBidirectional = 0;
    int UseHistoryCopyData = 1;
    int BidirectionalSync = 0;
    int CleanHistoryAfterUse = 1;
    std::deque<Table> Tables;
    std::deque<Query> Queries;
};

void SetSelected(Table& table, Child& child, int value);

int GetCopyIndexes(const Table& table);
int GetCopyForeignKeys(const Table& table);
void SetSelected(Table& table, int value);
void SetCopyStructure(Table& table, int value);
void SetCopyData(Table& table, int value);
void SetCopyIndexes(Table& table, int value);
void SetCopyForeignKeys(Table& table, int value);
void SetOverwriteTable(Table& table, int value);
void SetModifyFields(Table& table, int value);
void SetModifyIndexes(Table& table, int value);
void SetModifyForeignKeys(Table& table, int value);
void SetSyncInsert(Table& table, int value);
void SetSyncUpdate(Table& table, int value);
void SetSyncDrop(Table& table, int value);
void RefreshSelection(Table& table);
void CopyTable(Table& table, const Table& other);

/// What an object holds that was loaded from a store without keys.
void SetLoadDefaults(Table& table);
void SetLoadDefaults(Database& database);

void SetSelected(Database& database, int value);
void SetOverwriteDatabase(Database& database, int value);
void RefreshSelection(Database& database);
void ApplyOptions(Database& database, const Database& other);

}  // namespace rules
