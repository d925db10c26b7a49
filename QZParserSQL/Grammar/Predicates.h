/* What the grammar of MySQL asks where neither a token nor a guess decides. Plain C, as the generated files are. An
 * index is a token's place in its stream.
 */
#ifndef QZ_MYSQL_PREDICATES_H
#define QZ_MYSQL_PREDICATES_H

#include <antlr3.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Notes in each opening parenthesis its partner. Parentheses in strings and quoted names have none. */
void qzPairParentheses(pANTLR3_TOKEN_STREAM tokens);

/* The index of the parenthesis that closes this one; 0 where none does. */
ANTLR3_MARKER qzPartnerOf(pANTLR3_COMMON_TOKEN opening);

/* Whether the text begins with a parenthesis and the token read last is its partner. */
ANTLR3_BOOLEAN qzIsBehindFirstPair(pANTLR3_TOKEN_STREAM tokens);

/* Whether the partner is still to come. No more guesses are made about it once nesting was too deep for the stack: each
 * would read all the rest.
 */
ANTLR3_BOOLEAN qzGoesOnBefore(pANTLR3_PARSER parser, ANTLR3_MARKER partner);

/* Whether the partner is read, and behind it nothing but closing parentheses. */
ANTLR3_BOOLEAN qzIsReadToPartner(pANTLR3_TOKEN_STREAM tokens, ANTLR3_MARKER partner);

/* Whether the word is the letter of an exponent, E in either case. */
ANTLR3_BOOLEAN qzIsExponent(pANTLR3_COMMON_TOKEN word);

#ifdef __cplusplus
}
#endif

#endif
