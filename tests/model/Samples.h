// Small objects and checks that the tests of the model share.
#pragma once

#include <initializer_list>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "QZParserSQL/model/CQZQueryInfo.h"
#include "QZParserSQL/model/SelectItemField.h"
#include "QZParserSQL/model/SelectItemSubQuery.h"
#include "QZParserSQL/model/SelectItemUnion.h"
#include "tests/platform/PrintText.h"

namespace sample {

/// The plainest object.
class Object : public CQZObjectInfo {
 public:
    Object* Clone(int) const override { return new Object(*this); }
    bool IsVirtualObject(int) const override { return false; }
    bool IsRealObject(int) const override { return true; }
};

using Log = std::vector<std::string>;

/// Notes its name when it is destroyed.
template <class Base>
class Logged : public Base {
 public:
    Logged(Log& log, std::string name) : m_Log(log), m_Name(std::move(name)) {}
    Logged(const Logged&) = default;
    ~Logged() override { m_Log.push_back(m_Name); }

 private:
    Log& m_Log;
    std::string m_Name;
};

class LoggedItem final : public Logged<SelectItem> {
 public:
    using Logged::Logged;
    LoggedItem* Clone() const override { return new LoggedItem(*this); }
};

inline SelectItem* Item(const CString& text, std::initializer_list<SelectItem*> children = {}) {
    auto* item = new SelectItem;
    item->Text = text;
    for (SelectItem* child : children) item->Children.AddTail(child);
    return item;
}

/// A logged item with children.
inline SelectItem* Item(Log& log, const std::string& name, std::initializer_list<SelectItem*> children = {}) {
    auto* item = new LoggedItem(log, name);
    for (SelectItem* child : children) item->Children.AddTail(child);
    return item;
}

/// Enters a record of a reference to a field.
inline CFieldObject& AddRecord(CQZQueryInfo& query, const CString& table, const CString& field) {
    auto* record = new CFieldObject;
    record->TableName = table;
    record->FieldName = field;
    query.m_mapFields.SetAt(record->GetKey(), record);
    return *record;
}

/// Enters an alias whose two names are the same.
inline CQZAliasInfo& AddAlias(CQZQueryInfo& query, const CString& name) {
    auto* alias = new CQZAliasInfo;
    alias->SetName(name);
    alias->SetSrcName(name);
    query.m_mapAliases.SetAt(CString(name).MakeLower(), alias);
    return *alias;
}

template <class T>
std::unique_ptr<T> CloneOf(const T& original) {
    return std::unique_ptr<T>(original.Clone());
}

}  // namespace sample
