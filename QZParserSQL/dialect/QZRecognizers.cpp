// The host's side of the recognizers. Every generated context begins with the pointer to its lexer or parser.
#include "QZParserSQL/dialect/QZRecognizers.h"

#include <fmt/format.h>

#include "QZParserSQL/dialect/GrammarTable.h"
#include "QZParserSQL/dialect/Memory.h"
#include "QZParserSQL/dialect/Reports.h"
#include "QZParserSQL/dialect/Token.h"
#include "QZParserSQL/dialect/TreeView.h"
#include "QZParserSQL/dialect/recognizer.h"
#include "QZParserSQL/platform/Console.h"
#include "QZParserSQL/platform/Headroom.h"

namespace {

pANTLR3_LEXER LexerOf(const void* lexer) { return *static_cast<pANTLR3_LEXER const*>(lexer); }
pANTLR3_PARSER ParserOf(const void* parser) { return *static_cast<pANTLR3_PARSER const*>(parser); }

const ANTLR3_COMMON_TOKEN* PayloadOf(const QZNode* node) {
    return static_cast<const ANTLR3_COMMON_TREE*>(node->super)->token;
}

// Start and stop are addresses in the query, stop being the last byte of the last unit.
std::u16string_view UnitsOf(const ANTLR3_COMMON_TOKEN& token) {
    return {reinterpret_cast<const char16_t*>(token.start), (token.stop + 1 - token.start) / sizeof(char16_t)};
}

std::u16string Widened(const char* ascii) { return {ascii, ascii + std::char_traits<char>::length(ascii)}; }

}  // namespace

namespace qz {

QZToken Describe(const ANTLR3_COMMON_TOKEN& token) {
    QZToken described;
    described.type = token.type;
    described.hidden = token.channel == HIDDEN;
    described.position.line = token.line;
    described.position.column = static_cast<std::uint32_t>(token.charPosition) + 1;
    if (token.input == nullptr) return described;
    if (token.type == ANTLR3_TOKEN_EOF) {  // its start is lost in the token stream
        described.position.offset = token.input->sizeBuf / sizeof(char16_t);
        return described;
    }
    described.text = UnitsOf(token);
    described.position.offset =
        static_cast<std::size_t>(described.text.data() - static_cast<const char16_t*>(token.input->data));
    return described;
}

void Send(const QZReporter* reporter, const QZReport& report) {
    if (reporter != nullptr && reporter->report != nullptr) return reporter->report(reporter->context, report);
    QZErrorWriteLine(fmt::format("line {}:{}: {}", report.position.line, report.position.column, report.message));
}

// The message is short enough to need no memory.
void SendOutOfMemory(const QZReporter* reporter, QZPhase phase, const QZPosition& position) noexcept try {
    Send(reporter, {phase, QZReportKind::OutOfMemory, position, "out of memory"});
} catch (...) {  // there is none for the line either
}

}  // namespace qz

const char* QZGrammarName(const QZGrammar& grammar) { return grammar.name; }

void* QZNewLexer(const QZGrammar& grammar, QZInputStream* input) { return grammar.newLexer(input); }
void* QZNewParser(const QZGrammar& grammar, QZTokenStream* tokens) { return grammar.newParser(tokens); }

const char* QZTokenName(const QZGrammar& grammar, std::uint32_t type) {
    if (type == ANTLR3_TOKEN_EOF) return "EOF";
    return type < grammar.tokenNameCount ? grammar.tokenNames[type] : nullptr;
}

std::uint32_t QZTokenTypeCount(const QZGrammar& grammar) { return grammar.tokenNameCount; }

void QZSetLexerReporter(void* lexer, const QZReporter* reporter) {
    LexerOf(lexer)->rec->state->userp = const_cast<QZReporter*>(reporter);
}

void QZSetParserReporter(void* parser, const QZReporter* reporter) {
    ParserOf(parser)->rec->state->userp = const_cast<QZReporter*>(reporter);
}

QZTokenStream* QZNewTokenStream(void* lexer) {
    if (!qz::HasHeadroom(qz::kRuntimeNeeds)) return nullptr;
    const auto stream = antlr3CommonTokenStreamSourceNew(ANTLR3_SIZE_HINT, LexerOf(lexer)->rec->state->tokSource);
    if (qz::IsMade(stream->tokens)) return stream;
    stream->tokens = nullptr;
    stream->free(stream);
    return nullptr;
}

std::uint32_t QZLexerErrorCount(const void* lexer) { return LexerOf(lexer)->rec->state->errorCount; }
std::uint32_t QZParserErrorCount(const void* parser) { return ParserOf(parser)->rec->state->errorCount; }

void QZCloseInput(QZInputStream* input) {
    if (input != nullptr) input->close(input);
}

void QZFreeTokenStream(QZTokenStream* tokens) {
    if (tokens == nullptr) return;
    tokens->tokens->count = 0;  // the tokens are the lexer's: none of them is to be looked at
    tokens->free(tokens);
}

void QZFreeLexer(const QZGrammar& grammar, void* lexer) {
    if (lexer != nullptr) grammar.freeLexer(lexer);
}

void QZFreeParser(const QZGrammar& grammar, void* parser) {
    if (parser != nullptr) grammar.freeParser(parser);
}

void QZReleaseMemory() {
    qz::Kept::ReleaseAllOfThread();
    TreeView::ReleaseMemory();
}

std::size_t QZTokenCount(QZTokenStream* tokens) {
    qzFillStream(tokens);
    return tokens->tokens->count;
}

QZToken QZTokenAt(QZTokenStream* tokens, std::size_t index) {
    const auto element = tokens->tokens->get(tokens->tokens, static_cast<ANTLR3_UINT32>(index));
    return element == nullptr ? QZToken{} : qz::Describe(*static_cast<pANTLR3_COMMON_TOKEN>(element));
}

QZNodeKind QZKindOf(const QZNode* node) {
    const auto* token = PayloadOf(node);
    if (token == nullptr) return QZNodeKind::Nil;
    if (token->type == ANTLR3_TOKEN_INVALID) return QZNodeKind::Error;
    if (token->type == ANTLR3_TOKEN_EOF) return QZNodeKind::EndOfText;
    if (token->input != nullptr) return QZNodeKind::Token;
    return token->user1 == qz::kPutIn ? QZNodeKind::Missing : QZNodeKind::Imaginary;
}

std::uint32_t QZTypeOf(const QZNode* node) {
    const auto* token = PayloadOf(node);
    return token == nullptr ? ANTLR3_TOKEN_INVALID : token->type;
}

std::uint32_t QZChildCount(const QZNode* node) { return node->children == nullptr ? 0 : node->children->count; }

const QZNode* QZChildAt(const QZNode* node, std::uint32_t index) {
    if (index >= QZChildCount(node)) return nullptr;
    return static_cast<const QZNode*>(node->children->elements[index].element);
}

std::u16string QZTextOf(const QZGrammar& grammar, const QZNode* node) {
    switch (QZKindOf(node)) {
        case QZNodeKind::Nil:
            return u"nil";
        case QZNodeKind::Error:
            return u"Tree Error Node";
        case QZNodeKind::EndOfText:
            return u"<EOF>";
        case QZNodeKind::Token:
            return std::u16string(UnitsOf(*PayloadOf(node)));
        case QZNodeKind::Imaginary:
            return Widened(QZTokenName(grammar, QZTypeOf(node)));
        case QZNodeKind::Missing:
            return u"<missing " + Widened(QZTokenName(grammar, QZTypeOf(node))) + u">";
    }
    return {};
}

QZToken QZTokenOf(const QZNode* node) {
    const auto kind = QZKindOf(node);
    if (kind != QZNodeKind::Token && kind != QZNodeKind::EndOfText) return {};
    return qz::Describe(*PayloadOf(node));
}
