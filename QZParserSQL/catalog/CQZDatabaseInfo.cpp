#include "QZParserSQL/catalog/CQZDatabaseInfo.h"

#include <type_traits>
#include <unordered_set>
#include <utility>
#include <vector>

#include "QZParserSQL/catalog/CQZTableInfo.h"
#include "QZParserSQL/catalog/ObjectLists.h"
#include "QZParserSQL/model/CQZQueryInfo.h"
#include "QZParserSQL/model/SelectItemUnion.h"

using qz::CloneAll;
using qz::DeleteAll;
using qz::Find;
using qz::LoadList;
using qz::SaveList;

namespace {

/// Holds a flag at 1 for a scope, and leaves it at 0.
class Flagged {
 public:
    explicit Flagged(int& nFlag) : m_nFlag(nFlag) { m_nFlag = 1; }
    ~Flagged() { m_nFlag = 0; }
    Flagged(const Flagged&) = delete;
    Flagged& operator=(const Flagged&) = delete;

 private:
    int& m_nFlag;
};

/// Whether the query, apart from the members of its unions, has a source of this GUID.
bool HasSource(const CQZQueryInfo& query, const CString& strGUID) {
    for (const auto& source : query.m_mapSources) {
        if (source.value.CompareNoCase(strGUID) == 0) return true;
    }
    return false;
}

void AddUnionMembers(const CQZQueryInfo& query, std::vector<const CQZQueryInfo*>& queries) {
    for (const SelectItem* item : query.m_listUnion) {
        const auto* member = dynamic_cast<const SelectItemUnion*>(item);
        if (member != nullptr && member->Query != nullptr) queries.push_back(member->Query);
    }
}

}  // namespace

/// The options in the order in which they are saved, each with what a store without the key gives.
struct CQZDatabaseInfo::Options {
    template <class Visit>
    static void ForEachNumber(Visit visit) {
        visit(u"OverwriteDatabase", &CQZDatabaseInfo::OverwriteDatabase, 1);
        visit(u"CloseExistingConnections", &CQZDatabaseInfo::CloseExistingConnections, 0);
        visit(u"OverwriteTables", &CQZDatabaseInfo::OverwriteTables, 0);
        visit(u"AutoStructureUpdate", &CQZDatabaseInfo::AutoStructureUpdate, 1);
        visit(u"CreateLogsEnabled", &CQZDatabaseInfo::CreateLogsEnabled, 0);
        visit(u"CreateDiff", &CQZDatabaseInfo::CreateDiff, 0);
        visit(u"CreateUndiff", &CQZDatabaseInfo::CreateUndiff, 0);
        visit(u"BulkInsert", &CQZDatabaseInfo::BulkInsert, 0);
        visit(u"Quant", &CQZDatabaseInfo::Quant, 0);
        visit(u"CaseState", &CQZDatabaseInfo::CaseState, 0);
        visit(u"MaxThreads", &CQZDatabaseInfo::MaxThreads, 1);
        visit(u"MaxQuant", &CQZDatabaseInfo::MaxQuant, 1);
        visit(u"UseHistoryCopyData", &CQZDatabaseInfo::UseHistoryCopyData, 0);
        visit(u"BidirectionalSync", &CQZDatabaseInfo::BidirectionalSync, 0);
        visit(u"CleanHistoryAfterUse", &CQZDatabaseInfo::CleanHistoryAfterUse, 0);
        visit(u"WithTriggers", &CQZDatabaseInfo::WithTriggers, 0);
        visit(u"WithBidirectional", &CQZDatabaseInfo::WithBidirectional, 0);
        visit(u"HandleSelectedObjects", &CQZDatabaseInfo::HandleSelectedObjects, 0);
    }

    /// The texts without SchemaName, which is the last.
    template <class Visit>
    static void ForEachText(Visit visit) {
        visit(u"GarbageSymbols", &CQZDatabaseInfo::GarbageSymbols);
        visit(u"GarbageReplace", &CQZDatabaseInfo::GarbageReplace);
        visit(u"Version", &CQZDatabaseInfo::Version);
    }

    static void Copy(CQZDatabaseInfo& to, const CQZDatabaseInfo& from) {
        ForEachNumber([&](const char16_t*, auto field, int) { to.*field = from.*field; });
        ForEachText([&](const char16_t*, auto field) { to.*field = from.*field; });
    }

    static void Save(const CQZDatabaseInfo& database, QZSettingsStore* pStore) {
        {
            const QZOpenSection section(*pStore, u"Options", 0);
            ForEachNumber([&](const char16_t* key, auto field, int) { pStore->WriteInt(key, database.*field); });
        }
        const QZOpenSection section(*pStore, u"Common", 0);
        ForEachText([&](const char16_t* key, auto field) { pStore->WriteString(key, database.*field, 0); });
        pStore->WriteString(u"SchemaName", database.SchemaName, 0);
    }

    static void Load(CQZDatabaseInfo& database, QZSettingsStore* pStore) {
        {
            const QZOpenSection section(*pStore, u"Options", 0);
            ForEachNumber([&](const char16_t* key, auto field, int ifMissing) {
                using Number = std::remove_reference_t<decltype(database.*field)>;
                database.*field = static_cast<Number>(pStore->ReadInt(key, ifMissing));
            });
        }
        const QZOpenSection section(*pStore, u"Common", 0);
        ForEachText([&](const char16_t* key, auto field) { database.*field = pStore->ReadString(key, CString(), 0); });
        database.SchemaName = pStore->ReadString(u"SchemaName", CString(), 0);
    }
};

CQZDatabaseInfo::CQZDatabaseInfo() = default;

CQZDatabaseInfo::CQZDatabaseInfo(const CQZDatabaseInfo& other)
    : CQZObjectInfo(other), SchemaName(other.SchemaName), ExtraText(other.ExtraText) {
    Options::Copy(*this, other);
    CopyUserFunctions(other);
}

CQZDatabaseInfo::CQZDatabaseInfo(const CQZDatabaseInfo& other, int bSelectedOnly) : CQZDatabaseInfo(other) {
    CloneAll(m_listTables, other.m_listTables, bSelectedOnly, 0,
             [this](CQZTableInfo& table) { table.SetDatabase(this); });
    CloneAll(m_listQueries, other.m_listQueries, bSelectedOnly, bSelectedOnly, [this](CQZQueryInfo& query) {
        query.SetDatabase(this);
        for (const CQZQueryUnionInfo* member : query.m_listUnions) {
            if (member->Query != nullptr) member->Query->SetDatabase(this);
        }
    });
}

CQZDatabaseInfo::~CQZDatabaseInfo() {
    DeleteAll(m_listTables);
    DeleteAll(m_listQueries);
}

void CQZDatabaseInfo::CopyUserFunctions(const CQZDatabaseInfo& other) {
    for (const auto& function : other.m_mapUserFunctions) {
        if (!function.value.IsEmpty()) m_mapUserFunctions.SetAt(function.key, function.value);
    }
}

bool CQZDatabaseInfo::IsVirtualObject(int) const { return true; }
bool CQZDatabaseInfo::IsRealObject(int) const { return false; }
bool CQZDatabaseInfo::GetExtraFlag() const { return false; }
int CQZDatabaseInfo::GetExtraValue1() const { return 0; }
int CQZDatabaseInfo::GetExtraValue2() const { return 0; }

void CQZDatabaseInfo::SetSchemaName(CString strName) { SchemaName = std::move(strName); }
void CQZDatabaseInfo::SetGarbageSymbols(CString strSymbols) { GarbageSymbols = std::move(strSymbols); }
void CQZDatabaseInfo::SetGarbageReplace(CString strReplace) { GarbageReplace = std::move(strReplace); }
void CQZDatabaseInfo::SetExtraText(CString strText) { ExtraText = std::move(strText); }
void CQZDatabaseInfo::SetVersion(CString strVersion) { Version = std::move(strVersion); }

void CQZDatabaseInfo::SetSelected(int nSelected) {
    if (nSelected == GetSelected()) return;
    const Flagged updating(m_nUpdating);
    qz::SelectAll(m_listTables, nSelected);
    CQZObjectInfo::SetSelected(nSelected);
}

void CQZDatabaseInfo::RefreshSelection() {
    if (m_nUpdating != 0) return;
    Selected = qz::IsAnySelected(m_listTables) ? 1 : 0;
}

void CQZDatabaseInfo::SetOverwriteDatabase(int nValue) {
    if (nValue != 0 && OverwriteDatabase == 0) {
        const Flagged updating(m_nUpdating);
        for (CQZTableInfo* table : m_listTables) table->SetOverwriteTable(nValue);
    }
    OverwriteDatabase = nValue;
}

void CQZDatabaseInfo::CheckReferences() {
    for (CQZTableInfo* table : m_listTables) table->CheckKeyReferences();
}

void CQZDatabaseInfo::SetProcessedAll(int nProcessed) {
    for (CQZTableInfo* table : m_listTables) table->SetProcessed(nProcessed);
}

CQZTableInfo* CQZDatabaseInfo::FindTableByGUID(const CString& strGUID) const {
    return Find(m_listTables, &CQZObjectInfo::GetGUID, strGUID);
}
CQZTableInfo* CQZDatabaseInfo::FindTableByName(const CString& strName) const {
    return Find(m_listTables, &CQZObjectInfo::GetName, strName);
}
CQZTableInfo* CQZDatabaseInfo::FindTableBySrcName(const CString& strSrcName) const {
    return Find(m_listTables, &CQZObjectInfo::GetSrcName, strSrcName);
}
CQZQueryInfo* CQZDatabaseInfo::FindQueryByGUID(const CString& strGUID) const {
    return Find(m_listQueries, &CQZObjectInfo::GetGUID, strGUID);
}
CQZQueryInfo* CQZDatabaseInfo::FindQueryBySrcName(const CString& strSrcName) const {
    return Find(m_listQueries, &CQZObjectInfo::GetSrcName, strSrcName);
}

void CQZDatabaseInfo::ApplyOptions(CQZDatabaseInfo* pOther, int nFilterKind) {
    Options::Copy(*this, *pOther);
    for (CQZQueryInfo* query : m_listQueries) {
        CQZQueryInfo* found = pOther->FindQueryBySrcName(query->GetName());
        if (found != nullptr) {
            query->CopyQuery(found);
        } else {
            query->SetSelected(0);
        }
    }
    ApplyToTables(*pOther, nFilterKind);
    CopyUserFunctions(*pOther);
}

void CQZDatabaseInfo::ApplyToTables(const CQZDatabaseInfo& other, int nFilterKind) {
    if (m_listTables.IsEmpty()) return;
    int anyData = 0;
    int anyStructure = 0;
    for (const CQZTableInfo* table : other.m_listTables) {
        if (table->GetSelected() == 0) continue;
        if (table->GetCopyData() != 0) anyData = 1;
        if (table->GetCopyStructure() != 0) anyStructure = 1;
    }
    for (CQZTableInfo* table : m_listTables) {
        CQZTableInfo* found = other.FindTableBySrcName(table->GetSrcName());
        if (found != nullptr) {
            table->CopyTable(found, nFilterKind);
        } else {
            ApplyToUnknownTable(*table, anyData, anyStructure);
        }
    }
}

void CQZDatabaseInfo::ApplyToUnknownTable(CQZTableInfo& table, int nCopyData, int nCopyStructure) const {
    table.SetSelected(AutoStructureUpdate);
    if (AutoStructureUpdate == 0) return;
    table.SetCopyData(nCopyData);
    table.SetCopyStructure(nCopyStructure);
    if (OverwriteTables != 0 && table.GetOverwriteTable() == 0) table.SetOverwriteTable(1);
}

void CQZDatabaseInfo::SortQueries() {
    for (POSITION place = m_listQueries.GetHeadPosition(); place != nullptr; m_listQueries.GetNext(place)) {
        SettleQuery(place);
    }
}

// Exchanges the query at a place for one behind it that it reads, until it reads none of those that have not stood
// there yet. One that has stood there led, step by step, to the one that does now, so that both read each other.
void CQZDatabaseInfo::SettleQuery(POSITION place) {
    CQZQueryInfo*& settled = m_listQueries.GetAt(place);
    std::unordered_set<const CQZQueryInfo*> stood;
    POSITION behind = place;
    while (m_listQueries.GetNext(behind), behind != nullptr) {
        CQZQueryInfo*& query = m_listQueries.GetAt(behind);
        if (stood.count(query) != 0 || !Reads(*settled, *query)) continue;
        stood.insert(settled);
        std::swap(settled, query);
        behind = place;
    }
}

bool CQZDatabaseInfo::Reads(const CQZQueryInfo& reader, const CQZQueryInfo& query) const {
    const bool bLookIntoUnions = GetDBType() != 16;
    const CString strGUID = query.GetGUID();
    std::vector<const CQZQueryInfo*> pending{&reader};
    while (!pending.empty()) {
        const CQZQueryInfo& next = *pending.back();
        pending.pop_back();
        if (HasSource(next, strGUID)) return true;
        if (bLookIntoUnions) AddUnionMembers(next, pending);
    }
    return false;
}

void CQZDatabaseInfo::Save(QZSettingsStore* pStore) {
    CQZObjectInfo::Save(pStore);
    Options::Save(*this, pStore);
    SaveList(pStore, m_listQueries, u"Queries", u"Query", [&](CQZQueryInfo& query) { query.SaveQuery(pStore, 0); });
    SaveList(pStore, m_listTables, u"Tables", u"Table", [&](CQZTableInfo& table) { table.Save(pStore); });
}

void CQZDatabaseInfo::Load(QZSettingsStore* pStore, QZObjectFactory* pFactory) {
    CQZObjectInfo::Load(pStore, pFactory);
    Options::Load(*this, pStore);
    m_listQueries.RemoveAll();
    LoadList(pStore, m_listQueries, pFactory, &QZObjectFactory::CreateQuery, GetDBType(), u"Queries", 1);
    m_listTables.RemoveAll();
    LoadList(pStore, m_listTables, pFactory, &QZObjectFactory::CreateTable, GetDBType(), u"Tables", 0);
}
