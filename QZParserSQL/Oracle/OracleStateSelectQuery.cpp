#include "QZParserSQL/Oracle/OracleStateSelectQuery.h"

#include "QZParserSQL/dialect/QZRecognizers.h"

namespace {

using K = NodeKind;

const CString kTable = u"_TABLE";
const CString kField = u"_FIELD";

const WalkerTraits& Traits() {
    static const NodeKinds kinds(QZGrammarOracle(),
                                 {{"SELECT_QUERY_OR", K::SELECT_QUERY}, {"UNION_KEYWORD_", K::UNION_KEYWORD}});
    static const WalkerTraits traits = {
        /*dbType=*/16,
        kinds,
        /*operators=*/OperatorsWith({K::COMMA, K::FROM_KEYWORD, K::LITERAL_AS}),
        /*clauseFunctions=*/
        SetOf({K::FUNCTION, K::GROUP_FUNCTION, K::SEARCH_CONDITION, K::CONVERT_FUNCTION, K::USER_FUNCTION}),
        /*backticks=*/false,
        /*databaseNames=*/true,
        /*childStates=*/true,
        /*unionsKnowOuterNames=*/true,
        /*distinctRow=*/false,
        /*topIsLimit=*/true,
        /*joinSlot=*/&SelectItem::Text,
        /*sortWord=*/WalkerTraits::SortWord::Below,
        /*wholeLiterals=*/true,
        /*wordsFromChildren=*/false,
        /*operandsBelowFirstChild=*/false,
    };
    return traits;
}

}  // namespace

OracleStateSelectQuery::OracleStateSelectQuery(CQZSQLTree* pTree) : StateSelectQuery(Traits(), pTree) {}

std::unique_ptr<StateSelectQuery> OracleStateSelectQuery::NewState(CQZSQLTree* pTree) const {
    return std::make_unique<OracleStateSelectQuery>(pTree);
}

// Two bars beside a condition are an operator. As a concatenation they are walked through their first child. Where no
// condition stands beside the last bars of a chain, one beside those before them tells: (a = 1) || (b = 2) || c
bool OracleStateSelectQuery::IsOperatorNode(CQZSQLTree& node) const {
    if (KindOf(&node) != K::OR_KEYWORD2) return StateSelectQuery::IsOperatorNode(node);
    CQZSQLTree* left = ChildOf(node, 0);
    return HasCondition(node) || (KindOf(left) == K::OR_KEYWORD2 && HasCondition(*left));
}

bool OracleStateSelectQuery::HasCondition(CQZSQLTree& node) const {
    static const NodeKindSet kConditions = SetOf(
        {K::SEARCH_CONDITION, K::NOT_CONDITION, K::BETWEEN_KEYWORD, K::AND_KEYWORD, K::AND_KEYWORD2, K::OR_KEYWORD});
    for (std::uint32_t index = 0; index < node.GetChildCount(); ++index)
        if (Has(kConditions, KindOf(node.GetChild(index)))) return true;
    return false;
}

// --------------------------------------------------------------------------------------------------------- aliases

CQZAliasInfo* OracleStateSelectQuery::FindAlias(const CString& strName, const CString& strSuffix) const {
    CQZAliasInfo* alias = nullptr;
    m_pQuery->m_mapAliases.Lookup((strName + strSuffix).MakeLower(), alias);
    return alias;
}

bool OracleStateSelectQuery::IsAliasKey(const CString& strName, const CString& strSuffix) const {
    return FindAlias(strName, {}) != nullptr || FindAlias(strName, strSuffix) != nullptr;
}

CString OracleStateSelectQuery::AliasRealTable(const CString& strName) const {
    const CQZAliasInfo* other = FindAlias(strName, {});
    const CQZAliasInfo* table = FindAlias(strName, kTable);
    if (other != nullptr && table != nullptr) {
        for (const auto& [key, alias] : m_pQuery->m_mapAliases) {
            if (alias == other) return {};
            if (alias == table) break;
        }
    }
    if (table != nullptr) return table->GetAliasTable();
    return other != nullptr ? CString() : strName;
}

CString OracleStateSelectQuery::AliasRealField(const CString& strName) const {
    const CQZAliasInfo* field = FindAlias(strName, kField);
    return field != nullptr ? field->GetAliasField() : strName;
}

bool OracleStateSelectQuery::IsAlias(const CString& strName, NameOf use) const {
    return IsAliasKey(strName, use == NameOf::Table ? kTable : kField);
}

CString OracleStateSelectQuery::AliasKey(CQZSQLTree& node, const CString& strName) const {
    const NodeKind kind = KindOf(ChildOf(node, 0));
    CString key = strName;
    if (kind == K::TABLE_SPECIFICATION) key += kTable;
    if (kind == K::COLUMN_SPECIFICATION) key += kField;
    return key.MakeLower();
}

void OracleStateSelectQuery::NameOrigin(CQZSQLTree& node, CQZAliasInfo& alias) const {
    CQZSQLTree& named = *node.GetChild(0);
    const NodeKind kind = KindOf(&named);
    std::uint32_t index = KindOf(ChildOf(named, 0)) == K::DB_NAME ? 1 : 0;
    const bool table = KindOf(ChildOf(named, index)) == K::TABLE_NAME;
    if (kind == K::TABLE_SPECIFICATION && table) alias.SetAliasTable(GetNodeText(*named.GetChild(index)));
    if (kind != K::COLUMN_SPECIFICATION) return;
    if (table) ++index;
    if (KindOf(ChildOf(named, index)) == K::COLUMN_NAME) alias.SetAliasField(GetNodeText(*named.GetChild(index)));
}

// ------------------------------------------------------------------------------------------------------- own steps

// A constant that stands in a clause by itself is kept in the select list only.
void OracleStateSelectQuery::AddConstant(const WalkPlace& place) {
    if (m_nClause == Clause::Select) StateSelectQuery::AddConstant(place);
}

void OracleStateSelectQuery::AddOtherClauseItem(const WalkPlace& place) {
    if (place.node->GetText().CompareNoCase(u"Tree Error Node") == 0) return;
    StateSelectQuery::AddOtherClauseItem(place);
}

CString OracleStateSelectQuery::NewNameText(CQZSQLTree& node) const {
    CQZSQLTree* name = ChildOf(node, 0);
    return name == nullptr ? CString() : name->GetText().TrimLeft();
}

// The scan records what aliases stand for.
CFieldObject OracleStateSelectQuery::ScannedRecordOf(const ColumnParts& parts) const {
    CFieldObject record;
    if (parts.hasTable) record.TableName = AliasRealTable(parts.table);
    record.FieldName = parts.columnIsAlias ? AliasRealField(parts.column) : parts.column;
    return record;
}
