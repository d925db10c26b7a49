#include "host/model_walk.h"

#include <algorithm>
#include <unordered_set>
#include <vector>

#include "QZParserSQL/catalog/CQZDatabaseInfo.h"
#include "QZParserSQL/model/SelectItemField.h"
#include "QZParserSQL/model/SelectItemSubQuery.h"
#include "QZParserSQL/model/SelectItemUnion.h"

namespace qzsql {

namespace {

using Shape = ModelSink::Shape;
using Items = CList<SelectItem*>;

ModelKey Entry(const CString& key) { return {{}, key.View()}; }

/// The entries of a map by their keys.
template <class Map>
auto Sorted(const Map& map) {
    std::vector<const typename Map::Entry*> entries;
    for (const auto& entry : map) entries.push_back(&entry);
    std::sort(entries.begin(), entries.end(),
              [](const auto* left, const auto* right) { return left->key < right->key; });
    return entries;
}

bool IsUnchanged(const CQZAliasInfo& alias, const CQZAliasInfo& outer) {
    return alias.Expression.IsSharedWith(outer.Expression) && alias.GetSrcName() == outer.GetSrcName() &&
           alias.GetName() == outer.GetName() && alias.GetAliasTable() == outer.GetAliasTable() &&
           alias.GetAliasField() == outer.GetAliasField();
}

/// A walk as deep as its model that needs no stack for it: a step leaves what follows from it for later.
class Walk {
 public:
    Walk(const Model& model, ModelSink& sink) : model_(model), sink_(sink) {}

    bool Run() {
        Later(&Walk::ShowQuery, Query("", model_.query));
        while (!waiting_.empty()) {
            const auto step = waiting_.back();
            waiting_.pop_back();
            const auto earlier = waiting_.size();
            (this->*step.run)(step.subject);
            std::reverse(waiting_.begin() + static_cast<std::ptrdiff_t>(earlier), waiting_.end());
        }
        return isWhole_;
    }

 private:
    /// One of these is what a step is about.
    struct Subject {
        ModelKey key;
        const CQZQueryInfo* query = nullptr;
        const SelectItem* item = nullptr;
        const CQZAliasInfo* alias = nullptr;
        const Items* items = nullptr;
        POSITION place = nullptr;  // in items
    };
    using Method = void (Walk::*)(const Subject& subject);
    struct Step {
        Method run;
        Subject subject;
    };

    static Subject Query(std::string_view key, const CQZQueryInfo& query) { return {{key, {}}, &query}; }

    void Later(Method run, const Subject& subject) { waiting_.push_back({run, subject}); }
    void LaterClose() { Later(&Walk::Close, {}); }
    void LaterItem(std::string_view key, const SelectItem* item) {
        if (item != nullptr) Later(&Walk::ShowItem, {{key, {}}, nullptr, item});
    }
    void LaterItems(std::string_view key, const Items& items) {
        if (!items.IsEmpty()) Later(&Walk::ShowItems, {{key, {}}, nullptr, nullptr, nullptr, &items});
    }

    void Number(std::string_view key, int number) {
        if (number != 0) sink_.Number({key, {}}, number);
    }
    void Text(std::string_view key, const CString& text) {
        if (!text.IsEmpty()) sink_.Text({key, {}}, text);
    }
    void Open(Shape shape, const ModelKey& key) {
        Count();
        sink_.Open(shape, key);
    }
    void Close(const Subject&) { sink_.Close(); }
    void Count(std::size_t entries = 1) {
        if (repeats_ > 0) shownAgain_ += entries;
    }

    // ------------------------------------------------------------------------------------------------- queries

    void ShowQuery(const Subject& subject) {
        const auto& query = *subject.query;
        const bool isOutermost = around_.empty();
        Open(Shape::Object, subject.key);
        around_.push_back(&query);
        ShowNumbers(query);
        if (isOutermost && !model_.isWhole) Number("Cut", 1);
        LaterItems("Select", query.m_listSelect);
        LaterItems("From", query.m_listFrom);
        LaterItem("Where", query.m_pWhere);
        LaterItems("GroupBy", query.m_listGroupBy);
        LaterItems("Having", query.m_listHaving);
        LaterItems("OrderBy", query.m_listOrderBy);
        LaterItems("Union", query.m_listUnion);
        if (!query.m_listSubQueries.IsEmpty()) Later(&Walk::ShowSubQueries, subject);
        if (!query.m_mapAliases.IsEmpty()) Later(&Walk::ShowAliases, subject);
        Later(&Walk::ShowNames, subject);
        if (isOutermost) Later(&Walk::ShowUserFunctions, subject);
        Later(&Walk::CloseQuery, {});
    }

    void ShowNumbers(const CQZQueryInfo& query) {
        Text("Name", query.GetName());
        Text("SQL", query.GetSQL());
        Number("SelectQuantifier", query.GetSelectQuantifier());
        if (query.HasLimit() != 0) {
            int first = 0;
            int second = 0;
            query.GetLimit(first, second);
            Number("HasLimit", query.HasLimit());
            Number("LimitFirst", first);
            Number("LimitSecond", second);
        }
        Number("DataType", query.GetDataType());
        if (copies_ == 0) Number("QueryKind", query.GetQueryKind());  // which copies of queries have not
        Number("Resolved", query.Resolved);
    }

    void CloseQuery(const Subject&) {
        around_.pop_back();
        sink_.Close();
    }

    void ShowSubQueries(const Subject& subject) {
        Open(Shape::List, {"SubQueries", {}});
        for (const auto* query : subject.query->m_listSubQueries) Later(&Walk::ShowQuery, Query("", *query));
        LaterClose();
    }

    void ShowNames(const Subject& subject) {
        const auto& query = *subject.query;
        if (!query.m_mapSources.IsEmpty()) {
            Open(Shape::Map, {"Sources", {}});
            for (const auto* source : Sorted(query.m_mapSources)) ShowSource(source->key, source->value);
            sink_.Close();
        }
        if (!query.m_mapFields.IsEmpty()) {
            Open(Shape::Map, {"Fields", {}});
            for (const auto* field : Sorted(query.m_mapFields)) ShowRecord(field->key, *field->value);
            sink_.Close();
        }
    }

    void ShowSource(const CString& name, const CString& value) {
        Count();
        const CString* shown = &value;
        if (model_.labels != nullptr) {
            const auto found = model_.labels->find(value);
            if (found != model_.labels->end()) shown = &found->second;
        }
        sink_.Text(Entry(name), *shown);
    }

    void ShowRecord(const CString& key, const CFieldObject& record) {
        Open(Shape::Object, Entry(key));
        Text("TableName", record.TableName);
        Text("FieldName", record.FieldName);
        Number("UnderAs", record.UnderAs);
        Text("OutputName", record.OutputName);
        sink_.Close();
    }

    void ShowUserFunctions(const Subject& subject) {
        const auto* database = subject.query->GetDatabase();
        if (database == nullptr || database->m_mapUserFunctions.IsEmpty()) return;
        Open(Shape::Map, {"UserFunctions", {}});
        for (const auto* function : Sorted(database->m_mapUserFunctions)) {
            sink_.Number(Entry(function->key), std::stoi(function->value.ToUtf8()));
        }
        sink_.Close();
    }

    // ------------------------------------------------------------------------------------------------- aliases

    void ShowAliases(const Subject& subject) {
        Open(Shape::Map, {"Aliases", {}});
        for (const auto* alias : Sorted(subject.query->m_mapAliases)) {
            Later(&Walk::ShowAlias, {Entry(alias->key), nullptr, nullptr, alias->value});
        }
        LaterClose();
    }

    void ShowAlias(const Subject& subject) {
        const auto& alias = *subject.alias;
        Open(Shape::Object, subject.key);
        if (IsInherited(*subject.key.entry, alias)) {
            Number("Inherited", 1);
            return sink_.Close();
        }
        Text("SrcName", alias.GetSrcName());
        Text("Name", alias.GetName());
        Text("AliasTable", alias.GetAliasTable());
        Text("AliasField", alias.GetAliasField());
        if (alias.Expression.Peek() != nullptr) {
            if (alias.Expression.IsCopy()) ++copies_;
            ShowExpression(*alias.Expression.Peek());
            if (alias.Expression.IsCopy()) Later(&Walk::EndCopy, {});
        }
        LaterClose();
    }

    bool IsInherited(std::u16string_view key, const CQZAliasInfo& alias) const {
        if (around_.size() < 2) return false;
        CQZAliasInfo* outer = nullptr;
        return around_[around_.size() - 2]->m_mapAliases.Lookup(key, outer) && IsUnchanged(alias, *outer);
    }

    void ShowExpression(const SelectItem& root) {
        if (expressions_.insert(&root).second) return LaterItem("Expression", &root);
        if (shownAgain_ >= kMostShownAgain) return CutExpression();
        ++repeats_;
        LaterItem("Expression", &root);
        Later(&Walk::EndRepeat, {});
    }

    void CutExpression() {
        isWhole_ = false;
        sink_.Open(Shape::Object, {"Expression", {}});
        Number("Cut", 1);
        sink_.Close();
    }

    void EndRepeat(const Subject&) { --repeats_; }
    void EndCopy(const Subject&) { --copies_; }

    // --------------------------------------------------------------------------------------------------- items

    /// One item, and later the rest.
    void ShowItems(const Subject& subject) {
        Subject rest = subject;
        if (rest.place == nullptr) {
            Open(Shape::List, rest.key);
            rest.place = rest.items->GetHeadPosition();
        }
        LaterItem("", rest.items->GetNext(rest.place));
        if (rest.place != nullptr) {
            Later(&Walk::ShowItems, rest);
        } else {
            LaterClose();
        }
    }

    void ShowItem(const Subject& subject) {
        const auto& item = *subject.item;
        const auto* field = dynamic_cast<const SelectItemField*>(&item);
        const auto* subQuery = dynamic_cast<const SelectItemSubQuery*>(&item);
        const auto* member = dynamic_cast<const SelectItemUnion*>(&item);
        Open(Shape::Object, subject.key);
        if (field != nullptr) sink_.Word({"Class", {}}, "Field");
        if (subQuery != nullptr) sink_.Word({"Class", {}}, "SubQuery");
        if (member != nullptr) sink_.Word({"Class", {}}, "Union");
        ShowMembers(item);
        if (field != nullptr) ShowMembers(*field);
        LaterItems("Children", item.Children);
        if (subQuery != nullptr && subQuery->Query != nullptr)
            Later(&Walk::ShowQuery, Query("Query", *subQuery->Query));
        if (member != nullptr && member->Query != nullptr) Later(&Walk::ShowQuery, Query("Query", *member->Query));
        LaterClose();
    }

    void ShowMembers(const SelectItem& item) {
        sink_.Number({"ItemKind", {}}, item.ItemKind);
        Text("FuncName", item.FuncName);
        if (item.TokenType != 0) ShowTokenType(item.TokenType);
        Text("Text", item.Text);
        Number("IsOperator", item.IsOperator);
        Number("IsNested", item.IsNested);
        Number("HasCalculatedField", item.HasCalculatedField);
    }

    void ShowMembers(const SelectItemField& field) {
        Text("TableName", field.GetTableName());
        Text("FieldName", field.GetFieldName());
        Text("ResolvedTable", field.GetResolvedTable());
        Text("ResolvedField", field.GetResolvedField());
        Text("TableAlias", field.GetTableAlias());
        Text("FieldAlias", field.GetFieldAlias());
        Text("OutputName", field.GetOutputName());
        Text("SchemaName", field.GetSchemaName());
    }

    void ShowTokenType(int type) {
        const char* name = QZTokenName(model_.grammar, static_cast<std::uint32_t>(type));
        if (name != nullptr) return sink_.Word({"TokenType", {}}, name);
        sink_.Number({"TokenType", {}}, type);
    }

    const Model& model_;
    ModelSink& sink_;
    std::vector<Step> waiting_;
    std::vector<const CQZQueryInfo*> around_;            // the queries that are open
    std::unordered_set<const SelectItem*> expressions_;  // that were shown
    std::size_t repeats_ = 0;                            // of expressions that are open
    int copies_ = 0;                                     // expressions that are open and copies
    std::size_t shownAgain_ = 0;
    bool isWhole_ = true;
};

}  // namespace

bool WalkModel(const Model& model, ModelSink& sink) { return Walk(model, sink).Run(); }

}  // namespace qzsql
