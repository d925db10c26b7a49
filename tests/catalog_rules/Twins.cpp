#include "tests/catalog_rules/Twins.h"

#include <cstdlib>
#include <map>
#include <sstream>
#include <type_traits>

#include "QZParserSQL/model/CQZQueryInfo.h"
#include "tests/catalog_rules/HostCatalog.h"

namespace rules {

namespace {

// Fields that have no getter of their own are read in place: an explicit instantiation may name what is private.
struct DatabaseUpdating {
    friend int CQZDatabaseInfo::*Pointer(DatabaseUpdating);
};
struct TableUpdating {
    friend int CQZTableInfo::*Pointer(TableUpdating);
};
struct StoredCopyIndexes {
    friend int CQZTableInfo::*Pointer(StoredCopyIndexes);
};
struct StoredCopyForeignKeys {
    friend int CQZTableInfo::*Pointer(StoredCopyForeignKeys);
};

template <class Field, auto pointer>
struct Reveal {
    friend decltype(pointer) Pointer(Field) { return pointer; }
};

template struct Reveal<DatabaseUpdating, &CQZDatabaseInfo::m_nUpdating>;
template struct Reveal<TableUpdating, &CQZTableInfo::m_nUpdating>;
template struct Reveal<StoredCopyIndexes, &CQZTableInfo::CopyIndexes>;
template struct Reveal<StoredCopyForeignKeys, &CQZTableInfo::CopyForeignKeys>;

template <class Field, class Object>
int Stored(Object& object) {
    return object.*Pointer(Field());
}

// Numbers as the library takes and gives them: narrower ones, and texts that hold a number.
template <class T>
T FromNumber(int number) {
    if constexpr (std::is_same_v<T, CString>) {
        return CString::FromInt(number);
    } else {
        return static_cast<T>(number);
    }
}

int ToNumber(int number) { return number; }
int ToNumber(const CString& text) { return std::atoi(text.ToUtf8().c_str()); }

template <auto getter, class Object>
int Get(Object& object) {
    return ToNumber((object.*getter)());
}

template <class Object, class Class, class Result, class Argument>
void CallSetter(Object& object, Result (Class::*setter)(Argument), int value) {
    (object.*setter)(FromNumber<Argument>(value));
}

template <auto setter, class Object>
void Set(Object& object, int value) {
    CallSetter(object, setter, value);
}

/// A field by the name that it has in both worlds and in a store, with its setters.
template <class Library, class Model>
struct Field {
    const char* name;
    int Model::*model;
    int (*get)(Library&);
    void (*set)(Library&, int);
    void (*setModel)(Model&, int);
};

using CatalogField = Field<HostDatabase, Database>;
using TableField = Field<concrete::Table, Table>;

template <int Database::*field>
void Store(Database& database, int value) {
    database.*field = value;
}

template <int Database::*field, auto getter, auto setter>
constexpr CatalogField Row(const char* name, void (*setModel)(Database&, int) = Store<field>) {
    return {name, field, Get<getter>, Set<setter>, setModel};
}

constexpr CatalogField kCatalogFields[] = {
    Row<&Database::Selected, &CQZDatabaseInfo::GetSelected, &CQZDatabaseInfo::SetSelected>("Selected", SetSelected),
    Row<&Database::SchemaName, &CQZDatabaseInfo::GetSchemaName, &CQZDatabaseInfo::SetSchemaName>("SchemaName"),
    Row<&Database::OverwriteDatabase, &CQZDatabaseInfo::GetOverwriteDatabase, &CQZDatabaseInfo::SetOverwriteDatabase>(
        "OverwriteDatabase", SetOverwriteDatabase),
    Row<&Database::OverwriteTables, &CQZDatabaseInfo::GetOverwriteTables, &CQZDatabaseInfo::SetOverwriteTables>(
        "OverwriteTables"),
    Row<&Database::AutoStructureUpdate, &CQZDatabaseInfo::GetAutoStructureUpdate,
        &CQZDatabaseInfo::SetAutoStructureUpdate>("AutoStructureUpdate"),
    Row<&Database::HandleSelectedObjects, &CQZDatabaseInfo::GetHandleSelectedObjects,
        &CQZDatabaseInfo::SetHandleSelectedObjects>("HandleSelectedObjects"),
    Row<&Database::CreateLogsEnabled, &CQZDatabaseInfo::GetCreateLogsEnabled, &CQZDatabaseInfo::SetCreateLogsEnabled>(
        "CreateLogsEnabled"),
    Row<&Database::CreateDiff, &CQZDatabaseInfo::GetCreateDiff, &CQZDatabaseInfo::SetCreateDiff>("CreateDiff"),
    Row<&Database::CreateUndiff, &CQZDatabaseInfo::GetCreateUndiff, &CQZDatabaseInfo::SetCreateUndiff>("CreateUndiff"),
    Row<&Database::BulkInsert, &CQZDatabaseInfo::GetBulkInsert, &CQZDatabaseInfo::SetBulkInsert>("BulkInsert"),
    Row<&Database::Quant, &CQZDatabaseInfo::GetQuant, &CQZDatabaseInfo::SetQuant>("Quant"),
    Row<&Database::CloseExistingConnections, &CQZDatabaseInfo::GetCloseExistingConnections,
        &CQZDatabaseInfo::SetCloseExistingConnections>("CloseExistingConnections"),
    Row<&Database::CaseState, &CQZDatabaseInfo::GetCaseState, &CQZDatabaseInfo::SetCaseState>("CaseState"),
    Row<&Database::GarbageSymbols, &CQZDatabaseInfo::GetGarbageSymbols, &CQZDatabaseInfo::SetGarbageSymbols>(
        "GarbageSymbols"),
    Row<&Database::GarbageReplace, &CQZDatabaseInfo::GetGarbageReplace, &CQZDatabaseInfo::SetGarbageReplace>(
        "GarbageReplace"),
    Row<&Database::Version, &CQZDatabaseInfo::GetVersion, &CQZDatabaseInfo::SetVersion>("Version"),
    Row<&Database::MaxThreads, &CQZDatabaseInfo::GetMaxThreads, &CQZDatabaseInfo::SetMaxThreads>("MaxThreads"),
    Row<&Database::MaxQuant, &CQZDatabaseInfo::GetMaxQuant, &CQZDatabaseInfo::SetMaxQuant>("MaxQuant"),
    Row<&Database::WithTriggers, &CQZDatabaseInfo::GetWithTriggers, &CQZDatabaseInfo::SetWithTriggers>("WithTriggers"),
    Row<&Database::WithBidirectional, &CQZDatabaseInfo::GetWithBidirectional, &CQZDatabaseInfo::SetWithBidirectional>(
        "WithBidirectional"),
    Row<&Database::UseHistoryCopyData, &CQZDatabaseInfo::GetUseHistoryCopyData,
        &CQZDatabaseInfo::SetUseHistoryCopyData>("UseHistoryCopyData"),
    Row<&Database::BidirectionalSync, &CQZDatabaseInfo::GetBidirectionalSync, &CQZDatabaseInfo::SetBidirectionalSync>(
        "BidirectionalSync"),
    Row<&Database::CleanHistoryAfterUse, &CQZDatabaseInfo::GetCleanHistoryAfterUse,
        &CQZDatabaseInfo::SetCleanHistoryAfterUse>("CleanHistoryAfterUse"),
};

constexpr TableField kTableFields[] = {
    {"Selected", &Table::Selected, Get<&CQZTableInfo::GetSelected>, Set<&CQZTableInfo::SetSelected>, SetSelected},
    {"CopyStructure", &Table::CopyStructure, Get<&CQZTableInfo::GetCopyStructure>, Set<&CQZTableInfo::SetCopyStructure>,
     SetCopyStructure},
    {"CopyIndexes", &Table::CopyIndexes, Stored<StoredCopyIndexes>, Set<&CQZTableInfo::SetCopyIndexes>, SetCopyIndexes},
    {"CopyForeignKeys", &Table::CopyForeignKeys, Stored<StoredCopyForeignKeys>, Set<&CQZTableInfo::SetCopyForeignKeys>,
     SetCopyForeignKeys},
    {"CopyData", &Table::CopyData, Get<&CQZTableInfo::GetCopyData>, Set<&CQZTableInfo::SetCopyData>, SetCopyData},
    {"OverwriteTable", &Table::OverwriteTable, Get<&CQZTableInfo::GetOverwriteTable>,
     Set<&CQZTableInfo::SetOverwriteTable>, SetOverwriteTable},
    {"ModifyFields", &Table::ModifyFields, Get<&CQZTableInfo::GetModifyFields>, Set<&CQZTableInfo::SetModifyFields>,
     SetModifyFields},
    {"ModifyIndexes", &Table::ModifyIndexes, Get<&CQZTableInfo::GetModifyIndexes>, Set<&CQZTableInfo::SetModifyIndexes>,
     SetModifyIndexes},
    {"ModifyForeignKeys", &Table::ModifyForeignKeys, Get<&CQZTableInfo::GetModifyForeignKeys>,
     Set<&CQZTableInfo::SetModifyForeignKeys>, SetModifyForeignKeys},
    {"SyncInsert", &Table::SyncInsert, Get<&CQZTableInfo::GetSyncInsert>, Set<&CQZTableInfo::SetSyncInsert>,
     SetSyncInsert},
    {"SyncUpdate", &Table::SyncUpdate, Get<&CQZTableInfo::GetSyncUpdate>, Set<&CQZTableInfo::SetSyncUpdate>,
     SetSyncUpdate},
    {"SyncDrop", &Table::SyncDrop, Get<&CQZTableInfo::GetSyncDrop>, Set<&CQZTableInfo::SetSyncDrop>, SetSyncDrop},
};

template <class List>
auto Find(List& list, const std::string& name) -> decltype(&list.front()) {
    for (auto& entry : list) {
        if (entry.name == name) return &entry;
    }
    return nullptr;
}

/// Calls the setter of both worlds that the operation names, if it is one.
template <class Fields, class Library, class Model>
void SetField(const Fields& fields, Library& library, Model& model, const std::string& operation, int value) {
    for (const auto& field : fields) {
        if (operation != std::string("Set") + field.name) continue;
        field.set(library, value);
        field.setModel(model, value);
    }
}

std::map<std::string, int> ParseKeys(const std::string& text) {
    std::map<std::string, int> keys;
    std::istringstream words(text);
    for (std::string word; words >> word;) {
        const std::size_t equals = word.find('=');
        keys[word.substr(0, equals)] = std::stoi(word.substr(equals + 1));
    }
    return keys;
}

template <class Fields, class Library, class Model>
void LoadBoth(const Fields& fields, Library& library, Model& model, const std::string& text) {
    const std::map<std::string, int> keys = ParseKeys(text);
    LooseKeys store(keys, library.GetSrcName());
    library.Load(&store, nullptr);
    SetLoadDefaults(model);
    for (const auto& field : fields) {
        const auto found = keys.find(field.name);
        if (found != keys.end()) model.*field.model = found->second;
    }
}

template <class Fields>
std::vector<std::string> NamesOf(const Fields& fields) {
    std::vector<std::string> names;
    for (const auto& field : fields) names.push_back(field.name);
    return names;
}

CString Text(const std::string& text) { return CString::FromUtf8(text); }

}  // namespace

struct Twins::Call {
    explicit Call(const std::string& text) {
        const std::size_t open = text.find('(');
        const std::size_t dot = text.rfind('.', open);
        object = text.substr(0, dot);
        operation = text.substr(dot + 1, open - dot - 1);
        argument = text.substr(open + 1, text.size() - open - 2);
    }

    int Number() const { return std::atoi(argument.c_str()); }
    /// The two words of an argument that makes an object.
    std::string NewName() const { return argument.substr(0, argument.find(' ')); }
    std::string NewSrcName() const { return argument.substr(argument.find(' ') + 1); }

    std::string object;
    std::string operation;
    std::string argument;
};

Twins::Twins() {
    for (const char* name : {"db", "other"}) m_Catalogs.push_back({name, std::make_unique<HostDatabase>(), Database()});
}

Twins::~Twins() = default;

const std::vector<std::string>& Twins::CatalogFields() {
    static const std::vector<std::string> names = NamesOf(kCatalogFields);
    return names;
}

const std::vector<std::string>& Twins::TableFields() {
    static const std::vector<std::string> names = NamesOf(kTableFields);
    return names;
}

void Twins::Apply(const std::string& text) {
    const Call call(text);
    if (CatalogTwin* catalog = Find(m_Catalogs, call.object)) ApplyTo(*catalog, call);
    if (TableTwin* table = Find(m_Tables, call.object)) ApplyTo(*table, call);
    if (ChildTwin* child = Find(m_Children, call.object)) {
        child->library->SetSelected(call.Number());
        SetSelected(*child->table, *child->model, call.Number());
    }
    if (QueryTwin* query = Find(m_Queries, call.object)) ApplyTo(*query, call);
}

void Twins::ApplyTo(CatalogTwin& catalog, const Call& call) {
    if (call.operation == "Load") {
        LoadBoth(kCatalogFields, *catalog.library, catalog.model, call.argument);
    } else if (call.operation == "AddTable") {
        AddTable(catalog, call);
    } else if (call.operation == "AddQuery") {
        AddQuery(catalog, call);
    } else if (call.operation == "ApplyOptions") {
        CatalogTwin& other = *Find(m_Catalogs, call.argument);
        catalog.library->ApplyOptions(other.library.get(), 0);
        rules::ApplyOptions(catalog.model, other.model);
    } else if (call.operation == "RefreshSelection") {
        catalog.library->RefreshSelection();
        RefreshSelection(catalog.model);
    } else {
        SetField(kCatalogFields, *catalog.library, catalog.model, call.operation, call.Number());
    }
}

void Twins::ApplyTo(TableTwin& table, const Call& call) {
    if (call.operation == "Load") {
        LoadBoth(kTableFields, *table.library, *table.model, call.argument);
    } else if (call.operation == "ChildrenTell") {
        table.model->ChildrenTell = call.Number() != 0;
    } else if (call.operation == "Add") {
        AddChild(table, call);
    } else if (call.operation == "SetDatabase") {
        CatalogTwin* catalog = Find(m_Catalogs, call.argument);
        table.library->SetDatabase(catalog != nullptr ? catalog->library.get() : nullptr);
        table.model->Owner = catalog != nullptr ? &catalog->model : nullptr;
    } else if (call.operation == "CopyTable") {
        const TableTwin* other = Find(m_Tables, call.argument);
        if (other == nullptr) return;
        table.library->CopyTable(other->library, 0);
        rules::CopyTable(*table.model, *other->model);
    } else if (call.operation == "RefreshSelection") {
        table.library->RefreshSelection(call.Number());
        RefreshSelection(*table.model);
    } else {
        SetField(kTableFields, *table.library, *table.model, call.operation, call.Number());
    }
}

void Twins::ApplyTo(QueryTwin& query, const Call& call) {
    if (call.operation == "SetName") {
        query.library->SetName(Text(call.argument));
        query.model->Name = call.argument;
    } else {
        query.library->SetSelected(call.Number());
        query.model->Selected = call.Number();
    }
}

void Twins::AddTable(CatalogTwin& catalog, const Call& call) {
    auto* table = new concrete::Table;
    catalog.library->m_listTables.AddTail(table);
    table->SetSrcName(Text(call.NewSrcName()));
    table->SetDatabase(catalog.library.get());
    Table& model = catalog.model.Tables.emplace_back();
    model.SrcName = call.NewSrcName();
    model.Owner = &catalog.model;
    m_Tables.push_back({call.NewName(), table, &model});
}

void Twins::AddQuery(CatalogTwin& catalog, const Call& call) {
    auto* query = new concrete::Query;
    catalog.library->m_listQueries.AddTail(query);
    query->SetSrcName(Text(call.NewSrcName()));
    query->SetName(Text(call.NewSrcName()));
    query->SetDatabase(catalog.library.get());
    Query& model = catalog.model.Queries.emplace_back();
    model.SrcName = call.NewSrcName();
    model.Name = call.NewSrcName();
    m_Queries.push_back({call.NewName(), query, &model});
}

void Twins::AddChild(TableTwin& table, const Call& call) {
    const CString srcName = Text(call.NewSrcName());
    const auto add = [&](auto& child, std::deque<Child>& models) {
        child.tells = table.model->ChildrenTell;
        models.push_back({call.NewSrcName(), 1});
        m_Children.push_back({table.name + "." + call.NewName(), &child, &models.back(), table.model});
    };
    switch (call.argument[0]) {
        case 'i':
            return add(table.library->AddIndex(srcName), table.model->Indexes);
        case 'k':
            return add(table.library->AddForeignKey(srcName), table.model->ForeignKeys);
        default:
            return add(table.library->AddField(srcName), table.model->Fields);
    }
}

std::string Twins::Value::Name() const { return *field == '\0' ? *object : *object + "." + field; }

Twins::Value Twins::DatabaseOf(const TableTwin& table) const {
    Value value{&table.name, "Database", 0, 0};
    for (std::size_t i = 0; i < m_Catalogs.size(); ++i) {
        if (table.library->GetDatabase() == m_Catalogs[i].library.get()) value.library = static_cast<int>(i) + 1;
        if (table.model->Owner == &m_Catalogs[i].model) value.model = static_cast<int>(i) + 1;
    }
    return value;
}

std::vector<Twins::Value> Twins::Values() const {
    std::vector<Value> values;
    values.reserve(256);
    for (const CatalogTwin& catalog : m_Catalogs) {
        HostDatabase& library = *catalog.library;
        for (const CatalogField& field : kCatalogFields) {
            values.push_back({&catalog.name, field.name, field.get(library), catalog.model.*field.model});
        }
        values.push_back({&catalog.name, "m_nUpdating", Stored<DatabaseUpdating>(library), catalog.model.Updating});
        values.push_back({&catalog.name, "Refreshes", library.GetRefreshes(), catalog.model.Refreshes});
        values.push_back(
            {&catalog.name, "RefreshesSelected", library.GetRefreshesSelected(), catalog.model.RefreshesSelected});
    }
    for (const TableTwin& table : m_Tables) {
        concrete::Table& library = *table.library;
        const Table& model = *table.model;
        for (const TableField& field : kTableFields) {
            values.push_back({&table.name, field.name, field.get(library), model.*field.model});
        }
        values.push_back({&table.name, "GetCopyIndexes", library.GetCopyIndexes(), GetCopyIndexes(model)});
        values.push_back({&table.name, "GetCopyForeignKeys", library.GetCopyForeignKeys(), GetCopyForeignKeys(model)});
        values.push_back({&table.name, "m_nUpdating", Stored<TableUpdating>(library), model.Updating});
        values.push_back(DatabaseOf(table));
    }
    for (const ChildTwin& child : m_Children) {
        values.push_back({&child.name, "", child.library->GetSelected(), child.model->Selected});
    }
    for (const QueryTwin& query : m_Queries) {
        values.push_back({&query.name, "", query.library->GetSelected(), query.model->Selected});
    }
    return values;
}

}  // namespace rules
