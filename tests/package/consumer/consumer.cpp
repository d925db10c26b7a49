// A host that knows installed headers only: one query of each dialect, and a model.
#include <QZParserSQL/CQZMSSQLParser.h>
#include <QZParserSQL/Grammar/CQZMySQLParcer.h>
#include <QZParserSQL/MSAccess_v3/CQZMSAccessSQL_v3Parcer.h>
#include <QZParserSQL/MSSQLfromTokens.h>
#include <QZParserSQL/Oracle/CQZOracleParser.h>
#include <QZParserSQL/dialect/QZRecognizers.h>
#include <QZParserSQL/front/BuildQueryInfo.h>
#include <QZParserSQL/model/CQZQueryInfo.h>
#include <QZParserSQL/platform/Console.h>

#include <iostream>
#include <memory>
#include <string_view>

namespace {

template <class Parser>
void ShowRoot() {
    CString sql(u"SELECT(a)");
    Parser parser;
    parser.SetSQL(sql);
    parser.ParseSQL();
    CQZSQLTree* view = nullptr;
    parser.GetSQLTree(&view);
    const std::unique_ptr<CQZSQLTree> root(view);
    std::cout << root->GetChild(0)->GetText().ToUtf8() << '\n';
}

}  // namespace

int main() {
    ShowRoot<CQZMSAccessSQL_v3Parcer>();
    ShowRoot<CQZMSSQLParser>();
    ShowRoot<CQZMySQLParcer>();
    ShowRoot<CQZOracleParser>();
    std::cout << QZTokenName(QZGrammarMSSQLfrom(), MSSQLfrom::JOIN_KEYWORD_) << '\n';

    QZSetConsoleSink([](void*, std::string_view) {}, nullptr);
    CQZQueryInfo query;
    query.SetSQL(u"SELECT a, b FROM t");
    BuildQueryInfo(&query, kDbMSAccess);
    std::cout << query.m_listSelect.GetCount() << '\n';
    return 0;
}
