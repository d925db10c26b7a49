#include "bench/Road.h"

#include <vector>

#include "QZParserSQL/CQZMSSQLTree.h"
#include "QZParserSQL/Grammar/CQZMySQLTree.h"
#include "QZParserSQL/MSAccess_v3/CQZMSAccessSQL_v3Tree.h"
#include "QZParserSQL/Oracle/CQZOracleTree.h"

const std::array<Dialect, 4> kDialects = {{
    {"access", QZGrammarMSAccessSQL_v3(), CQZMSAccessSQL_v3Tree::New},
    {"mssql", QZGrammarMSSQL(), CQZMSSQLTree::New},
    {"mysql", QZGrammarMySQLSelect(), CQZMySQLTree::New},
    {"oracle", QZGrammarOracle(), CQZOracleTree::New},
}};

namespace {

// White space begins no token where a dialect's lexer drops it.
bool IsWhiteSpace(void*, std::u16string_view dropped) {
    return dropped.size() == 1 && std::u16string_view(u" \t\r\n").find(dropped[0]) != std::u16string_view::npos;
}

}  // namespace

Road::Road(const Dialect& dialect, std::u16string_view text)
    : m_Dialect(dialect),
      m_Text(text),
      m_Reporter{[](void* reports, const QZReport&) { ++*static_cast<int*>(reports); }, &m_Reports, IsWhiteSpace} {}

Road::~Road() {
    m_pView.reset();
    QZCloseInput(m_pInput);
    QZFreeTokenStream(m_pTokens);
    QZFreeLexer(m_Dialect.grammar, m_pLexer);
    QZFreeParser(m_Dialect.grammar, m_pParser);
}

void Road::Open() {
    m_pInput = antlr3NewUCS2StringInPlaceStream(m_Text.data(), static_cast<std::uint32_t>(m_Text.size()), nullptr);
    m_pLexer = QZNewLexer(m_Dialect.grammar, m_pInput);
    m_pTokens = QZNewTokenStream(m_pLexer);
    QZSetLexerReporter(m_pLexer, &m_Reporter);
}

std::size_t Road::Lex() { return QZTokenCount(m_pTokens); }

const QZNode* Road::Parse() {
    m_pParser = QZNewParser(m_Dialect.grammar, m_pTokens);
    QZSetParserReporter(m_pParser, &m_Reporter);
    return m_pRoot = QZRunEntryRule(m_Dialect.grammar, m_pParser);
}

std::size_t Road::Walk() {
    m_pView.reset(m_Dialect.newView());
    m_pView->SetNode(m_pRoot);
    std::size_t count = 0;
    std::vector<CQZSQLTree*> waiting{m_pView.get()};
    for (; !waiting.empty(); ++count) {
        CQZSQLTree* view = waiting.back();
        waiting.pop_back();
        const volatile auto seen = view->GetType() + static_cast<std::uint32_t>(view->GetText().GetLength());
        static_cast<void>(seen);
        for (auto i = view->GetChildCount(); i > 0; --i) waiting.push_back(view->GetChild(i - 1));
    }
    return count;
}

bool Road::IsClean() const { return m_Reports == 0 && QZChildCount(m_pRoot) == 2; }
