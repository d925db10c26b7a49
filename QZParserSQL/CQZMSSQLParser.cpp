#include "QZParserSQL/CQZMSSQLParser.h"

#include <new>

#include "QZParserSQL/CQZMSSQLTree.h"
#include "QZParserSQL/dialect/ParserPipeline.h"

extern "C" const QZGrammar qzGrammarMSSQL;
extern "C" const QZGrammar qzGrammarMSSQLfrom;

const QZGrammar& QZGrammarMSSQL() { return qzGrammarMSSQL; }
const QZGrammar& QZGrammarMSSQLfrom() { return qzGrammarMSSQLfrom; }

class CQZMSSQLParserImp final : public ParserPipeline {
 public:
    CQZMSSQLParserImp() : ParserPipeline(QZGrammarMSSQL(), CQZMSSQLTree::New) {}

    void GetSQLFromTree(CQZSQLTree** ppTree) { *ppTree = ViewOf(m_FromResult); }

 private:
    const QZNode* m_FromResult = nullptr;
};

CQZMSSQLParser::CQZMSSQLParser() : m_pImp(new (std::nothrow) CQZMSSQLParserImp) {}
CQZMSSQLParser::~CQZMSSQLParser() = default;

void CQZMSSQLParser::ParseSQL() {
    if (m_pImp) m_pImp->ParseSQL();
}

void CQZMSSQLParser::SetSQL(CString& strSQL) {
    if (m_pImp) m_pImp->SetSQL(strSQL);
}

void CQZMSSQLParser::SetReporter(const QZReporter* pReporter) {
    if (m_pImp) m_pImp->SetReporter(pReporter);
}

void CQZMSSQLParser::GetSQLTree(CQZSQLTree** ppTree) {
    *ppTree = nullptr;
    if (m_pImp) m_pImp->GetSQLTree(ppTree);
}

void CQZMSSQLParser::GetSQLFromTree(CQZSQLTree** ppTree) {
    *ppTree = nullptr;
    if (m_pImp) m_pImp->GetSQLFromTree(ppTree);
}
