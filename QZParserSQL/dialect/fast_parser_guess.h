/* The tool's macros as guessing rules need them: a rule reads from its `place` and makes nothing. */
#undef LA
#undef LT
#undef CONSUME
#undef MATCHANYT
#undef PSRSTATE
#define PSRSTATE QZP->state
#define LA(n) (QZP->types[place + (n)-1])
#define LT(n) (QZP->tokens[place + (n)-1])
#define CONSUME() place = qzBehind(QZP, place)
#define MATCHANYT() CONSUME(), PERRORRECOVERY = ANTLR3_FALSE

/* A match ends the recovery from an error, in a guess too. */
#define QZ_GUESS_MATCH(type)                                \
    if (LA(1) != (ANTLR3_UINT32)(type)) return QZ_FAILED;   \
    if ((ANTLR3_UINT32)(type) != ANTLR3_TOKEN_EOF) ++place; \
    PERRORRECOVERY = ANTLR3_FALSE;
#define QZ_GUESS_RULE(rule)           \
    place = rule##_guess(ctx, place); \
    if (place == QZ_FAILED) return QZ_FAILED;
#define QZ_GUESS_NESTING() \
    if (qzStackIsLow(QZP)) return qzGuessTooDeep(QZP, place);

/* A rule that is entered counts as failed until it succeeds. No rule calls itself where it has read nothing, so the
 * mark is never seen before its time.
 */
#define QZ_REMEMBERED(rule)                                                        \
    const ANTLR3_UINT32 entered = place;                                           \
    if (place >= QZP->cleared) qzClearResults(QZP, place);                         \
    ANTLR3_UINT8* const result = QZP->results + (size_t)place * QZ_RULES + (rule); \
    if (*result != 0) return qzRemembered(QZP, place, (rule), *result);            \
    *result = 1;
#define QZ_REPEATED(rule)                                                                                 \
    if (place<QZP->cleared&& * qzResultOf(QZP, place, (rule))> 1) qzExtendToEndOfRun(QZP, place, (rule)); \
    QZ_REMEMBERED(rule)
#define QZ_REMEMBER(rule)                              \
    if (place - entered < QZ_FAR - 2) {                \
        *result = (ANTLR3_UINT8)(place - entered + 2); \
    } else {                                           \
        qzRememberFar(QZP, entered, (rule), place);    \
    }
