#include "QZParserSQL/catalog/CQZFilterItemInfo.h"

#include <utility>

#include "QZParserSQL/catalog/QZSettingsStore.h"

CQZFilterItemInfo::CQZFilterItemInfo(CString strFieldID, int nCondition, const QZFieldValue& value, int nConditionAdd) {
    Set(std::move(strFieldID), nCondition, value, nConditionAdd);
}

CQZFilterItemInfo::~CQZFilterItemInfo() { m_pField = nullptr; }

void CQZFilterItemInfo::Set(CString strFieldID, int nCondition, const QZFieldValue& value, int nConditionAdd) {
    FieldID = std::move(strFieldID);
    Condition = nCondition;
    Value.Assign(value);
    ConditionAdd = nConditionAdd;
}

void CQZFilterItemInfo::SetFieldID(CString strFieldID) { FieldID = std::move(strFieldID); }

void CQZFilterItemInfo::Save(QZSettingsStore* pStore) const {
    pStore->WriteString(u"FieldID", FieldID, 0);
    pStore->WriteInt(u"Condition", Condition);
    pStore->WriteInt(u"ConditionAdd", ConditionAdd);
    const QZOpenSection section(*pStore, u"Value", 1);
    Value.Save(pStore);
}

void CQZFilterItemInfo::Load(QZSettingsStore* pStore) {
    FieldID = pStore->ReadString(u"FieldID", CString(), 0);
    Condition = pStore->ReadInt(u"Condition", 0);
    ConditionAdd = pStore->ReadInt(u"ConditionAdd", 0);
    const QZOpenSection section(*pStore, u"Value", 0);
    Value.Load(pStore);
}
