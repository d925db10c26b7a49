// Running a recognizer without a facade, with the host's own error reporting:
//
//     auto* input = antlr3NewUCS2StringInPlaceStream(text, length, nullptr);
//     auto* lexer = MSAccessSQL_v3LexerNew(input);
//     QZSetLexerReporter(lexer, &reporter);
//     auto* tokens = QZNewTokenStream(lexer);
//     auto* parser = MSAccessSQL_v3ParserNew(tokens);
//     QZSetParserReporter(parser, &reporter);
//     const QZNode* root = QZRunEntryRule(QZGrammarMSAccessSQL_v3(), parser);
//     ...
//     QZCloseInput(input), QZFreeTokenStream(tokens), QZFreeLexer(grammar, lexer), QZFreeParser(grammar, parser);
//
// The parser owns the nodes, the text must outlive them all, and everything belongs to one thread.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "QZParserSQL/dialect/QZRecognizerConstructors.h"
#include "QZParserSQL/platform/InputStream.h"

struct ANTLR3_BASE_TREE_struct;

/// The parts of a recognition, opaque: what the functions below make, take and free.
using QZInputStream = ANTLR3_INPUT_STREAM_struct;
using QZTokenStream = ANTLR3_COMMON_TOKEN_STREAM_struct;
using QZNode = ANTLR3_BASE_TREE_struct;

/// One of the grammars; a constant that lives as long as the process.
struct QZGrammar;

/// Each dialect's grammar; MSSQLfrom is that of a FROM list by itself.
QZ_API const QZGrammar& QZGrammarMSAccessSQL_v3();
QZ_API const QZGrammar& QZGrammarMSSQL();
QZ_API const QZGrammar& QZGrammarMSSQLfrom();
QZ_API const QZGrammar& QZGrammarOracle();
QZ_API const QZGrammar& QZGrammarMySQLSelect();

/// The grammar's name, "MSAccessSQL_v3".
QZ_API const char* QZGrammarName(const QZGrammar& grammar);

/// A context of the grammar's lexer (over `input`) or parser (over `tokens`), as its exported constructor makes it;
/// null where memory fails. For hosts that choose the grammar when they run.
QZ_API void* QZNewLexer(const QZGrammar& grammar, QZInputStream* input);
QZ_API void* QZNewParser(const QZGrammar& grammar, QZTokenStream* tokens);

/// The name of a token type: "SELECT_LIST", or for a word that counts in one case only its text in quotes, "'count'".
/// "EOF" for the end of the text; null for a number outside the vocabulary.
QZ_API const char* QZTokenName(const QZGrammar& grammar, std::uint32_t type);

/// One more than the highest token type of the vocabulary.
QZ_API std::uint32_t QZTokenTypeCount(const QZGrammar& grammar);

/// A place in the text: line and column from 1, offset in UTF-16 code units from 0.
struct QZPosition {
    std::uint32_t line = 0;    ///< from 1
    std::uint32_t column = 0;  ///< from 1, in UTF-16 code units
    std::size_t offset = 0;    ///< from 0, in UTF-16 code units
};

/// Who tells: one of the two recognizers, or the build of a model (QZBuildQuery).
enum class QZPhase { Lexer, Parser, Build };

/// What a recognizer has to say. A dropped character is one or more characters that make no token; nesting too deep is
/// told once a parse, whether or not an error of the parser follows from it. Out of memory ends the parse or the build,
/// and is told without a place: line and column are 0.
enum class QZReportKind { DroppedCharacter, SyntaxError, NestedTooDeep, OutOfMemory };

/// One thing that a recognizer tells; valid during the call of the reporter.
struct QZReport {
    QZPhase phase = QZPhase::Lexer;                      ///< who tells it
    QZReportKind kind = QZReportKind::DroppedCharacter;  ///< what is told
    QZPosition position;                                 ///< of the character or token in question
    std::string message;                                 ///< UTF-8, one line without its end
};

/// Where reports go. The functions must not throw and must not use the recognizer that reports.
struct QZReporter {
    /// Called for each report, on the thread that runs the recognizer; never null.
    void (*report)(void* context, const QZReport& report) = nullptr;
    /// Handed on to both functions; not owned.
    void* context = nullptr;
    /// Null, or asked before a report of dropped characters is put together: true for those of which none is wanted.
    /// They are counted all the same.
    bool (*ignores)(void* context, std::u16string_view dropped) = nullptr;
};

/// Sends the reports of a lexer or parser context, of any grammar, to `reporter`, which must outlive it; null sends
/// them to the standard error stream again, where they go from the start.
QZ_API void QZSetLexerReporter(void* lexer, const QZReporter* reporter);
QZ_API void QZSetParserReporter(void* parser, const QZReporter* reporter);

/// A token stream over a lexer context of any grammar; null where memory fails. The caller owns it.
QZ_API QZTokenStream* QZNewTokenStream(void* lexer);

/// Calls the grammar's first rule, once for a parser, and returns the root of the tree. Where nesting comes near the
/// end of the calling thread's stack, rules fail instead of going deeper. Null where memory fails, which is reported.
QZ_API const QZNode* QZRunEntryRule(const QZGrammar& grammar, void* parser);

/// How many errors a recognizer has counted.
QZ_API std::uint32_t QZLexerErrorCount(const void* lexer);
QZ_API std::uint32_t QZParserErrorCount(const void* parser);

/// To be called in this order; null is let pass.
QZ_API void QZCloseInput(QZInputStream* input);
QZ_API void QZFreeTokenStream(QZTokenStream* tokens);
QZ_API void QZFreeLexer(const QZGrammar& grammar, void* lexer);
QZ_API void QZFreeParser(const QZGrammar& grammar, void* parser);

/// Gives back the memory that the calling thread keeps from freed recognizers for its next ones. It keeps 4 MB, after a
/// large text what that needed, at most 256 MB; with each smaller text thereafter it keeps less. A thread that ends
/// gives all back by itself.
QZ_API void QZReleaseMemory();

/// A token as the lexer gave it. `text` points into the query.
struct QZToken {
    std::uint32_t type = 0;    ///< of the grammar's vocabulary
    std::u16string_view text;  ///< exactly as in the query
    QZPosition position;       ///< of its first character
    bool hidden = false;       ///< the parser does not see it
};

/// The number of tokens, hidden ones included, the end of the text not; asks the lexer for all of them. Throws
/// std::bad_alloc.
QZ_API std::size_t QZTokenCount(QZTokenStream* tokens);
/// The token with a number from 0 below QZTokenCount.
QZ_API QZToken QZTokenAt(QZTokenStream* tokens, std::size_t index);

/// Imaginary: made by the grammar. Token: kept from the text. Missing: a token that the parser put in by itself.
enum class QZNodeKind { Nil, Error, EndOfText, Imaginary, Token, Missing };

/// What kind of node it is. Nodes live as long as their parser.
QZ_API QZNodeKind QZKindOf(const QZNode* node);
/// The token type; 0 for the nil root and an error node.
QZ_API std::uint32_t QZTypeOf(const QZNode* node);
/// How many children there are.
QZ_API std::uint32_t QZChildCount(const QZNode* node);
/// Null where there is no such child.
QZ_API const QZNode* QZChildAt(const QZNode* node, std::uint32_t index);
/// "nil", "Tree Error Node", "<EOF>", the name of an imaginary node, the exact text of a token, "<missing
/// RIGHT_PAREN>".
QZ_API std::u16string QZTextOf(const QZGrammar& grammar, const QZNode* node);
/// The token of a node of kind Token or EndOfText, for as long as the input is open; for other nodes all fields are 0.
QZ_API QZToken QZTokenOf(const QZNode* node);
