#include "QZParserSQL/Grammar/MySQLStateSelectQuery.h"

#include "QZParserSQL/dialect/QZRecognizers.h"
#include "QZParserSQL/model/SelectItemField.h"

namespace {

using K = NodeKind;

const WalkerTraits& Traits() {
    static const NodeKinds kinds(
        QZGrammarMySQLSelect(),
        {{"SELECT_QUERY_MY", K::SELECT_QUERY}, {"FUNCTION_MY", K::FUNCTION}, {"DISTINCTROW", K::DISTINCTROW_KEYWORD}});
    static const WalkerTraits traits = {
        /*dbType=*/1,
        kinds,
        /*operators=*/OperatorsWith({K::AS, K::NOT_IN_KEYWORD}),
        /*clauseFunctions=*/SetOf({K::FUNCTION, K::SEARCH_CONDITION}),
        /*backticks=*/true,
        /*databaseNames=*/false,
        /*childStates=*/true,
        /*unionsKnowOuterNames=*/true,
        /*distinctRow=*/true,
        /*topIsLimit=*/false,
        /*joinSlot=*/&SelectItem::Text,
        /*sortWord=*/WalkerTraits::SortWord::EmptyBelow,
        /*wholeLiterals=*/false,
        /*wordsFromChildren=*/true,
        /*operandsBelowFirstChild=*/true,
    };
    return traits;
}

}  // namespace

MySQLStateSelectQuery::MySQLStateSelectQuery(CQZSQLTree* pTree) : StateSelectQuery(Traits(), pTree) {}

std::unique_ptr<StateSelectQuery> MySQLStateSelectQuery::NewState(CQZSQLTree* pTree) const {
    return std::make_unique<MySQLStateSelectQuery>(pTree);
}

// Keys are in lower case and the name is not: an alias in mixed case is none where it is used. Columns are never
// looked up.
bool MySQLStateSelectQuery::IsAlias(const CString& strName, NameOf use) const {
    CQZAliasInfo* alias = nullptr;
    return use == NameOf::Table && m_pQuery->m_mapAliases.Lookup(strName, alias);
}

// A leaf is dropped, whatever it is.
void MySQLStateSelectQuery::WalkNode(const WalkPlace& place) {
    if (place.node->GetChildCount() > 0) StateSelectQuery::WalkNode(place);
}

// A star of its own has an item below the field, and is recorded unless a name stands there.
void MySQLStateSelectQuery::BuildField(const WalkPlace& place) {
    CQZSQLTree& node = *place.node;
    CQZSQLTree* named = ChildOf(node, KindOf(ChildOf(node, 0)) == K::TABLE_NAME ? 1 : 0);
    if (named == nullptr || named->GetText() != u"*") return StateSelectQuery::BuildField(place);
    ColumnParts parts = ReadColumn(node);
    auto& item = Append<SelectItemField>(*place.list);
    FillField(item, parts);
    Append(item.Children).Text = u"*";
    if (KindOf(named) != K::COLUMN_NAME) parts.column = u"*";
    Record(RecordOf(parts));
}
