#include "QZParserSQL/catalog/CQZTableInfo.h"

#include <mutex>
#include <utility>

#include "QZParserSQL/catalog/CQZDatabaseInfo.h"
#include "QZParserSQL/catalog/CQZFilterInfo.h"
#include "QZParserSQL/catalog/CQZFilterItemInfo.h"
#include "QZParserSQL/catalog/CQZForeignKeyInfo.h"
#include "QZParserSQL/catalog/CQZIndexInfo.h"
#include "QZParserSQL/catalog/ObjectLists.h"

using qz::CloneAll;
using qz::Find;
using qz::IsAnySelected;
using qz::LoadList;
using qz::SaveList;
using qz::SelectAll;

namespace {

/// Raises a counter for a scope.
class Raised {
 public:
    explicit Raised(int& nCounter) : m_nCounter(nCounter) { ++m_nCounter; }
    ~Raised() { --m_nCounter; }
    Raised(const Raised&) = delete;
    Raised& operator=(const Raised&) = delete;

 private:
    int& m_nCounter;
};

int AutoStructureUpdateOf(const CQZDatabaseInfo* pDatabase) {
    return pDatabase != nullptr ? pDatabase->GetAutoStructureUpdate() : 0;
}

template <class Child, class FindBySrcName>
void CopyChildren(const CList<Child*>& list, int nSelectUnknown, FindBySrcName find) {
    for (Child* child : list) {
        Child* found = find(child->GetSrcName());
        if (found != nullptr) {
            child->CopyFrom(found, 0);
        } else {
            child->SetSelected(nSelectUnknown);
        }
    }
}

/// The code of the first child that is selected and not correct, else that of the last child.
template <class Child>
int CheckSelected(const CList<Child*>& list) {
    int code = 0;
    for (Child* child : list) {
        code = child->GetCorrect();
        if (code != 0 && child->GetSelected() != 0) break;
    }
    return code;
}

}  // namespace

/// The options in the order in which they are saved.
struct CQZTableInfo::Options {
    struct Option {
        const char16_t* key;
        int CQZTableInfo::*field;
        int (CQZTableInfo::*get)() const;
        int ifMissing;
    };

    static constexpr Option kAll[] = {
        {u"CopyStructure", &CQZTableInfo::CopyStructure, &CQZTableInfo::GetCopyStructure, 1},
        {u"CopyIndexes", &CQZTableInfo::CopyIndexes, &CQZTableInfo::GetCopyIndexes, 1},
        {u"CopyForeignKeys", &CQZTableInfo::CopyForeignKeys, &CQZTableInfo::GetCopyForeignKeys, 1},
        {u"CopyData", &CQZTableInfo::CopyData, &CQZTableInfo::GetCopyData, 1},
        {u"OverwriteTable", &CQZTableInfo::OverwriteTable, &CQZTableInfo::GetOverwriteTable, 0},
        {u"ModifyFields", &CQZTableInfo::ModifyFields, &CQZTableInfo::GetModifyFields, 0},
        {u"ModifyIndexes", &CQZTableInfo::ModifyIndexes, &CQZTableInfo::GetModifyIndexes, 0},
        {u"ModifyForeignKeys", &CQZTableInfo::ModifyForeignKeys, &CQZTableInfo::GetModifyForeignKeys, 0},
        {u"SyncInsert", &CQZTableInfo::SyncInsert, &CQZTableInfo::GetSyncInsert, 1},
        {u"SyncUpdate", &CQZTableInfo::SyncUpdate, &CQZTableInfo::GetSyncUpdate, 1},
        {u"SyncDrop", &CQZTableInfo::SyncDrop, &CQZTableInfo::GetSyncDrop, 1},
    };
};

CQZTableInfo::CQZTableInfo() = default;

CQZTableInfo::CQZTableInfo(const CQZTableInfo& other) : CQZSourceInfo(other) {
    for (const auto& option : Options::kAll) this->*option.field = other.*option.field;
}

CQZTableInfo::CQZTableInfo(const CQZTableInfo& other, int bSelectedOnly) : CQZTableInfo(other) {
    const auto own = [this](auto& child) { child.SetOwner(this); };
    CloneAll(m_listFields, other.m_listFields, bSelectedOnly, 0, own);
    CloneAll(m_listIndexes, other.m_listIndexes, bSelectedOnly, 0, own);
    CloneAll(m_listForeignKeys, other.m_listForeignKeys, bSelectedOnly, 0, own);
    CQZTableInfo::SetFilter(other.GetFilter());
}

CQZTableInfo::~CQZTableInfo() { ClearChildren(); }

bool CQZTableInfo::IsVirtualObject(int) const { return false; }
bool CQZTableInfo::IsRealObject(int) const { return true; }

CQZFieldInfo* CQZTableInfo::FindFieldByGUID(CString strGUID) {
    return Find(m_listFields, &CQZObjectInfo::GetGUID, strGUID);
}
CQZFieldInfo* CQZTableInfo::FindFieldByName(CString strName) {
    return Find(m_listFields, &CQZObjectInfo::GetName, strName);
}
CQZFieldInfo* CQZTableInfo::FindFieldBySrcName(CString strSrcName) {
    return Find(m_listFields, &CQZObjectInfo::GetSrcName, strSrcName);
}
CQZIndexInfo* CQZTableInfo::FindIndexByGUID(const CString& strGUID) const {
    return Find(m_listIndexes, &CQZObjectInfo::GetGUID, strGUID);
}
CQZIndexInfo* CQZTableInfo::FindIndexByName(const CString& strName) const {
    return Find(m_listIndexes, &CQZObjectInfo::GetName, strName);
}
CQZIndexInfo* CQZTableInfo::FindIndexBySrcName(const CString& strSrcName) const {
    return Find(m_listIndexes, &CQZObjectInfo::GetSrcName, strSrcName);
}
CQZForeignKeyInfo* CQZTableInfo::FindForeignKeyByGUID(const CString& strGUID) const {
    for (CQZForeignKeyInfo* key : m_listForeignKeys) {
        if (key->GetGUID() == strGUID) return key;
    }
    return nullptr;
}
CQZForeignKeyInfo* CQZTableInfo::FindForeignKeyByName(const CString& strName) const {
    return Find(m_listForeignKeys, &CQZObjectInfo::GetName, strName);
}
CQZForeignKeyInfo* CQZTableInfo::FindForeignKeyBySrcName(const CString& strSrcName) const {
    return Find(m_listForeignKeys, &CQZObjectInfo::GetSrcName, strSrcName);
}

int CQZTableInfo::GetCopyStructure() const { return CopyStructure; }
int CQZTableInfo::GetCopyIndexes() const { return CopyIndexes & (m_listIndexes.IsEmpty() ? 0 : 1); }
int CQZTableInfo::GetCopyForeignKeys() const { return CopyForeignKeys & (m_listForeignKeys.IsEmpty() ? 0 : 1); }
int CQZTableInfo::GetCopyData() const { return CopyData; }
int CQZTableInfo::GetSyncInsert() const { return SyncInsert; }
int CQZTableInfo::GetSyncUpdate() const { return SyncUpdate; }
int CQZTableInfo::GetSyncDrop() const { return SyncDrop; }
int CQZTableInfo::GetOverwriteTable() const { return OverwriteTable; }
int CQZTableInfo::GetModifyFields() const { return ModifyFields; }
int CQZTableInfo::GetModifyIndexes() const { return ModifyIndexes; }
int CQZTableInfo::GetModifyForeignKeys() const { return ModifyForeignKeys; }
CQZDatabaseInfo* CQZTableInfo::GetDatabase() const { return m_pDatabase; }

bool CQZTableInfo::DatabaseOverwrites() const {
    return m_pDatabase != nullptr && m_pDatabase->GetOverwriteDatabase() != 0;
}

void CQZTableInfo::RefreshDatabase() {
    if (m_pDatabase != nullptr) m_pDatabase->RefreshSelection();
}

void CQZTableInfo::SetSelected(int nSelected) {
    if (nSelected == Selected) return;
    const Raised updating(m_nUpdating);
    CQZSourceInfo::SetSelected(nSelected);
    SetCopyStructure(nSelected);
    SetCopyData(nSelected);
    RefreshDatabase();
}

void CQZTableInfo::SetCopyStructure(int nValue) {
    if (nValue == CopyStructure) return;
    const Raised updating(m_nUpdating);
    CopyStructure = nValue;
    Selected = nValue != 0 || CopyData != 0 ? 1 : 0;
    if (CopyData == 0) SelectAll(m_listFields, nValue);
    SetCopyIndexes(nValue);
    SetCopyForeignKeys(nValue);
    if (nValue == 0) {
        if (CopyData != 0 && DatabaseOverwrites()) SetCopyData(0);
        OverwriteTable = 0;
        ModifyFields = 0;
    } else if (DatabaseOverwrites()) {
        SetOverwriteTable(1);
    }
    RefreshDatabase();
}

void CQZTableInfo::SetCopyData(int nValue) {
    if (nValue == CopyData) return;
    const Raised updating(m_nUpdating);
    CopyData = nValue;
    Selected = nValue != 0 || CopyStructure != 0 ? 1 : 0;
    if (CopyStructure == 0) SelectAll(m_listFields, nValue);
    if (nValue == 0) {
        SyncInsert = SyncUpdate = SyncDrop = 0;
    } else if (CopyStructure == 0 && DatabaseOverwrites()) {
        SetCopyStructure(1);
    }
    RefreshDatabase();
}

void CQZTableInfo::SetCopyIndexes(int nValue) {
    if (nValue == CopyIndexes) return;
    if (nValue != 0 && CopyStructure == 0) return;
    const Raised updating(m_nUpdating);
    CopyIndexes = nValue;
    SelectAll(m_listIndexes, nValue);
    if (nValue == 0) ModifyIndexes = 0;
}

void CQZTableInfo::SetCopyForeignKeys(int nValue) {
    if (nValue == CopyForeignKeys) return;
    if (nValue != 0 && CopyStructure == 0) return;
    const Raised updating(m_nUpdating);
    CopyForeignKeys = nValue;
    SelectAll(m_listForeignKeys, nValue);
    if (nValue == 0) ModifyForeignKeys = 0;
}

void CQZTableInfo::SetOverwriteTable(int nValue) {
    if (nValue == OverwriteTable) return;
    if (nValue == 0 && DatabaseOverwrites()) return;
    if (nValue != 0 && CopyStructure == 0) return;
    OverwriteTable = nValue;
    if (nValue == 0) return;
    ModifyFields = ModifyIndexes = ModifyForeignKeys = 0;
    SyncInsert = SyncUpdate = SyncDrop = 0;
}

void CQZTableInfo::SetModifyFields(int nValue) {
    if (nValue != 0 && (CopyStructure == 0 || OverwriteTable != 0)) return;
    ModifyFields = nValue;
}

void CQZTableInfo::SetModifyIndexes(int nValue) {
    if (nValue != 0 && (CopyIndexes == 0 || OverwriteTable != 0)) return;
    ModifyIndexes = nValue;
}

void CQZTableInfo::SetModifyForeignKeys(int nValue) {
    if (nValue != 0 && (CopyForeignKeys == 0 || OverwriteTable != 0)) return;
    ModifyForeignKeys = nValue;
}

CQZTableInfo& CQZTableInfo::SetSyncInsert(int nValue) {
    SyncInsert = nValue;
    return *this;
}

CQZTableInfo& CQZTableInfo::SetSyncUpdate(int nValue) {
    SyncUpdate = nValue;
    return *this;
}

CQZTableInfo& CQZTableInfo::SetSyncDrop(int nValue) {
    SyncDrop = nValue;
    return *this;
}

CQZTableInfo& CQZTableInfo::SetDatabase(CQZDatabaseInfo* pDatabase) {
    m_pDatabase = pDatabase;
    return *this;
}

void CQZTableInfo::RefreshSelection(int) {
    if (m_nUpdating != 0) return;
    const int anyField = IsAnySelected(m_listFields) ? 1 : 0;
    const int anyIndex = IsAnySelected(m_listIndexes) ? 1 : 0;
    const int anyKey = IsAnySelected(m_listForeignKeys) ? 1 : 0;
    Selected = anyField | anyIndex | anyKey;
    if (Selected == 0) {
        CopyStructure = CopyData = 0;
    } else if (CopyStructure == 0 && CopyData == 0) {
        CopyStructure = CopyData = 1;
    }
    if (anyField == 0) CopyData = 0;
    CopyIndexes = anyIndex;
    CopyForeignKeys = anyKey;
    if (anyField == 0) ModifyFields = 0;
    if (anyIndex == 0) ModifyIndexes = 0;
    if (anyKey == 0) ModifyForeignKeys = 0;
    RefreshDatabase();
}

void CQZTableInfo::CopyTable(CQZTableInfo* pOther, int nFilterKind) {
    CQZSourceInfo::CopyFrom(pOther, 0);
    for (const auto& option : Options::kAll) this->*option.field = (pOther->*option.get)();
    const int nSelectUnknown = AutoStructureUpdateOf(m_pDatabase);
    CopyChildren(m_listFields, nSelectUnknown,
                 [pOther](const CString& strName) { return pOther->FindFieldBySrcName(strName); });
    CopyChildren(m_listIndexes, nSelectUnknown,
                 [pOther](const CString& strName) { return pOther->FindIndexBySrcName(strName); });
    CopyChildren(m_listForeignKeys, nSelectUnknown,
                 [pOther](const CString& strName) { return pOther->FindForeignKeyBySrcName(strName); });
    const CQZFilterInfo* filter = pOther->GetFilter();
    SetFilter(filter != nullptr && filter->GetDBType() == nFilterKind ? filter : nullptr);
}

void CQZTableInfo::SetFilter(const CQZFilterInfo* pFilter) {
    const QZOwned<CQZFilterInfo> present = std::move(m_pFilter);
    if (pFilter == nullptr) return;
    QZOwned<CQZFilterInfo> filter(pFilter->Clone());
    auto& items = filter->m_listItems;
    for (POSITION position = items.GetHeadPosition(); position != nullptr;) {
        const POSITION here = position;
        const CQZFilterItemInfo* item = items.GetNext(position);
        // NOLINTNEXTLINE(clang-analyzer-optin.cplusplus.VirtualCall): a copy being made looks up by itself
        if (FindFieldBySrcName(item->GetFieldID()) != nullptr) continue;
        const QZOwned<CQZFilterItemInfo> dropped(items.GetAt(here));
        items.RemoveAt(here);
    }
    if (!items.IsEmpty() || !filter->GetSQLQuery().IsEmpty()) m_pFilter = std::move(filter);
}

CQZIndexInfo* CQZTableInfo::GetPrimaryKeyIndex() {
    for (CQZIndexInfo* index : m_listIndexes) {
        if (index->IsPrimaryKey() != 0) return index;
    }
    return nullptr;
}

CQZIndexInfo* CQZTableInfo::GetPrimaryIndex() {
    if (m_bPrimaryIndexDirty == 0) return m_pPrimaryIndex;
    m_pPrimaryIndex = nullptr;
    for (CQZIndexInfo* index : m_listIndexes) {
        if (index->IsPrimaryIndex() == 0) continue;
        m_pPrimaryIndex = index;
        break;
    }
    m_bPrimaryIndexDirty = 0;
    return m_pPrimaryIndex;
}

void CQZTableInfo::ClearChildren() {
    qz::DeleteAll(m_listFields);
    qz::DeleteAll(m_listIndexes);
    qz::DeleteAll(m_listForeignKeys);
    m_pFilter = nullptr;
    m_pPrimaryIndex = nullptr;
    m_bPrimaryIndexDirty = 1;
}

int CQZTableInfo::CheckChildren(int nFlag) {
    int code = GetCorrect();
    if (code == 0) code = CheckFields(nFlag);
    if (code == 0) code = CheckSelected(m_listIndexes);
    if (code == 0) code = CheckSelected(m_listForeignKeys);
    return code;
}

int CQZTableInfo::CheckFields(int nFlag) {
    for (CQZFieldInfo* field : m_listFields) {
        const int code = field->GetCorrect();
        if (code != 0) return code;
        if (nFlag != 0 && field->GetSelected() == 0) return 1;
    }
    return 0;
}

void CQZTableInfo::CheckKeyReferences() {
    for (CQZIndexInfo* index : m_listIndexes) index->CheckReference(0);
    for (CQZForeignKeyInfo* key : m_listForeignKeys) key->CheckReference(0);
}

int CQZTableInfo::GetProcessed() const {
    const std::lock_guard<CCriticalSection> lock(m_csProcessed);
    return Processed;
}

void CQZTableInfo::SetProcessed(int nProcessed) {
    const std::lock_guard<CCriticalSection> lock(m_csProcessed);
    Processed = nProcessed;
}

int CQZTableInfo::CanStart() const {
    const CQZDatabaseInfo* database = GetDatabase();
    if (database == nullptr) return 1;
    for (const CQZForeignKeyInfo* key : m_listForeignKeys) {
        const CQZTableInfo* referenced = database->FindTableByGUID(key->GetReferencedTableGUID());
        if (referenced != nullptr && referenced->GetProcessed() == 0) return 0;
    }
    return 1;
}

int CQZTableInfo::CanFinish() const {
    const CQZDatabaseInfo* database = GetDatabase();
    if (database == nullptr) return 1;
    int result = 1;
    const CString strGUID = GetGUID();
    for (const CQZTableInfo* table : database->m_listTables) {
        if (table == this) continue;
        for (const CQZForeignKeyInfo* key : table->m_listForeignKeys) {
            if (key->GetReferencedTableGUID() == strGUID && table->GetProcessed() == 0) result = 0;
        }
    }
    return result;
}

void CQZTableInfo::Save(QZSettingsStore* pStore) {
    CQZSourceInfo::Save(pStore);
    {
        const QZOpenSection section(*pStore, u"Options", 0);
        for (const auto& option : Options::kAll) pStore->WriteInt(option.key, this->*option.field);
    }
    const auto save = [pStore](auto& child) { child.Save(pStore); };
    SaveList(pStore, m_listFields, u"Fields", u"Field", save);
    SaveList(pStore, m_listIndexes, u"Indexes", u"Index", save);
    SaveList(pStore, m_listForeignKeys, u"ForeignKeys", u"ForeignKey", save);
    if (m_pFilter == nullptr) return;
    const QZOpenSection section(*pStore, u"Filter", 1);
    pStore->WriteInt(u"DBType", m_pFilter->GetDBType());
    m_pFilter->Save(pStore);
}

void CQZTableInfo::Load(QZSettingsStore* pStore, QZObjectFactory* pFactory) {
    CQZSourceInfo::Load(pStore, pFactory);
    ClearChildren();
    {
        const QZOpenSection section(*pStore, u"Options", 0);
        for (const auto& option : Options::kAll) this->*option.field = pStore->ReadInt(option.key, option.ifMissing);
    }
    LoadList(pStore, m_listFields, pFactory, &QZObjectFactory::CreateField, GetDBType(), u"Fields", 0);
    LoadList(pStore, m_listIndexes, pFactory, &QZObjectFactory::CreateIndex, GetDBType(), u"Indexes", 0);
    if (pStore->SectionExists(u"ForeignKeys") != 0) {
        LoadList(pStore, m_listForeignKeys, pFactory, &QZObjectFactory::CreateForeignKey, GetDBType(), u"ForeignKeys",
                 0);
    }
    if (pStore->SectionExists(u"Filter") != 0) LoadFilter(pStore, pFactory);
}

void CQZTableInfo::LoadFilter(QZSettingsStore* pStore, QZObjectFactory* pFactory) {
    const QZOpenSection section(*pStore, u"Filter", 0);
    QZOwned<CQZFilterInfo> filter(pFactory->CreateFilter(pStore->ReadInt(u"DBType", 0)));
    if (filter != nullptr) filter->Load(pStore, pFactory);
    m_pFilter = std::move(filter);
}
