// A table of the catalog and how it is converted.
#pragma once

#include "QZParserSQL/catalog/CQZFieldInfo.h"
#include "QZParserSQL/catalog/QZOwned.h"
#include "QZParserSQL/model/CQZSourceInfo.h"
#include "QZParserSQL/platform/CCriticalSection.h"
#include "QZParserSQL/platform/CList.h"

class CQZDatabaseInfo;
class CQZFilterInfo;
class CQZForeignKeyInfo;
class CQZIndexInfo;

/// A table's fields, indexes, foreign keys and row filter, and the options of its conversion. The setters keep the
/// options in line with each other, with the selections of the children and with the database's options, and silently
/// refuse what their rules forbid. The concrete class is the host's.
///
/// What the lists hold is owned, the database is not. A table without a database counts as one in a database whose
/// options are 0. A child's SetSelected may call RefreshSelection: while a setter of the table is at work that does
/// nothing. Look-ups walk the list and give the first match or null; names and GUIDs are compared without regard to
/// case where nothing else is said. One object belongs to one thread at a time, GetProcessed and SetProcessed excepted;
/// as long as nobody changes anything but the Processed flags, CanStart and CanFinish are safe as well. The order of
/// the virtual operations is fixed: hosts are compiled against it.
class QZ_API CQZTableInfo : public CQZSourceInfo {
 public:
    CQZTableInfo();
    /// A deep copy of the same identity, without a database. With the flag, children that are not selected are left
    /// out. The children's clones get this table as their owner.
    CQZTableInfo(const CQZTableInfo& other, int bSelectedOnly);
    ~CQZTableInfo() override;

    /// Passes the selection on to structure and data, and with them to the children.
    void SetSelected(int nSelected) override;
    void Save(QZSettingsStore* pStore) override;
    /// Replaces the options, the children and the filter. Neither the database nor the children's owner is set.
    void Load(QZSettingsStore* pStore, QZObjectFactory* pFactory) override;
    CQZTableInfo* Clone(int bSelectedOnly) const override = 0;
    bool IsVirtualObject(int nUnused) const override;
    bool IsRealObject(int nUnused) const override;
    CQZFieldInfo* FindFieldByGUID(CString strGUID) override;
    CQZFieldInfo* FindFieldByName(CString strName) override;
    CQZFieldInfo* FindFieldBySrcName(CString strSrcName) override;
    /// The first code other than 0 of the table, its fields, its indexes or its foreign keys, in this order; with a
    /// flag, a field that is not selected counts as 1. The code of an index or a key that is not selected ends nothing,
    /// but stays when it is the list's last: behind such an index no key is looked at.
    int CheckChildren(int nFlag) override;

    /// Brings the options in line with the selections of the children.
    virtual void RefreshSelection(int nUnused);
    /// The first index that is the primary key (IsPrimaryKey), or null.
    virtual CQZIndexInfo* GetPrimaryKeyIndex();

    /// The options of the conversion as they are stored.
    virtual int GetCopyStructure() const;
    /// These two are 0 where there is nothing to copy, whatever is stored.
    virtual int GetCopyIndexes() const;
    virtual int GetCopyForeignKeys() const;
    /// The options of the conversion as they are stored.
    virtual int GetCopyData() const;
    virtual int GetSyncInsert() const;
    virtual int GetSyncUpdate() const;
    virtual int GetSyncDrop() const;
    virtual int GetOverwriteTable() const;
    virtual int GetModifyFields() const;
    virtual int GetModifyIndexes() const;
    virtual int GetModifyForeignKeys() const;
    /// Not owned; null for none.
    virtual CQZDatabaseInfo* GetDatabase() const;

    /// Selects the table while structure or data is copied; without structure nothing else of it is.
    virtual void SetCopyStructure(int nValue);
    /// These two are refused without structure.
    virtual void SetCopyIndexes(int nValue);
    virtual void SetCopyForeignKeys(int nValue);
    /// Selects the table while structure or data is copied; without data nothing is synchronised.
    virtual void SetCopyData(int nValue);
    /// Stores the option.
    virtual CQZTableInfo& SetSyncInsert(int nValue);
    virtual CQZTableInfo& SetSyncUpdate(int nValue);
    virtual CQZTableInfo& SetSyncDrop(int nValue);
    /// 0 is refused while the database is overwritten, anything else without structure.
    virtual void SetOverwriteTable(int nValue);
    /// These three are refused when the table is overwritten or what they modify is not copied.
    virtual void SetModifyFields(int nValue);
    virtual void SetModifyIndexes(int nValue);
    virtual void SetModifyForeignKeys(int nValue);
    /// The database is not owned.
    virtual CQZTableInfo& SetDatabase(CQZDatabaseInfo* pDatabase);
    /// Takes over the options of another table, those of its children by source name, and its filter where that is of
    /// the database kind `nFilterKind`. Children that the other table does not have are selected by the database's
    /// AutoStructureUpdate.
    virtual void CopyTable(CQZTableInfo* pOther, int nFilterKind);

    /// The first match in list order, or null; it stays the table's.
    CQZIndexInfo* FindIndexByGUID(const CString& strGUID) const;
    CQZIndexInfo* FindIndexByName(const CString& strName) const;
    CQZIndexInfo* FindIndexBySrcName(const CString& strSrcName) const;
    /// Compares with regard to case.
    CQZForeignKeyInfo* FindForeignKeyByGUID(const CString& strGUID) const;
    /// These two without regard to case.
    CQZForeignKeyInfo* FindForeignKeyByName(const CString& strName) const;
    CQZForeignKeyInfo* FindForeignKeyBySrcName(const CString& strSrcName) const;

    /// Null for none. The table owns it.
    CQZFilterInfo* GetFilter() const { return m_pFilter.get(); }
    /// Replaces the filter by a clone of another one, which may be the present one, or removes it for null. Conditions
    /// on fields that the table does not have are dropped, and so is a filter without conditions and SQL text.
    void SetFilter(const CQZFilterInfo* pFilter);

    /// The first index that serves as the primary one (IsPrimaryIndex), or null. The answer, null included, is kept
    /// until ClearChildren; a concrete class that changes the list of indexes sets m_bPrimaryIndexDirty.
    CQZIndexInfo* GetPrimaryIndex();
    /// Has each index and foreign key check its references.
    void CheckKeyReferences();
    /// Deletes all children and the filter.
    void ClearChildren();

    /// The work flag of a conversion, 0 at first. Safe for concurrent use.
    int GetProcessed() const;
    void SetProcessed(int nProcessed);
    /// 0 when a table of the database that a foreign key of this one points to is not processed, else 1. A table that
    /// points to itself waits for itself.
    int CanStart() const;
    /// 0 when another table of the database that is not processed has a foreign key to this one, else 1.
    int CanFinish() const;

 private:
    struct Options;

    /// The table alone, without children and filter.
    CQZTableInfo(const CQZTableInfo& other);

    bool DatabaseOverwrites() const;
    void RefreshDatabase();
    int CheckFields(int nFlag);
    void LoadFilter(QZSettingsStore* pStore, QZObjectFactory* pFactory);

    int m_nUpdating = 0;

 protected:
    /// What GetPrimaryIndex found, and whether it has to look again.
    CQZIndexInfo* m_pPrimaryIndex = nullptr;
    int m_bPrimaryIndexDirty = 1;

 private:
    CQZDatabaseInfo* m_pDatabase = nullptr;
    QZOwned<CQZFilterInfo> m_pFilter;
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
    mutable CCriticalSection m_csProcessed;
    int Processed = 0;

 public:
    /// Owned.
    CList<CQZFieldInfo*> m_listFields{10};
    CList<CQZIndexInfo*> m_listIndexes{10};
    CList<CQZForeignKeyInfo*> m_listForeignKeys{10};
};
