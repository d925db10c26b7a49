// What fast parsers do beside reading on: they begin with the tokens of a stream, and meet the runtime in errors.
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>
#include <utility>

#include "QZParserSQL/dialect/FastRecognition.h"
#include "QZParserSQL/dialect/Reports.h"
#include "QZParserSQL/dialect/recognizer.h"
#include "QZParserSQL/platform/Headroom.h"
#include "QZParserSQL/platform/Stack.h"

namespace {

using qz::FastParser;

constexpr ANTLR3_UINT32 kEndTokens = 3;

pANTLR3_COMMON_TOKEN_STREAM StreamOf(const QZFastParser& parser) {
    return static_cast<pANTLR3_COMMON_TOKEN_STREAM>(parser.parser.tstream->super);
}

// --------------------------------------------------------------------------------------------------------- the tokens

void AddEnd(QZFastParser& parser, ANTLR3_UINT32* types, ANTLR3_UINT32 place) {
    for (ANTLR3_UINT32 end = place; end < place + kEndTokens; ++end) {
        types[end] = ANTLR3_TOKEN_EOF;
        parser.tokens[end] = &parser.parser.tstream->tokenSource->eofToken;
    }
}

template <class Element>
Element* New(FastParser& parser, std::size_t count) {
    return static_cast<Element*>(parser.memory.Take(count * sizeof(Element)));  // NOLINT(bugprone-sizeof-expression)
}

template <class Element>
Element* NewCleared(FastParser& parser, std::size_t count) {
    return static_cast<Element*>(std::memset(New<Element>(parser, count), 0, count * sizeof(Element)));
}

qz::TokenList NewList(FastParser& parser, std::size_t most) {
    return {New<ANTLR3_UINT32>(parser, most + kEndTokens), New<pANTLR3_COMMON_TOKEN>(parser, most + kEndTokens), 0};
}

void AddTokensOf(const ANTLR3_COMMON_TOKEN_STREAM& stream, qz::TokenList& list) {
    constexpr ANTLR3_UINT32 kAhead = 64;
    const ANTLR3_UINT32 count = stream.tokens->count;
    for (ANTLR3_UINT32 i = 0; i < count; ++i) {
        if (i + kAhead < count) __builtin_prefetch(stream.tokens->elements[i + kAhead].element);
        const auto token = static_cast<pANTLR3_COMMON_TOKEN>(stream.tokens->elements[i].element);
        if (token->channel == stream.channel) list.Add(token);
    }
}

qz::TokenList ListTokens(FastParser& parser) {
    const auto stream = StreamOf(parser);
    if (qz::IsToBeFilled(*stream)) {
        auto list = NewList(parser, qz::MostTokens(*stream));
        qz::FillStream(stream, list);
        return list;
    }
    qzFillStream(stream);
    auto list = NewList(parser, stream->tokens->count);
    AddTokensOf(*stream, list);
    return list;
}

void ReadTokens(FastParser& parser) {
    const auto list = ListTokens(parser);
    parser.tokens = list.tokens;
    AddEnd(parser, list.types, list.count);
    parser.types = list.types;
    parser.places = list.count + 1;
    parser.results = New<ANTLR3_UINT8>(parser, std::size_t{parser.places} * parser.rules);
    parser.ends = NewCleared<ANTLR3_UINT32*>(parser, parser.rules);
}

void MoveStream(QZFastParser& parser, ANTLR3_UINT32 place) {
    auto& stream = *StreamOf(parser);
    const bool atEnd = parser.types[place] == ANTLR3_TOKEN_EOF;
    stream.p = static_cast<ANTLR3_INT32>(atEnd ? stream.tokens->count : parser.tokens[place]->index);
}

void FollowStream(QZFastParser& parser) {
    const auto index = static_cast<ANTLR3_MARKER>(StreamOf(parser)->p);
    const auto isBefore = [&](ANTLR3_UINT32 place) {
        return parser.types[place] != ANTLR3_TOKEN_EOF && parser.tokens[place]->index < index;
    };
    if (!isBefore(parser.place)) {
        while (parser.place > 0 && !isBefore(parser.place - 1)) --parser.place;
    }
    while (isBefore(parser.place)) ++parser.place;
}

// ---------------------------------------------------------------------------------------------------------- the errors

// Tells the runtime what it would know if the tool's own macros had been at work. Of its follow sets those stay that
// are still the same, so that errors all the way out of a deep text don't cost its depth each.
void InformRuntime(QZFastParser& parser) {
    if (!qz::HasHeadroom(qz::kRuntimeNeeds)) throw std::bad_alloc();
    MoveStream(parser, parser.place);
    const auto stack = parser.state->following;
    QZFollow* same = parser.follow;
    while (same != nullptr && same->known == 0) same = same->around;
    const ANTLR3_UINT32 kept = same == nullptr ? 0 : same->known;
    while (stack->size(stack) > kept) stack->pop(stack);
    auto& unionCount = FastParser::Of(&parser.parser).unionCount;
    unionCount = std::min(unionCount, kept);

    auto& vector = *stack->vector;
    for (QZFollow* follow = parser.follow; follow != same; follow = follow->around) {
        if (vector.count == vector.elementsSize) qz::Reserve(vector, std::size_t{2} * vector.count);
        stack->push(stack, follow->set, nullptr);
    }
    std::reverse(vector.elements + kept, vector.elements + vector.count);
    ANTLR3_UINT32 place = vector.count;
    for (QZFollow* follow = parser.follow; follow != same; follow = follow->around) follow->known = place--;
    if (vector.count > 0) stack->top = vector.elements[vector.count - 1].element;
}

ANTLR3_UINT32 WordsOfUnion(const FastParser& parser) { return parser.tokenTypes / ANTLR3_BITSET_BITS + 1; }

ANTLR3_BITWORD* UnionOf(const FastParser& parser, ANTLR3_UINT32 sets) {
    return parser.unions + std::size_t{sets - 1} * WordsOfUnion(parser);
}

void MakeRoomForUnions(FastParser& parser, ANTLR3_UINT32 sets) {
    if (sets <= parser.unionRoom) return;
    const std::size_t size = WordsOfUnion(parser) * sizeof(ANTLR3_BITWORD);
    parser.unionRoom = 2 * sets;
    auto* unions = static_cast<ANTLR3_BITWORD*>(parser.memory.Take(parser.unionRoom * size));
    if (parser.unionCount > 0) std::memcpy(unions, parser.unions, parser.unionCount * size);
    parser.unions = unions;
}

void AddUnion(FastParser& parser, const ANTLR3_BITSET_LIST& added) {
    const ANTLR3_UINT32 words = WordsOfUnion(parser);
    ANTLR3_BITWORD* next = UnionOf(parser, parser.unionCount + 1);
    if (parser.unionCount == 0) {
        std::fill_n(next, words, 0);
    } else {
        std::copy_n(UnionOf(parser, parser.unionCount), words, next);
    }
    for (ANTLR3_UINT32 word = 0; word < std::min(words, added.length); ++word) next[word] |= added.bits[word];
    ++parser.unionCount;
}

// All that may follow the rules around, where the runtime's recovery goes on. It frees the set.
pANTLR3_BITSET FollowOfAllRules(pANTLR3_BASE_RECOGNIZER recognizer) {
    auto& parser = FastParser::Of(recognizer->super);
    const auto stack = parser.state->following;
    const ANTLR3_UINT32 sets = stack->size(stack);
    MakeRoomForUnions(parser, sets);
    while (parser.unionCount < sets) {
        AddUnion(parser, *static_cast<pANTLR3_BITSET_LIST>(stack->get(stack, parser.unionCount)));
    }
    const ANTLR3_UINT32 words = WordsOfUnion(parser);
    const auto all = qz::NewBitset(words * ANTLR3_BITSET_BITS);
    if (sets > 0) std::copy_n(UnionOf(parser, sets), words, all->blist.bits);
    return all;
}

void FreeParser(pANTLR3_PARSER runtimeParser) {
    auto& parser = FastParser::Of(runtimeParser);
    const auto freeParser = parser.freeParser;
    parser.nodes.GiveBack();
    parser.children.GiveBack();
    parser.memory.GiveBack();
    freeParser(runtimeParser);
}

}  // namespace

// ------------------------------------------------------------------------------------------ called by generated
// parsers

pANTLR3_PARSER qzFastParserNew(ANTLR3_UINT32 sizeHint, pANTLR3_TOKEN_STREAM tokens,
                               pANTLR3_RECOGNIZER_SHARED_STATE state, ANTLR3_UINT32 rules, ANTLR3_UINT32 tokenTypes) {
    void* memory = std::malloc(sizeof(FastParser));  // the runtime frees it
    const bool hasMemory = memory != nullptr && qz::HasHeadroom(qz::kRuntimeNeeds);
    const auto made = hasMemory ? antlr3ParserNewStream(sizeHint, tokens, state) : nullptr;
    if (made == nullptr || !qz::IsWhole(*made->rec->state)) {
        if (made != nullptr) made->free(made);
        std::free(memory);
        return nullptr;
    }
    auto& parser = *new (memory) FastParser{};
    parser.parser = *made;
    std::free(made);
    parser.parser.rec->super = &parser.parser;
    parser.parser.rec->computeErrorRecoverySet = FollowOfAllRules;
    parser.state = parser.parser.rec->state;
    parser.rules = rules;
    parser.tokenTypes = tokenTypes;
    parser.freeParser = std::exchange(parser.parser.free, FreeParser);
    qz::InitTrees(parser);
    return &parser.parser;
}

void qzBegin(QZFastParser* parser) {
    if (parser->types == nullptr) ReadTokens(FastParser::Of(parser));
    parser->stackLimit = qz::StackLimit();
    FollowStream(*parser);
}

pANTLR3_COMMON_TOKEN qzEnd(QZFastParser* parser) {
    MoveStream(*parser, parser->place);
    return parser->place == 0 ? nullptr : parser->tokens[parser->place - 1];
}

pANTLR3_PARSER qzParserAt(QZFastParser* parser, ANTLR3_UINT32 place) {
    MoveStream(*parser, place);
    return &parser->parser;
}

ANTLR3_UINT32 qzGuessTooDeep(QZFastParser* parser, ANTLR3_UINT32 place) {
    MoveStream(*parser, place);
    qzFailTooDeep(parser->parser.rec);
    parser->state->failed = ANTLR3_FALSE;
    return QZ_FAILED;
}

void qzTreeTooDeep(QZFastParser* parser) {
    InformRuntime(*parser);
    qzFailTooDeep(parser->parser.rec);
}

// Few at a time, shortly before they are read.
void qzClearResults(QZFastParser* parser, ANTLR3_UINT32 place) {
    constexpr ANTLR3_UINT32 kTogether = 4;
    const ANTLR3_UINT32 end = std::min(place + kTogether, parser->places);
    const std::size_t size = std::size_t{end - parser->cleared} * parser->rules;
    ANTLR3_UINT8* const results = qzResultOf(parser, parser->cleared, 0);
    const std::size_t ahead = std::size_t{QZ_AHEAD} * parser->rules;
    for (std::size_t i = 0; i < size; i += 64) __builtin_prefetch(results + ahead + i, 1);
    std::memset(results, 0, size);
    parser->cleared = end;
}

// Where the repeated rule fits, it is tried again right behind: every part of such a run is given the end of all of it,
// so that a list which is read from each of its items costs no more than one that is read once.
void qzExtendToEndOfRun(QZFastParser* parser, ANTLR3_UINT32 place, ANTLR3_UINT32 rule) {
    constexpr ANTLR3_UINT32 kAhead = 32;
    const auto endAt = [&](ANTLR3_UINT32 at) {
        __builtin_prefetch(qzResultOf(parser, at + kAhead, rule), 1);
        const ANTLR3_UINT8 result = at < parser->cleared ? *qzResultOf(parser, at, rule) : ANTLR3_UINT8{0};
        return result < 2 ? at : qzRemembered(parser, at, rule, result);
    };
    ANTLR3_UINT32 end = endAt(place);
    for (ANTLR3_UINT32 next = endAt(end); next != end; next = endAt(end)) end = next;
    for (ANTLR3_UINT32 at = place, next = endAt(at); next != end; at = next, next = endAt(at)) {
        qzRemember(parser, at, rule, end);
    }
}

void qzRememberFar(QZFastParser* parser, ANTLR3_UINT32 place, ANTLR3_UINT32 rule, ANTLR3_UINT32 end) {
    auto& ends = parser->ends[rule];
    if (ends == nullptr) ends = NewCleared<ANTLR3_UINT32>(FastParser::Of(parser), parser->places);
    ends[place] = end;
    *qzResultOf(parser, place, rule) = QZ_FAR;
}

pANTLR3_COMMON_TOKEN qzMismatch(QZFastParser* parser, ANTLR3_UINT32 type, pANTLR3_BITSET_LIST follow) {
    InformRuntime(*parser);
    const auto recognizer = parser->parser.rec;
    auto* token = static_cast<pANTLR3_COMMON_TOKEN>(recognizer->match(recognizer, type, follow));
    FollowStream(*parser);
    return token;
}

void qzRaise(QZFastParser* parser) {
    InformRuntime(*parser);
    parser->parser.rec->exConstruct(parser->parser.rec);
}

pANTLR3_BASE_TREE qzErrorNode(QZFastParser* parser) {
    const auto recognizer = parser->parser.rec;
    InformRuntime(*parser);
    recognizer->reportError(recognizer);
    recognizer->recover(recognizer);
    FollowStream(*parser);
    return qzImaginaryNode(parser, ANTLR3_TOKEN_INVALID);
}
