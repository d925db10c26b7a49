#include "QZParserSQL/MSAccess_v3/CQZMSAccessSQL_v3Parcer.h"

#include <new>

#include "QZParserSQL/MSAccess_v3/CQZMSAccessSQL_v3Tree.h"
#include "QZParserSQL/dialect/ParserPipeline.h"

extern "C" const QZGrammar qzGrammarMSAccessSQL_v3;

const QZGrammar& QZGrammarMSAccessSQL_v3() { return qzGrammarMSAccessSQL_v3; }

class CQZMSAccessSQL_v3ParcerImp final : public ParserPipeline {
 public:
    CQZMSAccessSQL_v3ParcerImp() : ParserPipeline(QZGrammarMSAccessSQL_v3(), CQZMSAccessSQL_v3Tree::New) {}
};

CQZMSAccessSQL_v3Parcer::CQZMSAccessSQL_v3Parcer() : m_pImp(new (std::nothrow) CQZMSAccessSQL_v3ParcerImp) {}
CQZMSAccessSQL_v3Parcer::~CQZMSAccessSQL_v3Parcer() = default;

void CQZMSAccessSQL_v3Parcer::ParseSQL() {
    if (m_pImp) m_pImp->ParseSQL();
}

void CQZMSAccessSQL_v3Parcer::SetSQL(CString& strSQL) {
    if (m_pImp) m_pImp->SetSQL(strSQL);
}

void CQZMSAccessSQL_v3Parcer::SetReporter(const QZReporter* pReporter) {
    if (m_pImp) m_pImp->SetReporter(pReporter);
}

void CQZMSAccessSQL_v3Parcer::GetSQLTree(CQZSQLTree** ppTree) {
    *ppTree = nullptr;
    if (m_pImp) m_pImp->GetSQLTree(ppTree);
}
