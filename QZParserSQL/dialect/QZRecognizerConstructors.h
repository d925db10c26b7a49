/* The exported constructors of the generated recognizers, their types left opaque. Plain C, so that the generated
 * files are compiled with it too.
 *
 * ...LexerNew takes an input stream (antlr3NewUCS2StringInPlaceStream), ...ParserNew a token stream (QZNewTokenStream).
 * The forms with SSD take a recognizer's shared state as well, or null. Each returns null where memory fails. The
 * caller owns the recognizer and frees it with QZFreeLexer or QZFreeParser. A recognizer serves one text on one thread.
 */
#ifndef QZ_RECOGNIZER_CONSTRUCTORS_H
#define QZ_RECOGNIZER_CONSTRUCTORS_H

#include "QZParserSQL/platform/Export.h"

struct ANTLR3_INPUT_STREAM_struct;
struct ANTLR3_COMMON_TOKEN_STREAM_struct;
struct ANTLR3_RECOGNIZER_SHARED_STATE_struct;
struct MSAccessSQL_v3Lexer_Ctx_struct;
struct MSAccessSQL_v3Parser_Ctx_struct;
struct OracleLexer_Ctx_struct;
struct OracleParser_Ctx_struct;
struct MSSQLLexer_Ctx_struct;
struct MSSQLParser_Ctx_struct;
struct MSSQLfromLexer_Ctx_struct;
struct MSSQLfromParser_Ctx_struct;
struct MySQLSelectLexer_Ctx_struct;
struct MySQLSelectParser_Ctx_struct;

#ifdef __cplusplus
extern "C" {
#endif

QZ_API struct MSAccessSQL_v3Lexer_Ctx_struct* MSAccessSQL_v3LexerNew(struct ANTLR3_INPUT_STREAM_struct* input);
QZ_API struct MSAccessSQL_v3Lexer_Ctx_struct* MSAccessSQL_v3LexerNewSSD(
    struct ANTLR3_INPUT_STREAM_struct* input, struct ANTLR3_RECOGNIZER_SHARED_STATE_struct* state);
QZ_API struct MSAccessSQL_v3Parser_Ctx_struct* MSAccessSQL_v3ParserNew(
    struct ANTLR3_COMMON_TOKEN_STREAM_struct* tokens);
QZ_API struct MSAccessSQL_v3Parser_Ctx_struct* MSAccessSQL_v3ParserNewSSD(
    struct ANTLR3_COMMON_TOKEN_STREAM_struct* tokens, struct ANTLR3_RECOGNIZER_SHARED_STATE_struct* state);

QZ_API struct OracleLexer_Ctx_struct* OracleLexerNew(struct ANTLR3_INPUT_STREAM_struct* input);
QZ_API struct OracleLexer_Ctx_struct* OracleLexerNewSSD(struct ANTLR3_INPUT_STREAM_struct* input,
                                                        struct ANTLR3_RECOGNIZER_SHARED_STATE_struct* state);
QZ_API struct OracleParser_Ctx_struct* OracleParserNew(struct ANTLR3_COMMON_TOKEN_STREAM_struct* tokens);
QZ_API struct OracleParser_Ctx_struct* OracleParserNewSSD(struct ANTLR3_COMMON_TOKEN_STREAM_struct* tokens,
                                                          struct ANTLR3_RECOGNIZER_SHARED_STATE_struct* state);

QZ_API struct MSSQLLexer_Ctx_struct* MSSQLLexerNew(struct ANTLR3_INPUT_STREAM_struct* input);
QZ_API struct MSSQLLexer_Ctx_struct* MSSQLLexerNewSSD(struct ANTLR3_INPUT_STREAM_struct* input,
                                                      struct ANTLR3_RECOGNIZER_SHARED_STATE_struct* state);
QZ_API struct MSSQLParser_Ctx_struct* MSSQLParserNew(struct ANTLR3_COMMON_TOKEN_STREAM_struct* tokens);
QZ_API struct MSSQLParser_Ctx_struct* MSSQLParserNewSSD(struct ANTLR3_COMMON_TOKEN_STREAM_struct* tokens,
                                                        struct ANTLR3_RECOGNIZER_SHARED_STATE_struct* state);

QZ_API struct MSSQLfromLexer_Ctx_struct* MSSQLfromLexerNew(struct ANTLR3_INPUT_STREAM_struct* input);
QZ_API struct MSSQLfromLexer_Ctx_struct* MSSQLfromLexerNewSSD(struct ANTLR3_INPUT_STREAM_struct* input,
                                                              struct ANTLR3_RECOGNIZER_SHARED_STATE_struct* state);
QZ_API struct MSSQLfromParser_Ctx_struct* MSSQLfromParserNew(struct ANTLR3_COMMON_TOKEN_STREAM_struct* tokens);
QZ_API struct MSSQLfromParser_Ctx_struct* MSSQLfromParserNewSSD(struct ANTLR3_COMMON_TOKEN_STREAM_struct* tokens,
                                                                struct ANTLR3_RECOGNIZER_SHARED_STATE_struct* state);
QZ_API struct MySQLSelectLexer_Ctx_struct* MySQLSelectLexerNew(struct ANTLR3_INPUT_STREAM_struct* input);
QZ_API struct MySQLSelectLexer_Ctx_struct* MySQLSelectLexerNewSSD(struct ANTLR3_INPUT_STREAM_struct* input,
                                                                  struct ANTLR3_RECOGNIZER_SHARED_STATE_struct* state);
QZ_API struct MySQLSelectParser_Ctx_struct* MySQLSelectParserNew(struct ANTLR3_COMMON_TOKEN_STREAM_struct* tokens);
QZ_API struct MySQLSelectParser_Ctx_struct* MySQLSelectParserNewSSD(
    struct ANTLR3_COMMON_TOKEN_STREAM_struct* tokens, struct ANTLR3_RECOGNIZER_SHARED_STATE_struct* state);

#ifdef __cplusplus
}
#endif

#endif
