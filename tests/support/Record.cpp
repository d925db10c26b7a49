#include "tests/support/Record.h"

#include "QZParserSQL/platform/Console.h"
#include "tests/support/Outline.h"
#include "tests/support/Recognition.h"

namespace {

std::string PlaceOf(const QZPosition& position) {
    return std::to_string(position.line) + ":" + std::to_string(position.column) + "+" +
           std::to_string(position.offset);
}

std::string Shown(const QZToken& token) {
    return std::to_string(token.type) + (token.hidden ? " hidden " : " ") + PlaceOf(token.position) + " " +
           ToUtf8(token.text) + "\n";
}

std::string Shown(const QZReport& report) {
    return std::to_string(static_cast<int>(report.phase)) + " " + std::to_string(static_cast<int>(report.kind)) + " " +
           PlaceOf(report.position) + " " + report.message + "\n";
}

class Record {
 public:
    Record(const QZGrammar& grammar, const std::u16string& text, bool reported)
        : m_Grammar(grammar),
          m_Reporter{[](void* self, const QZReport& report) { static_cast<Record*>(self)->m_Made += Shown(report); },
                     this} {
        auto* input = antlr3NewUCS2StringInPlaceStream(text.data(), static_cast<std::uint32_t>(text.size()), nullptr);
        void* lexer = QZNewLexer(grammar, input);
        QZTokenStream* tokens = QZNewTokenStream(lexer);
        void* parser = QZNewParser(grammar, tokens);
        if (reported) {
            QZSetLexerReporter(lexer, &m_Reporter);
            QZSetParserReporter(parser, &m_Reporter);
        }
        AddTree(QZRunEntryRule(grammar, parser));
        for (std::size_t i = 0; i < QZTokenCount(tokens); ++i) m_Made += Shown(QZTokenAt(tokens, i));
        m_Made += std::to_string(QZLexerErrorCount(lexer)) + " " + std::to_string(QZParserErrorCount(parser)) + "\n";
        QZCloseInput(input);
        QZFreeTokenStream(tokens);
        QZFreeLexer(grammar, lexer);
        QZFreeParser(grammar, parser);
    }
    Record(const Record&) = delete;
    Record& operator=(const Record&) = delete;

    std::string& Made() { return m_Made; }

 private:
    void AddTree(const QZNode* root) {
        for (const TreeLine& line : TreeLines(root)) {
            const QZToken token = QZTokenOf(line.node);
            m_Made += std::to_string(line.depth) + " " + NodeLabel(m_Grammar, line.node) + " " +
                      std::to_string(QZTypeOf(line.node)) + " " + PlaceOf(token.position) + "\n";
        }
    }

    const QZGrammar& m_Grammar;
    const QZReporter m_Reporter;
    std::string m_Made;
};

}  // namespace

const QZGrammar* GrammarOf(std::string_view name) {
    for (const QZGrammar* grammar : {&QZGrammarMSAccessSQL_v3(), &QZGrammarMSSQL(), &QZGrammarMSSQLfrom(),
                                     &QZGrammarMySQLSelect(), &QZGrammarOracle()}) {
        if (QZGrammarName(*grammar) == name) return grammar;
    }
    return nullptr;
}

std::string RecordOf(const QZGrammar& grammar, const std::u16string& text) {
    std::string made = Record(grammar, text, true).Made();
    std::string console;
    QZSetErrorSink([](void* lines, std::string_view line) { *static_cast<std::string*>(lines) += line; }, &console);
    made += Record(grammar, text, false).Made();
    QZSetErrorSink(nullptr, nullptr);
    return made + console;
}
