// One condition of a row filter.
#pragma once

#include "QZParserSQL/catalog/QZFieldValue.h"
#include "QZParserSQL/platform/CString.h"
#include "QZParserSQL/platform/Export.h"

class CQZFieldInfo;
class QZSettingsStore;

/// A field compared with a value. What the condition codes mean, and the SQL that comes of them, is up to the host's
/// concrete class. The destructor is neither virtual nor public: whoever owns an item through this class ends it with
/// Destroy. One object belongs to one thread at a time.
class QZ_API CQZFilterItemInfo {
 public:
    CQZFilterItemInfo() = default;
    /// Copies everything but the binary part of the value.
    CQZFilterItemInfo(const CQZFilterItemInfo&) = default;
    /// Makes what Set of the same arguments makes.
    CQZFilterItemInfo(CString strFieldID, int nCondition, const QZFieldValue& value, int nConditionAdd);
    CQZFilterItemInfo& operator=(const CQZFilterItemInfo&) = delete;

    /// The condition as SQL text, for the host's own use.
    virtual CString GetSQLText() const = 0;
    /// Keeps the condition in the section now open.
    virtual void Save(QZSettingsStore* pStore) const;
    /// Reads what Save kept.
    virtual void Load(QZSettingsStore* pStore);
    /// A new equal object, which belongs to the caller.
    virtual CQZFilterItemInfo* Clone() const = 0;
    /// Deletes this object: `delete this`, written in the class whose destructor is the right one.
    virtual void Destroy() = 0;

    /// Sets all four at once.
    void Set(CString strFieldID, int nCondition, const QZFieldValue& value, int nConditionAdd);

    /// The SrcName of the field that the condition is on.
    CString GetFieldID() const { return FieldID; }
    void SetFieldID(CString strFieldID);
    /// Condition codes of the host.
    int GetCondition() const { return Condition; }
    void SetCondition(int nCondition) { Condition = nCondition; }
    int GetConditionAdd() const { return ConditionAdd; }
    void SetConditionAdd(int nConditionAdd) { ConditionAdd = nConditionAdd; }
    /// What the field is compared with; copied with its binary part.
    const QZFieldValue& GetValue() const { return Value; }
    void SetValue(const QZFieldValue& value) { Value.Assign(value); }
    /// The field itself, not owned; set and read by the host only.
    CQZFieldInfo* GetField() const { return m_pField; }
    void SetField(CQZFieldInfo* pField) { m_pField = pField; }

 protected:
    ~CQZFilterItemInfo();

 private:
    CString FieldID;
    int Condition = 0;
    int ConditionAdd = 0;
    QZFieldValue Value;
    CQZFieldInfo* m_pField = nullptr;
};
