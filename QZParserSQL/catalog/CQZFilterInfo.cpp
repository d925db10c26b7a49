#include "QZParserSQL/catalog/CQZFilterInfo.h"

#include <utility>

#include "QZParserSQL/catalog/CQZFilterItemInfo.h"
#include "QZParserSQL/catalog/ObjectLists.h"

CQZFilterInfo::CQZFilterInfo(const CQZFilterInfo& other, WithoutItems)
    : SQLQuery(other.SQLQuery), UseSQLQuery(other.UseSQLQuery) {}

CQZFilterInfo::CQZFilterInfo(const CQZFilterInfo& other) : CQZFilterInfo(other, WithoutItems()) {
    for (const CQZFilterItemInfo* item : other.m_listItems) {
        qz::Append(m_listItems, QZOwned<CQZFilterItemInfo>(item->Clone()));
    }
}

CQZFilterInfo::~CQZFilterInfo() { ClearItems(); }

void CQZFilterInfo::ClearItems() { qz::DeleteAll(m_listItems); }

void CQZFilterInfo::SetSQLQuery(CString strSQLQuery) { SQLQuery = std::move(strSQLQuery); }

void CQZFilterInfo::Save(QZSettingsStore* pStore) const {
    pStore->WriteString(u"SQLQuery", SQLQuery, 0);
    pStore->WriteInt(u"UseSQLQuery", UseSQLQuery);
    qz::SaveNumbered(pStore, m_listItems, u"Condition", [&](const CQZFilterItemInfo& item) { item.Save(pStore); });
}

void CQZFilterInfo::Load(QZSettingsStore* pStore, QZObjectFactory* pFactory) {
    ClearItems();
    SQLQuery = pStore->ReadString(u"SQLQuery", CString(), 0);
    UseSQLQuery = pStore->ReadInt(u"UseSQLQuery", 0);
    qz::LoadEach(pStore, m_listItems, pFactory, &QZObjectFactory::CreateFilterItem, GetDBType(),
                 [&](CQZFilterItemInfo& item) { item.Load(pStore); });
}
