#include "QZParserSQL/MSSQLStateSelectQuery.h"

#include "QZParserSQL/dialect/QZRecognizers.h"

namespace {

using K = NodeKind;

const WalkerTraits& Traits() {
    static const NodeKinds kinds(QZGrammarMSSQL(),
                                 {{"SELECT_QUERY_", K::SELECT_QUERY}, {"UNION_KEYWORD_", K::UNION_KEYWORD}});
    static const WalkerTraits traits = {
        /*dbType=*/8,
        kinds,
        /*operators=*/OperatorsWith({K::COMMA, K::LITERAL_AS}),
        /*clauseFunctions=*/
        SetOf({K::FUNCTION, K::GROUP_FUNCTION, K::SEARCH_CONDITION, K::CONVERT_FUNCTION, K::USER_FUNCTION}),
        /*backticks=*/false,
        /*databaseNames=*/true,
        /*childStates=*/true,
        /*unionsKnowOuterNames=*/true,
        /*distinctRow=*/false,
        /*topIsLimit=*/true,
        /*joinSlot=*/nullptr,
        /*sortWord=*/WalkerTraits::SortWord::Below,
        /*wholeLiterals=*/true,
        /*wordsFromChildren=*/false,
        /*operandsBelowFirstChild=*/false,
    };
    return traits;
}

}  // namespace

MSSQLStateSelectQuery::MSSQLStateSelectQuery(CQZSQLTree* pTree) : StateSelectQuery(Traits(), pTree) {}

std::unique_ptr<StateSelectQuery> MSSQLStateSelectQuery::NewState(CQZSQLTree* pTree) const {
    return std::make_unique<MSSQLStateSelectQuery>(pTree);
}

// A column that stands where the function's name should be is an item of its own before the function.
void MSSQLStateSelectQuery::BuildFunction(const WalkPlace& place) {
    CQZSQLTree* first = ChildOf(*place.node, 0);
    if (KindOf(first) == K::COLUMN_SPECIFICATION) WalkNode({first, place.list, place.node});
    StateSelectQuery::BuildFunction(place);
}

// The function of an escape {fn ...} stands before the escape, and below it again.
CQZSQLTree* MSSQLStateSelectQuery::ArgumentsOf(CQZSQLTree& node, SelectItem& item, const WalkPlace& place) {
    if (item.FuncName.CompareNoCase(u"FN") != 0) return StateSelectQuery::ArgumentsOf(node, item, place);
    CQZSQLTree* escape = ChildOf(node, 0);
    if (CQZSQLTree* function = ChildOf(*escape, 0)) BuildFunction({function, place.list, escape});
    return escape;
}

// The words of NOT NULL arrive without the blank between them.
CString MSSQLStateSelectQuery::NumberText(CQZSQLTree& node) const {
    CString text = StateSelectQuery::NumberText(node);
    return text.CompareNoCase(u"notnull") == 0 ? CString(u"NOT NULL") : text;
}

// The record of a column behind an alias has the alias as its table.
CFieldObject MSSQLStateSelectQuery::RecordOf(const ColumnParts& parts) const {
    CFieldObject record = StateSelectQuery::RecordOf(parts);
    record.TableName = parts.table;
    return record;
}
