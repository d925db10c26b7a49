#include "QZParserSQL/dialect/ParserPipeline.h"

#include "QZParserSQL/dialect/Reports.h"

ParserPipeline::ParserPipeline(const QZGrammar& grammar, NewView newView) : m_Grammar(grammar), m_NewView(newView) {}

// The input goes first and the parser, with all nodes of the tree, last.
ParserPipeline::~ParserPipeline() {
    QZCloseInput(m_pInput);
    FreeRecognizers();
    for (const Recognizers& earlier : m_Earlier) {
        QZFreeTokenStream(earlier.tokens);
        QZFreeLexer(m_Grammar, earlier.lexer);
        QZFreeParser(m_Grammar, earlier.parser);
    }
}

void ParserPipeline::FreeRecognizers() {
    QZFreeTokenStream(m_pTokenStream);
    QZFreeLexer(m_Grammar, m_pLexer);
    QZFreeParser(m_Grammar, m_pParser);
    m_pTokenStream = nullptr;
    m_pLexer = m_pParser = nullptr;
}

void ParserPipeline::SetSQL(CString& strSQL) {
    QZCloseInput(m_pInput);
    m_bHasText = true;
    m_pInput =
        antlr3NewUCS2StringInPlaceStream(strSQL.GetString(), static_cast<std::uint32_t>(strSQL.GetLength()), nullptr);
}

void ParserPipeline::ParseSQL() {
    if (!m_bHasText) return;
    if (m_pParser != nullptr) m_Earlier.push_back({m_pTokenStream, m_pLexer, m_pParser});
    m_pTokenStream = nullptr;
    m_pLexer = m_pParser = nullptr;
    m_Result = nullptr;
    if (m_pInput != nullptr) m_pLexer = QZNewLexer(m_Grammar, m_pInput);
    if (m_pLexer != nullptr) m_pTokenStream = QZNewTokenStream(m_pLexer);
    if (m_pTokenStream != nullptr) m_pParser = QZNewParser(m_Grammar, m_pTokenStream);
    if (m_pParser == nullptr) {
        FreeRecognizers();
        return qz::SendOutOfMemory(m_pReporter, QZPhase::Parser, {});
    }
    QZSetLexerReporter(m_pLexer, m_pReporter);
    QZSetParserReporter(m_pParser, m_pReporter);
    m_Result = QZRunEntryRule(m_Grammar, m_pParser);
}

void ParserPipeline::GetSQLTree(CQZSQLTree** ppTree) { *ppTree = ViewOf(m_Result); }

CQZSQLTree* ParserPipeline::ViewOf(const QZNode* root) const {
    TreeView* view = m_NewView();
    view->SetNode(root);
    return view;
}
