/* What fast parsers are compiled with, see cmake/fast_parser.py: the tokens of the default channel stand in one array,
 * rules read them by their place in it, and trees are put together without lists of one element.
 *
 * The runtime's token stream and stack of follow sets are brought up to date only where the runtime is about to look at
 * them: in errors, and where a grammar asks.
 */
#ifndef QZ_FAST_PARSER_H
#define QZ_FAST_PARSER_H

#include <antlr3.h>
#include <stddef.h>

#ifdef __cplusplus
extern "C" {
#endif

#define QZ_FAILED 0xFFFFFFFFU

/* The rules that are being read outside of guesses, the innermost first: what may follow each of them. */
struct QZFollow {
    struct QZFollow* around;
    ANTLR3_UINT32 known; /* its place in the runtime's stack, from 1; 0 while it isn't there */
    pANTLR3_BITSET_LIST set;
};

/* A parser of the runtime and beside it what its rules look at. Of `types` and `tokens` three at the end stand for the
 * end of the text. `results` holds a byte for each rule at each place, of the places that are `cleared`: 0 for none
 * yet, 1 for failure, the number of tokens read + 2, or QZ_FAR where these are more; then `ends` holds the places
 * behind the rule.
 */
struct QZFastParser {
    ANTLR3_PARSER parser;
    pANTLR3_RECOGNIZER_SHARED_STATE state;
    const ANTLR3_UINT32* types;
    pANTLR3_COMMON_TOKEN* tokens;
    ANTLR3_UINT8* results;
    ANTLR3_UINT32** ends;
    const char* stackLimit;
    struct QZFollow* follow;
    ANTLR3_UINT32 place;
    ANTLR3_UINT32 cleared;
    ANTLR3_UINT32 places;
    ANTLR3_UINT32 rules;
};

#define QZ_FAR 255

/* Results are fetched into the cache so many places before they are needed. */
#define QZ_AHEAD 12

pANTLR3_PARSER qzFastParserNew(ANTLR3_UINT32 sizeHint, pANTLR3_TOKEN_STREAM tokens,
                               pANTLR3_RECOGNIZER_SHARED_STATE state, ANTLR3_UINT32 rules, ANTLR3_UINT32 tokenTypes);
/* What a parser's context is given in place of factories; they belong to the parser. */
pANTLR3_BASE_TREE_ADAPTOR qzTreeAdaptorOf(pANTLR3_PARSER parser);
pANTLR3_VECTOR_FACTORY qzVectorFactoryOf(pANTLR3_PARSER parser);

/* Before and after a call of a rule from outside. */
void qzBegin(struct QZFastParser* parser);
pANTLR3_COMMON_TOKEN qzEnd(struct QZFastParser* parser);

/* The runtime's parser, its token stream being at that place. */
pANTLR3_PARSER qzParserAt(struct QZFastParser* parser, ANTLR3_UINT32 place);

void qzClearResults(struct QZFastParser* parser, ANTLR3_UINT32 place);
ANTLR3_UINT32 qzGuessTooDeep(struct QZFastParser* parser, ANTLR3_UINT32 place);
void qzTreeTooDeep(struct QZFastParser* parser);
void qzRememberFar(struct QZFastParser* parser, ANTLR3_UINT32 place, ANTLR3_UINT32 rule, ANTLR3_UINT32 end);
void qzExtendToEndOfRun(struct QZFastParser* parser, ANTLR3_UINT32 place, ANTLR3_UINT32 rule);

pANTLR3_COMMON_TOKEN qzMismatch(struct QZFastParser* parser, ANTLR3_UINT32 type, pANTLR3_BITSET_LIST follow);
void qzRaise(struct QZFastParser* parser);
/* Reports and recovers, and gives the node that stands for the rule. */
pANTLR3_BASE_TREE qzErrorNode(struct QZFastParser* parser);

/* Trees. A list is NULL while it is empty, the element with the lowest bit set while it has one, and a node without a
 * token from two on. The results of rules are NULL, nodes or lists of two or more.
 */
pANTLR3_BASE_TREE qzTokenNode(struct QZFastParser* parser, pANTLR3_COMMON_TOKEN token);
pANTLR3_BASE_TREE qzImaginaryNode(struct QZFastParser* parser, ANTLR3_UINT32 type);
pANTLR3_BASE_TREE qzJoin(struct QZFastParser* parser, pANTLR3_BASE_TREE tree, pANTLR3_BASE_TREE added);
pANTLR3_BASE_TREE qzBecomeRoot(struct QZFastParser* parser, pANTLR3_BASE_TREE root, pANTLR3_BASE_TREE tree);

#ifdef __cplusplus
}
#endif

static inline struct ANTLR3_COMMON_TREE_struct* qzNodeOf(pANTLR3_BASE_TREE tree) {
    return (struct ANTLR3_COMMON_TREE_struct*)((char*)tree - offsetof(ANTLR3_COMMON_TREE, baseTree));
}
static inline int qzIsList(pANTLR3_BASE_TREE tree) { return !qzNodeOf(tree)->token; }
static inline int qzIsOne(pANTLR3_BASE_TREE tree) { return ((size_t)tree & 1) != 0; }
static inline pANTLR3_BASE_TREE qzOne(pANTLR3_BASE_TREE node) { return (pANTLR3_BASE_TREE)((char*)node + 1); }
static inline pANTLR3_BASE_TREE qzOnly(pANTLR3_BASE_TREE one) { return (pANTLR3_BASE_TREE)((char*)one - 1); }

static inline pANTLR3_BASE_TREE qzAddChild(struct QZFastParser* parser, pANTLR3_BASE_TREE tree,
                                           pANTLR3_BASE_TREE added) {
    if (!added) return tree;
    if (tree) return qzJoin(parser, tree, added);
    return qzIsList(added) ? added : qzOne(added);
}

/* A list of one is its element. */
static inline pANTLR3_BASE_TREE qzResult(pANTLR3_BASE_TREE tree) { return qzIsOne(tree) ? qzOnly(tree) : tree; }

static inline int qzStackIsLow(const struct QZFastParser* parser) {
    return __builtin_expect((const char*)__builtin_frame_address(0) < parser->stackLimit, 0) != 0;
}

static inline ANTLR3_UINT8* qzResultOf(const struct QZFastParser* parser, ANTLR3_UINT32 place, ANTLR3_UINT32 rule) {
    return parser->results + (size_t)place * parser->rules + rule;
}

/* The place behind the rule or QZ_FAILED, as remembered. */
static inline ANTLR3_UINT32 qzRemembered(const struct QZFastParser* parser, ANTLR3_UINT32 place, ANTLR3_UINT32 rule,
                                         ANTLR3_UINT8 result) {
    if (result == 1) return QZ_FAILED;
    return result == QZ_FAR ? parser->ends[rule][place] : place + result - 2;
}

static inline void qzRemember(struct QZFastParser* parser, ANTLR3_UINT32 place, ANTLR3_UINT32 rule, ANTLR3_UINT32 end) {
    if (end - place < QZ_FAR - 2) {
        *qzResultOf(parser, place, rule) = (ANTLR3_UINT8)(end - place + 2);
    } else {
        qzRememberFar(parser, place, rule, end);
    }
}

static inline ANTLR3_UINT32 qzBehind(const struct QZFastParser* parser, ANTLR3_UINT32 place) {
    return place + (parser->types[place] != ANTLR3_TOKEN_EOF);
}

static inline pANTLR3_COMMON_TOKEN qzMatch(struct QZFastParser* parser, ANTLR3_UINT32 type,
                                           pANTLR3_BITSET_LIST follow) {
    const ANTLR3_UINT32 place = parser->place;
    if (__builtin_expect(parser->types[place] != type, 0)) return qzMismatch(parser, type, follow);
    parser->place = qzBehind(parser, place);
    parser->state->errorRecovery = ANTLR3_FALSE;
    __builtin_prefetch(qzResultOf(parser, place + QZ_AHEAD, 0));
    __builtin_prefetch(qzResultOf(parser, place + QZ_AHEAD, 64));
    return parser->tokens[place];
}

static inline int qzEndGuess(struct QZFastParser* parser, ANTLR3_UINT32 behind) {
    --parser->state->backtracking;
    return behind != QZ_FAILED;
}

/* For generated files only. */
#ifndef __cplusplus
#define QZP ((struct QZFastParser*)ctx->pParser)
#define QZ_PARSER_AT(place) qzParserAt(QZP, place)
#define QZ_EMPTY NULL
#define QZ_NO_ELEMENT NULL
#endif

#endif
