/* The tool's macros as the rules need them that make the tree. */
#undef LA
#undef LT
#undef CONSUME
#undef MATCHT
#undef MATCHANYT
#undef FOLLOWPUSH
#undef FOLLOWPOP
#undef CONSTRUCTEX
#undef PSRSTATE
#define PSRSTATE QZP->state
#define QZ_PLACE QZP->place
#define LA(n) (QZP->types[QZ_PLACE + (n)-1])
#define LT(n) (QZP->tokens[QZ_PLACE + (n)-1])
#define CONSUME() QZ_PLACE = qzBehind(QZP, QZ_PLACE)
#define MATCHT(type, follow) qzMatch(QZP, (ANTLR3_UINT32)(type), follow)
#define MATCHANYT() (PERRORRECOVERY = ANTLR3_FALSE, CONSUME())
#define CONSTRUCTEX() qzRaise(QZP)

/* The two stand around one call. */
#define FOLLOWPUSH(set)                                    \
    {                                                      \
        struct QZFollow follow = {QZP->follow, 0, &(set)}; \
        QZP->follow = &follow;
#define FOLLOWPOP()              \
    QZP->follow = follow.around; \
    }

#define QZ_GUESSED(guess) qzEndGuess(QZP, (++PSRSTATE->backtracking, guess##_guess(ctx, QZ_PLACE)))
#define QZ_GUARD_TREE(handler) \
    if (qzStackIsLow(QZP)) {   \
        qzTreeTooDeep(QZP);    \
        goto handler;          \
    }
#define QZ_LEAVE()                  \
    retval.tree = qzResult(root_0); \
    if (HASEXCEPTION()) retval.tree = qzErrorNode(QZP);
#define QZ_ENTER(result, rule) \
    qzBegin(QZP);              \
    result.start = LT(1);      \
    result.tree = rule(ctx);   \
    result.stop = qzEnd(QZP);

typedef void* QZStream;
#define QZ_PUT(stream, element) stream = (element) != NULL ? (element) : stream
#define QZ_TAKE(stream) stream
