#include "QZParserSQL/Oracle/Predicates.h"

#include "QZParserSQL/Oracle/OracleTokens.h"

namespace {

using Token = pANTLR3_COMMON_TOKEN;

// In an opening parenthesis the lexer leaves this free: the partner's index, once a question has found it.
ANTLR3_UINT32& PartnerIn(Token opening) { return opening->user2; }

}  // namespace

// What lies between partners already found is not read again, so that nested questions read each token once.
ANTLR3_BOOLEAN qzIsLeftOpen(pANTLR3_TOKEN_STREAM stream, pANTLR3_COMMON_TOKEN opening) {
    const auto& tokens = *static_cast<pANTLR3_COMMON_TOKEN_STREAM>(stream->super)->tokens;
    const auto next = static_cast<ANTLR3_UINT32>(stream->istream->index(stream->istream));
    int depth = 0;
    for (auto index = static_cast<ANTLR3_UINT32>(opening->index); index < next; ++index) {
        const auto token = static_cast<Token>(tokens.elements[index].element);
        if (token->type == Oracle::LEFT_PAREN && PartnerIn(token) != 0) {
            index = PartnerIn(token);
        } else if (token->type == Oracle::LEFT_PAREN) {
            ++depth;
        } else if (token->type == Oracle::RIGHT_PAREN && --depth == 0) {
            PartnerIn(opening) = index;
        }
        if (depth == 0) return ANTLR3_FALSE;
    }
    return ANTLR3_TRUE;
}
