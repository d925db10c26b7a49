#include "QZParserSQL/Grammar/CQZMySQLParcer.h"

#include <new>

#include "QZParserSQL/Grammar/CQZMySQLTree.h"
#include "QZParserSQL/dialect/ParserPipeline.h"

extern "C" const QZGrammar qzGrammarMySQLSelect;

const QZGrammar& QZGrammarMySQLSelect() { return qzGrammarMySQLSelect; }

class CQZMySQLParcerImp final : public ParserPipeline {
 public:
    CQZMySQLParcerImp() : ParserPipeline(QZGrammarMySQLSelect(), CQZMySQLTree::New) {}
};

CQZMySQLParcer::CQZMySQLParcer() : m_pImp(new (std::nothrow) CQZMySQLParcerImp) {}
CQZMySQLParcer::~CQZMySQLParcer() = default;

void CQZMySQLParcer::ParseSQL() {
    if (m_pImp) m_pImp->ParseSQL();
}

void CQZMySQLParcer::SetSQL(CString& strSQL) {
    if (m_pImp) m_pImp->SetSQL(strSQL);
}

void CQZMySQLParcer::SetReporter(const QZReporter* pReporter) {
    if (m_pImp) m_pImp->SetReporter(pReporter);
}

void CQZMySQLParcer::GetSQLTree(CQZSQLTree** ppTree) {
    *ppTree = nullptr;
    if (m_pImp) m_pImp->GetSQLTree(ppTree);
}
