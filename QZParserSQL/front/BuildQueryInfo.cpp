#include "QZParserSQL/front/BuildQueryInfo.h"

#include <memory>
#include <new>

#include "QZParserSQL/MSAccess_v3/CQZMSAccessSQL_v3Parcer.h"
#include "QZParserSQL/MSAccess_v3/MSAccessSQL_v3StateSelectQuery.h"
#include "QZParserSQL/dialect/Reports.h"
#include "QZParserSQL/front/QueryText.h"
#include "QZParserSQL/model/CQZQueryInfo.h"

namespace {

// What is thrown ends the walk; the query keeps what it has. Returns whether the model is whole, throws std::bad_alloc.
bool WalkTree(CQZSQLTree& root, CQZQueryInfo& query) try {
    MSAccessSQL_v3StateSelectQuery state(&root);
    CQZSQLTree* select = state.SelectAtOrBelow(&root);
    if (select == nullptr) return true;
    state.SetTree(select);
    state.m_pQuery = &query;
    state.Build();
    return !state.IsCut();
} catch (const std::bad_alloc&) {
    throw;
} catch (...) {
    return true;
}

// Even an empty text has more of a tree than a parse without memory.
bool IsEmptyView(CQZSQLTree& root) { return root.GetChildCount() == 0 && root.GetText() == u" "; }

// The view goes before the text, and the text before the parser.
bool BuildAccess(CQZQueryInfo& query, const QZReporter* reporter) try {
    [[maybe_unused]] int hh = 0;
    if (query.GetName().CompareNoCase(u"qryMailAll") == 0) hh = 10;  // a place to stop at, for who debugs

    CQZMSAccessSQL_v3Parcer AccessSQLParser;
    CString str = qz::RewriteBracketedPairs(query.GetSQL());
    AccessSQLParser.SetReporter(reporter);
    AccessSQLParser.SetSQL(str);
    AccessSQLParser.ParseSQL();
    CQZSQLTree* root = nullptr;
    AccessSQLParser.GetSQLTree(&root);
    const std::unique_ptr<CQZSQLTree> m_RootAccessSQLTree(root);
    if (root == nullptr) throw std::bad_alloc();
    return !IsEmptyView(*root) && WalkTree(*root, query);
} catch (const std::bad_alloc&) {
    qz::SendOutOfMemory(reporter, QZPhase::Build, {});
    return false;
}

}  // namespace

bool QZBuildQuery(CQZQueryInfo* pQuery, DBTypes eType, const QZReporter* pReporter) {
    return eType != kDbMSAccess || BuildAccess(*pQuery, pReporter);
}

void BuildQueryInfo(CQZQueryInfo* pQuery, DBTypes eType) { QZBuildQuery(pQuery, eType, nullptr); }

CString QZBuildText(const CQZQueryInfo& query, DBTypes eType) {
    return eType == kDbMSAccess ? qz::WithPairsRewritten(query.GetSQL()) : query.GetSQL();
}
