// What fast lexers do beside matching: they make tokens out of memory of their own and drive the rules.
#include "QZParserSQL/dialect/fast_lexer.h"

#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <new>

#include "QZParserSQL/dialect/FastRecognition.h"
#include "QZParserSQL/dialect/Pool.h"
#include "QZParserSQL/dialect/Reports.h"
#include "QZParserSQL/dialect/recognizer.h"
#include "QZParserSQL/platform/Headroom.h"

namespace {

using Token = pANTLR3_COMMON_TOKEN;

struct TokenFactory {
    ANTLR3_TOKEN_FACTORY factory{};
    qz::Pool<ANTLR3_COMMON_TOKEN, 0, 128> tokens;
};

TokenFactory& FactoryOf(pANTLR3_TOKEN_FACTORY factory) { return *reinterpret_cast<TokenFactory*>(factory); }

ANTLR3_COMMON_TOKEN MakeTokenModel() {
    ANTLR3_COMMON_TOKEN model{};
    antlr3SetTokenAPI(&model);
    return model;
}

// The functions behind the data are always the same.
Token NewToken(pANTLR3_TOKEN_FACTORY factory) {
    static const ANTLR3_COMMON_TOKEN model = MakeTokenModel();
    auto* token = FactoryOf(factory).tokens.Take(model);
    std::memcpy(static_cast<void*>(token), &factory->unTruc, offsetof(ANTLR3_COMMON_TOKEN, getText));
    return token;
}

void SetInput(pANTLR3_TOKEN_FACTORY factory, pANTLR3_INPUT_STREAM input) {
    factory->input = factory->unTruc.input = input;
    factory->unTruc.strFactory = input == nullptr ? nullptr : input->strFactory;
}

pANTLR3_TOKEN_FACTORY NewTokenFactory(pANTLR3_INPUT_STREAM input) {
    auto* tokens = new (std::nothrow) TokenFactory;
    if (tokens == nullptr) return nullptr;
    auto& factory = tokens->factory;
    factory.newToken = NewToken;
    factory.setInputStream = SetInput;
    factory.reset = [](pANTLR3_TOKEN_FACTORY self) { FactoryOf(self).tokens.GiveBack(); };
    factory.close = [](pANTLR3_TOKEN_FACTORY self) { delete &FactoryOf(self); };
    antlr3SetTokenAPI(&factory.unTruc);
    factory.unTruc.factoryMade = ANTLR3_TRUE;
    SetInput(&factory, input);
    return &factory;
}

bool Install(pANTLR3_LEXER lexer, pANTLR3_INPUT_STREAM input) {
    auto& state = *lexer->rec->state;
    auto& source = *state.tokSource;
    lexer->input = input;
    if (state.tokFactory == nullptr) {
        state.tokFactory = NewTokenFactory(input);
    } else {
        state.tokFactory->setInputStream(state.tokFactory, input);
    }
    if (state.tokFactory == nullptr) return false;
    if (source.strFactory == nullptr) source.strFactory = input->strFactory;
    if (source.eofToken.strFactory == nullptr) source.eofToken.strFactory = input->strFactory;
    source.fileName = input->fileName;
    state.tokenStartCharIndex = -1;
    return true;
}

void BeginToken(ANTLR3_RECOGNIZER_SHARED_STATE& state, const ANTLR3_INPUT_STREAM& input) {
    state.channel = ANTLR3_TOKEN_DEFAULT_CHANNEL;
    state.tokenStartCharIndex = reinterpret_cast<ANTLR3_MARKER>(input.nextChar);
    state.tokenStartCharPositionInLine = input.charPositionInLine;
    state.tokenStartLine = static_cast<ANTLR3_INT32>(input.line);
    state.text = nullptr;
    state.custom = nullptr;
    state.user1 = state.user2 = state.user3 = 0;
    state.token = nullptr;
    state.error = ANTLR3_FALSE;
    state.failed = ANTLR3_FALSE;
}

Token EndToken(pANTLR3_LEXER lexer) {
    const auto& state = *lexer->rec->state;
    const auto& input = *lexer->input;
    const Token token = NewToken(state.tokFactory);
    token->type = state.type;
    token->channel = state.channel;
    token->start = state.tokenStartCharIndex;
    token->stop = reinterpret_cast<ANTLR3_MARKER>(input.nextChar) - 1;
    token->line = static_cast<ANTLR3_UINT32>(state.tokenStartLine);
    token->charPosition = state.tokenStartCharPositionInLine;
    token->lineStart = input.currentLine;
    return token;
}

Token EndOfText(pANTLR3_LEXER lexer) {
    auto& end = lexer->rec->state->tokSource->eofToken;
    end.start = end.stop = reinterpret_cast<ANTLR3_MARKER>(lexer->input->nextChar);
    end.line = lexer->getLine(lexer);
    return &end;
}

Token NextToken(pANTLR3_TOKEN_SOURCE source) {
    const auto lexer = static_cast<pANTLR3_LEXER>(source->super);
    auto& state = *lexer->rec->state;
    for (;;) {
        BeginToken(state, *lexer->input);
        if (qzCharacter(lexer->input, 1) == ANTLR3_CHARSTREAM_EOF) return EndOfText(lexer);
        lexer->mTokens(lexer->ctx);
        if (state.error == ANTLR3_TRUE) {
            state.failed = ANTLR3_TRUE;
            lexer->rec->reportError(lexer->rec);
            lexer->recover(lexer);
        } else if (state.token == nullptr) {
            return state.token = EndToken(lexer);
        }
    }
}

// Whether the stream takes the tokens as they come.
bool TakesAll(const ANTLR3_COMMON_TOKEN_STREAM& stream) {
    return stream.discardSet == nullptr && stream.channelOverrides == nullptr &&
           stream.discardOffChannel == ANTLR3_FALSE && stream.tstream->tokenSource->nextToken == NextToken;
}

const ANTLR3_INPUT_STREAM& InputOf(const ANTLR3_COMMON_TOKEN_STREAM& stream) {
    return *static_cast<pANTLR3_LEXER>(stream.tstream->tokenSource->super)->input;
}

void AddToken(ANTLR3_VECTOR& tokens, Token token) {
    token->index = tokens.count;
    if (tokens.count == tokens.elementsSize) qz::Reserve(tokens, std::size_t{2} * tokens.count);
    tokens.elements[tokens.count++] = {token, nullptr};
}

void Fill(pANTLR3_COMMON_TOKEN_STREAM stream, qz::TokenList* list) {
    const auto source = stream->tstream->tokenSource;
    auto& tokens = *stream->tokens;
    qz::Reserve(tokens, qz::MostTokens(*stream));  // memory that no token comes to is never touched
    ANTLR3_INT32 first = -1;
    for (Token token = NextToken(source); token->type != ANTLR3_TOKEN_EOF; token = NextToken(source)) {
        AddToken(tokens, token);
        if (token->channel != stream->channel) continue;
        if (first < 0) first = static_cast<ANTLR3_INT32>(token->index);
        if (list != nullptr) list->Add(token);
    }
    stream->tstream->istream->cachedSize = tokens.count;
    stream->p = first < 0 ? static_cast<ANTLR3_INT32>(tokens.count) : first;
}

}  // namespace

void qz::Reserve(ANTLR3_VECTOR& vector, std::size_t count) {
    if (count <= vector.elementsSize) return;
    const bool isWithin = vector.elements == vector.internal;
    void* room = std::realloc(isWithin ? nullptr : vector.elements, count * sizeof(ANTLR3_VECTOR_ELEMENT));
    if (room == nullptr) throw std::bad_alloc();
    if (isWithin) std::memcpy(room, vector.internal, sizeof vector.internal);
    vector.elements = static_cast<pANTLR3_VECTOR_ELEMENT>(room);
    vector.elementsSize = static_cast<ANTLR3_UINT32>(count);
}

bool qz::IsToBeFilled(const ANTLR3_COMMON_TOKEN_STREAM& stream) {
    return stream.p == -1 && stream.tokens->count == 0 && TakesAll(stream);
}

std::size_t qz::MostTokens(const ANTLR3_COMMON_TOKEN_STREAM& stream) {
    return InputOf(stream).sizeBuf / sizeof(ANTLR3_UINT16);
}

void qz::FillStream(pANTLR3_COMMON_TOKEN_STREAM stream, TokenList& list) { Fill(stream, &list); }

bool qz::IsWhole(ANTLR3_RECOGNIZER_SHARED_STATE& state) {
    const bool isWhole = IsMade(state.rStreams) && IsMade(state.following);
    if (!IsMade(state.rStreams)) state.rStreams = nullptr;
    if (!IsMade(state.following)) state.following = nullptr;
    return isWhole;
}

void qzFillStream(pANTLR3_COMMON_TOKEN_STREAM stream) {
    if (qz::IsToBeFilled(*stream)) {
        Fill(stream, nullptr);
    } else if (stream->p == -1) {
        stream->tstream->_LT(stream->tstream, 1);  // the first look fills the stream
    }
}

pANTLR3_LEXER qzFastLexerNew(ANTLR3_UINT32 sizeHint, pANTLR3_INPUT_STREAM input,
                             pANTLR3_RECOGNIZER_SHARED_STATE state) {
    const auto lexer = qz::HasHeadroom(qz::kRuntimeNeeds) ? antlr3LexerNew(sizeHint, state) : nullptr;
    if (lexer == nullptr) return nullptr;
    if (!qz::IsWhole(*lexer->rec->state) || !Install(lexer, input)) {
        lexer->free(lexer);
        return nullptr;
    }
    lexer->rec->state->tokSource->nextToken = NextToken;
    return lexer;
}
