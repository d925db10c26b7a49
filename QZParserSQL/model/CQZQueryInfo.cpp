#include "QZParserSQL/model/CQZQueryInfo.h"

#include <utility>
#include <vector>

#include "QZParserSQL/catalog/CQZDatabaseInfo.h"
#include "QZParserSQL/catalog/CQZTableInfo.h"
#include "QZParserSQL/model/Copier.h"
#include "QZParserSQL/model/Dispose.h"
#include "QZParserSQL/model/Nesting.h"
#include "QZParserSQL/model/SelectItemSubQuery.h"
#include "QZParserSQL/model/SelectItemUnion.h"

namespace {

template <class T>
void DisposeList(const CList<T*>& list) {
    for (T* element : list) qz::Dispose(element);
}

template <class T>
void DisposeMap(const CTypedMapStringToPtr<T>& map) {
    for (const auto& [key, value] : map) qz::Dispose(value);
}

// Gives a database to the queries of items: an item first, then its query's clauses, then its children.
class DatabaseWalk {
 public:
    explicit DatabaseWalk(CQZDatabaseInfo* pDatabase) : m_pDatabase(pDatabase) {}

    void Run(const CQZQueryInfo& query) {
        AddClauses(query);
        while (!m_Waiting.empty()) {
            SelectItem* item = m_Waiting.back();
            m_Waiting.pop_back();
            if (item != nullptr) Visit(*item);
        }
    }

 private:
    // The last item added is the next to be visited, hence the reverse order here and in Add.
    void AddClauses(const CQZQueryInfo& query) {
        Add(query.m_listUnion);
        Add(query.m_listHaving);
        Add(query.m_listGroupBy);
        if (query.m_pWhere != nullptr) Add(query.m_pWhere->Children);
        Add(query.m_listOrderBy);
        Add(query.m_listFrom);
        Add(query.m_listSelect);
    }

    void Add(const CList<SelectItem*>& items) {
        for (POSITION position = items.GetTailPosition(); position != nullptr;)
            m_Waiting.push_back(items.GetPrev(position));
    }

    void Visit(const SelectItem& item) {
        Add(item.Children);
        if (item.ItemKind == SelectItem::kSubQuery) Give(dynamic_cast<const SelectItemSubQuery*>(&item));
        if (item.ItemKind != SelectItem::kUnion) return;
        if (const CQZQueryInfo* member = Give(dynamic_cast<const SelectItemUnion*>(&item))) AddClauses(*member);
    }

    template <class Item>
    CQZQueryInfo* Give(const Item* item) {
        if (item == nullptr || item->Query == nullptr) return nullptr;
        item->Query->SetDatabase(m_pDatabase);
        return item->Query;
    }

    CQZDatabaseInfo* m_pDatabase;
    std::vector<SelectItem*> m_Waiting;
};

}  // namespace

CQZQueryInfo::CQZQueryInfo() = default;

CQZQueryInfo::CQZQueryInfo(const CQZQueryInfo& other) : CQZQueryInfo(other, qz::Bare()) { qz::CopyOwned(other, *this); }

CQZQueryInfo::CQZQueryInfo(const CQZQueryInfo& other, qz::Bare /*bare*/)
    : CQZSourceInfo(other),
      m_nQuerySerial(other.m_nQuerySerial),
      m_pDatabase(other.m_pDatabase),
      m_strSQL(other.m_strSQL),
      m_bHasLimit(other.m_bHasLimit),
      m_nQueryFlag(other.m_nQueryFlag),
      m_nLimitFirst(other.m_nLimitFirst),
      m_nLimitSecond(other.m_nLimitSecond),
      m_nSelectQuantifier(other.m_nSelectQuantifier),
      m_nQueryMark(other.m_nQueryMark) {}

CQZQueryInfo::~CQZQueryInfo() {
    DisposeList(m_listSelect);
    DisposeList(m_listFrom);
    qz::Dispose(m_pWhere);
    DisposeList(m_listSubQueries);
    DisposeList(m_listOrderBy);
    DisposeList(m_listGroupBy);
    DisposeMap(m_mapFields);
    DisposeMap(m_mapAliases);
    DisposeList(m_listUnion);
    DisposeList(m_listHaving);
}

void CQZQueryInfo::Load(QZSettingsStore* pStore, QZObjectFactory* pFactory) { CQZObjectInfo::Load(pStore, pFactory); }

CQZQueryInfo* CQZQueryInfo::Clone(int /*bSelectedOnly*/) const { return new CQZQueryInfo(*this); }

bool CQZQueryInfo::IsVirtualObject(int /*nUnused*/) const { return true; }

bool CQZQueryInfo::IsRealObject(int nUnused) const { return !IsVirtualObject(nUnused); }

int CQZQueryInfo::HasQuerySource() const {
    for (const auto& [key, record] : m_mapFields) {
        if (record->TableName.IsEmpty()) continue;
        if (dynamic_cast<const CQZQueryInfo*>(FindSourceByName(record->TableName)) != nullptr) return 1;
    }
    return 0;
}

CString CQZQueryInfo::GetExtraText1() const { return {}; }

CString CQZQueryInfo::GetExtraText2() const { return {}; }

void CQZQueryInfo::SaveQuery(QZSettingsStore* pStore, int /*nUnused*/) { CQZObjectInfo::Save(pStore); }

void CQZQueryInfo::CopyQuery(CQZObjectInfo* pOther) { CQZObjectInfo::CopyFrom(pOther, 0); }

CQZQueryInfo& CQZQueryInfo::SetDatabase(CQZDatabaseInfo* pDatabase) {
    m_pDatabase = pDatabase;
    return *this;
}

void CQZQueryInfo::SetSQL(CString strSQL) {
    strSQL.Replace(u"\r\n", u" ");
    m_strSQL = std::move(strSQL.TrimRight());
}

void CQZQueryInfo::SetLimit(int nFirst, int nSecond) {
    m_bHasLimit = 1;
    m_nLimitFirst = nFirst;
    m_nLimitSecond = nSecond;
}

void CQZQueryInfo::GetLimit(int& nFirst, int& nSecond) const {
    nFirst = m_nLimitFirst;
    nSecond = m_nLimitSecond;
}

CQZQueryInfo& CQZQueryInfo::SetQueryFlag(int nFlag) {
    m_nQueryFlag = nFlag;
    return *this;
}

void CQZQueryInfo::ResolveSourceGUIDs() {
    for (CQZQueryInfo* query : qz::InnermostFirst(*this)) query->ResolveOwnSourceGUIDs();
}

void CQZQueryInfo::ResolveOwnSourceGUIDs() {
    for (const auto& [name, value] : m_mapSources) {
        if (const CQZSourceInfo* source = FindSourceByName(name)) m_mapSources.SetAt(name, source->GetGUID());
    }
}

void CQZQueryInfo::SetUserFunction(const CString& strName, int nArguments) {
    if (m_pDatabase != nullptr) m_pDatabase->m_mapUserFunctions.SetAt(strName, CString::FromInt(nArguments));
}

void CQZQueryInfo::PropagateDatabase() { DatabaseWalk(m_pDatabase).Run(*this); }

CQZSourceInfo* CQZQueryInfo::FindSourceByName(const CString& strSrcName) const {
    if (m_pDatabase == nullptr) return nullptr;
    if (CQZTableInfo* table = m_pDatabase->FindTableBySrcName(strSrcName)) return table;
    return m_pDatabase->FindQueryBySrcName(strSrcName);
}

CQZSourceInfo* CQZQueryInfo::FindSourceByGUID(const CString& strGUID) const {
    if (m_pDatabase == nullptr) return nullptr;
    if (CQZTableInfo* table = m_pDatabase->FindTableByGUID(strGUID)) return table;
    return m_pDatabase->FindQueryByGUID(strGUID);
}
