// All options of a table at once, to compare and to print.
#pragma once

#include <map>
#include <string>

#include "QZParserSQL/catalog/CQZTableInfo.h"

using Options = std::map<std::string, int>;

/// What a new table with neither indexes nor keys tells.
inline const Options kNewTable = {{"Selected", 1},        {"CopyStructure", 1}, {"CopyIndexes", 0},
                                  {"CopyForeignKeys", 0}, {"CopyData", 1},      {"SyncInsert", 1},
                                  {"SyncUpdate", 1},      {"SyncDrop", 1},      {"OverwriteTable", 0},
                                  {"ModifyFields", 0},    {"ModifyIndexes", 0}, {"ModifyForeignKeys", 0}};

inline Options OptionsOf(const CQZTableInfo& table) {
    return {{"Selected", table.GetSelected()},
            {"CopyStructure", table.GetCopyStructure()},
            {"CopyIndexes", table.GetCopyIndexes()},
            {"CopyForeignKeys", table.GetCopyForeignKeys()},
            {"CopyData", table.GetCopyData()},
            {"SyncInsert", table.GetSyncInsert()},
            {"SyncUpdate", table.GetSyncUpdate()},
            {"SyncDrop", table.GetSyncDrop()},
            {"OverwriteTable", table.GetOverwriteTable()},
            {"ModifyFields", table.GetModifyFields()},
            {"ModifyIndexes", table.GetModifyIndexes()},
            {"ModifyForeignKeys", table.GetModifyForeignKeys()}};
}
