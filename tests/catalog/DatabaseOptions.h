// All options of a database at once, to compare and to print.
#pragma once

#include <map>
#include <string>

#include "QZParserSQL/catalog/CQZDatabaseInfo.h"

using DatabaseOptions = std::map<std::string, int>;

/// What the constructor gives.
inline const DatabaseOptions kNewDatabase = {{"OverwriteDatabase", 0},
                                             {"CloseExistingConnections", 0},
                                             {"OverwriteTables", 0},
                                             {"AutoStructureUpdate", 0},
                                             {"CreateLogsEnabled", 0},
                                             {"CreateDiff", 0},
                                             {"CreateUndiff", 0},
                                             {"BulkInsert", 1},
                                             {"Quant", 0},
                                             {"CaseState", 0},
                                             {"MaxThreads", 1},
                                             {"MaxQuant", 100},
                                             {"UseHistoryCopyData", 1},
                                             {"BidirectionalSync", 0},
                                             {"CleanHistoryAfterUse", 1},
                                             {"WithTriggers", 0},
                                             {"WithBidirectional", 0},
                                             {"HandleSelectedObjects", 0}};

/// What a store without any key gives.
inline const DatabaseOptions kDatabaseOfEmptyStore = {{"OverwriteDatabase", 1},
                                                      {"CloseExistingConnections", 0},
                                                      {"OverwriteTables", 0},
                                                      {"AutoStructureUpdate", 1},
                                                      {"CreateLogsEnabled", 0},
                                                      {"CreateDiff", 0},
                                                      {"CreateUndiff", 0},
                                                      {"BulkInsert", 0},
                                                      {"Quant", 0},
                                                      {"CaseState", 0},
                                                      {"MaxThreads", 1},
                                                      {"MaxQuant", 1},
                                                      {"UseHistoryCopyData", 0},
                                                      {"BidirectionalSync", 0},
                                                      {"CleanHistoryAfterUse", 0},
                                                      {"WithTriggers", 0},
                                                      {"WithBidirectional", 0},
                                                      {"HandleSelectedObjects", 0}};

inline DatabaseOptions OptionsOf(const CQZDatabaseInfo& database) {
    return {{"OverwriteDatabase", database.GetOverwriteDatabase()},
            {"CloseExistingConnections", database.GetCloseExistingConnections()},
            {"OverwriteTables", database.GetOverwriteTables()},
            {"AutoStructureUpdate", database.GetAutoStructureUpdate()},
            {"CreateLogsEnabled", database.GetCreateLogsEnabled()},
            {"CreateDiff", database.GetCreateDiff()},
            {"CreateUndiff", database.GetCreateUndiff()},
            {"BulkInsert", database.GetBulkInsert()},
            {"Quant", database.GetQuant()},
            {"CaseState", database.GetCaseState()},
            {"MaxThreads", database.GetMaxThreads()},
            {"MaxQuant", database.GetMaxQuant()},
            {"UseHistoryCopyData", database.GetUseHistoryCopyData()},
            {"BidirectionalSync", database.GetBidirectionalSync()},
            {"CleanHistoryAfterUse", database.GetCleanHistoryAfterUse()},
            {"WithTriggers", database.GetWithTriggers()},
            {"WithBidirectional", database.GetWithBidirectional()},
            {"HandleSelectedObjects", database.GetHandleSelectedObjects()}};
}

/// Gives each option a value of its own, from 11 on.
inline void SetAllOptions(CQZDatabaseInfo& database) {
    database.SetOverwriteDatabase(11);
    database.SetCloseExistingConnections(12);
    database.SetOverwriteTables(13);
    database.SetAutoStructureUpdate(14);
    database.SetCreateLogsEnabled(15);
    database.SetCreateDiff(16);
    database.SetCreateUndiff(17);
    database.SetBulkInsert(18);
    database.SetQuant(19);
    database.SetCaseState(20);
    database.SetMaxThreads(21);
    database.SetMaxQuant(22);
    database.SetUseHistoryCopyData(23);
    database.SetBidirectionalSync(24);
    database.SetCleanHistoryAfterUse(25);
    database.SetWithTriggers(26);
    database.SetWithBidirectional(27);
    database.SetHandleSelectedObjects(28);
    database.SetGarbageSymbols(u"symbols");
    database.SetGarbageReplace(u"replace");
    database.SetVersion(u"5.0.1 beta");
    database.SetSchemaName(u"schema");
    database.SetExtraText(u"extra");
}
