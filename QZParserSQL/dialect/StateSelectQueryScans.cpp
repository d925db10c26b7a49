// What a walker reads from the whole tree before it fills the clauses: aliases, sources, records of fields.
#include <vector>

#include "QZParserSQL/dialect/StateSelectQuery.h"

namespace {

enum class Below { All, First };

// Calls visit(node) for each node below `top`, in the order of the text; it says what is visited below the node.
template <class Visit>
void ForEachNodeBelow(CQZSQLTree& top, Visit visit) {
    std::vector<CQZSQLTree*> waiting;
    const auto add = [&waiting](CQZSQLTree& node, std::uint32_t count) {
        while (count > 0) waiting.push_back(node.GetChild(--count));
    };
    add(top, top.GetChildCount());
    while (!waiting.empty()) {
        CQZSQLTree& node = *waiting.back();
        waiting.pop_back();
        const std::uint32_t count = node.GetChildCount();
        add(node, visit(node) == Below::All ? count : std::min<std::uint32_t>(count, 1));
    }
}

}  // namespace

void StateSelectQuery::BuildChildStates(CQZSQLTree& node) {
    const auto visit = [this](CQZSQLTree& place) {
        if (KindOf(&place) == NodeKind::SELECT_QUERY) {
            auto state = NewState(&place);
            state->m_pWalk = &Walk();
            state->m_pQuery = NewQuery();
            m_pQuery->m_listSubQueries.AddTail(state->m_pQuery);
            AddTail(state.release());
        }
        return Below::All;
    };
    visit(node);
    ForEachNodeBelow(node, visit);
}

// ------------------------------------------------------------------------------------------------------- aliases

void StateSelectQuery::CollectAliases() {
    for (std::uint32_t index = 0; index < m_pTree->GetChildCount(); ++index)
        Later(&StateSelectQuery::ScanAliases, {m_pTree->GetChild(index)});
    Walk().Run();
    for (StateSelectQuery* child : *this) child->CollectAliases();
}

void StateSelectQuery::ScanAliases(const WalkPlace& place) {
    CQZSQLTree& node = *place.node;
    if (DeclaresAlias(KindOf(&node))) DeclareAlias(node);
    for (std::uint32_t index = 0; index < node.GetChildCount(); ++index)
        Later(&StateSelectQuery::ScanAliases, {node.GetChild(index)});
}

// The first declaration of a name wins. The name counts from when its expression has been walked.
void StateSelectQuery::DeclareAlias(CQZSQLTree& node) {
    if (node.GetChildCount() == 0) return;
    const CString name = GetNodeText(*node.GetChild(node.GetChildCount() - 1));
    auto alias = std::make_unique<CQZAliasInfo>();
    CString key = AliasKey(node, name, *alias);
    CQZAliasInfo* earlier = nullptr;
    if (m_pQuery->m_mapAliases.Lookup(key, earlier)) return;

    Walk().Count();
    auto* expression = new SelectItem;
    alias->Expression = expression;
    alias->SetSrcName(name);
    alias->SetName(name);
    m_strNewKey = std::move(key);
    m_pNewAlias = std::move(alias);
    FillExpression(node, *expression);
    Later(&StateSelectQuery::EnterAlias, {&node});
}

void StateSelectQuery::FillExpression(CQZSQLTree& /*node*/, SelectItem& /*expression*/) {}

void StateSelectQuery::EnterAlias(const WalkPlace& /*place*/) {
    m_pQuery->m_mapAliases[m_strNewKey] = m_pNewAlias.release();
}

CString StateSelectQuery::AliasKey(CQZSQLTree& /*node*/, const CString& strName, CQZAliasInfo& /*alias*/) const {
    return WithoutQuotes(strName).MakeLower();
}

bool StateSelectQuery::IsAlias(const CString& strName, NameOf /*use*/) const {
    CQZAliasInfo* alias = nullptr;
    return m_pQuery->m_mapAliases.Lookup(CString(strName).MakeLower(), alias);
}

// A member of a union that does not see the names around it has the same names whenever it is walked.
void StateSelectQuery::ScanMember(const WalkPlace& place) {
    if (const QueryWalk::Aliases* known = Walk().AliasesBelow(m_pTree)) {
        for (const auto& [key, alias] : *known) m_pQuery->m_mapAliases[key] = alias->Clone(0);
        Walk().Count(static_cast<std::size_t>(known->GetCount()));
        return EndScanOfMember(place);
    }
    for (std::uint32_t index = 0; index < m_pTree->GetChildCount(); ++index)
        Later(&StateSelectQuery::ScanAliases, {m_pTree->GetChild(index)});
    Later(&StateSelectQuery::EndScanOfMember, place);
}

void StateSelectQuery::EndScanOfMember(const WalkPlace& /*place*/) {
    if (Walk().AliasesBelow(m_pTree) == nullptr) Walk().KeepAliases(m_pTree, m_pQuery->m_mapAliases);
    CollectSources();
    CollectFields();
}

// --------------------------------------------------------------------------------------------- sources and fields

void StateSelectQuery::CollectSources() {
    ScanSources();
    for (StateSelectQuery* child : *this) child->CollectSources();
}

void StateSelectQuery::ScanSources() {
    bool takeNext = false;
    ForEachNodeBelow(*m_pTree, [this, &takeNext](CQZSQLTree& node) {
        const NodeKind kind = KindOf(&node);
        if (kind == NodeKind::DB_NAME && m_Traits.databaseNames) takeNext = true;
        if (kind != NodeKind::TABLE_NAME) return Below::All;
        const CString name = NameAt(node);
        if (takeNext || !IsAlias(name, NameOf::Table)) {
            m_pQuery->m_mapSources[name] = name;
            takeNext = false;
        }
        return Below::All;
    });
}

void StateSelectQuery::CollectFields() {
    ScanFields();
    for (StateSelectQuery* child : *this) child->CollectFields();
}

// Of a nested SELECT only the first child: the other clauses belong to its own state.
void StateSelectQuery::ScanFields() {
    ForEachNodeBelow(*m_pTree, [this](CQZSQLTree& node) {
        const NodeKind kind = KindOf(&node);
        if (kind == NodeKind::COLUMN_SPECIFICATION) Record(ScannedRecordOf(ReadColumn(node)));
        return kind == NodeKind::SELECT_QUERY ? Below::First : Below::All;
    });
}

void StateSelectQuery::Record(const CFieldObject& record) {
    if (record.TableName.IsEmpty() && record.FieldName.IsEmpty()) return;
    CFieldObject*& entry = m_pQuery->m_mapFields[record.GetKey()];
    if (entry == nullptr) {
        entry = new CFieldObject(record);
        Walk().Count();
    } else {
        *entry = record;
    }
}
