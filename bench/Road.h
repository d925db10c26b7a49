// The whole road of one text through the recognizers, stage by stage, as a host without a facade goes it.
#pragma once

#include <array>
#include <memory>
#include <string>
#include <string_view>

#include "QZParserSQL/dialect/QZRecognizers.h"
#include "QZParserSQL/dialect/TreeView.h"

struct Dialect {
    const char* name;
    const QZGrammar& grammar;
    TreeView* (*newView)();
};

extern const std::array<Dialect, 4> kDialects;

class Road {
 public:
    /// The text must outlive the road.
    Road(const Dialect& dialect, std::u16string_view text);
    Road(const Road&) = delete;
    Road& operator=(const Road&) = delete;
    ~Road();

    /// Makes the input, the lexer and the token stream; the first of the stages, each of which needs the one before.
    void Open();
    /// Asks for all tokens. May be left out: then the parser does it.
    std::size_t Lex();
    /// Makes the parser too.
    const QZNode* Parse();
    /// Asks for all children, types and texts; gives the number of views.
    std::size_t Walk();
    void FreeViews() { m_pView.reset(); }

    /// Whether nothing was reported and nothing trails.
    bool IsClean() const;

 private:
    const Dialect& m_Dialect;
    std::u16string_view m_Text;
    QZInputStream* m_pInput = nullptr;
    void* m_pLexer = nullptr;
    QZTokenStream* m_pTokens = nullptr;
    void* m_pParser = nullptr;
    const QZNode* m_pRoot = nullptr;
    std::unique_ptr<TreeView> m_pView;
    int m_Reports = 0;
    QZReporter m_Reporter;
};
