// What a walker reads from the whole tree before it fills the clauses: aliases, sources, records of fields.
#include <vector>

#include "QZParserSQL/dialect/StateSelectQuery.h"

namespace {

enum class Below { All, First, None };

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
        switch (visit(node)) {
            case Below::All:
                add(node, count);
                break;
            case Below::First:
                add(node, std::min<std::uint32_t>(count, 1));
                break;
            case Below::None:
                break;
        }
    }
}

}  // namespace

void StateSelectQuery::BuildChildStates(CQZSQLTree& node) {
    const auto visit = [this](CQZSQLTree& place) {
        if (KindOf(&place) == NodeKind::SELECT_QUERY) {
            auto state = NewState(&place);
            state->m_pWalk = &Walk();
            auto query = NewQuery();
            m_pQuery->m_listSubQueries.AddTail(query.get());
            state->m_pQuery = query.release();
            AddTail(state.get());
            static_cast<void>(state.release());
        }
        return Below::All;
    };
    visit(node);
    ForEachNodeBelow(node, visit);
}

// ----------------------------------------------------------------------------------------------------- the index

StateSelectQuery::NamesOfSelect StateSelectQuery::NamesHere() {
    const NameIndex* known = Walk().Names();
    const NameIndex& names = known != nullptr ? *known : Walk().KeepNames(ReadNames());
    return {names, names.ranges.at(m_pTree)};
}

NameIndex StateSelectQuery::ReadNames() const {
    NameIndex names;
    bool behindDatabase = false;
    std::size_t openAtDatabase = 0;  // how many of the open SELECTs hold the name of the database
    std::vector<CQZSQLTree*> open;   // nodes that have been entered and not left, and those still to be entered
    std::vector<CQZSQLTree*> waiting = {m_pTree};
    while (!waiting.empty()) {
        CQZSQLTree& node = *waiting.back();
        const NodeKind kind = KindOf(&node);
        const bool select = &node == m_pTree || kind == NodeKind::SELECT_QUERY;
        if (!open.empty() && open.back() == &node) {  // all below it has been read
            open.pop_back();
            waiting.pop_back();
            openAtDatabase = std::min(openAtDatabase, open.size());
            auto& range = names.ranges[&node];
            range.lastAlias = names.aliases.GetCount();
            range.lastTable = names.tables.GetCount();
            continue;
        }
        if (select) {
            open.push_back(&node);
            names.ranges[&node] = {names.aliases.GetCount(), 0, names.tables.GetCount(), 0};
        } else {
            waiting.pop_back();
        }
        if (DeclaresAlias(kind)) names.aliases.Add(node, {}, AliasKey(node, AliasName(node)), false);
        if (kind == NodeKind::DB_NAME && m_Traits.databaseNames) {
            behindDatabase = true;
            openAtDatabase = open.size();
        }
        if (kind == NodeKind::TABLE_NAME) {
            const CString name = NameAt(node);
            names.tables.Add(node, name, behindDatabase ? u"." + name : name, behindDatabase);
            if (behindDatabase && openAtDatabase < open.size()) {  // a SELECT within does not see the name around it
                for (auto inner = openAtDatabase; inner < open.size(); ++inner)
                    names.ranges[open[inner]].firstTable = names.tables.GetCount();
                names.tables.Add(node, name, name, false);
            }
            behindDatabase = false;
        }
        for (std::uint32_t index = node.GetChildCount(); index > 0; --index)
            waiting.push_back(node.GetChild(index - 1));
    }
    return names;
}

// ------------------------------------------------------------------------------------------------------- aliases

void StateSelectQuery::CollectAliases() {
    ScanAliases();
    Walk().Run();
    for (StateSelectQuery* child : *this) child->CollectAliases();
}

void StateSelectQuery::ScanAliases() {
    if (Walk().IsFull()) return;
    const auto& [names, range] = NamesHere();
    names.aliases.ForEachFirst(range.firstAlias, range.lastAlias, [this](const NameIndex::Name& alias) {
        Later(&StateSelectQuery::DeclareAlias, {alias.node});
    });
}

// The first declaration of a name wins. The name counts from when its expression has been walked.
void StateSelectQuery::DeclareAlias(const WalkPlace& place) {
    CQZSQLTree& node = *place.node;
    if (node.GetChildCount() == 0) return;
    const CString name = AliasName(node);
    const CString key = AliasKey(node, name);
    CQZAliasInfo* earlier = nullptr;
    if (m_pQuery->m_mapAliases.Lookup(key, earlier)) return;

    Walk().Count();
    auto alias = std::make_unique<CQZAliasInfo>();
    auto* expression = new SelectItem;
    alias->Expression = expression;
    alias->SetSrcName(name);
    alias->SetName(name);
    NameOrigin(node, *alias);
    m_strNewKey = key;
    m_pNewAlias = std::move(alias);
    FillExpression(node, *expression);
    Later(&StateSelectQuery::EnterAlias, place);
}

void StateSelectQuery::FillExpression(CQZSQLTree& /*node*/, SelectItem& /*expression*/) {}

void StateSelectQuery::EnterAlias(const WalkPlace& /*place*/) {
    SetOwned(m_pQuery->m_mapAliases, m_strNewKey, std::move(m_pNewAlias));
}

CString StateSelectQuery::AliasName(CQZSQLTree& node) const {
    const std::uint32_t count = node.GetChildCount();
    return count == 0 ? CString() : GetNodeText(*node.GetChild(count - 1));
}

CString StateSelectQuery::AliasKey(CQZSQLTree& /*node*/, const CString& strName) const {
    CString key = WithoutQuotes(strName);
    key.MakeLower();
    return key;
}

void StateSelectQuery::NameOrigin(CQZSQLTree& /*node*/, CQZAliasInfo& /*alias*/) const {}

bool StateSelectQuery::IsAlias(const CString& strName, NameOf /*use*/) const {
    if (m_pQuery->m_mapAliases.IsEmpty()) return false;
    CQZAliasInfo* alias = nullptr;
    return m_pQuery->m_mapAliases.Lookup(CString(strName).MakeLower(), alias);
}

// A member of a union that does not see the names around it has the same names whenever it is walked.
void StateSelectQuery::ScanMember(const WalkPlace& place) {
    if (const QueryWalk::Aliases* known = Walk().AliasesBelow(m_pTree)) {
        QueryWalk::ShareAliases(*known, m_pQuery->m_mapAliases);
        Walk().Count(static_cast<std::size_t>(known->GetCount()));
        return EndScanOfMember(place);
    }
    ScanAliases();
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
    if (Walk().IsFull()) return;
    const auto& [names, range] = NamesHere();
    names.tables.ForEachFirst(range.firstTable, range.lastTable, [this](const NameIndex::Name& table) {
        if (Walk().IsFull() || (!table.behindDatabase && IsAlias(table.text, NameOf::Table))) return;
        m_pQuery->m_mapSources[table.text] = table.text;
        Walk().Count();
    });
}

void StateSelectQuery::CollectFields() {
    ScanFields();
    for (StateSelectQuery* child : *this) child->CollectFields();
}

// Of a nested SELECT only the first child: the other clauses belong to its own state.
void StateSelectQuery::ScanFields() {
    ForEachNodeBelow(*m_pTree, [this](CQZSQLTree& node) {
        Walk().CountRead();
        if (Walk().IsFull()) return Below::None;
        const NodeKind kind = KindOf(&node);
        if (kind == NodeKind::COLUMN_SPECIFICATION) Record(ScannedRecordOf(ReadColumn(node)));
        return kind == NodeKind::SELECT_QUERY ? Below::First : Below::All;
    });
}

void StateSelectQuery::Record(const CFieldObject& record) {
    if (record.TableName.IsEmpty() && record.FieldName.IsEmpty()) return;
    const CString key = record.GetKey();
    CFieldObject* entry = nullptr;
    if (m_pQuery->m_mapFields.Lookup(key, entry)) {
        *entry = record;
    } else {
        SetOwned(m_pQuery->m_mapFields, key, std::make_unique<CFieldObject>(record));
        Walk().Count();
    }
}
