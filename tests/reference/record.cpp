// What the recognizers make of texts, one line a text, for two builds to be compared byte by byte:
//
//     record GRAMMAR [full] < texts, each ended by NUL
//
// A line is the text's number and a digest of its tokens, its tree, its reports and its counts of errors; with `full`
// these themselves follow. Each text is recognized twice: with the reports taken by a reporter, and by the console.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <string>
#include <string_view>

#include "QZParserSQL/dialect/QZRecognizers.h"
#include "QZParserSQL/platform/Console.h"
#include "tests/support/Outline.h"
#include "tests/support/Recognition.h"

namespace {

const QZGrammar* GrammarOf(std::string_view name) {
    for (const QZGrammar* grammar : {&QZGrammarMSAccessSQL_v3(), &QZGrammarMSSQL(), &QZGrammarMSSQLfrom(),
                                     &QZGrammarMySQLSelect(), &QZGrammarOracle()}) {
        if (QZGrammarName(*grammar) == name) return grammar;
    }
    return nullptr;
}

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

// FNV-1a, 64 bits.
std::uint64_t Digest(std::string_view made) {
    std::uint64_t digest = 0xCBF29CE484222325U;
    for (const char character : made) digest = (digest ^ static_cast<unsigned char>(character)) * 0x100000001B3U;
    return digest;
}

std::string AllOf(const QZGrammar& grammar, const std::u16string& text) {
    std::string made = Record(grammar, text, true).Made();
    std::string console;
    QZSetErrorSink([](void* lines, std::string_view line) { *static_cast<std::string*>(lines) += line; }, &console);
    made += Record(grammar, text, false).Made();
    QZSetErrorSink(nullptr, nullptr);
    return made + console;
}

}  // namespace

int main(int count, char** arguments) {
    const QZGrammar* grammar = count > 1 ? GrammarOf(arguments[1]) : nullptr;
    if (grammar == nullptr) {
        std::cerr << "record GRAMMAR [full] < texts\n";
        return 2;
    }
    const bool full = count > 2 && std::strcmp(arguments[2], "full") == 0;
    std::string text;
    for (int number = 0; std::getline(std::cin, text, '\0'); ++number) {
        const std::string made = AllOf(*grammar, FromUtf8(text));
        std::printf("%d %016llx\n", number, static_cast<unsigned long long>(Digest(made)));
        if (full) std::printf("%s\n%s", text.c_str(), made.c_str());
    }
    return 0;
}
