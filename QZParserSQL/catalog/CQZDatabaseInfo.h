// The root of a conversion's catalog.
#pragma once

#include <cstdint>

#include "QZParserSQL/model/CQZObjectInfo.h"
#include "QZParserSQL/platform/CList.h"
#include "QZParserSQL/platform/CMap.h"

class CQZQueryInfo;
class CQZTableInfo;

/// The tables and queries of a catalog and the options of its conversion. The concrete class is the host's.
///
/// What the lists hold is owned. Look-ups walk the list, compare without regard to case and give the first match or
/// null. An option's default depends on whether an object is new or loaded from a store without the key. One object
/// belongs to one thread at a time. The order of the virtual operations is fixed: hosts are compiled against it.
class QZ_API CQZDatabaseInfo : public CQZObjectInfo {
 public:
    CQZDatabaseInfo();
    /// A deep copy of the same identity. With the flag, tables and queries that are not selected are left out; those
    /// that are copied keep all their children.
    CQZDatabaseInfo(const CQZDatabaseInfo& other, int bSelectedOnly);
    ~CQZDatabaseInfo() override;

    /// Passes a new value on to all tables.
    void SetSelected(int nSelected) override;
    /// Writes the options, then the queries and the tables, numbered from 1.
    void Save(QZSettingsStore* pStore) override;
    /// Replaces the options and fills the lists in the order of the store's subsections. Objects that were listed
    /// before are neither deleted nor listed any more: the caller keeps track of them. The database of what is loaded
    /// is not set.
    void Load(QZSettingsStore* pStore, QZObjectFactory* pFactory) override;
    CQZDatabaseInfo* Clone(int bSelectedOnly) const override = 0;
    bool IsVirtualObject(int nUnused) const override;
    bool IsRealObject(int nUnused) const override;

    /// Selected becomes whether any table is; does nothing while a change is being passed down to the tables.
    virtual void RefreshSelection();
    /// Hooks for derived classes: false, 0 and 0 here.
    virtual bool GetExtraFlag() const;
    virtual int GetExtraValue1() const;
    virtual int GetExtraValue2() const;
    /// Has each table check the references of its indexes and foreign keys.
    virtual void CheckReferences();
    /// Brings options and selections in line with another catalog of the same database. Tables and queries are matched
    /// by source name; those the other catalog does not have are selected by AutoStructureUpdate, queries never.
    /// `nFilterKind` is the database kind of the row filters that are taken over.
    virtual void ApplyOptions(CQZDatabaseInfo* pOther, int nFilterKind);

    /// The schema in the target, which resolved fields get as well.
    CString GetSchemaName() const { return SchemaName; }
    void SetSchemaName(CString strName);
    /// Whether the target's database is made anew.
    int GetOverwriteDatabase() const { return OverwriteDatabase; }
    /// Turning it on also overwrites all tables.
    void SetOverwriteDatabase(int nValue);
    /// Options that the library keeps for the host.
    int GetOverwriteTables() const { return OverwriteTables; }
    void SetOverwriteTables(int nValue) { OverwriteTables = nValue; }
    /// Whether ApplyOptions selects what the other catalog does not have.
    int GetAutoStructureUpdate() const { return AutoStructureUpdate; }
    void SetAutoStructureUpdate(int nValue) { AutoStructureUpdate = nValue; }
    /// Options that the library keeps for the host.
    int GetHandleSelectedObjects() const { return HandleSelectedObjects; }
    void SetHandleSelectedObjects(int nValue) { HandleSelectedObjects = nValue; }
    int GetCreateLogsEnabled() const { return CreateLogsEnabled; }
    void SetCreateLogsEnabled(int nValue) { CreateLogsEnabled = nValue; }
    int GetCreateDiff() const { return CreateDiff; }
    void SetCreateDiff(int nValue) { CreateDiff = nValue; }
    int GetCreateUndiff() const { return CreateUndiff; }
    void SetCreateUndiff(int nValue) { CreateUndiff = nValue; }
    int GetBulkInsert() const { return BulkInsert; }
    void SetBulkInsert(int nValue) { BulkInsert = nValue; }
    int GetQuant() const { return Quant; }
    void SetQuant(int nValue) { Quant = nValue; }
    int GetCloseExistingConnections() const { return CloseExistingConnections; }
    void SetCloseExistingConnections(int nValue) { CloseExistingConnections = nValue; }
    short GetCaseState() const { return CaseState; }
    void SetCaseState(short nValue) { CaseState = nValue; }
    CString GetGarbageSymbols() const { return GarbageSymbols; }
    void SetGarbageSymbols(CString strSymbols);
    CString GetGarbageReplace() const { return GarbageReplace; }
    void SetGarbageReplace(CString strReplace);
    /// A text of the host's own; neither persisted nor taken over by ApplyOptions.
    CString GetExtraText() const { return ExtraText; }
    void SetExtraText(CString strText);
    /// Not interpreted.
    CString GetVersion() const { return Version; }
    void SetVersion(CString strVersion);
    /// An option that the library keeps for the host.
    int GetMaxThreads() const { return MaxThreads; }
    /// Keeps the lowest 8 bits.
    void SetMaxThreads(int nValue) { MaxThreads = static_cast<std::uint8_t>(nValue); }
    /// Options that the library keeps for the host.
    int GetMaxQuant() const { return MaxQuant; }
    void SetMaxQuant(int nValue) { MaxQuant = nValue; }
    int GetWithTriggers() const { return WithTriggers; }
    void SetWithTriggers(int nValue) { WithTriggers = nValue; }
    int GetWithBidirectional() const { return WithBidirectional; }
    void SetWithBidirectional(int nValue) { WithBidirectional = nValue; }
    int GetUseHistoryCopyData() const { return UseHistoryCopyData; }
    void SetUseHistoryCopyData(int nValue) { UseHistoryCopyData = nValue; }
    int GetBidirectionalSync() const { return BidirectionalSync; }
    void SetBidirectionalSync(int nValue) { BidirectionalSync = nValue; }
    int GetCleanHistoryAfterUse() const { return CleanHistoryAfterUse; }
    void SetCleanHistoryAfterUse(int nValue) { CleanHistoryAfterUse = nValue; }

    /// The first match in list order, or null; it stays the catalog's.
    CQZTableInfo* FindTableByGUID(const CString& strGUID) const;
    CQZTableInfo* FindTableByName(const CString& strName) const;
    CQZTableInfo* FindTableBySrcName(const CString& strSrcName) const;
    CQZQueryInfo* FindQueryByGUID(const CString& strGUID) const;
    CQZQueryInfo* FindQueryBySrcName(const CString& strSrcName) const;

    /// Sets the Processed flag of every table.
    void SetProcessedAll(int nProcessed);
    /// Puts each query behind the queries that it reads. Of queries that read each other, directly or by way of others,
    /// no order is promised; the sorting ends in any case.
    void SortQueries();

 private:
    struct Options;

    /// The database alone, without tables and queries.
    CQZDatabaseInfo(const CQZDatabaseInfo& other);

    void CopyUserFunctions(const CQZDatabaseInfo& other);
    void ApplyToTables(const CQZDatabaseInfo& other, int nFilterKind);
    void ApplyToUnknownTable(CQZTableInfo& table, int nCopyData, int nCopyStructure) const;
    bool Reads(const CQZQueryInfo& reader, const CQZQueryInfo& query) const;
    void SettleQuery(POSITION place);

    CString SchemaName;
    int m_nUpdating = 0;
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
    std::int16_t CaseState = 0;
    CString GarbageSymbols;
    CString GarbageReplace;
    CString ExtraText;
    CString Version;
    std::uint8_t MaxThreads = 1;
    int MaxQuant = 100;
    int WithTriggers = 0;
    int WithBidirectional = 0;
    int UseHistoryCopyData = 1;
    int BidirectionalSync = 0;
    int CleanHistoryAfterUse = 1;

 public:
    /// Owned.
    CList<CQZTableInfo*> m_listTables{10};
    CList<CQZQueryInfo*> m_listQueries{10};
    /// Name to number of arguments in decimal. Not persisted.
    CMapStringToString m_mapUserFunctions{10};
};
