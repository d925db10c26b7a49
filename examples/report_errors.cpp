// Runs the recognizers of MS Access by themselves, with error reports of the host's own.
//
//     report_errors "SELECT a FROM t WHERE"
//
// Prints each report with its place, and then whether the query was understood to its end.
#include <QZParserSQL/dialect/QZRecognizers.h>
#include <QZParserSQL/platform/CString.h>

#include <cstdint>
#include <iostream>
#include <memory>

namespace {

const QZGrammar& Grammar() { return QZGrammarMSAccessSQL_v3(); }

struct Deleter {
    void operator()(QZInputStream* input) const { QZCloseInput(input); }
    void operator()(QZTokenStream* tokens) const { QZFreeTokenStream(tokens); }
    void operator()(MSAccessSQL_v3Lexer_Ctx_struct* lexer) const { QZFreeLexer(Grammar(), lexer); }
    void operator()(MSAccessSQL_v3Parser_Ctx_struct* parser) const { QZFreeParser(Grammar(), parser); }
};

template <class Part>
using Owned = std::unique_ptr<Part, Deleter>;

/// The parts of one recognition. They go in the order that the library asks for: input, tokens, lexer, parser.
class Recognition {
 public:
    Recognition(const CString& sql, const QZReporter& reporter)
        : input_(
              antlr3NewUCS2StringInPlaceStream(sql.GetString(), static_cast<std::uint32_t>(sql.GetLength()), nullptr)),
          lexer_(MSAccessSQL_v3LexerNew(input_.get())),
          tokens_(QZNewTokenStream(lexer_.get())),
          parser_(MSAccessSQL_v3ParserNew(tokens_.get())) {
        QZSetLexerReporter(lexer_.get(), &reporter);
        QZSetParserReporter(parser_.get(), &reporter);
    }
    ~Recognition() {
        input_.reset();
        tokens_.reset();
        lexer_.reset();
    }
    Recognition(const Recognition&) = delete;
    Recognition& operator=(const Recognition&) = delete;

    const QZNode* Run() { return QZRunEntryRule(Grammar(), parser_.get()); }

 private:
    Owned<QZInputStream> input_;
    Owned<MSAccessSQL_v3Lexer_Ctx_struct> lexer_;
    Owned<QZTokenStream> tokens_;
    Owned<MSAccessSQL_v3Parser_Ctx_struct> parser_;
};

void Print(void* out, const QZReport& report) {
    *static_cast<std::ostream*>(out) << report.position.line << ':' << report.position.column << ": " << report.message
                                     << '\n';
}

// Of blanks that make no token no report is wanted.
bool IsBlank(void* /*context*/, std::u16string_view dropped) {
    return dropped.find_first_not_of(u" \t\r\n") == std::u16string_view::npos;
}

void PrintOutcome(const QZNode* root) {
    const QZNode* first = QZChildCount(root) > 1 ? QZChildAt(root, 1) : root;
    switch (QZKindOf(first)) {
        case QZNodeKind::EndOfText:
            std::cout << "understood to its end\n";
            break;
        case QZNodeKind::Token: {
            const auto token = QZTokenOf(first);
            std::cout << "understood up to " << token.position.line << ':' << token.position.column << '\n';
            break;
        }
        default:
            std::cout << "not understood\n";
    }
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "report_errors SQL\n";
        return 2;
    }
    const CString sql = CString::FromUtf8(argv[1]);
    const QZReporter reporter{Print, &std::cout, IsBlank};
    Recognition recognition(sql, reporter);
    PrintOutcome(recognition.Run());
    return 0;
}
