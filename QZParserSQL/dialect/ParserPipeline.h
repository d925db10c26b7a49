// The one pipeline behind the four dialects' facades: text, input stream, lexer, token stream, parser, tree, view.
// It never looks at the text or the tree; it runs the recognizers and keeps their objects alive.
#pragma once

#include <vector>

#include "QZParserSQL/dialect/QZRecognizers.h"
#include "QZParserSQL/dialect/TreeView.h"
#include "QZParserSQL/front/CQZSQLParser.h"

class ParserPipeline : public CQZSQLParser {
 public:
    using NewView = TreeView* (*)();

    ParserPipeline(const QZGrammar& grammar, NewView newView);
    ~ParserPipeline() override;

    /// Parses the text set last; without one, nothing. Each call makes new recognizers over the same input, which a
    /// parse has read to its end.
    void ParseSQL() override;
    /// The text is read in place and must stay alive and unchanged for as long as the tree is used.
    virtual void SetSQL(CString& strSQL);
    /// Writes a new view of the last tree, which the caller owns.
    virtual void GetSQLTree(CQZSQLTree** ppTree);
    /// Where the reports of the parses from here on go, see QZSetParserReporter.
    void SetReporter(const QZReporter* pReporter) { m_pReporter = pReporter; }

 protected:
    CQZSQLTree* ViewOf(const QZNode* root) const;

 private:
    void FreeRecognizers();

    bool m_bHasText = false;
    QZInputStream* m_pInput = nullptr;  // null, too, where memory has failed
    const QZNode* m_Result = nullptr;
    const QZReporter* m_pReporter = nullptr;
    QZTokenStream* m_pTokenStream = nullptr;
    void* m_pLexer = nullptr;
    void* m_pParser = nullptr;

    const QZGrammar& m_Grammar;
    NewView m_NewView;
    struct Recognizers {
        QZTokenStream* tokens;
        void* lexer;
        void* parser;
    };
    std::vector<Recognizers> m_Earlier;  // what earlier parses made: their trees stay usable
};
