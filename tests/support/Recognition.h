// One text, recognized: its tokens, its tree and what was reported, for as long as the object lives.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "QZParserSQL/dialect/QZRecognizers.h"

class Recognition {
 public:
    explicit Recognition(std::u16string text, const QZGrammar& grammar = QZGrammarMSAccessSQL_v3());
    Recognition(const Recognition&) = delete;
    Recognition& operator=(const Recognition&) = delete;
    ~Recognition();

    const std::u16string& Text() const { return m_Text; }
    const QZGrammar& Grammar() const { return m_Grammar; }
    const QZNode* Root() const { return m_Root; }
    /// Hidden tokens included, the end of the text not.
    std::vector<QZToken> Tokens() const;
    /// Of lexer and parser, in the order in which they came, but none of white space that a lexer drops.
    const std::vector<QZReport>& Reports() const { return m_Reports; }
    /// Those of the parser alone.
    std::vector<QZReport> ParserReports() const;
    std::uint32_t LexerErrors() const { return QZLexerErrorCount(m_Lexer); }
    std::uint32_t ParserErrors() const { return QZParserErrorCount(m_Parser); }

 private:
    std::u16string m_Text;
    const QZGrammar& m_Grammar;
    std::vector<QZReport> m_Reports;
    QZReporter m_Reporter;
    QZInputStream* m_Input;
    void* m_Lexer;
    QZTokenStream* m_Tokens;
    void* m_Parser;
    const QZNode* m_Root;
};

/// A blank, a tab or half a line end.
bool IsWhiteSpace(std::u16string_view unit);

std::u16string FromUtf8(std::string_view text);
/// Lone surrogates become U+FFFD.
std::string ToUtf8(std::u16string_view text);
