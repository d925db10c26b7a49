/* What the grammar of Oracle asks where neither a token nor a guess decides. Plain C, as the generated files are. */
#ifndef QZ_ORACLE_PREDICATES_H
#define QZ_ORACLE_PREDICATES_H

#include <antlr3.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Whether the token is an opening parenthesis that the tokens read since have not closed. */
ANTLR3_BOOLEAN qzIsLeftOpen(pANTLR3_TOKEN_STREAM tokens, pANTLR3_COMMON_TOKEN opening);

#ifdef __cplusplus
}
#endif

#endif
