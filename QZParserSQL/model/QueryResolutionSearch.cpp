// Where the fields that a resolution asks for stand: in FROM, and in the SELECT lists of queries.
#include "QZParserSQL/catalog/CQZTableInfo.h"
#include "QZParserSQL/model/Nesting.h"
#include "QZParserSQL/model/QueryResolution.h"
#include "QZParserSQL/platform/Stack.h"

namespace qz {
namespace {

SelectItemField* AsWrittenField(SelectItem& item) {
    return item.ItemKind == SelectItem::kField ? dynamic_cast<SelectItemField*>(&item) : nullptr;
}

bool HidesChildren(const SelectItem& item) {
    const bool isHolder = item.ItemKind == SelectItem::kOperator || item.ItemKind == SelectItem::kSubQuery;
    return isHolder && item.FuncName != u"ALIAS";
}

}  // namespace

CString QueryResolution::FindInItemList(const CList<SelectItem*>& items, const FieldNames& target,
                                        SelectItemField*& found, bool byField, bool noDescendGuard) {
    ItemWalk walk(items);
    while (SelectItem* item = walk.Next()) {
        const std::optional<CString> answer = Look(*item, target, found, byField);
        if (answer.has_value() && !answer->IsEmpty()) return *answer;
        if (!answer.has_value() && (noDescendGuard || !HidesChildren(*item))) walk.Enter(item->Children);
    }
    return {};
}

// The answer of an item by itself; none where its children are to be asked.
std::optional<CString> QueryResolution::Look(SelectItem& item, const FieldNames& target, SelectItemField*& found,
                                             bool byField) {
    SelectItemField* field = AsWrittenField(item);
    if (field == nullptr) return std::nullopt;
    const FieldNames names(*field);
    const bool isSameTable = names.table.CompareNoCase(target.table) == 0;
    if (!byField || target.field.IsEmpty()) return isSameTable ? std::optional(target.table) : std::nullopt;

    SelectItemField* behind = nullptr;
    if (names.field == u"*") behind = FindInSourceQueries({CString(), target.field}).second;
    if (behind != nullptr) {
        found = behind;
        return target.field;
    }
    if (names.field.CompareNoCase(target.field) != 0) return std::nullopt;
    found = field;
    if (m_Run.underWay.count(&m_Query) == 0) ResolveField(*field);
    return isSameTable && !target.table.IsEmpty() ? target.table : target.field;
}

std::pair<CQZQueryInfo*, SelectItemField*> QueryResolution::FindInSourceQueries(const FieldNames& target) {
    for (CQZQueryInfo* query : SourceQueries()) {
        if (SelectItemField* found = FindInQuery(*query, target)) return {query, found};
    }
    return {};
}

// The field among the outputs of a query, which resolves it. The same question asked again within itself, because
// queries read each other, finds nothing.
SelectItemField* QueryResolution::FindInQuery(CQZQueryInfo& query, const FieldNames& target) {
    if (StackIsLow()) return nullptr;
    if (!m_Run.searched.emplace(&query, target.table, target.field).second) return nullptr;
    SelectItemField* found = nullptr;
    QueryResolution(query, m_Run).FindInItemList(query.m_listSelect, target, found, true, false);
    if (found != nullptr) m_Run.searched.clear();
    return found;
}

bool QueryResolution::IsFieldInDeclaredSource(const FieldNames& field) {
    if (!IsNamedInFrom(field.table) || m_Query.m_mapSources.IsEmpty()) return false;
    CQZSourceInfo* source = m_Query.FindSourceByName(field.table);
    if (dynamic_cast<CQZTableInfo*>(source) != nullptr) return source->FindFieldBySrcName(field.field) != nullptr;
    auto* query = dynamic_cast<CQZQueryInfo*>(source);
    if (query == nullptr) return false;
    SelectItemField* found = nullptr;
    return !FindInItemList(query->m_listSelect, field, found, false, false).IsEmpty() ||
           query->FindAliasBySrcName(field.field) != nullptr;
}

bool QueryResolution::IsNamedInFrom(const CString& table) {
    const auto [entry, isNew] = m_Run.fromTables.try_emplace(&m_Query);
    std::set<CString, ByNameNoCase>& tables = entry->second;
    if (isNew) {
        ItemWalk walk(m_Query.m_listFrom);
        while (SelectItem* item = walk.Next()) {
            if (const SelectItemField* field = AsWrittenField(*item)) tables.insert(field->GetTableName());
            walk.Enter(item->Children);
        }
    }
    return !table.IsEmpty() && tables.count(table) != 0;
}

const std::vector<CQZQueryInfo*>& QueryResolution::SourceQueries() {
    const auto [entry, isNew] = m_Run.sourceQueries.try_emplace(&m_Query);
    if (isNew) {
        for (const auto& [name, guid] : m_Query.m_mapSources) {
            auto* query = dynamic_cast<CQZQueryInfo*>(m_Query.FindSourceByName(name));
            if (query != nullptr) entry->second.push_back(query);
        }
    }
    return entry->second;
}

}  // namespace qz
