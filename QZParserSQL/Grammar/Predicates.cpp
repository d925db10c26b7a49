#include "QZParserSQL/Grammar/Predicates.h"

#include <algorithm>
#include <limits>

#include "QZParserSQL/Grammar/MySQLSelectTokens.h"
#include "QZParserSQL/dialect/Token.h"
#include "QZParserSQL/dialect/recognizer.h"

namespace {

using Token = pANTLR3_COMMON_TOKEN;

// The tokens of a stream that is read to its end.
class Tokens {
 public:
    explicit Tokens(pANTLR3_TOKEN_STREAM stream)
        : m_Vector(*static_cast<pANTLR3_COMMON_TOKEN_STREAM>(stream->super)->tokens) {}

    ANTLR3_UINT32 Count() const { return m_Vector.count; }
    Token operator[](ANTLR3_UINT32 index) const { return static_cast<Token>(m_Vector.elements[index].element); }

    // The next token of this type from `index` on; Count() where there is none.
    ANTLR3_UINT32 Find(ANTLR3_UINT32 type, ANTLR3_UINT32 index) const {
        while (index < Count() && (*this)[index]->type != type) ++index;
        return index;
    }

 private:
    const ANTLR3_VECTOR& m_Vector;
};

// In an opening parenthesis the lexer leaves these free: the partner's index, and until that is known the index behind
// the parenthesis around it.
ANTLR3_UINT32& PartnerIn(Token opening) { return opening->user2; }
ANTLR3_UINT32& AroundIn(Token opening) { return opening->user3; }

// In an operator: the partner of the parenthesis of the first chain that came to it. In a partner: how far its chain
// was read, the last operator while that goes on or where reading on failed.
ANTLR3_UINT32& PartnerOfChainIn(Token logicalOperator) { return logicalOperator->user2; }
ANTLR3_UINT32& EndOfChainIn(Token partner) { return partner->user3; }

// Where a string or a quoted name that begins here ends; a mark without a partner is a token like any other.
class QuoteEnds {
 public:
    explicit QuoteEnds(const Tokens& tokens) : m_Tokens(tokens) {}

    ANTLR3_UINT32 From(ANTLR3_UINT32 index) {
        const ANTLR3_UINT32 mark = m_Tokens[index]->type;
        bool& unclosed = mark == MySQLSelect::SIGN_QUOTE ? m_UnclosedString : m_UnclosedName;
        if (unclosed) return index;
        const ANTLR3_UINT32 end = m_Tokens.Find(mark, index + 1);
        unclosed = end == m_Tokens.Count();
        return unclosed ? index : end;
    }

 private:
    const Tokens& m_Tokens;
    bool m_UnclosedString = false;
    bool m_UnclosedName = false;
};

}  // namespace

void qzPairParentheses(pANTLR3_TOKEN_STREAM stream) {
    stream->istream->_LA(stream->istream, 1);  // the first look fills the stream
    const Tokens tokens(stream);
    QuoteEnds quoteEnds(tokens);
    ANTLR3_UINT32 behindOpen = 0;  // the index behind the innermost open parenthesis
    for (ANTLR3_UINT32 index = 0; index < tokens.Count(); ++index) {
        switch (tokens[index]->type) {
            case MySQLSelect::LEFT_PAREN:
                AroundIn(tokens[index]) = behindOpen;
                behindOpen = index + 1;
                break;
            case MySQLSelect::RIGHT_PAREN:
                if (behindOpen == 0) break;
                PartnerIn(tokens[behindOpen - 1]) = index;
                behindOpen = AroundIn(tokens[behindOpen - 1]);
                break;
            case MySQLSelect::SIGN_QUOTE:
            case MySQLSelect::MY_ONE_QUOTE:
                index = quoteEnds.From(index);
                break;
            default:
                break;
        }
    }
}

ANTLR3_MARKER qzPartnerOf(pANTLR3_COMMON_TOKEN opening) { return PartnerIn(opening); }

ANTLR3_BOOLEAN qzIsBehindFirstPair(pANTLR3_TOKEN_STREAM stream) {
    const Tokens tokens(stream);
    const auto next = stream->istream->index(stream->istream);
    return tokens[0]->type == MySQLSelect::LEFT_PAREN && qzPartnerOf(tokens[0]) != 0 &&
           qzPartnerOf(tokens[0]) + 1 == next;
}

// A chain that came to the operator before went on from there as this one would. Where it failed short of this one's
// partner, this one fails too: of chains in chains each is read on once, not once for each around it.
ANTLR3_BOOLEAN qzGoesOnBefore(pANTLR3_PARSER parser, ANTLR3_MARKER partner) {
    const auto stream = parser->tstream->istream;
    const bool isGuess = parser->rec->state->backtracking > 0;
    if (isGuess && qzWasNestedTooDeep(parser->rec)) return ANTLR3_FALSE;
    const auto next = static_cast<ANTLR3_UINT32>(stream->index(stream));
    if (next >= partner) return ANTLR3_FALSE;
    if (!isGuess) return ANTLR3_TRUE;

    const Tokens tokens(parser->tstream);
    const auto own = static_cast<ANTLR3_UINT32>(partner);
    auto& end = EndOfChainIn(tokens[own]);
    auto& first = PartnerOfChainIn(tokens[next]);
    if (first == 0) first = own;
    end = first == own ? next : EndOfChainIn(tokens[first]);
    return first == own || end > own;
}

ANTLR3_BOOLEAN qzIsReadToPartner(pANTLR3_TOKEN_STREAM stream, ANTLR3_MARKER partner) {
    const Tokens tokens(stream);
    const auto next = static_cast<ANTLR3_UINT32>(stream->istream->index(stream->istream));
    const auto own = static_cast<ANTLR3_UINT32>(partner);
    auto& end = EndOfChainIn(tokens[own]);
    end = next > own ? std::numeric_limits<ANTLR3_UINT32>::max() : std::max(end, next);
    for (auto index = own; index < next; ++index) {
        if (tokens[index]->type != MySQLSelect::RIGHT_PAREN) return ANTLR3_FALSE;
    }
    return own < next;
}

ANTLR3_BOOLEAN qzIsExponent(pANTLR3_COMMON_TOKEN word) {
    const auto text = qz::Describe(*word).text;
    return text == u"E" || text == u"e";
}
