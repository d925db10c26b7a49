// Random models, resolved by the library and by a plain transcription of the rules that searches anew each time.
#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "tests/model/Models.h"

namespace {

using sample::AddAlias;
using sample::AddRecord;
using sample::AliasReference;
using sample::Field;
using sample::Item;
using sample::Operator;
using sample::Put;

bool Same(const CString& left, const CString& right) { return left.CompareNoCase(right) == 0; }

// ---------------------------------------------------------------------------------------------------- the rules

class Plain {
 public:
    explicit Plain(CQZQueryInfo& query) : m_Query(query) {}

    void ResolveAllItems() {
        for (auto* list : {&m_Query.m_listSelect, &m_Query.m_listFrom, &m_Query.m_listOrderBy}) ResolveList(*list);
        if (m_Query.m_pWhere != nullptr) ResolveList(m_Query.m_pWhere->Children);
        for (auto* list : {&m_Query.m_listGroupBy, &m_Query.m_listHaving, &m_Query.m_listUnion}) ResolveList(*list);
    }

 private:
    using Items = CList<SelectItem*>;

    void ResolveList(Items& items) {
        if (items.IsEmpty()) return;
        m_Query.Resolved = 0;
        for (SelectItem* item : items) ResolveField(*item);
    }

    std::vector<CQZQueryInfo*> SourceQueries() {
        std::vector<CQZQueryInfo*> queries;
        for (const auto& [name, guid] : m_Query.m_mapSources) {
            auto* source = dynamic_cast<CQZQueryInfo*>(m_Query.FindSourceByName(name));
            if (source != nullptr) queries.push_back(source);
        }
        return queries;
    }

    CString FindInItem(SelectItem& item, const SelectItemField& target, SelectItemField*& found, bool byField,
                       bool noGuard) {
        CString result;
        auto* field = item.ItemKind == SelectItem::kField ? dynamic_cast<SelectItemField*>(&item) : nullptr;
        const bool hasField = !target.GetFieldName().IsEmpty();
        if (field != nullptr && (!byField || !hasField) && Same(field->GetTableName(), target.GetTableName()))
            return target.GetTableName();
        if (field != nullptr && byField && hasField) {
            if (field->GetFieldName() == u"*") {
                for (CQZQueryInfo* query : SourceQueries()) {
                    SelectItemField wanted;
                    wanted.SetFieldName(target.GetFieldName());
                    SelectItemField* inner = nullptr;
                    result = Plain(*query).FindInItemList(query->m_listSelect, wanted, inner, true, false);
                    if (result.IsEmpty()) continue;
                    found = inner;
                    return result;
                }
            }
            if (Same(field->GetFieldName(), target.GetFieldName())) {
                found = field;
                result = target.GetFieldName();
                const bool isWhole = Same(field->GetTableName(), target.GetTableName());
                if (!target.GetTableName().IsEmpty() && isWhole) result = target.GetTableName();
            }
        }
        if (found != nullptr) ResolveField(*found);
        if (!result.IsEmpty()) return result;
        const bool isHolder = item.ItemKind == SelectItem::kOperator || item.ItemKind == SelectItem::kSubQuery;
        if (!noGuard && isHolder && item.FuncName != u"ALIAS") return result;
        return FindInItemList(item.Children, target, found, byField, noGuard);
    }

    CString FindInItemList(Items& items, const SelectItemField& target, SelectItemField*& found, bool byField,
                           bool noGuard) {
        for (SelectItem* item : items) {
            CString result = FindInItem(*item, target, found, byField, noGuard);
            if (!result.IsEmpty()) return result;
        }
        return {};
    }

    bool IsFieldInDeclaredSource(const SelectItemField& item) {
        SelectItemField* found = nullptr;
        const CString name = FindInItemList(m_Query.m_listFrom, item, found, false, true);
        if (name.IsEmpty()) return false;
        for (int left = m_Query.m_mapSources.GetCount(); left > 0; --left) {
            CQZSourceInfo* source = m_Query.FindSourceByName(name);
            if (source == nullptr || !Same(source->GetSrcName(), item.GetTableName())) continue;
            if (const auto* table = dynamic_cast<CQZTableInfo*>(source)) {
                for (const CQZFieldInfo* field : table->m_listFields) {
                    if (Same(field->GetSrcName(), item.GetFieldName())) return true;
                }
            }
            if (auto* query = dynamic_cast<CQZQueryInfo*>(source)) {
                if (!FindInItemList(query->m_listSelect, item, found, false, false).IsEmpty()) return true;
                for (const auto& [aliasKey, alias] : query->m_mapAliases) {
                    if (Same(alias->GetSrcName(), item.GetFieldName())) return true;
                }
            }
        }
        return false;
    }

    bool ResolveThroughSubQuery(SelectItemField& item, CQZSourceInfo* source) {
        if (IsFieldInDeclaredSource(item)) return false;
        std::vector<CQZQueryInfo*> queries = SourceQueries();
        if (auto* query = dynamic_cast<CQZQueryInfo*>(source)) queries.insert(queries.begin(), query);
        for (CQZQueryInfo* query : queries) {
            SelectItemField* found = nullptr;
            if (Plain(*query).FindInItemList(query->m_listSelect, item, found, true, false).IsEmpty()) continue;
            item.SetResolvedTable(query->GetSrcName());
            item.SetResolvedField(!found->GetOutputName().IsEmpty()      ? found->GetOutputName()
                                  : !found->GetResolvedField().IsEmpty() ? found->GetResolvedField()
                                                                         : found->GetFieldName());
            return true;
        }
        return false;
    }

    void ResolveField(SelectItem& item) {
        auto* field = dynamic_cast<SelectItemField*>(&item);
        if (field != nullptr && !ResolveNames(*field)) return;
        ResolveList(item.Children);
    }

    bool ResolveNames(SelectItemField& item) {
        if (item.ItemKind == SelectItem::kAliasReference) {
            const bool isField = m_Query.FindFieldInSources(u"", item.GetFieldAlias()) != nullptr;
            if (isField && !item.Children.IsEmpty() && !item.GetTableAlias().IsEmpty()) item.ClearChildren();
            return true;
        }
        const bool hasTable = !item.GetTableName().IsEmpty();
        const bool hasField = !item.GetFieldName().IsEmpty();
        if (!hasTable) return !hasField || ResolveFieldOnly(item);
        CQZSourceInfo* source = m_Query.FindSourceByName(item.GetTableName());
        if (!hasField) return ResolveTableOnly(item, source);
        return item.GetFieldName() == u"*" ? ResolveStar(item, source) : ResolveBoth(item, source);
    }

    static bool ResolveStar(SelectItemField& item, const CQZSourceInfo* source) {
        if (source != nullptr) item.SetResolvedTable(source->GetName());
        item.Text = item.GetFieldName();
        return false;
    }

    bool ResolveBoth(SelectItemField& item, CQZSourceInfo* source) {
        if (ResolveThroughSubQuery(item, source)) {
            item.SetSchemaName(m_Query.GetDatabase()->GetSchemaName());
            return false;
        }
        CQZQueryInfo* declaring = nullptr;
        bool isAlias = false;
        if (source == nullptr) isAlias = m_Query.HasAlias(item.GetTableName(), u"", declaring) != 0;
        if (source != nullptr) source->Resolved = 0;
        CQZSourceFildInfo* field =
            m_Query.FindFieldInSources(isAlias ? CString() : item.GetTableName(), item.GetFieldName());
        if (field == nullptr) {
            m_Query.SetCorrect(1);
            return false;
        }
        if (field->Calculated != 0) item.HasCalculatedField = 1;
        item.SetResolvedField(field->GetName());
        return source != nullptr && ResolveTableOnly(item, source);
    }

    bool ResolveTableOnly(SelectItemField& item, CQZSourceInfo* source) {
        if (source == nullptr) {
            m_Query.SetCorrect(1);
            return false;
        }
        item.SetResolvedTable(source->GetName());
        item.SetSchemaName(m_Query.GetDatabase()->GetSchemaName());
        source->Resolved = 1;
        return true;
    }

    bool ResolveFieldOnly(SelectItemField& item) {
        CQZSourceFildInfo* meant = m_Query.FindFieldInSources(item.GetTableName(), item.GetFieldName());
        if (item.GetFieldName() != u"*" && !IsFieldInDeclaredSource(item)) {
            for (CQZQueryInfo* query : SourceQueries()) {
                SelectItemField* found = nullptr;
                if (Plain(*query).FindInItemList(query->m_listSelect, item, found, true, false).IsEmpty()) continue;
                item.SetResolvedTable(query->GetSrcName());
                item.SetResolvedField(found->GetOutputName().IsEmpty() ? found->GetFieldName()
                                                                       : found->GetOutputName());
                return false;
            }
        }
        if (meant != nullptr && !item.GetTableAlias().IsEmpty()) {
            item.SetResolvedField(item.GetFieldName());
            item.SetResolvedTable(item.GetTableAlias());
        } else if (meant != nullptr) {
            item.SetFieldName(meant->GetName());
            item.SetResolvedField(item.GetFieldName());
            item.SetResolvedTable(item.GetTableName());
        } else {
            item.SetResolvedField(item.GetFieldName());
            item.SetResolvedTable(item.GetTableAlias().IsEmpty() ? item.GetTableName() : item.GetTableAlias());
        }
        return true;
    }

    CQZQueryInfo& m_Query;
};

// ------------------------------------------------------------------------------------------------------ the models

// A catalog of tables, and of stored queries that read what was made before them. The same seed makes the same one.
class RandomCatalog {
 public:
    explicit RandomCatalog(unsigned seed) : m_Random(seed) {
        database.SetSchemaName(u"schema");
        for (const CString name : {u"t", u"u", u"v"}) AddTable(name);
        for (const CString name : {u"p", u"q", u"r", u"s", u"top"}) AddQuery(name);
    }

    void Write(std::string& text) const {
        for (const CQZQueryInfo* query : database.m_listQueries) {
            text += "\n" + query->GetSrcName().ToUtf8() + " " + std::to_string(query->Resolved) +
                    std::to_string(const_cast<CQZQueryInfo*>(query)->CQZObjectInfo::GetCorrect());
            Write(text, query->m_listSelect);
            Write(text, query->m_listFrom);
            if (query->m_pWhere != nullptr) Write(text, query->m_pWhere->Children);
        }
        for (const CQZTableInfo* table : database.m_listTables) text += std::to_string(table->Resolved);
    }

    concrete::Database database;

 private:
    int Below(int bound) { return std::uniform_int_distribution<int>(0, bound - 1)(m_Random); }
    bool Once(int times) { return Below(times) == 0; }
    CString OneOf(const std::vector<CString>& texts) {
        return texts[static_cast<std::size_t>(Below(static_cast<int>(texts.size())))];
    }

    void AddTable(const CString& name) {
        concrete::Table& table = database.AddTable(name);
        table.SetName(name + u"_target");
        for (const CString field : {u"a", u"b", u"c", u"d"}) {
            if (!Once(3)) table.AddField(field).SetName(name + field);
        }
        m_Sources.push_back(&table);
    }

    void AddQuery(const CString& name) {
        concrete::Query& query = database.AddQuery(name);
        query.SetName(name + u"_target");
        for (const CQZSourceInfo* source : m_Sources) {
            if (Once(2)) continue;
            query.m_mapSources.SetAt(source->GetSrcName(), source->GetGUID());
            SelectItem* from = Field(source->GetSrcName(), u"");
            if (!Once(4))
                query.m_listFrom.AddTail(Once(2) ? from : Operator(u"ALIAS", {from, Item(u"x")}));
            else
                delete from;
        }
        if (Once(8)) query.m_mapSources.SetAt(u"nowhere", u"nowhere");
        for (const CString alias : {u"x", u"y", u"c"}) {
            if (Once(3)) AddAlias(query, alias).SetAliasField(OneOf({u"a", u"d"}));
        }
        for (const CString field : {u"a", u"b", u"x", u"*"}) {
            if (Once(3)) AddRecord(query, OneTable(), field);
        }
        for (int i = 1 + Below(4); i > 0; --i) query.m_listSelect.AddTail(OneItem(2));
        query.m_pWhere = Item(u"", {OneItem(3), OneItem(3)});
        m_Sources.push_back(&query);
    }

    // Of what was made before, so that no query leads back to itself.
    CString OneTable() {
        std::vector<CString> names = {u"", u"", u"", u"x", u"nowhere"};
        for (const CQZSourceInfo* source : m_Sources) names.push_back(source->GetSrcName());
        return OneOf(names);
    }
    CString OneField() { return OneOf({u"a", u"A", u"b", u"c", u"d", u"x", u"y", u"*", u"*", u""}); }

    SelectItem* OneItem(int depth) {
        if (depth > 0 && Once(3))
            return Operator(OneOf({u"AS", u"ALIAS", u"ALIAS", u"+"}), {OneItem(depth - 1), OneItem(depth - 1)});
        if (depth > 0 && Once(8)) return Item(u"", {OneItem(depth - 1)});
        if (depth > 0 && Once(6)) {
            SelectItemField* reference = AliasReference(OneOf({u"x", u"a"}), OneItem(depth - 1));
            if (Once(2)) reference->SetTableAlias(u"y");
            return reference;
        }
        SelectItemField* field = Field(OneTable(), OneField());
        if (Once(5)) field->SetOutputName(u"Output");
        if (Once(5)) field->SetTableAlias(u"z");
        if (depth > 0 && Once(6)) field->Children.AddTail(OneItem(depth - 1));
        return field;
    }

    static void Write(std::string& text, const CList<SelectItem*>& items) {
        for (const SelectItem* item : items) {
            text += " [" + item->FuncName.ToUtf8() + item->Text.ToUtf8() + std::to_string(item->HasCalculatedField);
            if (const auto* field = dynamic_cast<const SelectItemField*>(item)) {
                for (const CString& name :
                     {field->GetTableName(), field->GetFieldName(), field->GetFieldAlias(), field->GetResolvedTable(),
                      field->GetResolvedField(), field->GetSchemaName()})
                    text += "|" + name.ToUtf8();
            }
            Write(text, item->Children);
            text += "]";
        }
    }

    std::mt19937 m_Random;
    std::vector<const CQZSourceInfo*> m_Sources;
};

TEST(Resolution, IsThatOfThePlainRules) {
    int resolved = 0;
    for (unsigned seed = 0; seed < 3000; ++seed) {
        RandomCatalog catalog(seed);
        RandomCatalog twin(seed);
        std::string unresolved;
        catalog.Write(unresolved);
        CQZQueryInfo* top = catalog.database.m_listQueries.GetTail();
        top->ResolveAllItems();
        Plain(*twin.database.m_listQueries.GetTail()).ResolveAllItems();
        std::string ours;
        std::string plain;
        catalog.Write(ours);
        twin.Write(plain);
        ASSERT_EQ(ours, plain) << "seed " << seed << "\n" << unresolved;
        if (ours.find("|s|") != std::string::npos) ++resolved;
    }
    EXPECT_GT(resolved, 100) << "resolutions through stored queries must be among them";
}

}  // namespace
