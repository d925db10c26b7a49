#include "QZParserSQL/Oracle/Predicates.h"

#include "QZParserSQL/Oracle/OracleTokens.h"

ANTLR3_BOOLEAN qzIsLeftOpen(pANTLR3_TOKEN_STREAM stream, pANTLR3_COMMON_TOKEN opening) {
    const auto& tokens = *static_cast<pANTLR3_COMMON_TOKEN_STREAM>(stream->super)->tokens;
    const auto next = static_cast<ANTLR3_UINT32>(stream->istream->index(stream->istream));
    int depth = 0;
    for (auto index = static_cast<ANTLR3_UINT32>(opening->index); index < next; ++index) {
        const auto type = static_cast<pANTLR3_COMMON_TOKEN>(tokens.elements[index].element)->type;
        if (type == Oracle::LEFT_PAREN) ++depth;
        if (type == Oracle::RIGHT_PAREN) --depth;
        if (depth <= 0) return ANTLR3_FALSE;
    }
    return ANTLR3_TRUE;
}
