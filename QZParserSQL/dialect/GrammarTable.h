/* What a grammar is to the code that runs it: a table of functions, one for each grammar, made by the build. Plain C.
 */
#ifndef QZ_GRAMMAR_TABLE_H
#define QZ_GRAMMAR_TABLE_H

#include <antlr3.h>

#ifdef __cplusplus
extern "C" {
#endif

/* tokenNames are as QZTokenName shows them; null for numbers that no token has. */
struct QZGrammar {
    const char* name;
    const char* const* tokenNames;
    ANTLR3_UINT32 tokenNameCount;
    void* (*newLexer)(pANTLR3_INPUT_STREAM input);
    void* (*newParser)(pANTLR3_COMMON_TOKEN_STREAM tokens);
    pANTLR3_BASE_TREE (*runEntryRule)(void* parser);
    void (*freeLexer)(void* lexer);
    void (*freeParser)(void* parser);
};

#ifdef __cplusplus
}
#endif

#endif
