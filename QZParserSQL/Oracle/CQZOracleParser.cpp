#include "QZParserSQL/Oracle/CQZOracleParser.h"

#include <new>

#include "QZParserSQL/Oracle/CQZOracleTree.h"
#include "QZParserSQL/dialect/ParserPipeline.h"

extern "C" const QZGrammar qzGrammarOracle;

const QZGrammar& QZGrammarOracle() { return qzGrammarOracle; }

class CQZOracleParserImp final : public ParserPipeline {
 public:
    CQZOracleParserImp() : ParserPipeline(QZGrammarOracle(), CQZOracleTree::New) {}
};

CQZOracleParser::CQZOracleParser() : m_pImp(new (std::nothrow) CQZOracleParserImp) {}
CQZOracleParser::~CQZOracleParser() = default;

void CQZOracleParser::ParseSQL() {
    if (m_pImp) m_pImp->ParseSQL();
}

void CQZOracleParser::SetSQL(CString& strSQL) {
    if (m_pImp) m_pImp->SetSQL(strSQL);
}

void CQZOracleParser::SetReporter(const QZReporter* pReporter) {
    if (m_pImp) m_pImp->SetReporter(pReporter);
}

void CQZOracleParser::GetSQLTree(CQZSQLTree** ppTree) {
    *ppTree = nullptr;
    if (m_pImp) m_pImp->GetSQLTree(ppTree);
}
