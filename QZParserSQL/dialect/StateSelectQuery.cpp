#include "QZParserSQL/dialect/StateSelectQuery.h"

#include "QZParserSQL/model/Dispose.h"
#include "QZParserSQL/model/SelectItemSubQuery.h"
#include "QZParserSQL/model/SelectItemUnion.h"

namespace {

void Clear(CList<SelectItem*>& list) {
    for (SelectItem* item : list) qz::Dispose(item);
    list.RemoveAll();
}

// The number that a text begins with, 0 for none.
int NumberIn(std::u16string_view text) {
    constexpr std::int64_t kMost = 2147483647;
    std::int64_t number = 0;
    for (const char16_t unit : text) {
        if (unit < u'0' || unit > u'9') break;
        number = std::min(number * 10 + (unit - u'0'), kMost);
    }
    return static_cast<int>(number);
}

}  // namespace

NodeKindSet OperatorsWith(std::initializer_list<NodeKind> own) {
    using K = NodeKind;
    static const NodeKindSet common = SetOf({K::ALIAS,
                                             K::AMPERSAND,
                                             K::AND,
                                             K::AND_KEYWORD,
                                             K::AND_KEYWORD2,
                                             K::ASTERISK,
                                             K::BETWEEN_KEYWORD,
                                             K::DIVIDE,
                                             K::EQ,
                                             K::GE,
                                             K::GOJ,
                                             K::GT,
                                             K::IN_KEYWORD,
                                             K::IS_KEYWORD,
                                             K::JOIN_KEYWORD,
                                             K::LE,
                                             K::LIKE_KEYWORD,
                                             K::LOJ,
                                             K::L_T,
                                             K::MINUS,
                                             K::NOT_EQ,
                                             K::ON_KEYWORD,
                                             K::OR_KEYWORD,
                                             K::OR_KEYWORD2,
                                             K::PLUS,
                                             K::UNION_KEYWORD});
    return common | SetOf(own);
}

StateSelectQuery::StateSelectQuery(const WalkerTraits& traits, CQZSQLTree* pTree) : m_Traits(traits), m_pTree(pTree) {}

StateSelectQuery::~StateSelectQuery() {
    for (const StateSelectQuery* child : *this) delete child;
}

QueryWalk& StateSelectQuery::Walk() {
    if (m_pWalk == nullptr) {
        m_pOwnWalk = std::make_unique<QueryWalk>();
        m_pWalk = m_pOwnWalk.get();
    }
    return *m_pWalk;
}

void StateSelectQuery::Build() {
    if (m_Traits.childStates) {
        for (std::uint32_t index = 0; index < m_pTree->GetChildCount(); ++index)
            BuildChildStates(*m_pTree->GetChild(index));
    }
    CollectAliases();
    CollectSources();
    CollectFields();
    WalkClauses();
    m_pQuery->ResolveSourceGUIDs();
    Walk().ThrowIfOutOfMemory();
}

void StateSelectQuery::WalkClauses() {
    for (std::uint32_t index = 0; index < m_pTree->GetChildCount(); ++index) WalkClause(*m_pTree->GetChild(index));
    for (StateSelectQuery* child : *this) child->WalkClauses();
}

// ------------------------------------------------------------------------------------------------------- clauses

void StateSelectQuery::WalkClause(CQZSQLTree& node) {
    CQZQueryInfo& query = *m_pQuery;
    switch (KindOf(&node)) {
        case NodeKind::PREDICATE:
            if (CQZSQLTree* first = ChildOf(node, 0)) WalkPredicate(*first);
            break;
        case NodeKind::SELECT_LIST:
            FillList(node, query.m_listSelect, Clause::Select);
            break;
        case NodeKind::FROM_DEF_:
            FillList(node, query.m_listFrom, Clause::From);
            break;
        case NodeKind::WHERE_CONDITION:
            if (query.m_pWhere == nullptr) query.m_pWhere = new SelectItem;
            FillList(node, query.m_pWhere->Children, Clause::Where);
            break;
        case NodeKind::ORDER_BY:
            FillList(node, query.m_listOrderBy, Clause::OrderBy);
            break;
        case NodeKind::GROUP_BY:
            FillList(node, query.m_listGroupBy, Clause::GroupBy);
            break;
        case NodeKind::HAVING:
            FillList(node, query.m_listHaving, Clause::Having);
            break;
        case NodeKind::UNION:
            Clear(query.m_listUnion);
            BuildUnion(node, query.m_listUnion);
            break;
        default:  // clauses that have no place in the model
            break;
    }
    Walk().Run();
}

void StateSelectQuery::WalkClauseHere(const WalkPlace& place) { WalkClause(*place.node); }

void StateSelectQuery::FillList(CQZSQLTree& node, CList<SelectItem*>& list, Clause clause) {
    m_nClause = clause;
    Clear(list);
    const bool from = clause == Clause::From;
    for (std::uint32_t index = 0; index < node.GetChildCount(); ++index) {
        CQZSQLTree* child = node.GetChild(index);
        if (from) Later(&StateSelectQuery::AddFromItem, {child, &list, &node});
        if (!from) Later(&StateSelectQuery::AddClauseItem, {child, &list});
    }
}

void StateSelectQuery::WalkPredicate(CQZSQLTree& node) {
    enum Quantifier { kNone, kAll, kDistinct, kDistinctRow };
    const NodeKind kind = KindOf(&node);
    int quantifier = kNone;
    if (kind == NodeKind::ALL_KEYWORD) quantifier = kAll;
    if (kind == NodeKind::DISTINCT_KEYWORD) quantifier = kDistinct;
    if (kind == NodeKind::DISTINCTROW_KEYWORD && m_Traits.distinctRow) quantifier = kDistinctRow;
    m_pQuery->SetSelectQuantifier(quantifier);
    if (kind == NodeKind::TOP_KEYWORD && m_Traits.topIsLimit) LimitByTop(node);
}

// Only a number by itself is a limit: one with PERCENT or WITHTIES behind it is none.
void StateSelectQuery::LimitByTop(CQZSQLTree& node) {
    CQZSQLTree* number = ChildOf(node, 0);
    if (number == nullptr || node.GetChildCount() > 1) return;
    const CQZSQLTree* digits = ChildOf(*number, 0);
    if (digits != nullptr) m_pQuery->SetLimit(0, NumberIn(number->GetChild(0)->GetText()));
}

// ----------------------------------------------------------------------------------------- the steps at one node

void StateSelectQuery::AddClauseItem(const WalkPlace& place) {
    if (IsOperatorNode(*place.node)) return BuildOperator({place.node, place.list});
    const NodeKind kind = KindOf(place.node);
    if (Has(m_Traits.clauseFunctions, kind)) return BuildFunction(place);
    switch (kind) {
        case NodeKind::COLUMN_SPECIFICATION:
            return BuildField(place);
        case NodeKind::SQL_LITERAL:
            return AddConstant(place);
        case NodeKind::ASTERISK_:
            return AddAsterisk(place);
        case NodeKind::ASC_KEYWORD:
        case NodeKind::DESC_KEYWORD:
            return BuildSortWord(place);
        case NodeKind::TABLE_NAME:
            return;
        default:
            return AddOtherClauseItem(place);
    }
}

void StateSelectQuery::AddAsterisk(const WalkPlace& place) {
    if (m_Traits.wholeLiterals) return BuildLiteral(place);
    AddOtherClauseItem(place);
}

void StateSelectQuery::AddOtherClauseItem(const WalkPlace& place) {
    if (CQZSQLTree* first = ChildOf(*place.node, 0)) Later(&StateSelectQuery::AddClauseItem, {first, place.list});
}

void StateSelectQuery::AddFromItem(const WalkPlace& place) {
    if (IsOperatorNode(*place.node)) return BuildOperator(place);
    switch (KindOf(place.node)) {
        case NodeKind::JOIN_DEF:
            return AddJoinDefinition(place);
        case NodeKind::SELECT_QUERY:
            Append(*place.list).FuncName = u"select";
            return;
        case NodeKind::TABLE_SPECIFICATION:
            return BuildTableField(place);
        default:
            return;
    }
}

void StateSelectQuery::AddJoinDefinition(const WalkPlace& place) {
    for (std::uint32_t index = 0; index < place.node->GetChildCount(); ++index)
        Later(&StateSelectQuery::AddFromItem, {place.node->GetChild(index), place.list, place.parent});
}

void StateSelectQuery::WalkNode(const WalkPlace& place) {
    CQZSQLTree& node = *place.node;
    if (IsOperatorNode(node)) return BuildOperator(place);
    switch (KindOf(&node)) {
        case NodeKind::SELECT_QUERY:
            return BuildSubQuery(place);
        case NodeKind::COLUMN_SPECIFICATION:
            return BuildField(place);
        case NodeKind::TABLE_SPECIFICATION:
            if (m_Traits.databaseNames) return BuildTableField(place);
            if (CQZSQLTree* first = ChildOf(node, 0)) BuildTableField({first, place.list});
            return;
        case NodeKind::FUNCTION:
        case NodeKind::GROUP_FUNCTION:
        case NodeKind::SEARCH_CONDITION:
        case NodeKind::CONVERT_FUNCTION:
        case NodeKind::USER_FUNCTION:
            return BuildFunction(place);
        case NodeKind::SQL_LITERAL:
        case NodeKind::STYLE:
        case NodeKind::DATE_PART:
            return BuildFirstLiteral(place);
        case NodeKind::DATATYPE:
            return BuildLiteral(place);
        case NodeKind::NEW_NAME: {
            SelectItem& item = Append(*place.list);
            item.ItemKind = SelectItem::kConstant;
            item.Text = NewNameText(node);
            return;
        }
        case NodeKind::IDENTIFICATOR:
            Append(*place.list).Text = m_Traits.wholeLiterals ? node.GetText() : GetNodeText(node);
            return;
        case NodeKind::JOIN_PREFIX: {
            SelectItem& item = Append(*place.list);
            item.FuncName = u" ";
            item.IsOperator = 1;
            return WalkChildren(node, item.Children);
        }
        case NodeKind::JOIN_POSTFIX:
            for (std::uint32_t index = 0; index < node.GetChildCount(); ++index)
                Later(&StateSelectQuery::WalkJoinPart, {node.GetChild(index), place.list, &node});
            return;
        case NodeKind::INNER_KEYWORD:
        case NodeKind::LEFT_KEYWORD:
        case NodeKind::RIGHT_KEYWORD:
        case NodeKind::CROSS_KEYWORD:
            return WalkJoinWord(place);
        default:
            return WalkOtherNode(place);
    }
}

void StateSelectQuery::WalkOtherNode(const WalkPlace& place) {
    if (CQZSQLTree* first = ChildOf(*place.node, 0))
        Later(&StateSelectQuery::WalkNode, {first, place.list, place.node});
}

void StateSelectQuery::WalkJoinPart(const WalkPlace& place) {
    if (KindOf(place.node) != NodeKind::JOIN_DEF) return WalkNode(place);
    SelectItem& item = Append(*place.list);
    item.FuncName = u" ";
    item.IsOperator = 1;
    AddFromItem({place.node, &item.Children, place.parent});
}

// What stands behind a kept closing parenthesis is not walked.
void StateSelectQuery::WalkChildren(CQZSQLTree& node, CList<SelectItem*>& list) {
    for (std::uint32_t index = 0; index < node.GetChildCount(); ++index) {
        CQZSQLTree* child = node.GetChild(index);
        if (KindOf(child) == NodeKind::RIGHT_PAREN) return;
        Later(&StateSelectQuery::WalkNode, {child, &list, &node});
    }
}

// ------------------------------------------------------------------------------------------------ nested queries

void StateSelectQuery::BuildSubQuery(const WalkPlace& place) {
    auto query = NewQuery();
    auto& item = Append<SelectItemSubQuery>(*place.list);
    item.Query = query.release();
    item.FuncName = u"SUB_QUERY";
    CopyNamesTo(*item.Query);
    if (StateSelectQuery* state = BeginQuery(*item.Query, place.node)) WalkQuery(*state);
}

CQZQueryInfo* StateSelectQuery::BuildUnion(CQZSQLTree& node, CList<SelectItem*>& list) {
    CQZSQLTree* first = ChildOf(node, 0);
    if (first == nullptr) return nullptr;
    auto query = NewQuery();
    auto& item = Append<SelectItemUnion>(list);
    item.Query = query.release();
    item.FuncName = u"UNION";
    if (m_Traits.unionsKnowOuterNames) CopyNamesTo(*item.Query);
    if (KindOf(first) == NodeKind::ALL_KEYWORD) {
        WalkPredicate(node);  // of the UNION itself, which takes the outer quantifier back
        first = ChildOf(node, 1);
    }
    if (StateSelectQuery* state = BeginQuery(*item.Query, first)) {
        if (!m_Traits.unionsKnowOuterNames) state->Later(&StateSelectQuery::ScanMember, {state->m_pTree});
        WalkQuery(*state);
    }
    return item.Query;
}

std::unique_ptr<CQZQueryInfo> StateSelectQuery::NewQuery() {
    auto query = std::make_unique<CQZQueryInfo>();
    query->SetDataType(m_Traits.dbType);
    query->SetQueryKind(m_Traits.dbType);
    query->SetDatabase(m_pQuery->GetDatabase());
    return query;
}

StateSelectQuery* StateSelectQuery::BeginQuery(CQZQueryInfo& query, CQZSQLTree* pSelect) {
    CQZSQLTree* select = SelectAtOrBelow(pSelect);
    if (select == nullptr) return nullptr;
    StateSelectQuery& state = Walk().Begin(NewState(select));
    state.m_pWalk = m_pWalk;
    state.m_pQuery = &query;
    return &state;
}

void StateSelectQuery::WalkQuery(StateSelectQuery& state) {
    CQZSQLTree& select = *state.m_pTree;
    for (std::uint32_t index = 0; index < select.GetChildCount(); ++index)
        state.Later(&StateSelectQuery::WalkClauseHere, {select.GetChild(index)});
    Walk().End(state);
}

// The nested query knows the names around it.
void StateSelectQuery::CopyNamesTo(CQZQueryInfo& query) {
    query.m_mapSources = m_pQuery->m_mapSources;
    for (const auto& [key, alias] : m_pQuery->m_mapAliases) {
        SetOwned(query.m_mapAliases, key, std::unique_ptr<CQZAliasInfo>(alias->Clone(0)));
    }
    for (const auto& [key, record] : m_pQuery->m_mapFields) {
        SetOwned(query.m_mapFields, key, std::make_unique<CFieldObject>(*record));
    }
    Walk().Count(static_cast<std::size_t>(query.m_mapAliases.GetCount()));
    Walk().Count(static_cast<std::size_t>(query.m_mapFields.GetCount()));
}

CQZSQLTree* StateSelectQuery::SelectAtOrBelow(CQZSQLTree* pNode) const {
    while (pNode != nullptr && KindOf(pNode) != NodeKind::SELECT_QUERY) pNode = ChildOf(*pNode, 0);
    return pNode;
}
