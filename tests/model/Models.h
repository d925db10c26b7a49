// Queries over a catalog, made by hand as a walker would make them.
#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <utility>

#include "tests/catalog/Concrete.h"
#include "tests/model/Samples.h"

namespace sample {

inline SelectItemField* Field(const CString& table, const CString& field) {
    auto* item = new SelectItemField;
    item->SetTableName(table);
    item->SetFieldName(field);
    return item;
}

/// A field item that names an alias of the same query, with what the alias stands for.
inline SelectItemField* AliasReference(const CString& alias, SelectItem* meaning) {
    auto* item = new SelectItemField;
    item->ItemKind = SelectItem::kAliasReference;
    item->SetFieldAlias(alias);
    item->Children.AddTail(meaning);
    return item;
}

inline SelectItem* Operator(const CString& name, std::initializer_list<SelectItem*> children) {
    SelectItem* item = Item(u"", children);
    item->ItemKind = SelectItem::kOperator;
    item->FuncName = name;
    item->IsOperator = 1;
    return item;
}

/// A query's source, and FROM with it.
inline void Read(CQZQueryInfo& reader, const CQZSourceInfo& source) {
    reader.m_mapSources.SetAt(source.GetSrcName(), source.GetGUID());
    reader.m_listFrom.AddTail(Field(source.GetSrcName(), u""));
}

/// An item, which its query owns, at the end of a list.
template <class Item>
Item& Put(CList<SelectItem*>& list, Item* item) {
    list.AddTail(item);
    return *item;
}

/// A query that reads the table t, whose name is T in the target, with the field a, there A.
class Models : public testing::Test {
 protected:
    Models() {
        database.SetSchemaName(u"schema");
        table.SetName(u"T");
        a.SetName(u"A");
        query.SetDatabase(&database);
    }

    /// A stored query whose name in the target is its source name with "_target".
    concrete::Query& Stored(const CString& name, std::initializer_list<const CQZSourceInfo*> sources,
                            std::initializer_list<SelectItem*> select) {
        concrete::Query& stored = database.AddQuery(name);
        stored.SetName(name + u"_target");
        for (const CQZSourceInfo* source : sources) Read(stored, *source);
        for (SelectItem* item : select) stored.m_listSelect.AddTail(item);
        return stored;
    }

    concrete::Table& Table(const CString& name, const CString& field, const CString& targetField) {
        concrete::Table& added = database.AddTable(name);
        added.SetName(name + u"_target");
        added.AddField(field).SetName(targetField);
        return added;
    }

    SelectItemField& Selected(const CString& tableName, const CString& field) {
        return Put(query.m_listSelect, Field(tableName, field));
    }

    int StoredCorrect() { return query.CQZObjectInfo::GetCorrect(); }

    concrete::Database database;
    concrete::Table& table = database.AddTable(u"t");
    concrete::Field& a = table.AddField(u"a");
    CQZQueryInfo query;
};

/// "table.field", resolved.
inline CString Resolved(const SelectItemField& field) {
    return field.GetResolvedTable() + u"." + field.GetResolvedField();
}

}  // namespace sample
