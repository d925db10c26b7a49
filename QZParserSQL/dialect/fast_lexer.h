/* What fast lexers are compiled with: the text is read in place, see platform/InputStream.h. */
#ifndef QZ_FAST_LEXER_H
#define QZ_FAST_LEXER_H

#include <antlr3.h>
#include <stddef.h>

static inline ANTLR3_UCHAR qzCharacter(const struct ANTLR3_INPUT_STREAM_struct* input, size_t distance) {
    const ANTLR3_UINT16* next = (const ANTLR3_UINT16*)input->nextChar;
    const ANTLR3_UINT16* end = (const ANTLR3_UINT16*)((const char*)input->data + input->sizeBuf);
    return distance <= (size_t)(end - next) ? next[distance - 1] : ANTLR3_CHARSTREAM_EOF;
}

static inline void qzConsumeCharacter(struct ANTLR3_INPUT_STREAM_struct* input) {
    ANTLR3_UINT16* next = (ANTLR3_UINT16*)input->nextChar;
    if ((char*)next >= (char*)input->data + input->sizeBuf) return;
    ++input->charPositionInLine;
    if (*next == input->newlineChar) {
        ++input->line;
        input->charPositionInLine = 0;
        input->currentLine = next + 1;
    }
    input->nextChar = next + 1;
}

/* On a mismatch the lexer's own functions raise and recover. */
static inline void qzMatchCharacter(pANTLR3_LEXER lexer, ANTLR3_UCHAR character) {
    if (qzCharacter(lexer->input, 1) == character) {
        qzConsumeCharacter(lexer->input);
    } else {
        lexer->matchc(lexer, character);
    }
}

static inline void qzMatchRange(pANTLR3_LEXER lexer, ANTLR3_UCHAR low, ANTLR3_UCHAR high) {
    const ANTLR3_UCHAR character = qzCharacter(lexer->input, 1);
    if (character >= low && character <= high) {
        qzConsumeCharacter(lexer->input);
    } else {
        lexer->matchRange(lexer, low, high);
    }
}

static inline void qzMatchWord(pANTLR3_LEXER lexer, ANTLR3_UCHAR* word) {
    for (; *word != ANTLR3_STRING_TERMINATOR && qzCharacter(lexer->input, 1) == *word; ++word) {
        qzConsumeCharacter(lexer->input);
    }
    if (*word != ANTLR3_STRING_TERMINATOR) lexer->matchs(lexer, word);
}

/* For generated files only. */
#ifndef __cplusplus
#undef LA
#undef CONSUME
#undef MATCHC
#undef MATCHS
#undef MATCHRANGE
#undef MATCHANY
#define LA(n) qzCharacter(INPUT, n)
#define CONSUME() qzConsumeCharacter(INPUT)
#define MATCHC(character) qzMatchCharacter(LEXER, character)
#define MATCHS(word) qzMatchWord(LEXER, word)
#define MATCHRANGE(low, high) qzMatchRange(LEXER, low, high)
#define MATCHANY() CONSUME()
#endif

#endif
