#include "QZParserSQL/MSAccess_v3/MSAccessSQL_v3StateSelectQuery.h"

#include <deque>
#include <type_traits>
#include <utility>
#include <vector>

#include "QZParserSQL/catalog/CQZDatabaseInfo.h"
#include "QZParserSQL/catalog/CQZTableInfo.h"
#include "QZParserSQL/dialect/QZRecognizers.h"
#include "QZParserSQL/model/SelectItemField.h"

namespace {

using K = NodeKind;

const WalkerTraits& Traits() {
    static const NodeKinds kinds(QZGrammarMSAccessSQL_v3(), {});
    static const WalkerTraits traits = {
        /*dbType=*/2,
        kinds,
        /*operators=*/OperatorsWith({K::AS, K::LEFT_PAREN, K::LITERAL_AS, K::NOT_KEYWORD}),
        /*clauseFunctions=*/SetOf({K::FUNCTION, K::SEARCH_CONDITION, K::USER_FUNCTION}),
        /*backticks=*/true,
        /*databaseNames=*/false,
        /*childStates=*/false,
        /*unionsKnowOuterNames=*/false,
        /*distinctRow=*/true,
        /*topIsLimit=*/false,
        /*joinSlot=*/&SelectItem::FuncName,
        /*sortWord=*/WalkerTraits::SortWord::Beside,
        /*wholeLiterals=*/false,
        /*wordsFromChildren=*/false,
        /*operandsBelowFirstChild=*/true,
    };
    return traits;
}

constexpr int kDeepestExpansion = 16;
constexpr int kMostExpandedItems = 10'000;

// Calls visit(item) for an item and all below it.
template <class Item, class Visit>
void ForEachItem(Item& top, Visit visit) {
    std::vector<Item*> waiting = {&top};
    while (!waiting.empty()) {
        Item& item = *waiting.back();
        waiting.pop_back();
        visit(item);
        for (SelectItem* child : item.Children) waiting.push_back(child);
    }
}

int CountOf(const SelectItem& top) {
    int count = 0;
    ForEachItem(top, [&count](const SelectItem& /*item*/) { ++count; });
    return count;
}

// Of aliases that stand for each other deeper than is expanded, the name alone stays.
void CutDeepExpansions(SelectItem& top) {
    std::vector<std::pair<SelectItem*, int>> waiting = {{&top, 1}};
    while (!waiting.empty()) {
        const auto [item, depth] = waiting.back();
        waiting.pop_back();
        const bool expansion = item->ItemKind == SelectItem::kAliasReference;
        if (expansion && depth >= kDeepestExpansion) item->ClearChildren();
        for (SelectItem* child : item->Children) waiting.emplace_back(child, expansion ? depth + 1 : depth);
    }
}

CString WithoutBrackets(CString name) {
    if (!name.IsEmpty() && name[0] == u'[') name.Trim(u"[]");
    return name;
}

}  // namespace

MSAccessSQL_v3StateSelectQuery::MSAccessSQL_v3StateSelectQuery(CQZSQLTree* pTree) : StateSelectQuery(Traits(), pTree) {}

std::unique_ptr<StateSelectQuery> MSAccessSQL_v3StateSelectQuery::NewState(CQZSQLTree* pTree) const {
    return std::make_unique<MSAccessSQL_v3StateSelectQuery>(pTree);
}

bool MSAccessSQL_v3StateSelectQuery::DeclaresAlias(NodeKind kind) const {
    return kind == K::LITERAL_AS || StateSelectQuery::DeclaresAlias(kind);
}

void MSAccessSQL_v3StateSelectQuery::FillExpression(CQZSQLTree& node, SelectItem& expression) {
    WalkChildren(node, expression.Children);
}

void MSAccessSQL_v3StateSelectQuery::AddJoinDefinition(const WalkPlace& place) {
    SelectItem& item = Append(*place.list);
    item.FuncName = u"DEF_JOIN";
    item.ItemKind = SelectItem::kOperator;
    item.IsOperator = 1;
    StateSelectQuery::AddJoinDefinition({place.node, &item.Children, place.parent});
}

void MSAccessSQL_v3StateSelectQuery::WalkOtherNode(const WalkPlace& place) {
    const NodeKind kind = KindOf(place.node);
    if (kind == K::JOIN_DEF) return AddFromItem(place);
    if (kind != K::JOIN_TYPE) return StateSelectQuery::WalkOtherNode(place);
    if (CQZSQLTree* word = ChildOf(*place.node, 0)) BuildJoinWord({word, place.list});
}

// The parameters of a function stand below its kept parenthesis, or below the node behind it.
void MSAccessSQL_v3StateSelectQuery::WalkChildren(CQZSQLTree& node, CList<SelectItem*>& list) {
    CQZSQLTree* above = &node;
    CQZSQLTree* first = ChildOf(node, 0);
    if (KindOf(&node) == K::FUNC_PARAM && KindOf(first) == K::LEFT_PAREN) {
        if (first->GetChildCount() > 0) {
            above = first;
        } else if (node.GetChildCount() > 1) {
            above = node.GetChild(1);
        }
    }
    StateSelectQuery::WalkChildren(*above, list);
}

CString MSAccessSQL_v3StateSelectQuery::FunctionName(CQZSQLTree& node) const {
    return WithoutQuotes(node.GetText()).TrimLeft();
}

// ------------------------------------------------------------------------------------------------------- columns

void MSAccessSQL_v3StateSelectQuery::BuildField(const WalkPlace& place) {
    CQZSQLTree& node = *place.node;
    auto item = std::make_unique<SelectItemField>();
    Column column{*item, {}, {}};
    bool hasQueryName = false;
    for (std::uint32_t index = 0; index < node.GetChildCount(); ++index) {
        CQZSQLTree& child = *node.GetChild(index);
        const NodeKind kind = KindOf(&child);
        if (kind == K::QUERY_NAME && !std::exchange(hasQueryName, true))
            TakeQualifier(column, WithoutBrackets(GetNodeText(child)), column.table);
        if (kind == K::TABLE_NAME) TakeQualifier(column, NameAt(child), column.table);
        if (kind != K::COLUMN_NAME) continue;
        if (GetNodeText(child) != u"*") {
            TakeColumnName(column, NameAt(child));
            continue;
        }
        const CQZDatabaseInfo* database = m_pQuery->GetDatabase();
        const CQZTableInfo* table = database == nullptr ? nullptr : database->FindTableBySrcName(column.table);
        if (table != nullptr) return ExpandTableFields(*table, *place.list);
        column.field = u"*";
        item->SetFieldName(column.field);
    }
    RecordColumn(column);
    Walk().Count();
    place.list->AddTail(item.get());
    item.release();  // NOLINT(bugprone-unused-return-value): the list owns it
}

// A qualifier that is an alias goes into the item as such; another one into `strTaken` too.
void MSAccessSQL_v3StateSelectQuery::TakeQualifier(Column& column, const CString& strName, CString& strTaken) const {
    if (IsAlias(strName, NameOf::Table)) {
        column.item.Text = strName;
        column.item.SetTableAlias(strName);
    } else {
        column.item.SetTableName(strName);
        strTaken = strName;
    }
}

void MSAccessSQL_v3StateSelectQuery::TakeColumnName(Column& column, CString strName) {
    const int dot = strName.Find(u'.');
    if (dot > 0) {
        TakeQualifier(column, strName.Left(dot), column.field);  // not the record's table
        strName = strName.Mid(dot).TrimLeft(u'.');
    }
    const bool qualified = !column.item.GetTableName().IsEmpty() || !column.item.GetTableAlias().IsEmpty();
    if (qualified || !IsAlias(strName, NameOf::Column)) {
        column.field = strName;
        column.item.SetFieldName(strName);
    } else {
        column.item.SetFieldAlias(strName);
        column.item.ItemKind = SelectItem::kAliasReference;
        ExpandAlias(column.item, strName);
    }
}

// UnderAs stays 0 in this dialect.
void MSAccessSQL_v3StateSelectQuery::RecordColumn(Column& column) {
    if (IsFillingExpression()) return;
    if (column.table.IsEmpty() && !column.field.IsEmpty()) column.table = column.item.Text;
    CFieldObject record;
    record.TableName = column.table;
    record.FieldName = column.field;
    record.OutputName = column.item.GetOutputName();
    Record(record);
}

void MSAccessSQL_v3StateSelectQuery::ExpandTableFields(const CQZTableInfo& table, CList<SelectItem*>& list) {
    for (const CQZFieldInfo* field : table.m_listFields) {
        auto& item = Append<SelectItemField>(list);
        item.SetTableName(table.GetSrcName());
        item.SetFieldName(field->GetSrcName());
        Column column{item, item.GetTableName(), item.GetFieldName()};
        RecordColumn(column);
    }
}

// ------------------------------------------------------------------------------------------ references to aliases

const SelectItem* MSAccessSQL_v3StateSelectQuery::ExpressionOf(const CString& strAlias) const {
    CQZAliasInfo* alias = nullptr;
    if (!m_pQuery->m_mapAliases.Lookup(CString(strAlias).MakeLower(), alias)) return nullptr;
    const SelectItem* root = alias->Expression.Peek();
    return root == nullptr || root->Children.IsEmpty() ? nullptr : root->Children.GetHead();
}

bool MSAccessSQL_v3StateSelectQuery::NamesAlias(const SelectItemField& field) const {
    return !field.GetFieldName().IsEmpty() && field.GetTableName().IsEmpty() && field.GetTableAlias().IsEmpty() &&
           IsAlias(field.GetFieldName(), NameOf::Column);
}

// Calls visit(field) for each field below an item that names an alias, but not within the expansion of that alias, and
// for each reference with an expansion that does stand within one of the same alias.
template <class Item, class Visit>
void MSAccessSQL_v3StateSelectQuery::ForEachReference(Item& item, const CString& strAlias, Visit visit) const {
    struct Expansion {
        CString alias;
        const Expansion* outer;
        int depth;

        bool IsWithin(const CString& name) const {
            const Expansion* expansion = this;
            while (expansion != nullptr && expansion->alias.CompareNoCase(name) != 0) expansion = expansion->outer;
            return expansion != nullptr;
        }
    };
    std::deque<Expansion> expansions = {{strAlias, nullptr, 1}};
    std::vector<std::pair<Item*, const Expansion*>> waiting = {{&item, &expansions.front()}};
    while (!waiting.empty()) {
        auto [place, within] = waiting.back();
        waiting.pop_back();
        using Field = std::conditional_t<std::is_const_v<Item>, const SelectItemField, SelectItemField>;
        if (auto* field = dynamic_cast<Field*>(place)) {
            const bool names = within->depth < kDeepestExpansion && NamesAlias(*field);
            const bool expanded = field->ItemKind == SelectItem::kAliasReference && !field->Children.IsEmpty();
            if (names && !within->IsWithin(field->GetFieldName())) visit(*field);
            if (expanded && within->IsWithin(field->GetFieldAlias())) visit(*field);
            if (field->ItemKind == SelectItem::kAliasReference)
                within = &expansions.emplace_back(Expansion{field->GetFieldAlias(), within, within->depth + 1});
        }
        for (SelectItem* child : place->Children) waiting.emplace_back(child, within);
    }
}

// The item gets a clone of what the alias stands for, in which references to aliases are expanded too.
void MSAccessSQL_v3StateSelectQuery::ExpandAlias(SelectItemField& item, const CString& strName) {
    const SelectItem* first = ExpressionOf(strName);
    if (first == nullptr) return;
    const auto* field = dynamic_cast<const SelectItemField*>(first);
    const bool ofAlias = field != nullptr && IsAlias(field->GetTableName(), NameOf::Table);
    bool toFix = ofAlias;
    ForEachReference(*first, strName, [&toFix](const SelectItemField& /*reference*/) { toFix = true; });
    if (toFix) {
        CQZAliasInfo* alias = m_pQuery->m_mapAliases[CString(strName).MakeLower()];
        SelectItem* own = alias->Expression->Children.GetHead();
        FixAliasField(*own, strName);
        if (ofAlias) {
            auto& fixed = static_cast<SelectItemField&>(*own);
            fixed.ItemKind = SelectItem::kAliasReference;
            fixed.SetTableAlias(fixed.GetTableName());
            fixed.SetTableName({});
        }
        first = own;
    }
    AddClone(*first, item);
}

void MSAccessSQL_v3StateSelectQuery::AddClone(const SelectItem& expression, SelectItemField& item) {
    if (m_nExpandedItems >= kMostExpandedItems || Walk().IsFull()) return;
    std::unique_ptr<SelectItem> clone(expression.Clone());
    CutDeepExpansions(*clone);
    const int count = CountOf(*clone);
    m_nExpandedItems += count;
    Walk().Count(static_cast<std::size_t>(count));
    item.Children.AddTail(clone.get());
    clone.release();  // NOLINT(bugprone-unused-return-value): the item owns it
}

// Fields below an item that name aliases become references to them, each with a clone of what its alias stands for,
// and so on in the clones. An alias is not expanded within its own expansion.
void MSAccessSQL_v3StateSelectQuery::FixAliasField(SelectItem& item, const CString& strAlias) {
    ForEachReference(item, strAlias, [this](SelectItemField& field) {
        if (field.ItemKind == SelectItem::kAliasReference) {
            field.ClearChildren();
        } else {
            TurnRound(field);
        }
    });
}

void MSAccessSQL_v3StateSelectQuery::TurnRound(SelectItemField& field) {
    if (m_nExpandedItems >= kMostExpandedItems) return;
    const CString name = field.GetFieldName();
    field.SetFieldName({});
    field.SetFieldAlias(name);
    field.ItemKind = SelectItem::kAliasReference;
    if (const SelectItem* expression = ExpressionOf(name)) AddClone(*expression, field);
}
