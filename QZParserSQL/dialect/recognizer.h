/* What generated recognizers are compiled with. The build includes this header behind the macros that the tool writes
 * at the top of each file, and puts QZ_GUARD_NESTING at the entry of each rule.
 */
#ifndef QZ_RECOGNIZER_H
#define QZ_RECOGNIZER_H

#include <antlr3.h>

#include "QZParserSQL/dialect/QZRecognizerConstructors.h"
#ifndef QZ_PLAIN_RECOGNIZERS
#include "QZParserSQL/dialect/fast_parser.h"
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* A lexer that reports safely and, after an error, drops exactly one character more than its rule has consumed; where
 * two at signs begin no name, the first sign alone.
 */
pANTLR3_LEXER qzLexerNew(ANTLR3_UINT32 sizeHint, pANTLR3_INPUT_STREAM input, pANTLR3_RECOGNIZER_SHARED_STATE state);

/* The table of rule results of a parser with `rules` rules: successes and failures by rule and token. `repeatedRule` is
 * only ever called to be repeated, and read from one part of a list is read to its end; 0 for none. `exactToken` is
 * matched without putting in or leaving out a token, but for a second `openingToken` directly before it, which is left
 * out. Also installs the parser's reporting.
 */
pANTLR3_INT_TRIE qzRuleMemoNew(pANTLR3_PARSER parser, ANTLR3_UINT32 rules, ANTLR3_UINT32 repeatedRule,
                               ANTLR3_UINT32 exactToken, ANTLR3_UINT32 openingToken);

/* Asks the lexer for all tokens, where that has not been done. */
void qzFillStream(pANTLR3_COMMON_TOKEN_STREAM stream);

/* What the fast recognizers have instead of the runtime's. */
pANTLR3_LEXER qzFastLexerNew(ANTLR3_UINT32 sizeHint, pANTLR3_INPUT_STREAM input, pANTLR3_RECOGNIZER_SHARED_STATE state);

/* True near the end of the stack: the rule must not go deeper. Fails the guess, or raises the exception. */
ANTLR3_BOOLEAN qzNestedTooDeep(pANTLR3_BASE_RECOGNIZER recognizer);

/* Fails so without a look at the stack. */
void qzFailTooDeep(pANTLR3_BASE_RECOGNIZER recognizer);

/* Whether that was the case in this parse. */
ANTLR3_BOOLEAN qzWasNestedTooDeep(pANTLR3_BASE_RECOGNIZER recognizer);

/* A tree adaptor that puts lists together in linear time, and the tree that comes out with all its lists opened. */
pANTLR3_BASE_TREE_ADAPTOR qzTreeAdaptorNew(pANTLR3_STRING_FACTORY strings);
pANTLR3_BASE_TREE qzWholeTree(pANTLR3_BASE_TREE_ADAPTOR adaptor, pANTLR3_BASE_TREE root);

#ifdef __cplusplus
}

namespace qz {
// The runtime's collections answer with a number where memory fails.
inline bool IsMade(const void* collection) { return collection != ANTLR3_FUNC_PTR(ANTLR3_ERR_NOMEM); }

// An empty set. Throws std::bad_alloc.
pANTLR3_BITSET NewBitset(ANTLR3_UINT32 bits);
}  // namespace qz
#endif

/* For generated files only. */
#ifndef __cplusplus
#ifdef QZ_PLAIN_RECOGNIZERS
#define ANTLR3_TREE_ADAPTORNew(strings) qzTreeAdaptorNew(strings)
#else
#define ANTLR3_TREE_ADAPTORNew(strings) qzTreeAdaptorOf(ctx->pParser)
#define antlr3VectorFactoryNew(hint) qzVectorFactoryOf(ctx->pParser)
#define antlr3ParserNewStream(hint, tokens, state) qzFastParserNew(hint, tokens, state, QZ_RULES, QZ_TOKEN_TYPES)
#endif
#define antlr3LexerNewStream(hint, input, state) qzLexerNew(hint, input, state)
#define antlr3IntTrieNew(depth) \
    qzRuleMemoNew(ctx->pParser, QZ_RULE_COUNT, QZ_REPEATED_RULE, QZ_EXACT_TOKEN, QZ_OPENING_TOKEN)
#define QZ_GUARD_NESTING(handler)            \
    if (qzNestedTooDeep(RECOGNIZER)) {       \
        if (BACKTRACKING > 0) return retval; \
        goto handler;                        \
    }

/* The word that tells what a text is, and the parenthesis that may stand before it: SELECT of a query, JOIN of a list
 * of sources.
 */
#ifdef SELECT_KEYWORD
#define QZ_EXACT_TOKEN SELECT_KEYWORD
#define QZ_OPENING_TOKEN LEFT_PAREN
#else
#define QZ_EXACT_TOKEN JOIN_KEYWORD_
#define QZ_OPENING_TOKEN ANTLR3_TOKEN_INVALID
#endif
#endif

#endif
