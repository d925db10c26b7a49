#include "host/catalog_objects.h"

#include <utility>

#include "QZParserSQL/catalog/QZSettingsStore.h"

namespace qzsql {

namespace {

constexpr int kFaulty = 1;

void SaveColumns(QZSettingsStore& store, const KeyColumns& columns) {
    const QZOpenSection list(store, u"Columns", 1);
    int number = 0;
    for (const auto& column : columns) {
        const QZOpenSection section(store, u"Column" + CString::FromInt(++number), 1);
        store.WriteString(u"Field", column.field, 0);
        store.WriteString(u"Referenced", column.referenced, 0);
    }
}

KeyColumns LoadColumns(QZSettingsStore& store) {
    KeyColumns columns;
    const QZOpenSection list(store, u"Columns", 0);
    const auto names = store.GetSubSections();
    for (const auto& name : names) {
        const QZOpenSection section(store, name, 0);
        columns.push_back({store.ReadString(u"Field", CString(), 0), store.ReadString(u"Referenced", CString(), 0)});
    }
    return columns;
}

CString MissingField(CQZTableInfo& table, const CString& name) {
    if (name.IsEmpty() || table.FindFieldBySrcName(name) != nullptr) return {};
    return u"the table " + table.GetSrcName() + u" has no field " + name;
}

template <class Child>
Child& Adopt(CatalogTable& table, Child* child, const CString& name) {
    child->SetSrcName(name);
    child->SetName(name);
    child->SetOwner(&table);
    return *child;
}

template <class Object, class Element>
std::vector<Object*> AllOf(const CList<Element*>& list) {
    std::vector<Object*> objects;
    objects.reserve(static_cast<std::size_t>(list.GetCount()));
    for (Element* element : list) objects.push_back(static_cast<Object*>(element));
    return objects;
}

template <class Map>
typename Map::mapped_type FindIn(const Map& map, const CString& name) {
    const auto found = map.find(name);
    return found == map.end() ? nullptr : found->second;
}

/// Of objects of one name the first counts.
template <class Map, class Object>
void AddTo(Map& map, Object& object) {
    map.emplace(object.GetSrcName(), &object);
}

}  // namespace

CString CatalogField::GetTypeText() const {
    CString text = TypeMapped;
    if (LengthMapped < 0) return text;
    text += u"(" + CString::FromInt(LengthMapped);
    if (ScaleMapped > 0) text += u"," + CString::FromInt(ScaleMapped);
    return text += u')';
}

void CatalogField::SetCollation(CString collation) { Collation = std::move(collation); }

void CatalogField::Save(QZSettingsStore* pStore) {
    CatalogChild::Save(pStore);
    const QZOpenSection common(*pStore, u"Common", 0);
    pStore->WriteString(u"Collation", Collation, 0);
}

void CatalogField::Load(QZSettingsStore* pStore, QZObjectFactory* pFactory) {
    CatalogChild::Load(pStore, pFactory);
    const QZOpenSection common(*pStore, u"Common", 0);
    Collation = pStore->ReadString(u"Collation", CString(), 0);
}

CString CatalogIndex::Fault() const {
    if (Owner() == nullptr) return u"it belongs to no table";
    for (const auto& column : columns) {
        CString fault = MissingField(*Owner(), column.field);
        if (!fault.IsEmpty()) return fault;
    }
    return {};
}

void CatalogIndex::CheckReference(int /*nFlag*/) { SetCorrect(Fault().IsEmpty() ? 0 : kFaulty); }

void CatalogIndex::Save(QZSettingsStore* pStore) {
    CatalogChild::Save(pStore);
    {
        const QZOpenSection common(*pStore, u"Common", 0);
        pStore->WriteInt(u"Primary", Primary);
        pStore->WriteInt(u"Unique", Unique);
    }
    SaveColumns(*pStore, columns);
}

void CatalogIndex::Load(QZSettingsStore* pStore, QZObjectFactory* pFactory) {
    CatalogChild::Load(pStore, pFactory);
    {
        const QZOpenSection common(*pStore, u"Common", 0);
        Primary = pStore->ReadInt(u"Primary", 0);
        Unique = pStore->ReadInt(u"Unique", 0);
    }
    columns = LoadColumns(*pStore);
}

void CatalogForeignKey::Connect(const CatalogDatabase& database) {
    const CatalogTable* table = database.FindTable(ReferencedTable);
    referencedGUID_ = table == nullptr ? CString() : table->GetGUID();
}

CString CatalogForeignKey::Fault() const {
    const auto* database = Owner() == nullptr ? nullptr : dynamic_cast<CatalogDatabase*>(Owner()->GetDatabase());
    if (database == nullptr) return u"it belongs to no table of a catalog";
    CatalogTable* referenced = database->FindTable(ReferencedTable);
    if (referenced == nullptr) return u"there is no table " + ReferencedTable;
    for (const auto& column : columns) {
        CString fault = MissingField(*Owner(), column.field);
        if (fault.IsEmpty()) fault = MissingField(*referenced, column.referenced);
        if (!fault.IsEmpty()) return fault;
    }
    return {};
}

void CatalogForeignKey::CheckReference(int /*nFlag*/) { SetCorrect(Fault().IsEmpty() ? 0 : kFaulty); }

void CatalogForeignKey::Save(QZSettingsStore* pStore) {
    CatalogChild::Save(pStore);
    {
        const QZOpenSection common(*pStore, u"Common", 0);
        pStore->WriteString(u"ReferencedTable", ReferencedTable, 0);
    }
    SaveColumns(*pStore, columns);
}

void CatalogForeignKey::Load(QZSettingsStore* pStore, QZObjectFactory* pFactory) {
    CatalogChild::Load(pStore, pFactory);
    {
        const QZOpenSection common(*pStore, u"Common", 0);
        ReferencedTable = pStore->ReadString(u"ReferencedTable", CString(), 0);
    }
    columns = LoadColumns(*pStore);
}

void CatalogTable::Load(QZSettingsStore* pStore, QZObjectFactory* pFactory) {
    CQZTableInfo::Load(pStore, pFactory);
    for (auto* field : m_listFields) field->SetOwner(this);
    for (auto* index : m_listIndexes) index->SetOwner(this);
    for (auto* key : m_listForeignKeys) key->SetOwner(this);
}

CatalogField& CatalogTable::AddField(const CString& name) {
    auto* field = new CatalogField(*kind_);
    m_listFields.AddTail(field);
    return Adopt(*this, field, name);
}

CatalogIndex& CatalogTable::AddIndex(const CString& name) {
    auto* index = new CatalogIndex(*kind_);
    m_listIndexes.AddTail(index);
    m_bPrimaryIndexDirty = 1;
    return Adopt(*this, index, name);
}

CatalogForeignKey& CatalogTable::AddForeignKey(const CString& name) {
    auto* key = new CatalogForeignKey(*kind_);
    m_listForeignKeys.AddTail(key);
    return Adopt(*this, key, name);
}

void CatalogQuery::SetText(const CString& text) {
    text_ = text;
    SetSQL(text);
}

void CatalogQuery::SaveQuery(QZSettingsStore* pStore, int nUnused) {
    CQZQueryInfo::SaveQuery(pStore, nUnused);
    const QZOpenSection common(*pStore, u"Common", 0);
    pStore->WriteString(u"SQL", text_, 0);
    pStore->WriteString(u"Dialect", CString::FromUtf8(kind_->name), 0);
}

void CatalogQuery::Load(QZSettingsStore* pStore, QZObjectFactory* pFactory) {
    CQZQueryInfo::Load(pStore, pFactory);
    const QZOpenSection common(*pStore, u"Common", 0);
    SetText(pStore->ReadString(u"SQL", CString(), 0));
    const auto* dialect = FindKind(pStore->ReadString(u"Dialect", CString(), 0).ToUtf8());
    if (dialect != nullptr) SetDialect(*dialect);
}

int CatalogQuery::CheckChildren(int nFlag) { return kept_ ? *kept_ : CQZQueryInfo::CheckChildren(nFlag); }

int CatalogQuery::KeepCheck() {
    kept_ = GetCorrect();
    return *kept_;
}

CatalogDatabase::CatalogDatabase(const CatalogDatabase& other, int bSelectedOnly)
    : CQZDatabaseInfo(other, bSelectedOnly), kind_(other.kind_) {
    Connect();
}

void CatalogDatabase::Load(QZSettingsStore* pStore, QZObjectFactory* pFactory) {
    CQZDatabaseInfo::Load(pStore, pFactory);
    Connect();
}

std::vector<CatalogTable*> CatalogDatabase::Tables() const { return AllOf<CatalogTable>(m_listTables); }
std::vector<CatalogQuery*> CatalogDatabase::Queries() const { return AllOf<CatalogQuery>(m_listQueries); }

CatalogTable* CatalogDatabase::FindTable(const CString& srcName) const { return FindIn(tables_, srcName); }
CatalogQuery* CatalogDatabase::FindQuery(const CString& srcName) const { return FindIn(queries_, srcName); }

CatalogTable& CatalogDatabase::AddTable(const CString& name) {
    auto* table = new CatalogTable(*kind_);
    m_listTables.AddTail(table);
    table->SetSrcName(name);
    table->SetName(name);
    table->SetDatabase(this);
    AddTo(tables_, *table);
    return *table;
}

CatalogQuery& CatalogDatabase::AddQuery(const CString& name) {
    auto* query = new CatalogQuery(*kind_);
    m_listQueries.AddTail(query);
    query->SetSrcName(name);
    query->SetName(name);
    query->SetDatabase(this);
    AddTo(queries_, *query);
    return *query;
}

void CatalogDatabase::Connect() {
    tables_.clear();
    queries_.clear();
    for (auto* table : Tables()) {
        table->SetDatabase(this);
        AddTo(tables_, *table);
    }
    for (auto* query : Queries()) {
        query->SetDatabase(this);
        AddTo(queries_, *query);
    }
    for (auto* table : Tables()) {
        for (auto* key : table->m_listForeignKeys) static_cast<CatalogForeignKey*>(key)->Connect(*this);
    }
}

}  // namespace qzsql
