// The items that a walker makes of single nodes, and how it reads names.
#include "QZParserSQL/dialect/StateSelectQuery.h"
#include "QZParserSQL/model/SelectItemField.h"

// --------------------------------------------------------------------------------------------- nodes and names

NodeKind StateSelectQuery::KindOf(CQZSQLTree* pNode) const {
    return pNode == nullptr ? NodeKind::None : m_Traits.kinds[pNode->GetType()];
}

CQZSQLTree* StateSelectQuery::ChildOf(CQZSQLTree& node, std::uint32_t index) {
    return index < node.GetChildCount() ? node.GetChild(index) : nullptr;
}

bool StateSelectQuery::IsOperatorNode(CQZSQLTree& node) const { return Has(m_Traits.operators, KindOf(&node)); }

CString StateSelectQuery::JoinedTexts(CQZSQLTree& node) const {
    const std::uint32_t count = node.GetChildCount();
    if (count == 1) return node.GetChild(0)->GetText();
    CString text;
    for (std::uint32_t index = 0; index < count; ++index) text += node.GetChild(index)->GetText();
    return text;
}

CString StateSelectQuery::GetNodeText(CQZSQLTree& node) const {
    CString text = JoinedTexts(node);
    if (!m_Traits.backticks) text = WithoutQuotes(std::move(text));
    text.Trim();
    return text;
}

CString StateSelectQuery::NameAt(CQZSQLTree& node) const {
    CString name = GetNodeText(node);
    return m_Traits.backticks ? WithoutQuotes(std::move(name)) : name;
}

// A name that does not begin with the quote keeps those further in.
CString StateSelectQuery::WithoutQuotes(CString strName) const {
    const char16_t quote = m_Traits.backticks ? u'`' : u'[';
    if (strName.IsEmpty() || strName[0] != quote) return strName;
    strName.Trim(quote);
    if (!m_Traits.backticks) strName.Trim(u']');
    return strName;
}

CString StateSelectQuery::WordText(CQZSQLTree& node) const {
    return m_Traits.wordsFromChildren ? GetNodeText(node) : node.GetText();
}

// ------------------------------------------------------------------------------------- operators and functions

void StateSelectQuery::BuildOperator(const WalkPlace& place) {
    CQZSQLTree& node = *place.node;
    SelectItem& item = Append(*place.list);
    item.FuncName = node.GetText().TrimLeft();
    item.IsOperator = 1;
    item.ItemKind = SelectItem::kOperator;
    item.TokenType = static_cast<int>(node.GetType());
    const bool slot = m_Traits.joinSlot != nullptr && item.FuncName.CompareNoCase(u"JOIN") == 0;
    if (slot && KindOf(ChildOf(node, 0)) != NodeKind::JOIN_PREFIX) Append(item.Children).*m_Traits.joinSlot = u" ";
    if (KindOf(place.parent) == NodeKind::NESTED_JOIN) item.IsNested = 1;
    WalkChildren(node, item.Children);
}

void StateSelectQuery::BuildFunction(const WalkPlace& place) {
    CQZSQLTree& node = *place.node;
    CQZSQLTree* name = ChildOf(node, 0);
    if (name == nullptr) return;
    auto item = std::make_unique<SelectItem>();
    item->FuncName = FunctionName(*name);
    item->TokenType = static_cast<int>(name->GetType());
    item->IsOperator = IsOperatorNode(*name) ? 1 : 0;
    item->ItemKind = SelectItem::kOperator;
    if (KindOf(&node) == NodeKind::USER_FUNCTION) {
        item->ItemKind = SelectItem::kUserFunction;
        CQZSQLTree* parameters = ChildOf(node, 1);
        const std::uint32_t count = parameters == nullptr ? 0 : parameters->GetChildCount();
        m_pQuery->SetUserFunction(item->FuncName, static_cast<int>(count));
    }
    CQZSQLTree* arguments = ArgumentsOf(node, *item, place);
    Walk().Count();
    place.list->AddTail(item.get());
    SelectItem& appended = *item.release();
    if (arguments != nullptr) WalkChildren(*arguments, appended.Children);
}

// The node below which the arguments stand. The operands of a comparison stand below its operator.
CQZSQLTree* StateSelectQuery::ArgumentsOf(CQZSQLTree& node, SelectItem& item, const WalkPlace& /*place*/) {
    CQZSQLTree* first = ChildOf(node, 0);
    const NodeKind kind = KindOf(first);
    const bool like = kind == NodeKind::LIKE_KEYWORD && m_Traits.operandsBelowFirstChild;
    if (like) item.IsOperator = 1;
    if (like || KindOf(&node) == NodeKind::SEARCH_CONDITION) return first;
    if (kind == NodeKind::BETWEEN_KEYWORD) return m_Traits.operandsBelowFirstChild ? first : &node;
    return ChildOf(node, 1);
}

// ------------------------------------------------------------------------------------------- constants and words

void StateSelectQuery::BuildFirstLiteral(const WalkPlace& place) {
    if (CQZSQLTree* first = ChildOf(*place.node, 0)) BuildLiteral({first, place.list});
}

void StateSelectQuery::BuildLiteral(const WalkPlace& place) {
    CQZSQLTree& node = *place.node;
    const NodeKind kind = KindOf(&node);
    const bool whole = m_Traits.wholeLiterals;
    SelectItem& item = Append(*place.list);
    if (kind == NodeKind::NUMBER_LITERAL || (kind == NodeKind::ASTERISK_ && whole)) {
        item.ItemKind = SelectItem::kConstant;
        item.Text = NumberText(node);
    } else if (kind == NodeKind::SQL_STRING || kind == NodeKind::DATE) {
        item.ItemKind = kind == NodeKind::DATE ? SelectItem::kDate : SelectItem::kString;
        item.Text = JoinedTexts(node);
        const bool blank = node.GetChildCount() == 0 && (kind == NodeKind::SQL_STRING || !whole);
        if (blank) item.Text = u" ";
    } else if (kind == NodeKind::DATATYPE) {
        BuildDataType(node, item);
    } else if (whole) {
        item.FuncName = node.GetText();
    } else {
        item.Text = WithoutQuotes(WordText(node));
    }
}

// Where numbers are cut, "1.5" is "1." and "-1.5" is "-1".
CString StateSelectQuery::NumberText(CQZSQLTree& node) const {
    if (m_Traits.wholeLiterals) return JoinedTexts(node);
    CString text;
    for (std::uint32_t index = 0; index < 2 && index < node.GetChildCount(); ++index)
        text += node.GetChild(index)->GetText();
    return text;
}

void StateSelectQuery::BuildDataType(CQZSQLTree& node, SelectItem& item) {
    item.ItemKind = m_Traits.wholeLiterals ? SelectItem::kTextOperand : SelectItem::kConstant;
    if (!m_Traits.wholeLiterals) {
        item.Text = JoinedTexts(node);
        return;
    }
    if (CQZSQLTree* name = ChildOf(node, 0)) item.Text = name->GetText().TrimLeft();
    for (std::uint32_t index = 1; index < node.GetChildCount(); ++index)
        Later(&StateSelectQuery::BuildLiteral, {node.GetChild(index), &item.Children});
}

void StateSelectQuery::BuildJoinWord(const WalkPlace& place) {
    static const NodeKindSet kConstants =
        SetOf({NodeKind::NUMBER_LITERAL, NodeKind::INNER_KEYWORD, NodeKind::RIGHT_KEYWORD, NodeKind::LEFT_KEYWORD,
               NodeKind::CROSS_KEYWORD, NodeKind::OUTER_KEYWORD});
    CQZSQLTree* node = place.node;
    SelectItem& item = Append(*place.list);
    if (Has(kConstants, KindOf(node))) item.ItemKind = SelectItem::kConstant;
    if (KindOf(node) == NodeKind::NUMBER_LITERAL) node = ChildOf(*node, 0);
    if (node != nullptr) item.Text = WordText(*node);
}

void StateSelectQuery::BuildSortWord(const WalkPlace& place) {
    const bool beside = m_Traits.sortWord == WalkerTraits::SortWord::Beside;
    if (!beside && place.list->IsEmpty()) return;
    SelectItem& item = Append(beside ? *place.list : place.list->GetTail()->Children);
    if (m_Traits.sortWord == WalkerTraits::SortWord::EmptyBelow) return;
    item.Text = KindOf(place.node) == NodeKind::DESC_KEYWORD ? u"DESC" : u"ASC";
}

// ------------------------------------------------------------------------------------------- tables and columns

void StateSelectQuery::BuildTableField(const WalkPlace& place) {
    CQZSQLTree* named = ChildOf(*place.node, 0);
    const bool behindDatabase = m_Traits.databaseNames && KindOf(named) == NodeKind::DB_NAME;
    if (behindDatabase) named = ChildOf(*place.node, 1);
    if (!m_Traits.databaseNames && KindOf(named) != NodeKind::TABLE_NAME) named = place.node;
    auto& item = Append<SelectItemField>(*place.list);
    if (named != nullptr) item.SetTableName(NameAt(*named));
}

StateSelectQuery::ColumnParts StateSelectQuery::ReadColumn(CQZSQLTree& node) const {
    ColumnParts parts;
    std::uint32_t index = 0;
    const bool behindDatabase = m_Traits.databaseNames && KindOf(ChildOf(node, 0)) == NodeKind::DB_NAME;
    if (behindDatabase) ++index;
    if (KindOf(ChildOf(node, index)) == NodeKind::TABLE_NAME) {
        parts.table = NameAt(*node.GetChild(index++));
        parts.hasTable = true;
        parts.tableIsAlias = !behindDatabase && IsAlias(parts.table, NameOf::Table);
    }
    if (KindOf(ChildOf(node, index)) == NodeKind::COLUMN_NAME) {
        parts.column = NameAt(*node.GetChild(index));
        parts.columnIsAlias = !behindDatabase && !parts.hasTable && IsAlias(parts.column, NameOf::Column);
    }
    return parts;
}

void StateSelectQuery::BuildField(const WalkPlace& place) {
    const ColumnParts parts = ReadColumn(*place.node);
    FillField(Append<SelectItemField>(*place.list), parts);
    Record(RecordOf(parts));
}

void StateSelectQuery::FillField(SelectItemField& item, const ColumnParts& parts) {
    if (parts.tableIsAlias) {
        item.SetTableAlias(parts.table);
        item.Text = parts.table;
    } else {
        item.SetTableName(parts.table);
    }
    if (parts.columnIsAlias) {
        item.Text = parts.column;
    } else {
        item.SetFieldName(parts.column);
    }
}

// Of names that are aliases nothing is recorded.
CFieldObject StateSelectQuery::RecordOf(const ColumnParts& parts) const {
    CFieldObject record;
    if (!parts.tableIsAlias) record.TableName = parts.table;
    if (!parts.columnIsAlias) record.FieldName = parts.column;
    return record;
}
