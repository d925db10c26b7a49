#include "tests/catalog_rules/RuleModel.h"

#include <cctype>
#include <cstddef>

namespace rules {

namespace {

bool DatabaseOverwrites(const Table& table) { return table.Owner != nullptr && table.Owner->OverwriteDatabase != 0; }

void RefreshDatabase(Table& table) {
    if (table.Owner != nullptr) RefreshSelection(*table.Owner);
}

void SetSelectedOfAll(Table& table, std::deque<Child>& children, int value) {
    for (Child& child : children) SetSelected(table, child, value);
}

int AnySelected(const std::deque<Child>& children) {
    for (const Child& child : children) {
        if (child.Selected != 0) return 1;
    }
    return 0;
}

bool EqualWithoutCase(const std::string& a, const std::string& b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (std::tolower(static_cast<unsigned char>(a[i])) != std::tolower(static_cast<unsigned char>(b[i]))) {
            return false;
        }
    }
    return true;
}

template <class List>
const typename List::value_type* FindBySrcName(const List& list, const std::string& name) {
    for (const auto& object : list) {
        if (EqualWithoutCase(object.SrcName, name)) return &object;
    }
    return nullptr;
}

void CopyChildren(Table& table, std::deque<Child>& children, const std::deque<Child>& others) {
    for (Child& child : children) {
        const Child* found = FindBySrcName(others, child.SrcName);
        if (found != nullptr) {
            child.Selected = found->Selected;
        } else {
            SetSelected(table, child, table.Owner != nullptr ? table.Owner->AutoStructureUpdate : 0);
        }
    }
}

void CopyOptions(Database& database, const Database& other) {
    database.GarbageSymbols = other.GarbageSymbols;
    database.GarbageReplace = other.GarbageReplace;
    database.Version = other.Version;
    database.OverwriteDatabase = other.OverwriteDatabase;
    database.OverwriteTables = other.OverwriteTables;
    database.AutoStructureUpdate = other.AutoStructureUpdate;
    database.HandleSelectedObjects = other.HandleSelectedObjects;
    database.CreateLogsEnabled = other.CreateLogsEnabled;
    database.CreateDiff = other.CreateDiff;
    database.CreateUndiff = other.CreateUndiff;
    database.BulkInsert = other.BulkInsert;
    database.Quant = other.Quant;
    database.CloseExistingConnections = other.CloseExistingConnections;
    database.CaseState = other.CaseState;
    database.MaxThreads = other.MaxThreads;
    database.MaxQuant = other.MaxQuant;
    database.WithTriggers = other.WithTriggers;
    database.WithBidirectional = other.WithBidirectional;
    database.UseHistoryCopyData = other.UseHistoryCopyData;
    database.BidirectionalSync = other.BidirectionalSync;
    database.CleanHistoryAfterUse = other.CleanHistoryAfterUse;
}

void ApplyQueries(Database& database, const Database& other) {
    for (Query& query : database.Queries) {
        const Query* found = FindBySrcName(other.Queries, query.Name);
        if (found != nullptr) {
            query.Selected = found->Selected;
            query.Name = found->Name;
        } else {
            query.Selected = 0;
        }
    }
}

void ApplyToUnknownTable(const Database& database, Table& table, int anyData, int anyStructure) {
    SetSelected(table, database.AutoStructureUpdate);
    if (database.AutoStructureUpdate != 0) {
        SetCopyData(table, anyData);
        SetCopyStructure(table, anyStructure);
    }
    if (database.OverwriteTables != 0 && database.AutoStructureUpdate != 0 && table.OverwriteTable == 0) {
        SetOverwriteTable(table, 1);
    }
}

}  // namespace

void SetSelected(Table& table, Child& child, int value) {
    child.Selected = value;
    if (table.ChildrenTell) RefreshSelection(table);
}

int GetCopyIndexes(const Table& table) { return table.CopyIndexes & (table.Indexes.empty() ? 0 : 1); }

int GetCopyForeignKeys(const Table& table) { return table.CopyForeignKeys & (table.ForeignKeys.empty() ? 0 : 1); }

void SetSelected(Table& table, int value) {
    if (value == table.Selected) return;
    table.Updating += 1;
    table.Selected = value;
    SetCopyStructure(table, value);
    SetCopyData(table, value);
    RefreshDatabase(table);
    table.Updating -= 1;
}

void SetCopyStructure(Table& table, int value) {
    if (value == table.CopyStructure) return;
    table.Updating += 1;
    table.CopyStructure = value;
    table.Selected = value != 0 || table.CopyData != 0 ? 1 : 0;
    if (table.CopyData == 0) SetSelectedOfAll(table, table.Fields, value);
    SetCopyIndexes(table, value);
    SetCopyForeignKeys(table, value);
    if (value == 0) {
        if (table.CopyData != 0 && DatabaseOverwrites(table)) SetCopyData(table, 0);
        table.OverwriteTable = 0;
        table.ModifyFields = 0;
    }
    if (value != 0 && DatabaseOverwrites(table)) SetOverwriteTable(table, 1);
    RefreshDatabase(table);
    table.Updating -= 1;
}

void SetCopyData(Table& table, int value) {
    if (value == table.CopyData) return;
    table.Updating += 1;
    table.CopyData = value;
    table.Selected = value != 0 || table.CopyStructure != 0 ? 1 : 0;
    if (table.CopyStructure == 0) SetSelectedOfAll(table, table.Fields, value);
    if (value == 0) {
        table.SyncInsert = 0;
        table.SyncUpdate = 0;
        table.SyncDrop = 0;
    } else if (table.CopyStructure == 0 && DatabaseOverwrites(table)) {
        SetCopyStructure(table, 1);
    }
    RefreshDatabase(table);
    table.Updating -= 1;
}

void SetCopyIndexes(Table& table, int value) {
    if (value == table.CopyIndexes) return;
    if (value != 0 && table.CopyStructure == 0) return;
    table.Updating += 1;
    table.CopyIndexes = value;
    SetSelectedOfAll(table, table.Indexes, value);
    if (value == 0) table.ModifyIndexes = 0;
    table.Updating -= 1;
}

void SetCopyForeignKeys(Table& table, int value) {
    if (value == table.CopyForeignKeys) return;
    if (value != 0 && table.CopyStructure == 0) return;
    table.Updating += 1;
    table.CopyForeignKeys = value;
    SetSelectedOfAll(table, table.ForeignKeys, value);
    if (value == 0) table.ModifyForeignKeys = 0;
    table.Updating -= 1;
}

void SetOverwriteTable(Table& table, int value) {
    if (value == table.OverwriteTable) return;
    if (value == 0 && DatabaseOverwrites(table)) return;
    if (value != 0 && table.CopyStructure == 0) return;
    table.Updating += 1;
    table.OverwriteTable = value;
    if (value != 0) {
        table.ModifyFields = 0;
        table.ModifyIndexes = 0;
        table.ModifyForeignKeys = 0;
        table.SyncInsert = 0;
        table.SyncUpdate = 0;
        table.SyncDrop = 0;
    }
    table.Updating -= 1;
}

void SetModifyFields(Table& table, int value) {
    if (value != 0 && (table.CopyStructure == 0 || table.OverwriteTable != 0)) return;
    table.ModifyFields = value;
}

void SetModifyIndexes(Table& table, int value) {
    if (value != 0 && (table.CopyIndexes == 0 || table.OverwriteTable != 0)) return;
    table.ModifyIndexes = value;
}

void SetModifyForeignKeys(Table& table, int value) {
    if (value != 0 && (table.CopyForeignKeys == 0 || table.OverwriteTable != 0)) return;
    table.ModifyForeignKeys = value;
}

void SetSyncInsert(Table& table, int value) { table.SyncInsert = value; }

void SetSyncUpdate(Table& table, int value) { table.SyncUpdate = value; }

void SetSyncDrop(Table& table, int value) { table.SyncDrop = value; }

void RefreshSelection(Table& table) {
    if (table.Updating != 0) return;
    const int anyField = AnySelected(table.Fields);
    const int anyIndex = AnySelected(table.Indexes);
    const int anyKey = AnySelected(table.ForeignKeys);
    table.Selected = anyField != 0 || anyIndex != 0 || anyKey != 0 ? 1 : 0;
    if (table.Selected == 0) {
        table.CopyStructure = 0;
        table.CopyData = 0;
    } else if (table.CopyStructure == 0 && table.CopyData == 0) {
        table.CopyStructure = 1;
        table.CopyData = 1;
    }
    if (anyField == 0) table.CopyData = 0;
    table.CopyIndexes = anyIndex;
    table.CopyForeignKeys = anyKey;
    if (anyField == 0) table.ModifyFields = 0;
    if (anyIndex == 0) table.ModifyIndexes = 0;
    if (anyKey == 0) table.ModifyForeignKeys = 0;
    RefreshDatabase(table);
}

void CopyTable(Table& table, const Table& other) {
    table.Selected = other.Selected;
    table.CopyStructure = other.CopyStructure;
    table.CopyIndexes = GetCopyIndexes(other);
    table.CopyForeignKeys = GetCopyForeignKeys(other);
    table.CopyData = other.CopyData;
    table.OverwriteTable = other.OverwriteTable;
    table.ModifyFields = other.ModifyFields;
    table.ModifyIndexes = other.ModifyIndexes;
    table.ModifyForeignKeys = other.ModifyForeignKeys;
    table.SyncInsert = other.SyncInsert;
    table.SyncUpdate = other.SyncUpdate;
    table.SyncDrop = other.SyncDrop;
    CopyChildren(table, table.Fields, other.Fields);
    CopyChildren(table, table.Indexes, other.Indexes);
    CopyChildren(table, table.ForeignKeys, other.ForeignKeys);
}

void SetLoadDefaults(Table& table) {
    table.Selected = 1;
    table.CopyStructure = 1;
    table.CopyIndexes = 1;
    table.CopyForeignKeys = 1;
    table.CopyData = 1;
    table.OverwriteTable = 0;
    table.ModifyFields = 0;
    table.ModifyIndexes = 0;
    table.ModifyForeignKeys = 0;
    table.SyncInsert = 1;
    table.SyncUpdate = 1;
    table.SyncDrop = 1;
}

void SetLoadDefaults(Database& database) {
    database.Selected = 1;
    database.SchemaName = 0;
    database.GarbageSymbols = 0;
    database.GarbageReplace = 0;
    database.Version = 0;
    database.OverwriteDatabase = 1;
    database.OverwriteTables = 0;
    database.AutoStructureUpdate = 1;
    database.HandleSelectedObjects = 0;
    database.CreateLogsEnabled = 0;
    database.CreateDiff = 0;
    database.CreateUndiff = 0;
    database.BulkInsert = 0;
    database.Quant = 0;
    database.CloseExistingConnections = 0;
    database.CaseState = 0;
    database.MaxThreads = 1;
    database.MaxQuant = 1;
    database.WithTriggers = 0;
    database.WithBidirectional = 0;
    database.UseHistoryCopyData = 0;
    database.BidirectionalSync = 0;
    database.CleanHistoryAfterUse = 0;
}

void SetSelected(Database& database, int value) {
    if (value == database.Selected) return;
    database.Updating = 1;
    for (Table& table : database.Tables) SetSelected(table, value);
    database.Selected = value;
    database.Updating = 0;
}

void SetOverwriteDatabase(Database& database, int value) {
    if (value != 0 && database.OverwriteDatabase == 0) {
        database.Updating = 1;
        for (Table& table : database.Tables) SetOverwriteTable(table, value);
        database.Updating = 0;
    }
    database.OverwriteDatabase = value;
}

void RefreshSelection(Database& database) {
    if (database.Updating == 0) {
        database.Selected = 0;
        for (const Table& table : database.Tables) {
            if (table.Selected != 0) database.Selected = 1;
        }
    }
    database.Refreshes += 1;
    if (database.Selected != 0) database.RefreshesSelected += 1;
}

void ApplyOptions(Database& database, const Database& other) {
    CopyOptions(database, other);
    ApplyQueries(database, other);
    int anyData = 0;
    int anyStructure = 0;
    for (const Table& table : other.Tables) {
        if (table.Selected != 0 && table.CopyData != 0) anyData = 1;
        if (table.Selected != 0 && table.CopyStructure != 0) anyStructure = 1;
    }
    for (Table& table : database.Tables) {
        const Table* found = FindBySrcName(other.Tables, table.SrcName);
        if (found != nullptr) {
            CopyTable(table, *found);
        } else {
            ApplyToUnknownTable(database, table, anyData, anyStructure);
        }
    }
}

}  // namespace rules
