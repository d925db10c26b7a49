#include "tests/support/Recognition.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "QZParserSQL/platform/CString.h"

namespace {

void Keep(void* reports, const QZReport& report) { static_cast<std::vector<QZReport>*>(reports)->push_back(report); }

}  // namespace

Recognition::Recognition(std::u16string text, const QZGrammar& grammar)
    : m_Text(std::move(text)),
      m_Grammar(grammar),
      m_Reporter{Keep, &m_Reports, [](void*, std::u16string_view dropped) { return IsWhiteSpace(dropped); }},
      m_Input(antlr3NewUCS2StringInPlaceStream(m_Text.data(), static_cast<std::uint32_t>(m_Text.size()), nullptr)),
      m_Lexer(QZNewLexer(grammar, m_Input)),
      m_Tokens(QZNewTokenStream(m_Lexer)),
      m_Parser(QZNewParser(grammar, m_Tokens)) {
    QZSetLexerReporter(m_Lexer, &m_Reporter);
    QZSetParserReporter(m_Parser, &m_Reporter);
    m_Root = QZRunEntryRule(grammar, m_Parser);
}

Recognition::~Recognition() {
    QZCloseInput(m_Input);
    QZFreeTokenStream(m_Tokens);
    QZFreeLexer(m_Grammar, m_Lexer);
    QZFreeParser(m_Grammar, m_Parser);
}

std::vector<QZToken> Recognition::Tokens() const {
    std::vector<QZToken> tokens(QZTokenCount(m_Tokens));
    for (std::size_t i = 0; i < tokens.size(); ++i) tokens[i] = QZTokenAt(m_Tokens, i);
    return tokens;
}

std::vector<QZReport> Recognition::ParserReports() const {
    std::vector<QZReport> reports;
    std::copy_if(m_Reports.begin(), m_Reports.end(), std::back_inserter(reports),
                 [](const QZReport& report) { return report.phase == QZPhase::Parser; });
    return reports;
}

bool IsWhiteSpace(std::u16string_view unit) {
    return unit.size() == 1 && std::u16string_view(u" \t\r\n").find(unit) != std::u16string_view::npos;
}

std::u16string FromUtf8(std::string_view text) { return std::u16string(CString::FromUtf8(text).View()); }

std::string ToUtf8(std::u16string_view text) { return CString(text).ToUtf8(); }
