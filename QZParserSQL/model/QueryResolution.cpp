#include "QZParserSQL/model/QueryResolution.h"

#include "QZParserSQL/catalog/CQZDatabaseInfo.h"
#include "QZParserSQL/model/Nesting.h"
#include "QZParserSQL/platform/Stack.h"

namespace qz {
namespace {

// Names without a table are not looked for in the queries among the sources of these kinds of database.
bool SearchesQueries(const CQZQueryInfo& query) { return query.GetDBType() != 8 && query.GetDBType() != 9; }

CString FirstNotEmpty(const CString& first, const CString& second) { return first.IsEmpty() ? second : first; }

SelectItemField* AsField(SelectItem& item) {
    const bool isField = item.ItemKind == SelectItem::kField || item.ItemKind == SelectItem::kAliasReference;
    return isField ? dynamic_cast<SelectItemField*>(&item) : nullptr;
}

}  // namespace

// Notes a query while its items are being resolved.
class QueryResolution::UnderWay {
 public:
    explicit UnderWay(QueryResolution& resolution)
        : m_Queries(resolution.m_Run.underWay), m_Entry(m_Queries.insert(&resolution.m_Query)) {}
    UnderWay(const UnderWay&) = delete;
    UnderWay& operator=(const UnderWay&) = delete;
    ~UnderWay() {
        if (m_Entry.second) m_Queries.erase(m_Entry.first);
    }

 private:
    using Queries = std::set<const CQZQueryInfo*>;

    Queries& m_Queries;
    std::pair<Queries::iterator, bool> m_Entry;
};

void QueryResolution::ResolveAllItems() {
    const auto resolve = [this](const CList<SelectItem*>& items) {
        if (!items.IsEmpty()) ResolveItems(items);
    };
    resolve(m_Query.m_listSelect);
    resolve(m_Query.m_listFrom);
    resolve(m_Query.m_listOrderBy);
    if (m_Query.m_pWhere != nullptr) resolve(m_Query.m_pWhere->Children);
    resolve(m_Query.m_listGroupBy);
    resolve(m_Query.m_listHaving);
    resolve(m_Query.m_listUnion);
}

void QueryResolution::ResolveItems(const CList<SelectItem*>& items) {
    const UnderWay underWay(*this);
    m_Query.Resolved = 0;
    ItemWalk walk(items);
    while (SelectItem* item = walk.Next()) {
        if (!ResolveOne(*item) || item->Children.IsEmpty()) continue;
        m_Query.Resolved = 0;
        walk.Enter(item->Children);
    }
}

void QueryResolution::ResolveField(SelectItem& item) {
    const UnderWay underWay(*this);
    if (ResolveOne(item) && !item.Children.IsEmpty()) ResolveItems(item.Children);
}

// Resolves an item without its children; returns whether these are to follow.
bool QueryResolution::ResolveOne(SelectItem& item) {
    SelectItemField* field = AsField(item);
    if (field == nullptr) return true;
    if (StackIsLow()) return false;
    if (field->ItemKind == SelectItem::kAliasReference) {
        ResolveAliasReference(*field);
        return true;
    }
    const FieldNames names(*field);
    if (names.table.IsEmpty()) return names.field.IsEmpty() || ResolveUnqualified(*field, names);
    if (names.field.IsEmpty()) return ResolveTable(*field, names);
    return names.field == u"*" ? ResolveStar(*field, names) : ResolveQualified(*field, names);
}

// What the alias stands for is in the children; a field of a source with the alias's name takes its place.
void QueryResolution::ResolveAliasReference(SelectItemField& field) {
    const bool isField = m_Query.IsFieldOfSources(field.GetFieldAlias()) != 0;
    if (!isField || field.Children.IsEmpty() || field.GetTableAlias().IsEmpty()) return;
    field.ClearChildren();
    m_Run.fromTables.clear();
}

bool QueryResolution::ResolveStar(SelectItemField& field, const FieldNames& names) {
    const CQZSourceInfo* source = m_Query.FindSourceByName(names.table);
    if (source != nullptr) field.SetResolvedTable(source->GetName());
    field.Text = names.field;
    return false;
}

bool QueryResolution::ResolveQualified(SelectItemField& field, const FieldNames& names) {
    CQZSourceInfo* source = m_Query.FindSourceByName(names.table);
    if (ResolveThroughSubQuery(field, source)) {
        field.SetSchemaName(m_Query.GetDatabase()->GetSchemaName());
        return false;
    }
    CQZQueryInfo* declaring = nullptr;
    const bool isAlias = source == nullptr && m_Query.HasAlias(names.table, CString(), declaring) != 0;
    if (source != nullptr) source->Resolved = 0;
    const CQZSourceFildInfo* meant = m_Query.FindFieldInSources(isAlias ? CString() : names.table, names.field);
    if (meant == nullptr) {
        m_Query.SetCorrect(1);
        return false;
    }
    if (meant->Calculated != 0) field.HasCalculatedField = 1;
    field.SetResolvedField(meant->GetName());
    if (source == nullptr) return false;
    SetSource(field, *source);
    return true;
}

bool QueryResolution::ResolveTable(SelectItemField& field, const FieldNames& names) {
    CQZSourceInfo* source = m_Query.FindSourceByName(names.table);
    if (source == nullptr) {
        m_Query.SetCorrect(1);
        return false;
    }
    SetSource(field, *source);
    return true;
}

// The field of a query among the sources comes before one that the sources lead to.
bool QueryResolution::ResolveUnqualified(SelectItemField& field, const FieldNames& names) {
    const CQZSourceFildInfo* meant = m_Query.FindFieldInSources(CString(), names.field);
    if (names.field != u"*" && SearchesQueries(m_Query)) {
        const auto [query, found] = FindInSourceQueries(names);
        if (found != nullptr) {
            field.SetResolvedTable(query->GetSrcName());
            field.SetResolvedField(FirstNotEmpty(found->GetOutputName(), found->GetFieldName()));
            return false;
        }
    }
    if (meant != nullptr && field.GetTableAlias().IsEmpty()) field.SetFieldName(meant->GetName());
    field.SetResolvedField(field.GetFieldName());
    field.SetResolvedTable(field.GetTableAlias());
    return true;
}

bool QueryResolution::ResolveThroughSubQuery(SelectItemField& field, CQZSourceInfo* source) {
    const FieldNames names(field);
    if (IsFieldInDeclaredSource(names)) return false;
    auto* query = dynamic_cast<CQZQueryInfo*>(source);
    const SelectItemField* found = query == nullptr ? nullptr : FindInQuery(*query, names);
    if (found == nullptr) std::tie(query, found) = FindInSourceQueries(names);
    if (found == nullptr) return false;
    const CString inner = FirstNotEmpty(found->GetResolvedField(), found->GetFieldName());
    field.SetResolvedTable(query->GetSrcName());
    field.SetResolvedField(FirstNotEmpty(found->GetOutputName(), inner));
    return true;
}

// Marks the source as gone through.
void QueryResolution::SetSource(SelectItemField& field, CQZSourceInfo& source) {
    field.SetResolvedTable(source.GetName());
    field.SetSchemaName(m_Query.GetDatabase()->GetSchemaName());
    source.Resolved = 1;
}

}  // namespace qz
