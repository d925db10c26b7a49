#include "host/catalog_names.h"

#include "host/nearest_names.h"
#include "host/wrong_usage.h"

namespace qzsql {

namespace {

using Names = std::vector<CString>;

template <class Objects>
void AddNames(Names& names, const Objects& objects, const CString& prefix = {}) {
    for (const auto* object : objects) names.push_back(prefix + object->GetSrcName());
}

void AddChildNames(Names& names, const CatalogTable& table, const CString& prefix) {
    AddNames(names, table.m_listFields, prefix);
    AddNames(names, table.m_listIndexes, prefix);
    AddNames(names, table.m_listForeignKeys, prefix);
}

NamedObject FindChild(CatalogTable& table, const CString& name) {
    if (auto* field = table.FindFieldBySrcName(name)) return {field, &FieldOptions(), &table};
    if (auto* index = table.FindIndexBySrcName(name)) return {index, &IndexOptions(), &table};
    if (auto* key = table.FindForeignKeyBySrcName(name)) return {key, &IndexOptions(), &table};
    return {};
}

[[noreturn]] void ThrowUnknown(const CatalogDatabase& database, const CString& name) {
    Names names;
    AddNames(names, database.m_listTables);
    AddNames(names, database.m_listQueries);
    for (int dot = name.Find(u'.'); dot >= 0; dot = name.Find(u'.', dot + 1)) {
        const auto* table = database.FindTable(name.Left(dot));
        if (table != nullptr) AddChildNames(names, *table, table->GetSrcName() + u".");
    }
    throw WrongUsage(UnknownName("object", name, names));
}

}  // namespace

NamedObject FindObject(CatalogDatabase& database, const CString& name) {
    if (name == kDatabaseItself) return {&database, &DatabaseOptions()};
    if (auto* table = database.FindTable(name)) return {table, &TableOptions(), table};
    if (auto* query = database.FindQuery(name)) return {query, &QueryOptions(), nullptr, query};
    for (int dot = name.Find(u'.'); dot >= 0; dot = name.Find(u'.', dot + 1)) {
        auto* table = database.FindTable(name.Left(dot));
        if (table == nullptr) continue;
        const NamedObject child = FindChild(*table, name.Mid(dot + 1));
        if (child.object != nullptr) return child;
    }
    ThrowUnknown(database, name);
}

CatalogTable& FindTable(CatalogDatabase& database, const CString& name) {
    if (auto* table = database.FindTable(name)) return *table;
    Names names;
    AddNames(names, database.m_listTables);
    throw WrongUsage(UnknownName("table", name, names));
}

CQZFieldInfo& FindField(CatalogTable& table, const CString& name) {
    if (auto* field = table.FindFieldBySrcName(name)) return *field;
    Names names;
    AddNames(names, table.m_listFields);
    throw WrongUsage(UnknownName("field of " + table.GetSrcName().ToUtf8(), name, names));
}

}  // namespace qzsql
