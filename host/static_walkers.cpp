#include "host/static_walkers.h"

#include <memory>
#include <new>

#include "QZParserSQL/CQZMSSQLParser.h"
#include "QZParserSQL/Grammar/CQZMySQLParcer.h"
#include "QZParserSQL/Grammar/MySQLStateSelectQuery.h"
#include "QZParserSQL/MSSQLStateSelectQuery.h"
#include "QZParserSQL/Oracle/CQZOracleParser.h"
#include "QZParserSQL/Oracle/OracleStateSelectQuery.h"

namespace qzsql {

namespace {

/// The view goes before the text, and the text before the parser.
template <class Parser, class State>
bool Build(CQZQueryInfo& query, const QZReporter* reporter) {
    Parser parser;
    CString text = query.GetSQL();
    parser.SetReporter(reporter);
    parser.SetSQL(text);
    parser.ParseSQL();
    CQZSQLTree* root = nullptr;
    parser.GetSQLTree(&root);
    const std::unique_ptr<CQZSQLTree> owner(root);
    if (root == nullptr) throw std::bad_alloc();
    State state(root);
    CQZSQLTree* select = state.SelectAtOrBelow(root);
    if (select == nullptr) return true;
    state.SetTree(select);
    state.m_pQuery = &query;
    state.Build();
    return !state.IsCut();
}

}  // namespace

StaticWalker FindStaticWalker(DBTypes kind) {
    switch (kind) {
        case kDbMSSQL:
            return Build<CQZMSSQLParser, MSSQLStateSelectQuery>;
        case kDbMySQL:
            return Build<CQZMySQLParcer, MySQLStateSelectQuery>;
        case kDbOracle:
            return Build<CQZOracleParser, OracleStateSelectQuery>;
        default:
            return nullptr;
    }
}

}  // namespace qzsql
